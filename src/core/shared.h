#pragma once
// Small routines that every subsystem calls.

#include "core/game_state.h"
#include "core/log.h"
#include "terrain/grid.h"

#include <string_view>

namespace sm {

/// Pixels between two points: differences in 16 bits (an overflow fails), root in double.
double Distance_Exact(int x1, int y1, int x2, int y2);
/// The distance rounded half to even, as nearly every rule takes it.
int Distance_Between(int x1, int y1, int x2, int y2);
/// Exactly Distance_Between(...) <= reach without the root, for the loops over all units: the root of a whole number
/// rounds to at most R when the number is at most R x R + R. Points too far apart for 16 bits are not within.
inline bool Within(int x1, int y1, int x2, int y2, int reach)
{
    const long long dx = x2 - x1, dy = y2 - y1, r = reach;
    return r >= 0 && dx * dx + dy * dy <= r * r + r;
}
int Unit_Distance(int unit, int other);
int Distance_To(int unit, int x, int y);
/// The distance with its fraction dropped, where a rule says "truncated".
int Distance_Truncated(int x1, int y1, int x2, int y2);

/// Compass degrees 0..359 from the first point to the second; a difference of 0 down the map counts as 1 pixel.
int Bearing_To(int x1, int y1, int x2, int y2);

/// 1 front, 2 flank, 3 rear; 0 when facing and bearing are no compass degrees.
int Aspect_Of_Fire(int facing, int bearing);

/// ROW, COL and HEXNUM from X, Y; HEXNUM is 0 outside the picture.
void Locate_Unit(int unit);
/// X, Y and with them ROW, COL, HEXNUM; TERTYPE too when the point is inside the picture.
void Place_Unit(int unit, int x, int y);
/// Takes a unit off the picture: (-1000, -1000) Blue, (-1000, 1000) Red, HEXNUM 0.
void Place_Off_Picture(int unit);

/// Target class 1..10 of a role.
int Target_Class(int type);

/// What Set_Footprint would store now, for a screen that draws a unit without changing it.
float Footprint_Of(int unit);
/// FOOTPRINT from SIZE, STRENGTH, TACOPN and MAPSCALE; clears the screen line unless TACOPN is 3.
void Set_Footprint(int unit);
/// Ends LX, LY, RX, RY of the screen line from FACING and FOOTPRINT.
void Set_Screen(int unit);

/// Fills the next row of SITREPLIST (1..299, round again) and raises C2T of the unit and of its headquarters. `show`
/// above 0 also puts the text on the status line and waits MessageDelay. `unit` 0: posted at a point. Clears MsgText.
void Post_Message(int unit, std::string_view text, int x, int y, int show, int side);
/// The same at the unit's place, for the unit's side.
void Post_Own(int unit, std::string_view text, int show);
/// The same at the unit's place, for any audience.
void Post_At(int unit, std::string_view text, int show, int side);
void Clear_Sitrep();

/// Takes a unit out of play: its nodes go, X and Y become 4000, every other field 0. References of others stay.
void Remove_Unit(int unit);
/// The same with its attached units and its passenger, without a word.
void Remove_With_Attachments(int unit);
/// Drops the route; an aircraft also lets go of those that wait for it and puts down its passenger.
void Clear_Route(int unit);

void Clear_Node(int row);
/// Frees a target row and lowers FIREMISSION of its firing unit, not below 0.
void Delete_Target(int row);
/// The side's counter that a control measure is booked in; nullptr for a drawing.
Int16* Graphic_Count(const P_RECORD& graphic);
/// Frees a row of the graphics. The side's count of NAI, TAI, SEAD targets and call-for-fire zones goes with it.
void Erase_Graphic(int row);
void Erase_Text(int row);
void Erase_Bridge(int row);
void Remove_NBC(int row);

/// True when the unit stands inside an active TAI of `side`: nearer than (FOOTPRINT + 40) / 2 to its point.
bool Inside_TAI(int unit, int side);
/// An NAI or TAI is active when its PAGE is above 1, and all of them on turn 1.
bool Graphic_Active(int row);

/// Centre of the cell of a BG row: its corner plus half a cell, rounded half to even.
Point Work_Centre(int row);

void Delay(int milliseconds);
/// The common pause after a shown message.
void Message_Pause();
/// The bar's value goes up by n; when that would pass its maximum only the maximum rises, by 3n.
void Progress_Advance(int n = 100);
/// The same as `steps` times Progress_Advance(1), told to the screen once.
void Progress_Advance_Steps(int steps);
void Progress_Finish();
void Progress_Reset();

/// Plays SoundCue when sound is on, else beeps.
void Play_Sound(int cue);

}   // namespace sm

#pragma once
// The seat: what belongs to this screen alone. Nothing here ever changes the model.

#include "core/game_state.h"

#include <string>

namespace sm {

struct Seat {
    int ActiveSide = 3;     ///< side that the interface serves: 1, 2, or 3 while a turn runs
    int PlanSide = 3;       ///< side entering orders; 3 while none does
    int UserSide = 3;       ///< side of this seat: 1, 2, 3 both, 5 editor
    int ViewMode = 0;       ///< map filter: 0 default, 1 Blue, 2 Red, 3 all
    int SelUnit = 0;        ///< selected unit, 0 none
    int MapMode = 0;        ///< meaning of the next map click
    int DrawMode = 0;       ///< drawing tool
    int PickedNode = 0;     ///< node row picked up with the mouse
    int SoundCue = 0;       ///< sound to play, 1..16
    int SoundOn = 1;        ///< sound switch
    int BlueDone = 0;       ///< 1 exactly while this seat holds Blue in a network game
    int RedDone = 0;        ///< 1 exactly while this seat holds Red in a network game
    float MessageDelay = 2000.0f;   ///< milliseconds that a shown message stays
    int RangeRings = 1;     ///< range rings of the selected unit drawn
    int ProgressValue = 0, ProgressMax = 1600;
    bool PlanningEnabled = false;   ///< network games: the host lets this seat plan
    bool WritesFiles = true;        ///< each turn leaves its autosave and its tape
    bool TurnRunning = false;       ///< while Play_Turn runs every command that writes to a table is refused
    std::string MsgText;            ///< message being built
    std::string GameFileName;       ///< file being read or written
    std::string WindowTitle = "Stonemarch";
    std::string NetMessage;
    std::string PlayerName;         ///< of this seat in a network game
    bool PICTURE[MAX_UNIT + 1] = {};   ///< unit pictures shown on this screen
};

extern Seat SEAT;

inline constexpr int& ActiveSide = SEAT.ActiveSide;
inline constexpr int& PlanSide = SEAT.PlanSide;
inline constexpr int& UserSide = SEAT.UserSide;
inline constexpr int& ViewMode = SEAT.ViewMode;
inline constexpr int& SelUnit = SEAT.SelUnit;
inline constexpr int& MapMode = SEAT.MapMode;
inline constexpr int& DrawMode = SEAT.DrawMode;
inline constexpr int& SoundCue = SEAT.SoundCue;
inline constexpr int& SoundOn = SEAT.SoundOn;
inline constexpr int& BlueDone = SEAT.BlueDone;
inline constexpr int& RedDone = SEAT.RedDone;
inline constexpr float& MessageDelay = SEAT.MessageDelay;
inline constexpr std::string& MsgText = SEAT.MsgText;
inline constexpr std::string& GameFileName = SEAT.GameFileName;
inline constexpr std::string& WindowTitle = SEAT.WindowTitle;

/// Shows or hides a unit's picture on this screen; row 0 and rows outside the table are ignored.
void Show_Picture(int unit);
void Hide_Picture(int unit);
void Hide_All_Pictures();

/// Side whose view this screen shows: 1, 2, or 3 all.
int View_Side();
/// Whether this screen shows what is meant for a side (3 both).
bool May_Read_Of(int side);

/// Whether the unit's picture is shown by the view in force (free and attached units never).
bool Show_Unit(int unit);
/// Brings every unit picture in line with the view in force.
void Refresh_Pictures();

/// A rule's redisplay by view: VISIBLE goes from 0 to 1 (nothing else) and the picture is shown when the view lets
/// it: 1 Blue units and spotted ones, 2 the mirror, 3 all.
void Show_By_View(int unit);

}   // namespace sm

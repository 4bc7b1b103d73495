#pragma once
// What the fire routines have in common: reach, percent lost, who is beaten by what, drawing.

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"

#include <string>
#include <string_view>

namespace sm {

/// TG.TGTYPE: what a target row is.
enum Mission_Kind {
    HIGH_EXPLOSIVE = 1,
    BOMBERS = 3,
    AIR_STRIKE = 4,
    FASCAM = 5,
    GAS = 11,
    PERSISTENT_GAS = 21,
    DEMOLITION = 150,
    OBSTACLE = 151,
};
/// TG.TGHPT beyond the ten classes of units.
inline constexpr int BRIDGE_TARGET = 11, MINES_TARGET = 12;

/// P.PTYPE of the graphics that fires read.
inline constexpr int NAI_GRAPHIC = 12, TAI_GRAPHIC = 13, SEAD_GRAPHIC = 17, CFFZ_GRAPHIC = 18;

inline int Other_Side(int side) { return 3 - side; }

/// Whether a unit number refers to a living unit; references of removed units stay in the records of others.
inline bool Lives(int unit) { return unit >= 1 && unit <= MAX_UNIT && UNIT[unit].STATUS > 0; }

/// The unit that a lift unit has aboard, 0 none: one that it is still to pick up stands on the picture.
inline int Passenger_Aboard(int lift)
{
    const int passenger = UNIT[lift].PASSENGER;
    return UNIT[lift].TYPE == 12 && Lives(passenger) && UNIT[passenger].X < 0 ? passenger : 0;
}

inline bool Is_Gun(int type) { return type >= 7 && type <= 10; }
inline bool Is_Air_Defence(int type) { return type >= 1 && type <= 3; }

/// Reach of a unit's weapons from its centre, in pixels: MXRANGE and half of the footprint.
inline float Weapon_Reach(int unit) { return UNIT[unit].MXRANGE * MAPSCALE + UNIT[unit].FOOTPRINT / 2; }
/// The same with the footprint's fraction dropped, as batteries measure.
inline float Battery_Reach(int unit)
{
    return UNIT[unit].MXRANGE * MAPSCALE + static_cast<float>(Floor_Int(UNIT[unit].FOOTPRINT)) / 2;
}

/// Whole percent of a unit's power that a loss is, 0..100; 0 for a unit without power.
inline int Percent_Lost(int unit, float loss)
{
    const float power = UNIT[unit].RCP2;
    if (!(power > 0)) return 0;
    const float share = loss / power;
    const float percent = share * 100.0f;
    return percent >= 100.0f ? 100 : Floor_Int(percent);
}

/// "lost 12% destroyed" and "lost less than 1% destroyed" of guns and aircraft.
inline std::string Lost_And_Destroyed(int percent)
{
    return percent < 1 ? " lost less than 1% destroyed" : Cat(" lost ", To_Text(percent), "% destroyed");
}
/// The same of helicopters and air defence.
inline std::string Lost(int percent)
{
    return percent < 1 ? " lost less than 1%" : Cat(" lost ", To_Text(percent), "%");
}

/// Adds to a counter that stays at its ceiling.
inline void Raise(Int16& counter, int by) { counter = Saturate_16(counter + by); }

/// A unit becomes known to the enemy once more and its picture shows.
inline void Spot_Again(int unit)
{
    Raise(UNIT[unit].SPOTTED, 1);
    Show_Picture(unit);
}

/// Posts a text at a point, at no unit's place.
inline void Post_At_Point(std::string_view text, int x, int y, int show, int side)
{
    Post_Message(0, text, x, y, show, side);
}

/// Tells the screen of a shot, an impact or aircraft; its sound is heard only while sounds are on.
inline void Draw_Fire(Draw kind, int x1, int y1, int x2, int y2, int unit, int cue)
{
    Screen().Drawn(Drawing{kind, x1, y1, x2, y2, unit, 0});
    if (SoundOn == 1) Play_Sound(cue);
}

}   // namespace sm

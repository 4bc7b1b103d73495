#include "sustain/supply.h"

#include "core/platform.h"
#include "core/shared.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int A_TURN_OF_MOVEMENT = 1;   // activity
constexpr int LOGISTICS = 13;

// clang-format off
/// Share of the full load that a turn of movement costs; on the move means MOVESTATUS 1 or 2, of aviation above 7.
struct MOVEMENT_ROW { float MOVING, RESTING; };
constexpr MOVEMENT_ROW MOVEMENT_BY_MOBILITY[] = {
    {0.03f, 0.02f},   // foot
    {0.06f, 0.04f},   // wheels
    {0.06f, 0.04f},   // tracks
    {1.0f,  0.0f},    // aviation
};
/// The same of the other activities, by number.
constexpr float BY_ACTIVITY[] = {0.0f, 0.0f, 0.05f, 0.05f, 0.1f};
/// What a turn's movement costs in a turn of TurnLength; the others cost the same in every turn.
constexpr float BY_TURN_LENGTH[] = {1.0f, 0.5f, 0.125f};
// clang-format on

float Rate(const UNIT_RECORD& u, int activity)
{
    if (activity != A_TURN_OF_MOVEMENT) return activity >= 2 && activity <= 4 ? BY_ACTIVITY[activity] : 0.0f;
    if (u.MOBILITY < 0 || u.MOBILITY > 3) return 0;
    const MOVEMENT_ROW& row = MOVEMENT_BY_MOBILITY[u.MOBILITY];
    const bool moving = u.MOBILITY == 3 ? u.MOVESTATUS > 7 : u.MOVESTATUS == 1 || u.MOVESTATUS == 2;
    const float rate = moving ? row.MOVING : row.RESTING;
    return TurnLength >= 0 && TurnLength <= 2 ? rate * BY_TURN_LENGTH[TurnLength] : rate;
}

/// LOGSTATN from what is held and what a full load is. The box is for values that are no numbers, as a damaged
/// file may hold; the game goes on.
void Set_Supply_Level(UNIT_RECORD& u)
{
    const bool by_stock = u.TYPE == LOGISTICS && u.LSF > 0;
    const float percent = by_stock ? u.LSF2 / u.LSF * 100.0f : u.RSF2 / u.RSF * 100.0f;
    if (percent != percent) {
        Screen().Box("Error Message", Cat(u.NAME, " is the source of the error: RSF: ", To_Text(u.RSF),
                                          "\rRSF2:", To_Text(u.RSF2)));
        return;
    }
    u.LOGSTATN = Round_Even(std::clamp(percent, 0.0f, 32767.0f));
}

}   // namespace

void Consume_Supply(int unit, int activity)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.SIZE <= 0 || u.SIZE >= 100) return;
    const float rate = Rate(u, activity) * 0.5f;
    u.RSF2 = std::max(u.RSF2 - rate * u.RSF, 0.0f);
    if (u.RSF <= 0) u.RSF = 0.01f;
    if (u.TYPE == LOGISTICS && u.LSF2 > u.LSF) u.LSF2 = u.LSF;
    Set_Supply_Level(u);
    if (u.MOVESTATUS >= 2 && u.RSF2 > u.RSF) u.RSF2 = u.RSF;
}

}   // namespace sm

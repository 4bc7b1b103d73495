#include "intel/intelligence.h"

#include "core/dice.h"
#include "core/explain.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "intel/area_triggers.h"

namespace sm {

namespace {

constexpr int NAMED_AREA = 12;   // P.PTYPE

/// A sensor's contact holds for two turns, any other for one.
void Decay(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    unit.SPOTTED = unit.SPOTTED > 1 ? 1 : 0;
    if (unit.SPOTTED == 0 && unit.VISIBLE == -1) unit.VISIBLE = 0;
}

/// Pictures only: what this seat may see at the start of the run.
void Show_To_Seat(int u)
{
    const UNIT_RECORD& unit = UNIT[u];
    if (unit.PARENT_UNIT != 0) return;
    const bool by_seat = UserSide == BOTH || (unit.SIDE == BOTH - UserSide && unit.SPOTTED > 0);
    const bool by_view = ViewMode == BOTH || ViewMode == unit.SIDE;
    if (by_seat || by_view || Show_Unit(u)) Show_Picture(u);
}

/// Chance that a unit that crosses a named area kills its watchers, by posture; `held` for a posture without one.
int Chance_Against_Watchers(int tacopn, int held)
{
    switch (tacopn) {
    case 1:
        return 1;
    case 3:
        return 3;
    case 11:
        return 5;
    default:
        return held;
    }
}

void Destroy_Area(int g)
{
    const P_RECORD area = P[g];
    Screen().Drawn({Draw::CENTRE, area.PX1, area.PY1});
    Screen().Drawn({Draw::EXPLOSION, area.PX1, area.PY1});
    if (area.PSIDE == RED) Post_Message(0, "Blue forces destroy a Red NAI!", area.PX1, area.PY1, 0, BOTH);
    if (area.PSIDE == BLUE) Post_Message(0, "Red forces destroy a Blue NAI!", area.PX1, area.PY1, 0, BOTH);
    Erase_Graphic(g);
}

/// A unit inside an enemy named area is seen, and may find the watchers.
void Cross_Named_Area(int u, int g, int& chance)
{
    Spot_In_Area(u);
    chance = Chance_Against_Watchers(UNIT[u].TACOPN, chance);
    const int roll = Roll_Dice(SITE_NAI_WATCHERS);
    if (Explaining(u))
        Explain_Line(Cat(UNIT[u].NAME, " inside NAI #", To_Text(g), ": roll ", To_Text(roll), ", watchers die at ",
                         To_Text(chance), " or less"));
    if (roll <= chance) Destroy_Area(g);
    Launch_Waiting_Helicopters(u, g);   // also for an area that has just been erased
}

void Test_Areas(int u, int& chance)
{
    for (int g = 1; g <= MAX_P; ++g) {
        if (!Meets_Area(u, g, UNIT[u].X, UNIT[u].Y)) continue;
        if (P[g].PTYPE == NAMED_AREA)
            Cross_Named_Area(u, g, chance);
        else
            Fire_Linked_Targets(u, g);
        if (UNIT[u].STATUS < 1) return;
    }
}

}   // namespace

void Intelligence_Update()
{
    int chance = 0;   // kept from unit to unit: a posture without a chance takes the one before it
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1) continue;
        Decay(u);
        Show_To_Seat(u);
        if (INTELPLAY == 0) Test_Areas(u, chance);
    }
}

}   // namespace sm

#include "core/unit_reset.h"

#include "combat/ground_combat.h"
#include "combat/loss.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "events/events.h"
#include "intel/area_triggers.h"
#include "manoeuvre/engineers.h"
#include "sustain/nbc.h"
#include "sustain/reinforcements.h"
#include "terrain/grid.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace sm {

namespace {

/// A used unit must say its side; in a network game or a tape nobody is asked, the half of the table decides.
void Repair_Side(int u)
{
    if (UNIT[u].SIDE != 0) return;
    const std::string name = UNIT[u].NAME.Str();
    Log(Cat("ERROR: ", name, " side is unknown!"));
    if (GameType == 7 || GameType == 8 || GameType == 9) {
        UNIT[u].SIDE = u <= SIDE_UNITS ? BLUE : RED;
        return;
    }
    const bool blue = Screen().Ask("Error Trapper", Cat("Is ", name, " a BLUE unit?"));
    UNIT[u].SIDE = blue ? BLUE : RED;
    Log(blue ? "Player selected BLUE." : "Player selected RED.");
}

void Rest(int u)
{
    if (UNIT[u].MOVESTATUS == 1) UNIT[u].MOVESTATUS = 2;
    if (PlanSide == 3 && ViewMode == 0) Hide_Picture(u);
    const int rest = UNIT[u].MOVESTATUS == 0 ? 4 : 2;
    UNIT[u].FATIGUE = UNIT[u].FATIGUE > rest ? UNIT[u].FATIGUE - rest : 0;
}

void Check_Losses(int u)
{
    const float before = UNIT[u].RCP3;
    if (!(before > 0)) {
        Log(Cat("Morale Check Error: ", UNIT[u].NAME));
        return;
    }
    const float lost = before - UNIT[u].RCP2;
    const float share = lost / before;
    const int percent = Floor_Int(share * 100.0f);
    if (percent > 0) Post_Own(u, Cat(UNIT[u].NAME, " suffered ", To_Text(percent), "% total losses this turn!"), 1);
    Morale_Test(u, percent > 15 ? 1 : 2, 0);
}

void Clear_For_New_Turn(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    unit.TURNLOSS = 0;
    unit.RCP3 = unit.RCP2;
    unit.ACTIVITY = 0;
    unit.OBSCURED = 0;
    unit.FIREMISSIONN = 0;
    unit.TGTLINK = 0;
    unit.HPTVALUE = 0;
}

/// A jam of this turn (10) lasts one more as 5; what ELINT located (2) is 1 for a turn. The same value is the STATUS of a
/// unit too weak for any other.
int Fade_Electronic_State(int u)
{
    const int value = UNIT[u].EWSTATUS == 2 ? 1 : UNIT[u].EWSTATUS == 10 ? 5 : 0;
    UNIT[u].EWSTATUS = value;
    return value;
}

void Prepare_Defence(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.TIMERM <= 0 || unit.MOBILITY == 3) return;
    unit.TIMERM -= 1;
    if (unit.TIMERM > 0) {
        Post_Own(u, Cat(unit.NAME, ": Deliberate defense will be finished in ", To_Text(unit.TIMERM), " turns!"), 1);
    } else if (unit.TACOPN == 1) {
        unit.TACOPN = 11;
        unit.MISSION = "Deliberate Defense";
        Post_Own(u, Cat(unit.NAME, ": Deliberate defense is complete!"), 0);
    }
}

/// Roles that stay operational down to a tenth of their strength: air defence, guns, aviation, lines of communication.
constexpr int HARDY_ROLES[] = {1, 2, 3, 7, 8, 9, 10, 11, 12, 17, 26, 50};

int Status_By_Strength(int u, int otherwise)
{
    const float strength = UNIT[u].STRENGTH;
    if (strength >= 36 && strength < 999) return 2;
    if (strength >= 10 && strength < 36) {
        for (const int role : HARDY_ROLES)
            if (UNIT[u].TYPE == role) return 2;
        return 1;
    }
    if (strength >= 1 && strength < 10) return 1;
    return otherwise;
}

void Watch_By_NAI(int u)
{
    if (INTELPLAY != 0 || UNIT[u].TYPE == 50) return;
    for (int g = 1; g <= MAX_P; ++g) {
        if (P[g].PTYPE != 12 || P[g].PSIDE == UNIT[u].SIDE || !Graphic_Active(g)) continue;
        if (Distance_To(u, P[g].PX1, P[g].PY1) > Area_Reach(u)) continue;
        UNIT[u].SPOTTED = Saturate_16(UNIT[u].SPOTTED + 1);
        Show_By_View(u);
    }
}

void Reset_Unit(int u)
{
    if (UNIT[u].STATUS > 0) {
        Repair_Side(u);
        Rest(u);
        Check_Losses(u);
        Clear_For_New_Turn(u);
        const int otherwise = Fade_Electronic_State(u);
        UNIT[u].STATUS = otherwise;
        Prepare_Defence(u);
        if (UNIT[u].MOBILITY != 3 && UNIT[u].SUPPRESSED > 0) Suppression_Test(u, 1, 0);
        const int status = Status_By_Strength(u, otherwise);
        UNIT[u].STATUS = status;
        if (status == 0) Remove_With_Attachments(u);
    }
    if (UNIT[u].STATUS > 0) Engineer_Work(u);
    Set_Movement_Allowance(u);
    if (UNIT[u].STATUS > 0) Watch_By_NAI(u);
}

/// Enemy works within 40 km of an active NAI become known.
void Watch_Works_By_NAI()
{
    if (INTELPLAY != 0) return;
    for (int g = 1; g <= MAX_P; ++g) {
        if (P[g].PTYPE != 12 || !Graphic_Active(g)) continue;
        for (int row = 1; row <= MAX_BG; ++row) {
            if (BG[row].BGSIDE < 1 || BG[row].BGSIDE == P[g].PSIDE) continue;
            const Point centre = Work_Centre(row);
            if (Int_Div(Distance_Between(centre.X, centre.Y, P[g].PX1, P[g].PY1), MAPSCALE) < 41) BG[row].BGVISIBLE = 1;
        }
    }
}

/// Halted units look again at what they stand on and whom they touch. A unit may be gone after each look.
void Look_Around()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1 || Hex_Number(UNIT[u].X, UNIT[u].Y) == 0) continue;
        Obstacle_Recon(u);
        Engage_Unit(u, 1);
        UNIT[u].ACTIVITY = 0;
        if (UNIT[u].SIDE == BLUE && UNIT[u].STATUS > 0) Event_Check(u, UNIT[u].X, UNIT[u].Y, false);
    }
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT[u].ACTIVITY = 0;
        if (!(UNIT[u].TURNLOSS > 0)) continue;
        Apply_Loss(u, UNIT[u].TURNLOSS);
        UNIT[u].TURNLOSS = 0;
    }
}

/// A parent keeps pace with its fastest attachment.
void Keep_Pace()
{
    std::vector<std::pair<int, int>> attached;   // parent, child: parents in order, so that chains add up upwards only
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].PARENT_UNIT >= 1 && UNIT[v].PARENT_UNIT <= MAX_UNIT) attached.emplace_back(UNIT[v].PARENT_UNIT, v);
    std::sort(attached.begin(), attached.end());
    for (const auto& [parent, child] : attached)
        if (UNIT[parent].STATUS > 0 && UNIT[parent].MOVEPOINTS2 < UNIT[child].MOVEPOINTS2)
            UNIT[parent].MOVEPOINTS2 = UNIT[child].MOVEPOINTS2;
}

}   // namespace

void Set_Movement_Allowance(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.STATUS > 0) {
        int points = unit.MOBILITY == 0 ? 6 : unit.MOBILITY == 1 || unit.MOBILITY == 2 ? 24 : 0;
        if (unit.TYPE == 13 && unit.SIZE > 3) points = 12;
        if (unit.SIZE == 100) points = 48;
        if (unit.TACOPN == 2) points += 4;
        if (unit.MOPP > 2) points -= 2;
        if (unit.STATUS == 1) points -= 2;
        if (unit.EWSTATUS >= 5) points -= 2;
        if (unit.C2 == 0 || unit.C2 == 1) points = Round_Even(static_cast<float>(points) * 0.5f);
        if (unit.C2 == 2) points = Round_Even(static_cast<float>(points) * 0.75f);
        if (points < 1) points = 1;
        if (unit.UCONTROL == 1 && (unit.TYPE == 6 || unit.TYPE == 24)) points += 6;
        if (unit.UCONTROL == 1 && unit.TYPE == 18) points = 18;
        if (unit.MOBILITY == 3) points = 400;
        unit.MOVEPOINTS2 = points;
    }
    // Free rows too: a row that a new unit takes starts with 1.
    if (TurnLength == 1) unit.MOVEPOINTS2 = unit.MOVEPOINTS2 / 2;
    if (TurnLength == 2) unit.MOVEPOINTS2 = unit.MOVEPOINTS2 / 8;
    if (unit.MOVEPOINTS2 < 1) unit.MOVEPOINTS2 = 1;
}

void Reset_Units()
{
    for (int u = 1; u <= MAX_UNIT; ++u) Reset_Unit(u);
    Watch_Works_By_NAI();
    Look_Around();
    Keep_Pace();
    for (int row = 1; row <= MAX_NBC; ++row)
        if (NBC[row].NBCTYPE == 20) Remove_NBC(row);
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].TYPE == 22 && UNIT[u].STATUS > 1 && UNIT[u].LOGSTATN > 0 && UNIT[u].SMOKE == 1) Lay_Smoke(u);
        if (UNIT[u].TYPE == 50) Restore_LOC(u);
    }
    Screen().Changed(Redraw::UNITS);
}

}   // namespace sm

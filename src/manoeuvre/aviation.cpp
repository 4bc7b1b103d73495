#include "manoeuvre/aviation.h"

#include "combat/air_defence.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/helicopters.h"
#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "intel/command.h"
#include "manoeuvre/routes.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int AVIATION = 3;   // MOBILITY
constexpr int ATTACK = 11, LIFT = 12, COLLECTOR = 17, UAV = 26;
constexpr int LANDED = 0, HOVERING = 8, FLYING = 9, ABORTING = 10;
constexpr int FULL_TANK = 400;   // slices

bool Holds_Station(int type) { return type == ATTACK || type == COLLECTOR || type == UAV; }

// ---------------------------------------------------------------------------------------------- air assault

void Take_Aboard(int lift)
{
    UNIT[lift].PZ = 0;
    for (int k = 1; k <= MAX_UNIT; ++k) {
        if (UNIT[k].STATUS < 1 || UNIT[k].CARRIER != lift) continue;
        UNIT[lift].PASSENGER = k;
        Clear_Route(k);
        Place_Off_Picture(k);
        return;
    }
}

/// Puts the passenger down under the lift unit; nothing without one.
void Set_Down(int lift, std::string_view report)
{
    const int k = Passenger_Aboard(lift);
    UNIT[lift].PASSENGER = 0;
    if (k == 0) return;
    UNIT[k].CARRIER = 0;
    Place_Unit(k, UNIT[lift].X, UNIT[lift].Y);
    UNIT[k].SUPPRESSED = std::min(4, UNIT[k].SUPPRESSED + 1);
    Post_Own(k, Cat(UNIT[k].NAME, report), 0);
}

// ---------------------------------------------------------------------------------------------- one step

void End_Flight(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    Set_Down(u, " reports air assault failed!");
    unit.MOVESTATUS = LANDED;
    unit.TIMERM = 0;
    unit.SUPPRESSED = 0;
    unit.SENSORS = 0;
    unit.FREEHUNT = 0;
    unit.NAI = 0;
    unit.PZ = 0;
    unit.LZ = 0;
    unit.LX = unit.RX = unit.X;
    unit.LY = unit.RY = unit.Y;
}

/// An attack helicopter flies past everything until it comes within reach of a TAI of its side.
void Begin_Search_At_TAI(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    const int reach = Round_Even(Weapon_Reach(u)) + 20;
    for (int g = 1; g <= MAX_P && unit.FREEHUNT == 0; ++g)
        if (P[g].PTYPE == TAI_GRAPHIC && P[g].PSIDE == unit.SIDE && Distance_To(u, P[g].PX1, P[g].PY1) <= reach)
            unit.FREEHUNT = 1;
}

void Search_On_The_Way(int u, int x, int y)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.STATUS <= 1) return;
    if (unit.TYPE == UAV) {
        unit.SENSORS = 1;
        IEW_Sweep(u);
    } else if (unit.TYPE == ATTACK) {
        if (unit.FREEHUNT == 0) Begin_Search_At_TAI(u);
        if (unit.FREEHUNT == 1) AH_Search(u, x, y);
    }
}

/// Row of the node that is reached with this step, 0 when its number is missing.
int Count_Down_Nodes(int u)
{
    int reached = 0;
    for (int row = 1; row <= MAX_MN; ++row) {
        if (MN[row].MNUNIT != u) continue;
        MN[row].MNUNITNUMBER -= 1;
        if (MN[row].MNUNITNUMBER == 0) reached = row;
    }
    return reached;
}

void Act_At_Node(int u, int row)
{
    UNIT_RECORD& unit = UNIT[u];
    if (Holds_Station(unit.TYPE) && unit.LZ == row && unit.MOVESTATUS != ABORTING) {
        unit.MOVESTATUS = HOVERING;
        unit.LZ = 0;
    }
    if (unit.TYPE != LIFT) return;
    if (unit.PZ == row) Take_Aboard(u);
    if (unit.LZ == row) {
        unit.LZ = 0;
        Set_Down(u, " reports the air assault is complete!");
    }
}

void Reach_Node(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    const int row = Count_Down_Nodes(u);
    if (row > 0) {
        Act_At_Node(u, row);
        Clear_Node(row);
    }
    Raise(unit.C2T, 1);
    if (Lives(unit.HIGHERHQ)) Raise(UNIT[unit.HIGHERHQ].C2T, 1);
    unit.NUMBER_OF_NODES -= 1;
    if (unit.NUMBER_OF_NODES > 0)
        Start_Next_Leg(u);
    else if (unit.TIMERM < FULL_TANK && unit.MOVESTATUS != ABORTING)
        unit.MOVESTATUS = HOVERING;
    else
        End_Flight(u);
}

void Step(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.NUMBER_OF_NODES < 1) {
        End_Flight(u);
        return;
    }
    constexpr int COST = 1;   // in the air every cell costs the same
    const int n = unit.NUMBER_OF_MOVES + 1;
    const int x = Round_Even(static_cast<float>(unit.X1) + static_cast<float>(n) * unit.MOVEX);
    const int y = Round_Even(static_cast<float>(unit.Y1) + static_cast<float>(n) * unit.MOVEY);
    if (unit.MOVEPOINTS2 - COST < 0) return;
    unit.FACING = Bearing_To(unit.X1, unit.Y1, x, y);
    const int status = unit.MOVESTATUS;
    Search_On_The_Way(u, x, y);
    if (!Lives(u) || unit.MOVESTATUS != status) return;
    unit.MOVEPOINTS2 -= COST;
    unit.MOVECOST_TO_END -= COST;
    unit.DISTANCE_TO_END -= 1;
    unit.NUMBER_OF_MOVES += 1;
    Place_Unit(u, x, y);
    if (unit.NUMBER_OF_MOVES == unit.DISTANCE_IN_HEXES) Reach_Node(u);
}

// ---------------------------------------------------------------------------------------------- the pass of a
// slice

void Hover(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    unit.SPOTTED = 0;
    unit.TIMERM += 1;
    if (unit.TYPE == ATTACK) AH_Search(u, unit.X, unit.Y);
    if (!Lives(u) || unit.MOVESTATUS != HOVERING) return;   // an abort stands
    const bool fuel_for_home_only = Holds_Station(unit.TYPE) && FULL_TANK - unit.TIMERM <= unit.DISTANCE_TO_END;
    if (fuel_for_home_only || unit.FIREMISSIONN >= 4) unit.MOVESTATUS = FLYING;
}

void Fly(int u)
{
    Move_AH(u);
    if (Lives(u) && UNIT[u].MOVESTATUS != LANDED) UNIT[u].TIMERM += 1;
}

void Land_When_Empty(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.TIMERM < FULL_TANK) return;
    unit.TIMERM = 0;
    unit.MOVESTATUS = LANDED;
    unit.SPOTTED = 0;
    unit.VISIBLE = 0;
    unit.NAI = 0;
    unit.FREEHUNT = 0;
    Post_Own(u, Cat(unit.NAME, " has landed."), 0);
    if (SoundOn == 1) Play_Sound(SOUND_LANDING);
}

void Show_Aircraft(int u)
{
    if (UNIT[u].SPOTTED >= 1 || UNIT[u].SIDE == PlanSide)
        Show_Picture(u);
    else
        Hide_Picture(u);
    Show_By_View(u);
}

// ---------------------------------------------------------------------------------------------- fighters

constexpr STEP<float, int> FIGHTERS[] = {
    {"lift unit", [](int u) { return UNIT[u].TYPE == LIFT ? 3.0f : 1.0f; }},
    {"on security", [](int u) { return UNIT[u].TACOPN == 3 ? 0.25f : 1.0f; }},
};

/// What fighters take off an aircraft that they caught, in RCP points.
float Loss_To_Fighters(int u, int roll)
{
    const float share = static_cast<float>(roll) / 3.0f;
    float loss = Multiply_Out(share * 0.01f, FIGHTERS, Explaining(u), u);
    loss = std::min(loss, UNIT[u].RCP2);
    return UNIT[u].MOVESTATUS == ABORTING ? loss / 10.0f : loss;
}

void Lose_To_Fighters(int u)
{
    const int roll = Roll_Dice(SITE_AIR_LOSS);
    if (Explaining(u)) Explain_Line(Cat(UNIT[u].NAME, " loses to fighters: roll ", To_Text(roll), " / 3 x 0.01"));
    const float loss = Loss_To_Fighters(u, roll);
    const int percent = Percent_Lost(u, loss);
    const int passenger = Passenger_Aboard(u);
    const std::string text =
        Cat(UNIT[u].NAME, percent < 1 ? " lost no aircraft!" : Cat(" lost ", To_Text(percent), "%!"));
    if (Explaining(u)) Explain_Line(Cat("  loss ", To_Text(loss), ", ", To_Text(percent), "%"));
    Post_At(u, text, 1000, BOTH);
    (UNIT[u].SIDE == BLUE ? BADAL : RADAL) += loss;
    Apply_Loss(u, loss);
    if (Lives(u)) Post_Own(u, text, 2000);
    if (Lives(passenger)) Apply_Loss(passenger, UNIT[passenger].RCP2 * static_cast<float>(percent) * 0.01f);
}

}   // namespace

int Aviation_Pass()
{
    int movers = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].MOBILITY != AVIATION || UNIT[u].STATUS < 1) continue;
        const int status = UNIT[u].MOVESTATUS;
        if (status == HOVERING) {
            Hover(u);
        } else if (status == FLYING || status == ABORTING) {
            Fly(u);
            ++movers;
        }
        if (!Lives(u)) continue;
        Land_When_Empty(u);
        Show_Aircraft(u);
    }
    return movers;
}

void Move_AH(int unit)
{
    const int held = CurUnit;
    CurUnit = unit;
    Step(unit);
    CurUnit = held;
}

void Abort_Mission(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.NUMBER_OF_NODES < 2) return;
    for (int row = 1; row <= MAX_MN; ++row) {
        if (MN[row].MNUNIT != unit) continue;
        if (MN[row].MNUNITNUMBER == u.NUMBER_OF_NODES) {
            MN[row].MNUNITNUMBER = 1;
            continue;
        }
        Clear_Node(row);
        Delay(500);
    }
    u.NUMBER_OF_NODES = 1;
    u.MOVESTATUS = ABORTING;
    Start_Next_Leg(unit);
}

void Air_Interception_Slice()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& unit = UNIT[u];
        if (unit.STATUS < 1 || unit.MOVESTATUS < FLYING) continue;
        if (Intercept_Check(u, unit.SIDE, unit.X, unit.Y, 0) != 1) continue;
        if (unit.TYPE == UAV) {
            Post_At(u, "UAV is destroyed!", 0, BOTH);
            Apply_Loss(u, unit.RCP2);
        } else {
            Lose_To_Fighters(u);
        }
    }
}

void Sensor_Slice()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.STATUS < 1) continue;
        if (Is_Air_Defence(unit.TYPE)) Raise(unit.C2T, 1);
        const bool collects_in_the_air =
            (unit.TYPE == COLLECTOR && unit.MOVESTATUS > 7) || (unit.TYPE == UAV && unit.MOVESTATUS == HOVERING);
        if (collects_in_the_air) unit.SENSORS = 1;
        if (collects_in_the_air || unit.TYPE == 16) IEW_Sweep(u);
        if (unit.MOVESTATUS > HOVERING) Small_Arms_Fire(u);
    }
}

}   // namespace sm

// One step of a ground unit.

#include "combat/ground_combat.h"
#include "combat/retreat.h"
#include "core/near_units.h"
#include "core/platform.h"
#include "core/shared.h"
#include "intel/area_triggers.h"
#include "manoeuvre/engineers.h"
#include "manoeuvre/movement.h"
#include "manoeuvre/routes.h"
#include "sustain/nbc.h"
#include "terrain/grid.h"

#include <algorithm>
#include <iterator>

namespace sm {

namespace {

constexpr int CONVOY = 100;
constexpr int RIVER = 5, IMPASSABLE = 6, SEA = 10;

/// Points to enter a cell, by terrain value. A value without a row costs what the cell before it cost.
struct COST_ROW {
    int FROM, TO;
    int FOOT, WHEELED, TRACKED;
};
// clang-format off
constexpr COST_ROW COSTS[] = {
    // VALUES  FOOT WHEELED TRACKED
    {  0,  0,   1,   1,   1 },   // unrestricted
    {  1,  1,   1,   3,   2 },   // restricted
    {  2,  2,   1,   6,   5 },   // severely restricted
    {  3,  3,   1,   1,   1 },   // beach
    {  4,  4,   1,   2,   2 },   // urban
    {  5,  5,   6,   6,   6 },   // river
    {  6,  6,   2,  60,  60 },   // impassable
    {  7,  7,   3,   3,   3 },   // bridge
    { 10, 10,  60,  60,  60 },   // sea
    { 11, 18,   3,   3,   3 },   // obstacle
    { 21, 27,   3,   3,   3 },   // fortification
};
// clang-format on
constexpr int CONVOY_ON_IMPASSABLE = 24;         // by road, wheeled or tracked
constexpr int COST_CAP = 12, CAPPED_COST = 10;   // of a combat unit, but on the sea
constexpr int COST_OFF_PICTURE = 200;

/// What stacking on a friend does to the cost of a controlled unit, by role.
float Congestion(int type)
{
    static constexpr int UNHINDERED[] = {4, 5, 6, 13, 14, 15, 19, 20, 21, 24, 25};
    if (std::find(std::begin(UNHINDERED), std::end(UNHINDERED), type) != std::end(UNHINDERED)) return 1.0f;
    return type == 18 ? 2.0f : 1.3f;
}

bool Crosses_Rivers(int type)
{
    static constexpr int CROSSING[] = {4, 5, 6, 14, 15, 19, 20};
    return std::find(std::begin(CROSSING), std::end(CROSSING), type) != std::end(CROSSING);
}

/// False when the unit is gone, or something has taken it out of its march.
bool Goes_On(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return u.STATUS > 0 && (u.MOVESTATUS == 1 || u.MOVESTATUS == 2 || u.MOVESTATUS == 5);
}

int Half(float width) { return Round_Even(width / 2); }

/// An enemy in the way that can fight no more is taken prisoner.
bool Gives_Up(const UNIT_RECORD& enemy, const UNIT_RECORD& u)
{
    return (enemy.STATUS == 1 || enemy.LOGSTATN <= 0) && u.MOBILITY != 3 && enemy.MOVESTATUS < 3;
}

/// The cost of a step onto ground that a friend holds.
int Congested_Cost(const UNIT_RECORD& u, const UNIT_RECORD& friend_, int cost)
{
    if (u.UCONTROL == 0) {
        if (friend_.SIZE >= u.SIZE) cost = Round_Even(static_cast<float>(cost) * 1.5f);
    } else {
        cost = Round_Even(static_cast<float>(cost) * Congestion(u.TYPE));
    }
    return cost > u.MOVEPOINTS ? static_cast<int>(u.MOVEPOINTS) : cost;
}

/// Whether a unit lies within `reach` of (x, y), or (x, y) on its ground: by the distance cut to whole pixels.
bool Touches(const UNIT_RECORD& other, int x, int y, int reach)
{
    const int d = Distance_Truncated(x, y, other.X, other.Y);
    return d <= reach || d <= Half(other.FOOTPRINT);
}

/// Enemies overrun at (x, y) surrender; the first friend whose ground is met hinders the step. Returns the cost.
int Stacking(int unit, int x, int y, int cost)
{
    const UNIT_RECORD& u = UNIT[unit];
    const int reach = Half(u.FOOTPRINT);
    Near_Rows near(0.5f);
    while (const int j = near.Next(x, y, static_cast<float>(reach))) {
        const UNIT_RECORD& other = UNIT[j];
        if (other.STATUS < 1 || !Touches(other, x, y, reach)) continue;
        if (other.SIDE == 3 - u.SIDE) {
            if (Gives_Up(other, u)) Surrender_Unit(j);
        } else if (j != unit && other.SIDE == u.SIDE) {
            return Congested_Cost(u, other, cost);
        }
    }
    return cost;
}

/// A refusal costs no points; the route is dropped.
void Refuse(int unit, const char* text)
{
    Post_Own(unit, Cat(std::string_view(UNIT[unit].NAME), text), 0);
    Clear_Route(unit);
}

/// NAI and TAI of the other side around the place ahead. False when the march is over.
bool Set_Off_Areas(int unit, int x, int y)
{
    const Int16 graphic = CurGraphic;
    bool goes_on = true;
    for (int g = 1; goes_on && g <= MAX_P; ++g) {
        if (P[g].PTYPE == 0 || !Meets_Area(unit, g, x, y)) continue;
        CurGraphic = g;
        if (P[g].PTYPE == 12) {
            Spot_In_Area(unit);
            Launch_Waiting_Helicopters(unit, g);
        } else {
            Fire_Linked_Targets(unit, g);
        }
        goes_on = Goes_On(unit);
    }
    CurGraphic = graphic;
    return goes_on;
}

/// Contaminated ground around the place that the unit leaves. False when the march is over.
bool Leave_Contamination(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    for (int row = 1; row <= MAX_NBC; ++row) {
        const NBC_RECORD& cloud = NBC[row];
        if (cloud.NBCTYPE <= 0 || cloud.NBCTYPE == 20 || u.MOPP >= 4) continue;
        const int reach = Half(u.FOOTPRINT) + Half(static_cast<float>(cloud.NBCSIZE));
        if (Distance_To(unit, cloud.NBCX, cloud.NBCY) >= reach) continue;
        Post_Own(unit, Cat(std::string_view(u.NAME), " is inside a contaminated area!"), 0);
        NBC_Loss(unit, cloud.NBCTYPE);
        if (!Goes_On(unit)) return false;
    }
    return true;
}

void Finish_Leg(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    const bool passed = Pass_Node(unit) > 0;
    if (passed && u.NUMBER_OF_NODES <= 0) {
        u.MOVESTATUS = 0;
        if (u.TACOPN != 3) {
            u.TACOPN = 1;
            u.MISSION = "Hasty Defense";
            Post_Own(unit, Cat(std::string_view(u.NAME), " is at it's final destination!"), 0);
        }
    }
    if (u.NUMBER_OF_NODES > 0) Start_Next_Leg(unit);
}

void Step(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.MOVESTATUS == 5) Log(Cat(std::string_view(u.NAME), " is attempting to retreat!"));
    u.SENSORS = 0;
    const int here = Cell_Value(u.HEXNUM);
    if (here >= 11 && here <= 20) u.BREACH = 1;
    // An ineffective unit cannot breach; held at an obstacle, it would never leave again.
    if (u.BREACH == 1 && u.MOVESTATUS == 2 && u.STATUS == 2) u.MOVESTATUS = 1;
    Set_Footprint(unit);
    if (u.MOVESTATUS != 5) Engage_Unit(unit, 1);
    if (!Goes_On(unit) || u.MOVESTATUS == 1) return;
    if (u.NUMBER_OF_NODES < 1) {
        u.MOVESTATUS = 0;
        return;
    }

    const int n = u.NUMBER_OF_MOVES + 1;
    const float along_x = static_cast<float>(n) * u.MOVEX, along_y = static_cast<float>(n) * u.MOVEY;
    const int x = Round_Even(static_cast<float>(u.X1) + along_x);
    const int y = Round_Even(static_cast<float>(u.Y1) + along_y);
    const int hex = Hex_Number(x, y);
    const int ground = Cell_Value(hex);
    int cost = hex > 0 ? Terrain_Cost(unit, ground, 0) : COST_OFF_PICTURE;
    if (u.SIZE != CONVOY) cost = Stacking(unit, x, y, cost);
    if (ground == RIVER && !Crosses_Rivers(u.TYPE)) return Refuse(unit, " cannot cross river without bridging!");
    if (ground == IMPASSABLE && u.MOBILITY > 0 && u.SIZE != CONVOY)
        return Refuse(unit, " cannot traverse this terrain!");
    if (hex == 0 || u.MOVEPOINTS2 < cost) return;   // tries again on its next slice

    u.FACING = Bearing_To(u.X1, u.Y1, x, y);
    if (INTELPLAY == 0 && !Set_Off_Areas(unit, x, y)) return;
    if (!Leave_Contamination(unit)) return;
    Obstacle_Recon(unit);
    if (!Goes_On(unit)) return;

    u.MOVEPOINTS2 -= cost;
    u.MOVECOST_TO_END = Saturate_16(u.MOVECOST_TO_END - cost);
    u.DISTANCE_TO_END = Saturate_16(u.DISTANCE_TO_END - 1);
    u.NUMBER_OF_MOVES += 1;
    Place_Unit(unit, x, y);
    if (u.TACOPN == 3) Set_Screen(unit);
    if (u.TERTYPE == RIVER) {
        u.TIMEREGR = 2;   // the assault crossing
        u.MOVESTATUS = 1;
    }
    if (u.NUMBER_OF_MOVES >= u.DISTANCE_IN_HEXES) Finish_Leg(unit);
}

}   // namespace

int Terrain_Cost(int unit, int value, int carried)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (u.MOBILITY == 3) return 1;
    int cost = carried;
    for (const COST_ROW& row : COSTS) {
        if (value < row.FROM || value > row.TO) continue;
        if (u.MOBILITY == 0) cost = row.FOOT;
        if (u.MOBILITY == 1) cost = row.WHEELED;
        if (u.MOBILITY == 2) cost = row.TRACKED;
        break;
    }
    if (value == IMPASSABLE && u.SIZE == CONVOY && (u.MOBILITY == 1 || u.MOBILITY == 2))
        cost = CONVOY_ON_IMPASSABLE;
    if (cost > COST_CAP && u.SIZE != CONVOY && value != SEA) cost = CAPPED_COST;
    return cost;
}

int Cell_Cost(int unit, int hex, int carried) { return Terrain_Cost(unit, Cell_Value(hex), carried); }

void Move_Units(int unit)
{
    const Int16 before = CurUnit;
    CurUnit = unit;
    Step(unit);
    CurUnit = before;
}

}   // namespace sm

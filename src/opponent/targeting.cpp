#include "core/dice.h"
#include "core/shared.h"
#include "opponent/planning.h"

namespace sm {

namespace {

// ---------------------------------------------------------------------------------------------- worth of a target

struct WORTH {
    int FIRST, LAST, VALUE;   ///< roles FIRST..LAST
};
constexpr int DEFAULT_WORTH = 1;
// clang-format off
constexpr WORTH WORTHS[] = {
    {3, 3, 100},  {11, 11, 100}, {17, 17, 100}, {26, 26, 100},              // missile defence, eyes and wings
    {9, 10, 20},  {12, 12, 20},  {15, 15, 20},  {18, 18, 20},               // rockets, lift, bridges, headquarters
    {1, 2, 6},    {7, 8, 5},                                                // air defence, cannon
    {4, 6, 4},    {19, 20, 4},   {25, 25, 4},                               // fighting units
    {16, 16, 3},  {23, 24, 3},                                              // signals, psyops, reconnaissance
    {14, 14, 2},  {22, 22, 2},                                              // engineers, smoke
};

constexpr int HVT_CLASSES[27] = {
    5,             // user-defined
    7, 7, 7,       // air defence
    5, 5, 5,       // anti-tank, armour, cavalry
    2, 2, 3, 3,    // cannon; rockets and missiles
    4, 4,          // helicopters
    10,            // logistics
    8, 8,          // engineers
    1, 4, 1,       // ground signals; air signals; headquarters
    6, 5, 6,       // light, mechanised infantry, military police
    8, 1, 9, 6, 4, // smoke, psyops, reconnaissance, special forces, UAV
};
// clang-format on

// ----------------------------------------------------------------------------------------------- choice of target

bool Spotted_Enemy(int unit, int side) { return UNIT[unit].SPOTTED > 0 && UNIT[unit].SIDE == 3 - side; }

struct RANGE_WINDOW {
    int LEAST, MOST;
};
RANGE_WINDOW Range_Of(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    const float half = u.FOOTPRINT / 2;
    return {Round_Even(u.MINRANGE * MAPSCALE + half), Round_Even(u.MXRANGE * MAPSCALE + half)};
}

constexpr int GUARD_START = 50;
constexpr int GUARD_LEAST = 30;   ///< compared as a plain number with a distance in pixels

/// Distance that keeps a missile away from its own troops: of the last own unit within 30 km of the candidate.
int Guard_Around(int candidate, int side, int before)
{
    int guard = before;
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (UNIT[v].SIDE != side || UNIT[v].STATUS < 1) continue;
        const int distance = Unit_Distance(v, candidate);
        if (static_cast<float>(distance) <= MAPSCALE * 30) guard = distance;
    }
    return guard;
}

/// The first spotted enemy in range, or a later one of strictly higher worth on which no fire is planned. Missiles
/// look after their own troops; 0 when nothing is in range.
int Choose_Target(int firer, int side)
{
    const RANGE_WINDOW range = Range_Of(firer);
    const bool missile = UNIT[firer].TYPE == 10;
    int chosen = 0, guard = GUARD_START;
    for (int e = 1; e <= MAX_UNIT; ++e) {
        if (!Spotted_Enemy(e, side)) continue;
        const int distance = Unit_Distance(firer, e);
        if (distance < range.LEAST || distance > range.MOST) continue;
        if (chosen == 0) {
            chosen = e;
            continue;
        }
        if (missile) guard = Guard_Around(e, side, guard);
        if (UNIT[e].HPTVALUE > UNIT[chosen].HPTVALUE && UNIT[e].TGTLINK == 0 && guard >= GUARD_LEAST) chosen = e;
    }
    return chosen;
}

/// 21 persistent, 11 non-persistent, 1 conventional, by the role of the target.
int Munition_For(int type)
{
    if (type == 3 || type == 11 || type == 13) return 21;
    return type >= 1 && type <= 25 ? 11 : 1;
}

/// Uses up the side's chemical allowance; conventional when none is left.
int Draw_Munition(int side, int wanted)
{
    if (wanted == 1) return 1;
    Int16& used = side == BLUE ? BCHNOW : RCHNOW;
    if (used >= (side == BLUE ? BCHMAX : RCHMAX)) return 1;
    used += 1;
    return wanted;
}

/// What the passes hand on to each other: the last allocation's row (0 none) and the size of the last strike.
struct FIRES {
    int SIDE;
    int SLOT = 0;
    int LOT = 0;
};

/// A leftover of an earlier unit's allocation is credited too.
void Credit_Mission(const FIRES& fires, int firer, int target)
{
    if (fires.SLOT == 0) return;
    UNIT[firer].FIREMISSION += 1;
    UNIT[target].TGTLINK = fires.SLOT;
    TG[fires.SLOT].FUNIT = firer;
}

// ----------------------------------------------------------------------------------------------------- the passes

void Value_Targets(int side)
{
    for (int e = 1; e <= MAX_UNIT; ++e) {
        if (!Spotted_Enemy(e, side) || UNIT[e].STATUS < 1) continue;
        UNIT[e].HVTTYPE = HVT_Class(e);
        UNIT[e].HPTVALUE = Saturate_16(Target_Value(e, side));
    }
}

int Lot_Of(int sorties) { return sorties <= 10 ? 2 : sorties <= 30 ? 4 : 6; }

void Plan_Air_Strikes(FIRES& fires)
{
    bool strike = false;
    Int16& sorties = fires.SIDE == BLUE ? BTOTAL : OTOTAL;
    for (int e = 1; e <= MAX_UNIT; ++e) {
        if (!Spotted_Enemy(e, fires.SIDE) || UNIT[e].STATUS < 1 || UNIT[e].TGTLINK != 0) continue;
        if (UNIT[e].HPTVALUE >= 91) {
            strike = true;
        } else {
            const int roll = Roll_Dice(SITE_AIR_STRIKE_PLAN);
            if (roll < 30) strike = true;   // never cleared: every later target qualifies
        }
        if (!strike || sorties < 1) continue;
        fires.LOT = Lot_Of(sorties);
        fires.SLOT = Allocate_Target(e, fires.SIDE, 4);
        if (fires.SLOT == 0) continue;
        TG[fires.SLOT].TGNSORTIES = fires.LOT;
        TG[fires.SLOT].TGHPT = UNIT[e].HVTTYPE;
        sorties -= fires.LOT;   // may end below 0
    }
}

void Plan_Long_Range(FIRES& fires)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != fires.SIDE || unit.STATUS < 1) continue;
        if (unit.FSP != 3) unit.FSP = 0;
        if (unit.TYPE == 9 && fires.LOT >= 1) unit.FSP = 2;
        if ((unit.TYPE == 9 || unit.TYPE == 10) && unit.FSP == 0) {
            const int target = Choose_Target(u, fires.SIDE);
            if (target != 0) {
                if (UNIT[target].MOPP < 4)
                    fires.SLOT = Allocate_Target(target, fires.SIDE,
                                                 Draw_Munition(fires.SIDE, Munition_For(UNIT[target].TYPE)));
                Credit_Mission(fires, u, target);
            }
        }
        if (unit.TYPE == 11 && unit.LOGSTATN > 0) Plan_AH_Strike(u);
    }
}

void Plan_Guns(FIRES& fires)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != fires.SIDE || unit.STATUS < 1 || (unit.TYPE != 7 && unit.TYPE != 8) || unit.FSP != 0)
            continue;
        const int target = Choose_Target(u, fires.SIDE);
        if (target == 0) continue;
        fires.SLOT = Allocate_Target(target, fires.SIDE, 1);
        Credit_Mission(fires, u, target);
    }
}

void Plan_General_Support(const FIRES& fires)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE == fires.SIDE && unit.STATUS > 0 && unit.TYPE >= 7 && unit.TYPE <= 10 &&
            unit.FIREMISSION == 0)
            unit.FSP = fires.LOT > 0 ? 2 : 1;
    }
}

/// Whether a helicopter unit takes this enemy as its target.
bool Takes_Target(int helicopter, int enemy)
{
    if (UNIT[enemy].TGTLINK != 0) {
        const int roll = Roll_Dice(SITE_AH_LINKED);
        return roll < 20;
    }
    if (static_cast<float>(Unit_Distance(helicopter, enemy)) > MAPSCALE * 200) return false;
    if (UNIT[helicopter].FIREMISSIONN >= 4) return false;
    if (UNIT[enemy].HPTVALUE > 80) return true;
    const int roll = Roll_Dice(SITE_AH_TARGET);
    return roll < 50;
}

}   // namespace

int HVT_Class(int unit)
{
    const int type = UNIT[unit].TYPE;
    return type >= 0 && type <= 26 ? HVT_CLASSES[type] : 5;
}

int Target_Value(int unit, int side)
{
    const UNIT_RECORD& u = UNIT[unit];
    int value = DEFAULT_WORTH;
    for (const WORTH& worth : WORTHS)
        if (u.TYPE >= worth.FIRST && u.TYPE <= worth.LAST) value = worth.VALUE;
    const float reach = u.MXRANGE * MAPSCALE + u.FOOTPRINT / 2 + MAPSCALE * 10;
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1 && static_cast<float>(Distance_To(unit, OBJ[o].OX, OBJ[o].OY)) <= reach) value += 4;
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].SIDE == side && static_cast<float>(Unit_Distance(unit, v)) <= reach + UNIT[v].FOOTPRINT / 2)
            value += 4;
    if (u.STRENGTH < 35)
        value = Round_Even(static_cast<float>(value) / 4);
    else if (u.STRENGTH < 40)
        value = Round_Even(static_cast<float>(value) / 2);
    return value;
}

int Allocate_Target(int unit, int side, int type)
{
    const int first = side == RED ? 101 : 1;
    const int row = Free_Row(TG, first, first + 99);
    if (row == 0) return 0;
    TG[row] = TG_RECORD{};
    TG[row].TGTYPE = type;
    TG[row].TGTOT = GTURN;
    TG[row].TGX = UNIT[unit].X;
    TG[row].TGY = UNIT[unit].Y;
    TG[row].TGSIDE = side;
    return row;
}

bool Plan_AH_Strike(int unit)
{
    UNIT_RECORD& h = UNIT[unit];
    int target = 0;
    for (int e = 1; e <= MAX_UNIT && target == 0; ++e)
        if (Spotted_Enemy(e, h.SIDE) && Takes_Target(unit, e)) target = e;
    if (target == 0) return false;
    int roll = Roll_Dice(SITE_AH_LAUNCH);
    const bool own_hours = h.SIDE == BLUE ? TIME_OF_DAY == "Night" : TIME_OF_DAY == "Day";
    if (own_hours) roll = Round_Even(static_cast<float>(roll) / 2);
    if (2 * roll > (h.SIDE == BLUE ? static_cast<int>(AIRSUPER) : 100 - AIRSUPER)) return false;
    h.OX1 = UNIT[target].X;
    h.OY1 = UNIT[target].Y;
    h.MOVESTATUS = 9;
    h.HPTL1 = UNIT[target].HVTTYPE;
    UNIT[target].TGTLINK = 1;
    return true;
}

void Enemy_Targeting(int side)
{
    FIRES fires{side};
    Value_Targets(side);
    Plan_Air_Strikes(fires);
    Plan_Long_Range(fires);
    Plan_Guns(fires);
    Plan_General_Support(fires);
}

}   // namespace sm

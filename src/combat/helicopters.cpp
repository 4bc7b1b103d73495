#include "combat/helicopters.h"

#include "combat/air_defence.h"
#include "combat/artillery.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "terrain/sight.h"

namespace sm {

namespace {

constexpr int HOVERING = 8, FLYING = 9, ABORTING = 10;
constexpr int EMPTY = 4;   // FIREMISSIONN: an attack costs 2

constexpr int AS_BEFORE = 0;
/// Class of a target as helicopter crews tell it, by role; engineers and smoke units pass for what was seen before
/// them.
constexpr CODE_ROW<int> CLASS_SEEN[] = {{1, 3, 7},           {7, 8, 2},           {9, 10, 3},  {11, 12, 4},
                                        {13, 13, 10},        {14, 15, AS_BEFORE}, {16, 18, 1}, {19, 19, 6},
                                        {22, 22, AS_BEFORE}, {23, 23, 1},         {24, 24, 9}, {25, 25, 6},
                                        {26, 26, 1},         {LEAST, MOST, 5}};
static_assert(In_Order(CLASS_SEEN));

int Class_Seen(int type, int before)
{
    const int seen = Value_Of(CLASS_SEEN, type, 0);
    return seen == AS_BEFORE ? before : seen;
}

bool In_Search_Reach(int unit, int enemy, int distance)
{
    const float weapons = UNIT[unit].MXRANGE * MAPSCALE;
    return distance <= weapons + UNIT[enemy].FOOTPRINT / 2 || distance <= weapons + UNIT[unit].FOOTPRINT / 2;
}

bool Line_Is_Clear(int unit, int x, int y, float ignored)
{
    const int step = Line_Of_Sight(unit, x, y);
    return step <= 0 || HEXWIDTH * step <= ignored;
}

/// What one search has so far.
struct Choice {
    int UNIT = 0;
    int DISTANCE = 0;
    int CLASS = 0;
    bool FINAL = false;
};

void Weigh(int unit, int enemy, int distance, Choice& choice)
{
    const UNIT_RECORD& h = UNIT[unit];
    if (h.FIREMISSIONN >= EMPTY) return;
    const auto take = [&](bool final) {
        choice.UNIT = enemy;
        choice.FINAL = final;
    };
    if (h.MOVESTATUS == HOVERING) {
        take(true);
        return;
    }
    choice.CLASS = Class_Seen(UNIT[enemy].TYPE, choice.CLASS);
    const auto ordered = [&](int wanted) {
        return wanted != 0 && wanted == choice.CLASS && Inside_TAI(enemy, h.SIDE);
    };
    if (ordered(h.HPTL2)) {
        take(true);
        return;
    }
    if (h.FREEHUNT == 1) {
        if (choice.UNIT == 0 || distance <= choice.DISTANCE) {
            take(false);
            choice.DISTANCE = distance;
        } else if (h.TACOPN == 3) {
            take(false);
        }
    }
    if (ordered(h.HPTL1)) take(true);
}

/// An enemy in sight is reported; true when it may be attacked.
bool Acquire(int unit, int enemy)
{
    Spot_Again(enemy);
    if (UNIT[enemy].STATUS < 2) {
        Post_At(enemy, Cat(UNIT[enemy].NAME, " is combat ineffective!"), 0, UNIT[unit].SIDE);
        return false;
    }
    UNIT[unit].SPOTTED = 1;
    Show_Picture(unit);
    if (UNIT[unit].MOVESTATUS < HOVERING || UNIT[unit].MOVESTATUS >= ABORTING) return false;
    FirerUnit = unit;
    Show_Status(Cat(UNIT[unit].NAME, " acquires ", UNIT[enemy].NAME));
    return true;
}

// ---------------------------------------------------------------------------------------------- small arms

/// Collectors in the air are small and high: one roll of a hundred sees them.
bool Sees_Flyer(int shooter, int flyer, int distance)
{
    if (UNIT[flyer].TYPE != 17 && UNIT[flyer].TYPE != 26)
        return Line_Is_Clear(shooter, UNIT[flyer].X, UNIT[flyer].Y, UNIT[shooter].FOOTPRINT / 4);
    const int roll = Roll_Dice(SITE_SMALL_ARMS_SEES);
    const bool seen = roll == 100 && UNIT[shooter].TYPE >= 4 && distance <= MAPSCALE * 3;
    if (Explaining(shooter, flyer))
        Explain_Line(Cat(UNIT[shooter].NAME, " looks for ", UNIT[flyer].NAME, ": roll ", To_Text(roll),
                         ", needs 100", seen ? ": seen" : ": not seen"));
    return seen;
}

void Shoot_At_Flyer(int shooter, int flyer, int distance)
{
    UNIT[flyer].SPOTTED = 1;
    Show_Picture(flyer);
    Spot_Again(shooter);
    Show_Status(Cat(UNIT[shooter].NAME, " acquires ", UNIT[flyer].NAME));
    Show_Status(Cat(UNIT[flyer].NAME, " receives small arms fire from ", UNIT[shooter].NAME));
    Arty_SEAD(shooter, UNIT[flyer].SIDE);
    ADA_Fire(distance, shooter, flyer, UNIT[flyer].X, UNIT[flyer].Y, 3, 0);
}

void Small_Arms_Pass(int flyer, bool air_defence)
{
    const Attached_Air_Defence attached;
    for (int e = 1; e <= MAX_UNIT && Lives(flyer); ++e) {
        const UNIT_RECORD& shooter = UNIT[e];
        if (shooter.SIDE != Other_Side(UNIT[flyer].SIDE) || shooter.STATUS < 2 || shooter.TYPE == 50) continue;
        if (air_defence ? !Is_Air_Defence(shooter.TYPE) : shooter.TYPE < 5) continue;
        const float reach = air_defence ? shooter.FOOTPRINT / 2 : attached.Reach(e);
        const int distance = Unit_Distance(e, flyer);
        if (shooter.FIREMISSIONN >= 3 || distance > reach) continue;
        if (Sees_Flyer(e, flyer, distance)) Shoot_At_Flyer(e, flyer, distance);
    }
}

}   // namespace

void AH_Search(int unit, int x, int y)
{
    Choice choice;
    for (int e = 1; e <= MAX_UNIT && !choice.FINAL; ++e) {
        const UNIT_RECORD& enemy = UNIT[e];
        if (enemy.STATUS <= 0 || enemy.MOVESTATUS >= 7 || enemy.SIDE != Other_Side(UNIT[unit].SIDE) ||
            enemy.TYPE == 50)
            continue;
        const int distance = Distance_To(e, x, y);
        if (!In_Search_Reach(unit, e, distance)) continue;
        if (!Line_Is_Clear(unit, enemy.X, enemy.Y, UNIT[unit].FOOTPRINT / 2)) continue;
        if (Acquire(unit, e)) Weigh(unit, e, distance, choice);
    }
    if (choice.UNIT == 0 || (UNIT[unit].MOVESTATUS != HOVERING && UNIT[unit].MOVESTATUS != FLYING)) return;
    const int held = CurUnit, held2 = CurUnit2;
    CurUnit = unit;
    CurUnit2 = choice.UNIT;
    AH_Attack(unit, choice.UNIT);
    CurUnit = held;
    CurUnit2 = held2;
}

void Small_Arms_Fire(int unit)
{
    if (UNIT[unit].MOVESTATUS == HOVERING) return;
    Small_Arms_Pass(unit, true);
    Small_Arms_Pass(unit, false);
}

}   // namespace sm

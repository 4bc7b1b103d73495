#include "combat/ground_combat.h"

#include "combat/contact.h"
#include "combat/direct_fire.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "combat/retreat.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/near_units.h"
#include "events/events.h"
#include "sustain/supply.h"
#include "terrain/sight.h"

#include <algorithm>
#include <cstdlib>

namespace sm {

namespace {

constexpr int FIRES = 2;   // mode
constexpr int OFFENSE = 0, HASTY_DEFENSE = 1, BREACHING = 2, SCREENING = 3, WITHDRAWING = 4,
              DELIBERATE_DEFENSE = 11;
constexpr int HALTED = 1, MOVING = 2, AIRBORNE = 8;                      // MOVESTATUS, airborne from 8 up
constexpr int AVIATION = 3;                                              // MOBILITY
constexpr int CONVOY = 100;                                              // SIZE
constexpr int LOGISTICS = 13, PSYOPS = 23, LINE_OF_COMMUNICATION = 50;   // TYPE
constexpr int FORTIFICATION = 9;                                         // BGTYPE
constexpr int KNOWN_TO_BOTH = -1;                                        // VISIBLE

// ---------------------------------------------------------------------------------------------- classes of roles

enum Role_Class { MANEUVER, SUPPORT };
enum Engagement { FIERCE, SKIRMISH };

// clang-format off
constexpr CODE_ROW<Role_Class> CLASS_OF_ROLE[] = {
    {0, 3, SUPPORT}, {7, 13, SUPPORT}, {15, 18, SUPPORT}, {22, 23, SUPPORT}, {26, 26, SUPPORT}, {50, 50, SUPPORT},
    {LEAST, MOST, MANEUVER},
};
/// Roles that never fire in ground combat where a step asks for it.
constexpr CODE_ROW<bool> PASSIVE_ROLES[] = {
    {1, 3, true}, {10, 12, true}, {17, 17, true}, {26, 26, true}, {LEAST, MOST, false},
};
/// Roles that a controlled unit stops rather than let them come near a known enemy.
constexpr CODE_ROW<bool> HELD_BACK_ROLES[] = {
    {1, 3, true}, {7, 10, true}, {13, 16, true}, {18, 18, true}, {21, 23, true}, {LEAST, MOST, false},
};
/// By the class of the unit that looks, then of the enemy.
constexpr Engagement ENGAGEMENT[2][2] = {
    //             MANEUVER  SUPPORT
    /* MANEUVER */ {FIERCE,   SKIRMISH},
    /* SUPPORT  */ {SKIRMISH, FIERCE},
};
// clang-format on
static_assert(In_Order(CLASS_OF_ROLE) && In_Order(PASSIVE_ROLES) && In_Order(HELD_BACK_ROLES));

Role_Class Class_Of(int unit) { return Value_Of(CLASS_OF_ROLE, UNIT[unit].TYPE, MANEUVER); }
bool Is_Passive(int unit) { return Value_Of(PASSIVE_ROLES, UNIT[unit].TYPE, false); }
bool Is_Convoy_Of(int unit, int type) { return UNIT[unit].TYPE == type && UNIT[unit].SIZE == CONVOY; }

// ---------------------------------------------------------------------------------------------- common to both
// loops

/// One unit's look around. A unit that vanished under it (destroyed, surrendered, run off the map) is not touched
/// again: the steps below answer whether the looking unit is still there, and test the enemy after each call that
/// can take it.
struct LOOK {
    int A;   ///< the unit that looks
    int MODE;
    bool FIRED = false;
};

bool Gone(int unit) { return UNIT[unit].STATUS < 1; }

void Make_Visible(int unit)
{
    UNIT[unit].VISIBLE = KNOWN_TO_BOTH;
    Spot_Again(unit);
}

void Halt(int unit)
{
    if (UNIT[unit].MOVESTATUS == MOVING) UNIT[unit].MOVESTATUS = HALTED;
}

bool Cannot_Fight(const UNIT_RECORD& e) { return e.STATUS < 2 || e.LOGSTATN < 1; }

/// Prisoners are taken on the ground, by ground units.
void Take_Prisoner(int a, int e)
{
    const UNIT_RECORD& enemy = UNIT[e];
    if (UNIT[a].MOBILITY != AVIATION && enemy.MOVESTATUS < AIRBORNE && (enemy.STATUS == 1 || enemy.LOGSTATN <= 0))
        Surrender_Unit(e);
}

/// A shot whose loss is felt at once; the same loss comes again with the rest at the end of the phase.
void Fire_And_Apply(int firer, int target)
{
    Direct_Fire(firer, target);
    Apply_Loss(target, UNIT[target].TURNLOSS);
}

/// A convoy on the way does not halt the unit that shoots it up.
void Shoot_Up_Convoy(int a, int e)
{
    Fire_And_Apply(a, e);
    if (!Gone(a) && UNIT[a].MOVESTATUS == HALTED) UNIT[a].MOVESTATUS = MOVING;
}

/// Whether the roll for a small unit lies in first..100; a moving watcher doubles it, and above 100 sees nothing.
bool Detected(int site, int a, int e, int first)
{
    const int roll = Roll_Dice(site);
    const int score = UNIT[a].MOVESTATUS == MOVING ? roll * 2 : roll;
    const bool detected = score >= first && score <= 100;
    if (Explaining(a, e))
        Explain_Line(Cat(UNIT[a].NAME, " and ", UNIT[e].NAME, ": small unit, roll ", To_Text(roll),
                         score != roll ? " x 2 = " : " = ", To_Text(score), ", seen from ", To_Text(first),
                         " to 100: ", detected ? "seen" : "not seen"));
    return detected;
}

void Explain_Contact(int a, int e, const char* kind)
{
    if (Explaining(a, e))
        Explain_Line(
            Cat(UNIT[a].NAME, " meets ", UNIT[e].NAME, " at ", To_Text(Unit_Distance(a, e)), " pixels: ", kind));
}

// ---------------------------------------------------------------------------------------------- contact loop

/// A line of sight that breaks off this far from the looking unit hides the other. Both ways are looked along, but
/// only the way back counts; units closer than a twelfth of their footprints fight through anything.
bool Screened_By_Terrain(int a, int e)
{
    const float footprints = UNIT[a].FOOTPRINT + UNIT[e].FOOTPRINT;
    Line_Of_Sight(a, UNIT[e].X, UNIT[e].Y);
    const int blocked = Line_Of_Sight(e, UNIT[a].X, UNIT[a].Y);
    return blocked > 0 && HEXWIDTH * blocked > Round_Even(footprints / 12);
}

/// A lone system or squad that meets a unit, or anyone who meets a convoy. False when the looking unit is gone.
bool Meet_Small(LOOK& look, int e)
{
    const int a = look.A;
    if (UNIT[e].SIZE == CONVOY) {
        Explain_Contact(a, e, "a convoy");
        Shoot_Up_Convoy(a, e);
        return !Gone(a);
    }
    if (!Detected(SITE_SMALL_UNIT, a, e, 95)) return true;   // slipped past unseen
    Make_Visible(a);
    Make_Visible(e);
    Direct_Fire(e, a);
    if (Gone(a)) return false;
    look.FIRED = true;
    return true;
}

/// Attack, defence: the unit fires, and a skirmish is answered; support units leave it. False when the unit is
/// gone.
bool Fight(LOOK& look, int e, Engagement type)
{
    const int a = look.A;
    look.FIRED = true;
    if (Is_Passive(a)) return true;
    if (UNIT[a].TYPE == PSYOPS) {
        if (UNIT[a].SIZE != CONVOY) Direct_Fire(a, e);
        return !Gone(a);
    }
    Direct_Fire(a, e);
    if (Gone(a)) return false;
    if (type != SKIRMISH || Gone(e)) return true;
    Direct_Fire(e, a);
    if (Gone(a)) return false;
    if (!Gone(e) && Class_Of(e) == SUPPORT) Retreat_Unit(e);
    return !Gone(a);
}

/// A withdrawing unit fires, is fired on and leaves. False when it is gone.
bool Fight_And_Leave(const LOOK& look, int e)
{
    const int a = look.A;
    if (!Is_Passive(a) && !Is_Convoy_Of(a, PSYOPS)) Direct_Fire(a, e);
    if (Gone(a)) return false;
    if (Gone(e)) return true;
    if (!Is_Passive(e) && !Is_Convoy_Of(e, LOGISTICS)) Direct_Fire(e, a);
    if (Gone(a)) return false;
    Retreat_Unit(a);
    return !Gone(a);
}

/// Two units in contact that see each other. False when the looking unit is gone.
bool Meet(LOOK& look, int e)
{
    const int a = look.A;
    if (Cannot_Fight(UNIT[e])) {
        Take_Prisoner(a, e);
        return true;
    }
    if (UNIT[a].SIZE < 1 || UNIT[e].SIZE == CONVOY) return Meet_Small(look, e);

    const Role_Class own = Class_Of(a), other = Class_Of(e);
    const Engagement type = ENGAGEMENT[own][other];
    const bool fires = type == SKIRMISH || look.MODE == FIRES;
    Explain_Contact(a, e, type == SKIRMISH ? "SKIRMISH" : fires ? "FIERCE" : "FIERCE, looks only");
    if (type == FIERCE) {
        Raise(UNIT[a].ACTIVITY, 1);
        Make_Visible(a);
    }
    if (type == FIERCE || other == SUPPORT) Make_Visible(e);
    if (UNIT[a].TACOPN != BREACHING && (type == FIERCE || own == SUPPORT)) Halt(a);
    if (!fires) return true;
    look.MODE = FIRES;   // a skirmish opens fire for the rest of the look
    return UNIT[a].TACOPN == WITHDRAWING ? Fight_And_Leave(look, e) : Fight(look, e, type);
}

bool Can_Be_Met(const UNIT_RECORD& a, const UNIT_RECORD& e)
{
    return e.SIDE != a.SIDE && e.STATUS >= 1 && e.TYPE != LINE_OF_COMMUNICATION && e.PARENT_UNIT == 0 &&
           e.MOVESTATUS < AIRBORNE && e.TACOPN != SCREENING;
}

/// A known enemy within 6 km of contact.
bool Comes_Too_Near(const UNIT_RECORD& a, const UNIT_RECORD& e)
{
    const float contact = static_cast<float>(Round_Even((a.FOOTPRINT + e.FOOTPRINT) / 3));
    return e.VISIBLE == KNOWN_TO_BOTH && Within(a.X, a.Y, e.X, e.Y, Floor_Int(contact + 6 * MAPSCALE));
}

/// False when the looking unit is gone.
bool Look_For_Contact(LOOK& look)
{
    UNIT_RECORD& a = UNIT[look.A];
    const bool held_back = a.UCONTROL == 1 && Value_Of(HELD_BACK_ROLES, a.TYPE, false);
    const float beyond_contact = held_back ? 6 * MAPSCALE : 0;
    Near_Rows near(1.0f / 3);
    while (const int e = near.Next(a.X, a.Y, a.FOOTPRINT / 3 + beyond_contact)) {
        const UNIT_RECORD& enemy = UNIT[e];
        if (!Can_Be_Met(a, enemy)) continue;
        if (held_back && Comes_Too_Near(a, enemy)) a.MOVEPOINTS2 = 0;
        if (!In_Contact(a, enemy)) continue;
        if (Screened_By_Terrain(look.A, e)) {
            Explain_Contact(look.A, e, "hidden by high ground");
            continue;
        }
        if (!Meet(look, e)) return false;
    }
    return true;
}

// ---------------------------------------------------------------------------------------------- screen loop

/// A screen is a line of three points, looked from in this order: left end, centre, right end.
struct SCREEN_LINE {
    Point POINT[3];
};

SCREEN_LINE Screen_Of(const UNIT_RECORD& a) { return {{{a.LX, a.LY}, {a.X, a.Y}, {a.RX, a.RY}}}; }

/// How far the points of a screen lie from its centre along either axis.
int Screen_Span(const UNIT_RECORD& a)
{
    int span = 0;
    for (const Point& point : Screen_Of(a).POINT)
        span = std::max({span, std::abs(point.X - a.X), std::abs(point.Y - a.Y)});
    return span;
}

/// The screen finds works of the enemy, and what waits at its points. False when the unit is gone.
bool Scout_Ground(int a)
{
    const SCREEN_LINE line = Screen_Of(UNIT[a]);
    const int reach = Round_Even(UNIT[a].FOOTPRINT / 2);
    for (const Point& point : line.POINT) {
        for (int row = 1; row <= MAX_BG && UNIT[a].STATUS >= 2; ++row) {
            BG_RECORD& work = BG[row];
            if (work.BGSIDE < 1 || work.BGVISIBLE != 0 || work.BGSIDE == UNIT[a].SIDE) continue;
            const Point centre = Work_Centre(row);
            if (!Within(centre.X, centre.Y, point.X, point.Y, work.BGTYPE == FORTIFICATION ? reach + 16 : reach))
                continue;
            work.BGVISIBLE = 1;
            Screen().Changed(Redraw::GRAPHICS);
        }
        if (UNIT[a].SIDE == BLUE) Event_Check(a, point.X, point.Y, false);
        if (Gone(a)) return false;
    }
    return true;
}

/// Within four tenths of both footprints of one of the three points; no line of sight is asked for.
bool Screen_Touches(const UNIT_RECORD& a, const UNIT_RECORD& e)
{
    const int reach = Floor_Int(0.4f * static_cast<float>(Round_Even(a.FOOTPRINT + e.FOOTPRINT)));
    for (const Point& point : Screen_Of(a).POINT)
        if (Within(point.X, point.Y, e.X, e.Y, reach)) return true;
    return false;
}

/// False when the looking unit is gone.
bool Screen_Meets_Small(LOOK& look, int e)
{
    const int a = look.A;
    if (UNIT[e].SIZE == CONVOY) {
        Explain_Contact(a, e, "a convoy at the screen");
        Shoot_Up_Convoy(a, e);
        return !Gone(a);
    }
    if (!Detected(SITE_SCREEN_SMALL_TARGET, a, e, 90)) return true;
    Make_Visible(e);
    if (UNIT[e].MOVESTATUS >= AIRBORNE) return true;
    look.FIRED = true;
    Direct_Fire(a, e);
    return !Gone(a);
}

/// Losses beyond what the commander allows, by the loss collected so far.
bool Breaks_Contact(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return u.STATUS > 0 && u.RCP2 > 0 && u.TURNLOSS / u.RCP2 > Retreat_Threshold(unit);
}

/// False when the looking unit is gone.
bool Screen_Meets(LOOK& look, int e)
{
    const int a = look.A;
    if (Cannot_Fight(UNIT[e])) {
        Take_Prisoner(a, e);
        return true;
    }
    Make_Visible(a);
    if (UNIT[a].SIZE == CONVOY) {
        Fire_And_Apply(e, a);
        return !Gone(a);
    }
    if (UNIT[e].SIZE < 1 || UNIT[e].SIZE == CONVOY) return Screen_Meets_Small(look, e);

    Explain_Contact(a, e, look.MODE == FIRES ? "at the screen" : "at the screen, looks only");
    Make_Visible(e);
    if (UNIT[e].MOVESTATUS >= AIRBORNE) return true;
    Halt(a);
    if (UNIT[e].TACOPN != BREACHING) Halt(e);
    if (look.MODE != FIRES) return true;
    look.FIRED = true;
    Direct_Fire(a, e);
    if (Gone(a)) return false;
    if (Gone(e)) return true;   // the guns that support the screen have destroyed it: nobody to break contact with
    if (!Is_Passive(e) && !Is_Convoy_Of(e, LOGISTICS)) Direct_Fire(e, a);
    // The screen breaks contact at once.
    if (Breaks_Contact(a)) Retreat_Unit(a);
    if (Gone(a)) return false;
    if (Breaks_Contact(e)) Retreat_Unit(e);
    return !Gone(a);
}

/// False when the looking unit is gone.
bool Look_From_Screen(LOOK& look)
{
    if (!Scout_Ground(look.A)) return false;
    const UNIT_RECORD& a = UNIT[look.A];
    Near_Rows near(0.4f);
    while (const int e = near.Next(a.X, a.Y, 0.4f * a.FOOTPRINT + static_cast<float>(Screen_Span(a)))) {
        const UNIT_RECORD& enemy = UNIT[e];
        if (enemy.SIDE == a.SIDE || enemy.STATUS < 1 || enemy.TYPE == LINE_OF_COMMUNICATION ||
            enemy.PARENT_UNIT != 0)
            continue;
        if (Screen_Touches(a, enemy) && !Screen_Meets(look, e)) return false;
    }
    return true;
}

// ---------------------------------------------------------------------------------------------- the phase

/// The losses of the turn at once, and what the commander makes of them.
void Settle_Losses(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    const float before = unit.RCP2;
    Apply_Loss(u, unit.TURNLOSS);
    if (Gone(u)) return;
    const float threshold = Retreat_Threshold(u);
    Log(Cat("RFactor: ", To_Text(threshold)));
    const float share = unit.TURNLOSS / before;
    const bool retreats = share > threshold || unit.SUPPRESSED == 4;
    if (Explaining(u))
        Explain_Line(Cat(unit.NAME, " lost ", To_Text(share), " of its power, retreats above ", To_Text(threshold),
                         ", suppression ", To_Text(unit.SUPPRESSED), retreats ? ": retreats" : ": holds"));
    if (!retreats) return;
    Log(Cat(unit.NAME, " retreated with RFactor = ", To_Text(threshold)));
    Retreat_Unit(u);
}

}   // namespace

void Engage_Unit(int unit, int mode)
{
    const UNIT_RECORD& a = UNIT[unit];
    if (a.STATUS <= 1 || a.TYPE == LINE_OF_COMMUNICATION) return;
    LOOK look{unit, mode};
    bool there = true;
    switch (a.TACOPN) {
    case OFFENSE:
    case HASTY_DEFENSE:
    case BREACHING:
    case WITHDRAWING:
    case DELIBERATE_DEFENSE:
        there = Look_For_Contact(look);
        break;
    case SCREENING:
        there = Look_From_Screen(look);
        break;
    default:
        break;   // a unit in retreat looks for nobody
    }
    if (there && look.FIRED) Consume_Supply(unit, 4);
}

void Ground_Combat_Phase()
{
    const Places_Watched watched;
    const int held = CurUnit;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        CurUnit = u;
        if (UNIT[u].ROE == 0) Engage_Unit(u, FIRES);
    }
    for (int u = 1; u <= MAX_UNIT; ++u) {
        CurUnit = u;
        if (UNIT[u].TURNLOSS > 0) Settle_Losses(u);
    }
    CurUnit = held;
}

}   // namespace sm

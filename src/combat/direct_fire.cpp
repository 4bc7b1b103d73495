#include "combat/direct_fire.h"

#include "combat/artillery.h"
#include "combat/contact.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/explain.h"
#include "core/near_units.h"
#include "core/sound_cues.h"
#include "sustain/supply.h"

namespace sm {

namespace {

// ---------------------------------------------------------------------------------------------- tables

// clang-format off
/// The firer's weapons.
constexpr FACTOR_ROW WEAPONS[] = {
    {1, 3, 0.01f}, {4, 6, 1.0f}, {7, 10, 0.01f}, {13, 13, 0.002f}, {14, 14, 1.0f}, {19, 19, 1.0f}, {20, 20, 1.0f},
    {25, 25, 1.0f}, {50, 50, 0.0f}, {LEAST, MOST, 0.1f},
};
constexpr float FOOT_AGAINST_ARMOUR = 0.5f;

/// How hard the target's role is hit.
constexpr FACTOR_ROW VULNERABILITY[] = {
    {0, 0, 8.0f}, {1, 3, 4.0f}, {7, 7, 8.0f}, {8, 10, 20.0f}, {11, 12, 10.0f}, {13, 13, 5.0f}, {40, 40, 0.0f},
    {50, 50, 0.0f},
};
constexpr float FOOT_UNDER_ARMOUR = 3.0f;

constexpr FACTOR_ROW ASPECT[]         = {{1, 1, 1.0f}, {2, 2, 1.2f}, {3, 3, 1.5f}};
constexpr FACTOR_ROW MORALE[]         = {{0, 0, 0.3f}, {1, 1, 0.5f}, {2, 2, 1.0f}, {3, 3, 1.1f}, {4, 4, 1.2f}};
constexpr FACTOR_ROW FATIGUE[]        = {{0, 1, 1.1f}, {2, 15, 1.0f}, {16, 21, 0.8f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW SUPPRESSION[]    = {{0, 0, 1.0f}, {1, 1, 0.9f}, {2, 2, 0.8f}, {4, 4, 0.3f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW FIRERS_GROUND[]  = {{11, 18, 0.5f}, {21, 27, 2.0f}};
constexpr FACTOR_ROW TARGETS_GROUND[] = {{1, 1, 0.75f}, {2, 2, 0.5f}, {3, 3, 1.5f}, {4, 4, 0.3f}, {5, 5, 1.5f},
                                         {6, 6, 0.5f}, {7, 7, 1.5f}, {11, 18, 1.5f}, {21, 27, 0.3f}};
constexpr FACTOR_ROW FIRERS_TASK[]    = {{1, 1, 1.3f}, {2, 2, 0.5f}, {3, 3, 0.2f}, {11, 11, 1.5f}};
constexpr FACTOR_ROW TARGETS_TASK[]   = {{1, 1, 0.8f}, {2, 2, 0.5f}, {3, 3, 0.1f}, {11, 11, 0.3f}};
constexpr FACTOR_ROW JAMMED[]         = {{5, MOST, 0.66f}};
constexpr FACTOR_ROW SMOKE[]          = {{1, 1, 0.5f}};

/// Text, and the effect of fire from the side or from behind on both units, by aspect; 0 is none of the three.
struct ASPECT_ROW {
    const char* TEXT;
    int MORALE_CHANCE;   ///< the firer's gain, the target's loss; 0: no tests
    int SUPPRESSES;
};
constexpr ASPECT_ROW ASPECTS[] = {
    {nullptr,                                  0,  0},
    {" receives direct fires (Frontal) from ", 0,  0},
    {" receives direct fires (Flank) from ",   20, 1},
    {" receives direct fires (Rear) from ",    40, 2},
};
// clang-format on
static_assert(In_Order(WEAPONS) && In_Order(VULNERABILITY) && In_Order(ASPECT) && In_Order(MORALE) &&
              In_Order(FATIGUE) && In_Order(SUPPRESSION) && In_Order(FIRERS_GROUND) && In_Order(TARGETS_GROUND) &&
              In_Order(FIRERS_TASK) && In_Order(TARGETS_TASK) && In_Order(JAMMED) && In_Order(SMOKE));

bool On_Foot(int type) { return type == 19 || type == 25; }
bool Armoured(int type) { return type == 5 || type == 6 || type == 20; }

float Weapons(int f, int t)
{
    if (On_Foot(UNIT[f].TYPE) && Armoured(UNIT[t].TYPE)) return FOOT_AGAINST_ARMOUR;
    return Factor_Of(WEAPONS, UNIT[f].TYPE);
}

float Vulnerability(int f, int t)
{
    if (On_Foot(UNIT[t].TYPE) && Armoured(UNIT[f].TYPE)) return FOOT_UNDER_ARMOUR;
    return Factor_Of(VULNERABILITY, UNIT[t].TYPE);
}

int Aspect_Between(int f, int t)
{
    return Aspect_Of_Fire(UNIT[t].FACING, Bearing_To(UNIT[t].X, UNIT[t].Y, UNIT[f].X, UNIT[f].Y));
}

float Smoke(int, int t)
{
    if (UNIT[t].OBSCURED == 1) {
        Show_Status("Smoke obscures target!");
        Message_Pause();
    }
    return Factor_Of(SMOKE, UNIT[t].OBSCURED);
}

float Control(int f, int t)
{
    return UNIT[f].UCONTROL == 1 && UNIT[t].TACOPN != 2 && UNIT[t].TACOPN != 3 ? 1.5f : 1.0f;
}

float Command(int f, int) { return static_cast<float>(UNIT[f].C2) * 0.5f + 0.5f; }

// clang-format off
/// Before the dice of a flank or rear attack, and after them.
constexpr FIRE_FACTOR SHOT[] = {
    {"firer's weapons",        Weapons},
    {"target's vulnerability", Vulnerability},
    {"aspect",                 [](int f, int t) { return Factor_Of(ASPECT, Aspect_Between(f, t)); }},
};
constexpr FIRE_FACTOR CONDITIONS[] = {
    {"firer's morale",         [](int f, int) { return Factor_Of(MORALE, UNIT[f].MORALE); }},
    {"firer's fatigue",        [](int f, int) { return Factor_Of(FATIGUE, UNIT[f].FATIGUE); }},
    {"firer's suppression",    [](int f, int) { return Factor_Of(SUPPRESSION, UNIT[f].SUPPRESSED); }},
    {"firer's terrain",        [](int f, int) { return Factor_Of(FIRERS_GROUND, UNIT[f].TERTYPE); }},
    {"target's terrain",       [](int, int t) { return Factor_Of(TARGETS_GROUND, UNIT[t].TERTYPE); }},
    {"firer's operation",      [](int f, int) { return Factor_Of(FIRERS_TASK, UNIT[f].TACOPN); }},
    {"target's operation",     [](int, int t) { return Factor_Of(TARGETS_TASK, UNIT[t].TACOPN); }},
    {"jamming",                [](int f, int) { return Factor_Of(JAMMED, UNIT[f].EWSTATUS); }},
    {"smoke over target",      Smoke},
    {"controlled unit",        Control},
    {"command",                Command},
};
// clang-format on

// ---------------------------------------------------------------------------------------------- supporting guns

bool Is_Cannon(int type) { return type >= 7 && type <= 9; }   // missiles support nobody

/// Beyond its least range and within its greatest, both from the edge of the battery's ground.
bool In_Range(int battery, int target)
{
    const UNIT_RECORD& b = UNIT[battery];
    const float distance = static_cast<float>(Unit_Distance(battery, target));
    return distance <= Weapon_Reach(battery) && distance > b.MINRANGE * MAPSCALE + b.FOOTPRINT / 2;
}

/// One battery's support. The loss is due twice: collected for the end of the phase, and applied now. The target
/// may be gone afterwards.
void Support_With(int battery, int target)
{
    const int x = UNIT[target].X, y = UNIT[target].Y;
    Draw_Fire(Draw::IMPACT, UNIT[battery].X, UNIT[battery].Y, x, y, battery, SOUND_ARTILLERY);
    const float loss = Artillery_Attack(battery, target, 6);
    Consume_Supply(battery, 2);
    UNIT[target].TURNLOSS = UNIT[target].TURNLOSS + loss;
    Apply_Loss(target, loss);
    UNIT[battery].FACING = Bearing_To(UNIT[battery].X, UNIT[battery].Y, x, y);
}

/// Batteries attached to the firer shoot; answers the power of all of them, which takes no part in the direct
/// fire.
float Fire_Attached_Guns(int firer, int target)
{
    float power = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& battery = UNIT[u];
        if (battery.PARENT_UNIT != firer || battery.STATUS < 2 || !Is_Cannon(battery.TYPE)) continue;
        power = power + battery.RCP2;
        if (battery.FIREMISSIONN < 2 && UNIT[target].STATUS > 0) Support_With(u, target);
    }
    return power;
}

/// Batteries of the firer's command that are free for close support.
void Fire_Guns_Of_Command(int firer, int target)
{
    const int hq = UNIT[firer].HIGHERHQ;
    if (hq <= 0) return;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& battery = UNIT[u];
        if ((battery.PARENT_UNIT != hq && battery.HIGHERHQ != hq) || battery.STATUS <= 1 ||
            !Is_Cannon(battery.TYPE) || battery.FIREMISSIONN >= 3 || battery.FSP != 0 || UNIT[target].STATUS < 1)
            continue;
        if (!In_Range(u, target)) continue;
        Show_Status_And_Wait(Cat(battery.NAME, " Shoots DS FA!"), 3000);
        Support_With(u, target);
    }
}

// ---------------------------------------------------------------------------------------------- the shot

/// Whether an enemy takes a share of the firer's attention.
bool Is_Engaged_With(const UNIT_RECORD& f, const UNIT_RECORD& v)
{
    return v.SIDE != f.SIDE && v.STATUS > 1 && v.TYPE != 50 && v.PARENT_UNIT == 0 && v.MOVESTATUS < 8 &&
           v.TACOPN != 3 && v.LOGSTATN > 0 && v.SIZE > 0 && In_Contact(f, v);
}

/// ACTIVITY, the enemies among which the firer divides its power. A screen keeps the count that it has.
void Count_Engagements(int firer)
{
    UNIT_RECORD& f = UNIT[firer];
    if (f.TACOPN != 3) {
        int count = 0;
        Near_Rows near(1.0f / 3);
        while (const int v = near.Next(f.X, f.Y, f.FOOTPRINT / 3)) count += Is_Engaged_With(f, UNIT[v]) ? 1 : 0;
        f.ACTIVITY = count;
    }
    if (f.ACTIVITY < 1) f.ACTIVITY = 1;
}

/// What fire from the flank or from behind does to heart and nerve of both.
void Shake(int firer, int target, const ASPECT_ROW& aspect)
{
    if (aspect.MORALE_CHANCE != 0) {
        Morale_Test(firer, 2, aspect.MORALE_CHANCE);
        Morale_Test(target, 1, -aspect.MORALE_CHANCE);
        Raise(UNIT[target].SUPPRESSED, aspect.SUPPRESSES);
    }
    if (UNIT[target].SUPPRESSED > 4) UNIT[target].SUPPRESSED = 4;
}

void Explain_Limit(bool explain, const char* what, float loss)
{
    if (explain) Explain_Line(Cat("  ", what, ": ", To_Text(loss)));
}

/// Least and greatest loss of one shot. A small loss can also be lowered by the floor.
float Limited(float loss, int firer, int target, bool explain)
{
    const UNIT_RECORD &f = UNIT[firer], &t = UNIT[target];
    if (loss < 0.05f) {
        loss = f.TACOPN == 3 || f.TACOPN == 4 ? 0.05f : 0.03f;
        Explain_Limit(explain, "least loss", loss);
    }
    const float third = t.RCP2 / 3;
    if (loss > third && t.SIZE != 100 && t.SIZE != 0) {
        loss = third;
        Explain_Limit(explain, "at most a third of the target's power", loss);
    }
    if (t.TYPE == 26) {
        loss = t.RCP2;
        Explain_Limit(explain, "any hit kills a UAV", loss);
    }
    return loss;
}

void Report_Loss(int target, float loss)
{
    const UNIT_RECORD& t = UNIT[target];
    Post_At(target, Cat("SITREP: ", t.NAME, Lost(Percent_Lost(target, loss)), " as a result of direct fires!"),
            3000, BOTH);
}

}   // namespace

void Direct_Fire(int firer, int target)
{
    FirerUnit = firer;
    const float guns = Fire_Attached_Guns(firer, target);
    Fire_Guns_Of_Command(firer, target);
    UNIT_RECORD &f = UNIT[firer], &t = UNIT[target];
    if (t.STATUS < 1) return;
    Show_Status("");
    Draw_Fire(Draw::SHOT, f.X, f.Y, t.X, t.Y, firer, SOUND_DIRECT_FIRE);

    Count_Engagements(firer);
    const bool explain = Explaining(firer, target);
    const float power = (f.RCP2 - guns) / static_cast<float>(f.ACTIVITY);
    float loss = power * 0.1f;
    if (explain)
        Explain_Line(Cat(f.NAME, " fires at ", t.NAME, ": (RCP2 ", To_Text(f.RCP2), " - guns ", To_Text(guns),
                         ") / ", To_Text(f.ACTIVITY), " engaged x 0.1 = ", To_Text(loss)));
    const ASPECT_ROW& aspect = ASPECTS[Aspect_Between(firer, target)];
    loss = Multiply_Out(loss, SHOT, explain, firer, target);
    Post_At(target, aspect.TEXT == nullptr ? t.NAME.Str() : Cat(t.NAME, aspect.TEXT, f.NAME, "!"), 2000, BOTH);
    Shake(firer, target, aspect);
    loss = Multiply_Out(loss, CONDITIONS, explain, firer, target);
    loss = Limited(loss, firer, target, explain);

    t.TURNLOSS = t.TURNLOSS + loss;
    if (explain) Explain_Line(Cat("  collected by ", t.NAME, " this turn: ", To_Text(t.TURNLOSS)));
    Report_Loss(target, loss);
    Raise(f.FATIGUE, 1);
    Raise(t.FATIGUE, 1);
    (t.SIDE == BLUE ? BMANL : RMANL) += loss;
}

}   // namespace sm

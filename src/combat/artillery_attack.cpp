// What one battery does to one unit.

#include "combat/artillery.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/explain.h"

namespace sm {

namespace {

// clang-format off
constexpr FACTOR_ROW SMOKE[]       = {{1, 1, 0.3f}};
constexpr FACTOR_ROW MORALE[]      = {{0, 0, 0.5f}, {1, 1, 0.8f}, {2, 2, 1.0f}, {3, 3, 1.1f}, {4, 4, 1.2f}};
constexpr FACTOR_ROW FATIGUE[]     = {{0, 1, 1.1f}, {2, 15, 1.0f}, {16, 21, 0.8f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW SUPPRESSION[] = {{0, 0, 1.0f}, {1, 1, 0.9f}, {2, 2, 0.8f}, {4, 4, 0.3f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW TERRAIN[]     = {{1, 1, 0.6f}, {2, 2, 0.4f}, {3, 3, 1.2f}, {4, 4, 0.2f}, {5, 5, 1.2f},
                                      {6, 6, 0.4f}, {7, 7, 1.2f}, {11, 18, 1.5f}, {21, 27, 0.2f}};
constexpr FACTOR_ROW OPERATION[]   = {{0, 0, 0.9f}, {1, 2, 0.6f}, {3, 3, 0.1f}, {4, 4, 1.1f}, {12, 12, 0.2f}};
constexpr FACTOR_ROW LOCATION[]    = {{0, 0, 0.1f}, {1, 1, 0.7f}};
constexpr FACTOR_ROW ECHELON[]     = {{0, 2, 0.3f}, {3, 3, 0.2f}, {4, 4, 0.1f}, {LEAST, MOST, 0.05f}};
constexpr FACTOR_ROW MOBILITY[]    = {{0, 0, 1.1f}, {2, 2, 0.3f}};
constexpr FACTOR_ROW IN_THE_AIR[]  = {{0, 0, 1.5f}, {8, 8, 0.9f}, {9, MOST, 0.0f}};   // aircraft, by MOVESTATUS
constexpr FACTOR_ROW MOVING[]      = {{2, 2, 0.8f}};
constexpr FACTOR_ROW ROLE[]        = {{1, 3, 0.6f}, {4, 6, 0.8f}, {7, 10, 1.2f}, {14, 14, 0.8f}, {19, 20, 0.8f},
                                      {50, 50, 0.0f}};
constexpr FACTOR_ROW DEPOT[]       = {{4, 4, 0.2f}, {5, 5, 0.1f}};                    // logistics units, by SIZE
constexpr FACTOR_ROW JAMMED[]      = {{5, MOST, 0.66f}};
// clang-format on
static_assert(In_Order(SMOKE) && In_Order(MORALE) && In_Order(FATIGUE) && In_Order(SUPPRESSION) &&
              In_Order(TERRAIN) && In_Order(OPERATION) && In_Order(LOCATION) && In_Order(ECHELON) &&
              In_Order(MOBILITY) && In_Order(IN_THE_AIR) && In_Order(MOVING) && In_Order(ROLE) &&
              In_Order(DEPOT) && In_Order(JAMMED));

float Multiplier(int, int) { return FireMult > 0 ? static_cast<float>(FireMult) : 1.0f; }

float Smoke(int, int t)
{
    if (UNIT[t].OBSCURED == 1) Show_Status("Smoke obscures target!");
    return Factor_Of(SMOKE, UNIT[t].OBSCURED);
}

float Mobility(int, int t)
{
    return UNIT[t].MOBILITY == 3 ? Factor_Of(IN_THE_AIR, UNIT[t].MOVESTATUS)
                                 : Factor_Of(MOBILITY, UNIT[t].MOBILITY);
}

float Role(int, int t)
{
    return UNIT[t].TYPE == 13 ? Factor_Of(DEPOT, UNIT[t].SIZE) : Factor_Of(ROLE, UNIT[t].TYPE);
}

float Aim(int f, int t) { return FireMult == 0 && !Inside_TAI(t, UNIT[f].SIDE) ? 0.5f : 1.0f; }
float Command(int f, int) { return static_cast<float>(UNIT[f].C2) * 0.05f + 0.5f; }

float Control(int f, int t)
{
    return UNIT[f].UCONTROL == 1 && UNIT[t].TACOPN != 2 && UNIT[t].TACOPN != 3 ? 1.5f : 1.0f;
}

// clang-format off
constexpr FIRE_FACTOR CHAIN[] = {
    {"fire multiplier",      Multiplier},
    {"smoke over target",    Smoke},
    {"firer's morale",       [](int f, int) { return Factor_Of(MORALE, UNIT[f].MORALE); }},
    {"firer's fatigue",      [](int f, int) { return Factor_Of(FATIGUE, UNIT[f].FATIGUE); }},
    {"firer's suppression",  [](int f, int) { return Factor_Of(SUPPRESSION, UNIT[f].SUPPRESSED); }},
    {"target's terrain",     [](int, int t) { return Factor_Of(TERRAIN, UNIT[t].TERTYPE); }},
    {"target's operation",   [](int, int t) { return Factor_Of(OPERATION, UNIT[t].TACOPN); }},
    {"target location",      [](int, int t) { return Factor_Of(LOCATION, UNIT[t].SPOTTED); }},
    {"target's size",        [](int, int t) { return Factor_Of(ECHELON, UNIT[t].SIZE); }},
    {"target's mobility",    Mobility},
    {"target moving",        [](int, int t) { return Factor_Of(MOVING, UNIT[t].MOVESTATUS); }},
    {"target's role",        Role},
    {"outside a TAI",        Aim},
    {"command",              Command},
    {"jamming",              [](int f, int) { return Factor_Of(JAMMED, UNIT[f].EWSTATUS); }},
    {"controlled unit",      Control},
};
// clang-format on

constexpr float SMALLEST_LOSS = 0.01f;

/// Nothing but a convoy or a lone system loses more than a fifth to one fire; a UAV is lost whole.
float Limited(float loss, int target)
{
    const UNIT_RECORD& t = UNIT[target];
    const float fifth = t.RCP2 * 0.2f;
    if (loss > fifth && t.SIZE != 100 && t.SIZE != 0) loss = fifth;
    if (loss > t.RCP2) loss = t.RCP2;
    if (loss <= SMALLEST_LOSS) loss = SMALLEST_LOSS;
    if (t.TYPE == 26) loss = t.RCP2;
    return loss;
}

}   // namespace

float Artillery_Attack(int firer, int target, int shots)
{
    const UNIT_RECORD& t = UNIT[target];
    const float base = UNIT[firer].RCP2 * 0.3f * static_cast<float>(shots);
    if (Explaining(firer, target))
        Explain_Line(Cat(UNIT[firer].NAME, " shells ", t.NAME, ": ", To_Text(UNIT[firer].RCP2), " x 0.3 x ",
                         To_Text(shots), " = ", To_Text(base)));
    const float loss = Limited(Multiply_Out(base, CHAIN, Explaining(firer, target), firer, target), target);
    const int percent = Percent_Lost(target, loss);
    if (Explaining(firer, target)) Explain_Line(Cat("  loss ", To_Text(loss), ", ", To_Text(percent), "%"));
    (t.SIDE == BLUE ? BARTYL : RARTYL) += loss;
    if (t.MOVESTATUS < 9)
        Post_At(target, Cat("Artillery Attack BDA:  ", t.NAME, Lost_And_Destroyed(percent)), 3000, BOTH);
    if (percent < 100) Suppression_Test(target, 2, 10);
    UNIT_RECORD& battery = UNIT[firer];
    if (battery.FIREMISSION > 0) battery.FIREMISSION -= 1;
    battery.FIREMISSIONN += 1;
    Raise(battery.FATIGUE, 1);
    return loss;
}

}   // namespace sm

// An attack helicopter unit's attack on one ground unit, and the answer.

#include "combat/air_defence.h"
#include "combat/artillery.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/helicopters.h"
#include "combat/loss.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "manoeuvre/aviation.h"
#include "sustain/reports.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int LANDED = 0, ABORTING = 10;
constexpr int EMPTY = 4, COST_OF_AN_ATTACK = 2;   // FIREMISSIONN
constexpr int AT_FLYER = 3, OUT_OF_AMMUNITION = 13;

// clang-format off
constexpr FACTOR_ROW ON_SECURITY[] = {{3, 3, 0.5f}};
constexpr FACTOR_ROW ASPECT[]      = {{2, 2, 1.5f}, {3, 3, 2.0f}};
constexpr FACTOR_ROW MORALE[]      = {{0, 0, 0.5f}, {1, 1, 0.8f}, {2, 2, 1.0f}, {3, 3, 1.1f}, {4, 4, 1.2f}};
constexpr FACTOR_ROW FATIGUE[]     = {{0, 1, 1.1f}, {2, 15, 1.0f}, {16, 21, 0.8f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW SUPPRESSION[] = {{1, 1, 0.9f}, {2, 2, 0.8f}, {3, 4, 0.5f}};
constexpr FACTOR_ROW TERRAIN[]     = {{1, 1, 0.6f}, {2, 2, 0.3f}, {3, 3, 1.2f}, {4, 4, 0.2f}, {5, 5, 1.2f},
                                      {6, 6, 0.3f}, {7, 7, 1.2f}, {11, 18, 1.2f}, {21, 27, 0.2f}};
constexpr FACTOR_ROW OPERATION[]   = {{0, 0, 0.9f}, {1, 2, 0.6f}, {3, 3, 0.3f}, {11, 11, 0.2f}};
constexpr FACTOR_ROW MOBILITY[]    = {{0, 0, 0.5f}, {1, 1, 1.3f}, {3, 3, 1.5f}};
constexpr FACTOR_ROW MOVING[]      = {{2, 2, 1.4f}, {9, 10, 0.0f}};
constexpr FACTOR_ROW ROLE[]        = {{1, 3, 1.5f}, {7, 10, 1.5f}, {12, 12, 0.7f}, {50, 50, 0.0f}};
constexpr FACTOR_ROW SMOKE[]       = {{1, 1, 0.3f}};
// clang-format on
static_assert(In_Order(ON_SECURITY) && In_Order(ASPECT) && In_Order(MORALE) && In_Order(FATIGUE) &&
              In_Order(SUPPRESSION) && In_Order(TERRAIN) && In_Order(OPERATION) && In_Order(MOBILITY) &&
              In_Order(MOVING) && In_Order(ROLE) && In_Order(SMOKE));

int Aspect(int a, int t)
{
    return Aspect_Of_Fire(UNIT[t].FACING, Bearing_To(UNIT[t].X, UNIT[t].Y, UNIT[a].X, UNIT[a].Y));
}

float Area(int a, int t)
{
    const bool inside = Inside_TAI(t, UNIT[a].SIDE);
    Post_Own(a, inside ? "Attack occurred within an active TAI!" : "Attack did not occur within an active TAI!",
             0);
    return inside ? 1.0f : 0.5f;
}

float Control(int a, int t)
{
    return UNIT[a].UCONTROL == 1 && UNIT[t].TACOPN != 2 && UNIT[t].TACOPN != 3 ? 1.5f : 1.0f;
}

float Smoke(int, int t)
{
    if (UNIT[t].OBSCURED == 1) Show_Status("Smoke obscures target!");
    return Factor_Of(SMOKE, UNIT[t].OBSCURED);
}

// clang-format off
constexpr FIRE_FACTOR CHAIN[] = {
    {"on security",          [](int a, int)   { return Factor_Of(ON_SECURITY, UNIT[a].TACOPN); }},
    {"aspect",               [](int a, int t) { return Factor_Of(ASPECT, Aspect(a, t)); }},
    {"morale",               [](int a, int)   { return Factor_Of(MORALE, UNIT[a].MORALE); }},
    {"fatigue",              [](int a, int)   { return Factor_Of(FATIGUE, UNIT[a].FATIGUE); }},
    {"suppression",          [](int a, int)   { return Factor_Of(SUPPRESSION, UNIT[a].SUPPRESSED); }},
    {"outside a TAI",        Area},
    {"controlled unit",      Control},
    {"target's terrain",     [](int, int t)   { return Factor_Of(TERRAIN, UNIT[t].TERTYPE); }},
    {"target's operation",   [](int, int t)   { return Factor_Of(OPERATION, UNIT[t].TACOPN); }},
    {"target's mobility",    [](int, int t)   { return Factor_Of(MOBILITY, UNIT[t].MOBILITY); }},
    {"target moving",        [](int, int t)   { return Factor_Of(MOVING, UNIT[t].MOVESTATUS); }},
    {"target's role",        [](int, int t)   { return Factor_Of(ROLE, UNIT[t].TYPE); }},
    {"smoke over target",    Smoke},
};
// clang-format on

std::string Announcement(int unit, int target, int aspect)
{
    static constexpr const char* WORDS[] = {"", ": Conducting frontal attack against ",
                                            ": Conducting flank attack against ",
                                            ": Conducting rear attack against "};
    if (aspect < 1 || aspect > 3) return UNIT[target].NAME.Str();
    return Cat(UNIT[unit].NAME, WORDS[aspect], UNIT[target].NAME, "!");
}

float Limited(float loss, int unit, int target)
{
    const UNIT_RECORD& t = UNIT[target];
    loss = std::min(loss, t.RCP2 * 0.5f);
    loss = std::min(loss, t.RCP2);
    if (UNIT[unit].MOVESTATUS == ABORTING) loss = loss / 10.0f;
    return t.TYPE == 26 ? t.RCP2 : loss;
}

/// What the attacked unit has against aircraft, after the guns of the helicopters' side. The helicopters may be
/// gone afterwards.
void Return_Fire(int unit, int target)
{
    if (!Lives(target)) return;
    const int distance = Unit_Distance(unit, target);
    const float reach =
        (static_cast<float>(UNIT[target].MXRANGE) + UNIT[target].FOOTPRINT + UNIT[unit].FOOTPRINT) / 2;
    if (distance > reach) return;
    Arty_SEAD(target, UNIT[unit].SIDE);
    if (Lives(target)) ADA_Fire(distance, target, unit, UNIT[unit].X, UNIT[unit].Y, AT_FLYER, 0);
}

}   // namespace

void AH_Attack(int unit, int target)
{
    UNIT_RECORD& a = UNIT[unit];
    const UNIT_RECORD& t = UNIT[target];
    Draw_Fire(Draw::HELICOPTERS, a.X, a.Y, t.X, t.Y, unit, SOUND_HELICOPTERS);
    Post_Own(unit, Announcement(unit, target, Aspect(unit, target)), 0);
    if (Explaining(unit, target)) Explain_Line(Cat(a.NAME, " attacks ", t.NAME, ": 0.1"));
    const float factor = Multiply_Out(0.1f, CHAIN, Explaining(unit, target), unit, target);
    const float loss = Limited(factor * a.RCP2, unit, target);
    const int percent = Percent_Lost(target, loss);
    if (Explaining(unit, target))
        Explain_Line(Cat("  x power ", To_Text(a.RCP2), ", loss ", To_Text(loss), ", ", To_Text(percent), "%"));
    Post_At(unit, Cat("AH BDA: ", t.NAME, Lost(percent)), 0, BOTH);
    (t.SIDE == BLUE ? BAIRL : RAIRL) += loss;
    Apply_Loss(target, loss);
    a.FIREMISSIONN += COST_OF_AN_ATTACK;
    Return_Fire(unit, target);
    if (!Lives(unit)) return;
    Raise(a.FATIGUE, 2);
    if (a.FIREMISSIONN >= EMPTY && a.MOVESTATUS != LANDED && a.MOVESTATUS != ABORTING) {
        Unit_Report(OUT_OF_AMMUNITION, unit, 1);
        Abort_Mission(unit);
    }
}

}   // namespace sm

// One shot of air defence, or of whatever a unit has, at something that flies.

#include "combat/air_defence.h"
#include "combat/direct_fire.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "sustain/supply.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int AT_STRIKE = 1, AT_INTERCEPTORS = 2, AT_FLYER = 3;
constexpr int ABORTING = 10, SECURITY = 3;

// clang-format off
constexpr FACTOR_ROW MORALE[]      = {{0, 0, 0.3f}, {1, 1, 0.5f}, {2, 2, 1.0f}, {3, 3, 1.1f}, {4, 4, 1.2f}};
constexpr FACTOR_ROW FATIGUE[]     = {{0, 1, 1.1f}, {2, 15, 1.0f}, {16, 21, 0.8f}, {LEAST, MOST, 0.5f}};
constexpr FACTOR_ROW SUPPRESSION[] = {{0, 0, 1.0f}, {1, 1, 0.9f}, {2, 2, 0.8f}, {3, 3, 0.7f}, {4, 4, 0.6f}};
constexpr FACTOR_ROW JAMMED[]      = {{5, MOST, 0.66f}};
constexpr FACTOR_ROW DISTANCE[]    = {{34, 66, 0.75f}, {67, 100, 0.5f}};

constexpr STEP<float, int> CHAIN[] = {
    {"morale",       [](int a) { return Factor_Of(MORALE, UNIT[a].MORALE); }},
    {"fatigue",      [](int a) { return Factor_Of(FATIGUE, UNIT[a].FATIGUE); }},
    {"suppression",  [](int a) { return Factor_Of(SUPPRESSION, UNIT[a].SUPPRESSED); }},
    {"jamming",      [](int a) { return Factor_Of(JAMMED, UNIT[a].EWSTATUS); }},
};
// clang-format on
static_assert(In_Order(MORALE) && In_Order(FATIGUE) && In_Order(SUPPRESSION) && In_Order(JAMMED) &&
              In_Order(DISTANCE));

/// A product, printed like the steps of a chain.
float Times(float product, float factor, const char* name, bool explain)
{
    product = product * factor;
    if (explain) Explain_Factor(name, factor, product);
    return product;
}

float Power_Of_Air_Defence(int unit, int distance, bool explain)
{
    if (UNIT[unit].MXRANGE < 1) UNIT[unit].MXRANGE = 1;
    const float hundredth = 0.01f * static_cast<float>(distance);
    const int code = Round_Even(hundredth / static_cast<float>(UNIT[unit].MXRANGE));
    float power = Multiply_Out(1.0f, CHAIN, explain, unit);
    power = Times(power, UNIT[unit].RCP2, "combat power", explain);
    power = Times(power, 10.0f, "air defence", explain);
    return Times(power, Factor_Of(DISTANCE, code), "distance", explain);
}

float Power_Of_Small_Arms(int unit, int mode, bool explain)
{
    const float power = Times(UNIT[unit].RCP2, 0.2f, "small arms", explain);
    return mode == AT_STRIKE ? Times(power, 4.0f, "at a strike", explain) : power;
}

float Power(int unit, int target, int distance, int mode)
{
    const bool explain = Explaining(unit, target);
    if (explain) Explain_Line(Cat(UNIT[unit].NAME, " fires at aircraft, ", To_Text(distance), " pixels away"));
    const float power = Is_Air_Defence(UNIT[unit].TYPE) ? Power_Of_Air_Defence(unit, distance, explain)
                                                        : Power_Of_Small_Arms(unit, mode, explain);
    return TIME_OF_DAY == "Day" ? Times(power, 2.0f, "day", explain) : power;
}

struct Damage {
    float LOSS;
    int ROLL;   ///< 0 when none was made
};

Damage Damage_To_Flyer(int shooter, int target, float power)
{
    const UNIT_RECORD& t = UNIT[target];
    Damage d{t.TACOPN == SECURITY ? power / 8.0f : power, 0};
    if (!(d.LOSS > 0)) {
        d.ROLL = Roll_Dice(SITE_ADA_FLYER);
        if (d.ROLL < 20) d.LOSS = 0.1f;
        if (Explaining(shooter, target))
            Explain_Line(
                Cat("  a lucky hit: roll ", To_Text(d.ROLL), ", below 20", d.ROLL < 20 ? ": yes" : ": no"));
    }
    d.LOSS = std::min(d.LOSS, t.RCP2 / 3.0f);
    if (t.MOVESTATUS == ABORTING) d.LOSS = d.LOSS / 10.0f;
    return d;
}

/// The shot at a unit in the air, with what it carries. Returns the roll, 0 when none was made.
int Hit_Flyer(int shooter, int target, float power)
{
    const UNIT_RECORD& t = UNIT[target];
    const Damage damage = Damage_To_Flyer(shooter, target, power);
    const int percent = Percent_Lost(target, damage.LOSS);
    Draw_Fire(Draw::TRACER, UNIT[shooter].X, UNIT[shooter].Y, t.X, t.Y, shooter, SOUND_AIR_DEFENCE);
    const int passenger = Passenger_Aboard(target);
    const std::string text = Cat("ADA BDA: ", t.NAME, Lost(percent));
    const int x = t.X, y = t.Y;   // a passenger is where its carrier is
    if (Explaining(shooter, target))
        Explain_Line(Cat("  loss ", To_Text(damage.LOSS), ", ", To_Text(percent), "%"));
    Post_At(target, text, 1000, BOTH);
    Post_Own(target, text, 2000);
    (t.SIDE == BLUE ? BADAL : RADAL) += damage.LOSS;
    Apply_Loss(target, damage.LOSS);
    if (Lives(passenger)) {
        Post_Message(passenger, Cat("ADA BDA: ", UNIT[passenger].NAME, Lost(percent)), x, y, 0, BOTH);
        Apply_Loss(passenger, UNIT[passenger].RCP2 * static_cast<float>(percent) * 0.01f);
    }
    Consume_Supply(shooter, 3);
    return damage.ROLL;
}

}   // namespace

ADA_SHOT ADA_Fire(int distance, int ada_unit, int target, int x, int y, int mode, int slot)
{
    if (UNIT[ada_unit].STATUS <= 1 || UNIT[ada_unit].TACOPN < 0) return {};
    ADA_SHOT shot{true, Power(ada_unit, target, distance, mode), 0};
    Raise(UNIT[ada_unit].FATIGUE, 1);
    const UNIT_RECORD& a = UNIT[ada_unit];
    switch (mode) {
    case AT_FLYER:
        shot.ROLL = Hit_Flyer(ada_unit, target, shot.POWER);
        break;
    case AT_INTERCEPTORS:
        shot.ROLL = Roll_Dice(SITE_ADA_INTERCEPTORS);
        Draw_Fire(Draw::TRACER, a.X, a.Y, x, y, ada_unit, SOUND_AIR_DEFENCE);
        break;
    case AT_STRIKE:
        shot.ROLL = Roll_Dice(SITE_ADA_STRIKE) + TG[slot].TGNSORTIES * 4;
        // Over a bridge or a minefield the fire goes a little high: nobody stands there to be seen against.
        Draw_Fire(Draw::TRACER, a.X, a.Y, x, TG[slot].TGHPT < 11 ? y : y - 10, ada_unit, SOUND_AIR_DEFENCE);
        break;
    default:
        break;
    }
    return shot;
}

}   // namespace sm

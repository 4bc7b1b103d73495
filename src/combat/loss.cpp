#include "combat/loss.h"

#include "combat/factors.h"
#include "combat/fires.h"
#include "core/dice.h"
#include "core/explain.h"
#include "manoeuvre/aviation.h"
#include "sustain/reports.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int AVIATION = 3;   // MOBILITY
constexpr int LOGISTICS = 13, LIFT = 12, LINE_OF_COMMUNICATION = 50;
constexpr int IN_RETREAT = -1, HASTY_DEFENSE = 1, SCREENING = 3;   // TACOPN

// ---------------------------------------------------------------------------------------------- tables

// clang-format off
/// Strength, in percent, below which a role is combat ineffective.
constexpr CODE_ROW<int> INEFFECTIVE_BELOW[] = {
    // roles     strength
    {1,  3,      15},     // air defence
    {7,  10,     15},     // guns
    {11, 12,     10},     // aviation
    {17, 17,     10},     // IEW in the air
    {26, 26,     10},     // UAV
    {LEAST, MOST, 36},
};

/// What a loss does to the survivors, by its share of the base power. Every line that holds counts.
struct SHOCK_ROW {
    bool (*HOLDS)(float share, int mobility);
    int SUPPRESSES;
    const char* TEXT;
    int MORALE_CHANCE;   ///< 0: no test
};
constexpr SHOCK_ROW SHOCK[] = {
    {[](float x, int m) { return x > 0.03f && x <= 0.5f && m == AVIATION; }, 1, " is lightly suppressed!", 0},
    {[](float x, int)   { return x > 0.05f && x < 0.1f; },                   1, " is lightly suppressed!", -5},
    {[](float x, int)   { return x >= 0.1f && x < 0.2f; },                   2, " is suppressed!",         -10},
    {[](float x, int)   { return x >= 0.2f; },                               3, " is heavily suppressed!", -15},
};

constexpr MODIFIER_ROW BY_SUPPRESSION[]       = {{0, 0, 10}, {1, 1, 5}, {2, 2, 0}, {3, 3, -5}, {4, 4, -10}};
constexpr MODIFIER_ROW MORALE_BY_COMMAND[]    = {{0, 0, -15}, {1, 1, -10}, {2, 2, 0}, {3, 3, 10}};
constexpr MODIFIER_ROW MORALE_BY_MORALE[]     = {{0, 0, -10}, {1, 1, -5}, {2, 2, 0}, {3, 3, 5}, {4, 4, 10}};
constexpr MODIFIER_ROW FIRE_BY_COMMAND[]      = {{0, 0, 10}, {1, 1, 5}, {2, 2, 0}, {3, 3, -10}};
constexpr MODIFIER_ROW FIRE_BY_MORALE[]       = {{0, 0, 10}, {1, 1, 5}, {2, 2, 0}, {3, 3, -5}, {4, 4, -10}};
constexpr MODIFIER_ROW FIRE_BY_COVER[]        = {{2, 2, -10}, {4, 4, -10}, {5, 5, 10}, {6, 6, -10}, {7, 7, 10},
                                                 {11, 18, 10}, {21, 27, -15}};
// The second look reads the terrain too; only its own values are taken there.
constexpr MODIFIER_ROW FIRE_BY_GROUND[]       = {{0, 0, 5}, {1, 1, -5}, {3, 3, -15}, {4, 4, 5}, {11, 11, -10},
                                                 {LEAST, MOST, 10}};

constexpr TEST_MODIFIER MORALE_MODIFIERS[] = {
    {"suppression", [](int u) { return Modifier_Of(BY_SUPPRESSION, UNIT[u].SUPPRESSED); }},
    {"command",     [](int u) { return Modifier_Of(MORALE_BY_COMMAND, UNIT[u].C2); }},
    {"morale",      [](int u) { return Modifier_Of(MORALE_BY_MORALE, UNIT[u].MORALE); }},
};
constexpr TEST_MODIFIER SUPPRESSION_MODIFIERS[] = {
    {"suppression", [](int u) { return Modifier_Of(BY_SUPPRESSION, UNIT[u].SUPPRESSED); }},
    {"command",     [](int u) { return Modifier_Of(FIRE_BY_COMMAND, UNIT[u].C2); }},
    {"morale",      [](int u) { return Modifier_Of(FIRE_BY_MORALE, UNIT[u].MORALE); }},
    {"cover",       [](int u) { return Modifier_Of(FIRE_BY_COVER, UNIT[u].TERTYPE); }},
    {"ground",      [](int u) { return Modifier_Of(FIRE_BY_GROUND, UNIT[u].TERTYPE); }},
};
// clang-format on
static_assert(In_Order(INEFFECTIVE_BELOW) && In_Order(BY_SUPPRESSION) && In_Order(MORALE_BY_COMMAND) &&
              In_Order(MORALE_BY_MORALE) && In_Order(FIRE_BY_COMMAND) && In_Order(FIRE_BY_MORALE) &&
              In_Order(FIRE_BY_COVER) && In_Order(FIRE_BY_GROUND));

/// Modes of Morale_Test: what can happen.
constexpr int CAN_LOSE_HEART = 1, CAN_GAIN_HEART = 2;
/// Modes of Suppression_Test.
constexpr int CAN_RECOVER = 1, CAN_BE_SUPPRESSED = 2;

// ---------------------------------------------------------------------------------------------- shares of a loss

/// Share of a unit's power, 0 for one without power.
float Share_Of(float part, float power) { return power > 0 ? part / power : 0.0f; }

/// Percent of its power that a unit loses, whole; all of it when it has none. Negative for a gain.
int Percent_Of_Loss(float loss, float power)
{
    if (!(power > 0)) return 100;
    const float percent = loss / power * 100.0f;
    return percent >= 100.0f ? 100 : Floor_Int(percent);
}

/// Takes the attachments' shares; answers their power before it.
float Take_From_Attachments(int u, float loss, int percent)
{
    const float power = UNIT[u].RCP2;
    float attached = 0;
    for (int v = 1; v <= MAX_UNIT; ++v) {
        UNIT_RECORD& part = UNIT[v];
        if (part.PARENT_UNIT != u || part.STATUS < 1) continue;
        attached = attached + part.RCP2;
        const float taken = loss * Share_Of(part.RCP2, power);
        part.RCP2 = std::max(part.RCP2 - taken, 0.0f);
        part.STRENGTH = std::max(part.STRENGTH - static_cast<float>(percent), 0.0f);
    }
    return attached;
}

void Take_Power(int u, float loss)
{
    UNIT_RECORD& unit = UNIT[u];
    const float power = unit.RCP2;
    const int percent = Percent_Of_Loss(loss, power);
    const float attached = Take_From_Attachments(u, loss, percent);
    // RCP2 holds the attachments' power too: their share is taken from them and not from this sum.
    const float own = std::max(power - attached, 0.0f);
    const float taken = attached == 0 ? loss : loss * Share_Of(own, power);
    unit.RCP2 = power - taken;
    unit.STRENGTH = static_cast<float>(Floor_Int(unit.STRENGTH - static_cast<float>(percent)));
    if (unit.STRENGTH <= 0) unit.STRENGTH = 0;
    if (unit.RCP2 <= 0) unit.RCP2 = unit.STRENGTH = 0;
    Screen().Unit_Changed(u);
    if (Explaining(u))
        Explain_Line(Cat(unit.NAME, " loses ", To_Text(loss), " of RCP2 ", To_Text(power), " (", To_Text(percent),
                         "%", attached == 0 ? "" : Cat(", attachments hold ", To_Text(attached)), "): RCP2 ",
                         To_Text(unit.RCP2), ", strength ", To_Text(unit.STRENGTH)));
}

/// The stock goes with the trucks: 500 points of supply for each point of power.
void Take_Stock(int u, float loss)
{
    UNIT_RECORD& unit = UNIT[u];
    unit.LSF = static_cast<float>(Floor_Int(unit.RCP * 500.0f * 0.01f * unit.STRENGTH));
    unit.LSF2 = std::max(static_cast<float>(Floor_Int(unit.LSF2 - loss * 500.0f)), 0.0f);
    if (!(unit.LSF > 0)) return;
    const float percent = unit.LSF2 / unit.LSF * 100.0f;
    unit.LOGSTATN = percent >= 32767.0f ? 32767 : Floor_Int(percent);
}

// ---------------------------------------------------------------------------------------------- what is left

void Test_Effectiveness(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (!(unit.STRENGTH > 0 && unit.STRENGTH < 36)) return;
    const int below = Value_Of(INEFFECTIVE_BELOW, unit.TYPE, 36);
    if (!(unit.STRENGTH < static_cast<float>(below))) return;
    Post_Own(u, Cat(unit.NAME, " is combat ineffective!"), 0);
    unit.STATUS = 1;
    unit.TACOPN = IN_RETREAT;
    unit.MISSION = "Retreat";
    unit.AIACTION = 1;
    unit.MOVESTATUS = 0;
    if (unit.MOBILITY != AVIATION) Clear_Route(u);
    if (Explaining(u))
        Explain_Line(Cat("  combat ineffective: strength ", To_Text(unit.STRENGTH), " below ", To_Text(below)));
}

void Shock_Survivors(int u, float loss)
{
    UNIT_RECORD& unit = UNIT[u];
    const float share = unit.RCP > 0 ? loss / unit.RCP : 0.0f;
    for (const SHOCK_ROW& row : SHOCK) {
        if (!row.HOLDS(share, unit.MOBILITY)) continue;
        Raise(unit.SUPPRESSED, row.SUPPRESSES);
        MsgText = Cat(unit.NAME, row.TEXT);   // built, never posted: the report shows the state
        if (Explaining(u))
            Explain_Line(
                Cat("  share of RCP ", To_Text(share), ":", row.TEXT, " Suppression ", To_Text(unit.SUPPRESSED)));
        if (row.MORALE_CHANCE != 0) Morale_Test(u, CAN_LOSE_HEART, row.MORALE_CHANCE);
    }
    if (unit.TACOPN == SCREENING) {
        Suppression_Test(u, CAN_BE_SUPPRESSED, 0);
        if (unit.TACOPN == SCREENING) Set_Screen(u);
    }
    if (unit.STRENGTH < 40 && unit.BRIDGING > 0) unit.BRIDGING = 0;
    if (unit.SUPPRESSED > 2 && unit.MOBILITY == AVIATION && unit.MOVESTATUS != 0 && unit.MOVESTATUS != 10) {
        Unit_Report(12, u, 1);
        Abort_Mission(u);
    }
}

/// An attached unit that outlives its parent stands where the parent stood, with what supply it was given.
void Cut_Loose(int v, const UNIT_RECORD& parent)
{
    UNIT_RECORD& unit = UNIT[v];
    unit.PARENT_UNIT = 0;
    unit.HIGHERHQ = 0;
    unit.FACING = parent.FACING;
    unit.UCONTROL = 0;
    unit.FSP = 0;
    unit.LOGSTATN = parent.LOGSTATN;
    unit.RSF2 = static_cast<float>(parent.LOGSTATN) * 0.01f * parent.RSF;
    Place_Unit(v, parent.X, parent.Y);
    if (Show_Unit(v)) Show_Picture(v);
    if (Explaining(v)) Explain_Line(Cat(unit.NAME, " outlives its parent unit ", parent.NAME));
}

/// Attachments with power left are cut loose, the others go; what is attached to those is treated the same way.
void Release_Attachments(int u, const UNIT_RECORD& destroyed)
{
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (UNIT[v].PARENT_UNIT != u || UNIT[v].STATUS < 1) continue;
        if (UNIT[v].RCP2 > 0) {
            Cut_Loose(v, destroyed);
        } else {
            UNIT[v].PARENT_UNIT = 0;   // a ring of attachments ends here
            Release_Attachments(v, destroyed);
            Remove_Unit(v);
        }
    }
}

void Destroy_Unit(int u)
{
    UNIT_RECORD destroyed = UNIT[u];
    if (const int carrier = destroyed.CARRIER; Lives(carrier) && Passenger_Aboard(carrier) == u) {
        destroyed.X = UNIT[carrier].X;   // aboard: off the picture nobody could be left behind
        destroyed.Y = UNIT[carrier].Y;
    }
    Post_Message(u, Cat(destroyed.NAME, " is destroyed!"), destroyed.X, destroyed.Y, 2000, BOTH);
    const int passenger =
        destroyed.TYPE == LIFT && Lives(destroyed.PASSENGER) ? static_cast<int>(destroyed.PASSENGER) : 0;
    if (passenger != 0) Post_At(u, Cat(UNIT[passenger].NAME, " is destroyed!"), 2000, BOTH);
    if (Explaining(u, passenger)) Explain_Line("  destroyed");
    Release_Attachments(u, destroyed);
    if (passenger != 0) Remove_With_Attachments(passenger);
    Remove_Unit(u);
}

// ---------------------------------------------------------------------------------------------- dice tests

template <std::size_t N>
int Tested(const char* what, int u, int roll, int chance, const TEST_MODIFIER (&modifiers)[N])
{
    const bool explain = Explaining(u);
    if (explain)
        Explain_Line(Cat(UNIT[u].NAME, ": ", what, " test, roll ", To_Text(roll), chance < 0 ? " - " : " + ",
                         To_Text(chance < 0 ? -chance : chance), " = ", To_Text(roll + chance)));
    return Add_Up(roll + chance, modifiers, explain, u);
}

void Go_To_Ground(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    Clear_Route(u);
    unit.TACOPN = HASTY_DEFENSE;
    unit.MISSION = "Hasty Defense";
    unit.LX = unit.LY = unit.RX = unit.RY = 0;
    if (Explaining(u)) Explain_Line("  goes to ground: Hasty Defense");
}

}   // namespace

void Apply_Loss(int u, float loss)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.STATUS < 1) return;
    Take_Power(u, loss);
    if (unit.TYPE == LOGISTICS) Take_Stock(u, loss);
    Test_Effectiveness(u);
    if (!(unit.RCP2 > 0 && unit.STRENGTH > 0)) {
        Destroy_Unit(u);
        return;
    }
    Set_Footprint(u);
    Shock_Survivors(u, loss);
}

void Morale_Test(int u, int mode, int chance)
{
    const int roll = Roll_Dice(SITE_MORALE);
    UNIT_RECORD& unit = UNIT[u];
    if (unit.TYPE == LINE_OF_COMMUNICATION) return;
    const int v = Tested("morale", u, roll, chance, MORALE_MODIFIERS);
    if (mode == CAN_LOSE_HEART && v < 50) {
        if (unit.MORALE > 0) unit.MORALE -= 1;
        Post_Own(u, Cat(unit.NAME, " lost morale!"), 0);
    }
    if (mode == CAN_GAIN_HEART && v >= (unit.MORALE == 3 ? 111 : 101)) {
        if (unit.MORALE < 4) unit.MORALE += 1;
        Post_Own(u, Cat(unit.NAME, " gained morale!"), 0);
    }
    if (Explaining(u)) Explain_Line(Cat("  morale ", To_Text(unit.MORALE)));
}

void Suppression_Test(int u, int mode, int chance)
{
    const int roll = Roll_Dice(SITE_SUPPRESSION);
    UNIT_RECORD& unit = UNIT[u];
    const int v = Tested("suppression", u, roll, chance, SUPPRESSION_MODIFIERS);
    if (mode == CAN_RECOVER && v < 50) unit.SUPPRESSED = std::max(unit.SUPPRESSED - 2, 0);
    if (mode == CAN_BE_SUPPRESSED && v > 50) {
        Raise(unit.SUPPRESSED, 1);
        Post_Own(u, Cat(unit.NAME, " is suppressed!"), 2000);
        if (unit.SUPPRESSED > 4) unit.SUPPRESSED = 4;
    }
    if (Explaining(u)) Explain_Line(Cat("  suppression ", To_Text(unit.SUPPRESSED)));
    if (unit.SUPPRESSED == 4 && unit.MOBILITY != AVIATION) Go_To_Ground(u);
}

}   // namespace sm

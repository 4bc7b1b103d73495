#include "combat/air_defence.h"

#include "combat/artillery.h"
#include "combat/fires.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"

namespace sm {

namespace {

constexpr int UAV = 26;
constexpr int AT_STRIKE = 1, AT_INTERCEPTORS = 2;

/// Bombers of a side with "High Survivability" meet neither fighters nor air defence.
bool Untouchable(int kind, int side) { return kind == BOMBERS && (side == BLUE ? BBOMBERS : RBOMBERS) == 1; }

/// Flyers that meet the fire: what an engagement needs to know of them.
struct Flyers {
    bool SEAD_FIRST;
    bool INTERCEPTORS;
    int SIDE;
    int X, Y;
    int KIND;
    int SLOT;
};

bool Can_Engage(int unit, const Flyers& flyers)
{
    const UNIT_RECORD& g = UNIT[unit];
    return g.SIDE == Other_Side(flyers.SIDE) && g.STATUS >= 2 && g.FIREMISSIONN < 3;
}

/// One unit's answer to flyers within its reach. True when its shot told.
bool Engage_With(int unit, const Flyers& flyers, int distance)
{
    UNIT[unit].SPOTTED = 1;
    Show_Picture(unit);
    Show_Status(Cat("SITREP: ", UNIT[unit].NAME,
                    flyers.INTERCEPTORS ? " engages the interceptors!" : " engages air strike!"));
    if (flyers.SEAD_FIRST) Arty_SEAD(unit, flyers.SIDE);
    if (UNIT[unit].STATUS < 2) return false;
    const ADA_SHOT shot = ADA_Fire(distance, unit, 0, flyers.X, flyers.Y,
                                   flyers.INTERCEPTORS ? AT_INTERCEPTORS : AT_STRIKE, flyers.SLOT);
    if (!shot.FIRED) return false;
    const int roll = flyers.KIND == BOMBERS ? shot.ROLL * 3 : shot.ROLL;
    const bool told = roll <= shot.POWER;
    if (Explaining(unit))
        Explain_Line(Cat("  ", flyers.INTERCEPTORS ? "drives off fighters" : "disrupts the strike", ": roll ",
                         To_Text(roll), ", at most ", To_Text(shot.POWER), told ? ": yes" : ": no"));
    if (!told) return false;
    if (flyers.INTERCEPTORS) {
        Show_Status("SITREP: ADA drives off interceptors!");
        return true;
    }
    Raise(StrikeDisrupted, 1);
    Post_At_Point("SITREP: ADA disrupts air strike!", flyers.X, flyers.Y, 2000, BOTH);
    (flyers.SIDE == BLUE ? BADAL : RADAL) += 1;
    return true;
}

bool Air_Defence_Answers(const Flyers& flyers)
{
    bool told = false;
    for (int g = 1; g <= MAX_UNIT; ++g) {
        if (!Is_Air_Defence(UNIT[g].TYPE) || !Can_Engage(g, flyers)) continue;
        const int distance = Distance_To(g, flyers.X, flyers.Y);
        if (distance > Weapon_Reach(g)) continue;
        if (Engage_With(g, flyers, distance)) told = true;
    }
    return told;
}

/// Everyone else who can reach the aim point fires what he has.
void Ground_Units_Answer(const Flyers& flyers)
{
    const Attached_Air_Defence attached;
    for (int g = 1; g <= MAX_UNIT; ++g) {
        if (UNIT[g].TYPE < 5 || UNIT[g].TYPE == 50 || !Can_Engage(g, flyers)) continue;
        const int distance = Distance_To(g, flyers.X, flyers.Y);
        if (distance > attached.Reach(g)) continue;
        Engage_With(g, flyers, distance);
    }
}

}   // namespace

Attached_Air_Defence::Attached_Air_Defence()
{
    for (int v = MAX_UNIT; v >= 1; --v) {
        const int parent = UNIT[v].PARENT_UNIT;
        if (parent >= 1 && parent <= MAX_UNIT && Is_Air_Defence(UNIT[v].TYPE) && UNIT[v].STATUS > 1)
            UNIT_OF[parent] = v;
    }
}

float Attached_Air_Defence::Reach(int unit) const
{
    const int attached = UNIT_OF[unit];
    return attached > 0 ? Weapon_Reach(attached) : UNIT[unit].FOOTPRINT / 2;
}

int Intercept_Check(int unit, int side, int x, int y, int kind, int slot)
{
    if (Untouchable(kind, side)) return 0;
    int roll = Roll_Dice(SITE_INTERCEPT);
    if (TIME_OF_DAY == "Night") roll *= 2;
    if (unit > 0) roll *= 3;
    const int enemy_air = side == BLUE ? 100 - AIRSUPER : static_cast<int>(AIRSUPER);
    bool intercepted = roll <= enemy_air || (kind == BOMBERS && roll >= 95);
    // Sorties belong to no unit: they are explained whoever is.
    if (unit > 0 ? Explaining(unit) : ExplainUnit != 0)
        Explain_Line(Cat(unit > 0 ? UNIT[unit].NAME.Str() : "mission " + To_Text(slot), " meets fighters: roll ",
                         To_Text(roll), ", at most ", To_Text(enemy_air),
                         intercepted ? ": intercepted" : ": not intercepted"));
    if (unit > 0 && UNIT[unit].TYPE == UAV) {
        const int second = Roll_Dice(SITE_INTERCEPT_UAV);
        if (second >= 11) intercepted = false;
        if (Explaining(unit))
            Explain_Line(Cat("  small aircraft: roll ", To_Text(second), ", escapes from 11",
                             intercepted ? ": intercepted" : ": not intercepted"));
    }
    if (!intercepted) return 0;
    if (unit > 0) {
        UNIT[unit].VISIBLE = -1;
        Spot_Again(unit);
        Screen().Drawn(Drawing{Draw::CENTRE, x, y, x, y, unit, 0});
    }
    Draw_Fire(Draw::FIGHTERS, x - 65, y - 65, x, y, unit, SOUND_AIR_STRIKE);
    Post_Message(unit,
                 side == BLUE ? "SITREP: RED fighters intercept BLUE air mission!"
                              : "SITREP: BLUE fighters intercept RED air mission!",
                 x, y, 2000, BOTH);
    return ADA_Engage(0, 1, Other_Side(side), x - 55, y - 55, 0, slot) == 1 ? 0 : 1;
}

int ADA_Engage(int sead_first, int interceptors, int side, int x, int y, int kind, int slot)
{
    if (Untouchable(kind, side)) return 0;
    const Flyers flyers{sead_first != 0, interceptors == 1, side, x, y, kind, slot};
    const bool told = Air_Defence_Answers(flyers);
    if (flyers.INTERCEPTORS) {
        if (!told) Show_Status("SITREP: Fighters evade ADA!");
        return told ? 1 : 0;
    }
    if (kind == AIR_STRIKE && slot > 0 && TG[slot].TGHPT >= 0 && TG[slot].TGHPT <= 10) Ground_Units_Answer(flyers);
    return 0;
}

}   // namespace sm

// Guns that fire unplanned: suppression of air defence, and counterfire on a battery that gave itself away.

#include "combat/artillery.h"
#include "combat/direct_fire.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "sustain/supply.h"
#include "terrain/coordinates.h"

namespace sm {

namespace {

constexpr int ON_COUNTERFIRE = 1, ON_SEAD = 2;
constexpr int PLAYERS_SEAD = 4, COMPUTERS_SEAD = 3, COUNTERFIRE = 2;   // FireMult

bool Is_Known_Air_Defence(int unit, int side)
{
    const UNIT_RECORD& u = UNIT[unit];
    return u.SIDE == side && Is_Air_Defence(u.TYPE) && u.STATUS > 1 && u.SPOTTED > 0;
}

void SEAD_With(int multiplier, int target, int side)
{
    const int held = FireMult;
    FireMult = multiplier;
    Arty_SEAD(target, side);
    FireMult = held;
}

/// Sides that the computer plays in the turn under way.
bool Computer_Plays(int side)
{
    return PlayType == 34 || (PlayType == 3 && side == RED) || (PlayType == 4 && side == BLUE);
}

/// From where a battery measures: an attached one stands with its parent.
int Pixels_To_Target(int battery, int target)
{
    const int parent = UNIT[battery].PARENT_UNIT;
    return Unit_Distance(Lives(parent) ? parent : battery, target);
}

/// One battery's unplanned fire at a unit. Battery and target may be gone afterwards.
void Fire_At_Unit(int battery, int target, int shots, bool can_be_answered)
{
    const int x = UNIT[target].X, y = UNIT[target].Y;
    Draw_Fire(Draw::IMPACT, UNIT[battery].X, UNIT[battery].Y, x, y, battery, SOUND_ARTILLERY);
    float loss;
    if (can_be_answered) {
        loss = Artillery_Attack(battery, target, shots);
    } else {
        const int held = FireMult;   // the rest of a SEAD fire keeps its own
        FireMult = COUNTERFIRE;
        loss = Artillery_Attack(battery, target, shots);
        FireMult = held;
    }
    Consume_Supply(battery, 2);
    Suppression_Test(target, 2, 20);
    if (can_be_answered) Counterfire_Check(battery, target, 1);
    Apply_Loss(target, loss);
    if (Lives(battery)) UNIT[battery].FACING = Bearing_To(UNIT[battery].X, UNIT[battery].Y, x, y);
}

bool Answers(int roll, int chance, std::string_view source, int firer)
{
    if (Explaining(firer)) Explain_Line(Cat("  watched ", source, roll <= chance ? ": located" : ": not located"));
    return roll <= chance;
}

bool Seen_By_Zone(int firer, int side, int roll, int chance)
{
    const UNIT_RECORD& f = UNIT[firer];
    for (int g = 1; g <= MAX_P; ++g) {
        if (P[g].PTYPE != CFFZ_GRAPHIC || P[g].PSIDE != side) continue;
        if (Distance_To(firer, P[g].PX1, P[g].PY1) > (f.FOOTPRINT + 40) / 2) continue;
        Log(Cat("Counterfire Acquistion (CFFZ): ", f.NAME));
        if (Answers(roll, chance, "in a call-for-fire zone", firer)) return true;
    }
    return false;
}

/// Critical friendly zones that the fire falls into: of units around the aim point of a planned mission, or of the
/// one unit that was shot at.
bool Seen_From_Under_Fire(int firer, int side, int slot, int mode, int roll, int chance)
{
    if (mode == 1) {
        if (!Lives(slot) || UNIT[slot].CFZ != 1) return false;
        Log(Cat("Counterfire Acquistion (CFZ): ", UNIT[firer].NAME));
        return Answers(roll, chance, "by its target's zone", firer);
    }
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1 || UNIT[u].SIDE != side || UNIT[u].CFZ != 1) continue;
        if (Distance_To(u, TG[slot].TGX, TG[slot].TGY) > (UNIT[u].FOOTPRINT + 40) / 2) continue;
        Log(Cat("Counterfire Acquistion (CFZ 2): ", UNIT[firer].NAME));
        if (Answers(roll, chance, "by a zone around the aim point", firer)) return true;
    }
    return false;
}

}   // namespace

void Preplanned_SEAD()
{
    for (int g = 1; g <= MAX_P; ++g) {
        if (P[g].PTYPE != SEAD_GRAPHIC) continue;
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (Is_Known_Air_Defence(u, Other_Side(P[g].PSIDE)) && Distance_To(u, P[g].PX1, P[g].PY1) < 41)
                SEAD_With(PLAYERS_SEAD, u, P[g].PSIDE);
    }
    for (const int computer : {BLUE, RED}) {
        if (!Computer_Plays(computer)) continue;
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (Is_Known_Air_Defence(u, Other_Side(computer))) SEAD_With(COMPUTERS_SEAD, u, computer);
    }
}

void Arty_SEAD(int target, int side)
{
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (!Lives(target)) return;
        const UNIT_RECORD& battery = UNIT[v];
        if (battery.SIDE != side || battery.STATUS < 2 || !Is_Gun(battery.TYPE) || battery.FIREMISSION != 0 ||
            battery.FSP != ON_SEAD || battery.FIREMISSIONN >= 3)
            continue;
        if (Pixels_To_Target(v, target) > Battery_Reach(v)) continue;
        Show_Status_And_Wait(FireMult != 0 ? "Supporting artillery fires pre-planned SEAD!"
                                           : "Supporting artillery fires on-call SEAD!",
                             1000);
        Fire_At_Unit(v, target, 2, true);
    }
}

void Counterfire_Check(int firer, int slot, int mode)
{
    const int side = Other_Side(UNIT[firer].SIDE);
    const int roll = Roll_Dice(SITE_COUNTERFIRE);
    const int chance = UNIT[firer].SIDE == BLUE ? RFIREF : BFIREF;
    if (Explaining(firer))
        Explain_Line(
            Cat("counterfire on ", UNIT[firer].NAME, ": roll ", To_Text(roll), ", chance ", To_Text(chance)));
    bool located = Seen_By_Zone(firer, side, roll, chance);
    if (!located) located = Seen_From_Under_Fire(firer, side, slot, mode, roll, chance);
    if (!located && Computer_Plays(side)) located = Answers(roll, chance, "by the computer's radars", firer);
    if (!located) return;
    Raise(UNIT[firer].SPOTTED, 1);
    const int x = UNIT[firer].X, y = UNIT[firer].Y;
    const std::string where = Has_Grid_Data() ? Cat(" at ", Grid_Reference(x, y)) : "";
    Post_At_Point(Cat("INTREP: Enemy artillery has been located", where, "!"), x, y, 0, side);
    Counterfire(firer);
}

void Counterfire(int target)
{
    if (UNIT[target].TYPE < 7 || UNIT[target].TYPE > 9 || UNIT[target].SPOTTED < 1) return;
    const int side = Other_Side(UNIT[target].SIDE);
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (!Lives(target)) return;
        const UNIT_RECORD& battery = UNIT[v];
        if (battery.SIDE != side || battery.STATUS <= 1 || !Is_Gun(battery.TYPE) || battery.FIREMISSIONN >= 2 ||
            battery.FSP != ON_COUNTERFIRE)
            continue;
        if (Unit_Distance(v, target) > Weapon_Reach(v)) continue;
        Post_Own(v, Cat("SITREP: ", battery.NAME, " fires Counterfire!"), 2000);
        Fire_At_Unit(v, target, 5, false);
    }
}

}   // namespace sm

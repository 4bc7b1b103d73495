#include "combat/artillery.h"

#include "combat/air.h"
#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "manoeuvre/engineers.h"
#include "sustain/nbc.h"
#include "sustain/supply.h"
#include "terrain/coordinates.h"
#include "terrain/grid.h"

namespace sm {

namespace {

constexpr int GUNS = 1, AIR_AND_ENGINEERS = 2;

constexpr int MISSILE_BATTERY = 10, MISSILE_DEFENCE = 3;

bool Fired_By_Guns(int type)
{
    return type == HIGH_EXPLOSIVE || type == FASCAM || type == GAS || type == PERSISTENT_GAS;
}

void Show_Fires_Phase(std::string_view title) { Show_Status_And_Wait(title, 500); }

// ---------------------------------------------------------------------------------------------- engineer tasks

/// Score, roll / 10 less the enemies that press the unit, below which the charges fail, by role; the others have
/// none.
constexpr CODE_ROW<int> CHARGES_FAIL_BELOW[] = {
    {4, 6, 3}, {14, 15, 2}, {19, 20, 3}, {24, 25, 3}, {LEAST, MOST, 32767}};
static_assert(In_Order(CHARGES_FAIL_BELOW));

void Demolish_Bridge(int slot)
{
    const int unit = TG[slot].FUNIT;
    if (!Lives(unit) || UNIT[unit].STATUS < 2) return;
    const int side = TG[slot].TGSIDE;
    const std::string name = UNIT[unit].NAME.Str();
    const std::string where = Grid_Reference(TG[slot].TGX, TG[slot].TGY);
    bool fire = true;
    int pressing = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& enemy = UNIT[u];
        if (enemy.STATUS < 1 || enemy.SIDE != Other_Side(side)) continue;
        const float near = static_cast<float>(Floor_Int(enemy.FOOTPRINT)) / 4;
        if (Unit_Distance(unit, u) <= near && enemy.STATUS > 1 && enemy.MOBILITY != 3 && enemy.SIZE > 1) {
            ++pressing;
            Post_At(unit, Cat("SPOTREP :", enemy.NAME, " attacks bridge demolitions unit!"), 2000, side);
        }
        if (enemy.HEXNUM == TG[slot].TGHEX) fire = false;
    }
    const int roll = Roll_Dice(SITE_DEMOLITION);
    const int score = Round_Even(static_cast<float>(roll) / 10.0f) - pressing;
    const int fails_below = Value_Of(CHARGES_FAIL_BELOW, UNIT[unit].TYPE, 0);
    if (score < fails_below) fire = false;
    if (Explaining(unit))
        Explain_Line(Cat(name, " blows the bridge: roll ", To_Text(roll), " / 10, enemies pressing ",
                         To_Text(pressing), ", score ", To_Text(score), ", fails below ", To_Text(fails_below),
                         fire ? ": fire" : ": no fire"));
    UNIT[unit].FIREMISSION = 0;
    if (Has_Grid_Data()) Post_At(unit, Cat("SPOTREP: Explosion detected at ", where), 0, Other_Side(side));
    if (!fire) {
        Post_At(unit, Cat("SPOTREP: ", name, "reports that bridge demolitions failed!"), 0, side);
        return;
    }
    Draw_Fire(Draw::EXPLOSION, TG[slot].TGX, TG[slot].TGY, TG[slot].TGX, TG[slot].TGY, unit, SOUND_DEMOLITION);
    Post_At(unit, Cat("SPOTREP: ", name, " reports bridge is blown at ", where), 0, side);
    Blow_Bridge(TG[slot].TGHEX);
}

void Build_Obstacle(int slot)
{
    const int unit = TG[slot].FUNIT;
    if (!Lives(unit) || UNIT[unit].STATUS < 2) return;
    UNIT[unit].MOVEPOINTS2 = 0;
    Lay_Obstacle(TG[slot].TGHEX, TG[slot].TGSIDE);
}

void Run_Air_And_Engineers(int slot)
{
    switch (TG[slot].TGTYPE) {
    case BOMBERS:
    case AIR_STRIKE:
        Air_Mission(slot);
        break;
    case DEMOLITION:
        Demolish_Bridge(slot);
        break;
    case OBSTACLE:
        Build_Obstacle(slot);
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------------------------------------- one battery's
// mission

/// Missile defence of the side that is fired at, in unit order until one hits.
bool Missile_Shot_Down(int slot)
{
    const TG_RECORD& target = TG[slot];
    const int battery = target.FUNIT;
    Show_Status("ADA WARNING: Theater ballistic missile is inbound!");
    for (int g = 1; g <= MAX_UNIT; ++g) {
        const UNIT_RECORD& guard = UNIT[g];
        if (guard.TYPE != MISSILE_DEFENCE || guard.SIDE != Other_Side(target.TGSIDE) || guard.STATUS <= 1)
            continue;
        const int reach = Round_Even(0.75f * static_cast<float>(Floor_Int(Battery_Reach(g))));
        if (Distance_To(g, target.TGX, target.TGY) > reach) continue;
        Show_Status_And_Wait("ADA engages incoming theater ballistic missile!", 1000);
        Draw_Fire(Draw::INTERCEPTOR, guard.X, guard.Y, target.TGX, target.TGY, g, SOUND_AIR_DEFENCE);
        const int roll = Roll_Dice(SITE_MISSILE_DEFENCE);
        const bool hit = roll / 10 < 6;
        if (Explaining(battery, g))
            Explain_Line(Cat(guard.NAME, " engages a missile: roll ", To_Text(roll), " / 10, hits below 6",
                             hit ? ": destroyed" : ": missed"));
        if (hit) {
            Show_Status("ADA destroys theater ballistic missile!");
            return true;
        }
        Show_Status("ADA misses theater ballistic missile!");
    }
    return false;
}

void Shell_The_Aim_Point(int slot)
{
    const int battery = TG[slot].FUNIT;
    const int x = TG[slot].TGX, y = TG[slot].TGY;
    const int enemy_side = Other_Side(TG[slot].TGSIDE);
    bool hit = false;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1 || UNIT[u].SIDE != enemy_side || UNIT[u].TYPE == 50) continue;
        if (Distance_To(u, x, y) > static_cast<float>(Floor_Int(UNIT[u].FOOTPRINT)) / 2) continue;
        hit = true;
        const float loss = Artillery_Attack(battery, u, 4);
        Consume_Supply(battery, 2);
        Apply_Loss(u, loss);
    }
    if (hit) return;
    Post_At_Point("Artillery hits target!\rBDA: No casualties!", x, y, 2000, BOTH);
    Consume_Supply(battery, 2);
}

void Gas_The_Aim_Point(int slot)
{
    const int x = TG[slot].TGX, y = TG[slot].TGY;
    const char* kind =
        TG[slot].TGTYPE == GAS ? "NBC MESSAGE: Non-Persistent Strike at " : "NBC MESSAGE: Persistent Strike at ";
    Post_At_Point(Cat(kind, Grid_Reference(x, y)), x, y, 3000, BOTH);
    Add_Contamination(slot, x, y);
}

void Land_The_Rounds(int slot)
{
    const TG_RECORD& target = TG[slot];
    UNIT_RECORD& battery = UNIT[target.FUNIT];
    battery.FACING = Bearing_To(battery.X, battery.Y, target.TGX, target.TGY);
    Draw_Fire(Draw::IMPACT, battery.X, battery.Y, target.TGX, target.TGY, target.FUNIT, SOUND_ARTILLERY);
    switch (target.TGTYPE) {
    case HIGH_EXPLOSIVE:
        Shell_The_Aim_Point(slot);
        break;
    case FASCAM:
        Lay_Obstacle(Hex_Number(target.TGX, target.TGY), target.TGSIDE);
        break;
    case GAS:
    case PERSISTENT_GAS:
        Gas_The_Aim_Point(slot);
        break;
    default:
        break;
    }
}

}   // namespace

void Fires_Phase()
{
    const int roll = Roll_Dice(SITE_FIRES_ORDER);
    const bool blue_guns_first = Round_Even(static_cast<float>(roll) / 50.0f) == 1;
    if (ExplainUnit != 0)
        Explain_Line(Cat("order of fires: roll ", To_Text(roll), " / 50, at 1 Blue's guns come first",
                         blue_guns_first ? ": Blue" : ": Red"));
    Show_Fires_Phase("Pre-planned SEAD Phase");
    Preplanned_SEAD();
    // The side that shoots first with guns strikes last from the air.
    const int guns_first = blue_guns_first ? 1 : 101, guns_second = blue_guns_first ? 101 : 1;
    Show_Fires_Phase("Pre-planned Artillery Phase");
    Run_Targets(GUNS, guns_first, guns_first + 99);
    Run_Targets(GUNS, guns_second, guns_second + 99);
    Show_Fires_Phase("Air Strike Phase");
    Run_Targets(AIR_AND_ENGINEERS, guns_second, guns_second + 99);
    Run_Targets(AIR_AND_ENGINEERS, guns_first, guns_first + 99);
}

void Run_Targets(int kind, int first, int last)
{
    for (int slot = first; slot <= last; ++slot) {
        if (!Used(TG[slot]) || TG[slot].TGTOT != GTURN) continue;
        if (kind == GUNS && !Fired_By_Guns(TG[slot].TGTYPE)) continue;
        const int held = CurTarget;
        CurTarget = slot;
        if (kind == GUNS)
            Fire_Arty(slot);
        else
            Run_Air_And_Engineers(slot);
        CurTarget = held;
        Delete_Target(slot);
    }
}

void Fire_Arty(int slot)
{
    const int battery = TG[slot].FUNIT;
    if (!Lives(battery) || UNIT[battery].SIDE != TG[slot].TGSIDE || UNIT[battery].STATUS < 2) return;
    const bool stopped = UNIT[battery].TYPE == MISSILE_BATTERY && Missile_Shot_Down(slot);
    if (!stopped) Land_The_Rounds(slot);
    if (!Lives(battery)) return;   // its own gas may reach it
    if (TG[slot].TGTYPE != HIGH_EXPLOSIVE) Consume_Supply(battery, 2);
    Counterfire_Check(battery, slot, 2);
}

}   // namespace sm

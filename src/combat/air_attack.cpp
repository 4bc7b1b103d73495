#include "combat/air_attack.h"

#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "manoeuvre/engineers.h"
#include "terrain/grid.h"

#include <algorithm>

namespace sm {

namespace {

// clang-format off
constexpr FACTOR_ROW SMOKE[]          = {{1, 1, 1.0f / 3.0f}};
constexpr FACTOR_ROW DISRUPTION[]     = {{1, 1, 1.0f / 3.0f}, {2, 2, 1.0f / 8.0f}, {3, MOST, 1.0f / 12.0f}};
constexpr FACTOR_ROW ECHELON[]        = {{1, 1, 2.0f}, {2, 2, 1.3f}, {3, 3, 1.0f}, {4, 4, 0.5f}, {5, 5, 0.25f},
                                         {6, 6, 0.1f}};
constexpr FACTOR_ROW TERRAIN[]        = {{1, 1, 0.8f}, {2, 2, 0.6f}, {3, 3, 1.3f}, {4, 4, 0.4f}, {5, 5, 1.3f},
                                         {6, 6, 0.6f}, {7, 7, 1.3f}, {11, 18, 1.3f}, {21, 27, 0.3f}};
constexpr FACTOR_ROW OPERATION[]      = {{-1, -1, 1.3f}, {1, 1, 0.6f}, {3, 4, 0.5f}, {11, 11, 0.4f}};
constexpr FACTOR_ROW MOBILITY[]       = {{0, 0, 0.5f}, {1, 1, 1.3f}, {3, 3, 1.5f}};
constexpr FACTOR_ROW MOVING[]         = {{1, 2, 1.3f}, {8, 10, 0.0f}};
// The chance to hit a place.
constexpr FACTOR_ROW BY_SORTIES[]     = {{1, 2, 1.0f}, {3, 4, 1.1f}, {5, 6, 1.2f}, {7, 8, 1.3f},
                                         {LEAST, MOST, 1.5f}};
constexpr FACTOR_ROW BY_DISRUPTION[]  = {{1, 1, 0.5f}, {2, MOST, 0.25f}};
// clang-format on
static_assert(In_Order(SMOKE) && In_Order(DISRUPTION) && In_Order(ECHELON) && In_Order(TERRAIN) &&
              In_Order(OPERATION) && In_Order(MOBILITY) && In_Order(MOVING) && In_Order(BY_SORTIES) &&
              In_Order(BY_DISRUPTION));

bool Night() { return TIME_OF_DAY == "Night"; }

float Smoke(int, int t)
{
    if (UNIT[t].OBSCURED == 1) Show_Status("Smoke obscures target!");
    return Factor_Of(SMOKE, UNIT[t].OBSCURED);
}

float Area(int slot, int t)
{
    const bool inside = Inside_TAI(t, TG[slot].TGSIDE);
    Post_At_Point(inside ? "Attack occurred within an active TAI!" : "Attack did not occur within an active TAI!",
                  UNIT[t].X, UNIT[t].Y, 0, TG[slot].TGSIDE);
    return inside ? 1.0f : 0.5f;
}

// clang-format off
/// Of a mission's target row and the unit under it.
constexpr FIRE_FACTOR CHAIN[] = {
    {"night",                [](int, int)   { return Night() ? 0.6f : 1.0f; }},
    {"smoke over target",    Smoke},
    {"disrupted",            [](int, int)   { return Factor_Of(DISRUPTION, StrikeDisrupted); }},
    {"target's size",        [](int, int t) { return Factor_Of(ECHELON, UNIT[t].SIZE); }},
    {"target's terrain",     [](int, int t) { return Factor_Of(TERRAIN, UNIT[t].TERTYPE); }},
    {"target's operation",   [](int, int t) { return Factor_Of(OPERATION, UNIT[t].TACOPN); }},
    {"target's mobility",    [](int, int t) { return Factor_Of(MOBILITY, UNIT[t].MOBILITY); }},
    {"target moving",        [](int, int t) { return Factor_Of(MOVING, UNIT[t].MOVESTATUS); }},
    {"outside a TAI",        Area},
};

constexpr STEP<float, int> CHANCE[] = {
    {"sorties",              [](int slot) { return Factor_Of(BY_SORTIES, TG[slot].TGNSORTIES); }},
    {"disrupted",            [](int)      { return Factor_Of(BY_DISRUPTION, StrikeDisrupted); }},
};
// clang-format on

const char* BDA(int kind) { return kind == BOMBERS ? "Bomber Mission BDA: " : "Air Strike BDA: "; }

float Limited(float loss, int target, int kind)
{
    const UNIT_RECORD& t = UNIT[target];
    if (kind == BOMBERS) {
        loss = loss * 4.0f;
        if (Explaining(target)) Explain_Factor("bombers", 4.0f, loss);
    }
    if (kind == AIR_STRIKE) loss = std::min(loss, t.RCP2 * 0.8f);
    if (t.TYPE == 26) loss = t.RCP2;
    loss = std::min(loss, t.RCP2);
    return loss < 0.1f ? 0.1f : loss;
}

void Attack_Unit(int target, int kind, int slot)
{
    const UNIT_RECORD& t = UNIT[target];
    if (t.STATUS < 1) return;
    const float base = TG[slot].TGHPT == 0 ? 1.8f : 3.0f;
    if (Explaining(target))
        Explain_Line(Cat("mission ", To_Text(slot), " attacks ", t.NAME, ": ", To_Text(base), " a sortie"));
    const float sorties = static_cast<float>(TG[slot].TGNSORTIES);
    const float all = sorties * Multiply_Out(base, CHAIN, Explaining(target), slot, target);
    if (Explaining(target)) Explain_Factor("sorties", sorties, all);
    const float loss = Limited(all, target, kind);
    const int percent = Percent_Lost(target, loss);
    if (Explaining(target)) Explain_Line(Cat("  loss ", To_Text(loss), ", ", To_Text(percent), "%"));
    Post_At(target, Cat(BDA(kind), t.NAME, Lost_And_Destroyed(percent)), 2000, BOTH);
    (t.SIDE == BLUE ? BAIRL : RAIRL) += loss;
    Apply_Loss(target, loss);
}

/// Whether a mission against a place hits; bombers aim twice as well. It belongs to no unit: it is explained
/// whoever is.
bool Hits_Place(int site, float chance, int kind, int slot)
{
    const bool explain = ExplainUnit != 0;
    if (explain) Explain_Line(Cat("mission ", To_Text(slot), " attacks a place: chance ", To_Text(chance)));
    const float p = Multiply_Out(chance, CHANCE, explain, slot);
    const int roll = Roll_Dice(site);
    const float r = kind == BOMBERS ? static_cast<float>(roll) / 2.0f : static_cast<float>(roll);
    if (explain) Explain_Line(Cat("  roll ", To_Text(r), ", below ", To_Text(p), r < p ? ": hit" : ": missed"));
    return r < p;
}

void Attack_Bridge(int kind, int slot)
{
    const TG_RECORD& mission = TG[slot];
    if (!Hits_Place(SITE_AIR_BRIDGE, Night() ? 30.0f : 60.0f, kind, slot)) {
        Post_At_Point(Cat(BDA(kind), "Air attack misses bridge! "), mission.TGX, mission.TGY, 0, BOTH);
        return;
    }
    Draw_Fire(Draw::EXPLOSION, mission.TGX, mission.TGY, mission.TGX, mission.TGY, 0, SOUND_DEMOLITION);
    Post_At_Point(kind == BOMBERS ? "Bomber Misson: Bridge is destroyed! "
                                  : "Air Strike BDA: Bridge is destroyed! ",
                  mission.TGX, mission.TGY, 1000, BOTH);
    Blow_Bridge(mission.TGHEX);
}

void Drop_Mines(int kind, int slot)
{
    const TG_RECORD& mission = TG[slot];
    const bool hit = Hits_Place(SITE_AIR_MINES, Night() ? 40.0f : 80.0f, kind, slot);
    if (hit) Lay_Obstacle(Hex_Number(mission.TGX, mission.TGY), mission.TGSIDE);
    Post_At_Point(Cat(BDA(kind), hit ? "FASCAM mission was successful!" : "FASCAM mission failed! "), mission.TGX,
                  mission.TGY, 0, BOTH);
}

}   // namespace

void Air_Attack(int target, int kind, int slot)
{
    switch (TG[slot].TGHPT) {
    case BRIDGE_TARGET:
        Attack_Bridge(kind, slot);
        break;
    case MINES_TARGET:
        Drop_Mines(kind, slot);
        break;
    default:
        Attack_Unit(target, kind, slot);
        break;
    }
}

}   // namespace sm

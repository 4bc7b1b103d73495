#include "opponent/planning.h"

#include "core/dice.h"
#include "core/platform.h"
#include "core/shared.h"
#include "opponent/route_planner.h"
#include "sustain/logistics.h"
#include "terrain/grid.h"

namespace sm {

namespace {

constexpr int NAI = 12, TAI = 13;
constexpr int WATCH_PIXELS = 41;   ///< an NAI or TAI that has no enemy nearer than this is given up

bool Is_Area(const P_RECORD& p, int side) { return (p.PTYPE == NAI || p.PTYPE == TAI) && p.PSIDE == side; }

bool Enemy_Near(int side, int x, int y)
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].SIDE != side && UNIT[u].STATUS > 0 && Distance_To(u, x, y) < WATCH_PIXELS) return true;
    return false;
}

bool Place_Area(int side, int kind, int x, int y)
{
    const int first = side == RED ? 201 : 1;
    const int row = Free_Row(P, first, first + 199);
    if (row == 0) return false;
    P[row] = P_RECORD{};
    P[row].PTYPE = kind;
    P[row].PSIDE = side;
    P[row].PX1 = x;
    P[row].PY1 = y;
    P[row].PAGE = 2;
    P[row].PIMAGE = kind == NAI ? "NAI.ico" : "TAI.ico";
    Int16& count = *Graphic_Count(P[row]);
    count = Saturate_16(count + 1);
    Screen().Changed(Redraw::GRAPHICS);
    return true;
}

/// Areas in hand against the caps while new ones are placed.
struct AREAS {
    int SIDE, MAX_NAI, MAX_TAI, NAI_COUNT = 0, TAI_COUNT = 0;

    void Place(int nai_x, int nai_y, int tai_x, int tai_y)
    {
        if (Place_Area(SIDE, NAI, nai_x, nai_y)) ++NAI_COUNT;
        if (TAI_COUNT < MAX_TAI && Place_Area(SIDE, TAI, tai_x, tai_y)) ++TAI_COUNT;
    }
};

void Prune(AREAS& areas)
{
    for (int g = 1; g <= MAX_P; ++g) {
        if (!Is_Area(P[g], areas.SIDE)) continue;
        const int kind = P[g].PTYPE;
        if (Enemy_Near(areas.SIDE, P[g].PX1, P[g].PY1)) {
            (kind == NAI ? areas.NAI_COUNT : areas.TAI_COUNT) += 1;
        } else {
            Erase_Graphic(g);
        }
    }
}

void Consider_Area(AREAS& areas, int objective, int enemy)
{
    const UNIT_RECORD& e = UNIT[enemy];
    if (e.SPOTTED >= 1) {
        const int roll = Roll_Dice(SITE_NAI_ON_TARGET);
        if (e.HPTVALUE >= 61 && roll < e.HPTVALUE) areas.Place(e.X, e.Y, e.X + 4, e.Y + 4);
    }
    const OBJ_RECORD& o = OBJ[objective];
    if (o.OTYPE != 1 || static_cast<float>(Distance_To(enemy, o.OX, o.OY)) > MAPSCALE * 10) return;
    const int roll = Roll_Dice(SITE_NAI_ON_OBJECTIVE);
    if (roll < 20) areas.Place(o.OX, o.OY, o.OX + 4, o.OY + 4);
}

/// First objective that the side does not hold, 0 when there is none.
int First_Objective_To_Take(int side)
{
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1 && OBJ[o].OID != side) return o;
    return 0;
}

bool Is_Headquarters(int unit, int side)
{
    return UNIT[unit].TYPE == 18 && UNIT[unit].STATUS > 0 && UNIT[unit].SIDE == side;
}

void Fly_There_And_Back(int uav, int x, int y)
{
    const int home_x = UNIT[uav].X, home_y = UNIT[uav].Y;
    AI_Add_Node(uav, x, y);
    AI_Add_Node(uav, home_x, home_y);
}

void Plan_UAV(int uav, int side)
{
    const int objective = First_Objective_To_Take(side);
    if (objective != 0 && GTURN > 1) {
        const int roll = Roll_Dice(SITE_UAV_OBJECTIVE);
        if (roll < 50) Fly_There_And_Back(uav, OBJ[objective].OX, OBJ[objective].OY);
    }
    if (UNIT[uav].MOVESTATUS == 0 && GTURN >= 2) {
        for (int hq = 1; hq <= MAX_UNIT; ++hq) {
            if (!Is_Headquarters(hq, 3 - side) || Hex_Number(UNIT[hq].X, UNIT[hq].Y) == 0) continue;
            if (UNIT[hq].X + 20 >= Picture_Width() || UNIT[hq].Y + 20 >= Picture_Height()) continue;
            const int roll = Roll_Dice(SITE_UAV_ENEMY_HQ);
            if (roll >= 20) continue;
            Fly_There_And_Back(uav, UNIT[hq].X + 20, UNIT[hq].Y + 20);
            break;
        }
    }
    if (UNIT[uav].MOVESTATUS != 0) return;
    for (int hq = 1; hq <= MAX_UNIT; ++hq) {
        if (!Is_Headquarters(hq, side)) continue;
        const int roll = Roll_Dice(SITE_UAV_OWN_HQ);
        if (roll >= 50) continue;
        AI_Add_Node(uav, UNIT[hq].X, UNIT[hq].Y);
        break;
    }
}

/// The last enemy headquarters of the table decides.
void Face_Enemy_Headquarters(int unit)
{
    for (int hq = 1; hq <= MAX_UNIT; ++hq)
        if (Is_Headquarters(hq, 3 - UNIT[unit].SIDE))
            UNIT[unit].FACING = Bearing_To(UNIT[unit].X, UNIT[unit].Y, UNIT[hq].X, UNIT[hq].Y);
}

void Announce(std::string_view phase)
{
    Show_Status(phase);
    Delay(500);
}

}   // namespace

void HQ_Power(int hq)
{
    float base = 0, now = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].HIGHERHQ != hq) continue;
        base = base + UNIT[u].RCP;
        now = now + UNIT[u].RCP2;
    }
    UNIT[hq].HQPOWER = 0;
    if (!(base > 0)) return;
    const float share = now / base;
    UNIT[hq].HQPOWER = Saturate_16(Round_Even(share * 100.0f));
}

PLAN Assess_Situation(int side)
{
    PLAN plan{side, side == BLUE ? BFOBJ : RFOBJ, side == BLUE ? SCENARIOT == 0 : SCENARIOT != 0};
    float base = 0, now = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].SIDE != side) continue;
        if (UNIT[u].TYPE == 18 && UNIT[u].STATUS > 0) HQ_Power(u);
        base = base + UNIT[u].RCP;
        now = now + UNIT[u].RCP2;
    }
    if (base > 0) {
        const float share = now / base;
        const int percent = Round_Even(share * 100.0f);
        if (percent >= 0 && percent <= 30) plan.FORCE = 2;
        if (percent >= 31 && percent <= 40) plan.FORCE = 1;
    }
    return plan;
}

void Plan_Areas(int side)
{
    AREAS areas{side, side == BLUE ? BNAIMAX : RNAIMAX, side == BLUE ? BTAIMAX : RTAIMAX};
    if (areas.MAX_NAI < 1 && areas.MAX_TAI < 1) return;
    Prune(areas);
    // The cap is compared before each pass only: one pass may overshoot it.
    for (int pass = 1; pass <= 11 && areas.NAI_COUNT < areas.MAX_NAI; ++pass)
        for (int objective = 1; objective <= MAX_OBJ; ++objective)
            for (int enemy = 1; enemy <= MAX_UNIT; ++enemy)
                if (UNIT[enemy].SIDE != side && UNIT[enemy].STATUS > 0) Consider_Area(areas, objective, enemy);
}

void Plan_Collectors(int side)
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].SIDE == side && UNIT[u].STATUS > 0 && UNIT[u].TYPE == 26) Plan_UAV(u, side);
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != side || unit.STATUS < 1 || (unit.TYPE != 16 && unit.TYPE != 23)) continue;
        (unit.TYPE == 16 ? unit.SENSORS : unit.POPS) = 1;
        unit.C2T = Saturate_16(unit.C2T + 1);
        Face_Enemy_Headquarters(u);
    }
}

void Plan_Supply(int side)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != side || unit.TYPE == 50 || unit.SIZE == 100 || unit.STATUS < 1 || unit.OFFMAP != 0)
            continue;
        Find_Supplier(u, side);
        if (Convoy_Is_Due(u)) Build_Convoy(side, u, Convoy_Load(u));
    }
}

void Enemy_Planning(int side)
{
    Announce("Enemy IPB Phase");
    const PLAN plan = Assess_Situation(side);
    Plan_Areas(side);
    Plan_Collectors(side);
    if (GTURN > 1) {
        Announce("Enemy Targeting Phase");
        Enemy_Targeting(side);
    }
    Announce("Enemy Logistics Planning Phase");
    Plan_Supply(side);
    Announce("Enemy Movement Planning Phase");
    Plan_Movement(plan);
    (side == BLUE ? BFOBJ : RFOBJ) = plan.FORCE;
}

}   // namespace sm

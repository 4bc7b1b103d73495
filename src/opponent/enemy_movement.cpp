#include "core/dice.h"
#include "core/shared.h"
#include "opponent/planning.h"
#include "opponent/route_planner.h"
#include "sustain/logistics.h"

namespace sm {

namespace {

constexpr int RETREAT = 1, SECURITY = 2, RESERVE = 4;   // AIACTION

void Screen_Here(int u)
{
    UNIT[u].TACOPN = 3;
    Set_Screen(u);
}

void Take_Next_Destination(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.X != unit.OX1 || unit.Y != unit.OY1) return;
    unit.OX1 = unit.OX2;
    unit.OY1 = unit.OY2;
    unit.OX2 = 0;
    unit.OY2 = 0;
}

/// The last able and spotted enemy of the table nearer than `pixels` becomes the destination.
void Turn_On_Enemy(int u, int pixels)
{
    int target = 0;
    for (int e = 1; e <= MAX_UNIT; ++e)
        if (UNIT[e].SIDE == 3 - UNIT[u].SIDE && UNIT[e].STATUS > 1 && UNIT[e].SPOTTED > 0 &&
            Unit_Distance(u, e) < pixels)
            target = e;
    if (target == 0) return;
    UNIT[u].OX1 = UNIT[target].X;
    UNIT[u].OY1 = UNIT[target].Y;
}

void React(const PLAN& plan, int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (plan.DEFENDING) {
        if (unit.AIACTION == RESERVE && Manoeuvre_Role(unit.TYPE)) Turn_On_Enemy(u, Round_Even(MAPSCALE * 20));
        return;
    }
    if (plan.FORCE != 0 && plan.FORCE != 1) return;
    if (Support_Role(unit.TYPE))
        unit.MOVEPOINTS2 = static_cast<float>(unit.MOVEPOINTS) * 0.9f;
    else if (plan.FORCE == 0 && Manoeuvre_Role(unit.TYPE))
        Turn_On_Enemy(u, 30);
}

void Take_Stance(int u)
{
    if (UNIT[u].STATUS < 2) return;
    if (UNIT[u].AIACTION == RETREAT) UNIT[u].TACOPN = 4;
    if (UNIT[u].AIACTION == SECURITY) Screen_Here(u);
}

void Fall_Back(int u)
{
    UNIT[u].TACOPN = 4;
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (UNIT[v].TYPE != 50 || UNIT[v].STATUS < 1 || UNIT[v].SIDE != UNIT[u].SIDE) continue;
        UNIT[u].OX1 = UNIT[v].X;
        UNIT[u].OY1 = UNIT[v].Y;
        return;
    }
}

void Plan_Ground_Unit(const PLAN& plan, int u, const ROUTE_GROUND& ground)
{
    UNIT_RECORD& unit = UNIT[u];
    if ((unit.TYPE == 6 || unit.TYPE == 24) && unit.LOGSTATN > 1) Screen_Here(u);
    Take_Next_Destination(u);
    React(plan, u);
    Take_Stance(u);
    if (unit.AIACTION == RETREAT || plan.FORCE == 2) Fall_Back(u);
    if (unit.SIZE == 100) Aim_Convoy(u);
    if (unit.OX1 > 0 && unit.OY1 >= 1 && GTURN >= 2) Plan_Route(u, ground);
}

// ---------------------------------------------------------------------------------------------------- air assault

/// The objective of an assault: not held, and no spotted enemy within 10 km. Once one was hot no later one is
/// taken.
int Choose_Landing(int side)
{
    bool hot = false;
    for (int o = 1; o <= MAX_OBJ; ++o) {
        if (OBJ[o].OTYPE != 1 || OBJ[o].OID == side) continue;
        for (int e = 1; e <= MAX_UNIT && !hot; ++e)
            hot = UNIT[e].SIDE == 3 - side && UNIT[e].SPOTTED > 0 &&
                  static_cast<float>(Distance_To(e, OBJ[o].OX, OBJ[o].OY)) <= MAPSCALE * 10;
        if (hot) continue;
        const int roll = Roll_Dice(SITE_AIR_ASSAULT);
        if (roll < 20) return o;
    }
    return 0;
}

bool Stands_On_Objective(int unit)
{
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1 &&
            static_cast<float>(Distance_To(unit, OBJ[o].OX, OBJ[o].OY)) <= UNIT[unit].FOOTPRINT / 2)
            return true;
    return false;
}

int Choose_Passenger(int lift)
{
    for (int k = 1; k <= MAX_UNIT; ++k) {
        const UNIT_RECORD& p = UNIT[k];
        if (p.SIDE == UNIT[lift].SIDE && p.SIZE <= UNIT[lift].SIZE && (p.TYPE == 19 || p.TYPE == 25) &&
            p.STATUS > 1 && p.LOGSTATN > 0 && p.CARRIER == 0 && p.PARENT_UNIT == 0 && p.OFFMAP == 0 &&
            !Stands_On_Objective(k))
            return k;
    }
    return 0;
}

void Plan_Air_Assault(int lift)
{
    UNIT_RECORD& l = UNIT[lift];
    // Its fuel was spent on the way, or no node was left for its zone: whoever is aboard gets off here, or both
    // would wait for ever.
    if (l.MOVESTATUS == 0 && (l.NUMBER_OF_NODES > 0 || l.PASSENGER > 0)) Clear_Route(lift);
    if (l.STATUS < 2 || l.LOGSTATN < 1 || l.NUMBER_OF_NODES > 0) return;
    const int objective = Choose_Landing(l.SIDE);
    if (objective == 0) return;
    const int passenger = Choose_Passenger(lift);
    if (passenger == 0) return;
    const int home_x = l.X, home_y = l.Y;
    l.LZ = 0;
    l.PZ = AI_Add_Node(lift, UNIT[passenger].X, UNIT[passenger].Y);
    if (l.PZ == 0) return;   // nobody waits for a flight that is not planned
    UNIT[passenger].CARRIER = lift;
    l.LZ = AI_Add_Node(lift, OBJ[objective].OX, OBJ[objective].OY);
    AI_Add_Node(lift, home_x, home_y);
}

void Plan_Strike_Flight(int u)
{
    if (UNIT[u].MOVESTATUS < 9 || GTURN < 2) return;
    const int home_x = UNIT[u].X, home_y = UNIT[u].Y;
    AI_Add_Node(u, UNIT[u].OX1, UNIT[u].OY1);
    AI_Add_Node(u, home_x, home_y);
}

}   // namespace

void Plan_Movement(const PLAN& plan)
{
    const ROUTE_GROUND ground;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.TYPE == 50 || unit.SIDE != plan.SIDE || unit.STATUS < 1) continue;
        unit.UCONTROL = 1;
        // A convoy that lost its load under fire still goes to its customer, which waits for it.
        if (unit.MOBILITY != 3 && (unit.LOGSTATN >= 1 || unit.SIZE == 100)) Plan_Ground_Unit(plan, u, ground);
        if (unit.TYPE == 11) Plan_Strike_Flight(u);
        if (unit.TYPE == 12) Plan_Air_Assault(u);
    }
}

}   // namespace sm

// Flights as they are planned: waiting at an NAI, stations, pick-up and landing zones.

#include "combat/fires.h"
#include "ui/fire_planning.h"
#include "ui/planning_seat.h"

namespace sm {

namespace {

constexpr int ATTACK = 11, LIFT = 12;
constexpr int WAITING = 7;
constexpr int NEAR_A_NODE = 40;   // pixels, as near as a unit must be to a point on the map to be met there

constexpr const char* AIR_OFFICER = "From: G-3(AIR)";

bool Own_Node(int unit, int node) { return node >= 1 && node <= MAX_MN && MN[node].MNUNIT == unit; }

void Begin_Node_Click(int unit, int mode, const char* title, const char* text)
{
    if (!Lives(unit) || !May_Order(UNIT[unit].SIDE)) return;
    DrawMode = 0;
    MapMode = mode;
    Screen().Changed(Redraw::ROUTES);
    Screen().Box(title, text);
}

bool Can_Be_Lifted(int lift, int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return unit != lift && u.STATUS > 0 && u.SIDE == UNIT[lift].SIDE && u.MOBILITY != 3 && u.TYPE != 50 &&
           u.SIZE != 100 && u.PARENT_UNIT == 0 && u.OFFMAP == 0 && (u.CARRIER == 0 || u.CARRIER == lift);
}

}   // namespace

bool Link_NAI(int unit, int nai)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (!Lives(unit) || !May_Order(u.SIDE) || u.TYPE != ATTACK) return false;
    if (nai != 0 && (nai < 1 || nai > MAX_P || P[nai].PTYPE != NAI_GRAPHIC || P[nai].PSIDE != u.SIDE))
        return false;
    Apply_NAI_Link(unit, nai);
    Tell_Seats({34, unit, nai});
    return true;
}

void Apply_NAI_Link(int unit, int nai)
{
    UNIT[unit].NAI = nai;
    if (nai >= 1)
        UNIT[unit].MOVESTATUS = WAITING;
    else
        Clear_Route(unit);
}

void Begin_Orbit(int unit)
{
    Begin_Node_Click(unit, 16, UNIT[unit].TYPE == ATTACK ? "From: G-3(Air)" : "From: G-2",
                     "Click on desired orbit location (movement node)");
}

void Begin_Pick_Up(int unit) { Begin_Node_Click(unit, 301, AIR_OFFICER, "Click on desired PZ (movement node)"); }

void Begin_Landing(int unit)
{
    Begin_Node_Click(unit, 302, AIR_OFFICER, "Now click on the node that will serve as the LZ.");
}

bool Set_Landing_Zone(int unit, int node)
{
    if (!Lives(unit) || !May_Order(UNIT[unit].SIDE) || UNIT[unit].MOBILITY != 3 || !Own_Node(unit, node))
        return false;
    MapMode = 0;
    UNIT[unit].LZ = node;
    Tell_Seats({168, unit, node});
    return true;
}

std::vector<int> Offer_Passengers(int lift, int node)
{
    std::vector<int> passengers;
    if (!Own_Node(lift, node)) return passengers;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (!Can_Be_Lifted(lift, u)) continue;
        const int pixels = Distance_To(u, MN[node].MNX, MN[node].MNY);
        if (pixels <= NEAR_A_NODE || pixels <= UNIT[u].FOOTPRINT / 2) passengers.push_back(u);
    }
    if (passengers.empty()) Refuse(AIR_OFFICER, "PZ is not close to any units");
    return passengers;
}

bool Set_Pick_Up(int lift, int passenger, int node)
{
    if (!Lives(lift) || !May_Order(UNIT[lift].SIDE) || UNIT[lift].TYPE != LIFT || !Own_Node(lift, node) ||
        !Lives(passenger) || !Can_Be_Lifted(lift, passenger))
        return false;
    Apply_Pick_Up(lift, passenger, node);
    Show_Status(Cat(UNIT[passenger].NAME, " will be picked up at this PZ."));
    Tell_Seats({167, lift, passenger, node});
    Begin_Landing(lift);
    return true;
}

void Apply_Pick_Up(int lift, int passenger, int node)
{
    UNIT[passenger].CARRIER = lift;
    UNIT[lift].PZ = node;
}

}   // namespace sm

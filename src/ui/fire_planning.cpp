#include "ui/fire_planning.h"

#include "combat/fires.h"
#include "net/protocol.h"
#include "terrain/coordinates.h"
#include "terrain/grid.h"
#include "ui/planning_seat.h"

#include <algorithm>
#include <iterator>

namespace sm {

namespace {

constexpr int BRIDGE_ROW = 7;   // BG.BGTYPE
constexpr int ATTACK_AVIATION = 11, WAITING_AT_NAI = 7;
constexpr int CLIENT = 2;

constexpr const char* FSCOORD = "From FSCOORD:";
constexpr const char* ENGINEER = "From Engineer:";

/// A scalar that each side has its own of.
Int16& Of(int side, Int16& blue, Int16& red) { return side == BLUE ? blue : red; }

/// What an order books when it is accepted. Limits are tested where it is chosen.
void Book(const TARGET_ORDER& order)
{
    switch (order.TYPE) {
    case AIR_STRIKE:
        Of(order.SIDE, BTOTAL, OTOTAL) -= order.SORTIES;
        break;
    case BOMBERS:
        Of(order.SIDE, BTOTAL2, OTOTAL2) -= order.SORTIES;
        break;
    case FASCAM:
    case OBSTACLE:
        Of(order.SIDE, BOBST, ROBST) += 1;
        break;
    case GAS:
    case PERSISTENT_GAS:
        Of(order.SIDE, BCHNOW, RCHNOW) += 1;
        break;
    default:
        break;
    }
}

/// The turn or TAI that an order may have: never the turn that is over, never another side's area. 0 for a wrong
/// area.
int When_It_Fires(int side, int when)
{
    if (when <= TAI_LINK) return std::max(when, GTURN + 1);
    const int row = when - TAI_LINK;
    return row <= MAX_P && P[row].PTYPE == TAI_GRAPHIC && P[row].PSIDE == side ? when : 0;
}

bool Can_Take_Mission(int battery, int x, int y)
{
    const UNIT_RECORD& u = UNIT[battery];
    return u.STATUS > 1 && u.TACOPN >= 0 && Is_Gun(u.TYPE) && u.FIREMISSION < 3 && u.FSP == 0 && u.LOGSTATN > 0 &&
           Distance_To(battery, x, y) <= Weapon_Reach(battery);
}

/// Switches a unit's flag, counted against the side's limit.
bool Toggle(int unit, Int16& flag, Int16& count, int limit, const char* refusal, int code_on, int code_off)
{
    if (flag != 0) {
        flag = 0;
        count = std::max(0, count - 1);
        Tell_Seats({code_off, unit});
        return true;
    }
    if (count + 1 > limit) return Refuse(FSCOORD, refusal);
    flag = 1;
    count += 1;
    Tell_Seats({code_on, unit});
    return true;
}

}   // namespace

// ---------------------------------------------------------------------------------------------- target rows

int Issue_Target(int side)
{
    const int row = side == RED ? Free_Row(TG, 101, MAX_TG) : Free_Row(TG, 1, 100);
    Log(row > 0 ? Cat("Host issues target #", To_Text(row)) : "Host could not issue target!");
    return row;
}

void Assign_Target(int row, const TARGET_ORDER& order)
{
    TG_RECORD& t = TG[row];
    t = TG_RECORD{};
    t.TGX = order.X;
    t.TGY = order.Y;
    t.TGTYPE = order.TYPE;
    t.TGTOT = order.TOT;
    t.TGHEX = order.HEX;
    t.TGHPT = order.CLASS;
    t.TGSIDE = order.SIDE;
    t.TGNSORTIES = order.SORTIES;
    t.FUNIT = order.FUNIT;
    t.TGRAPHIC = order.TOT > TAI_LINK ? order.TOT - TAI_LINK : 0;
    if (order.FUNIT >= 1 && order.FUNIT <= MAX_UNIT) UNIT[order.FUNIT].FIREMISSION += 1;
    Book(order);
    Log(Cat("Host assigns target #", To_Text(row)));
    Screen().Changed(Redraw::GRAPHICS);
}

bool Order_Target(const TARGET_ORDER& order)
{
    if (NetRole == CLIENT) {
        Tell_Seats({30, order.X, order.Y, order.TYPE, order.TOT, order.HEX, order.CLASS, order.SIDE, order.SORTIES,
                    order.FUNIT});
        return true;
    }
    const int row = Issue_Target(order.SIDE);
    if (row == 0) return false;
    Assign_Target(row, order);
    Tell_Seats({31, row, order.X, order.Y, order.TYPE, order.TOT, order.HEX, order.CLASS, order.SIDE,
                order.SORTIES, order.FUNIT});
    return true;
}

void Cancel_Target(int row)
{
    if (!Used(TG[row]) || !Side_May_Order(TG[row].TGSIDE)) return;
    const int firer = TG[row].FUNIT;
    Delete_Target(row);
    Tell_Seats({33, row, firer});
}

void Begin_Plot_Target()
{
    DrawMode = 0;
    MapMode = 90;
    Show_Status("POINT and CLICK to Designate Target Location/Unit");
}

void Begin_Cancel_Target()
{
    DrawMode = 0;
    MapMode = 99;
    Screen().Changed(Redraw::GRAPHICS);
}

// ---------------------------------------------------------------------------------------------- guns

int Choose_Ammunition(int side, Ammunition choice)
{
    if (choice == Ammunition::CONVENTIONAL) return HIGH_EXPLOSIVE;
    if (choice == Ammunition::FASCAM) {
        if (Of(side, BOBST, ROBST) + 1 <= Of(side, BOBSTMAX, ROBSTMAX)) return FASCAM;
        Refuse(FSCOORD, "All FASCAM munitions have been expended!");
        return 0;
    }
    if (Of(side, BCHNOW, RCHNOW) + 1 <= Of(side, BCHMAX, RCHMAX))
        return choice == Ammunition::CHEMICAL_NP ? GAS : PERSISTENT_GAS;
    Refuse(FSCOORD, "All chemical munitions have been expended!");
    return 0;
}

std::vector<int> Offer_Batteries(int side, int x, int y)
{
    std::vector<int> batteries;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].SIDE == side && Can_Take_Mission(u, x, y)) batteries.push_back(u);
    if (batteries.empty()) Refuse(FSCOORD, "No artillery is available and/or can range this target!");
    return batteries;
}

bool Plan_Fire_Mission(int battery, int x, int y, int type, int target_class, int when)
{
    const int side = UNIT[battery].SIDE;
    const int tot = When_It_Fires(side, when);
    if (!Side_May_Order(side) || tot == 0 || !Can_Take_Mission(battery, x, y)) return false;
    return Order_Target({x, y, type, tot, Hex_Number(x, y), target_class, side, 0, battery});
}

bool Set_Fire_Support(int battery, int role)
{
    if (!Side_May_Order(UNIT[battery].SIDE) || role < 0 || role > 3) return false;
    UNIT[battery].FSP = role;
    if (role > 0)
        for (int row = 1; row <= MAX_TG; ++row)
            if (Used(TG[row]) && TG[row].FUNIT == battery) Cancel_Target(row);
    Tell_Seats({175, battery, role});
    return true;
}

bool Toggle_CFZ(int unit)
{
    const int side = UNIT[unit].SIDE;
    if (!Lives(unit) || !Side_May_Order(side)) return false;
    return Toggle(unit, UNIT[unit].CFZ, Of(side, BCFZ, RCFZ), Of(side, BCFZMAX, RCFZMAX),
                  "We have no available CFZ!", 83, 84);
}

bool Toggle_SEAD_Priority(int unit)
{
    const int side = UNIT[unit].SIDE;
    if (!Lives(unit) || !Side_May_Order(side) || UNIT[unit].MOBILITY != 3) return false;
    return Toggle(unit, UNIT[unit].SEADP, Of(side, BSEAD, RSEAD), Of(side, BSEADMAX, RSEADMAX),
                  "We have no available SEAD!", 88, 89);
}

// ---------------------------------------------------------------------------------------------- aircraft

int Sorties_Left(int side, int type)
{
    return type == BOMBERS ? Of(side, BTOTAL2, OTOTAL2) : Of(side, BTOTAL, OTOTAL);
}

bool Plan_Air_Mission(int side, int x, int y, int type, int target_class, int sorties, int when)
{
    const int tot = When_It_Fires(side, when);
    if (!Side_May_Order(side) || tot == 0 || sorties < 1 || sorties > Sorties_Left(side, type)) return false;
    return Order_Target({x, y, type, tot, Hex_Number(x, y), target_class, side, sorties, 0});
}

// ---------------------------------------------------------------------------------------------- engineers

namespace {

constexpr int HAVE_CHARGES[] = {4, 5, 6, 14, 15, 19, 20, 25};   // roles

bool Has_Charges(int type)
{
    return std::find(std::begin(HAVE_CHARGES), std::end(HAVE_CHARGES), type) != std::end(HAVE_CHARGES);
}

struct Bridge {
    int ROW = 0;
    int PIXELS = 0;
};

Bridge Nearest_Bridge(int unit)
{
    Bridge nearest;
    for (int row = 1; row <= MAX_BG; ++row) {
        if (!Used(BG[row]) || BG[row].BGTYPE != BRIDGE_ROW) continue;
        const Point centre = Work_Centre(row);
        const int pixels = Distance_To(unit, centre.X, centre.Y);
        if (nearest.ROW == 0 || pixels < nearest.PIXELS) nearest = {row, pixels};
    }
    return nearest;
}

bool Lay_Charges(int unit, int row)
{
    const Point centre = Work_Centre(row);
    Log(NetRole == CLIENT ? "Client requests bridge demo" : "Host requests bridge demo");
    if (!Order_Target(
            {centre.X, centre.Y, DEMOLITION, GTURN + 1, BG[row].BGHEX, BRIDGE_TARGET, UNIT[unit].SIDE, 0, unit}))
        return false;
    UNIT_RECORD& u = UNIT[unit];
    u.TACOPN = 4;
    u.MISSION = "Support";
    Set_Footprint(unit);
    Tell_Seats({161, unit, u.TACOPN, u.AIACTION, u.TIMERM, 0}, u.MISSION);
    Show_Status(Cat(u.NAME, "Demolitions have begun at ", Grid_Reference(centre.X, centre.Y)));
    return true;
}

}   // namespace

bool Plan_Demolition(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (!Lives(unit) || !Side_May_Order(u.SIDE)) return false;
    if (!Has_Charges(u.TYPE)) return Refuse(ENGINEER, "Unit Cannot Perform This Function!");
    if (u.STATUS != 2) return Refuse(ENGINEER, "Unit Must Be Combat Effective!");
    const Bridge bridge = Nearest_Bridge(unit);
    const int km = Int_Div(bridge.PIXELS, MAPSCALE);
    if (bridge.ROW > 0) Show_Status(Cat("Range to Bridge: ", To_Text(km), " kms  "));
    if (bridge.ROW == 0 || km > 3) return Refuse(ENGINEER, "Unit Must be Within 3 kms of Bridge!");
    if (!Screen().Ask(ENGINEER, "Do you want to blow this bridge?")) return false;
    return Lay_Charges(unit, bridge.ROW);
}

bool Begin_Minefield(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (!Lives(unit) || !Side_May_Order(u.SIDE)) return false;
    if (GTURN < 1) return Refuse(ENGINEER, "Use the Graphics Menu to emplace obstacles during game start-up!");
    if (u.STATUS != 2 || u.TYPE != 14)
        return Refuse(ENGINEER, "Only combat-effective engineer units can perform this function!");
    if (u.FIREMISSION > 0) return Refuse(ENGINEER, "This engineer unit already has a mission!");
    if (Of(u.SIDE, BOBST, ROBST) + 1 > Of(u.SIDE, BOBSTMAX, ROBSTMAX))
        return Refuse(ENGINEER, "We have no more obstacles left!");
    if (u.SUPPRESSED > 2) return Refuse(ENGINEER, "Planned obstacle exceeds current force capability!");
    MapMode = 151;
    Show_Status("POINT and CLICK to Designate Target Location of Obstacle.");
    return true;
}

bool Plan_Minefield(int unit, int x, int y)
{
    const int side = UNIT[unit].SIDE;
    if (!Lives(unit) || !Side_May_Order(side)) return false;
    MapMode = 0;
    if (Distance_To(unit, x, y) > UNIT[unit].FOOTPRINT / 2)
        return Refuse(ENGINEER, "Planned obstacle must be built within unit footprint!");
    const int hex = Hex_Number(x, y);
    const int value = Cell_Value(hex);
    if (hex == 0 || value < 0 || value > 7)
        return Refuse(ENGINEER, "This tool cannot be used with this type of terrain");
    Log(NetRole == CLIENT ? "Client requests obstacle" : "Host plans obstacle");
    return Order_Target({x, y, OBSTACLE, GTURN + 1, hex, 0, side, 0, unit});
}

// ---------------------------------------------------------------------------------------------- flights

bool Link_NAI(int unit, int nai)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (!Lives(unit) || !Side_May_Order(u.SIDE) || u.TYPE != ATTACK_AVIATION) return false;
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
        UNIT[unit].MOVESTATUS = WAITING_AT_NAI;
    else
        Clear_Route(unit);
}

}   // namespace sm

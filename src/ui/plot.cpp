#include "ui/plot.h"

#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "manoeuvre/placement.h"
#include "manoeuvre/routes.h"
#include "net/protocol.h"
#include "ui/planning_seat.h"

namespace sm {

namespace {

constexpr int FORTIFYING = 3;   // TIMEREGR above this: a fortification is under construction
constexpr int EXHAUSTED = 21;   // FATIGUE above this: no flight
constexpr int GAME_EDITOR = 5;
constexpr const char* DESIRED_ZONE = "Click on desired PZ (movement node)";

bool Is_Unit(int unit) { return unit >= 1 && unit <= MAX_UNIT; }

void Drop_Route(int unit)
{
    Send_Net_Message(Number_Fields({75, unit}));
    Clear_Route(unit);
    Screen().Unit_Changed(unit);
}

void Start_Plotting(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.TIMEREGR > FORTIFYING) {
        if (!Screen().Ask("From the Engineer:", "Moving this unit will cancel the construction of the "
                                                "fortification. Do you wish to continue?"))
            return;
        u.TIMEREGR = 0;
        Send_Net_Message(Number_Fields({26, unit}));
    }
    MapMode = MODE_PLOT;
    Screen().Changed(Redraw::ROUTES);
}

void Await_Node(int mode, const char* title, const char* text)
{
    MapMode = mode;
    Screen().Changed(Redraw::ROUTES);
    Screen().Box(title, text);
}

void Start_Arrival(int unit)
{
    if (UNIT[unit].ATIME <= GTURN) return;
    Hide_Picture(unit);
    MapMode = MODE_ARRIVAL;
    Screen().Box("On-Map Arrival", "Point and right-click to mark the unit's arrival area on the map!");
}

void Mark_Arrival(int unit, int x, int y)
{
    Wait_Off_Map(unit, x, y);
    Send_Net_Message(Number_Fields({79, unit, UNIT[unit].X, UNIT[unit].Y, x, y}));
    MapMode = 0;
    Screen().Box("On-Map Arrival", "Location has been recorded!");
}

void Put_Picked_Node(int x, int y)
{
    const int row = SEAT.PickedNode;
    SEAT.PickedNode = 0;
    MapMode = MODE_PLOT;
    if (row < 1 || row > MAX_MN || !Is_Unit(MN[row].MNUNIT)) return;
    const int unit = MN[row].MNUNIT;
    Send_Net_Message(Number_Fields({74, unit, x, y, row}));
    if (Move_Node(row, x, y) > FLIGHT_LIMIT && UNIT[unit].MOBILITY == 3)
        Screen().Box("Stonemarch", "WARNING: Current Plot exceeds planning range of this unit!");
    Screen().Unit_Changed(unit);
}

/// Orbit and landing zone are one field: the row at which the aircraft stays or sets down.
void Set_Landing_Zone(int unit, int row)
{
    UNIT[unit].LZ = row;
    Send_Net_Message(Number_Fields({168, unit, row}));
    MapMode = 0;
    Screen().Unit_Changed(unit);
}

}   // namespace

bool May_Order(int unit) { return Is_Unit(unit) && UNIT[unit].STATUS > 0 && Side_May_Order(UNIT[unit].SIDE); }

void cmdPlot(int item)
{
    const int unit = SelUnit;
    if (!May_Order(unit)) return;
    Screen().Unit_Changed(unit);
    MapMode = 0;
    DrawMode = 0;
    if (UNIT[unit].TYPE == 50) {
        if (GameType == GAME_EDITOR)
            MapMode = MODE_PLACE_UNIT;
        else
            Screen().Box("From G-3", "LOCs can only be magic-moved within the scenario editor!");
        return;
    }
    // clang-format off
    switch (item) {
    case PLOT_ROUTE:        Start_Plotting(unit); break;
    case PLOT_CANCEL:       Drop_Route(unit); break;
    case PLOT_MAGIC_MOVE:   MapMode = MODE_PLACE_UNIT; break;
    case PLOT_ORBIT:
        Await_Node(MODE_ORBIT, UNIT[unit].TYPE == 11 ? "From: G-3(Air)" : "From: G-2",
                   "Click on desired orbit location (movement node)");
        break;
    case PLOT_TURN_LEFT:
        Send_Net_Message(Number_Fields({76, unit}));
        Turn_Left(unit);
        break;
    case PLOT_TURN_RIGHT:
        Send_Net_Message(Number_Fields({77, unit}));
        Turn_Right(unit);
        break;
    // Both zones are asked for in the same words.
    case PLOT_PICK_UP_ZONE: Await_Node(MODE_PICK_UP_ZONE, "From: G-3(AIR)", DESIRED_ZONE); break;
    case PLOT_LANDING_ZONE: Await_Node(MODE_LANDING_ZONE, "From: G-3(AIR)", DESIRED_ZONE); break;
    case PLOT_ARRIVAL:      Start_Arrival(unit); break;
    default:                break;
    }
    // clang-format on
}

bool Plot_Map_Click(int x, int y)
{
    const int unit = SelUnit;
    if (!May_Order(unit)) return false;
    switch (MapMode) {
    case MODE_MOVE_NODE:
        Put_Picked_Node(x, y);
        return true;
    case MODE_PLOT:
        Plot_Move(unit, x, y);
        return true;
    case MODE_PLACE_UNIT:
        Magic_Move(unit, x, y);
        return true;
    case MODE_ARRIVAL:
        Mark_Arrival(unit, x, y);
        return true;
    default:
        return false;
    }
}

bool Plot_Node_Click(int row)
{
    const int unit = SelUnit;
    if (!May_Order(unit) || row < 1 || row > MAX_MN || MN[row].MNUNIT < 1) return false;
    const bool own = MN[row].MNUNIT == unit;
    switch (MapMode) {
    case MODE_PLOT:
        if (!May_Order(MN[row].MNUNIT)) return false;
        SEAT.PickedNode = row;
        MapMode = MODE_MOVE_NODE;
        return true;
    case MODE_ORBIT:
    case MODE_LANDING_ZONE:
        if (own) Set_Landing_Zone(unit, row);
        return own;
    case MODE_PICK_UP_ZONE:
        if (own && Units_At_Pick_Up_Zone(unit, row).empty())
            Screen().Box("From: G-3(AIR)", "PZ is not close to any units");
        return own;   // the window asks for the passenger
    default:
        return false;
    }
}

void Plot_Move(int unit, int x, int y)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (u.TYPE == 50) {
        Screen().Box("Stonemarch", "LOCs are immobile and cannot move during the game!");
        return;
    }
    if (u.LOGSTATN <= 0 || u.STATUS <= 0) return;   // without supply it does not move, and nobody says why
    if (u.MOBILITY == 3 && u.FATIGUE > EXHAUSTED) {
        Screen().Box("From the Avn LNO",
                     Cat("SITREP: ", std::string_view(u.NAME), " cannot fly due to high fatigue level!"));
        Drop_Route(unit);
        return;
    }
    if (NetRole == 2)
        Send_Net_Message(Number_Fields({71, unit, x, y}));
    else
        Add_Move_Node(unit, Next_Free_Node(unit), x, y);
    Screen().Unit_Changed(unit);
    Screen().Changed(Redraw::ROUTES);
}

void Magic_Move(int unit, int x, int y)
{
    Put_Unit(unit, x, y);
    Send_Net_Message(Number_Fields({73, unit, x, y}));
    MapMode = 0;
    Show_Picture(unit);
    Screen().Changed(Redraw::ROUTES);
}

std::vector<int> Units_At_Pick_Up_Zone(int lift, int row)
{
    std::vector<int> units;
    for (int k = 1; k <= MAX_UNIT; ++k) {
        const UNIT_RECORD& r = UNIT[k];
        if (r.STATUS < 1 || r.SIDE != UNIT[lift].SIDE || r.MOBILITY == 3 || r.TYPE == 50) continue;
        if (r.PARENT_UNIT != 0 || r.OFFMAP != 0 || r.CARRIER != 0) continue;
        if (Distance_To(k, MN[row].MNX, MN[row].MNY) <= Round_Even(r.FOOTPRINT / 2)) units.push_back(k);
    }
    return units;
}

void Choose_Passenger(int lift, int passenger, int row)
{
    if (!May_Order(lift) || !Is_Unit(passenger) || row < 1 || row > MAX_MN || MN[row].MNUNIT != lift) return;
    UNIT[passenger].CARRIER = lift;
    UNIT[lift].PZ = row;
    Send_Net_Message(Number_Fields({167, lift, passenger, row}));
    Show_Status(Cat(std::string_view(UNIT[passenger].NAME), " will be picked up at this PZ."));
    Await_Node(MODE_LANDING_ZONE, "From: G-3(AIR)", "Now click on the node that will serve as the LZ.");
}

}   // namespace sm

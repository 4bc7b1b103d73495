#pragma once
// Orders of movement at the map: the plot list, and what clicks on the map and on nodes mean while one is pending.
// All of them act on SelUnit, which must be of the side in play, and do nothing while a turn runs.

#include <vector>

namespace sm {

/// Items of the plot list, in its order.
enum Plot_Item {
    PLOT_ROUTE,
    PLOT_CANCEL,
    PLOT_MAGIC_MOVE,
    PLOT_ORBIT,
    PLOT_TURN_LEFT,
    PLOT_TURN_RIGHT,
    PLOT_PICK_UP_ZONE,
    PLOT_LANDING_ZONE,
    PLOT_ARRIVAL
};

/// MapMode values of these orders.
enum Plot_Mode {
    MODE_MOVE_NODE = 9,
    MODE_PLOT = 10,
    MODE_PLACE_UNIT = 12,
    MODE_ARRIVAL = 15,
    MODE_ORBIT = 16,
    MODE_PICK_UP_ZONE = 301,
    MODE_LANDING_ZONE = 302,
};

/// Whether this seat may give orders to a unit now: its side is in play, or the editor is; no turn runs.
bool May_Order(int unit);

/// Runs an item of the plot list for SelUnit.
void cmdPlot(int item);
/// A right click on the map at (x, y). True when a pending movement order took it.
bool Plot_Map_Click(int x, int y);
/// A click on the image of a node's row. True when a pending movement order took it.
bool Plot_Node_Click(int row);

/// Adds a node at (x, y) to the unit's route, or asks the host for one; refusals are told.
void Plot_Move(int unit, int x, int y);
/// Puts the unit down at (x, y) at once, on every seat.
void Magic_Move(int unit, int x, int y);

/// Friendly units that a lift unit may pick up at the node of a row: the node lies inside their ground.
std::vector<int> Units_At_Pick_Up_Zone(int lift, int row);
/// The passenger is chosen: it waits for the lift unit at the node of the row.
void Choose_Passenger(int lift, int passenger, int row);

}   // namespace sm

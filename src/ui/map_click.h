#pragma once
// What a click on the map means, by MapMode. Places are picture pixels.

namespace sm {

/// A left click: picks a unit, `reach` pixels around the point. A node of the selected unit's route within
/// `node_reach` comes first while a route is plotted: it is picked up, or takes the order that waits for a node.
/// True when something was picked.
bool Map_Click(int x, int y, int reach, int node_reach);

enum class Order_Click { NOTHING, DONE, MENU };
/// A right click, for the selected unit; with no order pending, for the own unit within `reach` of the point if
/// there is one. MENU: no order is pending, and the window offers the plot menu at the point.
Order_Click Map_Order_Click(int x, int y, int reach = 0);

/// A node of a route under the pointer that a click would take: of the selected unit, while its route is plotted
/// or an order waits for a node. 0 none.
int Node_At(int x, int y, int reach);
/// Puts down the node that the mouse holds.
void Put_Down_Node(int x, int y);

/// "Esc": one step back, from the pending click to the selection; with nothing left asks whether to exit.
void Step_Back();

/// Drops what a click on the map was awaited for; what begins anew does so with nothing pending.
void End_Pending();

/// What the next click means, for the status line; empty when nothing is pending.
const char* Map_Mode_Prompt();

}   // namespace sm

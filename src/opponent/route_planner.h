#pragma once

namespace sm {

/// Gives a unit a route to its destination OX1, OY1 (OX2, OY2 next).
void Plan_Route(int unit);
/// Cost of the straight line between two points for a unit.
int Route_Cost(int unit, int x1, int y1, int x2, int y2);
/// Appends a node of the computer's plan.
void AI_Add_Node(int unit, int x, int y);

}   // namespace sm

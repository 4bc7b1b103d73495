#pragma once

namespace sm {

/// Gives a unit a route to OX1, OY1 with at most one point between, if it is cheaper than the route it has.
void Plan_Route(int unit);
/// Cost of the straight line between two points for a unit, sampled once a cell. With `stop_at_bridge` the sampling ends at
/// the first bridge. A sum of `limit` or more may be returned short: it is only known to be at least that.
int Route_Cost(int unit, int from_x, int from_y, int to_x, int to_y, bool stop_at_bridge, int limit = 2147483647);
/// Appends a node to a unit's route; nothing when the side's half of the table is full. Returns its row, else 0.
int AI_Add_Node(int unit, int x, int y);

/// Role groups of the computer's planning.
bool Support_Role(int type);
bool Manoeuvre_Role(int type);

}   // namespace sm

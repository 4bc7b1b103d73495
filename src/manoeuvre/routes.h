#pragma once
// Routes: chains of movement nodes, planned at the map.

namespace sm {

/// Clears the unit's destinations and gives the first free node row of its side, 0 when the half is full.
int Next_Free_Node(int unit);
/// Appends a node at (x, y) to the unit's route; nothing when the row is 0 or taken. A flight that comes to more than 400
/// points loses its whole route.
void Add_Move_Node(int unit, int row, int x, int y);
/// Moves a node and recomputes the route's cost. A flight beyond 400 points is only warned about.
void Move_Node(int row, int x, int y);
/// Walks the whole route from the unit's place, sets up its first leg and DISTANCE_TO_END. Returns the cost, at most 31000.
/// A broken chain of numbers is told in a box and the route is dropped.
int Compute_Route(int unit);
/// After the leg's node is reached and cleared: DX, DY, DROW1, DCOL1 from the next node and a fresh leg.
void Start_Next_Leg(int unit);

}   // namespace sm

#pragma once
// Routes: chains of movement nodes, planned at the map.

namespace sm {

/// A flight of more points than this cannot be plotted.
inline constexpr int FLIGHT_LIMIT = 400;

/// Clears the unit's destinations and gives the first free node row of its side, 0 when the half is full.
int Next_Free_Node(int unit);
/// Appends a node at (x, y) to the unit's route; nothing when the row is 0 or taken. A flight that comes to more
/// than 400 points loses its whole route. A host tells the other seats the node, or the loss of the route.
void Add_Move_Node(int unit, int row, int x, int y);
/// Moves a node and recomputes the route's cost, which it returns (0 for a free row). A flight beyond 400 points
/// stays as it is put: the caller warns.
int Move_Node(int row, int x, int y);
/// Walks the whole route from the unit's place, sets up its first leg and DISTANCE_TO_END. Returns the cost, at
/// most 31000; stacking is not foreseen. A broken chain of numbers is told in a box and the route is dropped: 0.
int Compute_Route(int unit);
/// After the leg's node is reached and cleared: DX, DY, DROW1, DCOL1 from the next node and a fresh leg.
void Start_Next_Leg(int unit);
/// A node is reached: every number of the unit falls by 1, the row that comes to 0 is cleared, C2T of the unit and
/// of its headquarters rises. Returns the row cleared, 0 when none was.
int Pass_Node(int unit);

}   // namespace sm

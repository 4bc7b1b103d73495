#pragma once

#include "terrain/grid.h"

#include <cstdint>
#include <vector>

namespace sm {

/// The terrain as the planner samples it: a byte a cell, by pixel, laid out once for all the plans of a phase (a
/// plan asks for tens of thousands of cells). It tells the map of the moment it was made.
struct ROUTE_GROUND {
    static constexpr int OTHER = 32;     ///< any terrain value that is not 0..31
    static constexpr int OUTSIDE = 33;   ///< no cell there
    static constexpr int KINDS = 34;

    ROUTE_GROUND();
    /// Terrain value of the cell under a pixel, or one of the two kinds above.
    int Kind(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= WIDTH || y >= HEIGHT) return OUTSIDE;
        const int hex =
            WHOLE ? ABOVE[static_cast<std::size_t>(x)] + ROW[static_cast<std::size_t>(y)] : Hex_Number(x, y);
        return hex < 1 || hex > CELLS ? OUTSIDE : static_cast<int>(KIND[static_cast<std::size_t>(hex)]);
    }

    int WIDTH, HEIGHT;          ///< of the map picture
    bool PRESENT[KINDS] = {};   ///< kinds that the map has

private:
    int CELLS;
    bool WHOLE;                       ///< a grid of a broken number of rows is no sum of the two below
    std::vector<int> ABOVE;           ///< by x: number of the cell above the column's first
    std::vector<int> ROW;             ///< by y
    std::vector<std::uint8_t> KIND;   ///< by cell
};

/// Gives a unit a route to OX1, OY1 with at most one point between, if it is cheaper than the route it has.
void Plan_Route(int unit, const ROUTE_GROUND& ground = ROUTE_GROUND());
/// Cost of the straight line between two points for a unit, sampled once a cell. With `stop_at_bridge` the
/// sampling ends at the first bridge.
int Route_Cost(int unit, int from_x, int from_y, int to_x, int to_y, bool stop_at_bridge);
/// Appends a node to a unit's route; nothing when the side's half of the table is full. Returns its row, else 0.
int AI_Add_Node(int unit, int x, int y);

/// Role groups of the computer's planning.
bool Support_Role(int type);
bool Manoeuvre_Role(int type);

}   // namespace sm

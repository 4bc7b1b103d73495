#pragma once
// Ways over the terrain for the routes of a scenario.

#include "script.h"

namespace sm::scenario {

/// The cheapest way for a unit from cell to cell by its own movement costs, both ends included. It keeps out of
/// Impassable ground, out of the sea, and out of rivers except over a bridge; `ford` lets a unit that may enter
/// the water cross it. Empty when there is none.
std::vector<CELL> Find_Way(int unit, CELL from, CELL to, bool ford);

/// The fewest nodes that lead a unit along a way: the straight legs between them, stepped as the march steps them,
/// enter no cell that the way could not, and cost little more than it. The start is not among them.
std::vector<CELL> Nodes_Of(int unit, const std::vector<CELL>& way, bool ford);

/// First cell that the unit's plotted route enters and may not, as text; empty when the route is sound.
std::string Fault_Of_Route(int unit, bool ford);

}   // namespace sm::scenario

#pragma once

namespace sm::bench {

/// A made game on a made map of 150,000 cells: `units_a_side` ground units (at most 300) of each side on a front
/// of 280 km, each with one route node 30 to 60 cells ahead, the sides marching towards one another. The same game
/// for the same number, and the units of a smaller game stand as far apart as those of a larger one.
void Make_Full_Game(int units_a_side);

}   // namespace sm::bench

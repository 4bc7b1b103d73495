#pragma once
#include <string>

namespace sm {

/// What a unit sees of enemy obstacles, bridges, fortifications and smoke; an obstacle underfoot goes to
/// Breach_Obstacle.
void Obstacle_Recon(int unit);
/// Breaches the obstacle of a BG row, 0 for the bare cell under the unit.
void Breach_Obstacle(int unit, int row);
/// Lays an obstacle or minefield of a side on a cell of terrain 0..7, if a BG row is free.
void Lay_Obstacle(int hex, int side);
/// Blows the bridge on a cell that has a BG row of type 7.
void Blow_Bridge(int hex);
/// The unit's engineer work at the end of a turn: counters, finished fortification, bridge and crossing.
void Engineer_Work(int unit);

/// Icon file of a row of works, "" for a free one. A bridge lies across its river: "brdg.ico" west to east,
/// "brdg1.ico" north to south, "brdg2.ico" south-west to north-east.
std::string Work_Icon(int row);

}   // namespace sm

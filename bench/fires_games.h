#pragma once

namespace sm::bench {

/// 300 units a side over a front of 280 km, a third of them batteries and air defence, and all 200 target rows due
/// this turn: guns at known units, air strikes, bombers, mines, with areas that double effects and zones that
/// locate batteries.
void Make_Fires_Game();

/// 300 units a side, 30 of each in the air on routes over the enemy: attack helicopters with their areas, lift
/// units with passengers waiting, collectors and UAVs.
void Make_Flights_Game();
/// All slices of a two-hour turn, as the movement phase runs them for aircraft.
void Fly_All_Slices();

}   // namespace sm::bench

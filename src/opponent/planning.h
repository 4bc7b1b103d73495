#pragma once

namespace sm {

/// The computer's planning of one side's turn: four fixed passes over the tables, in the orders that a player
/// gives. It uses what the side has spotted, the dice by their rules, and writes the side's force objective back.
void Enemy_Planning(int side);

/// What the passes share for one call.
struct PLAN {
    int SIDE = 0;
    int FORCE = 0;   ///< force objective: 0 force, 1 terrain, 2 withdrawal
    bool DEFENDING = false;
};

/// Reads force objective and role of the side, lets a beaten side lower its aim, values its headquarters.
PLAN Assess_Situation(int side);
/// Drops NAI and TAI that watch nothing and places new ones around objectives. Nothing when the side has neither.
void Plan_Areas(int side);
/// Routes of UAV, switches of jammers and psychological units.
void Plan_Collectors(int side);
/// Air strikes, long-range fires, helicopters, guns, general support.
void Enemy_Targeting(int side);
/// Suppliers and convoys of the side.
void Plan_Supply(int side);
/// Destinations, stances, routes, strike flights, air assaults.
void Plan_Movement(const PLAN& plan);

/// Percentage of the combat power of a headquarters' units that remains, into HQPOWER.
void HQ_Power(int hq);
/// Worth of a unit as a target in the eyes of a side.
int Target_Value(int unit, int side);
/// Class that the computer gives a target; 5 for a role that its list does not name.
int HVT_Class(int unit);
/// A target row of the side on the unit's place for this turn; 0 when all are used.
int Allocate_Target(int unit, int side, int type);
/// Decides on the strike of one attack helicopter unit; true when it is planned.
bool Plan_AH_Strike(int unit);

}   // namespace sm

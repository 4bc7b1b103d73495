#pragma once

namespace sm {

/// The end-of-turn reset of all units: losses to morale, strength to STATUS, engineer work, movement allowances, smoke.
void Reset_Units();
/// MOVEPOINTS2 of the coming turn from MOBILITY, posture, command and turn length.
void Set_Movement_Allowance(int unit);

}   // namespace sm

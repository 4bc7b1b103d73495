#pragma once
// What a scenario's author wants of a unit that the computer leads.

#include <vector>

namespace sm {

/// Sets the stance AIACTION, 0..5. A headquarters hands it on to its able units on the map, but not to other
/// headquarters.
void Set_Unit_Action(int unit, int action);
/// Numbers of the objectives that a unit can be given: those in use, for a unit in reserve or on the attack.
std::vector<int> Objectives_On_Offer(int unit);
/// Sets the objective OBJ (kept and shown, the planning does not read it); a headquarters hands it on as it does a
/// stance.
void Set_Unit_Objective(int unit, int objective);

}   // namespace sm

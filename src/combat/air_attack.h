#pragma once

namespace sm {

/// The attack of a mission that got through. `kind` 4 air strike, 3 bombers; `target` is a unit, 0 for a bridge or
/// mines.
void Air_Attack(int target, int kind, int slot);

}   // namespace sm

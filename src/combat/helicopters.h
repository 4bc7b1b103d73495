#pragma once

namespace sm {

/// What an attack helicopter at (x, y) sees, and its attack.
void AH_Search(int unit, int x, int y);
void AH_Attack(int unit, int target);
/// Ground fire on a low flyer.
void Small_Arms_Fire(int unit);

}   // namespace sm

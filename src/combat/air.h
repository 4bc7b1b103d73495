#pragma once

namespace sm {

/// Flies the air strike or bomber mission of a target row.
void Air_Mission(int slot);

}   // namespace sm

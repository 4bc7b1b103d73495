#include "core/unit_reset.h"

namespace sm {

void Reset_Units() {}
void Set_Movement_Allowance(int) {}

}   // namespace sm

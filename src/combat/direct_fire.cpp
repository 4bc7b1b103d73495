#include "combat/direct_fire.h"

namespace sm {

void Direct_Fire(int, int) {}

}   // namespace sm

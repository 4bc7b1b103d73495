#include "aar/victory.h"

namespace sm {

void Power_Count() {}
void AAR_Chart() {}
void Victory_Points() {}

}   // namespace sm

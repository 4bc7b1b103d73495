#include "intel/intelligence.h"

namespace sm {

void Intelligence_Update() {}

}   // namespace sm

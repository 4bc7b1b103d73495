#include "core/turn_driver.h"

namespace sm {

bool Play_Turn() { return true; }

}   // namespace sm

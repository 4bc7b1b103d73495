#include "combat/air.h"

namespace sm {

void Air_Mission(int) {}

}   // namespace sm

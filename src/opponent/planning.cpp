#include "opponent/planning.h"

namespace sm {

void Enemy_Planning(int) {}

}   // namespace sm

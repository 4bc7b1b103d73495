#include "combat/ground_combat.h"

namespace sm {

void Ground_Combat_Phase() {}
void Engage_Unit(int, int) {}

}   // namespace sm

#include "combat/retreat.h"

namespace sm {

void Retreat_Unit(int) {}
void Surrender_Unit(int) {}
float Retreat_Threshold(int) { return 0.15f; }

}   // namespace sm

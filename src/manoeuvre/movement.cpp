#include "manoeuvre/movement.h"

namespace sm {

void Movement() {}
void Move_Units(int) {}
int Cell_Cost(int, int, int carried) { return carried; }
int Terrain_Cost(int, int, int carried) { return carried; }

}   // namespace sm

#include "intel/area_triggers.h"

namespace sm {

int Area_Reach(int) { return 40; }
void Launch_Waiting_Helicopters(int, int) {}
void Fire_Linked_Targets(int, int) {}

}   // namespace sm

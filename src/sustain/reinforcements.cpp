#include "sustain/reinforcements.h"

namespace sm {

void Reinforcements_Phase() {}
void LOC_Phase() {}
void Make_LOC_Units() {}
void Restore_LOC(int) {}

}   // namespace sm

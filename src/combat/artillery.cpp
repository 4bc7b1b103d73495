#include "combat/artillery.h"

namespace sm {

void Fires_Phase() {}
void Run_Targets(int, int, int) {}
void Fire_Arty(int) {}
float Artillery_Attack(int, int, int) { return 0; }
void Arty_SEAD(int, int) {}
void Counterfire_Check(int, int, int) {}
void Counterfire(int) {}
void Preplanned_SEAD() {}

}   // namespace sm

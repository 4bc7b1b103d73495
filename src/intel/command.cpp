#include "intel/command.h"

namespace sm {

void C4ISR_Check() {}
void C2_Check(int) {}
void IEW_Sweep(int) {}
void Psyops_Attack(int) {}

}   // namespace sm

#include "sustain/nbc.h"

namespace sm {

void NBC_Phase() {}
void Add_Contamination(int, int, int) {}
void NBC_Check(int) {}
void NBC_Drift(int) {}
void NBC_Loss(int, int) {}
void Lay_Smoke(int) {}

}   // namespace sm

#include "sustain/logistics.h"

namespace sm {

void Logistics_Phase() {}
void Auto_Logistics(int) {}
int Build_Convoy(int, int, int) { return 0; }
void WSRO_Phase() {}

}   // namespace sm

#include "combat/air_defence.h"

namespace sm {

int Intercept_Check(int, int, int, int, int, int) { return 0; }
int ADA_Engage(int, int, int, int, int, int, int) { return 0; }
ADA_SHOT ADA_Fire(int, int, int, int, int, int, int) { return {}; }

}   // namespace sm

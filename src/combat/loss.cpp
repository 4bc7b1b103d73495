#include "combat/loss.h"

namespace sm {

void Apply_Loss(int, float) {}
void Morale_Test(int, int, int) {}
void Suppression_Test(int, int, int) {}

}   // namespace sm

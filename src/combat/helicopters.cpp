#include "combat/helicopters.h"

namespace sm {

void AH_Search(int, int, int) {}
void AH_Attack(int, int) {}
void Small_Arms_Fire(int) {}

}   // namespace sm

#include "manoeuvre/engineers.h"

namespace sm {

void Obstacle_Recon(int) {}
void Breach_Obstacle(int, int) {}
void Lay_Obstacle(int, int) {}
void Blow_Bridge(int) {}
void Engineer_Work(int) {}

}   // namespace sm

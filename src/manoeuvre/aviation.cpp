#include "manoeuvre/aviation.h"

namespace sm {

int Aviation_Pass() { return 0; }
void Move_AH(int) {}
void Abort_Mission(int) {}
void Air_Interception_Slice() {}
void Sensor_Slice() {}

}   // namespace sm

#include "events/events.h"

namespace sm {

void Event_Check(int, int, int) {}

}   // namespace sm

#include "persist/tape.h"

namespace sm {

void Tape_File(int) {}

}   // namespace sm

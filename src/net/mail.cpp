#include "net/mail.h"

namespace sm {

void Mail_Turn_End() {}

}   // namespace sm

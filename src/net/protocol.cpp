#include "net/protocol.h"

namespace sm {

void Send_Net_Message(std::string_view) {}

}   // namespace sm

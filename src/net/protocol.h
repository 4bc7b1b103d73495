#pragma once
#include <string_view>

namespace sm {

/// Sends a game message to the other seats. Nothing outside a network game.
void Send_Net_Message(std::string_view message);

}   // namespace sm

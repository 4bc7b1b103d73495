#pragma once
// What every planning command of the seat begins and ends with.

#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/sound_cues.h"
#include "net/protocol.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace sm {

/// Whether this seat gives orders to a side now: the side that it serves, in the editor any side, in a running
/// turn none.
inline bool Side_May_Order(int side)
{
    if (SEAT.TurnRunning || (side != BLUE && side != RED)) return false;
    return ActiveSide == side || (ActiveSide == 3 && UserSide == 5);
}

/// Tells the player why not. Always false, as the answer of the command.
inline bool Refuse(std::string_view title, std::string_view text)
{
    Screen().Box(title, text);
    return false;
}

/// Sends a message of number fields, and one text behind them, to the other seats of a network game.
inline void Tell_Seats(std::initializer_list<int> fields, std::string_view text = {})
{
    std::string message;
    for (const int field : fields) {
        message += To_Text(field);
        message += BROKEN_BAR;
    }
    if (!text.empty()) {
        message += text;
        message += BROKEN_BAR;
    }
    Send_Net_Message(message);
}

}   // namespace sm

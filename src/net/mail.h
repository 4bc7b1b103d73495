#pragma once

namespace sm {

/// Play by e-mail: the box at the end of a turn of a mail game, by the seat, and the fresh dice position where orders
/// follow. Nothing in other games.
void Mail_Turn_End();

}   // namespace sm

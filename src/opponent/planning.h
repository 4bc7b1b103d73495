#pragma once

namespace sm {

/// The computer's planning of one side's turn.
void Enemy_Planning(int side);

}   // namespace sm

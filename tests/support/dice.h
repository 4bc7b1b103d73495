#pragma once
// Dice for tests: a rule is tried at a roll that the test names.

#include "core/dice.h"
#include "core/game_state.h"

#include <gtest/gtest.h>

namespace sm::test {

/// The next roll is `value`; the test fails when no die has it. Later rolls follow the fixed order.
inline void Roll_Next(int value)
{
    for (int position = 1; position <= 100; ++position)
        if (Dice_Value(position) == value) {
            RSEED = position - 1;
            return;
        }
    ADD_FAILURE() << "no die shows " << value;
}

}   // namespace sm::test

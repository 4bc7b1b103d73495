#include "core/dice.h"

#include "core/game_state.h"

namespace sm {

namespace {

// clang-format off
constexpr int DICE[100] = {
    82, 39, 54, 100, 56, 95, 75, 88, 60, 5,
    5, 50, 51, 32, 55, 26, 63, 99, 66, 81,
    60, 51, 10, 80, 99, 44, 22, 93, 31, 59,
    66, 18, 17, 44, 7, 34, 77, 73, 28, 77,
    55, 38, 57, 43, 22, 64, 77, 27, 17, 88,
    59, 10, 56, 14, 69, 60, 83, 21, 3, 14,
    83, 61, 90, 61, 44, 1, 30, 84, 71, 52,
    2, 60, 35, 79, 85, 45, 2, 58, 89, 32,
    27, 83, 89, 19, 21, 83, 56, 37, 9, 21,
    19, 42, 72, 92, 28, 44, 12, 78, 80, 3,
};
// clang-format on

}   // namespace

int Roll_Dice(int site)
{
    DiceSite = site;
    RSEED = RSEED + 1 > 100 || RSEED < 0 ? 1 : RSEED + 1;
    return DICE[RSEED - 1];
}

int Dice_Value(int position)
{
    if (position < 1 || position > 100) Fail_Range(position, 1, 100, "dice");
    return DICE[position - 1];
}

}   // namespace sm

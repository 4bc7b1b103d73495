#pragma once
// What the text and the page of the odds both count.

#include "aar/odds.h"

#include <functional>

namespace sm {

/// VSTATUS from the best for Red to the best for Blue, and their names in that order.
// clang-format off
inline constexpr int VERDICTS_BY_SIDE[] = {1, 2, 3, 7, 4, 5, 6};
inline constexpr const char* VERDICT_NAMES[] = {"Red decisive", "Red major", "Red minor", "Even",
                                                "Blue minor",   "Blue major", "Blue decisive"};
// clang-format on

struct MEASURE {
    const char* NAME;
    double (*VALUE)(const OUTCOME&);
};
/// Blue's and Red's, by turns.
// clang-format off
inline constexpr MEASURE MEASURES[] = {
    {"Blue points", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_POINTS); }},
    {"Red points", [](const OUTCOME& o) { return static_cast<double>(o.RED_POINTS); }},
    {"Blue losses, %", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_LOSS); }},
    {"Red losses, %", [](const OUTCOME& o) { return static_cast<double>(o.RED_LOSS); }},
    {"Blue power", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_POWER); }},
    {"Red power", [](const OUTCOME& o) { return static_cast<double>(o.RED_POWER); }},
};
// clang-format on

int Turns_Of(const ODDS& odds);
/// Battles that pass a test after a turn (0 is the first one played).
int Count_Battles(const ODDS& odds, int turn, const std::function<bool(const OUTCOME&)>& test);
int Count_Verdict(const ODDS& odds, int turn, int status);
SPREAD Spread_Of_Turn(const ODDS& odds, int turn, const MEASURE& measure);
/// Objectives of the game, 0 for the first of the table.
std::vector<int> Objectives_Of(const ODDS& odds);
int Count_Held(const ODDS& odds, int turn, int objective, int side);

/// Battles in which a side has shown a sign by the last turn.
struct SIGN_ROW {
    const char* NAME;
    int BLUE_BATTLES, RED_BATTLES;
};
std::vector<SIGN_ROW> Signs_Of(const ODDS& odds);
/// "Objectives change hands in 100 of 100 battles, 1 to 9 times, 4 in the middle."
std::string Changes_Of_Hands(const ODDS& odds);
/// "After turn 15: Red is ahead in 44, neither side in 41, Blue in 15 of 100 battles."
std::string Verdict_Of_Odds(const ODDS& odds);
/// "from all 100 dice positions, turns 1 to 15 of 15"
std::string Extent_Of_Odds(const ODDS& odds);

}   // namespace sm

#pragma once
// The exact distribution of a plan's outcome: the same position played from all 100 dice positions.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// What a battle has shown so far; the sides as a sum: 1 Blue, 2 Red, 3 both.
struct SIGNS {
    std::int32_t MOVED = 0;        ///< a ground unit changed its place
    std::int32_t FIRED = 0;        ///< direct fires
    std::int32_t RESUPPLIED = 0;   ///< a convoy reached its unit
    std::int32_t CHANGES = 0;      ///< times that an objective changed hands
};

/// State of one battle after one turn.
struct OUTCOME {
    std::int32_t TURN, STATUS, BLUE_POINTS, RED_POINTS, BLUE_LOSS, RED_LOSS;
    float BLUE_POWER, RED_POWER;
    SIGNS SIGN;
    std::int8_t HOLDERS[50];   ///< OID of objective 1..50, -1 for a slot without one
};

inline constexpr int POSITIONS = 100;

/// Outcomes by position 1..100 and turn, all of the same length.
struct ODDS {
    std::string NAME;
    int FIRST_TURN = 0, LAST_TURN = 0;           ///< GTURN before the first turn, MAXGTURN
    std::vector<std::vector<OUTCOME>> BATTLES;   ///< [position - 1][turn played - 1]
};

/// Outcome of the game in play.
OUTCOME Note_Outcome(const SIGNS& signs);

/// Least, tenth, middle, ninetieth and greatest of the hundred values, and their mean.
struct SPREAD {
    double LEAST, LOW, MIDDLE, HIGH, GREATEST, MEAN;
};
SPREAD Spread_Of(std::vector<double> values);

std::string Odds_Text(const ODDS& odds);
std::string Odds_Csv(const ODDS& odds);   ///< one line for each position and turn
std::string Odds_Html(const ODDS& odds);

}   // namespace sm

#pragma once
#include <string>
#include <vector>

namespace sm {

/// Losses of a side by cause, in RCP points.
struct CAUSE {
    const char* NAME;
    float BLUE_LOSS, RED_LOSS;
};
std::vector<CAUSE> Losses_By_Cause();

/// The verdict of VSTATUS in words, after so many turns; `over` after the battle.
const char* Verdict_Text(int turn, int status, bool over);

/// What the dialog "Victory Status" shows.
struct Victory_Status {
    std::string BLUE_LOSSES, RED_LOSSES;   ///< "Red Losses: 12%", with " !" behind it above the allowed loss
    std::string BLUE_POINTS, RED_POINTS;
    std::string VERDICT;
    float BLUE_POWER, RED_POWER;   ///< bars under "Total Combat Power"
    float SCALE;                   ///< RCP points of a full bar: the larger power at the start
    std::vector<CAUSE> CAUSES;
    struct POINT {
        int TURN;
        float BLUE_POWER, RED_POWER;
        std::string LABEL;
    };
    std::vector<POINT> CHART;   ///< "Red/Blue Strengths vs Game Turn", turns 1 to GTURN
};
/// Fills the dialog and logs how the loss percentages came about.
Victory_Status Show_Victory_Status();

}   // namespace sm

#pragma once
#include <string>
#include <vector>

namespace sm {

/// Values by turn, and bands around them: each pair of rows is filled between, the later ones over the earlier.
struct CURVE {
    const char *NAME, *CLASS;   ///< CLASS: "blue" or "red"
    std::vector<double> VALUES;
    struct BAND {
        std::vector<double> LOW, HIGH;
    };
    std::vector<BAND> BANDS = {};
};

/// A line chart over the turns as a figure with a caption, zero at the bottom unless a value is below it.
std::string Html_Chart(const char* title, const std::vector<int>& turns, const std::vector<CURVE>& curves);

}   // namespace sm

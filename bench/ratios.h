#pragma once
#include <benchmark/benchmark.h>
#include <map>
#include <string>

namespace sm::bench {

/// Prints what every benchmark prints and keeps the shortest time of each, in seconds: on a busy machine the
/// shortest is the one least disturbed.
class Shortest_Times : public benchmark::ConsoleReporter {
public:
    Shortest_Times();
    void ReportRuns(const std::vector<Run>& runs) override;
    /// 0 when it was not run.
    double Of(const std::string& name) const;

private:
    std::map<std::string, double> shortest_;
};

/// What is held against what: "the full turn at most 0.15 of the 400-slice scan".
struct AIM {
    const char* MEASURED;
    const char* YARDSTICK;
    double AT_MOST;   // 0: told, not aimed at
};

/// One line for each aim whose two sides were measured. The number of aims missed.
int Print_Ratios(const Shortest_Times& times, const AIM* first, const AIM* last);

}   // namespace sm::bench

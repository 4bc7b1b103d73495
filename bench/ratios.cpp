#include "ratios.h"
#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace sm::bench {

Shortest_Times::Shortest_Times() : ConsoleReporter(::isatty(STDOUT_FILENO) ? OO_ColorTabular : OO_Tabular) {}

void Shortest_Times::ReportRuns(const std::vector<Run>& runs)
{
    std::vector<Run> shown;
    for (const Run& run : runs) {
        if (runs.size() == 1 || run.error_occurred || run.aggregate_name == "median") shown.push_back(run);
        if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
        const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
        const auto [at, first] = shortest_.try_emplace(run.run_name.function_name, seconds);
        if (!first) at->second = std::min(at->second, seconds);
    }
    ConsoleReporter::ReportRuns(shown);
}

double Shortest_Times::Of(const std::string& name) const
{
    const auto at = shortest_.find(name);
    return at == shortest_.end() ? 0 : at->second;
}

int Print_Ratios(const Shortest_Times& times, const AIM* first, const AIM* last)
{
    int missed = 0;
    std::printf("\n%-22s %11s   %-22s %11s   %8s   %s\n", "Measured", "ms", "against", "ms", "ratio", "aim");
    for (const AIM* aim = first; aim != last; ++aim) {
        const double measured = times.Of(aim->MEASURED), yardstick = times.Of(aim->YARDSTICK);
        if (measured <= 0 || yardstick <= 0) continue;
        const double ratio = measured / yardstick;
        std::printf("%-22s %11.4f   %-22s %11.4f   %8.3f   ", aim->MEASURED, measured * 1e3, aim->YARDSTICK,
                    yardstick * 1e3, ratio);
        if (aim->AT_MOST <= 0) {
            std::printf("-\n");
            continue;
        }
        const bool met = ratio <= aim->AT_MOST;
        missed += met ? 0 : 1;
        std::printf("%g %s\n", aim->AT_MOST, met ? "met" : "MISSED");
    }
    return missed;
}

}   // namespace sm::bench

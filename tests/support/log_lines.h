#pragma once
#include "core/log.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace sm::test {

/// What was logged since it was made. One at a time.
class Log_Lines {
public:
    Log_Lines()
    {
        Lines().clear();
        Listen_To_Log([](std::string_view line) { Lines().emplace_back(line); });
    }
    ~Log_Lines() { Listen_To_Log(nullptr); }
    Log_Lines(const Log_Lines&) = delete;
    Log_Lines& operator=(const Log_Lines&) = delete;

    const std::vector<std::string>& All() const { return Lines(); }
    /// Lines that hold a text.
    int Count(std::string_view text) const
    {
        return static_cast<int>(std::count_if(Lines().begin(), Lines().end(), [&](const std::string& line) {
            return line.find(text) != line.npos;
        }));
    }

private:
    static std::vector<std::string>& Lines()
    {
        static std::vector<std::string> lines;
        return lines;
    }
};

}   // namespace sm::test

#pragma once
// The game reader has a quick way for records that are laid out as the writer does, and a plain one, line by line.
// Both must come to the same game, or to the same failure in the same line.

#include "core/game_state.h"
#include "core/log.h"
#include "core/state_hash.h"
#include "persist/game_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace sm::test {

struct READING {
    int FAILURE;
    std::string FAULT;   ///< the log's line about it
    std::uint64_t HASH;
    std::vector<int> DX;   ///< read, and in no hash
    bool operator==(const READING&) const = default;
};

/// What a text reads as, from a game without anything in it.
inline READING Read_Afresh(std::string_view text)
{
    static std::string fault;
    fault.clear();
    // A key that the file lacks keeps its value.
    static_cast<HEADER&>(GAME) = {};
    static_cast<TACAIR&>(GAME) = {};
    static_cast<MODEL&>(GAME) = {};
    Listen_To_Log([](std::string_view line) {
        if (line.starts_with("Error: ") && line.find(", line ") != line.npos) fault = std::string(line);
    });
    READING reading{Read_Game_Text(text), fault, 0, {}};
    Listen_To_Log(nullptr);
    reading.HASH = State_Hash();
    for (int u = 1; u <= MAX_UNIT; ++u) reading.DX.push_back(UNIT[u].DX);
    return reading;
}

/// The same text with a blank before each line, which means the same and is laid out otherwise.
inline std::string Indented(std::string_view text)
{
    std::string indented;
    bool line_start = true;
    for (const char c : text) {
        if (line_start) indented += ' ';
        indented += c;
        line_start = c == '\n';
    }
    return indented;
}

inline bool Reads_The_Same_Both_Ways(std::string_view text)
{
    return Read_Afresh(text) == Read_Afresh(Indented(text));
}

}   // namespace sm::test

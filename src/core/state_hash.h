#pragma once
#include "core/game_state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sm {

/// 64-bit FNV-1a over the field lists in their order, low byte first; two seats of one game agree on it.
std::uint64_t State_Hash(const Game& game = GAME);

struct Table_Hash {
    std::string NAME;
    std::uint64_t HASH;
};
/// One hash for each table by itself: says where two games differ.
std::vector<Table_Hash> Table_Hashes(const Game& game = GAME);

/// 16 hexadecimal digits.
std::string Hash_Text(std::uint64_t hash);

/// "UNIT[17].FATIGUE 3, there 4" for every field in which two games differ, at most `limit` lines.
std::vector<std::string> Differences(const Game& here, const Game& there, int limit = 1000);

}   // namespace sm

#pragma once
#include "core/game_state.h"
#include "persist/game_format.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace sm {

class Fault_List;

/// A game file as the check read it: the values, and the line that each of them stands in.
struct Checked_Game {
    std::unique_ptr<Game> GAME_READ;
    std::array<std::vector<int>, FILE_PARTS> LINES;
    std::array<int, FILE_PARTS> COUNT{};   ///< records of each table in the file, surplus ones too
    int LAST_LINE = 0;

    Checked_Game();
    char* Record(int part, int row);
    /// 0 for a field that the file does not hold.
    int& Line_Of(int part, int row, const FIELD& field);
    /// "UNIT[17].SIDE", or the key of a scalar.
    std::string Name_Of(int part, int row, const FIELD& field) const;
};

/// What the values say together: sides, references between rows, routes, the grid, the clock. In a scenario
/// nothing has been lost yet, so every reference has to name a row in use; in a game under way the rules leave
/// some of them behind.
void Check_Sense(Checked_Game& read, bool scenario, Fault_List& faults);

}   // namespace sm

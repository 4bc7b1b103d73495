#pragma once
// Boards for tests: a small grid drawn in text, units placed on it.

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace sm::test {

/// A fresh game on a grid drawn one character a cell: '.' unrestricted, '1'..'6' terrain values, '=' bridge, '~'
/// river,
/// '#' urban, 'S' sea, '^' unrestricted high ground. Cells are 10 pixels, MAPSCALE 10: one cell is one kilometre.
/// While it lives it is the screen, and records what it is told.
class Board {
public:
    explicit Board(std::initializer_list<std::string_view> rows, int cell_pixels = 10);
    /// Open ground of columns x rows cells.
    Board(int columns, int rows, int cell_pixels = 10);
    ~Board();

    /// A ready unit of a side at a pixel position: STATUS 2, STRENGTH 100, MORALE 2, C2 3, supplied, RCP 10,
    /// battalion, tracked armour; located. Returns its row (the first free one of its side).
    int Place(int side, int x, int y, int type = 5, float rcp = 10.0f);
    /// Centre of a cell, 1-based column and row.
    int Centre(int cell) const { return (cell - 1) * HEXWIDTH + HEXWIDTH / 2; }

    Headless_Platform SCREEN;
};

/// Texts of SITREPLIST posted so far, without the location.
std::vector<std::string> Messages();
bool Posted(std::string_view text);

/// A game with no map and nothing in it.
void Clear_Game();

}   // namespace sm::test

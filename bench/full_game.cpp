#include "full_game.h"
#include "core/shared.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "terrain/grid.h"
#include <algorithm>
#include <random>

namespace sm::bench {
namespace {

constexpr int COLUMNS = 500, ROWS = 300, PIXELS = 6;

/// Ground roles that march with a division, and what they march on (0 foot, 1 wheels, 2 tracks).
struct ROLE {
    int TYPE, MOBILITY;
};
constexpr ROLE ROLES[] = {{5, 2}, {20, 2}, {20, 2}, {8, 2}, {24, 1}, {14, 2}, {13, 1}, {19, 0}, {1, 1}, {18, 1}};

/// Of a hundred cells some 62 open, 18 restricted, 8 severely restricted, 7 urban and 5 bridged. Nothing refuses a
/// march, so that every route is marched and none is measured as a refusal.
int Ground(unsigned percent)
{
    if (percent < 62) return 0;
    if (percent < 80) return 1;
    if (percent < 88) return 2;
    return percent < 95 ? 4 : 7;
}

}   // namespace

void Make_Full_Game(int units_a_side)
{
    // The board goes at the end and leaves its game behind.
    test::Board board(COLUMNS, ROWS, PIXELS);
    std::minstd_rand random(2004);   // the same numbers with every library
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };

    for (int hex = 1; hex <= HEXCOUNT; ++hex) {
        HEXMAP[hex].TVALUE = Ground(static_cast<unsigned>(below(100)));
        HEXMAP[hex].THIGH = below(10) == 0 ? 1 : 0;
        HEXMAP[hex].TNAME = Terrain_Name(HEXMAP[hex].TVALUE);
    }
    // Ranks of 20 units, one rank every 6 cells of depth; a front of 280 cells for a full rank.
    for (int n = 0; n < units_a_side; ++n) {
        for (const int side : {BLUE, RED}) {
            const int rank = n / 20, file = n % 20;
            const int ahead = side == BLUE ? 1 : -1;
            const int column = (side == BLUE ? 200 : 300) - ahead * (rank * 6 + below(5));
            const int row = 10 + file * 14 + below(9);
            const ROLE role = ROLES[n % static_cast<int>(std::size(ROLES))];
            const int unit = board.Place(side, board.Centre(column), board.Centre(row), role.TYPE);
            UNIT[unit].MOBILITY = role.MOBILITY;
            UNIT[unit].MOVEPOINTS = UNIT[unit].MOVEPOINTS2 = role.MOBILITY == 0 ? 6 : 24;
            const int to_row = std::clamp(row + below(21) - 10, 1, ROWS);
            const int to_column = column + ahead * (30 + below(31));
            Add_Move_Node(unit, Next_Free_Node(unit), board.Centre(to_column), board.Centre(to_row));
        }
    }
}

}   // namespace sm::bench

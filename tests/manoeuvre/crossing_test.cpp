// Rivers and obstacles as a force meets them on its march, over whole turns of movement and reset.

#include "core/invariants.h"
#include "core/unit_reset.h"
#include "manoeuvre/engineers.h"
#include "manoeuvre/movement.h"
#include "support/board.h"
#include "support/dice.h"
#include "support/fields.h"
#include "support/march.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

void Play(int turns)
{
    for (; turns > 0; --turns) {
        Clear_Sitrep();
        GTURN += 1;
        Movement();
        Reset_Units();
        EXPECT_TRUE(Broken_Invariants().empty());
    }
}

int Column_On_The_March(Board& board, int type, int row, std::initializer_list<Node> route)
{
    const int u = board.Place(BLUE, 15, board.Centre(row), type);
    UNIT[u].SIZE = 0;   // one cell wide, so that columns do not hinder each other
    Set_Footprint(u);
    Plot(u, route);
    return u;
}

}   // namespace

TEST(Crossing, ARiverIsCrossedByAssaultAndThenByBridge)
{
    Board board({"....~....", "....~....", "....~....", "....~....", "....~...."});
    const int assault = Column_On_The_March(board, 20, 1, {{85, 5}});
    const int pontoon = Column_On_The_March(board, 15, 3, {{85, 25}});
    const int trucks = Column_On_The_March(board, 13, 5, {{85, 45}});
    UNIT[pontoon].BRIDGING = 1;

    Play(1);   // all reach the river; the trucks do not enter it and drop their route
    EXPECT_TRUE(Has(UNIT[assault], "X 45, TIMEREGR 1"));
    EXPECT_EQ(UNIT[pontoon].X, 45);
    EXPECT_TRUE(Has(UNIT[trucks], "X 35, NUMBER_OF_NODES 0"));
    EXPECT_TRUE(Posted("B1: Assault crossing will be complete in 1 turn!"));
    EXPECT_TRUE(Posted("B2: Bridge will be complete in 1 turn!"));
    EXPECT_TRUE(Posted("B3 cannot cross river without bridging!"));

    Play(1);   // both work in the water
    EXPECT_TRUE(Has(UNIT[assault], "X 45, MOVESTATUS 2"));
    EXPECT_TRUE(Posted("B2: Bridge is finished!"));
    EXPECT_EQ(UNIT[pontoon].TERTYPE, 7);

    Plot(trucks, {{35, 25}, {85, 25}});
    Play(1);   // out of the water, and over the bridge
    EXPECT_EQ(UNIT[assault].X, 85);
    EXPECT_EQ(UNIT[pontoon].X, 85);
    EXPECT_GT(UNIT[trucks].X, 45);

    Blow_Bridge(Hex_Of(5, 3));
    Play(1);
    EXPECT_EQ(UNIT[trucks].X, 85);
    EXPECT_EQ(Cell_Value(Hex_Of(5, 3)), 5);
}

TEST(Crossing, AColumnStopsAtAnObstacleUntilItHasReducedIt)
{
    Board board({".........", "........."});
    const int tanks = Column_On_The_March(board, 5, 1, {{85, 5}});
    Lay_Obstacle(Hex_Of(5, 1), RED);
    // Twenty pixels before the field's centre the tanks try it, and fail with 21; they make that step and halt.
    Roll_Next(21);
    Movement();
    EXPECT_EQ(UNIT[tanks].MOVESTATUS, 1);
    const int halted_at = UNIT[tanks].X;
    EXPECT_LT(halted_at, 45);
    EXPECT_TRUE(Posted("B1: Unable to reduce obstacle this turn!"));

    // The reset frees them and they look again: 42 clears it.
    Roll_Next(42);
    RSEED = RSEED - 1;   // the morale test of the reset comes first
    Reset_Units();
    EXPECT_TRUE(Posted("B1: Obstacle is reduced!"));
    EXPECT_EQ(Cell_Value(Hex_Of(5, 1)), 0);
    Play(1);
    EXPECT_EQ(UNIT[tanks].X, 85);
}

#include "manoeuvre/routes.h"

#include "manoeuvre/movement.h"
#include "manoeuvre/placement.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/march.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

TEST(Cell_Cost_Test, FollowsTerrainAndMobility)
{
    Board board(1, 1);
    const int unit = board.Place(BLUE, 5, 5);
    struct CASE {
        int VALUE, FOOT, WHEELED, TRACKED;
    };
    // A combat unit never pays more than 10 except on the sea: impassable shows as 10, though vehicles are refused
    // there.
    const CASE cases[] = {
        {0, 1, 1, 1}, {1, 1, 3, 2},     {2, 1, 6, 5},  {3, 1, 1, 1},  {4, 1, 2, 2},  {5, 6, 6, 6},  {6, 2, 10, 10},
        {7, 3, 3, 3}, {10, 60, 60, 60}, {11, 3, 3, 3}, {18, 3, 3, 3}, {21, 3, 3, 3}, {27, 3, 3, 3},
    };
    for (const CASE& c : cases) {
        const int costs[] = {c.FOOT, c.WHEELED, c.TRACKED};
        for (int mobility = 0; mobility <= 2; ++mobility) {
            UNIT[unit].MOBILITY = mobility;
            EXPECT_EQ(Terrain_Cost(unit, c.VALUE, 7), costs[mobility]) << c.VALUE << " by mobility " << mobility;
        }
        UNIT[unit].MOBILITY = 3;
        EXPECT_EQ(Terrain_Cost(unit, c.VALUE, 7), 1) << c.VALUE;
    }
    UNIT[unit].MOBILITY = 2;
    for (const int value : {8, 9, 19, 20, 28, 31}) EXPECT_EQ(Terrain_Cost(unit, value, 7), 7) << value;
    EXPECT_EQ(Terrain_Cost(unit, 8, 60), 10);
    UNIT[unit].MOBILITY = 10;   // no class of movement
    EXPECT_EQ(Terrain_Cost(unit, 0, 7), 7);
    Give(UNIT[unit], "SIZE 100, MOBILITY 1");
    EXPECT_EQ(Terrain_Cost(unit, 6, 0), 24);
    EXPECT_EQ(Terrain_Cost(unit, 10, 0), 60);
    UNIT[unit].MOBILITY = 0;
    EXPECT_EQ(Terrain_Cost(unit, 6, 0), 2);
}

TEST(Route, TheFirstLegIsSetUpAndTheWholeIsSummed)
{
    Board board({"....1", ".....", "..#..", "....~"});
    const int unit = board.Place(BLUE, 5, 5);
    UNIT[unit].MOVEPOINTS2 = 4;
    // Leg 1 to cell (3, 3): 2 diagonal steps of (10, 10): open 1, urban 2. Leg 2 to cell (5, 4): 2 steps of (10,
    // 5): (35, 30) in row 4, open 1; (45, 35) river 6.
    Plot(unit, {{25, 25}, {45, 35}});
    EXPECT_TRUE(Has(UNIT[unit], "MOVECOST_TO_END 10, DISTANCE_TO_END 4, DISTANCE_IN_HEXES 2, MOVEX 10, MOVEY 10"));
    EXPECT_TRUE(Has(UNIT[unit], "X1 5, NUMBER_OF_NODES 2, MOVESTATUS 2, TIME_TO_END 3"));   // 10 / 4, rounded up
    EXPECT_TRUE(Has(MN[2], "MNUNITNUMBER 2, MNSIDE BLUE"));
    // A node in the own cell is a step of no distance.
    HEXMAP[1].TVALUE = 1;
    Clear_Route(unit);
    Plot(unit, {{8, 8}});
    EXPECT_TRUE(Has(UNIT[unit], "DISTANCE_TO_END 0, DISTANCE_IN_HEXES 1, MOVEX 3, MOVECOST_TO_END 2"));
}

TEST(Route, CellsOffThePictureCost200UpToTheCeiling)
{
    Board board(4, 1);
    const int unit = board.Place(BLUE, 15, 5);
    Plot(unit, {{-35, 5}});
    // Columns of 5, -5, -15, -25, -35: 1, 1, 0, -1, -2 (toward zero), so 4 steps of 12.5 from column 2: 2.5 to 2
    // on the picture, then -10, -22, -35.
    EXPECT_EQ(UNIT[unit].DISTANCE_TO_END, 4);
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 1 + 3 * 200);
    Clear_Route(unit);
    Plot(unit, {{2015, 5}});   // 200 steps, 198 of them off the picture: 39602
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 31000);
    Plot(unit, {{2025, 5}});   // the sum goes on from the ceiling
    EXPECT_TRUE(Has(UNIT[unit], "MOVECOST_TO_END 31000, DISTANCE_TO_END 201"));
}

TEST(Route, AValueWithoutARuleCostsWhatTheCellBeforeItCost)
{
    Board board({"..4.."});
    const int unit = board.Place(BLUE, 5, 5);
    HEXMAP[4].TVALUE = HEXMAP[5].TVALUE = 9;
    Plot(unit, {{35, 5}, {45, 5}});
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 1 + 2 + 2 + 2);   // open, urban, and urban's cost twice, over the node
    Clear_Route(unit);
    HEXMAP[2].TVALUE = 9;   // nothing before it
    Plot(unit, {{25, 5}});
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 0 + 2);
}

TEST(Route, ASideHasThreeHundredNodesAndAFullHalfRefusesWithoutAWord)
{
    Board board(4, 1);
    const int blue = board.Place(BLUE, 5, 5), starved = board.Place(BLUE, 5, 5), red = board.Place(RED, 35, 5);
    for (int n = 1; n <= 300; ++n) Plot(blue, {{n % 2 == 1 ? 15 : 5, 5}});
    EXPECT_TRUE(Has(UNIT[blue], "NUMBER_OF_NODES 300, MOVECOST_TO_END 300"));
    UNIT[starved].OX1 = UNIT[starved].OY2 = 9;   // the destinations of the computer's plan go all the same
    EXPECT_EQ(Plot(starved, {{15, 5}}), 0);
    EXPECT_TRUE(Has(UNIT[starved], "NUMBER_OF_NODES 0, MOVESTATUS 0, OX1 0, OY2 0"));
    EXPECT_EQ(Plot(red, {{25, 5}}), 301);
    EXPECT_EQ(MN[301].MNSIDE, RED);
    Add_Move_Node(starved, 301, 15, 5);   // taken
    EXPECT_EQ(MN[301].MNUNIT, red);
    EXPECT_EQ(UNIT[starved].NUMBER_OF_NODES, 0);
}

TEST(Route, AFlightOf400PointsIsAcceptedAndOneOf401DropsTheRoute)
{
    Board board(410, 1);
    const int unit = board.Place(BLUE, 5, 5, 11);
    Give(UNIT[unit], "MOBILITY 3, TIMERM 9");
    Plot(unit, {{2005, 5}, {4005, 5}});   // 200 + 200 cells
    EXPECT_TRUE(Has(UNIT[unit], "MOVECOST_TO_END 400, MOVESTATUS 9, TIMERM 9"));
    Plot(unit, {{4015, 5}});
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 0, MOVESTATUS 0, TIMERM 0"));
    EXPECT_EQ(Count_Used(MN, 1, MAX_MN), 0);
    EXPECT_FALSE(board.SCREEN.Heard("box", ""));   // with no message
    UNIT[unit].MOVESTATUS = 10;                    // aborts, by a longer way
    Plot(unit, {{4005, 5}});
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 10);
    Clear_Route(unit);
    Give(UNIT[unit], "MOVESTATUS 7, OX2 9");   // MOVESTATUS: waits at its NAI
    Add_Move_Node(unit, 1, 4005, 5);           // at a seat that is told the row
    EXPECT_TRUE(Has(UNIT[unit], "MOVESTATUS 7, OX2 0"));
    // Moved out of reach, it stays where it is put; the cost tells.
    EXPECT_EQ(Move_Node(1, 4095, 5), 409);
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 1, MOVECOST_TO_END 409"));
}

TEST(Route, ABrokenChainIsToldAndDropped)
{
    Board board(6, 1);
    const int unit = board.Place(BLUE, 5, 5), other = board.Place(BLUE, 5, 5);
    Plot(unit, {{15, 5}, {25, 5}, {35, 5}});
    Plot(other, {{15, 5}});
    MN[2] = MN_RECORD{};
    MN[9].MNSIDE = RED;   // a row that belongs to nobody
    EXPECT_EQ(Compute_Route(unit), 0);
    EXPECT_TRUE(board.SCREEN.Heard(
        "box", "Stonemarch|ERROR: Endless Loop in Movement Routine\r Cancelling Movement for B1"));
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 0, MOVESTATUS 0"));
    EXPECT_EQ(MN[9].MNSIDE, 0);
    EXPECT_EQ(UNIT[other].NUMBER_OF_NODES, 1);
    EXPECT_EQ(Count_Used(MN, 1, MAX_MN), 1);
    UNIT[unit].NUMBER_OF_NODES = 1;   // and none there
    Plot(unit, {{45, 5}});
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 0);
    EXPECT_EQ(Count_Used(MN, 1, MAX_MN), 1);
}

TEST(Route, NodesAreFoundByTheirNumberWhateverTheirRows)
{
    Board board(9, 1);
    const int first = board.Place(BLUE, 5, 5), unit = board.Place(BLUE, 5, 5);
    Plot(first, {{15, 5}});
    Plot(unit, {{25, 5}, {35, 5}});
    Clear_Route(first);
    EXPECT_EQ(Plot(unit, {{85, 5}}), 1);   // node 3 lies in row 1, before its predecessors
    EXPECT_TRUE(Has(UNIT[unit], "DISTANCE_TO_END 8, DISTANCE_IN_HEXES 2"));
    UNIT[unit].HIGHERHQ = first;
    UNIT[first].STATUS = 1;
    EXPECT_EQ(Pass_Node(unit), 2);
    EXPECT_EQ(UNIT[first].C2T, 1);
    EXPECT_EQ(MN[3].MNUNITNUMBER, 1);
    EXPECT_EQ(MN[1].MNUNITNUMBER, 2);
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 2, C2T 1"));
    Start_Next_Leg(unit);
    EXPECT_TRUE(Has(UNIT[unit], "DX 35, DY 5, DCOL1 4, DROW1 1, DISTANCE_IN_HEXES 3"));
}

TEST(By_Hand, TurnsWrapAndTakeTheScreenLineAlong)
{
    Board board(9, 9);
    const int unit = board.Place(BLUE, 45, 45);
    UNIT[unit].FACING = 45;
    Turn_Left(unit);
    EXPECT_EQ(UNIT[unit].FACING, 360);   // 0 is below 1
    Turn_Left(unit);
    EXPECT_EQ(UNIT[unit].FACING, 315);
    Turn_Right(unit);
    EXPECT_TRUE(Has(UNIT[unit], "FACING 0, LX 0"));
    Give(UNIT[unit], "TACOPN 3, FOOTPRINT 50");
    Turn_Right(unit);
    // Facing 45: the ends lie at bearings 315 and 135, 50 x 0.7 = 35 away: 24.7 to each side.
    EXPECT_TRUE(Has(UNIT[unit], "FACING 45, LX 20, LY 20, RX 70, RY 70"));
}

TEST(By_Hand, AUnitPutDownIsOnTheMapWithoutRouteAndDestination)
{
    Board board({"...", ".4."});
    const int unit = board.Place(RED, 5, 5);
    Plot(unit, {{25, 5}});
    Give(UNIT[unit], "OX2 25, OFFMAP 1, TACOPN 3, FOOTPRINT 10");
    Put_Unit(unit, 15, 15);
    EXPECT_TRUE(Has(UNIT[unit], "LX 8, HEXNUM 4, TERTYPE 4"));   // LX: facing north, 10 x 0.7 to the west
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 0, OX2 0, OFFMAP 0"));
    Plot(unit, {{25, 5}});
    Wait_Off_Map(unit, 25, 15);
    EXPECT_TRUE(Has(UNIT[unit], "X -1000, Y 1000, HEXNUM 0, OFFMAP 1, ARY 15, NUMBER_OF_NODES 0"));
}

}   // namespace
}   // namespace sm::test

#include "opponent/route_planner.h"

#include "manoeuvre/routes.h"
#include "support/board.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

TEST(RoutePlanner, TheCostOfALineIsSampledOnceACellWithItsDeterrents)
{
    Board board({"..~..", "..=..", "..6.."});
    const int tank = board.Place(BLUE, 5, 5), support = board.Place(BLUE, 5, 5, 8), foot = board.Place(BLUE, 5, 5, 19);
    UNIT[foot].MOBILITY = 0;
    EXPECT_EQ(Route_Cost(tank, 5, 5, 45, 5, false), 1 + 46 + 1 + 1);        // river 6 + 40
    EXPECT_EQ(Route_Cost(support, 5, 5, 45, 5, false), 1 + 206 + 1 + 1);    // river 6 + 200
    EXPECT_EQ(Route_Cost(tank, 5, 15, 45, 15, false), 1 + 3 + 1 + 1);
    EXPECT_EQ(Route_Cost(tank, 5, 15, 45, 15, true), 1 + 3);                // stops at the bridge, its own cost counted
    EXPECT_EQ(Route_Cost(tank, 5, 25, 45, 25, false), 1 + 210 + 1 + 1);     // impassable 10 + 200
    EXPECT_EQ(Route_Cost(support, 5, 25, 45, 25, false), 1 + 50 + 1 + 1);   // 10 + 40
    EXPECT_EQ(Route_Cost(foot, 5, 25, 45, 25, false), 1 + 6 + 1 + 1);       // 2 + 4
    EXPECT_EQ(Route_Cost(tank, 35, 5, 55, 5, false), 1 + 300);              // off the map
}

TEST(RoutePlanner, ADetourLeadsOverTheBridge)
{
    Board board({"....~....", "....~....", "....~....", "....~....", "....=....", "....~....", "....~....", "....~....", "....~...."});
    const int tank = board.Place(BLUE, 5, 5);
    UNIT[tank].OX1 = 85;
    UNIT[tank].OY1 = 5;
    Plan_Route(tank);
    ASSERT_EQ(UNIT[tank].NUMBER_OF_NODES, 2);
    EXPECT_EQ(MN[2].MNX, 85);
    EXPECT_EQ(MN[2].MNY, 5);
    EXPECT_GT(MN[1].MNY, 5);
    EXPECT_EQ(UNIT[tank].MOVESTATUS, 2);
    const int x = MN[1].MNX, y = MN[1].MNY;
    Plan_Route(tank);   // nothing cheaper: the route stays
    EXPECT_EQ(UNIT[tank].NUMBER_OF_NODES, 2);
    EXPECT_EQ(MN[1].MNX, x);
    EXPECT_EQ(MN[1].MNY, y);
}

TEST(RoutePlanner, OverOpenGroundTheRouteIsOneNode)
{
    Board board(20, 20);
    const int tank = board.Place(RED, 55, 55);
    UNIT[tank].OX1 = 155;
    UNIT[tank].OY1 = 55;
    Plan_Route(tank);
    EXPECT_EQ(UNIT[tank].NUMBER_OF_NODES, 1);
    EXPECT_EQ(MN[301].MNX, 155);
    for (int row = 301; row <= 600; ++row) MN[row].MNUNIT = tank;
    EXPECT_EQ(AI_Add_Node(tank, 5, 5), 0);   // the half of the table is full
}

#include "opponent/intent.h"

#include "support/board.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

TEST(Intent, AHeadquartersHandsOnWhatItIsGivenToItsAbleUnitsOnTheMap)
{
    Board board(20, 20);
    const int hq = board.Place(BLUE, 50, 50, 18);
    int unit[6];
    for (int& u : unit) {
        u = board.Place(BLUE, 60, 60);
        UNIT[u].HIGHERHQ = hq;
    }
    const auto& [able, beaten, away, staff, stranger, other_side] = unit;
    UNIT[beaten].STATUS = 1;
    UNIT[away].OFFMAP = 1;
    UNIT[staff].TYPE = 18;
    UNIT[stranger].HIGHERHQ = able;
    UNIT[other_side].SIDE = RED;
    Set_Unit_Action(hq, 5);
    Set_Unit_Objective(hq, 3);
    for (const int u : {hq, able}) EXPECT_EQ(Row(UNIT[u].AIACTION, UNIT[u].OBJ), Row(5, 3));
    for (const int u : {beaten, away, staff, stranger, other_side})
        EXPECT_EQ(UNIT[u].AIACTION + UNIT[u].OBJ, 0) << u;
    Set_Unit_Action(able, 2);   // no headquarters: nobody else
    EXPECT_EQ(UNIT[stranger].AIACTION, 0);
}

TEST(Intent, ObjectivesAreOfferedToReserveAndAttackOnly)
{
    Board board(20, 20);
    const int u = board.Place(RED, 50, 50);
    OBJ[2].OTYPE = 1;
    OBJ[3].OTYPE = 2;   // key terrain
    OBJ[7].OTYPE = 1;
    UNIT[u].AIACTION = 3;
    EXPECT_TRUE(Objectives_On_Offer(u).empty());
    UNIT[u].AIACTION = 4;
    EXPECT_EQ(Objectives_On_Offer(u), (std::vector<int>{2, 7}));
}

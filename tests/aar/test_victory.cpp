#include "aar/victory.h"

#include "support/board.h"
#include "support/log_lines.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace sm;
using namespace sm::test;

TEST(Victory, PowerLeavesOutAttachedUnitsAndNamesTheIneffective)
{
    Board board(20, 20);
    const int a = board.Place(BLUE, 5, 5, 5, 10), b = board.Place(BLUE, 5, 5, 5, 4),
              c = board.Place(BLUE, 5, 5, 5, 2);
    board.Place(RED, 100, 100, 5, 7);
    UNIT[b].PARENT_UNIT = a;
    UNIT[c].STATUS = 1;
    GTURN = 0;
    Power_Count();
    EXPECT_EQ((std::vector<float>{BRCP1, BRCP2, BRCP3, RRCP1}), (std::vector<float>{12, 2, 12, 7}));
    GTURN = 3;
    GDAY = "9";
    UNIT[a].RCP2 = 5;
    Power_Count();
    EXPECT_EQ(BRCP1, 12.0f);
    EXPECT_EQ(AAR[3].BRCP, 7.0f);
    EXPECT_EQ(AAR[3].TTIME, "9");
    GTURN = 51;
    Power_Count();   // no row, no failure
}

TEST(Victory, AnObjectiveGoesOnlyToASideThatStandsAloneOnIt)
{
    Board board(20, 20);
    const int blue = board.Place(BLUE, 100, 100), red = board.Place(RED, 120, 100);
    UNIT[blue].FOOTPRINT = UNIT[red].FOOTPRINT = 10;   // reach 21 pixels
    OBJ[1] = {.OTYPE = 1, .OX = 100, .OY = 100, .OID = RED, .OVALUE = 100};
    OBJ[2] = OBJ[1];
    OBJ[2].OTYPE = 2;   // key terrain is not scored
    Victory_Points();
    EXPECT_EQ(OBJ[1].OID, RED);   // contested
    EXPECT_EQ(REDVP, 100);
    UNIT[red].STATUS = 1;   // ineffective units do not contest
    Victory_Points();
    EXPECT_EQ(OBJ[1].OID, BLUE);
    EXPECT_EQ(BLUEVP, 100);
    UNIT[blue].X = 122;   // 22 pixels off: the possessor stays
    Victory_Points();
    EXPECT_EQ(BLUEVP, 200);
    EXPECT_EQ(VSTATUS, 4);   // 200 / 100 = 2: minor
}

TEST(Victory, LossesOfTheBiggerForceWeighMore)
{
    Board board(20, 20);
    BRCP1 = 100;
    RRCP1 = 200;
    BRCP3 = 90;
    RRCP3 = 150;
    MBLOSS = 10;   // Blue has lost exactly 10
    MRLOSS = 24;   // Red 25
    BFOBJ = RFOBJ = 1;
    RARTYL = 10;
    RMANL = 5;
    REPW = 2;    // double
    RADAL = 1;   // triple: 22
    BMANL = 11;
    Victory_Points();
    EXPECT_EQ(BLUEVP, 53);   // 22 x 2 = 44, x 1.2 = 52.8
    EXPECT_EQ(REDVP, 6);     // 11 x 0.5 = 5.5, halves to even
    BFOBJ = 0;
    MRLOSS = 25;
    BLUEVP = REDVP = 0;
    Victory_Points();
    EXPECT_EQ(BLUEVP, 66);   // 44 x 1.5
    EXPECT_EQ(Loss_Percent(RED), 25);
}

TEST(Victory, PointsStayAtTheEndOfTheirRange)
{
    Board board(20, 20);
    Power_Count(false);   // as after every load
    const Log_Lines log;
    BLUEVP = 32700;
    OBJ[1] = {.OTYPE = 1, .OID = BLUE, .OVALUE = 500};
    RMANL = 1e9f;
    Victory_Points();
    EXPECT_EQ(Row(BLUEVP, VSTATUS), Row(32767, 6));
    Victory_Points();
    EXPECT_EQ(BLUEVP, 32767);
    EXPECT_EQ(log.All(),
              std::vector<std::string>{"Victory points have reached the end of their range and stay there"});
    BLUEVP = REDVP = OBJ[1].OTYPE = 0;
    RMANL = 0;
    Victory_Points();
    EXPECT_EQ(VSTATUS, 7);   // nothing against nothing is even
}

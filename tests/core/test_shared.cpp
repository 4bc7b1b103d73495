#include "core/dice.h"
#include "support/board.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

TEST(Dice, ThePositionWalksTheTableAndComesRound)
{
    Board board(2, 2);
    RSEED = 100;
    EXPECT_EQ(Roll_Dice(SITE_MORALE), 82);
    EXPECT_EQ(RSEED, 1);
    EXPECT_EQ(DiceSite, 1);
    RSEED = 0;
    EXPECT_EQ(Roll_Dice(SITE_ELINT), 82);
    RSEED = 98;
    EXPECT_EQ(Roll_Dice(SITE_ELINT), 80);
    EXPECT_EQ(Roll_Dice(SITE_ELINT), 3);
    int sum = 0;
    for (int i = 1; i <= 100; ++i) sum += Dice_Value(i);
    EXPECT_EQ(sum, 5028);   // mean 50.28
}

TEST(Shared, BearingsAreCompassDegreesOnAMapWhoseRowsRunDown)
{
    EXPECT_EQ(Bearing_To(50, 50, 50, 10), 0);      // north
    EXPECT_EQ(Bearing_To(50, 50, 60, 40), 45);     // atan 1 x 180 / 3.14159 = 45.00004
    EXPECT_EQ(Bearing_To(50, 50, 60, 50), 95);     // dy counts as 1: 180 - 84.29
    EXPECT_EQ(Bearing_To(50, 50, 50, 90), 180);
    EXPECT_EQ(Bearing_To(50, 50, 40, 40), 314);    // 360 - 45.00004
    EXPECT_EQ(Bearing_To(50, 50, 40, 60), 225);
    EXPECT_EQ(Bearing_To(50, 50, 50, 50), 180);    // the same point
}

TEST(Shared, AspectBandsMeetExactly)
{
    const std::pair<int, int> bands[] = {{0, 1},   {60, 1},  {61, 2},  {135, 2}, {136, 3},
                                         {225, 3}, {226, 2}, {300, 2}, {301, 1}, {360, 1}};
    for (const auto& [degrees, aspect] : bands) {
        EXPECT_EQ(Aspect_Of_Fire(0, degrees), aspect) << degrees;
        EXPECT_EQ(Aspect_Of_Fire(degrees, 0), aspect) << degrees;
    }
    EXPECT_EQ(Aspect_Of_Fire(-10, 355), 0);   // no compass degrees
}

TEST(Shared, DistancesAreRoundedOnceAndFailOutside16Bits)
{
    EXPECT_EQ(Distance_Between(0, 0, 3, 4), 5);
    EXPECT_EQ(Distance_Between(0, 0, 1, 1), 1);
    EXPECT_EQ(Distance_Between(0, 0, 2, 3), 4);      // 3.61
    EXPECT_EQ(Distance_Truncated(0, 0, 2, 3), 3);
    EXPECT_THROW(Distance_Between(-20000, 0, 20000, 0), Game_Error);
}

TEST(Shared, FootprintFollowsEchelonStrengthAndPosture)
{
    Board board(40, 40, 6);
    MAPSCALE = 6.0f;
    const int u = board.Place(BLUE, 60, 60);
    UNIT[u].TACOPN = 1;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 48.0f);   // battalion 8 x 6
    UNIT[u].STRENGTH = 50;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 30.0f);   // 24 is below the floor 5 x 6
    UNIT[u].TACOPN = 0;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 15.0f);
    UNIT[u].SIZE = 0;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 6.0f);    // halved to 3, never below MAPSCALE
    UNIT[u].TYPE = 18;
    UNIT[u].SIZE = 5;
    UNIT[u].TACOPN = 1;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 6.0f);    // a headquarters is MAPSCALE wide
    UNIT[u].TYPE = 5;
    UNIT[u].SIZE = 100;
    UNIT[u].FOOTPRINT = 18;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 18.0f);   // a convoy keeps its own
    HEXWIDTH = 3;
    MAPSCALE = 2.51f;
    UNIT[u].SIZE = 1;
    Set_Footprint(u);
    EXPECT_EQ(UNIT[u].FOOTPRINT, 27.0f);   // small maps: at least 27 pixels
}

TEST(Messages, RowsRunTo299AndTrafficLoadsUnitAndHeadquarters)
{
    Board board(10, 10);
    const int hq = board.Place(BLUE, 15, 15, 18), u = board.Place(BLUE, 25, 25);
    UNIT[u].HIGHERHQ = hq;
    for (int i = 1; i <= 299; ++i) Post_Message(0, "x", 1, 1, 0, BOTH);
    EXPECT_EQ(SitrepCount, 299);
    Post_Own(u, "B2: hello", 1);
    EXPECT_EQ(SitrepCount, 1);
    EXPECT_EQ(std::string_view(SITREPLIST[1].TEXT), "Location: No UTM Data // MSG: B2: hello");
    EXPECT_EQ(SITREPLIST[300].USED, 0);
    EXPECT_EQ(UNIT[u].C2T, 1);
    EXPECT_EQ(UNIT[hq].C2T, 1);
    EXPECT_TRUE(board.SCREEN.Heard("status", "B2: hello"));
    UNIT[hq].STATUS = 0;   // a lost headquarters receives nothing
    Post_Own(u, "again", 0);
    EXPECT_EQ(UNIT[hq].C2T, 1);
    Clear_Sitrep();
    EXPECT_EQ(SitrepCount, 0);
    EXPECT_EQ(SITREPLIST[1].UNIT, 0);
}

TEST(Removal, ARemovedUnitFreesItsRowAndItsNodesButOthersKeepTheirReferences)
{
    Board board(10, 10);
    const int a = board.Place(RED, 15, 15), b = board.Place(RED, 25, 25);
    UNIT[b].HIGHERHQ = a;
    MN[301].MNUNIT = a;
    MN[302].MNUNIT = b;
    Remove_Unit(a);
    EXPECT_EQ(UNIT[a].STATUS, 0);
    EXPECT_EQ(UNIT[a].X, 4000);
    EXPECT_EQ(UNIT[a].RCP, 0.0f);
    EXPECT_EQ(MN[301].MNUNIT, 0);
    EXPECT_EQ(MN[302].MNUNIT, b);
    EXPECT_EQ(UNIT[b].HIGHERHQ, a);
}

TEST(Removal, ALiftUnitThatLosesItsRoutePutsItsPassengerDownShaken)
{
    Board board(10, 10);
    const int lift = board.Place(BLUE, 45, 45, 12), inf = board.Place(BLUE, 0, 0, 19), waiting = board.Place(BLUE, 5, 5);
    UNIT[lift].MOBILITY = 3;
    UNIT[lift].PASSENGER = inf;
    UNIT[lift].TIMERM = 17;
    UNIT[inf].CARRIER = UNIT[waiting].CARRIER = lift;
    UNIT[inf].SUPPRESSED = 4;
    Place_Off_Picture(inf);
    EXPECT_EQ(UNIT[inf].HEXNUM, 0);
    Clear_Route(lift);
    EXPECT_EQ(UNIT[inf].X, 45);
    EXPECT_EQ(UNIT[inf].HEXNUM, 45);       // column 5, row 5 of a grid of 10 rows: 4 x 10 + 5
    EXPECT_EQ(UNIT[inf].SUPPRESSED, 4);    // one more, but at most 4
    EXPECT_EQ(UNIT[inf].CARRIER, 0);
    EXPECT_EQ(UNIT[waiting].CARRIER, 0);
    EXPECT_EQ(UNIT[lift].PASSENGER, 0);
    EXPECT_EQ(UNIT[lift].TIMERM, 0);
}

TEST(Removal, AnErasedControlMeasureLowersItsSidesCountAndADrawingNone)
{
    Board board(10, 10);
    BNAI = RTAI = BSEAD = RCFFZ = 2;
    const int kinds[][2] = {{12, BLUE}, {13, RED}, {17, BLUE}, {18, RED}, {30, BLUE}, {12, RED}};
    int row = 0;
    for (const auto& [type, side] : kinds) {
        P[++row].PTYPE = type;
        P[row].PSIDE = side;
        Erase_Graphic(row);
        EXPECT_EQ(P[row].PTYPE, 0);
    }
    EXPECT_EQ(BNAI, 1);
    EXPECT_EQ(RTAI, 1);
    EXPECT_EQ(BSEAD, 1);
    EXPECT_EQ(RCFFZ, 1);
    EXPECT_EQ(RNAI, 0);   // never below 0
}

TEST(Removal, ADeletedTargetGivesItsBatteryAMissionBack)
{
    Board board(10, 10);
    const int gun = board.Place(BLUE, 15, 15, 8);
    UNIT[gun].FIREMISSION = 1;
    for (const int type : {1, 3}) {
        TG[5].TGTYPE = type;
        TG[5].FUNIT = gun;
        Delete_Target(5);
        EXPECT_EQ(UNIT[gun].FIREMISSION, 0) << type;   // an air strike lowers nothing, and 0 stays 0
        EXPECT_EQ(TG[5].TGTYPE, 0);
    }
    TG[6].TGTYPE = 1;
    TG[6].FUNIT = 0;
    Delete_Target(6);   // a row without a battery
    EXPECT_EQ(TG[6].TGTYPE, 0);
}

TEST(Tables, AnIndexOutsideTheTableIsARangeFailure)
{
    for (const int i : {0, -1, 601}) {
        try {
            UNIT[i].X = 1;
            FAIL() << i;
        } catch (const Game_Error& error) {
            EXPECT_EQ(error.NUMBER, ERROR_RANGE);
        }
    }
    EXPECT_EQ(Free_Unit_Row(RED), 301);
}

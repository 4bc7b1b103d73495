#include "core/dice.h"
#include "support/board.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

TEST(Dice, ThePositionWalksTheTableAndComesRound)
{
    Board board(2, 2);
    RSEED = 100;
    EXPECT_EQ(Roll_Dice(SITE_MORALE), 82);
    EXPECT_EQ(Row(RSEED, DiceSite), Row(1, 1));
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
    const int bearings[][3] = {{50, 10, 0},                                   // north
                               {60, 40, 45},                                  // atan 1 x 180 / 3.14159 = 45.00004
                               {60, 50, 95},                                  // dy counts as 1: 180 - 84.29
                               {50, 90, 180}, {40, 60, 225}, {40, 40, 314},   // 360 - 45.00004
                               {50, 50, 180}};                                // the same point
    for (const auto& [x, y, bearing] : bearings) EXPECT_EQ(Bearing_To(50, 50, x, y), bearing) << x << " " << y;
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
    EXPECT_EQ(Row(Distance_Between(0, 0, 3, 4), Distance_Between(0, 0, 1, 1)), Row(5, 1));
    EXPECT_EQ(Distance_Between(0, 0, 2, 3), 4);      // 3.61
    EXPECT_EQ(Distance_Truncated(0, 0, 2, 3), 3);
    EXPECT_THROW(Distance_Between(-20000, 0, 20000, 0), Game_Error);
}

TEST(Shared, FootprintFollowsEchelonStrengthAndPosture)
{
    Board board(40, 40, 6);
    MAPSCALE = 6.0f;
    const int unit = board.Place(BLUE, 60, 60);
    UNIT_RECORD& u = UNIT[unit];
    const auto footprint = [&](int size, float strength, int operation = 1, int type = 5) {
        u.SIZE = size;
        u.STRENGTH = strength;
        u.TACOPN = operation;
        u.TYPE = type;
        Set_Footprint(unit);
        return static_cast<float>(u.FOOTPRINT);
    };
    EXPECT_EQ(footprint(0, 50), 6);          // a squad covers a kilometre, whatever its strength
    EXPECT_EQ(footprint(1, 50), 12);         // a platoon two
    EXPECT_EQ(footprint(2, 75), 18);         // a company 4 x 6 x 0.75
    EXPECT_EQ(footprint(2, 25), 12);         // and at least two
    EXPECT_EQ(footprint(3, 75), 36);         // 8
    EXPECT_EQ(footprint(3, 50), 30);         // at least 5
    EXPECT_EQ(footprint(4, 75), 67.5f);      // 15
    EXPECT_EQ(footprint(4, 50), 60);         // at least 10
    EXPECT_EQ(footprint(5, 75), 112.5f);     // 25
    EXPECT_EQ(footprint(5, 50), 90);         // at least 15
    EXPECT_EQ(footprint(5, 50, 1, 18), 6);   // a headquarters is a kilometre wide
    EXPECT_EQ(footprint(3, 75, 0), 18);      // an attack is half as wide,
    EXPECT_EQ(footprint(0, 75, 0), 6);       // but never below a kilometre
    u.FOOTPRINT = 20;
    EXPECT_EQ(footprint(100, 75), 20);       // a convoy keeps its own
    u.LX = 9;
    footprint(3, 100, 3);
    EXPECT_EQ(u.LX, 9);
    footprint(3, 100, 1);
    EXPECT_EQ(u.LX, 0);                      // only a screen has a line
    HEXWIDTH = 3;
    MAPSCALE = 2.51f;
    EXPECT_EQ(footprint(1, 100), 27);        // small maps: at least 27 pixels
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
    EXPECT_EQ(Row(UNIT[u].C2T, UNIT[hq].C2T), Row(1, 1));
    EXPECT_TRUE(board.SCREEN.Heard("status", "B2: hello"));
    UNIT[hq].STATUS = 0;   // a lost headquarters receives nothing
    Post_Own(u, "again", 0);
    EXPECT_EQ(UNIT[hq].C2T, 1);
    Clear_Sitrep();
    EXPECT_EQ(Row(SitrepCount, SITREPLIST[1].UNIT), Row(0, 0));
}

TEST(Messages, TheStatusLineKeepsWhatIsMeantForTheEnemyToItselfAndEverySeatWaitsAsLong)
{
    Board board(10, 10);
    const int blue = board.Place(BLUE, 15, 15), red = board.Place(RED, 25, 25);
    PlanSide = UserSide = BLUE;
    board.SCREEN.RECORDING = true;
    Post_Own(red, "red word", 1);
    Post_Own(blue, "blue word", 1);
    Post_At(red, "word for both", 1, BOTH);
    EXPECT_FALSE(board.SCREEN.Heard("status", "red word"));
    EXPECT_TRUE(board.SCREEN.Heard("status", "blue word"));
    EXPECT_TRUE(board.SCREEN.Heard("status", "word for both"));
    EXPECT_EQ(board.SCREEN.Count("delay", ""), 3);
    EXPECT_EQ(SitrepCount, 3);
    PlanSide = UserSide = BOTH;   // two players before one screen watch together
    Post_Own(red, "red word", 1);
    EXPECT_TRUE(board.SCREEN.Heard("status", "red word"));
}

TEST(Removal, ARemovedUnitFreesItsRowAndItsNodesButOthersKeepTheirReferences)
{
    Board board(10, 10);
    const int a = board.Place(RED, 15, 15), b = board.Place(RED, 25, 25);
    UNIT[b].HIGHERHQ = UNIT[b].PASSENGER = a;
    MN[301].MNUNIT = a;
    MN[302].MNUNIT = b;
    Remove_Unit(a);
    EXPECT_EQ(Row(UNIT[a].STATUS, UNIT[a].X, UNIT[a].Y, UNIT[b].PASSENGER), Row(0, 4000, 4000, 0));
    EXPECT_EQ(UNIT[a].RCP, 0.0f);
    EXPECT_EQ(Row(MN[301].MNUNIT, MN[302].MNUNIT, UNIT[b].HIGHERHQ), Row(0, b, a));
}

TEST(Removal, ALiftUnitThatLosesItsRoutePutsItsPassengerDownShaken)
{
    Board board(10, 10);
    const int lift = board.Place(BLUE, 45, 45, 12), inf = board.Place(BLUE, 0, 0, 19), waiting = board.Place(BLUE, 5, 5);
    UNIT[lift].MOBILITY = 3;
    UNIT[lift].PASSENGER = inf;
    UNIT_RECORD& l = UNIT[lift];
    l.TIMERM = l.SENSORS = l.PZ = l.LZ = l.FREEHUNT = l.DISTANCE_TO_END = l.MOVECOST_TO_END = 9;
    l.MOVEX = l.MOVEY = 9;
    UNIT[inf].CARRIER = UNIT[waiting].CARRIER = lift;
    UNIT[inf].SUPPRESSED = 3;
    Place_Off_Picture(inf);
    EXPECT_EQ(UNIT[inf].HEXNUM, 0);
    Clear_Route(lift);
    EXPECT_EQ(Row(UNIT[inf].X, UNIT[inf].HEXNUM), Row(45, 45));   // column 5, row 5 of 10 rows: 4 x 10 + 5
    EXPECT_EQ(Row(UNIT[inf].SUPPRESSED, UNIT[inf].CARRIER, UNIT[waiting].CARRIER, UNIT[lift].PASSENGER),
              Row(4, 0, 0, 0));
    EXPECT_EQ(l.TIMERM + l.SENSORS + l.PZ + l.LZ + l.FREEHUNT + l.DISTANCE_TO_END + l.MOVECOST_TO_END, 0);
    EXPECT_EQ(l.MOVEX + l.MOVEY, 0);
    UNIT[lift].PASSENGER = inf;
    Place_Off_Picture(inf);
    Clear_Route(lift);
    EXPECT_EQ(UNIT[inf].SUPPRESSED, 4);    // no more than that
}

TEST(Removal, AnErasedControlMeasureLowersItsSidesCountAndADrawingNone)
{
    Board board(10, 10);
    BNAI = RTAI = BSEAD = RCFFZ = 2;
    const int kinds[][2] = {{12, BLUE}, {13, RED}, {17, BLUE}, {18, RED}, {30, BLUE}, {12, RED}};
    int row = 0;
    for (const auto& [type, side] : kinds) {
        P[++row] = {.PTYPE = type, .PSIDE = side};
        Erase_Graphic(row);
        EXPECT_EQ(P[row].PTYPE, 0);
    }
    EXPECT_EQ(Row(BNAI, RTAI, BSEAD, RCFFZ, RNAI), Row(1, 1, 1, 1, 0));   // never below 0
    P[2].LINKEDGRAPHIC = 1;
    P[2].LINKEDUNIT = P[3].LINKEDUNIT = 5;
    Erase_Graphic(1);
    EXPECT_EQ(Row(P[2].LINKEDUNIT, P[3].LINKEDUNIT), Row(0, 5));
    NBC[4] = {.NBCHEX = 7, .NBCTYPE = 11};
    HEXMAP[7].TCONTAM = 1;
    Remove_NBC(4);
    EXPECT_EQ(Row(HEXMAP[7].TCONTAM, NBC[4].NBCTYPE), Row(0, 0));
    NBC[4].NBCHEX = 101;   // beside the grid
    Remove_NBC(4);
    EXPECT_EQ(NBC[4].NBCHEX, 0);
}

TEST(Removal, ADeletedTargetGivesItsBatteryAMissionBack)
{
    Board board(10, 10);
    const int gun = board.Place(BLUE, 15, 15, 8);
    UNIT[gun].FIREMISSION = 4;
    // An air strike lowers nothing, and nothing goes below 0.
    for (const auto& [type, left] : {std::pair(1, 3), {3, 3}, {21, 2}, {150, 1}, {152, 0}, {151, 0}}) {
        TG[5] = {.FUNIT = gun, .TGTYPE = type};
        Delete_Target(5);
        EXPECT_EQ(UNIT[gun].FIREMISSION, left) << type;
        EXPECT_EQ(TG[5].TGTYPE, 0);
    }
    TG[6] = {.TGTYPE = 1};
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

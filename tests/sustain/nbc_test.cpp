#include "sustain/nbc.h"

#include "core/invariants.h"
#include "core/unit_reset.h"
#include "support/board.h"
#include "support/fields.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// A board of 400 x 400 pixels, 10 to the kilometre; the wind blows from the north unless told.
struct Field {
    Board BOARD{40, 40};
    Field() { WINDD = 0; }

    /// A strike of the target row's kind.
    void Strike(int type, int x, int y, int side = RED)
    {
        TG[5].TGTYPE = type;
        TG[5].TGSIDE = side;
        Add_Contamination(5, x, y);
    }
    /// A unit of 100 points, 20 pixels wide, at MOPP 0.
    int Unit_At(int x, int y, int side = BLUE)
    {
        const int u = BOARD.Place(side, x, y, 5, 100.0f);
        UNIT[u].FOOTPRINT = 20;
        return u;
    }
};

/// Loss of a fresh unit of 100 points to an agent, with one state changed.
float Loss(int type, std::string_view state)
{
    Field f;
    const int u = f.Unit_At(200, 200);
    Give(UNIT[u], state);
    NBC_Loss(u, type);
    return BNBCL;
}

}   // namespace

TEST(NBC, AStrikeMakesOneRowForTheTurnsItLasts)
{
    Field f;
    GTURN = 3;
    f.Strike(11, 105, 205);
    f.Strike(21, 305, 205, BLUE);
    EXPECT_TRUE(Has(NBC[1], "NBCTYPE 11, NBCSTIME 4, NBCSIDE RED, NBCVISIBLE 1, NBCORDER 1"));
    EXPECT_TRUE(Has(NBC[1], "NBCSIZE 20, NBCHEX 421"));   // two kilometres; column 11, row 21: 10 x 40 + 21
    EXPECT_TRUE(Has(NBC[2], "NBCSTIME 15, NBCSIDE BLUE"));
    Board small(10, 10, 9);
    TG[5].TGTYPE = 11;
    Add_Contamination(5, 5, 5);
    EXPECT_EQ(NBC[1].NBCSIZE, 9);   // small cells: never wider
    for (int row = 1; row <= MAX_NBC; ++row) NBC[row].NBCTYPE = 20;
    Add_Contamination(5, 5, 5);   // no row: nothing, and nobody says so
    EXPECT_TRUE(Messages().empty());
}

TEST(NBC, AgentsReachHalfTheirWidthAndHalfTheFootprint)
{
    Field f;
    const int inside = f.Unit_At(219, 200), outside = f.Unit_At(180, 200), red = f.Unit_At(200, 200, RED);
    f.Strike(11, 200, 200);   // 10 + 10 = 20: 19 is inside, 20 is not
    EXPECT_EQ(UNIT[inside].MOPP, 4);
    EXPECT_EQ(UNIT[outside].MOPP, 0);
    EXPECT_EQ(UNIT[red].MOPP, 4);   // the wind knows no sides
    EXPECT_FLOAT_EQ(BNBCL, 5.0f);   // 100 x 0.1 x footprint 0.5
    EXPECT_FLOAT_EQ(RNBCL, 5.0f);
    EXPECT_FLOAT_EQ(UNIT[inside].RCP2, 95.0f);
    EXPECT_TRUE(Posted("B1NBC Losses:  lost 5% destroyed"));
    EXPECT_EQ(SITREPLIST[1].SIDE, BOTH);
}

TEST(NBC, EachStateOfTheUnitHasItsFactor)
{
    // 100 x 0.1 x footprint 0.5 = 5, times the factor of the state.
    struct CASE {
        const char* STATE;
        float LOSS;
    };
    // clang-format off
    const CASE cases[] = {
        {"MORALE 0", 6.5f}, {"MORALE 1", 6.0f}, {"MORALE 2", 5.0f}, {"MORALE 3", 4.5f}, {"MORALE 4", 4.0f},
        {"FATIGUE 1", 4.5f}, {"FATIGUE 2", 5.0f}, {"FATIGUE 15", 5.0f}, {"FATIGUE 16", 5.5f}, {"FATIGUE 21", 5.5f},
        {"FATIGUE 22", 6.5f},
        {"TERTYPE 0", 5.0f}, {"TERTYPE 1", 4.5f}, {"TERTYPE 2", 4.0f}, {"TERTYPE 3", 6.0f}, {"TERTYPE 4", 4.0f},
        {"TERTYPE 5", 6.0f}, {"TERTYPE 6", 4.0f}, {"TERTYPE 7", 6.0f}, {"TERTYPE 10", 5.0f}, {"TERTYPE 11", 7.0f},
        {"TERTYPE 18", 7.0f}, {"TERTYPE 21", 2.5f}, {"TERTYPE 27", 2.5f}, {"TERTYPE 31", 5.0f},
        {"FOOTPRINT 0", 10}, {"FOOTPRINT 2", 10}, {"FOOTPRINT 2.5", 5}, {"FOOTPRINT 3", 8}, {"FOOTPRINT 5", 8},
        {"FOOTPRINT 5.5", 5},
        // At least a hundredth, and never more than the unit has.
        {"RCP2 0.1", 0.01f}, {"RCP2 0.005", 0.005f}, {"RCP2 0", 0},
        // Protection saves nine tenths from a cloud.
        {"MOPP 2", 5}, {"MOPP 3", 0.5f}, {"MOPP 4", 0.5f},
    };
    // clang-format on
    for (const CASE& c : cases) EXPECT_FLOAT_EQ(Loss(11, c.STATE), c.LOSS) << c.STATE;
    // Of a persistent agent twice as much, and protection saves three quarters.
    EXPECT_FLOAT_EQ(Loss(21, "MOPP 0"), 10.0f);
    EXPECT_FLOAT_EQ(Loss(21, "MOPP 4"), 2.5f);
}

TEST(NBC, APersistentAgentClosesItsGroundForTwelveTurns)
{
    Field f;
    GTURN = 3;
    f.Strike(21, 200, 200);
    const int u = f.Unit_At(200, 210);
    for (GTURN = 4; GTURN <= 14; GTURN += 1) {
        Give(UNIT[u], "RCP2 100, STRENGTH 100, STATUS 2");
        BNBCL = 0;
        NBC_Phase();
        EXPECT_GT(BNBCL, 0.0f) << GTURN;
    }
    EXPECT_TRUE(Posted("B1: We are inside a contaminated area!"));
    BNBCL = 0;
    NBC_Phase();   // turn 15
    EXPECT_EQ(BNBCL, 0.0f);
    EXPECT_EQ(NBC[1].NBCTYPE, 0);
}

TEST(NBC, ACloudDriftsDownWindAndWidensAtItsFourDrifts)
{
    Field f;
    GTURN = 3;
    WINDD = 7;   // from the north-west: 10 x 1.5 pixels east and south at a drift
    f.Strike(11, 100, 100);
    const int on_the_way = f.Unit_At(160, 160);
    // 20 x 2/2, x 3/2, x 4/2, x 5/2
    const char* after[] = {
        "NBCX 115, NBCY 115, NBCSIZE 20, NBCORDER 2", "NBCX 130, NBCY 130, NBCSIZE 30, NBCORDER 3",
        "NBCX 145, NBCY 145, NBCSIZE 60, NBCORDER 4", "NBCX 160, NBCY 160, NBCSIZE 150, NBCORDER 5"};
    for (int drift = 0; drift < 4; ++drift) {
        NBC_Drift(1);
        EXPECT_TRUE(Has(NBC[1], after[drift]));
        // At the third drift the unit is 21 pixels off the centre of a cloud 60 wide.
        EXPECT_EQ(UNIT[on_the_way].MOPP, drift < 2 ? 0 : 4) << drift;
    }
    EXPECT_EQ(NBC[1].NBCHEX, 16 * 40 + 17);
    GTURN = 4;   // its last turn
    NBC_Drift(1);
    EXPECT_TRUE(Has(NBC[1], "NBCX 175, NBCSIZE 450"));   // NBCSIZE: 150 x 6/2
    GTURN = 5;                                           // past it
    NBC_Drift(1);
    EXPECT_EQ(NBC[1].NBCTYPE, 0);
}

TEST(NBC, TheWindIsNamedForWhereItComesFrom)
{
    const Point after[] = {{200, 215}, {185, 215}, {185, 200}, {185, 185},
                           {200, 185}, {215, 185}, {215, 200}, {215, 215}};
    for (int wind = -1; wind <= 8; ++wind) {
        Field f;
        WINDD = wind;
        f.Strike(11, 200, 200);
        NBC_Drift(1);
        const Point expected = wind >= 0 && wind <= 7 ? after[wind] : Point{200, 200};
        EXPECT_EQ(NBC[1].NBCX, expected.X) << wind;
        EXPECT_EQ(NBC[1].NBCY, expected.Y) << wind;
    }
}

TEST(NBC, InQuarterHourTurnsACloudEndsAtTheCheckSinceNoSliceMovesIt)
{
    for (const int length : {0, 2}) {
        Field f;
        TurnLength = length;
        GTURN = 3;
        f.Strike(11, 100, 100);
        for (GTURN = 4; GTURN <= 5; GTURN += 1) NBC_Phase();
        EXPECT_EQ(NBC[1].NBCTYPE, length == 2 ? 0 : 11);
    }
}

TEST(NBC, ACloudThatLeavesThePictureGoesOn)
{
    Field f;
    f.Strike(11, 200, 392);
    NBC_Drift(1);
    EXPECT_TRUE(Has(NBC[1], "NBCY 407, NBCHEX 0"));
    Remove_NBC(1);
    EXPECT_EQ(NBC[1].NBCTYPE, 0);
    EXPECT_TRUE(Broken_Invariants().empty());
}

TEST(Smoke, AGeneratorLaysALineOfFourGrowingPatches)
{
    Field f;
    WINDD = 6;   // from the west
    const int u = f.Unit_At(100, 200);
    Lay_Smoke(u);
    // 20 x 2/2, 3/2, 4/2, 5/2
    const char* patches[] = {"NBCX 100, NBCSIZE 20", "NBCX 115, NBCSIZE 30", "NBCX 130, NBCSIZE 40",
                             "NBCX 145, NBCSIZE 50"};
    for (int k = 0; k < 4; ++k) {
        EXPECT_TRUE(Has(NBC[k + 1], patches[k]));
        EXPECT_TRUE(Has(NBC[k + 1], "NBCTYPE 20, NBCY 200, NBCSIDE BLUE, NBCVISIBLE 0"));
    }
    EXPECT_EQ(NBC[5].NBCTYPE, 0);
    EXPECT_TRUE(Has(UNIT[u], "OBSCURED 1, MOPP 0"));   // MOPP: smoke is no agent

    for (int row = 1; row <= MAX_NBC; ++row) NBC[row].NBCTYPE = row == 9 || row == 30 ? 0 : 21;
    Lay_Smoke(u);   // two rows left: the line ends after two
    EXPECT_EQ(NBC[9].NBCSIZE, 20);
    EXPECT_EQ(NBC[30].NBCSIZE, 30);
}

TEST(Smoke, ObscuresToHalfItsWidthAndTenPixelsMore)
{
    Field f;
    WINDD = 9;   // no wind: four patches on one spot, the widest 50
    const int generator = f.Unit_At(100, 200);
    const int inside = f.Unit_At(134, 200, RED), outside = f.Unit_At(135, 200, RED);
    Lay_Smoke(generator);
    EXPECT_EQ(UNIT[inside].OBSCURED, 1);   // 34 is below 25 + 10
    EXPECT_EQ(UNIT[outside].OBSCURED, 0);
    EXPECT_TRUE(Posted("R301: Now inside smoke screen!"));
    EXPECT_FALSE(Posted("R302"));
}

TEST(Smoke, LastsATurnAndComesFromSuppliedGeneratorsThatAreSwitchedOn)
{
    struct CASE {
        const char* STATE;
        bool LAYS;
    };
    for (const CASE& c :
         {CASE{"TYPE 22, LOGSTATN 50, SMOKE 1", true}, CASE{"TYPE 22, LOGSTATN 0, SMOKE 1", false},
          CASE{"TYPE 22, LOGSTATN 50, SMOKE 0", false}, CASE{"TYPE 5, LOGSTATN 50, SMOKE 1", false}}) {
        Field f;
        const int u = f.Unit_At(100, 200);
        Give(UNIT[u], c.STATE);
        Give(NBC[7], "NBCTYPE 20, NBCX 300");   // NBCTYPE: last turn's
        Reset_Units();
        EXPECT_EQ(NBC[7].NBCTYPE, 0);
        EXPECT_EQ(NBC[4].NBCTYPE, c.LAYS ? 20 : 0);
        EXPECT_EQ(UNIT[u].OBSCURED, c.LAYS ? 1 : 0);
    }
}

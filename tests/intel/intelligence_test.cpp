#include "core/state_hash.h"
#include "intel/intelligence.h"
#include "support/board.h"
#include "support/dice.h"
#include "support/fields.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

void Put_Area(int row, int type, int side, int x, int y, int page)
{
    P[row].PTYPE = type;
    P[row].PSIDE = side;
    P[row].PX1 = x;
    P[row].PY1 = y;
    P[row].PAGE = page;
}

/// SPOTTED of a Red unit so many pixels from a Blue NAI, after one update on turn 5.
int Seen_At(int pixels, int page = 2, int intelplay = 0)
{
    Board board(30, 10);
    GTURN = 5;
    INTELPLAY = intelplay;
    const int u = board.Place(RED, 100 + pixels, 50);
    Put_Area(7, 12, BLUE, 100, 50, page);
    RSEED = 0;   // 82: the watchers live
    Intelligence_Update();
    return UNIT[u].SPOTTED;
}

}   // namespace

TEST(Picture, ASensorsContactShowsForTwoTurnsAndAnyOtherForOne)
{
    Board board(10, 10);
    const int by_sensor = board.Place(RED, 15, 15), by_fire = board.Place(RED, 25, 25),
              thrice = board.Place(RED, 35, 35);
    Give(UNIT[by_sensor], "SPOTTED 2, VISIBLE -1");
    Give(UNIT[by_fire], "SPOTTED 1, VISIBLE -1");
    UNIT[thrice].SPOTTED = 9;
    Intelligence_Update();
    EXPECT_TRUE(Has(UNIT[by_sensor], "SPOTTED 1, VISIBLE -1"));
    EXPECT_TRUE(Has(UNIT[by_fire], "SPOTTED 0, VISIBLE 0"));
    EXPECT_EQ(UNIT[thrice].SPOTTED, 1);
    Intelligence_Update();
    EXPECT_TRUE(Has(UNIT[by_sensor], "SPOTTED 0, VISIBLE 0"));
}

TEST(NAI, SeesEnemiesToFortyPixelsOnceItIsActive)
{
    EXPECT_EQ(Seen_At(40), 1);
    EXPECT_EQ(Seen_At(41), 0);
    EXPECT_EQ(Seen_At(30, 1), 0);      // placed this turn: not yet active
    EXPECT_EQ(Seen_At(30, 2, 1), 0);   // intelligence play off
    Board board(30, 10);
    GTURN = 1;
    const int u = board.Place(RED, 110, 50), own = board.Place(BLUE, 110, 60), loc = board.Place(RED, 110, 50, 50);
    Put_Area(7, 12, BLUE, 100, 50, 0);
    RSEED = 20;
    Intelligence_Update();
    EXPECT_EQ(UNIT[u].SPOTTED, 1);   // on turn 1 every area is active
    EXPECT_EQ(UNIT[own].SPOTTED, 0);
    EXPECT_EQ(UNIT[loc].SPOTTED, 0);
    EXPECT_EQ(RSEED, 21);   // one roll, for the one unit inside
}

TEST(NAI, HelicoptersThatWaitOnAnAreaLaunchEvenAsItsWatchersDie)
{
    Board board(30, 10);
    GTURN = 5;
    BNAI = 1;
    const int tanks = board.Place(RED, 100, 50);
    const int ready = board.Place(BLUE, 200, 50, 11), stranded = board.Place(BLUE, 210, 50, 11);
    Give(UNIT[ready], "MOBILITY 3, MOVESTATUS 7, NAI 7, HPTL2 5, NUMBER_OF_NODES 1");
    Give(UNIT[stranded], "MOBILITY 3, MOVESTATUS 7, NAI 7, HPTL2 5");
    UNIT[tanks].TACOPN = 11;
    Put_Area(7, 12, BLUE, 100, 50, 2);
    Roll_Next(5);
    Intelligence_Update();
    EXPECT_EQ(P[7].PTYPE, 0);
    EXPECT_EQ(BNAI, 0);   // another may be placed
    EXPECT_EQ(UNIT[ready].MOVESTATUS, 9);
    EXPECT_EQ(UNIT[stranded].MOVESTATUS, 0);
    EXPECT_TRUE(Posted("Failed AH mission; B2 did not have a flight route!"));
}

TEST(TAI, LinkedGunsFireAtASpottedUnitOfTheirClassAndOnlyOnce)
{
    Board board(30, 10);
    GTURN = 5;
    const int tanks = board.Place(RED, 100, 50), more = board.Place(RED, 110, 50),
              guns = board.Place(BLUE, 250, 50, 8);
    for (const int u : {tanks, more}) UNIT[u].SPOTTED = 2;
    Give(UNIT[guns], "MXRANGE 30, FIREMISSION 2");
    Put_Area(7, 13, BLUE, 100, 50, 2);
    for (const int t : {1, 2}) {
        Give(TG[t], "TGTYPE 1, TGSIDE BLUE, TGRAPHIC 7");
        TG[t].TGHPT = t == 1 ? 5 : 8;
        TG[t].FUNIT = guns;
    }
    Intelligence_Update();
    EXPECT_EQ(TG[1].TGTYPE, 0);
    EXPECT_EQ(TG[2].TGTYPE, 1);   // waits for engineers
    EXPECT_LT(UNIT[tanks].RCP2, 10.0f);
    EXPECT_EQ(CurGraphic, 0);
}

TEST(NAI, APostureWithoutAChanceTakesThatOfTheUnitTestedBefore)
{
    Board board(30, 10);
    GTURN = 5;
    const int attacker = board.Place(RED, 100, 50), other = board.Place(RED, 100, 60);
    board.Place(RED, 110, 60);   // attacks too, tested last
    Put_Area(7, 12, BLUE, 100, 50, 2);
    Put_Area(8, 12, BLUE, 100, 50, 2);
    UNIT[other].TACOPN = 11;
    RSEED = 8;   // to come: 60, 5, 5, 50, 51
    Intelligence_Update();
    // The attacker has 0: 60 and 5 miss both areas. Deliberate defence has 5: 5 kills NAI 7, 50 misses 8. The last
    // unit keeps the 5 and meets only NAI 8: 51 misses.
    EXPECT_EQ(P[7].PTYPE, 0);
    EXPECT_EQ(P[8].PTYPE, 12);
    EXPECT_EQ(RSEED, 13);
    EXPECT_TRUE(Posted("Red forces destroy a Blue NAI!"));
    EXPECT_TRUE(Has(SITREPLIST[1], "UNIT 0, SIDE BOTH, X 100"));

    UNIT[other].TACOPN = 3;
    RSEED = 56;   // to come: 83, 21, 3
    Intelligence_Update();
    EXPECT_EQ(P[8].PTYPE, 0);   // 21 is above security's 3; the last unit keeps it, and 3 is not above it

    Put_Area(8, 12, BLUE, 100, 50, 2);
    UNIT[other].TACOPN = 0;
    RSEED = 65;   // to come: 1, 30, 84
    Intelligence_Update();
    EXPECT_EQ(P[8].PTYPE, 12);   // a new turn starts at 0: 1 is above it
    UNIT[attacker].TACOPN = 1;
    RSEED = 65;
    Intelligence_Update();
    EXPECT_EQ(P[8].PTYPE, 0);   // hasty defence has 1
}

TEST(Picture, SeatsOfOneGameDifferInPicturesAndNowhereElse)
{
    struct SEAT_CASE {
        int USER, VIEW;
        bool BLUE_SHOWN, FOUND_RED_SHOWN, HIDDEN_RED_SHOWN;
    };
    constexpr SEAT_CASE CASES[] = {
        {3, 0, true, true, true},   // both players at one screen
        {1, 0, true, true, false},
        {2, 0, false, true, true},
        {2, 1, true, true, false},   // Red's seat looks at Blue's picture
    };
    std::uint64_t first = 0;
    for (const SEAT_CASE& c : CASES) {
        Board board(30, 10);
        GTURN = 5;
        const int blue = board.Place(BLUE, 100, 50), red = board.Place(RED, 110, 50),
                  hidden = board.Place(RED, 250, 50);
        UNIT[red].SPOTTED = 2;
        Put_Area(7, 12, BLUE, 100, 50, 2);
        UserSide = PlanSide = c.USER;
        ViewMode = c.VIEW;
        Intelligence_Update();
        if (first == 0) first = State_Hash();
        EXPECT_EQ(State_Hash(), first) << c.USER << c.VIEW;
        EXPECT_EQ(SEAT.PICTURE[blue], c.BLUE_SHOWN) << c.USER << c.VIEW;
        EXPECT_EQ(SEAT.PICTURE[red], c.FOUND_RED_SHOWN) << c.USER << c.VIEW;
        EXPECT_EQ(SEAT.PICTURE[hidden], c.HIDDEN_RED_SHOWN) << c.USER << c.VIEW;
    }
}

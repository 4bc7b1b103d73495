#include "combat/air_defence.h"
#include "combat/helicopters.h"
#include "support/cases.h"
#include "support/fires.h"

using namespace sm;
using namespace sm::test;

namespace {

/// An air defence battery of 2 points in good order: rested 1.1, high morale 1.1, lightly suppressed 0.9 = 1.089.
int Place_Air_Defence(Board& board, int side, int x, int y)
{
    const int sam = board.Place(side, x, y, 1, 2.0f);
    Give(UNIT[sam], "MXRANGE 4, MORALE 3, FATIGUE 0, SUPPRESSED 1");
    return sam;
}

}   // namespace

TEST(AirDefenceFire, PowerIsTenfoldForAirDefenceTwofoldByDayAndSmallForSmallArms)
{
    const auto power = [](const char* time_of_day, const char* arranged) {
        Board board(60, 60);
        TIME_OF_DAY = time_of_day;
        const int sam = Place_Air_Defence(board, RED, 50, 50);
        Arrange(sam, 0, arranged);
        return ADA_Fire(100, sam, 0, 150, 50, 2, 0).POWER;
    };
    EXPECT_FLOAT_EQ(power("Night", ""), 21.78f);   // 1.089 x 2 x 10
    EXPECT_FLOAT_EQ(power("Day", ""), 43.56f);
    EXPECT_FLOAT_EQ(power("Day", "f.EWSTATUS 5"), 43.56f * 0.66f);
    EXPECT_FLOAT_EQ(power("Day", "f.MORALE 0, f.FATIGUE 16, f.SUPPRESSED 4"), 5.76f);   // 0.3 x 0.8 x 0.6 of 40
    Board board(60, 60);
    const int tanks = board.Place(RED, 50, 50);
    UNIT[tanks].MORALE = 0;   // does not matter for small arms
    const int slot = Place_Mission(BLUE, 4, 50, 50, 0, 5, 3);
    EXPECT_FLOAT_EQ(ADA_Fire(0, tanks, 0, 50, 50, 1, slot).POWER, 16.0f);   // 10 x 0.2 x 4 x 2
    EXPECT_FLOAT_EQ(ADA_Fire(0, tanks, 0, 50, 50, 2, 0).POWER, 4.0f);       // 10 x 0.2 x 2
}

TEST(AirDefenceFire, DistanceWeighsOnlyFarBeyondAnyRangeAndARangeOfNoneIsOne)
{
    Board board(60, 60);
    const int sam = board.Place(RED, 50, 50, 2, 1.0f);
    UNIT[sam].MXRANGE = 0;
    // 33.49 kilometres round to 33
    for (const auto& [distance, power] :
         CASES<int, float>{{3349, 20}, {3360, 15}, {6640, 15}, {6700, 10}, {10000, 10}, {10100, 20}}) {
        UNIT[sam].FATIGUE = 2;
        EXPECT_FLOAT_EQ(ADA_Fire(distance, sam, 0, 150, 50, 2, 0).POWER, power) << distance;
        EXPECT_EQ(UNIT[sam].MXRANGE, 1);
    }
}

TEST(AirDefenceFire, AUnitThatCannotFireRollsNothing)
{
    for (const char* arranged : {"f.TACOPN -1", "f.STATUS 1"}) {
        Board board(60, 60);
        const int sam = Place_Air_Defence(board, RED, 50, 50);
        Arrange(sam, 0, arranged);
        EXPECT_FALSE(ADA_Fire(10, sam, 0, 150, 50, 2, 0).FIRED);
        EXPECT_EQ(RSEED, 0);
        EXPECT_EQ(UNIT[sam].FATIGUE, 0);
        Arrange(sam, 0, "f.TACOPN 0, f.STATUS 2");
        EXPECT_TRUE(ADA_Fire(10, sam, 0, 150, 50, 2, 0).FIRED);
        EXPECT_EQ(UNIT[sam].FATIGUE, 1);
    }
}

TEST(AirDefenceFire, AFlyerLosesAThirdAtMostAnEighthOfThePowerOnSecurityATenthWhenAborting)
{
    Board board(60, 60);
    const int sam = Place_Air_Defence(board, RED, 50, 50);
    const auto loss = [&](float rcp, int operation, int posture) {
        BADAL = 0;
        UNIT[sam].FATIGUE = 0;
        const int flyer = Place_In_The_Air(board, BLUE, 150, 50, 11, rcp);
        UNIT[flyer].TACOPN = operation;
        UNIT[flyer].MOVESTATUS = posture;
        EXPECT_EQ(ADA_Fire(100, sam, flyer, 150, 50, 3, 0).ROLL, 0);   // with power no lucky hit is asked for
        return static_cast<float>(BADAL);
    };
    EXPECT_FLOAT_EQ(loss(1000, 0, 9), 43.56f);
    EXPECT_TRUE(Posted("ADA BDA: B1 lost 4%"));
    EXPECT_EQ(Messages().size(), 2u);   // to all, and as the unit's own report
    EXPECT_EQ(SITREPLIST[2].SIDE, BLUE);
    EXPECT_FLOAT_EQ(loss(1000, 3, 9), 5.445f);
    EXPECT_TRUE(Posted("ADA BDA: B2 lost less than 1%"));
    EXPECT_FLOAT_EQ(loss(9, 0, 9), 3.0f);
    EXPECT_FLOAT_EQ(loss(9, 0, 10), 0.3f);
}

TEST(AirDefenceFire, WithoutAnyPowerAFifthOfTheShotsTouch)
{
    Board board(60, 60);
    const int sam = Place_Air_Defence(board, RED, 50, 50);
    UNIT[sam].RCP2 = 0;
    const int flyer = Place_In_The_Air(board, BLUE, 150, 50, 11, 10.0f);
    Roll_Next(19);
    EXPECT_EQ(ADA_Fire(100, sam, flyer, 150, 50, 3, 0).ROLL, 19);
    EXPECT_FLOAT_EQ(BADAL, 0.1f);
    Roll_Next(21);
    ADA_Fire(100, sam, flyer, 150, 50, 3, 0);
    EXPECT_FLOAT_EQ(BADAL, 0.1f);
    EXPECT_FLOAT_EQ(UNIT[sam].RSF2, 2.85f);   // two shots at 0.05, halved, of 3
}

TEST(AirDefence, AStrikeIsDisruptedWhenTheRollAndItsSortiesAreWithinThePower)
{
    // power 43.56: 35 + 2 x 4 = 43, 45, and (10 + 8) x 3 = 54 against bombers
    for (const auto& [roll, kind, disrupted] :
         CASES<int, int, bool>{{35, 4, true}, {37, 4, false}, {10, 3, false}}) {
        Board board(60, 60);
        const int sam = Place_Air_Defence(board, RED, 150, 50);
        const int slot = Place_Mission(BLUE, 3, 150, 50, 0, 11, 2);
        Roll_Next(roll);
        ADA_Engage(0, 0, BLUE, 150, 50, kind, slot);
        EXPECT_EQ(StrikeDisrupted, disrupted ? 1 : 0) << roll;
        EXPECT_FLOAT_EQ(BADAL, disrupted ? 1.0f : 0.0f);
        EXPECT_EQ(Posted("SITREP: ADA disrupts air strike!"), disrupted);
        EXPECT_TRUE(board.SCREEN.Heard("status", "SITREP: R301 engages air strike!"));
        EXPECT_TRUE(Has(UNIT[sam], "SPOTTED 1, FIREMISSIONN 0"));
    }
}

TEST(AirDefence, GroundUnitsUnderAStrikeFireToo)
{
    const CASES<int, int, int, bool, bool> cases = {
        {4, 5, 20, false, true}, {4, 5, 21, false, false}, {4, 5, 60, true, true},   // 4 km and half of 40 pixels
        {4, 5, 61, true, false}, {4, 11, 0, false, false},                           // nobody lives on a bridge
        {3, 5, 0, false, false},                                                     // bombers are too high
    };
    for (const auto& [kind, target_class, distance, attached, engaged] : cases) {
        Board board(60, 60);
        const int tanks = board.Place(RED, 150 + distance, 50);
        if (attached) UNIT[Place_Air_Defence(board, RED, -500, -2000)].PARENT_UNIT = tanks;
        const int slot = Place_Mission(BLUE, kind, 150, 50, 0, target_class, 2);
        ADA_Engage(0, 0, BLUE, 150, 50, kind, slot);
        EXPECT_EQ(UNIT[tanks].SPOTTED == 1, engaged) << kind << ' ' << distance;
    }
}

TEST(SmallArms, WhoSeesALowFlyerFiresAtIt)
{
    Board board(60, 60);
    const int tanks = board.Place(RED, 170, 50, 5, 30.0f);   // 20 pixels
    board.Place(RED, 171, 50);                               // too far
    const int guns = board.Place(RED, 150, 50, 8);
    UNIT[guns].FIREMISSIONN = 3;   // has done its day's work
    const int anti_tank = board.Place(RED, 150, 50, 4);
    const int flyer = Place_In_The_Air(board, BLUE, 150, 50, 12);
    const int sead = Place_Battery(board, BLUE, 50, 50, 2);
    Small_Arms_Fire(flyer);
    EXPECT_EQ(UNIT[tanks].SPOTTED, 1);
    EXPECT_EQ(UNIT[anti_tank].SPOTTED, 0);   // neither air defence nor one of the others
    EXPECT_EQ(UNIT[flyer].SPOTTED, 1);
    EXPECT_TRUE(board.SCREEN.Heard("status", "B1 receives small arms fire from R301"));
    EXPECT_EQ(board.SCREEN.Count("status", "receives small arms fire"), 1);
    EXPECT_NEAR(BADAL, 10.0f / 3, 1e-6);     // some 12 points, a third of 10 at most
    EXPECT_EQ(UNIT[sead].FIREMISSIONN, 1);   // its guns answer for it
    UNIT[flyer].MOVESTATUS = 8;
    Small_Arms_Fire(flyer);   // on station it keeps its head down
    EXPECT_EQ(board.SCREEN.Count("status", "receives small arms fire"), 1);
    UNIT[flyer].MOVESTATUS = 9;
    UNIT[tanks].FIREMISSIONN = 3;
    Place_Air_Defence(board, RED, 150, 70);   // air defence too has 20 pixels only against what flies low
    Place_Air_Defence(board, RED, 150, 71);
    Small_Arms_Fire(flyer);
    EXPECT_EQ(board.SCREEN.Count("status", "receives small arms fire"), 2);
}

TEST(SmallArms, AUAVIsSeenOnceInAHundred)
{
    Board board(60, 60);
    const int tanks = board.Place(RED, 150, 50);
    const int uav = Place_In_The_Air(board, BLUE, 150, 50, 26);
    int seen = 0;
    for (int roll = 0; roll < 100; ++roll) {
        RSEED = roll;
        UNIT[tanks].SPOTTED = 0;
        Small_Arms_Fire(uav);
        EXPECT_GT(RSEED, roll);   // looked for every time
        seen += UNIT[tanks].SPOTTED;
    }
    EXPECT_EQ(seen, 1);
}

TEST(SmallArms, AttachedAirDefenceReachesFarAndAHillHidesTheFlyer)
{
    for (const bool hill : {false, true}) {
        Board board(60, 60);
        const int tanks = board.Place(RED, 205, 55);
        UNIT[Place_Air_Defence(board, RED, -500, -2000)].PARENT_UNIT = tanks;
        const int flyer = Place_In_The_Air(board, BLUE, 155, 55, 12);
        for (int row = 1; row <= 60; ++row) HEXMAP[(18 - 1) * 60 + row].THIGH = hill;   // 30 pixels from the tanks
        Small_Arms_Fire(flyer);
        EXPECT_EQ(UNIT[tanks].SPOTTED, hill ? 0 : 1);
    }
}

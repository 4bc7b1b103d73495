// Fires that set one another off, and what they leave on the map.

#include "combat/air.h"
#include "combat/air_attack.h"
#include "combat/air_defence.h"
#include "combat/artillery.h"
#include "combat/helicopters.h"
#include "combat/loss.h"
#include "manoeuvre/aviation.h"
#include "support/cases.h"
#include "support/fires.h"
#include "terrain/grid.h"

using namespace sm;
using namespace sm::test;

namespace {

int Place_Lift_With_Infantry(Board& board, float infantry_rcp)
{
    const int lift = Place_In_The_Air(board, BLUE, 150, 50, 12, 9.0f);
    const int infantry = board.Place(BLUE, -1000, -1000, 19, infantry_rcp);
    UNIT[infantry].CARRIER = lift;
    UNIT[lift].PASSENGER = infantry;
    return lift;
}

int Place_Strong_Air_Defence(Board& board, int side, int x, int y)
{
    const int sam = board.Place(side, x, y, 1, 50.0f);
    UNIT[sam].MXRANGE = 4;
    return sam;
}

}   // namespace

TEST(Chains, OneHelicopterAttackCanSetOffEverythingAndStillEnds)
{
    Board board(60, 60);
    const int helicopters = Place_In_The_Air(board, BLUE, 150, 60, 11, 21.0f);
    Give(UNIT[helicopters], "MOVESTATUS 8, MXRANGE 5");
    const int sam = Place_Strong_Air_Defence(board, RED, 150, 75);
    int sead[5], counter[5];
    for (int i = 0; i < 5; ++i) {
        sead[i] = Place_Battery(board, BLUE, 50, 50 + i, 2);
        counter[i] = Place_Battery(board, RED, 200, 200 + i, 1);
    }
    Place_Area(RED, 18, 50, 50);
    Place_Area(BLUE, 18, 200, 200);
    BFIREF = RFIREF = 100;
    AH_Search(helicopters, 150, 60);
    EXPECT_TRUE(Posted("AH BDA: "));
    EXPECT_TRUE(Posted("INTREP: Enemy artillery has been located"));
    EXPECT_TRUE(Posted(" fires Counterfire!"));
    EXPECT_TRUE(Posted("ADA BDA: B1"));
    EXPECT_EQ(FireMult, 0);
    EXPECT_EQ(StrikeDisrupted, 0);
    EXPECT_EQ(CurUnit, 0);
    EXPECT_EQ(CurUnit2, 0);
    int fired = 0;
    for (int i = 0; i < 5; ++i) {
        EXPECT_LE(UNIT[sead[i]].FIREMISSIONN, 3);
        EXPECT_LE(UNIT[counter[i]].FIREMISSIONN, 2);
        fired += UNIT[counter[i]].FIREMISSIONN;
    }
    EXPECT_EQ(fired, 10);   // all the counterfire that there is, and no more
    EXPECT_GT(UNIT[sam].STATUS, 0);
}

TEST(Chains, SEADThatSilencesTheBatteryComesBeforeItsShot)
{
    Board board(60, 60);
    const int sam = Place_Strong_Air_Defence(board, RED, 150, 50);
    Give(UNIT[sam], "SIZE 0, SPOTTED 2, RCP2 0.01");   // a lone launcher may be lost at once
    Place_Battery(board, BLUE, 50, 50, 2);
    const int slot = Place_Mission(BLUE, 4, 150, 50, 0, 11, 2);
    ADA_Engage(1, 0, BLUE, 150, 50, 4, slot);
    EXPECT_EQ(UNIT[sam].STATUS, 0);
    EXPECT_EQ(StrikeDisrupted, 0);
    EXPECT_EQ(BADAL, 0);
    EXPECT_TRUE(Posted("R301 is destroyed!"));
}

TEST(Passengers, ShareTheirCarriersLossPercentForPercent)
{
    Board board(60, 60);
    const int sam = board.Place(RED, 150, 60, 1, 0.05f);
    const int lift = Place_Lift_With_Infantry(board, 20.0f);
    // 1 x 0.05 x 10 x 2 by day = 1 of 9 points: 11 %; 11 % of 20 is 2.2
    ADA_Fire(10, sam, lift, 150, 50, 3, 0);
    EXPECT_FLOAT_EQ(UNIT[lift].RCP2, 8.0f);
    EXPECT_NEAR(UNIT[lift + 1].RCP2, 17.8f, 1e-5f);
    EXPECT_TRUE(Posted("ADA BDA: B2 lost 11%"));
}

TEST(Passengers, WhoIsAttachedToOneThatIsLostIsLeftUnderTheAircraft)
{
    Board board(60, 60);
    const int sam = board.Place(RED, 150, 60, 1, 0.05f);
    const int lift = Place_Lift_With_Infantry(board, 20.0f);
    const int engineers = board.Place(BLUE, -500, -1000, 14, 2.0f);
    UNIT[engineers].PARENT_UNIT = lift + 1;
    UNIT[lift + 1].STRENGTH = 11;   // and 11 % is what the aircraft loses
    ADA_Fire(10, sam, lift, 150, 50, 3, 0);
    EXPECT_EQ(UNIT[lift + 1].STATUS, 0);
    EXPECT_EQ(UNIT[lift].PASSENGER, 0);
    EXPECT_TRUE(Has(UNIT[engineers], "PARENT_UNIT 0, X 150"));
    EXPECT_EQ(UNIT[engineers].HEXNUM, UNIT[lift].HEXNUM);
}

TEST(Passengers, FightersHurtThemToo)
{
    Board board(60, 60);
    AIRSUPER = 0;
    const int lift = Place_Lift_With_Infantry(board, 20.0f);
    UNIT[lift].RCP2 = 0.04f;
    RSEED = 9;   // 5 intercepts, 5 / 3 x 0.01 x 3 = 0.05: more than there is
    Air_Interception_Slice();
    EXPECT_EQ(UNIT[lift].STATUS, 0);
    EXPECT_EQ(UNIT[lift + 1].STATUS, 0);
    EXPECT_TRUE(Posted("B1 lost 100%!"));
    EXPECT_TRUE(Posted("B2 is destroyed!"));
    int reports = 0;
    for (const auto& text : Messages()) reports += text == "B1 lost 100%!" ? 1 : 0;
    EXPECT_EQ(reports, 1);   // nobody is left to report again
    EXPECT_EQ(UNIT[lift].X, 4000);
}

TEST(FiresOnTheMap, MinesAndBlownBridgesChangeTheGround)
{
    Board board = Ground_With_Bridge();
    AIRSUPER = 100;
    const int battery = Place_Battery(board, BLUE, 15, 15);
    const int meadow = Hex_Number(55, 25), bridge = Hex_Number(95, 45);
    BG[7].BGHEX = bridge;
    Give(BG[7], "BGTYPE 7, BGSIDE 3");
    Fire_Arty(Place_Mission(BLUE, 5, 55, 25, battery));
    EXPECT_EQ(Cell_Value(meadow), 11);
    EXPECT_TRUE(Has(BG[1], "BGTYPE 8, BGSIDE BLUE, BGVISIBLE 0"));
    EXPECT_EQ(BOBST, 0);   // booked when it was ordered
    RSEED = 9;             // fighters 5, mines 5
    Air_Mission(Place_Mission(BLUE, 4, 75, 25, 0, 12, 2));
    EXPECT_EQ(Cell_Value(Hex_Number(75, 25)), 11);
    RSEED = 9;
    Air_Mission(Place_Mission(BLUE, 3, 95, 45, 0, 11, 2));
    EXPECT_EQ(Cell_Value(bridge), 5);
    EXPECT_EQ(BG[7].BGTYPE, 5);
    EXPECT_TRUE(Posted("Bomber Misson: Bridge is destroyed!"));
}

TEST(FiresOnTheMap, ChemicalRoundsLeaveACloudThatHarmsBothSidesAndTheBatteryToo)
{
    Board board(40, 40);
    const int battery = Place_Battery(board, BLUE, 155, 155);
    const int enemy = board.Place(RED, 175, 155), far = board.Place(RED, 355, 355);
    Fire_Arty(Place_Mission(BLUE, 11, 175, 155, battery));
    EXPECT_TRUE(Posted("NBC MESSAGE: Non-Persistent Strike at No UTM Data"));
    EXPECT_TRUE(Has(NBC[1], "NBCTYPE 11, NBCSIDE BLUE, NBCX 175"));
    EXPECT_LT(UNIT[enemy].RCP2, 10.0f);
    EXPECT_LT(UNIT[battery].RCP2, 20.0f);
    EXPECT_EQ(UNIT[far].RCP2, 10.0f);
    EXPECT_EQ(UNIT[battery].FIREMISSIONN, 0);   // nobody was shelled
    EXPECT_EQ(CurTarget, 0);
    Give(UNIT[battery], "RCP2 0.001, MOPP 0");
    DiceSite = 0;
    Fire_Arty(Place_Mission(BLUE, 21, 155, 155, battery));   // on its own head
    EXPECT_TRUE(Posted("NBC MESSAGE: Persistent Strike at No UTM Data"));
    EXPECT_EQ(UNIT[battery].STATUS, 0);
    EXPECT_EQ(NBC[2].NBCTYPE, 21);
    EXPECT_NE(DiceSite, SITE_COUNTERFIRE);   // nobody is left to be located
}

TEST(FiresOnTheMap, AnObstacleTaskCostsTheEngineersTheirMarch)
{
    Board board(20, 20);
    const int engineers = board.Place(BLUE, 55, 55, 14);
    Place_Mission(BLUE, 151, 65, 55, engineers);
    Run_Targets(2, 1, 100);
    EXPECT_EQ(UNIT[engineers].MOVEPOINTS2, 0);
    EXPECT_EQ(Cell_Value(Hex_Number(65, 55)), 11);
    EXPECT_EQ(UNIT[engineers].FIREMISSION, 0);
    Give(UNIT[engineers], "STATUS 1, MOVEPOINTS2 24");
    const int late = Place_Mission(BLUE, 151, 75, 55, engineers);
    Run_Targets(2, 1, 100);
    EXPECT_EQ(UNIT[engineers].MOVEPOINTS2, 24);
    EXPECT_EQ(Cell_Value(Hex_Number(75, 55)), 0);
    EXPECT_FALSE(Used(TG[late]));
}

TEST(FiresOnTheMap, ABlownBridgeCarriesNoUnitAnyMoreAndAnObstacleOnItStays)
{
    Board board = Ground_With_Bridge();
    const int engineer = board.Place(BLUE, 60, 45, 14), rider = board.Place(BLUE, 95, 45);
    const int bridge = UNIT[rider].HEXNUM;
    BG[3].BGHEX = bridge;
    BG[3].BGTYPE = 7;
    Set_Cell(bridge, 18, "Obstacle");
    Place_Mission(BLUE, 150, 95, 45, engineer, 11);
    Roll_Next(100);
    Run_Targets(2, 1, 100);
    EXPECT_EQ(Cell_Value(bridge), 16);
    EXPECT_TRUE(Has(UNIT[rider], "TERTYPE 16, RCP2 10"));
}

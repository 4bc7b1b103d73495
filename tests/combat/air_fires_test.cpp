#include "combat/air.h"
#include "combat/air_attack.h"
#include "combat/air_defence.h"
#include "support/cases.h"
#include "support/fires.h"

using namespace sm;
using namespace sm::test;

namespace {

/// No fighters: every interception fails for Blue's missions.
void Own_The_Air() { AIRSUPER = 100; }

int Known(Board& board, int x, int y, int type = 5)
{
    const int unit = board.Place(RED, x, y, type);
    Give(UNIT[unit], "SPOTTED 1, FOOTPRINT 1");   // out of reach of the aim point, so that nobody shoots back
    return unit;
}

}   // namespace

TEST(AirAttack, FourSortiesTakeSixtyPercentOfATankBattalionByDay)
{
    Board board(40, 40);
    const int target = board.Place(RED, 150, 50);
    const int slot = Place_Mission(BLUE, 4, 150, 50, 0, 5, 4);
    // 3 a sortie; outside a TAI 0.5 = 1.5; 4 sorties = 6 of 10 points
    Air_Attack(target, 4, slot);
    EXPECT_FLOAT_EQ(RAIRL, 6.0f);
    EXPECT_FLOAT_EQ(UNIT[target].RCP2, 4.0f);
    EXPECT_TRUE(Posted("Attack did not occur within an active TAI!"));
    EXPECT_EQ(SITREPLIST[1].SIDE, BLUE);
    EXPECT_TRUE(Posted("Air Strike BDA: R301 lost 60% destroyed"));
    Place_Area(BLUE, 13, 150, 50);
    RAIRL = 0;
    Air_Attack(board.Place(RED, 150, 50), 4, slot);   // 12, but not above 0.8 of the target
    EXPECT_FLOAT_EQ(RAIRL, 8.0f);
    EXPECT_TRUE(Posted("Attack occurred within an active TAI!"));
}

TEST(AirAttack, NightAirDefenceAndCoverTakeMostOfIt)
{
    Board board(40, 40);
    const int target = board.Place(RED, 150, 50);
    Arrange(0, target, "t.SIZE 2, t.TERTYPE 4, t.TACOPN 1, t.MOBILITY 1");
    TIME_OF_DAY = "Night";
    StrikeDisrupted = 1;
    Place_Area(BLUE, 13, 150, 50);
    const int slot = Place_Mission(BLUE, 4, 150, 50, 0, 5, 2);
    // 3; night 0.6 = 1.8; disrupted 1/3 = 0.6; company 1.3 = 0.78; urban 0.4 = 0.312; hasty defence 0.6 = 0.1872;
    // wheels 1.3 = 0.24336; 2 sorties = 0.48672, 4 % of 10
    Air_Attack(target, 4, slot);
    EXPECT_NEAR(RAIRL, 0.48672f, 1e-6f);
    EXPECT_TRUE(Posted("Air Strike BDA: R301 lost 4% destroyed"));
}

// clang-format off
TEST(AirAttack, DisruptionTargetsOfOpportunityAndSmokeWeighAsTold)
{
    const auto loss = [](const char* arranged, int disrupted = 0, int target_class = 5) {
        Board board(40, 40);
        const int target = board.Place(RED, 150, 50, 5, 1000.0f);
        const int slot = Place_Mission(BLUE, 4, 150, 50, 0, target_class, 8);
        StrikeDisrupted = disrupted;
        Arrange(0, target, arranged);
        Air_Attack(target, 4, slot);
        return static_cast<float>(RAIRL);
    };
    EXPECT_FLOAT_EQ(loss(""), 12.0f);   // 3 x 0.5 x 8
    EXPECT_FLOAT_EQ(loss("", 2), 12.0f / 8);
    EXPECT_FLOAT_EQ(loss("", 7), 1.0f);
    EXPECT_FLOAT_EQ(loss("", 0, 0), 7.2f);                       // 1.8 a sortie
    EXPECT_FLOAT_EQ(loss("t.MOBILITY 3, t.MOVESTATUS 8"), 0.1f);   // the least
    constexpr FACTOR_CASE CASES[] = {
        {"t.OBSCURED 1", 1.0f / 3}, {"t.SIZE 1", 2}, {"t.SIZE 5", 0.25f}, {"t.SIZE 6", 0.1f},
        {"t.TERTYPE 1", 0.8f}, {"t.TERTYPE 6", 0.6f}, {"t.TERTYPE 18", 1.3f}, {"t.TERTYPE 25", 0.3f},
        {"t.TACOPN -1", 1.3f}, {"t.TACOPN 4", 0.5f}, {"t.TACOPN 11, t.MOBILITY 0", 0.4f * 0.5f},
        {"t.MOBILITY 3, t.MOVESTATUS 1", 1.5f * 1.3f},
    };
    Expect_Factors(CASES, [&](const char* arranged) { return loss(arranged); });
}
// clang-format on

TEST(AirAttack, BombersDestroyOutrightAndALostTargetIsLeftAlone)
{
    Board board(40, 40);
    const int target = board.Place(RED, 150, 50);
    const int slot = Place_Mission(BLUE, 3, 150, 50, 0, 5, 4);
    UNIT[target].STATUS = 0;
    Air_Attack(target, 3, slot);
    EXPECT_TRUE(Messages().empty());
    UNIT[target].STATUS = 2;
    Air_Attack(target, 3, slot);   // 6 x 4 = 24, all that there is
    EXPECT_FLOAT_EQ(RAIRL, 10.0f);
    EXPECT_TRUE(Posted("Bomber Mission BDA: R301 lost 100% destroyed"));
}

// clang-format off
TEST(AirAttack, AttacksOnPlacesAreAChance)
{
    constexpr int BOMBER = 3, STRIKE = 4, BRIDGE = 11, MINES = 12;
    constexpr bool DAY = false, NIGHT = true;
    const CASES<int, int, int, int, bool, int, const char*> cases = {
        {BRIDGE, STRIKE, 2, 0, DAY, 59, "Air Strike BDA: Bridge is destroyed!"},
        {BRIDGE, STRIKE, 2, 0, DAY, 60, "Air Strike BDA: Air attack misses bridge!"},
        {BRIDGE, STRIKE, 4, 0, DAY, 64, "destroyed"}, {BRIDGE, STRIKE, 4, 0, DAY, 66, "misses"},   // 60 x 1.1 = 66
        {BRIDGE, STRIKE, 6, 0, DAY, 71, "destroyed"}, {BRIDGE, STRIKE, 8, 0, DAY, 77, "destroyed"},   // 72, 78
        {BRIDGE, STRIKE, 9, 0, DAY, 89, "destroyed"},   // 90
        {BRIDGE, STRIKE, 2, 0, NIGHT, 30, "misses"}, {BRIDGE, STRIKE, 2, 1, DAY, 30, "misses"},     // halved: 30
        {BRIDGE, STRIKE, 2, 2, DAY, 17, "misses"}, {BRIDGE, STRIKE, 2, 2, DAY, 14, "destroyed"},   // quartered: 15
        {BRIDGE, BOMBER, 2, 0, DAY, 100, "Bomber Misson: Bridge is destroyed!"},               // 50 of 60
        {BRIDGE, BOMBER, 2, 1, DAY, 60, "Bomber Mission BDA: Air attack misses bridge!"},      // 30 of 30
        {MINES, STRIKE, 2, 0, DAY, 79, "Air Strike BDA: FASCAM mission was successful!"},
        {MINES, STRIKE, 2, 0, DAY, 80, "Air Strike BDA: FASCAM mission failed!"},
        {MINES, STRIKE, 2, 0, NIGHT, 44, "failed!"},   // 40
    };
    for (const auto& [target_class, kind, sorties, disrupted, night, roll, said] : cases) {
        Board board(40, 40);
        TIME_OF_DAY = night ? "Night" : "Day";
        StrikeDisrupted = disrupted;
        const int slot = Place_Mission(BLUE, kind, 155, 55, 0, target_class, sorties);
        Roll_Next(roll);
        Air_Attack(0, kind, slot);
        EXPECT_NE(Messages().back().find(said), std::string::npos) << Messages().back() << ' ' << roll;
    }
}
// clang-format on

TEST(AirMission, TheNearestKnownUnitOfTheClassIsHuntedAndOfEqualsTheLater)
{
    Board board(40, 40);
    Own_The_Air();
    Known(board, 150, 70);                      // 2 km
    const int chosen = Known(board, 152, 30);   // 2 km, later
    Known(board, 150, 50, 8);                   // another class, nearer
    Known(board, 150, 90);                      // 4 km
    const int slot = Place_Mission(BLUE, 4, 150, 50, 0, 5, 2);
    Air_Mission(slot);
    EXPECT_TRUE(Posted("SITREP: 2 X Air Strike Sorties attack R302"));
    EXPECT_TRUE(Has(TG[slot], "TGX 152, TGY 30"));
    EXPECT_TRUE(Posted("SITREP: Air strike attacks target!"));
    EXPECT_GT(RAIRL, 0);
    EXPECT_EQ(chosen, 302);
    EXPECT_EQ(StrikeDisrupted, 0);
}

TEST(AirMission, AnotherClassIsTheAlternateAndTheLastInReachIsTaken)
{
    Board board(40, 40);
    Own_The_Air();
    Known(board, 150, 50, 8);
    Known(board, 150, 150, 9);   // 10 km: the last within reach
    Known(board, 150, 156, 9);   // 10.6 rounds to 11
    const int slot = Place_Mission(BLUE, 3, 150, 50, 0, 5, 1);
    Air_Mission(slot);
    EXPECT_TRUE(Posted("SITREP: Found an alternate target! 1 X Bomber Sorties attack R302"));
    EXPECT_EQ(TG[slot].TGY, 150);
}

TEST(AirMission, PilotsFindWhatTheStaffHasNotAboveEighty)
{
    Board board(40, 40);
    Own_The_Air();
    const int hidden = Known(board, 150, 50), away = Known(board, 350, 350), loc = Known(board, 150, 60, 50);
    UNIT[hidden].SPOTTED = UNIT[away].SPOTTED = UNIT[loc].SPOTTED = 0;
    const int slot = Place_Mission(BLUE, 4, 150, 50, 0, 0, 2);
    RSEED = 18;   // then 66, 81: one roll each, wherever they stand
    Air_Mission(slot);
    EXPECT_EQ(UNIT[hidden].SPOTTED, 0);
    EXPECT_EQ(UNIT[away].SPOTTED, 1);
    EXPECT_EQ(UNIT[loc].SPOTTED, 0);
    EXPECT_EQ(RSEED, 20);
    EXPECT_TRUE(Posted("SITREP: 2 X Air Strike Sorties Found No Targets and Returned to Base!"));
    EXPECT_EQ(SITREPLIST[1].SIDE, BLUE);
    TG[slot].TGTYPE = 3;
    RSEED = 0;   // 82: found this time
    Air_Mission(slot);
    EXPECT_TRUE(Posted("SITREP: 2 X Bomber Sorties attack R301"));
}

TEST(AirMission, AirDefenceIsShelledThenShootsThenTheStrikeHits)
{
    Board board(40, 40);
    Own_The_Air();
    const int target = Known(board, 150, 50, 4), sam = Known(board, 150, 90, 1);   // anti-tank guns look on
    UNIT[sam].MXRANGE = 5;
    const int guns = Place_Battery(board, BLUE, 50, 50, 2);
    Air_Mission(Place_Mission(BLUE, 4, 150, 50, 0, 5, 1));
    EXPECT_EQ(UNIT[guns].FIREMISSIONN, 1);
    EXPECT_TRUE(Posted("SITREP: ADA disrupts air strike!"));   // about 10 x 10 x 2, more than any roll
    EXPECT_FLOAT_EQ(UNIT[target].RCP2, 9.5f);                  // 3 / 3 (disrupted) x 0.5 (no TAI)
    EXPECT_EQ(StrikeDisrupted, 0);
}

TEST(AirMission, AnInterceptionEndsItBeforeAnyAttack)
{
    Board board(40, 40);
    AIRSUPER = 0;
    Known(board, 150, 50);
    Air_Mission(Place_Mission(BLUE, 4, 150, 50, 0, 5, 2));
    EXPECT_TRUE(Posted("SITREP: RED fighters intercept BLUE air mission!"));
    EXPECT_TRUE(Posted("SITREP: Air strike aborts due to interception!"));
    EXPECT_FALSE(Posted("SITREP: Air strike attacks target!"));
    EXPECT_EQ(RAIRL, 0);
}

TEST(AirMission, WorksAndSmokeWithinTenKilometresAreSeenFromTheAir)
{
    Board board(40, 40);
    const auto work = [](int row, int side, int x) {
        Give(BG[row], "BGHEX 1, BGTYPE 8");
        BG[row].BGSIDE = side;
        BG[row].BGX = x;
        BG[row].BGY = 50;
    };
    work(1, RED, 245);   // centre (250, 55): 100 pixels
    work(2, RED, 246);   // 101
    work(3, BLUE, 150);
    Air_Mission(Place_Mission(BLUE, 4, 150, 55, 0, 5, 2));   // finds nobody, and looks
    EXPECT_EQ(BG[1].BGVISIBLE, 1);
    EXPECT_EQ(BG[2].BGVISIBLE, 0);
    EXPECT_EQ(BG[3].BGVISIBLE, 0);
    Give(NBC[1], "NBCTYPE 20, NBCSIDE RED");
    NBC[1].NBCHEX = Hex_Number(255, 55);                      // centre (255, 55)
    Air_Mission(Place_Mission(BLUE, 4, 155, 55, 0, 11, 2));   // attacks, and looks
    EXPECT_EQ(BG[2].BGVISIBLE, 1);
    EXPECT_EQ(NBC[1].NBCVISIBLE, 1);
}

TEST(Interception, NightDoublesTheRollAFlyerTriplesIt)
{
    constexpr bool DAY = false, NIGHT = true;
    const CASES<int, int, int, int, bool, int, bool> cases = {
        {0, BLUE, 4, 50, DAY, 50, true},    {0, BLUE, 4, 51, DAY, 50, false},  {0, BLUE, 4, 22, NIGHT, 50, true},
        {0, BLUE, 4, 26, NIGHT, 50, false},                                      // 44, 52
        {11, BLUE, 0, 14, DAY, 50, true},   {11, BLUE, 0, 17, DAY, 50, false},   // 42, 51
        {11, BLUE, 0, 9, NIGHT, 50, false},                                      // 54
        {0, RED, 4, 30, DAY, 30, true},     {0, RED, 4, 31, DAY, 30, false},   {0, BLUE, 4, 100, DAY, 100, false},
        {0, BLUE, 3, 95, DAY, 100, true},   {0, BLUE, 3, 93, DAY, 100, false},   // bombers are met now and then
    };
    for (const auto& [unit_type, side, kind, roll, night, superiority, intercepted] : cases) {
        Board board(40, 40);
        AIRSUPER = superiority;
        TIME_OF_DAY = night ? "Night" : "Day";
        const int unit = unit_type > 0 ? Place_In_The_Air(board, side, 150, 50, unit_type) : 0;
        Roll_Next(roll);
        EXPECT_EQ(Intercept_Check(unit, side, 150, 50, kind) == 1, intercepted) << unit_type << ' ' << roll;
    }
}

TEST(Interception, AUAVEscapesNineTimesOfTen)
{
    Board board(40, 40);
    AIRSUPER = 50;
    const int uav = Place_In_The_Air(board, BLUE, 150, 50, 26);
    RSEED = 9;   // 5, 5: both tests
    EXPECT_EQ(Intercept_Check(uav, BLUE, 150, 50, 0), 1);
    EXPECT_TRUE(Has(UNIT[uav], "VISIBLE -1, SPOTTED 1"));
    RSEED = 10;   // 5, 50
    EXPECT_EQ(Intercept_Check(uav, BLUE, 150, 50, 0), 0);
    RSEED = 0;   // 82, 39: the second roll is made all the same
    EXPECT_EQ(Intercept_Check(uav, BLUE, 150, 50, 0), 0);
    EXPECT_EQ(RSEED, 2);
}

TEST(Interception, HighSurvivabilityMeetsNobodyAndRollsNothing)
{
    Board board(40, 40);
    AIRSUPER = 0;
    BBOMBERS = 1;
    EXPECT_EQ(Intercept_Check(0, BLUE, 150, 50, 3), 0);
    EXPECT_EQ(RSEED, 0);
    EXPECT_EQ(Intercept_Check(0, BLUE, 150, 50, 4), 1);   // strikes have no such bombers
}

TEST(Interception, TheFlyersOwnAirDefenceMayDriveTheFightersOff)
{
    Board board(40, 40);
    AIRSUPER = 0;
    const int sam = board.Place(BLUE, 95, 5, 1, 5.0f);   // at the fighters: 55 pixels up and left of the mission
    UNIT[sam].MXRANGE = 4;
    // power 1 x 5 x 10 x 2 by day = 100: no roll is above it
    EXPECT_EQ(Intercept_Check(0, BLUE, 150, 60, 4), 0);
    EXPECT_TRUE(board.SCREEN.Heard("status", "SITREP: B1 engages the interceptors!"));
    EXPECT_TRUE(board.SCREEN.Heard("status", "SITREP: ADA drives off interceptors!"));
    EXPECT_EQ(StrikeDisrupted, 0);
    EXPECT_EQ(RADAL, 0);
    EXPECT_EQ(DiceSite, SITE_ADA_INTERCEPTORS);
    UNIT[sam].TACOPN = -1;   // withdrawing: no shot at all, and so no success
    RSEED = 0;
    EXPECT_EQ(Intercept_Check(0, BLUE, 150, 60, 4), 1);
    EXPECT_TRUE(board.SCREEN.Heard("status", "SITREP: Fighters evade ADA!"));
    EXPECT_EQ(RSEED, 1);
}

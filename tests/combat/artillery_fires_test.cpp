#include "combat/artillery.h"
#include "support/cases.h"
#include "support/fires.h"

using namespace sm;
using namespace sm::test;

namespace {

struct Duel {
    Board BOARD{40, 40};
    int FIRER = Place_Battery(BOARD, BLUE, 50, 50);
    int TARGET = BOARD.Place(RED, 150, 50);
    Duel() { UNIT[TARGET].SPOTTED = 2; }
};

}   // namespace

TEST(ArtilleryAttack, AKnownTankBattalionInTheOpenLosesThreePercentToOneMission)
{
    Duel duel;
    // 20 x 0.3 x 4 = 24; offence 0.9 = 21.6; battalion 0.2 = 4.32; tracks 0.3 = 1.296; armour 0.8 = 1.0368;
    // outside a TAI 0.5 = 0.5184; command 3 x 0.05 + 0.5 = 0.65 = 0.33696; of 10 points that is 3 %.
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 0.33696f);
    EXPECT_FLOAT_EQ(RARTYL, 0.33696f);
    EXPECT_EQ(BARTYL, 0);
    EXPECT_TRUE(Posted("Artillery Attack BDA:  R301 lost 3% destroyed"));
    EXPECT_TRUE(Has(UNIT[duel.FIRER], "FIREMISSIONN 1, FATIGUE 3"));
    EXPECT_EQ(UNIT[duel.TARGET].RCP2, 10.0f);   // whoever called applies it
}

TEST(ArtilleryAttack, EveryFactorOfAHardCaseCounts)
{
    Duel duel;
    Arrange(
        duel.FIRER, duel.TARGET,
        "f.RCP2 10, f.MORALE 3, f.FATIGUE 16, f.SUPPRESSED 3, f.C2 1, f.EWSTATUS 5, f.UCONTROL 1, t.OBSCURED 1, "
        "t.TERTYPE 4, t.TACOPN 1, t.SPOTTED 1, t.SIZE 2, t.MOBILITY 1, t.MOVESTATUS 2, t.TYPE 1");
    FireMult = 4;
    // 10 x 0.3 x 2 = 6; multiplier 4 = 24; smoke 0.3 = 7.2; morale 1.1 = 7.92; tired 0.8 = 6.336; suppressed 0.5
    // = 3.168; urban 0.2 = 0.6336; hasty defence 0.6 = 0.38016; vaguely located 0.7 = 0.266112; company 0.3 =
    // 0.0798336; wheels 1; moving 0.8 = 0.06386688; air defence 0.6 = 0.038320128; no TAI is asked for; command
    // 0.55 = 0.02107607; jammed 0.66 = 0.013910206; controlled 1.5 = 0.02086531
    EXPECT_NEAR(Artillery_Attack(duel.FIRER, duel.TARGET, 2), 0.02086531f, 1e-7f);
    EXPECT_TRUE(Posted("Artillery Attack BDA:  R301 lost less than 1% destroyed"));
    EXPECT_TRUE(duel.BOARD.SCREEN.Heard("status", "Smoke obscures target!"));
}

// clang-format off
TEST(ArtilleryAttack, EachRowOfTheTableActsAsPrinted)
{
    // Against offence 0.9, a battalion 0.2, tracks 0.3, armour 0.8, command 3 0.65; all else is 1.
    constexpr FACTOR_CASE CASES[] = {
        {"f.MORALE 0", 0.5f}, {"f.MORALE 1", 0.8f}, {"f.MORALE 4", 1.2f},
        {"f.FATIGUE 1", 1.1f}, {"f.FATIGUE 15", 1}, {"f.FATIGUE 22", 0.5f},
        {"f.SUPPRESSED 1", 0.9f}, {"f.SUPPRESSED 2", 0.8f}, {"f.SUPPRESSED 4", 0.3f}, {"f.SUPPRESSED 5", 0.5f},
        {"t.TERTYPE 1", 0.6f}, {"t.TERTYPE 2", 0.4f}, {"t.TERTYPE 5", 1.2f}, {"t.TERTYPE 10", 1},
        {"t.TERTYPE 18", 1.5f}, {"t.TERTYPE 27", 0.2f},
        {"t.TACOPN 3", 0.1f / 0.9f}, {"t.TACOPN 4", 1.1f / 0.9f}, {"t.TACOPN 11", 1 / 0.9f},
        {"t.TACOPN 12", 0.2f / 0.9f},
        {"t.SPOTTED 0", 0.1f}, {"t.SPOTTED 3", 1},
        {"t.SIZE 4", 0.1f / 0.2f}, {"t.SIZE 5", 0.05f / 0.2f}, {"t.SIZE 100", 0.05f / 0.2f},
        {"t.MOBILITY 0", 1.1f / 0.3f}, {"t.MOBILITY 3", 1.5f / 0.3f},
        {"t.MOBILITY 3, t.MOVESTATUS 8", 0.9f / 0.3f},
        {"t.TYPE 10", 1.2f / 0.8f}, {"t.TYPE 18", 1 / 0.8f},
        {"t.TYPE 13", 1 / 0.8f},   // a battalion's depot is no target
        {"t.TYPE 13, t.SIZE 4", 0.2f * 0.1f / (0.8f * 0.2f)},
        {"t.TYPE 13, t.SIZE 5", 0.1f * 0.05f / (0.8f * 0.2f)},
        {"f.C2 0", 0.5f / 0.65f}, {"f.EWSTATUS 10", 0.66f},
        {"f.UCONTROL 1, t.TACOPN 2", 0.6f / 0.9f},   // control does not reach a breach
    };
    Expect_Factors(CASES, [](const char* arranged) {
        Duel duel;
        UNIT[duel.TARGET].RCP2 = 1000;   // far from every ceiling
        Arrange(duel.FIRER, duel.TARGET, arranged);
        return Artillery_Attack(duel.FIRER, duel.TARGET, 4);
    });
}
// clang-format on

TEST(ArtilleryAttack, OnlyConvoysAndLoneSystemsLoseMoreThanAFifth)
{
    Duel duel;
    UNIT[duel.FIRER].RCP2 = 10000;
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 2.0f);
    UNIT[duel.TARGET].SIZE = 0;
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 10.0f);
    UNIT[duel.TARGET].SIZE = 100;
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 10.0f);
    UNIT[duel.TARGET].SIZE = 3;
    UNIT[duel.FIRER].RCP2 = 0.001f;
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 0.01f);   // a hit costs something
    UNIT[duel.TARGET].TYPE = 26;
    EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 4), 10.0f);   // a UAV is lost whole
    Duel air;
    Give(UNIT[air.TARGET], "MOBILITY 3, MOVESTATUS 9");
    EXPECT_FLOAT_EQ(Artillery_Attack(air.FIRER, air.TARGET, 4), 0.01f);
    EXPECT_FALSE(Posted("BDA"));   // nothing is said of a target in the air
}

TEST(ArtilleryAttack, AnActiveTAIDoublesTheEffectAndAFreshOneDoesNot)
{
    // 39 pixels away; (40 + 40) / 2 = 40 is not near enough
    for (const auto& [y, laid, doubles] : CASES<int, int, bool>{{89, 2, true}, {90, 2, false}, {60, 1, false}}) {
        Duel duel;
        const float plain = Artillery_Attack(duel.FIRER, duel.TARGET, 1);
        UNIT[duel.FIRER].FATIGUE = 2;
        GTURN = 2;
        P[Place_Area(BLUE, 13, 150, y)].PAGE = laid;
        EXPECT_FLOAT_EQ(Artillery_Attack(duel.FIRER, duel.TARGET, 1), plain * (doubles ? 2 : 1)) << y;
    }
}

TEST(FiresPhase, TheSideThatShootsFirstWithGunsStrikesLastFromTheAir)
{
    const auto order = [](int roll) {
        Board board(40, 40);
        Roll_Next(roll);
        const int blue = Place_Battery(board, BLUE, 50, 50), red = Place_Battery(board, RED, 350, 350);
        Place_Mission(BLUE, 1, 200, 10, blue);
        Place_Mission(RED, 1, 300, 10, red);
        Place_Mission(BLUE, 4, 210, 10, 0, 11, 2);
        Place_Mission(RED, 4, 310, 10, 0, 11, 3);
        Place_Battery(board, BLUE, 150, 390, 2);
        UNIT[board.Place(RED, 100, 390, 1)].SPOTTED = 1;
        Place_Area(BLUE, 17, 100, 390);
        Fires_Phase();
        std::string seen;
        for (const Drawing& d : board.SCREEN.DRAWINGS) {
            if (d.KIND == Draw::IMPACT) seen += d.X2 == 100 ? "s" : d.X2 == 200 ? "b" : "r";
            if (d.KIND == Draw::CENTRE) seen += d.X1 == 210 ? "B" : "R";
        }
        EXPECT_EQ(Count_Used(TG, 1, MAX_TG), 0);
        EXPECT_EQ(UNIT[blue].FIREMISSION, 0);
        return seen;
    };
    EXPECT_EQ(order(26), "sbrRB");   // 0.52 rounds to 1
    EXPECT_EQ(order(73), "sbrRB");
    EXPECT_EQ(order(22), "srbBR");   // 0.44 rounds to 0
    EXPECT_EQ(order(75), "srbBR");   // 1.5 rounds to the even 2
}

TEST(FiresPhase, OnlyMissionsOfTheTurnAreFlownAndFired)
{
    Board board(40, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50);
    const int later = Place_Mission(BLUE, 1, 200, 10, battery);
    TG[later].TGTOT = GTURN + 1;
    const int linked = Place_Mission(BLUE, 1, 200, 10, battery);
    TG[linked].TGTOT = 1005;
    Run_Targets(1, 1, 100);
    Run_Targets(2, 1, 100);
    EXPECT_TRUE(Used(TG[later]));
    EXPECT_TRUE(Used(TG[linked]));
    EXPECT_EQ(UNIT[battery].FIREMISSIONN, 0);
}

TEST(FireArty, EveryEnemyUnderTheAimPointIsShelled)
{
    Board board(40, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50);
    board.Place(RED, 150, 70);       // 20 pixels, half of its footprint
    board.Place(RED, 150, 71);       // one too far
    board.Place(RED, 150, 50, 50);   // the line of communication is no target
    board.Place(BLUE, 150, 50);
    const int under = board.Place(RED, 140, 50);
    const int slot = Place_Mission(BLUE, 1, 150, 50, battery);
    RFIREF = 0;
    Fire_Arty(slot);
    const auto told = Messages();
    int shelled = 0;
    for (const auto& text : told) shelled += text.find("BDA:  ") != std::string::npos ? 1 : 0;
    EXPECT_EQ(shelled, 2);
    EXPECT_TRUE(Has(UNIT[battery], "FIREMISSIONN 2, FACING 90"));
    EXPECT_GT(RARTYL, 0);
    EXPECT_NEAR(20 - UNIT[301].RCP2 - UNIT[under].RCP2, RARTYL, 1e-5f);
    EXPECT_FLOAT_EQ(UNIT[battery].RSF2, 2.85f);   // two fires at 0.05, halved, of 3
    EXPECT_FALSE(Posted("No casualties"));
}

TEST(FireArty, AnEmptyPlaceIsReportedAsSuch)
{
    Board board(40, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50);
    const int slot = Place_Mission(BLUE, 1, 150, 50, battery);
    Fire_Arty(slot);
    EXPECT_TRUE(Posted("Artillery hits target!\rBDA: No casualties!"));
    EXPECT_TRUE(Has(SITREPLIST[1], "SIDE BOTH, UNIT 0"));
    EXPECT_FLOAT_EQ(UNIT[battery].RSF2, 2.925f);   // 0.05, halved, of 3
}

TEST(FireArty, ABatteryThatCannotFireIsNotEvenChecked)
{
    Board board(40, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50);
    const int theirs = Place_Battery(board, RED, 50, 90);
    RSEED = 10;
    UNIT[battery].STATUS = 1;
    Fire_Arty(Place_Mission(BLUE, 1, 150, 50, battery));
    Fire_Arty(Place_Mission(BLUE, 1, 150, 50, theirs));
    Fire_Arty(Place_Mission(BLUE, 1, 150, 50, 0));
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(RSEED, 10);
}

TEST(MissileDefence, AHitStopsTheMissileAndTheBatteryCanStillBeLocated)
{
    // 59 / 10 is 5, a hit; 0.75 x (100 + 40 / 2) = 90 pixels are the reach of the guard at 200
    for (const auto& [roll, x, engages, hits] :
         CASES<int, int, bool, bool>{{59, 290, true, true}, {60, 290, true, false}, {59, 291, false, false}}) {
        Board board(40, 40);
        const int battery = Place_Battery(board, RED, 50, 50, 0, 10);
        UNIT[board.Place(BLUE, 200, 50, 3)].MXRANGE = 10;
        const int under = board.Place(BLUE, 290, 50);
        Roll_Next(roll);
        const int before = RSEED;
        Fire_Arty(Place_Mission(RED, 1, x, 50, battery));
        EXPECT_TRUE(board.SCREEN.Heard("status", "ADA WARNING: Theater ballistic missile is inbound!"));
        EXPECT_EQ(board.SCREEN.Count("status", "ADA engages"), engages ? 1 : 0);
        EXPECT_EQ(board.SCREEN.Heard("status", "ADA destroys theater ballistic missile!"), hits);
        EXPECT_EQ(board.SCREEN.Heard("status", "ADA misses theater ballistic missile!"), engages && !hits);
        EXPECT_EQ(UNIT[battery].FIREMISSIONN, hits ? 0 : 1);
        EXPECT_EQ(BARTYL > 0, !hits);
        EXPECT_EQ(Rolls_Since(before), engages && !hits ? 3 : 2);   // the defence, the shells, counterfire
        EXPECT_EQ(UNIT[under].RCP2 < 10.0f, !hits);
    }
}

TEST(SEAD, AMarkerCallsOnKnownAirDefenceWithinFortyPixels)
{
    Board board(60, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50, 2);
    const int near = board.Place(RED, 140, 50, 1), far = board.Place(RED, 59, 91, 1),
              unknown = board.Place(RED, 110, 50, 1);
    UNIT[near].SPOTTED = UNIT[far].SPOTTED = 1;
    Place_Area(BLUE, 17, 100, 50);
    Preplanned_SEAD();
    EXPECT_EQ(board.SCREEN.Count("status", "Supporting artillery fires pre-planned SEAD!"), 1);
    EXPECT_EQ(UNIT[battery].FIREMISSIONN, 1);
    EXPECT_EQ(UNIT[unknown].SPOTTED, 0);
    EXPECT_EQ(FireMult, 0);
    // 20 x 0.3 x 2 = 12; multiplier 4 = 48; offence 0.9 = 43.2; vaguely 0.7 = 30.24; battalion 0.2 = 6.048;
    // tracks 0.3 = 1.8144; air defence 0.6 = 1.08864; command 0.65 = 0.707616
    EXPECT_NEAR(RARTYL, 0.707616f, 1e-6f);
    // Suppressed by the shells, 82 + 15, by the SEAD, 39 + 20 + 0, and by a loss of 7 %.
    EXPECT_EQ(UNIT[near].SUPPRESSED, 3);
    EXPECT_FLOAT_EQ(UNIT[battery].RSF2, 2.925f);
}

TEST(SEAD, ABatteryFiresThreeTimesATurnAtMostAndOnlyOnThatRole)
{
    Board board(60, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50, 2);
    const int busy = Place_Battery(board, BLUE, 50, 60, 2), other = Place_Battery(board, BLUE, 50, 70, 1);
    UNIT[busy].FIREMISSION = 1;
    const int target = board.Place(RED, 150, 50, 1);
    for (int i = 0; i < 5; ++i) Arty_SEAD(target, BLUE);
    EXPECT_EQ(UNIT[battery].FIREMISSIONN, 3);
    EXPECT_EQ(UNIT[busy].FIREMISSIONN, 0);
    EXPECT_EQ(UNIT[other].FIREMISSIONN, 0);
    EXPECT_TRUE(board.SCREEN.Heard("status", "Supporting artillery fires on-call SEAD!"));
}

TEST(SEAD, TheComputerNeedsNoMarkersAndFiresAtThreeFold)
{
    for (const int play : {3, 4, 34, 0}) {
        Board board(60, 40);
        const int blue = Place_Battery(board, BLUE, 50, 50, 2), red = Place_Battery(board, RED, 150, 60, 2);
        UNIT[board.Place(RED, 150, 50, 1)].SPOTTED = 1;
        UNIT[board.Place(BLUE, 60, 60, 1)].SPOTTED = 1;
        PlayType = play;
        Preplanned_SEAD();
        EXPECT_EQ(UNIT[blue].FIREMISSIONN, play == 4 || play == 34 ? 1 : 0) << play;
        EXPECT_EQ(UNIT[red].FIREMISSIONN, play == 3 || play == 34 ? 1 : 0) << play;
    }
}

TEST(Counterfire, ChainsEndByTheMissionsOfTheTurnAndLeaveTheMultiplierAsItWas)
{
    Board board(60, 40);
    const int sead = Place_Battery(board, BLUE, 50, 50, 2);
    const int guns[] = {Place_Battery(board, RED, 150, 60, 1), Place_Battery(board, RED, 150, 70, 1)};
    Place_Battery(board, BLUE, 50, 60, 1);   // Blue's own counterfire: nobody calls it for an answer
    const int target = board.Place(RED, 150, 50, 1);
    UNIT[target].SPOTTED = 1;
    Place_Area(RED, 18, 50, 50);
    RFIREF = 100;
    BFIREF = 100;
    FireMult = 4;
    Arty_SEAD(target, BLUE);
    EXPECT_EQ(FireMult, 4);
    EXPECT_EQ(UNIT[sead].FIREMISSIONN, 1);
    EXPECT_EQ(UNIT[guns[0]].FIREMISSIONN, 1);
    EXPECT_EQ(UNIT[guns[1]].FIREMISSIONN, 1);
    FireMult = 0;
    for (int i = 0; i < 4; ++i) Counterfire(sead);
    EXPECT_EQ(UNIT[guns[0]].FIREMISSIONN, 2);
    EXPECT_EQ(UNIT[guns[1]].FIREMISSIONN, 2);
    EXPECT_EQ(FireMult, 0);
}

TEST(Counterfire, WhoWatchesDecidesWhetherTheBatteryIsLocated)
{
    enum Watch { NOBODY, ZONE, ZONE_TOO_FAR, FRIENDS_AT_AIM_POINT, TARGET_ITSELF, COMPUTER };
    const CASES<Watch, int, int, bool> cases = {
        {NOBODY, 2, 1, false},
        {ZONE, 2, 50, true},
        {ZONE, 2, 51, false},
        {ZONE, 1, 50, true},
        {ZONE_TOO_FAR, 2, 1, false},
        {FRIENDS_AT_AIM_POINT, 2, 50, true},
        {FRIENDS_AT_AIM_POINT, 1, 50, false},   // that zone is a planned mission's
        {TARGET_ITSELF, 1, 50, true},
        {TARGET_ITSELF, 1, 51, false},
        {COMPUTER, 1, 50, true},
        {COMPUTER, 2, 51, false}};
    for (const auto& [watch, mode, roll, located] : cases) {
        Board board(60, 40);
        const int battery = Place_Battery(board, BLUE, 50, 50);
        const int target = board.Place(RED, 150, 50), friends = board.Place(RED, 190, 50);
        const int slot = Place_Mission(BLUE, 1, 150, 50, battery);
        RFIREF = 50;
        if (watch == ZONE) Place_Area(RED, 18, 90, 50);   // (40 + 40) / 2 = 40
        if (watch == ZONE_TOO_FAR) Place_Area(RED, 18, 91, 50);
        if (watch == FRIENDS_AT_AIM_POINT) UNIT[friends].CFZ = 1;
        if (watch == TARGET_ITSELF) UNIT[target].CFZ = 1;
        if (watch == COMPUTER) PlayType = 3;
        Roll_Next(roll);
        Counterfire_Check(battery, mode == 2 ? slot : target, mode);
        EXPECT_EQ(Posted("INTREP: Enemy artillery has been located!"), located) << watch << ' ' << roll;
        EXPECT_EQ(UNIT[battery].SPOTTED, located ? 1 : 0);
        if (located) {
            EXPECT_TRUE(Has(SITREPLIST[1], "SIDE RED, UNIT 0"));
        }
    }
}

TEST(Counterfire, MissileBatteriesAreNotAnswered)
{
    Board board(60, 40);
    const int battery = Place_Battery(board, BLUE, 50, 50, 0, 10);
    const int guns = Place_Battery(board, RED, 150, 60, 1);
    UNIT[battery].SPOTTED = 1;
    Counterfire(battery);
    EXPECT_EQ(UNIT[guns].FIREMISSIONN, 0);
    Give(UNIT[battery], "TYPE 9, SPOTTED 0");
    Counterfire(battery);
    EXPECT_EQ(UNIT[guns].FIREMISSIONN, 0);
    UNIT[battery].SPOTTED = 1;
    Counterfire(battery);
    EXPECT_EQ(UNIT[guns].FIREMISSIONN, 1);
    EXPECT_TRUE(Posted("SITREP: R301 fires Counterfire!"));
    // 20 x 0.3 x 5 = 30; twofold 60; offence 0.9 = 54; vaguely 0.7 = 37.8; battalion 0.2 = 7.56; tracks 0.3 =
    // 2.268; guns 1.2 = 2.7216; command 0.65 = 1.76904
    EXPECT_NEAR(BARTYL, 1.76904f, 1e-5f);
}

TEST(Demolition, EngineersNeedTwoOthersThreeAndEveryEnemyNearTakesOneOff)
{
    const CASES<int, int, int, bool, bool> cases = {
        {14, 17, 0, false, true},   // 1.7 rounds to 2
        {14, 14, 0, false, false}, {19, 26, 0, false, true},
        {19, 22, 0, false, false}, {14, 44, 2, false, true},   // 4 - 2
        {14, 34, 2, false, false},                             // 3 - 2
        {14, 100, 0, true, false},                             // the enemy is on it
        {8, 100, 0, false, false},                             // guns have no charges
    };
    for (const auto& [type, roll, enemies_near, enemy_on_bridge, blown] : cases) {
        Board board({"....................", "....................", "....................",
                     "....................", ".........=..........", "...................."});
        const int engineer = board.Place(BLUE, 60, 45, type);
        for (int i = 0; i < enemies_near; ++i) board.Place(RED, 60, 45);
        if (enemy_on_bridge) board.Place(RED, 95, 45);
        Place_Mission(BLUE, 150, 95, 45, engineer, 11);
        UNIT[engineer].FIREMISSION = 2;   // whatever else it was to do is off
        Roll_Next(roll);
        Run_Targets(2, 1, 100);
        EXPECT_EQ(UNIT[engineer].FIREMISSION, 0);
        EXPECT_EQ(Posted("SPOTREP: B1reports that bridge demolitions failed!"), !blown) << type << ' ' << roll;
        EXPECT_EQ(Posted("SPOTREP: B1 reports bridge is blown at No UTM Data"), blown) << type << ' ' << roll;
        int pressed = 0;
        for (const auto& text : Messages()) pressed += text.find("attacks bridge demolitions unit!") != text.npos;
        EXPECT_EQ(pressed, enemies_near);
    }
}

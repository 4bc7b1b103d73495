#include "opponent/planning.h"

#include "core/dice.h"
#include "core/shared.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace sm;
using namespace sm::test;

namespace {

/// The dice position before a roll of this value.
void Next_Roll(int value)
{
    RSEED = 0;
    while (RSEED < 100 && Dice_Value(RSEED + 1) != value) RSEED += 1;
    ASSERT_LT(RSEED, 100) << value << " is not on the dice";
}

/// A piece with a range in cells from `least` to `most`, 10 pixels wide.
int Guns(Board& board, int x, int y, int type, int most, int least = 0)
{
    const int u = board.Place(BLUE, x, y, type);
    UNIT[u].MXRANGE = most;
    UNIT[u].MINRANGE = least;
    UNIT[u].FOOTPRINT = 10;
    return u;
}

/// An aircraft.
int Flyer(Board& board, int side, int type)
{
    const int u = board.Place(side, 100, 100, type);
    UNIT[u].MOBILITY = 3;
    return u;
}

int Spotted(Board& board, int side, int x, int y, int type, float rcp = 10)
{
    const int u = board.Place(side, x, y, type, rcp);
    UNIT[u].SPOTTED = 1;
    return u;
}

}   // namespace

TEST(Planning, ABeatenSideLowersItsAimForGood)
{
    Board board(20, 20);
    const int a = board.Place(BLUE, 50, 50, 5, 100);
    BFOBJ = SCENARIOT = 0;
    UNIT[a].RCP2 = 41;
    EXPECT_EQ(Assess_Situation(BLUE).FORCE, 0);
    EXPECT_TRUE(Assess_Situation(BLUE).DEFENDING);   // Red attacks
    EXPECT_FALSE(Assess_Situation(RED).DEFENDING);
    UNIT[a].RCP2 = 40;
    EXPECT_EQ(Assess_Situation(BLUE).FORCE, 1);
    UNIT[a].RCP2 = 30.4f;
    GTURN = 1;
    Enemy_Planning(BLUE);
    EXPECT_EQ(BFOBJ, 2);
    UNIT[a].RCP2 = 90;
    Enemy_Planning(BLUE);
    EXPECT_EQ(BFOBJ, 2);   // what has been given up stays given up
}

TEST(Planning, EachPhaseIsAnnouncedAndTargetsWaitForTheSecondTurn)
{
    Board board(20, 20);
    const auto plan = [&](int turn) {
        std::string told;
        board.SCREEN.TOLD.clear();
        GTURN = turn;
        Enemy_Planning(RED);
        for (const auto& t : board.SCREEN.TOLD) {
            if (t.KIND == "status") told += t.TEXT;
            if (t.KIND == "delay") told += t.NUMBER == 500 ? ", " : "?";
        }
        return told;
    };
    EXPECT_EQ(plan(1), "Enemy IPB Phase, Enemy Logistics Planning Phase, Enemy Movement Planning Phase, ");
    EXPECT_EQ(plan(2), "Enemy IPB Phase, Enemy Targeting Phase, Enemy Logistics Planning Phase, "
                       "Enemy Movement Planning Phase, ");
}

TEST(Planning, AHeadquartersIsWorthWhatItsUnitsHaveLeft)
{
    Board board(20, 20);
    const int hq = board.Place(BLUE, 50, 50, 18, 4), a = board.Place(BLUE, 60, 50, 5, 20),
              b = board.Place(BLUE, 70, 50, 5, 10);
    UNIT[a].HIGHERHQ = UNIT[b].HIGHERHQ = hq;
    UNIT[a].RCP2 = 8;
    UNIT[b].RCP2 = 5.5f;
    Assess_Situation(BLUE);
    EXPECT_EQ(UNIT[hq].HQPOWER, 45);   // 13.5 of 30
    UNIT[a].RCP = UNIT[b].RCP = 0;
    Assess_Situation(BLUE);
    EXPECT_EQ(UNIT[hq].HQPOWER, 0);
}

TEST(Planning, AUAVLooksAtAnObjectiveElseForTheEnemysHeadquartersElseForItsOwn)
{
    Board board(60, 60);
    const int uav = Flyer(board, BLUE, 26);
    board.Place(BLUE, 50, 400, 18);
    board.Place(RED, 580, 300, 18);   // 20 pixels from the edge: not looked for, and no roll
    board.Place(RED, 400, 400, 18);
    for (const auto& [row, type, holder] : {std::tuple{1, 1, 1}, {2, 2, 2}, {3, 1, 2}, {4, 1, 0}})
        OBJ[row] = {.OTYPE = type, .OX = row * 100, .OY = 200, .OID = holder};
    const auto plan = [&](int turn, int seed) {
        Clear_Route(uav);
        GTURN = turn;
        RSEED = seed;
        Plan_Collectors(BLUE);
    };
    plan(2, 9);   // 5: the third is the first objective that Blue does not hold
    EXPECT_EQ(Row(UNIT[uav].NUMBER_OF_NODES, MN[1].MNX, MN[2].MNX, RSEED), Row(2, 300, 100, 10));
    plan(2, 8);   // 60 for the objective, 5 for the headquarters
    EXPECT_EQ(Row(UNIT[uav].NUMBER_OF_NODES, MN[1].MNX, MN[1].MNY, RSEED), Row(2, 420, 420, 10));
    plan(2, 23);   // 80 for the objective, 99 for the enemy's, 44 for its own
    EXPECT_EQ(Row(UNIT[uav].NUMBER_OF_NODES, MN[1].MNY, RSEED), Row(1, 400, 26));
    plan(1, 1);   // 39: on the first turn only its own is asked for
    EXPECT_EQ(Row(UNIT[uav].NUMBER_OF_NODES, RSEED), Row(1, 2));
}

TEST(Planning, JammersAndPsychologicalUnitsAreSwitchedOnAndFaceTheLastHeadquartersOfTheEnemy)
{
    Board board(60, 60);
    const int jammer = board.Place(RED, 100, 100, 16), psy = board.Place(RED, 100, 100, 23);
    board.Place(BLUE, 200, 100, 18);
    board.Place(BLUE, 200, 0, 18);
    Plan_Collectors(RED);
    EXPECT_EQ(Row(UNIT[jammer].SENSORS, UNIT[psy].POPS), Row(1, 1));
    for (const int u : {jammer, psy}) EXPECT_EQ(Row(UNIT[u].C2T, UNIT[u].FACING), Row(1, 45));   // north-east
}

TEST(Planning, ConvoysStartFromTheSidesOwnDepotBelowThreeQuarters)
{
    Board board(60, 60);
    board.Place(BLUE, 100, 100, 13);
    const int depot = board.Place(RED, 300, 300, 13), low = board.Place(RED, 400, 300, 5),
              fair = board.Place(RED, 400, 400, 5);
    Give(UNIT[depot], "LSF 100, LSF2 5.5");
    Give(UNIT[low], "RSF 10, RSF2 3, LOGSTATN 74");
    UNIT[fair].LOGSTATN = 75;
    UNIT[low].LOGUNIT = UNIT[fair].LOGUNIT = 0;
    GTURN = 1;
    Plan_Supply(RED);
    EXPECT_EQ(UNIT[low].LOGUNIT, depot);
    const int row = fair + 1;
    EXPECT_EQ(UNIT[row].STATUS, 0);   // none on the first turn
    GTURN = 2;
    Plan_Supply(RED);
    Plan_Supply(RED);   // one on its way is enough
    EXPECT_EQ(UNIT[row].NAME, "CONVOY #304");
    EXPECT_EQ(UNIT[row].CONVOYD, low);
    EXPECT_EQ(UNIT[row].LSF2, 6.0f);   // 7 wanted: the whole part of the stock and 1
    EXPECT_EQ(UNIT[depot].LSF2, -0.5f);
    EXPECT_EQ(UNIT[row + 1].STATUS, 0);
}

TEST(Planning, AnNAIThatWatchesNothingIsGivenUpAndNewOnesComeByTheDice)
{
    Board board(60, 60);
    board.Place(RED, 300, 300);
    BNAIMAX = BTAIMAX = 1;
    BNAI = 2;
    for (int g = 1; g <= 2; ++g)
        P[g] = {.PTYPE = 12, .PSIDE = BLUE, .PX1 = 339 + g, .PY1 = 300};   // 40, 41 pixels off
    Plan_Areas(BLUE);
    EXPECT_EQ(Row(P[1].PTYPE, P[2].PTYPE, BNAI), Row(12, 0, 1));

    Erase_Graphic(1);
    OBJ[3] = {.OTYPE = 1, .OX = 300, .OY = 400};   // 10 km from the enemy: anticipated though unseen
    Next_Roll(19);
    Plan_Areas(BLUE);
    EXPECT_EQ(Row(P[1].PTYPE, P[1].PY1, P[1].PAGE, P[2].PTYPE, P[2].PX1), Row(12, 400, 2, 13, 304));

    BNAIMAX = BTAIMAX = 0;   // without any allowance nothing is given up either
    UNIT[301].X = 100;
    Plan_Areas(BLUE);
    EXPECT_EQ(P[1].PTYPE, 12);
}

TEST(Planning, OnePassOverTheObjectivesMayOvershootTheCapOfNAIsButNotOfTAIs)
{
    Board board(60, 60);
    board.Place(RED, 300, 300);
    board.Place(RED, 310, 300);
    BNAIMAX = BTAIMAX = 1;
    OBJ[50] = {.OTYPE = 1, .OX = 300, .OY = 300};
    RSEED = 9;   // 5 and 5: both enemies are watched for
    Plan_Areas(BLUE);
    EXPECT_EQ(Row(BNAI, BTAI), Row(2, 1));
    EXPECT_EQ(RSEED, 11);   // no second pass
}

TEST(Planning, EveryVisitOfASpottedEnemyIsARoll)
{
    Board board(60, 60);
    Spotted(board, RED, 300, 300, 5);
    board.Place(RED, 400, 300);
    BNAIMAX = 1;
    RSEED = 0;
    Plan_Areas(BLUE);   // 11 passes over 50 rows of objectives, used or not: 550 rolls
    EXPECT_EQ(Row(RSEED, BNAI), Row(50, 0));
}

TEST(Targeting, TheWorthOfATargetGrowsWithWhatItThreatensAndFallsWithItsStrength)
{
    Board board(60, 60);
    const int gun = board.Place(RED, 300, 300, 8);
    UNIT[gun].MXRANGE = 5;
    UNIT[gun].FOOTPRINT = 20;   // reach 50 + 10 + 100 = 160
    OBJ[1] = {.OTYPE = 1, .OX = 460, .OY = 300};
    const int blue = board.Place(BLUE, 300, 485);
    UNIT[blue].FOOTPRINT = 50;   // 185 = 160 + 25
    EXPECT_EQ(Target_Value(gun, BLUE), 5 + 4 + 4);
    UNIT[blue].Y = 486;
    EXPECT_EQ(Target_Value(gun, BLUE), 9);
    UNIT[gun].STRENGTH = 39;
    EXPECT_EQ(Target_Value(gun, BLUE), 4);   // 4.5, halves to even
    UNIT[gun].STRENGTH = 34;
    EXPECT_EQ(Target_Value(gun, BLUE), 2);   // 2.25
    Give(UNIT[gun], "STRENGTH 40, TYPE 50");
    EXPECT_EQ(Target_Value(gun, BLUE), 5);
}

TEST(Targeting, GunsTakeTheFirstInRangeUnlessALaterOneIsWorthMore)
{
    Board board(60, 60);
    const int gun = Guns(board, 100, 100, 8, 20, 2);      // 25 to 205 pixels
    const int near = Spotted(board, RED, 124, 100, 26);   // below the least range
    const int first = Spotted(board, RED, 125, 100, 5), better = Spotted(board, RED, 305, 100, 9);
    Spotted(board, RED, 306, 100, 26);
    GTURN = 2;
    BTOTAL = 0;
    Next_Roll(88);
    Enemy_Targeting(BLUE);
    EXPECT_EQ(Row(TG[1].TGTYPE, TG[1].TGX, TG[1].TGTOT, TG[1].FUNIT), Row(1, 305, 2, gun));
    EXPECT_EQ(Row(UNIT[better].TGTLINK, UNIT[first].TGTLINK, UNIT[near].TGTLINK), Row(1, 0, 0));
    EXPECT_EQ(UNIT[gun].FIREMISSION, 1);
}

TEST(Targeting, StrikesGoOnUntilTheSortiesAreGone)
{
    Board board(60, 60);
    for (int i = 0; i < 4; ++i) Spotted(board, RED, 100 + 50 * i, 100, i == 1 ? 26 : 5);
    GTURN = 2;
    BTOTAL = 3;
    RSEED = 3;   // 56 for the first; the UAV needs no roll; 95, 75 for the others
    Enemy_Targeting(BLUE);
    EXPECT_EQ(Row(TG[1].TGTYPE, TG[1].TGX, TG[1].TGNSORTIES, TG[1].TGHPT, TG[2].TGX, TG[3].TGTYPE),
              Row(4, 150, 2, 4, 200, 0));
    EXPECT_EQ(Row(BTOTAL, RSEED), Row(-1, 6));
    EXPECT_EQ(UNIT[302].TGTLINK, 0);   // air strikes leave no link
}

TEST(Targeting, RocketsFollowTheStrikesAndMissilesSpareTheirOwnTroops)
{
    Board board(200, 60);
    const int mrl = Guns(board, 100, 100, 9, 150), ssm = Guns(board, 120, 100, 10, 150);
    const int first = Spotted(board, RED, 700, 100, 5), second = Spotted(board, RED, 800, 100, 9);
    Spotted(board, RED, 1000, 100, 26);
    board.Place(BLUE, 971, 100);   // 29 pixels from the third
    GTURN = 2;
    BCHMAX = 1;
    Next_Roll(88);
    Enemy_Targeting(BLUE);   // no sorties: rockets choose a target, the best: the UAV, conventional
    EXPECT_EQ(Row(TG[1].FUNIT, TG[1].TGX, TG[1].TGTYPE), Row(mrl, 1000, 1));
    // The guard of 29 bars the third, and the second was better than the first.
    EXPECT_EQ(Row(TG[2].FUNIT, TG[2].TGX, TG[2].TGTYPE, BCHNOW), Row(ssm, 800, 11, 1));
    EXPECT_EQ(Row(UNIT[first].TGTLINK, UNIT[second].TGTLINK), Row(0, 2));
}

TEST(Targeting, AMissileThatMayNotFireIsCreditedWithTheLastMissionOfTheSide)
{
    Board board(60, 60);
    const int gun = board.Place(BLUE, 50, 500, 8), ssm = board.Place(BLUE, 100, 100, 10),
              free = board.Place(BLUE, 60, 500, 9);
    UNIT[ssm].MXRANGE = 150;
    UNIT[free].FSP = 3;
    const int uav = Spotted(board, RED, 400, 100, 26);
    UNIT[uav].MOPP = 4;
    GTURN = 2;
    BTOTAL = 1;
    BCHMAX = 1;
    Enemy_Targeting(BLUE);
    EXPECT_EQ(TG[1].TGTYPE, 4);   // the strike on it, two sorties of the one in hand
    EXPECT_EQ(BTOTAL, -1);
    EXPECT_EQ(TG[2].TGTYPE, 0);   // masked: no mission, no chemicals
    EXPECT_EQ(BCHNOW, 0);
    EXPECT_EQ(TG[1].FUNIT, ssm);
    EXPECT_EQ(UNIT[ssm].FIREMISSION, 1);
    EXPECT_EQ(Row(UNIT[uav].TGTLINK, UNIT[ssm].FSP), Row(1, 0));
    EXPECT_EQ(UNIT[gun].FSP, 2);   // no mission: the guns cover the strike
    EXPECT_EQ(UNIT[free].FSP, 2);
    UNIT[uav].SPOTTED = 0;
    Enemy_Targeting(BLUE);
    EXPECT_EQ(UNIT[gun].FSP, 1);   // no strike: counterfire
}

TEST(Targeting, AHelicopterStrikeIsLaunchedByTheSharedDiceOfTheAir)
{
    Board board(60, 60);
    const int ah = Flyer(board, BLUE, 11);
    const int target = Spotted(board, RED, 300, 100, 3);
    UNIT[target].HPTVALUE = 100;   // above 80: no roll of rule 4
    UNIT[target].HVTTYPE = 7;
    AIRSUPER = 50;
    Next_Roll(26);   // 52 > 50
    EXPECT_FALSE(Plan_AH_Strike(ah));
    TIME_OF_DAY = "Night";
    Next_Roll(51);   // 25.5 is stored as 26: 52 > 50
    EXPECT_FALSE(Plan_AH_Strike(ah));
    Next_Roll(50);   // 25: 50
    EXPECT_TRUE(Plan_AH_Strike(ah));
    EXPECT_EQ(Row(UNIT[ah].MOVESTATUS, UNIT[ah].OX1, UNIT[ah].HPTL1, UNIT[target].TGTLINK), Row(9, 300, 7, 1));
    Next_Roll(21);   // linked: a failed roll of rule 5 ends this unit's test
    EXPECT_FALSE(Plan_AH_Strike(ah));
}

TEST(EnemyMovement, StancesReservesAndRetreats)
{
    Board board(60, 60);
    const int reserve = board.Place(BLUE, 100, 100, 5), cavalry = board.Place(BLUE, 50, 300, 6);
    for (const auto& [x, y] : {std::pair{290, 100}, {299, 100}, {100, 301}}) Spotted(board, RED, x, y, 5);
    UNIT[reserve].AIACTION = 4;
    GTURN = 1;
    Plan_Movement(PLAN{BLUE, 1, true});
    EXPECT_EQ(UNIT[reserve].OX1, 299);   // below 200 pixels, the last of the table
    EXPECT_EQ(UNIT[reserve].UCONTROL, 1);
    EXPECT_EQ(UNIT[reserve].NUMBER_OF_NODES, 0);   // no routes on the first turn
    EXPECT_EQ(UNIT[cavalry].TACOPN, 3);
    EXPECT_NE(UNIT[cavalry].LX, 0);
    UNIT[300] = {.X = 20, .Y = 30, .SIDE = BLUE, .STATUS = 2, .TYPE = 50};
    Plan_Movement(PLAN{BLUE, 2, true});
    EXPECT_EQ(Row(UNIT[reserve].OX1, UNIT[reserve].TACOPN), Row(20, 4));
    Place_Unit(reserve, 20, 30);
    Give(UNIT[reserve], "OX2 500, OY2 400, AIACTION 0");
    Plan_Movement(PLAN{BLUE, 1, true});
    EXPECT_EQ(Row(UNIT[reserve].OX1, UNIT[reserve].OX2), Row(500, 0));   // arrived: the next destination
}

TEST(EnemyMovement, AnAttackerLeadsWithItsFightersAndTurnsOnWhatItMeets)
{
    Board board(60, 60);
    const int tanks = board.Place(RED, 100, 100, 5), guns = board.Place(RED, 100, 100, 8),
              lift = board.Place(RED, 100, 100, 5);
    for (const int u : {tanks, guns, lift}) {
        UNIT[u].MOVEPOINTS = UNIT[u].MOVEPOINTS2 = 24;
        UNIT[u].OX1 = UNIT[u].OY1 = 500;
    }
    UNIT[lift].MOBILITY = 3;
    Spotted(board, BLUE, 129, 100, 5);
    Spotted(board, BLUE, 130, 100, 5);
    GTURN = 1;
    Plan_Movement(PLAN{RED, 0, false});
    EXPECT_EQ(UNIT[tanks].OX1, 129);   // nearer than 30 pixels
    EXPECT_EQ(UNIT[tanks].MOVEPOINTS2, 24);
    EXPECT_EQ(UNIT[guns].MOVEPOINTS2, 22);   // 21.6
    EXPECT_EQ(UNIT[guns].OX1, 500);
    EXPECT_EQ(UNIT[lift].OX1, 500);   // what flies has no part in it
    UNIT[tanks].OX1 = 500;
    Plan_Movement(PLAN{RED, 1, false});   // for terrain: the destination stays
    EXPECT_EQ(UNIT[tanks].OX1, 500);
}

TEST(EnemyMovement, AHotObjectiveBarsAllThatFollow)
{
    Board board(60, 60);
    const int lift = Flyer(board, RED, 12);
    board.Place(RED, 200, 100, 19);
    for (int o = 1; o <= 2; ++o) OBJ[o] = {.OTYPE = 1, .OX = 250 * o, .OY = 400};
    Spotted(board, BLUE, 350, 400, 5);   // 10 km from the first, 15 from the second
    Next_Roll(1);
    const int seed = RSEED;
    Plan_Movement(PLAN{RED, 1, false});
    EXPECT_EQ(UNIT[lift].NUMBER_OF_NODES, 0);
    EXPECT_EQ(RSEED, seed);
}

TEST(EnemyMovement, AnAirAssaultIsPlannedWithItsZonesAndItsWayHome)
{
    Board board(60, 60);
    const int lift = Flyer(board, RED, 12), tanks = board.Place(RED, 150, 100),
              inf = board.Place(RED, 200, 100, 19);
    UNIT[inf].SIZE = 2;
    OBJ[1] = {.OTYPE = 1, .OID = RED};
    OBJ[2] = {.OTYPE = 1, .OX = 400, .OY = 300};
    Next_Roll(19);
    Plan_Movement(PLAN{RED, 1, false});
    EXPECT_EQ(Row(UNIT[inf].CARRIER, UNIT[tanks].CARRIER), Row(lift, 0));
    ASSERT_EQ(UNIT[lift].NUMBER_OF_NODES, 3);
    EXPECT_EQ(Row(MN[UNIT[lift].PZ].MNX, MN[UNIT[lift].LZ].MNX, MN[303].MNX), Row(200, 400, 100));
    const int seed = RSEED;
    Plan_Movement(PLAN{RED, 1, false});   // a flight under way is not planned again
    EXPECT_EQ(UNIT[lift].NUMBER_OF_NODES, 3);
    EXPECT_EQ(RSEED, seed);

    // Out of fuel short of its zone, with the infantry aboard: the infantry gets off, and the lift plans anew.
    const auto run_dry_and_plan = [&](int roll) {
        UNIT[lift].PASSENGER = inf;
        Place_Off_Picture(inf);
        UNIT[lift].MOVESTATUS = 0;
        Next_Roll(roll);
        Plan_Movement(PLAN{RED, 1, false});
        EXPECT_EQ(Row(UNIT[inf].X, UNIT[inf].CARRIER, UNIT[lift].NUMBER_OF_NODES), Row(100, 0, 0));
    };
    run_dry_and_plan(100);   // no objective is taken this time

    // With one node left it picks the infantry up and has no zone for it; with none nobody is told to wait.
    for (int row = 302; row <= 600; ++row) MN[row].MNUNIT = tanks;
    Next_Roll(19);
    Plan_Movement(PLAN{RED, 1, false});
    EXPECT_EQ(Row(UNIT[lift].PZ, UNIT[lift].LZ, UNIT[inf].CARRIER), Row(301, 0, lift));
    Clear_Node(301);
    UNIT[lift].NUMBER_OF_NODES = 0;
    MN[301].MNUNIT = tanks;
    run_dry_and_plan(19);
}

#include "core/unit_reset.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/log_lines.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace sm;
using namespace sm::test;

namespace {

/// STATUS of a unit of this role and strength after a reset.
int Status_After(int type, float strength, int ew)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55, type);
    UNIT[u].STRENGTH = strength;
    UNIT[u].EWSTATUS = ew;
    Reset_Units();
    return UNIT[u].STATUS;
}

int Allowance(int mobility, int c2, int mopp, int turn_length, int type = 5, int size = 3, int control = 0)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55, type);
    UNIT[u].SIZE = size;
    UNIT[u].UCONTROL = control;
    UNIT[u].MOBILITY = mobility;
    UNIT[u].C2 = c2;
    UNIT[u].MOPP = mopp;
    TurnLength = turn_length;
    Set_Movement_Allowance(u);
    return UNIT[u].MOVEPOINTS2;
}

}   // namespace

TEST(Reset, StrengthDecidesWhoCanStillAct)
{
    const std::tuple<int, float, int, int> rows[] = {
        {5, 36, 0, 2},   {5, 35.5f, 0, 1}, {5, 35, 0, 1},
        {7, 35, 0, 2},   {7, 9, 0, 1},                          // guns hold out to a tenth
        {5, 0.5f, 0, 0}, {5, 0.5f, 2, 1},  {5, 0.5f, 10, 5}};   // gone; located by ELINT; jammed: keeps its row
    for (const auto& [type, strength, ew, status] : rows)
        EXPECT_EQ(Status_After(type, strength, ew), status) << "role " << type << " at " << strength;
}

TEST(Reset, AJamLastsThisTurnAndTheNext)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55);
    UNIT[u].EWSTATUS = 10;
    Reset_Units();
    EXPECT_EQ(Row(UNIT[u].EWSTATUS, UNIT[u].STATUS), Row(5, 2));
    EXPECT_EQ(UNIT[u].MOVEPOINTS2, 22);   // 24 less 2 while degraded
    Reset_Units();
    EXPECT_EQ(Row(UNIT[u].EWSTATUS, UNIT[u].MOVEPOINTS2), Row(0, 24));
}

TEST(Reset, AUnitThatIsGoneTakesItsAttachmentsAndItsPassengerWithIt)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55), child = board.Place(BLUE, 55, 55), other = board.Place(BLUE, 15, 15);
    UNIT[u].STRENGTH = 0;
    UNIT[child].PARENT_UNIT = u;
    RSEED = 9;   // rolls 5, 5, 50: nobody gains heart
    Reset_Units();
    EXPECT_EQ(Row(UNIT[u].STATUS, UNIT[child].STATUS, UNIT[other].STATUS), Row(0, 0, 2));
    EXPECT_EQ(UNIT[u].MOVEPOINTS2, 1);   // a free row holds 1
    EXPECT_TRUE(Messages().empty());     // without a word
}

TEST(Reset, TheAllowanceIsBuiltStepByStep)
{
    EXPECT_EQ(Allowance(0, 3, 0, 0), 6);
    EXPECT_EQ(Allowance(0, 0, 3, 0), 2);    // 6, less 2, halved
    EXPECT_EQ(Allowance(0, 0, 3, 1), 1);    // 2 / 2
    EXPECT_EQ(Allowance(0, 0, 3, 2), 1);    // 2 / 8 = 0, at least 1
    EXPECT_EQ(Allowance(2, 2, 3, 0), 16);   // 22 x 0.75 = 16.5, halves to even
    EXPECT_EQ(Allowance(1, -1, 0, 2), 3);   // 24 / 8; a jammed C2 of -1 changes nothing
    EXPECT_EQ(Allowance(3, 0, 3, 1), 200);  // an aircraft has 400 whatever its state
    EXPECT_EQ(Allowance(10, 3, 0, 0), 1);   // a line of communication starts at 0
    for (const auto& [size, points] : {std::pair(4, 12), {3, 24}, {100, 48}})
        EXPECT_EQ(Allowance(2, 3, 0, 0, 13, size), points) << "logistics of size " << size;
    EXPECT_EQ(Allowance(2, 3, 0, 0, 24, 3, 1), 30);   // reconnaissance and headquarters, controlled
    EXPECT_EQ(Allowance(2, 3, 0, 0, 18, 3, 1), 18);
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55);
    Give(UNIT[u], "TACOPN 2, STATUS 1");
    Set_Movement_Allowance(u);
    EXPECT_EQ(UNIT[u].MOVEPOINTS2, 26);   // 24 + 4 - 2
}

TEST(Reset, AParentKeepsPaceWithItsFastestAttachment)
{
    Board board(10, 10);
    const int parent = board.Place(BLUE, 55, 55, 19), child = board.Place(BLUE, 55, 55, 5);
    UNIT[parent].MOBILITY = 0;
    UNIT[child].PARENT_UNIT = parent;
    Reset_Units();
    EXPECT_EQ(UNIT[parent].MOVEPOINTS2, 24);
}

TEST(Reset, DeliberateDefenceIsBuiltOverTheTurnsAndOnlyFromAHastyOne)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55);
    Give(UNIT[u], "TACOPN 1, TIMERM 2");
    Reset_Units();
    EXPECT_TRUE(Posted("B1: Deliberate defense will be finished in 1 turns!"));
    Reset_Units();
    EXPECT_TRUE(Has(UNIT[u], "TACOPN 11, MISSION Deliberate Defense"));
    EXPECT_TRUE(Posted("B1: Deliberate defense is complete!"));
    Give(UNIT[u], "TACOPN 0, TIMERM 1");
    Reset_Units();
    EXPECT_EQ(UNIT[u].TACOPN, 0);
}

TEST(Reset, RestIsDeeperForUnitsThatStand)
{
    Board board(10, 10);
    const int halted = board.Place(BLUE, 15, 15), standing = board.Place(BLUE, 55, 55);
    UNIT[halted].MOVESTATUS = 1;
    UNIT[halted].FATIGUE = UNIT[standing].FATIGUE = 5;
    Reset_Units();
    EXPECT_EQ(Row(UNIT[halted].MOVESTATUS, UNIT[halted].FATIGUE, UNIT[standing].FATIGUE), Row(2, 3, 1));
    Reset_Units();
    EXPECT_EQ(UNIT[standing].FATIGUE, 0);
}

TEST(Reset, TheLossOfTheTurnIsToldInWholePercent)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55, 5, 30.0f);
    UNIT[u].RCP2 = 27;   // 3 / 30: f32 0.1 x 100 = 10
    Reset_Units();
    EXPECT_TRUE(Posted("B1 suffered 10% total losses this turn!"));
    EXPECT_EQ(UNIT[u].RCP3, 27.0f);
    UNIT[u].RCP3 = 0;
    const Log_Lines log;
    Reset_Units();
    EXPECT_EQ(log.Count("Morale Check Error: B1"), 1);
}

TEST(Reset, AnActiveNAIWatchesUnitsAndWorksAroundIt)
{
    Board board(60, 60);
    const int near = board.Place(RED, 140, 100), far = board.Place(RED, 141, 100);
    P[1] = {.PTYPE = 12, .PSIDE = BLUE, .PX1 = 100, .PY1 = 100, .PAGE = 1};
    GTURN = 5;
    BG[1] = {.BGHEX = 1, .BGX = 505, .BGY = 95, .BGSIDE = RED};   // centre 510: 410 pixels, 41 km off
    Reset_Units();
    EXPECT_EQ(UNIT[near].SPOTTED, 0);   // not active yet
    P[1].PAGE = 2;
    Reset_Units();
    EXPECT_EQ(Row(UNIT[near].SPOTTED, UNIT[far].SPOTTED, BG[1].BGVISIBLE), Row(1, 0, 0));   // at 40 and 41 pixels
    BG[1].BGX = 504;   // 40.9 km counts as 40
    Reset_Units();
    EXPECT_EQ(BG[1].BGVISIBLE, 1);
}

TEST(Reset, AUsedUnitWithoutASideIsAskedForOrTakesItsHalf)
{
    Board board(10, 10);
    const int u = board.Place(BLUE, 55, 55);
    UNIT[u].SIDE = 0;
    board.SCREEN.ANSWERS = {false};
    Reset_Units();
    EXPECT_TRUE(board.SCREEN.Heard("ask", "Error Trapper|Is B1 a BLUE unit?"));
    EXPECT_EQ(UNIT[u].SIDE, RED);
    UNIT[u].SIDE = 0;
    GameType = 7;
    Reset_Units();
    EXPECT_EQ(UNIT[u].SIDE, BLUE);
    EXPECT_EQ(board.SCREEN.Count("ask", ""), 1);
}

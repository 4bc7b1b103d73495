#include "core/invariants.h"
#include "core/session.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "support/board.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

using namespace sm;
using namespace sm::test;

TEST(Hash, EveryFieldThatCountsMovesItAndNoFieldOfASeatDoes)
{
    Board board(10, 10);
    board.Place(BLUE, 55, 55);
    const std::uint64_t start = State_Hash();
    std::set<std::uint64_t> seen{start};
    const auto moved = [&](auto& field, auto value) {
        const auto before = field;
        field = value;
        const bool fresh = seen.insert(State_Hash()).second;
        field = before;
        return fresh;
    };
    EXPECT_EQ(Row(moved(UNIT[1].FATIGUE, 9), moved(UNIT[600].FREEHUNT, 1), moved(UNIT[1].NAME, "x"),
                  moved(UNIT[1].TURNLOSS, 0.5f), moved(UNIT[1].VISIBLE, -1), moved(MN[600].MNY, 1),
                  moved(PP[20].PPMSG, "x"), moved(GMONTH, "Mar"), moved(GAMEAUTHOR, "x"),
                  moved(GAMEVERSION, "x") /* the same letters in the next text */, moved(RSEED, 17),
                  moved(BBOMBERS, 1), moved(FireMult, 3), moved(HEXMAP[100].THIGH, 1)),
              std::vector<int>(14, true));
    // VISIBLE 0 and 1 differ by view.
    EXPECT_EQ(Row(moved(UNIT[1].VISIBLE, 1), moved(UNIT[1].DX, 5), moved(AARN, 5), moved(GameType, 8),
                  moved(SITREPLIST[1].TEXT, "x"), moved(HEXMAP[100].TNAME, "x")),
              std::vector<int>(6, false));
    ViewMode = 2;
    SelUnit = 1;
    EXPECT_EQ(State_Hash(), start);
}

TEST(Hash, TheTableHashesNameTheTableAndDiffTheField)
{
    Board board(10, 10);
    board.Place(BLUE, 55, 55);
    const auto before = std::make_unique<Game>(GAME);
    UNIT[17].FATIGUE = 3;
    RSEED = 5;
    const auto here = Table_Hashes(), there = Table_Hashes(*before);
    ASSERT_EQ(here.size(), there.size());
    std::set<std::string> differ;
    for (std::size_t i = 0; i < here.size(); ++i)
        if (here[i].HASH != there[i].HASH) differ.insert(here[i].NAME);
    EXPECT_EQ(differ, (std::set<std::string>{"SCALARS", "UNIT"}));
    EXPECT_EQ(Differences(GAME, *before),
              (std::vector<std::string>{"RSEED 5, there 0", "UNIT[17].FATIGUE 3, there 0"}));
}

TEST(Invariants, EachCorruptedStateIsCaughtByItsOwnRule)
{
    const auto caught = [](auto corrupt) {
        Board board({"....", "....", "....", "...."});
        const int u = board.Place(BLUE, 15, 15), v = board.Place(BLUE, 25, 25);
        for (int n = 1; n <= 2; ++n) {
            MN[n] = {.MNUNIT = u, .MNUNITNUMBER = n};
        }
        UNIT[u].NUMBER_OF_NODES = 2;
        UNIT[u].PASSENGER = v;
        UNIT[v].PARENT_UNIT = u;
        BG[1] = {.BGHEX = 3, .BGSIDE = 1, .BGTYPE = 8};
        HEXMAP[3].TVALUE = 12;
        EXPECT_TRUE(Broken_Invariants().empty());
        corrupt(u, v);
        const auto broken = Broken_Invariants();
        return broken.empty() ? std::string("nothing") : broken[0].RULE;
    };
    EXPECT_EQ(caught([](int, int) { MN[9].MNUNIT = 44; }), "owner");
    EXPECT_EQ(caught([](int, int v) { UNIT[v].PARENT_UNIT = 44; }), "owner");
    EXPECT_EQ(caught([](int u, int) { UNIT[u].PASSENGER = 44; }), "passenger");
    EXPECT_EQ(caught([](int, int) { MN[2].MNUNITNUMBER = 3; }), "route");
    EXPECT_EQ(caught([](int u, int) { UNIT[u].NUMBER_OF_NODES = 1; }), "route");
    EXPECT_EQ(caught([](int u, int) { UNIT[u].MORALE = 5; }), "range");
    EXPECT_EQ(caught([](int, int) { RSEED = 101; }), "range");
    EXPECT_EQ(caught([](int, int) { HEXMAP[5].TVALUE = 32; }), "range");
    EXPECT_EQ(caught([](int u, int) { UNIT[u].X = 25; }), "place");
    EXPECT_EQ(caught([](int u, int) { UNIT[u].TERTYPE = 4; }), "place");
    EXPECT_EQ(caught([](int, int) { HEXMAP[3].TVALUE = 1; }), "overlay");
    EXPECT_EQ(caught([](int, int) { BG[1].BGTYPE = 7; }), "overlay");
}

TEST(Turn, ThePhasesRunInOrderAndTheLastTurnIsPlayedInFull)
{
    Board board(10, 10);
    board.Place(BLUE, 55, 55);
    PlayType = 5;      // no staffs plan
    GTURN = 0;
    MAXGTURN = 2;
    EXPECT_TRUE(Play_Turn());
    EXPECT_EQ(GTURN, 1);
    std::vector<std::string> phases;
    for (const auto& told : board.SCREEN.TOLD)
        if (told.KIND == "phase") phases.push_back(told.TEXT);
    EXPECT_EQ(phases, (std::vector<std::string>{"NBC Check", "C4ISR Check", "Fires Phase",
                                                "Generating New Intelligence Picture", "Movement Phase",
                                                "Ground Combat Phase", "Resetting Units", "Logistics Phase",
                                                "Reinforcements Phase"}));
    EXPECT_EQ(ActiveSide, 3);
    EXPECT_FALSE(SEAT.TurnRunning);
    Play_Turn();
    EXPECT_EQ(GTURN, 2);
    EXPECT_FALSE(board.SCREEN.Heard("box", "The Battle is Over!"));
    const auto before = State_Hash();
    Play_Turn();
    EXPECT_TRUE(board.SCREEN.Heard("box", "The Battle is Over!"));
    EXPECT_EQ(Row(GTURN, GameOver, ViewMode), Row(2, -1, 3));
    GameOver = 0;
    EXPECT_EQ(State_Hash(), before);   // nothing else moved
}

TEST(Turn, WithoutAGameNothingOfTheSimulationRuns)
{
    Board board(10, 10);
    GTURN = -1;
    EXPECT_TRUE(Play_Turn());
    EXPECT_EQ(GTURN, -1);
    EXPECT_EQ(board.SCREEN.Count("phase", ""), 0);
}

TEST(Turn, AFailureEndsTheTurnAndPutsEverythingBack)
{
    Board board(10, 10);
    const int seen = board.Place(BLUE, 25, 25);
    Show_Picture(seen);
    GTURN = 3;
    GameType = 7;
    PlanSide = BLUE;
    P[1] = {.PTYPE = 12, .PSIDE = BLUE};
    P[2] = {
        .PTYPE = 12, .PSIDE = BLUE, .PAGE = 32767};   // a turn more does not fit, which shows when it is written
    const auto before = State_Hash();
    EXPECT_FALSE(Play_Turn());
    EXPECT_EQ(P[1].PAGE, 0);
    EXPECT_EQ(Row(TurnsPlayed, ActiveSide), Row(0, 3));
    EXPECT_TRUE(SEAT.PICTURE[seen]);
    EXPECT_EQ(State_Hash(), before);
    EXPECT_EQ(GTURN, 3);
    EXPECT_TRUE(board.SCREEN.Heard("box", "Stonemarch|Error: 6"));
    EXPECT_FALSE(SEAT.TurnRunning);
    GameType = 3;
    EXPECT_FALSE(Play_Turn());
    EXPECT_EQ(ActiveSide, BLUE) << "against the computer the player's side has the board again";
}

TEST(Turn, ATurnAgesAreasEndsTrafficAndLandsWhoIsOutOfFuel)
{
    Board board(10, 10);
    const int unit = board.Place(BLUE, 55, 55), low = board.Place(BLUE, 55, 75, 12), lower = board.Place(BLUE, 75, 55, 12);
    UNIT[low].MOBILITY = UNIT[lower].MOBILITY = 3;
    UNIT[low].TIMERM = 350;
    UNIT[lower].TIMERM = 351;
    UNIT[unit].C2T = 5;
    for (const auto& [row, type] : {std::pair(1, 12), {2, 13}, {3, 11}}) P[row] = {.PTYPE = type, .PSIDE = RED};
    SITREPLIST[200].USED = 1;
    GTURN = 0;
    PlayType = 5;   // no staffs plan
    GameType = 3;
    PlanSide = BLUE;
    ASSERT_TRUE(Play_Turn());
    EXPECT_EQ(Row(P[1].PAGE, P[2].PAGE, P[3].PAGE, UNIT[unit].C2T), Row(1, 1, 0, 0));
    EXPECT_EQ(UNIT[low].TIMERM, 350);
    EXPECT_EQ(UNIT[lower].TIMERM, 0);
    EXPECT_EQ(SITREPLIST[200].USED, 0);
    EXPECT_EQ(BRCP1, 30.0f);   // taken before the turn runs: three units of 10
    EXPECT_EQ(Row(ActiveSide, TurnsPlayed), Row(BLUE, 1));
    EXPECT_EQ(board.SCREEN.Count("sound", ""), 1);
    GameType = 7;
    ASSERT_TRUE(Play_Turn());
    EXPECT_EQ(ActiveSide, 3) << "in a network game nobody plans until he is let";
    EXPECT_EQ(PlanSide, BLUE);
    EXPECT_EQ(BRCP1, 30.0f);
    GTURN = MAXGTURN;
    ASSERT_TRUE(Play_Turn());
    EXPECT_EQ(PlanSide, 3) << "nobody plans any more";
}

TEST(View, ASideSeesItsOwnUnitsTheSpottedOnesAndItsPicture)
{
    Board board(10, 10);
    const int own = board.Place(BLUE, 5, 5), enemy = board.Place(RED, 15, 5), spotted = board.Place(RED, 25, 5),
              shared = board.Place(RED, 35, 5), reported = board.Place(BLUE, 45, 5), gone = board.Place(BLUE, 55, 5),
              attached = board.Place(BLUE, 65, 5);
    UNIT[spotted].SPOTTED = 1;
    UNIT[shared].BCOP = 1;
    UNIT[reported].RCOP = 1;
    UNIT[gone].STATUS = 0;
    UNIT[attached].PARENT_UNIT = own;
    const auto seen = [&] {
        std::vector<int> units;
        for (const int u : {own, enemy, spotted, shared, reported, gone, attached})
            if (Show_Unit(u)) units.push_back(u);
        return units;
    };
    PlanSide = RED;
    UserSide = BLUE;
    EXPECT_EQ(seen(), (std::vector<int>{enemy, spotted, shared, reported}));
    PlanSide = 3;
    EXPECT_EQ(seen(), (std::vector<int>{own, spotted, shared, reported})) << "nobody plans: the seat's own side";
    UserSide = 3;
    EXPECT_EQ(seen().size(), 5u);
    ViewMode = 2;
    EXPECT_EQ(seen().size(), 4u);
    SEAT.TurnRunning = true;
    ViewMode = 0;
    Show_Picture(enemy);
    EXPECT_EQ(seen(), std::vector<int>{enemy}) << "in a turn what a rule has shown";
    SEAT.TurnRunning = false;

    // A rule that goes by the view shows 0 as 1, and touches no unit that both sides know of.
    UNIT[own].VISIBLE = -1;
    Show_By_View(enemy);
    EXPECT_EQ(UNIT[enemy].VISIBLE, 0);
    ViewMode = 3;
    Show_By_View(enemy);
    Show_By_View(own);
    EXPECT_EQ(Row(UNIT[enemy].VISIBLE, UNIT[own].VISIBLE), Row(1, -1));
}

TEST(StartUp, OnlyTheExactScreenSizesAreAccepted)
{
    for (const auto& [width, height] : {std::pair(1024, 768), {1152, 864}, {1280, 960}})
        EXPECT_TRUE(Screen_Size_Accepted(width, height));
    EXPECT_FALSE(Screen_Size_Accepted(1280, 1024));
    int width = 0, height = 0;
    EXPECT_TRUE(Window_Size_For(1920, 1080, width, height));
    EXPECT_EQ(width, 1280);
    EXPECT_TRUE(Window_Size_For(1280, 900, width, height));
    EXPECT_EQ(height, 864);
    EXPECT_FALSE(Window_Size_For(1023, 2000, width, height));
}

TEST(StartUp, ASideIsTakenOnlyByASeatThatMayHoldIt)
{
    Board board(2, 2);
    EXPECT_FALSE(Choose_Game_Type(10));
    const auto takes = [](int type, int user, int side) {
        Choose_Game_Type(type);
        GameLoaded = -1;
        UserSide = user;
        const bool taken = Choose_Side(side);
        EXPECT_EQ(ActiveSide, taken ? side : 3);
        EXPECT_EQ(PlanSide, taken ? side : 3);
        return taken;
    };
    for (const auto& [type, user, side] : {std::tuple(0, 3, 1), {0, 3, 2}, {5, 5, 2}, {3, 1, 1}})
        EXPECT_TRUE(takes(type, user, side)) << type;
    EXPECT_FALSE(takes(0, 3, 3));
    EXPECT_FALSE(takes(3, 1, 2));   // the computer's side
    EXPECT_FALSE(takes(7, 1, 1));   // the host has not let it plan yet
    SEAT.PlanningEnabled = true;
    EXPECT_TRUE(takes(7, 1, 1));
    EXPECT_FALSE(takes(8, 1, 2));
    SEAT.TurnRunning = true;
    EXPECT_FALSE(takes(0, 3, 1));
}

// The stock scenario "River", played to its end by the plotted orders: what sustains and shapes a battle can be
// read.

#include "core/game_state.h"
#include "core/turn_driver.h"
#include "events/events.h"
#include "support/board.h"
#include "support/log_lines.h"
#include "support/stock_game.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using namespace sm;
using namespace sm::test;

namespace {

constexpr int BRIDGE = 7, MINES = 8, FORT = 9;            // BGTYPE
constexpr int CLOUD = 11, PERSISTENT = 21;                // NBCTYPE
constexpr int CROSSING_COLUMN = 118, CROSSING_ROW = 84;   // where the northern engineer company builds
constexpr int VALLEY_COLUMN = 122, VALLEY_ROW = 101;      // the bridge of Grimma
constexpr int OBSTACLE_COLUMN = 126, OBSTACLE_ROW = 92;   // what Red's engineers are told to lay

int Row_Of(std::string_view name)
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].NAME == name) return u;
    return 0;
}

bool Work_At(int type, int column, int row)
{
    for (int b = 1; b <= MAX_BG; ++b)
        if (BG[b].BGTYPE == type && BG[b].BGHEX == Hex_Of(column, row)) return true;
    return false;
}

/// What a player would have seen from turn to turn.
struct SEEN {
    int TURN;
    bool ARRIVED, BRIDGE_STANDS, MINES_LAID, VALLEY_CLOSED;
    int FORTS;
    int TANKS_COLUMN, TANKS_WORK;
    std::vector<int> CLOUD_SIZES;
    std::map<int, int> ORPHANS;   ///< convoys whose customer is gone, and that customer
};

SEEN Look()
{
    SEEN s{};
    s.TURN = GTURN;
    const int brigade = Row_Of("2 Bde 3 ID"), tanks = Row_Of("B/3-69 AR");
    s.ARRIVED = brigade > 0 && UNIT[brigade].OFFMAP == 0;
    s.BRIDGE_STANDS = Work_At(BRIDGE, CROSSING_COLUMN, CROSSING_ROW);
    s.MINES_LAID = Work_At(MINES, OBSTACLE_COLUMN, OBSTACLE_ROW);
    for (int b = 1; b <= MAX_BG; ++b) s.FORTS += BG[b].BGTYPE == FORT ? 1 : 0;
    s.TANKS_COLUMN = tanks > 0 ? Hex_Column(UNIT[tanks].X) : 0;
    s.TANKS_WORK = tanks > 0 ? int{UNIT[tanks].TIMEREGR} : 0;
    for (int n = 1; n <= MAX_NBC; ++n) {
        if (NBC[n].NBCTYPE == CLOUD) s.CLOUD_SIZES.push_back(NBC[n].NBCSIZE);
        if (NBC[n].NBCTYPE == PERSISTENT && NBC[n].NBCHEX == Hex_Of(VALLEY_COLUMN, VALLEY_ROW))
            s.VALLEY_CLOSED = true;
    }
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].SIZE == 100 && UNIT[UNIT[u].CONVOYD].STATUS < 1)
            s.ORPHANS[u] = UNIT[u].CONVOYD;
    return s;
}

/// Sees the staffs give a convoy that has lost its customer another one: it may deliver in the same turn.
class River_Screen : public Headless_Platform {
public:
    int REDIRECTED = 0;
    std::map<int, int> ORPHANS;   ///< convoys whose customer is gone, and that customer

    void Phase_Done(std::string_view name) override
    {
        Headless_Platform::Phase_Done(name);
        if (name != "staffs") return;
        for (const auto& [convoy, customer] : ORPHANS)
            if (UNIT[convoy].STATUS > 0 && UNIT[convoy].SIZE == 100 && UNIT[convoy].CONVOYD != customer)
                ++REDIRECTED;
    }
};

class River_Scenario : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Clear_Game();
        Use_Screen(&SCREEN);
        ASSERT_NO_FATAL_FAILURE(Open_Stock_Scenario("River.sce"));
        const Own_Program_Folder folder;
        folder.Use();
        SCREEN.RECORDING = true;
        const Log_Lines log;
        TURNS = {Look()};
        while (GTURN < MAXGTURN) {
            SCREEN.ORPHANS = TURNS.back().ORPHANS;
            ASSERT_TRUE(Play_Turn());
            TURNS.push_back(Look());
        }
        LOG = log.All();
    }
    static void TearDownTestSuite()
    {
        Use_Screen(nullptr);
        SCREEN = River_Screen{};
        Clear_Game();
    }

    /// Whether some message holds all of these texts in this order.
    static bool Told_In_Order(std::string_view first, std::string_view second, std::string_view third = "")
    {
        return std::any_of(SCREEN.TOLD.begin(), SCREEN.TOLD.end(), [&](const Headless_Platform::Told& t) {
            const std::size_t a = t.TEXT.find(first);
            const std::size_t b = a == std::string::npos ? a : t.TEXT.find(second, a + first.size());
            return t.KIND == "post" && b != std::string::npos &&
                   t.TEXT.find(third, b + second.size()) != std::string::npos;
        });
    }
    static bool Logged(std::string_view text)
    {
        return std::any_of(LOG.begin(), LOG.end(),
                           [&](const std::string& line) { return line.find(text) != std::string::npos; });
    }

    static inline River_Screen SCREEN;
    static inline std::vector<SEEN> TURNS;
    static inline std::vector<std::string> LOG;
};

}   // namespace

TEST_F(River_Scenario, WhatSustainsAndShapesABattleIsTold)
{
    for (const char* text :
         {":  Request CSS resupply ASAP!",
          "16 Recon Bn: Out of Supply - Operations Halted!",   // a battalion on the march
          ": Resupply is complete!", "C/1-64 AR: WSRO is complete!",
          "A/1-64 AR: Obstacle is reduced!",   // with the engineers attached to it
          "C/2-7 IN: Obstacle is reduced!",    // alone
          "16 Egr Bn: Fortification will be complete in 2 turn!", "16 Egr Bn: Fortification is finished!",
          "E/71 MRR reports bridge is blown at ", "A/1-64 AR: Assault crossing will be complete in 1 turn!",
          "814 EN (Ribbon): Bridge will be complete in 1 turn!", "814 EN (Ribbon): Bridge is finished!",
          "74 EN (Ribbon): Bridge is finished!", ": We are inside a contaminated area!",
          "A/1-64 AR: Now inside smoke screen!", "814 EN (Ribbon): Now inside smoke screen!",
          "New unit arrives: 2 Bde 3 ID", "SITREP: B/1-64 AR lost 10% as a result of direct fires!"})
        EXPECT_TRUE(SCREEN.Heard("post", text)) << text;
    EXPECT_EQ(Row_Of("D/1-64 AR (rem)"), 0) << "merged into C/1-64 AR";
    EXPECT_EQ(TURNS.back().FORTS, TURNS.front().FORTS + 2) << "one of each side";
}

TEST_F(River_Scenario, ConvoysAreShotUpAndThoseWhoseCustomerIsGoneFindAnother)
{
    EXPECT_TRUE(Told_In_Order("CONVOY #", " receives direct fires "));
    EXPECT_TRUE(Told_In_Order("SITREP: CONVOY #", " lost ", " as a result of direct fires!"));
    EXPECT_TRUE(Told_In_Order("CONVOY #", ": My supported unit is destroyed!"));
    EXPECT_GT(SCREEN.REDIRECTED, 0);
}

TEST_F(River_Scenario, RedsObstacleIsLaidInTheSecondTurnAndLostAgain)
{
    const auto laid = std::find_if(TURNS.begin(), TURNS.end(), [](const SEEN& s) { return s.MINES_LAID; });
    ASSERT_NE(laid, TURNS.end());
    EXPECT_EQ(laid->TURN, 2);
    EXPECT_FALSE(TURNS.back().MINES_LAID) << "lost again";
}

TEST_F(River_Scenario, TheCompanyThatARoadblockHeldUpCrossesOverTheNewBridge)
{
    bool crossed = false;
    for (std::size_t t = 1; t < TURNS.size(); ++t) {
        EXPECT_EQ(TURNS[t].TANKS_WORK, 0) << "no boats any more, turn " << t;
        if (TURNS[t].TANKS_COLUMN <= CROSSING_COLUMN) continue;
        EXPECT_TRUE(crossed || TURNS[t - 1].BRIDGE_STANDS) << "turn " << t;
        crossed = true;
    }
    EXPECT_TRUE(crossed);
}

TEST_F(River_Scenario, APersistentStrikeClosesTheValleyForTwelveTurnsAndABrigadeArrivesInTheSixth)
{
    for (const SEEN& s : TURNS) {
        EXPECT_EQ(s.VALLEY_CLOSED, s.TURN >= 1 && s.TURN <= 12) << "turn " << s.TURN;
        EXPECT_EQ(s.ARRIVED, s.TURN >= 6) << "turn " << s.TURN;
    }
}

TEST_F(River_Scenario, ACloudWidensDownWindAndIsGone)
{
    // 9 pixels at first; its drifts of turn 1 make it 1, 1.5, 2 and 2.5 times as wide
    ASSERT_GE(TURNS.size(), 4u);
    ASSERT_EQ(TURNS[1].CLOUD_SIZES.size(), 1u);
    EXPECT_GT(TURNS[1].CLOUD_SIZES[0], 9 * 7) << "9 x 1 x 1.5 x 2 x 2.5, rounded at each drift";
    EXPECT_TRUE(TURNS[3].CLOUD_SIZES.empty());
    EXPECT_TRUE(Told_In_Order("NBC Losses: ", " lost ", "% destroyed"));
}

TEST_F(River_Scenario, AmbushRoadblockAndRefugeesHappenToTheColumnsThatMeetThemAndCanBeRead)
{
    EXPECT_TRUE(Logged("B/3-69 AR movement is stopped.")) << "by the roadblock";
    EXPECT_TRUE(Logged("D/3-15 IN movement is slowed.")) << "by the refugees";
    EXPECT_TRUE(Told_In_Order("SITREP: CONVOY #", " lost 30%", " as a result of a mine/bomb!"));
    for (const char* label : {"Ambush (Red)", "Roadblock (Red-Started)", "Refugees (Neutral)"}) {
        int row = 1;
        while (row <= MAX_PP && PP[row].PPATYPE != label) ++row;
        ASSERT_LE(row, MAX_PP) << label;
        EXPECT_EQ(PP[row].PPACTIVE, 1) << label;
        const int boxes = SCREEN.Count("box", label);
        Open_Event(row);
        EXPECT_EQ(SCREEN.Count("box", label), boxes + 1);
    }
    EXPECT_TRUE(SCREEN.Heard("box", "Some three hundred people with carts"));
}

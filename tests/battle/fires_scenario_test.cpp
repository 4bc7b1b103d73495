// The stock scenario "Fires", played to its end: every kind of fire that it orders can be read.

#include "core/game_state.h"
#include "core/turn_driver.h"
#include "support/board.h"
#include "support/stock_game.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// Six turns in a program folder of their own, with all that the screen was told.
class Fires_Scenario : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Clear_Game();
        Use_Screen(&SCREEN);
        ASSERT_NO_FATAL_FAILURE(Open_Stock_Scenario("Fires.sce"));
        const Own_Program_Folder folder;
        folder.Use();
        WAITING = UNIT[Row_Of("A/1 Avn (NAI)")].MOVESTATUS;
        SCREEN.RECORDING = true;
        for (int turn = 1; turn <= 6; ++turn) ASSERT_TRUE(Play_Turn());
    }
    static void TearDownTestSuite()
    {
        Use_Screen(nullptr);
        SCREEN = Headless_Platform{};
        Clear_Game();
    }

    static int Row_Of(std::string_view name)
    {
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (UNIT[u].STATUS > 0 && UNIT[u].NAME == name) return u;
        return 0;
    }
    /// Place of the first telling of this kind that holds the text, -1 when there is none; from `after` on.
    static int First(std::string_view kind, std::string_view text, int after = 0)
    {
        for (int i = after; i < static_cast<int>(SCREEN.TOLD.size()); ++i)
            if (SCREEN.TOLD[i].KIND == kind && SCREEN.TOLD[i].TEXT.find(text) != std::string::npos) return i;
        return -1;
    }
    static bool Posted_In(std::string_view phase, std::string_view next_phase, std::string_view text)
    {
        for (int from = First("phase", phase); from >= 0; from = First("phase", phase, from + 1)) {
            const int at = First("post", text, from);
            if (at >= 0 && at < First("phase", next_phase, from)) return true;
        }
        return false;
    }

    static inline Headless_Platform SCREEN;
    static inline int WAITING = 0;
};

}   // namespace

TEST_F(Fires_Scenario, SEADComesBeforeGunsAndGunsBeforeAircraft)
{
    const int sead = First("status", "Pre-planned SEAD Phase"),
              guns = First("status", "Pre-planned Artillery Phase", sead),
              air = First("status", "Air Strike Phase", guns);
    ASSERT_GE(sead, 0);
    ASSERT_GE(air, 0);
    const int first_sead = First("status", "Supporting artillery fires pre-planned SEAD!", sead);
    const int first_mission = First("post", "Artillery Attack BDA:  1/9 MRB", sead);
    const int first_strike = First("post", "Air Strike Sorties attack", sead);
    EXPECT_TRUE(sead < first_sead && first_sead < guns);
    EXPECT_TRUE(guns < first_mission && first_mission < air);
    EXPECT_GT(first_strike, air);
    EXPECT_TRUE(SCREEN.Heard("status", "Supporting artillery fires on-call SEAD!"));
}

TEST_F(Fires_Scenario, EveryKindOfFireIsTold)
{
    for (const char* text : {" fires Counterfire!",
                             "INTREP: Enemy artillery has been located at ",
                             "2/9 MRB: Breaching an obstacle!",   // the minefield that guns laid on its way
                             " X Air Strike Sorties attack ",
                             " X Bomber Sorties attack ",
                             "SITREP: Found an alternate target! ",
                             " Found No Targets and Returned to Base!",
                             "fighters intercept",
                             "SITREP: Air strike aborts due to interception!",
                             "SITREP: ADA disrupts air strike!",
                             "Air Strike BDA: ",
                             "Bomber Mission BDA: ",
                             "Bridge is destroyed!",
                             "Air attack misses bridge!",
                             "Attack occurred within an active TAI!",
                             "Attack did not occur within an active TAI!",
                             "are dropping mines!",
                             " reports bridge is blown at ",
                             "SPOTREP: Explosion detected at ",
                             "A/1 Avn (NAI): Conducting ",
                             "A/1 Avn (NAI): Out of ammunition!",
                             "B/1 Avn (free) has landed.",
                             "AH/10 (spent) is destroyed!",
                             "ADA BDA: A/3 IN lost",
                             "A/3 IN reports the air assault is complete!",
                             "UAV 1 has landed."})
        EXPECT_TRUE(SCREEN.Heard("post", text)) << text;
    for (const char* text : {" Shoots DS FA!", "ADA WARNING: Theater ballistic missile is inbound!",
                             "SITREP: ADA drives off interceptors!", "SITREP: Fighters evade ADA!",
                             "C/2 Avn (lift) receives small arms fire from Picket"})
        EXPECT_TRUE(SCREEN.Heard("status", text)) << text;
    EXPECT_TRUE(SCREEN.Heard("status", "ADA destroys theater ballistic missile!") ||
                SCREEN.Heard("status", "ADA misses theater ballistic missile!"));
    EXPECT_TRUE(
        Posted_In("Generating New Intelligence Picture", "Movement Phase", "Artillery Attack BDA:  2/9 MRB"))
        << "on opportunity, in a target area";
}

TEST_F(Fires_Scenario, HelicoptersThatWaitedAreHomeTheSpentOneIsGoneAndTheUAVComesThrough)
{
    EXPECT_EQ(WAITING, 7);
    EXPECT_EQ(UNIT[Row_Of("A/1 Avn (NAI)")].MOVESTATUS, 0);
    EXPECT_EQ(Row_Of("AH/10 (spent)"), 0);
    EXPECT_GT(Row_Of("UAV 1"), 0);
}

// From program start to a game in play: log, defaults, the list of game types, and who sits where after a load.

#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "persist/game_file.h"
#include "support/board.h"
#include "support/log_lines.h"
#include "support/numbers.h"
#include "support/small_battle.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

class Session : public testing::Test {
protected:
    Session()
    {
        SCENARIO = Save_Small_Battle(HOME).string();
        Use_Screen(&SCREEN);
        SCREEN.RECORDING = true;
    }
    ~Session() override
    {
        Close_Log();
        Use_Screen(nullptr);
        Clear_Game();
        WPN.ROW.clear();
    }
    bool Open(int type)
    {
        Choose_Game_Type(type);
        GameFileName = SCENARIO;
        return Load_Game();
    }
    /// The game in play as the file that Open opens.
    void Save_As_Scenario() { ASSERT_TRUE(Save_Game_File(SCENARIO, true)); }

    Scratch_Home HOME;
    Headless_Platform SCREEN;
    std::string SCENARIO;
};

}   // namespace

TEST_F(Session, StartUpLogsItsStepsAndSetsTheDefaults)
{
    const Log_Lines log;
    Start_Up(1152, 864);
    EXPECT_EQ(log.All(),
              (std::vector<std::string>{"          **************** Stonemarch Log File ******************", "",
                                        "Screen Size (Twips): 17280 x 12960",   // 15 to the pixel
                                        "Screen Size (Pixels):1152 x 864", "Screen Size: 1152",
                                        "Game objects are loaded", "Loading weapons file...",
                                        "Weapons file is loaded", "End of file process", "Program is loaded"}));
    EXPECT_TRUE(File_Content(HOME / "SM.log").starts_with("          ****************"));
    EXPECT_GT(WPN.Count(), 0);
    EXPECT_EQ(GAMEVERSION, "Version 2.04 --- 3 Jan 05");
    EXPECT_EQ(Cat(GTIME, " ", GDAY, " ", GMONTH), "0900 9 Feb");
    EXPECT_EQ(Row(GTURN, BMNT, EENT, WINDD, AIRSUPER, MAXGTURN, BLOCSIDE, RLOCSIDE, SCENARIOT, BFOBJ, RFOBJ, AARN),
              Row(-1, 600, 2100, 1, 50, 15, 3, 1, 1, 1, 1, 0));
    EXPECT_EQ(Row(BFIREF, RFIREF, PlanSide, TurnLength, SoundOn, TurnsPlayed), Row(50, 50, 3, 0, 1, 0));
    EXPECT_EQ(MessageDelay, 2000.0f);

    Start_Up(1280, 1024);
    EXPECT_EQ(log.Count("Screen Size: 0"), 1) << "no accepted size";
    EXPECT_EQ(Screen_Refusal(), "Stonemarch supports the following screen settings:   \r"
                                "                   1024 x 768\r"
                                "                   1152 x 864\r"
                                "                   1280 x 960\r"
                                "Adjust your screen settings and restart the program.");
}

TEST_F(Session, ChoosingAGameTypePutsTheGameBeforeAway)
{
    for (int type = 0; type < GAME_TYPES; ++type) {
        GameLoaded = GameOver = AARPlaying = -1;
        PBMT = 3;
        ActiveSide = PlanSide = ViewMode = BlueDone = RedDone = 1;
        EXPECT_EQ(Choose_Game_Type(type), type != 6) << "6 leaves the game";
        if (type == 6) continue;
        EXPECT_EQ(Row(GameType, PlayType, NetRole), Row(type, type, type == 7 ? 1 : type == 8 ? 2 : 0));
        EXPECT_EQ(Row(GameLoaded, GameOver, AARPlaying, PBMT, ViewMode, BlueDone, RedDone, ActiveSide, PlanSide),
                  Row(0, 0, 0, 0, 0, 0, 0, 3, 3));
    }
    Choose_Game_Type(9);
    EXPECT_EQ(UserSide, 3);
    EXPECT_EQ(WindowTitle, "Stonemarch -- AAR Playback");
}

TEST_F(Session, ALoadSeatsTheSideThatPlansAndShowsItWhatItMaySee)
{
    struct SEATED {
        int TYPE, ACTIVE, PLAN, USER;
    };
    for (const SEATED& s : {SEATED{0, 1, 1, 3}, SEATED{1, 1, 1, 1}, SEATED{2, 2, 2, 2}, SEATED{3, 1, 1, 1},
                            SEATED{4, 2, 2, 2}, SEATED{5, 3, 3, 5}, SEATED{7, 3, 3, 3}, SEATED{8, 3, 3, 3}}) {
        Choose_Game_Type(s.TYPE);
        GameOver = AARPlaying = -1;
        ViewMode = 2;
        SelUnit = 7;
        MapMode = 10;
        GameFileName = SCENARIO;
        ASSERT_TRUE(Load_Game()) << s.TYPE;
        EXPECT_EQ(Row(ActiveSide, PlanSide, UserSide), Row(s.ACTIVE, s.PLAN, s.USER)) << s.TYPE;
        EXPECT_EQ(Row(GameLoaded, GameOver, AARPlaying, ViewMode, SelUnit, MapMode), Row(-1, 0, 0, 0, 0, 0));
        // Unit 1 is Blue's; of Red's, 301 is unknown to Blue and 302 known.
        EXPECT_EQ(SEAT.PICTURE[1], s.PLAN != 2) << s.TYPE;
        EXPECT_EQ(SEAT.PICTURE[301], s.PLAN != 1) << s.TYPE;
        EXPECT_TRUE(SEAT.PICTURE[302]);
    }
    EXPECT_TRUE(SCREEN.Heard("phase", "Now loading..."));
    EXPECT_TRUE(SCREEN.Heard("status", "Now loading game..."));
}

TEST_F(Session, NothingOfTheGameBeforeCountsInTheOneThatIsLoaded)
{
    ASSERT_TRUE(Open(0));
    GTURN = -1;
    GTIME = "2200";
    TIME_OF_DAY = "Day";
    Save_As_Scenario();
    // Without its sums, as an older program may have left it.
    std::string text = File_Content(SCENARIO);
    const std::string start = "BRCP1:", stop = "LOGPLAYR:";
    text.erase(text.find(start), text.find(stop) - text.find(start));
    Put_File(SCENARIO, text);
    float* const SUMS[] = {&BRCP2, &RRCP2, &BMANL,  &BARTYL, &BAIRL, &BADAL, &BNBCL,
                           &BEPW,  &RMANL, &RARTYL, &RAIRL,  &RADAL, &RNBCL, &REPW};
    for (float* sum : SUMS) *sum = 9;
    BRCP1 = RRCP1 = 9;
    AAR[1].BRCP = 9;
    GameFileName = SCENARIO;
    ASSERT_TRUE(Load_Game());
    for (const float* sum : SUMS) EXPECT_EQ(*sum, 0) << sum - SUMS[0];
    EXPECT_EQ(BRCP3, 51);   // five units of 10 and the line of communication of 1
    EXPECT_EQ(AAR[1].BRCP, 0);
    EXPECT_EQ(GTURN, 0) << "a scenario from before its first turn";
    EXPECT_EQ(TIME_OF_DAY, "Night");
}

TEST_F(Session, LinesOfCommunicationAreMadeBeforeTheFirstTurnOnly)
{
    ASSERT_TRUE(Open(0));
    EXPECT_EQ(Row(UNIT[300].TYPE, UNIT[600].TYPE), Row(50, 50));
    UNIT[300] = UNIT[600] = UNIT_RECORD{};
    GTURN = 1;
    Save_As_Scenario();
    ASSERT_TRUE(Open(0));
    EXPECT_EQ(UNIT[300].STATUS, 0);
    EXPECT_EQ(AAR[1].BRCP, 0) << "the chart is the turn's";
}

TEST_F(Session, TheWayLeftIsCountedFromTheNodesUnlessTheFileTellsIt)
{
    ASSERT_TRUE(Open(0));
    for (const int u : {1, 2}) {
        UNIT[u].X1 = UNIT[u].Y1 = 300;
        UNIT[u].NUMBER_OF_MOVES = 3;
        UNIT[u].NUMBER_OF_NODES = 2;
        for (int n = 1; n <= 2; ++n) {
            // the second node in the lower row
            MN[2 * u - n + 1] = {u, n, BLUE, n == 1 ? 330 : 360, n == 1 ? 306 : 360};
        }
    }
    UNIT[3].NUMBER_OF_MOVES = 3;
    Save_As_Scenario();
    std::string text = File_Content(SCENARIO);
    text.insert(text.find("NAME: ", text.find("UNIT NUMBER:  2\r")), "DISTANCE_TO_END: 44\r\n");
    Put_File(SCENARIO, text);
    ASSERT_TRUE(Open(0));
    // Cells of 6 pixels: columns 51, 56, 61 and rows 51, 52, 61: 5 of the leg less 3 made, and 9 of the next.
    EXPECT_EQ(Row(UNIT[1].DISTANCE_TO_END, UNIT[2].DISTANCE_TO_END, UNIT[3].DISTANCE_TO_END), Row(11, 44, 0));
}

TEST_F(Session, AFailedLoadLeavesNoGame)
{
    ASSERT_TRUE(Open(3));
    ASSERT_TRUE(Choose_Side(1));
    GameFileName = (HOME / "none.btl").string();
    EXPECT_FALSE(Load_Game());
    EXPECT_TRUE(SCREEN.Heard("box", "Stonemarch|Error: 53"));
    EXPECT_EQ(Row(GameLoaded, GTURN, ActiveSide, PlanSide), Row(0, -1, 3, 3));
    EXPECT_FALSE(Choose_Side(1));
}

#include "core/seat.h"
#include "core/session.h"
#include "core/state_hash.h"
#include "support/board.h"
#include "support/small_battle.h"
#include "ui/commands.h"
#include "ui/game_commands.h"
#include "ui/map_click.h"
#include "ui/plot.h"
#include "ui/selection.h"
#include "ui/session_mark.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

class Recorder : public Window {
public:
    int CLOSED = 0;
    void Close() override { ++CLOSED; }
};

/// The program with its program folder, at the list of game types.
class Program : public testing::Test {
protected:
    Program()
    {
        SCENARIO = Save_Small_Battle(HOME).string();
        DESK = Desk{};
        Set_Start_Defaults();
        SEAT.WritesFiles = true;
        Use_Screen(&SCREEN);
        Use_Window(&WINDOW);
        SCREEN.RECORDING = true;
    }
    ~Program() override
    {
        Close_Session_Mark();
        Use_Window(nullptr);
        Use_Screen(nullptr);
        Clear_Game();
    }
    void Open()
    {
        SCREEN.FILES = {SCENARIO};
        optGameType_Click(0);
        ASSERT_EQ(GameLoaded, -1);
    }
    std::string Saved(const char* name) const { return (HOME / "Saved Games" / name).string(); }

    Scratch_Home HOME;
    Headless_Platform SCREEN;
    Recorder WINDOW;
    std::string SCENARIO;
};

}   // namespace

TEST_F(Program, ATurnIsPlayedUnderThePlayersFileSavedAndGoneOnWith)
{
    SCREEN.FILES = {SCENARIO};
    optGameType_Click(0);
    EXPECT_TRUE(SCREEN.Heard("ask", "Do you want to start a new game? \rAnswer NO if you want to load a previously saved game."));
    EXPECT_TRUE(SCREEN.Heard("file", "Open New Game|Scenarios|Scenario Files (*.sce)|*.sce|Saved Game Files (*.btl)|*.btl"));
    ASSERT_EQ(GameLoaded, -1);
    EXPECT_EQ(ActiveSide, BLUE);
    EXPECT_EQ(DESK.PALETTE, Palette::ORDERS);
    EXPECT_TRUE(SCREEN.Heard("sound", ""));

    ASSERT_TRUE(Run_Command(Cmd::GO));
    EXPECT_EQ(GTURN, 1);
    EXPECT_EQ(ActiveSide, BOTH);
    EXPECT_EQ(DESK.PALETTE, Palette::MAIN);
    EXPECT_TRUE(std::filesystem::exists(Saved("autosave.btl")));
    EXPECT_EQ(GameFileName, SCENARIO) << "the player's file again";
    EXPECT_EQ(AARN, 1);

    SCREEN.FILES = {Saved("evening")};
    ASSERT_TRUE(Run_Command(Cmd::SAVE));
    ASSERT_TRUE(std::filesystem::exists(Saved("evening.btl")));
    EXPECT_FALSE(Unsaved_Changes());

    Run_Command(Cmd::RETURN);
    EXPECT_EQ(GameLoaded, 0);
    EXPECT_EQ(GTURN, -1);
    SCREEN.FILES = {Saved("evening.btl")};
    optGameType_Click(0);
    // A turn was played in this session: it is a saved game that is asked for, without the question.
    EXPECT_TRUE(SCREEN.Heard("file", "Open Saved Game|Saved Games|Saved Game Files (*.btl)|*.btl"));
    ASSERT_EQ(GameLoaded, -1);
    EXPECT_EQ(GTURN, 1);
}

TEST_F(Program, OnlyGameTypesThatAreBuiltCanBeChosen)
{
    for (int number = 0; number < GAME_TYPES; ++number) {
        if (Game_Type_Offered(number)) continue;
        optGameType_Click(number);
        EXPECT_EQ(DESK.PALETTE, Palette::TYPES) << number;
    }
    EXPECT_EQ(WINDOW.CLOSED, 0);
    optGameType_Click(6);   // "Exit Game" ends the program at once, unasked
    EXPECT_EQ(WINDOW.CLOSED, 1);
    EXPECT_FALSE(SCREEN.Heard("ask", "quit"));
}

TEST_F(Program, ACancelledDialogLeavesTheGameAsItWas)
{
    Open();
    const auto before = State_Hash();
    SCREEN.FILES.clear();
    mnuOpenSaved_Click();
    EXPECT_FALSE(cmdSavegame_Click());
    EXPECT_EQ(GameLoaded, -1);
    EXPECT_EQ(State_Hash(), before);
}

TEST_F(Program, EachKindOfGameHasItsOwnFilesInItsOwnFolder)
{
    struct REQUEST {
        int TYPE;
        const char *NEW, *OPEN, *SAVE;
    };
    static constexpr REQUEST REQUESTS[] = {
        {3, "Open New Game|Scenarios|.sce.btl", "Open Saved Game|Saved Games|.btl", "Save Game|Saved Games|.btl"},
        {2, "Open New Game|Scenarios|.sce.btl", "Open PBEM File|Saved Games|.pbm", "Save PBEM File|Saved Games|.pbm"},
        {5, "Open Scenario|Scenarios|.sce.btl.pbm", "Open Scenario|Scenarios|.sce.btl.pbm",
         "Save Scenario|Scenarios|.sce"},
    };
    const auto words = [](const File_Request& request) {
        std::string kinds;
        for (auto at = request.FILTER.find("|*."); at != std::string::npos; at = request.FILTER.find("|*.", at + 1))
            kinds += request.FILTER.substr(at + 2, 4);
        return Cat(request.TITLE, "|", request.FOLDER, "|", kinds);
    };
    for (const REQUEST& r : REQUESTS) {
        GameType = r.TYPE;
        EXPECT_EQ(words(Open_Request(true)), r.NEW);
        EXPECT_EQ(words(Open_Request(false)), r.OPEN);
        EXPECT_EQ(words(Save_Request()), r.SAVE);
        EXPECT_TRUE(Save_Request().SAVE);
    }
}

TEST_F(Program, TheEndOfPlanningTakesEveryPlanOffTheScreen)
{
    Open();
    Get_Unit(2);
    Run_Command(Cmd::PLOT);
    Map_Order_Click(465, 440);
    cmdEnd_Menu();
    EXPECT_EQ(ActiveSide, BOTH);
    EXPECT_EQ(PlanSide, BOTH);
    EXPECT_EQ(SelUnit, 0);
    EXPECT_EQ(MapMode, 0);
    EXPECT_FALSE(Sees_Plans_Of(BLUE));
    EXPECT_FALSE(Run_Command(Cmd::PLOT));
    EXPECT_EQ(UNIT[2].NUMBER_OF_NODES, 1);   // the order itself stands
}

TEST_F(Program, ChangesThatNoSaveHoldsAreAskedAbout)
{
    Open();
    EXPECT_FALSE(Unsaved_Changes());
    Get_Unit(2);
    Run_Command(Cmd::VIEW_ALL);
    EXPECT_FALSE(Unsaved_Changes());   // looking is no change
    Run_Command(Cmd::TURN_LEFT);
    EXPECT_TRUE(Unsaved_Changes());

    SCREEN.ANSWERS = {true, true};   // quit: yes; save: yes, but the dialog is cancelled
    Run_Command(Cmd::EXIT);
    EXPECT_EQ(WINDOW.CLOSED, 0);
    SCREEN.ANSWERS = {false};
    Run_Command(Cmd::EXIT);
    EXPECT_EQ(WINDOW.CLOSED, 0);
    SCREEN.ANSWERS = {true, false};   // leaves without saving
    Run_Command(Cmd::EXIT);
    EXPECT_EQ(WINDOW.CLOSED, 1);
}

TEST_F(Program, AFailedSaveKeepsTheQuestionAndTheName)
{
    Open();
    Get_Unit(2);
    Run_Command(Cmd::TURN_LEFT);
    const std::string name = GameFileName;
    SCREEN.FILES = {(HOME / "no such folder" / "game.btl").string()};
    EXPECT_FALSE(cmdSavegame_Click());
    EXPECT_EQ(GameFileName, name);
    EXPECT_TRUE(Unsaved_Changes());
    EXPECT_GT(SCREEN.Count("box", "Stonemarch|"), 0);
}

TEST_F(Program, WhenTheBattleIsOverNobodyPlans)
{
    Open();
    GTURN = MAXGTURN;
    cmdGO_Click();
    EXPECT_TRUE(SCREEN.Heard("box", "The Battle is Over!"));
    EXPECT_FALSE(Command_Allowed(Cmd::SIDE_BLUE));
    EXPECT_FALSE(Command_Allowed(Cmd::GO));
    cmdSide_Click(RED);
    EXPECT_EQ(ActiveSide, BOTH);
    EXPECT_TRUE(Sees_Plans_Of(RED));
}

TEST_F(Program, ASessionThatBrokeOffOffersTheStartOfItsLastTurn)
{
    int type = -1;
    EXPECT_FALSE(Open_Session_Mark(type));
    Open();
    cmdGO_Click();
    // The mark as a crash leaves it: the file with its content, nobody's lock on it.
    const std::string mark = File_Content(HOME / "SM.session");
    Close_Session_Mark();
    EXPECT_FALSE(std::filesystem::exists(HOME / "SM.session"));
    Put_File(HOME / "SM.session", mark);
    ASSERT_TRUE(Open_Session_Mark(type));
    EXPECT_EQ(type, 0);
    EXPECT_EQ(File_Content(HOME / "SM.session"), "");   // nothing to offer after a crash before the next turn

    Clear_Game();
    SCREEN.ANSWERS = {true};
    Offer_Autosave(type);
    EXPECT_TRUE(SCREEN.Heard("ask", "start of its last turn"));
    EXPECT_EQ(GameLoaded, -1);
    EXPECT_EQ(GTURN, 0);
    EXPECT_FALSE(Open_Session_Mark(type));   // told once

    cmdGO_Click();
    EXPECT_NE(File_Content(HOME / "SM.session"), "");
    ASSERT_TRUE(Open_Game_File(SCENARIO));
    EXPECT_EQ(File_Content(HOME / "SM.session"), "");   // no turn of this one was begun
}

TEST_F(Program, ASecondProgramOnTheSameFolderIsOfferedNothing)
{
    int type = -1;
    Open_Session_Mark(type);
    Mark_Turn(0);
    const COMMAND_RESULT other = Run_Command("flock -n '" + (HOME / "SM.session").string() + "' true");
    EXPECT_NE(other.STATUS, 0);   // the lock is held while this program lives
}

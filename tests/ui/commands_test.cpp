#include "core/seat.h"
#include "core/state_hash.h"
#include "support/board.h"
#include "ui/commands.h"
#include "ui/map_click.h"
#include "ui/options.h"
#include "ui/plot.h"
#include "ui/selection.h"
#include "ui/unit_orders.h"

#include <gtest/gtest.h>

#include <set>

using namespace sm;
using namespace sm::test;

namespace {

class Recorder : public Window {
public:
    int X = 0;
    std::vector<std::string> LINES;
    void Centre_Map(int x, int) override { X = x; }
    void Show_Lines(std::string_view, const std::vector<std::string>& lines) override { LINES = lines; }
};

/// Blue plans on open ground of 60 x 40 cells.
class Planning : public testing::Test {
protected:
    Planning()
    {
        DESK = Desk{};
        DESK.PALETTE = Palette::ORDERS;
        Use_Window(&WINDOW);
        GameLoaded = -1;
        ActiveSide = PlanSide = BLUE;
        GTURN = 2;
    }
    ~Planning() override { Use_Window(nullptr); }
    int Shown(int side, int x, int y, int type = 5)
    {
        const int unit = board.Place(side, x, y, type);
        Show_Picture(unit);
        return unit;
    }
    Board board{60, 40};
    Recorder WINDOW;
};

}   // namespace

TEST_F(Planning, ClickingAPileAgainGoesThroughAllOfItAndRound)
{
    const int a = Shown(BLUE, 100, 100), b = Shown(BLUE, 104, 100), c = Shown(RED, 100, 104),
              beside = Shown(BLUE, 130, 100);
    std::set<int> seen;
    for (const bool first : {true, false, false, true}) {
        ASSERT_TRUE(Select_At(103, 100, 12));
        EXPECT_EQ(SelUnit == b, first);   // the nearest first
        seen.insert(SelUnit);
    }
    EXPECT_EQ(seen, (std::set<int>{a, b, c}));
    Hide_Picture(c);
    EXPECT_EQ(Units_At(103, 100, 12), (std::vector<int>{b, a}));
    Select_At(130, 100, 40);   // another place: not "the next of the pile" but the nearest
    EXPECT_EQ(SelUnit, beside);
    EXPECT_FALSE(Select_At(300, 300, 12));
    EXPECT_EQ(SelUnit, beside);
}

TEST_F(Planning, WhatStandsOffTheMapIsNeitherShownNorPicked)
{
    const int attached = Shown(BLUE, -500, -1000), waiting = Shown(BLUE, -1000, -1000),
              stands = Shown(BLUE, 20, 20);
    UNIT[waiting].OFFMAP = 1;
    UNIT[waiting].ATIME = 5;
    UNIT[waiting].ARX = 300;
    UNIT[waiting].ARY = 200;
    EXPECT_FALSE(Stands_On_Map(attached));
    EXPECT_FALSE(Stands_On_Map(waiting));
    EXPECT_TRUE(Stands_On_Map(stands));
    EXPECT_EQ(Units_At(-900, -1000, 2000), (std::vector<int>{stands}));
    // Walking the units shows where the waiting one will come.
    Get_Unit(attached);
    Run_Command(Cmd::NEXT_UNIT);
    ASSERT_EQ(SelUnit, waiting);
    EXPECT_EQ(WINDOW.X, 300);
    GTURN = 5;
    EXPECT_FALSE(Waits_To_Arrive(waiting));
}

TEST_F(Planning, APaletteItemDropsTheClickThatWasAwaited)
{
    const int u = Shown(BLUE, 100, 100);
    Get_Unit(u);
    for (const Cmd item : {Cmd::UNIT_REPORT, Cmd::MOPP_4, Cmd::MOPP_2, Cmd::STATUS_BOX}) {
        Run_Command(Cmd::PLOT);
        ASSERT_EQ(MapMode, MODE_PLOT);
        DrawMode = 12;
        Run_Command(item);
        EXPECT_EQ(MapMode, 0) << Command(item).CAPTION;
        EXPECT_EQ(DrawMode, 0) << Command(item).CAPTION;
    }
}

TEST_F(Planning, TheOverlayButtonNamesTheNextChoice)
{
    for (const char* caption : {"Display COO", "Show COO Type 2", "Hide COO", "Display COO"}) {
        EXPECT_EQ(Command_Caption(Cmd::OVERLAY_NEXT), caption);
        Run_Command(Cmd::OVERLAY_NEXT);
    }
}

TEST_F(Planning, SelectingChangesNothingOfTheGame)
{
    const int u = Shown(BLUE, 100, 100);
    UNIT[u].TACOPN = 3;
    Set_Screen(u);
    UNIT[u].STRENGTH = 60;   // the stored footprint is that of full strength
    const auto before = State_Hash();
    const float stored = UNIT[u].FOOTPRINT;
    Get_Unit(u);
    EXPECT_EQ(State_Hash(), before);
    EXPECT_EQ(Footprint_Of(u), 50.0f);   // battalion: 8 x 10 x 0.6 = 48, floor 5 x 10 = 50
    EXPECT_EQ(UNIT[u].FOOTPRINT, stored);
}

TEST_F(Planning, NextAndLastWalkTheUsedUnitsOfTheSideRoundTheEnd)
{
    const int a = Shown(BLUE, 100, 100), b = Shown(BLUE, 200, 100), c = Shown(BLUE, 300, 100);
    Shown(RED, 400, 100);
    UNIT[b].STATUS = 0;
    const std::pair<Cmd, int> steps[] = {
        {Cmd::NEXT_UNIT, a}, {Cmd::NEXT_UNIT, c}, {Cmd::NEXT_UNIT, a}, {Cmd::LAST_UNIT, c}};
    for (const auto& [step, unit] : steps) {
        Run_Command(step);
        EXPECT_EQ(SelUnit, unit);
        EXPECT_EQ(WINDOW.X, UNIT[unit].X);   // the map follows
    }
    Run_Command(Cmd::CENTRING_OFF);
    Run_Command(Cmd::NEXT_UNIT);
    EXPECT_EQ(WINDOW.X, 300);
}

TEST_F(Planning, OrdersGoToUnitsOfTheServingSideOnly)
{
    Shown(BLUE, 100, 100);
    const int red = Shown(RED, 200, 100);
    Get_Unit(red);
    EXPECT_FALSE(Run_Command(Cmd::PLOT));
    const int facing = UNIT[red].FACING;
    EXPECT_FALSE(Run_Command(Cmd::TURN_LEFT));
    EXPECT_EQ(UNIT[red].FACING, facing);
    MapMode = MODE_PLOT;
    EXPECT_EQ(Map_Order_Click(250, 100), Order_Click::NOTHING);
    EXPECT_EQ(UNIT[red].NUMBER_OF_NODES, 0);
    ActiveSide = PlanSide = BOTH;
    EXPECT_FALSE(Run_Command(Cmd::PLOT));
    EXPECT_FALSE(Run_Command(Cmd::NEXT_UNIT));
    UserSide = 5;   // the editor orders both
    EXPECT_TRUE(Run_Command(Cmd::PLOT));
}

TEST_F(Planning, ARightClickWithNothingPendingOffersTheMenu)
{
    const int u = Shown(BLUE, 100, 100);
    EXPECT_EQ(Map_Order_Click(200, 100), Order_Click::NOTHING);
    Get_Unit(u);
    EXPECT_EQ(Map_Order_Click(200, 100), Order_Click::MENU);
    EXPECT_EQ(Map_Order_Click(-5, 100), Order_Click::NOTHING);
    // On another unit of one's own the menu is that one's; an enemy's picture changes nothing.
    const int other = Shown(BLUE, 300, 100);
    Shown(RED, 350, 100);
    EXPECT_EQ(Map_Order_Click(305, 100, 10), Order_Click::MENU);
    EXPECT_EQ(SelUnit, other);
    EXPECT_EQ(Map_Order_Click(350, 100, 10), Order_Click::MENU);
    EXPECT_EQ(SelUnit, other);
    Run_Command(Cmd::PLOT);
    EXPECT_EQ(Map_Order_Click(100, 100, 10), Order_Click::DONE);   // an order that is pending is for the selected
    EXPECT_EQ(SelUnit, other);
    EXPECT_EQ(UNIT[u].NUMBER_OF_NODES, 0);
}

TEST_F(Planning, ANodeIsPickedUpAndPutDownOrDropped)
{
    const int u = Shown(BLUE, 100, 100);
    Get_Unit(u);
    Run_Command(Cmd::PLOT);
    Map_Order_Click(200, 100);
    Map_Order_Click(300, 100);
    ASSERT_TRUE(Map_Click(302, 101, 12, 6));
    EXPECT_EQ(MapMode, MODE_MOVE_NODE);
    Put_Down_Node(300, 160);
    EXPECT_EQ(MapMode, MODE_PLOT);
    EXPECT_EQ(MN[2].MNY, 160);
    // Column 10 to 20: 10 cells; then 10 columns and 6 rows: 10 diagonal steps.
    EXPECT_EQ(UNIT[u].DISTANCE_TO_END, 20);

    Map_Click(300, 160, 12, 6);
    Run_Command(Cmd::STEP_BACK);
    EXPECT_EQ(MapMode, MODE_PLOT);
    EXPECT_EQ(MN[2].MNX, 300);
    EXPECT_EQ(Node_At(150, 100, 6), 0);
    EXPECT_EQ(Node_At(203, 97, 6), 1);
}

TEST_F(Planning, EscapeGoesBackStepByStepAndAsksLast)
{
    Get_Unit(Shown(BLUE, 100, 100));
    Run_Command(Cmd::PLOT);
    Run_Command(Cmd::STEP_BACK);
    EXPECT_EQ(MapMode, 0);
    EXPECT_NE(SelUnit, 0);
    Run_Command(Cmd::STEP_BACK);
    EXPECT_EQ(SelUnit, 0);
    EXPECT_FALSE(board.SCREEN.Heard("ask", "quit"));
    board.SCREEN.ANSWERS = {false};
    Run_Command(Cmd::STEP_BACK);
    EXPECT_TRUE(board.SCREEN.Heard("ask", "Are you sure that you want to quit?"));
}

TEST_F(Planning, OptionsSetTheirValueAndSaySo)
{
    const struct {
        Cmd ID;
        int LENGTH;
        const char* WORDS;
    } options[] = {
        {Cmd::TURN_15, 2, "We are now playing 15 minute turns!"},
        {Cmd::TURN_ONE_HOUR, 1, "We are now playing one hour turns!"},
        {Cmd::TURN_TWO_HOURS, 0, "We are now playing two hour turns!"},
        {Cmd::ELINT_DETAILED, 0, "ELINT model has been set to detailed."},
    };
    for (const auto& option : options) {
        Run_Command(option.ID);
        EXPECT_EQ(TurnLength, option.LENGTH);
        EXPECT_TRUE(board.SCREEN.Heard("box", option.WORDS));
    }
    EXPECT_EQ(ELINTDetail, 1);
    board.SCREEN.ANSWERS = {false, true};
    Run_Command(Cmd::SPEED_FAST);
    EXPECT_EQ(MessageDelay, 2000.0f);
    Run_Command(Cmd::SPEED_FAST);
    EXPECT_EQ(MessageDelay, 100.0f);
    EXPECT_TRUE(board.SCREEN.Heard(
        "ask", "Setting the message display to the minimum delay setting will eliminate all sound "
               "effects.  Is this OK?"));
    EXPECT_TRUE(board.SCREEN.Heard("box", "The game speed is set to fast!"));
    Run_Command(Cmd::SPEED_NORMAL);
    EXPECT_EQ(MessageDelay, 2000.0f);
}

TEST_F(Planning, TheViewShowsAndHidesPicturesAndNothingElse)
{
    const int blue = Shown(BLUE, 100, 100), red = Shown(RED, 200, 100);
    UNIT[blue].SPOTTED = 0;
    const auto before = State_Hash();
    Run_Command(Cmd::VIEW_RED);
    EXPECT_FALSE(SEAT.PICTURE[blue]);
    EXPECT_TRUE(SEAT.PICTURE[red]);
    Run_Command(Cmd::VIEW_ALL);
    EXPECT_TRUE(SEAT.PICTURE[blue]);
    Run_Command(Cmd::VIEW_DEFAULT);
    EXPECT_FALSE(SEAT.PICTURE[red]);
    EXPECT_EQ(State_Hash(), before);
}

TEST_F(Planning, MOPPIsOrderedReportedAndTellsNothingToTheEnemy)
{
    const int u = Shown(BLUE, 100, 100);
    Get_Unit(u);
    for (const auto& [order, level] : {std::pair{Cmd::MOPP_4, 4}, std::pair{Cmd::MOPP_2, 2}}) {
        Run_Command(order);
        EXPECT_EQ(UNIT[u].MOPP, level);
        EXPECT_EQ(Messages().back(), Cat("B1 is going to MOPP ", To_Text(level), "!"));
        EXPECT_EQ(SITREPLIST[SitrepCount].SIDE, BLUE);
    }
}

TEST_F(Planning, TheReportRefusesConvoys)
{
    const int u = Shown(BLUE, 100, 100, 13);
    Get_Unit(u);
    UNIT[u].SIZE = 100;
    Run_Command(Cmd::UNIT_REPORT);
    EXPECT_TRUE(board.SCREEN.Heard(
        "box", "FROM the G4:|Supply Convoys cannot be accessed through the Unit Status Report!"));
    EXPECT_TRUE(WINDOW.LINES.empty());
    UNIT[u].SIZE = 3;
    Run_Command(Cmd::UNIT_REPORT);
    EXPECT_EQ(WINDOW.LINES.front(), "UNIT: B1");
}

TEST_F(Planning, GameDataCountsUsedRows)
{
    Shown(BLUE, 100, 100);
    Shown(RED, 200, 100);
    Shown(RED, 220, 100);
    MN[301].MNUNIT = 301;
    P[201].PTYPE = 12;
    TG[4].TGTYPE = 1;
    Run_Command(Cmd::GAME_DATA);
    ASSERT_EQ(WINDOW.LINES.size(), 8u);
    EXPECT_EQ(WINDOW.LINES[0], "Number of Blue Units: 1/300");
    EXPECT_EQ(WINDOW.LINES[1], "Number of Red Units: 2/300");
    EXPECT_EQ(WINDOW.LINES[3], "Number of Red Movement Nodes: 1/300");
    EXPECT_EQ(WINDOW.LINES[5], "Number of Red Graphics: 1/200");
    EXPECT_EQ(WINDOW.LINES[6], "Number of Blue Targets: 1/100");
}

TEST(Commands, NoMenuPaletteOrKeyNamesACommandTwiceOrOneThatIsNotBuilt)
{
    std::set<std::pair<std::string, Cmd>> menu;
    for (const MENU_ROW& row : Menu_Rows())
        if (row.ID != Cmd::NONE) {
            EXPECT_TRUE(Command(row.ID).BUILT) << Command(row.ID).CAPTION;
            EXPECT_TRUE(menu.emplace(row.MENU, row.ID).second) << Command(row.ID).CAPTION;
        }
    std::set<std::string> keys;
    for (const KEY_ROW& row : Key_Rows()) EXPECT_TRUE(keys.insert(row.KEY).second) << row.KEY;
    for (const PALETTE_ROW& row : Palette_Rows()) EXPECT_TRUE(Command(row.ID).BUILT) << Command(row.ID).CAPTION;
}

TEST(Commands, AFailureInACommandIsToldAndEndsThereOnly)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 100, 100);
    GameLoaded = -1;
    ActiveSide = BLUE;
    DESK = Desk{};
    Get_Unit(u);
    UNIT[u].TACOPN = 3;
    UNIT[u].FOOTPRINT = 1e6f;   // the ends of such a screen line fit no field
    EXPECT_FALSE(Run_Command(Cmd::TURN_LEFT));
    EXPECT_TRUE(board.SCREEN.Heard("box", "Stonemarch|Error: 6"));
}

#include "driver.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/state_hash.h"
#include "desktop/map/map_view.h"
#include "desktop/theme.h"
#include "support/board.h"
#include "ui/desk.h"
#include "ui/game_commands.h"
#include "ui/map_click.h"

#include <QApplication>
#include <QDialog>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <filesystem>

using namespace sm;
using namespace sm::test;
namespace fs = std::filesystem;

namespace {

const QSize SMALL(1024, 768);

double Distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

/// The smallest window over the small battle, Blue to plan.
class Opened_Window : public testing::Test {
protected:
    Opened_Window() { player.Open(); }
    QAbstractItemModel& Reports() { return *player.Find<QTableView>("lstSitrep")->model(); }
    void Double_Click_Report()
    {
        const auto* list = player.Find<QTableView>("lstSitrep");
        const QPoint row = list->visualRect(list->model()->index(0, 2)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    }
    double Map_Is_Off(int x, int y) { return Distance(player.Map().Seen().center(), QPointF(x, y)); }

    Player player{SMALL};
};

}   // namespace

TEST_F(Opened_Window, TheWheelZoomsAtThePointer)
{
    player.Look_At(1.2, 500, 500);
    const QPoint pointer(520, 130);
    const QPointF under = player.Map().mapToScene(pointer);
    const double before = player.Map().Zoom();
    player.Wheel(pointer, 3);
    player.Wait(500);
    EXPECT_NEAR(player.Map().Zoom(), before * std::pow(1.22, 3), 0.02);
    // Scrolling goes by whole pixels: half a pixel of the screen each way.
    EXPECT_LT(Distance(player.Map().mapToScene(pointer), under) * player.Map().Zoom(), 3.0);

    player.Wheel(pointer, -40);
    player.Wait(700);
    const QRectF seen = player.Map().Seen();
    EXPECT_TRUE(seen.width() >= 1008 || seen.height() >= 1008);   // no further out than the whole map
}

TEST_F(Opened_Window, TheMapIsDraggedByTheMiddleButtonByBareGroundAndBySpaceButNotByAUnit)
{
    player.Look_At(2, 500, 500);
    const auto moved_by = [&](QPoint from, Qt::MouseButton button) {
        const QPointF before = player.Map().mapToScene(QPoint(0, 0));
        player.Drag(from, from + QPoint(-60, 20), button);
        return player.Map().mapToScene(QPoint(0, 0)) - before;
    };
    const QPoint bare(700, 60);
    EXPECT_LT(Distance(moved_by(bare, Qt::MiddleButton), QPointF(30, -10)), 1.0);
    EXPECT_LT(Distance(moved_by(bare, Qt::LeftButton), QPointF(30, -10)), 1.0);
    const QPoint unit = player.On_Screen(405, 440);
    EXPECT_LT(Distance(moved_by(unit, Qt::LeftButton), QPointF(0, 0)), 0.1);
    EXPECT_EQ(SelUnit, 2);

    player.Hold_Key(Qt::Key_Space, true);
    EXPECT_LT(Distance(moved_by(player.On_Screen(405, 440), Qt::LeftButton), QPointF(30, -10)), 1.0);
    player.Hold_Key(Qt::Key_Space, false);
    EXPECT_LT(Distance(moved_by(player.On_Screen(405, 440), Qt::LeftButton), QPointF(0, 0)), 0.1);
}

TEST_F(Opened_Window, ArrowKeysScrollTheMapEvenAfterAClickInTheList)
{
    for (int n = 0; n < 30; ++n) Post_Message(2, Cat("SITREP: message ", To_Text(n)), 420, 440, 0, BLUE);
    player.Wait(20);
    player.Look_At(3, 500, 500);
    QTest::mouseClick(player.Find<QTableView>("lstSitrep")->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(200, 30));
    player.Key(Qt::Key_Right);
    player.Key(Qt::Key_Down);
    player.Wait(500);
    // An arrow scrolls 96 pixels of the screen: 32 of the picture at zoom 3.
    EXPECT_LT(Map_Is_Off(532, 532), 1.5);
}

TEST_F(Opened_Window, ADoubleClickOnAReportShowsThePlaceAndBackReturns)
{
    Post_Message(2, "SITREP: contact", 640, 200, 0, BLUE);
    player.Wait(20);
    player.Look_At(2.5, 430, 640);
    Double_Click_Report();
    EXPECT_LT(Map_Is_Off(640, 200), 2.0);
    player.Screenshot("message-place");
    ASSERT_TRUE(player.Press("cmdMapBack"));
    EXPECT_LT(Map_Is_Off(430, 640), 2.0);
    EXPECT_FALSE(player.Press("cmdMapBack"));
}

TEST_F(Opened_Window, APlaceAtTheMapsEdgeIsShownWithoutBareGroundAround)
{
    Post_Message(2, "SITREP: at the edge", 4, 2, 0, BLUE);
    player.Wait(20);
    player.Map().Set_Zoom(2, QPointF(0, 0));
    Double_Click_Report();
    // 16 pixels of the screen, 8 of the picture, for a symbol that stands on the edge.
    EXPECT_LT(Distance(player.Map().Seen().topLeft(), QPointF(-8, -8)), 1.5);
    player.Key(Qt::Key_Backspace);
    EXPECT_GT(player.Map().Seen().left(), 0);
}

TEST_F(Opened_Window, TheKindsOfReportsAreFilteredByTheirButtons)
{
    Post_Message(2, "SITREP: one", 420, 440, 0, BLUE);
    Post_Message(2, "SPOTREP: two", 420, 440, 0, BLUE);
    Post_Message(302, "SITREP: of Red", 420, 440, 0, RED);
    player.Wait(20);
    EXPECT_EQ(Reports().rowCount(), 2);
    ASSERT_TRUE(player.Press("chip0"));
    EXPECT_EQ(Reports().rowCount(), 1);
    EXPECT_FALSE(player.Press("chipSide2"));   // Blue reads its own and has no choice of sides
    player.Press("chip0");
    player.Choose(Cmd::VIEW_ALL);
    EXPECT_EQ(Reports().rowCount(), 3);
    ASSERT_TRUE(player.Press("chipSide1"));
    EXPECT_EQ(Reports().rowCount(), 1);
}

TEST_F(Opened_Window, ClosingInMidTurnAsksAndTheProgramEndsWithWholeFiles)
{
    player.LONGEST_WAIT = 500;
    bool closed = false;
    QTimer::singleShot(300, &player.Window(), [&] {
        EXPECT_TRUE(SEAT.TurnRunning);
        player.Answer("No");
        player.Window().close();
        EXPECT_FALSE(DESK.LEAVING);
        player.Answer("Yes");
        player.Window().close();
        EXPECT_TRUE(DESK.LEAVING);
        player.Window().close();                    // once yes, it is not asked again
        EXPECT_TRUE(player.Window().isVisible());   // the turn still runs
        closed = true;
    });
    player.Choose(Cmd::GO);
    EXPECT_TRUE(closed);
    EXPECT_EQ(player.UNEXPECTED, 0);
    EXPECT_TRUE(DESK.CLOSED);
    EXPECT_FALSE(player.Window().isVisible());
    EXPECT_EQ(player.TOLD.back(),
              "Are you sure that you want to quit?\nThe turn that is being played will be lost. The game at "
              "its start is kept in autosave.btl.");

    DESK = Desk{};
    Use_Screen(&player.Window());
    ASSERT_TRUE(Open_Game_File((player.HOME / "Saved Games" / "autosave.btl").string()));
    EXPECT_EQ(GTURN, 0);
    for (const auto& entry : fs::directory_iterator(player.HOME / "Saved Games"))
        EXPECT_EQ(entry.path().filename(), "autosave.btl");   // no temporary left
}

TEST_F(Opened_Window, NothingThatIsDoneWhileATurnWaitsChangesTheGame)
{
    player.Click(405, 440);
    SEAT.TurnRunning = true;
    const auto before = State_Hash();
    QTimer::singleShot(20, &player.Window(), [&] {
        player.Key(Qt::Key_M);
        player.Click(450, 450, Qt::RightButton);
        player.Key(Qt::Key_M, Qt::ControlModifier);
        for (const COMMAND& c : Commands())
            EXPECT_FALSE((c.NEEDS & Need::NO_TURN) != 0 && Run_Command(c.ID)) << c.CAPTION;
        player.Key(Qt::Key_Plus);
        player.Wheel(QPoint(100, 100), 2);
    });
    player.LONGEST_WAIT = 250;
    Delay(250);
    SEAT.TurnRunning = false;
    EXPECT_EQ(State_Hash(), before);
    EXPECT_EQ(MapMode, 0);
    EXPECT_EQ(player.UNEXPECTED, 0);
}

TEST(Window, TheUsersLocaleNeverReachesNumbers)
{
    std::setlocale(LC_ALL, "C.UTF-8");   // as an application object leaves it
    desktop::Settle_Application(*qApp);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(Window, DelayLastsAsLongAsItIsTold)
{
    Player player(SMALL);
    player.LONGEST_WAIT = 10000;
    QElapsedTimer timer;
    timer.start();
    Delay(180);
    EXPECT_GE(timer.elapsed(), 180);
    EXPECT_LT(timer.elapsed(), 600);
}

TEST(Window, AMissingMapPictureLeavesAPlayableMap)
{
    Player player(SMALL);
    fs::remove(player.HOME / "Maps");
    fs::create_directory(player.HOME / "Maps");
    player.Open();
    ASSERT_EQ(GameLoaded, -1);
    player.Click(405, 440);
    EXPECT_EQ(SelUnit, 2);
    player.Screenshot("no-picture");
}

TEST(Window, ABrokenSaveIsToldAndTheNextFileOpens)
{
    Player player(SMALL);
    const std::string whole = File_Content(player.SCENARIO);
    const fs::path broken = player.HOME / "Saved Games" / "broken.btl";
    Put_File(broken, whole.substr(0, whole.size() / 2) + "\r\nUNIT.X:not a number\r\n");
    player.Answer("No");
    player.Answer_File(broken.string());
    player.Answer("OK");
    player.Press("optGameType0");
    player.Wait(30);
    EXPECT_EQ(GameLoaded, 0);
    EXPECT_EQ(player.TOLD.back().substr(0, 7), "Error: ");
    player.Screenshot("nothing-loaded");
    EXPECT_FALSE(Command_Allowed(Cmd::GO));
    player.Answer_File(player.SCENARIO);
    ASSERT_TRUE(player.Choose(Cmd::NEW_GAME));
    EXPECT_EQ(GameLoaded, -1);
}

TEST_F(Opened_Window, AGameThatNoSaveHoldsIsGivenUpOnlyByAnAnswer)
{
    player.Click(405, 440);
    player.Choose(Cmd::TURN_LEFT);
    player.Choose(Cmd::END_MENU);
    player.Answer("Cancel");
    player.Choose(Cmd::RETURN);
    EXPECT_EQ(player.TOLD.back(), "The game has changed since it was last saved.\nDo you want to save it now?");
    EXPECT_EQ(GameLoaded, -1);
    player.Answer("none of them");   // closed, as by Esc
    player.Choose(Cmd::RETURN);
    EXPECT_EQ(GameLoaded, -1);
    player.Answer("No");
    player.Choose(Cmd::RETURN);
    EXPECT_EQ(GameLoaded, 0);
    EXPECT_EQ(player.UNEXPECTED, 0);
}

TEST_F(Opened_Window, ANodeThatIsClickedStaysInTheHandForTheNextRightClick)
{
    player.Look_At(2, 440, 450);
    player.Click(405, 440);
    player.Key(Qt::Key_M);
    player.Click(450, 440, Qt::RightButton);
    ASSERT_EQ(UNIT[2].NUMBER_OF_NODES, 1);
    player.Click(450, 440);
    EXPECT_EQ(MapMode, 9);
    player.Click(470, 420, Qt::RightButton);
    EXPECT_EQ(MN[1].MNX, 470);
    EXPECT_EQ(MN[1].MNY, 420);
    player.Key(Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(UNIT[2].NUMBER_OF_NODES, 0);
}

TEST_F(Opened_Window, LongWordsTakeTheRoomOfThePointersFields)
{
    player.Click(405, 440);
    player.Choose(Cmd::PLOT);
    player.Send_Mouse(QEvent::MouseMove, QPointF(300, 200), Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(player.Text_Of("lblStatus"), Map_Mode_Prompt());   // in full beside all that is under the pointer
    for (const char* field : {"lblUTM", "lblLatLong", "lblTerrain", "lblNBC"})
        EXPECT_TRUE(player.Shows(field)) << field;

    // 110 characters, about 750 pixels of 1000: the fields make room, the grid and the terrain last.
    const std::string words = "SITREP: " + std::string(102, 'a');
    Show_Status(words);
    player.Wait(10);
    EXPECT_EQ(player.Text_Of("lblStatus"), words);
    EXPECT_FALSE(player.Shows("lblLatLong"));
    Show_Status("");
    EXPECT_TRUE(player.Shows("lblLatLong"));
}

TEST_F(Opened_Window, TheCoverShowsNothingOfEitherSide)
{
    player.Look_At(2, 420, 450);
    player.Click(405, 440);
    player.Choose(Cmd::UNIT_REPORT);
    player.Choose(Cmd::HAND_OVER);
    player.Wait(10);
    EXPECT_EQ(player.Find<QDialog>("sheet Unit Status Report"), nullptr);
    for (const char* name : {"map", "lstSitrep", "palette", "overview"}) EXPECT_FALSE(player.Shows(name)) << name;
    EXPECT_EQ(player.Text_Of("lblCover"), "Red Player");
    for (const Cmd id : {Cmd::VIEW_ALL, Cmd::GO}) EXPECT_FALSE(player.Choose(id)) << Command(id).CAPTION;
    player.Key(Qt::Key_Escape);
    EXPECT_EQ(DESK.CoveredFor, 0);
    player.Choose(Cmd::SIDE_BLUE);   // the side that sits there needs no cover
    EXPECT_EQ(DESK.CoveredFor, 0);

    // Red sees its own ground, and Blue finds the map where it left it.
    player.Choose(Cmd::SIDE_RED);
    EXPECT_EQ(DESK.CoveredFor, RED);
    EXPECT_EQ(ActiveSide, BLUE);   // nobody has sat down yet
    player.Press("cmdUncover");
    EXPECT_GT(Map_Is_Off(420, 450), 20.0);
    EXPECT_EQ(PlanSide, RED);
    EXPECT_TRUE(SEAT.PICTURE[301]);
    EXPECT_FALSE(SEAT.PICTURE[3]);   // Blue's unit 3 is not spotted
    player.Choose(Cmd::HAND_OVER);
    player.Press("cmdUncover");
    EXPECT_EQ(ActiveSide, BLUE);
    EXPECT_LT(Map_Is_Off(420, 450), 2.0);
}

TEST(Verdict, TheVictoryStatusStaysOpenAndFollowsTheBattle)
{
    Player player;
    player.Open();
    EXPECT_TRUE(player.Choose(Cmd::VICTORY));
    player.Wait(50);
    auto* page = player.Find<QWidget>("victoryPage");
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->accessibleName(), QStringLiteral("The game has not begun!"));
    for (int turn = 1; turn <= 6; ++turn) {
        AAR[turn].BRCP = 700.0f - 40.0f * static_cast<float>(turn);
        AAR[turn].RRCP = 900.0f - 90.0f * static_cast<float>(turn);
    }
    GTURN = 6;
    VSTATUS = 5;
    BRCP1 = 700;
    RRCP1 = 900;
    BRCP3 = AAR[6].BRCP;
    RRCP3 = AAR[6].RRCP;
    BMANL = 120;
    RMANL = 260;
    RARTYL = 90;
    EXPECT_TRUE(player.Choose(Cmd::VICTORY));
    EXPECT_EQ(page->accessibleName(), QStringLiteral("BLUE is winning a major victory!"));
    player.Screenshot_Of(*page->window(), "victory-status");
}

TEST(Computer, AHumanPlansOneSideAndTheOtherMovesByItself)
{
    Player player;
    player.Open({}, 4);
    ASSERT_EQ(GameLoaded, -1);
    EXPECT_EQ(PlanSide, RED);
    EXPECT_EQ(player.Window().windowTitle(), QStringLiteral("Stonemarch -- Red Player vs Computer"));
    EXPECT_FALSE(Command_Allowed(Cmd::SIDE_BLUE));
    EXPECT_FALSE(Command_Allowed(Cmd::HAND_OVER));
    EXPECT_FALSE(player.Shows(Cat("cmd", To_Text(static_cast<int>(Cmd::HAND_OVER)), "Button").c_str()));
    ASSERT_TRUE(player.Choose(Cmd::GO));
    EXPECT_EQ(GTURN, 1);
    EXPECT_EQ(ActiveSide, RED);   // the board comes back to the human
    EXPECT_TRUE(Command_Allowed(Cmd::SIDE_RED));
}

#include "editors/event_editor.h"

#include "events/event_kinds.h"
#include "support/board.h"
#include "support/fields.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

struct Editor {
    Board BOARD{20, 20};
    Editor()
    {
        GameType = 5;
        UserSide = 5;
    }
};

}   // namespace

TEST(EventEditor, AnEventIsPlacedNamedAndEdited)
{
    Editor editor;
    Begin_Event();
    EXPECT_EQ(MapMode, 200);
    const int row = Place_Event(70, 80);
    ASSERT_EQ(row, 1);
    Choose_Event_Kind(row, 39);
    Choose_Event_Trigger(row, 2);
    Choose_Movement_Effect(row, 2);
    Choose_Attrition(row, 4);
    Choose_Effect(row, 1);
    Choose_Media_Kind(row, 3);
    editor.BOARD.SCREEN.FILES = {"C:\\films/Block.avi"};
    Choose_Media_File(row);
    Set_Event_Message(row, "A \"road\xA6"
                           "block\"\nahead");
    Close_Event(row);
    const PP_RECORD& e = PP[1];
    EXPECT_TRUE(Has(e, "PPX 70, PPY 80, PPTYPE 39, PPATYPE Roadblock (Red-Completed), PPIMAGE 21.ico"));
    EXPECT_TRUE(Has(e, "PPSIDE RED, PPTRIGGER 3, PPATRIGGER Blue Logistics Unit, PPACTIVE 0, PPOBSTACLE 2"));
    EXPECT_TRUE(Has(e, "PPDURATION 20, PPEFFECT 1"));
    EXPECT_EQ(e.PPPFILE, "Block.avi");   // the name only: it is looked for in the events folder
    EXPECT_TRUE(editor.BOARD.SCREEN.Heard(
        "file", "Select Event File|\\events\\|Video Files (*.mpg)|*.mpg|AVI (*.avi)|*.avi"));
    EXPECT_EQ(e.PPMSG, "A 'road|block' ahead");
    Choose_Event_Trigger(row, 0);
    EXPECT_EQ(PP[1].PPACTIVE, 1);   // immediate events are born happened
    Choose_Attrition(row, 13);
    Choose_Event_Kind(row, 51);
    EXPECT_TRUE(Has(PP[1], "PPDURATION 20, PPTYPE 39"));   // PPDURATION: not in the list
}

TEST(EventEditor, ThereAreTwentyAndARowWithoutAKindIsFreeAgain)
{
    Editor editor;
    for (int n = 1; n <= 20; ++n) {
        EXPECT_EQ(Place_Event(n, n), n);
        Choose_Event_Kind(n, 1);
    }
    EXPECT_EQ(Place_Event(5, 5), 0);
    Choose_Event_Kind(7, 0);
    Close_Event(7);
    EXPECT_EQ(PP[7].PPX, 0);
    EXPECT_EQ(Place_Event(5, 5), 7);
    editor.BOARD.SCREEN.ANSWERS = {false, true};
    EXPECT_FALSE(Delete_Event(3));
    EXPECT_EQ(PP[3].PPTYPE, 1);
    EXPECT_TRUE(Delete_Event(3));
    EXPECT_EQ(PP[3].PPTYPE, 0);
    EXPECT_EQ(editor.BOARD.SCREEN.Count("ask", "Are you sure that you want to delete this Event?"), 2);
}

TEST(EventEditor, OnlyEditorAndHostChangeEventsAndNobodyDuringATurn)
{
    struct CASE {
        int TYPE, ROLE;
        bool RUNNING, MAY;
    };
    for (const CASE& c : {CASE{5, 0, false, true}, CASE{7, 1, false, true}, CASE{8, 2, false, false},
                          CASE{0, 0, false, false}, CASE{7, 1, true, false}}) {
        Board board(20, 20);
        GameType = c.TYPE;
        NetRole = c.ROLE;
        SEAT.TurnRunning = c.RUNNING;
        EXPECT_EQ(Place_Event(5, 5) > 0, c.MAY);
        PP[2].PPTYPE = 1;
        EXPECT_EQ(Delete_Event(2), c.MAY);
    }
}

TEST(EventEditor, AClickInPlayOpensTheEventAndInTheEditorItsDialog)
{
    Editor editor;
    Give(PP[1], "PPTYPE 1, PPACTIVE 1, PPMSG Fire!");
    EXPECT_TRUE(imgEvent_Click(1));
    EXPECT_EQ(editor.BOARD.SCREEN.Count("box", ""), 0);
    GameType = 0;
    EXPECT_FALSE(imgEvent_Click(1));
    EXPECT_EQ(editor.BOARD.SCREEN.Count("box", "Fire!"), 1);
}

TEST(EventEditor, AReceivedEventDerivesWhatTheMessageLeavesOut)
{
    Board board(20, 20);
    PP[4].PPVISIBLE = 1;
    EVENT_ORDER order;
    order.ROW = 4;
    order.X = 30;
    order.TYPE = 12;
    order.TRIGGER = 4;
    order.FILE = "a.wav";
    order.OBSTACLE = 1;
    Apply_Event(order);
    EXPECT_TRUE(Has(PP[4], "PPATYPE Casualties (Blue), PPIMAGE 36.ico, PPSIDE BLUE, PPATRIGGER Blue Combat Unit"));
    EXPECT_TRUE(Has(PP[4], "PPVISIBLE 0, PPOBSTACLE 1"));
    order.ROW = 21;
    Apply_Event(order);   // no such row: nothing
    order.ROW = 4;
    order.TYPE = 0;
    Apply_Event(order);
    EXPECT_EQ(PP[4].PPX, 0);
}

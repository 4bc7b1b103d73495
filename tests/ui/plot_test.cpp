#include "ui/plot.h"

#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/march.h"
#include "ui/map_click.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

/// Blue plans on a board of 20 x 20 cells; a Blue unit is selected.
class Plot_Test : public ::testing::Test {
protected:
    Plot_Test()
    {
        ActiveSide = PlanSide = BLUE;
        unit = SelUnit = board.Place(BLUE, 5, 5);
        board.SCREEN.TOLD.clear();
    }
    void Make_Aircraft(int type)
    {
        UNIT[unit].MOBILITY = 3;
        UNIT[unit].TYPE = type;
    }
    Board board{20, 20};
    int unit = 0;
};

TEST_F(Plot_Test, OnlyTheSideInPlayGivesOrdersAndNobodyInATurn)
{
    EXPECT_TRUE(May_Order(unit));
    EXPECT_FALSE(May_Order(board.Place(RED, 95, 95)));
    EXPECT_FALSE(May_Order(0));
    EXPECT_FALSE(May_Order(601));
    EXPECT_FALSE(May_Order(5));   // a free row
    SEAT.TurnRunning = true;
    EXPECT_FALSE(May_Order(unit));
    MapMode = 10;
    EXPECT_FALSE(Plot_Map_Click(95, 5));
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    SEAT.TurnRunning = false;
    ActiveSide = 3;
    EXPECT_FALSE(May_Order(unit));
    UserSide = 5;
    EXPECT_TRUE(May_Order(unit));
}

TEST_F(Plot_Test, ClicksAddNodesUntilTheRouteIsCancelled)
{
    cmdPlot(PLOT_ROUTE);
    EXPECT_TRUE(Plot_Map_Click(95, 5));
    EXPECT_TRUE(Plot_Map_Click(95, 95));
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 18);
    cmdPlot(PLOT_CANCEL);
    EXPECT_EQ(MapMode, 0);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    EXPECT_FALSE(Plot_Map_Click(95, 5));
}

TEST_F(Plot_Test, AFortificationUnderConstructionIsGivenUpOnlyOnRequest)
{
    UNIT[unit].TIMEREGR = 4;
    board.SCREEN.ANSWERS = {false, true};
    cmdPlot(PLOT_ROUTE);
    EXPECT_TRUE(board.SCREEN.Heard("ask",
                                   "From the Engineer:|Moving this unit will cancel the construction of the "
                                   "fortification. Do you wish to continue?"));
    EXPECT_EQ(UNIT[unit].TIMEREGR, 4);
    EXPECT_EQ(MapMode, 0);
    cmdPlot(PLOT_ROUTE);
    EXPECT_EQ(UNIT[unit].TIMEREGR, 0);
    EXPECT_EQ(MapMode, 10);
    UNIT[unit].TIMEREGR = 3;
    cmdPlot(PLOT_ROUTE);   // an assault crossing is not asked about
    EXPECT_EQ(board.SCREEN.Count("ask", ""), 2);
}

TEST_F(Plot_Test, AUnitWithoutSupplyIsIgnoredWithoutAWord)
{
    UNIT[unit].LOGSTATN = 0;
    Plot_Move(unit, 95, 5);
    UNIT[unit].LOGSTATN = 100;
    UNIT[unit].STATUS = 0;
    Plot_Move(unit, 95, 5);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    EXPECT_TRUE(board.SCREEN.TOLD.empty());
}

TEST_F(Plot_Test, TiredCrewsDoNotFlyAndLoseTheirRoute)
{
    Make_Aircraft(11);
    UNIT[unit].FATIGUE = 21;
    Plot_Move(unit, 95, 5);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 1);
    UNIT[unit].FATIGUE = 22;
    Plot_Move(unit, 95, 95);
    EXPECT_TRUE(board.SCREEN.Heard("box", "From the Avn LNO|SITREP: B1 cannot fly due to high fatigue level!"));
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    UNIT[unit].MOBILITY = 0;   // tired feet march on
    Plot_Move(unit, 95, 95);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 1);
}

TEST_F(Plot_Test, ALineOfCommunicationIsOnlyPlacedInTheEditor)
{
    UNIT[unit].TYPE = 50;
    cmdPlot(PLOT_ROUTE);
    EXPECT_TRUE(board.SCREEN.Heard("box", "From G-3|LOCs can only be magic-moved within the scenario editor!"));
    EXPECT_EQ(MapMode, 0);
    Plot_Move(unit, 95, 5);
    EXPECT_TRUE(board.SCREEN.Heard("box", "LOCs are immobile and cannot move during the game!"));
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    GameType = 5;
    cmdPlot(PLOT_ROUTE);
    EXPECT_EQ(MapMode, 12);
    EXPECT_TRUE(Plot_Map_Click(95, 15));
    EXPECT_EQ(UNIT[unit].X, 95);
    EXPECT_EQ(UNIT[unit].HEXNUM, 182);   // column 10, row 2 of 20
}

TEST_F(Plot_Test, ANodePickedUpIsPutDownAgainAndALongFlightOnlyWarnedAbout)
{
    Board wide(450, 1);
    ActiveSide = BLUE;
    unit = SelUnit = wide.Place(BLUE, 5, 5);
    Make_Aircraft(11);
    Plot_Move(unit, 3005, 5);
    MapMode = 10;
    EXPECT_TRUE(Plot_Node_Click(1));
    EXPECT_EQ(MapMode, 9);
    EXPECT_TRUE(Plot_Map_Click(4015, 5));   // 401 cells
    EXPECT_TRUE(wide.SCREEN.Heard("box", "WARNING: Current Plot exceeds planning range of this unit!"));
    EXPECT_EQ(MN[1].MNX, 4015);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 1);
    EXPECT_EQ(UNIT[unit].MOVECOST_TO_END, 401);
    EXPECT_EQ(MapMode, 10);

    UNIT[unit].MOBILITY = 2;   // a march has no such limit
    EXPECT_TRUE(Plot_Node_Click(1));
    EXPECT_TRUE(Plot_Map_Click(4205, 5));
    EXPECT_EQ(wide.SCREEN.Count("box", "WARNING"), 1);
    const int enemy_row = Plot(wide.Place(RED, 5, 5), {{95, 5}});
    EXPECT_FALSE(Plot_Node_Click(enemy_row));
    EXPECT_EQ(MapMode, 10);
}

TEST_F(Plot_Test, OrbitAndLandingZoneAreTheNodeClicked)
{
    Make_Aircraft(11);
    const int row = Plot(unit, {{95, 5}, {5, 5}});
    const int stranger = board.Place(BLUE, 95, 95);
    const int strange_row = Plot(stranger, {{5, 95}});
    cmdPlot(PLOT_ORBIT);
    EXPECT_EQ(MapMode, 16);
    EXPECT_TRUE(board.SCREEN.Heard("box", "From: G-3(Air)|Click on desired orbit location (movement node)"));
    EXPECT_FALSE(Plot_Node_Click(strange_row));
    EXPECT_TRUE(Plot_Node_Click(row));
    EXPECT_EQ(UNIT[unit].LZ, row);
    EXPECT_EQ(MapMode, 0);
    Make_Aircraft(17);
    cmdPlot(PLOT_ORBIT);
    EXPECT_TRUE(board.SCREEN.Heard("box", "From: G-2|Click on desired orbit location (movement node)"));
}

TEST_F(Plot_Test, APassengerIsChosenAmongUnitsWhoseGroundHoldsTheNode)
{
    Make_Aircraft(12);
    const int near = board.Place(BLUE, 115, 5, 19), far = board.Place(BLUE, 116, 5, 19);
    const int row = Plot(unit, {{95, 5}, {195, 5}});
    // A battalion of 40 pixels on the attack: 20 from its centre.
    EXPECT_EQ(Units_At_Pick_Up_Zone(unit, row - 1), std::vector<int>{near});
    EXPECT_TRUE(Units_At_Pick_Up_Zone(unit, row).empty());
    cmdPlot(PLOT_PICK_UP_ZONE);
    EXPECT_EQ(MapMode, 301);
    EXPECT_TRUE(board.SCREEN.Heard("box", "From: G-3(AIR)|Click on desired PZ (movement node)"));
    EXPECT_TRUE(Plot_Node_Click(row));
    EXPECT_TRUE(board.SCREEN.Heard("box", "PZ is not close to any units"));
    Choose_Passenger(unit, near, row - 1);
    EXPECT_EQ(UNIT[near].CARRIER, unit);
    EXPECT_EQ(UNIT[far].CARRIER, 0);
    EXPECT_EQ(UNIT[unit].PZ, row - 1);
    EXPECT_TRUE(board.SCREEN.Heard("status", "B2 will be picked up at this PZ."));
    EXPECT_TRUE(board.SCREEN.Heard("box", "From: G-3(AIR)|Now click on the node that will serve as the LZ."));
    EXPECT_EQ(MapMode, 302);
    EXPECT_TRUE(Plot_Node_Click(row));
    EXPECT_EQ(UNIT[unit].LZ, row);
}

TEST_F(Plot_Test, TheArrivalAreaIsMarkedBeforeTheUnitArrives)
{
    UNIT[unit].ATIME = GTURN;
    cmdPlot(PLOT_ARRIVAL);
    EXPECT_EQ(MapMode, 0);
    UNIT[unit].ATIME = GTURN + 1;
    Show_Picture(unit);
    cmdPlot(PLOT_ARRIVAL);
    EXPECT_FALSE(SEAT.PICTURE[unit]);
    Step_Back();   // not marked: the unit stays on the map
    EXPECT_EQ(MapMode, 0);
    EXPECT_TRUE(SEAT.PICTURE[unit]);
    EXPECT_EQ(UNIT[unit].OFFMAP, 0);
    cmdPlot(PLOT_ARRIVAL);
    EXPECT_EQ(MapMode, 15);
    EXPECT_TRUE(board.SCREEN.Heard(
        "box", "On-Map Arrival|Point and right-click to mark the unit's arrival area on the map!"));
    EXPECT_TRUE(Plot_Map_Click(95, 15));
    EXPECT_TRUE(board.SCREEN.Heard("box", "On-Map Arrival|Location has been recorded!"));
    EXPECT_EQ(UNIT[unit].X, -1000);
    EXPECT_EQ(UNIT[unit].ARX, 95);
    EXPECT_EQ(UNIT[unit].OFFMAP, 1);
}

TEST_F(Plot_Test, TurnsAndMagicMovesActAtOnce)
{
    cmdPlot(PLOT_TURN_RIGHT);
    EXPECT_EQ(UNIT[unit].FACING, 45);
    cmdPlot(PLOT_TURN_LEFT);
    EXPECT_EQ(UNIT[unit].FACING, 360);
    Plot(unit, {{95, 5}});
    cmdPlot(PLOT_MAGIC_MOVE);
    EXPECT_EQ(MapMode, 12);
    Hide_Picture(unit);
    EXPECT_TRUE(Plot_Map_Click(55, 45));
    EXPECT_TRUE(SEAT.PICTURE[unit]);
    EXPECT_EQ(UNIT[unit].HEXNUM, 105);   // column 6, row 5 of 20
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
    EXPECT_EQ(MapMode, 0);
}

}   // namespace
}   // namespace sm::test

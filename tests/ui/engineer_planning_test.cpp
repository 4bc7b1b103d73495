#include "ui/engineer_planning.h"

#include "core/invariants.h"
#include "support/board.h"
#include "support/march.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// Blue plans on turn 3 with two fortifications left; the engineer stands on open ground.
struct Engineers {
    Board BOARD{{".S...", ".=...", ".....", "....."}};
    int ENGINEER;

    Engineers()
    {
        GTURN = 3;
        ActiveSide = PlanSide = BLUE;
        BFORTSMAX = 2;
        ENGINEER = BOARD.Place(BLUE, 35, 35, 14);
    }
};

/// Blue sets up its works before turn 1.
struct Set_Up {
    Board BOARD{{"..~..", "..=..", "S...."}};

    Set_Up()
    {
        GTURN = 0;
        ActiveSide = PlanSide = BLUE;
        BBMAX = BOBSTMAX = BFORTSMAX = 1;
    }
    bool Put(int tool, int column, int row)
    {
        MapMode = tool;
        return Place_Planned_Work(BOARD.Centre(column), BOARD.Centre(row));
    }
};

}   // namespace

TEST(Fortify, AnEngineerBeginsToDigAndDropsItsRoute)
{
    Engineers e;
    ASSERT_EQ(Plot(e.ENGINEER, {{25, 35}}), 1);
    UNIT[e.ENGINEER].MOVESTATUS = 2;
    EXPECT_TRUE(cmdFort_Click(e.ENGINEER));
    EXPECT_EQ(UNIT[e.ENGINEER].TIMEREGR, 6);
    EXPECT_EQ(UNIT[e.ENGINEER].MOVESTATUS, 0);
    EXPECT_EQ(MN[1].MNUNIT, 0);
    EXPECT_EQ(BFORTS, 1);
    EXPECT_EQ(RFORTS, 0);
    EXPECT_EQ(Messages().back(), "B1 is building a fortification!");
    EXPECT_EQ(Count_Used(BG, 1, MAX_BG), 0);   // the row is taken when it is finished
}

TEST(Fortify, RefusalsComeInTheirOrderAndChangeNothing)
{
    Engineers e;
    UNIT_RECORD& u = UNIT[e.ENGINEER];
    const auto refused = [&](const char* text) {
        e.BOARD.SCREEN.TOLD.clear();
        EXPECT_FALSE(cmdFort_Click(e.ENGINEER)) << text;
        EXPECT_TRUE(e.BOARD.SCREEN.Heard("box", text)) << text;
    };
    const struct {
        int FIREMISSION, TYPE, TURN, TIMEREGR, STATUS, USED;
        const char* TEXT;
    } refusals[] = {
        {1, 14, 3, 0, 2, 0, "From Engineer:|This engineer unit already has a mission!"},
        {1, 5, 3, 0, 2, 0, "From Engineer:|Only combat-effective engineer units can perform this function!"},
        {1, 5, 0, 0, 2, 0, "Use the Graphics Menu to emplace fortifications during game start-up!"},
        {1, 5, 0, 2, 2, 0, "This engineer unit already has a mission!"},
        {1, 5, 0, 2, 1, 0, "Only combat-effective engineer units can perform this function!"},
        {0, 14, 3, 0, 2, 2, "From Engineer:|We have no more fortification material left!"},
    };
    for (const auto& r : refusals) {
        u.FIREMISSION = r.FIREMISSION;
        u.TYPE = r.TYPE;
        GTURN = r.TURN;
        u.TIMEREGR = r.TIMEREGR;
        u.STATUS = r.STATUS;
        BFORTS = r.USED;
        refused(r.TEXT);
        EXPECT_EQ(BFORTS, r.USED);
    }
    BFORTS = 0;
    for (const Point p : {Point{15, 5}, Point{15, 15}}) {   // sea, bridge
        Place_Unit(e.ENGINEER, p.X, p.Y);
        u.TIMEREGR = 5;
        refused("Fortifications cannot built on this type of terrain!");
        EXPECT_EQ(u.TIMEREGR, 0);   // work begun elsewhere is lost
        EXPECT_EQ(BFORTS, 0);
    }
    ActiveSide = RED;
    e.BOARD.SCREEN.TOLD.clear();
    EXPECT_FALSE(cmdFort_Click(e.ENGINEER));
    EXPECT_TRUE(e.BOARD.SCREEN.TOLD.empty());   // another side's unit: nothing
}

TEST(Fortify, AttachedEngineersDigForTheirUnitWhileTheyAreFree)
{
    struct CASE {
        int TYPE, STATUS, TIMEREGR;
        bool DIGS;
    };
    for (const CASE& c :
         {CASE{14, 2, 0, true}, CASE{15, 2, 0, false}, CASE{14, 1, 0, false}, CASE{14, 2, 3, false}}) {
        Engineers e;
        const int tanks = e.BOARD.Place(BLUE, 25, 35);
        UNIT[e.ENGINEER].PARENT_UNIT = tanks;
        UNIT[e.ENGINEER].TYPE = c.TYPE;
        UNIT[e.ENGINEER].STATUS = c.STATUS;
        UNIT[e.ENGINEER].TIMEREGR = c.TIMEREGR;
        EXPECT_EQ(cmdFort_Click(tanks), c.DIGS);
        EXPECT_EQ(UNIT[tanks].TIMEREGR, c.DIGS ? 6 : 0);
    }
}

TEST(Fortify, AClientChangesNothingAndTheHostBooksOnce)
{
    Engineers e;
    NetRole = 2;
    EXPECT_TRUE(cmdFort_Click(e.ENGINEER));
    EXPECT_EQ(UNIT[e.ENGINEER].TIMEREGR, 0);
    EXPECT_EQ(BFORTS, 0);
    Begin_Fortification(e.ENGINEER, true);   // the host's answer
    EXPECT_EQ(BFORTS, 1);
    EXPECT_EQ(UNIT[e.ENGINEER].TIMEREGR, 6);

    Engineers host;
    NetRole = 1;
    ActiveSide = RED;   // the host plays Red: the request is booked to the unit's side all the same
    RFORTSMAX = 0;
    Grant_Fortification(host.ENGINEER);
    EXPECT_EQ(BFORTS, 1);
    EXPECT_EQ(UNIT[host.ENGINEER].TIMEREGR, 6);
    UNIT[host.ENGINEER].TIMEREGR = 0;
    BFORTS = 2;
    Grant_Fortification(host.ENGINEER);
    EXPECT_EQ(UNIT[host.ENGINEER].TIMEREGR, 0);   // nothing left: the order never appears
    EXPECT_EQ(BFORTS, 2);
}

TEST(Crossing, TheLastItemIsGrantedAndTheNextIsNot)
{
    Board board(5, 5);
    ROBSTMAX = 2;
    ROBST = 1;
    EXPECT_TRUE(Issue_Crossing(CROSSING_OBSTACLE, RED).BOOKED);
    EXPECT_FALSE(Issue_Crossing(CROSSING_OBSTACLE, RED).BOOKED);
    EXPECT_EQ(ROBST, 2);
    EXPECT_FALSE(Issue_Crossing(CROSSING_BRIDGE, BLUE).BOOKED);   // a limit of 0
    EXPECT_TRUE(Issue_Crossing(CROSSING_BRIDGE, BOTH).BOOKED);    // the map has none
    EXPECT_EQ(Issue_Crossing(CROSSING_FORT, BOTH).ROW, 0);
}

TEST(Crossing, SidesOfANetworkGameTakeRowsOfTheirHalf)
{
    for (const int role : {0, 1}) {
        Board board(5, 5);
        NetRole = role;
        BBMAX = RBMAX = 9;
        BG[1].BGHEX = 7;
        EXPECT_EQ(Issue_Crossing(CROSSING_BRIDGE, BLUE).ROW, 2);
        EXPECT_EQ(Issue_Crossing(CROSSING_BRIDGE, RED).ROW, role == 0 ? 2 : 151);
        for (int row = 1; row <= 150; ++row) BG[row].BGHEX = 7;
        const CROSSING full = Issue_Crossing(CROSSING_BRIDGE, BLUE);
        EXPECT_EQ(full.ROW, role == 0 ? 151 : 0);
        EXPECT_EQ(BBNOW, role == 0 ? 2 : 1);   // given back where no message could tell the others
        for (int row = 1; row <= MAX_BG; ++row) BG[row].BGHEX = 7;
        EXPECT_EQ(Issue_Crossing(CROSSING_BRIDGE, RED).ROW, 0);
        EXPECT_EQ(RBNOW, role == 0 ? 2 : 1);
    }
}

TEST(Works, AClickPlacesAWorkAndBooksIt)
{
    Set_Up s;
    const struct {
        int TOOL, COLUMN, ROW, VALUE, TYPE;
    } works[] = {{237, 3, 1, 7, 7}, {238, 3, 2, 18, 8}, {239, 1, 1, 21, 9}};   // mines on the bridge of the map
    for (int row = 1; row <= 3; ++row) {
        const auto& w = works[row - 1];
        EXPECT_TRUE(s.Put(w.TOOL, w.COLUMN, w.ROW)) << w.TOOL;
        EXPECT_EQ(Cell_Value(Hex_Of(w.COLUMN, w.ROW)), w.VALUE);
        EXPECT_EQ(BG[row].BGTYPE, w.TYPE);
        EXPECT_EQ(BG[row].BGSIDE, BLUE);
    }
    for (const int booked : {BBNOW, BOBST, BFORTS}) EXPECT_EQ(booked, 1);
    EXPECT_TRUE(Broken_Invariants().empty());
    EXPECT_TRUE(
        s.BOARD.SCREEN.Heard("status", "297 Data Points Bridges/Obstacles/Forts Are Still Available For Use! "));
}

TEST(Works, AToolIsRefusedOnTheWrongGroundAndWhenNothingIsLeft)
{
    Set_Up s;
    const struct {
        int ALLOWED, TOOL, COLUMN, ROW;
        const char* TEXT;
    } refusals[] = {
        {1, 237, 1, 1, "From Engineer:|This tool cannot be used with this type of terrain"},
        {1, 238, 1, 3, "From Engineer:|This tool cannot be used with this type of terrain"},   // sea
        {1, 239, 3, 2, "From Engineer:|This tool cannot be used with this type of terrain"},   // bridge
        {0, 237, 3, 1, "From Engineer:|We have no more bridges left!"},
        {0, 238, 1, 1, "From Engineer:|We have no more obstacles left!"},
        {0, 239, 1, 1, "From Engineer:|We have no more fortification material left!"},
    };
    for (const auto& r : refusals) {
        BBMAX = BOBSTMAX = BFORTSMAX = r.ALLOWED;
        s.BOARD.SCREEN.TOLD.clear();
        EXPECT_FALSE(s.Put(r.TOOL, r.COLUMN, r.ROW)) << r.TOOL;
        EXPECT_TRUE(s.BOARD.SCREEN.Heard("box", r.TEXT)) << r.TOOL;
        EXPECT_EQ(BBNOW + BOBST + BFORTS, 0);
    }
    EXPECT_EQ(Count_Used(BG, 1, MAX_BG), 0);
    GTURN = 1;
    s.BOARD.SCREEN.TOLD.clear();
    EXPECT_FALSE(s.Put(238, 1, 1));   // the battle has begun
    EXPECT_TRUE(s.BOARD.SCREEN.TOLD.empty());
    UserSide = 5;
    ActiveSide = 3;
    EXPECT_TRUE(s.Put(238, 1, 1));   // the editor places for the map itself
    EXPECT_EQ(BG[1].BGSIDE, BOTH);
}

TEST(Works, TheEraserGivesTheAllowanceBack)
{
    Set_Up s;
    s.Put(237, 3, 1);
    s.Put(238, 1, 1);
    s.Put(239, 2, 1);
    BG[9].BGHEX = Hex_Of(3, 2);
    BG[9].BGTYPE = 7;
    BG[9].BGSIDE = BOTH;
    EXPECT_FALSE(Erase_Planned_Work(9));   // the map's, not Blue's
    for (const int row : {1, 2, 3}) EXPECT_TRUE(Erase_Planned_Work(row)) << row;
    EXPECT_EQ(BBNOW + BOBST + BFORTS, 0);
    EXPECT_EQ(Cell_Value(Hex_Of(3, 1)), 5);
    EXPECT_EQ(Cell_Value(Hex_Of(1, 1)), 0);
    EXPECT_EQ(Cell_Value(Hex_Of(2, 1)), 0);
    UserSide = 5;
    EXPECT_TRUE(Erase_Planned_Work(9));
    EXPECT_EQ(Cell_Value(Hex_Of(3, 2)), 5);
    EXPECT_TRUE(Broken_Invariants().empty());
}

TEST(Works, ABridgeTakesThePlaceOfABlownOne)
{
    Set_Up s;
    BG[4].BGHEX = Hex_Of(3, 1);
    BG[4].BGTYPE = 5;
    BG[4].BGSIDE = BOTH;
    EXPECT_TRUE(s.Put(237, 3, 1));
    EXPECT_EQ(Count_Used(BG, 1, MAX_BG), 1);
    EXPECT_EQ(BG[1].BGTYPE, 7);
    EXPECT_TRUE(Broken_Invariants().empty());
}

#include "manoeuvre/movement.h"

#include "support/board.h"
#include "support/fields.h"
#include "support/log_lines.h"
#include "support/march.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

// Cells of 10 pixels, MAPSCALE 10. A battalion covers 40 pixels on the attack (half of 8 x 10), so friends hinder
// each other within 20: tests that do not want that keep units further apart.

/// A long open road of `columns` cells and a unit with a route to its end.
int On_The_Road(Board& board, int columns, int mobility, int points, int size = 3)
{
    const int unit = board.Place(BLUE, 5, 5, size == 100 ? 13 : 5);
    UNIT[unit].MOBILITY = mobility;
    UNIT[unit].SIZE = size;
    UNIT[unit].MOVEPOINTS = UNIT[unit].MOVEPOINTS2 = points;
    Plot(unit, {{(columns - 1) * 10 + 5, 5}});
    return unit;
}

struct PACE {
    const char* WHO;
    int MOBILITY, SIZE, POINTS, TURN_LENGTH, STEPS;
};

TEST(Movement_Pace, StepsOfATurnFollowMobilityAndLength)
{
    const PACE paces[] = {
        {"foot, two hours", 0, 3, 6, 0, 6},
        {"foot with points to spare", 0, 3, 24, 0, 6},   // slices 62, 132, 198, 264, 330, 396
        {"foot, one hour", 0, 3, 6, 1, 3},               // up to 198
        {"foot, fifteen minutes", 0, 3, 6, 2, 0},        // 62 never comes
        {"wheels, two hours", 1, 3, 24, 0, 24},          // of 25 slices
        {"tracks with points to spare", 2, 3, 40, 0, 25},
        {"tracks, one hour", 2, 3, 24, 1, 12},           // 16 to 192
        {"tracks, fifteen minutes", 2, 3, 24, 2, 3},     // 16, 32, 48
        {"convoy, two hours", 1, 100, 48, 0, 36},        // 25 and 11 more
        {"convoy, one hour", 1, 100, 48, 1, 18},         // 12 and 30, 60, 90, 120, 150, 180
        {"convoy, fifteen minutes", 2, 100, 48, 2, 4},   // 3 and 30
        {"convoy on foot", 0, 100, 48, 0, 6},
        {"line of communication", 10, 0, 24, 0, 0},
    };
    for (const PACE& p : paces) {
        Board board(60, 1);
        TurnLength = p.TURN_LENGTH;
        const int unit = On_The_Road(board, 60, p.MOBILITY, p.POINTS, p.SIZE);
        Movement();
        EXPECT_EQ(UNIT[unit].NUMBER_OF_MOVES, p.STEPS) << p.WHO;
        EXPECT_EQ(UNIT[unit].X, 5 + 10 * p.STEPS) << p.WHO;
        EXPECT_EQ(UNIT[unit].MOVEPOINTS2, p.POINTS - p.STEPS) << p.WHO;
        EXPECT_EQ(UNIT[unit].DISTANCE_TO_END, 59 - p.STEPS) << p.WHO;
    }
}

TEST(Movement_Pace, AStepThatWouldOverspendWaitsAndKeepsThePoints)
{
    Board board({".12~......"});
    const int unit = board.Place(BLUE, 5, 5);
    UNIT[unit].MOVEPOINTS2 = 12;
    Plot(unit, {{95, 5}});
    Movement();   // 2 + 5 = 7; the river's 6 is more than the 5 left
    EXPECT_TRUE(Has(UNIT[unit], "X 25, MOVEPOINTS2 5, MOVESTATUS 2"));
    EXPECT_TRUE(Messages().empty());
    UNIT[unit].MOVEPOINTS2 = 6;
    Movement();
    EXPECT_TRUE(Has(UNIT[unit], "X 35, MOVEPOINTS2 0"));
}

TEST(Movement_Start, TheMarchEndsADefenceAndTires)
{
    struct START {
        const char* WHO;
        int TYPE;
        const char *TIME, *BEFORE, *AFTER;
    };
    const START starts[] = {
        {"masked tanks", 5, "Day", "MOVESTATUS 2, TACOPN 11, MISSION Deliberate Defense, MOPP 3",
         "TACOPN 0, MISSION Attack, FATIGUE 8"},   // 2 + 3 masked + 3 moving
        {"guns", 7, "Day", "MOVESTATUS 2, TACOPN 11, MISSION Deliberate Defense",
         "TACOPN 4, MISSION Support, FATIGUE 5"},
        {"halted tanks", 5, "Day", "MOVESTATUS 1, TACOPN 1", "TACOPN 1, FATIGUE 5"},
        {"a screen", 5, "Day", "MOVESTATUS 2, TACOPN 3", "TACOPN 3"},
        {"a controlled headquarters", 18, "Day", "UCONTROL 1, MOVEPOINTS2 3", "MOVEPOINTS2 18"},
        {"tanks that stand", 5, "Day", "FREEHUNT 1", "FATIGUE 2, FREEHUNT 0"},
        // Flying tires twice as much by night.
        {"helicopters", 11, "Night", "MOBILITY 3, MOVESTATUS 8, TACOPN 1", "TACOPN 0, FATIGUE 8"},   // 2 + 6
        {"helicopters at the ceiling", 11, "Night", "MOBILITY 3, MOVESTATUS 8, FATIGUE 32765", "FATIGUE 32767"},
        {"helicopters on security", 11, "Night", "MOBILITY 3, MOVESTATUS 8, TACOPN 3", "TACOPN 3, FATIGUE 8"},
        {"a lift unit", 12, "Night", "MOBILITY 3, MOVESTATUS 8", "TACOPN 4, FATIGUE 8"},
        {"an unmanned aircraft", 26, "Night", "MOBILITY 3, MOVESTATUS 8, FATIGUE 0", "TACOPN 4, FATIGUE 0"},
    };
    for (const START& s : starts) {
        Board board(30, 30);
        TurnLength = 2;
        TIME_OF_DAY = s.TIME;
        const int unit = board.Place(BLUE, 5, 5, s.TYPE);
        Give(UNIT[unit], s.BEFORE);
        Movement();
        EXPECT_TRUE(Has(UNIT[unit], s.AFTER)) << s.WHO;
    }
}

TEST(Movement_Stacking, TheFirstFriendHinders)
{
    // A battalion at (5, 5) steps to (15, 5), next to a friend this far from there.
    struct STACK {
        const char* WHAT;
        int CONTROLLED, TYPE, FRIEND_SIZE;
        char GROUND;
        Point AWAY;
        float FOOTPRINT;   ///< of the friend
        int COST;
    };
    const STACK stacks[] = {
        {"an equal, open", 0, 5, 3, '.', {0, 20}, 40, 2},     // 1 x 1.5 = 1.5, to the even 2
        {"an equal, bridge", 0, 5, 4, '=', {0, 20}, 40, 4},   // 3 x 1.5 = 4.5, to the even 4
        {"a smaller one", 0, 5, 2, '=', {0, 20}, 40, 3},
        {"controlled tanks", 1, 5, 3, '=', {0, 20}, 40, 3},
        {"a controlled headquarters", 1, 18, 3, '=', {0, 20}, 40, 6},
        {"controlled guns", 1, 8, 2, '=', {0, 20}, 40, 4},         // 3 x 1.3 = 3.9
        {"controlled guns, open", 1, 8, 3, '.', {0, 20}, 40, 1},   // 1.3
        {"just out of its ground", 0, 5, 3, '.', {0, 21}, 40, 1},
        {"20.88 pixels, cut to 20", 0, 5, 3, '.', {6, 20}, 40, 2},
        {"a larger friend", 0, 5, 3, '.', {0, 22}, 43, 2},   // 43 / 2 = 21.5, to the even 22
        {"just out of a larger friend's", 0, 5, 3, '.', {0, 23}, 43, 1},
    };
    for (const STACK& s : stacks) {
        Board board(20, 20);
        HEXMAP[Hex_Of(2, 1)].TVALUE = s.GROUND == '=' ? 7 : 0;
        const int friend_ = board.Place(BLUE, 15 + s.AWAY.X, 5 + s.AWAY.Y);
        const int unit = board.Place(BLUE, 5, 5, s.TYPE);
        UNIT[friend_].SIZE = s.FRIEND_SIZE;
        UNIT[friend_].FOOTPRINT = s.FOOTPRINT;
        UNIT[unit].UCONTROL = s.CONTROLLED;
        Plot(unit, {{15, 5}, {105, 5}});
        UNIT[unit].MOVEPOINTS2 = 20;
        Move_Units(unit);
        EXPECT_EQ(20 - UNIT[unit].MOVEPOINTS2, s.COST) << s.WHAT;
    }
}

TEST(Movement_Stacking, OnlyTheLowestNumberCountsAndTheCostNeverPassesTheAllowance)
{
    Board board(20, 20);
    HEXMAP[Hex_Of(2, 1)].TVALUE = 7;
    const int small = board.Place(BLUE, 15, 15), big = board.Place(BLUE, 15, 15);
    const int unit = board.Place(BLUE, 5, 5);
    UNIT[small].SIZE = 1;
    UNIT[big].SIZE = 5;
    Plot(unit, {{15, 5}, {95, 5}});
    Move_Units(unit);
    EXPECT_EQ(UNIT[unit].MOVEPOINTS2, 21);   // the small one is first and does not hinder
    Place_Unit(unit, 5, 5);
    UNIT[small].SIZE = 3;
    UNIT[unit].MOVEPOINTS = 2;   // 3 x 1.5 = 4, held to the base allowance
    Clear_Route(unit);
    Plot(unit, {{15, 5}});
    Move_Units(unit);
    EXPECT_EQ(UNIT[unit].MOVEPOINTS2, 19);
    // A convoy minds nobody.
    const int convoy = board.Place(BLUE, 5, 5, 13);
    UNIT[convoy].SIZE = 100;
    Plot(convoy, {{15, 5}});
    Move_Units(convoy);
    EXPECT_EQ(UNIT[convoy].MOVEPOINTS2, 21);
}

TEST(Movement_Stacking, AnOverrunEnemySurrendersWhenItCannotFight)
{
    struct CASE {
        const char* WHAT;
        int DY;
        const char* ENEMY;
        bool TAKEN;
    };
    const CASE cases[] = {
        {"ineffective, supplied", 20, "STATUS 1", true},
        {"ineffective, out of reach", 21, "STATUS 1", false},
        {"out of supply", 20, "LOGSTATN 0, MOVESTATUS 2", true},
        {"intact", 20, "LOGSTATN 1", false},
        {"ineffective, on its way out", 20, "STATUS 1, MOVESTATUS 5", false},
    };
    for (const CASE& c : cases) {
        Board board(20, 20);
        const int enemy = board.Place(BLUE, 15, 5 + c.DY), beside = board.Place(RED, 15, 5 + c.DY);
        const int unit = board.Place(RED, 5, 5);
        Give(UNIT[enemy], c.ENEMY);
        UNIT[beside].FOOTPRINT = 2;
        Plot(unit, {{15, 5}, {195, 5}});
        UNIT[unit].MOVESTATUS = 5;   // on a retreat it looks for no contact: only the ground ahead counts
        Move_Units(unit);
        EXPECT_EQ(UNIT[enemy].STATUS == 0, c.TAKEN) << c.WHAT;
        // The friend of a higher number hinders all the same.
        EXPECT_TRUE(Has(UNIT[unit], c.DY == 20 ? "X 15, MOVEPOINTS2 22" : "X 15, MOVEPOINTS2 23")) << c.WHAT;
    }
}

TEST(Movement_Refusals, ARiverStopsAllButThoseWhoCanCross)
{
    for (int type = 0; type <= 26; ++type) {
        const bool crosses =
            type == 4 || type == 5 || type == 6 || type == 14 || type == 15 || type == 19 || type == 20;
        Board board({".~........"});
        const int unit = board.Place(BLUE, 5, 5, type);
        Plot(unit, {{95, 5}});
        Move_Units(unit);
        EXPECT_TRUE(Has(UNIT[unit], crosses ? "X 15, MOVEPOINTS2 18, NUMBER_OF_NODES 1, MOVESTATUS 1, TIMEREGR 2"
                                            : "X 5, MOVEPOINTS2 24, NUMBER_OF_NODES 0, MOVESTATUS 0, TIMEREGR 0"))
            << type;
        EXPECT_EQ(Posted("B1 cannot cross river without bridging!"), !crosses) << type;
    }
}

TEST(Movement_Refusals, ImpassableGroundStopsVehiclesButNotFootOrConvoys)
{
    struct CASE {
        const char *WHO, *AFTER;
    };
    for (const CASE& c : {CASE{"MOBILITY 0", "NUMBER_OF_NODES 1, MOVEPOINTS2 22"},
                          CASE{"MOBILITY 1", "NUMBER_OF_NODES 0, MOVEPOINTS2 24"},
                          CASE{"MOBILITY 2", "NUMBER_OF_NODES 0, MOVEPOINTS2 24"},
                          CASE{"MOBILITY 1, SIZE 100", "NUMBER_OF_NODES 1, MOVEPOINTS2 0"}}) {
        Board board({".6........"});
        const int unit = board.Place(RED, 5, 5);
        Give(UNIT[unit], c.WHO);
        Plot(unit, {{95, 5}});
        Move_Units(unit);
        EXPECT_TRUE(Has(UNIT[unit], c.AFTER)) << c.WHO;
        const bool refused = UNIT[unit].NUMBER_OF_NODES == 0;
        EXPECT_EQ(Posted("R301 cannot traverse this terrain!"), refused) << c.WHO;
        EXPECT_EQ(SITREPLIST[1].SIDE, refused ? RED : 0) << c.WHO;
    }
}

TEST(Movement_Refusals, AStepOffThePictureIsNeverMade)
{
    Board board(3, 1);
    const int unit = board.Place(BLUE, 25, 5);
    board.Place(BLUE, 25, 15);   // stacking would hold the cost to the allowance
    Plot(unit, {{95, 5}});
    UNIT[unit].MOVEPOINTS2 = 400;
    Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "X 25, MOVEPOINTS2 400, NUMBER_OF_NODES 1, MOVESTATUS 2"));
}

TEST(Movement_Legs, TheNextLegStartsWhereTheUnitStandsAndTheLastNodeEndsTheMarch)
{
    Board board(10, 10);
    const int hq = board.Place(BLUE, 95, 95, 18), unit = board.Place(BLUE, 5, 5);
    UNIT[unit].HIGHERHQ = hq;
    Plot(unit, {{15, 15}, {45, 15}});
    Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "NUMBER_OF_NODES 1, X1 15, MOVEY 0, DISTANCE_IN_HEXES 3, DISTANCE_TO_END 3"));
    EXPECT_TRUE(Has(UNIT[unit], "DX 45, DCOL1 5, DROW1 2, C2T 1"));
    EXPECT_EQ(UNIT[hq].C2T, 1);
    EXPECT_EQ(Count_Used(MN, 1, MAX_MN), 1);
    EXPECT_EQ(UNIT[unit].FACING, 134);   // south-east: 180 - 45.00004, as 3.14159 falls short of pi
    for (int step = 0; step < 3; ++step) Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "X 45, MOVESTATUS 0, TACOPN 1, MISSION Hasty Defense"));
    EXPECT_TRUE(Posted("B2 is at it's final destination!"));
    EXPECT_EQ(Count_Used(MN, 1, MAX_MN), 0);
    EXPECT_TRUE(Has(UNIT[unit], "MOVECOST_TO_END 0, C2T 3"));   // traffic of two nodes and of the message
    Move_Units(unit);                                           // without nodes nothing more happens
    EXPECT_EQ(UNIT[unit].X, 45);
}

TEST(Movement_Legs, AScreenKeepsItsMissionAndSaysNothing)
{
    Board board(10, 10);
    const int unit = board.Place(BLUE, 5, 55);
    Give(UNIT[unit], "TACOPN 3, MISSION Security");
    Plot(unit, {{15, 55}});
    Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "MOVESTATUS 0, MISSION Security"));
    EXPECT_TRUE(Messages().empty());
    // Footprint 80 on security (8 x 10): the line's ends lie 56 to each side of (15, 55), north and south of it.
    // Due east reads as 95 degrees (a difference of 0 down the map counts as 1): sin 5 = 0.0872, cos 5 = 0.9962.
    // 15 + 56 x 0.0872 and 55 - 56 x 0.9962
    EXPECT_TRUE(Has(UNIT[unit], "FACING 95, LX 20, LY -1, RY 111"));
}

TEST(Movement_Legs, ARiverHaltsOnTheWayAndEndsTheMarchAtTheLastNode)
{
    Board board({"..~...~..."});
    const int unit = board.Place(BLUE, 5, 5);
    Plot(unit, {{25, 5}, {65, 5}});
    Move_Units(unit);
    Move_Units(unit);
    // The node in the river is reached, and the unit halts all the same.
    EXPECT_TRUE(Has(UNIT[unit], "X 25, MOVESTATUS 1, NUMBER_OF_NODES 1, DISTANCE_IN_HEXES 4"));
    Move_Units(unit);
    EXPECT_EQ(UNIT[unit].X, 25);
    UNIT[unit].MOVESTATUS = 2;
    for (int step = 0; step < 4; ++step) Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "X 65, MOVESTATUS 0, TIMEREGR 2"));
}

TEST(Movement_Legs, ARetreatRouteIsWalkedOnlyByARetreat)
{
    Board board(10, 1);
    const int unit = board.Place(BLUE, 5, 5);
    UNIT[unit].RETREATS = 1;
    Plot(unit, {{95, 5}});
    Movement();
    EXPECT_EQ(UNIT[unit].X, 5);
    const Log_Lines log;
    UNIT[unit].MOVESTATUS = 5;
    Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "X 15, MOVESTATUS 5"));
    EXPECT_EQ(log.All(), std::vector<std::string>{"B1 is attempting to retreat!"});
}

TEST(Movement_Hazards, AnObstacleUnderTheUnitHaltsIt)
{
    Board board(10, 1);
    const int unit = board.Place(BLUE, 5, 5);
    Plot(unit, {{95, 5}});
    Move_Units(unit);
    HEXMAP[2].TVALUE = 12;
    Move_Units(unit);
    EXPECT_TRUE(Has(UNIT[unit], "X 15, BREACH 1, MOVESTATUS 1"));
    Give(UNIT[unit], "STATUS 1, MOVESTATUS 2");   // STATUS: who cannot breach it is not held by it
    Move_Units(unit);
    EXPECT_EQ(UNIT[unit].X, 25);
}

TEST(Movement_Hazards, ContaminationIsMeasuredFromThePlaceThatTheUnitLeaves)
{
    struct CASE {
        int MOPP;
        const char* CLOUD;
        bool INSIDE;
    };
    // Footprint 40 and a cloud 30 wide: nearer than 20 + 15 to 5.
    for (const CASE& c : {CASE{2, "NBCX 39, NBCTYPE 21", true}, CASE{2, "NBCX 40, NBCTYPE 21", false},
                          CASE{3, "NBCX 39, NBCTYPE 11", true}, CASE{2, "NBCX 39, NBCTYPE 20", false},
                          CASE{4, "NBCX 39, NBCTYPE 21", false}}) {
        Board board(20, 5);
        const int unit = board.Place(BLUE, 5, 45);
        UNIT[unit].MOPP = c.MOPP;
        Give(NBC[3], c.CLOUD);
        Give(NBC[3], "NBCY 45, NBCSIZE 30");
        Plot(unit, {{195, 45}});
        Move_Units(unit);
        EXPECT_EQ(Posted("B1 is inside a contaminated area!"), c.INSIDE) << c.CLOUD << ", MOPP " << c.MOPP;
    }
}

TEST(Movement_Phase, UnitsThatAreGoneOrUnderwayElsewhereAreLeftAlone)
{
    Board board(30, 1);
    const int unit = board.Place(BLUE, 5, 5);
    Plot(unit, {{295, 5}});
    UNIT[unit].STATUS = 0;
    Movement();
    EXPECT_TRUE(Has(UNIT[unit], "X 5, FATIGUE 2"));
    Give(UNIT[unit], "STATUS 2, NUMBER_OF_NODES 0");   // says it moves, and has no node
    Movement();
    EXPECT_TRUE(Has(UNIT[unit], "X 5, MOVESTATUS 0"));
}

}   // namespace
}   // namespace sm::test

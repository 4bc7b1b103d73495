#include "core/invariants.h"
#include "manoeuvre/engineers.h"
#include "support/board.h"
#include "support/dice.h"
#include "support/fields.h"
#include "terrain/grid.h"
#include "terrain/map.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

int Rows_Used() { return Count_Used(BG, 1, MAX_BG); }

/// A Blue unit on the march that stands on Red mines laid on ground of this value.
struct Minefield {
    Board BOARD;
    int UNIT_ON_IT;

    explicit Minefield(char ground, int type = 5) : BOARD({"....", std::string{'.', ground, '.', '.'}, "...."})
    {
        Lay_Obstacle(Hex_Of(2, 2), RED);
        UNIT_ON_IT = BOARD.Place(BLUE, 15, 15, type);
        UNIT[UNIT_ON_IT].MOVESTATUS = 2;
    }
};

/// Whether one try at these mines succeeds at this roll.
bool Breaches(int roll, int type, int attached_type = 0, int suppressed = 0)
{
    Minefield field('1', type);
    const int u = field.UNIT_ON_IT;
    UNIT[u].SUPPRESSED = suppressed;
    if (attached_type != 0) {
        const int v = field.BOARD.Place(BLUE, -500, -1000, attached_type);
        UNIT[v].PARENT_UNIT = u;
    }
    Roll_Next(roll);
    Obstacle_Recon(u);
    return Rows_Used() == 0;
}

/// The last message after a turn's work.
std::string Work(int u)
{
    Engineer_Work(u);
    return Messages().empty() ? "" : Messages().back();
}

}   // namespace

TEST(Recon, AUnitSeesEnemyWorksWithinItsGroundAndSixteenPixelsMore)
{
    for (const int type : {8, 7, 9, 5}) {
        Board board(40, 10);
        const int u = board.Place(BLUE, 100, 45);
        UNIT[u].FOOTPRINT = 41;   // half of it, 20.5, rounds to 20: seen to 36 pixels
        // A cell's centre lies half a cell inside: BGX 131 is 36 away.
        const char* works[] = {"BGX 131, BGSIDE RED", "BGX 132, BGSIDE RED", "BGX 125, BGSIDE BLUE",
                               "BGX 131, BGSIDE BOTH"};
        for (int row = 1; row <= 4; ++row) {
            Give(BG[row], Cat("BGY 40, BGTYPE ", To_Text(type), ", BGHEX ", To_Text(row)));
            Give(BG[row], works[row - 1]);
        }
        Obstacle_Recon(u);
        for (int row = 1; row <= 4; ++row) EXPECT_EQ(BG[row].BGVISIBLE, row == 1 || row == 4) << type << row;
        EXPECT_EQ(UNIT[u].BREACH, 0);
    }
}

TEST(Recon, AnAirCollectorSeesByItsOptics)
{
    for (const int sensor : {1, 2}) {
        Board board(40, 10);
        const int u = board.Place(BLUE, 100, 45, 26);
        Give(UNIT[u], "FOOTPRINT 10, MXRANGE 8");
        UNIT[u].SENSORT = sensor;
        Give(BG[1], "BGTYPE 9, BGHEX 1, BGSIDE RED, BGX 175, BGY 40");   // BGX: centre at 180: 8 km
        Obstacle_Recon(u);
        EXPECT_EQ(BG[1].BGVISIBLE, sensor == 1);   // a radar does not see works, and 80 is beyond its ground
    }
}

TEST(Recon, EnemySmokeIsSeenByOperationalUnitsOnly)
{
    for (const int status : {1, 2}) {
        Board board(40, 10);
        const int u = board.Place(BLUE, 100, 45);
        UNIT[u].FOOTPRINT = 41;
        UNIT[u].STATUS = status;
        Give(NBC[1], "NBCX 136, NBCY 45, NBCTYPE 20, NBCSIDE RED");
        Give(NBC[2], "NBCX 136, NBCY 45, NBCTYPE 21, NBCSIDE RED");    // gas is not smoke
        Give(NBC[3], "NBCX 136, NBCY 45, NBCTYPE 20, NBCSIDE BLUE");   // its own
        Obstacle_Recon(u);
        for (int row = 1; row <= 3; ++row) EXPECT_EQ(NBC[row].NBCVISIBLE, row == 1 && status == 2) << row;
    }
}

TEST(Breach, ARollBelowFortyFailsAndWithEngineersBelowTwenty)
{
    EXPECT_FALSE(Breaches(39, 5));   // 39 - 30 = 9
    EXPECT_TRUE(Breaches(42, 5));
    EXPECT_TRUE(Breaches(100, 5));
    EXPECT_FALSE(Breaches(19, 14));   // 19 - 10 = 9
    EXPECT_TRUE(Breaches(21, 14));
    EXPECT_TRUE(Breaches(21, 5, 14));
    EXPECT_FALSE(Breaches(21, 5, 15));      // bridge engineers do not help
    EXPECT_FALSE(Breaches(21, 5, 14, 3));   // nor anyone under high suppression
    EXPECT_TRUE(Breaches(21, 5, 14, 2));
}

TEST(Breach, ABreachLowersTheCellAndFreesTheRowAndTheUnit)
{
    Minefield field('3');
    const int u = field.UNIT_ON_IT;
    EXPECT_EQ(UNIT[u].TERTYPE, 14);
    UNIT[u].MOVESTATUS = 1;
    Roll_Next(42);
    Obstacle_Recon(u);
    EXPECT_TRUE(Has(UNIT[u], "MOVESTATUS 2, BREACH 0, TERTYPE 3"));
    EXPECT_EQ(std::string_view(HEXMAP[Hex_Of(2, 2)].TNAME), "Road");   // beach, once a lane is cleared through it
    EXPECT_EQ(Rows_Used(), 0);
    EXPECT_FLOAT_EQ(BMANL, 0.3f);   // 3 percent of 10
    EXPECT_EQ(Messages(), (std::vector<std::string>{"B1: Breaching an obstacle!", "B1: Obstacle is reduced!"}));
    EXPECT_TRUE(Broken_Invariants().empty());
}

TEST(Breach, AFailedBreachHaltsTheUnitOnTheObstacle)
{
    Minefield field('.', 14);
    const int u = field.UNIT_ON_IT;
    Roll_Next(19);
    Obstacle_Recon(u);
    EXPECT_TRUE(Has(UNIT[u], "MOVESTATUS 1, BREACH 1, TERTYPE 11"));
    EXPECT_EQ(Rows_Used(), 1);
    EXPECT_FLOAT_EQ(BMANL, 0.1f);   // 1 percent of 10 with engineers
    EXPECT_EQ(Messages().back(), "B1: Unable to reduce obstacle this turn!");
    EXPECT_EQ(DiceSite, 8);
}

TEST(Breach, OnlyAMovingOperationalGroundUnitBreaches)
{
    for (const char* state :
         {"MOVESTATUS 0", "MOVESTATUS 6", "MOVESTATUS 2, STATUS 1", "MOVESTATUS 9, MOBILITY 3"}) {
        Minefield field('.');
        const int u = field.UNIT_ON_IT;
        Give(UNIT[u], state);
        Roll_Next(100);
        const int seed = RSEED;
        Obstacle_Recon(u);
        EXPECT_EQ(RSEED, seed) << state;
        EXPECT_EQ(Rows_Used(), 1) << state;
        EXPECT_EQ(BG[1].BGVISIBLE, 1) << state;   // everyone sees it
    }
}

TEST(Breach, OwnMinesAndMinesWithoutARowStopAUnitToo)
{
    for (const bool own : {true, false}) {
        Board board({"...", ".2.", "..."});
        if (own)
            Lay_Obstacle(Hex_Of(2, 2), BLUE);
        else
            Set_Cell(Hex_Of(2, 2), 13, "Obstacle");
        const int u = board.Place(BLUE, 15, 15);
        UNIT[u].MOVESTATUS = 2;
        Roll_Next(42);
        Obstacle_Recon(u);
        EXPECT_EQ(UNIT[u].TERTYPE, 2) << own;
        EXPECT_EQ(Rows_Used(), 0) << own;
    }
}

TEST(Breach, MinesUnderfootAreTriedOnceAndNeighbouringMinesToo)
{
    Board board(6, 3);
    Lay_Obstacle(Hex_Of(2, 2), RED);   // 10 pixels off
    Lay_Obstacle(Hex_Of(3, 2), RED);   // underfoot
    Lay_Obstacle(Hex_Of(5, 2), RED);   // 20 pixels off
    Lay_Obstacle(Hex_Of(6, 2), RED);   // 30 pixels off: out of reach
    const int u = board.Place(BLUE, 25, 15);
    UNIT[u].MOVESTATUS = 2;
    RSEED = 57;   // to come: 21, 3, 14: all fail
    Obstacle_Recon(u);
    EXPECT_EQ(RSEED, 60);
    EXPECT_EQ(Rows_Used(), 4);
    EXPECT_EQ(UNIT[u].BREACH, 1);

    Board narrow(6, 3, 7);
    Lay_Obstacle(Hex_Of(4, 2), RED);   // three cells of 7: 21 pixels are too far
    const int v = narrow.Place(BLUE, 3, 10);
    UNIT[v].MOVESTATUS = 2;
    Obstacle_Recon(v);
    EXPECT_EQ(RSEED, 0);
}

TEST(Works, ObstaclesAreLaidOnOpenCellsWhileARowIsFree)
{
    Board board({"12S", "=5.", "..."});
    GTURN = 4;
    const int bridge = Hex_Of(1, 2), sea = Hex_Of(3, 1);
    Lay_Obstacle(bridge, BLUE);
    EXPECT_EQ(Cell_Value(bridge), 18);
    EXPECT_EQ(BG[1].BGHEX, bridge);
    EXPECT_TRUE(Has(BG[1], "BGTYPE 8, BGSTIME 4, BGX 0, BGY 10"));
    Lay_Obstacle(bridge, RED);   // mined already
    Lay_Obstacle(sea, RED);
    Lay_Obstacle(0, RED);
    Lay_Obstacle(99, RED);
    EXPECT_EQ(Rows_Used(), 1);
    EXPECT_EQ(BOBST, 0);   // what an obstacle costs is booked with its order
    for (int row = 2; row <= MAX_BG; ++row) BG[row].BGHEX = 99999;
    Lay_Obstacle(Hex_Of(1, 1), RED);
    EXPECT_EQ(Cell_Value(Hex_Of(1, 1)), 1);
}

TEST(Works, AFortificationTakesThreeTurnsAndShelters)
{
    Board board({"...", ".2.", "..."});
    const int u = board.Place(BLUE, 15, 15, 14);
    UNIT[u].TIMEREGR = 6;
    EXPECT_EQ(Work(u), "B1: Fortification will be complete in 2 turn!");
    EXPECT_EQ(Work(u), "B1: Fortification will be complete in 1 turn!");
    EXPECT_EQ(UNIT[u].TERTYPE, 2);
    UNIT[u].STATUS = 1;   // an ineffective unit digs no further, and tires all the same
    Work(u);
    EXPECT_EQ(UNIT[u].TIMEREGR, 4);
    UNIT[u].STATUS = 2;
    EXPECT_EQ(Work(u), "B1: Fortification is finished!");
    EXPECT_TRUE(Has(UNIT[u], "TERTYPE 23, TIMEREGR 0, MOVEPOINTS2 0"));
    EXPECT_EQ(UNIT[u].FATIGUE, 2 + 4 * 3);
    EXPECT_TRUE(Has(BG[1], "BGTYPE 9, BGSIDE BLUE, BGX 10"));
    EXPECT_TRUE(Broken_Invariants().empty());
    CrossingHex = UNIT[u].HEXNUM;
    Change_Crossing();
    EXPECT_EQ(UNIT[u].TERTYPE, 2);
    EXPECT_EQ(Rows_Used(), 0);
}

TEST(Works, DiggersAreReleasedWhereNothingCanBeBuilt)
{
    Board board({"...", "...", "..."});
    const int mined = board.Place(BLUE, 15, 15, 14), full = board.Place(BLUE, 5, 5, 14);
    UNIT[mined].TIMEREGR = UNIT[full].TIMEREGR = 4;
    UNIT[mined].MOVESTATUS = 2;
    Lay_Obstacle(Hex_Of(2, 2), RED);   // scattered on the works before they were finished
    Work(mined);
    EXPECT_TRUE(Has(UNIT[mined], "TERTYPE 11, TIMEREGR 0, MOVESTATUS 2"));
    for (int row = 2; row <= MAX_BG; ++row) BG[row].BGHEX = 99999;
    Work(full);
    EXPECT_TRUE(Has(UNIT[full], "TIMEREGR 0, TERTYPE 0"));
    EXPECT_FALSE(Posted("finished"));
}

TEST(Works, ABridgeIsBuiltBlownAndBuiltAgainOnTheSameRow)
{
    Board board({"...", ".~.", "..."});
    const int river = Hex_Of(2, 2);
    const int u = board.Place(RED, 15, 15, 15), friendly = board.Place(RED, 14, 14);
    Give(UNIT[u], "BRIDGING 2, TIMEREGR 2");
    UNIT[u].MOVESTATUS = UNIT[friendly].MOVESTATUS = 1;
    EXPECT_EQ(Work(u), "R301: Bridge will be complete in 1 turn!");
    EXPECT_EQ(UNIT[u].MOVESTATUS, 1);
    EXPECT_EQ(Cell_Value(river), 5);
    EXPECT_EQ(Work(u), "R301: Bridge is finished!");
    EXPECT_TRUE(Has(UNIT[u], "MOVESTATUS 2, BRIDGING 1"));
    EXPECT_EQ(UNIT[friendly].TERTYPE, 7);
    EXPECT_TRUE(Has(BG[1], "BGTYPE 7, BGSIDE RED"));
    Work(u);
    EXPECT_EQ(UNIT[u].BRIDGING, 1);   // one bridge is enough

    Lay_Obstacle(river, BLUE);
    Blow_Bridge(river);
    EXPECT_EQ(BG[1].BGTYPE, 5);
    EXPECT_EQ(Cell_Value(river), 16);   // the mines lie in the river now
    EXPECT_EQ(std::string_view(HEXMAP[river].TNAME), "Blown Bridge");
    EXPECT_TRUE(Broken_Invariants().empty());
    CrossingHex = river;
    Change_Crossing();
    EXPECT_EQ(UNIT[u].TERTYPE, 5);
    Work(u);
    EXPECT_EQ(BG[1].BGTYPE, 7);
    EXPECT_EQ(UNIT[u].BRIDGING, 0);
    EXPECT_EQ(Cell_Value(river), 7);
    EXPECT_EQ(Rows_Used(), 1);

    Blow_Bridge(Hex_Of(1, 1));   // nothing there
    Set_Cell(Hex_Of(3, 3), 7, "Bridge");
    Blow_Bridge(Hex_Of(3, 3));   // a bridge of the terrain alone
    EXPECT_EQ(Cell_Value(Hex_Of(3, 3)), 7);
    Work(u);   // no section left
    EXPECT_EQ(Rows_Used(), 1);
    EXPECT_TRUE(Broken_Invariants().empty());
}

TEST(Works, AnIneffectiveUnitComesOutOfTheWaterWithoutAWord)
{
    Board board({"...", ".~.", "..."});
    const int u = board.Place(BLUE, 15, 15);
    UNIT[u].STATUS = 1;
    UNIT[u].TIMEREGR = UNIT[u].MOVESTATUS = 2;
    Work(u);
    EXPECT_TRUE(Has(UNIT[u], "TIMEREGR 1, MOVESTATUS 1"));
    Work(u);
    EXPECT_TRUE(Has(UNIT[u], "TIMEREGR 0, MOVESTATUS 2"));
    EXPECT_TRUE(Messages().empty());
    Give(UNIT[u], "TIMEREGR 6, MOVESTATUS 6");   // a retreat route waits on while its unit works
    Work(u);
    EXPECT_EQ(UNIT[u].MOVESTATUS, 6);
}

TEST(Works, ABridgeIsDrawnAcrossItsRiver)
{
    struct CASE {
        std::initializer_list<std::string_view> MAP;
        const char* ICON;
    };
    const CASE cases[] = {
        {{".~.", ".~.", ".~."}, "brdg.ico"},
        {{"...", "~~~", "..."}, "brdg1.ico"},
        {{"~..", ".~.", "..~"}, "brdg2.ico"},
        {{"..~", ".~.", "~.."}, "brdg.ico"},
    };
    for (const CASE& c : cases) {
        Board board(c.MAP);
        const int u = board.Place(BLUE, 15, 15, 15);
        UNIT[u].BRIDGING = 1;
        Work(u);
        EXPECT_EQ(Work_Icon(1), c.ICON);
        Blow_Bridge(Hex_Of(2, 2));
        EXPECT_EQ(Work_Icon(1), Cat("bl", c.ICON));
    }
    EXPECT_EQ(Work_Icon(2), "");
}

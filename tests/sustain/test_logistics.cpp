#include "sustain/logistics.h"

#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/fields.h"
#include "sustain/reinforcements.h"
#include "ui/supply_planning.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// A depot with 100 of 500, an infantry battalion 100 km east of it that holds 1 of 4.
struct Supply_Board : Board {
    Supply_Board() : Board(60, 30, 10)
    {
        depot = Place(BLUE, 55, 55, 13, 1.0f);
        Give(UNIT[depot], "LSF 500, LSF2 100");
        customer = Place(BLUE, 555, 55, 19);
        Give(UNIT[customer], "RSF 4, RSF2 1, LOGSTATN 25");
        UNIT[customer].LOGUNIT = depot;
        GTURN = 2;
    }
    int depot, customer;
};

}   // namespace

TEST(Logistics, AnAutomaticConvoyLeavesBelow75PercentFromTurn2)
{
    Supply_Board board;
    UNIT[board.customer].LOGSTATN = 75;
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[3].STATUS, 0);
    UNIT[board.customer].LOGSTATN = 74;
    GTURN = 1;
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[3].STATUS, 0);
    GTURN = 2;
    Auto_Logistics(BLUE);
    const UNIT_RECORD& convoy = UNIT[3];
    EXPECT_TRUE(Has(convoy, "STATUS 2, NAME CONVOY #3, SIZE 100, LSF2 3, X 55, OX1 555"));   // LSF2: 4 - 1
    EXPECT_EQ(convoy.CONVOYD, board.customer);
    EXPECT_EQ(convoy.HEXNUM, UNIT[board.depot].HEXNUM);
    EXPECT_EQ(UNIT[board.depot].LSF2, 97.0f);
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[4].STATUS, 0);   // one is on its way
    EXPECT_TRUE(board.SCREEN.Heard("phase", "Blue Logistics Planning Phase"));
}

TEST(Logistics, ASourceThatIsNearlyEmptyGivesAllItHasAndOneMore)
{
    Supply_Board board;
    UNIT[board.depot].LSF2 = 1.5f;
    EXPECT_EQ(Convoy_Load(board.customer), 2);
    UNIT[board.depot].LSF2 = 2.0f;
    EXPECT_EQ(Convoy_Load(board.customer), 3);   // need 3 exceeds 2
    Build_Convoy(BLUE, board.customer, Convoy_Load(board.customer));
    EXPECT_EQ(UNIT[board.depot].LSF2, -1.0f);
    UNIT[board.customer].RSF2 = 1.5f;
    UNIT[board.depot].LSF2 = 100;
    EXPECT_EQ(Convoy_Load(board.customer), 2);   // 2.5, halves to even
}

TEST(Logistics, ASupplierIsTheFirstDepotOfTheTableOrElseTheOwnLineOfCommunication)
{
    Supply_Board board;
    const int other = board.Place(BLUE, 255, 55);
    UNIT[other].LOGUNIT = 0;
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[other].LOGUNIT, board.depot);
    EXPECT_EQ(UNIT[board.depot].LOGUNIT, 0);   // a depot does not supply itself
    UNIT[board.depot].STATUS = 0;
    const int red = board.Place(RED, 300, 300, 13);
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[other].LOGUNIT, red);   // the first of the whole table, whosever it is
    UNIT[red].SIZE = 100;                  // a convoy is no depot
    UNIT[other].LOGUNIT = 0;
    Make_LOC_Units();
    Auto_Logistics(BLUE);
    EXPECT_EQ(UNIT[other].LOGUNIT, 300);
}

TEST(Logistics, AConvoyDeliversWithinFiveKilometresAndCostsTheCustomerHalfItsMove)
{
    Supply_Board board;
    const int row = Build_Convoy(BLUE, board.customer, 3);
    Place_Unit(row, 495, 55);   // 60 pixels: 6 km
    Logistics_Phase();
    EXPECT_EQ(UNIT[row].STATUS, 2);
    Place_Unit(row, 496, 55);   // 59 pixels: 5 km
    Give(UNIT[board.customer], "RSF2 1, MOVEPOINTS 5");
    Logistics_Phase();
    EXPECT_EQ(UNIT[row].STATUS, 0);
    EXPECT_GT(UNIT[board.customer].LOGSTATN, 95);
    EXPECT_TRUE(Has(UNIT[board.customer], "MOVEPOINTS2 2, LOGD 50"));   // MOVEPOINTS2: 2.5, halves to even
    EXPECT_TRUE(Posted("B2: Resupply is complete!"));
}

TEST(Logistics, AConvoyForADepotPaysOutIntoItsStock)
{
    struct CASE {
        const char* BEFORE;
        int LOAD;
        const char* AFTER;
    };
    for (const CASE& c :
         {CASE{"LSF 100, LSF2 10.4", 40,
               "LSF2 50, LOGSTATN 50"},   // 50.4 rounded
                                          // It gave all it had and one more, and stands at nothing, not below.
          CASE{"LSF 10, LSF2 -1", 0, "LSF2 -1, LOGSTATN 0"}}) {
        Supply_Board board;
        const int forward = board.Place(BLUE, 555, 155, 13);
        Give(UNIT[forward], c.BEFORE);
        UNIT[forward].LOGUNIT = board.depot;
        Place_Unit(Build_Convoy(BLUE, forward, c.LOAD), 555, 150);
        Logistics_Phase();
        EXPECT_TRUE(Has(UNIT[forward], c.AFTER)) << c.BEFORE;
    }
}

TEST(Logistics, AConvoyWithoutACustomerSaysSoAndIsSentToADepot)
{
    Supply_Board board;
    const int row = Build_Convoy(BLUE, board.customer, 3);
    Remove_Unit(board.customer);
    Logistics_Phase();
    EXPECT_TRUE(Posted("CONVOY #3: My supported unit is destroyed!"));
    Place_Unit(row, 255, 55);
    Auto_Logistics(RED);   // convoys of both sides are aimed anew
    EXPECT_EQ(UNIT[row].CONVOYD, board.depot);
    EXPECT_EQ(UNIT[row].OX1, 55);
}

TEST(Logistics, AConvoyThatLostItsLoadOrItsTrucksDoesNotStarveItsCustomer)
{
    Supply_Board board;
    const int row = Build_Convoy(BLUE, board.customer, 3);
    Give(UNIT[row], "LSF2 0, LOGSTATN 0, MOVESTATUS 2");   // shot up: a loss of 0.01 is 5 points of stock
    Logistics_Phase();
    // Halted, it would stand for ever, and no other would come.
    EXPECT_TRUE(Has(UNIT[row], "MOVESTATUS 2, TACOPN 4"));
    EXPECT_FALSE(Posted("CONVOY #3: Out of Supply - Operations Halted!"));
    UNIT[board.customer].LOGSTATN = 25;
    EXPECT_FALSE(Convoy_Is_Due(board.customer));
    UNIT[row].STATUS = 1;   // never delivers
    EXPECT_TRUE(Convoy_Is_Due(board.customer));
    UNIT[row].STATUS = 2;
    Place_Unit(row, 555, 60);
    Logistics_Phase();
    EXPECT_EQ(UNIT[row].STATUS, 0);   // it arrives empty, and the next may leave
}

TEST(Logistics, AtTenPercentAUnitHaltsAndAtElevenItOnlyAsks)
{
    struct CASE {
        int TYPE;
        const char *BEFORE, *AFTER, *TOLD;
    };
    // A squad consumes nothing.
    const CASE cases[] = {
        {5, "SIZE 0, MOVESTATUS 2, LOGSTATN 11", "MOVESTATUS 2, TACOPN 0", "B3:  Request CSS resupply ASAP!"},
        {5, "SIZE 0, MOVESTATUS 2, LOGSTATN 10", "MOVESTATUS 1, TACOPN 1",
         "B3: Out of Supply - Operations Halted!"},
        {5, "SIZE 0, MOVESTATUS 1, LOGSTATN 10", "MOVESTATUS 0", ""},
        {5, "SIZE 0, MOVESTATUS 6, LOGSTATN 0", "MOVESTATUS 6", ""},   // a waiting retreat route stays
        {11, "MOBILITY 3, SIZE 100, STATUS 1, LOGSTATN 11, MOVESTATUS 9, TIMERM 30", "MOVESTATUS 9", ""},
        {11, "MOBILITY 3, SIZE 100, STATUS 1, LOGSTATN 10, MOVESTATUS 9, TIMERM 30", "MOVESTATUS 0, TIMERM 0",
         "B3: Landing now due to lack of fuel!"},
    };
    for (const CASE& c : cases) {
        Supply_Board board;
        const int u = board.Place(BLUE, 255, 55, c.TYPE);
        Give(UNIT[u], c.BEFORE);
        Logistics_Phase();
        EXPECT_TRUE(Has(UNIT[u], c.AFTER)) << c.BEFORE;
        EXPECT_TRUE(*c.TOLD == 0 || Posted(c.TOLD)) << c.TOLD;
    }
}

TEST(Logistics, AReplacementMergesAUnitWithEverythingItHolds)
{
    Supply_Board board;
    const int u = board.Place(BLUE, 255, 55, 5, 4.0f), t = board.Place(BLUE, 314, 55, 5, 10.0f);   // 5 km
    UNIT[t].RCP2 = 3.5f;
    Give(UNIT[u], Cat("BRIDGING 1, WSRO ", To_Text(t)));
    WSRO_Phase();
    EXPECT_EQ(UNIT[u].STATUS, 0);
    EXPECT_TRUE(Has(UNIT[t], "RCP2 7.5, STRENGTH 75, RSF 6, BRIDGING 1"));
    EXPECT_TRUE(Posted("WSRO is complete!"));
    const int far = board.Place(BLUE, 100, 55);
    UNIT[far].WSRO = t;
    WSRO_Phase();
    EXPECT_EQ(UNIT[far].STATUS, 2);
}

TEST(Logistics, RegenerationGivesTwoPercentOfTheBasePowerUpToIt)
{
    Supply_Board board;
    UNIT[board.customer].RCP2 = 5;    // of 10
    UNIT[board.depot].RCP2 = 0.99f;   // of 1
    Regenerate(BLUE);
    EXPECT_FLOAT_EQ(UNIT[board.customer].RCP2, 5.2f);
    EXPECT_EQ(UNIT[board.customer].STRENGTH, 52.0f);
    EXPECT_EQ(UNIT[board.depot].RCP2, 1.0f);
}

TEST(Supply, ByHandAUnitNeedsASupplierAndTheConvoyWaitsForItsRoute)
{
    Supply_Board board;
    ActiveSide = BLUE;
    EXPECT_EQ(Confirm_Resupply(board.depot, 5), 0);
    EXPECT_TRUE(board.SCREEN.Heard(
        "box", "FROM the G-4|This Unit Must Have a Supporting Logistics Unit to Get Resupplied!"));
    UNIT[board.customer].LOGD = 33;
    EXPECT_EQ(Update_CSS(board.customer).TITLE, "Line-Haul Mission");
    EXPECT_EQ(Update_CSS(board.customer).REQUIRED, "Required:  3 /4");
    EXPECT_EQ(Update_CSS(board.customer).AVAILABLE, 100);
    const int row = Confirm_Resupply(board.customer, 7);
    EXPECT_TRUE(Has(UNIT[row], "LSF2 7, NUMBER_OF_NODES 0"));
    EXPECT_TRUE(board.SCREEN.Heard("box", "Please plot my route to this unit!"));
    UNIT[row].STATUS = 0;
    for (int u = 1; u <= 300; ++u) UNIT[u].STATUS = 2;
    EXPECT_EQ(Confirm_Resupply(board.customer, 7), 0);
    EXPECT_TRUE(board.SCREEN.Heard("box", "You have reached the max number of units for this side!"));
}

TEST(Arrivals, AUnitComesOnTheMapOnItsTurnOnly)
{
    Supply_Board board;
    const int u = board.Place(RED, 0, 0);
    Place_Off_Picture(u);
    Give(UNIT[u], "OFFMAP 1, ATIME 3, ARX 205, ARY 105");
    Reinforcements_Phase();
    EXPECT_EQ(UNIT[u].OFFMAP, 1);
    GTURN = 3;
    Reinforcements_Phase();
    EXPECT_TRUE(Has(UNIT[u], "OFFMAP 0, X 205, HEXNUM 611, ATIME 0"));   // HEXNUM: 20 x 30 + 11
    EXPECT_TRUE(Posted("New unit arrives: R301"));
}

TEST(Arrivals, LinesOfCommunicationAreMadeOncePerSideAndKeepTheirPlace)
{
    Supply_Board board;
    Make_LOC_Units();
    EXPECT_EQ(UNIT[300].NAME, "BLUE LOC");
    EXPECT_EQ(UNIT[600].X, 60);
    Place_Unit(300, 155, 155);
    Give(UNIT[300], "RCP2 0.2, NATION U.S.");
    LOC_Phase();
    EXPECT_TRUE(Has(UNIT[300], "X 155, RCP2 1, NATION "));
    Remove_Unit(600);
    LOC_Phase();
    EXPECT_EQ(UNIT[600].TYPE, 50);
    UNIT[600] = UNIT[board.customer];   // the row is somebody else's
    LOC_Phase();
    EXPECT_EQ(UNIT[600].TYPE, 19);
}

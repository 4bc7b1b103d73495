#include "ui/fire_planning.h"

#include "core/seat.h"
#include "support/fires.h"
#include "support/march.h"
#include "terrain/grid.h"

using namespace sm;
using namespace sm::test;

namespace {

/// A board on which Blue gives its orders at turn 3.
struct Planning : Board {
    Planning() : Board(60, 60)
    {
        ActiveSide = PlanSide = UserSide = BLUE;
        GTURN = 3;
    }
    bool Told(std::string_view title, std::string_view text) const
    {
        return SCREEN.Heard("box", Cat(title, "|", text));
    }
    int Boxes() const { return SCREEN.Count("box", ""); }
};

int Rows(int side) { return side == BLUE ? Count_Used(TG, 1, 100) : Count_Used(TG, 101, MAX_TG); }

int Place_Bridge(int x, int y)
{
    const int row = Free_Row(BG, 1, MAX_BG);
    BG[row].BGTYPE = 7;
    BG[row].BGX = x - 5;
    BG[row].BGY = y - 5;
    BG[row].BGHEX = Hex_Number(x, y);
    BG[row].BGSIDE = 3;
    return row;
}

}   // namespace

TEST(PlanFires, OnlyBatteriesThatCanFireAndReachAreOffered)
{
    Planning board;
    const int ready = Place_Battery(board, BLUE, 50, 50);   // 20 km and 20 pixels: 220
    const std::pair<Int16 UNIT_RECORD::*, int> spoilt[] = {
        {&UNIT_RECORD::STATUS, 1},      {&UNIT_RECORD::TACOPN, -1}, {&UNIT_RECORD::TYPE, 11},
        {&UNIT_RECORD::FIREMISSION, 3}, {&UNIT_RECORD::FSP, 3},     {&UNIT_RECORD::LOGSTATN, 0},
    };
    for (const auto& [field, value] : spoilt) UNIT[Place_Battery(board, BLUE, 50, 50)].*field = value;
    Place_Battery(board, RED, 50, 50);
    const int third_mission = Place_Battery(board, BLUE, 60, 50);
    UNIT[third_mission].FIREMISSION = 2;
    EXPECT_EQ(Offer_Batteries(BLUE, 270, 50), (std::vector<int>{ready, third_mission}));
    EXPECT_EQ(board.Boxes(), 0);
    EXPECT_EQ(Offer_Batteries(BLUE, 280, 50), (std::vector<int>{third_mission}));
    EXPECT_TRUE(Offer_Batteries(BLUE, 281, 50).empty());
    EXPECT_TRUE(board.Told("From FSCOORD:", "No artillery is available and/or can range this target!"));
}

TEST(PlanFires, AMissionTakesTheFirstFreeRowOfItsSideAndFiresNextTurnAtTheEarliest)
{
    Planning board;
    const int battery = Place_Battery(board, BLUE, 50, 50);
    ASSERT_TRUE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 0));
    const TG_RECORD& t = TG[1];
    EXPECT_EQ(t.TGX, 155);
    EXPECT_EQ(t.TGY, 55);
    EXPECT_EQ(t.TGHEX, Hex_Number(155, 55));
    EXPECT_EQ(t.TGTYPE, 1);
    EXPECT_EQ(t.TGHPT, 5);
    EXPECT_EQ(t.TGSIDE, BLUE);
    EXPECT_EQ(t.FUNIT, battery);
    EXPECT_EQ(t.TGTOT, 4);
    EXPECT_EQ(t.TGRAPHIC, 0);
    ASSERT_TRUE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 6));
    EXPECT_EQ(TG[2].TGTOT, 6);
    const int tai = Place_Area(BLUE, 13, 155, 55), theirs = Place_Area(RED, 13, 155, 55),
              nai = Place_Area(BLUE, 12, 1, 1);
    EXPECT_FALSE(Plan_Fire_Mission(battery, 155, 55, 1, 5, TAI_LINK + theirs));
    EXPECT_FALSE(Plan_Fire_Mission(battery, 155, 55, 1, 5, TAI_LINK + nai));
    ASSERT_TRUE(Plan_Fire_Mission(battery, 155, 55, 1, 5, TAI_LINK + tai));
    EXPECT_EQ(TG[3].TGTOT, 1000 + tai);
    EXPECT_EQ(TG[3].TGRAPHIC, tai);
    EXPECT_EQ(UNIT[battery].FIREMISSION, 3);
    EXPECT_FALSE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 0));   // three are enough
    Cancel_Target(2);
    EXPECT_EQ(UNIT[battery].FIREMISSION, 2);
    EXPECT_FALSE(Used(TG[2]));
    EXPECT_EQ(Issue_Target(BLUE), 2);
    EXPECT_EQ(Issue_Target(RED), 101);
    const int enemys = Place_Mission(RED, 1, 1, 1);
    Cancel_Target(enemys);
    EXPECT_TRUE(Used(TG[enemys]));
    for (int row = 1; row <= 100; ++row) TG[row].TGTYPE = 1;
    EXPECT_FALSE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 0));   // Blue's half is full
    EXPECT_EQ(UNIT[battery].FIREMISSION, 2);
}

TEST(PlanFires, FASCAMAndChemicalRoundsAreCountedWhenTheyAreOrderedAndRefusedWhenSpent)
{
    Planning board;
    const int battery = Place_Battery(board, BLUE, 50, 50);
    BOBSTMAX = 1;
    BCHMAX = 1;
    const std::pair<Ammunition, int> kinds[] = {{Ammunition::CONVENTIONAL, 1},
                                                {Ammunition::CHEMICAL_NP, 11},
                                                {Ammunition::CHEMICAL_P, 21},
                                                {Ammunition::FASCAM, 5}};
    for (const auto& [kind, type] : kinds) EXPECT_EQ(Choose_Ammunition(BLUE, kind), type);
    EXPECT_EQ(BOBST + BCHNOW, 0);   // choosing books nothing
    ASSERT_TRUE(Plan_Fire_Mission(battery, 155, 55, 5, 0, 0));
    EXPECT_EQ(BOBST, 1);
    EXPECT_EQ(Choose_Ammunition(BLUE, Ammunition::FASCAM), 0);
    EXPECT_TRUE(board.Told("From FSCOORD:", "All FASCAM munitions have been expended!"));
    EXPECT_EQ(Choose_Ammunition(BLUE, Ammunition::CHEMICAL_P), 21);
    ASSERT_TRUE(Plan_Fire_Mission(battery, 155, 55, 21, 0, 0));
    EXPECT_EQ(BCHNOW, 1);
    EXPECT_EQ(RCHNOW, 0);
    EXPECT_EQ(Choose_Ammunition(BLUE, Ammunition::CHEMICAL_NP), 0);
    EXPECT_TRUE(board.Told("From FSCOORD:", "All chemical munitions have been expended!"));
    Cancel_Target(1);
    EXPECT_EQ(BOBST, 1);                                        // what was ordered is gone
    EXPECT_EQ(Choose_Ammunition(RED, Ammunition::FASCAM), 0);   // each side by its own allowance
}

TEST(PlanFires, AnotherSidesBatteryAndARunningTurnTakeNoOrders)
{
    Planning board;
    const int ours = Place_Battery(board, BLUE, 50, 50), theirs = Place_Battery(board, RED, 50, 50);
    EXPECT_FALSE(Plan_Fire_Mission(theirs, 155, 55, 1, 5, 0));
    SEAT.TurnRunning = true;
    EXPECT_FALSE(Plan_Fire_Mission(ours, 155, 55, 1, 5, 0));
    SEAT.TurnRunning = false;
    ActiveSide = 3;
    EXPECT_FALSE(Plan_Fire_Mission(ours, 155, 55, 1, 5, 0));
    UserSide = 5;
    EXPECT_TRUE(Plan_Fire_Mission(theirs, 155, 55, 1, 5, 0));   // the editor orders both
    EXPECT_EQ(Rows(RED), 1);
    EXPECT_EQ(Rows(BLUE), 0);
}

TEST(PlanFires, ARoleBeyondCloseSupportCancelsWhatWasPlannedAndCloseSupportBringsTheBatteryBack)
{
    Planning board;
    const int battery = Place_Battery(board, BLUE, 50, 50), other = Place_Battery(board, BLUE, 50, 60);
    Plan_Fire_Mission(battery, 155, 55, 1, 5, 0);
    Plan_Fire_Mission(other, 155, 55, 1, 5, 0);
    Plan_Fire_Mission(battery, 155, 65, 1, 5, 0);
    EXPECT_TRUE(Set_Fire_Support(battery, 2));
    EXPECT_EQ(Rows(BLUE), 1);
    EXPECT_EQ(UNIT[battery].FIREMISSION, 0);
    EXPECT_EQ(UNIT[other].FIREMISSION, 1);
    EXPECT_FALSE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 0));
    EXPECT_TRUE(Set_Fire_Support(battery, 0));
    EXPECT_TRUE(Plan_Fire_Mission(battery, 155, 55, 1, 5, 0));
    EXPECT_FALSE(Set_Fire_Support(battery, 4));
}

TEST(PlanFires, ZonesAndSEADPrioritiesKeepToTheirAllowance)
{
    Planning board;
    const int tanks = board.Place(BLUE, 50, 50), flyer = Place_In_The_Air(board, BLUE, 50, 50, 11);
    EXPECT_FALSE(Toggle_CFZ(tanks));
    EXPECT_TRUE(board.Told("From FSCOORD:", "We have no available CFZ!"));
    BCFZMAX = 1;
    for (const int zones : {1, 0}) {
        EXPECT_TRUE(Toggle_CFZ(tanks));
        EXPECT_EQ(UNIT[tanks].CFZ, zones);
        EXPECT_EQ(BCFZ, zones);
    }
    BSEADMAX = 1;
    EXPECT_FALSE(Toggle_SEAD_Priority(tanks));   // for aircraft only
    EXPECT_EQ(BSEAD, 0);
    EXPECT_TRUE(Toggle_SEAD_Priority(flyer));
    EXPECT_EQ(BSEAD, 1);
    EXPECT_FALSE(Toggle_SEAD_Priority(Place_In_The_Air(board, BLUE, 50, 50, 12)));
    EXPECT_TRUE(board.Told("From FSCOORD:", "We have no available SEAD!"));
}

TEST(PlanAir, SortiesAreChargedToTheirPoolWhenTheMissionIsPlanned)
{
    Planning board;
    BTOTAL = 5;
    BTOTAL2 = 2;
    OTOTAL = 7;
    EXPECT_TRUE(Plan_Air_Mission(BLUE, 155, 55, 4, 5, 3, 0));
    EXPECT_EQ(BTOTAL, 2);
    EXPECT_EQ(TG[1].TGNSORTIES, 3);
    EXPECT_EQ(TG[1].TGTOT, 4);
    EXPECT_FALSE(Plan_Air_Mission(BLUE, 155, 55, 4, 5, 3, 0));
    EXPECT_FALSE(Plan_Air_Mission(BLUE, 155, 55, 4, 5, 0, 0));
    EXPECT_TRUE(Plan_Air_Mission(BLUE, 155, 55, 3, 11, 2, 0));
    EXPECT_EQ(BTOTAL2, 0);
    EXPECT_EQ(BTOTAL, 2);
    EXPECT_FALSE(Plan_Air_Mission(BLUE, 155, 55, 3, 11, 1, 0));
    EXPECT_EQ(OTOTAL, 7);
    Cancel_Target(1);
    EXPECT_EQ(BTOTAL, 2);
    EXPECT_EQ(board.Boxes(), 0);
}

TEST(PlanDemolition, WhoMayBlowWhichBridgeAndFromHowFar)
{
    Planning board;
    const int guns = board.Place(BLUE, 55, 55, 8), tired = board.Place(BLUE, 55, 55, 19),
              unit = board.Place(BLUE, 55, 55, 14);
    UNIT[tired].STATUS = 1;
    EXPECT_FALSE(Plan_Demolition(guns));
    EXPECT_TRUE(board.SCREEN.Heard("box", "Unit Cannot Perform This Function!"));
    EXPECT_FALSE(Plan_Demolition(tired));
    EXPECT_TRUE(board.SCREEN.Heard("box", "Unit Must Be Combat Effective!"));
    EXPECT_FALSE(Plan_Demolition(unit));   // there is no bridge at all
    Place_Bridge(95, 55);                  // 40 pixels
    EXPECT_FALSE(Plan_Demolition(unit));
    EXPECT_EQ(board.SCREEN.Count("box", "Unit Must be Within 3 kms of Bridge!"), 2);
    EXPECT_TRUE(board.SCREEN.Heard("status", "Range to Bridge: 4 kms  "));
    const int row = Place_Bridge(85, 55);   // 30 pixels: exactly 3 kilometres
    board.SCREEN.ANSWERS = {false};
    EXPECT_FALSE(Plan_Demolition(unit));
    EXPECT_TRUE(board.SCREEN.Heard("ask", "Do you want to blow this bridge?"));
    EXPECT_EQ(Rows(BLUE), 0);
    EXPECT_TRUE(Plan_Demolition(unit));
    EXPECT_EQ(TG[1].TGTYPE, 150);
    EXPECT_EQ(TG[1].TGHEX, BG[row].BGHEX);
    EXPECT_EQ(TG[1].TGX, 85);
    EXPECT_EQ(TG[1].TGTOT, 4);
    EXPECT_EQ(TG[1].FUNIT, unit);
    EXPECT_EQ(UNIT[unit].FIREMISSION, 1);
    EXPECT_EQ(UNIT[unit].TACOPN, 4);
    EXPECT_TRUE(UNIT[unit].MISSION == "Support");
    EXPECT_TRUE(board.SCREEN.Heard("status", "B3Demolitions have begun at "));
}

TEST(PlanMinefield, EveryRefusalHasItsWords)
{
    Planning board;
    const int unit = board.Place(BLUE, 105, 105, 14);   // footprint 40
    BOBSTMAX = 1;
    const struct {
        int TURN, TYPE, MISSIONS, USED, SUPPRESSED;
        const char* WORDS;
    } refusals[] = {
        {0, 14, 0, 0, 0, "Use the Graphics Menu to emplace obstacles during game start-up!"},
        {3, 15, 0, 0, 0, "Only combat-effective engineer units can perform this function!"},
        {3, 14, 1, 0, 0, "This engineer unit already has a mission!"},
        {3, 14, 0, 1, 0, "From Engineer:|We have no more obstacles left!"},
        {3, 14, 0, 0, 3, "Planned obstacle exceeds current force capability!"},
    };
    for (const auto& r : refusals) {
        GTURN = r.TURN;
        UNIT[unit].TYPE = r.TYPE;
        UNIT[unit].FIREMISSION = r.MISSIONS;
        BOBST = r.USED;
        UNIT[unit].SUPPRESSED = r.SUPPRESSED;
        EXPECT_FALSE(Begin_Minefield(unit)) << r.WORDS;
        EXPECT_EQ(board.SCREEN.Count("box", r.WORDS), 1);
    }
    UNIT[unit].SUPPRESSED = 2;
    EXPECT_TRUE(Begin_Minefield(unit));
    EXPECT_EQ(MapMode, 151);
    EXPECT_FALSE(Plan_Minefield(unit, 126, 105));
    EXPECT_TRUE(board.SCREEN.Heard("box", "Planned obstacle must be built within unit footprint!"));
    HEXMAP[Hex_Number(125, 105)].TVALUE = 10;
    EXPECT_FALSE(Plan_Minefield(unit, 125, 105));
    EXPECT_TRUE(board.SCREEN.Heard("box", "This tool cannot be used with this type of terrain"));
    EXPECT_EQ(BOBST, 0);
    HEXMAP[Hex_Number(125, 105)].TVALUE = 1;
    EXPECT_TRUE(Plan_Minefield(unit, 125, 105));
    EXPECT_EQ(BOBST, 1);
    EXPECT_EQ(TG[1].TGTYPE, 151);
    EXPECT_EQ(UNIT[unit].FIREMISSION, 1);
}

TEST(PlanFlight, AHelicopterLinkedToAnNAIWaitsAndAnUnlinkedOneDropsItsRoute)
{
    Planning board;
    const int unit = Place_In_The_Air(board, BLUE, 50, 50, 11), tanks = board.Place(BLUE, 50, 50);
    UNIT[unit].MOVESTATUS = 0;
    const int nai = Place_Area(BLUE, 12, 100, 100), theirs = Place_Area(RED, 12, 100, 100),
              tai = Place_Area(BLUE, 13, 1, 1);
    EXPECT_FALSE(Link_NAI(unit, theirs));
    EXPECT_FALSE(Link_NAI(unit, tai));
    EXPECT_FALSE(Link_NAI(tanks, nai));
    ASSERT_TRUE(Link_NAI(unit, nai));
    EXPECT_EQ(UNIT[unit].NAI, nai);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 7);
    ASSERT_NE(Plot(unit, {{100, 100}}), 0);
    ASSERT_TRUE(Link_NAI(unit, 0));
    EXPECT_EQ(UNIT[unit].NAI, 0);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 0);
    EXPECT_EQ(UNIT[unit].NUMBER_OF_NODES, 0);
}

TEST(PlanTargets, PlottingAndCancellingWaitForAClick)
{
    Planning board;
    DrawMode = 12;
    Begin_Plot_Target();
    EXPECT_EQ(MapMode, 90);
    EXPECT_EQ(DrawMode, 0);
    EXPECT_TRUE(board.SCREEN.Heard("status", "POINT and CLICK to Designate Target Location/Unit"));
    Begin_Cancel_Target();
    EXPECT_EQ(MapMode, 99);
}

TEST(PlanTargets, AClientOnlyAsks)
{
    Planning board;
    NetRole = 2;
    const int battery = Place_Battery(board, BLUE, 50, 50);
    BOBSTMAX = 1;
    EXPECT_TRUE(Plan_Fire_Mission(battery, 155, 55, 5, 0, 0));
    EXPECT_EQ(Rows(BLUE), 0);
    EXPECT_EQ(UNIT[battery].FIREMISSION, 0);
    EXPECT_EQ(BOBST, 0);
}

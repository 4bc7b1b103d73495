#include "core/seat.h"
#include "support/board.h"
#include "ui/desk.h"
#include "ui/hover.h"
#include "ui/sitreps.h"
#include "ui/unit_status.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace sm;
using namespace sm::test;

namespace {

bool Has(const std::vector<std::string>& lines, std::string_view line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}
bool Says(int unit, std::string_view line)
{
    const Status_Texts t = Unit_Status(unit);
    return Has(t.LEFT, line) || Has(t.RIGHT, line);
}

struct LINE_OF {
    Int16 UNIT_RECORD::*FIELD;
    int VALUE;
    const char* LINE;
};

class Texts : public testing::Test {
protected:
    Texts()
    {
        DESK = Desk{};
        GameLoaded = -1;
        ActiveSide = PlanSide = BLUE;
        u = board.Place(BLUE, 105, 105);
    }
    Board board{40, 40};
    int u = 0;
};

}   // namespace

TEST_F(Texts, TheStatusOfAUnitIsToldInItsWords)
{
    UNIT_RECORD& r = UNIT[u];
    r.NAME = "1-35 Armor";
    r.MISSION = "Offense";
    r.RCP2 = 7.46f;
    r.STRENGTH = 74.6f;
    r.MORALE = 3;
    r.LOGSTATN = 88;
    r.MOVESTATUS = 2;
    r.FACING = 45;
    r.C2 = 2;
    r.C2D = 33;
    r.SUPPRESSED = 1;
    r.FATIGUE = 16;
    r.MOPP = 2;
    r.CFZ = 1;
    const Status_Texts t = Unit_Status(u);
    EXPECT_EQ(t.LEFT, (std::vector<std::string>{"UNIT: 1-35 Armor", "MISSION: Offense", "CBT POWER: 7.5 -- 75%",
                                                "MORALE: High", "LOGISTICS: 88%", "SUPPLY CONVOY: None",
                                                "POSTURE: Moving"}));
    EXPECT_EQ(t.RIGHT,
              (std::vector<std::string>{"FACING: 45 deg", "TERRAIN: Unrestricted", "C2 Status: Average - 33 kms",
                                        "SUPPRESSION: Light", "FATIGUE: Tired", "MOPP 2",
                                        "CFZ: Yes   |||  SEAD: No", "WSRO: None"}));
    r.STATUS = 1;
    EXPECT_TRUE(Says(u, "CBT POWER: 7.5 -- 75% (Combat Ineffective)"));
}

TEST_F(Texts, BandsMeetExactly)
{
    const LINE_OF bands[] = {
        {&UNIT_RECORD::FATIGUE, 0, "FATIGUE: Rested"},
        {&UNIT_RECORD::FATIGUE, 1, "FATIGUE: Rested"},
        {&UNIT_RECORD::FATIGUE, 2, "FATIGUE: OK"},
        {&UNIT_RECORD::FATIGUE, 15, "FATIGUE: OK"},
        {&UNIT_RECORD::FATIGUE, 16, "FATIGUE: Tired"},
        {&UNIT_RECORD::FATIGUE, 21, "FATIGUE: Tired"},
        {&UNIT_RECORD::FATIGUE, 22, "FATIGUE: Exhausted"},
        {&UNIT_RECORD::C2, 0, "C2 Status: Bad - 0 kms"},
        {&UNIT_RECORD::C2, 1, "C2 Status: Poor - 0 kms"},
        {&UNIT_RECORD::C2, 2, "C2 Status: Average - 0 kms"},
        {&UNIT_RECORD::C2, 3, "C2 Status: Good - 0 kms"},
        {&UNIT_RECORD::SUPPRESSED, 9, "SUPPRESSION: Very High"},   // a loss may leave it above the named ones
        {&UNIT_RECORD::MOVESTATUS, 0, "POSTURE: Stationary"},
        {&UNIT_RECORD::MOBILITY, 3, "POSTURE: Landed"},
        {&UNIT_RECORD::MOVESTATUS, 1, "POSTURE: Temporarily Halted"},
        {&UNIT_RECORD::MOVESTATUS, 8, "POSTURE: Hovering"},
        {&UNIT_RECORD::MOVESTATUS, 9, "POSTURE: Flying"},
        {&UNIT_RECORD::MOVESTATUS, 10, "POSTURE: Aborting"},
        {&UNIT_RECORD::MOVESTATUS, 11, "POSTURE: Orbiting"},
    };
    for (const auto& b : bands) {
        UNIT[u].*b.FIELD = b.VALUE;
        EXPECT_TRUE(Says(u, b.LINE)) << b.LINE;
    }
    UNIT[u].C2 = -1;
    EXPECT_EQ(C2_Line(u), "");
}

TEST_F(Texts, RouteAndTerrainFollowTheRecord)
{
    UNIT_RECORD& r = UNIT[u];
    r.NUMBER_OF_NODES = 1;
    r.DISTANCE_TO_END = 14;
    r.TIME_TO_END = 1;
    EXPECT_TRUE(Says(u, "DISTANCE: 14 kms"));
    EXPECT_TRUE(Says(u, "ETA: 1 turn"));
    r.TIME_TO_END = 3;
    EXPECT_TRUE(Says(u, "ETA: 3 turns"));
    Set_Cell(r.HEXNUM, 2, "S. Restricted");   // what the map's author called it
    EXPECT_TRUE(Says(u, "TERRAIN: Severely Restricted"));
    Set_Cell(r.HEXNUM, 4, "Urban");
    EXPECT_TRUE(Says(u, "TERRAIN: Urban"));
    r.OFFMAP = 1;
    r.ATIME = 6;
    EXPECT_TRUE(Says(u, "OFF-MAP: Arrives Game Turn 6"));
}

TEST_F(Texts, GunsConvoysAndReplacementsHaveLinesOfTheirOwn)
{
    const int guns = board.Place(BLUE, 200, 200, 8);
    UNIT[guns].FIREMISSIONN = 2;
    UNIT[guns].FSP = 3;
    EXPECT_TRUE(Says(guns, "AMMO: 50%"));
    EXPECT_TRUE(Says(guns, "FS ROLE: GS Opportunity Fire"));
    UNIT[guns].FSP = 0;
    EXPECT_TRUE(Says(guns, "FS ROLE: Close Support"));

    const int depot = board.Place(BLUE, 200, 220, 13);
    EXPECT_TRUE(Says(depot, "LOG SUPPLY: 100%"));
    const int convoy = board.Place(BLUE, 210, 220, 13);
    UNIT[convoy].SIZE = 100;
    UNIT[convoy].NAME = "Convoy 1";
    EXPECT_TRUE(Says(convoy, "Resupplying: None"));
    UNIT[convoy].CONVOYD = u;
    EXPECT_TRUE(Says(convoy, "Resupplying: B1"));
    EXPECT_TRUE(Says(u, "SUPPLY CONVOY: Convoy 1"));

    UNIT[guns].WSRO = u;
    EXPECT_TRUE(Says(guns, "WSRO: Moving to B1"));
    EXPECT_TRUE(Says(u, Cat("WSRO: Awaiting arrival of ", UNIT[guns].NAME)));
}

TEST_F(Texts, TheFirstHindranceOfAUnitIsTheOneNamed)
{
    UNIT_RECORD& r = UNIT[u];
    const LINE_OF hindrances[] = {
        {&UNIT_RECORD::STATUS, 2, "Status: Operational"},
        {&UNIT_RECORD::LOGSTATN, 0, "Status: Inoperable (Low on Supply)"},
        {&UNIT_RECORD::SUPPRESSED, 3, "Status: Inoperable (Suppressed)"},
        {&UNIT_RECORD::MORALE, 0, "Status: Inoperable (Low Morale)"},
        {&UNIT_RECORD::STATUS, 1, "Status: Inoperable (Ineffective)"},
    };
    for (const auto& h : hindrances) {
        r.*h.FIELD = h.VALUE;
        EXPECT_EQ(Operating_Lines(u).front(), h.LINE);
    }
    r.BRIDGING = 2;
    EXPECT_TRUE(Has(Operating_Lines(u), "Bridging: Yes/2"));
    r.SENSORT = 3;
    EXPECT_TRUE(Has(Operating_Lines(u), "Sensor Type: ELINT/EA"));
}

TEST_F(Texts, OfAnEnemyOnlyWhatCanBeSeenIsTold)
{
    const int red = board.Place(RED, 300, 300);
    UNIT[red].MISSION = "Withdrawal";
    EXPECT_FALSE(Says(red, "MISSION: Withdrawal"));
    EXPECT_FALSE(Says(red, "MORALE: Average"));
    EXPECT_TRUE(Says(red, "POSTURE: Stationary"));
    ActiveSide = PlanSide = RED;
    EXPECT_TRUE(Says(red, "MISSION: Withdrawal"));
    EXPECT_FALSE(Says(u, "MORALE: Average"));
    ActiveSide = PlanSide = BOTH;   // two players before one screen
    EXPECT_FALSE(Says(red, "MORALE: Average"));
}

TEST_F(Texts, ReportsAreListedOldestFirstForTheirReadersOnly)
{
    Post_Message(0, "SPOTREP: armor", 100, 100, 0, BLUE);
    Post_Message(0, "SITREP: red news", 100, 100, 0, RED);
    Post_Message(0, "Air Strike BDA: hit", 100, 100, 0, BOTH);
    EXPECT_EQ(Message_Rows({}), (std::vector<int>{1, 3}));
    EXPECT_EQ(Message_Of(1).TEXT, "SPOTREP: armor");
    EXPECT_EQ(Message_Of(1).PLACE, "No UTM Data");
    EXPECT_EQ(Message_Of(3).KIND, Message_Kind::BDA);

    Message_Filter filter;
    filter.KIND[static_cast<int>(Message_Kind::BDA)] = false;
    EXPECT_EQ(Message_Rows(filter), (std::vector<int>{1}));

    filter.SIDE = RED;   // a side's own reader cannot ask for the other's
    EXPECT_EQ(Message_Rows(filter), (std::vector<int>{1}));
    ViewMode = 3;
    EXPECT_EQ(Message_Rows(filter), (std::vector<int>{2}));
}

TEST_F(Texts, TheListGoesRoundAtItsEnd)
{
    for (int n = 1; n <= 301; ++n) Post_Message(0, Cat("SITREP: ", To_Text(n)), 100, 100, 0, BOTH);
    // 299 rows: messages 300 and 301 have taken rows 1 and 2.
    const auto rows = Message_Rows({});
    ASSERT_EQ(rows.size(), 299u);
    EXPECT_EQ(Message_Of(rows.front()).TEXT, "SITREP: 3");
    EXPECT_EQ(Message_Of(rows.back()).TEXT, "SITREP: 301");
}

TEST_F(Texts, ThePointerTellsTerrainContaminationAndObject)
{
    Show_Picture(u);
    EXPECT_EQ(Hover(105, 105, 8).LABEL, "B1, Armor Battalion");
    EXPECT_EQ(Hover(105, 105, 8).UTM, "UTM: No Data");
    EXPECT_EQ(Hover(105, 105, 8).LAT_LONG, "Lat-Long: No Data");
    EXPECT_EQ(Hover(305, 305, 8).TERRAIN, "TERRAIN: Unrestricted");
    EXPECT_EQ(Hover(305, 305, 8).NBC, "NBC: Clear");
    EXPECT_EQ(Hover(-5, 305, 8).TERRAIN, "");

    NBC[1].NBCTYPE = 21;
    NBC[1].NBCX = 300;
    NBC[1].NBCY = 300;
    NBC[1].NBCSIZE = 40;
    NBC[1].NBCSIDE = RED;
    EXPECT_EQ(Hover(305, 305, 8).NBC, "NBC: Clear");   // not seen yet
    NBC[1].NBCVISIBLE = 1;
    EXPECT_EQ(Hover(305, 305, 8).NBC, "NBC: Chemical (P)");
    EXPECT_EQ(Hover(321, 300, 8).NBC, "NBC: Clear");   // 21 pixels from the centre of 40

    OBJ[1].OTYPE = 1;
    OBJ[1].OX = 200;
    OBJ[1].OY = 200;
    OBJ[1].OVALUE = 300;
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Objective: 300 points is unoccupied!");
    OBJ[1].OID = RED;
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Objective: 300 points is in REDFOR hands!");
    // Ground 80 wide reaches 80 / 2 + 16 = 56 pixels. What is not seen contests nothing.
    const int blue = board.Place(BLUE, 200, 256), red = board.Place(RED, 256, 200);
    UNIT[blue].FOOTPRINT = UNIT[red].FOOTPRINT = 80;
    Show_Picture(blue);
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Objective: 300 points is in REDFOR hands!");
    Show_Picture(red);
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Objective: 300 points is contested by both sides!");
    UNIT[red].FOOTPRINT = 79;
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Objective: 300 points is in REDFOR hands!");
    OBJ[1].OTYPE = 2;
    EXPECT_EQ(Hover(203, 200, 8).LABEL, "Key Terrrain");

    P[12].PTYPE = 12;
    P[12].PSIDE = BLUE;
    P[12].PX1 = 240;
    P[12].PY1 = 240;
    EXPECT_EQ(Hover(240, 240, 8).LABEL, "NAI #12 will be active in 1 turn!");
    P[12].PAGE = 1;
    EXPECT_EQ(Hover(240, 240, 8).LABEL, "NAI #12 is active.");
    P[12].PSIDE = RED;
    EXPECT_EQ(Hover(240, 240, 8).LABEL, "");

    GameLoaded = 0;
    EXPECT_EQ(Hover(240, 240, 8).UTM, "UTM: OFF");
}

#include "combat/ground_combat.h"
#include "combat/retreat.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/cases.h"
#include "support/log_lines.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// A Blue tank battalion in the middle of a row of ground, an enemy 20 pixels (two cells) east of it.
struct Chase {
    explicit Chase(const std::string& row, int column = 7)
        : BOARD({std::string(row.size(), '.'), row, std::string(row.size(), '.')}),
          U(BOARD.Place(BLUE, BOARD.Centre(column), 15)), E(BOARD.Place(RED, BOARD.Centre(column + 2), 15))
    {
        UNIT[E].ROE = 1;
    }
    Board BOARD;
    int U, E;
    UNIT_RECORD& Unit() { return UNIT[U]; }
    int Cells_Gone() { return (BOARD.Centre(7) - UNIT[U].X) / 10; }
};

}   // namespace

TEST(Retreat, TheMaximumLossHasEightSettingsAndAnyOtherIsFifteenPercent)
{
    Board board(5, 5);
    const int u = board.Place(BLUE, 15, 15);
    const float settings[] = {0.15f, 0.01f, 0.03f, 0.05f, 0.1f, 0.2f, 0.25f, 0.3f, 0.15f};
    for (int i = 0; i <= 8; ++i) {
        UNIT[u].RETREATP = i;
        EXPECT_EQ(Retreat_Threshold(u), settings[i]) << i;
    }
    UNIT[u].RETREATP = -1;
    EXPECT_EQ(Retreat_Threshold(u), 0.15f);
}

TEST(Retreat, WithoutAnEnemyInHalfOfTheFootprintsAUnitReportsAndStays)
{
    for (const int pixels : {40, 41}) {
        Board board(40, 3);
        const int u = board.Place(BLUE, 205, 15), e = board.Place(RED, 205 + pixels, 15);
        UNIT[u].FOOTPRINT = 40.9f;
        UNIT[e].FOOTPRINT = 40.0f;   // Int(80.9) / 2
        Add_Move_Node(u, Next_Free_Node(u), 255, 15);
        Retreat_Unit(u);
        EXPECT_EQ(UNIT[u].X < 205, pixels == 40);
        EXPECT_EQ(UNIT[u].NUMBER_OF_NODES, 0);
        EXPECT_TRUE(Posted("B1: We are retreating!"));
    }
}

TEST(Retreat, OnlyEnemiesThatCanFightAreRunFromAndAllTogetherGiveTheDirection)
{
    Board board(40, 40);
    const int u = board.Place(BLUE, 205, 205);
    board.Place(RED, 225, 205);
    board.Place(RED, 205, 230);
    const int beaten = board.Place(RED, 185, 205), friendly = board.Place(BLUE, 185, 185);
    UNIT[beaten].STATUS = 1;
    UNIT[friendly].ROE = 1;
    Retreat_Unit(u);
    // (-20, -25): two columns and (205 - 25) / 10 = 18 against 20 rows, so n = 2: Int(-12.5) = -13 down the rows
    // and -10 across the columns.
    EXPECT_EQ(UNIT[u].X, 205 - 60);
    EXPECT_EQ(UNIT[u].Y, 205 - 6 * 13);
}

TEST(Retreat, GroundEndsItAsItsKindSays)
{
    const CASES<const char*, int, int, const char*, int> cases = {
        {"...~................", 2, 2, "B1 cannot retreat any further!", 0},   // column 7 back to 5
        {"...S................", 0, 2, "B1 cannot retreat any further!", 0},
        {"...=................", 2, 2, "B1 cannot retreat any further!", 0},   // not even over a bridge
        {"...6................", 2, 2, nullptr, 0},                            // impassable but for foot
        {"...6................", 0, 5, nullptr, 0},                            // 2 for it, 1 for each other, of 6
        {"..###...............", 2, 6, nullptr, 24 - 3 * 1 - 3 * 2},
        {"222222..............", 2, 4, nullptr, 0},   // four of 5 points; the fifth is too dear
    };
    for (const auto& [row, mobility, cells, status, points] : cases) {
        Chase chase(row);
        chase.Unit().MOBILITY = mobility;
        if (mobility == 0) chase.Unit().MOVEPOINTS = 6;
        Retreat_Unit(chase.U);
        EXPECT_EQ(chase.Cells_Gone(), cells) << row;
        EXPECT_EQ(chase.Unit().MOVEPOINTS2, points) << row;
        EXPECT_EQ(chase.BOARD.SCREEN.Count("status", "cannot retreat any further!"), status != nullptr ? 1 : 0)
            << row;
    }
}

TEST(Retreat, OnlyBlueMeetsWhatWaitsOnTheWayOrUnderAScreen)
{
    for (const int side : {BLUE, RED})
        for (const bool screens : {false, true}) {
            Board board(40, 3);
            const int u = board.Place(side, 205, 15);
            UNIT[board.Place(3 - side, 225, 15)].STATUS = screens ? 0 : 2;
            Give(PP[1], "PPTYPE 1, PPTRIGGER 2");
            PP[1].PPX = 175;   // 30 pixels west, met within 40 / 2 + 8: after a step, or under a screen's left end
            PP[1].PPY = 15;
            UNIT[u].TACOPN = screens ? 3 : 0;
            Give(UNIT[u], "LX 150, LY 15");
            if (screens)
                Engage_Unit(u, 1);
            else
                Retreat_Unit(u);
            EXPECT_EQ(PP[1].PPACTIVE, side == BLUE ? 1 : 0) << side << screens;
        }
}

TEST(Retreat, OffTheMapAllIsLostWithoutAWordToAnyone)
{
    Chase chase("..........", 3);
    const int attached = chase.BOARD.Place(BLUE, 55, 15, 14), passenger = chase.BOARD.Place(BLUE, 55, 15, 19);
    UNIT[attached].PARENT_UNIT = chase.U;
    chase.Unit().PASSENGER = passenger;
    Retreat_Unit(chase.U);
    for (const int unit : {chase.U, attached, passenger}) EXPECT_EQ(UNIT[unit].STATUS, 0);
    EXPECT_EQ(Messages(), std::vector<std::string>{"B1: We are retreating!"});
    EXPECT_TRUE(chase.BOARD.SCREEN.Heard("status", "B1 retreated off-map and is destroyed!"));
    EXPECT_EQ(chase.BOARD.SCREEN.Count("beep", ""), 1);
    EXPECT_EQ(BMANL + BEPW, 0);
}

TEST(Retreat, ScreenEndsGrowByTheNewPlaceAndAreNothingWhereTheyDoNotFit)
{
    Chase chase("....................");
    Give(UNIT[chase.U], "LX 32700, LY 5, MOVEPOINTS 1");   // 65 steps of it fit no field
    Retreat_Unit(chase.U);
    EXPECT_EQ(chase.Cells_Gone(), 1);
    EXPECT_EQ(chase.Unit().LX, 32700 + 55);
    chase.Unit().LX = 32720;
    Retreat_Unit(chase.U);
    EXPECT_TRUE(Has(UNIT[chase.U], "X 45, LX 32765"));
    chase.Unit().LX = 32760;
    UNIT[chase.E].X = 65;
    Retreat_Unit(chase.U);
    EXPECT_EQ(chase.Unit().LX, 0);
    EXPECT_EQ(chase.Unit().LY, 5 + 3 * 15);
    EXPECT_EQ(chase.Unit().RX, 55 + 45 + 35);
    EXPECT_EQ(chase.Unit().RY, 3 * 15);
}

TEST(Retreat, AScreenCountsAnEnemyAtEachOfItsPointsAndKeepsItsRoute)
{
    Board board(60, 60);
    const int u = board.Place(BLUE, 305, 305), e = board.Place(RED, 325, 305), west = board.Place(RED, 265, 305);
    UNIT[u].TACOPN = 3;
    Add_Move_Node(u, Next_Free_Node(u), 405, 305);
    Give(UNIT[u], "LX 325, LY 300, RX 325, RY 310");
    UNIT[e].FOOTPRINT = UNIT[west].FOOTPRINT = UNIT[u].FOOTPRINT = 45;
    UNIT[e].ROE = UNIT[west].ROE = 1;
    // Three times (-20, 0) for the enemy in the east, once (40, 0) for the one in the west: (-20, 0).
    UNIT[u].MOVEPOINTS = 1;
    Retreat_Unit(u);
    EXPECT_TRUE(Has(UNIT[u], "X 295, NUMBER_OF_NODES 1"));
    EXPECT_TRUE(Has(UNIT[u], "MOVECOST_TO_END 11, X1 295"));   // eleven cells from where it is now
}

TEST(Retreat, APlottedRetreatRouteIsWalkedFourSteps)
{
    Chase chase("....................");
    chase.Unit().RETREATS = 1;
    Add_Move_Node(chase.U, Next_Free_Node(chase.U), 15, 15);
    ASSERT_EQ(chase.Unit().MOVESTATUS, 6);
    CurUnit = 5;
    const Log_Lines log;
    Retreat_Unit(chase.U);
    EXPECT_EQ(chase.Cells_Gone(), 4);
    EXPECT_TRUE(Has(UNIT[chase.U], "MOVESTATUS 2, NUMBER_OF_NODES 1"));   // and marches on
    EXPECT_EQ(CurUnit, 5);
    EXPECT_EQ(log.Count("Retreat: B1 -- 4"), 1);
    EXPECT_EQ(log.Count("Retreat: B1 -- 5"), 0);
    EXPECT_EQ(UNIT[chase.E].SPOTTED, 0);   // contact is not looked for on the way
}

TEST(Retreat, TheEndOfTheRouteEndsIt)
{
    Chase chase("....................");
    chase.Unit().RETREATS = 1;
    Add_Move_Node(chase.U, Next_Free_Node(chase.U), 45, 15);
    Retreat_Unit(chase.U);
    EXPECT_EQ(chase.Cells_Gone(), 2);
    EXPECT_EQ(chase.Unit().MOVESTATUS, 0);   // as the last node left it

    Chase without("....................");   // the box is ticked but no route plotted
    Give(UNIT[without.U], "RETREATS 1, SPOTTED 3, MOVEPOINTS2 1");
    Retreat_Unit(without.U);
    EXPECT_EQ(without.Cells_Gone(), 6);   // whatever the points allow; they are those of the base, less six
    EXPECT_TRUE(Has(UNIT[without.U], "MOVEPOINTS2 18, HEXNUM 2, SPOTTED 0"));
}

TEST(Retreat, AWithdrawingUnitBetweenTwoEnemiesDoesNotRetreatForEver)
{
    Board board(60, 60);
    const int u = board.Place(BLUE, 305, 305, 8, 1000.0f);
    UNIT[u].TACOPN = 4;   // guns: each contact on the way is a skirmish, and each asks for a retreat
    for (const int x : {265, 275, 285, 325}) board.Place(RED, x, 305, 5, 1000.0f);
    Engage_Unit(u, 1);
    EXPECT_GT(UNIT[u].STATUS, 0);
    int reports = 0;
    for (const std::string& message : Messages()) reports += message == "B1: We are retreating!" ? 1 : 0;
    EXPECT_GE(reports, 1);
    EXPECT_LE(reports, 4);   // at most one for each enemy of the outer look
    UNIT[u].X = 5;           // afterwards it can retreat again
    const std::size_t before = Messages().size();
    Retreat_Unit(u);
    EXPECT_GT(Messages().size(), before);
}

TEST(Surrender, TakesAttachmentsAndPassengerAndCountsPrisonersOnce)
{
    for (const int side : {BLUE, RED}) {
        Board board(20, 20);
        const int u = board.Place(side, 105, 105, 12, 9.0f), attached = board.Place(side, 5, 5, 14, 4.0f);
        const int passenger = board.Place(side, 5, 5, 19, 2.0f), company = board.Place(side, 5, 5, 21, 1.0f);
        UNIT[attached].PARENT_UNIT = u;
        UNIT[company].PARENT_UNIT = attached;
        UNIT[u].PASSENGER = passenger;
        const Log_Lines log;
        const std::string name = UNIT[u].NAME.Str(), other = UNIT[attached].NAME.Str();
        Surrender_Unit(u);
        EXPECT_FLOAT_EQ(side == RED ? REPW : BEPW, 9);   // the attachments' power is in it
        EXPECT_EQ(side == RED ? BEPW : REPW, 0);
        EXPECT_EQ(Messages(), (std::vector<std::string>{Cat(name, " surrenders!"), Cat(other, " surrenders!")}));
        EXPECT_TRUE(Has(SITREPLIST[2], "X 105, SIDE BOTH"));
        for (const int unit : {u, attached, passenger, company}) EXPECT_EQ(UNIT[unit].STATUS, 0);
        ASSERT_EQ(board.SCREEN.DRAWINGS.size(), 1u);
        EXPECT_EQ(board.SCREEN.DRAWINGS[0].KIND, Draw::PRISONERS);
        EXPECT_EQ(board.SCREEN.DRAWINGS[0].AUX, side);
        EXPECT_EQ(board.SCREEN.DRAWINGS[0].X1, 105 - 14);
        EXPECT_EQ(log.Count(Cat("Surrender: ", name)), 1);
    }
}

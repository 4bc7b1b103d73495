#include "combat/loss.h"
#include "core/dice.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/dice.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// Status after a loss of ten percent at a strength.
int Status_After(int type, float strength)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, type, 100.0f);
    UNIT[u].STRENGTH = strength;
    Apply_Loss(u, 10);
    return UNIT[u].STATUS;
}

/// SUPPRESSED of a unit of 100 points after a loss.
int Suppression_After(float loss, int mobility)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, mobility == 3 ? 11 : 5, 100.0f);
    UNIT[u].MOBILITY = mobility;
    Apply_Loss(u, loss);
    return UNIT[u].SUPPRESSED;
}

/// What the modifiers of a test add, found from outside: the least chance at which a roll of 50 still holds.
template <class Test>
int Added_By(void (*set)(UNIT_RECORD& u, int value), int value, Test holds)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55);
    for (int chance = -60; chance <= 60; ++chance) {
        UNIT_RECORD& r = UNIT[u];
        r.SUPPRESSED = r.C2 = r.MORALE = 2;
        r.TERTYPE = 6;   // the two looks at the ground cancel out
        set(r, value);
        Roll_Next(50);
        if (holds(u, chance)) return -chance;
    }
    return 999;
}

/// Morale 1 or more is lost below 50.
bool Keeps_Heart(int u, int chance)
{
    const int before = UNIT[u].MORALE, posted = SitrepCount;
    Morale_Test(u, 1, chance);
    EXPECT_EQ(UNIT[u].MORALE, SitrepCount > posted && before > 0 ? before - 1 : before);
    return SitrepCount == posted;
}

/// In mode 1 suppression falls below 50.
bool Stays_Down(int u, int chance)
{
    const int before = UNIT[u].SUPPRESSED;
    Suppression_Test(u, 1, chance);
    if (before > 0) return UNIT[u].SUPPRESSED == before;
    UNIT[u].SUPPRESSED = 0;   // nothing to lift: asked of mode 2, which suppresses above 50
    Roll_Next(50);
    Suppression_Test(u, 2, chance + 1);
    return UNIT[u].SUPPRESSED > 0;
}

}   // namespace

TEST(Loss, EffectivenessEndsBelowAStrengthThatGoesByTheRole)
{
    struct CASE {
        int TYPE;
        float EFFECTIVE;
    };
    for (const CASE& c : {CASE{5, 36}, {19, 36}, {13, 36}, {8, 15}, {2, 15}, {11, 10}, {26, 10}}) {
        EXPECT_EQ(Status_After(c.TYPE, c.EFFECTIVE + 10), 2) << c.TYPE;
        EXPECT_EQ(Status_After(c.TYPE, c.EFFECTIVE + 9), 1) << c.TYPE;
    }
    EXPECT_EQ(Status_After(11, 10), 0);   // strength 0 with power left is destroyed, not ineffective
}

TEST(Loss, AnIneffectiveUnitDropsItsTaskAndSaysSoAtEachLoss)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55), helicopters = board.Place(BLUE, 55, 55, 11);
    Add_Move_Node(u, Next_Free_Node(u), 155, 55);
    UNIT[u].MISSION = "Offense";
    UNIT[u].STRENGTH = 40;
    Apply_Loss(u, 0.5f);
    EXPECT_EQ(UNIT[u].STATUS, 1);
    EXPECT_EQ(UNIT[u].TACOPN, -1);
    EXPECT_EQ(UNIT[u].MISSION, "Retreat");
    EXPECT_EQ(UNIT[u].AIACTION, 1);
    EXPECT_EQ(UNIT[u].NUMBER_OF_NODES, 0);
    EXPECT_EQ(Messages().size(), 1u);
    EXPECT_EQ(SITREPLIST[1].SIDE, BLUE);
    Apply_Loss(u, 0.5f);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"B1 is combat ineffective!", "B1 is combat ineffective!"}));

    UNIT[helicopters].MOBILITY = 3;
    Add_Move_Node(helicopters, Next_Free_Node(helicopters), 155, 55);
    UNIT[helicopters].STRENGTH = 14;
    Apply_Loss(helicopters, 0.5f);
    EXPECT_EQ(UNIT[helicopters].STATUS, 1);
    EXPECT_EQ(UNIT[helicopters].MOVESTATUS, 0);
    EXPECT_EQ(UNIT[helicopters].NUMBER_OF_NODES, 1);   // an aircraft keeps its route
}

TEST(Loss, AttachmentsBearTheirShareInPowerAndTheWholePercentInStrength)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 5, 20.0f), v = board.Place(BLUE, 55, 55, 14, 8.0f);
    UNIT[v].PARENT_UNIT = u;   // its 8 points are in the 20
    Apply_Loss(u, 5);
    // 5 of 20 is 25 %. The engineers lose 5 x 8/20 = 2, the battalion 5 x 12/20 = 3.
    EXPECT_FLOAT_EQ(UNIT[v].RCP2, 6);
    EXPECT_FLOAT_EQ(UNIT[v].STRENGTH, 75);
    EXPECT_FLOAT_EQ(UNIT[u].RCP2, 17);
    EXPECT_FLOAT_EQ(UNIT[u].STRENGTH, 75);
}

TEST(Loss, PercentOfStrengthIsWholeAndAtMostAHundred)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 5, 8.0f);
    Apply_Loss(u, 0.1f);   // 1.25 %
    EXPECT_EQ(UNIT[u].STRENGTH, 99);
    EXPECT_FLOAT_EQ(UNIT[u].RCP2, 7.9f);
    Apply_Loss(u, 0.07f);   // less than 1 %: power falls, strength stays
    EXPECT_EQ(UNIT[u].STRENGTH, 99);
    Apply_Loss(u, 1e9f);
    EXPECT_EQ(UNIT[u].STATUS, 0);
    Apply_Loss(u, 1);   // a free row takes no loss
    EXPECT_EQ(UNIT[u].X, 4000);
    EXPECT_EQ(UNIT[u].RCP2, 0);
}

TEST(Loss, SuppressionGrowsWithTheShareOfTheBasePower)
{
    EXPECT_EQ(Suppression_After(5, 2), 0);   // 0.05 exactly: nothing on the ground
    EXPECT_EQ(Suppression_After(6, 2), 1);
    EXPECT_EQ(Suppression_After(10, 2), 2);   // 0.1 exactly
    EXPECT_EQ(Suppression_After(20, 2), 3);   // 0.2 exactly
    EXPECT_EQ(Suppression_After(3, 3), 0);    // 0.03 exactly
    EXPECT_EQ(Suppression_After(4, 3), 1);
    EXPECT_EQ(Suppression_After(7, 3), 2);    // two lines hold in the air
    EXPECT_EQ(Suppression_After(50, 3), 4);   // 0.5 exactly still counts for both
    EXPECT_EQ(Suppression_After(51, 3), 3);
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55);
    UNIT[u].RCP = 0;
    Apply_Loss(u, 5);
    EXPECT_EQ(UNIT[u].SUPPRESSED, 0);   // no base power to measure by
    EXPECT_EQ(RSEED, 0);
}

TEST(Loss, ASuppressedScreenMayLoseItsPosture)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 105, 105);
    UNIT[u].TACOPN = 3;
    Roll_Next(5);
    Apply_Loss(u, 0.1f);   // 5 + 10 - 10 + 5: stays a screen, and its line is drawn anew
    EXPECT_EQ(UNIT[u].TACOPN, 3);
    EXPECT_EQ(UNIT[u].LX, 105 - 55);   // 99 % of 80 pixels x 0.7 = 55.4 to the west
    UNIT[u].SUPPRESSED = 3;
    Roll_Next(88);   // 88 - 5 - 10 + 5: suppressed to 4, and so to ground
    Apply_Loss(u, 0.1f);
    EXPECT_EQ(UNIT[u].TACOPN, 1);
    EXPECT_EQ(UNIT[u].MISSION, "Hasty Defense");
    EXPECT_EQ(UNIT[u].LX, 0);
}

TEST(Loss, WhatALogisticsUnitLosesItsStockLosesToo)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 13, 2.0f);
    UNIT[u].LSF = UNIT[u].LSF2 = 1000;
    Apply_Loss(u, 0.5f);            // a quarter
    EXPECT_EQ(UNIT[u].LSF, 750);    // 2 x 500 x 0.01 x 75
    EXPECT_EQ(UNIT[u].LSF2, 750);   // 1000 - 0.5 x 500
    EXPECT_EQ(UNIT[u].LOGSTATN, 100);
    UNIT[u].LSF2 = 100;
    Apply_Loss(u, 0.3f);   // 20 % of 1.5: strength 55, LSF 550; the stock ends at 0, not below
    EXPECT_EQ(UNIT[u].LSF2, 0);
    EXPECT_EQ(UNIT[u].LOGSTATN, 0);
}

TEST(Loss, BridgesGoBelowFortyAndSuppressedAircraftTurnForHome)
{
    Board board(40, 20);
    const int bridges = board.Place(BLUE, 55, 55, 15), flyer = board.Place(BLUE, 55, 55, 11);
    UNIT[bridges].BRIDGING = 2;
    UNIT[bridges].STRENGTH = 49;
    Apply_Loss(bridges, 0.9f);   // 9 %: 40
    EXPECT_EQ(UNIT[bridges].BRIDGING, 2);
    Apply_Loss(bridges, 0.1f);
    EXPECT_EQ(UNIT[bridges].BRIDGING, 0);

    UNIT[flyer].MOBILITY = 3;
    for (const int x : {155, 55}) Add_Move_Node(flyer, Next_Free_Node(flyer), x, 55);
    UNIT[flyer].MOVESTATUS = 9;
    UNIT[flyer].SUPPRESSED = 1;
    Apply_Loss(flyer, 0.5f);   // 0.05: one line, to 2
    EXPECT_FALSE(Posted("Aborting"));
    Apply_Loss(flyer, 0.5f);
    EXPECT_TRUE(Posted("B2: Aborting mission due to aircraft losses!"));
    EXPECT_EQ(UNIT[flyer].MOVESTATUS, 10);
}

TEST(Loss, ADestroyedUnitReleasesWhatIsAttachedToItAndTakesItsPassengerAlong)
{
    Board board({"..........", "....#.....", ".........."});
    const int u = board.Place(BLUE, 45, 15, 12, 4.0f), v = board.Place(BLUE, 5, 5, 14, 1.0f);
    const int spent = board.Place(BLUE, 5, 5, 21, 0.0f), platoon = board.Place(BLUE, 5, 5, 24, 1.0f);
    const int passenger = board.Place(BLUE, 5, 5, 19), squad = board.Place(BLUE, 5, 5, 19, 0.5f);
    UNIT[u].FACING = 77;
    UNIT[u].LOGSTATN = 50;
    UNIT[u].RSF = 8;
    UNIT[u].PASSENGER = passenger;
    UNIT[u].STRENGTH = 1;
    UNIT[v].PARENT_UNIT = UNIT[spent].PARENT_UNIT = u;
    UNIT[platoon].PARENT_UNIT = spent;
    UNIT[squad].PARENT_UNIT = passenger;
    UNIT[v].HIGHERHQ = 299;
    UNIT[v].UCONTROL = 1;
    UNIT[v].FSP = 3;
    for (const int unit : {v, spent}) UNIT[unit].X = -500, UNIT[unit].Y = -1000, UNIT[unit].HEXNUM = 0;
    Apply_Loss(u, 0.1f);   // 2 %: nothing left of 1 %
    EXPECT_EQ(Messages(), (std::vector<std::string>{"B1 is destroyed!", "B5 is destroyed!"}));
    EXPECT_EQ(SITREPLIST[1].SIDE, BOTH);
    for (const int gone : {u, spent, passenger, squad}) EXPECT_EQ(UNIT[gone].STATUS, 0) << gone;
    for (const int there : {v, platoon}) {
        const UNIT_RECORD& r = UNIT[there];
        EXPECT_EQ(r.STATUS, 2);
        EXPECT_EQ(r.PARENT_UNIT, 0);
        EXPECT_EQ(r.HIGHERHQ, 0);
        EXPECT_EQ(r.UCONTROL + r.FSP, 0);
        EXPECT_EQ(r.FACING, 77);
        EXPECT_EQ(r.LOGSTATN, 50);
        EXPECT_FLOAT_EQ(r.RSF2, 4);   // 50 % of the parent's load of 8
        EXPECT_EQ(r.X, 45);
        EXPECT_EQ(r.HEXNUM, 4 * 3 + 2);
        EXPECT_EQ(r.TERTYPE, 4);
    }
}

TEST(MoraleTest, ModifiersAreThoseOfSuppressionCommandAndMorale)
{
    const auto suppression = [](UNIT_RECORD& u, int v) { u.SUPPRESSED = v; };
    const int by_suppression[] = {10, 5, 0, -5, -10, 0};
    for (int v = 0; v <= 5; ++v) EXPECT_EQ(Added_By(suppression, v, Keeps_Heart), by_suppression[v]) << v;
    const auto command = [](UNIT_RECORD& u, int v) { u.C2 = v; };
    const int by_command[] = {0, -15, -10, 0, 10};
    for (int v = -1; v <= 3; ++v) EXPECT_EQ(Added_By(command, v, Keeps_Heart), by_command[v + 1]) << v;
    const auto morale = [](UNIT_RECORD& u, int v) { u.MORALE = v; };
    const int by_morale[] = {-10, -5, 0, 5, 10};
    for (int v = 0; v <= 4; ++v) EXPECT_EQ(Added_By(morale, v, Keeps_Heart), by_morale[v]) << v;
}

TEST(MoraleTest, HeartIsGainedAt101AndFromHighAt111)
{
    const auto morale_after = [](int morale, int total) {
        Board board(20, 20);
        const int u = board.Place(BLUE, 55, 55);
        UNIT[u].SUPPRESSED = UNIT[u].C2 = 2;
        UNIT[u].MORALE = morale;
        const int by_morale[] = {-10, -5, 0, 5, 10};
        Roll_Next(50);
        Morale_Test(u, 2, total - 50 - by_morale[morale]);
        EXPECT_EQ(Posted("B1 gained morale!"), total >= (morale == 3 ? 111 : 101));
        return static_cast<int>(UNIT[u].MORALE);
    };
    EXPECT_EQ(morale_after(2, 100), 2);
    EXPECT_EQ(morale_after(2, 101), 3);
    EXPECT_EQ(morale_after(3, 110), 3);
    EXPECT_EQ(morale_after(3, 111), 4);
    EXPECT_EQ(morale_after(4, 101), 4);   // told, though it cannot rise
}

TEST(MoraleTest, BrokenUnitsStayBrokenAndLinesOfCommunicationUseUpARoll)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55), loc = board.Place(BLUE, 55, 55, 50);
    UNIT[u].MORALE = 0;
    Morale_Test(u, 1, -100);
    EXPECT_EQ(UNIT[u].MORALE, 0);
    EXPECT_EQ(Messages(), std::vector<std::string>{"B1 lost morale!"});
    Morale_Test(loc, 1, -100);
    EXPECT_EQ(UNIT[loc].MORALE, 2);
    EXPECT_EQ(Messages().size(), 1u);
    EXPECT_EQ(RSEED, 2);
}

TEST(SuppressionTest, ModifiersAreThoseOfStateCommandMoraleAndTwoLooksAtTheGround)
{
    const auto suppression = [](UNIT_RECORD& u, int v) { u.SUPPRESSED = v; };
    const int by_suppression[] = {10, 5, 0, -5};
    for (int v = 0; v <= 3; ++v) EXPECT_EQ(Added_By(suppression, v, Stays_Down), by_suppression[v]) << v;
    const auto command = [](UNIT_RECORD& u, int v) { u.C2 = v; };
    const int by_command[] = {0, 10, 5, 0, -10};
    for (int v = -1; v <= 3; ++v) EXPECT_EQ(Added_By(command, v, Stays_Down), by_command[v + 1]) << v;
    const auto morale = [](UNIT_RECORD& u, int v) { u.MORALE = v; };
    const int by_morale[] = {10, 5, 0, -5, -10};
    for (int v = 0; v <= 4; ++v) EXPECT_EQ(Added_By(morale, v, Stays_Down), by_morale[v]) << v;
    const auto ground = [](UNIT_RECORD& u, int v) { u.TERTYPE = v; };
    struct GROUND {
        int VALUE, ADDED;
    };
    for (const GROUND& g : {GROUND{0, 0 + 5},
                            {1, 0 - 5},
                            {2, -10 + 10},
                            {3, 0 - 15},
                            {4, -10 + 5},
                            {5, 10 + 10},
                            {7, 10 + 10},
                            {10, 0 + 10},
                            {11, 10 - 10},
                            {12, 10 + 10},
                            {18, 10 + 10},
                            {20, 0 + 10},
                            {21, -15 + 10},
                            {27, -15 + 10}})
        EXPECT_EQ(Added_By(ground, g.VALUE, Stays_Down), g.ADDED) << g.VALUE;
}

TEST(SuppressionTest, ExactlyFiftyNeitherLiftsNorSuppresses)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55);
    UNIT[u].C2 = 2;
    UNIT[u].TERTYPE = 6;
    const auto after = [&](int suppressed, int mode, int chance) {
        UNIT[u].SUPPRESSED = suppressed;
        Roll_Next(50);
        Suppression_Test(u, mode, chance);
        return static_cast<int>(UNIT[u].SUPPRESSED);
    };
    EXPECT_EQ(after(2, 1, 0), 2);
    EXPECT_EQ(after(2, 1, -1), 0);
    EXPECT_EQ(after(1, 1, -6), 0);   // never below 0
    EXPECT_EQ(after(2, 2, 0), 2);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(after(2, 2, 1), 3);
    EXPECT_TRUE(Posted("B1 is suppressed!"));
    EXPECT_EQ(after(6, 2, 1), 4);   // a loss may have left more
}

TEST(SuppressionTest, ExactlyFourSendsGroundUnitsToEarth)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55), flyer = board.Place(BLUE, 55, 55, 11);
    UNIT[flyer].MOBILITY = 3;
    for (const int unit : {u, flyer}) {
        Add_Move_Node(unit, Next_Free_Node(unit), 155, 55);
        UNIT[unit].MISSION = "Attack";
        UNIT[unit].SUPPRESSED = 4;
        UNIT[unit].LX = 9;
        Roll_Next(95);
        Suppression_Test(unit, 1, 0);   // does not recover
    }
    EXPECT_EQ(UNIT[u].NUMBER_OF_NODES, 0);
    EXPECT_EQ(UNIT[u].TACOPN, 1);
    EXPECT_EQ(UNIT[u].MISSION, "Hasty Defense");
    EXPECT_EQ(UNIT[u].LX, 0);
    EXPECT_EQ(UNIT[flyer].NUMBER_OF_NODES, 1);
    EXPECT_EQ(UNIT[flyer].MISSION, "Attack");
    UNIT[u].MISSION = "Attack";
    UNIT[u].SUPPRESSED = 5;
    Roll_Next(95);
    Suppression_Test(u, 1, 0);
    EXPECT_EQ(UNIT[u].MISSION, "Attack");   // above four it does not
}

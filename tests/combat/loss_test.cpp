#include "combat/loss.h"
#include "core/dice.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/cases.h"
#include "support/dice.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// What the modifiers of a test add, found from outside: the least chance at which a roll of 50 still holds.
template <class Test>
int Added_By(const char* field, int value, Test holds)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55);
    for (int chance = -60; chance <= 60; ++chance) {
        UNIT_RECORD& r = UNIT[u];
        r.SUPPRESSED = r.C2 = r.MORALE = 2;
        r.TERTYPE = 6;   // the two looks at the ground cancel out
        Give(UNIT[u], Cat(field, " ", To_Text(value)));
        Roll_Next(50);
        if (holds(u, chance)) return -chance;
    }
    return 999;
}

/// What the values of a field from `first` on add.
template <class Test>
void Expect_Modifiers(Test holds, const char* field, int first, std::initializer_list<int> added)
{
    for (const int wanted : added) {
        EXPECT_EQ(Added_By(field, first, holds), wanted) << field << ' ' << first;
        ++first;
    }
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
    const auto status_after_ten_percent = [](int type, float strength) {
        Board board(20, 20);
        const int u = board.Place(BLUE, 55, 55, type, 100.0f);
        UNIT[u].STRENGTH = strength;
        Apply_Loss(u, 10);
        return static_cast<int>(UNIT[u].STATUS);
    };
    for (const auto& [type, effective] :
         CASES<int, float>{{5, 36}, {19, 36}, {13, 36}, {8, 15}, {2, 15}, {11, 10}, {26, 10}}) {
        EXPECT_EQ(status_after_ten_percent(type, effective + 10), 2) << type;
        EXPECT_EQ(status_after_ten_percent(type, effective + 9), 1) << type;
    }
    EXPECT_EQ(status_after_ten_percent(11, 10), 0);   // strength 0 with power left is destroyed, not ineffective
}

TEST(Loss, AnIneffectiveUnitDropsItsTaskAndSaysSoAtEachLoss)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55), helicopters = board.Place(BLUE, 55, 55, 11);
    Add_Move_Node(u, Next_Free_Node(u), 155, 55);
    Give(UNIT[u], "MISSION Offense, STRENGTH 40");
    Apply_Loss(u, 0.5f);
    EXPECT_TRUE(Has(UNIT[u], "STATUS 1, TACOPN -1, MISSION Retreat, AIACTION 1, NUMBER_OF_NODES 0"));
    EXPECT_EQ(Messages().size(), 1u);
    EXPECT_EQ(SITREPLIST[1].SIDE, BLUE);
    Apply_Loss(u, 0.5f);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"B1 is combat ineffective!", "B1 is combat ineffective!"}));

    UNIT[helicopters].MOBILITY = 3;
    Add_Move_Node(helicopters, Next_Free_Node(helicopters), 155, 55);
    UNIT[helicopters].STRENGTH = 14;
    Apply_Loss(helicopters, 0.5f);
    EXPECT_TRUE(Has(UNIT[helicopters], "STATUS 1, MOVESTATUS 0"));
    EXPECT_EQ(UNIT[helicopters].NUMBER_OF_NODES, 1);   // an aircraft keeps its route
}

TEST(Loss, AttachmentsBearTheirShareInPowerAndTheWholePercentInStrength)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 5, 20.0f), v = board.Place(BLUE, 55, 55, 14, 8.0f);
    UNIT[v].PARENT_UNIT = u;   // its 8 points are in the 20
    Apply_Loss(u, 5);
    // 5 of 20 is 25 %. The engineers lose 5 x 8/20 = 2, the battalion 5 x 12/20 = 3.
    EXPECT_TRUE(Has(UNIT[v], "RCP2 6, STRENGTH 75"));
    EXPECT_TRUE(Has(UNIT[u], "RCP2 17, STRENGTH 75"));
}

TEST(Loss, PercentOfStrengthIsWholeAndAtMostAHundred)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 5, 8.0f);
    Apply_Loss(u, 0.1f);   // 1.25 %
    EXPECT_TRUE(Has(UNIT[u], "STRENGTH 99, RCP2 7.9"));
    Apply_Loss(u, 0.07f);   // less than 1 %: power falls, strength stays
    EXPECT_EQ(UNIT[u].STRENGTH, 99);
    Apply_Loss(u, 1e9f);
    EXPECT_EQ(UNIT[u].STATUS, 0);
    Apply_Loss(u, 1);   // a free row takes no loss
    EXPECT_TRUE(Has(UNIT[u], "X 4000, RCP2 0"));
}

TEST(Loss, SuppressionGrowsWithTheShareOfTheBasePower)
{
    constexpr bool GROUND = false, AIR = true;
    // The shares 0.05, 0.1, 0.2 and, in the air, 0.03 and 0.5 exactly; between 0.05 and 0.5 two lines hold in the
    // air.
    const CASES<float, bool, int> cases = {{5, GROUND, 0},  {6, GROUND, 1}, {10, GROUND, 2},
                                           {20, GROUND, 3}, {3, AIR, 0},    {4, AIR, 1},
                                           {7, AIR, 2},     {50, AIR, 4},   {51, AIR, 3}};
    for (const auto& [loss, in_the_air, suppressed] : cases) {
        Board board(20, 20);
        const int u = board.Place(BLUE, 55, 55, in_the_air ? 11 : 5, 100.0f);
        UNIT[u].MOBILITY = in_the_air ? 3 : 2;
        Apply_Loss(u, loss);
        EXPECT_EQ(UNIT[u].SUPPRESSED, suppressed) << loss;
    }
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
    EXPECT_TRUE(Has(UNIT[u], "TACOPN 1, MISSION Hasty Defense, LX 0"));
}

TEST(Loss, WhatALogisticsUnitLosesItsStockLosesToo)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55, 13, 2.0f);
    UNIT[u].LSF = UNIT[u].LSF2 = 1000;
    Apply_Loss(u, 0.5f);                                   // a quarter
    EXPECT_EQ(UNIT[u].LSF, 750);                           // 2 x 500 x 0.01 x 75
    EXPECT_TRUE(Has(UNIT[u], "LSF2 750, LOGSTATN 100"));   // 1000 - 0.5 x 500
    UNIT[u].LSF2 = 100;
    Apply_Loss(u, 0.3f);   // 20 % of 1.5: strength 55, LSF 550; the stock ends at 0, not below
    EXPECT_TRUE(Has(UNIT[u], "LSF2 0, LOGSTATN 0"));
}

TEST(Loss, BridgesGoBelowFortyAndSuppressedAircraftTurnForHome)
{
    Board board(40, 20);
    const int bridges = board.Place(BLUE, 55, 55, 15), flyer = board.Place(BLUE, 55, 55, 11);
    Give(UNIT[bridges], "BRIDGING 2, STRENGTH 49");
    Apply_Loss(bridges, 0.9f);   // 9 %: 40
    EXPECT_EQ(UNIT[bridges].BRIDGING, 2);
    Apply_Loss(bridges, 0.1f);
    EXPECT_EQ(UNIT[bridges].BRIDGING, 0);

    UNIT[flyer].MOBILITY = 3;
    for (const int x : {155, 55}) Add_Move_Node(flyer, Next_Free_Node(flyer), x, 55);
    Give(UNIT[flyer], "MOVESTATUS 9, SUPPRESSED 1");
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
    Give(UNIT[u], "FACING 77, LOGSTATN 50, RSF 8");
    UNIT[u].PASSENGER = passenger;
    UNIT[u].STRENGTH = 1;
    UNIT[v].PARENT_UNIT = UNIT[spent].PARENT_UNIT = u;
    UNIT[platoon].PARENT_UNIT = spent;
    UNIT[squad].PARENT_UNIT = passenger;
    Give(UNIT[v], "HIGHERHQ 299, UCONTROL 1, FSP 3");
    for (const int unit : {v, spent}) UNIT[unit].X = -500, UNIT[unit].Y = -1000, UNIT[unit].HEXNUM = 0;
    Apply_Loss(u, 0.1f);   // 2 %: nothing left of 1 %
    EXPECT_EQ(Messages(), (std::vector<std::string>{"B1 is destroyed!", "B5 is destroyed!"}));
    EXPECT_EQ(SITREPLIST[1].SIDE, BOTH);
    for (const int gone : {u, spent, passenger, squad}) EXPECT_EQ(UNIT[gone].STATUS, 0) << gone;
    for (const int there : {v, platoon}) {
        // 50 % of the parent's load of 8
        EXPECT_TRUE(Has(UNIT[there],
                        "STATUS 2, PARENT_UNIT 0, HIGHERHQ 0, UCONTROL 0, FSP 0, FACING 77, LOGSTATN 50, "
                        "RSF2 4, X 45, TERTYPE 4"));
        EXPECT_EQ(UNIT[there].HEXNUM, 4 * 3 + 2);
    }
}

TEST(MoraleTest, ModifiersAreThoseOfSuppressionCommandAndMorale)
{
    Expect_Modifiers(Keeps_Heart, "SUPPRESSED", 0, {10, 5, 0, -5, -10, 0});
    Expect_Modifiers(Keeps_Heart, "C2", -1, {0, -15, -10, 0, 10});
    Expect_Modifiers(Keeps_Heart, "MORALE", 0, {-10, -5, 0, 5, 10});
}

TEST(MoraleTest, HeartIsGainedAt101AndFromHighAt111)
{
    // Morale 4 is told to have risen, though it cannot.
    for (const auto& [morale, total, after, told] : CASES<int, int, int, bool>{
             {2, 100, 2, false}, {2, 101, 3, true}, {3, 110, 3, false}, {3, 111, 4, true}, {4, 101, 4, true}}) {
        Board board(20, 20);
        const int u = board.Place(BLUE, 55, 55), by_morale = 5 * (morale - 2);
        Give(UNIT[u], "SUPPRESSED 2, C2 2");
        UNIT[u].MORALE = morale;
        Roll_Next(50);
        Morale_Test(u, 2, total - 50 - by_morale);
        EXPECT_EQ(Posted("B1 gained morale!"), told) << total;
        EXPECT_EQ(UNIT[u].MORALE, after) << total;
    }
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
    Expect_Modifiers(Stays_Down, "SUPPRESSED", 0, {10, 5, 0, -5});
    Expect_Modifiers(Stays_Down, "C2", -1, {0, 10, 5, 0, -10});
    Expect_Modifiers(Stays_Down, "MORALE", 0, {10, 5, 0, -5, -10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 0, {0 + 5, 0 - 5, -10 + 10, 0 - 15, -10 + 5, 10 + 10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 7, {10 + 10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 10, {0 + 10, 10 - 10, 10 + 10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 18, {10 + 10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 20, {0 + 10, -15 + 10});
    Expect_Modifiers(Stays_Down, "TERTYPE", 27, {-15 + 10});
}

TEST(SuppressionTest, ExactlyFiftyNeitherLiftsNorSuppresses)
{
    Board board(20, 20);
    const int u = board.Place(BLUE, 55, 55);
    Give(UNIT[u], "C2 2, TERTYPE 6");
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
        Give(UNIT[unit], "MISSION Attack, SUPPRESSED 4, LX 9");
        Roll_Next(95);
        Suppression_Test(unit, 1, 0);   // does not recover
    }
    EXPECT_TRUE(Has(UNIT[u], "NUMBER_OF_NODES 0, TACOPN 1, MISSION Hasty Defense, LX 0"));
    EXPECT_TRUE(Has(UNIT[flyer], "NUMBER_OF_NODES 1, MISSION Attack"));
    Give(UNIT[u], "MISSION Attack, SUPPRESSED 5");
    Roll_Next(95);
    Suppression_Test(u, 1, 0);
    EXPECT_EQ(UNIT[u].MISSION, "Attack");   // above four it does not
}

#include "combat/artillery.h"
#include "combat/direct_fire.h"
#include "combat/factors.h"
#include "core/explain.h"
#include "support/board.h"
#include "support/cases.h"
#include "support/dice.h"

#include <bit>
#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// A tank battalion fires at another 20 pixels north of it, that faces it. Of a firer with C2 3 every loss is
/// RCP2 x 0.1 x 2 when nothing else acts.
struct Duel {
    Board BOARD{40, 40};
    int F = BOARD.Place(BLUE, 205, 225);
    int T = BOARD.Place(RED, 205, 205, 5, 1000.0f);   // a third of it is no ceiling
    Duel() { UNIT[T].FACING = 180; }

    UNIT_RECORD& Firer() { return UNIT[F]; }
    UNIT_RECORD& Target() { return UNIT[T]; }
    float Loss()
    {
        const float before = UNIT[T].TURNLOSS;
        Direct_Fire(F, T);
        return UNIT[T].TURNLOSS - before;
    }
};

std::vector<std::string>& Explained()
{
    static std::vector<std::string> lines;
    return lines;
}

}   // namespace

TEST(DirectFire, EveryFactorOfAHardCaseCountsInItsOrder)
{
    Duel duel;
    UNIT_RECORD &f = duel.Firer(), &t = duel.Target();
    Arrange(
        duel.F, duel.T,
        "f.MORALE 3, f.FATIGUE 1, f.SUPPRESSED 1, f.TERTYPE 21, f.TACOPN 1, f.EWSTATUS 5, f.UCONTROL 1, f.C2 1, "
        "t.RCP 10, t.RCP2 10, t.TERTYPE 1, t.TACOPN 11, t.OBSCURED 1");
    // 10 x 0.1 = 1; tanks at tanks, frontal: 1; morale 1.1 = 1.1; rested 1.1 = 1.21; lightly suppressed 0.9
    // = 1.089; from a fortification 2 = 2.178; into restricted ground 0.75 = 1.6335; hasty defence 1.3 = 2.12355;
    // against a deliberate defence 0.3 = 0.637065; jammed 0.66 = 0.4204629; smoke 0.5 = 0.21023145; controlled 1.5
    // = 0.31534718; command 1 x 0.5 + 0.5 = 1. Of 10 points that is 3 %.
    EXPECT_NEAR(duel.Loss(), 0.31534718f, 2e-7f);
    EXPECT_NEAR(RMANL, 0.31534718f, 2e-7f);
    EXPECT_EQ(BMANL, 0);
    EXPECT_TRUE(Posted("R301 receives direct fires (Frontal) from B1!"));
    EXPECT_TRUE(Posted("SITREP: R301 lost 3% as a result of direct fires!"));
    EXPECT_EQ(duel.BOARD.SCREEN.Count("status", "Smoke obscures target!"), 1);
    EXPECT_EQ(f.FATIGUE, 2);
    EXPECT_TRUE(Has(t, "FATIGUE 3, RCP2 10"));   // collected, not yet applied
    EXPECT_EQ(RSEED, 0);                         // a frontal shot rolls no dice
}

// clang-format off
TEST(DirectFire, EachConditionHasItsOwnFactor)
{
    constexpr float FLOOR = 0.03f / 2;
    constexpr FACTOR_CASE CASES[] = {
        {"f.MORALE 0", 0.3f}, {"f.MORALE 4", 1.2f},
        {"f.FATIGUE 15", 1}, {"f.FATIGUE 16", 0.8f}, {"f.FATIGUE 22", 0.5f},
        {"f.SUPPRESSED 3", 0.5f}, {"f.SUPPRESSED 4", 0.3f}, {"f.SUPPRESSED 5", 0.5f},   // 5 is better than 4
        {"f.TERTYPE 18", 0.5f}, {"f.TERTYPE 4", 1},
        {"t.TERTYPE 4", 0.3f}, {"t.TERTYPE 6", 0.5f}, {"t.TERTYPE 5", 1.5f}, {"t.TERTYPE 10", 1},
        {"t.TERTYPE 27", 0.3f},
        {"f.TACOPN 2", 0.5f}, {"t.TACOPN 3", 0.1f},
        {"f.C2 0", 0.25f}, {"f.C2 -1", FLOOR},
        {"f.UCONTROL 1, t.TACOPN 2", 0.5f},   // control does not reach a breach
    };
    Expect_Factors(CASES, [](const char* arranged) {
        Duel duel;
        Arrange(duel.F, duel.T, arranged);
        return duel.Loss();
    });
    EXPECT_FLOAT_EQ(Duel().Loss(), 2.0f);   // 10 x 0.1 x 2
}
// clang-format on

TEST(DirectFire, WeaponsAndVulnerabilityGoByTheRolesOfBoth)
{
    // 2 x weapons x vulnerability
    const CASES<int, int, float> cases = {
        {5, 5, 2.0f},    {20, 8, 40.0f}, {6, 7, 16.0f},  {4, 2, 8.0f},   {14, 11, 20.0f}, {5, 13, 10.0f},
        {19, 20, 1.0f},  {25, 5, 1.0f},  {19, 24, 2.0f}, {20, 19, 6.0f}, {6, 25, 6.0f},   {19, 25, 2.0f},
        {24, 19, 0.2f},  {18, 7, 1.6f},  {21, 0, 1.6f},  {8, 5, 0.03f},   // 0.02 and so the floor
        {13, 10, 0.08f},                                                  // 2 x 0.002 x 20
        {5, 40, 0.03f},                                                   // nothing, and so the floor
    };
    for (const auto& [firer, target, loss] : cases) {
        Duel duel;
        duel.Firer().TYPE = firer;
        duel.Target().TYPE = target;
        EXPECT_FLOAT_EQ(duel.Loss(), loss) << firer << " at " << target;
    }
}

TEST(DirectFire, AFlankAttackShakesTheTargetBeforeItsFireIsWeighed)
{
    Duel duel;
    duel.Target().RCP = duel.Target().RCP2 = 9;
    duel.Target().FACING = 270;   // the firer is at 180
    // Rolls 82 and 39. The firer: 82 + 20 + 10 (unsuppressed) + 10 (command 3) = 122, at least 101: morale 3.
    // The target: 39 - 20 + 10 + 10 = 39, below 50: morale 1. Then 10 x 0.1 x 1.2 x 1.1 x 2 = 2.64.
    EXPECT_FLOAT_EQ(duel.Loss(), 2.64f);
    EXPECT_EQ(RSEED, 2);
    EXPECT_EQ(duel.Firer().MORALE, 3);
    EXPECT_TRUE(Has(UNIT[duel.T], "MORALE 1, SUPPRESSED 1"));
    const std::vector<std::string> told = {"R301 receives direct fires (Flank) from B1!", "B1 gained morale!",
                                           "R301 lost morale!",
                                           "SITREP: R301 lost 29% as a result of direct fires!"};
    EXPECT_EQ(Messages(), told);   // 2.64 / 9 = 29.3 %
}

TEST(DirectFire, FireFromBehindSuppressesTwiceButNeverBeyondFour)
{
    Duel duel;
    Give(UNIT[duel.T], "FACING 0, SUPPRESSED 3");
    // Rolls 82 + 40 + 10 + 10 for the firer; 39 - 40 - 5 + 10 for the target.
    EXPECT_FLOAT_EQ(duel.Loss(), 3.3f);   // 1 x 1.5 x 1.1 x 2
    EXPECT_EQ(duel.Target().SUPPRESSED, 4);
    EXPECT_TRUE(Posted("R301 receives direct fires (Rear) from B1!"));
    Give(UNIT[duel.T], "FACING 180, SUPPRESSED 7");
    duel.Loss();
    EXPECT_EQ(duel.Target().SUPPRESSED, 4);   // cut whatever the aspect
}

TEST(DirectFire, AFacingThatIsNoDirectionNamesTheTargetAndNothingElse)
{
    Duel duel;
    duel.Target().FACING = -400;
    EXPECT_FLOAT_EQ(duel.Loss(), 2.0f);
    EXPECT_EQ(Messages().front(), "R301");
    EXPECT_EQ(RSEED, 0);
}

TEST(DirectFire, PowerIsDividedAmongTheEnemiesThatCanHoldIt)
{
    Duel duel;
    const auto another = [&] { return duel.BOARD.Place(RED, 205, 215); };
    another();
    for (const char* no_enemy :
         {"SIZE 0", "STATUS 1", "LOGSTATN 0", "PARENT_UNIT 301", "MOVESTATUS 8", "TACOPN 3"})
        Give(UNIT[another()], no_enemy);
    duel.BOARD.Place(RED, 205, 225 - 28);   // 40 + 40 pixels of ground: in contact to 27
    EXPECT_FLOAT_EQ(duel.Loss(), 1.0f);     // 10 / 2 enemies
    EXPECT_EQ(duel.Firer().ACTIVITY, 2);

    Give(UNIT[duel.F], "TACOPN 3, ACTIVITY 4");   // a screen keeps the count it has, at least 1
    EXPECT_FLOAT_EQ(duel.Loss(), 0.1f);           // 10 / 4 x 0.1 x 0.2 x 2
    duel.Firer().ACTIVITY = 0;
    EXPECT_FLOAT_EQ(duel.Loss(), 0.4f);
    EXPECT_EQ(duel.Firer().ACTIVITY, 1);
}

TEST(DirectFire, TheLeastLossGoesByTheFirersOperationAndTheGreatestByTheTargetsSize)
{
    Duel duel;
    duel.Firer().RCP2 = 0.2f;              // 0.04
    EXPECT_FLOAT_EQ(duel.Loss(), 0.03f);   // the floor can lower a loss
    for (const int operation : {3, 4}) {
        duel.Firer().TACOPN = operation;
        EXPECT_FLOAT_EQ(duel.Loss(), 0.05f);
    }
    Give(UNIT[duel.F], "TACOPN 0, RCP2 100");   // 20
    duel.Target().RCP2 = 3;
    EXPECT_FLOAT_EQ(duel.Loss(), 1.0f);   // a third
    EXPECT_TRUE(Posted("R301 lost 33%"));
    for (const int size : {0, 100}) {
        duel.Target().SIZE = size;
        EXPECT_FLOAT_EQ(duel.Loss(), 20.0f);   // a squad or a convoy can lose more than it has
    }
    EXPECT_TRUE(Posted("R301 lost 100%"));
    Give(UNIT[duel.T], "SIZE 3, TYPE 26");
    duel.Firer().RCP2 = 0.1f;
    EXPECT_FLOAT_EQ(duel.Loss(), 3.0f);   // any hit kills a UAV
    Give(UNIT[duel.T], "TYPE 5, RCP2 0");
    EXPECT_FLOAT_EQ(duel.Loss(), 0.0f);
    EXPECT_TRUE(Posted("SITREP: R301 lost less than 1% as a result of direct fires!"));
}

TEST(DirectFire, AttachedGunsShootFirstAndTakeNoPartInTheDirectFire)
{
    Duel duel;
    UNIT_RECORD& t = duel.Target();
    t.RCP = t.RCP2 = 10;
    const int battery = duel.BOARD.Place(BLUE, 205, 235, 8, 4.0f);
    UNIT[battery].PARENT_UNIT = duel.F;
    Roll_Next(5);   // the gunners' suppression test leaves the target as it is
    Direct_Fire(duel.F, duel.T);
    const float shells = RARTYL, bullets = RMANL;
    EXPECT_GT(shells, 0);
    EXPECT_FLOAT_EQ(bullets, 1.2f);                  // (10 - 4) x 0.1 x 2
    EXPECT_FLOAT_EQ(t.TURNLOSS, shells + bullets);   // the shells are collected for the end of the phase
    EXPECT_FLOAT_EQ(t.RCP2, 10 - shells);            // and felt at once
    EXPECT_EQ(UNIT[battery].FACING, 0);
    EXPECT_FLOAT_EQ(UNIT[battery].RSF2, 3 - 0.025f * 3);   // 0.05 halved

    UNIT[battery].RCP2 = 10;   // the whole of the firer's power: its floor is all that comes
    UNIT[battery].FIREMISSIONN = 2;
    RMANL = 0;
    Direct_Fire(duel.F, duel.T);
    EXPECT_FLOAT_EQ(RMANL, 0.03f);
    EXPECT_FLOAT_EQ(RARTYL, shells);   // two missions are what they have
}

TEST(DirectFire, GunsOfTheSameCommandSupportBetweenTheirLeastAndGreatestRange)
{
    const auto supports = [](int pixels, const char* arranged = "") {
        Duel duel;
        duel.Firer().HIGHERHQ = 299;
        const int battery = duel.BOARD.Place(BLUE, 205, 205 + pixels, 7);
        Give(UNIT[battery],
             "HIGHERHQ 299, MXRANGE 9, MINRANGE 3");   // 10 pixels a km; half of the footprint is 20
        Give(UNIT[battery], arranged);
        Direct_Fire(duel.F, duel.T);
        EXPECT_EQ(duel.BOARD.SCREEN.Count("status", " Shoots DS FA!"), RARTYL > 0 ? 1 : 0);
        return RARTYL > 0;
    };
    EXPECT_TRUE(supports(110));
    EXPECT_FALSE(supports(111));
    EXPECT_TRUE(supports(51));
    EXPECT_FALSE(supports(50));
    EXPECT_TRUE(supports(110, "FIREMISSIONN 2"));
    for (const char* no_support : {"FIREMISSIONN 3", "FSP 3", "TYPE 10", "STATUS 1", "HIGHERHQ 298"})
        EXPECT_FALSE(supports(110, no_support)) << no_support;
}

TEST(DirectFire, ATargetThatTheGunsDestroyedIsNotShotAtAnyMore)
{
    Duel duel;
    UNIT_RECORD& t = duel.Target();
    Give(t, "SIZE 0, RCP2 0.01");   // no ceiling holds
    for (int i = 0; i < 2; ++i) UNIT[duel.BOARD.Place(BLUE, 305, 205, 8)].PARENT_UNIT = duel.F;
    Direct_Fire(duel.F, duel.T);
    EXPECT_TRUE(Has(t, "STATUS 0, TURNLOSS 0"));
    EXPECT_EQ(RMANL, 0);
    EXPECT_EQ(UNIT[1 + 1].FIREMISSIONN, 1);
    EXPECT_EQ(UNIT[1 + 1].FACING, Bearing_To(305, 205, 205, 205));   // to where the target stood
    EXPECT_EQ(UNIT[1 + 2].FIREMISSIONN, 0);                          // the second battery finds nobody
    EXPECT_FALSE(Posted("receives direct fires"));
}

TEST(DirectFire, TheExplanationIsTheSumThatWasMade)
{
    Duel duel;
    Explained().clear();
    ExplainUnit = duel.T;
    Explain_To([](std::string_view line) { Explained().emplace_back(line); });
    duel.Firer().MORALE = 1;
    duel.Target().TERTYPE = 2;
    EXPECT_EQ(duel.Loss(), 0.5f);   // 1 x 0.5 x 0.5 x 2
    ExplainUnit = 0;
    duel.Loss();
    Explain_To(nullptr);
    const std::vector<std::string> lines = {
        "B1 fires at R301: (RCP2 10 - guns 0) / 1 engaged x 0.1 = 1",
        "  firer's weapons x 1 = 1",
        "  target's vulnerability x 1 = 1",
        "  aspect x 1 = 1",
        "  firer's morale x 0.5 = 0.5",
        "  firer's fatigue x 1 = 0.5",
        "  firer's suppression x 1 = 0.5",
        "  firer's terrain x 1 = 0.5",
        "  target's terrain x 0.5 = 0.25",
        "  firer's operation x 1 = 0.25",
        "  target's operation x 1 = 0.25",
        "  jamming x 1 = 0.25",
        "  smoke over target x 1 = 0.25",
        "  controlled unit x 1 = 0.25",
        "  command x 2 = 0.5",
        "  collected by R301 this turn: 0.5",
    };
    EXPECT_EQ(Explained(), lines);
}

TEST(Factors, EachProductRoundsBeforeTheNext)
{
    static constexpr FIRE_FACTOR CHAIN[] = {
        {"first", [](int, int) { return 0.1f; }},
        {"second", [](int, int) { return 1.1f; }},
        {"third", [](int, int) { return 1.3f; }},
    };
    // 9 x 0.1 = 0.90000004 (0x3F666667), x 1.1 = 0.99000007 (0x3F7D70A5), x 1.3 = 1.2870001 (0x3FA4BC6B); rounded
    // once at the end it would be 0x3FA4BC6A.
    EXPECT_EQ(std::bit_cast<std::uint32_t>(Multiply_Out(9.0f, CHAIN, false, 1, 1)), 0x3FA4BC6Bu);
}

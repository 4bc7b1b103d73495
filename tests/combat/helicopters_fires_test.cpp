#include "combat/helicopters.h"
#include "manoeuvre/routes.h"
#include "support/cases.h"
#include "support/fires.h"

using namespace sm;
using namespace sm::test;

namespace {

constexpr int ATTACK = 11;

int Place_Helicopters(Board& board, int x, int y, float rcp = 21.0f)
{
    const int unit = Place_In_The_Air(board, BLUE, x, y, ATTACK, rcp);
    UNIT[unit].MXRANGE = 5;
    return unit;
}

}   // namespace

TEST(HelicopterAttack, AFrontalAttackOutsideATAIIsWeakARearAttackInsideOneIsNot)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 20);
    const int target = board.Place(RED, 150, 60);   // faces north, at the helicopters
    // 0.1; outside a TAI 0.5 = 0.05; offence 0.9 = 0.045; x 21 = 0.945 of 10 points
    AH_Attack(unit, target);
    EXPECT_FLOAT_EQ(RAIRL, 0.945f);
    EXPECT_TRUE(Posted("B1: Conducting frontal attack against R301!"));
    EXPECT_TRUE(Posted("AH BDA: R301 lost 9%"));
    EXPECT_EQ(SITREPLIST[3].UNIT, unit);
    EXPECT_TRUE(Has(UNIT[unit], "FIREMISSIONN 2, FATIGUE 4"));
    RAIRL = 0;
    Give(UNIT[target], "FACING 180, RCP2 10");
    Place_Area(BLUE, 13, 150, 60);
    // 0.1; rear 2 = 0.2; offence 0.9 = 0.18; x 21 = 3.78
    AH_Attack(unit, target);
    EXPECT_FLOAT_EQ(RAIRL, 3.78f);
    EXPECT_TRUE(Posted("B1: Conducting rear attack against R301!"));
    EXPECT_TRUE(Posted("Attack occurred within an active TAI!"));
}

// clang-format off
TEST(HelicopterAttack, EachRowOfTheTableActsAsPrinted)
{
    const auto loss = [](const char* arranged) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 20);
        const int target = board.Place(RED, 150, 60, 5, 1000.0f);
        UNIT[target].TACOPN = 4;   // a withdrawal has no factor
        Arrange(unit, target, arranged);
        AH_Attack(unit, target);
        return static_cast<float>(RAIRL);
    };
    EXPECT_FLOAT_EQ(loss(""), 1.05f);   // 0.1 x 0.5 x 21
    constexpr FACTOR_CASE CASES[] = {
        {"f.TACOPN 3", 0.5f}, {"t.FACING 90", 1.5f},
        {"f.MORALE 0", 0.5f}, {"f.MORALE 1", 0.8f}, {"f.MORALE 4", 1.2f},
        {"f.FATIGUE 1", 1.1f}, {"f.FATIGUE 16", 0.8f}, {"f.FATIGUE 22", 0.5f},
        {"f.SUPPRESSED 1", 0.9f}, {"f.SUPPRESSED 3", 0.5f}, {"f.SUPPRESSED 5", 1},
        {"f.UCONTROL 1", 1.5f}, {"f.MOVESTATUS 10", 0.1f},
        {"t.TERTYPE 1", 0.6f}, {"t.TERTYPE 6", 0.3f}, {"t.TERTYPE 12", 1.2f}, {"t.TERTYPE 21", 0.2f},
        {"t.TACOPN 2", 0.6f}, {"t.TACOPN 3", 0.3f}, {"t.TACOPN 11", 0.2f},
        {"t.MOBILITY 0", 0.5f}, {"t.MOBILITY 1", 1.3f}, {"t.MOVESTATUS 2", 1.4f},
        {"t.MOBILITY 3, t.MOVESTATUS 9", 0},
        {"t.TYPE 3", 1.5f}, {"t.TYPE 9", 1.5f}, {"t.TYPE 12", 0.7f}, {"t.OBSCURED 1", 0.3f},
    };
    Expect_Factors(CASES, loss);
}
// clang-format on

TEST(HelicopterAttack, HalfIsTheMostOfAUnitAndAllOfAUAV)
{
    for (const int type : {5, 26}) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 20, 1000.0f);
        AH_Attack(unit, board.Place(RED, 150, 60, type));
        EXPECT_FLOAT_EQ(RAIRL, type == 26 ? 10.0f : 5.0f);
    }
}

TEST(HelicopterAttack, ACloseAttackIsAnsweredAndADistantOneIsNot)
{
    // 9 % weaker after the attack the target covers 36.4 pixels: it answers up to (0 + 36.4 + 10) / 2 = 23.2.
    for (const int pixels : {23, 24}) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 20);
        UNIT[unit].FOOTPRINT = 10;
        AH_Attack(unit, board.Place(RED, 150, 20 + pixels));
        EXPECT_EQ(BADAL > 0, pixels == 23);
    }
}

TEST(HelicopterSearch, OnStationTheFirstEnemyInSightIsAttacked)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 100);
    UNIT[unit].MOVESTATUS = 8;
    const int weak = board.Place(RED, 150, 60), first = board.Place(RED, 150, 40),
              near = board.Place(RED, 150, 90);
    UNIT[weak].STATUS = 1;
    AH_Search(unit, 150, 100);
    EXPECT_TRUE(Posted("R301 is combat ineffective!"));
    EXPECT_TRUE(Posted("attack against R302!"));
    EXPECT_EQ(UNIT[first].SPOTTED, 1);
    EXPECT_EQ(UNIT[near].SPOTTED, 0);   // the search had ended
    EXPECT_TRUE(board.SCREEN.Heard("status", "B1 acquires R302"));
    EXPECT_EQ(CurUnit, 0);
    EXPECT_EQ(CurUnit2, 0);
}

TEST(HelicopterSearch, InFlightOrdersComeBeforeTheHunt)
{
    constexpr int NOBODY = 0, TANKS = 301, ENGINEERS = 302, GUNS = 303, NO_TAI = -1000;
    const CASES<const char*, int, int> cases = {
        {"", NO_TAI, NOBODY},                     // neither ordered nor hunting
        {"FREEHUNT 1", NO_TAI, ENGINEERS},        // the nearest
        {"FREEHUNT 1, TACOPN 3", NO_TAI, GUNS},   // on security whatever comes last
        {"HPTL1 2", 40, GUNS},                    // by the first class, inside a TAI
        {"HPTL1 2", 300, NOBODY},                 // outside it
        {"HPTL1 5, HPTL2 2", 60, TANKS},          // the first that either class names
        {"HPTL1 2, HPTL2 5", 60, TANKS},
        {"HPTL1 8", 80, NOBODY},       // engineers are never told for what they are,
        {"HPTL1 5", 110, ENGINEERS},   // but pass for the tanks seen before them
    };
    for (const auto& [orders, tai, chosen] : cases) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 100);
        Give(UNIT[unit], orders);
        board.Place(RED, 150, 70);
        board.Place(RED, 150, 80, 14);
        board.Place(RED, 150, 40, 8);
        UNIT[board.Place(RED, 150, 95)].MOVESTATUS = 9;
        if (tai != NO_TAI) Place_Area(BLUE, 13, 150, tai);
        AH_Search(unit, 150, 100);
        for (int t = 301; t <= 304; ++t)
            EXPECT_EQ(Posted(Cat("attack against R", To_Text(t), "!")), t == chosen) << orders << ' ' << t;
    }
}

TEST(HelicopterSearch, CrewsTellEveryRoleByAClassOfTheirOwn)
{
    // From user-defined (0) to UAV (26); 'A' is class 10, '-' what was seen before, here nothing.
    const std::string_view classes = "577755522334"
                                     "4A--1116"
                                     "55-1961";
    for (int type = 0; type <= 26; ++type) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 100);
        const char seen = classes[static_cast<std::size_t>(type)];
        UNIT[unit].HPTL1 = seen == 'A' ? 10 : seen == '-' ? 8 : seen - '0';
        board.Place(RED, 150, 70, type);
        Place_Area(BLUE, 13, 150, 70);
        AH_Search(unit, 150, 100);
        EXPECT_EQ(Posted("attack against R301!"), seen != '-') << type;
    }
}

TEST(HelicopterSearch, WithoutAmmunitionNobodyIsAttacked)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 100);
    Give(UNIT[unit], "MOVESTATUS 8, FIREMISSIONN 4");
    const int target = board.Place(RED, 150, 60);
    AH_Search(unit, 150, 100);
    EXPECT_EQ(UNIT[target].SPOTTED, 1);
    EXPECT_TRUE(Messages().empty());
    UNIT[unit].FIREMISSIONN = 3;   // enough for one, which costs two
    for (const int x : {250, 350}) Add_Move_Node(unit, Next_Free_Node(unit), x, 100);
    UNIT[unit].MOVESTATUS = 8;
    AH_Search(unit, 150, 100);
    EXPECT_EQ(UNIT[unit].FIREMISSIONN, 5);
    EXPECT_TRUE(Posted("B1: Out of ammunition!"));
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 10);
}

TEST(HelicopterSearch, AHillBeyondTheFootprintHidesTheEnemy)
{
    for (const int row : {9, 8}) {   // two steps north of the helicopters, 20 pixels, and three
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 155, 105);   // footprint 40
        UNIT[unit].MOVESTATUS = 8;
        const int target = board.Place(RED, 155, 65);
        HEXMAP[15 * 60 + row].THIGH = 1;
        AH_Search(unit, 155, 105);
        EXPECT_EQ(UNIT[target].SPOTTED, row == 9 ? 1 : 0);
    }
}

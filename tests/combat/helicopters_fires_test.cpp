#include "combat/helicopters.h"
#include "manoeuvre/routes.h"
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
    EXPECT_EQ(UNIT[unit].FIREMISSIONN, 2);
    EXPECT_EQ(UNIT[unit].FATIGUE, 4);
    RAIRL = 0;
    UNIT[target].FACING = 180;
    UNIT[target].RCP2 = 10;
    Place_Area(BLUE, 13, 150, 60);
    // 0.1; rear 2 = 0.2; offence 0.9 = 0.18; x 21 = 3.78
    AH_Attack(unit, target);
    EXPECT_FLOAT_EQ(RAIRL, 3.78f);
    EXPECT_TRUE(Posted("B1: Conducting rear attack against R301!"));
    EXPECT_TRUE(Posted("Attack occurred within an active TAI!"));
}

TEST(HelicopterAttack, EachRowOfTheTableActsAsPrinted)
{
    const auto loss = [](auto change) {
        Board board(60, 60);
        const int unit = Place_Helicopters(board, 150, 20);
        const int target = board.Place(RED, 150, 60, 5, 1000.0f);
        UNIT[target].TACOPN = 4;   // a withdrawal has no factor
        change(UNIT[unit], UNIT[target]);
        AH_Attack(unit, target);
        return static_cast<float>(RAIRL);
    };
    const float plain = loss([](auto&, auto&) {});
    EXPECT_FLOAT_EQ(plain, 1.05f);   // 0.1 x 0.5 x 21
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.TACOPN = 3; }), plain / 2);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.FACING = 90; }), plain * 1.5f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.MORALE = 0; }), plain * 0.5f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.MORALE = 1; }), plain * 0.8f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.MORALE = 4; }), plain * 1.2f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.FATIGUE = 1; }), plain * 1.1f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.FATIGUE = 16; }), plain * 0.8f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.FATIGUE = 22; }), plain * 0.5f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.SUPPRESSED = 3; }), plain * 0.5f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.SUPPRESSED = 5; }), plain);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.UCONTROL = 1; }), plain * 1.5f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.SUPPRESSED = 1; }), plain * 0.9f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TERTYPE = 1; }), plain * 0.6f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TERTYPE = 6; }), plain * 0.3f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TERTYPE = 12; }), plain * 1.2f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TERTYPE = 21; }), plain * 0.2f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TACOPN = 2; }), plain * 0.6f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TACOPN = 3; }), plain * 0.3f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TACOPN = 11; }), plain * 0.2f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.MOBILITY = 0; }), plain * 0.5f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.MOBILITY = 1; }), plain * 1.3f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.MOVESTATUS = 2; }), plain * 1.4f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.MOBILITY = 3, t.MOVESTATUS = 9; }), 0);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TYPE = 3; }), plain * 1.5f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TYPE = 9; }), plain * 1.5f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.TYPE = 12; }), plain * 0.7f);
    EXPECT_FLOAT_EQ(loss([](auto&, auto& t) { t.OBSCURED = 1; }), plain * 0.3f);
    EXPECT_FLOAT_EQ(loss([](auto& a, auto&) { a.MOVESTATUS = 10; }), plain / 10);
}

TEST(HelicopterAttack, HalfIsTheMostOfAUnitAndAllOfAUAV)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 20, 1000.0f);
    const int target = board.Place(RED, 150, 60);
    AH_Attack(unit, target);
    EXPECT_FLOAT_EQ(RAIRL, 5.0f);
    RAIRL = 0;
    UNIT[target].TYPE = 26;
    UNIT[target].RCP2 = 10;
    AH_Attack(unit, target);
    EXPECT_FLOAT_EQ(RAIRL, 10.0f);
}

TEST(HelicopterAttack, ACloseAttackIsAnsweredAndADistantOneIsNot)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 20);
    UNIT[unit].FOOTPRINT = 10;
    const UNIT_RECORD before = UNIT[unit];
    // 9 % weaker after the attack the target covers 36.4 pixels: it answers up to (0 + 36.4 + 10) / 2 = 23.2.
    const int target = board.Place(RED, 150, 43);
    AH_Attack(unit, target);
    EXPECT_GT(BADAL, 0);
    BADAL = 0;
    const int distant = board.Place(RED, 150, 44);
    UNIT[unit] = before;
    AH_Attack(unit, distant);
    EXPECT_EQ(BADAL, 0);
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

namespace {

/// The target that a flying unit chooses of: tanks at 30 pixels (301), engineers at 20 (302), guns at 60 (303),
/// aircraft in the air (304), 0 none.
int Chosen(int hunt, int first_class, int second_class, int operation, int tai_at)
{
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 150, 100);
    UNIT[unit].FREEHUNT = hunt;
    UNIT[unit].HPTL1 = first_class;
    UNIT[unit].HPTL2 = second_class;
    UNIT[unit].TACOPN = operation;
    board.Place(RED, 150, 70);
    board.Place(RED, 150, 80, 14);
    board.Place(RED, 150, 40, 8);
    UNIT[board.Place(RED, 150, 95)].MOVESTATUS = 9;
    if (tai_at > 0) Place_Area(BLUE, 13, 150, tai_at);
    AH_Search(unit, 150, 100);
    for (int t = 301; t <= 304; ++t)
        if (Posted(Cat("attack against R", To_Text(t), "!"))) return t;
    return 0;
}

}   // namespace

TEST(HelicopterSearch, InFlightOrdersComeBeforeTheHunt)
{
    EXPECT_EQ(Chosen(0, 0, 0, 0, 0), 0);      // neither ordered nor hunting
    EXPECT_EQ(Chosen(1, 0, 0, 0, 0), 302);    // the nearest
    EXPECT_EQ(Chosen(1, 0, 0, 3, 0), 303);    // on security whatever comes last
    EXPECT_EQ(Chosen(0, 2, 0, 0, 40), 303);   // guns by the first class, inside a TAI
    EXPECT_EQ(Chosen(0, 2, 0, 0, 300), 0);    // outside it
    EXPECT_EQ(Chosen(0, 5, 2, 0, 60), 301);   // the first that either class names
    EXPECT_EQ(Chosen(0, 2, 5, 0, 60), 301);
    EXPECT_EQ(Chosen(0, 8, 0, 0, 80), 0);      // engineers are never told for what they are,
    EXPECT_EQ(Chosen(0, 5, 0, 0, 110), 302);   // but pass for the tanks seen before them
}

TEST(HelicopterSearch, CrewsTellEveryRoleByAClassOfTheirOwn)
{
    // From user-defined (0) to UAV (26); 'A' is class 10, '-' what was seen before, here nothing.
    const std::string_view classes = "577755522334" "4A--1116" "55-1961";
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
    UNIT[unit].MOVESTATUS = 8;
    UNIT[unit].FIREMISSIONN = 4;
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
    Board board(60, 60);
    const int unit = Place_Helicopters(board, 155, 105);   // footprint 40: hills up to 20 pixels away do not hide
    UNIT[unit].MOVESTATUS = 8;
    const int target = board.Place(RED, 155, 65);
    const auto raise = [](int row, int high) { HEXMAP[15 * 60 + row].THIGH = high; };
    raise(9, 1);   // two steps north
    AH_Search(unit, 155, 105);
    EXPECT_EQ(UNIT[target].SPOTTED, 1);
    raise(9, 0);
    raise(8, 1);   // three steps: 30 pixels
    AH_Search(unit, 155, 105);
    EXPECT_EQ(UNIT[target].SPOTTED, 1);
}

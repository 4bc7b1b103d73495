#include "combat/contact.h"
#include "combat/ground_combat.h"
#include "core/near_units.h"
#include "core/state_hash.h"
#include "support/board.h"
#include "support/dice.h"
#include "support/log_lines.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

constexpr int LOOK = 1, FIRE = 2;

/// Blue at (205, 205) and Red so many pixels east of it, both attacking tank battalions: in contact to 27 pixels.
struct Meeting {
    explicit Meeting(int pixels = 20) : R(BOARD.Place(RED, 205 + pixels, 205))
    {
        UNIT[B].FACING = 90;
        UNIT[R].FACING = 270;
    }
    Board BOARD{40, 40};
    int B = BOARD.Place(BLUE, 205, 205);
    int R;

    UNIT_RECORD& Blue() { return UNIT[B]; }
    UNIT_RECORD& Red() { return UNIT[R]; }
    bool Blue_Fired() const { return RMANL > 0; }
    bool Red_Fired() const { return BMANL > 0; }
    bool Supplies_Charged() { return Blue().RSF2 < 3; }
};

/// Whether two battalions that stand on a row of ground come to blows. 'b' and 'r' are the units on low, 'B' and
/// 'R' on high ground.
bool Fight_Over(std::string row)
{
    int blue_column = 0, red_column = 0;
    for (char& c : row) {
        const int column = static_cast<int>(&c - row.data()) + 1;
        if (c == 'b' || c == 'B') blue_column = column;
        if (c == 'r' || c == 'R') red_column = column;
        c = c == 'B' || c == 'R' || c == '^' ? '^' : '.';
    }
    const std::string low(row.size(), '.');
    Board board({low, low, row, low});
    const int b = board.Place(BLUE, board.Centre(blue_column), 25),
              r = board.Place(RED, board.Centre(red_column), 25);
    UNIT[b].FOOTPRINT = UNIT[r].FOOTPRINT = 90;   // contact to 60 pixels
    Engage_Unit(b, FIRE);
    return RMANL > 0;
}

}   // namespace

TEST(Contact, SquaresAreComparedAsTheRoundedRootWouldBe)
{
    for (int dx = 0; dx <= 60; ++dx)
        for (int dy = -60; dy <= 0; ++dy)
            for (const int reach : {-1, 0, 1, 27, 40, 60})
                ASSERT_EQ(Within(3, 4, 3 + dx, 4 + dy, reach), Distance_Between(3, 4, 3 + dx, 4 + dy) <= reach)
                    << dx << ", " << dy << ", " << reach;
    EXPECT_TRUE(Within(-16000, 0, 16000, 0, 32000));
    EXPECT_FALSE(Within(-16000, 1, 16000, 300, 32000));
    UNIT_RECORD a, b;
    for (const float footprint : {0.0f, 1.4f, 1.6f, 40.3f, 41.4f}) {
        a.FOOTPRINT = footprint;
        b.FOOTPRINT = 39.2f;
        for (int x = -40; x <= 40; ++x) {
            b.X = x;
            b.Y = 9;
            ASSERT_EQ(In_Contact(a, b), Distance_Between(0, 0, x, 9) <= Round_Even((footprint + 39.2f) / 3)) << x;
        }
    }
}

TEST(Contact, LookingOnlyAtRowsThatCanBeNearChangesNothing)
{
    const auto hash_after = [](bool watched) {
        Board board(60, 60);
        for (int n = 0; n < 200;
             ++n) {   // a crowd: enemies beside and behind one another, a tenth of them screens
            const int side = n % 3 == 0 ? RED : BLUE;
            const int u = board.Place(side, 20 + n * 37 % 560, 20 + n * 91 % 560, n % 27);
            UNIT[u].TACOPN = n % 10 == 0 ? 3 : n % 7 == 0 ? 4 : 0;
            UNIT[u].UCONTROL = n % 2;
            UNIT[u].MOVESTATUS = 2;
            Set_Footprint(u);
            if (UNIT[u].TACOPN == 3) Set_Screen(u);
        }
        const auto fight = [] {
            for (int u = 1; u <= MAX_UNIT; ++u) Engage_Unit(u, FIRE);
        };
        if (watched) {
            const Places_Watched places;
            fight();
        } else {
            fight();
        }
        EXPECT_GT(RMANL, 50);   // there was a fight, and some of them ran
        EXPECT_TRUE(Posted("We are retreating!"));
        return State_Hash();
    };
    EXPECT_EQ(hash_after(true), hash_after(false));
}

TEST(Contact, AThirdOfBothFootprintsIsContactAndAPixelMoreIsNot)
{
    for (const int pixels : {27, 28}) {
        Meeting m(pixels);
        Engage_Unit(m.B, FIRE);
        EXPECT_EQ(m.Blue_Fired(), pixels == 27);
        EXPECT_FALSE(m.Red_Fired());   // among tanks each fires in its own turn
        EXPECT_EQ(m.Supplies_Charged(), pixels == 27);
    }
}

TEST(Contact, WhoCannotBeMetIsPassedBy)
{
    const auto meets = [](void (*set)(UNIT_RECORD & e)) {
        Meeting m;
        set(m.Red());
        Engage_Unit(m.B, FIRE);
        return m.Red().SPOTTED > 0;
    };
    EXPECT_TRUE(meets([](UNIT_RECORD&) {}));
    EXPECT_TRUE(meets([](UNIT_RECORD& e) { e.MOVESTATUS = 7; }));
    EXPECT_FALSE(meets([](UNIT_RECORD& e) { e.TYPE = 50; }));
    EXPECT_FALSE(meets([](UNIT_RECORD& e) { e.SIDE = BLUE; }));
    EXPECT_FALSE(meets([](UNIT_RECORD& e) { e.PARENT_UNIT = 302; }));
    EXPECT_FALSE(meets([](UNIT_RECORD& e) { e.MOVESTATUS = 8; }));
    EXPECT_FALSE(meets([](UNIT_RECORD& e) { e.TACOPN = 3; }));
}

TEST(Contact, WhoCannotLookMeetsNobody)
{
    const auto looks = [](void (*set)(UNIT_RECORD & a)) {
        Meeting m;
        set(m.Blue());
        Engage_Unit(m.B, FIRE);
        return m.Red().SPOTTED > 0;
    };
    for (const int operation : {0, 1, 2, 4, 11}) {
        Meeting m;
        m.Blue().TACOPN = operation;
        Engage_Unit(m.B, FIRE);
        EXPECT_GT(m.Red().SPOTTED, 0) << operation;
    }
    EXPECT_FALSE(looks([](UNIT_RECORD& a) { a.TACOPN = -1; }));
    EXPECT_FALSE(looks([](UNIT_RECORD& a) { a.TACOPN = 12; }));
    EXPECT_FALSE(looks([](UNIT_RECORD& a) { a.STATUS = 1; }));
    EXPECT_FALSE(looks([](UNIT_RECORD& a) { a.TYPE = 50; }));
}

TEST(Contact, OnlyTheWayBackFromTheEnemyIsScreenedByHighGround)
{
    EXPECT_TRUE(Fight_Over(".b....r."));
    EXPECT_FALSE(Fight_Over(".b..^.r."));
    EXPECT_TRUE(Fight_Over(".b..^.R."));    // Red sees over it, Blue does not
    EXPECT_FALSE(Fight_Over(".B..^.r."));   // and the other way round
    // Twelve times nearer than their footprints, 180 / 12 = 15 pixels, they fight through anything: a screen at
    // the first sample, 10 pixels from Red, does not count; one at the second does.
    EXPECT_TRUE(Fight_Over(".b...^r."));
    EXPECT_FALSE(Fight_Over(".b..^.r."));
}

TEST(Contact, TheClassesOfBothSayWhoIsSeenWhoHaltsAndWhoFires)
{
    struct CASE {
        int BLUE_TYPE, RED_TYPE;
        bool BLUE_SEEN, RED_SEEN, BLUE_HALTS, BLUE_FIRES, RED_FIRES;   // on a look only
    };
    const CASE cases[] = {
        {5, 20, true, true, true, false, false},    // FIERCE: the fire waits for the phase
        {24, 8, false, true, false, true, true},    // SKIRMISH of manoeuvre with support
        {8, 5, false, false, true, true, true},     // and of support with manoeuvre
        {13, 18, true, true, true, false, false},   // FIERCE among support
        {51, 5, true, true, true, false, false},    // roles beyond the list are manoeuvre
        {23, 5, false, false, true, true, false},   // leaflets are not answered
    };
    for (const CASE& c : cases) {
        Meeting m;
        m.Blue().TYPE = c.BLUE_TYPE;
        m.Red().TYPE = c.RED_TYPE;
        m.Red().MOVEPOINTS = 0;   // it stays where it can be looked at
        m.Blue().MOVESTATUS = 2;
        Engage_Unit(m.B, LOOK);
        const bool blue_seen = m.Blue().VISIBLE == -1 && m.Blue().SPOTTED == 1;
        EXPECT_EQ(blue_seen, c.BLUE_SEEN) << c.BLUE_TYPE << " meets " << c.RED_TYPE;
        EXPECT_EQ(m.Blue().ACTIVITY > 0, c.BLUE_SEEN || c.BLUE_FIRES) << c.BLUE_TYPE;
        EXPECT_EQ(m.Red().VISIBLE == -1 && m.Red().SPOTTED == 1, c.RED_SEEN)
            << c.BLUE_TYPE << " meets " << c.RED_TYPE;
        EXPECT_EQ(m.Blue().MOVESTATUS, c.BLUE_HALTS ? 1 : 2) << c.BLUE_TYPE << " meets " << c.RED_TYPE;
        EXPECT_EQ(m.Blue_Fired(), c.BLUE_FIRES) << c.BLUE_TYPE << " meets " << c.RED_TYPE;
        EXPECT_EQ(m.Red_Fired(), c.RED_FIRES) << c.BLUE_TYPE << " meets " << c.RED_TYPE;
        EXPECT_EQ(Posted("R301: We are retreating!"),
                  c.RED_FIRES && c.RED_TYPE == 8);   // support leaves a skirmish
    }
}

TEST(Contact, EveryRoleIsOfManoeuvreOrOfSupport)
{
    // From user-defined (0) to UAV (26); among tanks only manoeuvre shows itself on a look.
    const std::string_view classes = "SSSSMMMSSSSSSSMSSSSMMMSSMMS";
    for (int type = 0; type <= 26; ++type) {
        Meeting m;
        m.Blue().TYPE = type;
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(m.Blue().VISIBLE == -1, classes[static_cast<std::size_t>(type)] == 'M') << type;
    }
}

TEST(Contact, ASkirmishOpensFireForTheRestOfTheLook)
{
    Meeting m;
    const int guns = m.BOARD.Place(RED, 205, 225, 8), late = m.BOARD.Place(RED, 205, 185);
    UNIT[guns].MOVEPOINTS = 0;
    Engage_Unit(m.B, LOOK);
    EXPECT_EQ(m.Red().TURNLOSS, 0);   // the tanks that came before the guns
    EXPECT_GT(UNIT[guns].TURNLOSS, 0);
    EXPECT_GT(UNIT[late].TURNLOSS, 0);   // and those that came after
    Engage_Unit(m.B, LOOK);
    EXPECT_EQ(m.Red().TURNLOSS, 0);   // the next look starts afresh
}

TEST(Contact, ABreachIsNotHaltedAndAnAttackIs)
{
    for (const int operation : {0, 2}) {
        Meeting m;
        m.Blue().MOVESTATUS = 2;
        m.Blue().TACOPN = operation;
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(m.Blue().MOVESTATUS, operation == 2 ? 2 : 1);
    }
}

TEST(Contact, PassiveRolesDoNotFireInTheirOwnTurnButAnswer)
{
    for (const int type : {1, 2, 3, 10, 11, 12, 17, 26}) {
        Meeting m;
        m.Blue().TYPE = type;
        m.Blue().TACOPN = 1;   // out of its own turn it is shot at by the tanks, and answers
        Engage_Unit(m.B, FIRE);
        EXPECT_FALSE(m.Blue_Fired() || m.Red_Fired()) << type;
        EXPECT_TRUE(m.Supplies_Charged()) << type;
        m.Blue().MOVEPOINTS = 0;
        Engage_Unit(m.R, FIRE);
        EXPECT_TRUE(m.Blue_Fired() && m.Red_Fired()) << type;
    }
    Meeting withdrawing;
    withdrawing.Blue().TYPE = 2;
    withdrawing.Blue().TACOPN = 4;
    Engage_Unit(withdrawing.B, FIRE);
    EXPECT_FALSE(withdrawing.Blue_Fired());
    EXPECT_TRUE(withdrawing.Red_Fired());
}

TEST(Contact, AUnitOnHoldStartsNothingAndIsDrawnIntoASkirmish)
{
    Meeting m;
    m.Blue().ROE = 1;
    m.Red().TYPE = 13;
    m.Red().MOVEPOINTS = 0;
    Ground_Combat_Phase();   // only Red looks
    EXPECT_TRUE(m.Blue_Fired() && m.Red_Fired());
    EXPECT_FALSE(m.Supplies_Charged());

    Meeting tanks;
    tanks.Blue().ROE = 1;
    tanks.Red().ROE = 1;
    Ground_Combat_Phase();
    EXPECT_FALSE(tanks.Blue_Fired() || tanks.Red_Fired());
}

TEST(Contact, ControlledSupportStopsSixKilometresBeforeAKnownEnemy)
{
    const auto stopped = [](int pixels, int type, void (*set)(Meeting & m) = nullptr) {
        Meeting m(pixels);
        m.Blue().TYPE = type;
        m.Blue().UCONTROL = 1;
        m.Red().VISIBLE = -1;
        if (set != nullptr) set(m);
        Engage_Unit(m.B, LOOK);
        return m.Blue().MOVEPOINTS2 == 0;
    };
    EXPECT_TRUE(stopped(87, 8));   // 27 + 6 x 10
    EXPECT_FALSE(stopped(88, 8));
    for (const int type : {1, 2, 3, 7, 9, 10, 13, 14, 15, 16, 18, 21, 22, 23})
        EXPECT_TRUE(stopped(60, type)) << type;
    for (const int type : {0, 4, 5, 6, 11, 12, 17, 19, 20, 24, 25, 26}) EXPECT_FALSE(stopped(60, type)) << type;
    EXPECT_FALSE(stopped(60, 8, [](Meeting& m) { m.Red().VISIBLE = 1; }));
    EXPECT_FALSE(stopped(60, 8, [](Meeting& m) { m.Blue().UCONTROL = 0; }));
}

TEST(SmallUnits, AreSeenAtNinetyFiveToAHundredAfterAMoverHasDoubledItsRoll)
{
    const auto seen = [](int roll, int movestatus) {
        Meeting m(10);
        m.Blue().SIZE = 0;
        m.Blue().MOVESTATUS = movestatus;
        Roll_Next(roll);
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(DiceSite, SITE_SMALL_UNIT);
        EXPECT_FALSE(m.Blue_Fired());
        EXPECT_EQ(m.Red_Fired(), m.Blue().VISIBLE == -1);
        EXPECT_EQ(m.Red().VISIBLE, m.Blue().VISIBLE);
        return m.Red_Fired();
    };
    EXPECT_FALSE(seen(93, 0));   // the dice show no 94, 96, 97, 98
    EXPECT_TRUE(seen(95, 0));
    EXPECT_TRUE(seen(100, 0));
    EXPECT_FALSE(seen(45, 2));   // nor 46 to 49
    EXPECT_TRUE(seen(50, 2));
    EXPECT_FALSE(seen(51, 2));   // 102
    EXPECT_FALSE(seen(50, 1));
}

TEST(Prisoners, AreTakenOnTheGroundFromThoseWhoCannotFight)
{
    const auto taken = [](void (*set)(Meeting & m)) {
        Meeting m;
        set(m);
        Engage_Unit(m.B, LOOK);
        EXPECT_FALSE(m.Blue_Fired() || m.Red_Fired());
        return REPW > 0;
    };
    EXPECT_TRUE(taken([](Meeting& m) { m.Red().STATUS = 1; }));
    EXPECT_TRUE(taken([](Meeting& m) { m.Red().LOGSTATN = 0; }));
    EXPECT_FALSE(taken([](Meeting& m) { m.Red().STATUS = 1, m.Blue().MOBILITY = 3; }));
    Meeting screen;   // a screen takes them too
    screen.Blue().TACOPN = 3;
    screen.Red().STATUS = 1;
    Engage_Unit(screen.B, LOOK);
    EXPECT_GT(REPW, 0);
}

TEST(Screens, TouchAtFourTenthsOfTheRoundedSumThroughHills)
{
    const auto touches = [](int pixels) {
        Board board({"..........", "....^.....", ".........."});
        const int a = board.Place(BLUE, 25, 15), e = board.Place(RED, 25 + pixels, 15);
        UNIT[a].TACOPN = 3;
        UNIT[a].LX = UNIT[a].RX = 25;
        UNIT[a].LY = UNIT[a].RY = 15;
        UNIT[a].FOOTPRINT = 60.3f;
        UNIT[e].FOOTPRINT = 70.4f;   // 130.7, rounded 131, x 0.4 = 52.4
        Engage_Unit(a, LOOK);
        return UNIT[a].VISIBLE == -1 && UNIT[e].VISIBLE == -1;
    };
    EXPECT_TRUE(touches(52));
    EXPECT_FALSE(touches(53));
}

TEST(Screens, AScreenThatOnlyLooksHaltsBothAndFiresAtNobody)
{
    Meeting m;
    m.Blue().TACOPN = 3;
    m.Blue().MOVESTATUS = m.Red().MOVESTATUS = 2;
    const int breaching = m.BOARD.Place(RED, 205, 225), flyer = m.BOARD.Place(RED, 205, 185, 11);
    UNIT[breaching].MOVESTATUS = 2;
    UNIT[breaching].TACOPN = 2;
    UNIT[flyer].MOVESTATUS = 9;
    UNIT[flyer].MOBILITY = 3;
    Engage_Unit(m.B, LOOK);
    EXPECT_EQ(m.Blue().MOVESTATUS, 1);
    EXPECT_EQ(m.Red().MOVESTATUS, 1);
    EXPECT_EQ(UNIT[breaching].MOVESTATUS, 2);
    EXPECT_EQ(UNIT[flyer].VISIBLE, -1);   // seen overhead, and that is all
    EXPECT_EQ(m.Blue().SPOTTED, 3);
    EXPECT_FALSE(m.Blue_Fired());
    Engage_Unit(m.B, FIRE);
    EXPECT_EQ(UNIT[flyer].TURNLOSS, 0);
    EXPECT_GT(m.Red().TURNLOSS, 0);
}

TEST(Screens, SmallTargetsAreSeenFromNinetyAndConvoysShotUp)
{
    const auto shoots = [](int roll, int movestatus, int target_posture = 0) {
        Meeting m;
        m.Blue().TACOPN = 3;
        m.Blue().MOVESTATUS = movestatus;
        m.Red().SIZE = 0;
        m.Red().MOVESTATUS = target_posture;
        Roll_Next(roll);
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(DiceSite, SITE_SCREEN_SMALL_TARGET);
        EXPECT_EQ(m.Red().VISIBLE == -1, m.Blue_Fired() || target_posture >= 8);
        EXPECT_EQ(m.Supplies_Charged(), m.Blue_Fired());
        EXPECT_FALSE(m.Red_Fired());
        return m.Blue_Fired();
    };
    EXPECT_FALSE(shoots(89, 0));
    EXPECT_TRUE(shoots(90, 0));
    EXPECT_TRUE(shoots(45, 2));
    EXPECT_FALSE(shoots(44, 2));
    EXPECT_FALSE(shoots(51, 2));
    EXPECT_FALSE(shoots(95, 0, 8));   // a flying squad is only seen

    Meeting convoy;
    convoy.Blue().TACOPN = 3;
    convoy.Blue().MOVESTATUS = 1;
    convoy.Red().SIZE = 100;
    convoy.Red().TYPE = 13;
    Engage_Unit(convoy.B, LOOK);
    EXPECT_GT(convoy.Red().TURNLOSS, 0);
    EXPECT_LT(convoy.Red().RCP2, 10.0f);
    EXPECT_EQ(convoy.Blue().MOVESTATUS, 2);
    EXPECT_FALSE(convoy.Supplies_Charged());

    Meeting as_convoy;   // and a convoy that screens is shot up itself
    as_convoy.Blue().TACOPN = 3;
    as_convoy.Blue().SIZE = 100;
    Engage_Unit(as_convoy.B, LOOK);
    EXPECT_TRUE(as_convoy.Red_Fired());
    EXPECT_LT(as_convoy.Blue().RCP2, 10.0f);
}

TEST(Screens, EitherSideMayBreakContactAtOnce)
{
    for (const bool enemy_is_nervous : {true, false}) {
        Meeting m;
        m.Blue().TACOPN = 3;
        Set_Footprint(m.B);
        Set_Screen(m.B);
        m.Red().RETREATP = enemy_is_nervous ? 1 : 0;   // 1 % or 15 %; it loses 4 %
        Engage_Unit(m.B, FIRE);
        EXPECT_EQ(m.Red().X, 225 + (enemy_is_nervous ? 60 : 0));
        EXPECT_EQ(m.Blue().X, 205);
    }
}

TEST(Screens, AScreenHoldsWhereItsGunsDestroyedWhoTouchedIt)
{
    for (const float strength : {100.0f, 4.0f}) {
        Meeting m;
        m.Blue().TACOPN = 3;
        Set_Footprint(m.B);
        Set_Screen(m.B);
        m.Blue().TURNLOSS = 5;   // half of its power is lost to others, 15 % are allowed
        m.Red().STRENGTH = strength;
        const int battery = m.BOARD.Place(BLUE, 105, 205, 8, 100.0f);
        UNIT[battery].PARENT_UNIT = m.B;
        // 100 x 0.3 x 6 = 180; attacking 0.9, seen once 0.7, battalion 0.2, tracks 0.3, armour 0.8, no TAI 0.5,
        // command 0.65 = 1.77 of 10 points, 17 %. A target of 4 % is gone, one of 100 % stays and fires.
        Engage_Unit(m.B, FIRE);
        EXPECT_EQ(m.Red().STATUS > 0, strength == 100);
        EXPECT_EQ(Posted("B1: We are retreating!"), strength == 100);
    }
}

TEST(Screens, FindWorksOfTheEnemyUnderAnyOfTheirPoints)
{
    const auto found = [](int pixels, int type, int side = RED) {
        Board board(40, 40);
        const int a = board.Place(BLUE, 205, 205);
        UNIT[a].TACOPN = 3;
        UNIT[a].LX = 205;
        UNIT[a].LY = 105;
        UNIT[a].RX = UNIT[a].RY = 305;
        UNIT[a].FOOTPRINT = 61;   // half, rounded to even, is 30
        BG[1].BGHEX = 1;
        BG[1].BGX = 205 - pixels - 5;
        BG[1].BGY = 100;
        BG[1].BGTYPE = type;
        BG[1].BGSIDE = side;
        Engage_Unit(a, LOOK);
        return BG[1].BGVISIBLE == 1;
    };
    EXPECT_TRUE(found(30, 8));
    EXPECT_FALSE(found(31, 8));
    EXPECT_TRUE(found(46, 9));   // fortifications 16 pixels farther
    EXPECT_FALSE(found(47, 9));
    EXPECT_FALSE(found(0, 8, BLUE));
}

TEST(CombatPhase, RetreatIsDecidedByTheShareOfPowerLostOrByFullSuppression)
{
    const auto retreats = [](float loss, int maximum, int suppressed = 0) {
        Board board(40, 40);
        const int u = board.Place(BLUE, 205, 205, 5, 100.0f);
        UNIT[u].TURNLOSS = loss;
        UNIT[u].RETREATP = maximum;
        UNIT[u].SUPPRESSED = suppressed;
        const Log_Lines log;
        Ground_Combat_Phase();
        EXPECT_EQ(log.Count("RFactor: "), 1);
        EXPECT_EQ(log.Count("B1 retreated with RFactor = "), Posted("We are retreating!") ? 1 : 0);
        EXPECT_EQ(UNIT[u].TURNLOSS, loss);   // stands until the reset
        return Posted("We are retreating!");
    };
    EXPECT_FALSE(retreats(15, 0));   // exactly 15 %
    EXPECT_TRUE(retreats(15.01f, 0));
    EXPECT_FALSE(retreats(15.01f, 5));   // "20%"
    EXPECT_TRUE(retreats(2, 1));         // "1%"
    EXPECT_TRUE(retreats(2, 0, 4));
    EXPECT_FALSE(retreats(2, 0, 5));
}

TEST(CombatPhase, AUnitThatRanOffTheMapIsNotTouchedAgain)
{
    Board board(30, 5);
    const int u = board.Place(BLUE, 15, 25), first = board.Place(RED, 35, 25), second = board.Place(RED, 35, 35);
    UNIT[u].TACOPN = 4;   // leaves in the middle of its own look, with the second enemy still to come
    UNIT[u].FACING = 90;
    CurUnit = 77;
    Ground_Combat_Phase();
    UNIT_RECORD gone;
    gone.X = gone.Y = 4000;
    for (const FIELD& field : Fields<UNIT_RECORD>())
        EXPECT_EQ(Field_As_Text(&UNIT[u], field), Field_As_Text(&gone, field)) << field.KEY;
    EXPECT_TRUE(board.SCREEN.Heard("status", "B1 retreated off-map and is destroyed!"));
    EXPECT_TRUE(Posted("R301 receives direct fires"));
    EXPECT_FALSE(Posted("R302 receives direct fires"));
    EXPECT_EQ(UNIT[second].TURNLOSS, 0);
    EXPECT_EQ(UNIT[first].STATUS, 2);
    EXPECT_EQ(CurUnit, 77);
}

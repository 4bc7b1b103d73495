#include "combat/contact.h"
#include "combat/ground_combat.h"
#include "core/near_units.h"
#include "core/state_hash.h"
#include "support/board.h"
#include "support/cases.h"
#include "support/dice.h"
#include "support/log_lines.h"

#include <gtest/gtest.h>
#include <optional>

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
    void Screen_With_Blue()
    {
        Blue().TACOPN = 3;
        Set_Footprint(B);
        Set_Screen(B);
    }
    /// "f." is Blue, "t." Red.
    void Set(const char* arranged) { Arrange(B, R, arranged); }
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
        // a crowd: enemies beside and behind one another, a tenth of them screens
        for (int n = 0; n < 200; ++n) {
            const int side = n % 3 == 0 ? RED : BLUE;
            const int u = board.Place(side, 20 + n * 37 % 560, 20 + n * 91 % 560, n % 27);
            UNIT[u].TACOPN = n % 10 == 0 ? 3 : n % 7 == 0 ? 4 : 0;
            UNIT[u].UCONTROL = n % 2;
            UNIT[u].MOVESTATUS = 2;
            Set_Footprint(u);
            if (UNIT[u].TACOPN == 3) Set_Screen(u);
        }
        std::optional<Places_Watched> places;
        if (watched) places.emplace();
        for (int u = 1; u <= MAX_UNIT; ++u) Engage_Unit(u, FIRE);
        places.reset();
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

TEST(Contact, WhoCannotBeMetIsPassedByAndWhoCannotLookMeetsNobody)
{
    const auto meets = [](const char* arranged) {
        Meeting m;
        m.Set(arranged);
        Engage_Unit(m.B, FIRE);
        return m.Red().SPOTTED > 0;
    };
    for (const char* arranged : {"", "t.MOVESTATUS 7", "f.TACOPN 1", "f.TACOPN 2", "f.TACOPN 4", "f.TACOPN 11"})
        EXPECT_TRUE(meets(arranged)) << arranged;
    for (const char* arranged : {"t.TYPE 50", "t.SIDE 1", "t.PARENT_UNIT 302", "t.MOVESTATUS 8", "t.TACOPN 3",
                                 "f.TACOPN -1", "f.TACOPN 12", "f.STATUS 1", "f.TYPE 50"})
        EXPECT_FALSE(meets(arranged)) << arranged;
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
    const CASES<int, int, bool, bool, bool, bool, bool> cases = {
        {5, 20, true, true, true, false, false},    // FIERCE: the fire waits for the phase
        {24, 8, false, true, false, true, true},    // SKIRMISH of manoeuvre with support
        {8, 5, false, false, true, true, true},     // and of support with manoeuvre
        {13, 18, true, true, true, false, false},   // FIERCE among support
        {51, 5, true, true, true, false, false},    // roles beyond the list are manoeuvre
        {23, 5, false, false, true, true, false},   // leaflets are not answered
    };
    for (const auto& [blue_type, red_type, blue_seen, red_seen, blue_halts, blue_fires, red_fires] : cases) {
        Meeting m;
        m.Blue().TYPE = blue_type;
        m.Red().TYPE = red_type;
        m.Red().MOVEPOINTS = 0;   // it stays where it can be looked at
        m.Blue().MOVESTATUS = 2;
        Engage_Unit(m.B, LOOK);
        SCOPED_TRACE(Cat(To_Text(blue_type), " meets ", To_Text(red_type)));
        EXPECT_EQ(m.Blue().VISIBLE == -1 && m.Blue().SPOTTED == 1, blue_seen);
        EXPECT_EQ(m.Blue().ACTIVITY > 0, blue_seen || blue_fires);
        EXPECT_EQ(m.Red().VISIBLE == -1 && m.Red().SPOTTED == 1, red_seen);
        EXPECT_EQ(m.Blue().MOVESTATUS, blue_halts ? 1 : 2);
        EXPECT_EQ(m.Blue_Fired(), blue_fires);
        EXPECT_EQ(m.Red_Fired(), red_fires);
        EXPECT_EQ(Posted("R301: We are retreating!"),
                  red_fires && red_type == 8);   // support leaves a skirmish
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
    for (const bool breach : {false, true}) {
        Meeting m;
        m.Set(breach ? "f.MOVESTATUS 2, f.TACOPN 2" : "f.MOVESTATUS 2");
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(m.Blue().MOVESTATUS, breach ? 2 : 1);
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
    withdrawing.Set("f.TYPE 2, f.TACOPN 4");
    Engage_Unit(withdrawing.B, FIRE);
    EXPECT_FALSE(withdrawing.Blue_Fired());
    EXPECT_TRUE(withdrawing.Red_Fired());
}

TEST(Contact, AUnitOnHoldStartsNothingAndIsDrawnIntoASkirmish)
{
    Meeting m;
    m.Set("f.ROE 1, t.TYPE 13, t.MOVEPOINTS 0");
    Ground_Combat_Phase();   // only Red looks
    EXPECT_TRUE(m.Blue_Fired() && m.Red_Fired());
    EXPECT_FALSE(m.Supplies_Charged());

    Meeting tanks;
    tanks.Set("f.ROE 1, t.ROE 1");
    Ground_Combat_Phase();
    EXPECT_FALSE(tanks.Blue_Fired() || tanks.Red_Fired());
}

TEST(Contact, ControlledSupportStopsSixKilometresBeforeAKnownEnemy)
{
    const auto stopped = [](int pixels, int type, const char* arranged = "") {
        Meeting m(pixels);
        m.Set("f.UCONTROL 1, t.VISIBLE -1");
        m.Blue().TYPE = type;
        m.Set(arranged);
        Engage_Unit(m.B, LOOK);
        return m.Blue().MOVEPOINTS2 == 0;
    };
    EXPECT_TRUE(stopped(87, 8));   // 27 + 6 x 10
    EXPECT_FALSE(stopped(88, 8));
    const std::string_view roles = "-SSS---SSSS--SSSS-S--SSS---";   // S stops, from user-defined (0) to UAV (26)
    for (int type = 0; type <= 26; ++type)
        EXPECT_EQ(stopped(60, type), roles[static_cast<std::size_t>(type)] == 'S') << type;
    EXPECT_FALSE(stopped(60, 8, "t.VISIBLE 1"));
    EXPECT_FALSE(stopped(60, 8, "f.UCONTROL 0"));
}

TEST(SmallUnits, AreSeenAtNinetyFiveToAHundredAfterAMoverHasDoubledItsRoll)
{
    // The dice show no 94, 96, 97, 98, nor 46 to 49; 51 doubled is 102.
    const CASES<int, int, bool> cases = {{93, 0, false}, {95, 0, true},  {100, 0, true}, {45, 2, false},
                                         {50, 2, true},  {51, 2, false}, {50, 1, false}};
    for (const auto& [roll, movestatus, seen] : cases) {
        Meeting m(10);
        m.Blue().SIZE = 0;
        m.Blue().MOVESTATUS = movestatus;
        Roll_Next(roll);
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(DiceSite, SITE_SMALL_UNIT);
        EXPECT_EQ(m.Red_Fired(), seen) << roll;
        EXPECT_FALSE(m.Blue_Fired());
        EXPECT_EQ(m.Blue().VISIBLE == -1, seen) << roll;
        EXPECT_EQ(m.Red().VISIBLE, m.Blue().VISIBLE);
    }
}

TEST(Prisoners, AreTakenOnTheGroundFromThoseWhoCannotFight)
{
    const auto taken = [](const char* arranged) {
        Meeting m;
        m.Set(arranged);
        Engage_Unit(m.B, LOOK);
        EXPECT_FALSE(m.Blue_Fired() || m.Red_Fired());
        return REPW > 0;
    };
    EXPECT_TRUE(taken("t.STATUS 1"));
    EXPECT_TRUE(taken("t.LOGSTATN 0"));
    EXPECT_FALSE(taken("t.STATUS 1, f.MOBILITY 3"));
    EXPECT_TRUE(taken("t.STATUS 1, f.TACOPN 3"));   // a screen takes them too
}

TEST(Screens, TouchAtFourTenthsOfTheRoundedSumThroughHills)
{
    for (const int pixels : {52, 53}) {
        Board board({"..........", "....^.....", ".........."});
        const int a = board.Place(BLUE, 25, 15), e = board.Place(RED, 25 + pixels, 15);
        // 130.7, rounded 131, x 0.4 = 52.4
        Arrange(a, e, "f.TACOPN 3, f.LX 25, f.RX 25, f.LY 15, f.RY 15, f.FOOTPRINT 60.3, t.FOOTPRINT 70.4");
        Engage_Unit(a, LOOK);
        EXPECT_EQ(UNIT[a].VISIBLE == -1, pixels == 52);
        EXPECT_EQ(UNIT[e].VISIBLE == -1, pixels == 52);
    }
}

TEST(Screens, AScreenThatOnlyLooksHaltsBothAndFiresAtNobody)
{
    Meeting m;
    m.Set("f.TACOPN 3, f.MOVESTATUS 2, t.MOVESTATUS 2");
    const int breaching = m.BOARD.Place(RED, 205, 225), flyer = m.BOARD.Place(RED, 205, 185, 11);
    Arrange(breaching, flyer, "f.MOVESTATUS 2, f.TACOPN 2, t.MOVESTATUS 9, t.MOBILITY 3");
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
    const CASES<int, const char*, bool> cases = {{89, "f.MOVESTATUS 0", false}, {90, "f.MOVESTATUS 0", true},
                                                 {45, "f.MOVESTATUS 2", true},  {44, "f.MOVESTATUS 2", false},
                                                 {51, "f.MOVESTATUS 2", false}, {95, "t.MOVESTATUS 8", false}};
    for (const auto& [roll, arranged, shoots] : cases) {
        Meeting m;
        m.Set("f.TACOPN 3, t.SIZE 0");
        m.Set(arranged);
        Roll_Next(roll);
        Engage_Unit(m.B, LOOK);
        EXPECT_EQ(DiceSite, SITE_SCREEN_SMALL_TARGET);
        EXPECT_EQ(m.Blue_Fired(), shoots) << roll;
        EXPECT_EQ(m.Red().VISIBLE == -1, shoots || roll == 95);   // a flying squad is only seen
        EXPECT_EQ(m.Supplies_Charged(), shoots);
        EXPECT_FALSE(m.Red_Fired());
    }
    Meeting convoy;
    convoy.Set("f.TACOPN 3, f.MOVESTATUS 1, t.SIZE 100, t.TYPE 13");
    Engage_Unit(convoy.B, LOOK);
    EXPECT_GT(convoy.Red().TURNLOSS, 0);
    EXPECT_LT(convoy.Red().RCP2, 10.0f);
    EXPECT_EQ(convoy.Blue().MOVESTATUS, 2);
    EXPECT_FALSE(convoy.Supplies_Charged());

    Meeting as_convoy;   // and a convoy that screens is shot up itself
    as_convoy.Set("f.TACOPN 3, f.SIZE 100");
    Engage_Unit(as_convoy.B, LOOK);
    EXPECT_TRUE(as_convoy.Red_Fired());
    EXPECT_LT(as_convoy.Blue().RCP2, 10.0f);
}

TEST(Screens, EitherSideMayBreakContactAtOnce)
{
    for (const bool enemy_is_nervous : {true, false}) {
        Meeting m;
        m.Screen_With_Blue();
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
        m.Screen_With_Blue();
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
    const CASES<int, int, int, bool> cases = {
        {30, 8, RED, true}, {31, 8, RED, false}, {0, 8, BLUE, false},
        {46, 9, RED, true}, {47, 9, RED, false},   // fortifications 16 pixels farther
    };
    for (const auto& [pixels, type, side, found] : cases) {
        Board board(40, 40);
        const int a = board.Place(BLUE, 205, 205);
        // half of the footprint, rounded to even, is 30
        Arrange(a, 0, "f.TACOPN 3, f.LX 205, f.LY 105, f.RX 305, f.RY 305, f.FOOTPRINT 61");
        Give(BG[1], "BGHEX 1, BGY 100");
        BG[1].BGX = 205 - pixels - 5;
        BG[1].BGTYPE = type;
        BG[1].BGSIDE = side;
        Engage_Unit(a, LOOK);
        EXPECT_EQ(BG[1].BGVISIBLE == 1, found) << pixels << ' ' << type;
    }
}

TEST(CombatPhase, RetreatIsDecidedByTheShareOfPowerLostOrByFullSuppression)
{
    const CASES<const char*, bool> cases = {{"f.TURNLOSS 15", false},
                                            {"f.TURNLOSS 15.01", true},   // exactly 15 %
                                            {"f.TURNLOSS 15.01, f.RETREATP 5", false},
                                            {"f.TURNLOSS 2, f.RETREATP 1", true},   // "20%", "1%"
                                            {"f.TURNLOSS 2, f.SUPPRESSED 4", true},
                                            {"f.TURNLOSS 2, f.SUPPRESSED 5", false}};
    for (const auto& [arranged, retreats] : cases) {
        Board board(40, 40);
        const int u = board.Place(BLUE, 205, 205, 5, 100.0f);
        Arrange(u, 0, arranged);
        const float loss = UNIT[u].TURNLOSS;
        const Log_Lines log;
        Ground_Combat_Phase();
        EXPECT_EQ(log.Count("RFactor: "), 1);
        EXPECT_EQ(log.Count("B1 retreated with RFactor = "), retreats ? 1 : 0);
        EXPECT_EQ(Posted("We are retreating!"), retreats) << arranged;
        EXPECT_EQ(UNIT[u].TURNLOSS, loss);   // stands until the reset
    }
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

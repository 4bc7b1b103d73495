#include "core/seat.h"
#include "support/board.h"
#include "support/fields.h"
#include "sustain/reports.h"
#include "sustain/supply.h"

#include <gtest/gtest.h>
#include <limits>

using namespace sm;
using namespace sm::test;

namespace {

/// What an activity takes of a load of 100 points.
float Taken(int activity, int mobility, int movestatus, int turn_length = 0)
{
    Board board(5, 5);
    const int u = board.Place(BLUE, 15, 15);
    UNIT[u].RSF = UNIT[u].RSF2 = 100;
    UNIT[u].MOBILITY = mobility;
    UNIT[u].MOVESTATUS = movestatus;
    TurnLength = turn_length;
    Consume_Supply(u, activity);
    return 100 - UNIT[u].RSF2;
}

}   // namespace

TEST(Supply, EachActivityTakesHalfItsShareOfTheFullLoad)
{
    struct CASE {
        int ACTIVITY, MOBILITY, MOVESTATUS, TURN_LENGTH;
        float TAKEN;
    };
    // clang-format off
    const CASE cases[] = {
        {1, 0, 0, 0, 1.0f}, {1, 0, 1, 0, 1.5f}, {1, 0, 2, 0, 1.5f}, {1, 0, 5, 0, 1.0f},
        {1, 1, 0, 0, 2.0f}, {1, 2, 2, 0, 3.0f}, {1, 2, 6, 0, 2.0f},
        {1, 3, 7, 0, 0.0f}, {1, 3, 8, 0, 50.0f}, {1, 10, 0, 0, 0.0f},
        {2, 2, 2, 0, 2.5f}, {3, 0, 0, 0, 2.5f}, {4, 2, 0, 0, 5.0f}, {5, 2, 0, 0, 0.0f},
        // In a shorter turn it moves less, but fires as much.
        {1, 2, 2, 1, 1.5f}, {1, 2, 2, 2, 0.375f}, {4, 2, 2, 2, 5.0f},
    };
    // clang-format on
    for (const CASE& c : cases)
        EXPECT_NEAR(Taken(c.ACTIVITY, c.MOBILITY, c.MOVESTATUS, c.TURN_LENGTH), c.TAKEN, 1e-5f)
            << c.ACTIVITY << " " << c.MOBILITY << " " << c.TURN_LENGTH;
}

TEST(Supply, TheLevelFollowsAndStaysWithinItsField)
{
    struct CASE {
        int TYPE, ACTIVITY;
        const char *BEFORE, *AFTER;
    };
    const CASE cases[] = {
        {5, 4, "SIZE 0", "RSF2 3"},   // squads and convoys consume nothing
        {5, 4, "SIZE 100", "RSF2 3"},
        {5, 4, "RSF2 0.1", "RSF2 0, LOGSTATN 0"},   // 0.15 of 3 asked, 0.1 there
        {5, 4, "RSF2 4.2", "LOGSTATN 135"},         // an overfull unit: 4.05 / 3
        // On the move the surplus is left behind, after the level was taken: 3.9 / 3.
        {5, 4, "RSF2 4.05, MOVESTATUS 2", "RSF2 3, LOGSTATN 130"},
        {5, 4, "RSF 0", "RSF 0.01, LOGSTATN 30000"},                 // 3 / 0.01
        {5, 4, "RSF 0.01, RSF2 1000000", "LOGSTATN 32767"},          // a hundred million times the load
        {13, 2, "LSF 1000, LSF2 1200", "LSF2 1000, LOGSTATN 100"},   // a depot's level is that of its stock
        {13, 2, "LSF 1000, LSF2 125", "LOGSTATN 12"},                // 12.5, halves to even
        {13, 2, "LSF 0, LSF2 125, RSF2 2.85", "LOGSTATN 92"},        // no stock at all: by its own load, 2.775 / 3
    };
    for (const CASE& c : cases) {
        Board board(5, 5);
        const int u = board.Place(BLUE, 15, 15, c.TYPE);
        Give(UNIT[u], c.BEFORE);
        Consume_Supply(u, c.ACTIVITY);
        EXPECT_TRUE(Has(UNIT[u], c.AFTER)) << c.BEFORE;
    }
}

TEST(Supply, ALevelThatIsNoNumberIsToldAndTheGameGoesOn)
{
    Board board(5, 5);
    const int u = board.Place(BLUE, 15, 15);
    UNIT[u].RSF = UNIT[u].RSF2 = std::numeric_limits<float>::infinity();
    Consume_Supply(u, 5);
    EXPECT_TRUE(board.SCREEN.Heard("box", "Error Message|B1 is the source of the error: RSF: "));
    EXPECT_EQ(UNIT[u].LOGSTATN, 100);
}

TEST(Reports, AreNamedAndGoToTheUnitsOwnSide)
{
    Board board(5, 5);
    const int u = board.Place(RED, 15, 25);
    Unit_Report(9, u, 1);
    Unit_Report(11, u);
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{"R301: We are retreating!", "R301: My supported unit is destroyed!"}));
    EXPECT_TRUE(Has(SITREPLIST[1], "SIDE RED, Y 25"));
    EXPECT_TRUE(board.SCREEN.Heard("status", "We are retreating!"));
    EXPECT_FALSE(board.SCREEN.Heard("status", "My supported unit"));
}

TEST(Reports, ADegradedHeadquartersIsToldToBothSidesAndANumberWithoutATextTakesTheMessageAtHand)
{
    Board board(5, 5);
    const int u = board.Place(RED, 15, 25);
    Unit_Report(20, u);
    EXPECT_EQ(Messages().back(), "Enemy EW successfully degrades R301's C2!");
    EXPECT_EQ(SITREPLIST[1].SIDE, BOTH);
    EXPECT_TRUE(board.SCREEN.Heard("status", "degrades R301's C2!"));
    MsgText = "What was being written";
    Unit_Report(16, u);
    EXPECT_EQ(Messages().back(), "R301: What was being written");
    EXPECT_TRUE(MsgText.empty());
    Unit_Report(0, u);
    EXPECT_TRUE(Messages().back().starts_with("R301:"));
}

#include "core/near_units.h"

#include "core/state_hash.h"
#include "manoeuvre/movement.h"
#include "support/board.h"
#include "support/march.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>

namespace sm::test {
namespace {

std::vector<int> Walk(int x, int y, float reach, float share = 0)
{
    Near_Rows near(share);
    std::vector<int> rows;
    while (const int row = near.Next(x, y, reach)) rows.push_back(row);
    return rows;
}

TEST(Near_Rows_Test, AWalkMeetsEveryUnitWithinReachInAscendingOrder)
{
    Board board(300, 300);
    std::minstd_rand random(7);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int n = 0; n < 300; ++n) {
        board.Place(BLUE, below(3000), below(3000));
        board.Place(RED, below(3000), below(3000));
    }
    Place_Off_Picture(17);
    EXPECT_EQ(Walk(0, 0, 1).size(), 600u);   // nobody watches: all rows
    const Places_Watched watched;
    std::size_t visited = 0;
    for (int tries = 0; tries < 300; ++tries) {
        Place_Unit(1 + below(600), below(3000), below(3000));
        const int x = below(3200) - 100, y = below(3200) - 100, reach = below(400);
        const std::vector<int> rows = Walk(x, y, static_cast<float>(reach));
        EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
        visited += rows.size();
        for (int u = 1; u <= MAX_UNIT; ++u) {
            if (Distance_To(u, x, y) <= reach) {
                EXPECT_TRUE(std::binary_search(rows.begin(), rows.end(), u)) << u;
            }
        }
    }
    EXPECT_LT(visited, 300u * 600 / 8);   // a fair part of the map at most, or nothing is gained
    EXPECT_EQ(Walk(0, 0, 1e9f).size(), 600u);
}

TEST(Near_Rows_Test, AWalkFollowsUnitsAndGroundThatChangeUnderIt)
{
    Board board(300, 3);
    const int first = board.Place(BLUE, 5, 5), second = board.Place(BLUE, 2005, 5),
              third = board.Place(BLUE, 2905, 5);
    const Places_Watched watched;
    Near_Rows near(0.5f);
    ASSERT_EQ(near.Next(5, 5, 10), first);
    Place_Unit(second, 15, 5);   // it comes near before its turn
    EXPECT_EQ(near.Next(5, 5, 10), second);
    EXPECT_EQ(near.Next(2905, 5, 10), third);   // the place itself moves
    // The ground of a unit grows: 2 x 1450 pixels reach from the third to the middle.
    UNIT[third].SIZE = 5;
    UNIT[third].TACOPN = 1;
    MAPSCALE = 116;   // a division of 25 x 116 = 2900 pixels
    const std::vector<int> before = Walk(1500, 5, 10, 0.5f);
    EXPECT_FALSE(std::count(before.begin(), before.end(), third));
    Set_Footprint(third);
    const std::vector<int> after = Walk(1500, 5, 10, 0.5f);
    EXPECT_TRUE(std::count(after.begin(), after.end(), third));
    Remove_Unit(third);
    const std::vector<int> gone = Walk(2905, 5, 10);
    EXPECT_FALSE(std::count(gone.begin(), gone.end(), third));
}

#ifndef NDEBUG
TEST(Near_Rows_Test, APlaceWrittenBehindTheWatchIsAFailure)
{
    Board board(300, 3);
    const int unit = board.Place(BLUE, 5, 5);
    const Places_Watched watched;
    UNIT[unit].X = 2005;
    EXPECT_THROW(Walk(5, 5, 10), Game_Error);
}
#endif

/// A crowded march of both sides through one another, with or without the watch.
std::uint64_t Crowded_March(bool watch)
{
    Board board(60, 40);
    for (int n = 0; n < 60; ++n) {
        const int blue = board.Place(BLUE, 5 + n % 10 * 30, 5 + n / 10 * 60, n % 7 == 0 ? 8 : 5);
        const int red = board.Place(RED, 595 - n % 10 * 30, 35 + n / 10 * 60, n % 5 == 0 ? 13 : 20);
        UNIT[red].LOGSTATN = n % 4 == 0 ? 0 : 80;
        UNIT[blue].SIZE = UNIT[red].SIZE = 2 + n % 3;
        Plot(blue, {{595, UNIT[blue].Y}});
        Plot(red, {{5, UNIT[red].Y}});
    }
    for (int step = 0; step < 24; ++step) {
        std::unique_ptr<Places_Watched> watched;
        if (watch) watched = std::make_unique<Places_Watched>();
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (UNIT[u].STATUS > 0 && UNIT[u].MOVESTATUS == 2 && UNIT[u].MOVEPOINTS2 > 0) Move_Units(u);
    }
    EXPECT_LT(Count_Used(UNIT, 1, MAX_UNIT), 120);   // some were overrun
    return State_Hash();
}

TEST(Near_Rows_Test, AMarchComesOutTheSameWithAndWithoutTheWatch)
{
    EXPECT_EQ(Crowded_March(true), Crowded_March(false));
}

}   // namespace
}   // namespace sm::test

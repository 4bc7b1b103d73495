#include "opponent/route_planner.h"

#include "core/shared.h"
#include "manoeuvre/movement.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/numbers.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace sm;
using namespace sm::test;

namespace {

struct PLACE {
    int X, Y;
};

/// The rules of the planner read aloud: every candidate, every sample to the end, no shortcut.
struct PLAIN {
    int UNIT_;

    int Line(PLACE from, PLACE to, bool stop) const
    {
        const bool support = Support_Role(UNIT[UNIT_].TYPE), manoeuvre = Manoeuvre_Role(UNIT[UNIT_].TYPE);
        const int columns = std::abs(Hex_Column(from.X) - Hex_Column(to.X)),
                  rows = std::abs(Hex_Row(from.Y) - Hex_Row(to.Y));
        const int n = std::max({columns, rows, 1});
        int sum = 0, carried = 0;
        for (int i = 1; i <= n; ++i) {
            const float share = static_cast<float>(i) / static_cast<float>(n);
            const int x = Round_Even(static_cast<float>(from.X) + share * static_cast<float>(to.X - from.X));
            const int y = Round_Even(static_cast<float>(from.Y) + share * static_cast<float>(to.Y - from.Y));
            const int hex = Hex_Number(x, y);
            if (hex < 1 || hex > HEXCOUNT) {
                sum += 300;
                continue;
            }
            carried = Cell_Cost(UNIT_, hex, carried);
            sum += carried;
            const int value = Cell_Value(hex);
            if (value == 5) sum += support ? 200 : manoeuvre ? 40 : 0;
            if (value == 6) sum += UNIT[UNIT_].MOBILITY == 0 ? 4 : support ? 40 : manoeuvre ? 200 : 0;
            if (value == 7 && stop) break;
        }
        return sum;
    }

    PLACE Best_Way(PLACE to) const
    {
        const PLACE from{UNIT[UNIT_].X, UNIT[UNIT_].Y};
        const float d = static_cast<float>(Distance_Between(from.X, from.Y, to.X, to.Y));
        PLACE via{0, 0};
        int best = Line(from, to, false);
        for (int k = 0; k <= 180; k += 5) {
            const int turned = Bearing_To(from.X, from.Y, to.X, to.Y) - 90 + k;
            const int a = turned < 0 ? turned + 360 : turned > 360 ? turned - 360 : turned;
            for (float f = 0.3f; f <= 0.9f; f += 0.1f) {
                const int dx = Round_Even(static_cast<float>(std::fabs(std::sin(a * 3.14 / 180))) * d * f);
                const int dy = Round_Even(static_cast<float>(std::fabs(std::cos(a * 3.14 / 180))) * d * f);
                const PLACE c{a <= 180 ? from.X + dx : from.X - dx,
                              a <= 90 || a >= 271 ? from.Y - dy : from.Y + dy};
                if (c.X <= 0 || c.Y <= 0 || c.X >= Picture_Width() || c.Y >= Picture_Height()) continue;
                const int cost = Line(from, c, true) + Line(c, to, false);
                if (cost >= best) continue;
                best = cost;
                via = c;
            }
        }
        return via;
    }
};

}   // namespace

TEST(RoutePlanner, TheCostOfALineIsSampledOnceACellWithItsDeterrents)
{
    Board board({"..~..", "..=..", "..6.."});
    const int tank = board.Place(BLUE, 5, 5), support = board.Place(BLUE, 5, 5, 8),
              foot = board.Place(BLUE, 5, 5, 19);
    UNIT[foot].MOBILITY = 0;
    EXPECT_EQ(Route_Cost(tank, 5, 5, 45, 5, false), 1 + 46 + 1 + 1);       // river 6 + 40
    EXPECT_EQ(Route_Cost(support, 5, 5, 45, 5, false), 1 + 206 + 1 + 1);   // river 6 + 200
    EXPECT_EQ(Route_Cost(tank, 5, 15, 45, 15, false), 1 + 3 + 1 + 1);
    EXPECT_EQ(Route_Cost(tank, 5, 15, 45, 15, true), 1 + 3);   // stops at the bridge, its own cost counted
    EXPECT_EQ(Route_Cost(tank, 5, 25, 45, 25, false), 1 + 210 + 1 + 1);     // impassable 10 + 200
    EXPECT_EQ(Route_Cost(support, 5, 25, 45, 25, false), 1 + 50 + 1 + 1);   // 10 + 40
    EXPECT_EQ(Route_Cost(foot, 5, 25, 45, 25, false), 1 + 6 + 1 + 1);       // 2 + 4
    EXPECT_EQ(Route_Cost(tank, 35, 5, 55, 5, false), 1 + 300);              // off the map
    HEXMAP[4].TVALUE = 8;   // no rule: as dear as the cell before, at first 0
    EXPECT_EQ(Route_Cost(tank, 5, 5, 25, 5, false), 0 + 46);
    EXPECT_EQ(Route_Cost(tank, 25, 5, 5, 5, false), 0 + 1);
    Set_Picture_Size(80, 30);   // a picture wider than its grid of 50 pixels
    EXPECT_EQ(Route_Cost(tank, 35, 5, 75, 5, false), 1 + 300 + 300 + 300);
    Set_Picture_Size(0, 0);
}

TEST(RoutePlanner, ADetourLeadsOverTheBridge)
{
    Board board({"....~....", "....~....", "....~....", "....~....", "....=....", "....~....", "....~....",
                 "....~....", "....~...."});
    const int tank = board.Place(BLUE, 5, 5);
    Give(UNIT[tank], "OX1 85, OY1 5");
    Plan_Route(tank);
    ASSERT_EQ(UNIT[tank].NUMBER_OF_NODES, 2);
    EXPECT_EQ(Row(MN[2].MNX, MN[2].MNY), Row(85, 5));
    EXPECT_GT(MN[1].MNY, 5);
    EXPECT_EQ(UNIT[tank].MOVESTATUS, 2);
    const auto found = Row(2, MN[1].MNX, MN[1].MNY);
    Plan_Route(tank);   // nothing cheaper: the route stays
    EXPECT_EQ(Row(UNIT[tank].NUMBER_OF_NODES, MN[1].MNX, MN[1].MNY), found);
}

TEST(RoutePlanner, ItsShortcutsFindTheVeryWayOfThePlainSearch)
{
    constexpr int GROUND[] = {0, 0, 0, 0, 1, 2, 4, 5, 5, 6, 7, 8, 11, 22};   // 8 has no rule
    constexpr int ROLES[] = {5, 8, 19, 12};                                  // 12 is in neither group
    Board board(24, 24);
    std::uint32_t state = 1;
    const auto next = [&](int bound) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(bound));
    };
    int detours = 0;
    for (int n = 0; n < 150; ++n) {
        const int kinds = n % 3 == 0 ? 11 : 14;   // some maps have a rule for every cell
        for (int hex = 1; hex <= HEXCOUNT; ++hex) HEXMAP[hex].TVALUE = GROUND[next(n % 5 == 0 ? 4 : kinds)];
        const int u = board.Place(BLUE, 1 + next(238), 1 + next(238), ROLES[n % 4]);
        UNIT[u].MOBILITY = n % 3;
        const PLACE to{1 + next(n % 7 == 0 ? 300 : 238), 1 + next(238)};   // now and then off the map
        UNIT[u].OX1 = to.X;
        UNIT[u].OY1 = to.Y;
        const PLACE via = PLAIN{u}.Best_Way(to);
        Plan_Route(u);
        ASSERT_EQ(UNIT[u].NUMBER_OF_NODES, via.X == 0 && via.Y == 0 ? 1 : 2) << n;
        if (via.X != 0) {
            EXPECT_EQ(Row(MN[1].MNX, MN[1].MNY), Row(via.X, via.Y)) << n;
            ++detours;
        }
        Remove_Unit(u);
    }
    EXPECT_GT(detours, 75);
}

TEST(RoutePlanner, OverOpenGroundTheRouteIsOneNode)
{
    Board board(20, 20);
    const int tank = board.Place(RED, 55, 55);
    Give(UNIT[tank], "OX1 155, OY1 55");
    Plan_Route(tank);
    EXPECT_EQ(Row(UNIT[tank].NUMBER_OF_NODES, MN[301].MNX), Row(1, 155));
    for (int row = 301; row <= 600; ++row) MN[row].MNUNIT = tank;
    EXPECT_EQ(AI_Add_Node(tank, 5, 5), 0);   // the half of the table is full
}

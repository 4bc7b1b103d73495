// The stock weapons file and scenarios of the build, as the program itself reads them.

#include "core/game_state.h"
#include "core/icon_names.h"
#include "core/turn_driver.h"
#include "persist/program_folder.h"
#include "persist/weapons_file.h"
#include "support/board.h"
#include "support/numbers.h"
#include "support/places.h"
#include "support/stock_game.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <set>

using namespace sm;
using namespace sm::test;

namespace {

constexpr int HEADQUARTERS = 18, LOC = 50;

/// The stock content of the build, as it lies there. Nothing is written to it.
class Stock : public testing::Test {
protected:
    Stock()
    {
        Clear_Game();
        Use_Screen(&screen);
        Set_Program_Folder(home);
    }
    ~Stock() override
    {
        Use_Screen(nullptr);
        Clear_Game();
    }
    const std::filesystem::path home = STONEMARCH_HOME_DIR;
    Headless_Platform screen;
};

std::vector<int> Units_Of(int side)
{
    std::vector<int> rows;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].SIDE == side && UNIT[u].TYPE != LOC) rows.push_back(u);
    return rows;
}

TEST_F(Stock, TheWeaponsFileBeginsWithTheUnitBuildersDefaultAndHasEveryRoleAndSize)
{
    ASSERT_TRUE(Read_Stock_Weapons());
    EXPECT_GE(WPN.Count(), 80);
    EXPECT_EQ(Cat(WPN[1].WPN, ", ", WPN[1].NATION), "ADA Btry (Avenger), U.S.");
    EXPECT_EQ(Row(WPN[1].RANGE, WPN[1].MRANGE, WPN[1].SIZE, WPN[1].TYPE, WPN[1].MOBILITY), Row(4, 0, 2, 1, 1));
    std::set<int> roles, sizes;
    std::set<std::string> names;
    for (int w = 1; w <= WPN.Count(); ++w) {
        const WPN_RECORD& type = WPN[w];
        roles.insert(type.TYPE);
        sizes.insert(type.SIZE);
        EXPECT_TRUE(names.insert(type.WPN.Str()).second) << type.WPN.Str();
        for (const int side : {BLUE, RED}) {
            const std::string image = side == BLUE ? type.IMAGE.Str() : type.RIMAGE.Str();
            EXPECT_EQ(image, Unit_Icon_Name(side, type.TYPE, type.SIZE)) << type.WPN.Str();
            EXPECT_TRUE(std::filesystem::exists(home / "icons" / image)) << image;
        }
        EXPECT_GT(type.RCP, 0.0f) << type.WPN.Str();
    }
    EXPECT_EQ(roles.size(), 27u) << "roles 0..26";
    EXPECT_EQ(sizes.size(), 7u) << "squad to corps";
}

TEST_F(Stock, BothForcesAreCompleteAndEveryUnitHasItsHeadquartersAndSupplierOnItsOwnSide)
{
    ASSERT_NO_FATAL_FAILURE(Open_Stock_Scenario("Saale Crossing.sce"));
    EXPECT_EQ(MAXGTURN, 15);
    EXPECT_EQ(Row(UNIT[300].TYPE, UNIT[600].TYPE), Row(LOC, LOC));
    for (const int side : {BLUE, RED}) {
        const auto units = Units_Of(side);
        EXPECT_GE(units.size(), 60u);
        // headquarters, logistics, artillery, air defence, engineers, attack aviation, lift, intelligence, recon
        for (const std::set<int>& arm : std::vector<std::set<int>>{
                 {HEADQUARTERS}, {13}, {7, 8, 9}, {1, 2, 3}, {14}, {11}, {12}, {16, 17}, {24}})
            EXPECT_TRUE(std::any_of(units.begin(), units.end(), [&](int u) { return arm.contains(UNIT[u].TYPE); }))
                << "role " << *arm.begin() << ", side " << side;
        int bridges = 0, without_headquarters = 0;
        for (const int u : units) {
            const UNIT_RECORD& r = UNIT[u];
            bridges += r.BRIDGING;
            if (r.PARENT_UNIT > 0) {
                EXPECT_EQ(UNIT[r.PARENT_UNIT].SIDE, side) << r.NAME.Str();
                continue;
            }
            if (r.HIGHERHQ == 0) {
                ++without_headquarters;
                EXPECT_EQ(r.TYPE, HEADQUARTERS) << r.NAME.Str();
            } else {
                EXPECT_EQ(UNIT[r.HIGHERHQ].SIDE, side) << r.NAME.Str();
                EXPECT_EQ(UNIT[r.HIGHERHQ].TYPE, HEADQUARTERS) << r.NAME.Str();
            }
            if (r.LOGUNIT > 0) {
                EXPECT_EQ(UNIT[r.LOGUNIT].SIDE, side) << r.NAME.Str();
                EXPECT_TRUE(UNIT[r.LOGUNIT].TYPE == 13 || UNIT[r.LOGUNIT].TYPE == LOC) << r.NAME.Str();
            }
        }
        EXPECT_GT(bridges, 0);
        EXPECT_EQ(without_headquarters, 1) << "the highest";
    }
    EXPECT_GE(Count_Used(OBJ, 1, MAX_OBJ), 10);
    EXPECT_GE(Count_Used(P, 1, 200), 2);
    EXPECT_GE(Count_Used(P, 201, 400), 2);
}

TEST_F(Stock, TheCorridorHasFortyUnitsASideAndIncidentsOfManyKindsWithDestinationsForTheComputer)
{
    ASSERT_NO_FATAL_FAILURE(Open_Stock_Scenario("Halle Corridor.sce"));
    for (const int side : {BLUE, RED}) {
        const auto units = Units_Of(side);
        EXPECT_GE(units.size(), 40u);
        const auto sent =
            std::count_if(units.begin(), units.end(), [](int u) { return UNIT[u].OX1 > 0 && UNIT[u].OY1 > 0; });
        EXPECT_GE(sent, 10);
    }
    EXPECT_GE(Count_Used(OBJ, 1, MAX_OBJ), 10);
    std::set<int> kinds, triggers, effects;
    for (int e = 1; e <= MAX_PP; ++e) {
        if (!Used(PP[e])) continue;
        kinds.insert(PP[e].PPTYPE);
        triggers.insert(PP[e].PPTRIGGER);
        effects.insert(PP[e].PPEFFECT);
        EXPECT_TRUE(std::filesystem::exists(home / "events" / PP[e].PPIMAGE.Str())) << PP[e].PPATYPE.Str();
        EXPECT_GT(PP[e].PPMSG.Str().size(), 20u) << PP[e].PPATYPE.Str();
    }
    EXPECT_GE(kinds.size(), 12u);
    EXPECT_EQ(triggers.size(), 4u) << "by time, any unit, supply, combat";
    EXPECT_EQ(effects.size(), 4u) << "none, direct fire, indirect fire, mine";
}

/// The cell of a leg's nth step, by proportion.
int Cell_Of_Step(int from_x, int from_y, int to_x, int to_y, int step, int steps)
{
    const auto at = [&](int a, int b) {
        return static_cast<int>(std::lround(static_cast<double>(a) + static_cast<double>(step) * (b - a) / steps));
    };
    return Hex_Number(at(from_x, to_x), at(from_y, to_y));
}

TEST_F(Stock, EveryGroundRouteCrossesTheRiversByBridgesAndStaysOffImpassableGround)
{
    ASSERT_NO_FATAL_FAILURE(Open_Stock_Scenario("Saale Crossing.sce"));
    int legs = 0, bridges = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& r = UNIT[u];
        if (r.STATUS < 1 || r.MOBILITY > 2) continue;
        int x = r.X, y = r.Y;
        for (int n = 1; n <= r.NUMBER_OF_NODES; ++n) {
            int row = 1;
            while (row <= MAX_MN && !(MN[row].MNUNIT == u && MN[row].MNUNITNUMBER == n)) ++row;
            ASSERT_LE(row, MAX_MN) << r.NAME.Str() << " lacks node " << n;
            const int steps = std::max(std::abs(Hex_Column(MN[row].MNX) - Hex_Column(x)),
                                       std::abs(Hex_Row(MN[row].MNY) - Hex_Row(y)));
            for (int k = 1; k <= steps; ++k) {
                const int value = Cell_Value(Cell_Of_Step(x, y, MN[row].MNX, MN[row].MNY, k, steps));
                EXPECT_NE(value, 5) << r.NAME.Str() << " leg " << n << " step " << k;
                EXPECT_FALSE(value == 6 && r.MOBILITY > 0) << r.NAME.Str() << " leg " << n << " step " << k;
                bridges += value == 7 ? 1 : 0;
            }
            x = MN[row].MNX;
            y = MN[row].MNY;
            ++legs;
        }
    }
    EXPECT_GT(legs, 100);
    EXPECT_GT(bridges, 20);
}

}   // namespace

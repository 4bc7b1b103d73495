// The stock scenarios worth playing, fought by the computer on both sides from a few dice positions: what makes a
// battle of each of them. `stonemarch-battle odds` tells the same of all 100 positions.

#include "core/game_state.h"
#include "core/turn_driver.h"
#include "support/board.h"
#include "support/stock_game.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <utility>

using namespace sm;
using namespace sm::test;

namespace {

constexpr int BOTH_BY_COMPUTER = 34;   // PlayType
constexpr int CONVOY = 100;            // SIZE

/// What one battle showed, by side where a side can show it.
struct BATTLE {
    bool MOVED[3] = {}, FIRED[3] = {}, RESUPPLIED[3] = {};
    int CHANGES = 0;      ///< of possession
    float LEFT[3] = {};   ///< share of the power at the start
};

class Stock_Battles : public testing::TestWithParam<const char*> {
protected:
    Stock_Battles()
    {
        Clear_Game();
        Use_Screen(&screen);
    }
    ~Stock_Battles() override
    {
        Use_Screen(nullptr);
        Clear_Game();
    }

    /// The first turn by the plotted orders, as in every battle against the computer; the others by its own.
    BATTLE Fight(int position)
    {
        Open_Stock_Scenario(GetParam());
        folder.Use();
        RSEED = position;
        BATTLE battle;
        std::array<int, MAX_OBJ + 1> holder{};
        const auto count_changes = [&](bool at_start) {
            for (int o = 1; o <= MAX_OBJ; ++o) {
                battle.CHANGES += !at_start && OBJ[o].OTYPE == 1 && OBJ[o].OID != holder[o] ? 1 : 0;
                holder[o] = OBJ[o].OID;
            }
        };
        count_changes(true);
        std::map<int, std::pair<int, int>> place;
        screen.RECORDING = true;
        screen.TOLD.clear();
        while (GTURN < MAXGTURN) {
            for (int u = 1; u <= MAX_UNIT; ++u) {
                if (UNIT[u].STATUS < 1) continue;
                side_of[UNIT[u].NAME.Str()] = UNIT[u].SIDE;
                place[u] = {UNIT[u].X, UNIT[u].Y};
            }
            if (!Play_Turn()) {
                ADD_FAILURE() << "turn " << GTURN + 1 << " failed, position " << position;
                break;
            }
            for (const auto& [u, at] : place)
                if (UNIT[u].STATUS > 0 && UNIT[u].SIZE != CONVOY && UNIT[u].MOBILITY < 3 && GTURN > 1 &&
                    at != std::pair<int, int>{UNIT[u].X, UNIT[u].Y})
                    battle.MOVED[UNIT[u].SIDE] = true;
            place.clear();
            count_changes(false);
            PlayType = BOTH_BY_COMPUTER;
        }
        for (const Headless_Platform::Told& t : screen.TOLD) {
            if (t.KIND != "post") continue;
            const std::size_t fire = t.TEXT.find(" receives direct fires "), from = t.TEXT.rfind(" from "),
                              supply = t.TEXT.find(": Resupply is complete!");
            if (fire != std::string::npos && from > fire)
                battle.FIRED[Side(t.TEXT.substr(from + 6, t.TEXT.size() - from - 7))] = true;
            if (supply != std::string::npos) {
                const std::size_t name = t.TEXT.rfind("MSG: ", supply);
                battle.RESUPPLIED[Side(t.TEXT.substr(name + 5, supply - name - 5))] = true;
            }
        }
        battle.LEFT[BLUE] = BRCP3 / BRCP1;
        battle.LEFT[RED] = RRCP3 / RRCP1;
        return battle;
    }

private:
    /// 0 for nobody's name.
    int Side(const std::string& name) const
    {
        const auto found = side_of.find(name);
        return found == side_of.end() ? 0 : found->second;
    }

    const Own_Program_Folder folder;
    Headless_Platform screen;
    std::map<std::string, int> side_of;
};

}   // namespace

TEST_P(Stock_Battles, BothSidesMoveFireResupplyAndKeepAFifthWhileObjectivesChangeHands)
{
    for (const int position : {7, 64}) {
        const BATTLE battle = Fight(position);
        for (const int side : {BLUE, RED}) {
            EXPECT_TRUE(battle.MOVED[side]) << "side " << side << ", position " << position;
            EXPECT_TRUE(battle.FIRED[side]) << "side " << side << ", position " << position;
            EXPECT_TRUE(battle.RESUPPLIED[side]) << "side " << side << ", position " << position;
            EXPECT_GE(battle.LEFT[side], 0.2f) << "side " << side << ", position " << position;
        }
        EXPECT_GT(battle.CHANGES, 0) << "position " << position;
    }
}

static std::string Name_Of(const testing::TestParamInfo<const char*>& battle)
{
    std::string name;
    for (const char* c = battle.param; *c != '.'; ++c)
        if (*c != ' ') name += *c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, Stock_Battles,
                         testing::Values("Saale Crossing.sce", "River.sce", "Halle Corridor.sce"), Name_Of);

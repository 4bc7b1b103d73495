#include "ways.h"

#include "core/game_state.h"
#include "core/text.h"
#include "manoeuvre/movement.h"
#include "terrain/grid.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <queue>

namespace sm::scenario {

namespace {

constexpr int RIVER = 5, IMPASSABLE = 6, SEA = 10;

int Hex_At(CELL c) { return Hex_Of(c.COLUMN, c.ROW); }

bool On_Map(CELL c)
{
    return c.COLUMN >= 1 && c.ROW >= 1 && c.COLUMN <= Round_Even(NUMCOLS) && c.ROW <= Round_Even(NUMROWS);
}

/// Roles that may enter a river without a bridge.
bool May_Ford(int type)
{
    return type == 4 || type == 5 || type == 6 || type == 14 || type == 15 || type == 19 || type == 20;
}

bool May_Enter(int unit, int value, bool ford)
{
    if (value == RIVER) return ford && May_Ford(UNIT[unit].TYPE);
    if (value == IMPASSABLE) return UNIT[unit].MOBILITY == 0;
    return value != SEA;
}

int Cost(int unit, int value) { return std::max(1, Terrain_Cost(unit, value, 0)); }

/// Cost of the straight leg from cell to cell, or nothing where it enters a forbidden one. The steps are those of
/// the march: as many as the larger difference, each rounded by itself.
std::optional<int> Leg_Cost(int unit, CELL from, CELL to, bool ford)
{
    const int steps = std::max({std::abs(to.COLUMN - from.COLUMN), std::abs(to.ROW - from.ROW), 1});
    const int x = Middle(from.COLUMN), y = Middle(from.ROW);
    const float dx = static_cast<float>(Middle(to.COLUMN) - x) / static_cast<float>(steps);
    const float dy = static_cast<float>(Middle(to.ROW) - y) / static_cast<float>(steps);
    int total = 0;
    for (int k = 1; k <= steps; ++k) {
        const int hex = Hex_Number(Round_Even(static_cast<float>(x) + static_cast<float>(k) * dx),
                                   Round_Even(static_cast<float>(y) + static_cast<float>(k) * dy));
        if (hex == 0 || !May_Enter(unit, Cell_Value(hex), ford)) return std::nullopt;
        total += Cost(unit, Cell_Value(hex));
    }
    return total;
}

}   // namespace

std::vector<CELL> Find_Way(int unit, CELL from, CELL to, bool ford)
{
    // a tenth of a point more for a corner, so that of equal ways the straighter one is found
    constexpr int STRAIGHT = 0, CORNER = 1;
    std::vector<int> best(static_cast<std::size_t>(HEXCOUNT) + 1, -1);
    std::vector<CELL> came(best.size());
    using Entry = std::array<int, 4>;   // estimate, cost, column, row: ties fall by place
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> queue;
    const auto rest = [&](CELL c) {
        return 10 * std::max(std::abs(c.COLUMN - to.COLUMN), std::abs(c.ROW - to.ROW));
    };
    best[Hex_At(from)] = 0;
    queue.push({rest(from), 0, from.COLUMN, from.ROW});
    while (!queue.empty()) {
        const auto [estimate, cost, column, row] = queue.top();
        queue.pop();
        const CELL here{column, row};
        if (cost != best[Hex_At(here)]) continue;
        if (here == to) break;
        for (int dc = -1; dc <= 1; ++dc) {
            for (int dr = -1; dr <= 1; ++dr) {
                const CELL next{column + dc, row + dr};
                if ((dc == 0 && dr == 0) || !On_Map(next)) continue;
                const int value = Cell_Value(Hex_At(next));
                if (!May_Enter(unit, value, ford)) continue;
                const int sum = cost + 10 * Cost(unit, value) + (dc != 0 && dr != 0 ? CORNER : STRAIGHT);
                int& known = best[Hex_At(next)];
                if (known >= 0 && known <= sum) continue;
                known = sum;
                came[Hex_At(next)] = here;
                queue.push({sum + rest(next), sum, next.COLUMN, next.ROW});
            }
        }
    }
    if (best[Hex_At(to)] < 0) return {};
    std::vector<CELL> way{to};
    while (!(way.back() == from)) way.push_back(came[Hex_At(way.back())]);
    std::reverse(way.begin(), way.end());
    return way;
}

std::vector<CELL> Nodes_Of(int unit, const std::vector<CELL>& way, bool ford)
{
    std::vector<int> spent(way.size(), 0);
    for (std::size_t i = 1; i < way.size(); ++i) spent[i] = spent[i - 1] + Cost(unit, Cell_Value(Hex_At(way[i])));
    // fewest legs by dynamic programming from the end; of equal ones the cheapest
    struct Best {
        int LEGS, COST;
        std::size_t NEXT;
    };
    std::vector<Best> best(way.size(), Best{1 << 20, 1 << 28, 0});
    best.back() = {0, 0, 0};
    for (std::size_t i = way.size(); i-- > 0;) {
        for (std::size_t j = i + 1; j < way.size(); ++j) {
            const Best& on = best[j];
            if (on.LEGS + 1 > best[i].LEGS) continue;
            const auto cost = Leg_Cost(unit, way[i], way[j], ford);
            if (!cost || *cost > (spent[j] - spent[i]) * 4 / 3 + 2) continue;
            if (on.LEGS + 1 < best[i].LEGS || *cost + on.COST < best[i].COST)
                best[i] = {on.LEGS + 1, *cost + on.COST, j};
        }
    }
    std::vector<CELL> nodes;
    for (std::size_t i = 0; best[i].LEGS > 0; i = best[i].NEXT) nodes.push_back(way[best[i].NEXT]);
    return nodes;
}

std::string Fault_Of_Route(int unit, bool ford)
{
    const UNIT_RECORD& u = UNIT[unit];
    CELL at{Hex_Column(u.X), Hex_Row(u.Y)};
    for (int n = 1; n <= u.NUMBER_OF_NODES; ++n) {
        int row = 1;
        while (row <= MAX_MN && !(MN[row].MNUNIT == unit && MN[row].MNUNITNUMBER == n)) ++row;
        if (row > MAX_MN) return Cat("node ", To_Text(n), " is missing");
        const CELL node{Hex_Column(MN[row].MNX), Hex_Row(MN[row].MNY)};
        if (!Leg_Cost(unit, at, node, ford)) return Cat("leg ", To_Text(n), " enters water or impassable ground");
        at = node;
    }
    return "";
}

}   // namespace sm::scenario

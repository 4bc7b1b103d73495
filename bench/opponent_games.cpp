#include "opponent_games.h"

#include "core/seat.h"
#include "core/shared.h"
#include "core/turn_driver.h"
#include "full_game.h"
#include "opponent/route_planner.h"
#include "sustain/logistics.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace sm::bench {
namespace {

constexpr int TURNS = 15, CONVOYS_A_SIDE = 50;

/// Samples of a straight line: one a cell, the cell read and added.
int Walk_Line(int from_x, int from_y, int to_x, int to_y)
{
    const int columns = std::abs(Hex_Column(to_x) - Hex_Column(from_x)),
              rows = std::abs(Hex_Row(to_y) - Hex_Row(from_y));
    const int steps = std::max({columns, rows, 1});
    int total = 0;
    for (int i = 1; i <= steps; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(steps);
        const int x = Round_Even(static_cast<float>(from_x) + share * static_cast<float>(to_x - from_x));
        const int y = Round_Even(static_cast<float>(from_y) + share * static_cast<float>(to_y - from_y));
        total += Cell_Value(Hex_Number(x, y));
    }
    return total;
}

}   // namespace

void Make_Computer_Game()
{
    Make_Full_Game(SIDE_UNITS);
    GTURN = 2;
    MAXGTURN = 40;
    BNAIMAX = RNAIMAX = BTAIMAX = RTAIMAX = 6;
    BTOTAL = OTOTAL = ABCAS = AOCAS = 24;
    BCHMAX = RCHMAX = 4;
    for (int o = 1; o <= 10; ++o) {
        OBJ[o].OTYPE = 1;
        OBJ[o].OX = 900 + o * 110;
        OBJ[o].OY = 100 + o * 150;
        OBJ[o].OVALUE = 100;
        OBJ[o].OID = o % 2 + 1;
    }
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        unit.OX1 = unit.SIDE == BLUE ? unit.X + 900 : unit.X - 900;
        unit.OY1 = unit.Y;
        unit.AIACTION = u % 6;
        unit.SPOTTED = u % 3 == 0 ? 1 : 0;
        unit.LOGSTATN = 100;
        unit.MXRANGE = unit.TYPE == 8 ? 24 : 3;
        unit.LSF = unit.TYPE == 13 ? 5000.0f : 0.0f;
        unit.LSF2 = unit.LSF;
    }
}

void Make_Convoy_Game()
{
    Make_Computer_Game();
    for (int n = 0; n < 2 * CONVOYS_A_SIDE; ++n) {
        const int side = n % 2 + 1, first = side == BLUE ? 1 : SIDE_UNITS + 1;
        const int row = first + SIDE_UNITS - 1 - n / 2, customer = first + n / 2 * 4;
        int depot = first;
        while (!Is_Depot(depot)) ++depot;
        Remove_Unit(row);
        Fill_Convoy(row, side, customer, depot, 3);
        UNIT[customer].LOGUNIT = depot;
    }
}

void Plan_300_Routes()
{
    const ROUTE_GROUND ground;
    for (int u = 1; u <= SIDE_UNITS; ++u) {
        Clear_Route(u);
        Plan_Route(u, ground);
    }
}

void Walk_Route_Samples()
{
    int sum = 0;
    for (int u = 1; u <= SIDE_UNITS; ++u) {
        const int sx = UNIT[u].X, sy = UNIT[u].Y, tx = UNIT[u].OX1, ty = UNIT[u].OY1;
        const int distance = Distance_Between(sx, sy, tx, ty), bearing = Bearing_To(sx, sy, tx, ty);
        for (int k = 0; k <= 180; k += 5) {
            const double angle = (bearing - 90 + k) * 3.14 / 180;
            for (int f = 3; f <= 8; ++f) {
                const int x = sx + static_cast<int>(std::sin(angle) * distance * f / 10);
                const int y = sy - static_cast<int>(std::cos(angle) * distance * f / 10);
                sum += Walk_Line(sx, sy, x, y) + Walk_Line(x, y, tx, ty);
            }
        }
    }
    benchmark::DoNotOptimize(sum);
}

void Walk_Supply_Distances()
{
    int sum = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].LOGUNIT > 0) sum += Unit_Distance(u, UNIT[u].LOGUNIT);
        if (UNIT[u].SIZE == 100) sum += Unit_Distance(u, UNIT[u].CONVOYD);
    }
    benchmark::DoNotOptimize(sum);
}

BATTLE_TIMES Play_Computer_Battle()
{
    PlayType = 34;
    std::vector<double> turns;
    double whole = 0;
    for (int t = 0; t < TURNS; ++t) {
        const auto start = std::chrono::steady_clock::now();
        if (!Play_Turn()) return {};
        turns.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        whole += turns.back();
    }
    std::sort(turns.begin(), turns.end());
    return {whole, turns[turns.size() / 2], turns.back()};
}

}   // namespace sm::bench

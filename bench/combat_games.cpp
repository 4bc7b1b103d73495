#include "combat_games.h"
#include "combat/ground_combat.h"
#include "core/shared.h"
#include "full_game.h"
#include "support/board.h"
#include "terrain/grid.h"
#include "terrain/sight.h"
#include <benchmark/benchmark.h>
#include <cmath>

namespace sm::bench {
namespace {

constexpr int FILES = 25;   // ranks of 25, Blue and Red by turns as on a chessboard
constexpr int PITCH = 14;   // pixels between neighbours; tank battalions are in contact to 16
constexpr int LINES = 2000;

/// Counts what the phase tells the screen: shots are drawn, each step of a retreat waits a tenth of a second.
class Counting_Screen final : public Headless_Platform {
public:
    COMBAT_WORK WORK;
    void Drawn(const Drawing& drawing) override { WORK.SHOTS += drawing.KIND == Draw::SHOT ? 1 : 0; }
    void Delay(int milliseconds) override { WORK.LOOKS += milliseconds == 100 ? 1 : 0; }
    void Posted(int row) override
    {
        const std::string_view text = SITREPLIST[row].TEXT;
        WORK.RETREATS += text.find(": We are retreating!") != text.npos ? 1 : 0;
    }
};

/// Ends of sight line `n`, in low ground along the rows of the map.
struct SIGHT_LINE {
    int UNIT_NUMBER, X, Y;
};
SIGHT_LINE Line(int n)
{
    const int u = n % MAX_UNIT + 1;
    return {u, UNIT[u].X + (60 + n % 101) * HEXWIDTH, UNIT[u].Y + n % 37};
}

}   // namespace

void Make_Contact_Game()
{
    Make_Full_Game(300);
    for (int row = 1; row <= MAX_MN; ++row) Clear_Node(row);
    for (int n = 0; n < MAX_UNIT; ++n) {
        const int rank = n / FILES, file = n % FILES;
        const int u = (rank + file) % 2 == 0 ? n / 2 + 1 : SIDE_UNITS + n / 2 + 1;
        UNIT[u].NUMBER_OF_NODES = 0;
        UNIT[u].HIGHERHQ = UNIT[u].SIDE == BLUE ? 10 : 310;
        UNIT[u].MXRANGE = 10;
        UNIT[u].TACOPN = n % 10 == 4 ? 3 : 0;
        Place_Unit(u, 1300 + file * PITCH, 600 + rank * PITCH);
        Set_Footprint(u);
        if (UNIT[u].TACOPN == 3) Set_Screen(u);
    }
}

COMBAT_WORK Count_Combat_Work()
{
    Counting_Screen screen;
    Use_Screen(&screen);
    Ground_Combat_Phase();
    Use_Screen(nullptr);
    for (int u = 1; u <= MAX_UNIT; ++u) screen.WORK.LOOKS += UNIT[u].ROE == 0 ? 1 : 0;
    return screen.WORK;
}

void Literal_Combat(const COMBAT_WORK& work)
{
    const int loops = work.LOOKS + work.SHOTS + work.RETREATS;
    int near = 0;
    for (int n = 0; n < loops; ++n) {
        const UNIT_RECORD& a = UNIT[n % MAX_UNIT + 1];
        for (int e = 1; e <= MAX_UNIT; ++e) {
            const int dx = a.X - UNIT[e].X, dy = a.Y - UNIT[e].Y;
            if (std::sqrt(static_cast<double>(dx * dx + dy * dy)) <= 16.0) ++near;
        }
        benchmark::ClobberMemory();
    }
    benchmark::DoNotOptimize(near);
}

int Walk_Sight_Lines()
{
    int blocked = 0;
    for (int n = 0; n < LINES; ++n) {
        const SIGHT_LINE line = Line(n);
        blocked += Line_Of_Sight(line.UNIT_NUMBER, line.X, line.Y);
    }
    benchmark::DoNotOptimize(blocked);
    return blocked;
}

int Walk_Samples()
{
    int blocked = 0;
    const int rows = Round_Even(NUMROWS);
    for (int n = 0; n < LINES; ++n) {
        const SIGHT_LINE line = Line(n);
        const int steps = (line.X - UNIT[line.UNIT_NUMBER].X) / HEXWIDTH;
        const float step_x = static_cast<float>(line.X - UNIT[line.UNIT_NUMBER].X) / static_cast<float>(steps);
        const float step_y = static_cast<float>(line.Y - UNIT[line.UNIT_NUMBER].Y) / static_cast<float>(steps);
        int x = UNIT[line.UNIT_NUMBER].X, y = UNIT[line.UNIT_NUMBER].Y;
        for (int k = 1; k <= steps; ++k) {
            x = static_cast<int>(std::nearbyint(static_cast<float>(x) + step_x));
            y = static_cast<int>(std::nearbyint(static_cast<float>(y) + step_y));
            const int hex = x / HEXWIDTH * rows + y / HEXWIDTH + 1;
            if (hex > 0 && hex <= HEXCOUNT && HEXMAP[hex].THIGH > 0) {
                blocked += k;
                break;
            }
        }
    }
    benchmark::DoNotOptimize(blocked);
    return blocked;
}

}   // namespace sm::bench

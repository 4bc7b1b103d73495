#include "ui/selection.h"

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "ui/desk.h"
#include "ui/plot.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace sm {

namespace {

void Centre_On(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (!DESK.CENTRING) return;
    if (On_The_Picture(u.X, u.Y))
        The_Window().Centre_Map(u.X, u.Y);
    else if (Waits_To_Arrive(unit))
        The_Window().Centre_Map(u.ARX, u.ARY);
}

/// The next used unit of the serving side from the selected one, round the end; `step` is 1 or -1.
void Walk_Units(int step)
{
    const bool all = ActiveSide == BOTH && UserSide == 5;
    if (ActiveSide != BLUE && ActiveSide != RED && !all) return;
    const int first = all || ActiveSide == BLUE ? 1 : SIDE_UNITS + 1;
    const int count = all ? MAX_UNIT : SIDE_UNITS;
    int at = SelUnit - first;
    if (at < 0 || at >= count) at = step > 0 ? -1 : count;
    for (int tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        if (UNIT[first + at].STATUS < 1) continue;
        Get_Unit(first + at);
        Centre_On(SelUnit);
        return;
    }
}

}   // namespace

void Erase_Screen()
{
    SelUnit = 0;
    SEAT.PickedNode = 0;
    if (MapMode == MODE_MOVE_NODE) MapMode = MODE_PLOT;
}

void Get_Unit(int unit)
{
    Erase_Screen();
    if (unit >= 1 && unit <= MAX_UNIT && UNIT[unit].STATUS > 0) SelUnit = unit;
    Screen().Changed(Redraw::ROUTES);
    The_Window().Desk_Changed();
}

bool On_The_Picture(int x, int y) { return x >= 0 && y >= 0 && x < Picture_Width() && y < Picture_Height(); }

bool Stands_On_Map(int unit)
{
    return SEAT.PICTURE[unit] && UNIT[unit].STATUS > 0 && On_The_Picture(UNIT[unit].X, UNIT[unit].Y);
}

bool Waits_To_Arrive(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return u.STATUS > 0 && u.OFFMAP != 0 && u.ATIME > GTURN && On_The_Picture(u.ARX, u.ARY);
}

std::vector<int> Units_At(int x, int y, int reach)
{
    std::vector<std::pair<long long, int>> near;   // square of the distance, unit
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (!Stands_On_Map(u)) continue;
        const long long dx = UNIT[u].X - x, dy = UNIT[u].Y - y;
        if (std::max(std::llabs(dx), std::llabs(dy)) <= reach) near.emplace_back(dx * dx + dy * dy, u);
    }
    std::sort(near.begin(), near.end());
    std::vector<int> units;
    for (const auto& [distance, unit] : near) units.push_back(unit);
    return units;
}

bool Select_At(int x, int y, int reach)
{
    const std::vector<int> pile = Units_At(x, y, reach);
    const bool same_place = std::abs(x - DESK.ClickX) <= reach / 4 && std::abs(y - DESK.ClickY) <= reach / 4;
    if (!same_place) {
        DESK.ClickX = x;
        DESK.ClickY = y;
    }
    if (pile.empty()) return false;
    const bool in_pile = std::find(pile.begin(), pile.end(), SelUnit) != pile.end();
    int chosen = pile.front();
    if (in_pile && (same_place || chosen == SelUnit)) {
        // By number, so that every unit of the pile has its turn whichever lies nearest.
        std::vector<int> ring = pile;
        std::sort(ring.begin(), ring.end());
        const auto after = std::upper_bound(ring.begin(), ring.end(), SelUnit);
        chosen = after != ring.end() ? *after : ring.front();
    }
    Get_Unit(chosen);
    return true;
}

void cmdNextU_Click() { Walk_Units(1); }
void cmdLastU_Click() { Walk_Units(-1); }

}   // namespace sm

#include "opponent/route_planner.h"

#include "core/platform.h"
#include "core/shared.h"
#include "manoeuvre/movement.h"
#include "manoeuvre/routes.h"
#include "terrain/grid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace sm {

namespace {

constexpr int SUPPORT_ROLES[] = {1, 2, 3, 7, 8, 9, 10, 13, 14, 15, 16, 18, 21, 22, 23};
constexpr int MANOEUVRE_ROLES[] = {4, 5, 6, 19, 20, 24, 25};

constexpr int OUTSIDE_COST = 300;
constexpr int RIVER = 5, IMPASSABLE = 6, BRIDGE = 7;

/// What the planner adds to the cost of entering a cell, so that its routes keep off water and walls.
struct DETERRENT {
    int VALUE;
    int SUPPORT, MANOEUVRE, ON_FOOT_OR_IN_THE_AIR;   ///< -1: by role
};
constexpr DETERRENT DETERRENTS[] = {
    // VALUE      SUPPORT MANOEUVRE FOOT, AIR
    {RIVER, 200, 40, -1},
    {IMPASSABLE, 40, 200, 4},
};

int Deterrent(int unit, int value)
{
    const UNIT_RECORD& u = UNIT[unit];
    for (const DETERRENT& d : DETERRENTS) {
        if (d.VALUE != value) continue;
        if (d.ON_FOOT_OR_IN_THE_AIR >= 0 && (u.MOBILITY == 0 || u.MOBILITY >= 3)) return d.ON_FOOT_OR_IN_THE_AIR;
        return Support_Role(u.TYPE) ? d.SUPPORT : Manoeuvre_Role(u.TYPE) ? d.MANOEUVRE : 0;
    }
    return 0;
}

/// Cost of each terrain value for one unit, worked out once for the thousands of samples of a plan.
struct COSTS {
    static constexpr int CARRY = -1;   ///< a value without a rule costs what the cell before it cost
    int ENTER[32];
    int ADDED[32];

    explicit COSTS(int unit)
    {
        for (int value = 0; value < 32; ++value) {
            const int low = Terrain_Cost(unit, value, 0), high = Terrain_Cost(unit, value, 1);
            ENTER[value] = low == high ? low : CARRY;
            ADDED[value] = Deterrent(unit, value);
        }
    }
};

/// Cells by pixel, worked out once for a map: a plan asks for tens of thousands of them.
struct GRID {
    int WIDTH = 0, HEIGHT = 0, EDGE = 0;
    float ROWS = 0;
    bool WHOLE = true;               ///< a grid of a broken number of rows is not a sum of the two below
    std::vector<int> COLUMN_START;   ///< by x: number of the cell above the column's first
    std::vector<int> ROW;            ///< by y

    static const GRID& Of_Map()
    {
        static GRID grid;
        const int width = Picture_Width(), height = Picture_Height();
        if (grid.WIDTH == width && grid.HEIGHT == height && grid.EDGE == HEXWIDTH && grid.ROWS == NUMROWS) return grid;
        grid = {width, height, HEXWIDTH, NUMROWS, std::floor(NUMROWS) == NUMROWS, {}, {}};
        for (int x = 0; x < width; ++x) grid.COLUMN_START.push_back(Hex_Of(Hex_Column(x), 0));
        for (int y = 0; y < height; ++y) grid.ROW.push_back(Hex_Row(y));
        return grid;
    }
    /// Hex_Number of the point.
    int Cell(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= WIDTH || y >= HEIGHT) return 0;
        if (!WHOLE) return Hex_Number(x, y);
        return COLUMN_START[static_cast<std::size_t>(x)] + ROW[static_cast<std::size_t>(y)];
    }
};

/// Half to even for the size of a coordinate: the sum leaves no room for a fraction and rounds it by the one rule of
/// 32-bit reals. The same as Round_Even, without its tests.
int Round_Coordinate(float value)
{
    constexpr float NO_ROOM_FOR_A_FRACTION = 12582912.0f;   // 1.5 x 2^23
    return static_cast<int>((value + NO_ROOM_FOR_A_FRACTION) - NO_ROOM_FOR_A_FRACTION);
}

int Cost_Of_Line(const COSTS& costs, int from_x, int from_y, int to_x, int to_y, bool stop_at_bridge, int limit)
{
    const GRID& grid = GRID::Of_Map();
    const int columns = std::abs(Hex_Column(to_x) - Hex_Column(from_x));
    const int rows = std::abs(Hex_Row(to_y) - Hex_Row(from_y));
    const int steps = std::max({columns, rows, 1});
    const float across = static_cast<float>(to_x - from_x), down = static_cast<float>(to_y - from_y);
    int total = 0, carried = 0;
    for (int i = 1; i <= steps && total < limit; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(steps);
        const int hex = grid.Cell(Round_Coordinate(static_cast<float>(from_x) + share * across),
                                  Round_Coordinate(static_cast<float>(from_y) + share * down));
        if (hex == 0) {
            total += OUTSIDE_COST;
            continue;
        }
        const int value = Cell_Value(hex);
        if (value >= 0 && value < 32) {
            if (costs.ENTER[value] != COSTS::CARRY) carried = costs.ENTER[value];
            total += carried + costs.ADDED[value];
        } else {
            total += carried;
        }
        if (value == BRIDGE && stop_at_bridge) break;
    }
    return total;
}

struct CANDIDATE {
    int X, Y;
};

/// The point at a fraction f of the way, a degrees off by compass.
CANDIDATE Point_Towards(int x, int y, int a, int distance, float f)
{
    const double angle = a * 3.14 / 180;
    const float sine = static_cast<float>(std::fabs(std::sin(angle)));
    const float cosine = static_cast<float>(std::fabs(std::cos(angle)));
    const float across = sine * static_cast<float>(distance), along = cosine * static_cast<float>(distance);
    const int dx = Round_Even(across * f), dy = Round_Even(along * f);
    const bool east = a <= 180, south = a > 90 && a <= 270;
    return {east ? x + dx : x - dx, south ? y + dy : y - dy};
}

}   // namespace

bool Support_Role(int type)
{
    return std::find(std::begin(SUPPORT_ROLES), std::end(SUPPORT_ROLES), type) != std::end(SUPPORT_ROLES);
}

bool Manoeuvre_Role(int type)
{
    return std::find(std::begin(MANOEUVRE_ROLES), std::end(MANOEUVRE_ROLES), type) != std::end(MANOEUVRE_ROLES);
}

int Route_Cost(int unit, int from_x, int from_y, int to_x, int to_y, bool stop_at_bridge, int limit)
{
    return Cost_Of_Line(COSTS(unit), from_x, from_y, to_x, to_y, stop_at_bridge, limit);
}

int AI_Add_Node(int unit, int x, int y)
{
    UNIT_RECORD& u = UNIT[unit];
    const int first = u.SIDE == RED ? 301 : 1;
    const int row = Free_Row(MN, first, first + 299);
    if (row == 0) return 0;
    u.NUMBER_OF_NODES += 1;
    u.MOVESTATUS = u.MOBILITY == 3 ? 9 : 2;
    MN[row].MNUNIT = unit;
    MN[row].MNUNITNUMBER = u.NUMBER_OF_NODES;
    MN[row].MNSIDE = u.SIDE;
    MN[row].MNX = x;
    MN[row].MNY = y;
    u.MOVECOST_TO_END = Compute_Route(unit);
    Screen().Changed(Redraw::ROUTES);
    return row;
}

void Plan_Route(int unit)
{
    const int sx = UNIT[unit].X, sy = UNIT[unit].Y, tx = UNIT[unit].OX1, ty = UNIT[unit].OY1;
    const COSTS costs(unit);
    const int whole = 2147483647;
    int best = Cost_Of_Line(costs, sx, sy, tx, ty, false, whole);
    int best_x = 0, best_y = 0;
    const int old = UNIT[unit].MOVESTATUS < 1 ? 10000 : Compute_Route(unit);
    const int bearing = Bearing_To(sx, sy, tx, ty), distance = Distance_Between(sx, sy, tx, ty);
    const int width = Picture_Width(), height = Picture_Height();
    for (int k = 0; k <= 180; k += 5) {
        int a = bearing - 90 + k;
        if (a < 0) a += 360;
        if (a > 360) a -= 360;
        for (float f = 0.3f; f <= 0.9f; f += 0.1f) {   // six values: the seventh sum is above 0.9
            const CANDIDATE c = Point_Towards(sx, sy, a, distance, f);
            if (c.X <= 0 || c.Y <= 0 || c.X >= width || c.Y >= height) continue;
            // A line that alone reaches the best cost cannot win any more: the rest of it need not be walked.
            const int first = Cost_Of_Line(costs, sx, sy, c.X, c.Y, true, best);
            if (first >= best) continue;
            const int cost = first + Cost_Of_Line(costs, c.X, c.Y, tx, ty, false, best - first);
            if (cost >= best) continue;
            best = cost;
            best_x = c.X;
            best_y = c.Y;
        }
    }
    if (best >= old) return;
    Clear_Route(unit);
    if (best_x != 0 || best_y != 0) AI_Add_Node(unit, best_x, best_y);
    AI_Add_Node(unit, tx, ty);
}

}   // namespace sm

#include "opponent/route_planner.h"

#include "core/platform.h"
#include "core/shared.h"
#include "manoeuvre/movement.h"
#include "manoeuvre/routes.h"
#include "terrain/grid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

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
// clang-format off
constexpr DETERRENT DETERRENTS[] = {
    // VALUE      SUPPORT MANOEUVRE FOOT, AIR
    {RIVER, 200, 40, -1},
    {IMPASSABLE, 40, 200, 4},
};
// clang-format on

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

/// Cost of each kind of ground for one unit, worked out once for the thousands of samples of a plan.
struct COSTS {
    static constexpr int CARRY = -1;   ///< a value without a rule costs what the cell before it cost
    int ENTER[ROUTE_GROUND::KINDS];
    int ADDED[ROUTE_GROUND::KINDS];
    int LEAST = OUTSIDE_COST;   ///< no sample of this ground costs less

    COSTS(int unit, const ROUTE_GROUND& ground)
    {
        for (int kind = 0; kind < ROUTE_GROUND::KINDS; ++kind) {
            const int low = Terrain_Cost(unit, kind, 0), high = Terrain_Cost(unit, kind, 1);
            ENTER[kind] = low == high ? low : CARRY;
            ADDED[kind] = Deterrent(unit, kind);
            if (kind == ROUTE_GROUND::OUTSIDE) {
                ENTER[kind] = 0;
                ADDED[kind] = OUTSIDE_COST;
            } else if (ground.PRESENT[kind]) {
                LEAST = std::min(LEAST, ENTER[kind] == CARRY ? 0 : ENTER[kind] + ADDED[kind]);
            }
        }
    }
};

/// Half to even for the size of a coordinate: the sum leaves no room for a fraction and rounds it by the one rule
/// of 32-bit reals. The same as Round_Even, without its tests.
int Round_Coordinate(float value)
{
    constexpr float NO_ROOM_FOR_A_FRACTION = 12582912.0f;   // 1.5 x 2^23
    return static_cast<int>((value + NO_ROOM_FOR_A_FRACTION) - NO_ROOM_FOR_A_FRACTION);
}

struct POINT {
    int X, Y;
};

int Samples_Between(POINT from, POINT to)
{
    return std::max(
        {std::abs(Hex_Column(to.X) - Hex_Column(from.X)), std::abs(Hex_Row(to.Y) - Hex_Row(from.Y)), 1});
}

/// One planner's view: a unit's costs on the ground.
struct SURVEY {
    const ROUTE_GROUND& GROUND;
    const COSTS COST;

    /// Cost of the straight line. The walk ends early, with some sum of `limit` or more, once it is sure to reach
    /// that.
    int Line(POINT from, POINT to, bool stop_at_bridge, int limit = 2147483647) const
    {
        const int samples = Samples_Between(from, to);
        const float across = static_cast<float>(to.X - from.X), down = static_cast<float>(to.Y - from.Y);
        // A line that is walked to its end costs at least this, whatever it meets: the sum begins with it.
        const int least = stop_at_bridge ? 0 : COST.LEAST;
        int total = least * samples, carried = 0;
        for (int i = 1; i <= samples && total < limit; ++i) {
            const float share = static_cast<float>(i) / static_cast<float>(samples);
            const int kind = GROUND.Kind(Round_Coordinate(static_cast<float>(from.X) + share * across),
                                         Round_Coordinate(static_cast<float>(from.Y) + share * down));
            const int enter = COST.ENTER[kind] == COSTS::CARRY ? carried : COST.ENTER[kind];
            if (kind != ROUTE_GROUND::OUTSIDE) carried = enter;
            total += enter + COST.ADDED[kind] - least;
            if (kind == BRIDGE && stop_at_bridge) break;
        }
        return total;
    }
};

/// The point at a fraction f of the way, a degrees off by compass.
POINT Point_Towards(POINT from, int a, int distance, float f)
{
    const double angle = a * 3.14 / 180;
    const float sine = static_cast<float>(std::fabs(std::sin(angle)));
    const float cosine = static_cast<float>(std::fabs(std::cos(angle)));
    const float across = sine * static_cast<float>(distance), along = cosine * static_cast<float>(distance);
    const int dx = Round_Even(across * f), dy = Round_Even(along * f);
    const bool east = a <= 180, south = a > 90 && a <= 270;
    return {east ? from.X + dx : from.X - dx, south ? from.Y + dy : from.Y - dy};
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

ROUTE_GROUND::ROUTE_GROUND()
    : WIDTH(Picture_Width()), HEIGHT(Picture_Height()), CELLS(std::max(0, HEXCOUNT)),
      WHOLE(std::floor(NUMROWS) == NUMROWS)
{
    for (int x = 0; x < WIDTH; ++x) ABOVE.push_back(Hex_Of(Hex_Column(x), 0));
    for (int y = 0; y < HEIGHT; ++y) ROW.push_back(Hex_Row(y));
    KIND.assign(static_cast<std::size_t>(CELLS) + 1, OUTSIDE);
    for (int hex = 1; hex <= CELLS; ++hex) {
        const int value = Cell_Value(hex);
        const int kind = value >= 0 && value < OTHER ? value : OTHER;
        KIND[static_cast<std::size_t>(hex)] = static_cast<std::uint8_t>(kind);
        PRESENT[kind] = true;
    }
}

int Route_Cost(int unit, int from_x, int from_y, int to_x, int to_y, bool stop_at_bridge)
{
    const ROUTE_GROUND ground;
    return SURVEY{ground, COSTS(unit, ground)}.Line({from_x, from_y}, {to_x, to_y}, stop_at_bridge);
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

void Plan_Route(int unit, const ROUTE_GROUND& ground)
{
    const POINT start{UNIT[unit].X, UNIT[unit].Y}, end{UNIT[unit].OX1, UNIT[unit].OY1};
    const SURVEY survey{ground, COSTS(unit, ground)};
    int best = survey.Line(start, end, false);
    POINT via{0, 0};
    const int old = UNIT[unit].MOVESTATUS < 1 ? 10000 : Compute_Route(unit);
    const int bearing = Bearing_To(start.X, start.Y, end.X, end.Y);
    const int distance = Distance_Between(start.X, start.Y, end.X, end.Y);
    for (int k = 0; k <= 180; k += 5) {
        int a = bearing - 90 + k;
        if (a < 0) a += 360;
        if (a > 360) a -= 360;
        for (float f = 0.3f; f <= 0.9f; f += 0.1f) {   // six values: the seventh sum is above 0.9
            const POINT c = Point_Towards(start, a, distance, f);
            if (c.X <= 0 || c.Y <= 0 || c.X >= ground.WIDTH || c.Y >= ground.HEIGHT) continue;
            // A detour that is sure to reach the best cost cannot win any more: the rest of it need not be walked.
            const int left = best - survey.COST.LEAST * Samples_Between(c, end);
            const int first = survey.Line(start, c, true, left);
            if (first >= left) continue;
            const int cost = first + survey.Line(c, end, false, best - first);
            if (cost >= best) continue;
            best = cost;
            via = c;
        }
    }
    if (best >= old) return;
    Clear_Route(unit);
    if (via.X != 0 || via.Y != 0) AI_Add_Node(unit, via.X, via.Y);
    AI_Add_Node(unit, end.X, end.Y);
}

}   // namespace sm

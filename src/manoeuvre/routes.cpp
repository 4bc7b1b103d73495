#include "manoeuvre/routes.h"

#include "core/platform.h"
#include "core/shared.h"
#include "manoeuvre/movement.h"
#include "net/protocol.h"
#include "terrain/grid.h"

#include <cstdlib>

namespace sm {

namespace {

/// A sum of cell costs must fit its 16-bit field.
constexpr int COST_CEILING = 31000;
constexpr int COST_OFF_PICTURE = 200;

/// The rows of one unit's nodes, in the order of the table.
struct Route_Rows {
    explicit Route_Rows(int unit)
    {
        for (int row = 1; row <= MAX_MN; ++row)
            if (MN[row].MNUNIT == unit) ROW[COUNT++] = row;
    }
    /// Row of a node's number; the search goes on from the node found last, around the table. 0: there is none.
    int Find(int number)
    {
        for (int tried = 0; tried < COUNT; ++tried) {
            if (NEXT >= COUNT) NEXT = 0;
            const int row = ROW[NEXT++];
            if (MN[row].MNUNITNUMBER == number) return row;
        }
        return 0;
    }
    int COUNT = 0, NEXT = 0;
    int ROW[MAX_MN];
};

void Drop_Broken_Route(int unit)
{
    Screen().Box("Stonemarch", Cat("ERROR: Endless Loop in Movement Routine\r Cancelling Movement for ",
                                   std::string_view(UNIT[unit].NAME)));
    Clear_Route(unit);
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNSIDE > 0 && MN[row].MNUNIT == 0) Clear_Node(row);
}

/// Cells of the straight way between two points: a diagonal step counts as one.
int Cells_Between(int x1, int y1, int x2, int y2)
{
    const int columns = std::abs(Hex_Column(x2) - Hex_Column(x1));
    const int rows = std::abs(Hex_Row(y2) - Hex_Row(y1));
    return columns > rows ? columns : rows;
}

/// Turns to the end at the present allowance, for the display.
void Estimate_Time(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    const int allowance = u.MOVEPOINTS2 > 1 ? static_cast<int>(u.MOVEPOINTS2) : 1;
    u.TIME_TO_END = (u.MOVECOST_TO_END + allowance - 1) / allowance;
}

void Clear_Destinations(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    u.OX1 = u.OY1 = u.OX2 = u.OY2 = 0;
}

}   // namespace

int Next_Free_Node(int unit)
{
    Clear_Destinations(unit);
    const int first = UNIT[unit].SIDE == RED ? SIDE_UNITS + 1 : 1;
    return Free_Row(MN, first, first + SIDE_UNITS - 1);
}

void Add_Move_Node(int unit, int row, int x, int y)
{
    if (row < 1 || row > MAX_MN || Used(MN[row])) return;
    UNIT_RECORD& u = UNIT[unit];
    Clear_Destinations(unit);   // again for a seat that was told the row
    u.NUMBER_OF_NODES += 1;
    MN[row].MNUNIT = unit;
    MN[row].MNUNITNUMBER = u.NUMBER_OF_NODES;
    MN[row].MNSIDE = u.SIDE;
    MN[row].MNX = x;
    MN[row].MNY = y;
    const int total = Compute_Route(unit);
    if (u.NUMBER_OF_NODES == 0) return;   // the chain was broken, and is gone
    u.MOVECOST_TO_END = total;
    Estimate_Time(unit);
    if (u.MOBILITY != 3) {
        u.MOVESTATUS = u.RETREATS == 1 ? 6 : 2;
    } else {
        if (u.MOVESTATUS != 10 && u.MOVESTATUS != 7) u.MOVESTATUS = 9;
        if (total > FLIGHT_LIMIT) {
            if (NetRole == 1) Send_Net_Message(Number_Fields({75, unit}));
            Clear_Route(unit);
            return;
        }
    }
    if (NetRole == 1) Send_Net_Message(Number_Fields({70, unit, x, y, row}));
    Screen().Changed(Redraw::ROUTES);
}

int Move_Node(int row, int x, int y)
{
    const int unit = MN[row].MNUNIT;
    if (unit < 1 || unit > MAX_UNIT) return 0;
    MN[row].MNX = x;
    MN[row].MNY = y;
    const int total = Compute_Route(unit);
    UNIT[unit].MOVECOST_TO_END = total;
    Screen().Changed(Redraw::ROUTES);
    return total;
}

int Compute_Route(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    u.DISTANCE_TO_END = 0;
    Route_Rows rows(unit);
    int cx = u.X, cy = u.Y;
    int total = 0, carried = 0, distance = 0;
    for (int n = 1; n <= u.NUMBER_OF_NODES; ++n) {
        const int row = rows.Find(n);
        if (row == 0) {
            Drop_Broken_Route(unit);
            return 0;
        }
        const int nx = MN[row].MNX, ny = MN[row].MNY;
        int steps = Cells_Between(cx, cy, nx, ny);
        distance += steps;
        if (steps < 1) steps = 1;   // a node in the unit's own cell still takes a step
        const float step_x = static_cast<float>(nx - cx) / static_cast<float>(steps);
        const float step_y = static_cast<float>(ny - cy) / static_cast<float>(steps);
        if (n == 1) {
            u.X1 = u.X;
            u.Y1 = u.Y;
            u.NUMBER_OF_MOVES = 0;
            u.MOVEX = step_x;
            u.MOVEY = step_y;
            u.DISTANCE_IN_HEXES = steps;
        }
        for (int k = 1; k <= steps; ++k) {
            const float along_x = static_cast<float>(k) * step_x, along_y = static_cast<float>(k) * step_y;
            const int hex = Hex_Number(Round_Even(static_cast<float>(cx) + along_x),
                                       Round_Even(static_cast<float>(cy) + along_y));
            if (hex > 0) carried = Cell_Cost(unit, hex, carried);
            total += hex > 0 ? carried : COST_OFF_PICTURE;
        }
        if (total > COST_CEILING) total = COST_CEILING;
        cx = nx;
        cy = ny;
    }
    u.DISTANCE_TO_END = Saturate_16(distance);
    return total;
}

void Start_Next_Leg(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    const int row = Route_Rows(unit).Find(1);
    if (row > 0) {
        u.DX = MN[row].MNX;
        u.DY = MN[row].MNY;
        u.DROW1 = Hex_Row(MN[row].MNY);
        u.DCOL1 = Hex_Column(MN[row].MNX);
    }
    Compute_Route(unit);
}

int Pass_Node(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    Route_Rows rows(unit);
    for (int i = 0; i < rows.COUNT; ++i) MN[rows.ROW[i]].MNUNITNUMBER -= 1;
    const int passed = rows.Find(0);
    if (passed == 0) return 0;
    Clear_Node(passed);
    u.C2T = Saturate_16(u.C2T + 1);
    const int hq = u.HIGHERHQ;
    if (hq >= 1 && hq <= MAX_UNIT && UNIT[hq].STATUS > 0) UNIT[hq].C2T = Saturate_16(UNIT[hq].C2T + 1);
    if (u.NUMBER_OF_NODES > 0) u.NUMBER_OF_NODES -= 1;
    Screen().Changed(Redraw::ROUTES);
    return passed;
}

}   // namespace sm

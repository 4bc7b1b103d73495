#include "terrain/grid.h"

#include "core/game_state.h"
#include "core/platform.h"

namespace sm {

namespace {

int PICTURE_WIDTH = 0, PICTURE_HEIGHT = 0;

}   // namespace

int Hex_Column(int x) { return x / (HEXWIDTH < 1 ? 1 : static_cast<int>(HEXWIDTH)) + 1; }

int Hex_Row(int y) { return y / (HEXWIDTH < 1 ? 1 : static_cast<int>(HEXWIDTH)) + 1; }

int Hex_Of(int column, int row)
{
    if (NUMROWS >= 0 && NUMROWS < 32768) {
        const int rows = static_cast<int>(NUMROWS);
        if (static_cast<float>(rows) == NUMROWS) return rows * (column - 1) + row;   // as every map has it
    }
    return Round_Even(static_cast<double>(NUMROWS) * column - (static_cast<double>(NUMROWS) - row));
}

int Hex_Number(int x, int y)
{
    if (HEXCOUNT < 1 || HEXWIDTH < 1 || x < 0 || y < 0 || x >= Picture_Width() || y >= Picture_Height()) return 0;
    return Hex_Of(Hex_Column(x), Hex_Row(y));
}

Point Hex_Corner(int hex)
{
    const int rows = Round_Even(NUMROWS) < 1 ? 1 : Round_Even(NUMROWS);
    const int column = hex / rows + 1;
    const int row = hex - (column - 1) * rows;
    return {HEXWIDTH * column, HEXWIDTH * row};
}

Point Hex_Origin(int hex)
{
    const Point corner = Hex_Corner(hex);
    return {corner.X - HEXWIDTH, corner.Y - HEXWIDTH};
}

int Cell_Value(int hex) { return hex >= 1 && hex <= HEXCOUNT ? static_cast<int>(HEXMAP[hex].TVALUE) : 0; }

int Cell_High(int hex) { return hex >= 1 && hex <= HEXCOUNT ? static_cast<int>(HEXMAP[hex].THIGH) : 0; }

void Set_Cell(int hex, int value, std::string_view name)
{
    if (hex < 1 || hex > HEXCOUNT) return;
    HEXMAP[hex].TVALUE = value;
    HEXMAP[hex].TNAME = name;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].HEXNUM == hex) UNIT[u].TERTYPE = value;
    Screen().Changed(Redraw::GRAPHICS);
}

const char* Terrain_Name(int value)
{
    static constexpr const char* NAMES[] = {
        "",      "Restricted", "Severely Restricted", "Beach", "Urban", "River", "Impassable", "Bridge", nullptr,
        nullptr, "Sea",
    };
    return value >= 0 && value <= 10 ? NAMES[value] : nullptr;
}

int Picture_Width() { return PICTURE_WIDTH > 0 ? PICTURE_WIDTH : Round_Even(NUMCOLS) * HEXWIDTH; }

int Picture_Height() { return PICTURE_HEIGHT > 0 ? PICTURE_HEIGHT : Round_Even(NUMROWS) * HEXWIDTH; }

void Set_Picture_Size(int width, int height)
{
    PICTURE_WIDTH = width;
    PICTURE_HEIGHT = height;
}

}   // namespace sm

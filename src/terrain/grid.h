#pragma once
// The square grid over the map picture. A "hex" is a cell, HEXWIDTH pixels square; cells are numbered from 1 down
// the first column, then down the second.

#include <string_view>

namespace sm {

/// Column (row) of a pixel: x / HEXWIDTH toward zero, plus 1, also outside the picture.
int Hex_Column(int x);
int Hex_Row(int y);
/// Cell of a pixel, 0 outside the picture and before a game is loaded.
int Hex_Number(int x, int y);
/// The cell's number by column and row alone, also outside the picture.
int Hex_Of(int column, int row);

struct Point {
    int X, Y;
};
/// Lower right corner of a cell. A cell in the bottom row decodes as row 0 of the next column: callers of the
/// rules keep that.
Point Hex_Corner(int hex);
/// Upper left corner of a cell as BG rows store it: Hex_Corner less HEXWIDTH.
Point Hex_Origin(int hex);

/// Terrain value of a cell; 0 (unrestricted, low, clean) outside the grid.
int Cell_Value(int hex);
/// High-ground flag of a cell; 0 outside the grid.
int Cell_High(int hex);
/// Changes a cell's value and name in play; every living unit on the cell takes the new TERTYPE. Dropped outside
/// the grid.
void Set_Cell(int hex, int value, std::string_view name);
/// Name written for a base terrain value ("" for unrestricted); nullptr for a value without one.
const char* Terrain_Name(int value);

/// Width and height of the map picture in pixels; NUMCOLS (NUMROWS) x HEXWIDTH when no picture is loaded.
int Picture_Width();
int Picture_Height();
/// Size told by the picture file's header; 0, 0 when there is no picture.
void Set_Picture_Size(int width, int height);

}   // namespace sm

#pragma once
// Terrain files, map preparation, overlays.

#include <string>

namespace sm {

/// Prepares the map of the game in play: picture size, HEXCOUNT, base terrain from the .ter file, bridges of the map,
/// overlays of BG, terrain under every unit. Runs after every load, tape and transfer. False when the terrain file cannot
/// be read (the log and a box say so); the grid is then unrestricted ground.
bool Prepare_Map();
/// Reads HEXCOUNT records of 21 bytes into HEXMAP. `fault` says what is wrong.
bool Read_Terrain(const std::string& path, std::string& fault);
/// Writes HEXCOUNT records with the base values (overlays of BG rows taken off). False when it cannot be written.
bool Write_Terrain(const std::string& path, std::string& fault);
/// Width and height from the header of a bitmap or JPEG file; false when it is neither.
bool Picture_Size(const std::string& path, int& width, int& height);

/// Takes the overlays off the cell in CrossingHex, clears its BG rows and lowers the sides' counts.
void Change_Crossing();
/// Applies an editor tool (230..242) to a cell.
void Assign_Terrain(int hex, int tool, const std::string& label);

/// Row of the six stock maps, by SCENARION 1..6.
struct STOCK_MAP {
    const char* PICTURE;
    const char* TERRAIN;
    int ROWS, COLS;
    float SCALE;
    int WIDTH;
    float UL_LAT, UL_LONG, D_LAT, D_LONG;
};
inline constexpr int STOCK_MAPS = 6;
const STOCK_MAP& Stock_Map(int number);
/// Sets map, terrain file, grid and frame of a stock map; clears all BG rows.
void Choose_Stock_Map(int number);

}   // namespace sm

#pragma once
// Terrain files, map preparation, overlays.

#include <string>
#include <string_view>

namespace sm {

/// Prepares the map of the game in play: picture size, HEXCOUNT, base terrain from the .ter file, bridges of the
/// map, overlays of BG, terrain under every unit. Runs after every load, tape and transfer. A game that names no
/// map at all is fine, with HEXCOUNT 0. Otherwise false, told in the log and a box:
///   - when the terrain file cannot be read; the grid is then unrestricted ground;
///   - for a grid that no map can have (more than 150000 cells, no scale); HEXCOUNT is then 0;
///   - at a client of a network game that lacks the map's picture. Elsewhere the game goes on without one.
bool Prepare_Map();

/// Bytes of one cell in a terrain file: value, name of 15 characters, high-ground flag, contamination flag.
inline constexpr int TERRAIN_RECORD_BYTES = 21;
/// Reads HEXCOUNT records of 21 bytes into HEXMAP; cells beyond HEXCOUNT are cleared. `fault` says what is wrong;
/// HEXMAP is then untouched.
bool Read_Terrain(const std::string& path, std::string& fault);
/// The same from the content of a file.
bool Take_Terrain(std::string_view content, std::string& fault);
/// Writes HEXCOUNT records with the base values (overlays of BG rows taken off). False when it cannot be written.
bool Write_Terrain(const std::string& path, std::string& fault);
/// What Write_Terrain writes.
std::string Terrain_Content();

/// Width and height from the header of a bitmap or JPEG file; false when it is neither.
bool Picture_Size(const std::string& path, int& width, int& height);
/// The same from the first bytes of a file.
bool Picture_Header(std::string_view content, int& width, int& height);

/// Takes the overlays off the cell in CrossingHex, clears their BG rows and lowers the sides' counts.
void Change_Crossing();
/// Applies an editor tool (230..242) to a cell; `label` is the tool's label, which becomes the cell's name.
void Assign_Terrain(int hex, int tool, const std::string& label);

/// Row of the six stock maps, by SCENARION 1..6.
struct STOCK_MAP {
    const char* PICTURE;
    const char* TERRAIN;
    int ROWS, COLS;
    float SCALE;   ///< pixels per kilometre
    int WIDTH;     ///< cell edge in pixels
    float UL_LAT, UL_LONG, D_LAT, D_LONG;
};
inline constexpr int STOCK_MAPS = 6;
/// Row of a stock map; a number outside 1..6 is a range failure.
const STOCK_MAP& Stock_Map(int number);
/// Sets map, terrain file, grid and frame of a stock map; clears all BG rows. 0 is "User-Created": the map in play
/// stays for the map editor. Prepare_Map then loads it.
void Choose_Stock_Map(int number);

}   // namespace sm

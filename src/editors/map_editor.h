#pragma once
// What the map editor computes and saves: the grid from a known distance, the frame from two known points, the
// terrain file. Its drawing belongs to the window.

#include <string>
#include <vector>

namespace sm {

/// A grid as the map scale calculator finds it.
struct MAP_GRID {
    float SCALE = 1;   ///< pixels per kilometre
    int WIDTH = 0;     ///< cell edge in pixels
    float COLS = 0, ROWS = 0;
    long long COUNT = 0;      ///< cells
    bool TOO_SMALL = false;   ///< more than 150000 cells, or cells too narrow: the editor does not go on
};
/// From the pixels between two points (0..32767) and the kilometres told for them; a distance not above 0 counts
/// as one pixel a kilometre. Cells that the picture's edge cuts count in full.
MAP_GRID Grid_For(int pixel_distance, float kilometres, int picture_width, int picture_height);
/// The calculator's report, line by line.
std::vector<std::string> Grid_Report(const MAP_GRID& grid);
/// Makes it the grid of the map in play. A refused one is told in a box and leaves only HEXCOUNT 1.
bool Use_Map_Grid(const MAP_GRID& grid);

/// A known point of the map, degrees; longitudes in the sign that the frame is to have.
struct KNOWN_POINT {
    int X, Y;
    float LAT, LONG;
};
/// Frame ULLAT, ULLONG, DLATY, DLONGX from two known points. False, and nothing changed, when they share a column
/// or a row of pixels or the result is no number.
bool Set_Frame(const KNOWN_POINT& a, const KNOWN_POINT& b);

inline constexpr const char* FRAME_INSTRUCTIONS_TITLE = "Lat-Long Editor Instructions";
inline constexpr const char* FRAME_INSTRUCTIONS[] = {
    " 1. Point and click at a known Lat-Long location (Point A).",
    " 2. Point and click at a second known Lat-Long location (Point B).",
    " 3. Enter the latitude and longitude of both known locations.",
    " 4. Press DONE when complete.",
};
inline constexpr const char* SCALE_QUESTION = "Enter distance in kms:";
inline constexpr const char* SCALE_DEFAULT = "100";

/// Asks for a file and writes the terrain to it, base values only. False when cancelled or not written.
bool Save_Terrain_As();

}   // namespace sm

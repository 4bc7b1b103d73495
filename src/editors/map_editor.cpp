#include "editors/map_editor.h"

#include "core/game_state.h"
#include "core/platform.h"
#include "terrain/map.h"

namespace sm {

namespace {

constexpr int LEAST_WIDTH = 3;

/// Cells along an edge of the picture: the quotient, and one more for what is left over.
float Cells_Along(int pixels, int width)
{
    const float quotient = static_cast<float>(pixels) / static_cast<float>(width);
    return quotient > static_cast<float>(pixels / width) ? static_cast<float>(Floor_Int(quotient) + 1) : quotient;
}

bool Is_Number(float x) { return x - x == 0.0f; }

}   // namespace

MAP_GRID Grid_For(int pixel_distance, float kilometres, int picture_width, int picture_height)
{
    MAP_GRID grid;
    if (kilometres > 0) grid.SCALE = static_cast<float>(pixel_distance) / kilometres;
    if (grid.SCALE > 32767.0f) {
        grid.TOO_SMALL = true;   // no cell is that wide; the distance was a slip
        return grid;
    }
    grid.WIDTH = Round_Even(grid.SCALE);
    if (grid.WIDTH > 0) {
        grid.COLS = Cells_Along(picture_width, grid.WIDTH);
        grid.ROWS = Cells_Along(picture_height, grid.WIDTH);
    }
    grid.COUNT = static_cast<long long>(grid.COLS) * static_cast<long long>(grid.ROWS);
    grid.TOO_SMALL = grid.COUNT > MAX_HEX || grid.WIDTH < LEAST_WIDTH;
    return grid;
}

std::vector<std::string> Grid_Report(const MAP_GRID& grid)
{
    // clang-format off
    return {
        "Square Width: " + To_Text(grid.WIDTH),
        "Number of Squares: " + std::to_string(grid.COUNT),
        "Maximum Number of Squares: " + To_Text(MAX_HEX),
        "Number of Columns: " + To_Text(grid.COLS),
        "Number of Rows: " + To_Text(grid.ROWS),
    };
    // clang-format on
}

bool Use_Map_Grid(const MAP_GRID& grid)
{
    if (grid.TOO_SMALL) {
        Screen().Box("Map Editor Instructions", "The mapscale for this map is small.  Use a larger scale map!");
        HEXCOUNT = 1;
        return false;
    }
    MAPSCALE = grid.SCALE;
    HEXWIDTH = grid.WIDTH;
    NUMCOLS = grid.COLS;
    NUMROWS = grid.ROWS;
    HEXCOUNT = static_cast<int>(grid.COUNT);
    return true;
}

bool Set_Frame(const KNOWN_POINT& a, const KNOWN_POINT& b)
{
    if (a.X == b.X || a.Y == b.Y) return false;
    const float d_lat = (b.LAT - a.LAT) / static_cast<float>(b.Y - a.Y);
    const float d_long = (b.LONG - a.LONG) / static_cast<float>(b.X - a.X);
    const float down = static_cast<float>(a.Y) * d_lat;
    const float across = static_cast<float>(a.X) * d_long;
    if (!Is_Number(a.LAT - down) || !Is_Number(a.LONG - across)) return false;
    DLATY = d_lat;
    DLONGX = d_long;
    ULLAT = a.LAT - down;
    ULLONG = a.LONG - across;
    return true;
}

bool Save_Terrain_As()
{
    const std::string path =
        Screen().Ask_File({"Save Terrain File", "Terrain", "Terrain Files (*.ter)|*.ter|", true});
    if (path.empty()) return false;
    std::string fault;
    if (!Write_Terrain(path, fault)) {
        Screen().Box("Stonemarch", fault);
        return false;
    }
    TERRAIN_FILE = From_Utf8(path.substr(path.find_last_of("\\/") + 1));
    Screen().Box("Stonemarch", "File Save is Complete!");
    Screen().Box("Stonemarch", "For the game to run properly, all terrain data files\r"
                               "must be loaded in the terrain sub-directory!");
    return true;
}

}   // namespace sm

#include "terrain/coordinates.h"

#include "core/game_state.h"
#include "terrain/map.h"

namespace sm {

namespace {

/// One 100-kilometre square as it lies on a stock map, in picture pixels: X1 <= x < X2, Y1 <= y < Y2. Kilometres
/// east are (x - X1) / s + EAST, kilometres north are NORTH - y / s, in whole division; s is MAPSCALE rounded.
struct GRID_SQUARE {
    int MAP;   // SCENARION
    int X1, X2, Y1, Y2;
    const char* LETTERS;
    int EAST, NORTH;
};

// The bounds are where the lines of the true UTM grid (WGS 84) cross the frame of the map; the offsets are those
// that read nearest to the truth over the whole square, as s is the map's scale only to the nearest pixel and the
// grid lies askew in the frame: within 6 km everywhere, but 8 km on the training centre's map and 11 km on
// Kuwait-1. Germany-1 lies on both sides of 12 degrees east (zones 32 and 33), Kuwait-1 on both sides of 48
// degrees east (38 and 39).
// clang-format off
constexpr GRID_SQUARE SQUARES[] = {
    // MAP X1    X2    Y1    Y2   LETTERS EAST NORTH
    {1,    0,  369,    0,  490, "PC",  38,  81},   // Germany-1
    {1,    0,  369,  490, 1008, "PB",  39, 180},
    {1,  369,  419,    0,  490, "QC",   0,  81},
    {1,  369,  419,  490, 1008, "QB",   0, 180},
    {1,  419,  472,    0,  492, "TT",  91,  81},
    {1,  419,  472,  492, 1008, "TS",  91, 181},
    {1,  472, 1008,    0,  481, "UT",   1,  80},
    {1,  472, 1008,  481, 1008, "US",   1, 179},

    {2,    0,  588,    0,  186, "TE",  46,  16},   // Kansas-1
    {2,    0,  588,  186, 1270, "TD",  46, 115},
    {2,    0,  588, 1270, 1408, "TC",  46, 214},
    {2,  588, 1408,    0,  168, "UE",   0,  15},
    {2,  588, 1408,  168, 1253, "UD",   0, 114},
    {2,  588, 1408, 1253, 1408, "UC",   0, 212},

    {3,    0,  264,    0,  165, "NV",   6,  59},   // Kuwait-1
    {3,    0,  264,  165,  416, "NU",   6, 146},
    {3,    0,  264,  416,  667, "NT",   6, 229},
    {3,    0,  264,  667,  906, "NS",   6, 313},
    {3,  264,  529,    0,  167, "PV",   6,  60},
    {3,  264,  529,  167,  418, "PU",   6, 146},
    {3,  264,  529,  418,  669, "PT",   6, 230},
    {3,  264,  529,  669,  906, "PS",   6, 314},
    {3,  529,  767,    0,  172, "QV",   6,  62},
    {3,  529,  767,  172,  422, "QU",   6, 148},
    {3,  529,  767,  422,  673, "QT",   6, 231},
    {3,  529,  767,  673,  906, "QS",   6, 316},
    {3,  767, 1005,    0,  172, "TQ",  15,  62},
    {3,  767, 1005,  172,  422, "TP",  15, 148},
    {3,  767, 1005,  422,  673, "TN",  15, 231},
    {3,  767, 1005,  673,  906, "TM",  15, 316},

    {4,    0,  200,    0,  643, "MV",  81,  58},   // National Training Center-1
    {4,    0,  200,  643, 1408, "MU",  81, 157},
    {4,  200, 1300,    0,  644, "NV",   0,  58},
    {4,  200, 1300,  644, 1408, "NU",   0, 157},
    {4, 1300, 1408,    0,  650, "PV",   0,  59},
    {4, 1300, 1408,  650, 1408, "PU",   0, 158},

    {5,    0,  113,    0,  248, "SR",  85,  30},   // Mindoro-1
    {5,    0,  113,  248, 1046, "SQ",  85, 130},
    {5,    0,  113, 1046, 1480, "SP",  85, 229},
    {5,  113,  870,    0,  243, "TR",   3,  30},
    {5,  113,  870,  243, 1040, "TQ",   3, 129},
    {5,  113,  870, 1040, 1480, "TP",   3, 229},
    {5,  870, 1488,    0,  240, "UR",   2,  29},
    {5,  870, 1488,  240, 1033, "UQ",   2, 129},
    {5,  870, 1488, 1033, 1480, "UP",   2, 228},

    {6,    0,  175,    0,  682, "TG",  85,  56},   // Anzio-1
    {6,    0,  175,  682, 1080, "TF",  85, 155},
    {6,  175, 1318,    0,  665, "UG",   2,  55},
    {6,  175, 1318,  665, 1080, "UF",   2, 154},
    {6, 1318, 1512,    0,  654, "VG",   0,  54},
    {6, 1318, 1512,  654, 1080, "VF",   0, 153},
};
// clang-format on

constexpr const char* NO_DATA = "No UTM Data";

std::string Two_Digits(int kilometres)
{
    if (kilometres == 100) kilometres = 0;
    return kilometres < 10 ? "0" + To_Text(kilometres) : To_Text(kilometres);
}

std::string Degrees(float value, const char* positive, const char* negative)
{
    const float size = value < 0 ? -value : value;
    const int degrees = Floor_Int(size);
    const float rest = size - static_cast<float>(degrees);
    const int minutes = Floor_Int(rest * 60);
    return Cat(To_Text(degrees), " ", Two_Digits(minutes), "' ", value < 0 ? negative : positive);
}

}   // namespace

bool Has_Grid_Data() { return SCENARION >= 1 && SCENARION <= STOCK_MAPS; }

std::string Grid_Reference(int x, int y)
{
    for (const GRID_SQUARE& square : SQUARES) {
        if (square.MAP != SCENARION || x < square.X1 || x >= square.X2 || y < square.Y1 || y >= square.Y2)
            continue;
        const int east = Int_Div(x - square.X1, MAPSCALE) + square.EAST;
        const int north = square.NORTH - Int_Div(y, MAPSCALE);
        // A stock map under another scale has no square for what lies past 100 kilometres.
        if (east < 0 || east > 100 || north < 0 || north > 100) return NO_DATA;
        return Cat(square.LETTERS, " ", Two_Digits(east), Two_Digits(north));
    }
    return NO_DATA;
}

bool Has_Frame() { return DLATY != 0 && DLONGX != 0; }

std::string Lat_Long(int x, int y)
{
    if (!Has_Frame()) return "LAT/LONG: OFF";
    const float longitude = static_cast<float>(x) * DLONGX + ULLONG;
    const float latitude = static_cast<float>(y) * DLATY + ULLAT;
    return Cat("LAT/LONG: ", DLATY > 0 ? Degrees(latitude, "S", "N") : Degrees(latitude, "N", "S"), "  ",
               DLONGX > 0 ? Degrees(longitude, "E", "W") : Degrees(longitude, "W", "E"));
}

}   // namespace sm

#include "terrain/map.h"

#include "core/platform.h"
#include "core/shared.h"
#include "net/protocol.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "terrain/grid.h"

#include <vector>

namespace sm {

namespace {

/// What was read last, so that the next load of a game on the same map reads no file.
struct LOADED_MAP {
    std::string PICTURE;   // full path, empty when none is loaded
    int WIDTH = 0, HEIGHT = 0;
    std::string TERRAIN;   // full path, empty when none is loaded
    std::string CONTENT;
};
LOADED_MAP LOADED;

constexpr std::size_t MOST_TERRAIN_BYTES = static_cast<std::size_t>(MAX_HEX) * TERRAIN_RECORD_BYTES;
constexpr int HIGHEST_VALUE = 31;   // a fortification on deep water

/// A game keeps the last part of a file's name only; older files hold whole paths.
std::string_view Last_Part(std::string_view name)
{
    const std::size_t slash = name.find_last_of("\\/");
    return slash == std::string_view::npos ? name : name.substr(slash + 1);
}

std::filesystem::path Map_Path(const char* folder, std::string_view name)
{
    name = Trim(Last_Part(name));
    return name.empty() ? std::filesystem::path() : Home_Path(Cat("\\", folder, "\\", name));
}

/// False when there is no picture to load.
bool Load_Picture()
{
    const std::string path = Map_Path("Maps", MAPFILE).string();
    if (path.empty() || path != LOADED.PICTURE) {
        int width = 0, height = 0;
        const bool loaded = !path.empty() && Picture_Size(path, width, height);
        Log(loaded ? "Map is loaded" : "Error loading map!");
        LOADED.PICTURE = loaded ? path : std::string();
        LOADED.WIDTH = loaded ? width : 0;
        LOADED.HEIGHT = loaded ? height : 0;
        Screen().Changed(Redraw::ALL);
    }
    Set_Picture_Size(LOADED.WIDTH, LOADED.HEIGHT);
    return !LOADED.PICTURE.empty();
}

/// What a row of this type adds to the value of its cell.
int Added_By(int type) { return type == 8 ? 11 : type == 9 ? 21 : 0; }

/// What forbids a grid, empty when nothing does. Positions are 16 bits wide, so the grid must fit into them.
std::string Grid_Fault()
{
    // False for a NaN, too.
    const auto whole = [](float n) { return n >= 1 && n <= static_cast<float>(MAX_HEX); };
    if (!whole(NUMROWS) || !whole(NUMCOLS)) return "the numbers of rows and columns are no grid";
    if (static_cast<double>(NUMROWS) * static_cast<double>(NUMCOLS) > MAX_HEX)
        return Cat("the grid has more than ", To_Text(MAX_HEX), " squares");
    if (HEXWIDTH < 1) return "the squares have no width";
    if (!(MAPSCALE > 0 && MAPSCALE <= 32767.0f)) return "the map has no scale";
    if (NUMROWS * static_cast<float>(HEXWIDTH) > 32767.0f || NUMCOLS * static_cast<float>(HEXWIDTH) > 32767.0f)
        return "the grid is more than 32767 pixels wide or high";
    return {};
}

bool Tell_Fault(const std::string& name, const std::string& fault)
{
    const std::string text = Cat("Error loading terrain file ", name, ": ", fault, "!");
    Log(text);
    Screen().Box("Stonemarch", text);
    return false;
}

bool Load_Terrain()
{
    const std::string name(Trim(Last_Part(TERRAIN_FILE)));
    const std::string path = Map_Path("Terrain", name).string();
    std::string fault = "no such file";
    if (!path.empty() && path == LOADED.TERRAIN && Take_Terrain(LOADED.CONTENT, fault)) return true;

    LOADED.TERRAIN.clear();
    LOADED.CONTENT.clear();
    FILE_READ file;
    if (!path.empty()) file = Read_File_Whole(path, MOST_TERRAIN_BYTES);
    if (!file.ERROR.empty() && !file.MISSING) fault = file.ERROR;
    if (!path.empty() && file.ERROR.empty() && Take_Terrain(file.CONTENT, fault)) {
        LOADED.TERRAIN = path;
        LOADED.CONTENT = std::move(file.CONTENT);
        return true;
    }
    HEXMAP.Erase();
    return Tell_Fault(name, fault);
}

/// Bridges drawn on the map get rows of their own, so that they can be blown, unless the game knows the cell
/// already.
void Take_Map_Bridges()
{
    std::vector<char> known(static_cast<std::size_t>(HEXCOUNT) + 1, 0);
    for (int row = 1; row <= MAX_BG; ++row)
        if (BG[row].BGHEX > 0 && BG[row].BGHEX <= HEXCOUNT) known[static_cast<std::size_t>(BG[row].BGHEX)] = 1;
    int row = 1;
    for (int hex = 1; hex <= HEXCOUNT; ++hex) {
        if (HEXMAP[hex].TVALUE != 7 || known[static_cast<std::size_t>(hex)]) continue;
        while (row <= MAX_BG && Used(BG[row])) ++row;
        if (row > MAX_BG) return;
        const Point origin = Hex_Origin(hex);
        BG[row] = BG_RECORD{};
        BG[row].BGHEX = hex;
        BG[row].BGX = origin.X;
        BG[row].BGY = origin.Y;
        BG[row].BGTYPE = 7;
        BG[row].BGSIDE = BOTH;
    }
}

void Lay_Overlays()
{
    for (int row = 1; row <= MAX_BG; ++row) {
        const int hex = BG[row].BGHEX;
        if (hex < 1 || hex > HEXCOUNT) continue;
        if (BG[row].BGTYPE == 5) {
            HEXMAP[hex].TVALUE = 5;
            HEXMAP[hex].TNAME = "Blown Bridge";
        }
        if (BG[row].BGTYPE == 7 && BG[row].BGSIDE != BOTH) {
            HEXMAP[hex].TVALUE = 7;
            HEXMAP[hex].TNAME = "Bridge";
        }
    }
    // What is added to a value comes after what replaces it.
    for (int row = 1; row <= MAX_BG; ++row) {
        const int hex = BG[row].BGHEX;
        if (hex < 1 || hex > HEXCOUNT) continue;
        HEXMAP[hex].TVALUE += Added_By(BG[row].BGTYPE);
        if (BG[row].BGTYPE == 8) HEXMAP[hex].TNAME = "Obstacle";
        if (BG[row].BGTYPE == 9) HEXMAP[hex].TNAME = "Fortification";
    }
}

void Put_Units_On_Terrain()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1) continue;
        const int carrier = UNIT[u].CARRIER;
        if (carrier >= 1 && carrier <= MAX_UNIT && UNIT[carrier].PASSENGER == u) {
            Place_Off_Picture(u);
            continue;
        }
        if (Hex_Number(UNIT[u].X, UNIT[u].Y) == 0) continue;   // waiting off the picture: keeps what it has
        Locate_Unit(u);
        UNIT[u].TERTYPE = Cell_Value(UNIT[u].HEXNUM);
    }
}

/// One less of what a side has in place.
void Give_Back(int side, Int16& blue, Int16& red)
{
    if (side == BLUE && blue > 0) blue -= 1;
    if (side == RED && red > 0) red -= 1;
}

}   // namespace

bool Prepare_Map()
{
    HEXCOUNT = 0;
    const bool no_map = NUMROWS == 0 && NUMCOLS == 0 && Trim(MAPFILE).empty() && Trim(TERRAIN_FILE).empty();
    const std::string fault = no_map ? std::string() : Grid_Fault();
    if (no_map || !fault.empty()) {
        HEXMAP.Erase();
        Set_Picture_Size(0, 0);
        if (no_map) return true;
        return Tell_Fault(std::string(Trim(Last_Part(TERRAIN_FILE))), fault);
    }
    const bool seen = Load_Picture();
    HEXCOUNT = Round_Even(static_cast<double>(NUMCOLS) * static_cast<double>(NUMROWS));
    Show_Status(Cat("Battlefield Size: ", To_Text(NUMCOLS), " x ", To_Text(NUMROWS), " kms"));
    HEXMAP.FILLED = MAX_HEX;   // while it is laid out anew
    const bool read = Load_Terrain();
    Take_Map_Bridges();
    Lay_Overlays();
    Put_Units_On_Terrain();
    HEXMAP.FILLED = HEXCOUNT;
    Screen().Changed(Redraw::GRAPHICS);
    if (!seen && NetRole == 2 && !Trim(MAPFILE).empty()) {
        // The picture bounds the map: without it this seat would play another game than its host.
        Screen().Box("Stonemarch", Cat("Error loading map!\r", std::string_view(MAPFILE)));
        return false;
    }
    return read;
}

bool Read_Terrain(const std::string& path, std::string& fault)
{
    const FILE_READ file = Read_File_Whole(path, MOST_TERRAIN_BYTES);
    fault = file.ERROR;
    return file.ERROR.empty() && Take_Terrain(file.CONTENT, fault);
}

bool Take_Terrain(std::string_view content, std::string& fault)
{
    const std::size_t wanted = static_cast<std::size_t>(HEXCOUNT) * TERRAIN_RECORD_BYTES;
    if (HEXCOUNT < 0 || HEXCOUNT > MAX_HEX || content.size() < wanted) {
        fault = Cat("it has ", To_Text(static_cast<int>(content.size())), " bytes, and the grid of ",
                    To_Text(HEXCOUNT), " squares needs ", To_Text(static_cast<int>(wanted)));
        return false;
    }
    const auto number = [&](std::size_t at) {
        const int low = static_cast<unsigned char>(content[at]),
                  high = static_cast<unsigned char>(content[at + 1]);
        const int bits = low + 256 * high;
        return bits > 32767 ? bits - 65536 : bits;
    };
    int strange = 0;
    std::size_t at = 0;
    for (int hex = 1; hex <= HEXCOUNT; ++hex, at += TERRAIN_RECORD_BYTES) {
        HEXMAP_RECORD& cell = HEXMAP[hex];
        const int value = number(at);
        const bool known = value >= 0 && value <= HIGHEST_VALUE;
        strange += known ? 0 : 1;
        cell.TVALUE = known ? value : 0;
        char name[15];
        for (std::size_t i = 0; i < sizeof name; ++i) {
            const char c = content[at + 2 + i];
            name[i] = static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
        cell.TNAME = std::string_view(name, sizeof name);
        cell.THIGH = number(at + 17);
        cell.TCONTAM = number(at + 19);
    }
    for (int hex = HEXCOUNT + 1; hex <= MAX_HEX; ++hex) HEXMAP[hex] = HEXMAP_RECORD{};
    if (strange > 0)
        Log(Cat(To_Text(strange), " squares of the terrain file have no terrain value: unrestricted"));
    if (content.size() > wanted) Log("The terrain file has more squares than the map");
    return true;
}

std::string Terrain_Content()
{
    std::vector<int> overlay(static_cast<std::size_t>(HEXCOUNT) + 1, 0);
    for (int row = 1; row <= MAX_BG; ++row)
        if (BG[row].BGHEX >= 1 && BG[row].BGHEX <= HEXCOUNT)
            overlay[static_cast<std::size_t>(BG[row].BGHEX)] += Added_By(BG[row].BGTYPE);
    std::string content;
    content.reserve(static_cast<std::size_t>(HEXCOUNT) * TERRAIN_RECORD_BYTES);
    const auto put = [&](int number) {
        content.push_back(static_cast<char>(number & 0xFF));
        content.push_back(static_cast<char>(number >> 8 & 0xFF));
    };
    for (int hex = 1; hex <= HEXCOUNT; ++hex) {
        const HEXMAP_RECORD& cell = HEXMAP[hex];
        const int added = overlay[static_cast<std::size_t>(hex)];
        const int value = cell.TVALUE - added < 0 ? 0 : cell.TVALUE - added;
        const char* name = added > 0 ? Terrain_Name(value) : nullptr;
        put(value);
        content.append(name != nullptr ? Text<15>(name).Full() : cell.TNAME.Full());
        put(cell.THIGH);
        put(cell.TCONTAM);
    }
    return content;
}

bool Write_Terrain(const std::string& path, std::string& fault)
{
    Log("Saving terrain file...");
    fault = Write_File_Whole(path, Terrain_Content());
    LOADED.TERRAIN.clear();   // the copy kept may be of this very file
    if (fault.empty()) Log("Terrain file has been saved");
    return fault.empty();
}

void Change_Crossing()
{
    const int hex = CrossingHex;
    if (hex < 1 || hex > HEXCOUNT || HEXMAP[hex].TVALUE < 11) return;
    for (int row = 1; row <= MAX_BG; ++row) {
        // A bridge under the overlay keeps its row: without it the next load would bring a blown one back.
        if (BG[row].BGHEX != hex || Added_By(BG[row].BGTYPE) == 0) continue;
        if (BG[row].BGTYPE == 8) Give_Back(BG[row].BGSIDE, BOBST, ROBST);
        if (BG[row].BGTYPE == 9) Give_Back(BG[row].BGSIDE, BFORTS, RFORTS);
        int value = HEXMAP[hex].TVALUE - Added_By(BG[row].BGTYPE);
        if (value < 0) value = 0;
        const char* name = Terrain_Name(value);
        Set_Cell(hex, value, name != nullptr ? std::string(name) : HEXMAP[hex].TNAME.Str());
        Erase_Bridge(row);
        Send_Net_Message(Number_Fields({13, row, 0, 0, 0, 0, hex}));
    }
}

void Assign_Terrain(int hex, int tool, const std::string& label)
{
    struct TOOL {
        int MODE, VALUE;
    };
    static constexpr TOOL TOOLS[] = {
        {230, 0}, {231, 1}, {232, 2}, {233, 3}, {234, 4}, {235, 5}, {236, 6}, {240, 10},
    };
    if (tool < 230 || tool > 242 || hex < 1 || hex > HEXCOUNT) return;
    int value = HEXMAP[hex].TVALUE;
    for (const TOOL& t : TOOLS)
        if (t.MODE == tool) value = t.VALUE;
    if (tool == 241) HEXMAP[hex].THIGH = 1;
    if (tool == 242) HEXMAP[hex].THIGH = 0;
    Set_Cell(hex, value, value < 1 ? std::string() : label);
    if (NetRole == 1)
        Send_Net_Message(Cat(Number_Fields({9, 0, 0, 0, 0, 0, hex, value}), std::string_view(HEXMAP[hex].TNAME),
                             "\xA6", Number_Fields({HEXMAP[hex].THIGH})));
}

namespace {

// clang-format off
constexpr STOCK_MAP STOCK[STOCK_MAPS] = {
    // PICTURE         TERRAIN         ROWS COLS  SCALE WIDTH  UL_LAT     UL_LONG    D_LAT           D_LONG
    {"Germany1.bmp",  "Germany1.ter",  168, 168,  6.0f,   6,  52.1497f,  10.98058f, -0.001497006f,   0.002427184f},
    {"Kansas1.bmp",   "Kansas1.ter",   128, 128, 11.0f,  11,  39.87375f, 95.94299f, -0.0008305648f, -0.001062323f},
    {"Kuwait1.jpg",   "Kuwait1.ter",   302, 335,  2.51f,  3,  31.32374f, 45.00391f, -0.003597122f,   0.00390625f},
    {"NTC1.jpg",      "NTC1.ter",      128, 128, 11.15f, 11,  35.72522f, 117.1944f, -0.0007507508f, -0.0009920635f},
    {"Mindoro1.bmp",  "Mindoro1.ter",  185, 186,  7.6f,   8,  13.79978f, 120.0972f, -0.001082253f,   0.001218327f},
    {"Anzio1.bmp",    "Anzio1.ter",     90, 126, 11.8f,  12,  42.04338f, 12.41597f, -0.000761035f,   0.00105042f},
};
// clang-format on

}   // namespace

const STOCK_MAP& Stock_Map(int number)
{
    if (number < 1 || number > STOCK_MAPS) Fail_Range(number, 1, STOCK_MAPS, "stock maps");
    return STOCK[number - 1];
}

void Choose_Stock_Map(int number)
{
    SCENARION = number;
    for (int row = 1; row <= MAX_BG; ++row) Erase_Bridge(row);
    if (number < 1) return;
    const STOCK_MAP& map = Stock_Map(number);
    MAPFILE = map.PICTURE;
    TERRAIN_FILE = map.TERRAIN;
    NUMROWS = static_cast<float>(map.ROWS);
    NUMCOLS = static_cast<float>(map.COLS);
    MAPSCALE = map.SCALE;
    HEXWIDTH = map.WIDTH;
    ULLAT = map.UL_LAT;
    ULLONG = map.UL_LONG;
    DLATY = map.D_LAT;
    DLONGX = map.D_LONG;
    BSCALE = 0;
    GameLoaded = -1;
}

}   // namespace sm

#include "support/board.h"

#include "terrain/grid.h"

namespace sm::test {

namespace {

int Value_Of(char c)
{
    switch (c) {
    case '=':
        return 7;
    case '~':
        return 5;
    case '#':
        return 4;
    case 'S':
        return 10;
    default:
        return c >= '1' && c <= '6' ? c - '0' : 0;
    }
}

void Lay_Grid(int columns, int rows, int cell_pixels)
{
    Clear_Game();
    MAPSCALE = static_cast<float>(cell_pixels);
    HEXWIDTH = cell_pixels;
    NUMCOLS = static_cast<float>(columns);
    NUMROWS = static_cast<float>(rows);
    HEXCOUNT = columns * rows;
    Set_Picture_Size(0, 0);
    for (int hex = 1; hex <= HEXCOUNT; ++hex) HEXMAP[hex] = HEXMAP_RECORD{};
    GTURN = 1;
    MAXGTURN = 15;
    GTIME = "0900";
    TIME_OF_DAY = "Day";
    BMNT = 600;
    EENT = 2100;
    RSEED = 0;
    INTELPLAY = 0;
}

}   // namespace

void Clear_Game()
{
    const auto weapons = GAME.WPN.ROW;
    static const Game EMPTY{};
    GAME = EMPTY;
    GAME.WPN.ROW = weapons;
    SEAT = Seat{};
    SEAT.WritesFiles = false;
    Listen_To_Log(nullptr);
}

Board::Board(std::initializer_list<std::string_view> rows, int cell_pixels)
{
    Use_Screen(&SCREEN);
    SCREEN.RECORDING = true;
    const int columns = static_cast<int>(rows.begin()->size());
    Lay_Grid(columns, static_cast<int>(rows.size()), cell_pixels);
    int row = 0;
    for (const std::string_view line : rows) {
        ++row;
        for (int column = 1; column <= columns; ++column) {
            HEXMAP_RECORD& cell = HEXMAP[Hex_Of(column, row)];
            const char c = line[column - 1];
            cell.TVALUE = Value_Of(c);
            cell.THIGH = c == '^' ? 1 : 0;
            cell.TNAME = Terrain_Name(cell.TVALUE);
        }
    }
}

Board::Board(int columns, int rows, int cell_pixels)
{
    Use_Screen(&SCREEN);
    SCREEN.RECORDING = true;
    Lay_Grid(columns, rows, cell_pixels);
}

Board::~Board() { Use_Screen(nullptr); }

int Board::Place(int side, int x, int y, int type, float rcp)
{
    const int unit = Free_Unit_Row(side);
    UNIT_RECORD& u = UNIT[unit];
    u = UNIT_RECORD{};
    u.NAME = Cat(side == BLUE ? "B" : "R", To_Text(unit));
    u.SIDE = side;
    u.TYPE = type;
    u.SIZE = 3;
    u.MOBILITY = 2;
    u.STATUS = 2;
    u.STRENGTH = 100;
    u.RCP = u.RCP2 = u.RCP3 = rcp;
    u.MORALE = 2;
    u.C2 = 3;
    u.FATIGUE = 2;
    u.RSF = u.RSF2 = 3;
    u.LOGSTATO = u.LOGSTATN = 100;
    u.MOVEPOINTS = u.MOVEPOINTS2 = 24;
    u.TACOPN = 0;
    Place_Unit(unit, x, y);
    Set_Footprint(unit);
    return unit;
}

std::vector<std::string> Messages()
{
    std::vector<std::string> texts;
    for (int row = 1; row <= SitrepCount; ++row) {
        const std::string text = SITREPLIST[row].TEXT.Str();
        const auto at = text.find(" // MSG: ");
        texts.push_back(at == std::string::npos ? text : text.substr(at + 9));
    }
    return texts;
}

bool Posted(std::string_view text)
{
    for (const std::string& message : Messages())
        if (message.find(text) != std::string::npos) return true;
    return false;
}

}   // namespace sm::test

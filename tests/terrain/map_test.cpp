#include "terrain/map.h"

#include "persist/program_folder.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/scratch.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>
#include <limits>

namespace sm::test {
namespace {

std::string Record(int value, std::string_view name, int high = 0, int contaminated = 0)
{
    const auto two = [](int n) {
        return std::string{static_cast<char>(n & 0xFF), static_cast<char>(n >> 8 & 0xFF)};
    };
    return two(value) + std::string(Text<15>(name).Full()) + two(high) + two(contaminated);
}

/// A program folder with one terrain file of a grid 2 columns wide and 3 rows high, without a picture:
///     column 1: open, bridge, river    column 2: restricted, bridge, fortress hill
class Map_Test : public ::testing::Test {
protected:
    Map_Test()
    {
        Set_Program_Folder(FOLDER.Path());
        Put_File(FOLDER / "Terrain/Ford.ter", Record(0, "") + Record(7, "Bridge") + Record(5, "River") +
                                                  Record(1, "Restricted") + Record(7, "Bridge") +
                                                  Record(2, "Severely Restri", 1));
        NUMCOLS = 2;
        NUMROWS = 3;
        HEXWIDTH = 10;
        MAPSCALE = 10;
        TERRAIN_FILE = "ford.TER";
    }
    ~Map_Test() override { Set_Program_Folder("."); }

    void Lay(int row, int hex, int type, int side)
    {
        BG[row].BGHEX = hex;
        BG[row].BGTYPE = type;
        BG[row].BGSIDE = side;
    }

    Scratch_Folder FOLDER;
    Board BOARD{1, 1};
};

TEST_F(Map_Test, BridgesOfTheMapTakeFreeRowsKnownCellsNoneAndObstaclesLieOnTop)
{
    Lay(1, 4, 9, RED);
    Lay(3, 5, 5, BLUE);   // the bridge of cell 5 was blown
    Lay(4, 3, 8, RED);    // on the bridge of the next row, built over the river of cell 3
    Lay(5, 3, 7, BLUE);
    ASSERT_TRUE(Prepare_Map());
    EXPECT_EQ(HEXCOUNT, 6);
    EXPECT_TRUE(BOARD.SCREEN.Heard("status", "Battlefield Size: 2 x 3 kms"));
    // Cell 2 is row 2 of column 1: its corner is (10, 20), less 10.
    EXPECT_TRUE(Has(BG[2], "BGHEX 2, BGX 0, BGY 10, BGTYPE 7, BGSIDE BOTH"));
    EXPECT_EQ(Count_Used(BG, 1, MAX_BG), 5);
    EXPECT_TRUE(Has(HEXMAP[3], "TVALUE 18, TNAME Obstacle"));   // TVALUE: 7 + 11
    EXPECT_TRUE(Has(HEXMAP[5], "TVALUE 5, TNAME Blown Bridge"));
    EXPECT_TRUE(Has(HEXMAP[4], "TVALUE 22, TNAME Fortification"));
    EXPECT_EQ(HEXMAP[6].THIGH, 1);
}

TEST_F(Map_Test, BridgesWithoutAFreeRowStayTerrain)
{
    for (int row = 1; row <= MAX_BG; ++row) Lay(row, 1, 0, BOTH);
    ASSERT_TRUE(Prepare_Map());
    EXPECT_EQ(HEXMAP[2].TVALUE, 7);
    EXPECT_EQ(BG[MAX_BG].BGHEX, 1);
}

TEST_F(Map_Test, EachLoadStartsFromTheBaseTerrain)
{
    Lay(1, 1, 8, RED);
    ASSERT_TRUE(Prepare_Map());
    ASSERT_EQ(HEXMAP[1].TVALUE, 11);
    HEXMAP[6].TCONTAM = 1;
    HEXMAP[7].TVALUE = 4;   // left by a larger map
    BG.Erase();
    ASSERT_TRUE(Prepare_Map());
    EXPECT_TRUE(Has(HEXMAP[1], "TVALUE 0, TNAME "));
    EXPECT_EQ(HEXMAP[6].TCONTAM, 0);
    EXPECT_EQ(HEXMAP[7].TVALUE, 0);
}

TEST_F(Map_Test, UnitsStandOnTheirTerrainAndPassengersLeaveThePicture)
{
    const int lift = BOARD.Place(BLUE, 5, 5, 12), aboard = BOARD.Place(BLUE, 5, 5, 19);
    const int waiting = BOARD.Place(BLUE, 15, 5, 19);
    const int red = BOARD.Place(RED, 5, 25), beyond = BOARD.Place(RED, 5, 5);
    UNIT[lift].PASSENGER = aboard;
    UNIT[aboard].CARRIER = UNIT[waiting].CARRIER = lift;
    Give(UNIT[beyond], "X 20, TERTYPE 4");   // X: the picture ends at 19
    ASSERT_TRUE(Prepare_Map());
    EXPECT_TRUE(Has(UNIT[aboard], "X -1000, Y -1000, HEXNUM 0"));
    EXPECT_EQ(UNIT[waiting].TERTYPE, 1);
    EXPECT_EQ(UNIT[red].TERTYPE, 5);
    EXPECT_EQ(UNIT[beyond].TERTYPE, 4);
}

TEST_F(Map_Test, TheTerrainFileHoldsBaseValuesAndReadsBackTheSame)
{
    Lay(1, 1, 8, RED);
    Lay(2, 6, 9, BLUE);
    ASSERT_TRUE(Prepare_Map());
    HEXMAP[2].TCONTAM = -2;
    HEXMAP[4].TNAME = "S. Restricted";
    std::string fault;
    ASSERT_TRUE(Write_Terrain(FOLDER / "Terrain/Copy.ter", fault)) << fault;
    EXPECT_EQ(HEXMAP[1].TVALUE, 11);   // the map in play keeps its obstacle
    EXPECT_EQ(File_Content(FOLDER / "Terrain/Copy.ter"),
              Record(0, "") + Record(7, "Bridge", 0, -2) + Record(5, "River") + Record(1, "S. Restricted") +
                  Record(7, "Bridge") + Record(2, "Severely Restri", 1));
    ASSERT_TRUE(Read_Terrain(FOLDER / "Terrain/Copy.ter", fault)) << fault;
    EXPECT_EQ(HEXMAP[1].TVALUE, 0);
    EXPECT_EQ(HEXMAP[2].TCONTAM, -2);
    EXPECT_EQ(HEXMAP[6].THIGH, 1);
}

TEST_F(Map_Test, ASavedTerrainFileIsReadAgain)
{
    ASSERT_TRUE(Prepare_Map());
    HEXMAP[1].TVALUE = 4;
    std::string fault;
    ASSERT_TRUE(Write_Terrain(FOLDER / "Terrain/Ford.ter", fault)) << fault;
    ASSERT_TRUE(Prepare_Map());
    EXPECT_EQ(HEXMAP[1].TVALUE, 4);
}

TEST_F(Map_Test, AFaultyTerrainFileIsToldAndLeavesOpenGround)
{
    const std::string whole = File_Content(FOLDER / "Terrain/Ford.ter");
    struct CASE {
        const char* FILE;
        std::string CONTENT;
        const char* FAULT;
    };
    const CASE cases[] = {
        {"short.ter", whole.substr(0, whole.size() - 1), "125 bytes"},   // 6 x 21 = 126, one missing
        {"empty.ter", "", "0 bytes"},
        {"giant.ter", std::string(3150001, 'x'), "giant.ter"},   // 150000 x 21 and one more
    };
    for (const CASE& c : cases) {
        Put_File(FOLDER / "Terrain" / c.FILE, c.CONTENT);
        TERRAIN_FILE = c.FILE;
        HEXMAP[1].TVALUE = 6;
        EXPECT_FALSE(Prepare_Map()) << c.FILE;
        EXPECT_TRUE(BOARD.SCREEN.Heard("box", c.FAULT)) << c.FILE;
        EXPECT_EQ(HEXMAP[1].TVALUE, 0) << c.FILE;
    }
    for (const char* name : {"nowhere.ter", "..\\..\\etc\\passwd", ""}) {
        TERRAIN_FILE = name;
        EXPECT_FALSE(Prepare_Map()) << name;
    }
    EXPECT_TRUE(BOARD.SCREEN.Heard("box", "nowhere.ter: no such file"));

    // Values that no terrain has count as open ground; names of control characters as blanks.
    Put_File(FOLDER / "Terrain/odd.ter", std::string(126, '\xFF').replace(23, 2, "\x05\x0A"));
    TERRAIN_FILE = "odd.ter";
    EXPECT_TRUE(Prepare_Map());
    EXPECT_EQ(HEXMAP[1].TVALUE, 0);
    EXPECT_EQ(HEXMAP[2].TNAME.Full().substr(0, 3), "  \xFF");
}

TEST_F(Map_Test, AGridThatNoMapHasIsRefused)
{
    struct CASE {
        float ROWS, COLS, SCALE;
        int WIDTH;
        const char* FAULT;
    };
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const CASE cases[] = {
        {387, 388, 10, 10, "more than 150000 squares"},   // 150156
        {1e30f, 1e30f, 10, 10, "no grid"},
        {nan, 3, 10, 10, "no grid"},
        {-3, -3, 10, 10, "no grid"},
        {0, 3, 10, 10, "no grid"},
        {3, 2, 0, 10, "no scale"},
        {3, 2, nan, 10, "no scale"},
        {3, 2, 10, 0, "no width"},
        {3000, 2, 11, 11, "32767"},   // 33000 pixels
    };
    BOARD.Place(BLUE, 5, 5);
    for (const CASE& c : cases) {
        NUMROWS = c.ROWS;
        NUMCOLS = c.COLS;
        MAPSCALE = c.SCALE;
        HEXWIDTH = c.WIDTH;
        BOARD.SCREEN.TOLD.clear();
        EXPECT_FALSE(Prepare_Map()) << c.FAULT;
        EXPECT_TRUE(BOARD.SCREEN.Heard("box", c.FAULT)) << c.FAULT;
        EXPECT_EQ(HEXCOUNT, 0);
        EXPECT_EQ(Hex_Number(5, 5), 0);
    }
    // A game without any map is no fault: its editor will choose one.
    NUMROWS = NUMCOLS = 0;
    TERRAIN_FILE = "";
    BOARD.SCREEN.TOLD.clear();
    EXPECT_TRUE(Prepare_Map());
    EXPECT_FALSE(BOARD.SCREEN.Heard("box", ""));
}

TEST_F(Map_Test, ThePictureOfTheMapBoundsTheGrid)
{
    // 19 pixels wide, 25 high: both last cells are cut.
    Put_File(FOLDER / "Maps/Ford.bmp", std::string("BM") + std::string(12, '\0') + std::string("\x28\0\0\0", 4) +
                                           std::string("\x13\0\0\0\x19\0\0\0", 8));
    MAPFILE = "C:\\Old Game\\Maps\\FORD.BMP";
    ASSERT_TRUE(Prepare_Map());
    EXPECT_EQ(Picture_Width(), 19);
    EXPECT_EQ(Hex_Number(18, 24), 6);
    EXPECT_EQ(Hex_Number(19, 24), 0);
    EXPECT_EQ(Hex_Number(18, 25), 0);
    EXPECT_EQ(Hex_Number(-1, 0), 0);
    MAPFILE = "lost.bmp";
    ASSERT_TRUE(Prepare_Map());   // the game goes on without a picture
    EXPECT_EQ(Hex_Number(19, 29), 6);
    NetRole = 2;   // but not at a seat whose host may have one
    EXPECT_FALSE(Prepare_Map());
    EXPECT_TRUE(BOARD.SCREEN.Heard("box", "Error loading map!\rlost.bmp"));
}

TEST_F(Map_Test, TakingAnOverlayOffGivesItBackAndLeavesTheBridgeUnderIt)
{
    Lay(1, 2, 8, RED);
    Lay(2, 2, 9, BLUE);
    Lay(3, 2, 7, BOTH);
    ROBST = 4;
    BFORTS = 1;
    const int unit = BOARD.Place(RED, 5, 15);
    ASSERT_TRUE(Prepare_Map());   // cell 2: 7 + 11 + 21
    UNIT[unit].HEXNUM = 2;
    ASSERT_EQ(UNIT[unit].TERTYPE, 39);
    CrossingHex = 1;
    Change_Crossing();   // nothing on cell 1
    EXPECT_EQ(ROBST, 4);
    CrossingHex = 2;
    Change_Crossing();
    EXPECT_EQ(HEXMAP[2].TVALUE, 7);
    EXPECT_EQ(UNIT[unit].TERTYPE, 7);
    EXPECT_EQ(ROBST, 3);
    EXPECT_EQ(BFORTS, 0);
    EXPECT_FALSE(Used(BG[1]));
    EXPECT_FALSE(Used(BG[2]));
    EXPECT_EQ(BG[3].BGHEX, 2);
}

TEST_F(Map_Test, AnOverlayNeverTakesACellBelowOpenGround)
{
    ASSERT_TRUE(Prepare_Map());
    Lay(1, 4, 9, RED);   // a row that the terrain does not know: 12 - 21
    HEXMAP[4].TVALUE = 12;
    CrossingHex = 4;
    Change_Crossing();
    EXPECT_TRUE(Has(HEXMAP[4], "TVALUE 0, TNAME "));
    EXPECT_EQ(RFORTS, 0);
}

TEST(Terrain_Tools, SetValueNameAndElevation)
{
    Board board(2, 2);
    const int unit = board.Place(BLUE, 5, 5);
    Assign_Terrain(1, 232, "S. Restricted");
    EXPECT_TRUE(Has(HEXMAP[1], "TVALUE 2, TNAME S. Restricted"));
    EXPECT_EQ(UNIT[unit].TERTYPE, 2);
    Assign_Terrain(1, 241, "High");
    EXPECT_TRUE(Has(HEXMAP[1], "THIGH 1, TNAME High"));
    Assign_Terrain(1, 242, "Low");
    Assign_Terrain(1, 230, "Unrestricted");
    EXPECT_TRUE(Has(HEXMAP[1], "THIGH 0, TVALUE 0, TNAME "));
    Assign_Terrain(2, 240, "Deep Water");
    EXPECT_EQ(HEXMAP[2].TVALUE, 10);
    Assign_Terrain(2, 237, "Bridge");   // the bridge is a row of BG, not a value
    EXPECT_EQ(HEXMAP[2].TVALUE, 10);
    Assign_Terrain(5, 231, "Restricted");   // outside the grid of 4
    EXPECT_EQ(HEXMAP[5].TVALUE, 0);
}

TEST(Stock_Maps, ChoosingOneSetsItsGridAndFrameAndClearsTheBridges)
{
    Board board(1, 1);
    BG[7].BGHEX = 1;
    BSCALE = 3;
    Choose_Stock_Map(6);
    EXPECT_EQ(SCENARION, 6);
    EXPECT_EQ(MAPFILE, "Anzio1.bmp");
    EXPECT_EQ(NUMROWS, 90);
    EXPECT_EQ(NUMCOLS, 126);
    EXPECT_EQ(HEXWIDTH, 12);
    EXPECT_EQ(DLATY, -0.000761035f);
    EXPECT_EQ(BSCALE, 0);
    EXPECT_FALSE(Used(BG[7]));
    for (int map = 1; map <= STOCK_MAPS; ++map) {   // every stock grid is one that the house accepts
        EXPECT_EQ(Stock_Map(map).WIDTH, Round_Even(Stock_Map(map).SCALE)) << map;
        EXPECT_LE(Stock_Map(map).ROWS * Stock_Map(map).COLS, MAX_HEX) << map;
    }
}

TEST(Grid, TheBottomRowDecodesAsRowZeroOfTheNextColumn)
{
    Board board(3, 4);
    EXPECT_EQ(Hex_Number(15, 35), 8);   // column 2, row 4: (2 - 1) x 4 + 4
    EXPECT_EQ(Hex_Corner(8).X, 30);     // 8 / 4 + 1 = 3
    EXPECT_EQ(Hex_Corner(8).Y, 0);
    EXPECT_EQ(Hex_Corner(7).X, 20);
    EXPECT_EQ(Hex_Corner(7).Y, 30);
}

struct HEADER_CASE {
    const char* WHAT;
    std::string BYTES;
    int WIDTH, HEIGHT;   // 0, 0: refused
};

std::string Bitmap(std::string_view header_and_size, std::size_t total = 54)
{
    std::string bytes = "BM" + std::string(12, '\0') + std::string(header_and_size);
    bytes.resize(total, '\0');
    return bytes;
}

TEST(Picture_Header_Test, TellsTheSizeOrRefuses)
{
    using namespace std::string_literals;
    const std::string jpeg = "\xFF\xD8\xFF\xE0\x00\x04\x4A\x46"s;                // start, one segment of 4 bytes
    const std::string frame = "\x00\x0B\x08\x01\x02\x03\x04\x01\x01\x11\x00"s;   // 258 high, 772 wide
    const HEADER_CASE cases[] = {
        {"bitmap", Bitmap("\x28\0\0\0\xF0\x03\0\0\xE8\x03\0\0"s), 1008, 1000},
        {"bitmap, top row first", Bitmap("\x28\0\0\0\x0A\0\0\0\xF6\xFF\xFF\xFF"s), 10, 10},
        {"old bitmap", Bitmap("\x0C\0\0\0\x40\x01\xC8\0"s), 320, 200},
        {"bitmap of no width", Bitmap("\x28\0\0\0\0\0\0\0\x0A\0\0\0"s), 0, 0},
        {"bitmap of the lowest height", Bitmap("\x28\0\0\0\x0A\0\0\0\0\0\0\x80"s), 0, 0},
        {"bitmap cut off", Bitmap("\x28\0\0\0\x0A\0\0\0\x0A\0"s, 24), 0, 0},
        {"bitmap of an unknown header", Bitmap("\x05\0\0\0\x0A\0\0\0\x0A\0\0\0"s), 0, 0},
        {"jpeg", jpeg + "\xFF\xC0"s + frame, 772, 258},
        {"progressive jpeg after tables and filling",
         jpeg + "\xFF\xC4\x00\x05\x01\x02\x03\xFF\xFF\xFF\xC2"s + frame, 772, 258},
        {"jpeg cut off in the frame", jpeg + "\xFF\xC0\x00\x0B\x08\x01"s, 0, 0},
        {"jpeg with data before the frame", jpeg + "\xFF\xDA\x00\x02\xFF\xC0"s + frame, 0, 0},
        {"jpeg with a segment of no length", jpeg + "\xFF\xE1\x00\x00\xFF\xC0"s + frame, 0, 0},
        {"jpeg of no height", jpeg + "\xFF\xC0\x00\x0B\x08\x00\x00\x03\x04"s, 0, 0},
        {"filling without end", "\xFF\xD8"s + std::string(5000, '\xFF'), 0, 0},
        {"another format", "\x89PNG\r\n\x1A\n"s + std::string(40, '\x01'), 0, 0},
        {"nothing", "", 0, 0},
    };
    for (const HEADER_CASE& c : cases) {
        int width = 0, height = 0;
        EXPECT_EQ(Picture_Header(c.BYTES, width, height), c.WIDTH > 0) << c.WHAT;
        EXPECT_EQ(width, c.WIDTH) << c.WHAT;
        EXPECT_EQ(height, c.HEIGHT) << c.WHAT;
    }
    int width, height;
    EXPECT_FALSE(Picture_Size("/", width, height));
}

}   // namespace
}   // namespace sm::test

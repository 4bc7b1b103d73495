#include "editors/map_editor.h"

#include "support/board.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

TEST(Map_Scale, AnExactMultipleAddsNoColumnAndARemainderAddsOne)
{
    // 600 pixels are 100 km: 6 pixels a kilometre. 1008 / 6 = 168 exactly, 1010 / 6 leaves 2.
    const MAP_GRID grid = Grid_For(600, 100, 1008, 1010);
    EXPECT_EQ(grid.SCALE, 6);
    EXPECT_EQ(grid.WIDTH, 6);
    EXPECT_EQ(grid.COLS, 168);
    EXPECT_EQ(grid.ROWS, 169);
    EXPECT_EQ(grid.COUNT, 28392);
    EXPECT_FALSE(grid.TOO_SMALL);
    EXPECT_EQ(Grid_Report(grid)[1], "Number of Squares: 28392");
}

TEST(Map_Scale, SmallScalesAreRefusedAndLeaveOneSquare)
{
    Board board(4, 4);
    EXPECT_FALSE(Grid_For(250, 100, 900, 900).WIDTH >= 3);   // 2.5 rounds to the even 2
    EXPECT_TRUE(Grid_For(250, 100, 900, 900).TOO_SMALL);
    EXPECT_EQ(Grid_For(350, 100, 900, 900).WIDTH, 4);         // 3.5 rounds to the even 4
    EXPECT_FALSE(Grid_For(300, 100, 1200, 1125).TOO_SMALL);   // 400 x 375 = 150000
    EXPECT_TRUE(Grid_For(300, 100, 1203, 1125).TOO_SMALL);    // 401 x 375
    EXPECT_TRUE(Grid_For(50, 0, 900, 900).TOO_SMALL);         // no distance: 1 pixel a kilometre
    EXPECT_TRUE(Grid_For(32767, 1e-30f, 900, 900).TOO_SMALL);
    EXPECT_FALSE(Use_Map_Grid(Grid_For(250, 100, 900, 900)));
    EXPECT_TRUE(board.SCREEN.Heard(
        "box", "Map Editor Instructions|The mapscale for this map is small.  Use a larger scale map!"));
    EXPECT_EQ(HEXCOUNT, 1);
    EXPECT_EQ(HEXWIDTH, 10);
    EXPECT_TRUE(Use_Map_Grid(Grid_For(1180, 100, 1512, 1080)));   // 11.8: squares of 12
    EXPECT_EQ(MAPSCALE, 11.8f);
    EXPECT_EQ(NUMCOLS, 126);
    EXPECT_EQ(HEXCOUNT, 126 * 90);
}

TEST(Map_Frame, TwoKnownPointsGiveTheCorner)
{
    Board board(4, 4);
    // From (100, 50) to (300, 250): 1 degree east, 2 degrees south in 200 pixels each.
    ASSERT_TRUE(Set_Frame({100, 50, 52.0f, 11.0f}, {300, 250, 50.0f, 12.0f}));
    EXPECT_EQ(DLONGX, 0.005f);
    EXPECT_EQ(DLATY, -0.01f);
    EXPECT_EQ(ULLONG, 10.5f);
    EXPECT_EQ(ULLAT, 52.5f);
    EXPECT_FALSE(Set_Frame({100, 50, 0, 0}, {100, 250, 1, 1}));
    EXPECT_FALSE(Set_Frame({100, 50, 3e38f, 0}, {300, 250, -3e38f, 1}));
    EXPECT_EQ(ULLONG, 10.5f);
}

TEST(Map_Save, TheGameKeepsTheLastPartOfTheName)
{
    Scratch_Folder folder;
    Board board(2, 1);
    HEXMAP[2].TVALUE = 4;
    EXPECT_FALSE(Save_Terrain_As());   // cancelled
    board.SCREEN.FILES = {(folder / "New Ground.ter").string()};
    EXPECT_TRUE(Save_Terrain_As());
    EXPECT_TRUE(board.SCREEN.Heard("file", "Save Terrain File|Terrain|Terrain Files (*.ter)|*.ter|"));
    EXPECT_TRUE(board.SCREEN.Heard("box", "File Save is Complete!"));
    EXPECT_EQ(TERRAIN_FILE, "New Ground.ter");
    EXPECT_EQ(File_Content(folder / "New Ground.ter").size(), 42u);
    TERRAIN_FILE = "";
    board.SCREEN.FILES = {(folder / "none/x.ter").string()};
    EXPECT_FALSE(Save_Terrain_As());
    EXPECT_TRUE(TERRAIN_FILE.Empty());
}

}   // namespace
}   // namespace sm::test

#include "terrain/sight.h"

#include "support/board.h"
#include "support/fields.h"
#include "support/log_lines.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

// Cells of 10 pixels, centres at 5, 15, 25 ... One step is 10 pixels.

TEST(Line_Of_Sight_Test, TheFirstScreeningCellEndsTheLine)
{
    Board board({"........", "........", "....^.^.", "........"});
    const int unit = board.Place(BLUE, 5, 25);
    // 70 pixels east: 7 steps of 10; samples at 15, 25, 35, 45 (column 5, high).
    EXPECT_EQ(Line_Of_Sight(unit, 75, 25), 4);
    EXPECT_EQ(Line_Of_Sight(unit, 35, 25), 0);
    // Samples run at 22, 19, 16 ... over rows 3 and 2: none on high ground.
    EXPECT_EQ(Line_Of_Sight(unit, 75, 5), 0);
    // A target on the high cell itself: the last of the 4 steps.
    EXPECT_EQ(Line_Of_Sight(unit, 45, 25), 4);
}

TEST(Line_Of_Sight_Test, AUnitOnHighGroundSeesOverEverything)
{
    Board board({"^.^^^..."});
    const int unit = board.Place(BLUE, 5, 5);
    EXPECT_EQ(Line_Of_Sight(unit, 75, 5), 0);
    // From the open cell beside it: samples at 25 (column 3) first.
    Place_Unit(unit, 15, 5);
    EXPECT_EQ(Line_Of_Sight(unit, 75, 5), 1);
}

TEST(Line_Of_Sight_Test, TheExemptionOfTheTargetIsReadInTheFirstColumn)
{
    Board board({"........", "........", "..^.....", "^......."});
    const int unit = board.Place(BLUE, 5, 25);
    // Target (45, 25): 4 + 2 - 1 = cell 5, the first of column 2, low. Samples 15, 25 (column 3 of row 3, high).
    EXPECT_EQ(Line_Of_Sight(unit, 45, 25), 2);
    // Target (35, 25): 3 + 2 - 1 = cell 4, the last of column 1, which is high: clear, though the same hill lies
    // between.
    EXPECT_EQ(Line_Of_Sight(unit, 35, 25), 0);
}

TEST(Line_Of_Sight_Test, FaultsAreLoggedAndAnswerClear)
{
    Board board({"....", ".^..", "...."});
    const Log_Lines log;
    const int unit = board.Place(BLUE, 5, 15);
    EXPECT_EQ(Line_Of_Sight(unit, 5, 15), 0);   // 0 + 1 - 1 = 0: no cell
    EXPECT_EQ(board.SCREEN.Count("beep", ""), 1);
    EXPECT_EQ(Line_Of_Sight(unit, 115, 35), 0);   // 11 + 3 - 1 = 13 of 12
    UNIT[unit].HEXNUM = 0;
    EXPECT_EQ(Line_Of_Sight(unit, 35, 15), 0);
    EXPECT_EQ(log.All(), (std::vector<std::string>{"LOS Error: Hex number is not valid!",
                                                   "LOS Error: Hex number is not valid!",
                                                   "LOS Error: Unit hex number is not valid!"}));
}

TEST(Line_Of_Sight_Test, ANearTargetGetsOneSampleAndSamplesOffThePictureAreSkipped)
{
    Board board({"..^.", "....", "....", "...."});
    const int unit = board.Place(BLUE, 18, 8);
    EXPECT_EQ(Line_Of_Sight(unit, 21, 8), 1);   // 3 pixels, one sample, in the high cell
    // 4 cells up from row 1: samples at y -2, -12 ... are off the picture.
    Give(UNIT[unit], "X 25, Y 15");
    UNIT[unit].HEXNUM = Hex_Number(25, 15);
    EXPECT_EQ(Line_Of_Sight(unit, 65, -35), 0);   // 64 pixels: 6 steps of 6.67 and -8.33; 6 - 3 - 1 = cell 2
}

TEST(Line_Of_Sight_Test, RoundingAddsUpAlongTheLine)
{
    Board board({"..............", "............^."});
    const int unit = board.Place(BLUE, 0, 10);
    // 124 pixels, 12 steps of f32(124 / 12) = 10.33: each rounds back to 10, so the last sample is 120 (column
    // 13), not 124.
    EXPECT_EQ(Line_Of_Sight(unit, 124, 10), 12);
    // 128 pixels, 12 steps of 10.67: each rounds up to 11; sample 11 is at 121, sample 12 at 132 lies beyond the
    // target.
    EXPECT_EQ(Line_Of_Sight(unit, 128, 10), 11);
}

}   // namespace
}   // namespace sm::test

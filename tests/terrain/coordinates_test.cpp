#include "terrain/coordinates.h"

#include "support/board.h"
#include "terrain/map.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace sm::test {
namespace {

TEST(Grid_Reference_Test, GermanyReadsLettersAndWholeKilometres)
{
    Board board(1, 1);
    Choose_Stock_Map(1);
    EXPECT_TRUE(Has_Grid_Data());
    struct CASE {
        int X, Y;
        const char* TEXT;
    };
    const CASE cases[] = {
        {24, 30, "PC 4276"},       // 24 / 6 + 38, 81 - 30 / 6
        {368, 489, "PC 9900"},     // 61 + 38, 81 - 81
        {0, 490, "PB 3999"},       // 0 + 39, 180 - 81
        {368, 490, "PB 0099"},     // 61 + 39 is exactly 100
        {369, 0, "QC 0081"},       // the band's left edge
        {374, 490, "QB 0099"},     // 5 / 6
        {418, 1007, "QB 0813"},    // 49 / 6, 180 - 167
        {419, 491, "TT 9100"},     // zone 33 begins: 91 + 0, 81 - 81
        {471, 492, "TS 9999"},     // 91 + 52 / 6, 181 - 82
        {472, 480, "UT 0100"},     // 1 + 0, 80 - 80
        {1007, 1007, "US 9012"},   // 1 + 535 / 6, 179 - 167
        {1008, 0, "No UTM Data"}, {-1, 0, "No UTM Data"}, {0, 1008, "No UTM Data"},
    };
    for (const CASE& c : cases) EXPECT_EQ(Grid_Reference(c.X, c.Y), c.TEXT) << c.X << ", " << c.Y;
}

/// Places whose true square and kilometres in it (WGS 84) are known, by latitude and longitude.
TEST(Grid_Reference_Test, KnownPlacesLieInTheirTrueSquares)
{
    struct PLACE {
        const char* NAME;
        int MAP;
        float LAT, LONG;
        const char* LETTERS;
        int EAST, NORTH, WITHIN;
    };
    const PLACE places[] = {
        {"Naumburg", 1, 51.1549f, 11.8040f, "PB", 96, 70, 2},
        {"Leipzig", 1, 51.3455f, 12.3821f, "US", 17, 91, 2},
        {"Topeka", 2, 39.0483f, 95.6780f, "TD", 68, 25, 2},
        {"Kansas City airport", 2, 39.2976f, 94.7139f, "UD", 52, 51, 2},
        {"Kuwait", 3, 29.3697f, 47.9783f, "QT", 89, 52, 11},
        {"Basra", 3, 30.5156f, 47.7804f, "QU", 66, 79, 11},
        {"Fort Irwin", 4, 35.2628f, 116.6848f, "NV", 28, 2, 8},
        {"Baker", 4, 35.2650f, 116.0736f, "NV", 84, 2, 8},
        {"San Jose", 5, 12.3528f, 121.0676f, "TP", 89, 66, 6},
        {"Mamburao", 5, 13.2233f, 120.5960f, "TQ", 39, 63, 6},
        {"Anzio", 6, 41.4473f, 12.6290f, "UF", 1, 91, 6},
        {"Monte Cassino", 6, 41.4903f, 13.8139f, "VF", 1, 93, 6},
    };
    Board board(1, 1);
    for (const PLACE& place : places) {
        Choose_Stock_Map(place.MAP);
        const int x = static_cast<int>((place.LONG - ULLONG) / DLONGX);
        const int y = static_cast<int>((place.LAT - ULLAT) / DLATY);
        const std::string text = Grid_Reference(x, y);
        ASSERT_EQ(text.size(), 7u) << place.NAME << ": " << text;
        EXPECT_EQ(text.substr(0, 2), place.LETTERS) << place.NAME;
        EXPECT_LE(std::abs(std::stoi(text.substr(3, 2)) - place.EAST), place.WITHIN) << place.NAME << ": " << text;
        EXPECT_LE(std::abs(std::stoi(text.substr(5, 2)) - place.NORTH), place.WITHIN)
            << place.NAME << ": " << text;
    }
}

TEST(Grid_Reference_Test, EveryPixelOfAStockMapHasAReference)
{
    Board board(1, 1);
    for (int map = 1; map <= STOCK_MAPS; ++map) {
        Choose_Stock_Map(map);
        const int width = Stock_Map(map).COLS * Stock_Map(map).WIDTH;
        const int height = Stock_Map(map).ROWS * Stock_Map(map).WIDTH;
        int without = 0;
        for (int x = 0; x < width; ++x)
            for (int y = 0; y < height; y += x % 16 == 0 ? 1 : 16)
                without += Grid_Reference(x, y).size() == 7 ? 0 : 1;
        EXPECT_EQ(without, 0) << map;
        EXPECT_EQ(Grid_Reference(width, 0), "No UTM Data") << map;
    }
}

TEST(Grid_Reference_Test, OtherMapsHaveNoData)
{
    Board board(1, 1);
    for (const int scenario : {0, -1, 7}) {
        SCENARION = scenario;
        EXPECT_FALSE(Has_Grid_Data());
        EXPECT_EQ(Grid_Reference(5, 5), "No UTM Data");
    }
    Choose_Stock_Map(1);
    MAPSCALE = 1;   // a broken scenario: 300 km east of the corner is in no square
    EXPECT_EQ(Grid_Reference(300, 0), "No UTM Data");
    MAPSCALE = 0;
    EXPECT_EQ(Grid_Reference(4, 5), "PC 4276");   // a divisor is at least 1
}

TEST(Lat_Long_Test, TheFrameTellsWhichHemisphereIsPositive)
{
    Board board(1, 1);
    DLATY = 0;
    DLONGX = 1;
    EXPECT_EQ(Lat_Long(0, 0), "LAT/LONG: OFF");
    // Steps of a quarter and an eighth of a degree are exact in binary.
    ULLAT = 1.0f;
    DLATY = -0.25f;
    ULLONG = -0.5f;
    DLONGX = 0.125f;
    EXPECT_EQ(Lat_Long(0, 0), "LAT/LONG: 1 00' N  0 30' W");
    EXPECT_EQ(Lat_Long(5, 5), "LAT/LONG: 0 15' S  0 07' E");   // 7.5 minutes
    // America: western longitudes are positive and fall toward the east.
    ULLONG = 95.5f;
    DLONGX = -0.125f;
    EXPECT_EQ(Lat_Long(2, 0), "LAT/LONG: 1 00' N  95 15' W");
    DLATY = 0.25f;   // southern latitudes positive
    EXPECT_EQ(Lat_Long(2, 1), "LAT/LONG: 1 15' S  95 15' W");
}

}   // namespace
}   // namespace sm::test

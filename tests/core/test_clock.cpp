#include "core/clock.h"
#include "support/board.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

struct MOMENT {
    const char* TIME;
    const char* DAY;
    const char* MONTH;
};

/// The clock after one turn of a length.
MOMENT After(int turn_length, const char* time, const char* day = "9", const char* month = "Feb")
{
    static std::string text[3];
    TurnLength = turn_length;
    GTIME = time;
    GDAY = day;
    GMONTH = month;
    Advance_Clock();
    text[0] = GTIME.Str();
    text[1] = GDAY.Str();
    text[2] = GMONTH.Str();
    return {text[0].c_str(), text[1].c_str(), text[2].c_str()};
}

}   // namespace

TEST(Clock, MidnightIsWrittenWithThreeZerosAndTheDayChangesAtTheTurnAfterIt)
{
    Board board(2, 2);
    EXPECT_STREQ(After(0, "0900").TIME, "1100");
    MOMENT m = After(0, "2300");
    EXPECT_STREQ(m.TIME, "0100");
    EXPECT_STREQ(m.DAY, "10");
    m = After(0, "2200");
    EXPECT_STREQ(m.TIME, "000");
    EXPECT_STREQ(m.DAY, "9");
    m = After(0, "000");
    EXPECT_STREQ(m.TIME, "0200");
    EXPECT_STREQ(m.DAY, "10");
    EXPECT_STREQ(After(1, "2300").TIME, "000");
    EXPECT_STREQ(After(1, "000").DAY, "10");
    EXPECT_STREQ(After(2, "0945").TIME, "1000");
    EXPECT_STREQ(After(2, "2345").TIME, "000");
    m = After(2, "000");
    EXPECT_STREQ(m.TIME, "0015");
    EXPECT_STREQ(m.DAY, "10");
    EXPECT_STREQ(After(2, "0950").TIME, "0965");   // only quarters of an hour meet the full hour
    EXPECT_STREQ(After(0, "2147483647").TIME, "30567");   // 32767 at most, 200 on, a day less
}

TEST(Clock, MonthsRollOnAndThereIsNoLeapDay)
{
    Board board(2, 2);
    const char* rolls[][4] = {{"28", "Feb", "01", "Mar"}, {"31", "Jan", "01", "Feb"}, {"30", "Apr", "01", "May"},
                              {"31", "Dec", "01", "Jan"}, {"8", "Feb", "09", "Feb"},  {"30", "Jan", "31", "Jan"}};
    for (const auto& roll : rolls) {
        const MOMENT m = After(1, "000", roll[0], roll[1]);
        EXPECT_STREQ(m.DAY, roll[2]) << roll[1];
        EXPECT_STREQ(m.MONTH, roll[3]) << roll[1];
    }
    EXPECT_EQ(DDAY, 6);
}

TEST(Clock, DawnIsDayAndDuskIsNight)
{
    Board board(2, 2);
    BMNT = 600;
    EENT = 2100;
    const std::pair<const char*, const char*> hours[] = {{"0559", "Night"}, {"0600", "Day"}, {"2059", "Day"}, {"2100", "Night"}};
    for (const auto& [time, light] : hours) {
        GTIME = time;
        Update_Header();
        EXPECT_EQ(TIME_OF_DAY, light) << time;
    }
    WINDD = 3;
    GTURN = 4;
    EXPECT_EQ(Header().TURN, "     Turn: 4");
    EXPECT_EQ(Header().WIND, "Wind: 135 deg");
    EXPECT_EQ(Header().PICTURE, 102);
}

TEST(Clock, TheMorningGrantsAirStrikesOnceAndLeavesTheBombersAlone)
{
    Board board(2, 2);
    ABCAS = 12;
    AOCAS = 7;
    ABCAS2 = AOCAS2 = 9;
    After(0, "0300");
    EXPECT_EQ(BTOTAL, 0);
    After(0, "0500");   // 0700 in two-hour turns
    EXPECT_EQ(BTOTAL, 12);
    EXPECT_EQ(OTOTAL, 7);
    EXPECT_EQ(BTOTAL2, 0);
    EXPECT_EQ(board.SCREEN.Count("box", "The new ATO has arrived."), 1);
    BTOTAL = 1;
    After(1, "0600");   // 0700 grants nothing in one-hour turns
    EXPECT_EQ(BTOTAL, 1);
    GameType = 8;
    After(1, "0500");
    EXPECT_EQ(BTOTAL, 12);
    EXPECT_EQ(board.SCREEN.Count("box", "ATO"), 1);   // a network seat is told on the status line
    EXPECT_TRUE(board.SCREEN.Heard("status", "ATO"));
}

#include "core/clock.h"
#include "support/board.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace sm;
using namespace sm::test;

namespace {

/// The clock after one turn of a length: "hour day month".
std::string After(int turn_length, const char* time, const char* day = "9", const char* month = "Feb")
{
    TurnLength = turn_length;
    GTIME = time;
    GDAY = day;
    GMONTH = month;
    Advance_Clock();
    return Cat(GTIME, " ", GDAY, " ", GMONTH);
}

}   // namespace

TEST(Clock, MidnightIsWrittenWithThreeZerosAndTheDayChangesAtTheTurnAfterIt)
{
    Board board(2, 2);
    const std::tuple<int, const char*, const char*> turns[] = {
        {0, "0900", "1100 9 Feb"}, {0, "2300", "0100 10 Feb"}, {0, "2200", "000 9 Feb"},
        {0, "000", "0200 10 Feb"}, {1, "2300", "000 9 Feb"},   {1, "000", "0100 10 Feb"},
        {2, "0945", "1000 9 Feb"}, {2, "2345", "000 9 Feb"},   {2, "000", "0015 10 Feb"},
        {2, "0950", "0965 9 Feb"}};   // only quarters of an hour meet the full hour
    for (const auto& [length, time, after] : turns) EXPECT_EQ(After(length, time), after) << time;
    EXPECT_TRUE(After(0, "2147483647").starts_with("30567 "));   // 32767 at most, 200 on, a day less
}

TEST(Clock, MonthsRollOnAndThereIsNoLeapDay)
{
    Board board(2, 2);
    const char* rolls[][3] = {{"28", "Feb", "01 Mar"}, {"31", "Jan", "01 Feb"}, {"30", "Apr", "01 May"},
                              {"31", "Dec", "01 Jan"}, {"8", "Feb", "09 Feb"},  {"30", "Jan", "31 Jan"}};
    for (const auto& [day, month, next] : rolls) EXPECT_EQ(After(1, "000", day, month), Cat("0100 ", next));
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
    EXPECT_EQ(Row(BTOTAL, OTOTAL, BTOTAL2), Row(12, 7, 0));
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

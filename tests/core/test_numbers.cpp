#include "core/numbers.h"
#include "core/text.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

TEST(Numbers, ARealStoredIntoAFieldRoundsHalvesToEven)
{
    EXPECT_EQ(Row(Int16(2.5f), Int16(3.5f), Int16(-2.5f), Int16(-3.5f), Int16(2.4999998f)), Row(2, 4, -2, -4, 2));
    EXPECT_EQ(Round_Even(-0.5), 0);
}

TEST(Numbers, AFieldNeverWraps)
{
    EXPECT_EQ(Int16(32767), 32767);
    EXPECT_THROW(Int16(32768), Game_Error);
    EXPECT_THROW(Int16(32767.5f), Game_Error);   // rounds to 32768
    Int16 n = -32768;
    EXPECT_THROW(n -= 1, Game_Error);
    EXPECT_EQ(n, -32768);   // the failed store left it alone
    EXPECT_THROW(Round_Even(3e9), Game_Error);
    EXPECT_THROW(Floor_Int(std::numeric_limits<float>::quiet_NaN()), Game_Error);
    EXPECT_EQ(Saturate_16(40000), 32767);
}

TEST(Numbers, FloorAndTruncationPartBelowZero)
{
    EXPECT_EQ(Row(Floor_Int(-2.5f), Floor_Int(-3.0f), Floor_Int(7.99f)), Row(-3, -3, 7));
    EXPECT_EQ(Truncate(-2.5f), -2);
}

TEST(Numbers, WholeDivisionRoundsBothOperandsFirst)
{
    EXPECT_EQ(Int_Div(100, 11.8f), 8);     // 11.8 divides as 12
    EXPECT_EQ(Int_Div(20.5f, 10.5f), 2);   // 20 / 10: both halves go to even
    EXPECT_EQ(Int_Div(-7, 2), -3);         // toward zero
    EXPECT_EQ(Int_Div(9, 0.2f), 9);        // the divisor is at least 1
}

TEST(Numbers, TextOfARealIsTheShortestPlainDecimalThatReadsBack)
{
    EXPECT_EQ(To_Text(0.1f), "0.1");
    EXPECT_EQ(To_Text(6.0f), "6");
    EXPECT_EQ(To_Text(-0.001497006f), "-0.001497006");
    EXPECT_EQ(To_Text(1e-7f), "0.0000001");
    EXPECT_EQ(To_Text(16777216.0f), "16777216");
    for (const float value : {0.3f, 1.0f / 3, 12345.678f, 5.9604645e-8f}) EXPECT_EQ(Parse_Float(To_Text(value)), value);
    EXPECT_EQ(Parse_Float(".5"), 0.5f);
    EXPECT_EQ(Parse_Float("1.5e3"), 1500.0f);
    for (const char* word : {"", "x", "1x", "1 2", "inf", "nan", "--1", "+-1"}) EXPECT_FALSE(Parse_Float(word)) << word;
    EXPECT_EQ(Parse_Int("+12"), 12);
    EXPECT_FALSE(Parse_Int("99999999999"));
}

TEST(Texts, AFixedTextIsPaddedCutAndReadWithoutItsTrailingBlanks)
{
    Text<5> t = "ab";
    EXPECT_EQ(t.Full(), "ab   ");
    EXPECT_EQ(std::string_view(t), "ab");
    t = "  abcdef";
    EXPECT_EQ(t.Full(), "  abc");   // leading blanks are text
    EXPECT_EQ(Cat("<", t, ">"), "<  abc>");
}

TEST(Texts, SplittingATokenKeepsWhatFollowsTheFirstDelimiter)
{
    const char* splits[][3] = {
        {"KEY: a:b", "KEY", " a:b"}, {"end:", "end", ""}, {":rest", "", "rest"}, {"rest", "rest", ""}};
    for (const auto& [line, token, rest] : splits) {
        std::string left = line;
        EXPECT_EQ(Split_Token(left, ':'), token);
        EXPECT_EQ(left, rest) << line;
    }
}

TEST(Texts, WhatWouldBreakAFileOrAMessageIsReplacedAtTheEntry)
{
    EXPECT_EQ(Clean_Text("a\tb\"c\xA6" "d,e\n\x7F"), "a b'c|d,e  ");
    EXPECT_EQ(From_Utf8("\xC2\x85"), "?");   // a control character is none of the page
    EXPECT_EQ(From_Utf8("M\xC3\xBChle \xE2\x82\xAC \xF0\x9F\x98\x80"), "M\xFChle \x80 ?");
    EXPECT_EQ(To_Utf8("M\xFChle \x80"), "M\xC3\xBChle \xE2\x82\xAC");
    // What is no UTF-8 takes nothing of its neighbours along, and no other spelling of a character is let in.
    EXPECT_EQ(From_Utf8("M\xFChle \xC3: \xC0\xAE\xE0\x80\x8A\xE2\x82"), "M?hle ?: ???????");
}

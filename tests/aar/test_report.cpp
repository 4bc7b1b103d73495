#include "aar/battle_record.h"
#include "aar/odds.h"
#include "aar/victory.h"
#include "aar/victory_status.h"

#include "core/log.h"
#include "support/board.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

int Count(std::string_view text, std::string_view part)
{
    int n = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

}   // namespace

TEST(Report, TheStateOfEachTurnStandsInItWithEveryMessage)
{
    Board board(20, 20);
    const int blue = board.Place(BLUE, 55, 55, 5, 12.5f);
    board.Place(RED, 155, 155, 5, 20);
    UNIT[blue].NAME = "1-37 AR <\"M\xFCller\">";
    OBJ[7].OTYPE = 1;
    OBJ[7].OVALUE = 300;
    OBJ[7].OX = OBJ[7].OY = 100;
    GAMEFILE = "Test & Co.sce";
    GTURN = 0;
    MAXGTURN = 3;
    Power_Count();
    BATTLE_RECORD record = Begin_Record();
    GTURN = 1;
    OBJ[7].OID = BLUE;
    UNIT[blue].RCP2 = 6;
    BMANL = 6.5f;
    Power_Count();
    VSTATUS = 6;
    Record_Turn(record, {{BOTH, 55, 55, "Location: PC 4276 // MSG: M\xFCller fires <here>"}});
    record.OVER = true;
    const std::string text = Report_Text(record), html = Report_Html(record);
    EXPECT_NE(text.find("BLUE has won a decisive victory!"), text.npos);
    EXPECT_NE(text.find("  Maneuver                     6.5       0.0"), text.npos);
    EXPECT_NE(text.find("     1    Blue"), text.npos);
    EXPECT_NE(text.find("[ All ] Location: PC 4276 // MSG: M\xC3\xBCller fires <here>"), text.npos);
    EXPECT_NE(html.find("M\xC3\xBCller fires &lt;here&gt;"), html.npos);
    EXPECT_NE(html.find("1-37 AR &lt;&quot;M\xC3\xBCller&quot;&gt;, 100%"), html.npos);
    EXPECT_NE(html.find("After-action report: Test &amp; Co<"), html.npos);
    EXPECT_NE(html.find("<td>PC 4276</td><td>M\xC3\xBCller fires &lt;here&gt;</td>"), html.npos);
    EXPECT_EQ(Count(html, "<g class=\"forces\""), 2);
    // From 55 to 155 of 200 pixels, with a tenth more room: 110 from 50 on.
    EXPECT_NE(html.find("viewBox=\"50 50 110 110\" data-part=\"50 50 110 110\" data-whole=\"0 0 200 200\""),
              html.npos);
    EXPECT_EQ(Count(html, "<image"), 0);   // no picture file
    EXPECT_EQ(Count(html, "http"), 0);     // nothing is fetched from elsewhere
    EXPECT_EQ(Count(html, "<table"), Count(html, "</table>"));
    EXPECT_EQ(Count(html, "<g "), Count(html, "</g>"));
}

TEST(VictoryStatus, LossesAboveTheAllowedAreMarkedAndTheVerdictWaitsForTheFirstTurn)
{
    Board board(20, 20);
    BRCP1 = 100;
    RRCP1 = 200;
    BRCP3 = 80;
    RRCP3 = 150;
    MBLOSS = 20;
    MRLOSS = 24;
    GTURN = 0;
    VSTATUS = 1;
    static std::string log;
    Listen_To_Log([](std::string_view line) { log += std::string(line) + "\n"; });
    Victory_Status s = Show_Victory_Status();
    EXPECT_EQ(log, "RRCP3: 150\nRRCP1: 200\nBRCP3: 80\nBRCP1: 100\n"
                   "===============Red Losses - Yes ==================\nLoss: 25\n"
                   "================Blue Losses - No ==================\n");
    log.clear();
    BRCP3 = 0;   // wiped out
    EXPECT_EQ(Show_Victory_Status().BLUE_LOSSES, "Blue Losses: 100% !");
    EXPECT_NE(log.find("\nBRCP3!!: 0\nBRCP1!!: 100\n"), log.npos);
    Listen_To_Log(nullptr);
    BRCP3 = 80;
    EXPECT_EQ(s.BLUE_LOSSES, "Blue Losses: 20%");
    EXPECT_EQ(s.RED_LOSSES, "Red Losses: 25% !");
    EXPECT_EQ(s.VERDICT, "The game has not begun!");
    EXPECT_EQ(s.SCALE, 200.0f);
    GTURN = 2;
    AAR[2].BRCP = 80;
    s = Show_Victory_Status();
    EXPECT_EQ(s.VERDICT, "RED is winning a decisive victory!");
    ASSERT_EQ(s.CHART.size(), 2u);
    EXPECT_EQ(s.CHART[1].BLUE_POWER, 80.0f);
    GameOver = -1;
    VSTATUS = 2;
    EXPECT_EQ(Show_Victory_Status().VERDICT, "RED has won major victory!");
    EXPECT_STREQ(Verdict_Text(3, 7, true), "The battle is a draw!");
    EXPECT_STREQ(Verdict_Text(3, 0, false), "Neither side has an advantage!");
}

TEST(Odds, TheSpreadIsReadFromTheSortedValues)
{
    std::vector<double> values;
    for (int i = 100; i >= 1; --i) values.push_back(i);
    const SPREAD s = Spread_Of(values);
    EXPECT_EQ(s.LEAST, 1);
    EXPECT_EQ(s.LOW, 10);   // (100 - 1) x 10 / 100 = 9: the tenth value
    EXPECT_EQ(s.MIDDLE, 50);
    EXPECT_EQ(s.HIGH, 90);
    EXPECT_EQ(s.GREATEST, 100);
    EXPECT_EQ(s.MEAN, 50.5);
}

TEST(Odds, TextAndTableCountTheSameBattles)
{
    ODDS odds;
    odds.NAME = "x";
    odds.LAST_TURN = 15;
    for (int p = 1; p <= POSITIONS; ++p) {
        OUTCOME o{1, p <= 30 ? 6 : 1, p, 2 * p, 3, p <= 10 ? 81 : 80, 5.5f, 6, {3, 2, p % 2, p <= 25 ? 0 : p % 4},
                  {}};
        for (auto& holder : o.HOLDERS) holder = -1;
        o.HOLDERS[4] = p <= 60 ? 1 : 2;
        odds.BATTLES.push_back({o});
    }
    const std::string text = Odds_Text(odds), csv = Odds_Csv(odds), html = Odds_Html(odds);
    EXPECT_NE(text.find("     1            70             0             0             0             0             "
                        "0            30"),
              text.npos);
    EXPECT_NE(text.find("60 / 40"), text.npos);
    EXPECT_EQ(Count(csv, "\r\n"), 101);
    EXPECT_NE(csv.find("\r\n61,1,1,61,122,3,80,5.5,6,3,2,1,1,2\r\n"), csv.npos);
    EXPECT_NE(html.find("Blue decisive: 30"), html.npos);
    EXPECT_NE(text.find("After turn 1: Red is ahead in 70, neither side in 0, Blue in 30 of 100 battles."),
              text.npos);
    EXPECT_NE(text.find("  fires direct fires                   0       100\n"), text.npos);
    EXPECT_NE(text.find("  is resupplied                       50         0\n"), text.npos);
    EXPECT_NE(text.find("  keeps a fifth of its power         100        90\n"),
              text.npos);   // 81 percent lost in ten
    EXPECT_NE(text.find("  is ahead                            30        70\n"), text.npos);
    // 26..100 but the 19 multiples of 4: 56
    EXPECT_NE(html.find("Objectives change hands in 56 of 100 battles, 0 to 3 times, 1 in the middle."),
              html.npos);
}

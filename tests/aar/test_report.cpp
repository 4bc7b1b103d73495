#include "aar/battle_record.h"
#include "aar/odds.h"
#include "aar/victory.h"
#include "aar/victory_status.h"

#include "support/board.h"
#include "support/log_lines.h"
#include "support/numbers.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

void Expect_Parts(std::string_view text, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts) EXPECT_NE(text.find(part), text.npos) << part;
}

}   // namespace

TEST(Report, TheStateOfEachTurnStandsInItWithEveryMessage)
{
    Board board(20, 20);
    const int blue = board.Place(BLUE, 55, 55, 5, 12.5f);
    board.Place(RED, 155, 155, 5, 20);
    UNIT[blue].NAME = "1-37 AR <\"M\xFCller\">";
    OBJ[7] = {.OTYPE = 1, .OX = 100, .OY = 100, .OVALUE = 300};
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
    Expect_Parts(text, {"BLUE has won a decisive victory!", "  Maneuver                     6.5       0.0",
                        "     1    Blue", "[ All ] Location: PC 4276 // MSG: M\xC3\xBCller fires <here>"});
    // The view: from 55 to 155 of 200 pixels, with a tenth more room: 110 from 50 on.
    Expect_Parts(html, {"1-37 AR &lt;&quot;M\xC3\xBCller&quot;&gt;, 100%", "After-action report: Test &amp; Co<",
                        "<td>PC 4276</td><td>M\xC3\xBCller fires &lt;here&gt;</td>",
                        "viewBox=\"50 50 110 110\" data-part=\"50 50 110 110\" data-whole=\"0 0 200 200\""});
    EXPECT_EQ(Count_Of(html, "<g class=\"forces\""), 2);
    EXPECT_EQ(Count_Of(html, "<image"), 0);   // no picture file
    EXPECT_EQ(Count_Of(html, "http"), 0);     // nothing is fetched from elsewhere
    EXPECT_EQ(Count_Of(html, "<table"), Count_Of(html, "</table>"));
    EXPECT_EQ(Count_Of(html, "<g "), Count_Of(html, "</g>"));
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
    const Log_Lines log;
    Victory_Status s = Show_Victory_Status();
    EXPECT_EQ(log.All(),
              (std::vector<std::string>{"RRCP3: 150", "RRCP1: 200", "BRCP3: 80", "BRCP1: 100",
                                        "===============Red Losses - Yes ==================", "Loss: 25",
                                        "================Blue Losses - No =================="}));
    BRCP3 = 0;   // wiped out
    EXPECT_EQ(Show_Victory_Status().BLUE_LOSSES, "Blue Losses: 100% !");
    EXPECT_EQ(Row(log.Count("BRCP3!!: 0"), log.Count("BRCP1!!: 100")), Row(1, 1));
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
    // (100 - 1) x 10 / 100 = 9: the tenth value
    EXPECT_EQ((std::vector<double>{s.LEAST, s.LOW, s.MIDDLE, s.HIGH, s.GREATEST, s.MEAN}),
              (std::vector<double>{1, 10, 50, 90, 100, 50.5}));
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
    // 81 percent lost in ten; 26..100 but the 19 multiples of 4 make 56 changes of hands
    Expect_Parts(text,
                 {"     1            70             0             0             0             0             "
                  "0            30",
                  "60 / 40", "After turn 1: Red is ahead in 70, neither side in 0, Blue in 30 of 100 battles.",
                  "  fires direct fires                   0       100\n",
                  "  is resupplied                       50         0\n",
                  "  keeps a fifth of its power         100        90\n",
                  "  is ahead                            30        70\n"});
    Expect_Parts(html, {"Blue decisive: 30",
                        "Objectives change hands in 56 of 100 battles, 0 to 3 times, 1 in the middle."});
    Expect_Parts(csv, {"\r\n61,1,1,61,122,3,80,5.5,6,3,2,1,1,2\r\n"});
    EXPECT_EQ(Count_Of(csv, "\r\n"), 101);
}

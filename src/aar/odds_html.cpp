#include "aar/chart.h"
#include "aar/html.h"
#include "aar/odds.h"
#include "aar/odds_measures.h"
#include "core/game_state.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <iterator>

namespace sm {

namespace {

constexpr int VERDICTS = 7;
constexpr const char* VERDICT_CLASS[VERDICTS] = {"red", "red", "red", "even", "blue", "blue", "blue"};
constexpr const char* VERDICT_DEPTH[VERDICTS] = {"1", ".7", ".4", ".55", ".4", ".7", "1"};

std::string Turn_Number(const ODDS& odds, int turn)
{
    return To_Text(odds.BATTLES[0][static_cast<std::size_t>(turn)].TURN);
}

std::string Signs(const ODDS& odds)
{
    std::string s = "<table class=\"num\"><thead><tr><th>Battles of 100 in which a "
                    "side</th><th>Blue</th><th>Red</th></tr></thead>";
    for (const SIGN_ROW& sign : Signs_Of(odds))
        s += Cat("<tr><th>", sign.NAME, "</th><td>", To_Text(sign.BLUE_BATTLES), "</td><td>",
                 To_Text(sign.RED_BATTLES), "</td></tr>");
    return s + "</table>";
}

/// The verdicts of each turn as a stacked bar, Red at the left.
std::string Verdict_Bars(const ODDS& odds)
{
    constexpr int ROW = 26, LEFT = 56, BATTLE = 9, TOLD_FROM = 4;
    std::string s =
        Cat("<div class=\"wide\"><svg class=\"chart bars\" viewBox=\"0 0 ", To_Text(LEFT + 100 * BATTLE + 12), " ",
            To_Text(ROW * Turns_Of(odds) + 10), "\" role=\"img\" aria-label=\"Verdict by turn\">");
    for (int t = 0; t < Turns_Of(odds); ++t) {
        const int y = ROW * t + 7;
        s += Cat("<text class=\"axis\" x=\"", To_Text(LEFT - 10), "\" y=\"", To_Text(y + 14),
                 "\" text-anchor=\"end\">", t == 0 ? "turn " : "", Turn_Number(odds, t), "</text>");
        int x = LEFT;
        for (int k = 0; k < VERDICTS; ++k) {
            const int n = Count_Verdict(odds, t, VERDICTS_BY_SIDE[k]), width = n * BATTLE;
            if (n == 0) continue;
            s += Cat("<rect class=\"", VERDICT_CLASS[k], "\" fill-opacity=\"", VERDICT_DEPTH[k], "\" x=\"",
                     To_Text(x), "\" y=\"", To_Text(y), "\" width=\"", To_Text(width), "\" height=\"20\"><title>",
                     VERDICT_NAMES[k], ": ", To_Text(n), "</title></rect>");
            if (n >= TOLD_FROM)
                s += Cat("<text class=\"count\" x=\"", To_Text(x + width / 2), "\" y=\"", To_Text(y + 15),
                         "\" text-anchor=\"middle\" fill=\"",
                         VERDICT_DEPTH[k][0] == '1' || VERDICT_DEPTH[k][1] == '7' ? "#fff" : "#20262d", "\">",
                         To_Text(n), "</text>");
            x += width;
        }
    }
    s += "</svg></div><p class=\"key\">";
    for (int k = 0; k < VERDICTS; ++k)
        s += Cat("<span><i class=\"", VERDICT_CLASS[k], "\" style=\"opacity:", VERDICT_DEPTH[k], "\"></i>",
                 VERDICT_NAMES[k], "</span>");
    return s + "</p>";
}

CURVE Fan(const ODDS& odds, const char* name, const char* css, const MEASURE& measure)
{
    CURVE curve{name, css, {}, {{}, {}}};
    for (int t = 0; t < Turns_Of(odds); ++t) {
        const SPREAD spread = Spread_Of_Turn(odds, t, measure);
        curve.VALUES.push_back(spread.MIDDLE);
        curve.BANDS[0].LOW.push_back(spread.LEAST);
        curve.BANDS[0].HIGH.push_back(spread.GREATEST);
        curve.BANDS[1].LOW.push_back(spread.LOW);
        curve.BANDS[1].HIGH.push_back(spread.HIGH);
    }
    return curve;
}

std::string Charts(const ODDS& odds)
{
    static constexpr const char* TITLES[] = {"Victory points", "Losses, percent", "Combat power"};
    std::vector<int> turns;
    for (const OUTCOME& o : odds.BATTLES[0]) turns.push_back(o.TURN);
    std::string s = "<section class=\"charts\">";
    for (std::size_t i = 0; i < std::size(TITLES); ++i)
        s +=
            Html_Chart(TITLES[i], turns,
                       {Fan(odds, "Blue", "blue", MEASURES[2 * i]), Fan(odds, "Red", "red", MEASURES[2 * i + 1])});
    return s + "</section><p class=\"quiet\">The line is the middle of the hundred battles, the darker band holds "
               "the eighty around it, the "
               "lighter one all of them.</p>";
}

/// Blue's share of a cell from the left, Red's from the right.
std::string Share_Cell(int blue, int red)
{
    return Cat("<td style=\"background:linear-gradient(90deg,var(--pale-blue) ", To_Text(blue), "%,var(--pale) ",
               To_Text(blue), "% ", To_Text(100 - red), "%,var(--pale-red) ", To_Text(100 - red), "%)\">",
               To_Text(blue), " / ", To_Text(red), "</td>");
}

std::string Objectives(const ODDS& odds)
{
    const std::vector<int> objectives = Objectives_Of(odds);
    if (objectives.empty()) return {};
    std::string s = Cat("<section><h2>Objectives</h2><p>", Changes_Of_Hands(odds),
                        "</p><div class=\"wide\"><table class=\"share\"><caption>Battles of 100 in "
                        "which Blue / Red holds them, by turn</caption><thead><tr><th>Objective</th>");
    for (int t = 0; t < Turns_Of(odds); ++t) s += Cat("<th>", Turn_Number(odds, t), "</th>");
    s += "</tr></thead>";
    for (const int o : objectives) {
        s += Cat("<tr><th>", To_Text(o + 1), "</th>");
        for (int t = 0; t < Turns_Of(odds); ++t)
            s += Share_Cell(Count_Held(odds, t, o, BLUE), Count_Held(odds, t, o, RED));
        s += "</tr>";
    }
    return s + "</table></div></section>";
}

std::string Verdict_Table(const ODDS& odds)
{
    std::string s = "<details><summary>Verdicts in figures</summary><div class=\"wide\"><table "
                    "class=\"num\"><thead><tr><th>Turn</th>";
    for (const char* name : VERDICT_NAMES) s += Cat("<th>", name, "</th>");
    s += "</tr></thead>";
    for (int t = 0; t < Turns_Of(odds); ++t) {
        s += Cat("<tr><th>", Turn_Number(odds, t), "</th>");
        for (const int status : VERDICTS_BY_SIDE)
            s += Cat("<td>", To_Text(Count_Verdict(odds, t, status)), "</td>");
        s += "</tr>";
    }
    return s + "</table></div></details>";
}

std::string Measure_Table(const ODDS& odds, const MEASURE& measure)
{
    std::string s = Cat("<details><summary>", measure.NAME,
                        "</summary><table class=\"num\"><thead><tr><th>Turn</th><th>least</th><th>10%</th>"
                        "<th>middle</th><th>90%</th><th>greatest</th><th>mean</th></tr></thead>");
    for (int t = 0; t < Turns_Of(odds); ++t) {
        const SPREAD spread = Spread_Of_Turn(odds, t, measure);
        s += Cat("<tr><th>", Turn_Number(odds, t), "</th>");
        for (const double v : {spread.LEAST, spread.LOW, spread.MIDDLE, spread.HIGH, spread.GREATEST, spread.MEAN})
            s += Cat("<td>", Html_Number(v), "</td>");
        s += "</tr>";
    }
    return s + "</table></details>";
}

}   // namespace

std::string Odds_Html(const ODDS& odds)
{
    std::string s = Cat(Html_Head(Cat("Odds: ", odds.NAME)), "<h1>Odds: ", Html_Text(odds.NAME),
                        "</h1><p class=\"quiet\">The same game ", Extent_Of_Odds(odds),
                        ": not a sample but every outcome that the dice hold.</p><p class=\"verdict\">",
                        Verdict_Of_Odds(odds), "</p>", Signs(odds), "<h2>Verdict by turn</h2>", Verdict_Bars(odds),
                        Verdict_Table(odds), "<h2>Points, losses, power</h2>", Charts(odds));
    for (const MEASURE& measure : MEASURES) s += Measure_Table(odds, measure);
    return Cat(s, Objectives(odds), Html_End());
}

}   // namespace sm

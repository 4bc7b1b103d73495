#include "aar/odds.h"

#include "aar/html.h"
#include "aar/victory.h"
#include "aar/victory_status.h"
#include "core/game_state.h"

#include <algorithm>
#include <functional>

namespace sm {

namespace {

/// VSTATUS from the best for Red to the best for Blue.
constexpr int BY_SIDE[] = {1, 2, 3, 7, 4, 5, 6};
constexpr const char* SHORT_NAME[] = {"Red decisive", "Red major", "Red minor", "Even", "Blue minor", "Blue major", "Blue decisive"};

std::string Right(std::string text, std::size_t width)
{
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}
std::string Left(std::string text, std::size_t width)
{
    return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
}

int Turns(const ODDS& odds) { return odds.BATTLES.empty() ? 0 : static_cast<int>(odds.BATTLES[0].size()); }

int Count(const ODDS& odds, int turn, const std::function<bool(const OUTCOME&)>& test)
{
    int n = 0;
    for (const auto& battle : odds.BATTLES) n += test(battle[turn]) ? 1 : 0;
    return n;
}

struct MEASURE {
    const char* NAME;
    double (*VALUE)(const OUTCOME&);
};
constexpr MEASURE MEASURES[] = {
    {"Blue points", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_POINTS); }},
    {"Red points", [](const OUTCOME& o) { return static_cast<double>(o.RED_POINTS); }},
    {"Blue losses, %", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_LOSS); }},
    {"Red losses, %", [](const OUTCOME& o) { return static_cast<double>(o.RED_LOSS); }},
    {"Blue power", [](const OUTCOME& o) { return static_cast<double>(o.BLUE_POWER); }},
    {"Red power", [](const OUTCOME& o) { return static_cast<double>(o.RED_POWER); }},
};

SPREAD Spread(const ODDS& odds, int turn, const MEASURE& measure)
{
    std::vector<double> values;
    for (const auto& battle : odds.BATTLES) values.push_back(measure.VALUE(battle[turn]));
    return Spread_Of(std::move(values));
}

std::vector<int> Objectives(const ODDS& odds)
{
    std::vector<int> list;
    for (int o = 0; o < 50; ++o)
        if (Turns(odds) > 0 && odds.BATTLES[0][0].HOLDERS[o] >= 0) list.push_back(o);
    return list;
}

/// "61 B 8 -": of 100 battles, how many Blue holds the objective in, and how many nobody does.
std::string Possession(const ODDS& odds, int turn, int objective, char blank)
{
    const int blue = Count(odds, turn, [&](const OUTCOME& o) { return o.HOLDERS[objective] == BLUE; });
    const int red = Count(odds, turn, [&](const OUTCOME& o) { return o.HOLDERS[objective] == RED; });
    return Cat(To_Text(blue), std::string(1, blank), "/", std::string(1, blank), To_Text(red));
}

std::string Title(const ODDS& odds)
{
    return Cat(odds.NAME.empty() ? std::string("Battle") : odds.NAME, " from all 100 dice positions, turns ",
               To_Text(odds.FIRST_TURN + 1), " to ", To_Text(odds.FIRST_TURN + Turns(odds)), " of ", To_Text(odds.LAST_TURN));
}

}   // namespace

OUTCOME Note_Outcome()
{
    OUTCOME o{GTURN, VSTATUS, BLUEVP, REDVP, Loss_Percent(BLUE), Loss_Percent(RED), BRCP3, RRCP3, {}};
    for (int i = 1; i <= MAX_OBJ; ++i) o.HOLDERS[i - 1] = static_cast<std::int8_t>(OBJ[i].OTYPE == 1 ? int{OBJ[i].OID} : -1);
    return o;
}

SPREAD Spread_Of(std::vector<double> values)
{
    if (values.empty()) return {};
    std::sort(values.begin(), values.end());
    double sum = 0;
    for (const double v : values) sum += v;
    const auto at = [&](int percent) { return values[(values.size() - 1) * static_cast<std::size_t>(percent) / 100]; };
    return {values.front(), at(10), at(50), at(90), values.back(), sum / static_cast<double>(values.size())};
}

std::string Odds_Text(const ODDS& odds)
{
    std::string s = Cat(Title(odds), "\n\nVerdict, battles of 100\n  turn");
    for (const char* name : SHORT_NAME) s += Right(name, 14);
    s += "\n";
    for (int t = 0; t < Turns(odds); ++t) {
        s += Right(To_Text(odds.BATTLES[0][t].TURN), 6);
        for (const int status : BY_SIDE)
            s += Right(To_Text(Count(odds, t, [&](const OUTCOME& o) { return o.STATUS == status; })), 14);
        s += "\n";
    }
    for (const MEASURE& measure : MEASURES) {
        s += Cat("\n", Left(measure.NAME, 16), "\n  turn     least       10%    middle       90%  greatest      mean\n");
        for (int t = 0; t < Turns(odds); ++t) {
            const SPREAD spread = Spread(odds, t, measure);
            s += Right(To_Text(odds.BATTLES[0][t].TURN), 6);
            for (const double v : {spread.LEAST, spread.LOW, spread.MIDDLE, spread.HIGH, spread.GREATEST, spread.MEAN})
                s += Right(Html_Number(v), 10);
            s += "\n";
        }
    }
    const std::vector<int> objectives = Objectives(odds);
    if (objectives.empty()) return s;
    s += "\nObjectives, battles of 100 in which Blue / Red holds them\n  turn";
    for (const int o : objectives) s += Right(Cat("Obj ", To_Text(o + 1)), 10);
    s += "\n";
    for (int t = 0; t < Turns(odds); ++t) {
        s += Right(To_Text(odds.BATTLES[0][t].TURN), 6);
        for (const int o : objectives) s += Right(Possession(odds, t, o, ' '), 10);
        s += "\n";
    }
    return s;
}

std::string Odds_Csv(const ODDS& odds)
{
    std::string s = "position,turn,verdict,blue_points,red_points,blue_loss_percent,red_loss_percent,blue_power,red_power";
    const std::vector<int> objectives = Objectives(odds);
    for (const int o : objectives) s += Cat(",objective_", To_Text(o + 1));
    s += "\r\n";
    for (std::size_t p = 0; p < odds.BATTLES.size(); ++p)
        for (const OUTCOME& o : odds.BATTLES[p]) {
            s += Cat(To_Text(static_cast<int>(p) + 1), ",", To_Text(o.TURN), ",", To_Text(o.STATUS), ",", To_Text(o.BLUE_POINTS), ",",
                     To_Text(o.RED_POINTS), ",", To_Text(o.BLUE_LOSS), ",", To_Text(o.RED_LOSS), ",", To_Text(o.BLUE_POWER), ",",
                     To_Text(o.RED_POWER));
            for (const int k : objectives) s += Cat(",", To_Text(static_cast<int>(o.HOLDERS[k])));
            s += "\r\n";
        }
    return s;
}

namespace {

/// The verdicts of each turn as a stacked bar, Red at the left.
std::string Verdict_Bars(const ODDS& odds)
{
    static constexpr const char* CLASS[] = {"red", "red", "red", "even", "blue", "blue", "blue"};
    static constexpr const char* OPACITY[] = {"1", ".7", ".4", "1", ".4", ".7", "1"};
    const int height = 26 * Turns(odds) + 10;
    std::string s = Cat("<svg class=\"chart\" viewBox=\"0 0 640 ", To_Text(height), "\">");
    for (int t = 0; t < Turns(odds); ++t) {
        s += Cat("<text class=\"axis\" x=\"30\" y=\"", To_Text(26 * t + 22), "\" text-anchor=\"end\">", To_Text(odds.BATTLES[0][t].TURN), "</text>");
        int x = 0;
        for (int k = 0; k < 7; ++k) {
            const int n = Count(odds, t, [&](const OUTCOME& o) { return o.STATUS == BY_SIDE[k]; });
            if (n == 0) continue;
            s += Cat("<rect class=\"", CLASS[k], "\" fill-opacity=\"", OPACITY[k], "\" x=\"", To_Text(40 + x * 6), "\" y=\"", To_Text(26 * t + 7),
                     "\" width=\"", To_Text(n * 6), "\" height=\"20\"><title>", SHORT_NAME[k], ": ", To_Text(n), "</title></rect>");
            x += n;
        }
    }
    return s + "</svg>";
}

std::string Verdict_Table(const ODDS& odds)
{
    std::string s = "<table><caption>Verdict, battles of 100</caption><tr><th>Turn</th>";
    for (const char* name : SHORT_NAME) s += Cat("<th>", name, "</th>");
    s += "</tr>";
    for (int t = 0; t < Turns(odds); ++t) {
        s += Cat("<tr><th>", To_Text(odds.BATTLES[0][t].TURN), "</th>");
        for (const int status : BY_SIDE)
            s += Cat("<td class=\"num\">", To_Text(Count(odds, t, [&](const OUTCOME& o) { return o.STATUS == status; })), "</td>");
        s += "</tr>";
    }
    return s + "</table>";
}

std::string Measure_Table(const ODDS& odds, const MEASURE& measure)
{
    std::string s = Cat("<table><caption>", measure.NAME, "</caption><tr><th>Turn</th><th>least</th><th>10%</th><th>middle</th><th>90%</th><th>greatest</th><th>mean</th></tr>");
    for (int t = 0; t < Turns(odds); ++t) {
        const SPREAD spread = Spread(odds, t, measure);
        s += Cat("<tr><th>", To_Text(odds.BATTLES[0][t].TURN), "</th>");
        for (const double v : {spread.LEAST, spread.LOW, spread.MIDDLE, spread.HIGH, spread.GREATEST, spread.MEAN})
            s += Cat("<td class=\"num\">", Html_Number(v), "</td>");
        s += "</tr>";
    }
    return s + "</table>";
}

std::string Objective_Table(const ODDS& odds)
{
    const std::vector<int> objectives = Objectives(odds);
    if (objectives.empty()) return {};
    std::string s = "<table><caption>Objectives, battles of 100 in which Blue / Red holds them</caption><tr><th>Turn</th>";
    for (const int o : objectives) s += Cat("<th>Objective ", To_Text(o + 1), "</th>");
    s += "</tr>";
    for (int t = 0; t < Turns(odds); ++t) {
        s += Cat("<tr><th>", To_Text(odds.BATTLES[0][t].TURN), "</th>");
        for (const int o : objectives) s += Cat("<td class=\"num\">", Possession(odds, t, o, ' '), "</td>");
        s += "</tr>";
    }
    return s + "</table>";
}

}   // namespace

std::string Odds_Html(const ODDS& odds)
{
    std::string s = Cat(Html_Head("Odds"), "<h1>", Html_Text(Title(odds)), "</h1><h2>Verdict by turn</h2>", Verdict_Bars(odds), Verdict_Table(odds),
                        Objective_Table(odds));
    for (const MEASURE& measure : MEASURES) s += Measure_Table(odds, measure);
    return s + Html_End();
}

}   // namespace sm

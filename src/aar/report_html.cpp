#include "aar/battle_record.h"
#include "aar/html.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <functional>

namespace sm {

namespace {

constexpr int CHART_WIDTH = 640, CHART_HEIGHT = 260, MARGIN = 44, LABELS = 72;   ///< room for the names at the right

/// A round step that divides `range` into five or fewer.
double Tick_Step(double range)
{
    for (double power = 1;; power *= 10)
        for (const double step : {power, 2 * power, 5 * power})
            if (step * 5 >= range) return step;
}

struct SERIES {
    const char *NAME, *CLASS;
    std::function<double(const TURN_RECORD&)> VALUE;
};

/// A line chart over the turns, zero at the bottom unless a value is below it.
std::string Line_Chart(const BATTLE_RECORD& r, const char* title, const std::vector<SERIES>& series)
{
    double most = 1, least = 0;
    for (const TURN_RECORD& t : r.TURNS)
        for (const SERIES& s : series) {
            most = std::max(most, s.VALUE(t));
            least = std::min(least, s.VALUE(t));
        }
    const int turns = std::max(1, static_cast<int>(r.TURNS.size()) - 1);
    const double step = Tick_Step(most - least);
    const int first_tick = Floor_Int(least / step), last_tick = -Floor_Int(-most / step);
    least = first_tick * step;
    most = last_tick * step;
    const auto x = [&](std::size_t i) { return MARGIN + static_cast<double>(i) * (CHART_WIDTH - MARGIN - LABELS) / turns; };
    const auto y = [&](double value) {
        return CHART_HEIGHT - MARGIN - (value - least) / (most - least) * (CHART_HEIGHT - 2 * MARGIN);
    };
    std::string s = Cat("<figure><figcaption>", title, "</figcaption><svg class=\"chart\" viewBox=\"0 0 ", To_Text(CHART_WIDTH),
                        " ", To_Text(CHART_HEIGHT), "\" role=\"img\">");
    for (int tick = first_tick; tick <= last_tick; ++tick) {
        const double value = tick * step;
        s += Cat("<line class=\"grid\" x1=\"", Html_Number(MARGIN), "\" x2=\"", Html_Number(CHART_WIDTH - LABELS), "\" y1=\"",
                 Html_Number(y(value)), "\" y2=\"", Html_Number(y(value)), "\"/><text class=\"axis\" x=\"",
                 Html_Number(MARGIN - 6), "\" y=\"", Html_Number(y(value) + 4), "\" text-anchor=\"end\">",
                 To_Text(Round_Even(value)), "</text>");
    }
    for (std::size_t i = 0; i < r.TURNS.size(); ++i)
        s += Cat("<text class=\"axis\" x=\"", Html_Number(x(i)), "\" y=\"", Html_Number(CHART_HEIGHT - MARGIN + 18),
                 "\" text-anchor=\"middle\">", To_Text(r.TURNS[i].TURN), "</text>");
    for (const SERIES& line : series) {
        s += Cat("<polyline class=\"", line.CLASS, "\" points=\"");
        for (std::size_t i = 0; i < r.TURNS.size(); ++i)
            s += Cat(Html_Number(x(i)), ",", Html_Number(y(line.VALUE(r.TURNS[i]))), " ");
        s += Cat("\"/><text class=\"label ", line.CLASS, "\" x=\"", Html_Number(CHART_WIDTH - LABELS + 6), "\" y=\"",
                 Html_Number(y(line.VALUE(r.TURNS.back())) + 4), "\">", line.NAME, "</text>");
    }
    return s + "</svg></figure>";
}

std::string Causes(const TURN_RECORD& last)
{
    float most = 1;
    for (const CAUSE& c : last.CAUSES) most = std::max({most, c.BLUE_LOSS, c.RED_LOSS});
    const auto bar = [&](const char* side, float value) {
        return Cat("<td class=\"num\">", Html_Number(static_cast<double>(value)), "</td><td class=\"bar\"><span class=\"", side,
                   "\" style=\"width:", Html_Number(static_cast<double>(value / most) * 100), "%\"></span></td>");
    };
    std::string s = "<table><caption>Blue/Red Losses (by Cause), points of combat power</caption>"
                    "<tr><th></th><th colspan=\"2\">Blue</th><th colspan=\"2\">Red</th></tr>";
    for (const CAUSE& c : last.CAUSES)
        s += Cat("<tr><th>", Trim(c.NAME), "</th>", bar("blue", c.BLUE_LOSS), bar("red", c.RED_LOSS), "</tr>");
    return s + "</table>";
}

std::string Possession(const BATTLE_RECORD& r)
{
    static constexpr const char* CLASS[] = {"none", "blue", "red"};
    std::string s = "<table class=\"possession\"><caption>Possession of objectives by turn</caption><tr><th>Turn</th>";
    for (const TURN_RECORD& t : r.TURNS) s += Cat("<th>", To_Text(t.TURN), "</th>");
    s += "</tr>";
    for (std::size_t o = 0; o < r.OBJECTIVES.size(); ++o) {
        s += Cat("<tr><th>Objective ", To_Text(r.OBJECTIVES[o].OBJECTIVE), " (", To_Text(r.OBJECTIVES[o].VALUE), ")</th>");
        for (const TURN_RECORD& t : r.TURNS) {
            const int holder = t.HOLDERS[o] >= 0 && t.HOLDERS[o] <= 2 ? t.HOLDERS[o] : 0;
            s += Cat("<td class=\"", CLASS[holder], "\">", holder == 1 ? "B" : holder == 2 ? "R" : "", "</td>");
        }
        s += "</tr>";
    }
    return s + "</table>";
}

/// The forces of one turn over the map: Blue rectangles, Red diamonds, hollow when ineffective.
std::string Forces(const BATTLE_RECORD& r, const TURN_RECORD& t, bool shown)
{
    std::string s = Cat("<g class=\"forces\" data-turn=\"", To_Text(t.TURN), shown ? "\">" : "\" hidden>");
    for (std::size_t o = 0; o < r.OBJECTIVES.size(); ++o) {
        static constexpr const char* CLASS[] = {"none", "blue", "red"};
        const int holder = t.HOLDERS[o] >= 0 && t.HOLDERS[o] <= 2 ? t.HOLDERS[o] : 0;
        s += Cat("<circle class=\"objective ", CLASS[holder], "\" cx=\"", To_Text(r.OBJECTIVES[o].X), "\" cy=\"",
                 To_Text(r.OBJECTIVES[o].Y), "\" r=\"16\"/>");
    }
    for (const UNIT_MARK& u : t.UNITS) {
        const char* side = u.SIDE == 1 ? "blue" : "red";
        s += Cat("<use href=\"#", side, "\" x=\"", To_Text(u.X), "\" y=\"", To_Text(u.Y), "\" class=\"", side,
                 u.STATUS == 1 ? " out" : "", "\"><title>", Html_Text(r.UNIT_NAMES[u.UNIT]), ", ", To_Text(u.STRENGTH),
                 "%</title></use>");
    }
    return s + "</g>";
}

std::string Map(const BATTLE_RECORD& r)
{
    const std::string size = Cat("width=\"", To_Text(r.MAP_WIDTH), "\" height=\"", To_Text(r.MAP_HEIGHT), "\"");
    const std::string picture = Html_Picture(r.MAP_PICTURE);
    std::string s = Cat("<section><h2>The forces by turn</h2><p class=\"turns\"><label>Turn <input id=\"turn\" type=\"range\" min=\"0\" max=\"",
                        To_Text(static_cast<int>(r.TURNS.size()) - 1), "\" value=\"",
                        To_Text(static_cast<int>(r.TURNS.size()) - 1), "\"></label> <output id=\"clock\"></output></p><svg class=\"map\" viewBox=\"0 0 ",
                        To_Text(r.MAP_WIDTH), " ", To_Text(r.MAP_HEIGHT), "\"><defs>",
                        "<symbol id=\"blue\" overflow=\"visible\"><rect x=\"-9\" y=\"-6\" width=\"18\" height=\"12\"/></symbol>",
                        "<symbol id=\"red\" overflow=\"visible\"><path d=\"M0-9 9 0 0 9-9 0z\"/></symbol></defs><rect class=\"ground\" ",
                        size, "/>");
    if (!picture.empty()) s += Cat("<image href=\"", picture, "\" ", size, " preserveAspectRatio=\"none\"/>");
    for (std::size_t i = 0; i < r.TURNS.size(); ++i) s += Forces(r, r.TURNS[i], i + 1 == r.TURNS.size());
    return s + "</svg></section>";
}

std::string Messages(const BATTLE_RECORD& r)
{
    static constexpr const char* AUDIENCE[] = {"", "Blue", "Red", "All"};
    std::string s = "<section><h2>Messages</h2>";
    for (const TURN_RECORD& t : r.TURNS) {
        if (t.MESSAGES.empty()) continue;
        s += Cat("<details", &t == &r.TURNS.back() ? " open" : "", "><summary>Turn ", To_Text(t.TURN), ", ", t.CLOCK, " (",
                 To_Text(static_cast<int>(t.MESSAGES.size())), ")</summary><table class=\"messages\">");
        for (const MESSAGE_MARK& m : t.MESSAGES)
            s += Cat("<tr><td>", AUDIENCE[m.SIDE >= 0 && m.SIDE <= 3 ? m.SIDE : 0], "</td><td>", Html_Text(To_Utf8(m.TEXT)),
                     "</td></tr>");
        s += "</table></details>";
    }
    return s + "</section>";
}

std::string Summary(const BATTLE_RECORD& r)
{
    const TURN_RECORD& t = r.TURNS.back();
    const auto row = [](const char* name, const std::string& blue, const std::string& red) {
        return Cat("<tr><th>", name, "</th><td class=\"num\">", blue, "</td><td class=\"num\">", red, "</td></tr>");
    };
    return Cat("<p class=\"verdict\">", Verdict_Text(t.STATUS, r.OVER), "</p><p>Turn ", To_Text(t.TURN), " of ",
               To_Text(r.LAST_TURN), ", ", t.CLOCK, "; the battle began at ", r.START, ".</p><table><tr><th></th><th>Blue</th><th>Red</th></tr>",
               row("Victory points", To_Text(t.BLUE_POINTS), To_Text(t.RED_POINTS)),
               row("Power at the start", Html_Number(static_cast<double>(r.BLUE_START)), Html_Number(static_cast<double>(r.RED_START))),
               row("Power now", Html_Number(static_cast<double>(t.BLUE_POWER)), Html_Number(static_cast<double>(t.RED_POWER))),
               row("Losses", To_Text(t.BLUE_LOSS) + "%", To_Text(t.RED_LOSS) + "%"),
               row("Units in play", To_Text(t.BLUE_UNITS), To_Text(t.RED_UNITS)), "</table>");
}

std::string Script(const BATTLE_RECORD& r)
{
    std::string clocks;
    for (const TURN_RECORD& t : r.TURNS) clocks += Cat("\"", To_Text(t.TURN), ", ", Html_Text(t.CLOCK), "\",");
    return Cat("<script>const clocks=[", clocks, "];const turn=document.getElementById('turn'),"
               "clock=document.getElementById('clock'),forces=document.querySelectorAll('.forces');"
               "function show(){forces.forEach((g,i)=>g.toggleAttribute('hidden',i!=turn.value));"
               "clock.textContent=clocks[turn.value];}turn.oninput=show;show();</script>");
}

}   // namespace

std::string Report_Html(const BATTLE_RECORD& r)
{
    const std::string name = r.NAME.empty() ? std::string("Battle") : r.NAME;
    const auto real = [](float v) { return static_cast<double>(v); };
    return Cat(Html_Head(Cat("After-action report: ", name)), "<h1>After-action report: ", Html_Text(name), "</h1>", Summary(r),
               "<section class=\"charts\">",
               Line_Chart(r, "Red/Blue Strengths vs Game Turn",
                          {{"BLUFOR", "blue", [&](const TURN_RECORD& t) { return real(t.BLUE_POWER); }},
                           {"REDFOR", "red", [&](const TURN_RECORD& t) { return real(t.RED_POWER); }}}),
               Line_Chart(r, "Victory points",
                          {{"Blue", "blue", [](const TURN_RECORD& t) { return t.BLUE_POINTS; }},
                           {"Red", "red", [](const TURN_RECORD& t) { return t.RED_POINTS; }}}),
               "</section>", Causes(r.TURNS.back()), Possession(r), Map(r), Messages(r), Script(r), Html_End());
}

}   // namespace sm

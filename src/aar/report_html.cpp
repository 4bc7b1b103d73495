#include "aar/battle_record.h"
#include "aar/chart.h"
#include "aar/html.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace sm {

namespace {

constexpr const char* SIDE_CLASS[] = {"none", "blue", "red"};
const char* Class_Of(int side) { return SIDE_CLASS[side >= 0 && side <= 2 ? side : 0]; }

constexpr const char* BLUE_SIGN = "<rect x=\"-9\" y=\"-6\" width=\"18\" height=\"12\"";
constexpr const char* RED_SIGN = "<path d=\"M0-9 9 0 0 9-9 0z\"";

std::string Losses(int percent) { return Cat(To_Text(percent), "%"); }
std::string Power(float value) { return Html_Number(static_cast<double>(value)); }

std::string Summary(const BATTLE_RECORD& r)
{
    const TURN_RECORD& t = r.TURNS.back();
    const auto row = [](const char* name, const std::string& blue, const std::string& red) {
        return Cat("<tr><th>", name, "</th><td>", blue, "</td><td>", red, "</td></tr>");
    };
    return Cat("<table class=\"num\"><caption>Blue and "
               "Red</caption><thead><tr><th></th><th>Blue</th><th>Red</th></tr></thead>",
               row("Victory points", To_Text(t.BLUE_POINTS), To_Text(t.RED_POINTS)),
               row("Power at the start", Power(r.BLUE_START), Power(r.RED_START)),
               row("Power now", Power(t.BLUE_POWER), Power(t.RED_POWER)),
               row("Losses", Losses(t.BLUE_LOSS), Losses(t.RED_LOSS)),
               row("Units in play", To_Text(t.BLUE_UNITS), To_Text(t.RED_UNITS)), "</table>");
}

std::string Causes(const TURN_RECORD& last)
{
    float most = 1;
    for (const CAUSE& c : last.CAUSES) most = std::max({most, c.BLUE_LOSS, c.RED_LOSS});
    const auto cells = [most](const char* side, float loss) {
        const int width = Round_Even(static_cast<double>(loss) / static_cast<double>(most) * 100);
        return Cat("<td>", Power(loss), "</td><td class=\"bar\"><span class=\"", loss > 0 ? side : "",
                   "\" style=\"width:", To_Text(std::max(0, width)), "%\"></span></td>");
    };
    std::string s = "<table class=\"num\"><caption>Blue/Red Losses (by Cause), points of combat "
                    "power</caption><thead><tr><th></th>"
                    "<th>Blue</th><th></th><th>Red</th><th></th></tr></thead>";
    for (const CAUSE& c : last.CAUSES)
        s += Cat("<tr><th>", Trim(c.NAME), "</th>", cells("blue", c.BLUE_LOSS), cells("red", c.RED_LOSS), "</tr>");
    return s + "</table>";
}

std::string Charts(const BATTLE_RECORD& r)
{
    std::vector<int> turns;
    CURVE power[] = {{"BLUFOR", "blue", {}}, {"REDFOR", "red", {}}},
          points[] = {{"Blue", "blue", {}}, {"Red", "red", {}}};
    for (const TURN_RECORD& t : r.TURNS) {
        turns.push_back(t.TURN);
        power[0].VALUES.push_back(static_cast<double>(t.BLUE_POWER));
        power[1].VALUES.push_back(static_cast<double>(t.RED_POWER));
        points[0].VALUES.push_back(t.BLUE_POINTS);
        points[1].VALUES.push_back(t.RED_POINTS);
    }
    return Cat("<section class=\"charts\">",
               Html_Chart("Red/Blue Strengths vs Game Turn", turns, {power[0], power[1]}),
               Html_Chart("Victory points", turns, {points[0], points[1]}), "</section>");
}

std::string Figures(const BATTLE_RECORD& r)
{
    std::string s = "<details><summary>The figures turn by turn</summary><div class=\"wide\"><table "
                    "class=\"num\"><thead><tr><th>Turn</th>"
                    "<th class=\"text\">Ends</th><th>Blue "
                    "power</th><th>Points</th><th>Losses</th><th>Units</th><th>Red power</th>"
                    "<th>Points</th><th>Losses</th><th>Units</th></tr></thead>";
    for (const TURN_RECORD& t : r.TURNS) {
        s += Cat("<tr><th>", To_Text(t.TURN), "</th><td class=\"text\">", Html_Text(t.CLOCK), "</td>");
        for (const std::string& figure :
             {Power(t.BLUE_POWER), To_Text(t.BLUE_POINTS), Losses(t.BLUE_LOSS), To_Text(t.BLUE_UNITS),
              Power(t.RED_POWER), To_Text(t.RED_POINTS), Losses(t.RED_LOSS), To_Text(t.RED_UNITS)})
            s += Cat("<td>", figure, "</td>");
        s += "</tr>";
    }
    return s + "</table></div></details>";
}

std::string Possession(const BATTLE_RECORD& r)
{
    if (r.OBJECTIVES.empty()) return {};
    std::string s = "<section><h2>Possession of objectives by turn</h2><div class=\"wide\"><table "
                    "class=\"possession\"><thead><tr><th>Objective "
                    "(value)</th>";
    for (const TURN_RECORD& t : r.TURNS) s += Cat("<th>", To_Text(t.TURN), "</th>");
    s += "</tr></thead>";
    for (std::size_t o = 0; o < r.OBJECTIVES.size(); ++o) {
        s += Cat("<tr><th>", To_Text(r.OBJECTIVES[o].OBJECTIVE), " (", To_Text(r.OBJECTIVES[o].VALUE), ")</th>");
        for (const TURN_RECORD& t : r.TURNS) {
            const int holder = t.HOLDERS[o];
            s += Cat("<td class=\"", Class_Of(holder), "\">", holder == 1 ? "B" : holder == 2 ? "R" : "", "</td>");
        }
        s += "</tr>";
    }
    return s + "</table></div></section>";
}

// ------------------------------------------------------------------------------------------------------------ map

/// The forces of one turn over the map.
std::string Forces(const BATTLE_RECORD& r, const TURN_RECORD& t, bool shown)
{
    std::string s = Cat("<g class=\"forces\" data-clock=\"Turn ", To_Text(t.TURN), ", ", Html_Text(t.CLOCK),
                        shown ? "\">" : "\" hidden>");
    for (std::size_t o = 0; o < r.OBJECTIVES.size(); ++o)
        s += Cat("<circle class=\"objective ", Class_Of(t.HOLDERS[o]), "\" cx=\"", To_Text(r.OBJECTIVES[o].X),
                 "\" cy=\"", To_Text(r.OBJECTIVES[o].Y), "\" r=\"16\"/>");
    for (const UNIT_MARK& u : t.UNITS) {
        const char* side = Class_Of(u.SIDE);
        s += Cat("<use href=\"#", side, "\" x=\"", To_Text(u.X), "\" y=\"", To_Text(u.Y), "\" class=\"", side,
                 u.STATUS == 1 ? " out" : "", "\"><title>", Html_Text(r.UNIT_NAMES[u.UNIT]), ", ",
                 To_Text(u.STRENGTH), "%</title></use>");
    }
    return s + "</g>";
}

std::string Objective_Numbers(const BATTLE_RECORD& r)
{
    std::string s;
    for (const OBJECTIVE_MARK& o : r.OBJECTIVES)
        s += Cat("<text class=\"number\" x=\"", To_Text(o.X), "\" y=\"", To_Text(o.Y), "\">", To_Text(o.OBJECTIVE),
                 "</text>");
    return s;
}

std::string Map_Key()
{
    const auto sign = [](const char* css, const char* shape, const char* words) {
        return Cat("<span><svg viewBox=\"-12 -12 24 24\">", shape, " class=\"sign ", css, "\"/></svg>", words,
                   "</span>");
    };
    const auto ring = [](const char* side, const char* words) {
        return Cat("<span><svg viewBox=\"-20 -20 40 40\"><circle class=\"objective ", side, "\" r=\"16\"/></svg>",
                   words, "</span>");
    };
    return Cat("<p class=\"key\">", sign("blue", BLUE_SIGN, "Blue unit"), sign("red", RED_SIGN, "Red unit"),
               sign("blue out", BLUE_SIGN, "hollow: combat ineffective"), ring("blue", "objective held by Blue"),
               ring("red", "by Red"), ring("none", "by nobody"),
               "<span>names and strengths under the pointer</span></p>");
}

/// A part of the map, and how much smaller the signs are drawn in it than on the whole.
struct PART {
    int X, Y, WIDTH, HEIGHT;
    double SCALE;
    std::string Box() const { return Cat(To_Text(X), " ", To_Text(Y), " ", To_Text(WIDTH), " ", To_Text(HEIGHT)); }
};

/// Where the forces and the objectives were in the whole battle, in the shape of the map; the map itself when that
/// is most of it. No part is so small that the picture turns to squares.
PART Battlefield(const BATTLE_RECORD& r)
{
    constexpr double MOST = 2.5, LEAST = 1.2, ROOM = 1.1;
    int left = r.MAP_WIDTH, right = 0, top = r.MAP_HEIGHT, bottom = 0;
    const auto include = [&](int x, int y) {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    };
    for (const TURN_RECORD& t : r.TURNS)
        for (const UNIT_MARK& u : t.UNITS) include(u.X, u.Y);
    for (const OBJECTIVE_MARK& o : r.OBJECTIVES) include(o.X, o.Y);
    const double wanted = std::max({static_cast<double>(right - left) / std::max(1, r.MAP_WIDTH),
                                    static_cast<double>(bottom - top) / std::max(1, r.MAP_HEIGHT), 0.0}) *
                          ROOM;
    const double zoom = std::min(MOST, 1 / std::max(wanted, 1 / MOST));
    if (zoom < LEAST || right < left) return {0, 0, r.MAP_WIDTH, r.MAP_HEIGHT, 1};
    const int width = Round_Even(r.MAP_WIDTH / zoom), height = Round_Even(r.MAP_HEIGHT / zoom);
    return {std::clamp((left + right - width) / 2, 0, r.MAP_WIDTH - width),
            std::clamp((top + bottom - height) / 2, 0, r.MAP_HEIGHT - height), width, height,
            std::min(1.0, 1.2 / zoom)};
}

std::string Turn_Slider(const BATTLE_RECORD& r, bool zoomed)
{
    const TURN_RECORD& t = r.TURNS.back();
    const std::string last = To_Text(static_cast<int>(r.TURNS.size()) - 1);
    return Cat("<p class=\"turns\"><label class=\"slide\">Turn <input id=\"turn\" type=\"range\" min=\"0\" max=\"",
               last, "\" value=\"", last, "\"></label><output id=\"clock\">Turn ", To_Text(t.TURN), ", ",
               Html_Text(t.CLOCK), "</output><label", zoomed ? ">" : " hidden>",
               "<input id=\"whole\" type=\"checkbox\"> whole map</label></p>");
}

std::string Map(const BATTLE_RECORD& r)
{
    const PART whole{0, 0, r.MAP_WIDTH, r.MAP_HEIGHT, 1}, part = Battlefield(r);
    const std::string size = Cat("width=\"", To_Text(r.MAP_WIDTH), "\" height=\"", To_Text(r.MAP_HEIGHT), "\"");
    const std::string picture = Html_Picture(r.MAP_PICTURE);
    const int hundredths = Round_Even(part.SCALE * 100);
    std::string s =
        Cat("<section><h2>The forces by turn</h2>", Turn_Slider(r, part.SCALE < 1),
            "<svg class=\"map\" viewBox=\"", part.Box(), "\" data-part=\"", part.Box(), "\" data-whole=\"",
            whole.Box(), "\" data-scale=\"calc(", To_Text(hundredths), " / 100)\" style=\"--scale:calc(",
            To_Text(hundredths), " / 100)\"><defs><symbol id=\"blue\" overflow=\"visible\">", BLUE_SIGN,
            "/></symbol><symbol id=\"red\" overflow=\"visible\">", RED_SIGN,
            "/></symbol></defs><rect class=\"ground\" ", size, "/>");
    if (!picture.empty()) s += Cat("<image href=\"", picture, "\" ", size, " preserveAspectRatio=\"none\"/>");
    for (std::size_t i = 0; i < r.TURNS.size(); ++i) s += Forces(r, r.TURNS[i], i + 1 == r.TURNS.size());
    return Cat(s, Objective_Numbers(r), "</svg>", Map_Key(), "</section>");
}

// ------------------------------------------------------------------------------------------------------- messages

std::string Message_Row(const MESSAGE_MARK& m)
{
    static constexpr const char* AUDIENCE[] = {"", "Blue", "Red", "All"};
    static constexpr std::string_view LOCATION = "Location: ", MESSAGE = " // MSG: ";
    const std::string text = To_Utf8(m.TEXT);
    const std::size_t cut = text.find(MESSAGE);
    const bool placed = text.rfind(LOCATION, 0) == 0 && cut != text.npos;
    const int side = m.SIDE >= 0 && m.SIDE <= 3 ? m.SIDE : 0;
    return Cat("<tr><td class=\"", Class_Of(side), "\">", AUDIENCE[side], "</td><td>",
               Html_Text(placed ? text.substr(LOCATION.size(), cut - LOCATION.size()) : std::string()),
               "</td><td>", Html_Text(placed ? text.substr(cut + MESSAGE.size()) : text), "</td></tr>");
}

std::string Messages(const BATTLE_RECORD& r)
{
    std::string s = "<h2>Messages</h2><p class=\"find\"><input id=\"find\" type=\"search\" placeholder=\"Find a "
                    "unit, a place, a word\" "
                    "aria-label=\"Find in the messages\"><select id=\"audience\" aria-label=\"Audience\"><option "
                    "value=\"\">to anyone</option>"
                    "<option>Blue</option><option>Red</option><option value=\"All\">to all</option></select></p>";
    for (const TURN_RECORD& t : r.TURNS) {
        if (t.MESSAGES.empty()) continue;
        s += Cat("<details class=\"day\"", &t == &r.TURNS.back() ? " open" : "", "><summary>Turn ",
                 To_Text(t.TURN), ", ", Html_Text(t.CLOCK), " (<span>",
                 To_Text(static_cast<int>(t.MESSAGES.size())), "</span>)</summary><table class=\"messages\">");
        for (const MESSAGE_MARK& m : t.MESSAGES) s += Message_Row(m);
        s += "</table></details>";
    }
    return s;
}

constexpr const char* SCRIPT = R"(<script>
const turn = document.getElementById('turn'), clock = document.getElementById('clock'),
      forces = document.querySelectorAll('.forces'), find = document.getElementById('find'),
      audience = document.getElementById('audience'), days = document.querySelectorAll('.day');
turn.oninput = () => {
  forces.forEach((g, i) => g.toggleAttribute('hidden', i != turn.value));
  clock.textContent = forces[turn.value].dataset.clock;
};
const map = document.querySelector('.map'), whole = document.getElementById('whole');
whole.oninput = () => {
  map.setAttribute('viewBox', whole.checked ? map.dataset.whole : map.dataset.part);
  map.style.setProperty('--scale', whole.checked ? 1 : map.dataset.scale);
};
find.oninput = audience.oninput = () => {
  const word = find.value.trim().toLowerCase(), to = audience.value;
  for (const day of days) {
    let found = 0;
    for (const row of day.querySelectorAll('tr')) {
      const fits = (!to || row.cells[0].textContent == to) && row.textContent.toLowerCase().includes(word);
      row.hidden = !fits;
      found += fits;
    }
    day.querySelector('span').textContent = found;
    day.hidden = !found;
    if (word) day.open = true;
  }
};
</script>)";

/// 1 Blue, 2 Red, 0 neither.
int Winner(int status) { return status >= 1 && status <= 3 ? 2 : status >= 4 && status <= 6 ? 1 : 0; }

}   // namespace

std::string Report_Html(const BATTLE_RECORD& r)
{
    const TURN_RECORD& t = r.TURNS.back();
    const std::string title = Cat("After-action report: ", r.NAME);
    return Cat(Html_Head(title), "<h1>", Html_Text(title), "</h1><p class=\"quiet\">Turn ", To_Text(t.TURN),
               " of ", To_Text(r.LAST_TURN), ", ", Html_Text(t.CLOCK), "; this record begins at ",
               Html_Text(r.START), ".</p><p class=\"verdict ", Class_Of(t.TURN > 0 ? Winner(t.STATUS) : 0), "\">",
               Verdict_Text(t.TURN, t.STATUS, r.OVER), "</p><section class=\"side-by-side\">", Summary(r),
               Causes(t), "</section>", Charts(r), Figures(r), Possession(r), Map(r), Messages(r), SCRIPT,
               Html_End());
}

}   // namespace sm

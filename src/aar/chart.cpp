#include "aar/chart.h"

#include "aar/html.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int WIDTH = 560, HEIGHT = 270, LEFT = 52, TOP = 14, BOTTOM = 40,
              NAMES = 74;     ///< room for names at the right
constexpr double LINE = 15;   ///< height of a name

/// A round step that divides `range` into five or fewer.
double Tick_Step(double range)
{
    for (double power = 1;; power *= 10)
        for (const double step : {power, 2 * power, 5 * power})
            if (step * 5 >= range) return step;
}

struct AXES {
    int FIRST_TICK = 0, LAST_TICK = 1, INTERVALS = 1;
    double STEP = 1;

    AXES(const std::vector<CURVE>& curves, std::size_t turns)
    {
        double most = 1, least = 0;
        const auto include = [&](const std::vector<double>& values) {
            for (const double v : values) {
                most = std::max(most, v);
                least = std::min(least, v);
            }
        };
        for (const CURVE& curve : curves) {
            include(curve.VALUES);
            for (const CURVE::BAND& band : curve.BANDS) {
                include(band.LOW);
                include(band.HIGH);
            }
        }
        STEP = Tick_Step(most - least);
        FIRST_TICK = Floor_Int(least / STEP);
        LAST_TICK = -Floor_Int(-most / STEP);
        INTERVALS = std::max(1, static_cast<int>(turns) - 1);
    }
    double X(std::size_t i) const { return LEFT + static_cast<double>(i) * (WIDTH - LEFT - NAMES) / INTERVALS; }
    double Y(double value) const
    {
        const double share = (value / STEP - FIRST_TICK) / (LAST_TICK - FIRST_TICK);
        return HEIGHT - BOTTOM - share * (HEIGHT - BOTTOM - TOP);
    }
    std::string Points(const std::vector<double>& values) const
    {
        std::string s;
        for (std::size_t i = 0; i < values.size(); ++i)
            s += Cat(Html_Number(X(i)), ",", Html_Number(Y(values[i])), " ");
        return s;
    }
    /// The way out along one row and back along the other.
    std::string Around(const CURVE::BAND& band) const
    {
        std::string s = Points(band.HIGH);
        for (std::size_t i = band.LOW.size(); i-- > 0;)
            s += Cat(Html_Number(X(i)), ",", Html_Number(Y(band.LOW[i])), " ");
        return s;
    }
};

std::string Text_At(const char* css, double x, double y, const char* anchor, std::string_view text)
{
    return Cat("<text class=\"", css, "\" x=\"", Html_Number(x), "\" y=\"", Html_Number(y), "\" text-anchor=\"",
               anchor, "\">", Html_Text(text), "</text>");
}

std::string Grid(const AXES& axes, const std::vector<int>& turns)
{
    std::string s;
    for (int tick = axes.FIRST_TICK; tick <= axes.LAST_TICK; ++tick) {
        const double y = axes.Y(tick * axes.STEP);
        s += Cat("<line class=\"grid\" x1=\"", To_Text(LEFT), "\" x2=\"", To_Text(WIDTH - NAMES), "\" y1=\"",
                 Html_Number(y), "\" y2=\"", Html_Number(y), "\"/>",
                 Text_At("axis", LEFT - 6, y + 4, "end", Html_Number(tick * axes.STEP)));
    }
    const std::size_t every = turns.size() / 20 + 1;   // room for twenty numbers
    for (std::size_t i = 0; i < turns.size(); i += every)
        s += Text_At("axis", axes.X(i), HEIGHT - BOTTOM + 18, "middle", To_Text(turns[i]));
    return s + Text_At("axis", WIDTH - 8, HEIGHT - BOTTOM + 18, "end", "turn");
}

/// Where the names of the curves stand: beside their ends, but never upon each other.
std::vector<double> Name_Heights(const AXES& axes, const std::vector<CURVE>& curves)
{
    std::vector<double> heights;
    for (const CURVE& curve : curves) heights.push_back(axes.Y(curve.VALUES.back()) + 4);
    std::vector<std::size_t> order(heights.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return heights[a] < heights[b]; });
    for (std::size_t i = 1; i < order.size(); ++i) {
        const double gap = heights[order[i]] - heights[order[i - 1]];
        if (gap >= LINE) continue;
        heights[order[i - 1]] -= (LINE - gap) / 2;
        heights[order[i]] += (LINE - gap) / 2;
    }
    return heights;
}

}   // namespace

std::string Html_Chart(const char* title, const std::vector<int>& turns, const std::vector<CURVE>& curves)
{
    const AXES axes(curves, turns.size());
    std::string s = Cat("<figure><figcaption>", Html_Text(title),
                        "</figcaption><svg class=\"chart\" viewBox=\"0 0 ", To_Text(WIDTH), " ", To_Text(HEIGHT),
                        "\" role=\"img\" aria-label=\"", Html_Text(title), "\">", Grid(axes, turns));
    for (const CURVE& curve : curves)
        for (const CURVE::BAND& band : curve.BANDS)
            s += Cat("<polygon class=\"", curve.CLASS, "\" points=\"", axes.Around(band), "\"/>");
    const std::vector<double> heights = Name_Heights(axes, curves);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const CURVE& curve = curves[i];
        s += Cat("<polyline class=\"", curve.CLASS, "\" points=\"", axes.Points(curve.VALUES),
                 "\"/><circle class=\"", curve.CLASS, "\" cx=\"", Html_Number(axes.X(curve.VALUES.size() - 1)),
                 "\" cy=\"", Html_Number(axes.Y(curve.VALUES.back())), "\" r=\"3\"/>",
                 Text_At(Cat("name ", curve.CLASS).c_str(), WIDTH - NAMES + 8, heights[i], "start", curve.NAME));
    }
    return s + "</svg></figure>";
}

}   // namespace sm

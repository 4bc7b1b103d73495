#include "sustain/nbc.h"

#include "combat/factors.h"
#include "combat/fires.h"
#include "combat/loss.h"
#include "core/explain.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "sustain/reports.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int CLOUD = 11, SMOKE = 20, PERSISTENT = 21;   // NBC.NBCTYPE

// ---------------------------------------------------------------------------------------------- wind

struct WIND {
    int DX, DY;
};
/// Where the wind carries things, by WINDD; it is named for where it blows from, and y grows to the south.
constexpr WIND WINDS_BY_DIRECTION[8] = {
    {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}, {1, 0}, {1, 1},
};

/// The next point down wind, one and a half kilometres a step; no direction, no wind.
Point Down_Wind(int x, int y)
{
    const WIND wind = WINDD >= 0 && WINDD <= 7 ? WINDS_BY_DIRECTION[WINDD] : WIND{0, 0};
    const int km = Round_Even(MAPSCALE);
    return {Round_Even(static_cast<float>(x) + static_cast<float>(wind.DX * km) * 1.5f),
            Round_Even(static_cast<float>(y) + static_cast<float>(wind.DY * km) * 1.5f)};
}

// ---------------------------------------------------------------------------------------------- loss

constexpr FACTOR_ROW CLOUD_BY_MOPP[] = {{0, 2, 1.0f}, {3, 4, 0.1f}};
constexpr FACTOR_ROW PERSISTENT_BY_MOPP[] = {{0, 2, 2.0f}, {3, 4, 0.5f}};
constexpr FACTOR_ROW BY_MORALE[] = {{0, 0, 1.3f}, {1, 1, 1.2f}, {2, 2, 1.0f}, {3, 3, 0.9f}, {4, 4, 0.8f}};
constexpr FACTOR_ROW BY_FATIGUE[] = {{0, 1, 0.9f}, {2, 15, 1.0f}, {16, 21, 1.1f}, {LEAST, MOST, 1.3f}};
constexpr FACTOR_ROW BY_TERRAIN[] = {
    {0, 0, 1.0f}, {1, 1, 0.9f}, {2, 2, 0.8f}, {3, 3, 1.2f},   {4, 4, 0.8f},
    {5, 5, 1.2f}, {6, 6, 0.8f}, {7, 7, 1.2f}, {11, 18, 1.4f}, {21, 27, 0.5f},
};
static_assert(In_Order(CLOUD_BY_MOPP) && In_Order(PERSISTENT_BY_MOPP) && In_Order(BY_MORALE) &&
              In_Order(BY_FATIGUE) && In_Order(BY_TERRAIN));

float Protection(int u, int type)
{
    if (type == CLOUD) return Factor_Of(CLOUD_BY_MOPP, UNIT[u].MOPP);
    if (type == PERSISTENT) return Factor_Of(PERSISTENT_BY_MOPP, UNIT[u].MOPP);
    return 1.0f;
}

/// A width between two bands is in neither.
float By_Footprint(float footprint)
{
    if (footprint >= 0 && footprint <= 2) return 1.0f;
    if (footprint >= 3 && footprint <= 5) return 0.8f;
    return 0.5f;
}

/// Loss to an agent: a tenth of the unit's power times these; the unit and NBCTYPE are given.
constexpr FIRE_FACTOR AGENT_FACTORS[] = {
    {"protection", Protection},
    {"morale", [](int u, int) { return Factor_Of(BY_MORALE, UNIT[u].MORALE); }},
    {"fatigue", [](int u, int) { return Factor_Of(BY_FATIGUE, UNIT[u].FATIGUE); }},
    {"footprint", [](int u, int) { return By_Footprint(UNIT[u].FOOTPRINT); }},
    {"terrain", [](int u, int) { return Factor_Of(BY_TERRAIN, UNIT[u].TERTYPE); }},
};

// ---------------------------------------------------------------------------------------------- rows

/// Pixels from the centre of a row within which a unit of this footprint is touched.
bool Touches(int row, int u, int reach)
{
    return Distance_Truncated(NBC[row].NBCX, NBC[row].NBCY, UNIT[u].X, UNIT[u].Y) < reach;
}

void Gas_Unit(int row, int u)
{
    const int type = NBC[row].NBCTYPE;
    if (!Touches(row, u, Floor_Int(UNIT[u].FOOTPRINT) / 2 + NBC[row].NBCSIZE / 2)) return;
    if (type == PERSISTENT) Unit_Report(10, u);
    NBC_Loss(u, type);
}

void Hide_In_Smoke(int row, int u)
{
    if (!Touches(row, u, NBC[row].NBCSIZE / 2 + 10)) return;
    UNIT[u].OBSCURED = 1;
    Unit_Report(17, u);
    if (UNIT[u].SPOTTED < 1 && UNIT[u].SIDE != UserSide)
        Hide_Picture(u);
    else
        Show_Picture(u);
}

void Put_Row(int row, int x, int y)
{
    NBC[row].NBCX = x;
    NBC[row].NBCY = y;
    NBC[row].NBCHEX = Hex_Number(x, y);
    Screen().Changed(Redraw::GRAPHICS);
}

}   // namespace

void NBC_Phase()
{
    for (int row = 1; row <= MAX_NBC; ++row) {
        // A quarter of an hour has no slice on which a cloud drifts and ends.
        if (TurnLength == 2 && NBC[row].NBCTYPE == CLOUD && GTURN > NBC[row].NBCSTIME) Remove_NBC(row);
        if (NBC[row].NBCTYPE != PERSISTENT) continue;
        if (NBC[row].NBCSTIME == GTURN)
            Remove_NBC(row);
        else
            NBC_Check(row);
    }
}

void Add_Contamination(int slot, int x, int y)
{
    const int row = Free_Row(NBC, 1, MAX_NBC);
    if (row == 0) return;
    NBC_RECORD& r = NBC[row];
    r = NBC_RECORD{};
    r.NBCTYPE = TG[slot].TGTYPE;
    r.NBCSIDE = TG[slot].TGSIDE;
    r.NBCVISIBLE = 1;
    r.NBCORDER = 1;
    r.NBCSIZE = HEXWIDTH <= 9 ? 9 : Round_Even(2 * MAPSCALE);
    r.NBCSTIME = GTURN + (r.NBCTYPE == CLOUD ? 1 : 12);
    Put_Row(row, x, y);
    NBC_Check(row);
}

void NBC_Check(int row)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1) continue;
        if (NBC[row].NBCTYPE == SMOKE)
            Hide_In_Smoke(row, u);
        else
            Gas_Unit(row, u);
    }
}

void NBC_Loss(int u, int type)
{
    const bool told = Explaining(u);
    const float power = UNIT[u].RCP2;
    const float base = power * 0.1f;
    if (told)
        Explain_Line(Cat(UNIT[u].NAME, " in agent ", To_Text(type), ": a tenth of its power ", To_Text(base)));
    float loss = Multiply_Out(base, AGENT_FACTORS, told, u, type);
    loss = std::min(std::max(loss, 0.01f), power);
    const int percent = Percent_Lost(u, loss);
    if (told) Explain_Line(Cat("  loss ", To_Text(loss), ", ", To_Text(percent), "%"));
    if (percent > 0)
        Post_At(u, Cat(UNIT[u].NAME, "NBC Losses: ", " lost ", To_Text(percent), "% destroyed"), 2000, BOTH);
    (UNIT[u].SIDE == BLUE ? BNBCL : RNBCL) += loss;
    Apply_Loss(u, loss);
    if (UNIT[u].STATUS > 0) UNIT[u].MOPP = 4;
}

void NBC_Drift(int row)
{
    NBC_RECORD& r = NBC[row];
    if (r.NBCTYPE != CLOUD) return;
    if (GTURN > r.NBCSTIME) {
        Remove_NBC(row);
        return;
    }
    r.NBCORDER += 1;
    const float wide = static_cast<float>(r.NBCSIZE) * static_cast<float>(r.NBCORDER);
    r.NBCSIZE = Saturate_16(Round_Even(wide * 0.5f));
    const Point next = Down_Wind(r.NBCX, r.NBCY);
    Put_Row(row, next.X, next.Y);
    NBC_Check(row);
    Delay(500);
}

void Lay_Smoke(int u)
{
    const float size = static_cast<float>(Round_Even(2 * MAPSCALE));
    const int side = UNIT[u].SIDE;
    Point at = {UNIT[u].X, UNIT[u].Y};
    int n = 1;
    for (int k = 1; k <= 4; ++k) {
        const int row = Free_Row(NBC, 1, MAX_NBC);
        if (row == 0) continue;
        ++n;
        NBC[row] = NBC_RECORD{};
        NBC[row].NBCTYPE = SMOKE;
        NBC[row].NBCSIDE = side;
        NBC[row].NBCORDER = 1;
        NBC[row].NBCSIZE = Saturate_16(Round_Even(size * static_cast<float>(n) * 0.5f));
        NBC[row].NBCSTIME = GTURN;
        if (k > 1) at = Down_Wind(at.X, at.Y);
        Put_Row(row, at.X, at.Y);
        NBC_Check(row);
    }
}

}   // namespace sm

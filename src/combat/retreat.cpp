#include "combat/retreat.h"

#include "combat/fires.h"
#include "combat/ground_combat.h"
#include "core/explain.h"
#include "events/events.h"
#include "manoeuvre/movement.h"
#include "manoeuvre/routes.h"
#include "sustain/reports.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace sm {

namespace {

constexpr int SCREENING = 3;                                       // TACOPN
constexpr int MOVING = 2, ON_RETREAT_ROUTE = 5, ROUTE_READY = 6;   // MOVESTATUS
constexpr int STEPS = 6, ROUTE_STEPS = 4;

/// Maximum loss by RETREATP: 15%, 1%, 3%, 5%, 10%, 20%, 25%, 30%.
constexpr float THRESHOLDS[] = {0.15f, 0.01f, 0.03f, 0.05f, 0.1f, 0.2f, 0.25f, 0.3f};

/// Units whose retreat is running. A retreat can run into contact, the contact cause the same unit's retreat, and
/// a unit between two enemies would run to and fro for ever: the second call finds the first and does nothing.
/// Retreats of other units may nest; every one takes at most six steps, so all of them end.
bool RETREATING[MAX_UNIT + 1] = {};

struct Running_Retreat {
    explicit Running_Retreat(int unit) : UNIT_NUMBER(unit) { RETREATING[unit] = true; }
    ~Running_Retreat() { RETREATING[UNIT_NUMBER] = false; }   // also when the turn fails in the middle
    Running_Retreat(const Running_Retreat&) = delete;
    Running_Retreat& operator=(const Running_Retreat&) = delete;
    int UNIT_NUMBER;
};

// ---------------------------------------------------------------------------------------------- by the plotted
// route

void Retreat_By_Route(int u)
{
    UNIT[u].MOVESTATUS = ON_RETREAT_ROUTE;
    const int held = CurUnit;
    CurUnit = u;
    for (int count = 1; count <= ROUTE_STEPS && UNIT[u].STATUS > 0 && UNIT[u].MOVESTATUS == ON_RETREAT_ROUTE;
         ++count) {
        Log(Cat("Retreat: ", UNIT[u].NAME, " -- ", To_Text(count)));
        Move_Units(u);
    }
    if (UNIT[u].STATUS > 0 && UNIT[u].MOVESTATUS == ON_RETREAT_ROUTE) UNIT[u].MOVESTATUS = MOVING;
    CurUnit = held;
    if (Explaining(u))
        Explain_Line(Cat("  retreats by its route to (", To_Text(UNIT[u].X), ", ", To_Text(UNIT[u].Y), ")"));
}

// ---------------------------------------------------------------------------------------------- straight away

/// Sum of the way from every near enemy to the unit. A screen measures from each of its three points.
struct THREAT {
    int COUNT = 0, X = 0, Y = 0;
};

THREAT Near_Enemies(int u)
{
    const UNIT_RECORD& unit = UNIT[u];
    const Point points[] = {{unit.X, unit.Y}, {unit.LX, unit.LY}, {unit.RX, unit.RY}};
    const int looks_from = unit.TACOPN == SCREENING ? 3 : 1;
    THREAT threat;
    for (int e = 1; e <= MAX_UNIT; ++e) {
        const UNIT_RECORD& enemy = UNIT[e];
        if (enemy.SIDE != Other_Side(unit.SIDE) || enemy.STATUS <= 1) continue;
        const float footprints = unit.FOOTPRINT + enemy.FOOTPRINT;
        const int near =
            Floor_Int(footprints) / 2;   // a whole distance is at most half when it is at most its whole part
        for (int p = 0; p < looks_from; ++p) {
            if (!Within(points[p].X, points[p].Y, enemy.X, enemy.Y, near)) continue;
            threat.COUNT += 1;
            threat.X += unit.X - enemy.X;
            threat.Y += unit.Y - enemy.Y;
        }
    }
    return threat;
}

/// One step that leads `threat` away over as many cells as it measures.
Point Step_Away(const UNIT_RECORD& unit, const THREAT& threat)
{
    const int columns = std::abs(Hex_Column(unit.X + threat.X) - Hex_Column(unit.X));
    const int rows = std::abs(Hex_Row(unit.Y + threat.Y) - Hex_Row(unit.Y));
    const float n = static_cast<float>(std::max({columns, rows, 1}));
    return {Floor_Int(static_cast<float>(threat.X) / n), Floor_Int(static_cast<float>(threat.Y) / n)};
}

/// The ends of the screen line grow by the new place, not by the step; a sum that does not fit its field is 0.
void Drag_Screen_Ends(UNIT_RECORD& unit, int x, int y)
{
    const auto add = [](Int16& end, int by) { end = Saturate_16(end + by) == end + by ? end + by : 0; };
    add(unit.LX, x);
    add(unit.RX, x);
    add(unit.LY, y);
    add(unit.RY, y);
}

/// Why the unit stays where it is; nothing when it can go on.
const char* Barrier(const UNIT_RECORD& unit, int terrain, int cost)
{
    if (!((terrain >= 0 && terrain <= 4) || terrain == 6)) return " cannot retreat any further!";
    if (terrain >= 5 && unit.MOBILITY != 0) return "";
    if (unit.MOVEPOINTS2 - cost < 0) return "";
    return nullptr;
}

enum class Step { MADE, BARRED, OFF_MAP };

Step Take_Step(int u, const Point& step, int& cost)
{
    UNIT_RECORD& unit = UNIT[u];
    const int x = unit.X + step.X, y = unit.Y + step.Y;
    const int hex = Hex_Number(x, y);
    if (hex < 1) {
        const std::string line = Cat(unit.NAME, " retreated off-map and is destroyed!");
        Screen().Beep();
        Show_Status(line);
        Log(Cat("Retreat: ", line));
        Remove_With_Attachments(u);
        return Step::OFF_MAP;
    }
    const int terrain = Cell_Value(hex);
    cost = Cell_Cost(u, hex, cost);
    if (const char* barrier = Barrier(unit, terrain, cost)) {
        unit.MOVEPOINTS2 = 0;
        if (*barrier != '\0') Show_Status(Cat(unit.NAME, barrier));
        return Step::BARRED;
    }
    unit.MOVEPOINTS2 -= cost;
    Place_Unit(u, x, y);
    Drag_Screen_Ends(unit, x, y);
    unit.SPOTTED = 0;
    Delay(100);
    if (unit.TACOPN == SCREENING) Set_Screen(u);
    return Step::MADE;
}

/// Runs until points, ground or six steps end it; the number of steps made. The unit may be gone afterwards.
int Run(int u, const Point& step)
{
    int made = 0, cost = 0;
    do {
        if (Take_Step(u, step, cost) != Step::MADE) return made;
        ++made;
        Engage_Unit(u, 1);
        if (UNIT[u].STATUS < 1) return made;
        if (UNIT[u].SIDE == BLUE) Event_Check(u, UNIT[u].X, UNIT[u].Y);
        if (UNIT[u].STATUS < 1) return made;
    } while (made < STEPS && UNIT[u].MOVEPOINTS2 >= 1);
    return made;
}

void Retreat_Straight(int u)
{
    if (UNIT[u].TACOPN != SCREENING) Clear_Route(u);   // a screen keeps its route
    const THREAT threat = Near_Enemies(u);
    if (threat.COUNT < 1) {
        if (Explaining(u)) Explain_Line("  no enemy near: stays");
        return;
    }
    UNIT_RECORD& unit = UNIT[u];
    unit.MOVEPOINTS2 = unit.MOVEPOINTS;
    const Point step = Step_Away(unit, threat);
    const std::string name = unit.NAME.Str();
    const int made = Run(u, step);
    Log(Cat("Retreat: ", name, " -- straight, ", To_Text(made), " steps"));
    if (Explaining(u))
        Explain_Line(Cat("  retreats from ", To_Text(threat.COUNT), " near enemies, ", To_Text(made),
                         " steps of (", To_Text(step.X), ", ", To_Text(step.Y), ")",
                         UNIT[u].STATUS < 1 ? ": gone" : ""));
    // The leg that was plotted starts from here, or the next march would jump back to where the unit fled from.
    if (made > 0 && UNIT[u].STATUS > 0 && UNIT[u].NUMBER_OF_NODES > 0) unit.MOVECOST_TO_END = Compute_Route(u);
}

}   // namespace

float Retreat_Threshold(int unit)
{
    const int index = UNIT[unit].RETREATP;
    return index >= 0 && index < static_cast<int>(std::size(THRESHOLDS)) ? THRESHOLDS[index] : THRESHOLDS[0];
}

void Retreat_Unit(int unit)
{
    if (RETREATING[unit] || UNIT[unit].STATUS < 1) return;
    const Running_Retreat running(unit);
    if (UNIT[unit].RCP2 > 0) Unit_Report(9, unit, 1);
    if (UNIT[unit].MOVESTATUS == ROUTE_READY)
        Retreat_By_Route(unit);
    else
        Retreat_Straight(unit);
}

void Surrender_Unit(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.STATUS < 1) return;
    if (u.SIDE == RED) REPW = REPW + u.RCP2;
    if (u.SIDE == BLUE) BEPW = BEPW + u.RCP2;
    if (u.SIDE == BLUE || u.SIDE == RED)
        Screen().Drawn(Drawing{Draw::PRISONERS, u.X - 14, u.Y - 17, u.X, u.Y, unit, u.SIDE});
    Log(Cat("Surrender: ", u.NAME));
    if (Explaining(unit))
        Explain_Line(
            Cat(u.NAME, " surrenders: strength ", To_Text(u.STRENGTH), ", supply ", To_Text(u.LOGSTATN), "%"));
    Post_At(unit, Cat(u.NAME, " surrenders!"), 3000, BOTH);
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].STATUS > 0 && UNIT[v].PARENT_UNIT == unit)
            Post_At(unit, Cat(UNIT[v].NAME, " surrenders!"), 3000, BOTH);
    Remove_With_Attachments(unit);
}

}   // namespace sm

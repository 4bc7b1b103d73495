#include "ui/map_click.h"

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "ui/desk.h"
#include "ui/game_commands.h"
#include "ui/plot.h"
#include "ui/selection.h"

#include <algorithm>
#include <cstdlib>

namespace sm {

namespace {

bool Waits_For_A_Node()
{
    return MapMode == MODE_PLOT || MapMode == MODE_ORBIT || MapMode == MODE_PICK_UP_ZONE ||
           MapMode == MODE_LANDING_ZONE;
}

struct MODE_PROMPT {
    int MODE;
    const char* WORDS;
};
constexpr MODE_PROMPT PROMPTS[] = {
    {MODE_MOVE_NODE, "Right-click where the route point shall go."},
    {MODE_PLOT, "Right-click adds route points. A drag moves one. Esc ends."},
    {MODE_ORBIT, "Click the route point where the aircraft shall stay."},
    {MODE_PICK_UP_ZONE, "Click the route point where the unit boards."},
    {MODE_LANDING_ZONE, "Click the route point where the unit is set down."},
    {MODE_ARRIVAL, "Right-click where the unit shall arrive."},
    {MODE_PLACE_UNIT, "Right-click where the unit shall stand. Esc leaves it where it is."},
};

/// A node takes the order that waits for one; at a pick-up zone the passenger is asked for.
bool Click_Node(int row)
{
    const int lift = SelUnit;
    const bool pick_up = MapMode == MODE_PICK_UP_ZONE;
    if (!Plot_Node_Click(row)) return false;
    if (!pick_up) return true;
    const std::vector<int> units = Units_At_Pick_Up_Zone(lift, row);
    if (units.empty()) return true;
    const int passenger = The_Window().Choose_Unit("Available Units", units);
    if (passenger > 0) Choose_Passenger(lift, passenger, row);
    return true;
}

/// What was awaited does not come: a unit whose picture was taken off for its arrival is back where it stood.
void Drop_Map_Mode()
{
    const bool arriving = MapMode == MODE_ARRIVAL;
    SEAT.PickedNode = 0;
    MapMode = 0;
    if (arriving && Show_Unit(SelUnit)) Show_Picture(SelUnit);
}

void Redraw_Routes()
{
    Screen().Changed(Redraw::ROUTES);
    The_Window().Desk_Changed();
}

/// With nothing pending a right click on a unit of one's own means that unit.
void Take_Unit_Under(int x, int y, int reach)
{
    const std::vector<int> pile = Units_At(x, y, reach);
    if (std::find(pile.begin(), pile.end(), SelUnit) != pile.end()) return;
    const auto own = std::find_if(pile.begin(), pile.end(), [](int unit) { return May_Order(unit); });
    if (own != pile.end()) Get_Unit(*own);
}

}   // namespace

int Node_At(int x, int y, int reach)
{
    if (!Waits_For_A_Node() || !May_Order(SelUnit)) return 0;
    int nearest = 0, best = reach + 1;
    for (int row = 1; row <= MAX_MN; ++row) {
        if (MN[row].MNUNIT != SelUnit) continue;
        const int off = std::max(std::abs(MN[row].MNX - x), std::abs(MN[row].MNY - y));
        if (off >= best) continue;
        best = off;
        nearest = row;
    }
    return nearest;
}

void Put_Down_Node(int x, int y)
{
    if (MapMode == MODE_MOVE_NODE && On_The_Picture(x, y)) Guarded("Move_Node", [&] { Plot_Map_Click(x, y); });
    Redraw_Routes();
}

bool Map_Click(int x, int y, int reach, int node_reach)
{
    if (DESK.CoveredFor != 0 || GameLoaded == 0) return false;
    if (const int row = Node_At(x, y, node_reach); row > 0) {
        bool taken = false;
        Guarded("Plot_Node_Click", [&] { taken = Click_Node(row); });
        Show_Status(Map_Mode_Prompt());
        Redraw_Routes();
        if (taken) return true;
    }
    return Select_At(x, y, reach);
}

Order_Click Map_Order_Click(int x, int y, int reach)
{
    if (MapMode == 0 && DESK.CoveredFor == 0 && GameLoaded != 0) Take_Unit_Under(x, y, reach);
    if (DESK.CoveredFor != 0 || GameLoaded == 0 || !May_Order(SelUnit) || !On_The_Picture(x, y))
        return Order_Click::NOTHING;
    if (MapMode == 0) return Order_Click::MENU;
    bool taken = false;
    Guarded("Plot_Map_Click", [&] { taken = Plot_Map_Click(x, y); });
    Show_Status(Map_Mode_Prompt());
    Redraw_Routes();
    return taken ? Order_Click::DONE : Order_Click::NOTHING;
}

void Step_Back()
{
    if (DESK.CoveredFor != 0) {
        cmdStayOut_Click();
    } else if (MapMode == MODE_MOVE_NODE) {
        SEAT.PickedNode = 0;
        MapMode = MODE_PLOT;
    } else if (MapMode != 0) {
        Drop_Map_Mode();
    } else if (DrawMode != 0) {
        DrawMode = 0;
    } else if (SelUnit != 0) {
        Get_Unit(0);
    } else {
        cmdEnd_Click();
        return;
    }
    Show_Status(Map_Mode_Prompt());
    Redraw_Routes();
}

void End_Pending()
{
    const bool told = Map_Mode_Prompt()[0] != '\0';
    Drop_Map_Mode();
    DrawMode = 0;
    if (!told) return;
    Show_Status("");
    Redraw_Routes();
}

const char* Map_Mode_Prompt()
{
    for (const MODE_PROMPT& p : PROMPTS)
        if (p.MODE == MapMode) return p.WORDS;
    return "";
}

}   // namespace sm

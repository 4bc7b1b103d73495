#include "ui/commands.h"

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/session.h"
#include "ui/game_commands.h"
#include "ui/map_click.h"
#include "ui/options.h"
#include "ui/plot.h"
#include "ui/selection.h"
#include "ui/unit_orders.h"

namespace sm {

namespace {

using Need::ANY_TIME;
using Need::GAME_ON;
using Need::NO_TURN;
using Need::OWN_UNIT;

constexpr int ORDER = NO_TURN | GAME_ON | Need::ORDERS;
constexpr int UNIT_ORDER = ORDER | OWN_UNIT;

std::string Other_Side_Caption() { return ActiveSide == BLUE ? "Hand Over to Red" : "Hand Over to Blue"; }
std::string Status_Box_Caption() { return DESK.StatusBox ? "Hide Unit Status Box" : "Show Unit Status Box"; }
std::string Overlay_Caption()
{
    return DESK.OVERLAY == 0 ? "Display COO" : DESK.OVERLAY == 1 ? "Show COO Type 2" : "Hide COO";
}
std::string Sound_Caption() { return SoundOn == 1 ? "Sound Off" : "Sound On"; }

void Show_Prompt() { Show_Status(Map_Mode_Prompt()); }

void Plot()
{
    cmdPlot(PLOT_ROUTE);
    Show_Prompt();
}
void Place_By_Magic()
{
    cmdPlot(PLOT_MAGIC_MOVE);
    Show_Prompt();
}
void Switch_Status_Box()
{
    End_Pending();
    DESK.StatusBox = !DESK.StatusBox;
    The_Window().Desk_Changed();
}
void Switch_Sitreps()
{
    DESK.SITREPS = !DESK.SITREPS;
    The_Window().Desk_Changed();
}
void Switch_Overview()
{
    DESK.OVERVIEW = !DESK.OVERVIEW;
    The_Window().Desk_Changed();
}
void Switch_Rings()
{
    SEAT.RangeRings = SEAT.RangeRings == 0 ? 1 : 0;
    Screen().Changed(Redraw::GRAPHICS);
}
void Show_About()
{
    Screen().Box("About Stonemarch",
                 Cat("Stonemarch ", Build_Version(),
                     "\rA turn-based simulation of land warfare for staff training."
                     "\rFree software under the GNU General Public License, version 3 or later."));
}

// clang-format off
constexpr COMMAND TABLE[] = {
    {Cmd::NONE, false, "", "", ANY_TIME, [] {}, nullptr, nullptr},
    // session
    {Cmd::OPEN_GAME, true, "Open Game", "Opens a scenario or a saved game", NO_TURN, cmdOpenGame_Click, nullptr, nullptr},
    {Cmd::NEW_GAME, true, "Start a New Game", "Opens a scenario", NO_TURN, mnuNewGame_Click, nullptr, nullptr},
    {Cmd::OPEN_SAVED, true, "Open Saved Game", "Opens a saved game", NO_TURN, mnuOpenSaved_Click, nullptr, nullptr},
    {Cmd::SAVE, true, "Save Game As..", "Writes the game to a file", NO_TURN | GAME_ON, [] { cmdSavegame_Click(); }, nullptr, nullptr},
    {Cmd::EXIT, true, "Exit Game", "Leaves the program", ANY_TIME, cmdEnd_Click, nullptr, nullptr},
    {Cmd::RETURN, true, "Return to Main Menu", "Back to the list of game types", NO_TURN, cmdReturn_Click, nullptr, nullptr},
    {Cmd::END_MENU, true, "Exit Menu", "Ends this side's planning", ORDER, cmdEnd_Menu, nullptr, nullptr},
    {Cmd::HAND_OVER, true, "Hand Over", "Covers the screen and calls the other side to it", ORDER, cmdHandOver_Click, nullptr, Other_Side_Caption},
    {Cmd::GO, true, "Advance Game Turn", "Runs both sides' orders for one game turn", NO_TURN | GAME_ON, cmdGO_Click, nullptr, nullptr},
    {Cmd::SIDE_BLUE, true, "Blue Player", "Blue gives its orders", NO_TURN | GAME_ON, [] { cmdSide_Click(BLUE); }, [] { return ActiveSide == BLUE; }, nullptr},
    {Cmd::SIDE_RED, true, "Red Player", "Red gives its orders", NO_TURN | GAME_ON, [] { cmdSide_Click(RED); }, [] { return ActiveSide == RED; }, nullptr},
    // orders
    {Cmd::PLOT_LIST, true, "Plot List", "Every order of movement for the selected unit", UNIT_ORDER, [] { The_Window().Show_Plot_List(); }, nullptr, nullptr},
    {Cmd::PLOT, true, "Plot Move", "Right-click route points on the map for the selected unit", UNIT_ORDER, Plot, [] { return MapMode == MODE_MOVE_NODE || MapMode == MODE_PLOT; }, nullptr},
    {Cmd::CANCEL_MOVE, true, "Cancel Move", "Drops the route of the selected unit", UNIT_ORDER, [] { cmdPlot(PLOT_CANCEL); }, nullptr, nullptr},
    {Cmd::MAGIC_MOVE, true, "Magic Move", "The next right click places the selected unit", UNIT_ORDER, Place_By_Magic, [] { return MapMode == MODE_PLACE_UNIT; }, nullptr},
    {Cmd::TURN_LEFT, true, "Turn Left", "Turns the selected unit by 45 degrees", UNIT_ORDER, [] { cmdPlot(PLOT_TURN_LEFT); }, nullptr, nullptr},
    {Cmd::TURN_RIGHT, true, "Turn Right", "Turns the selected unit by 45 degrees", UNIT_ORDER, [] { cmdPlot(PLOT_TURN_RIGHT); }, nullptr, nullptr},
    {Cmd::ORBIT, true, "Orbit", "The next node clicked is where the aircraft stays", UNIT_ORDER, [] { cmdPlot(PLOT_ORBIT); }, [] { return MapMode == MODE_ORBIT; }, nullptr},
    {Cmd::PICK_UP_ZONE, true, "Pick-up Zone", "The next node clicked is where a unit boards", UNIT_ORDER, [] { cmdPlot(PLOT_PICK_UP_ZONE); }, [] { return MapMode == MODE_PICK_UP_ZONE; }, nullptr},
    {Cmd::LANDING_ZONE, true, "Landing Zone", "The next node clicked is where the unit aboard is set down", UNIT_ORDER, [] { cmdPlot(PLOT_LANDING_ZONE); }, [] { return MapMode == MODE_LANDING_ZONE; }, nullptr},
    {Cmd::ARRIVAL, true, "Arrival", "The next right click marks where the unit comes onto the map", UNIT_ORDER, [] { cmdPlot(PLOT_ARRIVAL); }, [] { return MapMode == MODE_ARRIVAL; }, nullptr},
    {Cmd::UNIT_REPORT, true, "Unit Status Report", "All that is known of the selected unit", UNIT_ORDER, cmdUnitReport_Click, nullptr, nullptr},
    {Cmd::MOPP_4, true, "Go to MOPP 4", "Full protection: safe in contamination, slower and more tired", UNIT_ORDER, [] { Go_To_MOPP(4); }, nullptr, nullptr},
    {Cmd::MOPP_2, true, "Go to MOPP 2", "Light protection", UNIT_ORDER, [] { Go_To_MOPP(2); }, nullptr, nullptr},
    {Cmd::NEXT_UNIT, true, "Get Next Unit", "Selects the side's next unit", GAME_ON | Need::ORDERS, cmdNextU_Click, nullptr, nullptr},
    {Cmd::LAST_UNIT, true, "Get Last Unit", "Selects the side's unit before", GAME_ON | Need::ORDERS, cmdLastU_Click, nullptr, nullptr},
    // what is seen
    {Cmd::STATUS_BOX, true, "Hide Unit Status Box", "The state of the selected unit", ANY_TIME, Switch_Status_Box, nullptr, Status_Box_Caption},
    {Cmd::SITREPS, true, "SITREPs", "The list of situation reports", ANY_TIME, Switch_Sitreps, [] { return DESK.SITREPS; }, nullptr},
    {Cmd::OVERVIEW, true, "Overview Map", "The small map in the corner", ANY_TIME, Switch_Overview, [] { return DESK.OVERVIEW; }, nullptr},
    {Cmd::OVERLAY_1, true, "Display COO", "Colours the terrain cells", GAME_ON, [] { cmdSeeT_Click(1); }, [] { return DESK.OVERLAY == 1; }, nullptr},
    {Cmd::OVERLAY_2, true, "Show COO Type 2", "Hatches what hinders movement", GAME_ON, [] { cmdSeeT_Click(2); }, [] { return DESK.OVERLAY == 2; }, nullptr},
    {Cmd::OVERLAY_OFF, true, "Hide COO", "Takes the terrain overlay off", GAME_ON, [] { cmdSeeT_Click(0); }, nullptr, nullptr},
    {Cmd::OVERLAY_NEXT, true, "Display COO", "The terrain over the map: two kinds, then none", GAME_ON, [] { cmdSeeT_Click((DESK.OVERLAY + 1) % 3); }, nullptr, Overlay_Caption},
    {Cmd::CENTRING_ON, true, "Turn-on Map Centering", "The map follows the selected unit", ANY_TIME, [] { DESK.CENTRING = true; }, [] { return DESK.CENTRING; }, nullptr},
    {Cmd::CENTRING_OFF, true, "Turn-off Map Centering", "The map stays where it is", ANY_TIME, [] { DESK.CENTRING = false; }, [] { return !DESK.CENTRING; }, nullptr},
    {Cmd::GAME_DATA, true, "Game Data", "How full the tables are", GAME_ON, mnuGameData_Click, nullptr, nullptr},
    {Cmd::VICTORY, true, "Victory Status", "Who stands better, and by how much", GAME_ON, [] { The_Window().Show_Victory(); }, nullptr, nullptr},
    {Cmd::VIEW_BLUE, true, "View Blue", "Blue and what Blue has spotted", GAME_ON, [] { mnuView_Click(1); }, [] { return ViewMode == 1; }, nullptr},
    {Cmd::VIEW_RED, true, "View Red", "Red and what Red has spotted", GAME_ON, [] { mnuView_Click(2); }, [] { return ViewMode == 2; }, nullptr},
    {Cmd::VIEW_ALL, true, "View All", "Both sides", GAME_ON, [] { mnuView_Click(3); }, [] { return ViewMode == 3; }, nullptr},
    {Cmd::VIEW_DEFAULT, true, "Default View", "The view of the side that plans", GAME_ON, [] { mnuView_Click(0); }, [] { return ViewMode == 0; }, nullptr},
    {Cmd::RANGE_RINGS, true, "Range Rings", "Weapon ranges of the selected unit", ANY_TIME, Switch_Rings, [] { return SEAT.RangeRings != 0; }, nullptr},
    {Cmd::MAP_LEFT, true, "Move map left", "", GAME_ON, [] { The_Window().Scroll_Map(-1, 0); }, nullptr, nullptr},
    {Cmd::MAP_RIGHT, true, "Move map right", "", GAME_ON, [] { The_Window().Scroll_Map(1, 0); }, nullptr, nullptr},
    {Cmd::MAP_UP, true, "Move map up", "", GAME_ON, [] { The_Window().Scroll_Map(0, -1); }, nullptr, nullptr},
    {Cmd::MAP_DOWN, true, "Move map down", "", GAME_ON, [] { The_Window().Scroll_Map(0, 1); }, nullptr, nullptr},
    {Cmd::WHOLE_MAP, true, "Whole Map", "Zooms out until all of the map is seen", GAME_ON, [] { The_Window().Show_Whole_Map(); }, nullptr, nullptr},
    {Cmd::ZOOM_IN, true, "Zoom In", "", GAME_ON, [] { The_Window().Zoom_Map(1); }, nullptr, nullptr},
    {Cmd::ZOOM_OUT, true, "Zoom Out", "", GAME_ON, [] { The_Window().Zoom_Map(-1); }, nullptr, nullptr},
    {Cmd::LOOK_BACK, true, "Back", "Returns to where the map was before a report was shown", GAME_ON, [] { The_Window().Look_Back(); }, nullptr, nullptr},
    // options
    {Cmd::TURN_15, true, "15 min turn", "", NO_TURN, [] { mnuTurnLength_Click(2); }, [] { return TurnLength == 2; }, nullptr},
    {Cmd::TURN_ONE_HOUR, true, "One-hour", "", NO_TURN, [] { mnuTurnLength_Click(1); }, [] { return TurnLength == 1; }, nullptr},
    {Cmd::TURN_TWO_HOURS, true, "Two-hour", "", NO_TURN, [] { mnuTurnLength_Click(0); }, [] { return TurnLength == 0; }, nullptr},
    {Cmd::SPEED_NORMAL, true, "Regular Game Speed", "", ANY_TIME, mnuSpeedNormal_Click, [] { return MessageDelay > 100.0f; }, nullptr},
    {Cmd::SPEED_FAST, true, "Fast Game Speed", "", ANY_TIME, mnuSpeedFast_Click, [] { return MessageDelay <= 100.0f; }, nullptr},
    {Cmd::ELINT_SIMPLE, true, "Simple Model", "", NO_TURN, [] { mnuELINT_Click(0); }, [] { return ELINTDetail == 0; }, nullptr},
    {Cmd::ELINT_DETAILED, true, "Detailed Model", "", NO_TURN, [] { mnuELINT_Click(1); }, [] { return ELINTDetail == 1; }, nullptr},
    {Cmd::SOUND, true, "Sound Off", "", ANY_TIME, cmdSound_Click, nullptr, Sound_Caption},
    // help
    {Cmd::HELP_TURN, true, "Game Setup Instructions", "How to play a turn", ANY_TIME, [] { The_Window().Show_Help("SM Help.hlp", "Game Setup Instructions"); }, nullptr, nullptr},
    {Cmd::HELP_KEYS, true, "Keyboard Commands", "", ANY_TIME, [] { The_Window().Show_Keys(); }, nullptr, nullptr},
    {Cmd::ABOUT, true, "About", "", ANY_TIME, Show_About, nullptr, nullptr},
    {Cmd::STEP_BACK, true, "Step Back", "", ANY_TIME, Step_Back, nullptr, nullptr},
};

constexpr MENU_ROW MENUS[] = {
    {"File", "", Cmd::NEW_GAME}, {"File", "", Cmd::OPEN_SAVED}, {"File", "", Cmd::SAVE}, {"File", "", Cmd::NONE},
    {"File", "", Cmd::RETURN}, {"File", "", Cmd::EXIT},

    {"Turn", "", Cmd::SIDE_BLUE}, {"Turn", "", Cmd::SIDE_RED}, {"Turn", "", Cmd::NONE}, {"Turn", "", Cmd::END_MENU},
    {"Turn", "", Cmd::HAND_OVER}, {"Turn", "", Cmd::NONE}, {"Turn", "", Cmd::GO},

    {"Orders", "", Cmd::PLOT}, {"Orders", "", Cmd::CANCEL_MOVE}, {"Orders", "", Cmd::MAGIC_MOVE},
    {"Orders", "", Cmd::TURN_LEFT}, {"Orders", "", Cmd::TURN_RIGHT}, {"Orders", "", Cmd::NONE},
    {"Orders", "", Cmd::ORBIT}, {"Orders", "", Cmd::PICK_UP_ZONE}, {"Orders", "", Cmd::LANDING_ZONE},
    {"Orders", "", Cmd::ARRIVAL}, {"Orders", "", Cmd::NONE},
    {"Orders", "", Cmd::UNIT_REPORT}, {"Orders", "", Cmd::MOPP_4}, {"Orders", "", Cmd::MOPP_2},
    {"Orders", "", Cmd::NONE}, {"Orders", "", Cmd::NEXT_UNIT}, {"Orders", "", Cmd::LAST_UNIT},

    {"View", "", Cmd::VIEW_BLUE}, {"View", "", Cmd::VIEW_RED}, {"View", "", Cmd::VIEW_ALL}, {"View", "", Cmd::VIEW_DEFAULT},
    {"View", "", Cmd::NONE}, {"View", "", Cmd::OVERLAY_1}, {"View", "", Cmd::OVERLAY_2}, {"View", "", Cmd::OVERLAY_OFF},
    {"View", "", Cmd::NONE}, {"View", "", Cmd::RANGE_RINGS}, {"View", "", Cmd::STATUS_BOX}, {"View", "", Cmd::SITREPS}, {"View", "", Cmd::OVERVIEW},
    {"View", "", Cmd::NONE}, {"View", "", Cmd::WHOLE_MAP}, {"View", "", Cmd::ZOOM_IN}, {"View", "", Cmd::ZOOM_OUT}, {"View", "", Cmd::CENTRING_ON}, {"View", "", Cmd::CENTRING_OFF},
    {"View", "", Cmd::NONE}, {"View", "", Cmd::VICTORY}, {"View", "", Cmd::GAME_DATA},

    {"Options", "Turn Length", Cmd::TURN_15}, {"Options", "Turn Length", Cmd::TURN_ONE_HOUR},
    {"Options", "Turn Length", Cmd::TURN_TWO_HOURS}, {"Options", "Game Speed", Cmd::SPEED_NORMAL},
    {"Options", "Game Speed", Cmd::SPEED_FAST}, {"Options", "ELINT", Cmd::ELINT_SIMPLE},
    {"Options", "ELINT", Cmd::ELINT_DETAILED}, {"Options", "View", Cmd::VIEW_BLUE},
    {"Options", "View", Cmd::VIEW_RED}, {"Options", "View", Cmd::VIEW_ALL}, {"Options", "View", Cmd::VIEW_DEFAULT},
    {"Options", "", Cmd::SOUND},

    {"Help", "", Cmd::HELP_TURN}, {"Help", "", Cmd::HELP_KEYS}, {"Help", "", Cmd::NONE}, {"Help", "", Cmd::ABOUT},
};

constexpr PALETTE_ROW PALETTES[] = {
    {Palette::MAIN, "Game", Cmd::OPEN_GAME}, {Palette::MAIN, "Game", Cmd::SAVE}, {Palette::MAIN, "Game", Cmd::RETURN},

    {Palette::ORDERS, "Movement", Cmd::PLOT}, {Palette::ORDERS, "Movement", Cmd::CANCEL_MOVE},
    {Palette::ORDERS, "Movement", Cmd::TURN_LEFT}, {Palette::ORDERS, "Movement", Cmd::TURN_RIGHT},
    {Palette::ORDERS, "Movement", Cmd::MAGIC_MOVE}, {Palette::ORDERS, "Movement", Cmd::PLOT_LIST},
    {Palette::ORDERS, "Unit", Cmd::UNIT_REPORT}, {Palette::ORDERS, "Unit", Cmd::MOPP_4}, {Palette::ORDERS, "Unit", Cmd::MOPP_2},
    {Palette::ORDERS, "Unit", Cmd::LAST_UNIT}, {Palette::ORDERS, "Unit", Cmd::NEXT_UNIT},
    {Palette::ORDERS, "View", Cmd::OVERLAY_NEXT}, {Palette::ORDERS, "View", Cmd::STATUS_BOX},
};

constexpr Cmd PLOT_LIST[] = {
    Cmd::PLOT, Cmd::CANCEL_MOVE, Cmd::NONE, Cmd::TURN_LEFT, Cmd::TURN_RIGHT, Cmd::MAGIC_MOVE, Cmd::NONE, Cmd::ORBIT,
    Cmd::PICK_UP_ZONE, Cmd::LANDING_ZONE, Cmd::ARRIVAL, Cmd::NONE, Cmd::UNIT_REPORT,
};

constexpr KEY_ROW KEYS[] = {
    {"Left Arrow", "Move map left", Cmd::MAP_LEFT},
    {"Right Arrow", "Move map right", Cmd::MAP_RIGHT},
    {"Up Arrow", "Move map up", Cmd::MAP_UP},
    {"Down Arrow", "Move map down", Cmd::MAP_DOWN},
    {"M", "Plot move", Cmd::PLOT},
    {"CTRL + M", "Cancel move", Cmd::CANCEL_MOVE},
    {"+", "Next unit", Cmd::NEXT_UNIT},
    {"-", "Last unit", Cmd::LAST_UNIT},
    {"T", "Display COO-1", Cmd::OVERLAY_1},
    {"CTRL + T", "Display COO-2", Cmd::OVERLAY_2},
    {"ALT + T", "Hide COO", Cmd::OVERLAY_OFF},
    {"U", "Unit Status Report", Cmd::UNIT_REPORT},
    {"H", "Status bar on/off", Cmd::STATUS_BOX},
    {"F11", "Turn-on map centering", Cmd::CENTRING_ON},
    {"F12", "Turn-off map centering", Cmd::CENTRING_OFF},
    {"Esc", "Exit Game", Cmd::STEP_BACK},
    {"CTRL + S", "Save game", Cmd::SAVE},
    {"CTRL + O", "Open saved game", Cmd::OPEN_SAVED},
    {"CTRL + N", "Start a new game", Cmd::NEW_GAME},
    {"CTRL + Return", "Advance game turn", Cmd::GO},
    {"Home", "Whole map", Cmd::WHOLE_MAP},
    {"Page Up", "Zoom in", Cmd::ZOOM_IN},
    {"Page Down", "Zoom out", Cmd::ZOOM_OUT},
    {"Backspace", "Back from a report's place", Cmd::LOOK_BACK},
    {"R", "Range rings", Cmd::RANGE_RINGS},
    {"O", "Overview map", Cmd::OVERVIEW},
    {"F1", "Help", Cmd::HELP_TURN},
};
// clang-format on

constexpr bool In_Order()
{
    int number = 0;
    for (const COMMAND& row : TABLE)
        if (static_cast<int>(row.ID) != number++) return false;
    return true;
}
static_assert(In_Order());   // row i is command i; none missing, none twice

bool Gives_Orders() { return ActiveSide == BLUE || ActiveSide == RED || UserSide == 5; }

bool Own_Unit_Selected()
{
    if (SelUnit < 1 || UNIT[SelUnit].STATUS < 1) return false;
    return UNIT[SelUnit].SIDE == ActiveSide || (ActiveSide == BOTH && UserSide == 5);
}

/// Whether the selected unit is an aircraft of one of these roles, with a route to choose a node of.
bool Flies(int role, int or_role, int or_third)
{
    const UNIT_RECORD& u = UNIT[SelUnit];
    return u.MOBILITY == 3 && u.NUMBER_OF_NODES > 0 && (u.TYPE == role || u.TYPE == or_role || u.TYPE == or_third);
}

/// What a command needs beyond its flags.
bool Fits(Cmd id)
{
    switch (id) {
    case Cmd::SIDE_BLUE:
        return May_Take_Side(BLUE);
    case Cmd::SIDE_RED:
        return May_Take_Side(RED);
    case Cmd::GO:
        return GameOver != -1;
    case Cmd::OPEN_GAME:
    case Cmd::NEW_GAME:
    case Cmd::OPEN_SAVED:
        return DESK.PALETTE != Palette::TYPES;
    case Cmd::RETURN:
        return DESK.PALETTE == Palette::MAIN;
    case Cmd::CANCEL_MOVE:
        return UNIT[SelUnit].NUMBER_OF_NODES > 0;
    case Cmd::ORBIT:
        return Flies(11, 17, 26);
    case Cmd::PICK_UP_ZONE:
    case Cmd::LANDING_ZONE:
        return Flies(12, 12, 12);
    case Cmd::ARRIVAL:
        return UNIT[SelUnit].ATIME > GTURN;
    case Cmd::OVERLAY_OFF:
        return DESK.OVERLAY != 0;
    default:
        return true;
    }
}

/// With the screen covered nobody commands but to leave, and to step back from the cover.
bool Under_Cover(Cmd id)
{
    return DESK.CoveredFor != 0 && id != Cmd::EXIT && id != Cmd::STEP_BACK && id != Cmd::ABOUT;
}

}   // namespace

std::span<const COMMAND> Commands() { return TABLE; }
std::span<const Cmd> Plot_List() { return PLOT_LIST; }
std::span<const MENU_ROW> Menu_Rows() { return MENUS; }
std::span<const PALETTE_ROW> Palette_Rows() { return PALETTES; }
std::span<const KEY_ROW> Key_Rows() { return KEYS; }

const COMMAND& Command(Cmd id) { return TABLE[static_cast<int>(id)]; }

std::string Command_Caption(Cmd id)
{
    const COMMAND& c = Command(id);
    return c.CAPTION_NOW != nullptr ? c.CAPTION_NOW() : std::string(c.CAPTION);
}

bool Command_Offered(Cmd id)
{
    const bool one_side = GameType >= 1 && GameType <= 4;
    switch (id) {
    case Cmd::HAND_OVER:
        return GameType == 0;
    case Cmd::SIDE_BLUE:
        return !one_side || UserSide == BLUE;
    case Cmd::SIDE_RED:
        return !one_side || UserSide == RED;
    default:
        return true;
    }
}

bool Command_Allowed(Cmd id)
{
    const COMMAND& c = Command(id);
    if (!c.BUILT || Under_Cover(id) || !Command_Offered(id)) return false;
    if ((c.NEEDS & NO_TURN) != 0 && SEAT.TurnRunning) return false;
    if ((c.NEEDS & GAME_ON) != 0 && GameLoaded == 0) return false;
    if ((c.NEEDS & Need::ORDERS) != 0 && !Gives_Orders()) return false;
    if ((c.NEEDS & OWN_UNIT) != 0 && !Own_Unit_Selected()) return false;
    return Fits(id);
}

bool Run_Command(Cmd id)
{
    if (!Command_Allowed(id)) return false;
    const bool sound = Guarded(Command(id).CAPTION, Command(id).RUN);
    The_Window().Desk_Changed();
    return sound;
}

std::vector<std::string> Key_List()
{
    std::vector<std::string> lines;
    for (const KEY_ROW& key : KEYS)
        if (Command(key.ID).BUILT) lines.push_back(Cat(key.KEY, "\t", key.MEANING));
    lines.emplace_back("Space\tHeld down, the mouse drags the map");   // a key that is no command
    return lines;
}

}   // namespace sm

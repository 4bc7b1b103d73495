#pragma once
// Every command of the window as a row of one table. Menus, palettes and keys name commands; the window draws them
// and calls Run_Command, which is the one gate: what is not built, not allowed now, or refused while a turn runs
// does nothing.

#include "ui/desk.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

enum class Cmd {
    NONE,
    // session
    OPEN_GAME,
    NEW_GAME,
    OPEN_SAVED,
    SAVE,
    EXIT,
    RETURN,
    END_MENU,
    HAND_OVER,
    GO,
    SIDE_BLUE,
    SIDE_RED,
    // orders
    PLOT_LIST,
    PLOT,
    CANCEL_MOVE,
    MAGIC_MOVE,
    TURN_LEFT,
    TURN_RIGHT,
    ORBIT,
    PICK_UP_ZONE,
    LANDING_ZONE,
    ARRIVAL,
    UNIT_REPORT,
    MOPP_4,
    MOPP_2,
    NEXT_UNIT,
    LAST_UNIT,
    // what is seen
    STATUS_BOX,
    SITREPS,
    OVERVIEW,
    OVERLAY_1,
    OVERLAY_2,
    OVERLAY_OFF,
    OVERLAY_NEXT,
    CENTRING_ON,
    CENTRING_OFF,
    GAME_DATA,
    VICTORY,
    VIEW_BLUE,
    VIEW_RED,
    VIEW_ALL,
    VIEW_DEFAULT,
    RANGE_RINGS,
    MAP_LEFT,
    MAP_RIGHT,
    MAP_UP,
    MAP_DOWN,
    WHOLE_MAP,
    ZOOM_IN,
    ZOOM_OUT,
    LOOK_BACK,
    // options
    TURN_15,
    TURN_ONE_HOUR,
    TURN_TWO_HOURS,
    SPEED_NORMAL,
    SPEED_FAST,
    ELINT_SIMPLE,
    ELINT_DETAILED,
    SOUND,
    // help
    HELP_TURN,
    HELP_KEYS,
    ABOUT,
    STEP_BACK,
};

/// What must hold for a command to run.
namespace Need {
inline constexpr int ANY_TIME = 0;
inline constexpr int NO_TURN = 1;    ///< refused while a turn runs: it writes to a table or changes who plans
inline constexpr int GAME_ON = 2;    ///< a game is loaded
inline constexpr int ORDERS = 4;     ///< a side gives orders (in the editor every command may)
inline constexpr int OWN_UNIT = 8;   ///< a unit of that side is selected
}   // namespace Need

struct COMMAND {
    Cmd ID;
    bool BUILT;   ///< false: on no menu, palette or key yet
    const char* CAPTION;
    const char* HINT;   ///< one line for tool tip and status line
    int NEEDS;
    void (*RUN)();
    bool (*TICKED)();               ///< of a command that switches something; nullptr for others
    std::string (*CAPTION_NOW)();   ///< of a caption that swaps; nullptr for others
};

/// The list of orders that the plot button, or a right click with nothing pending, opens for the selected unit.
/// NONE: a separator.
std::span<const Cmd> Plot_List();

/// The row of a command.
const COMMAND& Command(Cmd id);
std::span<const COMMAND> Commands();
std::string Command_Caption(Cmd id);

/// Whether the game type in play has the command at all; what it has not is not shown.
bool Command_Offered(Cmd id);
/// Whether the command is built and everything it needs holds now.
bool Command_Allowed(Cmd id);
/// Runs it; false when it was refused or failed.
bool Run_Command(Cmd id);

/// A line of a menu.
struct MENU_ROW {
    const char* MENU;      ///< "File"
    const char* SUBMENU;   ///< "" at the top of the menu
    Cmd ID;                ///< NONE: a separator
};
std::span<const MENU_ROW> Menu_Rows();

/// A button of a palette, under its heading.
struct PALETTE_ROW {
    Palette PALETTE;
    const char* HEADING;
    Cmd ID;
};
std::span<const PALETTE_ROW> Palette_Rows();

/// A row of the keyboard list.
struct KEY_ROW {
    const char* KEY;   ///< "CTRL + M"
    const char* MEANING;
    Cmd ID;
};
std::span<const KEY_ROW> Key_Rows();
/// "CTRL + M" and "Plot move", of the keys whose command is built, one line each with a tab between.
std::vector<std::string> Key_List();

}   // namespace sm

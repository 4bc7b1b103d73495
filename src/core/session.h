#pragma once
// Start-up, game types and what follows a load.

#include <string>
#include <string_view>

namespace sm {

inline constexpr const char* VERSION_LABEL = "Version 2.04 --- 3 Jan 05";

/// Version of this build, for `--version`.
std::string Build_Version();

/// Whether a screen of this size is accepted: exactly 1024 x 768, 1152 x 864 or 1280 x 960.
bool Screen_Size_Accepted(int width, int height);
/// Largest accepted size that fits a desktop of this size, or false.
bool Window_Size_For(int desktop_width, int desktop_height, int& width, int& height);
/// The refusal of a screen that is too small, in lines.
std::string Screen_Refusal();

/// Start-up without its screen: log with its banner, defaults, weapons file. `screen_width`, `screen_height` go to the log.
void Start_Up(int screen_width, int screen_height);
/// Values of the scalars at program start.
void Set_Start_Defaults();

struct GAME_TYPE {
    int NUMBER;
    const char* LABEL;
    int ROLE;             ///< NetRole
    const char* TITLE;    ///< window title, nullptr when the button opens none
};
/// The list of game types; nullptr for a number that is none.
const GAME_TYPE* Game_Type(int number);
inline constexpr int GAME_TYPES = 10;
const GAME_TYPE& Game_Type_Row(int index);   ///< 0..9 in the order of the list

/// A button of the list was pressed: GameType, NetRole, seat values, title. False for "Exit Game".
bool Choose_Game_Type(int number);

/// Loads GameFileName and prepares everything for play. False when it failed; the player was told.
bool Load_Game();
/// What follows every load, tape and transfer: turn number, map, routes, lines of communication, power sums.
bool After_Load(bool tape);
/// A side button of the main frame; false when this seat may not take the side.
bool Choose_Side(int side);

}   // namespace sm

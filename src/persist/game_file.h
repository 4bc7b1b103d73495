#pragma once
// The keyed text file of scenarios, saved games and correspondence: one field a line.

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// Reads (1) or writes (2) the game file GameFileName, or reads (8) the stock weapons file "SMW.wef" of the
/// program folder. False when it failed: the player was told, but for a missing stock weapons file, which only the
/// log tells. A GameFileName that begins with a backslash lies in the program folder.
bool Game_File(int mode);

/// The game as file text, CR LF line ends. A real that no file can hold fails as an overflow.
std::string Game_Text(bool show_progress = false);
/// Writes the game to a path, whole or not at all; the version label is this program's, and a scenario (.sce)
/// takes the name of its file. `quiet`: a success is told on the status line and in the log only.
bool Save_Game_File(const std::string& path, bool quiet);
/// Reads a game file's text into the tables (erased first). 0, or the number of the failure, with its line in the
/// log; what was read stays.
int Read_Game_Text(std::string_view text);

struct File_Fault {
    int LINE;
    bool FAULT;   ///< false: a remark
    std::string TEXT;
};
/// What is wrong with a file of the game (game, terrain by .ter, weapons by .wef), each fault with its line.
std::vector<File_Fault> Check_File(const std::string& path);

}   // namespace sm

#pragma once
// The keyed text file of scenarios, saved games and correspondence: one field a line.

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// Modes of Game_File that are built: 1 reads GameFileName, 2 writes it, 8 reads the weapons file.
/// False when it failed; the player was told.
bool Game_File(int mode);

/// The game as file text, CR LF line ends.
std::string Game_Text();
/// Writes the game to a path, whole or not at all. Status line and log only with `quiet`.
bool Save_Game_File(const std::string& path, bool quiet);
/// Reads a game file's text into the tables (erased first). 0, or the number of the failure; what was read stays.
int Read_Game_Text(std::string_view text);

struct File_Fault {
    int LINE;
    bool FAULT;         ///< false: a remark
    std::string TEXT;
};
/// What is wrong with a file of the game (game, terrain by .ter, weapons by .wef), each fault with its line.
std::vector<File_Fault> Check_File(const std::string& path);

}   // namespace sm

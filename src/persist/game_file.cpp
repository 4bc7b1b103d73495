#include "persist/game_file.h"

namespace sm {

bool Game_File(int) { return false; }
std::string Game_Text() { return {}; }
bool Save_Game_File(const std::string&, bool) { return false; }
int Read_Game_Text(std::string_view) { return 53; }
std::vector<File_Fault> Check_File(const std::string&) { return {}; }

}   // namespace sm

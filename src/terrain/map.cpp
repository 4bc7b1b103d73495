#include "terrain/map.h"

namespace sm {

bool Prepare_Map() { return true; }
bool Read_Terrain(const std::string&, std::string&) { return false; }
bool Write_Terrain(const std::string&, std::string&) { return false; }
bool Picture_Size(const std::string&, int&, int&) { return false; }
void Change_Crossing() {}
void Assign_Terrain(int, int, const std::string&) {}
const STOCK_MAP& Stock_Map(int) { static constexpr STOCK_MAP none{}; return none; }
void Choose_Stock_Map(int) {}

}   // namespace sm

#include "terrain/coordinates.h"

namespace sm {

std::string Grid_Reference(int, int) { return "No UTM Data"; }
bool Has_Grid_Data() { return false; }
std::string Lat_Long(int, int) { return "LAT/LONG: OFF"; }

}   // namespace sm

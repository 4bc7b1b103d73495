#pragma once
#include <string>

namespace sm {

/// Grid reference of a picture point by the stock map's table ("PC 4276"), or "No UTM Data".
std::string Grid_Reference(int x, int y);
/// Whether the map in play has a table of grid references.
bool Has_Grid_Data();
/// "LAT/LONG: OFF" without a frame, else latitude and longitude in degrees and minutes.
std::string Lat_Long(int x, int y);

}   // namespace sm

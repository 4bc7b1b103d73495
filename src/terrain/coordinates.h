#pragma once
// What the pointer reads: grid references of the stock maps, latitude and longitude. No rule depends on either.

#include <string>

namespace sm {

/// Grid reference of a picture point by the stock map's table: the letters of the 100-kilometre square, whole
/// kilometres east and north in it ("PC 4276"). "No UTM Data" on any other map and off the picture.
std::string Grid_Reference(int x, int y);
/// Whether the map in play has a table of grid references.
bool Has_Grid_Data();

/// Whether the map has a frame of latitude and longitude.
bool Has_Frame();
/// "LAT/LONG: OFF" without a frame, else "LAT/LONG: 52 08' N  10 58' E", whole minutes toward zero. The frame
/// tells its own signs: where DLONGX is below 0 longitudes fall toward the east, so that positive ones are
/// western; where DLATY is above 0 latitudes grow down the picture, so that positive ones are southern.
std::string Lat_Long(int x, int y);

}   // namespace sm

#pragma once
#include <string>

namespace sm {

/// Raises GTURN, moves clock and date, grants the day's air strikes, refreshes the header.
void Advance_Clock();
/// Sets TIME_OF_DAY from the clock and has the header drawn.
void Update_Header();
/// GTIME as a number, 0 when it is none.
int Clock_Number();

/// The texts of the header.
struct Header_Texts {
    std::string TURN, CLOCK, DATE, WIND;
    bool NIGHT;
    int PICTURE;   ///< 102 by night, 101 by day
};
Header_Texts Header();

}   // namespace sm

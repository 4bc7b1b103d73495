#pragma once
#include <string>
#include <string_view>

namespace sm {

/// The catalogue of unit types, keyed text like the game file but with keys of its own: "WPN" begins a row, and
/// rows go on to the end of the file. It never touches the units.

/// Reads a weapons file's text into the table, which is cleared first. 0, or the number of the failure, with its
/// line in the log; the rows read so far stay.
int Read_Weapons_Text(std::string_view text);

/// Reads a weapons file that the player chose. False when it failed; a box told so.
bool Read_Weapons_File(const std::string& path);

/// Reads "SMW.wef" of the program folder at start-up. A missing file leaves the table empty and is told by the log
/// only.
bool Read_Stock_Weapons();

}   // namespace sm

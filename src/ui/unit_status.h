#pragma once
// The state of a unit in words, as the status panel and the unit status report show it.

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// The two columns of the status panel. Of a unit whose plans this seat does not see, only what can be seen of it.
struct Status_Texts {
    std::vector<std::string> LEFT, RIGHT;
};
Status_Texts Unit_Status(int unit);

/// Operating lines of the unit status report: status, sensor, weapons, strength, bridging, supplies.
std::vector<std::string> Operating_Lines(int unit);
/// The whole report: both columns of the panel, then the operating lines.
std::vector<std::string> Unit_Report_Lines(int unit);

/// "C2 Status: Good - 12 kms"; empty for a unit that is jammed beyond "Bad".
std::string C2_Line(int unit);

/// "Armor" and its like, by TYPE; "Battalion" and its like, by SIZE.
std::string_view Role_Label(int type);
std::string_view Size_Label(int size);

}   // namespace sm

#pragma once
// The pictures that a load puts on the map. The engine draws none; it tells which are missing.

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// One load's look at the icons folder. Each missing icon gets one line in the log, the first of a load also a
/// box; reading goes on.
struct ICON_SEARCH {
    std::vector<std::string> SEEN;   ///< names already looked for, in byte order
    bool FOLDER_LOOKED_AT = false;
    bool BOXED = false;
};
void Look_For_Icon(ICON_SEARCH& search, std::string_view name);

/// Icons that follow from a record's type; "" for a type without one.
std::string_view NBC_Icon(int nbc_type);
std::string_view Objective_Icon(int objective_type);

}   // namespace sm

#pragma once
// The pictures that a load puts on the map. The engine draws none; it tells which are missing.

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// One load's look at the icons folder. Each missing icon gets one line in the log, the first of a load also a
/// box; reading goes on.
struct ICON_SEARCH {
    int FOLDER = -1;       ///< the icons folder, open
    bool OPENED = false;   ///< whether that was tried
    bool BOXED = false;
    std::vector<std::string> SEEN;   ///< names already looked for, in byte order

    ICON_SEARCH() = default;
    ~ICON_SEARCH();
    ICON_SEARCH(const ICON_SEARCH&) = delete;
    ICON_SEARCH& operator=(const ICON_SEARCH&) = delete;
};
void Look_For_Icon(ICON_SEARCH& search, std::string_view name);

/// Icons that follow from a record's type; "" for a type without one.
std::string_view NBC_Icon(int nbc_type);
std::string_view Objective_Icon(int objective_type);

}   // namespace sm

#include "persist/icons.h"

#include "core/errors.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/text.h"
#include "persist/failure.h"
#include "persist/program_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace sm {
namespace fs = std::filesystem;

namespace {

/// What was found in the icons folder in this process. It holds as long as nothing was put into the folder or
/// taken out of it, which its time of change tells: one question a load instead of one for each icon.
struct KNOWN_ICONS {
    fs::path FOLDER;
    fs::file_time_type CHANGED;
    std::vector<std::string> THERE;   ///< in byte order
};
KNOWN_ICONS KNOWN;

void Look_At_Folder()
{
    std::error_code fault;
    fs::path folder = Home_Path("\\icons");
    const fs::file_time_type changed = fs::last_write_time(folder, fault);
    if (!fault && folder == KNOWN.FOLDER && changed == KNOWN.CHANGED) return;
    KNOWN = {std::move(folder), changed, {}};
}

bool Icon_There(std::string_view name)
{
    if (name.empty()) return false;
    const auto at = std::lower_bound(KNOWN.THERE.begin(), KNOWN.THERE.end(), name);
    if (at != KNOWN.THERE.end() && *at == name) return true;
    std::error_code fault;
    if (!fs::is_regular_file(Home_Path(Cat("\\icons\\", name)), fault)) return false;
    KNOWN.THERE.insert(at, std::string(name));
    return true;
}

}   // namespace

void Look_For_Icon(ICON_SEARCH& search, std::string_view name)
{
    name = Trim(name);
    const auto at = std::lower_bound(search.SEEN.begin(), search.SEEN.end(), name);
    if (at != search.SEEN.end() && *at == name) return;
    search.SEEN.insert(at, std::string(name));

    if (!search.FOLDER_LOOKED_AT) Look_At_Folder();
    search.FOLDER_LOOKED_AT = true;
    if (Icon_There(name)) return;
    Log(Cat(Failure_Text(ERROR_NO_FILE), ", missing icon: \\icons\\", name));
    if (!search.BOXED) Screen().Box(FAILURE_TITLE, Failure_Text(ERROR_NO_FILE));
    search.BOXED = true;
}

std::string_view NBC_Icon(int nbc_type)
{
    switch (nbc_type) {
    case 11:
    case 21:
        return "gas.ico";
    case 20:
        return "smoke.ico";
    default:
        return "";
    }
}

std::string_view Objective_Icon(int objective_type)
{
    switch (objective_type) {
    case 1:
        return "Obj.ico";
    case 2:
        return "KeyT.ico";
    case 3:
        return "Mcorridor.ico";
    default:
        return "";
    }
}

}   // namespace sm

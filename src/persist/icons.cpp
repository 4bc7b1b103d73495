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

namespace {

/// The folder is looked up once, and most names are spelt as their files are; the lookup in any spelling is for
/// the rest.
bool Icon_There(ICON_SEARCH& search, std::string_view name)
{
    if (name.empty()) return false;
    if (search.FOLDER.empty()) search.FOLDER = Home_Path("\\icons");
    std::error_code fault;
    const bool plain =
        name.find_first_of(std::string_view("\\/\0", 3)) == name.npos && name != "." && name != "..";
    if (plain && std::filesystem::is_regular_file(search.FOLDER / To_Utf8(name), fault)) return true;
    return std::filesystem::is_regular_file(Home_Path(Cat("\\icons\\", name)), fault);
}

}   // namespace

void Look_For_Icon(ICON_SEARCH& search, std::string_view name)
{
    name = Trim(name);
    const auto at = std::lower_bound(search.SEEN.begin(), search.SEEN.end(), name);
    if (at != search.SEEN.end() && *at == name) return;
    search.SEEN.insert(at, std::string(name));

    if (Icon_There(search, name)) return;
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

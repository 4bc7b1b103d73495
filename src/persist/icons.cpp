#include "persist/icons.h"

#include "core/errors.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/text.h"
#include "persist/failure.h"
#include "persist/program_folder.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace sm {

namespace {

/// Most names are spelt as their files are and are asked for in the open folder, which spares the walk down to it;
/// the lookup in any spelling is for the rest.
bool Icon_There(ICON_SEARCH& search, std::string_view name)
{
    if (name.empty()) return false;
    if (!search.OPENED) search.FOLDER = ::open(Home_Path("\\icons").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    search.OPENED = true;
    const bool plain = name.find_first_of(std::string_view("\\/\0", 3)) == name.npos;
    struct stat about {};
    if (plain && search.FOLDER >= 0 && ::fstatat(search.FOLDER, To_Utf8(name).c_str(), &about, 0) == 0 &&
        S_ISREG(about.st_mode))
        return true;
    std::error_code fault;
    return std::filesystem::is_regular_file(Home_Path(Cat("\\icons\\", name)), fault);
}

}   // namespace

ICON_SEARCH::~ICON_SEARCH()
{
    if (FOLDER >= 0) ::close(FOLDER);
}

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

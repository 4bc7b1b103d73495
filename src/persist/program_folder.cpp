#include "persist/program_folder.h"
#include "core/text.h"
#include "persist/safe_file.h"
#include <algorithm>
#include <optional>
#include <system_error>
#include <vector>

namespace sm {
namespace fs = std::filesystem;
namespace {

constexpr const char* SUBFOLDERS[] = {"Scenarios", "Saved Games", "aar",    "Maps",
                                      "Terrain",   "icons",       "events", "OPORDs"};

/// Far above any picture or sound of the stock content.
constexpr std::size_t MOST_STOCK_BYTES = std::size_t{256} << 20;

fs::path& Folder_Store()
{
    static fs::path folder = ".";
    return folder;
}

/// Lower case in code page 1252, by its table and not by a locale: the accented letters stand 32 apart like the
/// plain ones, save the multiplication sign, and four more in the block at 128.
std::string Folded(std::string_view name)
{
    std::string folded(name);
    for (char& c : folded) {
        const auto b = static_cast<unsigned char>(c);
        if ((b >= 'A' && b <= 'Z') || (b >= 0xC0 && b <= 0xDE && b != 0xD7))
            c = static_cast<char>(b + 32);
        else if (b == 0x8A || b == 0x8C || b == 0x8E)
            c = static_cast<char>(b + 16);
        else if (b == 0x9F)
            c = static_cast<char>(0xFF);
    }
    return folded;
}

/// The parts of a name between slashes of either kind; nothing when it may not be followed.
std::optional<std::vector<std::string>> Parts_Of(std::string_view name)
{
    std::vector<std::string> parts;
    name = Trim(name);
    while (!name.empty()) {
        const std::size_t end = std::min(name.find_first_of("\\/"), name.size());
        const std::string_view part = name.substr(0, end);
        name.remove_prefix(std::min(end + 1, name.size()));
        if (part.empty() || part == ".") continue;
        if (part == ".." || part.find('\0') != part.npos) return std::nullopt;
        parts.emplace_back(part);
    }
    return parts;
}

/// The entry of `folder` that `name` (code page 1252) means; nothing when there is none.
std::optional<fs::path> Entry_Named(const fs::path& folder, std::string_view name, bool only_folders)
{
    std::error_code error;
    const auto suits = [&](const fs::path& entry) {
        return only_folders ? fs::is_directory(entry, error) : fs::exists(entry, error);
    };
    const fs::path exact = folder / To_Utf8(name);
    if (suits(exact)) return exact;

    std::optional<std::string> found;
    const std::string wanted = Folded(name);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::string spelling = entry->path().filename().string();
        if (Folded(From_Utf8(spelling)) != wanted || (found && *found <= spelling)) continue;
        if (suits(entry->path())) found = std::move(spelling);
    }
    if (!found) return std::nullopt;
    return folder / *found;
}

/// A folder in `parent`, made when there is none in any spelling.
std::string Make_Subfolder(const fs::path& parent, std::string_view name, fs::path& made)
{
    std::error_code error;
    const std::optional<fs::path> there = Entry_Named(parent, name, true);
    made = there ? *there : parent / To_Utf8(name);
    if (!there && !fs::create_directory(made, error) && error)
        return "Cannot make the folder \"" + made.string() + "\": " + error.message();
    return {};
}

/// Copies what `to` lacks of `from`, in the order of the names.
std::string Fill_Folder(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(from, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    if (error) return "Cannot read the folder \"" + from.string() + "\": " + error.message();
    std::sort(entries.begin(), entries.end());

    for (const fs::path& entry : entries) {
        const std::string name = From_Utf8(entry.filename().string());
        if (fs::is_directory(entry, error)) {
            fs::path subfolder;
            if (std::string failed = Make_Subfolder(to, name, subfolder); !failed.empty()) return failed;
            if (std::string failed = Fill_Folder(entry, subfolder); !failed.empty()) return failed;
        } else if (!Entry_Named(to, name, false)) {
            const FILE_READ read = Read_File_Whole(entry, MOST_STOCK_BYTES);
            if (!read.ERROR.empty()) return read.ERROR;
            if (std::string failed = Write_File_Whole(to / entry.filename(), read.CONTENT); !failed.empty())
                return failed;
        }
    }
    return {};
}

}   // namespace

void Set_Program_Folder(const fs::path& folder) { Folder_Store() = folder; }

const fs::path& Program_Folder() { return Folder_Store(); }

fs::path Home_Path(std::string_view name)
{
    const auto parts = Parts_Of(name);
    if (!parts || parts->empty()) return {};
    fs::path path = Program_Folder();
    bool followed = true;
    for (std::size_t i = 0; i < parts->size(); ++i) {
        std::optional<fs::path> entry;
        if (followed) entry = Entry_Named(path, (*parts)[i], i + 1 < parts->size());
        followed = entry.has_value();
        path = followed ? *entry : path / To_Utf8((*parts)[i]);
    }
    return path;
}

fs::path File_Place(const std::string& name) { return name.starts_with('\\') ? Home_Path(name) : fs::path(name); }

std::string Make_Program_Folder(const fs::path& folder, const fs::path& stock)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return "Cannot make the folder \"" + folder.string() + "\": " + error.message();
    Remove_Leftover_Temporaries(folder);
    for (const char* name : SUBFOLDERS) {
        fs::path subfolder;
        if (std::string failed = Make_Subfolder(folder, name, subfolder); !failed.empty()) return failed;
        Remove_Leftover_Temporaries(subfolder);
    }
    if (stock.empty() || fs::equivalent(stock, folder, error)) return {};
    return Fill_Folder(stock, folder);
}

}   // namespace sm

#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace sm {

/// The program folder, "home": Scenarios, Saved Games, aar, Maps, Terrain, icons, events and OPORDs, with the
/// weapons file SMW.wef and the log SM.log beside them. Everything the game reads by name and all it writes lies
/// under it, except what a person names outright. The current folder until it is set.
void Set_Program_Folder(const std::filesystem::path& folder);
const std::filesystem::path& Program_Folder();

/// Where a name lies that a file, a rule or a message carries: "\Maps\Germany1.bmp", code page 1252, either slash,
/// blanks around it cut. Each part is looked up without regard to case: the very spelling first, else of several
/// the lowest in byte order, so that all machines with the same files take the same one. From the first part that
/// nothing matches on, the spelling is kept, for a file to be written. A name that climbs out of the folder ("..")
/// or cannot be a file's gives the empty path, which the reader tells as missing and the writer refuses.
std::filesystem::path Home_Path(std::string_view name);

/// Where a file lies that is opened by name: a name that begins with a backslash lies in the program folder, any other
/// is the path that a person chose.
std::filesystem::path File_Place(const std::string& name);

/// Makes `folder` a program folder: its subfolders, and whatever of the files under `stock` it does not have yet.
/// A file that is there stays as it is, in any spelling of its name; temporaries left by killed writers go.
/// `stock` may be empty, for a folder without content, or the folder itself. Does not set Program_Folder. Answers
/// an empty text, or one line about the first thing that failed.
[[nodiscard]] std::string Make_Program_Folder(const std::filesystem::path& folder,
                                              const std::filesystem::path& stock);

}   // namespace sm

#pragma once
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace sm {

/// The one writer of every file that must survive: games, terrain, weapons, forces, tapes. The content goes whole
/// to a temporary file beside the target, is synced, and takes the target's name in one step; then the folder is
/// synced. A crash, a kill or a full disk at any moment leaves the old file or the new one, never a part of one.
///
/// Answers an empty text when the file stands on the disk, else one line that tells what failed. After a failure
/// the old file stands and the temporary is gone; only when the very last step fails (the folder's sync) the new
/// file already has its name, and the line says so. A link is followed and stays a link. The target must be a
/// plain file, or missing, and an existing one must be writable; its permissions carry over.
[[nodiscard]] std::string Write_File_Whole(const std::filesystem::path& target, std::string_view content);

/// Removes from `folder` the temporaries of writers that were killed. Those of running programs stay.
void Remove_Leftover_Temporaries(const std::filesystem::path& folder);

struct FILE_READ {
    std::string CONTENT;    // empty unless all of the file was read
    std::string ERROR;      // one line, empty when all was read
    bool MISSING = false;   // the error is that there is no such file
};

/// The whole content of a plain file of at most `most` bytes. A longer file, a folder, a pipe or a device is an
/// error, told without waiting for anything to come through it.
[[nodiscard]] FILE_READ Read_File_Whole(const std::filesystem::path& file, std::size_t most);

}   // namespace sm

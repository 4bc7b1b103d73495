#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sm::test {

/// A folder of a test's own, gone with it.
class Scratch_Folder {
public:
    Scratch_Folder();
    ~Scratch_Folder();
    Scratch_Folder(const Scratch_Folder&) = delete;
    Scratch_Folder& operator=(const Scratch_Folder&) = delete;
    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// For arranging and looking at files in tests: neither goes through the code under test.
void Put_File(const std::filesystem::path& file, std::string_view content);
std::string File_Content(const std::filesystem::path& file);

/// How often a text holds a part.
int Count_Of(std::string_view text, std::string_view part);

/// The names in a folder, in byte order.
std::vector<std::string> Names_In(const std::filesystem::path& folder);

/// What a command of the shell printed (both streams) and its exit status.
struct COMMAND_RESULT {
    int STATUS;   // 128 and more: ended by a signal
    std::string PRINTED;
};
COMMAND_RESULT Run_Command(const std::string& command);

}   // namespace sm::test

#include "support/scratch.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/wait.h>

namespace sm::test {
namespace fs = std::filesystem;

Scratch_Folder::Scratch_Folder()
{
    std::string name = (fs::temp_directory_path() / "stonemarch-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("no scratch folder: " + name);
    path_ = name;
}

Scratch_Folder::~Scratch_Folder()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void Put_File(const fs::path& file, std::string_view content)
{
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush()) throw std::runtime_error("cannot put " + file.string());
}

std::string File_Content(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(in), {}};
}

int Count_Of(std::string_view text, std::string_view part)
{
    int n = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++n;
    return n;
}

std::vector<std::string> Names_In(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

COMMAND_RESULT Run_Command(const std::string& command)
{
    COMMAND_RESULT result{};
    std::FILE* const pipe = ::popen(("{ " + command + "\n} 2>&1").c_str(), "r");
    if (!pipe) throw std::runtime_error("cannot run " + command);
    char piece[4096];
    while (const std::size_t n = std::fread(piece, 1, sizeof piece, pipe)) result.PRINTED.append(piece, n);
    const int status = ::pclose(pipe);
    result.STATUS = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

}   // namespace sm::test

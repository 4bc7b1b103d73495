#include "commands.h"
#include "core/game_state.h"
#include "core/state_hash.h"
#include "persist/game_file.h"
#include "persist/safe_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace sm {

namespace {

std::string Content_Of(const std::string& file)
{
    FILE_READ found = Read_File_Whole(file, std::size_t{1} << 30);
    if (!found.ERROR.empty()) throw Refusal{found.ERROR};
    return std::move(found.CONTENT);
}

void Read_Game(const std::string& file)
{
    if (Read_Game_Text(Content_Of(file)) != 0) throw Refusal{Cat(file, ": not a sound game file; see `check`")};
}

}   // namespace

void Refuse_Unwritable(const std::string& path)
{
    if (path.empty()) return;
    const std::filesystem::path target(path), folder = target.has_parent_path() ? target.parent_path() : ".";
    std::error_code fault;
    if (std::filesystem::is_directory(target, fault)) throw Refusal{Cat(path, ": this is a folder")};
    if (!std::filesystem::is_directory(folder, fault))
        throw Refusal{Cat(path, ": there is no folder ", folder.string())};
    const bool there = std::filesystem::exists(target, fault);
    if (access(folder.c_str(), W_OK) != 0 || (there && access(path.c_str(), W_OK) != 0))
        throw Refusal{Cat(path, ": cannot be written: ", std::strerror(errno))};
}

void Write_Out(const std::vector<OUT_FILE>& files)
{
    std::string faults;
    for (const OUT_FILE& file : files) {
        const std::string fault = Write_File_Whole(file.PATH, file.CONTENT);
        if (!fault.empty()) faults += Cat(faults.empty() ? "" : "; ", fault);
    }
    if (!faults.empty()) throw Refusal{faults};
}

int Check(const Arguments& a)
{
    Content_Of(a.WORDS[1]);   // an unreadable file is wrong use, not a fault in it
    bool faults = false;
    for (const File_Fault& f : Check_File(a.WORDS[1])) {
        faults = faults || f.FAULT;
        Print_Line(Cat(a.WORDS[1], ":", To_Text(f.LINE), f.FAULT ? ": " : ": remark: ", f.TEXT));
    }
    if (!faults) Print_Line(Cat(a.WORDS[1], ": no faults"));
    return faults ? FAULTS_FOUND : FINE;
}

int Diff(const Arguments& a)
{
    const auto empty = std::make_unique<Game>(GAME);
    Read_Game(a.WORDS[1]);
    const auto here = std::make_unique<Game>(GAME);
    GAME = *empty;
    Read_Game(a.WORDS[2]);
    const auto lines = Differences(*here, GAME);
    for (const std::string& line : lines) Print_Line(line);
    return lines.empty() ? FINE : FAULTS_FOUND;
}

}   // namespace sm

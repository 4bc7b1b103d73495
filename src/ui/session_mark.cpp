#include "ui/session_mark.h"

#include "core/numbers.h"
#include "core/session.h"
#include "persist/program_folder.h"

#include <array>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace sm {

namespace {

constexpr const char* MARK_FILE = "SM.session";

int MARK = -1;   // open file with its lock, -1 when this program holds none

void Write_Mark(const std::string& text)
{
    if (MARK < 0 || ftruncate(MARK, 0) != 0) return;
    // A mark that cannot be written only costs the offer after a crash.
    if (pwrite(MARK, text.data(), text.size(), 0) < 0) return;
    fsync(MARK);
}

}   // namespace

bool Open_Session_Mark(int& game_type)
{
    Close_Session_Mark();
    MARK = open(Home_Path(MARK_FILE).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (MARK < 0) return false;
    if (flock(MARK, LOCK_EX | LOCK_NB) != 0) {
        close(MARK);
        MARK = -1;
        return false;
    }
    std::array<char, 16> text{};
    const auto n = pread(MARK, text.data(), text.size(), 0);
    const int type = n > 0 ? Parse_Int(std::string_view(text.data(), static_cast<std::size_t>(n))).value_or(-1) : -1;
    Write_Mark("");
    if (Game_Type(type) == nullptr) return false;
    game_type = type;
    return true;
}

void Mark_Turn(int game_type) { Write_Mark(To_Text(game_type)); }

void Clear_Session_Mark() { Write_Mark(""); }

void Close_Session_Mark()
{
    if (MARK < 0) return;
    // The name goes while the lock is held, so that no other program can take a mark that is about to vanish.
    unlink(Home_Path(MARK_FILE).c_str());
    close(MARK);
    MARK = -1;
}

}   // namespace sm

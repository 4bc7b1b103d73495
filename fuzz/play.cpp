// A spoiled game that loads must also play: two turns end, well or with a failure that puts the game back.
#include "core/game_state.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/turn_driver.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include <cstdint>
#include <cstdlib>

namespace {

constexpr const char* HOME = "home";
constexpr const char* INPUT = "input.btl";

}   // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    if (!sm::Make_Program_Folder(HOME, "").empty()) std::abort();
    sm::Set_Program_Folder(HOME);
    sm::Start_Up(1024, 768);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (!sm::Write_File_Whole(INPUT, {reinterpret_cast<const char*>(bytes), size}).empty()) std::abort();
    sm::SEAT = sm::Seat{};
    static_cast<sm::HEADER&>(sm::GAME) = {};
    static_cast<sm::TACAIR&>(sm::GAME) = {};
    static_cast<sm::MODEL&>(sm::GAME) = {};
    sm::Set_Start_Defaults();
    sm::Choose_Game_Type(0);
    sm::GameFileName = INPUT;
    if (!sm::Load_Game()) return 0;
    sm::AARPlaying = -1;   // no autosave and no tape
    for (int turn = 1; turn <= 2 && sm::Play_Turn(); ++turn) {}
    return 0;
}

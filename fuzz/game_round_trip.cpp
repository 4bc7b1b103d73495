// Whatever a game file leaves in the tables can be written, and reads back to the same text.
#include "core/game_state.h"
#include "persist/game_file.h"
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    // A key that the file lacks keeps its value: one input must not depend on the one before.
    static_cast<sm::HEADER&>(sm::GAME) = {};
    static_cast<sm::TACAIR&>(sm::GAME) = {};
    static_cast<sm::MODEL&>(sm::GAME) = {};
    sm::Read_Game_Text({reinterpret_cast<const char*>(bytes), size});
    const std::string written = sm::Game_Text();
    if (sm::Read_Game_Text(written) != 0 || sm::Game_Text() != written) std::abort();
    return 0;
}

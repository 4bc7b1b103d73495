// Game files: whatever the text, reading ends with the game or with the number of a failure.
#include "persist/game_file.h"
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    sm::Read_Game_Text({reinterpret_cast<const char*>(bytes), size});
    return 0;
}

// Weapons files: whatever the text, reading ends, and the rows read are whole.
#include "persist/weapons_file.h"
#include "core/game_state.h"
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    sm::Read_Weapons_Text({reinterpret_cast<const char*>(bytes), size});
    if (sm::WPN.Count() > sm::MAX_WPN) std::abort();
    return 0;
}

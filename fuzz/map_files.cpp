// Terrain files, and the picture headers that a map's size is read from.
#include "core/game_state.h"
#include "terrain/map.h"
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view content(reinterpret_cast<const char*>(bytes), size);
    int width = 0, height = 0;
    if (sm::Picture_Header(content, width, height) && (width < 1 || height < 1)) std::abort();

    // A grid that the content may fill, so that its records are read and not only its length.
    sm::HEXCOUNT = std::clamp(static_cast<int>(size) / sm::TERRAIN_RECORD_BYTES, 1, sm::MAX_HEX);
    std::string fault;
    if (sm::Take_Terrain(content, fault) != fault.empty()) std::abort();
    return 0;
}

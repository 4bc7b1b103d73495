// What `check` says of a spoiled file of any kind; the first byte chooses the kind.
#include "persist/fault_list.h"
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) return -1;
    const std::string_view content(reinterpret_cast<const char*>(bytes) + 1, size - 1);
    sm::Fault_List faults;
    switch (bytes[0] % 4) {
    case 0: sm::Check_Game(content, false, faults); break;
    case 1: sm::Check_Game(content, true, faults); break;
    case 2: sm::Check_Terrain(content, faults); break;
    default: sm::Check_Weapons(content, faults);
    }
    int line = 0;
    for (const sm::File_Fault& fault : faults.In_Order()) {
        if (fault.LINE < line || fault.TEXT.empty()) std::abort();
        line = fault.LINE;
    }
    return 0;
}

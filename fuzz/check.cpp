// What `check` says of a spoiled file of any kind; the first byte chooses the kind.
#include "persist/game_file.h"
#include "persist/safe_file.h"
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) return -1;
    static constexpr const char* NAMES[] = {"input.btl", "input.ter", "input.wef"};
    const char* const name = NAMES[bytes[0] % 3];
    if (!sm::Write_File_Whole(name, {reinterpret_cast<const char*>(bytes) + 1, size - 1}).empty()) std::abort();
    for (const sm::File_Fault& fault : sm::Check_File(name))
        if (fault.LINE < 0 || fault.TEXT.empty()) std::abort();
    return 0;
}

// Game files: the reader's quick way over records of our own layout and its way line by line come to the same game.
#include "support/two_ways.h"
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (!sm::test::Reads_The_Same_Both_Ways({reinterpret_cast<const char*>(bytes), size})) std::abort();
    return 0;
}

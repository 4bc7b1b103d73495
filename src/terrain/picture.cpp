#include "terrain/map.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace sm {

namespace {

/// A size beyond this is a broken header: positions on the picture are 16 bits wide.
constexpr std::int64_t MOST_PIXELS = 65535;
/// Far more than any JPEG has before its frame header.
constexpr std::size_t MOST_HEADER_BYTES = std::size_t{4} << 20;

/// The bytes of a header; whatever lies beyond its end reads as 0.
struct Header_Bytes {
    std::string_view CONTENT;
    std::uint32_t At(std::size_t i) const
    {
        return i < CONTENT.size() ? static_cast<unsigned char>(CONTENT[i]) : 0;
    }
    std::int64_t Low_First(std::size_t i, int bytes) const
    {
        std::uint32_t bits = 0;
        for (int b = bytes - 1; b >= 0; --b) bits = bits << 8 | At(i + static_cast<std::size_t>(b));
        return bytes == 4 ? static_cast<std::int32_t>(bits) : static_cast<std::int64_t>(bits);
    }
    std::int64_t High_First_16(std::size_t i) const { return At(i) << 8 | At(i + 1); }
};

bool Take_Size(std::int64_t w, std::int64_t h, int& width, int& height)
{
    if (w < 1 || h < 1 || w > MOST_PIXELS || h > MOST_PIXELS) return false;
    width = static_cast<int>(w);
    height = static_cast<int>(h);
    return true;
}

bool Bitmap_Size(const Header_Bytes& bytes, int& width, int& height)
{
    if (bytes.CONTENT.size() < 26) return false;
    const std::int64_t header = bytes.Low_First(14, 4);
    if (header == 12) return Take_Size(bytes.Low_First(18, 2), bytes.Low_First(20, 2), width, height);
    if (header < 16) return false;
    const std::int64_t rows = bytes.Low_First(22, 4);   // below 0 when the top row comes first
    return Take_Size(bytes.Low_First(18, 4), rows < 0 ? -rows : rows, width, height);
}

/// Walks the segments to the frame header, which holds the size.
bool Jpeg_Size(const Header_Bytes& bytes, int& width, int& height)
{
    std::size_t at = 2;
    while (at + 9 <= bytes.CONTENT.size()) {
        if (bytes.At(at) != 0xFF) return false;
        const std::uint32_t marker = bytes.At(at + 1);
        if (marker == 0xFF) {   // filling
            ++at;
            continue;
        }
        const bool alone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        if (alone) {
            at += 2;
            continue;
        }
        const bool frame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) return Take_Size(bytes.High_First_16(at + 7), bytes.High_First_16(at + 5), width, height);
        const std::int64_t length = bytes.High_First_16(at + 2);
        if (length < 2 || marker == 0xD9 || marker == 0xDA) return false;   // no frame before the picture's data
        at += 2 + static_cast<std::size_t>(length);
    }
    return false;
}

}   // namespace

bool Picture_Header(std::string_view content, int& width, int& height)
{
    const Header_Bytes bytes{content};
    if (bytes.At(0) == 'B' && bytes.At(1) == 'M') return Bitmap_Size(bytes, width, height);
    if (bytes.At(0) == 0xFF && bytes.At(1) == 0xD8) return Jpeg_Size(bytes, width, height);
    return false;
}

bool Picture_Size(const std::string& path, int& width, int& height)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return false;   // a pipe would be waited for
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !file) return false;
    std::string content(static_cast<std::size_t>(size < MOST_HEADER_BYTES ? size : MOST_HEADER_BYTES), '\0');
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(file.gcount()));
    return Picture_Header(content, width, height);
}

}   // namespace sm

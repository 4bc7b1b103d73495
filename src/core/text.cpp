#include "core/text.h"

#include "core/numbers.h"

#include <cstdint>

namespace sm {

namespace {

// Code page 1252 above 0x7F where it differs from Latin-1; 0 marks an unassigned byte.
constexpr std::uint16_t PAGE_80_9F[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

char Upper_Letter(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

void Append_Utf8(std::string& out, unsigned code)
{
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

char Page_Byte(unsigned code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
    for (int i = 0; i < 32; ++i)
        if (PAGE_80_9F[i] == code && code != 0) return static_cast<char>(0x80 + i);
    return '?';
}

}   // namespace

std::string Clean_Text(std::string_view s)
{
    std::string clean(s);
    for (char& c : clean) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
        if (c == '"') c = '\'';
        if (c == BROKEN_BAR) c = '|';
    }
    return clean;
}

std::string To_Utf8(std::string_view s)
{
    std::string out;
    for (const char c : s) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 || byte > 0x9F)
            Append_Utf8(out, byte);
        else
            Append_Utf8(out, PAGE_80_9F[byte - 0x80] != 0 ? PAGE_80_9F[byte - 0x80] : '?');
    }
    return out;
}

std::string From_Utf8(std::string_view s)
{
    std::string out;
    for (std::size_t i = 0; i < s.size();) {
        const auto byte = [&](std::size_t at) { return at < s.size() ? static_cast<unsigned char>(s[at]) : 0u; };
        const unsigned lead = byte(i);
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
        static constexpr unsigned LEAST[] = {0, 0, 0x80, 0x800, 0x10000};   // of so many bytes
        unsigned code = length < 2 ? lead : lead & (0xFFu >> (length + 1));
        bool sound = length > 0;
        for (std::size_t k = 1; k < length; ++k) {
            sound = sound && (byte(i + k) & 0xC0u) == 0x80u;
            code = code << 6 | (byte(i + k) & 0x3Fu);
        }
        sound = sound && code >= LEAST[length];
        out.push_back(sound ? Page_Byte(code) : '?');
        i += sound ? length : 1;   // what is no character stands for itself alone
    }
    return out;
}

std::string Upper(std::string_view s)
{
    std::string out(s);
    for (char& c : out) c = Upper_Letter(c);
    return out;
}

bool Same_Ignoring_Case(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Upper_Letter(a[i]) != Upper_Letter(b[i])) return false;
    return true;
}

std::string Split_Token(std::string& line, char delimiter)
{
    const std::size_t at = line.find(delimiter);
    if (at == std::string::npos) {
        std::string whole = std::move(line);
        line.clear();
        return whole;
    }
    std::string token = line.substr(0, at);
    line.erase(0, at + 1);
    return token;
}

std::string Number_Fields(std::initializer_list<int> numbers)
{
    std::string fields;
    for (const int number : numbers) fields += To_Text(number) + BROKEN_BAR;
    return fields;
}

}   // namespace sm

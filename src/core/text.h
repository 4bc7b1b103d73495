#pragma once
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

namespace sm {

/// Trailing blanks cut.
constexpr std::string_view Trim_Right(std::string_view s)
{
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

/// Blanks, tabs and line ends cut on both sides.
constexpr std::string_view Trim(std::string_view s)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!s.empty() && blank(s.back())) s.remove_suffix(1);
    while (!s.empty() && blank(s.front())) s.remove_prefix(1);
    return s;
}

/// Text of a fixed width N, single-byte (code page 1252), padded with blanks. Longer text is cut. Reads as its
/// text without the trailing blanks.
template <int N>
class Text {
public:
    static constexpr int WIDTH = N;
    Text() { std::memset(c_, ' ', N); }
    Text(std::string_view s) { Set(s); }
    Text(const char* s) { Set(s); }
    Text(const std::string& s) { Set(s); }
    std::string_view Full() const { return {c_, N}; }
    operator std::string_view() const { return Trim_Right(Full()); }
    std::string Str() const { return std::string(Trim_Right(Full())); }
    bool Empty() const { return Str().empty(); }
    friend bool operator==(const Text& a, const Text& b) { return a.Full() == b.Full(); }
    friend bool operator==(const Text& a, std::string_view b) { return Trim_Right(a.Full()) == Trim_Right(b); }
    friend bool operator==(const Text& a, const char* b) { return a == std::string_view(b); }

private:
    void Set(std::string_view s)
    {
        const std::size_t n = std::min<std::size_t>(s.size(), N);
        if (n > 0) std::memcpy(c_, s.data(), n);   // an empty view may point nowhere
        std::memset(c_ + n, ' ', N - n);
    }
    char c_[N];
};

/// Text of free length up to 250 bytes (longer text is cut), for scalars that have no fixed width.
class Free_Text {
public:
    static constexpr int CAPACITY = 250;
    Free_Text() = default;
    Free_Text(std::string_view s) : n_(static_cast<std::uint8_t>(std::min<std::size_t>(s.size(), CAPACITY)))
    {
        if (n_ > 0) std::memcpy(c_, s.data(), n_);
    }
    Free_Text(const char* s) : Free_Text(std::string_view(s)) {}
    Free_Text(const std::string& s) : Free_Text(std::string_view(s)) {}
    operator std::string_view() const { return {c_, n_}; }
    std::string Str() const { return {c_, n_}; }
    bool Empty() const { return n_ == 0; }
    friend bool operator==(const Free_Text& a, const Free_Text& b)
    {
        return std::string_view(a) == std::string_view(b);
    }
    friend bool operator==(const Free_Text& a, std::string_view b) { return std::string_view(a) == b; }
    friend bool operator==(const Free_Text& a, const char* b) { return std::string_view(a) == std::string_view(b); }

private:
    std::uint8_t n_ = 0;
    char c_[CAPACITY + 1] = {};
};

/// One message from its pieces; fixed texts lose their trailing blanks.
template <class... Pieces>
std::string Cat(const Pieces&... pieces)
{
    std::string s;
    (s.append(std::string_view(pieces)), ...);
    return s;
}

/// Text as it may enter a field: control characters become a blank, " becomes ', the broken bar becomes |.
std::string Clean_Text(std::string_view s);

/// Code page 1252 to UTF-8 and back; a character outside the page becomes "?".
std::string To_Utf8(std::string_view s);
std::string From_Utf8(std::string_view s);

/// Upper case of the ASCII letters only: keys never depend on a locale.
std::string Upper(std::string_view s);
bool Same_Ignoring_Case(std::string_view a, std::string_view b);

/// What stands before the first delimiter of `line`, which keeps what follows it; the whole line, emptied, when there
/// is no delimiter.
std::string Split_Token(std::string& line, char delimiter);

inline constexpr char BROKEN_BAR = '\xA6';
/// Number fields of a network message, each ended by the broken bar.
std::string Number_Fields(std::initializer_list<int> numbers);

}   // namespace sm

#include "persist/keyed_text.h"

#include "core/errors.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace sm {

namespace {

enum class Word { NUMBER, TOO_LARGE, NO_NUMBER };

/// Whether a well-formed number that its type cannot hold is too small for it rather than too large.
bool Is_Tiny(std::string_view digits)
{
    const std::size_t exponent = digits.find_first_of("eE");
    if (exponent != digits.npos && exponent + 1 < digits.size()) return digits[exponent + 1] == '-';
    return digits.substr(0, digits.find('.')).find_first_of("123456789") == digits.npos;
}

template <class Real>
Word Read_Real(std::string_view word, Real& value)
{
    if (word.size() > 1 && word[0] == '+' && word[1] != '-') word.remove_prefix(1);
    const auto [stop, fault] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (fault == std::errc::invalid_argument || stop != word.data() + word.size()) return Word::NO_NUMBER;
    if (fault == std::errc::result_out_of_range) {
        if (!Is_Tiny(word)) return Word::TOO_LARGE;
        value = 0;
        return Word::NUMBER;
    }
    return std::isfinite(value) ? Word::NUMBER : Word::NO_NUMBER;   // "inf" and "nan" are words
}

int Failure_Of(Word word)
{
    return word == Word::NUMBER ? 0 : word == Word::TOO_LARGE ? ERROR_OVERFLOW : ERROR_CONVERSION;
}

int Read_Whole(std::string_view word, double low, double high, int& value)
{
    double real = 0;
    if (const int failure = Failure_Of(Read_Real(word, real)); failure != 0) return failure;
    if (real < low - 1 || real > high + 1) return ERROR_OVERFLOW;
    const double whole = std::nearbyint(real);   // halves to even: no code of ours changes the rounding mode
    if (whole < low || whole > high) return ERROR_OVERFLOW;
    value = static_cast<int>(whole);
    return 0;
}

/// A blank, or a control character, which counts as one: no text of the game may hold it, for it might end a line.
bool Is_Blank(char c) { return (c >= 0 && c <= ' ') || c == 0x7F; }

std::string_view Without_Blank_Ends(std::string_view text, std::size_t most)
{
    while (!text.empty() && Is_Blank(text.front())) text.remove_prefix(1);
    text = text.substr(0, most);
    while (!text.empty() && Is_Blank(text.back())) text.remove_suffix(1);
    return text;
}

void Store_Text(void* record, const FIELD& field, std::string_view value)
{
    value = Without_Blank_Ends(value, static_cast<std::size_t>(field.WIDTH));
    if (std::none_of(value.begin(), value.end(), [](char c) { return Is_Blank(c) && c != ' '; })) {
        Set_Field_Text(record, field, value);
        return;
    }
    std::string clean(value);
    std::replace_if(clean.begin(), clean.end(), Is_Blank, ' ');
    Set_Field_Text(record, field, clean);
}

}   // namespace

std::string_view With_Line_Ends(std::string_view text, std::string& copy)
{
    if (text.find('\n') != text.npos || text.find('\r') == text.npos) return text;
    copy = text;
    std::replace(copy.begin(), copy.end(), '\r', '\n');
    return copy;
}

std::string_view Next_Line(std::string_view& rest)
{
    const std::size_t stop = rest.find('\n');
    std::string_view line = rest.substr(0, stop);
    rest.remove_prefix(stop == rest.npos ? rest.size() : stop + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

KEYED_LINE Take_Apart(std::string_view line)
{
    const std::size_t colon = line.find(':');
    if (colon == line.npos) return {Trim(line), {}};
    return {Trim(line.substr(0, colon)), Trim(line.substr(colon + 1))};
}

int Store_Value(void* record, const FIELD& field, std::string_view value)
{
    switch (field.KIND) {
    case Kind::I16: {
        int whole = 0;
        if (const int failure = Read_Whole(value, LOW16, HIGH16, whole); failure != 0) return failure;
        Field_Value<Int16>(record, field) = whole;
        return 0;
    }
    case Kind::I32: {
        int whole = 0;
        if (const int failure = Read_Whole(value, -HIGH32 - 1, HIGH32, whole); failure != 0) return failure;
        Field_Value<std::int32_t>(record, field) = whole;
        return 0;
    }
    case Kind::F32: {
        float real = 0;
        if (const int failure = Failure_Of(Read_Real(value, real)); failure != 0) return failure;
        Field_Value<float>(record, field) = real;
        return 0;
    }
    default: Store_Text(record, field, value); return 0;
    }
}

char* Put_Value(char* at, const void* record, const FIELD& field)
{
    char* const most = at + MOST_NUMBER_BYTES;
    const auto whole = [&](int value) {
        if (value >= 0) *at++ = ' ';
        return std::to_chars(at, most, value).ptr;
    };
    switch (field.KIND) {
    case Kind::I16:
        return whole(Field_Value<Int16>(record, field));
    case Kind::I32:
        return whole(Field_Value<std::int32_t>(record, field));
    case Kind::F32: {
        const float value = Field_Value<float>(record, field);
        if (!std::isfinite(value)) Fail_Overflow(0, "32-bit");
        const bool minus =
            std::signbit(value);   // minus 0 keeps its sign, or the game read back would not be this one
        if (!minus) *at++ = ' ';
        if (std::fabs(value) < 1e7f && value == std::trunc(value) && !(minus && value == 0.0f))
            return std::to_chars(at, most, static_cast<int>(value)).ptr;
        return std::to_chars(at, most, value, std::chars_format::fixed).ptr;
    }
    default: {
        const std::string_view text = Field_Text(record, field);
        std::memcpy(at, text.data(), text.size());
        return at + text.size();
    }
    }
}

}   // namespace sm

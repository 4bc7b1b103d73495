#include "core/numbers.h"

namespace sm {

void Fail_Overflow(long long value, const char* width)
{
    throw Game_Error(ERROR_OVERFLOW, std::to_string(value) + " does not fit a " + width + " number");
}

void Fail_Range(int index, int first, int last, const char* table)
{
    throw Game_Error(ERROR_RANGE, std::string(table) + "[" + std::to_string(index) + "] is outside " +
                                      std::to_string(first) + ".." + std::to_string(last));
}

std::string To_Text(int value)
{
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, end.ptr};
}

std::string To_Text(float value)
{
    char buffer[96];   // the longest plain f32, 2^-149, takes about 50 characters
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return {buffer, end.ptr};
}

namespace {

std::string_view Without_Plus(std::string_view word)
{
    if (word.size() > 1 && word[0] == '+' && word[1] != '-') word.remove_prefix(1);
    return word;
}

template <class T>
std::optional<T> Parse_Whole_Word(std::string_view word)
{
    word = Without_Plus(word);
    T value{};
    const auto [end, fault] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (fault != std::errc{} || end != word.data() + word.size()) return std::nullopt;
    return value;
}

}   // namespace

std::optional<int> Parse_Int(std::string_view word) { return Parse_Whole_Word<int>(word); }

std::optional<float> Parse_Float(std::string_view word)
{
    const auto value = Parse_Whole_Word<float>(word);
    if (value && !(*value - *value == 0.0f)) return std::nullopt;   // "inf" and "nan" are not numbers of the game
    return value;
}

std::optional<double> Parse_Decimal(std::string_view word)
{
    const auto value = Parse_Whole_Word<double>(word);
    if (value && !(*value - *value == 0.0)) return std::nullopt;
    return value;
}

}   // namespace sm

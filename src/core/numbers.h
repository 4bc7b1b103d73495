#pragma once
#include "core/errors.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sm {

/// Nearest integer, halves to even. Fails with an overflow outside 32 bits.
constexpr int Round_Even(double x)
{
    if (!(x > -2147483648.5 && x < 2147483647.5)) Fail_Overflow(0, "32-bit");
    const long long whole = static_cast<long long>(x);
    const double rest = x - static_cast<double>(whole);
    long long result = whole;
    if (rest > 0.5 || (rest == 0.5 && whole % 2 != 0)) result = whole + 1;
    if (rest < -0.5 || (rest == -0.5 && whole % 2 != 0)) result = whole - 1;
    return static_cast<int>(result);
}
constexpr int Round_Even(float x) { return Round_Even(static_cast<double>(x)); }
constexpr int Round_Even(int x) { return x; }

/// "Int" of the rules: the whole number not above x (Floor_Int(-2.5) is -3).
constexpr int Floor_Int(double x)
{
    if (!(x > -2147483649.0 && x < 2147483648.0)) Fail_Overflow(0, "32-bit");
    const long long whole = static_cast<long long>(x);
    return static_cast<int>(static_cast<double>(whole) > x ? whole - 1 : whole);
}
constexpr int Floor_Int(float x) { return Floor_Int(static_cast<double>(x)); }

/// The whole part, toward zero.
constexpr int Truncate(double x)
{
    if (!(x > -2147483649.0 && x < 2147483648.0)) Fail_Overflow(0, "32-bit");
    return static_cast<int>(x);
}
constexpr int Truncate(float x) { return Truncate(static_cast<double>(x)); }

/// Whole division of the rules: both operands rounded half to even, the divisor at least 1, the quotient toward zero.
template <class A, class B>
constexpr int Int_Div(A a, B b)
{
    const int divisor = Round_Even(b);
    return Round_Even(a) / (divisor < 1 ? 1 : divisor);
}

/// A record field: 16 bits in every file and on every wire. Arithmetic is done in int; coming back into the field is
/// checked, never wrapped. A real is rounded half to even.
class Int16 {
public:
    constexpr Int16() = default;
    constexpr Int16(int v) : v_(static_cast<std::int16_t>(v))
    {
        if (v_ != v) Fail_Overflow(v, "16-bit");
    }
    constexpr Int16(float v) : Int16(Round_Even(v)) {}
    Int16(double) = delete;   // a double in the model is a slip
    constexpr operator int() const { return v_; }

    constexpr Int16& operator+=(int n) { return *this = Int16(v_ + n); }
    constexpr Int16& operator-=(int n) { return *this = Int16(v_ - n); }
    constexpr Int16& operator++() { return *this += 1; }
    constexpr Int16& operator--() { return *this -= 1; }
    Int16& operator+=(float) = delete;
    Int16& operator-=(float) = delete;
    Int16& operator+=(double) = delete;
    Int16& operator-=(double) = delete;

private:
    std::int16_t v_ = 0;
};
static_assert(sizeof(Int16) == 2);

/// A value held into the 16-bit range, for the few counters that saturate instead of failing.
constexpr int Saturate_16(long long v)
{
    return static_cast<int>(v < -32768 ? -32768 : v > 32767 ? 32767 : v);
}

/// Decimal text of a number, no blank, no exponent; a real in the shortest digits that read back the same f32.
std::string To_Text(int value);
std::string To_Text(float value);

/// The whole word as a number, or nothing. A decimal for an integer is rounded half to even by the caller.
std::optional<double> Parse_Decimal(std::string_view word);
std::optional<float> Parse_Float(std::string_view word);
std::optional<int> Parse_Int(std::string_view word);

}   // namespace sm

#pragma once
// Chains of factors as data. A factor table has one row per line of the printed rule; a chain lists the steps top
// to bottom, because each product rounds to 32 bits. The chain that decides is the chain that --explain prints.

#include "core/explain.h"

#include <cstddef>

namespace sm {

/// Ends of the range of codes, for rows that take all that is left.
inline constexpr int LEAST = -32768, MOST = 32767;

/// Value of the codes FROM..TO: a factor (float) or what is added to a roll (int).
template <class Value>
struct CODE_ROW {
    int FROM, TO;
    Value VALUE;
};
using FACTOR_ROW = CODE_ROW<float>;
using MODIFIER_ROW = CODE_ROW<int>;

/// Whether the rows go up without overlapping; only the last may take all that is left.
template <class Value, std::size_t N>
constexpr bool In_Order(const CODE_ROW<Value> (&rows)[N])
{
    for (std::size_t i = 0; i < N; ++i) {
        if (rows[i].FROM > rows[i].TO) return false;
        const bool all_that_is_left = i + 1 == N && rows[i].FROM == LEAST && rows[i].TO == MOST;
        if (i > 0 && !all_that_is_left && rows[i].FROM <= rows[i - 1].TO) return false;
    }
    return true;
}

/// Value of the first row that holds the code; `otherwise` for a code without a row.
template <class Value, std::size_t N>
constexpr Value Value_Of(const CODE_ROW<Value> (&rows)[N], int code, Value otherwise)
{
    for (const CODE_ROW<Value>& row : rows)
        if (code >= row.FROM && code <= row.TO) return row.VALUE;
    return otherwise;
}
/// A code without a row leaves the product as it is.
template <std::size_t N>
constexpr float Factor_Of(const FACTOR_ROW (&rows)[N], int code)
{
    return Value_Of(rows, code, 1.0f);
}
/// A code without a row adds nothing.
template <std::size_t N>
constexpr int Modifier_Of(const MODIFIER_ROW (&rows)[N], int code)
{
    return Value_Of(rows, code, 0);
}

/// One step of a chain: what it is called, and its factor (or what it adds) for the numbers it is given: firer and
/// target, or the one unit that is tested. A step may tell the screen something; it changes nothing of the game.
template <class Value, class... Numbers>
struct STEP {
    const char* NAME;
    Value (*VALUE)(Numbers...);
};
using FIRE_FACTOR = STEP<float, int, int>;
using TEST_MODIFIER = STEP<int, int>;

/// `base` times every step, top to bottom, one 32-bit product a step. `explain`: the chain prints itself.
template <std::size_t N, class... Numbers, class... Given>
float Multiply_Out(float base, const STEP<float, Numbers...> (&chain)[N], bool explain, Given... given)
{
    float product = base;
    for (const STEP<float, Numbers...>& step : chain) {
        const float factor = step.VALUE(given...);
        product = product * factor;
        if (explain) Explain_Factor(step.NAME, factor, product);
    }
    return product;
}

/// `roll` plus every step, top to bottom.
template <std::size_t N, class... Numbers, class... Given>
int Add_Up(int roll, const STEP<int, Numbers...> (&chain)[N], bool explain, Given... given)
{
    int sum = roll;
    for (const STEP<int, Numbers...>& step : chain) {
        const int added = step.VALUE(given...);
        sum += added;
        if (explain) Explain_Modifier(step.NAME, added, sum);
    }
    return sum;
}

}   // namespace sm

#pragma once
#include <type_traits>
#include <vector>

namespace sm::test {

/// Whole numbers side by side, to be held against one row of expected ones.
template <class... T>
std::vector<int> Row(const T&... values)
{
    static_assert(!(std::is_floating_point_v<T> || ...), "a real would lose its fraction");
    return {static_cast<int>(values)...};
}

}   // namespace sm::test

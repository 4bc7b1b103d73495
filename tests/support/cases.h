#pragma once
// Rules tried row by row.

#include "core/game_state.h"
#include "support/fields.h"

#include <tuple>
#include <vector>

namespace sm::test {

/// The rows of a rule, for "const auto& [roll, hits] : CASES<int, bool>{{59, true}, {60, false}}".
template <class... Column>
using CASES = std::vector<std::tuple<Column...>>;

/// Sets fields of two units, "f.MORALE 3, t.MOBILITY 3": f the firer's, t the target's.
inline void Arrange(int firer, int target, std::string settings)
{
    while (!settings.empty()) {
        const std::string setting(Trim(Split_Token(settings, ',')));
        Give(UNIT[setting.starts_with("f.") ? firer : target], setting.substr(2));
    }
}

/// What an arrangement multiplies the loss of the plain case by.
struct FACTOR_CASE {
    const char* ARRANGED;
    float FACTOR;
};

/// `loss` of an arrangement is that of the plain one, "", times the factor.
template <std::size_t N, class Loss>
void Expect_Factors(const FACTOR_CASE (&cases)[N], Loss loss)
{
    const float plain = loss("");
    for (const FACTOR_CASE& c : cases) EXPECT_FLOAT_EQ(loss(c.ARRANGED), plain * c.FACTOR) << c.ARRANGED;
}

}   // namespace sm::test

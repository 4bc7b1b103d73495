#pragma once
// Contact: two units whose ground comes together. Tested for every pair of enemies at every step and in every
// shot.

#include "core/shared.h"

#include <cstdlib>

namespace sm {

/// Within a third of the sum of both footprints, rounded, from centre to centre.
inline bool In_Contact(const UNIT_RECORD& a, const UNIT_RECORD& b)
{
    const float third = (a.FOOTPRINT + b.FOOTPRINT) / 3;
    const float beyond = third + 1;   // nearly every pair is far apart; a pixel of margin for the rounding below
    if (static_cast<float>(std::abs(a.X - b.X)) > beyond || static_cast<float>(std::abs(a.Y - b.Y)) > beyond)
        return false;
    return Within(a.X, a.Y, b.X, b.Y, Round_Even(third));
}

}   // namespace sm

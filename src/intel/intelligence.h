#pragma once

namespace sm {

/// Decay of SPOTTED, redisplay by view, NAI and TAI of every unit.
void Intelligence_Update();

}   // namespace sm

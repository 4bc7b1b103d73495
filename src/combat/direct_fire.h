#pragma once

namespace sm {

/// One shot of a unit's whole direct fire at a target, supporting artillery first. The loss is added to TURNLOSS.
void Direct_Fire(int firer, int target);

}   // namespace sm

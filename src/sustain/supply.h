#pragma once

namespace sm {

/// Charges a unit's supplies: 1 a turn's movement, 2 or 3 a fire mission, 4 a turn of direct fire.
void Consume_Supply(int unit, int activity);

}   // namespace sm

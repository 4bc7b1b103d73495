#pragma once

namespace sm {

/// Sums of combat power: at the start, of ineffective units, now.
void Power_Count();
/// The AAR row of the turn (1..50).
void AAR_Chart();
/// Victory points and verdict of the turn.
void Victory_Points();

}   // namespace sm

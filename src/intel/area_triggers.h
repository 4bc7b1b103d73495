#pragma once

namespace sm {

/// Pixels within which a unit meets an NAI or TAI: 40, or 1 in smoke.
int Area_Reach(int unit);
/// Helicopters of the other side that wait on this NAI for the unit's class launch, or report that they have no route.
void Launch_Waiting_Helicopters(int unit, int graphic);
/// Targets linked to this TAI for the unit's class fire at the unit's place. The unit may be gone afterwards.
void Fire_Linked_Targets(int unit, int graphic);

}   // namespace sm

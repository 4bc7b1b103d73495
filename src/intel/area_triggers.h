#pragma once
// What an NAI or TAI sets off when an enemy unit meets it, on the march and in the intelligence picture alike.

namespace sm {

/// Pixels within which a unit meets an NAI or TAI: 40, or 1 in smoke.
int Area_Reach(int unit);
/// Whether a graphic is an active NAI or TAI of the other side, within reach of a unit that would stand at (x, y).
bool Meets_Area(int unit, int graphic, int x, int y);
/// The watchers of an NAI see a unit: SPOTTED rises, the view in force shows it.
void Spot_In_Area(int unit);
/// Helicopters of the other side that wait on this NAI for the unit's class launch, or report that they have no
/// route.
void Launch_Waiting_Helicopters(int unit, int graphic);
/// Targets linked to this TAI for the unit's class fire at the unit's place, if it is spotted. The unit may be
/// gone afterwards.
void Fire_Linked_Targets(int unit, int graphic);

}   // namespace sm

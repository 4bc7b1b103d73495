#pragma once

namespace sm {

/// Moves a unit out of the fight, by its retreat route or straight away from the enemies in contact. The unit may be gone
/// afterwards.
void Retreat_Unit(int unit);
/// Takes a unit off the map as prisoners, with its attachments.
void Surrender_Unit(int unit);
/// Threshold of RETREATP: share of RCP2 lost in the turn.
float Retreat_Threshold(int unit);

}   // namespace sm

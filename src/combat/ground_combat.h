#pragma once

namespace sm {

/// The Ground Combat Phase: every unit looks and fires, then losses and retreats.
void Ground_Combat_Phase();
/// Contact of one unit with every enemy. Mode 1 looks only (a skirmish turns it to 2 for this call), mode 2 fires.
void Engage_Unit(int unit, int mode);

}   // namespace sm

#pragma once

namespace sm {

/// Mines and scripted events at a place for a (Blue) unit. The unit may be gone afterwards.
void Event_Check(int unit, int x, int y);

}   // namespace sm

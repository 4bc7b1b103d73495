#pragma once

namespace sm {

/// The Movement Phase: time slices, ground and aviation passes, periodic jobs.
void Movement();
/// One step of a ground unit along its leg (also of a retreat by route, MOVESTATUS 5). The unit may be gone
/// afterwards.
void Move_Units(int unit);
/// Points to enter a cell; `carried` (the cost of the cell before) where no rule fits.
int Cell_Cost(int unit, int hex, int carried);
/// The same for a terrain value.
int Terrain_Cost(int unit, int value, int carried);

/// Slices of a turn: 400 of two hours, 200 of one hour, 50 of fifteen minutes.
int Slices_Of_Turn();

}   // namespace sm

#pragma once

namespace sm {

/// Aviation pass of a slice: fuel, search, flight, landing. Returns the number of movers.
int Aviation_Pass();
/// One step of a flying unit.
void Move_AH(int unit);
/// Turns a flying unit for home: the last node of its route stays.
void Abort_Mission(int unit);
/// Interceptors against every flyer, on the slices that the movement phase names.
void Air_Interception_Slice();
/// Sensor jobs of a slice: signatures of air defence, sweeps of collectors, small arms against flyers.
void Sensor_Slice();

}   // namespace sm

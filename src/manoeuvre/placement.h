#pragma once
// Units moved by hand: orders that place or turn a unit at once, on every seat.

namespace sm {

/// Puts a unit down at a place: its destinations and its route go, it is on the map.
void Put_Unit(int unit, int x, int y);
/// Turns a unit by 45 degrees; a screen line turns with it.
void Turn_Left(int unit);
void Turn_Right(int unit);
/// A unit that arrives later waits off the picture and knows where it will arrive; its route goes.
void Wait_Off_Map(int unit, int arrival_x, int arrival_y);

}   // namespace sm

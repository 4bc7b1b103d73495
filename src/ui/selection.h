#pragma once
#include <vector>

namespace sm {

/// Selects a unit; its marks, route and status text follow it. 0 selects none. Nothing of the game changes.
void Get_Unit(int unit);
/// Takes the marks of the selected unit off the map.
void Erase_Screen();

bool On_The_Picture(int x, int y);
/// Whether the map shows the unit: its picture is shown and it stands on the map. Off it are those that are
/// attached, aboard, or still to arrive.
bool Stands_On_Map(int unit);
/// Whether the unit has yet to arrive; the map shows where, at (ARX, ARY), to those who see its side's plans.
bool Waits_To_Arrive(int unit);

/// Units on the map within `reach` picture pixels of a point, nearest first, then by number.
std::vector<int> Units_At(int x, int y, int reach);
/// Selects the unit under a click; another click on the same pile goes on to the next one in it. False where there
/// is none.
bool Select_At(int x, int y, int reach);

void cmdNextU_Click();
void cmdLastU_Click();

}   // namespace sm

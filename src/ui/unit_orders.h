#pragma once

namespace sm {

/// "Go to MOPP 4" and "Go to MOPP 2" of the selected unit.
void Go_To_MOPP(int level);
/// "Unit Status Report" of the selected unit; convoys are refused.
void cmdUnitReport_Click();

}   // namespace sm

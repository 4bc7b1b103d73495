#pragma once

namespace sm {

/// Posts the numbered standard report of a unit to its own side (20: to both). 16 and 18 use MsgText as it stands.
void Unit_Report(int number, int unit, int show = 0);

}   // namespace sm

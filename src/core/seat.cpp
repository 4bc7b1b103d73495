#include "core/seat.h"

#include "core/platform.h"

#include <algorithm>

namespace sm {

Seat SEAT;

void Show_Picture(int unit)
{
    if (unit < 1 || unit > MAX_UNIT || SEAT.PICTURE[unit]) return;
    SEAT.PICTURE[unit] = true;
    Screen().Unit_Changed(unit);
}

void Hide_Picture(int unit)
{
    if (unit < 1 || unit > MAX_UNIT || !SEAT.PICTURE[unit]) return;
    SEAT.PICTURE[unit] = false;
    Screen().Unit_Changed(unit);
}

void Hide_All_Pictures() { std::fill(std::begin(SEAT.PICTURE), std::end(SEAT.PICTURE), false); }

int View_Side()
{
    if (ViewMode != 0) return ViewMode;
    if (PlanSide == BLUE || PlanSide == RED) return PlanSide;
    return UserSide == BLUE || UserSide == RED ? UserSide : BOTH;
}

bool May_Read_Of(int side) { return side == BOTH || View_Side() == BOTH || side == View_Side(); }

bool Show_Unit(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (u.STATUS < 1 || u.PARENT_UNIT != 0) return false;
    if (ViewMode == 0 && SEAT.TurnRunning && PlanSide == 3) return SEAT.PICTURE[unit];
    const int view = View_Side();
    if (view == 1) return u.SIDE == BLUE || u.SPOTTED > 0 || u.BCOP == 1;
    if (view == 2) return u.SIDE == RED || u.SPOTTED > 0 || u.RCOP == 1;
    return true;
}

void Refresh_Pictures()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (Show_Unit(u))
            Show_Picture(u);
        else
            Hide_Picture(u);
    }
}

void Show_By_View(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    const bool shown = (ViewMode == 1 && (u.SIDE == BLUE || u.SPOTTED > 0)) ||
                       (ViewMode == 2 && (u.SIDE == RED || u.SPOTTED > 0)) || ViewMode == 3;
    if (!shown) return;
    if (u.VISIBLE == 0) u.VISIBLE = 1;
    Show_Picture(unit);
}

}   // namespace sm

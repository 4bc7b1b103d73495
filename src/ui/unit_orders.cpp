#include "ui/unit_orders.h"

#include "core/game_state.h"
#include "ui/desk.h"
#include "ui/map_click.h"
#include "ui/planning_seat.h"
#include "ui/unit_status.h"

namespace sm {

void Go_To_MOPP(int level)
{
    const int unit = SelUnit;
    if (unit < 1 || !Side_May_Order(UNIT[unit].SIDE)) return;
    End_Pending();
    UNIT[unit].MOPP = level;
    Post_Own(unit, Cat(UNIT[unit].NAME, " is going to MOPP ", To_Text(level), "!"), 0);
    Tell_Seats({level == 4 ? 165 : 166, unit});
    The_Window().Desk_Changed();
}

void cmdUnitReport_Click()
{
    const int unit = SelUnit;
    if (unit < 1) return;
    End_Pending();
    if (UNIT[unit].SIZE == 100) {
        Refuse("FROM the G4:", "Supply Convoys cannot be accessed through the Unit Status Report!");
        return;
    }
    The_Window().Show_Lines("Unit Status Report", Unit_Report_Lines(unit));
}

}   // namespace sm

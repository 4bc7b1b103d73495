#include "ui/supply_planning.h"

#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "net/protocol.h"
#include "sustain/logistics.h"

namespace sm {

namespace {

constexpr const char* BAR = "\xA6";

bool In_Table(int unit) { return unit >= 1 && unit <= MAX_UNIT; }

}   // namespace

CSS_Panel Update_CSS(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    const bool depot = u.TYPE == 13;
    const int full = Floor_Int(depot ? u.LSF : u.RSF);
    const int lacking = Floor_Int(depot ? u.LSF - u.LSF2 : u.RSF - u.RSF2);
    CSS_Panel panel;
    panel.TITLE = u.LOGD >= 33 ? "Line-Haul Mission" : "Local Haul Mission";
    panel.REQUIRED = Cat("Required:  ", To_Text(lacking < 0 ? 0 : lacking), " /", To_Text(full));
    panel.AVAILABLE = In_Table(u.LOGUNIT) ? Round_Even(UNIT[u.LOGUNIT].LSF2) : 0;
    return panel;
}

bool Resupply_Allowed(int unit)
{
    if (UNIT[unit].LOGUNIT != 0) return true;
    Screen().Box("FROM the G-4", "This Unit Must Have a Supporting Logistics Unit to Get Resupplied!");
    return false;
}

int Confirm_Resupply(int unit, int load)
{
    if (SEAT.TurnRunning || !Resupply_Allowed(unit)) return 0;
    const int supplier = UNIT[unit].LOGUNIT;
    if (NetRole == 2) {
        Send_Net_Message(Cat("121", BAR, "0", BAR, "0", BAR, "0", BAR, To_Text(UNIT[unit].SIDE), BAR, To_Text(unit), BAR,
                             To_Text(load), BAR, "100", BAR, BAR, To_Text(supplier), BAR, "0", BAR));
        return 0;
    }
    const int side = ActiveSide == BLUE || ActiveSide == RED ? ActiveSide : static_cast<int>(UNIT[unit].SIDE);
    const int row = Build_Convoy(side, unit, load);
    if (row == 0) {
        Screen().Box("Stonemarch", "You have reached the max number of units for this side!");
        return 0;
    }
    Send_Net_Message(Cat("120", BAR, To_Text(row), BAR, "0", BAR, "0", BAR, To_Text(side), BAR, To_Text(unit), BAR,
                         To_Text(load), BAR, "100", BAR, UNIT[row].NAME, BAR, To_Text(supplier), BAR, "0", BAR));
    Screen().Box("From the G-4", Cat("FROM:  Resupply Convoy\rMSG: Ready to move forward to resupply ", UNIT[unit].NAME,
                                     "\rPlease plot my route to this unit!"));
    Show_Picture(row);
    return row;
}

void cmdAutoS4_Click()
{
    if (SEAT.TurnRunning || NetRole != 0) return;
    if (ActiveSide == BLUE) LOGPLAYB = LOGPLAYB == 0 ? 1 : 0;
    if (ActiveSide == RED) LOGPLAYR = LOGPLAYR == 0 ? 1 : 0;
}

bool cmdWSRO_Click(int unit)
{
    if (SEAT.TurnRunning) return false;
    UNIT_RECORD& u = UNIT[unit];
    if (u.SIZE >= 3) {
        Screen().Box("From the G-4:", "This unit is too large to conduct WSRO!");
        return false;
    }
    if (u.WSRO == 0) return true;
    Set_WSRO(unit, 0);
    Screen().Box("From the G-4:", "WSRO unit assignment has been cancelled.");
    return false;
}

void Set_WSRO(int unit, int partner)
{
    UNIT[unit].WSRO = partner;
    Send_Net_Message(Cat("520", BAR, To_Text(unit), BAR, To_Text(partner), BAR));
}

void mnuRSupply_Click(int side)
{
    if (SEAT.TurnRunning) return;
    Magic_Resupply(side);
    Post_Message(0, side == BLUE ? "Blue has received a magic resupply!" : "Red has received a magic resupply!", 0, 0, 1,
                 BOTH);
    Send_Net_Message(Cat(side == BLUE ? "18" : "19", BAR));
}

void mnuRegenerate_Click(int side)
{
    if (SEAT.TurnRunning) return;
    Regenerate(side);
    Send_Net_Message(Cat(side == BLUE ? "180" : "181", BAR));
    Screen().Box("Regenerating Combat Power",
                 side == BLUE ? "Blue has regained combat power!" : "Red has regained combat power!");
    Screen().Changed(Redraw::ALL);
}

}   // namespace sm

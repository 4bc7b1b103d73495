#include "sustain/logistics.h"

#include "core/platform.h"
#include "core/shared.h"
#include "opponent/route_planner.h"
#include "sustain/reports.h"
#include "sustain/supply.h"

namespace sm {

namespace {

constexpr int CONVOY = 100;   // SIZE
constexpr int DELIVERY_KM = 5;

bool In_Table(int unit) { return unit >= 1 && unit <= MAX_UNIT; }

void Check_Aircraft(int u)
{
    if (UNIT[u].MOVESTATUS == 0 || UNIT[u].LOGSTATN < 0 || UNIT[u].LOGSTATN > 10) return;
    Clear_Route(u);
    UNIT[u].TIMERM = 0;
    Unit_Report(5, u);
}

void Check_Ground_Unit(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.LOGSTATN >= 0 && unit.LOGSTATN <= 10) {
        if (unit.SIZE == CONVOY) return;   // it lost its load, and nobody brings another: it drives on
        Post_Own(u, Cat(unit.NAME, ": Out of Supply - Operations Halted!"), 0);
        if (unit.MOVESTATUS == 2) {
            unit.MOVESTATUS = 1;
            unit.TACOPN = 1;
            unit.MISSION = "Hasty Defense";
        } else if (unit.MOVESTATUS != 6) {   // a waiting retreat route stays
            unit.MOVESTATUS = 0;
        }
    } else if (unit.LOGSTATN >= 11 && unit.LOGSTATN <= 20) {
        Post_Own(u, Cat(unit.NAME, ":  Request CSS resupply ASAP!"), 0);
    }
}

/// 0..32767: a stock may have been drawn on by one more than it held.
int Percent(float part, float whole)
{
    const float percent = part / whole * 100.0f;
    return percent <= 0 ? 0 : percent >= 32767.0f ? 32767 : Round_Even(percent);
}

void Deliver(int convoy)
{
    const int customer = UNIT[convoy].CONVOYD;
    if (!In_Table(customer) || UNIT[customer].STATUS < 1) {
        Unit_Report(11, convoy);
        return;
    }
    if (Int_Div(Unit_Distance(convoy, customer), MAPSCALE) > DELIVERY_KM) return;
    UNIT_RECORD& c = UNIT[customer];
    const float load = UNIT[convoy].LSF2;
    if (c.TYPE != 13) {
        c.RSF2 = c.RSF2 + load;
        if (c.RSF < 1) c.RSF = 1;
        c.LOGSTATN = Percent(c.RSF2, c.RSF);
    } else {
        c.LSF2 = static_cast<float>(Round_Even(load + c.LSF2));
        if (c.LSF > 0) c.LOGSTATN = Percent(c.LSF2, c.LSF);
    }
    if (c.MOBILITY != 3) c.MOVEPOINTS2 = c.MOVEPOINTS / 2.0f;   // receiving costs half of the next move
    Remove_Unit(convoy);
    Unit_Report(3, customer);
}

/// Whether a convoy of at least this STATUS is there for the customer. One of 1 never delivers.
bool Convoy_On_Its_Way(int customer, int least_status)
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS >= least_status && UNIT[u].CONVOYD == customer) return true;
    return false;
}

}   // namespace

bool Is_Depot(int unit) { return UNIT[unit].TYPE == 13 && UNIT[unit].SIZE != CONVOY; }

void Logistics_Phase()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.STATUS < 1 || unit.PARENT_UNIT != 0 || unit.OFFMAP != 0) continue;
        if (unit.TYPE != 13 && unit.TYPE != 50) Consume_Supply(u, 1);
        if (unit.MOBILITY == 3) Check_Aircraft(u);
        else Check_Ground_Unit(u);
        if (In_Table(unit.LOGUNIT) && UNIT[unit.LOGUNIT].STATUS > 0) {
            const UNIT_RECORD& supplier = UNIT[unit.LOGUNIT];
            unit.LOGD = Int_Div(Distance_Truncated(unit.X, unit.Y, supplier.X, supplier.Y), MAPSCALE);
        }
        if (unit.SIZE == CONVOY && unit.STATUS > 1) Deliver(u);
    }
}

void Find_Supplier(int unit, int side)
{
    UNIT_RECORD& u = UNIT[unit];
    if (In_Table(u.LOGUNIT) && UNIT[u.LOGUNIT].STATUS > 0) return;
    u.LOGUNIT = 0;
    for (int v = 1; v <= MAX_UNIT && u.LOGUNIT == 0; ++v)
        if (v != unit && Is_Depot(v) && UNIT[v].STATUS > 0 && UNIT[v].OFFMAP == 0 && (side == 0 || UNIT[v].SIDE == side))
            u.LOGUNIT = v;
    for (int v = MAX_UNIT; v >= 1 && u.LOGUNIT == 0; --v)
        if (UNIT[v].TYPE == 50 && UNIT[v].STATUS > 0 && UNIT[v].SIDE == u.SIDE) u.LOGUNIT = v;
}

bool Convoy_Is_Due(int unit)
{
    const int supplier = UNIT[unit].LOGUNIT;
    return UNIT[unit].LOGSTATN < 75 && GTURN >= 2 && In_Table(supplier) && UNIT[supplier].LSF2 > 0 &&
           !Convoy_On_Its_Way(unit, 2);
}

int Convoy_Load(int customer)
{
    const UNIT_RECORD& c = UNIT[customer];
    const float stock = UNIT[c.LOGUNIT].LSF2;
    const float need = c.TYPE == 13 ? c.LSF - c.LSF2 : c.RSF - c.RSF2;
    return need > stock ? Floor_Int(stock) + 1 : Round_Even(need);
}

void Fill_Convoy(int row, int side, int customer, int supplier, int load)
{
    const UNIT_RECORD s = UNIT[supplier];
    UNIT[row] = UNIT_RECORD{};
    UNIT_RECORD& c = UNIT[row];
    c.NAME = Cat("CONVOY #", To_Text(row));
    c.IMAGE = side == BLUE ? "btrk.ico" : "rtrk.ico";
    c.SIDE = side;
    c.SIZE = CONVOY;
    c.TYPE = 13;
    c.STATUS = 2;
    c.STRENGTH = 100;
    c.RCP = c.RCP2 = c.RCP3 = 0.1f;
    c.MORALE = s.MORALE;
    c.MOPP = s.MOPP;
    c.SUPPRESSED = s.SUPPRESSED;
    c.MISSION = "Resupply";
    c.TACOPN = 4;
    c.MOBILITY = 1;
    c.MOVEPOINTS = c.MOVEPOINTS2 = 48;
    c.RSF = c.RSF2 = 1;
    c.LOGSTATO = c.LOGSTATN = 100;
    c.LSF = c.LSF2 = static_cast<float>(load);
    c.FOOTPRINT = 3 * MAPSCALE;
    c.HIGHERHQ = supplier;
    c.CONVOYD = customer;
    c.OX1 = UNIT[customer].X;
    c.OY1 = UNIT[customer].Y;
    Place_Unit(row, s.X, s.Y);
    UNIT[supplier].LSF2 = UNIT[supplier].LSF2 - static_cast<float>(load);
}

int Build_Convoy(int side, int customer, int load)
{
    const int row = Free_Unit_Row(side);
    if (row != 0) Fill_Convoy(row, side, customer, UNIT[customer].LOGUNIT, load);
    return row;
}

void Aim_Convoy(int convoy)
{
    UNIT_RECORD& c = UNIT[convoy];
    const auto stands = [](int unit) { return In_Table(unit) && UNIT[unit].STATUS > 0 && UNIT[unit].OFFMAP == 0; };
    if (!stands(c.CONVOYD)) {
        int depot = 0;
        for (int v = 1; v <= MAX_UNIT && depot == 0; ++v)
            if (v != convoy && Is_Depot(v) && UNIT[v].SIDE == c.SIDE && UNIT[v].STATUS > 0) depot = v;
        if (depot == 0) return;   // its targets stay
        c.CONVOYD = depot;
    }
    c.OX1 = UNIT[c.CONVOYD].X;
    c.OY1 = UNIT[c.CONVOYD].Y;
}

void Auto_Logistics(int side)
{
    Screen().Phase(side == BLUE ? "Blue Logistics Planning Phase" : "Red Logistics Planning Phase");
    Delay(500);
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].SIDE != side || UNIT[u].TYPE == 50 || UNIT[u].SIZE == CONVOY || UNIT[u].STATUS < 1 || UNIT[u].OFFMAP != 0)
            continue;
        Find_Supplier(u, 0);   // the first depot of the whole table, whosever it is
        if (Convoy_Is_Due(u)) Build_Convoy(side, u, Convoy_Load(u));
    }
    const ROUTE_GROUND ground;
    for (int c = 1; c <= MAX_UNIT; ++c) {
        if (UNIT[c].SIZE != CONVOY || UNIT[c].STATUS < 1) continue;
        Aim_Convoy(c);
        if (UNIT[c].OX1 > 0 && UNIT[c].OY1 > 0) Plan_Route(c, ground);
    }
}

void WSRO_Phase()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const int partner = UNIT[u].WSRO;
        if (UNIT[u].STATUS < 1 || !In_Table(partner) || UNIT[partner].STATUS < 1) continue;
        if (Int_Div(Unit_Distance(u, partner), MAPSCALE) >= 6) continue;
        UNIT_RECORD& t = UNIT[partner];
        if (!(t.RCP > 0)) {
            Log(Cat("WSRO Unit: ", t.NAME, " is dead!"));
            continue;
        }
        t.RCP2 = t.RCP2 + UNIT[u].RCP2;
        t.RSF = t.RSF + UNIT[u].RSF;
        t.RSF2 = t.RSF2 + UNIT[u].RSF2;
        t.BRIDGING += UNIT[u].BRIDGING;
        const float share = t.RCP2 / t.RCP;
        t.STRENGTH = static_cast<float>(Floor_Int(share * 100.0f));
        Remove_With_Attachments(u);
        if (UNIT[partner].STATUS > 0) Unit_Report(22, partner);
    }
}

void Regenerate(int side)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != side || unit.STATUS < 1 || unit.TYPE == 50 || !(unit.RCP > 0)) continue;
        const float gain = unit.RCP * 0.02f;
        const float power = unit.RCP2 + gain;
        unit.RCP2 = power < unit.RCP ? power : unit.RCP;
        const float share = unit.RCP2 / unit.RCP;
        unit.STRENGTH = static_cast<float>(Floor_Int(share * 100.0f));
    }
}

void Magic_Resupply(int side)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.SIDE != side || unit.STATUS < 1 || Convoy_On_Its_Way(u, 1)) continue;
        unit.LSF2 = unit.LSF;
        unit.RSF2 = unit.RSF;
        unit.LOGSTATN = 100;
    }
}

}   // namespace sm

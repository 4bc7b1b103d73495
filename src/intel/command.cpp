#include "intel/command.h"

#include "combat/factors.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/seat.h"
#include "core/shared.h"
#include "manoeuvre/engineers.h"
#include "sustain/reports.h"

namespace sm {

namespace {

constexpr int CONVOY_POINT = 50;   // lines of communication are no target of sensors or leaflets
constexpr int OPTICAL = 0, THERMAL = 1, RADAR = 2, ELINT = 3;
constexpr int JAMMED = 10, LOCATED = 2, DEGRADED = 5;

// ---------------------------------------------------------------------------------------------- command

struct C2_BAND {
    int UP_TO;   ///< km
    int C2;
};
constexpr C2_BAND C2_BANDS[] = {{30, 3}, {50, 2}, {70, 1}};

int C2_By_Distance(int km)
{
    for (const C2_BAND& band : C2_BANDS)
        if (km <= band.UP_TO) return band.C2;
    return 0;
}

/// Aviation, logistics and headquarters are never out of touch.
bool Always_In_Touch(int type)
{
    return type == 11 || type == 12 || type == 13 || type == 17 || type == 18 || type == 26;
}

bool Degraded(int unit) { return UNIT[unit].EWSTATUS >= DEGRADED; }

// ---------------------------------------------------------------------------------------------- sweeps

/// Pixels that a sensor or a leaflet reaches.
int Reach(int u)
{
    const float range = UNIT[u].MXRANGE * MAPSCALE;
    const float half = UNIT[u].FOOTPRINT / 2;
    return Round_Even(range + half);
}

bool Can_Be_Target(int u, int j)
{
    return UNIT[j].STATUS > 0 && UNIT[j].SIDE == 3 - UNIT[u].SIDE && UNIT[j].TYPE != CONVOY_POINT;
}

/// One interception of j's traffic. Jams it when set to attack; true when it is a find.
bool Intercept_Traffic(int u, int j, int distance, int reach)
{
    const int chance = UNIT[j].C2T * 10 + 20;
    const int roll = Roll_Dice(SITE_ELINT);
    if (Explaining(u, j))
        Explain_Line(Cat(UNIT[u].NAME, " listens for ", UNIT[j].NAME, ": roll ", To_Text(roll), ", heard at ",
                         To_Text(chance), " or less"));
    if (roll > chance) return false;
    if (UNIT[u].SENSORA == 0) return true;
    // Jamming works within half of the range, collection at all of it.
    if (2 * distance <= reach && UNIT[j].EWSTATUS < 6) {
        UNIT[j].EWSTATUS = JAMMED;
        Unit_Report(20, j);
    }
    return false;
}

bool Sensor_Finds(int u, int j, int distance, int reach)
{
    switch (UNIT[u].SENSORT) {
    case OPTICAL:
    case THERMAL:
        return static_cast<float>(distance) <= MAPSCALE;   // about one cell around
    case RADAR:
        return UNIT[j].MOVESTATUS == 2;   // only what moves
    case ELINT:
        return Intercept_Traffic(u, j, distance, reach);
    default:
        return false;
    }
}

void Mark_Found(int u, int j)
{
    const bool elint = UNIT[u].SENSORT == ELINT;
    if (elint) UNIT[j].EWSTATUS = LOCATED;
    if (!elint || ELINTDetail == 0) {
        UNIT[j].SPOTTED = 2;
        UNIT[j].VISIBLE = -1;
    }
    if (!(UserSide >= 3 && ViewMode < 1)) Show_Picture(j);
}

// ---------------------------------------------------------------------------------------------- psyops

// What is added to the roll against the target's state; below 30 it loses a level of morale.
constexpr MODIFIER_ROW BY_SUPPRESSION[] = {{3, 3, -5}, {4, 4, -10}};
constexpr MODIFIER_ROW BY_COMMAND[] = {{0, 0, -15}, {1, 1, -10}};
constexpr MODIFIER_ROW BY_MORALE[] = {{1, 1, 10}, {2, 3, 15}, {4, 4, 30}};
static_assert(In_Order(BY_SUPPRESSION) && In_Order(BY_COMMAND) && In_Order(BY_MORALE));
constexpr TEST_MODIFIER LEAFLETS[] = {
    {"leaflets", [](int) { return -20; }},
    {"suppression", [](int j) { return Modifier_Of(BY_SUPPRESSION, UNIT[j].SUPPRESSED); }},
    {"command", [](int j) { return Modifier_Of(BY_COMMAND, UNIT[j].C2); }},
    {"morale", [](int j) { return Modifier_Of(BY_MORALE, UNIT[j].MORALE); }},
};
constexpr int HOLDS_OUT_FROM = 30;

void Work_On(int u, int j)
{
    const bool told = Explaining(u, j);
    const int roll = Roll_Dice(SITE_PSYOPS);
    if (told)
        Explain_Line(Cat(UNIT[u].NAME, " works on ", UNIT[j].NAME, ": roll ", To_Text(roll), ", holds out from ",
                         To_Text(HOLDS_OUT_FROM)));
    if (Add_Up(roll, LEAFLETS, told, j) >= HOLDS_OUT_FROM) return;
    if (UNIT[j].MORALE > 0) UNIT[j].MORALE -= 1;
    Post_At(j, Cat(UNIT[j].NAME, " loses morale as a result of PSYOPS attack!"), 0, BOTH);
}

}   // namespace

void C2_Check(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    const int old = unit.C2;
    const int hq = unit.HIGHERHQ;
    int c2 = 0;
    if (hq > 0 && UNIT[hq].STATUS > 1) {
        unit.C2D = Int_Div(Distance_Truncated(unit.X, unit.Y, UNIT[hq].X, UNIT[hq].Y), MAPSCALE);
        c2 = C2_By_Distance(unit.C2D);
    }
    if (Always_In_Touch(unit.TYPE) || unit.TYPE == CONVOY_POINT) c2 = 3;
    if (Degraded(u) || (hq > 0 && Degraded(hq))) c2 -= 1;
    unit.C2 = c2;
    // On a rise, not on a fall: a unit is heard to complain only once it can be heard again.
    if (old < c2 && !Always_In_Touch(unit.TYPE)) {
        if (c2 == 0) Unit_Report(15, u);
        if (c2 == 1 || c2 == 2) Unit_Report(14, u);
    }
}

void IEW_Sweep(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.SENSORS != 1) return;
    unit.C2T = Saturate_16(unit.C2T + 1);
    if (unit.SENSORT == OPTICAL || unit.SENSORT == THERMAL) Obstacle_Recon(u);
    if (unit.STATUS < 1) return;   // lost at an obstacle
    const int reach = Reach(u);
    const bool looking = unit.MOBILITY != 3 || unit.MOVESTATUS >= 7;   // an aircraft on the ground finds nothing
    for (int j = 1; j <= MAX_UNIT; ++j) {
        if (!Can_Be_Target(u, j)) continue;
        const int distance = Distance_Truncated(unit.X, unit.Y, UNIT[j].X, UNIT[j].Y);
        if (distance > reach) continue;
        const bool found = Sensor_Finds(u, j, distance, reach);   // rolls for an aircraft on the ground too
        if (found && looking) Mark_Found(u, j);
    }
}

void Psyops_Attack(int u)
{
    if (UNIT[u].POPS != 1) return;
    UNIT[u].C2T = Saturate_16(UNIT[u].C2T + 10);
    const int reach = Reach(u);
    for (int j = 1; j <= MAX_UNIT; ++j)
        if (Can_Be_Target(u, j) && Unit_Distance(u, j) <= reach) Work_On(u, j);
}

void C4ISR_Check()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS > 0) C2_Check(u);
        if (UNIT[u].STATUS > 1 && UNIT[u].TYPE == 16) IEW_Sweep(u);
        if (UNIT[u].STATUS > 1 && UNIT[u].TYPE == 23) Psyops_Attack(u);
    }
}

C2_PANEL C2_Panel(int u)
{
    struct LABEL {
        const char* TEXT;
        int BACKGROUND, FOREGROUND;
    };
    static constexpr LABEL LABELS[] = {
        {"C2 Status: Bad - ", 0, 15},
        {"C2 Status: Poor - ", 12, 0},
        {"C2 Status: Average - ", 14, 0},
        {"C2 Status: Good - ", 10, 0},
    };
    const int c2 = UNIT[u].C2;
    if (c2 < 0 || c2 > 3) return {"", 0, 0};
    return {Cat(LABELS[c2].TEXT, To_Text(UNIT[u].C2D), " kms"), LABELS[c2].BACKGROUND, LABELS[c2].FOREGROUND};
}

}   // namespace sm

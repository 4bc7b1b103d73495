#include "sustain/reinforcements.h"

#include "core/shared.h"

namespace sm {

namespace {

struct LOC {
    int ROW, SIDE;
    const char *NAME, *IMAGE;
    int X, Y;
};
constexpr LOC LOCS[] = {
    {300, BLUE, "BLUE LOC", "bspt7.ico", 20, 20},
    {600, RED, "RED LOC", "rspt7.ico", 60, 20},
};

bool Has_LOC(int side)
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].TYPE == 50 && UNIT[u].STATUS > 0 && UNIT[u].SIDE == side) return true;
    return false;
}

/// The fixed values, the place untouched.
void Fill_LOC(const LOC& loc)
{
    UNIT_RECORD& u = UNIT[loc.ROW];
    u.NAME = loc.NAME;
    u.NATION = "";
    u.IMAGE = loc.IMAGE;
    u.TYPE = 50;
    u.SIDE = loc.SIDE;
    u.SIZE = 0;
    u.STATUS = 2;
    u.RCP = u.RCP2 = u.RCP3 = 1;
    u.LSF = u.LSF2 = 1000;
    u.STRENGTH = 100;
    u.LOGSTATO = u.LOGSTATN = 100;
    u.MISSION = "Support";
    u.TACOPN = 0;
    u.UNITTYPE = "LOC";
    u.MXRANGE = u.MINRANGE = 0;
    u.FOOTPRINT = 1;
    u.MOBILITY = 10;
    u.MORALE = 2;
    u.WPN = 1;
}

void Make_LOC(const LOC& loc)
{
    UNIT[loc.ROW] = UNIT_RECORD{};
    Fill_LOC(loc);
    Place_Unit(loc.ROW, loc.X, loc.Y);
}

/// Makes the line of communication where its row is free and the side has none.
void Make_Where_Missing(const LOC& loc)
{
    if (UNIT[loc.ROW].STATUS > 0) {
        if (UNIT[loc.ROW].TYPE != 50) Log(Cat("LOC row ", To_Text(loc.ROW), " is held by ", UNIT[loc.ROW].NAME));
        return;
    }
    if (!Has_LOC(loc.SIDE)) Make_LOC(loc);
}

}   // namespace

void Reinforcements_Phase()
{
    if (GTURN <= 0) return;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT_RECORD& unit = UNIT[u];
        if (unit.STATUS < 1 || unit.ATIME != GTURN) continue;
        unit.OFFMAP = 0;
        unit.ATIME = 0;
        Place_Unit(u, unit.ARX, unit.ARY);
        Post_Own(u, Cat("New unit arrives: ", unit.NAME), 0);
    }
}

void LOC_Phase()
{
    for (const LOC& loc : LOCS) {
        if (UNIT[loc.ROW].STATUS > 0 && UNIT[loc.ROW].TYPE == 50) Fill_LOC(loc);
        else Make_Where_Missing(loc);
    }
}

void Make_LOC_Units()
{
    for (const LOC& loc : LOCS) Make_Where_Missing(loc);
}

void Restore_LOC(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    u.LSF = u.LSF2 = 1000;
    u.C2T = 3;
    u.STATUS = 2;
    u.SUPPRESSED = 0;
    u.RCP = u.RCP2 = u.RCP3 = 1;
    u.STRENGTH = 100;
    u.LOGSTATN = 100;
    u.MISSION = "Support";
    u.TACOPN = 0;
    u.FOOTPRINT = 1;
    u.MOBILITY = 10;
    u.MOVESTATUS = 0;
    u.MORALE = 2;
}

}   // namespace sm

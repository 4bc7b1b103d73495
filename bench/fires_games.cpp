#include "fires_games.h"
#include "core/shared.h"
#include "full_game.h"
#include "manoeuvre/aviation.h"
#include "manoeuvre/routes.h"
#include "support/board.h"
#include "terrain/grid.h"
#include <algorithm>

namespace sm::bench {
namespace {

constexpr int BLUE_FIRST = 1, RED_FIRST = SIDE_UNITS + 1;

/// The unit of the other side that stands where this one does in its own.
int Opposite(int unit) { return unit <= SIDE_UNITS ? unit + SIDE_UNITS : unit - SIDE_UNITS; }

void Place_Area(int row, int side, int type, int unit)
{
    P[row].PTYPE = type;
    P[row].PSIDE = side;
    P[row].PX1 = UNIT[unit].X;
    P[row].PY1 = UNIT[unit].Y;
    P[row].PAGE = 2;
}

void Make_Battery(int unit, int role)
{
    UNIT[unit].TYPE = 8;
    UNIT[unit].MXRANGE = 150;
    UNIT[unit].FSP = role;
}

/// Every third unit a battery (planned, counterfire, SEAD in turn), every tenth air defence; all are known.
void Give_Roles(int first)
{
    for (int n = 0; n < SIDE_UNITS; ++n) {
        const int unit = first + n;
        UNIT[unit].SPOTTED = 1;
        if (n % 3 == 0) Make_Battery(unit, n % 9 / 3);
        if (n % 10 == 1) {
            UNIT[unit].TYPE = 1;
            UNIT[unit].MXRANGE = 20;
        }
    }
}

/// 70 gun missions, 20 air strikes, 5 of bombers and 5 with mines.
void Give_Missions(int first_row, int first, int side)
{
    for (int n = 0; n < 100; ++n) {
        TG_RECORD& t = TG[first_row + n];
        const int target = Opposite(first + n * 3);
        t.TGSIDE = side;
        t.TGX = UNIT[target].X;
        t.TGY = UNIT[target].Y;
        t.TGHEX = UNIT[target].HEXNUM;
        t.TGTOT = GTURN;
        t.TGHPT = 5;
        if (n < 70) {
            t.TGTYPE = 1;
            t.FUNIT = first + n % 33 * 9;
        } else {
            t.TGTYPE = n < 90 || n >= 95 ? 4 : 3;
            t.TGNSORTIES = 4;
            if (n >= 95) t.TGHPT = 12;
        }
    }
}

int Plot(int unit, int to)
{
    const int row = Next_Free_Node(unit);
    Add_Move_Node(unit, row, UNIT[to].X, UNIT[to].Y);
    return row;
}

/// Out to the enemy opposite, by way of its passenger for a lift unit, and home.
void Make_Flyer(int unit, int type)
{
    UNIT_RECORD& u = UNIT[unit];
    Clear_Route(unit);
    u.MOBILITY = 3;
    u.TYPE = type;
    u.MOVEPOINTS = u.MOVEPOINTS2 = 400;
    u.MXRANGE = 8;
    u.HPTL1 = 5;
    if (type == 12) {
        UNIT[unit + 1].CARRIER = unit;
        u.PZ = Plot(unit, unit + 1);
    }
    u.LZ = Plot(unit, Opposite(unit));
    Plot(unit, unit);
}

}   // namespace

void Make_Fires_Game()
{
    Make_Full_Game(SIDE_UNITS);
    Give_Roles(BLUE_FIRST);
    Give_Roles(RED_FIRST);
    Give_Missions(1, BLUE_FIRST, BLUE);
    Give_Missions(101, RED_FIRST, RED);
    for (int n = 0; n < 20; ++n) {
        Place_Area(1 + n, BLUE, 13, RED_FIRST + n * 15);
        Place_Area(201 + n, RED, 13, BLUE_FIRST + n * 15);
        Place_Area(21 + n, BLUE, 18, RED_FIRST + n * 9);
        Place_Area(221 + n, RED, 18, BLUE_FIRST + n * 9);
    }
    BFIREF = RFIREF = 50;
    AIRSUPER = 50;
}

void Make_Flights_Game()
{
    Make_Full_Game(SIDE_UNITS);
    for (int unit = 1; unit <= MAX_UNIT; unit += 2) Clear_Route(unit);   // their nodes are wanted
    static constexpr int TYPES[] = {11, 11, 12, 17, 26};
    for (int n = 0; n < 30; ++n) {
        for (const int first : {BLUE_FIRST, RED_FIRST}) Make_Flyer(first + n * 10, TYPES[n % 5]);
        Place_Area(1 + n, BLUE, 13, Opposite(BLUE_FIRST + n * 10));
        Place_Area(201 + n, RED, 13, Opposite(RED_FIRST + n * 10));
    }
    AIRSUPER = 50;
}

void Fly_All_Slices()
{
    for (int slice = 1; slice <= 400; ++slice) {
        Aviation_Pass();
        if (slice % 12 == 0) Sensor_Slice();
        if (slice % 50 == 0) Air_Interception_Slice();
    }
}

}   // namespace sm::bench

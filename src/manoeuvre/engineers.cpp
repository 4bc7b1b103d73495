#include "manoeuvre/engineers.h"

#include "combat/loss.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/sound_cues.h"

#include <algorithm>

namespace sm {

namespace {

constexpr int BLOWN = 5, BRIDGE = 7, MINES = 8, FORT = 9;   // BG.BGTYPE
constexpr int ON_MINES = 11, ON_FORT = 21;                  // what an overlay adds to the cell
constexpr int RIVER = 5;
constexpr int CROSSING = 2;   // TIMEREGR of a unit that has just entered the water
constexpr int COMBAT_ENGINEER = 14, BRIDGE_ENGINEER = 15;
constexpr int SMOKE = 20;   // NBC.NBCTYPE

bool In_Grid(int hex) { return hex >= 1 && hex <= HEXCOUNT; }

/// A cell that carries neither obstacle nor fortification.
bool Bare(int hex) { return In_Grid(hex) && Cell_Value(hex) < ON_MINES; }

/// First free row of the works, filled and owned; 0 when all are taken.
int New_Work(int hex, int type, int side)
{
    const int row = Free_Row(BG, 1, MAX_BG);
    if (row == 0) return 0;
    const Point corner = Hex_Origin(hex);
    BG[row] = BG_RECORD{};
    BG[row].BGHEX = hex;
    BG[row].BGX = corner.X;
    BG[row].BGY = corner.Y;
    BG[row].BGTYPE = type;
    BG[row].BGSIDE = side;
    return row;
}

// ---------------------------------------------------------------------------------------------- seeing

/// What the unit sees around it, in pixels: an air collector by its optics, any other by its own ground and 16
/// more.
bool Sees(int u, int distance)
{
    const UNIT_RECORD& unit = UNIT[u];
    if ((unit.TYPE == 17 || unit.TYPE == 26) && unit.SENSORT < 2)
        return static_cast<float>(distance) <= unit.MXRANGE * MAPSCALE;
    return distance - 16 <= Round_Even(unit.FOOTPRINT / 2);
}

void Reveal(Int16& visible)
{
    if (visible == 1) return;
    visible = 1;
    Screen().Changed(Redraw::GRAPHICS);
}

void See_Smoke(int u)
{
    for (int row = 1; row <= MAX_NBC; ++row) {
        NBC_RECORD& cloud = NBC[row];
        if (cloud.NBCTYPE != SMOKE || cloud.NBCSIDE < 1 || cloud.NBCSIDE == UNIT[u].SIDE || cloud.NBCVISIBLE != 0)
            continue;
        if (UNIT[u].STATUS >= 2 && Sees(u, Distance_To(u, cloud.NBCX, cloud.NBCY))) Reveal(cloud.NBCVISIBLE);
    }
}

/// Enemy works, row by row. `first_own` is the row of mines under the unit; true when this loop has tried to
/// breach it.
bool See_Works(int u, int first_own)
{
    bool tried = false;
    for (int row = 1; row <= MAX_BG; ++row) {
        if (BG[row].BGSIDE < 1 || BG[row].BGSIDE == UNIT[u].SIDE) continue;
        const Point centre = Work_Centre(row);
        const int distance = Distance_To(u, centre.X, centre.Y);
        if (Sees(u, distance)) Reveal(BG[row].BGVISIBLE);
        if (BG[row].BGTYPE != MINES || distance >= 21) continue;
        UNIT[u].BREACH = 1;
        tried = tried || row == first_own;
        Breach_Obstacle(u, row);
        if (UNIT[u].STATUS < 1) return tried;
    }
    return tried;
}

int First_Mines_On(int hex)
{
    for (int row = 1; row <= MAX_BG; ++row)
        if (BG[row].BGTYPE == MINES && BG[row].BGHEX == hex) return row;
    return 0;
}

// ---------------------------------------------------------------------------------------------- breaching

bool Has_Engineer_Help(int u)
{
    if (UNIT[u].SUPPRESSED >= 3) return false;
    if (UNIT[u].TYPE == COMBAT_ENGINEER) return true;
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].PARENT_UNIT == u && UNIT[v].TYPE == COMBAT_ENGINEER && UNIT[v].STATUS >= 2) return true;
    return false;
}

/// With engineers a breach costs 1 percent and fails below 20 on the dice, without them 3 percent and below 40.
struct BREACH_ROW {
    float LOSS;
    int SITE, LESS;
    const char* NAME;
};
constexpr BREACH_ROW ALONE = {0.03f, SITE_BREACH_ALONE, 30, "alone"};
constexpr BREACH_ROW HELPED = {0.01f, SITE_BREACH_WITH_HELP, 10, "with engineers"};

bool Can_Breach(int u)
{
    const UNIT_RECORD& unit = UNIT[u];
    const bool under_way = unit.MOVESTATUS == 1 || unit.MOVESTATUS == 2 || unit.MOVESTATUS == 5;
    return unit.MOBILITY < 3 && unit.STATUS == 2 && unit.BREACH == 1 && under_way;
}

void Clear_Lane(int u, int row)
{
    if (UNIT[u].MOVESTATUS == 1) UNIT[u].MOVESTATUS = 2;
    UNIT[u].BREACH = 0;
    const int hex = row > 0 ? static_cast<int>(BG[row].BGHEX) : static_cast<int>(UNIT[u].HEXNUM);
    const int value = std::max(0, Cell_Value(hex) - ON_MINES);
    const char* name = value == 3 ? "Road" : Terrain_Name(value);   // a lane over sand reads as a road
    Set_Cell(hex, value, name != nullptr ? name : "");
    if (row > 0) Erase_Bridge(row);
    Post_Own(u, Cat(UNIT[u].NAME, ": Obstacle is reduced!"), 0);
}

// ---------------------------------------------------------------------------------------------- end of the turn

/// Turns left of the work in hand, told while it goes on.
void Go_On_Working(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    unit.FATIGUE = Saturate_16(unit.FATIGUE + 3);
    if (unit.MOVESTATUS > 0 && unit.MOVESTATUS != 6) unit.MOVESTATUS = 1;   // a planned retreat route waits on
    // An ineffective unit builds no further, but its crossing ends, or it would halt each turn for the rest of the
    // war.
    const bool works = unit.STATUS == 2, crosses = unit.TIMEREGR <= CROSSING;
    if (!works && !crosses) return;
    unit.TIMEREGR -= 1;
    if (unit.TIMEREGR < 1 || !works) return;
    if (unit.TYPE == BRIDGE_ENGINEER && unit.BRIDGING > 0)
        Post_Own(u, Cat(unit.NAME, ": Bridge will be complete in 1 turn!"), 0);
    else if (unit.TIMEREGR < 4)
        Post_Own(u, Cat(unit.NAME, ": Assault crossing will be complete in 1 turn!"), 0);
    else
        Post_Own(u, Cat(unit.NAME, ": Fortification will be complete in ", To_Text(unit.TIMEREGR - 3), " turn!"),
                 0);
}

/// The unit is free again even where nothing can be built: no row, or mines laid over the works meanwhile.
void Finish_Fortification(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.MOVESTATUS == 1) unit.MOVESTATUS = 2;
    unit.TIMEREGR = 0;
    unit.MOVEPOINTS2 = 0;
    const int hex = unit.HEXNUM;
    if (!Bare(hex) || New_Work(hex, FORT, unit.SIDE) == 0) return;
    Set_Cell(hex, Cell_Value(hex) + ON_FORT, "Fortification");
    Post_Own(u, Cat(unit.NAME, ": Fortification is finished!"), 0);
}

/// A blown bridge's row serves its successor; else the first free one.
int Row_For_Bridge(int hex, int side)
{
    for (int row = 1; row <= MAX_BG; ++row) {
        if (BG[row].BGHEX != hex || BG[row].BGTYPE != BLOWN) continue;
        BG[row].BGTYPE = BRIDGE;
        BG[row].BGSIDE = side;
        return row;
    }
    return New_Work(hex, BRIDGE, side);
}

void Build_Bridge(int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.TYPE != BRIDGE_ENGINEER || unit.BRIDGING < 1 || unit.TERTYPE != RIVER || !In_Grid(unit.HEXNUM))
        return;
    if (Row_For_Bridge(unit.HEXNUM, unit.SIDE) == 0) return;
    Set_Cell(unit.HEXNUM, BRIDGE, "Bridge");
    unit.BRIDGING -= 1;
    Post_Own(u, Cat(unit.NAME, ": Bridge is finished!"), 0);
}

// ---------------------------------------------------------------------------------------------- pictures

bool Is_Water(int x, int y)
{
    const int value = Cell_Value(Hex_Number(x, y));
    const int base = value >= ON_FORT ? value - ON_FORT : value >= ON_MINES ? value - ON_MINES : value;
    return base == RIVER || base == BRIDGE;
}

const char* Bridge_Direction(int row)
{
    const Point c = Work_Centre(row);
    const int w = HEXWIDTH;
    const int north_south = Is_Water(c.X, c.Y - w) + Is_Water(c.X, c.Y + w);
    const int west_east = Is_Water(c.X - w, c.Y) + Is_Water(c.X + w, c.Y);
    if (west_east > north_south) return "1";
    if (north_south == 0 && (Is_Water(c.X - w, c.Y - w) || Is_Water(c.X + w, c.Y + w))) return "2";
    return "";
}

}   // namespace

std::string Work_Icon(int row)
{
    if (!Used(BG[row])) return "";
    switch (BG[row].BGTYPE) {
    case BLOWN:
        return Cat("blbrdg", Bridge_Direction(row), ".ico");
    case BRIDGE:
        return Cat("brdg", Bridge_Direction(row), ".ico");
    case MINES:
        return "mine.ico";
    case FORT:
        return "fort.ico";
    default:
        return "";
    }
}

void Obstacle_Recon(int u)
{
    UNIT[u].BREACH = 0;
    if (UNIT[u].STATUS < 1) return;
    const int underfoot = First_Mines_On(UNIT[u].HEXNUM);
    const bool tried = See_Works(u, underfoot);
    if (UNIT[u].STATUS < 1) return;
    if (UNIT[u].TERTYPE >= 11 && UNIT[u].TERTYPE <= 18) {
        // Its own side's mines stop a unit too, and so does an obstacle that no row tells of.
        UNIT[u].BREACH = 1;
        if (!tried) Breach_Obstacle(u, underfoot);
        if (UNIT[u].STATUS < 1) return;
    }
    See_Smoke(u);
}

void Breach_Obstacle(int u, int row)
{
    if (!Can_Breach(u)) return;
    UNIT_RECORD& unit = UNIT[u];
    Screen().Drawn({Draw::BREACH, unit.X, unit.Y, 0, 0, u, 0});
    Delay(100);
    Delay(500);
    if (SoundOn == 1) Play_Sound(SOUND_BREACHING);
    Post_Own(u, Cat(unit.NAME, ": Breaching an obstacle!"), 0);

    const BREACH_ROW& how = Has_Engineer_Help(u) ? HELPED : ALONE;
    const float loss = unit.RCP2 * how.LOSS;
    const int roll = Roll_Dice(how.SITE);
    const int result = roll - how.LESS;
    if (Explaining(u))
        Explain_Line(Cat(unit.NAME, " breaches ", how.NAME, ": roll ", To_Text(roll), " - ", To_Text(how.LESS),
                         " = ", To_Text(result), ", fails below 10, loss ", To_Text(loss)));
    (unit.SIDE == BLUE ? BMANL : RMANL) += loss;
    Apply_Loss(u, loss);
    if (unit.STATUS < 1) return;
    if (result < 10 || result > 100) {
        if (unit.MOVESTATUS == 2 || unit.MOVESTATUS == 5) unit.MOVESTATUS = 1;
        Post_Own(u, Cat(unit.NAME, ": Unable to reduce obstacle this turn!"), 0);
        return;
    }
    Clear_Lane(u, row);
}

void Lay_Obstacle(int hex, int side)
{
    if (!In_Grid(hex) || Cell_Value(hex) < 0 || Cell_Value(hex) > 7) return;
    const int row = New_Work(hex, MINES, side);
    if (row == 0) return;
    BG[row].BGSTIME = GTURN;
    Set_Cell(hex, Cell_Value(hex) + ON_MINES, "Obstacle");
}

void Blow_Bridge(int hex)
{
    bool blown = false;
    for (int row = 1; row <= MAX_BG; ++row) {
        if (BG[row].BGHEX != hex || BG[row].BGTYPE != BRIDGE) continue;
        BG[row].BGTYPE = BLOWN;
        blown = true;
    }
    // Mines on the bridge stay on the river.
    const int value = Cell_Value(hex);
    if (blown && (value == BRIDGE || value == BRIDGE + ON_MINES || value == BRIDGE + ON_FORT))
        Set_Cell(hex, value - BRIDGE + RIVER, "Blown Bridge");
}

void Engineer_Work(int u)
{
    if (UNIT[u].TIMEREGR > 0) Go_On_Working(u);
    if (UNIT[u].TIMEREGR == 3) Finish_Fortification(u);
    if (UNIT[u].TIMEREGR == 0) {
        if (UNIT[u].MOVESTATUS == 1) UNIT[u].MOVESTATUS = 2;
        Build_Bridge(u);
    }
}

}   // namespace sm

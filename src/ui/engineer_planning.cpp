#include "ui/engineer_planning.h"

#include "net/protocol.h"
#include "terrain/grid.h"
#include "terrain/map.h"
#include "ui/planning_seat.h"

namespace sm {

namespace {

constexpr int BLOWN = 5, BRIDGE = 7, MINES = 8, FORT = 9;   // BG.BGTYPE
constexpr int COMBAT_ENGINEER = 14;
constexpr int CLIENT = 2;

constexpr const char* ENGINEER = "From Engineer:";
constexpr const char* NEEDS_ENGINEERS = "Only combat-effective engineer units can perform this function!";
constexpr const char* HAS_A_MISSION = "This engineer unit already has a mission!";

/// The three tools of the map: the cells that they can be used on, and what they make of them.
struct TOOL {
    int MODE, KIND, TYPE;
    int FROM, TO;   ///< terrain values
    int ADDED;      ///< to the cell's value
    const char* NAME;
    const char* NONE_LEFT;
};
// clang-format off
constexpr TOOL TOOLS[] = {
    {237, CROSSING_BRIDGE,   BRIDGE, 5, 5, 2,  "Bridge",        "We have no more bridges left!"},
    {238, CROSSING_OBSTACLE, MINES,  0, 7, 11, "Obstacle",      "We have no more obstacles left!"},
    {239, CROSSING_FORT,     FORT,   0, 6, 21, "Fortification", "We have no more fortification material left!"},
};
// clang-format on

const TOOL* Tool_Of_Mode(int mode)
{
    for (const TOOL& tool : TOOLS)
        if (tool.MODE == mode) return &tool;
    return nullptr;
}
const TOOL* Tool_Of_Kind(int kind)
{
    for (const TOOL& tool : TOOLS)
        if (tool.KIND == kind) return &tool;
    return nullptr;
}

/// Items in place of a side, and its limit.
struct ALLOWANCE {
    Int16* COUNT = nullptr;
    int LIMIT = 0;
};
ALLOWANCE Allowance(int type, int side)
{
    if (side != BLUE && side != RED) return {};
    const bool blue = side == BLUE;
    switch (type) {
    case BRIDGE:
        return blue ? ALLOWANCE{&BBNOW, BBMAX} : ALLOWANCE{&RBNOW, RBMAX};
    case MINES:
        return blue ? ALLOWANCE{&BOBST, BOBSTMAX} : ALLOWANCE{&ROBST, ROBSTMAX};
    case FORT:
        return blue ? ALLOWANCE{&BFORTS, BFORTSMAX} : ALLOWANCE{&RFORTS, RFORTSMAX};
    default:
        return {};
    }
}

void Lower(Int16* count)
{
    if (count != nullptr && *count > 0) *count -= 1;
}

struct HALF {
    int FIRST, LAST;
};
/// Rows that a side may take. Seats of a network game that place at the same time never meet in a row.
HALF Rows_Of(int side)
{
    if (NetRole == 0 || (side != BLUE && side != RED)) return {1, MAX_BG};
    return side == BLUE ? HALF{1, MAX_BG / 2} : HALF{MAX_BG / 2 + 1, MAX_BG};
}

int Free_Work_Row(int side) { return Free_Row(BG, Rows_Of(side).FIRST, Rows_Of(side).LAST); }

void Show_Rows_Left(int side)
{
    const HALF half = Rows_Of(side);
    const int left = half.LAST - half.FIRST + 1 - Count_Used(BG, half.FIRST, half.LAST);
    Show_Status(Cat(To_Text(left), " Data Points Bridges/Obstacles", "/Forts Are Still Available For Use! "));
}

bool In_Editor() { return UserSide == 5; }

/// Whether this seat may change the works that a battle begins with.
bool May_Change_Works(int side)
{
    if (SEAT.TurnRunning) return false;
    return In_Editor() || (GTURN < 1 && Side_May_Order(side));
}

bool Engineer_Can_Dig(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return u.TYPE == COMBAT_ENGINEER && u.STATUS == 2 && u.TIMEREGR == 0;
}

bool Has_Engineers(int unit)
{
    if (UNIT[unit].TYPE == COMBAT_ENGINEER) return true;
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].PARENT_UNIT == unit && Engineer_Can_Dig(v)) return true;
    return false;
}

/// A unit on ground that takes no fortification gives up one that it had begun.
bool Refuse_Ground(int unit)
{
    if (UNIT[unit].TIMEREGR > 0) {
        UNIT[unit].TIMEREGR = 0;
        Tell_Seats({26, unit});
    }
    return Refuse(ENGINEER, "Fortifications cannot built on this type of terrain!");
}

bool Fort_Left(int side)
{
    const ALLOWANCE forts = Allowance(FORT, side);
    return forts.COUNT != nullptr && *forts.COUNT + 1 <= forts.LIMIT;
}

}   // namespace

// ---------------------------------------------------------------------------------------------- allowances

CROSSING Issue_Crossing(int kind, int side)
{
    const TOOL* tool = Tool_Of_Kind(kind);
    if (tool == nullptr) return {};
    const ALLOWANCE allowance = Allowance(tool->TYPE, side);
    if (allowance.COUNT != nullptr) {
        if (*allowance.COUNT + 1 > allowance.LIMIT) return {};
        *allowance.COUNT += 1;
    }
    CROSSING issued{true, 0};
    if (kind == CROSSING_FORT) return issued;
    issued.ROW = Free_Work_Row(side);
    if (issued.ROW == 0 && NetRole != 0) Lower(allowance.COUNT);
    return issued;
}

void Book_Work(int type, int side)
{
    const ALLOWANCE allowance = Allowance(type, side);
    if (allowance.COUNT != nullptr) *allowance.COUNT += 1;
}

// ---------------------------------------------------------------------------------------------- Fortify

bool cmdFort_Click(int unit)
{
    if (unit < 1 || unit > MAX_UNIT || UNIT[unit].STATUS < 1) return false;
    const UNIT_RECORD& u = UNIT[unit];
    if (!Side_May_Order(u.SIDE)) return false;
    if (u.HEXNUM < 1 || Cell_Value(u.HEXNUM) >= 7) return Refuse_Ground(unit);
    if (u.STATUS != 2) return Refuse(ENGINEER, NEEDS_ENGINEERS);
    if (u.TIMEREGR != 0) return Refuse(ENGINEER, HAS_A_MISSION);
    if (!Has_Engineers(unit))
        return Refuse(ENGINEER, GTURN <= 0
                                    ? "Use the Graphics Menu to emplace fortifications during game start-up!"
                                    : NEEDS_ENGINEERS);
    if (u.FIREMISSION > 0) return Refuse(ENGINEER, HAS_A_MISSION);
    if (!Fort_Left(u.SIDE)) return Refuse(ENGINEER, Tool_Of_Kind(CROSSING_FORT)->NONE_LEFT);
    if (NetRole == CLIENT) {
        Tell_Seats({41, unit});
        return true;
    }
    Log("Host requests fort");
    Begin_Fortification(unit, true);
    Tell_Seats({40, unit});
    return true;
}

void Grant_Fortification(int unit)
{
    if (unit < 1 || unit > MAX_UNIT || UNIT[unit].STATUS < 1) return;
    Log("Client requests fort");
    if (!Issue_Crossing(CROSSING_FORT, UNIT[unit].SIDE).BOOKED) return;
    Begin_Fortification(unit, false);
    Tell_Seats({40, unit});
}

void Begin_Fortification(int unit, bool book)
{
    UNIT_RECORD& u = UNIT[unit];
    if (book) Book_Work(FORT, u.SIDE);
    u.TIMEREGR = 6;
    Post_Own(unit, Cat(u.NAME, " is building a fortification!"), 0);
    if (u.MOVESTATUS > 0) Clear_Route(unit);
}

// ---------------------------------------------------------------------------------------------- works on the map

void Begin_Work(int map_mode)
{
    const TOOL* tool = Tool_Of_Mode(map_mode);
    if (tool == nullptr || !May_Change_Works(ActiveSide)) return;
    MapMode = map_mode;
    DrawMode = tool->TYPE == BRIDGE ? 0 : 1;
    Show_Rows_Left(ActiveSide);
}

bool Place_Planned_Work(int x, int y)
{
    const TOOL* tool = Tool_Of_Mode(MapMode);
    const int side = ActiveSide;
    if (tool == nullptr || !May_Change_Works(side)) return false;
    const int hex = Hex_Number(x, y);
    const int value = Cell_Value(hex);
    if (hex == 0 || value < tool->FROM || value > tool->TO)
        return Refuse(ENGINEER, "This tool cannot be used with this type of terrain");
    CROSSING issued = Issue_Crossing(tool->KIND, side);
    if (!issued.BOOKED) return Refuse(ENGINEER, tool->NONE_LEFT);
    if (tool->KIND == CROSSING_FORT) {
        issued.ROW = Free_Work_Row(side);   // dug before the battle: finished at once
        if (issued.ROW == 0 && NetRole != 0) Lower(Allowance(FORT, side).COUNT);
    }
    if (issued.ROW > 0) {
        const Point corner = Hex_Origin(hex);
        const PLACED_WORK work{issued.ROW,          corner.X,  corner.Y, tool->TYPE, side, hex,
                               value + tool->ADDED, tool->NAME};
        Place_Work(work);
        Tell_Seats({10, work.ROW, work.X, work.Y, work.TYPE, work.SIDE, work.HEX, work.VALUE}, work.NAME);
    }
    Show_Rows_Left(side);
    return issued.ROW > 0;
}

bool Erase_Planned_Work(int row)
{
    if (!Used(BG[row]) || !May_Change_Works(BG[row].BGSIDE)) return false;
    const int hex = BG[row].BGHEX, side = BG[row].BGSIDE;
    if (BG[row].BGTYPE == MINES || BG[row].BGTYPE == FORT) {
        CrossingHex = hex;
        Change_Crossing();   // tells the seats itself
    } else if (side == BLUE || side == RED) {
        Give_Back_Bridge(row);
        Tell_Seats({12, row, 0, 0, 0, 0, hex});
    } else {
        Remove_Crossing(hex);
        Tell_Seats({11, 0, 0, 0, 0, 0, hex});
    }
    Show_Rows_Left(ActiveSide);
    return true;
}

void Place_Work(const PLACED_WORK& work)
{
    if (work.TYPE == BRIDGE)
        for (int row = 1; row <= MAX_BG; ++row)
            if (BG[row].BGHEX == work.HEX && BG[row].BGTYPE == BLOWN) Erase_Bridge(row);
    BG_RECORD& row = BG[work.ROW];
    row = BG_RECORD{};
    row.BGHEX = work.HEX;
    row.BGX = work.X;
    row.BGY = work.Y;
    row.BGTYPE = work.TYPE;
    row.BGSIDE = work.SIDE;
    Set_Cell(work.HEX, work.VALUE, work.NAME);
}

void Remove_Crossing(int hex)
{
    for (int row = 1; row <= MAX_BG; ++row)
        if (BG[row].BGHEX == hex && (BG[row].BGTYPE == BRIDGE || BG[row].BGTYPE == BLOWN)) Erase_Bridge(row);
    const int value = Cell_Value(hex);
    if (value >= 11)
        Set_Cell(hex, value == 18 ? 16 : value == 28 ? 26 : value, std::string_view(HEXMAP[hex].TNAME));
    else
        Set_Cell(hex, 5, "River");
}

void Give_Back_Bridge(int row)
{
    Lower(Allowance(BRIDGE, BG[row].BGSIDE).COUNT);
    Remove_Crossing(BG[row].BGHEX);
}

}   // namespace sm

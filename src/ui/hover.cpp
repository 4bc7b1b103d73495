#include "ui/hover.h"

#include "aar/victory.h"
#include "core/game_state.h"
#include "core/seat.h"
#include "core/shared.h"
#include "terrain/coordinates.h"
#include "ui/desk.h"
#include "ui/selection.h"
#include "ui/unit_status.h"

#include <cmath>
#include <cstdlib>

namespace sm {

namespace {

bool Near(int x, int y, int ox, int oy, int reach)
{
    return std::abs(x - ox) <= reach && std::abs(y - oy) <= reach;
}

std::string Terrain_Text(int hex)
{
    if (hex == 0) return "";
    const std::string name = HEXMAP[hex].TNAME.Str();
    return Cat("TERRAIN: ", name.empty() ? std::string("Unrestricted") : name,
               Cell_High(hex) > 0 ? ", high ground" : "");
}

std::string_view Contamination_Words(int type)
{
    switch (type) {
    case 11:
        return "Chemical (NP)";
    case 20:
        return "Smoke";
    case 21:
        return "Chemical (P)";
    default:
        return "Unknown";
    }
}

std::string NBC_Text(int x, int y, int hex)
{
    if (hex == 0) return "";
    for (int n = 1; n <= MAX_NBC; ++n)
        if (Shows_NBC(n) && Distance_Exact(x, y, NBC[n].NBCX, NBC[n].NBCY) <= NBC[n].NBCSIZE / 2.0)
            return Cat("NBC: ", Contamination_Words(NBC[n].NBCTYPE));
    return "NBC: Clear";
}

std::string Unit_Label(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    return Cat(u.NAME, ", ", Role_Label(u.TYPE), u.SIZE == 100 || u.TYPE == 50 ? "" : " ",
               u.SIZE == 100 || u.TYPE == 50 ? "" : Size_Label(u.SIZE));
}

std::string Objective_Label(int row)
{
    static constexpr const char* HOLDER[] = {" points is unoccupied!", " points is in BLUFOR hands!",
                                             " points is in REDFOR hands!", " points is contested by both sides!"};
    if (OBJ[row].OTYPE == 2) return "Key Terrrain";   // spelt as every player knows it
    if (OBJ[row].OTYPE == 3) return "Mobility Corridor";
    return Cat("Objective: ", To_Text(OBJ[row].OVALUE), HOLDER[Objective_Holder(row)]);
}

std::string Work_Label(int row)
{
    switch (BG[row].BGTYPE) {
    case 5:
        return "Blown Bridge";
    case 7:
        return "Bridge";
    case 8:
        return "Obstacle";
    default:
        return "Fortification";
    }
}

std::string Graphic_Label(int row)
{
    const P_RECORD& g = P[row];
    const char* active = g.PAGE >= 1 ? " is active." : " will be active in 1 turn!";
    switch (g.PTYPE) {
    case 12:
        return Cat("NAI #", To_Text(row), active);
    case 13:
        return Cat("TAI # ", To_Text(row), active);
    case 17:
        return Cat("SEAD #", To_Text(row));
    case 18:
        return Cat("CFFZ #", To_Text(row));
    default:
        return g.PTEXT.Empty() ? Cat("Graphic #", To_Text(row)) : g.PTEXT.Str();
    }
}

std::string Label_At(int x, int y, int reach)
{
    const auto units = Units_At(x, y, reach);
    if (!units.empty()) {
        std::string label = Unit_Label(units.front());
        if (units.size() > 1) label += Cat("  (and ", To_Text(static_cast<int>(units.size()) - 1), " more here)");
        return label;
    }
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT > 0 && Shows_Route(MN[row].MNUNIT) && Near(x, y, MN[row].MNX, MN[row].MNY, reach / 2))
            return To_Text(row);
    for (int row = 1; row <= MAX_OBJ; ++row)
        if (Used(OBJ[row]) && Near(x, y, OBJ[row].OX, OBJ[row].OY, reach)) return Objective_Label(row);
    for (int row = 1; row <= MAX_P; ++row)
        if (Shows_Graphic(row) && Near(x, y, P[row].PX1, P[row].PY1, reach)) return Graphic_Label(row);
    for (int row = 1; row <= MAX_BG; ++row) {
        if (!Shows_Work(row)) continue;
        const Point centre = Work_Centre(row);
        if (Near(x, y, centre.X, centre.Y, reach / 2)) return Work_Label(row);
    }
    return "";
}

}   // namespace

int Objective_Holder(int row)
{
    bool stands[3] = {};
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const int side = UNIT[u].SIDE;
        if ((side == BLUE || side == RED) && Stands_On_Map(u) && Stands_On(u, OBJ[row])) stands[side] = true;
    }
    if (stands[BLUE] && stands[RED]) return BOTH;
    const int holder = OBJ[row].OID;
    return holder >= 0 && holder <= BOTH ? holder : 0;
}

bool Shows_Work(int row)
{
    const BG_RECORD& w = BG[row];
    if (!Used(w)) return false;
    return w.BGVISIBLE == 1 || May_Read_Of(w.BGSIDE);
}

bool Shows_NBC(int row)
{
    const NBC_RECORD& n = NBC[row];
    if (!Used(n)) return false;
    return n.NBCVISIBLE == 1 || May_Read_Of(n.NBCSIDE);
}

bool Shows_Graphic(int row)
{
    const P_RECORD& g = P[row];
    // Target markers of old files belong to no target of today.
    return Used(g) && g.PTYPE != 7 && (g.PSIDE == BOTH || Sees_Plans_Of(g.PSIDE));
}

bool Shows_Text(int row) { return Used(TX[row]) && (TX[row].TXSIDE == BOTH || Sees_Plans_Of(TX[row].TXSIDE)); }

bool Shows_Route(int unit)
{
    if (SEAT.TurnRunning || UNIT[unit].STATUS < 1 || !Sees_Plans_Of(UNIT[unit].SIDE)) return false;
    return UNIT[unit].NUMBER_OF_NODES > 0;
}

Hover_Texts Hover(int x, int y, int reach)
{
    Hover_Texts t;
    if (GameLoaded == 0) {
        t.UTM = "UTM: OFF";
        t.LAT_LONG = "LAT/LONG: OFF";
        return t;
    }
    const std::string grid = Grid_Reference(x, y);
    t.UTM = grid == "No UTM Data" ? "UTM: No Data" : Cat("UTM: ", grid);
    const std::string place = Lat_Long(x, y);
    t.LAT_LONG = place == "LAT/LONG: OFF" ? "Lat-Long: No Data" : place;
    const int hex = Hex_Number(x, y);
    t.TERRAIN = Terrain_Text(hex);
    t.NBC = NBC_Text(x, y, hex);
    t.LABEL = Label_At(x, y, reach);
    return t;
}

}   // namespace sm

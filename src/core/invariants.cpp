#include "core/invariants.h"

#include "core/game_state.h"
#include "terrain/grid.h"

#include <algorithm>
#include <map>

namespace sm {

namespace {

class Finder {
public:
    explicit Finder(int limit) : limit_(limit) {}
    std::vector<Broken_Invariant> FOUND;

    void Owners()
    {
        for (int row = 1; row <= MAX_MN; ++row)
            if (MN[row].MNUNIT != 0 && !Living(MN[row].MNUNIT))
                Add("owner", Cat("MN[", To_Text(row), "].MNUNIT names the free row ", To_Text(MN[row].MNUNIT)));
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (UNIT[u].STATUS > 0 && UNIT[u].PARENT_UNIT != 0 && !Living(UNIT[u].PARENT_UNIT))
                Add("owner", Cat(Unit(u), ".PARENT_UNIT names the free row ", To_Text(UNIT[u].PARENT_UNIT)));
    }

    void Passengers()
    {
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (UNIT[u].STATUS > 0 && UNIT[u].PASSENGER != 0 && !Living(UNIT[u].PASSENGER))
                Add("passenger", Cat(Unit(u), ".PASSENGER names the free row ", To_Text(UNIT[u].PASSENGER)));
    }

    void Routes()
    {
        std::vector<std::vector<int>> numbers(MAX_UNIT + 1);
        for (int row = 1; row <= MAX_MN; ++row)
            if (MN[row].MNUNIT >= 1 && MN[row].MNUNIT <= MAX_UNIT) numbers[MN[row].MNUNIT].push_back(MN[row].MNUNITNUMBER);
        for (int u = 1; u <= MAX_UNIT; ++u) {
            if (UNIT[u].STATUS < 1) continue;
            auto& route = numbers[u];
            std::sort(route.begin(), route.end());
            const int n = static_cast<int>(route.size());
            bool dense = n == UNIT[u].NUMBER_OF_NODES;
            for (int i = 0; i < n; ++i) dense = dense && route[i] == i + 1;
            if (!dense)
                Add("route", Cat(Unit(u), " has ", To_Text(n), " nodes, NUMBER_OF_NODES ",
                                 To_Text(UNIT[u].NUMBER_OF_NODES), ", or numbers that are not 1 to n"));
        }
    }

    void Ranges()
    {
        Visit_Game(GAME, [&](const Record_View& view) {
            if (view.TABLE[0] == 'H') return;   // the grid: walked once more below, without the generic detour
            for (const FIELD& field : view.FIELDS) {
                if (field.KIND == Kind::TEXT || field.KIND == Kind::FREE) continue;
                const double value = Field_Number(view.RECORD, field);
                if (!(value >= field.LOW && value <= field.HIGH))
                    Add("range", Cat(view.TABLE, "[", To_Text(view.ROW), "].", field.KEY, " is ",
                                     Field_As_Text(view.RECORD, field)));
            }
        });
        for (int hex = 1; hex <= HEXCOUNT; ++hex)
            if (HEXMAP[hex].TVALUE < 0 || HEXMAP[hex].TVALUE > 31)
                Add("range", Cat("HEXMAP[", To_Text(hex), "].TVALUE is ", To_Text(HEXMAP[hex].TVALUE)));
    }

    void Places()
    {
        for (int u = 1; u <= MAX_UNIT; ++u) {
            const UNIT_RECORD& r = UNIT[u];
            if (r.STATUS < 1) continue;
            const int hex = Hex_Number(r.X, r.Y);
            if (hex == 0) continue;
            if (r.ROW != Hex_Row(r.Y) || r.COL != Hex_Column(r.X) || r.HEXNUM != hex)
                Add("place", Cat(Unit(u), " stands in cell ", To_Text(hex), " and says HEXNUM ", To_Text(r.HEXNUM),
                                 ", ROW ", To_Text(r.ROW), ", COL ", To_Text(r.COL)));
            else if (r.TERTYPE != Cell_Value(hex))
                Add("place", Cat(Unit(u), " stands on terrain ", To_Text(Cell_Value(hex)), " and says TERTYPE ",
                                 To_Text(r.TERTYPE)));
        }
    }

    void Overlays()
    {
        std::map<int, int> added;   // cell: what its obstacles and fortifications add to the base value
        for (int row = 1; row <= MAX_BG; ++row)
            if (BG[row].BGHEX > 0) added[BG[row].BGHEX] += BG[row].BGTYPE == 8 ? 11 : BG[row].BGTYPE == 9 ? 21 : 0;
        for (int row = 1; row <= MAX_BG; ++row) {
            const int hex = BG[row].BGHEX;
            if (hex < 1 || hex > HEXCOUNT) continue;
            const int base = Cell_Value(hex) - added[hex];
            const bool shown = BG[row].BGTYPE == 5   ? base == 5
                               : BG[row].BGTYPE == 7 ? base == 7
                                                     : base >= 0 && base <= 10;
            if (!shown)
                Add("overlay", Cat("BG[", To_Text(row), "] of type ", To_Text(BG[row].BGTYPE), " lies on cell ",
                                   To_Text(hex), " of value ", To_Text(Cell_Value(hex))));
        }
    }

private:
    static bool Living(int unit) { return unit >= 1 && unit <= MAX_UNIT && UNIT[unit].STATUS > 0; }
    static std::string Unit(int u) { return Cat("UNIT[", To_Text(u), "]"); }
    void Add(const char* rule, const std::string& text)
    {
        if (static_cast<int>(FOUND.size()) < limit_) FOUND.push_back({rule, text});
    }
    int limit_;
};

}   // namespace

std::vector<Broken_Invariant> Broken_Invariants(int limit)
{
    Finder finder(limit);
    finder.Owners();
    finder.Passengers();
    finder.Routes();
    finder.Ranges();
    finder.Places();
    finder.Overlays();
    return std::move(finder.FOUND);
}

void Require_Invariants()
{
    const auto broken = Broken_Invariants(1);
    if (!broken.empty()) throw Game_Error(ERROR_INTERNAL, Cat(broken[0].RULE, ": ", broken[0].TEXT));
}

}   // namespace sm

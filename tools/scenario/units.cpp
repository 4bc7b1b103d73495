#include "builder.h"

#include "core/game_state.h"
#include "core/icon_names.h"
#include "core/shared.h"
#include "core/text.h"
#include "manoeuvre/routes.h"
#include "opponent/intent.h"
#include "persist/keyed_text.h"
#include "ways.h"

#include <algorithm>
#include <iterator>

namespace sm::scenario {

namespace {

constexpr int LOGISTICS = 13, LIFT = 12, AVIATION = 3;

// Orders are carried out stage by stage, over all units: what a unit is, whom it belongs to, where it goes.
enum Stage { STATE, LINKS, ATTACH, ROUTE, CARGO, STAGES };

struct ORDER {
    const char* WORD;
    Stage STAGE;
    std::size_t LEAST, MOST;   // words, the order's own included
    void (*GIVE)(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s);
};

bool Has_Order(const Builder& b, int row, const char* word)
{
    for (const UNIT_PLAN& plan : b.UNITS) {
        if (plan.ROW != row) continue;
        for (const STATEMENT& s : plan.ORDERS)
            if (s.WORDS[0] == word) return true;
    }
    return false;
}

struct MISSION_ROW {
    const char* LABEL;
    int TACOPN, AIACTION, TIMERM;
};
// clang-format off
constexpr MISSION_ROW MISSIONS[] = {
    {"Offense",             0, 5, 0},
    {"Hasty Defense",       1, 3, 6},
    {"Deliberate Defense", 11, 3, 0},
    {"Security",            3, 2, 0},
    {"Reconnaissance",      3, 2, 0},
    {"Withdrawal",          4, 1, 0},
    {"Reserve",             1, 4, 0},
    {"Support",             1, 3, 0},
};
// clang-format on

void Give_Mission(const Builder&, UNIT_RECORD& u, int, const STATEMENT& s)
{
    for (const MISSION_ROW& m : MISSIONS) {
        if (s.WORDS[1] != m.LABEL) continue;
        u.MISSION = m.LABEL;
        u.TACOPN = m.TACOPN;
        u.AIACTION = m.AIACTION;
        if (u.MOBILITY != AVIATION) u.TIMERM = m.TIMERM;   // of an aircraft it is fuel
        return;
    }
    throw Bad_Script(s.LINE, "no such mission: " + s.WORDS[1]);
}

void Give_Strength(const Builder&, UNIT_RECORD& u, int, const STATEMENT& s)
{
    u.STRENGTH = static_cast<float>(Number(s, 1, 1, 100));
    u.RCP2 = u.STRENGTH * u.RCP * 0.01f;
    u.RCP3 = u.RCP2;
}

void Give_Supply(const Builder&, UNIT_RECORD& u, int, const STATEMENT& s)
{
    const int percent = Number(s, 1, 0, 100);
    u.LOGSTATO = u.LOGSTATN = percent;
    u.RSF2 = static_cast<float>(percent) * u.RSF * 0.01f;
    u.LSF2 = static_cast<float>(Round_Even(static_cast<float>(percent) * u.LSF * 0.01f));
}

void Give_Arrival(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    const CELL at = b.Place(s, 2);
    u.ATIME = Number(s, 1, 1, MAXGTURN);
    u.OFFMAP = 1;
    u.ARX = Middle(at.COLUMN);
    u.ARY = Middle(at.ROW);
    Place_Off_Picture(row);
}

void Give_Supplier(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    if (s.WORDS[1] == "LOC") {
        u.LOGUNIT = u.SIDE == BLUE ? SIDE_UNITS : MAX_UNIT;   // the line of communication, made at the load
        return;
    }
    const int supplier = b.Unit(u.SIDE, s.WORDS[1], s.LINE);
    if (supplier == row || UNIT[supplier].TYPE != LOGISTICS)
        throw Bad_Script(s.LINE, s.WORDS[1] + " cannot supply this unit");
    u.LOGUNIT = supplier;
}

void Give_Headquarters(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    const int hq = b.Unit(u.SIDE, s.WORDS[1], s.LINE);
    if (hq == row || UNIT[hq].TYPE != 18)
        throw Bad_Script(s.LINE, s.WORDS[1] + " is no headquarters for this unit");
    u.HIGHERHQ = hq;
}

/// Attack helicopters wait until a target comes into a named area.
void Give_Ambush(const Builder& b, UNIT_RECORD& u, int, const STATEMENT& s)
{
    if (u.TYPE != 11) throw Bad_Script(s.LINE, "only attack helicopters wait for an area");
    u.NAI = b.Graphic(u.SIDE, s.WORDS[1], s.LINE);
    u.MOVESTATUS = 7;
}

/// The unit leaves the map into its parent, whose figures take it up.
void Give_Parent(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    const int parent = b.Unit(u.SIDE, s.WORDS[1], s.LINE);
    constexpr int ABSORBED[] = {14, 15, 19, 20, 21, 24, 25};
    if (std::find(std::begin(ABSORBED), std::end(ABSORBED), int{u.TYPE}) == std::end(ABSORBED) || parent == row ||
        UNIT[parent].PARENT_UNIT > 0 || UNIT[parent].TYPE == 18)
        throw Bad_Script(s.LINE, "this unit cannot be attached to " + s.WORDS[1]);
    UNIT_RECORD& p = UNIT[parent];
    u.HIGHERHQ = 0;
    u.PARENT_UNIT = parent;
    Place_Unit(row, -500, u.SIDE == BLUE ? -1000 : -2000);
    p.RCP2 += u.RCP2;
    p.RCP += u.RCP;
    p.RCP3 = p.RCP2;
    p.RSF += u.RSF;
    p.RSF2 += u.RSF2;
    p.BRIDGING += u.BRIDGING;
    p.STRENGTH = static_cast<float>(Truncate(p.RCP2 / p.RCP * 100.0f));
}

void Add_Node(int row, CELL at, const STATEMENT& s)
{
    const int node = Next_Free_Node(row);
    if (node < 1 || node > MAX_MN || MN[node].MNUNIT != 0) throw Bad_Script(s.LINE, "the force has no node left");
    Add_Move_Node(row, node, Middle(at.COLUMN), Middle(at.ROW));
}

void Give_Route(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    if (u.PARENT_UNIT > 0 || u.OFFMAP != 0) throw Bad_Script(s.LINE, "this unit is not on the map");
    const bool ford = Has_Order(b, row, "ford");
    u.RETREATS = Has_Order(b, row, "retreat") ? 1 : 0;
    std::vector<CELL> nodes;
    if (u.MOBILITY == AVIATION) {
        for (std::size_t i = 1; i < s.WORDS.size(); ++i) nodes.push_back(b.Place(s, i));
    } else {
        std::vector<CELL> way{{Hex_Column(u.X), Hex_Row(u.Y)}};
        const auto plot = [&] {
            const std::vector<CELL> legs = Nodes_Of(row, way, ford);
            nodes.insert(nodes.end(), legs.begin(), legs.end());
        };
        for (std::size_t i = 1; i < s.WORDS.size(); ++i) {
            const std::vector<CELL> on = Find_Way(row, way.back(), b.Place(s, i), ford);
            if (on.empty()) throw Bad_Script(s.LINE, Cat(u.NAME.Str(), " finds no way to ", s.WORDS[i]));
            way.insert(way.end(), on.begin() + 1, on.end());
            if (!ford) continue;   // places on the way are drawn straight, but a river is forded where it is told
            plot();
            way = {way.back()};
        }
        if (!ford) plot();
    }
    for (const CELL& node : nodes) Add_Node(row, node, s);
    if (u.NUMBER_OF_NODES != static_cast<int>(nodes.size()))
        throw Bad_Script(s.LINE, Cat(u.NAME.Str(), " cannot be plotted so far"));
    if (const std::string fault = u.MOBILITY == AVIATION ? "" : Fault_Of_Route(row, ford); !fault.empty())
        throw Bad_Script(s.LINE, Cat(u.NAME.Str(), ": ", fault));
}

/// Row of the unit's nth node.
int Node_Row(int unit, int n, const STATEMENT& s)
{
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT == unit && MN[row].MNUNITNUMBER == n) return row;
    throw Bad_Script(s.LINE, "the route has no such node");
}

void Give_Cargo(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    const int cargo = b.Unit(u.SIDE, s.WORDS[1], s.LINE);
    if (u.TYPE != LIFT || cargo == row) throw Bad_Script(s.LINE, "this unit carries nobody");
    UNIT[cargo].CARRIER = row;
    u.PZ = Node_Row(row, Number(s, 2, 1, 300), s);
    u.LZ = Node_Row(row, Number(s, 3, 1, 300), s);
}

/// The objective that the author has in mind for it.
void Give_Objective(const Builder&, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    const std::vector<int> offered = Objectives_On_Offer(row);
    const int objective = Number(s, 1, 1, MAX_OBJ);
    if (std::find(offered.begin(), offered.end(), objective) == offered.end())
        throw Bad_Script(s.LINE, Cat("objective ", s.WORDS[1], " cannot be given to ", u.NAME.Str(),
                                     ": it takes one in use, and a unit in reserve or on the attack"));
    Set_Unit_Objective(row, objective);
}

/// Where a staff of the computer sends the unit, first and next. Given after the route, which forgets destinations.
void Give_Goal(const Builder& b, UNIT_RECORD& u, int, const STATEMENT& s)
{
    const CELL first = b.Place(s, 1), next = s.WORDS.size() > 2 ? b.Place(s, 2) : CELL{};
    u.OX1 = Middle(first.COLUMN);
    u.OY1 = Middle(first.ROW);
    u.OX2 = s.WORDS.size() > 2 ? Middle(next.COLUMN) : 0;
    u.OY2 = s.WORDS.size() > 2 ? Middle(next.ROW) : 0;
}

/// The unit's weapon systems go to another that has come near.
void Give_Replacement(const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
{
    u.WSRO = b.Unit(u.SIDE, s.WORDS[1], s.LINE);
    if (u.WSRO == row || u.SIZE > 2) throw Bad_Script(s.LINE, u.NAME.Str() + " cannot be merged into " + s.WORDS[1]);
}

void Give_Field(const Builder&, UNIT_RECORD& u, int, const STATEMENT& s)
{
    for (const FIELD& f : Fields<UNIT_RECORD>()) {
        if (s.WORDS[1] != f.KEY || (f.CARRIERS & IN_FILE) == 0) continue;
        if (Store_Value(&u, f, s.WORDS[2]) != 0)
            throw Bad_Script(s.LINE, Cat(s.WORDS[1], " cannot be ", s.WORDS[2]));
        return;
    }
    throw Bad_Script(s.LINE, "a unit has no " + s.WORDS[1]);
}

#define SM_ORDER [](const Builder& b, UNIT_RECORD& u, int row, const STATEMENT& s)
#define SM_UNUSED (void)b, (void)u, (void)row, (void)s
// clang-format off
constexpr ORDER ORDERS[] = {
    {"mission",  STATE,  2,  2, Give_Mission},
    {"nation",   STATE,  2,  2, SM_ORDER { SM_UNUSED; u.NATION = s.WORDS[1]; }},
    {"strength", STATE,  2,  2, Give_Strength},
    {"supply",   STATE,  2,  2, Give_Supply},
    {"morale",   STATE,  2,  2, SM_ORDER { SM_UNUSED; u.MORALE = Number(s, 1, 0, 4); }},
    {"mopp",     STATE,  2,  2, SM_ORDER { SM_UNUSED; u.MOPP = Number(s, 1, 0, 4); }},
    {"fatigue",  STATE,  2,  2, SM_ORDER { SM_UNUSED; u.FATIGUE = Number(s, 1, 0, 40); }},
    {"bridging", STATE,  2,  2, SM_ORDER { SM_UNUSED; u.BRIDGING = Number(s, 1, 0, 10); }},
    {"chem",     STATE,  1,  1, SM_ORDER { SM_UNUSED; u.CHEMWPN = 1; }},
    {"control",  STATE,  1,  1, SM_ORDER { SM_UNUSED; u.UCONTROL = 1; }},
    {"facing",   STATE,  2,  2, SM_ORDER { SM_UNUSED; u.FACING = Number(s, 1, 0, 359); }},
    {"sensor",   STATE,  2,  2, SM_ORDER { SM_UNUSED; const int n = Choice(s, 1, {"off", "on", "attack"});
                                           u.SENSORS = n > 0 ? 1 : 0; u.SENSORA = n == 2 ? 1 : 0; }},
    {"smoke",    STATE,  2,  2, SM_ORDER { SM_UNUSED; u.SMOKE = Choice(s, 1, {"off", "on"}); }},
    {"psyops",   STATE,  2,  2, SM_ORDER { SM_UNUSED; u.POPS = Choice(s, 1, {"off", "on"}); }},
    {"fsp",      STATE,  2,  2, SM_ORDER { SM_UNUSED; u.FSP = Choice(s, 1, {"close", "counterfire", "sead", "opportunity"}); }},
    {"hpt1",     STATE,  2,  2, SM_ORDER { SM_UNUSED; u.HPTL1 = Number(s, 1, 0, 10); }},
    {"hpt2",     STATE,  2,  2, SM_ORDER { SM_UNUSED; u.HPTL2 = Number(s, 1, 0, 10); }},
    {"maxloss",  STATE,  2,  2, SM_ORDER { SM_UNUSED; u.RETREATP = Choice(s, 1, {"15%", "1%", "3%", "5%", "10%", "20%", "25%", "30%"}); }},
    {"cop",      STATE,  1,  1, SM_ORDER { SM_UNUSED; (u.SIDE == BLUE ? u.RCOP : u.BCOP) = 1; }},
    {"cfz",      STATE,  1,  1, SM_ORDER { SM_UNUSED; u.CFZ = 1; (u.SIDE == BLUE ? BCFZ : RCFZ) += 1; }},
    {"fortify",  STATE,  1,  1, SM_ORDER { SM_UNUSED; u.TIMEREGR = 6; (u.SIDE == BLUE ? BFORTS : RFORTS) += 1; }},
    {"arrives",  STATE,  3,  3, Give_Arrival},
    {"hq",       LINKS,  2,  2, Give_Headquarters},
    {"log",      LINKS,  2,  2, Give_Supplier},
    {"nai",      LINKS,  2,  2, Give_Ambush},
    {"merge",    LINKS,  2,  2, Give_Replacement},
    {"attach",   ATTACH, 2,  2, Give_Parent},
    {"ford",     ROUTE,  1,  1, SM_ORDER { SM_UNUSED; }},                // read by the route
    {"retreat",  ROUTE,  1,  1, SM_ORDER { SM_UNUSED; }},
    {"route",    ROUTE,  2, 40, Give_Route},
    {"carry",    CARGO,  4,  4, Give_Cargo},
    {"action",   CARGO,  2,  2, SM_ORDER { SM_UNUSED; Set_Unit_Action(row, Choice(s, 1, {"none", "retreat", "security", "defend",
                                                                                         "reserve", "attack"})); }},
    {"aim",      CARGO,  2,  2, Give_Objective},
    {"goal",     CARGO,  2,  3, Give_Goal},
    {"field",    CARGO,  3,  3, Give_Field},
};
// clang-format on

/// A row filled from the weapons table, as a newly built unit of that type.
int Build(const UNIT_PLAN& plan)
{
    const int row = Free_Unit_Row(plan.SIDE);
    // the last row of each half is the line of communication's
    if (row == 0 || row == SIDE_UNITS || row == MAX_UNIT) throw Bad_Script(plan.HEAD.LINE, "the force is full");
    int w = 1;
    while (w <= WPN.Count() && WPN[w].WPN.Str() != plan.HEAD.WORDS[2]) ++w;
    if (w > WPN.Count()) throw Bad_Script(plan.HEAD.LINE, "the weapons file has no " + plan.HEAD.WORDS[2]);
    const WPN_RECORD& type = WPN[w];
    UNIT_RECORD& u = UNIT[row];
    u = {};
    u.SIDE = plan.SIDE;
    u.STATUS = 2;
    u.NAME = plan.HEAD.WORDS[1];
    u.WPN = w;
    u.UNITTYPE = type.WPN.Str();
    u.NATION = type.NATION.Str();
    u.TYPE = type.TYPE;
    u.SIZE = type.SIZE;
    u.MOBILITY = type.MOBILITY;
    u.SENSORT = type.SENSORT;
    u.MXRANGE = type.RANGE;
    u.MINRANGE = type.MRANGE;
    u.IMAGETYPE = plan.SIDE == BLUE ? type.IMAGETYPE : type.RIMAGETYPE;
    u.IMAGE = plan.SIDE == BLUE ? type.IMAGE.Str() : type.RIMAGE.Str();
    u.RCP = type.RCP;
    u.RCP2 = u.RCP3 = u.RCP;
    u.STRENGTH = 100;
    u.RSF = static_cast<float>(int{u.SIZE});
    u.RSF2 = u.RSF;
    u.LSF = static_cast<float>(Round_Even(u.RCP * 500.0f));
    u.LSF2 = u.LSF;
    u.LOGSTATO = u.LOGSTATN = 100;
    u.MORALE = 2;
    u.C2 = 3;
    u.FACING = plan.SIDE == BLUE ? 90 : 270;
    u.MOVEPOINTS = u.MOBILITY == AVIATION ? 400 : u.TYPE == LOGISTICS ? 12 : u.MOBILITY == 0 ? 6 : 24;
    u.MOVEPOINTS2 = u.MOVEPOINTS;
    u.MISSION = "Support";
    u.TACOPN = 4;
    return row;
}

void Carry_Out(Builder& b, Stage stage)
{
    for (const UNIT_PLAN& plan : b.UNITS) {
        for (const STATEMENT& s : plan.ORDERS) {
            const auto order = std::find_if(std::begin(ORDERS), std::end(ORDERS),
                                            [&](const ORDER& o) { return s.WORDS[0] == o.WORD; });
            if (order->STAGE != stage) continue;
            try {
                Expect_Words(s, order->LEAST, order->MOST);
                order->GIVE(b, UNIT[plan.ROW], plan.ROW, s);
            } catch (const Bad_Script& fault) {
                b.FAULTS.push_back(fault);
            }
        }
    }
}

}   // namespace

bool Is_Order(const std::string& word)
{
    return std::any_of(std::begin(ORDERS), std::end(ORDERS), [&](const ORDER& o) { return word == o.WORD; });
}

void Raise_Units(Builder& b)
{
    for (UNIT_PLAN& plan : b.UNITS) {
        plan.ROW = Build(plan);
        if (plan.HEAD.WORDS.size() > 3) {
            const CELL at = b.Place(plan.HEAD, 3);
            Place_Unit(plan.ROW, Middle(at.COLUMN), Middle(at.ROW));
        }
    }
    Carry_Out(b, STATE);
    Carry_Out(b, LINKS);
    // an attached unit keeps no headquarters but its parent
    Carry_Out(b, ATTACH);
    for (const UNIT_PLAN& plan : b.UNITS) {
        const UNIT_RECORD& u = UNIT[plan.ROW];
        if (plan.HEAD.WORDS.size() < 4 && u.PARENT_UNIT == 0 && u.OFFMAP == 0)
            b.FAULTS.emplace_back(plan.HEAD.LINE, u.NAME.Str() + " stands nowhere");
        if (u.HEXNUM > 0 && u.MOBILITY != AVIATION && (u.TERTYPE == 5 || (u.TERTYPE == 6 && u.MOBILITY > 0)))
            b.FAULTS.emplace_back(plan.HEAD.LINE, u.NAME.Str() + " stands in water or on impassable ground");
    }
    Carry_Out(b, ROUTE);
    Carry_Out(b, CARGO);
    if (!b.FAULTS.empty()) throw Bad_Scripts(b.FAULTS);
    for (const UNIT_PLAN& plan : b.UNITS) {
        Set_Footprint(plan.ROW);
        if (UNIT[plan.ROW].TACOPN == 3) Set_Screen(plan.ROW);
    }
}

}   // namespace sm::scenario

#include "persist/game_sense.h"

#include "persist/fault_list.h"

#include <algorithm>
#include <cstring>

namespace sm {

namespace {

int Part_Named(std::string_view table)
{
    for (int p = 0; p < FILE_PARTS; ++p)
        if (table == File_Parts()[p].TABLE) return p;
    Fail_Range(0, 1, FILE_PARTS, "File_Parts");
}

const FIELD& Field_Named(int part, std::string_view key)
{
    for (const FIELD& field : File_Parts()[part].FIELDS)
        if (key == field.KEY) return field;
    Fail_Range(0, 1, static_cast<int>(File_Parts()[part].FIELDS.size()), "fields");
}

/// A field by its name, with its line and its words.
struct Place {
    Checked_Game& READ;
    int PART, ROW;
    const FIELD& FIELD_;
    Place(Checked_Game& read, std::string_view table, int row, std::string_view key)
        : READ(read), PART(Part_Named(table)), ROW(row), FIELD_(Field_Named(PART, key))
    {
    }
    int Line() const { return READ.Line_Of(PART, ROW, FIELD_); }
    int Number() const { return static_cast<int>(Field_Number(READ.Record(PART, ROW), FIELD_)); }
    /// "UNIT[17].SIDE is 2"
    std::string Words() const
    {
        return Cat(READ.Name_Of(PART, ROW, FIELD_), " is ", Field_As_Text(READ.Record(PART, ROW), FIELD_));
    }
};

bool Row_Used(const Game& game, std::string_view table, int row)
{
    if (table == "UNIT") return Used(game.UNIT[row]);
    if (table == "P") return Used(game.P[row]);
    if (table == "MN") return Used(game.MN[row]);
    return Used(game.TG[row]);
}

struct REFERENCE {
    const char* TABLE;
    const char* KEY;
    const char* TO;
    bool STAYS;   ///< the rules leave it standing when the row it names goes
};
// clang-format off
constexpr REFERENCE REFERENCES[] = {
    {"UNIT", "PARENT_UNIT",   "UNIT", false},
    {"UNIT", "HIGHERHQ",      "UNIT", true},
    {"UNIT", "LOGUNIT",       "UNIT", true},
    {"UNIT", "CARRIER",       "UNIT", true},
    {"UNIT", "PASSENGER",     "UNIT", false},
    {"UNIT", "CONVOYD",       "UNIT", true},
    {"UNIT", "WSRO",          "UNIT", true},
    {"UNIT", "NAI",           "P",    true},
    {"MN",   "MNUNIT",        "UNIT", false},
    {"TG",   "FUNIT",         "UNIT", true},
    {"TG",   "TGRAPHIC",      "P",    true},
    {"P",    "LINKEDUNIT",    "UNIT", true},
    {"P",    "LINKEDGRAPHIC", "P",    true},
};
// clang-format on

/// The rows of the lines of communication: a scenario may leave them free, for they are made when it is opened.
bool Made_At_Opening(const REFERENCE& reference, int row)
{
    return std::string_view(reference.KEY) == "LOGUNIT" && (row == SIDE_UNITS || row == MAX_UNIT);
}

void Check_References(Checked_Game& read, bool scenario, Fault_List& faults)
{
    for (const REFERENCE& reference : REFERENCES) {
        const int size = File_Parts()[Part_Named(reference.TABLE)].SIZE;
        const int target_size = File_Parts()[Part_Named(reference.TO)].SIZE;
        for (int row = 1; row <= size; ++row) {
            if (!Row_Used(*read.GAME_READ, reference.TABLE, row)) continue;
            const Place place(read, reference.TABLE, row, reference.KEY);
            const int named = place.Number();
            if (named == 0) continue;
            if (named < 0 || named > target_size)
                faults.Fault(place.Line(), Cat(place.Words(), ", no row of ", reference.TO));
            else if (!Row_Used(*read.GAME_READ, reference.TO, named) && !(scenario && Made_At_Opening(reference, named)))
                faults.Add(place.Line(), scenario || !reference.STAYS,
                           Cat(place.Words(), ", a free row of ", reference.TO));
        }
    }
}

void Check_Unit_Sides(Checked_Game& read, Fault_List& faults)
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (!Used(read.GAME_READ->UNIT[u])) continue;
        const int half = u <= SIDE_UNITS ? BLUE : RED;
        const Place side(read, "UNIT", u, "SIDE");
        if (side.Number() == half) continue;
        faults.Fault(side.Line(), Cat(side.Words(), ", and rows ",
                                      half == BLUE ? "1..300 are Blue's (1)" : "301..600 are Red's (2)"));
    }
}

/// Rows of the tables that each side has half of; older files keep to it less strictly.
void Check_Halves(Checked_Game& read, Fault_List& faults)
{
    struct HALVED {
        const char* TABLE;
        const char* KEY;
    };
    static constexpr HALVED TABLES[] = {{"MN", "MNSIDE"}, {"P", "PSIDE"}, {"TG", "TGSIDE"}};
    for (const HALVED& table : TABLES) {
        const int size = File_Parts()[Part_Named(table.TABLE)].SIZE;
        for (int row = 1; row <= size; ++row) {
            if (!Row_Used(*read.GAME_READ, table.TABLE, row)) continue;
            const Place side(read, table.TABLE, row, table.KEY);
            const int half = row <= size / 2 ? BLUE : RED;
            if (side.Number() != half)
                faults.Remark(side.Line(), Cat(side.Words(), " in ", half == BLUE ? "Blue's" : "Red's",
                                               " half of ", table.TABLE));
        }
    }
}

void Check_Routes(Checked_Game& read, Fault_List& faults)
{
    const Game& game = *read.GAME_READ;
    std::vector<std::vector<int>> nodes(MAX_UNIT + 1);   // rows of MN by unit
    for (int row = 1; row <= MAX_MN; ++row) {
        const int unit = game.MN[row].MNUNIT;
        if (unit < 1 || unit > MAX_UNIT) continue;
        nodes[static_cast<std::size_t>(unit)].push_back(row);
        const Place side(read, "MN", row, "MNSIDE");
        if (Used(game.UNIT[unit]) && side.Number() != game.UNIT[unit].SIDE)
            faults.Fault(side.Line(), Cat(side.Words(), ", not the side of its unit ", To_Text(unit)));
    }
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (!Used(game.UNIT[u])) continue;
        auto& rows = nodes[static_cast<std::size_t>(u)];
        std::stable_sort(rows.begin(), rows.end(),
                         [&](int a, int b) { return game.MN[a].MNUNITNUMBER < game.MN[b].MNUNITNUMBER; });
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (game.MN[rows[i]].MNUNITNUMBER == static_cast<int>(i) + 1) continue;
            const Place number(read, "MN", rows[i], "MNUNITNUMBER");
            faults.Fault(number.Line(), Cat(number.Words(), ", and the nodes of unit ", To_Text(u),
                                            " are to be numbered 1 to ", To_Text(static_cast<int>(rows.size()))));
            break;
        }
        const Place count(read, "UNIT", u, "NUMBER_OF_NODES");
        if (count.Number() != static_cast<int>(rows.size()))
            faults.Fault(count.Line(), Cat(count.Words(), ", and MN holds ",
                                           To_Text(static_cast<int>(rows.size())), " nodes of this unit"));
    }
}

bool Is_Clock(int clock) { return clock >= 0 && clock <= 2400 && clock % 100 < 60; }

bool Is_Clock_Text(std::string_view text)
{
    const auto clock = Parse_Int(text);
    return text.size() == 4 && clock && Is_Clock(*clock);
}

bool Is_Month(std::string_view text)
{
    static constexpr const char* MONTHS[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return std::any_of(std::begin(MONTHS), std::end(MONTHS), [&](const char* month) { return text == month; });
}

bool Is_Whole(float value)
{
    return value >= 1 && value <= 32767 && value == static_cast<float>(static_cast<int>(value));
}

struct HEADER_RULE {
    const char* KEY;
    bool (*KEPT)(const Game& game);
    const char* WORDS;
};
// clang-format off
constexpr HEADER_RULE HEADER_RULES[] = {
    {"MAPFILE",      [](const Game& g) { return !g.MAPFILE.Empty(); },        "the game has no map picture"},
    {"TERRAIN FILE", [](const Game& g) { return !g.TERRAIN_FILE.Empty(); },   "the game has no terrain file"},
    {"MAPSCALE",     [](const Game& g) { return g.MAPSCALE > 0; },            "the map scale has to be above 0"},
    {"HEXWIDTH",     [](const Game& g) { return g.HEXWIDTH >= 1; },           "a cell is at least 1 pixel wide"},
    {"NUMROWS",      [](const Game& g) { return Is_Whole(g.NUMROWS); },       "the grid has a whole number of rows, at least 1"},
    {"NUMCOLS",      [](const Game& g) { return Is_Whole(g.NUMCOLS); },       "the grid has a whole number of columns, at least 1"},
    {"NUMCOLS",      [](const Game& g) { return static_cast<double>(g.NUMROWS) * static_cast<double>(g.NUMCOLS) <= MAX_HEX; },
                                                                              "the grid has at most 150000 cells"},
    {"GTIME",        [](const Game& g) { return Is_Clock_Text(g.GTIME); },    "the clock has four digits, hours and minutes"},
    {"GDAY",         [](const Game& g) { const auto day = Parse_Int(g.GDAY); return day && *day >= 1 && *day <= 31; },
                                                                              "the day is 1 to 31"},
    {"GMONTH",       [](const Game& g) { return Is_Month(g.GMONTH); },        "the month is Jan to Dec"},
    {"BMNT",         [](const Game& g) { return Is_Clock(g.BMNT); },          "dawn is a clock number, 0 to 2400"},
    {"EENT",         [](const Game& g) { return Is_Clock(g.EENT); },          "dusk is a clock number, 0 to 2400"},
    {"MAXGTURN",     [](const Game& g) { return g.MAXGTURN >= 1; },           "the game has at least one turn"},
};
// clang-format on

void Check_Header(Checked_Game& read, Fault_List& faults)
{
    for (const HEADER_RULE& rule : HEADER_RULES) {
        const FIELD& field = Field_Named(0, rule.KEY);
        const int line = read.Line_Of(0, 1, field);
        if (line == 0 || rule.KEPT(*read.GAME_READ)) continue;
        faults.Fault(line, Cat(rule.KEY, " \"", Field_As_Text(read.Record(0, 1), field), "\": ", rule.WORDS));
    }
}

}   // namespace

void Check_Sense(Checked_Game& read, bool scenario, Fault_List& faults)
{
    Check_Header(read, faults);
    Check_Unit_Sides(read, faults);
    Check_Halves(read, faults);
    Check_References(read, scenario, faults);
    Check_Routes(read, faults);
}

}   // namespace sm

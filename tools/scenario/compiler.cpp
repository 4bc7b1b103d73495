#include "compiler.h"

#include "builder.h"
#include "core/clock.h"
#include "core/game_state.h"
#include "core/session.h"
#include "core/shared.h"
#include "core/text.h"
#include "persist/keyed_text.h"
#include "persist/weapons_file.h"
#include "sustain/reinforcements.h"
#include "terrain/map.h"

#include <algorithm>

namespace sm::scenario {

namespace {

/// Scalar of the game file by its key.
void Set_Scalar(const STATEMENT& s)
{
    Expect_Words(s, 3, 3);
    const auto set = [&](void* record, std::span<const FIELD> fields) {
        for (const FIELD& f : fields) {
            if (s.WORDS[1] != f.KEY) continue;
            if (Store_Value(record, f, s.WORDS[2]) != 0)
                throw Bad_Script(s.LINE, Cat(s.WORDS[1], " cannot be ", s.WORDS[2]));
            return true;
        }
        return false;
    };
    if (!set(static_cast<HEADER*>(&GAME), Fields_Of(static_cast<HEADER*>(nullptr))) &&
        !set(static_cast<TACAIR*>(&GAME), Fields_Of(static_cast<TACAIR*>(nullptr))))
        throw Bad_Script(s.LINE, "the game file has no " + s.WORDS[1]);
}

void Choose_Map(Builder& b, const STATEMENT& s)
{
    const int number = Number(s, 1, 1, STOCK_MAPS);
    Choose_Stock_Map(number);
    if (!Prepare_Map()) throw Bad_Script(s.LINE, "the map cannot be prepared");
    std::string sheet = Stock_Map(number).PICTURE;
    sheet.erase(sheet.find('.'));
    b.PLACES.emplace(b.MAPS_FOLDER + "/" + sheet);
}

/// Default orders of the force; a later one of the same word takes the place of the earlier.
void Set_Default(Builder& b, const STATEMENT& s)
{
    Expect_Words(s, 2, 99);
    if (s.WORDS[1] == "none") {
        b.DEFAULTS.clear();
        return;
    }
    STATEMENT order{s.LINE, {s.WORDS.begin() + 1, s.WORDS.end()}};
    if (!Is_Order(order.WORDS[0])) throw Bad_Script(s.LINE, "no order of a unit: " + order.WORDS[0]);
    std::erase_if(b.DEFAULTS, [&](const STATEMENT& d) { return d.WORDS[0] == order.WORDS[0]; });
    b.DEFAULTS.push_back(order);
}

void Open_Unit(Builder& b, const STATEMENT& s)
{
    Expect_Words(s, 3, 4);
    if (b.SIDE == 0) throw Bad_Script(s.LINE, "a unit before its force");
    if (s.WORDS[1].size() > 20) throw Bad_Script(s.LINE, s.WORDS[1] + " is longer than 20 letters");
    for (const UNIT_PLAN& u : b.UNITS)
        if (u.SIDE == b.SIDE && u.HEAD.WORDS[1] == s.WORDS[1]) throw Bad_Script(s.LINE, "a second " + s.WORDS[1]);
    b.UNITS.push_back({s, b.DEFAULTS, b.SIDE, 0});
}

void Give_Order(Builder& b, const STATEMENT& s)
{
    if (b.UNITS.empty()) throw Bad_Script(s.LINE, "an order before any unit");
    std::vector<STATEMENT>& orders = b.UNITS.back().ORDERS;
    std::erase_if(orders, [&](const STATEMENT& d) { return d.WORDS[0] == s.WORDS[0] && s.WORDS[0] != "field"; });
    orders.push_back(s);
}

void Take_Statement(Builder& b, const STATEMENT& s)
{
    const std::string& word = s.WORDS[0];
    if (word == "set") return Set_Scalar(s);
    if (word == "map") return Choose_Map(b, s);
    if (word == "force") {
        b.SIDE = Choice(s, 1, {"blue", "red"}) + 1;
        b.DEFAULTS.clear();
        return;
    }
    if (word == "default") return Set_Default(b, s);
    if (word == "loc") {
        if (b.SIDE == 0) throw Bad_Script(s.LINE, "a line of communication before its force");
        b.LOC[b.SIDE - 1] = b.Place(s, 1);
        return;
    }
    if (word == "unit") {
        b.EVENT = 0;
        return Open_Unit(b, s);
    }
    if (Lay_Measure(b, s)) return;
    if (Is_Task(word)) {
        if (b.SIDE == 0) throw Bad_Script(s.LINE, "a task before its force");
        b.TASKS.emplace_back(s, b.SIDE);
        return;
    }
    if (Is_Order(word)) return Give_Order(b, s);
    throw Bad_Script(s.LINE, "no such statement: " + word);
}

/// Lines of communication that the text places; the others are made when the scenario is opened.
void Place_LOC_Units(const Builder& b)
{
    if (!b.LOC[0] && !b.LOC[1]) return;
    Make_LOC_Units();
    for (const int side : {BLUE, RED}) {
        const int row = side == BLUE ? SIDE_UNITS : MAX_UNIT;
        if (b.LOC[side - 1]) Place_Unit(row, Middle(b.LOC[side - 1]->COLUMN), Middle(b.LOC[side - 1]->ROW));
    }
}

int Nodes_Used(int first, int last) { return Count_Used(MN, first, last); }

}   // namespace

void Expect_Words(const STATEMENT& s, std::size_t least, std::size_t most)
{
    if (s.WORDS.size() < least || s.WORDS.size() > most)
        throw Bad_Script(s.LINE, Cat(s.WORDS[0], " takes other words than these"));
}

int Choice(const STATEMENT& s, std::size_t word, std::initializer_list<const char*> list)
{
    int n = 0;
    for (const char* choice : list) {
        if (word < s.WORDS.size() && s.WORDS[word] == choice) return n;
        ++n;
    }
    throw Bad_Script(s.LINE,
                     Cat(s.WORDS[0], word < s.WORDS.size() ? " knows no " + s.WORDS[word] : " lacks a word"));
}

CELL Builder::Place(const STATEMENT& s, std::size_t word) const
{
    if (!PLACES) throw Bad_Script(s.LINE, "a place before the map");
    if (word >= s.WORDS.size()) throw Bad_Script(s.LINE, s.WORDS[0] + " lacks a place");
    return PLACES->Find(s.WORDS[word], s.LINE);
}

int Builder::Unit(int side, const std::string& name, int line) const
{
    for (const UNIT_PLAN& u : UNITS)
        if (u.SIDE == side && u.HEAD.WORDS[1] == name) return u.ROW;
    throw Bad_Script(line, "no such unit: " + name);
}

int Builder::Graphic(int side, const std::string& name, int line) const
{
    const auto found = GRAPHICS.find({side, name});
    if (found == GRAPHICS.end()) throw Bad_Script(line, "no such control measure: " + name);
    return found->second;
}

void Compile(const std::vector<STATEMENT>& statements, const std::string& maps_folder)
{
    Set_Start_Defaults();
    if (!Read_Stock_Weapons() || WPN.Count() == 0) throw Bad_Script(0, "there is no weapons file");
    Erase_Tables();
    Builder b;
    b.MAPS_FOLDER = maps_folder;
    for (const STATEMENT& s : statements) Take_Statement(b, s);
    if (!b.PLACES) throw Bad_Script(0, "no map is chosen");
    GTURN = 0;
    Update_Header();   // day or night
    Raise_Units(b);
    Place_LOC_Units(b);
    for (const auto& [task, side] : b.TASKS) Assign_Task(b, task, side);
}

std::string Summary()
{
    return Cat(To_Text(Count_Used(UNIT, 1, SIDE_UNITS)), " + ",
               To_Text(Count_Used(UNIT, SIDE_UNITS + 1, MAX_UNIT)), " units, ", To_Text(Nodes_Used(1, 300)), " + ",
               To_Text(Nodes_Used(301, MAX_MN)), " nodes");
}

}   // namespace sm::scenario

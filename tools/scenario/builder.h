#pragma once
// What the statements of a scenario work on.

#include "script.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sm::scenario {

/// A unit as the text tells it, before all the units it speaks of exist.
struct UNIT_PLAN {
    STATEMENT HEAD;
    std::vector<STATEMENT> ORDERS;
    int SIDE = 0;
    int ROW = 0;
};

struct Builder {
    std::string MAPS_FOLDER;
    std::optional<Gazetteer> PLACES;
    int SIDE = 0;   ///< force under way
    std::vector<STATEMENT> DEFAULTS;
    std::vector<UNIT_PLAN> UNITS;
    std::optional<CELL> LOC[2];                            ///< line of communication, Blue's and Red's
    std::vector<std::pair<STATEMENT, int>> TASKS;          ///< target statements and their side
    std::map<std::pair<int, std::string>, int> GRAPHICS;   ///< row in P by side and name
    std::vector<Bad_Script> FAULTS;                        ///< of units and their orders, told together
    int EVENT = 0;                                         ///< row in PP of the event under way

    CELL Place(const STATEMENT& s, std::size_t word) const;
    /// Row of a unit of a side by its name.
    int Unit(int side, const std::string& name, int line) const;
    int Graphic(int side, const std::string& name, int line) const;
};

/// A statement with fewer or more words than it takes.
void Expect_Words(const STATEMENT& s, std::size_t least, std::size_t most);
/// Row of a word in a list; fails when it is none of them.
int Choice(const STATEMENT& s, std::size_t word, std::initializer_list<const char*> list);

/// Control measures, objectives, works, contamination, events: true when the statement is one of them.
bool Lay_Measure(Builder& b, const STATEMENT& s);
/// Whether a word opens a target statement, and what it does once all units stand.
bool Is_Task(const std::string& word);
void Assign_Task(Builder& b, const STATEMENT& s, int side);

/// Whether a word is an order of a unit.
bool Is_Order(const std::string& word);
/// Fills the unit rows from UNITS and carries their orders out.
void Raise_Units(Builder& b);

}   // namespace sm::scenario

#pragma once
// The text of a scenario: statements of words.

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace sm::scenario {

/// A statement: words parted by blanks, ended by the line or a semicolon. A word with blanks stands in double
/// quotes;
/// '#' opens a comment. Words are held in the game's code page.
struct STATEMENT {
    int LINE = 0;
    std::vector<std::string> WORDS;
};

/// Text that cannot be meant as it stands, at a line.
struct Bad_Script : std::runtime_error {
    Bad_Script(int line, const std::string& text) : std::runtime_error(text), LINE(line) {}
    int LINE;
};

/// All that is wrong with a text, as far as it could be followed.
struct Bad_Scripts : std::runtime_error {
    explicit Bad_Scripts(std::vector<Bad_Script> list) : std::runtime_error("faults"), LIST(std::move(list)) {}
    std::vector<Bad_Script> LIST;
};

std::vector<STATEMENT> Read_Statements(std::string_view utf8);
/// A word as a whole number within a range.
int Number(const STATEMENT& s, std::size_t word, int low, int high);

struct CELL {
    int COLUMN = 0, ROW = 0;   ///< from 1, as the grid counts
    friend bool operator==(const CELL&, const CELL&) = default;
};
/// Picture point at a cell's middle.
int Middle(int column_or_row);

/// Names of places on a map sheet, from the sheet's own sources.
class Gazetteer {
public:
    /// `folder` holds the sheet's frame.txt and towns.txt.
    explicit Gazetteer(const std::string& folder);
    /// A place: a town, "Town@3w2n" (three cells west and two north of it), "51.35,11.99" (latitude, longitude) or
    /// "cell:72,89" (column, row).
    CELL Find(const std::string& place, int line) const;

private:
    CELL At(std::string_view latitude, std::string_view longitude) const;
    std::map<std::string, CELL> TOWNS;
    long long ULLAT = 0, ULLONG = 0, DLATY = 0, DLONGX = 0;   // billionths of a degree
    int CELL_PIXELS = 0;
};

}   // namespace sm::scenario

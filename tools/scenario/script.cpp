#include "script.h"

#include "core/game_state.h"
#include "core/numbers.h"
#include "core/text.h"

#include <fstream>
#include <sstream>

namespace sm::scenario {

namespace {

std::string File_Content(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) throw Bad_Script(0, "cannot read " + path);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

/// Decimal degrees in billionths, without passing through a real.
long long Billionths(std::string_view text)
{
    const bool negative = !text.empty() && text[0] == '-';
    if (negative) text.remove_prefix(1);
    const std::size_t point = text.find('.');
    std::string digits(text.substr(0, point));
    std::string part = point == text.npos ? "" : std::string(text.substr(point + 1, 9));
    part.resize(9, '0');
    const long long value = std::stoll(digits + part);
    return negative ? -value : value;
}

/// Nearest whole quotient.
long long Divide(long long a, long long b)
{
    if (b < 0) return Divide(-a, -b);
    const long long twice = 2 * a + b;
    return twice >= 0 ? twice / (2 * b) : -((-twice + 2 * b - 1) / (2 * b));
}

}   // namespace

std::vector<STATEMENT> Read_Statements(std::string_view utf8)
{
    std::vector<STATEMENT> statements;
    STATEMENT current{1, {}};
    const auto finish = [&] {
        if (!current.WORDS.empty()) statements.push_back(current);
        current.WORDS.clear();
    };
    std::size_t i = 0;
    while (i < utf8.size()) {
        const char c = utf8[i];
        if (c == '\n' || c == ';') {
            finish();
            current.LINE += c == '\n' ? 1 : 0;
            ++i;
        } else if (c == '#') {
            while (i < utf8.size() && utf8[i] != '\n') ++i;
        } else if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '"') {
            const std::size_t stop = utf8.find_first_of("\"\n", i + 1);
            if (stop == utf8.npos || utf8[stop] == '\n') throw Bad_Script(current.LINE, "a quote is not closed");
            current.WORDS.push_back(From_Utf8(utf8.substr(i + 1, stop - i - 1)));
            i = stop + 1;
        } else {
            const std::size_t stop = std::min(utf8.find_first_of(" \t\r\n;\"#", i), utf8.size());
            current.WORDS.push_back(From_Utf8(utf8.substr(i, stop - i)));
            i = stop;
        }
    }
    finish();
    return statements;
}

int Number(const STATEMENT& s, std::size_t word, int low, int high)
{
    if (word >= s.WORDS.size()) throw Bad_Script(s.LINE, s.WORDS[0] + " needs a number");
    const auto value = Parse_Int(s.WORDS[word]);
    if (!value || *value < low || *value > high)
        throw Bad_Script(s.LINE, Cat(s.WORDS[0], " takes a number ", To_Text(low), "..", To_Text(high), ", not ",
                                     s.WORDS[word]));
    return *value;
}

int Middle(int column_or_row) { return (column_or_row - 1) * HEXWIDTH + HEXWIDTH / 2; }

Gazetteer::Gazetteer(const std::string& folder)
{
    for (const STATEMENT& s : Read_Statements(File_Content(folder + "/frame.txt"))) {
        if (s.WORDS.size() < 2) continue;
        if (s.WORDS[0] == "ullat") ULLAT = Billionths(s.WORDS[1]);
        if (s.WORDS[0] == "ullong") ULLONG = Billionths(s.WORDS[1]);
        if (s.WORDS[0] == "dlaty") DLATY = Billionths(s.WORDS[1]);
        if (s.WORDS[0] == "dlongx") DLONGX = Billionths(s.WORDS[1]);
        if (s.WORDS[0] == "cell") CELL_PIXELS = Number(s, 1, 1, 100);
    }
    if (DLATY == 0 || DLONGX == 0 || CELL_PIXELS == 0) throw Bad_Script(0, folder + "/frame.txt has no frame");
    for (const STATEMENT& s : Read_Statements(File_Content(folder + "/towns.txt"))) {
        std::string name;
        for (std::size_t i = 3; i < s.WORDS.size() && s.WORDS[i] != "|"; ++i)
            name += (name.empty() ? "" : " ") + s.WORDS[i];
        if (!name.empty()) TOWNS[name] = At(s.WORDS[0], s.WORDS[1]);
    }
}

CELL Gazetteer::At(std::string_view latitude, std::string_view longitude) const
{
    // sixteenths of a pixel, as the sheet is drawn
    const long long x = Divide((Billionths(longitude) - ULLONG) * 16, DLONGX);
    const long long y = Divide((Billionths(latitude) - ULLAT) * 16, DLATY);
    return {static_cast<int>(x / (16 * CELL_PIXELS)) + 1, static_cast<int>(y / (16 * CELL_PIXELS)) + 1};
}

CELL Gazetteer::Find(const std::string& place, int line) const
{
    const auto two = [&](std::string_view text) {
        const std::size_t comma = text.find(',');
        if (comma == text.npos) throw Bad_Script(line, "no such place: " + place);
        return std::pair{std::string(text.substr(0, comma)), std::string(text.substr(comma + 1))};
    };
    CELL cell;
    const std::size_t mark = place.find('@');
    const std::string name = place.substr(0, mark);
    if (const auto town = TOWNS.find(name); town != TOWNS.end()) {
        cell = town->second;
    } else if (name.starts_with("cell:")) {
        const auto [column, row] = two(std::string_view(name).substr(5));
        cell = {Parse_Int(column).value_or(0), Parse_Int(row).value_or(0)};
    } else {
        const auto [latitude, longitude] = two(name);
        if (!Parse_Decimal(latitude) || !Parse_Decimal(longitude))
            throw Bad_Script(line, "no such place: " + place);
        cell = At(latitude, longitude);
    }
    int count = 0;
    for (std::size_t i = mark == place.npos ? place.size() : mark + 1; i < place.size(); ++i) {
        switch (place[i]) {
        case 'n':
            cell.ROW -= count, count = 0;
            break;
        case 's':
            cell.ROW += count, count = 0;
            break;
        case 'e':
            cell.COLUMN += count, count = 0;
            break;
        case 'w':
            cell.COLUMN -= count, count = 0;
            break;
        default:
            if (place[i] < '0' || place[i] > '9') throw Bad_Script(line, "no such place: " + place);
            count = count * 10 + (place[i] - '0');
        }
    }
    if (cell.COLUMN < 1 || cell.ROW < 1 || cell.COLUMN > Round_Even(NUMCOLS) || cell.ROW > Round_Even(NUMROWS))
        throw Bad_Script(line, place + " lies outside the map");
    return cell;
}

}   // namespace sm::scenario

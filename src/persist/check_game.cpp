// The check of a game file: first line by line, as the reader goes, then what the lines say together. It works on
// a game of its own; the game in play is not touched.

#include "core/game_state.h"
#include "persist/fault_list.h"
#include "persist/field_check.h"
#include "persist/game_format.h"
#include "persist/game_sense.h"
#include "persist/keyed_text.h"

#include <algorithm>
#include <memory>

namespace sm {

namespace {

/// Keys that the writer writes and the reader passes over.
bool Is_Written_Only(std::string_view key)
{
    for (int p = 0; p < FILE_PARTS; ++p) {
        if (File_Parts()[p].NUMBER_KEY != nullptr && Same_Ignoring_Case(key, File_Parts()[p].NUMBER_KEY))
            return true;
        for (const WRITTEN_LINE& line : Written_Lines(p))
            if (Same_Ignoring_Case(key, std::string_view(line.START).substr(0, line.START.size() - 2)))
                return true;
    }
    return false;
}

bool Is_Section_Line(std::string_view line)
{
    for (const FILE_PART& part : File_Parts())
        if ((part.SECTION != nullptr && line == part.SECTION) ||
            (part.RECORD_LINE != nullptr && line == part.RECORD_LINE))
            return true;
    return false;
}

struct Lines_Check {
    Checked_Game& READ;
    Fault_List& FAULTS;
    bool KNOWN_KEY = false;

    void Line(int number, std::string_view line)
    {
        const KEYED_LINE parts = Take_Apart(line);
        const int known = Find_Read_Key(parts.KEY);
        if (known < 0) {
            if (parts.KEY.empty() || Is_Section_Line(Trim(line))) return;
            if (!Is_Written_Only(parts.KEY))
                FAULTS.Remark(number, Unknown_Key(parts.KEY));
            else if (parts.KEY == File_Parts()[1].NUMBER_KEY)
                Compare_Number(number, parts.VALUE);
            return;
        }
        KNOWN_KEY = true;
        Field(number, Read_Keys()[known], parts.VALUE);
    }

    /// The number before a unit is for people; the reader counts.
    void Compare_Number(int line, std::string_view value)
    {
        if (value != To_Text(READ.COUNT[1] + 1))
            FAULTS.Remark(line, Cat("UNIT NUMBER ", value, " stands before the record that is read as UNIT[",
                                    To_Text(READ.COUNT[1] + 1), "]"));
    }

    void Field(int line, const READ_KEY& key, std::string_view value)
    {
        const FILE_PART& part = File_Parts()[key.PART];
        int& count = READ.COUNT[key.PART];
        if (key.FIRST && ++count == part.SIZE + 1)
            FAULTS.Fault(line, Cat("more than ", To_Text(part.SIZE), " records of ", part.TABLE));
        if (part.Is_Table() && count == 0) {
            FAULTS.Fault(line, Cat(key.Key(), " stands before the first record of ", part.TABLE));
            return;
        }
        if (part.Is_Table() && count > part.SIZE) return;
        const int row = part.Is_Table() ? count : 1;
        int& seen = READ.Line_Of(key.PART, row, *key.TO);
        const std::string name = READ.Name_Of(key.PART, row, *key.TO);
        if (seen != 0) FAULTS.Fault(line, Cat(name, " stands twice, in line ", To_Text(seen), " first"));
        seen = line;
        Check_Value(FAULTS, line, name, READ.Record(key.PART, row), *key.TO, value);
    }
};

/// Whether a file of ours holds this key of the reader's.
bool Is_Required(const READ_KEY& key)
{
    for (const WRITTEN_LINE& line : Written_Lines(key.PART))
        if (std::string_view(line.START).substr(0, line.START.size() - 1) == key.START) return true;
    return false;
}

void Check_Complete(Checked_Game& read, Fault_List& faults)
{
    for (int p = 0; p < FILE_PARTS; ++p) {
        const FILE_PART& part = File_Parts()[p];
        const int rows = part.Is_Table() ? std::min(read.COUNT[p], part.SIZE) : 1;
        if (rows < part.SIZE)
            faults.Fault(read.LAST_LINE,
                         Cat(part.TABLE, " has ", To_Text(rows), " records of ", To_Text(part.SIZE)));
        for (int row = 1; row <= rows; ++row) {
            std::string missing;
            int first_line = part.Is_Table() ? 0 : p == 0 ? 1 : read.LAST_LINE;
            for (const READ_KEY& key : Read_Keys()) {
                if (key.PART != p) continue;
                const int line = read.Line_Of(p, row, *key.TO);
                if (key.FIRST) first_line = line;
                if (line == 0 && Is_Required(key)) missing += Cat(missing.empty() ? "" : ", ", key.Key());
            }
            if (missing.empty()) continue;
            const std::string whose = part.Is_Table() ? Cat(part.TABLE, "[", To_Text(row), "]")
                                      : p == 0        ? "the header"
                                                      : "the air tasking section";
            faults.Fault(first_line, Cat(whose, " has no ", missing));
        }
    }
}

}   // namespace

Checked_Game::Checked_Game() : GAME_READ(std::make_unique<Game>())
{
    for (int p = 0; p < FILE_PARTS; ++p)
        LINES[p].resize(File_Parts()[p].FIELDS.size() * static_cast<std::size_t>(File_Parts()[p].SIZE));
}

char* Checked_Game::Record(int p, int row)
{
    const FILE_PART& part = File_Parts()[p];
    const std::ptrdiff_t in_game = part.RECORDS - reinterpret_cast<char*>(&GAME);
    return reinterpret_cast<char*>(GAME_READ.get()) + in_game + static_cast<std::ptrdiff_t>(row - 1) * part.STRIDE;
}

int& Checked_Game::Line_Of(int p, int row, const FIELD& field)
{
    const auto fields = File_Parts()[p].FIELDS;
    return LINES[p][static_cast<std::size_t>(row - 1) * fields.size() +
                    static_cast<std::size_t>(&field - fields.data())];
}

std::string Checked_Game::Name_Of(int p, int row, const FIELD& field) const
{
    const FILE_PART& part = File_Parts()[p];
    return part.Is_Table() ? Cat(part.TABLE, "[", To_Text(row), "].", field.KEY) : std::string(field.KEY);
}

void Check_Game(std::string_view text, bool scenario, Fault_List& faults)
{
    Checked_Game read;
    Lines_Check lines{.READ = read, .FAULTS = faults};
    std::string copy;
    text = With_Line_Ends(text, copy);
    while (!text.empty()) lines.Line(++read.LAST_LINE, Next_Line(text));
    if (!lines.KNOWN_KEY) {
        faults.Fault(read.LAST_LINE, "no key of a game in the file");
        return;
    }
    Check_Complete(read, faults);
    Check_Sense(read, scenario, faults);
}

}   // namespace sm

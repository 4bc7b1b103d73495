#include "core/game_state.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/shared.h"
#include "persist/failure.h"
#include "persist/game_file.h"
#include "persist/game_format.h"
#include "persist/icons.h"
#include "persist/keyed_text.h"

#include <array>
#include <cstring>

namespace sm {

namespace {

/// How often the screen hears of the progress; the bar itself counts every line.
constexpr int LINES_A_REPORT = 2000;

/// What a key does beside storing its value: the record's picture goes onto the map.
struct SIDE_EFFECT {
    const char* KEY;
    void (*RUN)(const char* record, ICON_SEARCH& icons);
};
void Look_For_Typed(ICON_SEARCH& icons, std::string_view name)
{
    if (!name.empty()) Look_For_Icon(icons, name);
}
template <class Record>
const Record& As(const char* record)
{
    return *reinterpret_cast<const Record*>(record);
}
// clang-format off
constexpr SIDE_EFFECT SIDE_EFFECTS[] = {
    {"STATUS",  [](const char* r, ICON_SEARCH& icons) { if (Used(As<UNIT_RECORD>(r))) Look_For_Icon(icons, As<UNIT_RECORD>(r).IMAGE); }},
    {"PIMAGE",  [](const char* r, ICON_SEARCH& icons) { if (Used(As<P_RECORD>(r))) Look_For_Typed(icons, As<P_RECORD>(r).PIMAGE); }},
    {"NBCTYPE", [](const char* r, ICON_SEARCH& icons) { Look_For_Typed(icons, NBC_Icon(As<NBC_RECORD>(r).NBCTYPE)); }},
    {"OVALUE",  [](const char* r, ICON_SEARCH& icons) { Look_For_Typed(icons, Objective_Icon(As<OBJ_RECORD>(r).OTYPE)); }},
};
// clang-format on

/// A key as the loop below wants it: everything about it in one place.
struct STEP {
    const char* START;
    int START_BYTES;
    Kind KIND;
    int OFFSET, PART, EXPECTED;
    bool FIRST;
    const FIELD* TO;
    void (*SIDE_EFFECT)(const char* record, ICON_SEARCH& icons);
};

std::vector<STEP> Make_Steps()
{
    std::vector<STEP> steps;
    for (const READ_KEY& key : Read_Keys()) {
        STEP step{key.START.c_str(),
                  static_cast<int>(key.START.size()),
                  key.TO->KIND,
                  key.TO->OFFSET,
                  key.PART,
                  key.EXPECTED,
                  key.FIRST,
                  key.TO,
                  nullptr};
        for (const auto& effect : SIDE_EFFECTS)
            if (key.Key() == effect.KEY) step.SIDE_EFFECT = effect.RUN;
        steps.push_back(step);
    }
    return steps;
}

const std::vector<STEP>& Steps()
{
    static const std::vector<STEP> STEPS = Make_Steps();
    return STEPS;
}

/// The plain form of a whole number with its line end, as the writer makes it: at most 7 digits, CR LF behind
/// them. False, with nothing changed, for every other form.
bool Take_Plain_Number(const char*& at, const char* end, int& value)
{
    const char* p = at;
    while (p < end && *p == ' ') ++p;
    const bool minus = p < end && *p == '-';
    if (minus) ++p;
    const char* const digits = p;
    int n = 0;
    for (; p < end && p - digits < 7 && *p >= '0' && *p <= '9'; ++p) n = n * 10 + (*p - '0');
    if (p == digits || end - p < 2 || p[0] != '\r' || p[1] != '\n' || (minus && n == 0)) return false;
    value = minus ? -n : n;
    at = p + 2;
    return true;
}

/// One run over a file's text. The key that follows in a file of ours is tried first; any other is looked up.
struct Reader {
    std::string_view REST;
    int LINE = 0;
    int EXPECTED = 0;
    std::array<int, FILE_PARTS> COUNT{};
    std::array<char*, FILE_PARTS> RECORD{};   ///< record in hand, nullptr before a table's first key
    ICON_SEARCH ICONS;
    bool KNOWN_KEY = false, SECTIONS = false, LAST_KEY = false;
    std::string FAULT;

    int Fail(int number, std::string_view why)
    {
        FAULT = std::string(why);
        return number;
    }

    /// Moves a table on to its next record.
    int Begin_Record(int p)
    {
        const FILE_PART& part = File_Parts()[p];
        if (COUNT[p] >= part.SIZE)
            return Fail(ERROR_RANGE, Cat("more than ", To_Text(part.SIZE), " records of ", part.TABLE));
        RECORD[p] = part.RECORDS + static_cast<std::ptrdiff_t>(COUNT[p]) * part.STRIDE;
        if (++COUNT[p] == 1) Log(part.LOADING);
        return 0;
    }

    int Store(const STEP& step, std::string_view value)
    {
        const int failure = Store_Value(RECORD[step.PART], *step.TO, value);
        if (failure == 0) return 0;
        const std::string_view what = failure == ERROR_OVERFLOW ? " is too large for " : " is no number for ";
        return Fail(failure, Cat("\"", value.substr(0, 40), "\"", what, step.TO->KEY));
    }

    /// Stores the value that follows a known key at `at`, up to and with its line end.
    int Take_Value(const STEP& step, const char*& at, const char* end)
    {
        if (step.FIRST)
            if (const int failure = Begin_Record(step.PART); failure != 0) return failure;
        char* const record = RECORD[step.PART];
        if (record == nullptr)
            return Fail(ERROR_RANGE, Cat(step.TO->KEY, " stands before the first record of its table"));

        int plain = 0;
        const char* const value_start = at;
        int failure = 0;
        if (step.KIND == Kind::I16 && Take_Plain_Number(at, end, plain) && plain >= -32768 && plain <= 32767) {
            *reinterpret_cast<Int16*>(record + step.OFFSET) = plain;
        } else if (step.KIND == Kind::F32 && Take_Plain_Number(at, end, plain)) {
            *reinterpret_cast<float*>(record + step.OFFSET) = static_cast<float>(plain);
        } else {
            std::string_view rest(value_start, static_cast<std::size_t>(end - value_start));
            failure = Store(step, Trim(Next_Line(rest)));
            at = end - rest.size();
        }
        if (failure == 0 && step.SIDE_EFFECT != nullptr) step.SIDE_EFFECT(record, ICONS);
        return failure;
    }

    int Read_Line()
    {
        const char* at = REST.data();
        const char* const end = at + REST.size();
        const STEP* step = &Steps()[EXPECTED];
        if (end - at >= step->START_BYTES && std::memcmp(at, step->START, step->START_BYTES) == 0) {
            at += step->START_BYTES;
        } else {
            std::string_view rest = REST;
            const std::string_view line = Next_Line(rest);
            const std::string_view key = Take_Apart(line).KEY;
            const int known = Find_Read_Key(key);
            if (known < 0) {
                SECTIONS = SECTIONS || line == File_Parts()[1].SECTION;
                REST = rest;
                return 0;
            }
            step = &Steps()[known];
            const std::size_t colon = line.find(':');
            at += colon == line.npos ? line.size() : colon + 1;
        }
        KNOWN_KEY = true;
        LAST_KEY = LAST_KEY || step == &Steps().back();
        EXPECTED = step->EXPECTED;
        const int failure = Take_Value(*step, at, end);
        REST.remove_prefix(static_cast<std::size_t>(at - REST.data()));
        return failure;
    }

    /// A file that a writer began to lay out has all of it, down to the last key.
    int Judge_End()
    {
        if (!KNOWN_KEY) return Fail(ERROR_END_OF_FILE, "no key of a game in the file");
        if (SECTIONS && !LAST_KEY) return Fail(ERROR_END_OF_FILE, "the file breaks off");
        return 0;
    }
};

}   // namespace

int Read_Game_Text(std::string_view text)
{
    Erase_Tables();
    Screen().Changed(Redraw::ALL);
    Progress_Reset();
    Log("Loading game file...");

    Reader reader;
    reader.REST = text;
    reader.RECORD.front() = File_Parts().front().RECORDS;
    reader.RECORD.back() = File_Parts().back().RECORDS;
    int failure = 0;
    int told = 0;
    while (failure == 0 && !reader.REST.empty()) {
        ++reader.LINE;
        failure = reader.Read_Line();
        if (reader.LINE - told < LINES_A_REPORT) continue;
        Progress_Advance_Steps(reader.LINE - told);
        told = reader.LINE;
    }
    Progress_Advance_Steps(reader.LINE - told);
    if (failure == 0) failure = reader.Judge_End();
    if (failure != 0)
        Log(Cat(Failure_Text(failure), ", line ", To_Text(reader.LINE), ": ", reader.FAULT));
    else
        Log("Game file is loaded");
    Progress_Finish();
    return failure;
}

}   // namespace sm

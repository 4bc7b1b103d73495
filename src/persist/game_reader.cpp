#include "core/game_state.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/shared.h"
#include "persist/failure.h"
#include "persist/game_file.h"
#include "persist/game_format.h"
#include "persist/icons.h"
#include "persist/keyed_text.h"
#include "persist/read_steps.h"
#include "persist/record_repeat.h"

#include <algorithm>
#include <cstring>

namespace sm {

namespace {

/// How often the screen hears of the progress; the bar itself counts every line.
constexpr int LINES_A_REPORT = 2000;

/// A part of the file while it is read.
struct Part_In_Hand {
    const FILE_PART& PART;
    const std::vector<RECORD_LINE>& LINES;
    int EFFECT_LINE;          ///< line of a record whose key has a side effect, -1 for none
    int COUNT = 0;            ///< records begun
    char* RECORD = nullptr;   ///< record in hand, nullptr before a table's first key
    RECORD_BEFORE BEFORE{};
    explicit Part_In_Hand(int p) : PART(File_Parts()[p]), LINES(Record_Lines(p)), EFFECT_LINE(Side_Effect_Line(p))
    {
        if (!PART.Is_Table()) RECORD = PART.RECORDS;
    }
};

/// One run over a file's text. The key that follows in a file of ours is tried first; any other is looked up.
struct Reader {
    const std::vector<STEP>& STEPS = Steps();
    std::vector<Part_In_Hand> PARTS;
    std::string_view REST;
    int LINE = 0;       ///< lines taken, the one in hand among them
    int EXPECTED = 0;   ///< index of the key that follows in a file of ours
    ICON_SEARCH ICONS;
    bool KNOWN_KEY = false, LAST_KEY = false;
    std::vector<bool> HEADER_FOUND = std::vector<bool>(Written_Lines(0).size());   ///< by place in the file
    const STEP* OUTSIDE = nullptr;   ///< key of the first value outside its range
    std::string FAULT;

    explicit Reader(std::string_view text) : REST(text)
    {
        for (int p = 0; p < FILE_PARTS; ++p) PARTS.emplace_back(p);
    }

    int Fail(int number, std::string_view why)
    {
        FAULT = std::string(why);
        return number;
    }

    int Fail_At(const STEP& step, int number)
    {
        const char* why = number == ERROR_OVERFLOW ? " is too large" : " is not a number";
        return Fail(number, Cat(step.START.substr(0, step.START.size() - 1), why));
    }

    /// Moves a table on to its next record.
    int Begin_Record(Part_In_Hand& hand)
    {
        const FILE_PART& part = hand.PART;
        if (hand.COUNT >= part.SIZE)
            return Fail(ERROR_RANGE, Cat("more than ", To_Text(part.SIZE), " records of ", part.TABLE));
        hand.RECORD = part.RECORDS + static_cast<std::ptrdiff_t>(hand.COUNT) * part.STRIDE;
        if (++hand.COUNT == 1) Log(part.LOADING);
        return 0;
    }

    /// The key that follows the first lines of a record.
    static int Key_After(const std::vector<RECORD_LINE>& lines, int count)
    {
        while (count > 0 && lines[count - 1].TAKE == nullptr) --count;
        return count > 0 ? lines[count - 1].TAKE->EXPECTED : 0;
    }

    /// Reads a record whose first key's line is `at`, as far as it is laid out as the writer does.
    int Read_Record(int first, const char* at, const char* end)
    {
        Part_In_Hand& hand = PARTS[STEPS[first].PART];
        if (const int failure = Begin_Record(hand); failure != 0) return failure;
        const REPEAT_RESULT result =
            Read_Repeated(hand.LINES, hand.PART.STRIDE, hand.BEFORE, hand.RECORD, at, end, OUTSIDE);
        if (hand.EFFECT_LINE >= 0 && hand.EFFECT_LINE < result.LINES)
            hand.LINES[hand.EFFECT_LINE].TAKE->SIDE_EFFECT(hand.RECORD, ICONS);
        EXPECTED = result.WHOLE ? first : Key_After(hand.LINES, result.LINES);
        KNOWN_KEY = true;
        REST = {at, static_cast<std::size_t>(end - at)};
        LINE += result.LINES - 1;
        if (result.FAILURE == 0) return 0;
        ++LINE;
        return Fail_At(*hand.LINES[result.LINES].TAKE, result.FAILURE);
    }

    /// Whether the next lines open a record of the part as the writer does; moves `at` to its first key's line.
    bool Pass_Opening(const STEP& first, const char*& at, const char* end)
    {
        const FILE_PART& part = PARTS[first.PART].PART;
        const char* p = at;
        int passed = 0;
        for (const char* opening : {part.RECORD_LINE, part.NUMBER_KEY}) {
            if (opening == nullptr) continue;
            if (!Begins_With(p, end, opening)) return false;
            const void* stop = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
            if (stop == nullptr) return false;
            p = static_cast<const char*>(stop) + 1;
            ++passed;
        }
        if (!Begins_With(p, end, first.START)) return false;
        LINE += passed;
        at = p;
        return true;
    }

    int Read_Line()
    {
        const char* at = REST.data();
        const char* const end = at + REST.size();
        int known = EXPECTED;
        if (STEPS[known].FIRST && Pass_Opening(STEPS[known], at, end)) return Read_Record(known, at, end);
        if (Begins_With(at, end, STEPS[known].START)) {
            at += STEPS[known].START.size();
        } else {
            std::string_view rest = REST;
            const std::string_view line = Next_Line(rest);
            known = Find_Read_Key(Take_Apart(line).KEY);
            if (known < 0) {
                REST = rest;
                return 0;
            }
            if (STEPS[known].FIRST && line.starts_with(STEPS[known].START)) return Read_Record(known, at, end);
            const std::size_t colon = line.find(':');
            at += colon == line.npos ? line.size() : colon + 1;
        }
        return Read_One_Field(STEPS[known], at, end);
    }

    /// Stores the value at `at` for a key that stands by itself.
    int Read_One_Field(const STEP& step, const char* at, const char* end)
    {
        KNOWN_KEY = true;
        LAST_KEY = LAST_KEY || &step == &STEPS.back();
        if (step.PART == 0) HEADER_FOUND[static_cast<std::size_t>(&step - STEPS.data())] = true;
        EXPECTED = step.EXPECTED;
        Part_In_Hand& hand = PARTS[step.PART];
        hand.BEFORE.TEXT = nullptr;
        if (step.FIRST)
            if (const int failure = Begin_Record(hand); failure != 0) return failure;
        char* const record = hand.RECORD;
        if (record == nullptr)
            return Fail(ERROR_RANGE, Cat(step.TO->KEY, " stands before the first record of its table"));
        if (const int failure = Take_Value(step, record, at, end, OUTSIDE); failure != 0)
            return Fail_At(step, failure);
        if (step.SIDE_EFFECT != nullptr) step.SIDE_EFFECT(record, ICONS);
        REST = {at, static_cast<std::size_t>(end - at)};
        return 0;
    }

    /// Such a value is no failure of a load, but whoever looks for the cause of a strange battle finds it in the
    /// log.
    void Tell_Outside() const
    {
        if (OUTSIDE == nullptr) return;
        const std::string text = Cat("The file holds values outside their range, the first for ",
                                     OUTSIDE->START.substr(0, OUTSIDE->START.size() - 1));
        Log(text);
        Show_Status(text);
    }

    /// A file by hand may hold as few records as it likes. But one that is complete up to some place, header and
    /// all, and has nothing behind it, was cut there, and would make a battle of a part of its units.
    int Judge_End()
    {
        if (!KNOWN_KEY) return Fail(ERROR_END_OF_FILE, "no key of a game in the file");
        const auto missing = std::count(HEADER_FOUND.begin(), HEADER_FOUND.end(), false);
        if (LAST_KEY || missing > 1) return 0;   // one is always missing: it is read under another key
        int p = 1;
        while (p < FILE_PARTS - 1 && PARTS[p].COUNT == PARTS[p].PART.SIZE) ++p;
        for (++p; p < FILE_PARTS - 1; ++p)
            if (PARTS[p].COUNT > 0) return 0;
        return Fail(ERROR_END_OF_FILE, "the file breaks off");
    }
};

}   // namespace

int Read_Game_Text(std::string_view text)
{
    Erase_Tables();
    Screen().Changed(Redraw::ALL);
    Progress_Reset();
    Log("Loading game file...");

    std::string copy;
    Reader reader(With_Line_Ends(text, copy));
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
    reader.Tell_Outside();
    if (failure != 0)
        Log(Cat(Failure_Text(failure), ", line ", To_Text(reader.LINE), ": ", reader.FAULT));
    else
        Log("Game file is loaded");
    Progress_Finish();
    return failure;
}

}   // namespace sm

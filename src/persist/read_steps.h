#pragma once
// What the game reader does at each key, laid out for its loop.

#include "persist/game_format.h"
#include "persist/icons.h"

#include <string_view>
#include <vector>

namespace sm {

/// A key, with everything that reading its line takes.
struct STEP {
    std::string_view START;   ///< "KEY:"
    Kind KIND;
    int OFFSET, PART, EXPECTED;
    bool FIRST;
    const FIELD* TO;
    double LOW, HIGH;                                              ///< range that a sound game keeps
    void (*SIDE_EFFECT)(const char* record, ICON_SEARCH& icons);   ///< nullptr for none
};
/// One for each of Read_Keys, in the same order.
const std::vector<STEP>& Steps();

/// Stores the value that begins at `at`, behind its key, and moves `at` behind its line end. 0, or the number of
/// the failure. The first number outside its field's range, which is no failure, leaves its key in `outside`.
int Take_Value(const STEP& step, char* record, const char*& at, const char* end, const STEP*& outside);

/// A line of a record as the writer lays it out; STEP is nullptr where the reader takes nothing from it.
struct RECORD_LINE {
    std::string_view START;
    const STEP* TAKE;
};
/// The lines of one record of a table, first to last.
const std::vector<RECORD_LINE>& Record_Lines(int part);
/// The line of a record whose key has a side effect, -1 for none.
int Side_Effect_Line(int part);

}   // namespace sm

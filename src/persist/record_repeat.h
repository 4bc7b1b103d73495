#pragma once
// Most lines of a record are, byte for byte, those of the record before it: free rows are all alike, and units
// share side, morale and the like. So a record is read as a copy of the one before, and only the lines that differ
// are taken apart.

#include "persist/read_steps.h"

#include <vector>

namespace sm {

/// The record of a table that was read last, as long as it was laid out as the writer does.
struct RECORD_BEFORE {
    const char* TEXT = nullptr;     ///< its first key's line; nullptr: none to go by
    const char* RECORD = nullptr;   ///< what was read from it
    std::vector<int> LINE_AT;       ///< start of each line from TEXT on, then the end
};

struct REPEAT_RESULT {
    int LINES;     ///< lines taken
    int FAILURE;   ///< number of the failure in the line after these, 0 for none
    bool WHOLE;    ///< the record is read; false: its next line is another than the writer writes
};

/// Reads one record that begins at `at` with its first key. `record`, of so many bytes, is as a new one: all 0 and
/// blank. `outside` as in Take_Value.
REPEAT_RESULT Read_Repeated(const std::vector<RECORD_LINE>& lines, int bytes, RECORD_BEFORE& before, char* record,
                            const char*& at, const char* end, const STEP*& outside);

}   // namespace sm

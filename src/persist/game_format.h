#pragma once
// The game file as data: which keys stand where, and which field each of them reads and writes. The field lists of
// the records (core/records.h, core/scalars.h) give nearly all of it; what departs from them stands in QUIRKS.

#include "core/fields.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// A part of the file: the header, a table, or the air tasking scalars at its end.
struct FILE_PART {
    const char* TABLE;         ///< "" for the scalars
    const char* SECTION;       ///< line before it, nullptr for the header
    const char* LOADING;       ///< log line when its first record begins, nullptr for scalars
    const char* RECORD_LINE;   ///< line before each record, nullptr for none
    const char* NUMBER_KEY;    ///< key of a line with the record's number, which no reader takes; nullptr for none
    std::span<const FIELD> FIELDS;
    char* RECORDS;   ///< first record in the game in play
    int STRIDE;      ///< bytes from one record to the next
    int SIZE;        ///< records in the file; 1 for scalars
    bool Is_Table() const { return *TABLE != '\0'; }
};
inline constexpr int FILE_PARTS = 12;
/// The parts in file order.
std::span<const FILE_PART> File_Parts();

/// What the writer writes for each record of a part, top to bottom.
struct WRITTEN_LINE {
    std::string START;   ///< "KEY: "
    const FIELD* SOURCE;
};
std::span<const WRITTEN_LINE> Written_Lines(int part);
/// Bytes that the longest record of a part can take.
int Most_Record_Bytes(int part);

/// A key that the reader knows.
struct READ_KEY {
    std::string START;   ///< "KEY:"
    const FIELD* TO;     ///< field that takes the value
    int PART;
    bool FIRST;     ///< moves its table on to the next record
    int EXPECTED;   ///< index of the key that follows in a file of ours
    std::string_view Key() const { return std::string_view(START).substr(0, START.size() - 1); }
};
/// All keys in file order.
std::span<const READ_KEY> Read_Keys();
/// Index of a key in any case, -1 when the reader does not know it.
int Find_Read_Key(std::string_view key);

}   // namespace sm

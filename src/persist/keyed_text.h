#pragma once
// The line form that game and weapons files share: "KEY: value", one field a line.

#include "core/fields.h"

#include <cstring>
#include <string>
#include <string_view>

namespace sm {

inline bool Begins_With(const char* at, const char* end, std::string_view start)
{
    return end - at >= static_cast<std::ptrdiff_t>(start.size()) && std::memcmp(at, start.data(), start.size()) == 0;
}

struct KEYED_LINE {
    std::string_view
        KEY;   ///< before the first colon, trimmed, in the file's own case; the whole line without one
    std::string_view VALUE;   ///< all behind that colon, trimmed
};

/// The text with line ends that Next_Line knows: one whose lines end with CR alone is copied into `copy`, any
/// other is answered as it is.
std::string_view With_Line_Ends(std::string_view text, std::string& copy);
/// Takes the next line off `rest`, without its line end (CR LF or LF).
std::string_view Next_Line(std::string_view& rest);
KEYED_LINE Take_Apart(std::string_view line);

/// Stores a trimmed value into a field. 0, or the number of the failure: not a number (a blank value is none), or
/// a number that does not fit the field's width. An integer field rounds a decimal half to even; text is cut to the
/// field and padded, and its control characters become blanks.
int Store_Value(void* record, const FIELD& field, std::string_view value);

/// Longest value of a number field in a file, its leading blank included.
inline constexpr int MOST_NUMBER_BYTES = 64;
/// Writes a field's value as it stands in a file to `at`, which has room for MOST_NUMBER_BYTES or the text;
/// answers the place behind it. A number of 0 or above has a blank before it; a text comes at its full width. An
/// infinite real, which no reader would take, fails as an overflow.
char* Put_Value(char* at, const void* record, const FIELD& field);

}   // namespace sm

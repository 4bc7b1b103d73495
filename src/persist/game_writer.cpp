#include "core/session.h"
#include "core/shared.h"
#include "persist/game_file.h"
#include "persist/game_format.h"
#include "persist/keyed_text.h"

#include <cstring>

namespace sm {

namespace {

constexpr int PROGRESS_PER_UNIT = 55, PROGRESS_AT_END = 50;

char* Put(char* at, std::string_view text)
{
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

char* Put_Line(char* at, std::string_view text) { return Put(Put(at, text), "\r\n"); }

/// Appends whole records to `text`; one buffer serves every record of the part.
void Write_Part(std::string& text, int p, bool show_progress)
{
    const FILE_PART& part = File_Parts()[p];
    const auto lines = Written_Lines(p);
    std::vector<char> buffer(static_cast<std::size_t>(Most_Record_Bytes(p)));
    if (part.SECTION != nullptr) text.append(part.SECTION).append("\r\n");
    for (int i = 0; i < part.SIZE; ++i) {
        const char* const record = part.RECORDS + static_cast<std::ptrdiff_t>(i) * part.STRIDE;
        char* at = buffer.data();
        if (part.RECORD_LINE != nullptr) at = Put_Line(at, part.RECORD_LINE);
        if (part.NUMBER_KEY != nullptr) at = Put_Line(at, Cat(part.NUMBER_KEY, ":  ", To_Text(i + 1)));
        for (const WRITTEN_LINE& line : lines)
            at = Put(Put_Value(Put(at, line.START), record, *line.SOURCE), "\r\n");
        text.append(buffer.data(), static_cast<std::size_t>(at - buffer.data()));
        if (show_progress && part.RECORD_LINE != nullptr) Progress_Advance(PROGRESS_PER_UNIT);
    }
}

}   // namespace

std::string Game_Text(bool show_progress)
{
    std::string text;
    text.reserve(std::size_t{5} << 19);
    for (int p = 0; p < FILE_PARTS; ++p) Write_Part(text, p, show_progress);
    if (show_progress) Progress_Advance(PROGRESS_AT_END);
    return text;
}

}   // namespace sm

#include "core/shared.h"
#include "persist/game_file.h"
#include "persist/game_format.h"
#include "persist/keyed_text.h"

#include <cstring>

namespace sm {

namespace {

constexpr int PROGRESS_PER_UNIT = 55, PROGRESS_AT_END = 50;

/// Somewhat more than a game of full tables takes.
constexpr std::size_t USUAL_BYTES = std::size_t{3} << 19;

char* Put(char* at, std::string_view text)
{
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

bool Same_Value(const char* a, const char* b, const FIELD& field)
{
    const char *x = a + field.OFFSET, *y = b + field.OFFSET;
    switch (field.KIND) {
    case Kind::I16:
        return std::memcmp(x, y, 2) == 0;
    case Kind::I32:
    case Kind::F32:
        return std::memcmp(x, y, 4) == 0;
    default:
        return std::memcmp(x, y, static_cast<std::size_t>(field.WIDTH)) == 0;
    }
}

/// The text of one record, with the place of each of its lines.
struct RECORD_TEXT {
    std::vector<char> BYTES;
    std::vector<int> LINE_AT;   ///< start of each line, then the end
    explicit RECORD_TEXT(int part)
        : BYTES(static_cast<std::size_t>(Most_Record_Bytes(part))), LINE_AT(Written_Lines(part).size() + 1)
    {
    }
    std::string_view All() const { return {BYTES.data(), static_cast<std::size_t>(LINE_AT.back())}; }
};

/// Writes a record. What it has in common with the record before it, which is most of it in nearly all of them, is
/// copied from that one's text; `old` is nullptr for the first.
void Write_Record(int part, const char* record, const char* old, const RECORD_TEXT& before, RECORD_TEXT& now)
{
    const auto lines = Written_Lines(part);
    char* at = now.BYTES.data();
    std::size_t line = 0;
    const auto place = [&] { return static_cast<int>(at - now.BYTES.data()); };
    while (line < lines.size()) {
        std::size_t same = line;
        if (old != nullptr)
            while (same < lines.size() && Same_Value(record, old, *lines[same].SOURCE)) ++same;
        if (same > line) {
            const int from = before.LINE_AT[line], shift = place() - from, bytes = before.LINE_AT[same] - from;
            std::memcpy(at, before.BYTES.data() + from, static_cast<std::size_t>(bytes));
            for (; line < same; ++line) now.LINE_AT[line] = before.LINE_AT[line] + shift;
            at += bytes;
        } else {
            now.LINE_AT[line] = place();
            at = Put(Put_Value(Put(at, lines[line].START), record, *lines[line].SOURCE), "\r\n");
            ++line;
        }
    }
    now.LINE_AT[line] = place();
}

void Write_Part(std::string& text, int p, bool show_progress)
{
    const FILE_PART& part = File_Parts()[p];
    RECORD_TEXT before(p), now(p);
    const char* old = nullptr;
    if (part.SECTION != nullptr) text.append(part.SECTION).append("\r\n");
    for (int i = 0; i < part.SIZE; ++i) {
        const char* const record = part.RECORDS + static_cast<std::ptrdiff_t>(i) * part.STRIDE;
        if (part.RECORD_LINE != nullptr) text.append(part.RECORD_LINE).append("\r\n");
        if (part.NUMBER_KEY != nullptr)
            text.append(part.NUMBER_KEY).append(":  ").append(To_Text(i + 1)).append("\r\n");
        if (old == nullptr || std::memcmp(record, old, static_cast<std::size_t>(part.STRIDE)) != 0) {
            Write_Record(p, record, old, before, now);
            std::swap(before, now);
            old = record;
        }
        text.append(before.All());
        if (show_progress && part.RECORD_LINE != nullptr) Progress_Advance(PROGRESS_PER_UNIT);
    }
}

}   // namespace

std::string Game_Text(bool show_progress)
{
    std::string text;
    text.reserve(USUAL_BYTES);
    for (int p = 0; p < FILE_PARTS; ++p) Write_Part(text, p, show_progress);
    if (show_progress) Progress_Advance(PROGRESS_AT_END);
    return text;
}

}   // namespace sm

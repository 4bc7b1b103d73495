#include "persist/record_repeat.h"

#include "persist/keyed_text.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace sm {

namespace {

/// Bytes in which two texts agree from their starts, at most n. Long runs are left to the library, which has the
/// widest compare; the word in which they part is searched here.
std::size_t Equal_Bytes(const char* a, const char* b, std::size_t n)
{
    constexpr std::size_t STRETCH = 256;
    std::size_t i = 0;
    while (i + STRETCH <= n && std::memcmp(a + i, b + i, STRETCH) == 0) i += STRETCH;
    for (; i + 8 <= n; i += 8) {
        std::uint64_t x, y;
        std::memcpy(&x, a + i, 8);
        std::memcpy(&y, b + i, 8);
        if (x == y) continue;
        if constexpr (std::endian::native == std::endian::little)
            return i + static_cast<std::size_t>(std::countr_zero(x ^ y)) / 8;
        break;
    }
    while (i < n && a[i] == b[i]) ++i;
    return i;
}

/// Puts the fields of the lines from `line` on back to what a new record holds.
void Forget_From(const std::vector<RECORD_LINE>& lines, std::size_t line, char* record)
{
    for (; line < lines.size(); ++line) {
        if (lines[line].TAKE == nullptr) continue;
        const FIELD& field = *lines[line].TAKE->TO;
        std::memset(record + field.OFFSET, field.KIND == Kind::TEXT ? ' ' : 0,
                    static_cast<std::size_t>(field.WIDTH));
    }
}

/// Passes over the rest of a line.
const char* Behind_Line(const char* at, const char* end)
{
    const void* stop = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
    return stop == nullptr ? end : static_cast<const char*>(stop) + 1;
}

}   // namespace

REPEAT_RESULT Read_Repeated(const std::vector<RECORD_LINE>& lines, int bytes, RECORD_BEFORE& before, char* record,
                            const char*& at, const char* end, const STEP*& outside)
{
    const std::size_t count = lines.size();
    // Up to the line in hand the entries are this record's, from there on those of the one before.
    std::vector<int>& line_at = before.LINE_AT;
    const char* const start = at;
    const char* was = before.TEXT;   // the place in the text before that `at` is compared with
    if (was != nullptr)
        std::memcpy(record, before.RECORD, static_cast<std::size_t>(bytes));
    else
        line_at.assign(count + 1, 0);

    REPEAT_RESULT result{0, 0, false};
    std::size_t line = 0;
    for (;; ++line) {
        std::size_t agreed = 0;   // bytes from the line's start that are known to be those of the line before
        if (was != nullptr) {
            const char* const was_end = before.TEXT + line_at[count];
            const std::size_t most = static_cast<std::size_t>(std::min(was_end - was, end - at));
            const char* const differs = was + Equal_Bytes(was, at, most);
            const int shift = static_cast<int>((at - start) - (was - before.TEXT));
            if (differs == was_end && shift == 0)
                line = count;   // the whole rest, at the places where it was
            else
                while (line < count && before.TEXT + line_at[line + 1] <= differs) line_at[line++] += shift;
            at = start + line_at[line] + shift;
            if (line < count) {
                agreed = static_cast<std::size_t>(differs - (before.TEXT + line_at[line]));
                was = before.TEXT + line_at[line + 1];
            }
        }
        if (line == count) break;
        line_at[line] = static_cast<int>(at - start);

        const std::string_view key = lines[line].START;
        const bool expected = agreed >= key.size() || Begins_With(at, end, key);
        if (expected && lines[line].TAKE == nullptr)
            at = Behind_Line(at, end);
        else if (expected)
            result.FAILURE = Take_Value(*lines[line].TAKE, record, at += key.size(), end, outside);
        if (!expected || result.FAILURE != 0) {
            Forget_From(lines, line, record);
            before.TEXT = nullptr;
            result.LINES = static_cast<int>(line);
            return result;
        }
    }
    line_at[count] = static_cast<int>(at - start);
    before.TEXT = start;
    before.RECORD = record;
    result.LINES = static_cast<int>(count);
    result.WHOLE = true;
    return result;
}

}   // namespace sm

#include "core/state_hash.h"

#include <bit>
#include <cstring>

namespace sm {

namespace {

constexpr std::uint64_t FNV_START = 14695981039346656037ULL;
constexpr std::uint64_t FNV_PRIME = 1099511628211ULL;

struct Fnv {
    std::uint64_t VALUE = FNV_START;
    void Byte(unsigned char b) { VALUE = (VALUE ^ b) * FNV_PRIME; }
    void Number(std::uint32_t bits, int bytes)
    {
        for (; bytes > 0; --bytes, bits >>= 8) Byte(static_cast<unsigned char>(bits));
    }
    void Bytes(std::string_view s)
    {
        for (const char c : s) Byte(static_cast<unsigned char>(c));
    }
};

void Hash_Field(Fnv& fnv, const void* record, const FIELD& field, bool is_visible)
{
    switch (field.KIND) {
    case Kind::I16: {
        int value = Field_Value<Int16>(record, field);
        if (is_visible) value = value == -1 ? -1 : 0;   // 0 and 1 differ by the view of a seat
        fnv.Number(static_cast<std::uint16_t>(value), 2);
        break;
    }
    case Kind::I32: fnv.Number(static_cast<std::uint32_t>(Field_Value<std::int32_t>(record, field)), 4); break;
    case Kind::F32: fnv.Number(std::bit_cast<std::uint32_t>(Field_Value<float>(record, field)), 4); break;
    case Kind::TEXT: fnv.Bytes(Field_Text(record, field)); break;
    case Kind::FREE: {
        const auto text = Field_Text(record, field);
        fnv.Number(static_cast<std::uint32_t>(text.size()), 2);
        fnv.Bytes(text);
        break;
    }
    }
}

bool Is_Visible(const Record_View& view, const FIELD& field)
{
    return field.KEY[0] == 'V' && std::strcmp(field.KEY, "VISIBLE") == 0 && std::strcmp(view.TABLE, "UNIT") == 0;
}

void Hash_Record(Fnv& fnv, const Record_View& view)
{
    for (const FIELD& field : view.FIELDS)
        if ((field.CARRIERS & HASH) != 0) Hash_Field(fnv, view.RECORD, field, Is_Visible(view, field));
}

}   // namespace

std::uint64_t State_Hash(const Game& game)
{
    Fnv fnv;
    Visit_Game(game, [&](const Record_View& view) { Hash_Record(fnv, view); });
    return fnv.VALUE;
}

std::vector<Table_Hash> Table_Hashes(const Game& game)
{
    std::vector<Table_Hash> hashes{{"SCALARS", FNV_START}};
    Fnv scalars, table;
    Visit_Game(game, [&](const Record_View& view) {
        if (view.ROW == 0) {
            Hash_Record(scalars, view);
            return;
        }
        if (hashes.back().NAME != view.TABLE) {
            hashes.push_back({view.TABLE, FNV_START});
            table = Fnv{};
        }
        Hash_Record(table, view);
        hashes.back().HASH = table.VALUE;
    });
    hashes.front().HASH = scalars.VALUE;
    return hashes;
}

std::string Hash_Text(std::uint64_t hash)
{
    static constexpr char DIGITS[] = "0123456789abcdef";
    std::string text(16, '0');
    for (int i = 15; i >= 0; --i, hash >>= 4) text[i] = DIGITS[hash & 15];
    return text;
}

std::vector<std::string> Differences(const Game& here, const Game& there, int limit)
{
    std::vector<Record_View> views;
    Visit_Game(there, [&](const Record_View& view) { views.push_back(view); });

    std::vector<std::string> lines;
    std::size_t at = 0;
    Visit_Game(here, [&](const Record_View& view) {
        // Weapons and grid may differ in length: what only one game has is named by its table alone.
        while (at < views.size() && std::strcmp(views[at].TABLE, view.TABLE) == 0 && views[at].ROW < view.ROW) ++at;
        if (at >= views.size() || std::strcmp(views[at].TABLE, view.TABLE) != 0 || views[at].ROW != view.ROW) {
            if (static_cast<int>(lines.size()) < limit)
                lines.push_back(Cat(view.TABLE, "[", To_Text(view.ROW), "] only here"));
            return;
        }
        const Record_View& other = views[at++];
        for (const FIELD& field : view.FIELDS) {
            if (field.CARRIERS == NOWHERE || static_cast<int>(lines.size()) >= limit) continue;
            const std::string a = Field_As_Text(view.RECORD, field), b = Field_As_Text(other.RECORD, field);
            if (a == b) continue;
            const std::string place = view.ROW == 0 ? "" : Cat(view.TABLE, "[", To_Text(view.ROW), "].");
            lines.push_back(Cat(place, field.KEY, " ", a, ", there ", b));
        }
    });
    return lines;
}

}   // namespace sm

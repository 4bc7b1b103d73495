#include "persist/game_format.h"

#include "core/game_state.h"
#include "persist/keyed_text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace sm {

namespace {

/// Where the file departs from the field lists. A file has to mean the same to every program that reads it, so these stay.
struct QUIRK {
    const char* TABLE;
    const char* FIELD;
    const char* WRITTEN_FROM;
    const char* READ_UNDER;   ///< nullptr: under no key
};
// clang-format off
constexpr QUIRK QUIRKS[] = {
    // table  field        written from  read under
    {"UNIT", "DX",        "DY",         "DX"},       // a saved unit's DX comes back equal to its DY
    {"",     "BAIAB",     "BAIAB",      "NAIAB"},    // a load leaves the counter as it is
    {"PP",   "PPVISIBLE", "PPVISIBLE",  nullptr},    // the reader's key has small letters, which no key has by then
};
// clang-format on

const QUIRK* Quirk_Of(const FILE_PART& part, const FIELD& field)
{
    for (const QUIRK& quirk : QUIRKS)
        if (std::strcmp(quirk.TABLE, part.TABLE) == 0 && std::strcmp(quirk.FIELD, field.KEY) == 0) return &quirk;
    return nullptr;
}

template <class T>
FILE_PART Table_Part(T& table, const char* section, const char* loading, const char* record_line = nullptr,
                     const char* number_key = nullptr)
{
    using Record = typename T::Record;
    return {T::NAME,
            section,
            loading,
            record_line,
            number_key,
            Fields<Record>(),
            reinterpret_cast<char*>(table.ROW),
            sizeof(Record),
            T::SIZE};
}

template <class Scalars>
FILE_PART Scalar_Part(const char* section)
{
    return {"",
            section,
            nullptr,
            nullptr,
            nullptr,
            Fields_Of(static_cast<const Scalars*>(nullptr)),
            reinterpret_cast<char*>(static_cast<Scalars*>(&GAME)),
            sizeof(Scalars),
            1};
}

const FIELD* Field_Named(const FILE_PART& part, const char* name)
{
    for (const FIELD& field : part.FIELDS)
        if (std::strcmp(field.KEY, name) == 0) return &field;
    return nullptr;
}

std::array<std::vector<WRITTEN_LINE>, FILE_PARTS> Make_Written_Lines()
{
    std::array<std::vector<WRITTEN_LINE>, FILE_PARTS> lines;
    for (int p = 0; p < FILE_PARTS; ++p) {
        const FILE_PART& part = File_Parts()[p];
        for (const FIELD& field : part.FIELDS) {
            if ((field.CARRIERS & WRITE) == 0) continue;
            const QUIRK* quirk = Quirk_Of(part, field);
            lines[p].push_back(
                {Cat(field.KEY, ": "), quirk != nullptr ? Field_Named(part, quirk->WRITTEN_FROM) : &field});
        }
    }
    return lines;
}

std::vector<READ_KEY> Make_Read_Keys()
{
    std::vector<READ_KEY> keys;
    for (int p = 0; p < FILE_PARTS; ++p) {
        const FILE_PART& part = File_Parts()[p];
        const int first = static_cast<int>(keys.size());
        for (const FIELD& field : part.FIELDS) {
            const QUIRK* quirk = Quirk_Of(part, field);
            const char* key = quirk != nullptr ? quirk->READ_UNDER : field.KEY;
            if ((field.CARRIERS & READ) == 0 || key == nullptr) continue;
            const int here = static_cast<int>(keys.size());
            keys.push_back({Cat(key, ":"), &field, p, part.Is_Table() && here == first, here + 1});
        }
        if (part.Is_Table()) keys.back().EXPECTED = first;
    }
    keys.back().EXPECTED = 0;
    return keys;
}

/// Indices into Read_Keys, by key.
std::vector<int> Sort_Read_Keys()
{
    std::vector<int> order(Read_Keys().size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i);
    std::sort(order.begin(), order.end(),
              [](int a, int b) { return Read_Keys()[a].Key() < Read_Keys()[b].Key(); });
    return order;
}

}   // namespace

std::span<const FILE_PART> File_Parts()
{
    // clang-format off
    static const std::array<FILE_PART, FILE_PARTS> PARTS = {
        Scalar_Part<HEADER>(nullptr),
        Table_Part(UNIT, "========UNIT INFORMATION=========", "Loading unit info...",
                   "---------NEW UNIT---------", "UNIT NUMBER"),
        Table_Part(P, "========CONTROL MEASURES=========", "Loading graphics info..."),
        Table_Part(TX, "========TEXT BOXES=========", "Loading text info..."),
        Table_Part(MN, "========MOVEMENT NODES=========", "Loading movement info..."),
        Table_Part(TG, "========TARGETS=========", "Loading target info..."),
        Table_Part(BG, "========BRIDGES=========", "Loading bridge info..."),
        Table_Part(NBC, "========NBC CONTAMINATION=========", "Loading NBC info..."),
        Table_Part(OBJ, "======OBJECTIVES==================", "Loading objective info..."),
        Table_Part(AAR, "========RCP VALUES=========", "Loading AAR info..."),
        Table_Part(PP, "========EVENTS=========", "Loading event info..."),
        Scalar_Part<TACAIR>("========TACAIR========="),
    };
    // clang-format on
    return PARTS;
}

std::span<const WRITTEN_LINE> Written_Lines(int part)
{
    static const auto LINES = Make_Written_Lines();
    return LINES[part];
}

int Most_Record_Bytes(int part)
{
    int most = 2 * (MOST_NUMBER_BYTES + 32);   // the lines before a record
    for (const WRITTEN_LINE& line : Written_Lines(part))
        most += static_cast<int>(line.START.size()) + std::max(line.SOURCE->WIDTH, MOST_NUMBER_BYTES) + 2;
    return most;
}

std::span<const READ_KEY> Read_Keys()
{
    static const std::vector<READ_KEY> KEYS = Make_Read_Keys();
    return KEYS;
}

int Find_Read_Key(std::string_view key)
{
    static const std::vector<int> ORDER = Sort_Read_Keys();
    char upper[32];
    if (key.empty() || key.size() > sizeof upper) return -1;
    for (std::size_t i = 0; i < key.size(); ++i)
        upper[i] = key[i] >= 'a' && key[i] <= 'z' ? static_cast<char>(key[i] - 'a' + 'A') : key[i];
    const std::string_view wanted(upper, key.size());
    const auto at = std::lower_bound(ORDER.begin(), ORDER.end(), wanted,
                                     [](int k, std::string_view name) { return Read_Keys()[k].Key() < name; });
    return at != ORDER.end() && Read_Keys()[*at].Key() == wanted ? *at : -1;
}

}   // namespace sm

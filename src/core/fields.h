#pragma once
#include "core/numbers.h"
#include "core/text.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace sm {

/// What carries a field. The same list drives the game file, the tape, the network transfer and the state hash.
enum Carrier : unsigned {
    NOWHERE = 0,
    READ = 1,       ///< game file, reading
    WRITE = 2,      ///< game file, writing
    TAPE = 4,       ///< turn tape
    TRANSFER = 8,   ///< network state transfer
    HASH = 16,      ///< state hash
    IN_FILE = READ | WRITE,
    STORED = READ | WRITE | TAPE | TRANSFER,
    EVERYWHERE = STORED | HASH,
};

enum class Kind : std::uint8_t { I16, I32, F32, TEXT, FREE };

/// One field of a record, as readers, writers, hash, diff and check see it.
struct FIELD {
    const char* KEY;       ///< key in the game file
    Kind KIND;
    int OFFSET;            ///< bytes from the start of the record
    int WIDTH;             ///< bytes; of a text its characters
    double LOW, HIGH;      ///< range that a sound game keeps (numbers only)
    unsigned CARRIERS;
    const char* UNIT;      ///< unit of measure
    const char* MEANING;
};

template <class T>
constexpr Kind Kind_Of()
{
    if constexpr (std::is_same_v<T, Int16>) return Kind::I16;
    else if constexpr (std::is_same_v<T, std::int32_t>) return Kind::I32;
    else if constexpr (std::is_same_v<T, float>) return Kind::F32;
    else if constexpr (std::is_same_v<T, Free_Text>) return Kind::FREE;
    else return Kind::TEXT;
}
template <class T>
constexpr int Width_Of()
{
    if constexpr (Kind_Of<T>() == Kind::TEXT || Kind_Of<T>() == Kind::FREE) return sizeof(T) - (Kind_Of<T>() == Kind::FREE ? 2 : 0);
    else return sizeof(T);
}

inline constexpr double LOW16 = -32768;
inline constexpr double HIGH16 = 32767;
inline constexpr double HIGH32 = 2147483647;
inline constexpr double ANY_REAL = 3.4e38;

/// Typed access to a field of a record, for the generic readers and writers.
template <class T>
const T& Field_Value(const void* record, const FIELD& field)
{
    return *reinterpret_cast<const T*>(static_cast<const char*>(record) + field.OFFSET);
}
template <class T>
T& Field_Value(void* record, const FIELD& field)
{
    return *reinterpret_cast<T*>(static_cast<char*>(record) + field.OFFSET);
}

/// Number of an I16, I32 or F32 field.
double Field_Number(const void* record, const FIELD& field);
/// Text of a TEXT field at its full width, of a FREE field as it is.
std::string_view Field_Text(const void* record, const FIELD& field);
void Set_Field_Text(void* record, const FIELD& field, std::string_view text);
/// Value as text: a number in its shortest form, a text without its trailing blanks.
std::string Field_As_Text(const void* record, const FIELD& field);

}   // namespace sm

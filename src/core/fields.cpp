#include "core/fields.h"

#include <algorithm>
#include <cstring>

namespace sm {

double Field_Number(const void* record, const FIELD& field)
{
    switch (field.KIND) {
    case Kind::I16: return Field_Value<Int16>(record, field);
    case Kind::I32: return Field_Value<std::int32_t>(record, field);
    case Kind::F32: return static_cast<double>(Field_Value<float>(record, field));
    default: return 0;
    }
}

std::string_view Field_Text(const void* record, const FIELD& field)
{
    if (field.KIND == Kind::FREE) return Field_Value<Free_Text>(record, field);
    return {static_cast<const char*>(record) + field.OFFSET, static_cast<std::size_t>(field.WIDTH)};
}

void Set_Field_Text(void* record, const FIELD& field, std::string_view text)
{
    if (field.KIND == Kind::FREE) {
        Field_Value<Free_Text>(record, field) = Free_Text(text);
        return;
    }
    char* at = static_cast<char*>(record) + field.OFFSET;
    const auto n = std::min(text.size(), static_cast<std::size_t>(field.WIDTH));
    if (n > 0) std::memcpy(at, text.data(), n);
    std::memset(at + n, ' ', static_cast<std::size_t>(field.WIDTH) - n);
}

std::string Field_As_Text(const void* record, const FIELD& field)
{
    switch (field.KIND) {
    case Kind::I16: return To_Text(static_cast<int>(Field_Value<Int16>(record, field)));
    case Kind::I32: return To_Text(static_cast<int>(Field_Value<std::int32_t>(record, field)));
    case Kind::F32: return To_Text(Field_Value<float>(record, field));
    default: return std::string(Trim_Right(Field_Text(record, field)));
    }
}

}   // namespace sm

#include "support/fields.h"

#include "core/game_state.h"
#include "core/numbers.h"
#include "core/shared.h"

#include <algorithm>
#include <string>

namespace sm::test {

namespace {

struct SIDE_NAME {
    std::string_view NAME;
    int SIDE;
};
constexpr SIDE_NAME SIDE_NAMES[] = {{"BLUE", BLUE}, {"RED", RED}, {"BOTH", BOTH}};

/// Calls `with` for each "KEY value" whose key is a field; the others are returned.
template <class With>
std::string Each_Value(std::span<const FIELD> fields, std::string_view values, With with)
{
    std::string unknown;
    while (!values.empty()) {
        const std::string_view entry = values.substr(0, values.find(", "));
        values.remove_prefix(std::min(values.size(), entry.size() + 2));
        const std::string_view key = entry.substr(0, entry.find(' '));
        std::string value(entry.substr(std::min(entry.size(), key.size() + 1)));
        for (const SIDE_NAME& side : SIDE_NAMES)
            if (value == side.NAME) value = To_Text(side.SIDE);
        const auto field =
            std::find_if(fields.begin(), fields.end(), [&](const FIELD& f) { return key == f.KEY; });
        if (field == fields.end())
            unknown += Cat("no field ", key, "; ");
        else
            with(*field, value);
    }
    return unknown;
}

}   // namespace

void Give_Fields(void* record, std::span<const FIELD> fields, std::string_view values)
{
    const std::string unknown = Each_Value(fields, values, [&](const FIELD& field, const std::string& value) {
        const auto number = Parse_Float(value);
        if (field.KIND == Kind::TEXT || field.KIND == Kind::FREE)
            Set_Field_Text(record, field, value);
        else if (!number)
            ADD_FAILURE() << field.KEY << ": no number: " << value;
        else if (field.KIND == Kind::I16)
            Field_Value<Int16>(record, field) = *number;
        else if (field.KIND == Kind::I32)
            Field_Value<std::int32_t>(record, field) = static_cast<std::int32_t>(*number);
        else
            Field_Value<float>(record, field) = *number;
    });
    EXPECT_EQ(unknown, "");
}

testing::AssertionResult Has_Fields(const void* record, std::span<const FIELD> fields, std::string_view values)
{
    std::string wrong;
    const std::string unknown = Each_Value(fields, values, [&](const FIELD& field, const std::string& value) {
        const std::string is = Field_As_Text(record, field);
        if (is != value) wrong += Cat(field.KEY, " is ", is, ", expected ", value, "; ");
    });
    wrong += unknown;
    return wrong.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << wrong;
}

}   // namespace sm::test

#include "persist/field_check.h"

#include "core/errors.h"
#include "persist/fault_list.h"
#include "persist/keyed_text.h"

#include <algorithm>

namespace sm {

namespace {

constexpr std::size_t MOST_QUOTED_BYTES = 40;

std::string Quoted(std::string_view text)
{
    return Cat("\"", Clean_Text(text.substr(0, MOST_QUOTED_BYTES)), text.size() > MOST_QUOTED_BYTES ? "..." : "",
               "\"");
}

std::string Bound(double limit) { return To_Text(static_cast<float>(limit)); }

void Check_Text(Fault_List& faults, int line, const std::string& name, const FIELD& field, std::string_view value)
{
    if (value.size() > static_cast<std::size_t>(field.WIDTH))
        faults.Remark(line, Cat(name, " has ", To_Text(static_cast<int>(value.size())),
                                " characters and is cut to ", To_Text(field.WIDTH)));
    if (Clean_Text(value) != value)
        faults.Remark(line, Cat(name, " holds a control character, a double quote or a broken bar"));
}

}   // namespace

void Check_Value(Fault_List& faults, int line, const std::string& name, void* record, const FIELD& field,
                 std::string_view value)
{
    const int failure = Store_Value(record, field, value);
    if (field.KIND == Kind::TEXT || field.KIND == Kind::FREE) {
        Check_Text(faults, line, name, field, value);
        return;
    }
    if (failure == ERROR_CONVERSION) {
        faults.Fault(line, value.empty() ? Cat(name, " has no number")
                                         : Cat(name, ": ", Quoted(value), " is not a number"));
    } else if (failure == ERROR_OVERFLOW) {
        const char* width = field.KIND == Kind::I16 ? "16 bits" : "32 bits";
        faults.Fault(line, Cat(name, ": ", Quoted(value), " does not fit into ", width));
    } else if (const double number = Field_Number(record, field); number < field.LOW || number > field.HIGH) {
        faults.Fault(line, Cat(name, " is ", Field_As_Text(record, field), ", outside ", Bound(field.LOW), "..",
                               Bound(field.HIGH)));
    }
}

std::string Unknown_Key(std::string_view key) { return Cat("unknown key ", Quoted(key)); }

}   // namespace sm

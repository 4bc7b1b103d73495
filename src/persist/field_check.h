#pragma once
// Checks of one value, shared by the checks of all keyed files.

#include "core/fields.h"

#include <string>
#include <string_view>

namespace sm {

class Fault_List;

/// Stores a value as the reader would and tells what is wrong with it: no number, too large for the field, outside
/// the field's range; of a text that it is cut or holds what no text of the game may hold. `name` is
/// "UNIT[17].SIDE".
void Check_Value(Fault_List& faults, int line, const std::string& name, void* record, const FIELD& field,
                 std::string_view value);

/// The remark on a key that no reader takes. Keys of binary rubbish are shortened and shown without control
/// characters.
std::string Unknown_Key(std::string_view key);

}   // namespace sm

#pragma once
#include "core/numbers.h"
#include "core/text.h"

#include <string>

namespace sm {

/// How a failed load or save is told to the player: a box with this title and the failure's number.
inline constexpr const char* FAILURE_TITLE = "Stonemarch";
inline std::string Failure_Text(int number) { return Cat("Error: ", To_Text(number)); }

}   // namespace sm

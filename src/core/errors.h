#pragma once
#include <stdexcept>
#include <string>

namespace sm {

/// Failure numbers that the player sees as "Error: " and the number.
inline constexpr int ERROR_OVERFLOW = 6;
inline constexpr int ERROR_RANGE = 9;
inline constexpr int ERROR_CONVERSION = 13;
inline constexpr int ERROR_INTERNAL = 51;
inline constexpr int ERROR_NO_FILE = 53;
inline constexpr int ERROR_DISK = 57;
inline constexpr int ERROR_END_OF_FILE = 62;

/// A failure of the model or of a file. Inside a turn it ends the turn and puts the state back.
struct Game_Error : std::runtime_error {
    Game_Error(int number, const std::string& what) : std::runtime_error(what), NUMBER(number) {}
    int NUMBER;
};

[[noreturn]] void Fail_Overflow(long long value, const char* width);
[[noreturn]] void Fail_Range(int index, int first, int last, const char* table);

}   // namespace sm

#pragma once
// The list of situation reports as a seat reads it: rows of SITREPLIST by audience and kind, oldest first.

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// Kind of a message, by the words it carries.
enum class Message_Kind { SITREP, SPOTREP, INTREP, BDA, CHEMICAL, OTHER };
inline constexpr int MESSAGE_KINDS = 6;
std::string_view Kind_Label(Message_Kind kind);

struct Message_Filter {
    int SIDE = 3;   ///< audience beside what is for both: 1, 2, 3 every side that the seat may read, 0 none
    bool KIND[MESSAGE_KINDS] = {true, true, true, true, true, true};
};

/// What one row of SITREPLIST says, taken apart.
struct Message {
    std::string_view PLACE;   ///< grid reference
    std::string_view TEXT;
    Message_Kind KIND;
};
Message Message_Of(int row);

/// Whether this seat may read a row: its own side's and those for both; without a side, all.
bool May_Read(int row);
/// The sides that a seat may choose between in the filter: only a seat that reads for both sides.
bool May_Filter_Side();
/// Rows that pass, in the order of posting.
std::vector<int> Message_Rows(const Message_Filter& filter);

}   // namespace sm

#include "commands.h"
#include "core/seat.h"
#include "core/state_hash.h"

#include <cstdio>

namespace sm {

void Print_Utf8(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void Print(std::string_view text) { Print_Utf8(To_Utf8(text)); }

void Print_Line(std::string_view text) { Print(Cat(text, "\n")); }

void Printer::Phase(std::string_view title)
{
    if (MESSAGES) Print_Line(Cat("-- ", title));
}

namespace {

/// A text of several lines on one.
std::string In_One_Line(std::string_view text)
{
    std::string line(text);
    for (char& c : line)
        if (c == '\r') c = ' ';
    return line;
}

}   // namespace

void Printer::Status(std::string_view text, Status_Colour colour)
{
    // what is shown in bright green has been posted, and printed, already
    if (MESSAGES && STATUS_LINE && !text.empty() && colour == Status_Colour::NORMAL)
        Print_Line(Cat("   ... ", In_One_Line(text)));
}

void Printer::Posted(int row)
{
    static constexpr const char* AUDIENCE[] = {"[     ] ", "[Blue ] ", "[ Red ] ", "[ All ] "};
    const SITREPLIST_RECORD& r = SITREPLIST[row];
    const int side = r.SIDE >= 0 && r.SIDE <= 3 ? static_cast<int>(r.SIDE) : 0;
    POSTED.push_back({side, r.X, r.Y, r.TEXT.Str()});
    if (MESSAGES) Print_Line(Cat("   ", AUDIENCE[side], In_One_Line(r.TEXT)));
}

void Printer::Box(std::string_view title, std::string_view text)
{
    if (!MESSAGES) return;
    Print_Line(Cat("   (", title, ") ", In_One_Line(text)));
}

void Printer::Phase_Done(std::string_view name)
{
    if (!HASH_PHASES) return;
    Print(Cat("hash ", To_Text(GTURN), " ", name, ": ", Hash_Text(State_Hash())));
    for (const Table_Hash& table : Table_Hashes()) Print(Cat(" ", table.NAME, "=", Hash_Text(table.HASH)));
    Print("\n");
}

}   // namespace sm

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

void Printer::Posted(int row)
{
    static constexpr const char* AUDIENCE[] = {"[     ] ", "[Blue ] ", "[ Red ] ", "[ All ] "};
    const SITREPLIST_RECORD& r = SITREPLIST[row];
    const int side = r.SIDE >= 0 && r.SIDE <= 3 ? static_cast<int>(r.SIDE) : 0;
    POSTED.push_back({side, r.X, r.Y, r.TEXT.Str()});
    if (MESSAGES) Print_Line(Cat("   ", AUDIENCE[side], r.TEXT));
}

void Printer::Box(std::string_view title, std::string_view text)
{
    if (!MESSAGES) return;
    std::string line(text);
    for (char& c : line)
        if (c == '\r') c = ' ';
    Print_Line(Cat("   (", title, ") ", line));
}

void Printer::Phase_Done(std::string_view name)
{
    if (!HASH_PHASES) return;
    Print(Cat("hash ", To_Text(GTURN), " ", name, ": ", Hash_Text(State_Hash())));
    for (const Table_Hash& table : Table_Hashes()) Print(Cat(" ", table.NAME, "=", Hash_Text(table.HASH)));
    Print("\n");
}

}   // namespace sm

#include "ui/sitreps.h"

#include "core/game_state.h"
#include "core/seat.h"

namespace sm {

namespace {

constexpr std::string_view LOCATION = "Location: ", MARK = " // MSG: ";
/// Row 300 is never written: the counter goes round at it.
constexpr int LAST_ROW = MAX_SITREP - 1;

struct KIND_ROW {
    Message_Kind KIND;
    std::string_view LABEL;
    std::string_view WORD;   ///< that a message of the kind carries
};
/// First match wins: a "NBC Losses" line is of NBC although it may name a SITREP's unit.
constexpr KIND_ROW KINDS[MESSAGE_KINDS] = {
    {Message_Kind::SITREP, "SITREP", "SITREP"}, {Message_Kind::SPOTREP, "SPOTREP", "SPOTREP"},
    {Message_Kind::INTREP, "INTREP", "INTREP"}, {Message_Kind::BDA, "BDA", "BDA"},
    {Message_Kind::CHEMICAL, "NBC", "NBC"},          {Message_Kind::OTHER, "Other", ""},
};

Message_Kind Kind_Of(std::string_view text)
{
    for (const KIND_ROW& row : KINDS)
        if (text.find(row.WORD) != std::string_view::npos) return row.KIND;
    return Message_Kind::OTHER;
}

}   // namespace

std::string_view Kind_Label(Message_Kind kind) { return KINDS[static_cast<int>(kind)].LABEL; }

Message Message_Of(int row)
{
    const std::string_view whole = SITREPLIST[row].TEXT;
    const auto mark = whole.find(MARK);
    if (mark == std::string_view::npos || !whole.starts_with(LOCATION)) return {"", whole, Kind_Of(whole)};
    const std::string_view text = whole.substr(mark + MARK.size());
    return {whole.substr(LOCATION.size(), mark - LOCATION.size()), text, Kind_Of(text)};
}

bool May_Filter_Side() { return View_Side() == BOTH; }

bool May_Read(int row) { return May_Read_Of(SITREPLIST[row].SIDE); }

std::vector<int> Message_Rows(const Message_Filter& filter)
{
    std::vector<int> rows;
    const auto take = [&](int first, int last) {
        for (int row = first; row <= last; ++row) {
            if (SITREPLIST[row].USED == 0 || !May_Read(row)) continue;
            const int side = SITREPLIST[row].SIDE;
            if (May_Filter_Side() && filter.SIDE != BOTH && side != BOTH && side != filter.SIDE) continue;
            if (filter.KIND[static_cast<int>(Message_Of(row).KIND)]) rows.push_back(row);
        }
    };
    take(SitrepCount + 1, LAST_ROW);   // left from before the counter went round
    take(1, SitrepCount);
    return rows;
}

}   // namespace sm

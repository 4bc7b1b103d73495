#include "core/clock.h"

#include "core/game_state.h"
#include "core/platform.h"
#include "core/seat.h"

#include <array>

namespace sm {

namespace {

struct MONTH {
    const char* NAME;
    int FIRST_DAY_NOT_IN_IT;
};
// There are no leap years.
constexpr std::array<MONTH, 12> MONTHS{{
    {"Jan", 32}, {"Feb", 29}, {"Mar", 32}, {"Apr", 31}, {"May", 32}, {"Jun", 31},
    {"Jul", 32}, {"Aug", 32}, {"Sep", 31}, {"Oct", 32}, {"Nov", 31}, {"Dec", 32},
}};

/// A clock or a day from a broken file may be any number: bounded, it can be counted on.
int Number_Of(std::string_view text) { return Saturate_16(Parse_Int(Trim(text)).value_or(0)); }

std::string Two_Digits(int n) { return n < 10 ? "0" + To_Text(n) : To_Text(n); }

void Next_Day()
{
    DDAY += 1;
    const int day = Number_Of(GDAY) + 1;
    GDAY = Two_Digits(day);
    for (std::size_t m = 0; m < MONTHS.size(); ++m) {
        if (!(GMONTH == MONTHS[m].NAME)) continue;
        if (day == MONTHS[m].FIRST_DAY_NOT_IN_IT) {
            GDAY = "01";
            GMONTH = MONTHS[(m + 1) % MONTHS.size()].NAME;
        }
        return;
    }
}

bool Day_Changes(int clock)
{
    switch (TurnLength) {
    case 0: return clock == 100 || clock == 200;   // either parity of start is caught
    case 1: return clock == 100;
    default: return clock == 15;
    }
}

void Grant_Air_Strikes()
{
    const std::string text = "The new ATO has arrived. Both sides now have a\r"
                             "new allocation of Air Strikes for the next 24 hour period.";
    if (GameType == 7 || GameType == 8 || GameType == 9)
        Show_Status(text);   // no seat of a network game holds up the others
    else
        Screen().Box("Stonemarch", text);
    BTOTAL = ABCAS;
    OTOTAL = AOCAS;
}

}   // namespace

int Clock_Number() { return Number_Of(GTIME); }

void Advance_Clock()
{
    GTURN += 1;
    int clock = Clock_Number();
    if (TurnLength == 0) clock += 200;
    if (TurnLength == 1) clock += 100;
    if (TurnLength == 2) {
        clock += 15;
        if (clock % 100 == 60) clock += 40;
    }
    if (clock >= 2400) clock -= 2400;
    // A value below 100 takes a second "0" only: midnight is written "000".
    std::string text = To_Text(clock);
    if (clock < 1000) text = "0" + text;
    if (clock < 100) text = "0" + text;
    GTIME = text;
    if (Day_Changes(clock)) Next_Day();
    Update_Header();
    if (clock == 600 || (TurnLength == 0 && clock == 700)) Grant_Air_Strikes();
}

void Update_Header()
{
    const int clock = Clock_Number();
    TIME_OF_DAY = clock < BMNT || clock >= EENT ? "Night" : "Day";
    Screen().Changed(Redraw::HEADER);
}

Header_Texts Header()
{
    const int clock = Clock_Number();
    const bool night = clock < BMNT || clock >= EENT;
    return {Cat("     Turn: ", To_Text(GTURN)),
            Cat(std::string_view(GTIME), " hrs"),
            Cat(std::string_view(GDAY), " ", std::string_view(GMONTH)),
            Cat("Wind: ", To_Text(WINDD * 45), " deg"),
            night,
            night ? 102 : 101};
}

}   // namespace sm

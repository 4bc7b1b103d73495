#include "sustain/reports.h"

#include "core/seat.h"
#include "core/shared.h"

namespace sm {

namespace {

constexpr int ENEMY_EW = 20;

// clang-format off
/// Texts by number; nullptr takes the message that is being built.
constexpr const char* REPORTS[] = {
    /*  0 */ "",
    /*  1 */ "Need resupply ASAP!",
    /*  2 */ "Operations halted - OUT OF SUPPLY!",
    /*  3 */ "Resupply is complete!",
    /*  4 */ "Must land within 1 hr!",
    /*  5 */ "Landing now due to lack of fuel!",
    /*  6 */ "Bridging equipment is destroyed!",
    /*  7 */ "Need bridging equipment to cross river!",
    /*  8 */ "Defense will be completed in 6 turns!",
    /*  9 */ "We are retreating!",
    /* 10 */ "We are inside a contaminated area!",
    /* 11 */ "My supported unit is destroyed!",
    /* 12 */ "Aborting mission due to aircraft losses!",
    /* 13 */ "Out of ammunition!",
    /* 14 */ "Communications are difficult with my HQ!",
    /* 15 */ "Communications are lost - Where is my HQ!",
    /* 16 */ nullptr,
    /* 17 */ "Now inside smoke screen!",
    /* 18 */ nullptr,
    /* 19 */ " ",
    /* 20 */ nullptr,   // has its own form
    /* 21 */ "ELINT located enemy transmission!",
    /* 22 */ "WSRO is complete!",
};
// clang-format on

}   // namespace

void Unit_Report(int number, int unit, int show)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (number == ENEMY_EW) {
        Post_At(unit, Cat("Enemy EW successfully degrades ", u.NAME, "'s C2!"), 2000, BOTH);
        return;
    }
    const char* text = number >= 0 && number < static_cast<int>(std::size(REPORTS)) ? REPORTS[number] : nullptr;
    Post_Own(unit, Cat(u.NAME, ": ", text != nullptr ? std::string_view(text) : std::string_view(MsgText)), show);
}

}   // namespace sm

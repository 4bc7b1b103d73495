#include "events/event_kinds.h"

#include "core/game_state.h"

#include <iterator>

namespace sm {

namespace {

// clang-format off
constexpr EVENT_KIND KINDS[] = {
    {"Ambush (Red)",                      "2.ico"},
    {"Ammunition Cache (Red)",            "3.ico"},
    {"Ammunition Cache (Neutral)",        "34.ico"},
    {"Arrest (Red)",                      "33.ico"},
    {"Arrest (Neutral)",                  "30.ico"},
    {"Arson/Fire (Red)",                  "1.ico"},
    {"Artillery Fire (Red)",              "4.ico"},
    {"Assassination (Red)",               "5.ico"},
    {"Bombing (Red)",                     "7.ico"},
    {"Boobytrap (Red)",                   "8.ico"},
    {"Casualties (Red)",                  "35.ico"},
    {"Casualties (Blue)",                 "36.ico"},
    {"Casualties (Neutral)",              "37.ico"},
    {"Convoy (Neutral)",                  "41.ico"},
    {"Demonstration (Red)",               "6.ico"},
    {"Demonstration (Neutral)",           "27.ico"},
    {"Downed Helicopter (Blue)",          "46.ico"},
    {"Drive by Shooting (Red)",           "9.ico"},
    {"EPW (Red)",                         "48.ico"},
    {"EW Intercept (Red)",                "25.ico"},
    {"Extortion (Red)",                   "22.ico"},
    {"Foraging (Red)",                    "24.ico"},
    {"Government Building (Neutral)",     "42.ico"},
    {"Hospital (Neutral)",                "23.ico"},
    {"Government Building (Neutral)",     "44.ico"},
    {"Grafitti (Red)",                    "29.ico"},
    {"Hospital (Neutral)",                "11.ico"},
    {"Internal Security Force (Neutral)", "10.ico"},
    {"Kidnapping (Red)",                  "12.ico"},
    {"Mortar/Mortar Fire (Red)",          "32.ico"},
    {"PSYOPS (Red)",                      "31.ico"},
    {"PSYOPS (Blue)",                     "15.ico"},
    {"PSYOPS (Neutral)",                  "16.ico"},
    {"Recruitment (Red-Willing)",         "47.ico"},
    {"Recruitment (Red-Coerced)",         "28.ico"},
    {"Refugees (Red)",                    "49.ico"},
    {"Refugees (Neutral)",                "14.ico"},
    {"RSTA Report (Blue)",                "13.ico"},
    {"Roadblock (Red-Completed)",         "21.ico"},
    {"Roadblock (Red-Started)",           "18.ico"},
    {"Rocket Fire (Red)",                 "19.ico"},
    {"Signal/Radio Station (Red)",        "17.ico"},
    {"Sniping (Red)",                     "45.ico"},
    {"Supply Cache (Red)",                "43.ico"},
    {"Supply Cache (Neutral)",            "20.ico"},
    {"United Nations Report (Blue)",      "38.ico"},
    {"Vandalism/Rape/Plunder (Red)",      "39.ico"},
    {"Other (Red)",                       "38.ico"},
    {"Other (Blue)",                      "38.ico"},
    {"Other (Neutral)",                   "38.ico"},
};
// clang-format on
static_assert(std::size(KINDS) == EVENT_KINDS);

}   // namespace

const EVENT_KIND* Event_Kind(int type) { return type >= 1 && type <= EVENT_KINDS ? &KINDS[type - 1] : nullptr; }

int Event_Side(const EVENT_KIND& kind)
{
    const std::string_view label = kind.LABEL;
    if (label.find("(Red") != label.npos) return RED;
    return label.find("(Blue") != label.npos ? BLUE : BOTH;
}

}   // namespace sm

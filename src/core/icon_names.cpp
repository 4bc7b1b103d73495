#include "core/icon_names.h"

#include "core/text.h"

#include <algorithm>
#include <iterator>

namespace sm {

namespace {

constexpr int LINE_OF_COMMUNICATION = 50;
constexpr int CONVOY_SIZE = 100;

/// Row i is role i.
constexpr const char* STEMS[] = {
    "user", "ada", "himad", "abm",  "at", "ar",  "cav",  "fat", "fa",  "mrl", "ssm", "ah", "lift", "spt",
    "eng",  "brg", "iew",   "iewa", "hq", "inf", "mech", "mp",  "nbc", "psy", "rec", "sf", "uav",
};
static_assert(std::size(STEMS) == 27);

}   // namespace

std::string Unit_Icon_Name(int side, int type, int size)
{
    const char* letter = side == 2 ? "r" : "b";
    if (size == CONVOY_SIZE) return Cat(letter, "trk.ico");
    if (type == LINE_OF_COMMUNICATION) return Cat(letter, "spt7.ico");
    const int role = type >= 0 && type < static_cast<int>(std::size(STEMS)) ? type : 0;
    return Cat(letter, STEMS[role], std::string(1, static_cast<char>('1' + std::clamp(size, 0, 6))), ".ico");
}

}   // namespace sm

#include "core/near_units.h"

#include "core/game_state.h"

#include <bit>

namespace sm {

namespace {

constexpr int STRIP_BITS = 5;   // strips of 32 pixels
constexpr int STRIPS = 128;     // further out they come round again, which only adds rows that are tested in vain
constexpr int WORDS = 10;       // of 64 rows
constexpr float BEYOND_MEASURE = 30000.0f;

struct Strips {
    std::uint64_t ROWS[STRIPS][WORDS];
    int OF[MAX_UNIT + 1];   // strip of each row

    void Clear() { *this = Strips{}; }
    void Put(int unit, int strip)
    {
        OF[unit] = strip;
        ROWS[strip][unit / 64] |= std::uint64_t{1} << unit % 64;
    }
    void Take(int unit) { ROWS[OF[unit]][unit / 64] &= ~(std::uint64_t{1} << unit % 64); }
    /// The rows of all strips that a stretch of the axis meets.
    void Meet(int from, int to, std::uint64_t (&rows)[WORDS]) const
    {
        const int first = from >> STRIP_BITS;
        const int last = (to >> STRIP_BITS) - first >= STRIPS ? first + STRIPS - 1 : to >> STRIP_BITS;
        for (std::uint64_t& word : rows) word = 0;
        for (int s = first; s <= last; ++s)
            for (int w = 0; w < WORDS; ++w) rows[w] |= ROWS[s & (STRIPS - 1)][w];
    }
};
static_assert(WORDS * 64 > MAX_UNIT);

int Strip_Of(int pixel) { return pixel >> STRIP_BITS & (STRIPS - 1); }

struct Watch {
    bool ON = false;
    std::uint64_t CHANGES = 0;   // never falls, so that no walk takes a later watch for its own
    float LARGEST = 0;           // footprint; never falls during a watch
    Strips ACROSS, DOWN;
};
Watch WATCH;

#ifndef NDEBUG
void Check_Watch()
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (WATCH.ACROSS.OF[u] != Strip_Of(UNIT[u].X) || WATCH.DOWN.OF[u] != Strip_Of(UNIT[u].Y) ||
            (UNIT[u].STATUS > 0 && UNIT[u].FOOTPRINT > WATCH.LARGEST))
            throw Game_Error(ERROR_INTERNAL, "UNIT[" + To_Text(u) + "] changed its place or ground untold");
}
#endif

}   // namespace

Places_Watched::Places_Watched()
{
    WATCH.ON = true;
    WATCH.LARGEST = 0;
    ++WATCH.CHANGES;
    WATCH.ACROSS.Clear();
    WATCH.DOWN.Clear();
    for (int u = 1; u <= MAX_UNIT; ++u) {
        WATCH.ACROSS.Put(u, Strip_Of(UNIT[u].X));
        WATCH.DOWN.Put(u, Strip_Of(UNIT[u].Y));
        Note_Footprint(u);
    }
}

Places_Watched::~Places_Watched()
{
    WATCH.ON = false;
    ++WATCH.CHANGES;
}

void Note_Place(int unit)
{
    if (!WATCH.ON) return;
    const int across = Strip_Of(UNIT[unit].X), down = Strip_Of(UNIT[unit].Y);
    ++WATCH.CHANGES;
    WATCH.ACROSS.Take(unit);
    WATCH.ACROSS.Put(unit, across);
    WATCH.DOWN.Take(unit);
    WATCH.DOWN.Put(unit, down);
}

void Note_Footprint(int unit)
{
    if (!WATCH.ON || UNIT[unit].FOOTPRINT <= WATCH.LARGEST) return;
    WATCH.LARGEST = UNIT[unit].FOOTPRINT;
    ++WATCH.CHANGES;
}

void Near_Rows::Look_Up(int x, int y, float reach)
{
    X = x;
    Y = y;
    REACH = reach;
    SEEN = WATCH.CHANGES;
    const float far =
        reach + SHARE * WATCH.LARGEST + 2;   // distances and reaches are rounded before they are compared
    if (!WATCH.ON || !(far < BEYOND_MEASURE)) {
        for (std::uint64_t& word : ROWS) word = ~std::uint64_t{0};
        return;
    }
#ifndef NDEBUG
    Check_Watch();
#endif
    const int span = static_cast<int>(far) + 1;
    std::uint64_t across[WORDS];
    WATCH.ACROSS.Meet(x - span, x + span, across);
    WATCH.DOWN.Meet(y - span, y + span, ROWS);
    for (int w = 0; w < WORDS; ++w) ROWS[w] &= across[w];
}

int Near_Rows::Next(int x, int y, float reach)
{
    if (SEEN != WATCH.CHANGES || X != x || Y != y || !(REACH == reach)) Look_Up(x, y, reach);
    for (++ROW; ROW <= MAX_UNIT; ROW = (ROW / 64 + 1) * 64) {
        const std::uint64_t rest = ROWS[ROW / 64] >> ROW % 64;
        if (rest == 0) continue;
        ROW += std::countr_zero(rest);
        return ROW <= MAX_UNIT ? ROW : 0;
    }
    return 0;
}

}   // namespace sm

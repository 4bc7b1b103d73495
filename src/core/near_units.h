#pragma once
// Which units may lie near a place. A march asks that some ten thousand times a turn, and nearly all of the 600
// rows are far away each time. The answer only leaves out rows that cannot be near: whoever asks still tests each
// one, in ascending order and as it stands when its turn comes, so that all results are those of the plain loop
// over 1..600.

#include <cstdint>

namespace sm {

/// While one lives, the rows near a place are kept in strips of the map. In that time X, Y and FOOTPRINT of a unit
/// are written by Place_Unit, Remove_Unit and Set_Footprint only; builds with assertions check that.
struct Places_Watched {
    Places_Watched();
    ~Places_Watched();
    Places_Watched(const Places_Watched&) = delete;
    Places_Watched& operator=(const Places_Watched&) = delete;
};

/// A walk over the rows near a place, ascending; over all rows while places are not watched.
struct Near_Rows {
    /// Whatever lies within the reach told below, plus `share` of the largest footprint of any unit.
    explicit Near_Rows(float share) : SHARE(share) {}
    /// The next row, 0 after the last. Place and reach may change between two calls, as may all units.
    int Next(int x, int y, float reach);

private:
    void Look_Up(int x, int y, float reach);
    float SHARE;
    int ROW = 0;   // the row given last
    int X = 0, Y = 0;
    float REACH = -1;
    std::uint64_t SEEN = 0;   // state of the strips that ROWS were taken from
    std::uint64_t ROWS[10] = {};
};

/// The writers of a unit's place and ground tell it.
void Note_Place(int unit);
void Note_Footprint(int unit);

}   // namespace sm

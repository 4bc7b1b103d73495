#pragma once
#include <string>
#include <vector>

namespace sm {

/// A broken promise of the tables: which one, and where.
struct Broken_Invariant {
    std::string RULE;   ///< "owner", "passenger", "route", "range", "place", "overlay"
    std::string TEXT;
};

/// What holds between any two phases of a sound game:
///   owner      no MNUNIT, no PARENT_UNIT of a living unit names a free row
///   passenger  no living carrier's PASSENGER names a free row
///   route      the nodes of a unit are numbered 1 to n, and NUMBER_OF_NODES is n
///   range      every field lies within the range of its field list
///   place      a living unit inside the picture has ROW, COL, HEXNUM, TERTYPE of its place
///   overlay    the cell of a BG row shows it
/// At most `limit` are named.
std::vector<Broken_Invariant> Broken_Invariants(int limit = 20);

/// Ends the turn with a failure when one is broken. Called after each phase in builds with assertions.
void Require_Invariants();

}   // namespace sm

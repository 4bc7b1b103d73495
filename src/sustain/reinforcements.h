#pragma once

namespace sm {

/// Units whose turn has come arrive on the map.
void Reinforcements_Phase();
/// Lines of communication: fixed values again, a missing one made anew.
void LOC_Phase();
/// Makes the line of communication of each side that has none and whose row (300, 600) is free.
void Make_LOC_Units();
/// Puts a line of communication back to its standard state.
void Restore_LOC(int unit);

}   // namespace sm

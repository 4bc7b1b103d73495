#pragma once

namespace sm::bench {

/// 300 units a side, their fronts run into one another so that nearly every unit is in contact with two to four
/// enemies; headquarters, batteries in support, screens, obstacles and high ground among them.
void Make_Contact_Game();

/// What the combat phase of a game asks for at least: looks of a unit over all others (its own and those of each
/// step of a retreat), shots, each of which counts the firer's enemies, and the places that a retreat runs from.
struct COMBAT_WORK {
    int LOOKS = 0;
    int SHOTS = 0;
    int RETREATS = 0;
};
/// Plays the phase once and counts.
COMBAT_WORK Count_Combat_Work();
/// The bare distance loops of that work, as the rules are written: 600 distances for each.
void Literal_Combat(const COMBAT_WORK& work);

/// 2000 lines of sight over 60 to 160 cells of low ground, and the bare walk over the same samples.
int Walk_Sight_Lines();
int Walk_Samples();

}   // namespace sm::bench

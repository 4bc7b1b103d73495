#pragma once
namespace sm::bench {

/// A full game in its second turn in which the computer may plan both sides: destinations in the enemy's depth,
/// objectives, areas, sorties, supply, a third of the units known to the enemy.
void Make_Computer_Game();
/// The same with 100 convoys on the road to units that wait for them.
void Make_Convoy_Game();

/// Plan_Route for Blue's 300 units.
void Plan_300_Routes();
/// The bare cells that those plans look at: every sample of every candidate line, read and added.
void Walk_Route_Samples();
/// The distances that a logistics phase asks for, and no more.
void Walk_Supply_Distances();

/// Plays 15 turns with the computer on both sides; seconds of the median turn and of the worst.
struct BATTLE_TIMES {
    double WHOLE, MEDIAN, WORST;
};
BATTLE_TIMES Play_Computer_Battle();

}   // namespace sm::bench

#pragma once
// Planning of engineer work: the Fortify command, and the works that a side has on the map when the battle begins.
// Demolitions and minefields are missions (ui/fire_planning.h). Every command answers false, with its words in a
// box, when it is refused.

#include <string>

namespace sm {

// ---------------------------------------------------------------------------------------------- allowances

/// What a side's allowance is booked for.
enum Crossing_Kind { CROSSING_BRIDGE = 7, CROSSING_OBSTACLE = 11, CROSSING_FORT = 21 };

struct CROSSING {
    bool BOOKED = false;   ///< the allowance held it; side 3 has no limit
    int ROW = 0;   ///< free row of BG, 0 when none is left; a fortification takes its row when it is finished
};
/// Books one item to the side that asks and finds a row: of the side's half in a network game, else of all 300.
/// Without a row the item stays booked at a single seat; in a network game it is given back, since no message
/// tells the others.
CROSSING Issue_Crossing(int kind, int side);

/// One item of the BG type (7, 8, 9) booked to a side (1, 2), as the other seats do on message 10.
void Book_Work(int type, int side);

// ---------------------------------------------------------------------------------------------- Fortify

/// "Fortify": the unit begins to dig. A client asks the host.
bool cmdFort_Click(int unit);
/// A client's request at the host: booked, begun and told to all, or dropped.
void Grant_Fortification(int unit);
/// What every seat does when a unit begins to dig. The seat that booked it does not book it again.
void Begin_Fortification(int unit, bool book);

// ---------------------------------------------------------------------------------------------- works on the map

/// Tools of the map: the next clicks place bridges (237), obstacles (238) or fortifications (239).
void Begin_Work(int map_mode);
/// A click with one of these tools. Works are placed while a game is set up (before turn 1) and in the editor.
bool Place_Planned_Work(int x, int y);
/// The eraser on a row of the works: own ones while a game is set up, all in the editor.
bool Erase_Planned_Work(int row);

/// A placed work as message 10 carries it. X, Y is the upper left corner of the cell, VALUE and NAME the cell
/// afterwards.
struct PLACED_WORK {
    int ROW = 0, X = 0, Y = 0, TYPE = 0, SIDE = 0, HEX = 0, VALUE = 0;
    std::string NAME;
};
/// Fills row and cell, the same on every seat; a bridge takes the place of a blown one.
void Place_Work(const PLACED_WORK& work);
/// The cell is a river again, and the rows of its bridges are free.
void Remove_Crossing(int hex);
/// The same for the cell of a row, whose owner gets the bridge back.
void Give_Back_Bridge(int row);

}   // namespace sm

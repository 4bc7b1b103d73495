#pragma once
// The session: game types, opening, saving, sides, turns, leaving.

#include "core/platform.h"

#include <string>

namespace sm {

/// Whether what a game type does is built; only such a type is on the list.
bool Game_Type_Offered(int number);
/// A button of the game type list; "Exit Game" ends the program at once.
void optGameType_Click(int number);

/// The file dialogs of the mode in play.
File_Request Open_Request(bool new_game);
File_Request Save_Request();

/// In the first turn of a session asks for a new or a saved game, then opens it. A cancelled dialog does nothing.
void cmdOpenGame_Click();
void mnuNewGame_Click();
void mnuOpenSaved_Click();
/// Loads a game file for the type in play and opens the palette that plans next. False when it failed.
bool Open_Game_File(const std::string& file);
/// False when nothing was saved.
bool cmdSavegame_Click();

/// Whether this seat may take a side now.
bool May_Take_Side(int side);
/// A side button. With two players at one screen it is covered until the other side has sat down.
void cmdSide_Click(int side);
/// The side has sat down: its planning opens. Or it has not: back to the main frame.
void cmdUncover_Click();
void cmdStayOut_Click();
/// Ends planning and calls the other side to the screen.
void cmdHandOver_Click();

/// The end of planning: no side gives orders, and nothing of a side's plans stays on the screen.
void cmdEnd_Menu();
/// "Return to Main Menu": from a palette to the main frame, from the main frame to the game type list.
void cmdReturn_Click();
void cmdGO_Click();
void cmdEnd_Click();
/// Whether the program may end now. In the middle of a turn the answer is no, and it ends after the turn.
bool May_Leave();

/// Whether the game in play differs from what was last loaded or saved.
bool Unsaved_Changes();

/// After a session that broke off: offers the game saved at the start of its last turn.
void Offer_Autosave(int game_type);

}   // namespace sm

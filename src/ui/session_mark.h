#pragma once

namespace sm {

/// A mark in the program folder, held while the program lives, tells the next start how this session ended. Answers
/// whether the last session that had this folder broke off after a turn was begun; `game_type` is then what it played.
/// A second program on the same folder has no mark of its own and is told nothing.
bool Open_Session_Mark(int& game_type);
/// A turn is about to run: from now on there is a game saved at its start.
void Mark_Turn(int game_type);
/// Another game is in play, of which no turn was begun.
void Clear_Session_Mark();
/// The session ends as it should.
void Close_Session_Mark();

}   // namespace sm

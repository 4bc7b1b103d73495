#pragma once

namespace sm {

/// What each number given to Play_Sound sounds like. tools/make_sounds makes 1 to 15; 16, a chat line, is silent.
enum Sound_Cue {
    SOUND_TURN_DONE = 1,      ///< three notes up: the turn has been played
    SOUND_ORDER = 2,          ///< a tick: an order was taken
    SOUND_BREACHING = 3,      ///< a line charge at an obstacle
    SOUND_DIRECT_FIRE = 4,    ///< three guns
    SOUND_ARTILLERY = 5,      ///< a shell comes down and bursts
    SOUND_AIR_STRIKE = 6,     ///< a jet passes, two bombs
    SOUND_HELICOPTERS = 7,    ///< rotors
    SOUND_AIR_DEFENCE = 8,    ///< a missile leaves its rail
    SOUND_DEMOLITION = 9,     ///< the heaviest burst: a bridge, a bomber's load
    SOUND_ALARM = 10,         ///< a two-tone horn: contamination
    SOUND_LANDING = 11,       ///< a rotor runs down
    SOUND_MESSAGE = 12,       ///< a radio call
    SOUND_REFUSED = 13,       ///< two low notes: that cannot be done
    SOUND_GAME_READY = 14,    ///< a drum and a horn: a game is loaded
    SOUND_BATTLE_OVER = 15,   ///< three falling calls
    SOUND_CHAT = 16,
};

}   // namespace sm

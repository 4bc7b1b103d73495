#pragma once
// What a battle leaves for its report: the state of each turn and every message, as they were.

#include "aar/victory_status.h"

#include <string>
#include <vector>

namespace sm {

struct UNIT_MARK {
    int UNIT, SIDE, TYPE, SIZE, STATUS, X, Y, STRENGTH;
};
struct MESSAGE_MARK {
    int SIDE, X, Y;     ///< audience and place
    std::string TEXT;   ///< with its location, code page 1252
};
struct TURN_RECORD {
    int TURN;
    std::string CLOCK;   ///< "1100 hrs 9 Feb"
    float BLUE_POWER, RED_POWER;
    int BLUE_POINTS, RED_POINTS;
    int BLUE_LOSS, RED_LOSS;     ///< percent of the power at the start
    int STATUS;                  ///< VSTATUS
    int BLUE_UNITS, RED_UNITS;   ///< units in play, without convoys and lines of communication
    std::vector<CAUSE> CAUSES;   ///< sums since the start
    std::vector<int> HOLDERS;    ///< OID of each objective of OBJECTIVES
    std::vector<UNIT_MARK> UNITS;
    std::vector<MESSAGE_MARK> MESSAGES;
};
struct OBJECTIVE_MARK {
    int OBJECTIVE, X, Y, VALUE;
};
struct BATTLE_RECORD {
    std::string NAME, START;   ///< scenario, clock of the first moment
    float BLUE_START = 0, RED_START = 0;
    int LAST_TURN = 0;   ///< MAXGTURN
    bool OVER = false;
    int MAP_WIDTH = 0, MAP_HEIGHT = 0;
    std::string MAP_PICTURE;   ///< path of the picture file, empty without one
    std::vector<OBJECTIVE_MARK> OBJECTIVES;
    std::vector<std::string> UNIT_NAMES;   ///< by unit number; a name stays after its unit is gone
    std::vector<TURN_RECORD> TURNS;        ///< the state before the first turn comes first
};

/// Name of the scenario in play without its ending, UTF-8; "battle" when it has none.
std::string Battle_Name();
/// Begins the record of the game in play.
BATTLE_RECORD Begin_Record();
/// Adds the state of the turn that has just been played; `messages` are its own.
void Record_Turn(BATTLE_RECORD& record, std::vector<MESSAGE_MARK> messages);

/// The report in plain text, UTF-8.
std::string Report_Text(const BATTLE_RECORD& record);
/// The report as one self-contained page: charts, the map once, and the forces of each turn laid over it.
std::string Report_Html(const BATTLE_RECORD& record);

}   // namespace sm

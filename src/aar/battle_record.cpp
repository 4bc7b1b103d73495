#include "aar/battle_record.h"

#include "aar/victory.h"
#include "core/clock.h"
#include "core/game_state.h"
#include "persist/program_folder.h"
#include "terrain/grid.h"

namespace sm {

namespace {

std::string Moment() { return Cat(Header().CLOCK, " ", Header().DATE); }

void Note_Names(BATTLE_RECORD& record)
{
    record.UNIT_NAMES.resize(MAX_UNIT + 1);
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0) record.UNIT_NAMES[u] = To_Utf8(UNIT[u].NAME);
}

TURN_RECORD State_Of_Turn(const BATTLE_RECORD& record)
{
    TURN_RECORD t{GTURN, Moment(), BRCP3, RRCP3, BLUEVP, REDVP, Loss_Percent(BLUE), Loss_Percent(RED), VSTATUS,
                  0,     0,        {},    {},    {},     {}};
    t.CAUSES = Losses_By_Cause();
    for (const OBJECTIVE_MARK& o : record.OBJECTIVES) t.HOLDERS.push_back(OBJ[o.OBJECTIVE].OID);
    for (int u = 1; u <= MAX_UNIT; ++u) {
        const UNIT_RECORD& r = UNIT[u];
        if (r.STATUS < 1 || r.TYPE == 50) continue;
        if (r.SIZE != 100) (r.SIDE == BLUE ? t.BLUE_UNITS : t.RED_UNITS) += 1;
        if (r.PARENT_UNIT == 0 && r.OFFMAP == 0 && Hex_Number(r.X, r.Y) > 0)
            t.UNITS.push_back({u, r.SIDE, r.TYPE, r.SIZE, r.STATUS, r.X, r.Y, Floor_Int(r.STRENGTH)});
    }
    return t;
}

}   // namespace

std::string Battle_Name()
{
    const std::string name = To_Utf8(GAMEFILE);
    const std::size_t ending = name.rfind('.');
    return name.empty() ? "battle" : ending == name.npos || ending == 0 ? name : name.substr(0, ending);
}

BATTLE_RECORD Begin_Record()
{
    BATTLE_RECORD record;
    record.NAME = Battle_Name();
    record.START = Moment();
    record.BLUE_START = BRCP1;
    record.RED_START = RRCP1;
    record.LAST_TURN = MAXGTURN;
    record.MAP_WIDTH = Picture_Width();
    record.MAP_HEIGHT = Picture_Height();
    if (!Trim(MAPFILE).empty()) record.MAP_PICTURE = Home_Path(Cat("\\Maps\\", Trim(MAPFILE))).string();
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1) record.OBJECTIVES.push_back({o, OBJ[o].OX, OBJ[o].OY, OBJ[o].OVALUE});
    Note_Names(record);
    record.TURNS.push_back(State_Of_Turn(record));
    return record;
}

void Record_Turn(BATTLE_RECORD& record, std::vector<MESSAGE_MARK> messages)
{
    if (record.TURNS.size() == 1 && !(record.BLUE_START > 0)) {
        record.BLUE_START = BRCP1;
        record.RED_START = RRCP1;
    }
    Note_Names(record);
    record.TURNS.push_back(State_Of_Turn(record));
    record.TURNS.back().MESSAGES = std::move(messages);
}

}   // namespace sm

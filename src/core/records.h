#pragma once
// The records of the game. One list per record, in the order of the game file; struct, file, tape, transfer, hash,
// diff and check all follow from it. A new field is one new line.
//
//   F(type, NAME, low, high, carriers, unit of measure, meaning)

#include "core/fields.h"

#include <array>
#include <span>

namespace sm {

// clang-format off
#define UNIT_FIELDS(F) \
    F(Text<40>, IMAGE, 0, 0, EVERYWHERE, "", "icon file name under the icons folder") \
    F(Int16, IMAGETYPE, 0, 1, EVERYWHERE, "", "0 standard icon, 1 custom icon") \
    F(Text<20>, NAME, 0, 0, EVERYWHERE, "", "unit name") \
    F(Text<20>, NATION, 0, 0, EVERYWHERE, "", "nation") \
    F(Int16, ACTIVITY, 0, HIGH16, EVERYWHERE, "enemies", "enemy units that the unit is engaged with this turn") \
    F(Int16, X, LOW16, HIGH16, EVERYWHERE, "pixels", "position, unit centre") \
    F(Int16, Y, LOW16, HIGH16, EVERYWHERE, "pixels", "position, unit centre") \
    F(Int16, X1, LOW16, HIGH16, EVERYWHERE, "pixels", "start of the current route leg") \
    F(Int16, Y1, LOW16, HIGH16, EVERYWHERE, "pixels", "start of the current route leg") \
    F(Int16, DX, LOW16, HIGH16, STORED, "pixels", "end of the current leg; read by no rule") \
    F(Int16, DY, LOW16, HIGH16, STORED, "pixels", "end of the current leg; read by no rule") \
    F(Int16, ROW, LOW16, HIGH16, EVERYWHERE, "cells", "grid row of the position, 1 is the north edge") \
    F(Int16, COL, LOW16, HIGH16, EVERYWHERE, "cells", "grid column of the position, 1 is the west edge") \
    F(std::int32_t, HEXNUM, 0, 150000, EVERYWHERE, "cell", "number of the cell under the unit, 0 off the picture") \
    F(Int16, FACING, 0, 360, EVERYWHERE, "degrees", "facing, 0 is north") \
    F(float, RCP, 0, ANY_REAL, EVERYWHERE, "RCP points", "base relative combat power") \
    F(float, RCP2, 0, ANY_REAL, EVERYWHERE, "RCP points", "current relative combat power") \
    F(Int16, SIDE, 0, 2, EVERYWHERE, "side", "1 Blue, 2 Red") \
    F(Int16, SIZE, 0, 100, EVERYWHERE, "echelon", "0 system or squad .. 6 corps, 100 supply convoy") \
    F(Int16, SPEED, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, STATUS, 0, 5, EVERYWHERE, "", "0 free, 1 ineffective, 2 operational, 5 until the next reset") \
    F(float, STRENGTH, 0, HIGH16, EVERYWHERE, "percent", "current strength; replacement of weapon systems may pass 100") \
    F(Int16, TYPE, 0, 50, EVERYWHERE, "role", "row of the role list, 50 line of communication") \
    F(Text<20>, UNITTYPE, 0, 0, EVERYWHERE, "", "unit type label, row name of the weapons table") \
    F(Int16, MOVEPOINTS, 0, HIGH16, EVERYWHERE, "movement points", "base movement points") \
    F(Int16, MOVEPOINTS2, 0, HIGH16, EVERYWHERE, "movement points", "movement points left this turn") \
    F(float, MOVEX, -ANY_REAL, ANY_REAL, EVERYWHERE, "pixels", "pixels per step of the leg") \
    F(float, MOVEY, -ANY_REAL, ANY_REAL, EVERYWHERE, "pixels", "pixels per step of the leg") \
    F(Int16, DISTANCE_IN_HEXES, 0, HIGH16, EVERYWHERE, "cells", "steps in the current leg") \
    F(Int16, MOVECOST_TO_END, LOW16, HIGH16, EVERYWHERE, "movement points", "cost to the route's end") \
    F(Int16, TIME_TO_END, 0, HIGH16, EVERYWHERE, "turns", "turns to the route's end, display only") \
    F(Int16, NUMBER_OF_MOVES, 0, HIGH16, EVERYWHERE, "cells", "steps made on the current leg") \
    F(Int16, NUMBER_OF_NODES, 0, 300, EVERYWHERE, "nodes", "route nodes not yet reached") \
    F(Int16, DROW1, LOW16, HIGH16, EVERYWHERE, "cells", "destination row") \
    F(Int16, DCOL1, LOW16, HIGH16, EVERYWHERE, "cells", "destination column") \
    F(Text<25>, MISSION, 0, 0, EVERYWHERE, "", "mission label shown to the user") \
    F(Int16, MORALE, 0, 4, EVERYWHERE, "", "0 broken .. 4 very high") \
    F(Int16, SPOTTED, 0, HIGH16, EVERYWHERE, "", "above 0: known to the enemy this turn") \
    F(Int16, MXRANGE, 0, HIGH16, EVERYWHERE, "km", "greatest weapon or sensor range") \
    F(Int16, MINRANGE, 0, HIGH16, EVERYWHERE, "km", "least weapon range") \
    F(Int16, TIMEREGR, 0, 6, EVERYWHERE, "turns", "turns left of engineer work or of an assault crossing") \
    F(Int16, BRIDGING, 0, HIGH16, EVERYWHERE, "bridges", "bridge sections carried") \
    F(Int16, MOPP, 0, 4, EVERYWHERE, "level", "protective posture") \
    F(Int16, MOBILITY, 0, 10, EVERYWHERE, "", "0 foot, 1 wheeled, 2 tracked, 3 aviation, 10 takes no step") \
    F(Int16, FIREMISSION, 0, HIGH16, EVERYWHERE, "missions", "fire missions planned for this unit") \
    F(Int16, FIREMISSIONN, 0, HIGH16, EVERYWHERE, "missions", "missions fired this turn; of attack aviation the ammunition used") \
    F(Int16, FIREMISSIONT, LOW16, HIGH16, EVERYWHERE, "", "stored only") \
    F(Int16, VISIBLE, -1, 1, EVERYWHERE, "", "-1 shown to both sides, 1 drawn on the viewer's map") \
    F(Int16, MOVESTATUS, 0, 11, EVERYWHERE, "", "movement posture: 0 stationary, 1 halted, 2 moving, 5, 6 retreat, 7.. in the air") \
    F(float, FOOTPRINT, 0, ANY_REAL, EVERYWHERE, "pixels", "diameter of the ground that the unit covers") \
    F(Int16, UDENSITY, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, TACOPN, -1, 12, EVERYWHERE, "", "tactical operation: 0 offense, 1 hasty defense, 3 security, 4 withdrawal, 11 deliberate") \
    F(Int16, PARENT_UNIT, 0, 600, EVERYWHERE, "unit", "unit that this one is attached to") \
    F(Int16, HIGHERHQ, 0, 600, EVERYWHERE, "unit", "headquarters") \
    F(Int16, LOGSTATO, LOW16, HIGH16, EVERYWHERE, "percent", "supply level at the start of the game") \
    F(Int16, LOGSTATN, 0, HIGH16, EVERYWHERE, "percent", "supply level now") \
    F(Int16, LOGUNIT, 0, 600, EVERYWHERE, "unit", "supplier") \
    F(float, RSF, -ANY_REAL, ANY_REAL, EVERYWHERE, "supply", "full supply load") \
    F(float, LSF, -ANY_REAL, ANY_REAL, EVERYWHERE, "supply", "full stock of a logistics unit, load of a convoy at departure") \
    F(Int16, ADATYPE, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, CHEMWPN, LOW16, HIGH16, EVERYWHERE, "", "1 when the unit has chemical munitions") \
    F(Int16, TERTYPE, 0, 31, EVERYWHERE, "terrain", "terrain value of the cell under the unit") \
    F(Int16, TARGET, LOW16, HIGH16, EVERYWHERE, "unit", "stored and shown only") \
    F(Int16, SUPPRESSED, 0, HIGH16, EVERYWHERE, "", "0 none .. 4 very high; a loss may leave it higher") \
    F(Int16, C2, -1, 3, EVERYWHERE, "", "command state: 3 good .. 0 bad, -1 bad and jammed") \
    F(Int16, C2D, 0, HIGH16, EVERYWHERE, "km", "distance to the headquarters") \
    F(float, RCP3, 0, ANY_REAL, EVERYWHERE, "RCP points", "RCP2 at the start of the turn") \
    F(float, LSF2, -ANY_REAL, ANY_REAL, EVERYWHERE, "supply", "stock held, load of a convoy") \
    F(float, RSF2, -ANY_REAL, ANY_REAL, EVERYWHERE, "supply", "supply held") \
    F(Int16, LOGD, 0, HIGH16, EVERYWHERE, "km", "distance to the supplier") \
    F(Int16, FATIGUE, 0, HIGH16, EVERYWHERE, "", "0 rested, 2 OK, 16 tired, 22 and above exhausted") \
    F(Int16, SUPPLYT, LOW16, HIGH16, EVERYWHERE, "", "stored only") \
    F(Int16, CONVOYD, 0, 600, EVERYWHERE, "unit", "the convoy's customer") \
    F(Int16, TIMERM, 0, HIGH16, EVERYWHERE, "turns or slices", "turns left of a deliberate defence; of aviation the slices flown") \
    F(Int16, LX, LOW16, HIGH16, EVERYWHERE, "pixels", "left end of the screen line") \
    F(Int16, LY, LOW16, HIGH16, EVERYWHERE, "pixels", "left end of the screen line") \
    F(Int16, RX, LOW16, HIGH16, EVERYWHERE, "pixels", "right end of the screen line") \
    F(Int16, RY, LOW16, HIGH16, EVERYWHERE, "pixels", "right end of the screen line") \
    F(Int16, WPN, 0, HIGH16, EVERYWHERE, "row", "row of the weapons table") \
    F(Int16, HPTL1, 0, 12, EVERYWHERE, "class", "first high-payoff target class") \
    F(Int16, HPTL2, 0, 12, EVERYWHERE, "class", "second high-payoff target class") \
    F(Int16, FSP, 0, 3, EVERYWHERE, "", "fire support task: 0 close support, 1 counterfire, 2 SEAD, 3 opportunity fire") \
    F(Int16, CARRIER, 0, 600, EVERYWHERE, "unit", "lift unit that carries or awaits this one") \
    F(Int16, LOAD, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, MAXLOAD, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, WGHT, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, PASSENGER, 0, 600, EVERYWHERE, "unit", "unit aboard or awaited") \
    F(Int16, PZ, 0, 600, EVERYWHERE, "MN row", "pick-up zone") \
    F(Int16, LZ, 0, 600, EVERYWHERE, "MN row", "landing zone; station of a hovering aircraft") \
    F(Int16, OFFMAP, LOW16, HIGH16, EVERYWHERE, "", "not 0 while the unit is off the map awaiting arrival") \
    F(Int16, UBTYPE, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, UCONTROL, LOW16, HIGH16, EVERYWHERE, "", "1: controlled unit") \
    F(Int16, SENSORT, 0, 3, EVERYWHERE, "", "sensor: 0 optical, 1 thermal, 2 radar, 3 ELINT/EA") \
    F(Int16, SENSORS, 0, 1, EVERYWHERE, "", "sensor switch") \
    F(Int16, SENSORA, 0, 1, EVERYWHERE, "", "0 collection, 1 attack") \
    F(Int16, C2T, 0, HIGH16, EVERYWHERE, "", "message and sensor traffic of this turn") \
    F(Int16, SMOKE, 0, 1, EVERYWHERE, "", "smoke generator switch") \
    F(Int16, OBSCURED, 0, 1, EVERYWHERE, "", "1 inside smoke") \
    F(Int16, EWSTATUS, 0, 10, EVERYWHERE, "", "0 clean, 1, 2 located by ELINT, 5 fading, 10 jammed") \
    F(Int16, ATIME, LOW16, HIGH16, EVERYWHERE, "turn", "game turn of arrival on the map") \
    F(Int16, POPS, 0, 1, EVERYWHERE, "", "psychological operations switch") \
    F(Int16, OBJ, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, HVTTYPE, 0, 12, EVERYWHERE, "class", "high-value target class of the computer opponent") \
    F(Int16, OX1, LOW16, HIGH16, EVERYWHERE, "pixels", "first destination") \
    F(Int16, OY1, LOW16, HIGH16, EVERYWHERE, "pixels", "first destination") \
    F(Int16, OX2, LOW16, HIGH16, EVERYWHERE, "pixels", "second destination") \
    F(Int16, OY2, LOW16, HIGH16, EVERYWHERE, "pixels", "second destination") \
    F(Int16, ARX, LOW16, HIGH16, EVERYWHERE, "pixels", "point of arrival") \
    F(Int16, ARY, LOW16, HIGH16, EVERYWHERE, "pixels", "point of arrival") \
    F(Int16, TACFORM, LOW16, HIGH16, EVERYWHERE, "", "stored and shown only") \
    F(Int16, AIACTION, 0, 5, EVERYWHERE, "", "computer opponent: 0 none, 1 retreat, 2 security, 3 defend, 4 reserve, 5 attack") \
    F(Int16, BREACH, 0, 1, EVERYWHERE, "", "1 while the unit stands on an obstacle") \
    F(Int16, CFZ, 0, 1, EVERYWHERE, "", "1 when the player designated the unit as a critical friendly zone") \
    F(Int16, BCOP, 0, 1, EVERYWHERE, "", "1 on Blue's common operational picture") \
    F(Int16, RCOP, 0, 1, EVERYWHERE, "", "1 on Red's common operational picture") \
    F(Int16, NAI, 0, 400, EVERYWHERE, "P row", "linked NAI") \
    F(Int16, TAI, LOW16, HIGH16, EVERYWHERE, "P row", "stored and shown only") \
    F(Int16, SEADP, LOW16, HIGH16, EVERYWHERE, "", "flag and count only") \
    F(Int16, WSRO, 0, 600, EVERYWHERE, "unit", "unit to merge into") \
    F(Int16, RETREATP, LOW16, HIGH16, EVERYWHERE, "index", "greatest loss before a retreat, 0..7, else as 0") \
    F(Int16, RETREATS, 0, 1, EVERYWHERE, "", "1 when a plotted route is the retreat route") \
    F(Int16, DISTANCE_TO_END, LOW16, HIGH16, READ | HASH, "cells", "cells left to the end of the route; computed") \
    F(Int16, ROE, 0, 1, HASH, "", "0 engage, 1 hold") \
    F(Int16, HPTVALUE, LOW16, HIGH16, HASH, "", "computer opponent's score of this unit as a target") \
    F(Int16, TGTLINK, LOW16, HIGH16, HASH, "", "computer opponent's target link") \
    F(Int16, FREEHUNT, 0, 1, HASH, "", "helicopters' search flag") \
    F(Int16, HQPOWER, LOW16, HIGH16, HASH, "", "computer opponent's sum for a headquarters") \
    F(float, TURNLOSS, 0, ANY_REAL, HASH, "RCP points", "direct fire loss collected this turn")

#define P_FIELDS(F) \
    F(Int16, PTYPE, 0, HIGH16, EVERYWHERE, "", "12 NAI, 13 TAI, 17 SEAD target, 18 call-for-fire zone, others drawn lines") \
    F(Int16, PSIDE, 0, 3, EVERYWHERE, "side", "owner") \
    F(Int16, PLINE, LOW16, HIGH16, EVERYWHERE, "", "line style") \
    F(Int16, PX1, LOW16, HIGH16, EVERYWHERE, "pixels", "first end") \
    F(Int16, PY1, LOW16, HIGH16, EVERYWHERE, "pixels", "first end") \
    F(Int16, PX2, LOW16, HIGH16, EVERYWHERE, "pixels", "second end") \
    F(Int16, PY2, LOW16, HIGH16, EVERYWHERE, "pixels", "second end") \
    F(float, PCOLOR, -ANY_REAL, ANY_REAL, EVERYWHERE, "colour", "colour, red + 256 green + 65536 blue") \
    F(Text<15>, PTEXT, 0, 0, EVERYWHERE, "", "label") \
    F(Text<15>, PIMAGE, 0, 0, EVERYWHERE, "", "icon name") \
    F(Int16, PAGE, LOW16, HIGH16, EVERYWHERE, "turns", "turns since placed") \
    F(Int16, LINKEDGRAPHIC, LOW16, HIGH16, EVERYWHERE, "P row", "linked graphic") \
    F(Int16, LINKEDUNIT, LOW16, HIGH16, EVERYWHERE, "unit", "linked unit")

#define TX_FIELDS(F) \
    F(Int16, TXTYPE, LOW16, HIGH16, EVERYWHERE, "", "1 when used") \
    F(Int16, TXSIDE, 0, 3, EVERYWHERE, "side", "owner; above 0 when used") \
    F(Int16, TXX1, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, TXY1, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Text<15>, TXTEXT, 0, 0, EVERYWHERE, "", "text") \
    F(Int16, TXWIDTH, LOW16, HIGH16, EVERYWHERE, "pixels", "width")

#define MN_FIELDS(F) \
    F(Int16, MNUNIT, 0, 600, EVERYWHERE, "unit", "owner, 0 for a free row") \
    F(Int16, MNUNITNUMBER, 0, 300, EVERYWHERE, "", "place on the route, 1 is the next node to reach") \
    F(Int16, MNSIDE, 0, 2, EVERYWHERE, "side", "side of the owner") \
    F(Int16, MNX, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, MNY, LOW16, HIGH16, EVERYWHERE, "pixels", "position")

#define TG_FIELDS(F) \
    F(Int16, TGX, LOW16, HIGH16, EVERYWHERE, "pixels", "aim point") \
    F(Int16, TGY, LOW16, HIGH16, EVERYWHERE, "pixels", "aim point") \
    F(Int16, FUNIT, 0, 600, EVERYWHERE, "unit", "firing unit") \
    F(std::int32_t, TGHEX, 0, 150000, EVERYWHERE, "cell", "cell of the aim point") \
    F(Int16, TGHPT, 0, 12, EVERYWHERE, "class", "target class, 11 bridge, 12 FASCAM") \
    F(Int16, TGSIDE, 0, 2, EVERYWHERE, "side", "side that fires") \
    F(Int16, TGTYPE, 0, HIGH16, EVERYWHERE, "", "1, 5, 11, 21 guns, 3 bombers, 4 air strike, 150 demolition, 151 obstacle; above 0 when used") \
    F(Int16, TGDEPTH, LOW16, HIGH16, EVERYWHERE, "", "depth") \
    F(Int16, TGTOT, LOW16, HIGH16, EVERYWHERE, "turn", "turn that fires, or 1000 + P row of the linked TAI") \
    F(Int16, TGPTIME, LOW16, HIGH16, EVERYWHERE, "turn", "stored only") \
    F(Int16, TGNSORTIES, LOW16, HIGH16, EVERYWHERE, "sorties", "sorties") \
    F(Int16, TGRAPHIC, 0, 400, EVERYWHERE, "P row", "linked TAI")

#define BG_FIELDS(F) \
    F(std::int32_t, BGHEX, 0, 150000, EVERYWHERE, "cell", "cell; above 0 when used") \
    F(Int16, BGX, LOW16, HIGH16, EVERYWHERE, "pixels", "upper left corner of the cell") \
    F(Int16, BGY, LOW16, HIGH16, EVERYWHERE, "pixels", "upper left corner of the cell") \
    F(Int16, BGSIDE, 0, 3, EVERYWHERE, "side", "1 Blue, 2 Red, 3 the map") \
    F(Int16, BGVISIBLE, 0, 1, EVERYWHERE, "", "1 once the other side knows of it") \
    F(Int16, BGORDER, LOW16, HIGH16, EVERYWHERE, "", "stored only") \
    F(Int16, BGSTIME, LOW16, HIGH16, EVERYWHERE, "turn", "turn of laying") \
    F(Int16, BGTYPE, 0, 9, EVERYWHERE, "", "5 blown bridge, 7 bridge, 8 obstacle, 9 fortification")

#define NBC_FIELDS(F) \
    F(std::int32_t, NBCHEX, 0, 150000, EVERYWHERE, "cell", "cell of the centre") \
    F(Int16, NBCX, LOW16, HIGH16, EVERYWHERE, "pixels", "centre") \
    F(Int16, NBCY, LOW16, HIGH16, EVERYWHERE, "pixels", "centre") \
    F(Int16, NBCSIDE, 0, 3, EVERYWHERE, "side", "side that made it") \
    F(Int16, NBCVISIBLE, 0, 1, EVERYWHERE, "", "1 once seen") \
    F(Int16, NBCORDER, LOW16, HIGH16, EVERYWHERE, "", "generation, 1 and one more at each drift") \
    F(Int16, NBCSTIME, LOW16, HIGH16, EVERYWHERE, "turn", "turn on which the row ends") \
    F(Int16, NBCSIZE, 0, HIGH16, EVERYWHERE, "pixels", "width") \
    F(Int16, NBCTYPE, 0, 21, EVERYWHERE, "", "11 non-persistent, 20 smoke, 21 persistent; above 0 when used")

#define OBJ_FIELDS(F) \
    F(Int16, OTYPE, 0, 3, EVERYWHERE, "", "1 objective, 2 key terrain, 3 corridor; above 0 when used") \
    F(Int16, OX, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, OY, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, OSIDE, 0, 3, EVERYWHERE, "side", "kept for its editor; no rule reads it") \
    F(Int16, OID, LOW16, HIGH16, EVERYWHERE, "", "possessor: 0 none, 1 Blue, 2 Red") \
    F(Int16, OVALUE, LOW16, HIGH16, EVERYWHERE, "points", "value, 100..500 from its editor")

#define AAR_FIELDS(F) \
    F(float, BRCP, -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue combat power of the turn") \
    F(float, RRCP, -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red combat power of the turn") \
    F(Text<4>, TTIME, 0, 0, EVERYWHERE, "", "day of the turn")

#define PP_FIELDS(F) \
    F(Int16, PPTYPE, 0, 50, EVERYWHERE, "", "event kind; above 0 when used") \
    F(Text<40>, PPATYPE, 0, 0, EVERYWHERE, "", "label of the kind") \
    F(Text<40>, PPIMAGE, 0, 0, EVERYWHERE, "", "icon file under the events folder") \
    F(Int16, PPX, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, PPY, LOW16, HIGH16, EVERYWHERE, "pixels", "position") \
    F(Int16, PPEFFECT, 0, 3, EVERYWHERE, "", "0 none, 1 direct fire, 2 indirect fire, 3 mine or bomb") \
    F(Int16, PPSIDE, 0, 3, EVERYWHERE, "side", "1 Blue, 2 Red, 3 neutral, by the kind") \
    F(Int16, PPPROBE, 0, 3, EVERYWHERE, "", "file of the event: 0 none, 1 audio, 2 picture, 3 video") \
    F(Text<60>, PPPFILE, 0, 0, EVERYWHERE, "", "its name, under the events folder") \
    F(Int16, PPPROLE, LOW16, HIGH16, EVERYWHERE, "", "stored only") \
    F(Int16, PPTRIGGER, LOW16, HIGH16, EVERYWHERE, "", "1 immediate, 2 any unit, 3 logistics unit, 4 combat unit; others never fire") \
    F(Text<20>, PPATRIGGER, 0, 0, EVERYWHERE, "", "label of the trigger") \
    F(Int16, PPDURATION, 0, 100, EVERYWHERE, "percent", "attrition") \
    F(Text<700>, PPMSG, 0, 0, EVERYWHERE, "", "message") \
    F(Int16, PPTOT, LOW16, HIGH16, EVERYWHERE, "turn", "stored only") \
    F(Int16, PPACTIVE, 0, 1, EVERYWHERE, "", "1 once the event has happened") \
    F(Int16, PPVISIBLE, 0, 1, EVERYWHERE, "", "1 once its icon is shown to Blue") \
    F(Int16, PPOBSTACLE, 0, 2, EVERYWHERE, "", "movement: 0 no effect, 1 slow, 2 stop")

#define WPN_FIELDS(F) \
    F(Text<20>, WPN, 0, 0, READ | HASH, "", "row name, shown as the unit type") \
    F(Text<12>, NATION, 0, 0, READ | HASH, "", "nation") \
    F(Text<40>, IMAGE, 0, 0, READ | HASH, "", "Blue icon file") \
    F(Text<40>, RIMAGE, 0, 0, READ | HASH, "", "Red icon file") \
    F(Int16, RANGE, 0, HIGH16, READ | HASH, "km", "greatest weapon range") \
    F(Int16, MRANGE, 0, HIGH16, READ | HASH, "km", "least weapon range") \
    F(float, RCP, 0, ANY_REAL, READ | HASH, "RCP points", "base combat power") \
    F(Int16, SIDE, 0, 3, READ | HASH, "side", "side") \
    F(Int16, SIZE, 0, 6, READ | HASH, "echelon", "echelon") \
    F(Int16, TYPE, 0, 50, READ | HASH, "role", "role") \
    F(Int16, SENSORT, 0, 3, READ | HASH, "", "sensor") \
    F(Int16, MOBILITY, 0, 10, READ | HASH, "", "mobility") \
    F(Int16, IMAGETYPE, LOW16, HIGH16, READ | HASH, "", "Blue icon kind") \
    F(Int16, RIMAGETYPE, LOW16, HIGH16, READ | HASH, "", "Red icon kind")

#define HEXMAP_FIELDS(F) \
    F(Int16, TVALUE, 0, 31, HASH, "terrain", "terrain value, obstacle + 11, fortification + 21") \
    F(Text<15>, TNAME, 0, 0, NOWHERE, "", "terrain name as shown") \
    F(Int16, THIGH, LOW16, HIGH16, HASH, "", "above 0: high ground that screens line of sight") \
    F(Int16, TCONTAM, LOW16, HIGH16, HASH, "", "contamination flag")

#define SITREPLIST_FIELDS(F) \
    F(Int16, UNIT, 0, 600, NOWHERE, "unit", "unit whose place it is posted at, or 0") \
    F(Text<150>, TEXT, 0, 0, NOWHERE, "", "location and message") \
    F(Int16, X, LOW16, HIGH16, NOWHERE, "pixels", "place") \
    F(Int16, Y, LOW16, HIGH16, NOWHERE, "pixels", "place") \
    F(Int16, SIDE, 0, 3, NOWHERE, "side", "audience") \
    F(Int16, USED, 0, 1, NOWHERE, "", "1 when filled")

#define PLAYERS_FIELDS(F) \
    F(Text<20>, NAME, 0, 0, NOWHERE, "", "player") \
    F(Int16, STATUS, 0, 7, NOWHERE, "", "0 free, 4 waiting, 5 playing") \
    F(Int16, SIDE, 0, 3, NOWHERE, "side", "side held")
// clang-format on

#define SM_MEMBER(type, name, low, high, carriers, unit, meaning) type name{};
#define SM_DESCRIBE(type, name, low, high, carriers, unit, meaning)                                             \
    FIELD{#name, Kind_Of<type>(), static_cast<int>(offsetof(Record, name)), Width_Of<type>(), low, high, carriers, \
          unit, meaning},
#define SM_RECORD(NAME)                                                                                         \
    struct NAME##_RECORD {                                                                                      \
        NAME##_FIELDS(SM_MEMBER)                                                                                \
    };                                                                                                          \
    namespace detail {                                                                                          \
    inline constexpr auto NAME##_LIST = [] {                                                                    \
        using Record = NAME##_RECORD;                                                                           \
        return std::to_array<FIELD>({NAME##_FIELDS(SM_DESCRIBE)});                                              \
    }();                                                                                                        \
    }                                                                                                           \
    constexpr std::span<const FIELD> Fields_Of(const NAME##_RECORD*) { return detail::NAME##_LIST; }

SM_RECORD(UNIT)
SM_RECORD(P)
SM_RECORD(TX)
SM_RECORD(MN)
SM_RECORD(TG)
SM_RECORD(BG)
SM_RECORD(NBC)
SM_RECORD(OBJ)
SM_RECORD(AAR)
SM_RECORD(PP)
SM_RECORD(WPN)
SM_RECORD(HEXMAP)
SM_RECORD(SITREPLIST)
SM_RECORD(PLAYERS)

/// Fields of a record type, in the order of the game file.
template <class Record>
constexpr std::span<const FIELD> Fields()
{
    return Fields_Of(static_cast<const Record*>(nullptr));
}

}   // namespace sm

#pragma once
// The scalars of the game, in the order of the game file: HEADER_SCALARS at its head, TACAIR_SCALARS at its end,
// MODEL_SCALARS in no file.
//
//   F(type, NAME, key in the file, low, high, carriers, unit of measure, meaning)

#include "core/fields.h"

#include <array>
#include <span>

namespace sm {

// clang-format off
#define HEADER_SCALARS(F) \
    F(Free_Text, GAMEAUTHOR, "GAMEAUTHOR", 0, 0, EVERYWHERE, "", "author's name") \
    F(Free_Text, GAMEVERSION, "GAMEVERSION", 0, 0, EVERYWHERE, "", "version label of the file") \
    F(Free_Text, GAMEFILE, "GAMEFILE", 0, 0, EVERYWHERE, "", "scenario file name") \
    F(Int16, BSCALE, "BSCALE", LOW16, HIGH16, EVERYWHERE, "", "battlefield scale code, read by no rule") \
    F(Int16, SCENARION, "SCENARION", LOW16, HIGH16, EVERYWHERE, "", "stock map 1..6, 0 user-created") \
    F(Int16, SCENARIOT, "SCENARIOT", LOW16, HIGH16, EVERYWHERE, "", "scenario type: 0 Red attack, 1 Blue attack") \
    F(Free_Text, MAPFILE, "MAPFILE", 0, 0, EVERYWHERE, "", "map picture") \
    F(float, MAPSCALE, "MAPSCALE", 0, ANY_REAL, EVERYWHERE, "pixels per km", "map scale") \
    F(Int16, HEXWIDTH, "HEXWIDTH", 0, HIGH16, EVERYWHERE, "pixels", "cell edge") \
    F(float, NUMROWS, "NUMROWS", 0, ANY_REAL, EVERYWHERE, "cells", "grid rows") \
    F(float, NUMCOLS, "NUMCOLS", 0, ANY_REAL, EVERYWHERE, "cells", "grid columns") \
    F(Free_Text, TERRAIN_FILE, "TERRAIN FILE", 0, 0, EVERYWHERE, "", "terrain file") \
    F(Int16, WINDD, "WINDD", LOW16, HIGH16, EVERYWHERE, "45 degrees", "wind direction, 0 from the north") \
    F(Int16, WINDS, "WINDS", LOW16, HIGH16, EVERYWHERE, "", "wind speed, shown only") \
    F(Int16, VSTATUS, "VSTATUS", LOW16, HIGH16, EVERYWHERE, "", "victory status") \
    F(Int16, BLUEVP, "BLUEVP", LOW16, HIGH16, EVERYWHERE, "points", "Blue victory points") \
    F(Int16, REDVP, "REDVP", LOW16, HIGH16, EVERYWHERE, "points", "Red victory points") \
    F(Int16, RBMAX, "RBMAX", LOW16, HIGH16, EVERYWHERE, "bridges", "Red mobile bridges, cap") \
    F(Int16, BBMAX, "BBMAX", LOW16, HIGH16, EVERYWHERE, "bridges", "Blue mobile bridges, cap") \
    F(Int16, RBNOW, "RBNOW", LOW16, HIGH16, EVERYWHERE, "bridges", "Red mobile bridges, used") \
    F(Int16, BBNOW, "BBNOW", LOW16, HIGH16, EVERYWHERE, "bridges", "Blue mobile bridges, used") \
    F(Int16, AIRSUPER, "AIRSUPER", LOW16, HIGH16, EVERYWHERE, "percent", "Blue air superiority") \
    F(Free_Text, INITIATIVE, "INITIATIVE", 0, 0, EVERYWHERE, "", "side with the initiative") \
    F(Int16, MAXGTURN, "MAXGTURN", LOW16, HIGH16, EVERYWHERE, "turn", "last game turn") \
    F(Int16, GTURN, "GTURN", LOW16, HIGH16, EVERYWHERE, "turn", "current game turn, -1 while no game is loaded") \
    F(Free_Text, GTIME, "GTIME", 0, 0, EVERYWHERE, "clock", "clock, four digits") \
    F(Free_Text, GDAY, "GDAY", 0, 0, EVERYWHERE, "day", "day of month") \
    F(Free_Text, GMONTH, "GMONTH", 0, 0, EVERYWHERE, "month", "month name, Jan..Dec") \
    F(Int16, DDAY, "DDAY", LOW16, HIGH16, EVERYWHERE, "days", "days since the start") \
    F(Int16, BMNT, "BMNT", LOW16, HIGH16, EVERYWHERE, "clock", "dawn") \
    F(Int16, EENT, "EENT", LOW16, HIGH16, EVERYWHERE, "clock", "dusk") \
    F(Free_Text, TIME_OF_DAY, "TIME_OF_DAY", 0, 0, EVERYWHERE, "", "Day or Night") \
    F(Int16, NBCSTATUS, "NBCSTATUS", LOW16, HIGH16, EVERYWHERE, "", "NBC release state") \
    F(float, ULLAT, "ULLAT", -ANY_REAL, ANY_REAL, EVERYWHERE, "degrees", "latitude of the upper left corner") \
    F(float, ULLONG, "ULLONG", -ANY_REAL, ANY_REAL, EVERYWHERE, "degrees", "longitude of the upper left corner") \
    F(float, DLATY, "DLATY", -ANY_REAL, ANY_REAL, EVERYWHERE, "degrees per pixel", "latitude step down the picture") \
    F(float, DLONGX, "DLONGX", -ANY_REAL, ANY_REAL, EVERYWHERE, "degrees per pixel", "longitude step across the picture") \
    F(Int16, BFIREF, "BFIREF", LOW16, HIGH16, EVERYWHERE, "percent", "Blue counterfire target acquisition") \
    F(Int16, RFIREF, "RFIREF", LOW16, HIGH16, EVERYWHERE, "percent", "Red counterfire target acquisition") \
    F(float, BRCP1, "BRCP1", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue combat power at the start") \
    F(float, BRCP2, "BRCP2", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue combat power of ineffective units") \
    F(float, BMANL, "BMANL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue losses to manoeuvre") \
    F(float, BARTYL, "BARTYL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue losses to artillery") \
    F(float, BAIRL, "BAIRL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue losses to air attack") \
    F(float, BADAL, "BADAL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue losses to air defence") \
    F(float, BNBCL, "BNBCL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Blue losses to NBC") \
    F(float, RRCP1, "RRCP1", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red combat power at the start") \
    F(float, RRCP2, "RRCP2", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red combat power of ineffective units") \
    F(float, RMANL, "RMANL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red losses to manoeuvre") \
    F(float, RARTYL, "RARTYL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red losses to artillery") \
    F(float, RAIRL, "RAIRL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red losses to air attack") \
    F(float, RADAL, "RADAL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red losses to air defence") \
    F(float, RNBCL, "RNBCL", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "Red losses to NBC") \
    F(float, BEPW, "BEPW", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "prisoners taken from Blue") \
    F(float, REPW, "REPW", -ANY_REAL, ANY_REAL, EVERYWHERE, "RCP points", "prisoners taken from Red") \
    F(Int16, LOGPLAYR, "LOGPLAYR", LOW16, HIGH16, EVERYWHERE, "", "Red logistics: 0 automatic, other manual") \
    F(Int16, LOGPLAYB, "LOGPLAYB", LOW16, HIGH16, EVERYWHERE, "", "Blue logistics: 0 automatic, other manual") \
    F(Int16, INTELPLAY, "INTELPLAY", LOW16, HIGH16, EVERYWHERE, "", "0: NAI and TAI are played") \
    F(Int16, TERRAINE, "TERRAINE", LOW16, HIGH16, EVERYWHERE, "", "terrain edit state") \
    F(Int16, BNAI, "BNAI", LOW16, HIGH16, EVERYWHERE, "NAI", "Blue NAI used") \
    F(Int16, RNAI, "RNAI", LOW16, HIGH16, EVERYWHERE, "NAI", "Red NAI used") \
    F(Int16, BNAIMAX, "BNAIMAX", LOW16, HIGH16, EVERYWHERE, "NAI", "Blue NAI, cap") \
    F(Int16, RNAIMAX, "RNAIMAX", LOW16, HIGH16, EVERYWHERE, "NAI", "Red NAI, cap") \
    F(Int16, BFOBJ, "BFOBJ", LOW16, HIGH16, EVERYWHERE, "", "Blue force objective: 0 force, 1 terrain, 2 withdrawal") \
    F(Int16, RFOBJ, "RFOBJ", LOW16, HIGH16, EVERYWHERE, "", "Red force objective: 0 force, 1 terrain, 2 withdrawal") \
    F(Int16, BTAI, "BTAI", LOW16, HIGH16, EVERYWHERE, "TAI", "Blue TAI used") \
    F(Int16, RTAI, "RTAI", LOW16, HIGH16, EVERYWHERE, "TAI", "Red TAI used") \
    F(Int16, BTAIMAX, "BTAIMAX", LOW16, HIGH16, EVERYWHERE, "TAI", "Blue TAI, cap") \
    F(Int16, RTAIMAX, "RTAIMAX", LOW16, HIGH16, EVERYWHERE, "TAI", "Red TAI, cap") \
    F(Int16, BOBST, "BOBST", LOW16, HIGH16, EVERYWHERE, "obstacles", "Blue obstacles used") \
    F(Int16, BOBSTMAX, "BOBSTMAX", LOW16, HIGH16, EVERYWHERE, "obstacles", "Blue obstacles, cap") \
    F(Int16, BFORTS, "BFORTS", LOW16, HIGH16, EVERYWHERE, "fortifications", "Blue fortifications used") \
    F(Int16, BFORTSMAX, "BFORTSMAX", LOW16, HIGH16, EVERYWHERE, "fortifications", "Blue fortifications, cap") \
    F(Int16, ROBST, "ROBST", LOW16, HIGH16, EVERYWHERE, "obstacles", "Red obstacles used") \
    F(Int16, ROBSTMAX, "ROBSTMAX", LOW16, HIGH16, EVERYWHERE, "obstacles", "Red obstacles, cap") \
    F(Int16, RFORTS, "RFORTS", LOW16, HIGH16, EVERYWHERE, "fortifications", "Red fortifications used") \
    F(Int16, RFORTSMAX, "RFORTSMAX", LOW16, HIGH16, EVERYWHERE, "fortifications", "Red fortifications, cap") \
    F(Int16, RCHMAX, "RCHMAX", LOW16, HIGH16, EVERYWHERE, "strikes", "Red chemical strikes, cap") \
    F(Int16, BCHMAX, "BCHMAX", LOW16, HIGH16, EVERYWHERE, "strikes", "Blue chemical strikes, cap") \
    F(Int16, RCHNOW, "RCHNOW", LOW16, HIGH16, EVERYWHERE, "strikes", "Red chemical strikes used") \
    F(Int16, BCHNOW, "BCHNOW", LOW16, HIGH16, EVERYWHERE, "strikes", "Blue chemical strikes used") \
    F(Free_Text, RMFILE, "RMFILE", 0, 0, EVERYWHERE, "", "Red order file") \
    F(Free_Text, BMFILE, "BMFILE", 0, 0, EVERYWHERE, "", "Blue order file") \
    F(Int16, RSEED, "RSEED", 0, 100, EVERYWHERE, "", "dice position") \
    F(Int16, BLOCSIDE, "BLOCSIDE", LOW16, HIGH16, EVERYWHERE, "", "map side of Blue's line of communication, shown only") \
    F(Int16, RLOCSIDE, "RLOCSIDE", LOW16, HIGH16, EVERYWHERE, "", "map side of Red's line of communication, shown only") \
    F(Int16, PBMT, "PBMT", LOW16, HIGH16, EVERYWHERE, "", "play-by-e-mail exchange count") \
    F(Int16, MRLOSS, "MRLOSS", LOW16, HIGH16, EVERYWHERE, "percent", "Red maximum allowable losses") \
    F(Int16, MBLOSS, "MBLOSS", LOW16, HIGH16, EVERYWHERE, "percent", "Blue maximum allowable losses") \
    F(Int16, BCFZ, "BCFZ", LOW16, HIGH16, EVERYWHERE, "zones", "Blue call-for-fire zones used") \
    F(Int16, RCFZ, "RCFZ", LOW16, HIGH16, EVERYWHERE, "zones", "Red call-for-fire zones used") \
    F(Int16, BCFZMAX, "BCFZMAX", LOW16, HIGH16, EVERYWHERE, "zones", "Blue call-for-fire zones, cap") \
    F(Int16, RCFZMAX, "RCFZMAX", LOW16, HIGH16, EVERYWHERE, "zones", "Red call-for-fire zones, cap") \
    F(Int16, BCFFZ, "BCFFZ", LOW16, HIGH16, EVERYWHERE, "zones", "Blue CFFZ used") \
    F(Int16, RCFFZ, "RCFFZ", LOW16, HIGH16, EVERYWHERE, "zones", "Red CFFZ used") \
    F(Int16, BCFFZMAX, "BCFFZMAX", LOW16, HIGH16, EVERYWHERE, "zones", "Blue CFFZ, cap") \
    F(Int16, RCFFZMAX, "RCFFZMAX", LOW16, HIGH16, EVERYWHERE, "zones", "Red CFFZ, cap") \
    F(Int16, BSEAD, "BSEAD", LOW16, HIGH16, EVERYWHERE, "targets", "Blue SEAD targets used") \
    F(Int16, RSEAD, "RSEAD", LOW16, HIGH16, EVERYWHERE, "targets", "Red SEAD targets used") \
    F(Int16, BSEADMAX, "BSEADMAX", LOW16, HIGH16, EVERYWHERE, "targets", "Blue SEAD targets, cap") \
    F(Int16, RSEADMAX, "RSEADMAX", LOW16, HIGH16, EVERYWHERE, "targets", "Red SEAD targets, cap") \
    F(Int16, AARN, "AARN", LOW16, HIGH16, IN_FILE, "", "number of the last turn tape of this seat") \
    F(Int16, NAIAR, "NAIAR", LOW16, HIGH16, EVERYWHERE, "", "reserved, read by no rule") \
    F(Int16, BAIAB, "BAIAB", LOW16, HIGH16, EVERYWHERE, "", "reserved, read by no rule")

#define TACAIR_SCALARS(F) \
    F(Int16, BTOTAL, "BTOTAL", LOW16, HIGH16, EVERYWHERE, "sorties", "Blue air strikes left today") \
    F(Int16, OTOTAL, "OTOTAL", LOW16, HIGH16, EVERYWHERE, "sorties", "Red air strikes left today") \
    F(Int16, ABCAS, "ABCAS", LOW16, HIGH16, EVERYWHERE, "sorties", "Blue daily air strikes") \
    F(Int16, AOCAS, "AOCAS", LOW16, HIGH16, EVERYWHERE, "sorties", "Red daily air strikes") \
    F(Int16, BTOTAL2, "BTOTAL2", LOW16, HIGH16, EVERYWHERE, "sorties", "Blue bomber sorties left") \
    F(Int16, OTOTAL2, "OTOTAL2", LOW16, HIGH16, EVERYWHERE, "sorties", "Red bomber sorties left") \
    F(Int16, ABCAS2, "ABCAS2", LOW16, HIGH16, EVERYWHERE, "sorties", "Blue second pool, never granted") \
    F(Int16, AOCAS2, "AOCAS2", LOW16, HIGH16, EVERYWHERE, "sorties", "Red second pool, never granted") \
    F(Int16, BBOMBERS, "BBOMBERS", LOW16, HIGH16, EVERYWHERE, "", "Blue bombers: 1 high survivability, other default") \
    F(Int16, RBOMBERS, "RBOMBERS", LOW16, HIGH16, EVERYWHERE, "", "Red bombers: 1 high survivability, other default")

#define MODEL_SCALARS(F) \
    F(std::int32_t, HEXCOUNT, "HEXCOUNT", 0, 150000, HASH, "cells", "cells of the grid") \
    F(Int16, TurnLength, "TurnLength", 0, 2, HASH, "", "0 two hours, 1 one hour, 2 fifteen minutes") \
    F(Int16, ELINTDetail, "ELINTDetail", 0, 1, HASH, "", "0 simple, 1 detailed ELINT play") \
    F(Int16, GameOver, "GameOver", -1, 0, HASH, "", "-1 once GTURN has reached MAXGTURN") \
    F(float, BRCP3, "BRCP3", -ANY_REAL, ANY_REAL, HASH, "RCP points", "Blue combat power now") \
    F(float, RRCP3, "RRCP3", -ANY_REAL, ANY_REAL, HASH, "RCP points", "Red combat power now") \
    F(Int16, FireMult, "FireMult", 0, 4, HASH, "", "fire power multiplier of the artillery routine under way, 0 none") \
    F(Int16, StrikeDisrupted, "StrikeDisrupted", 0, HIGH16, HASH, "", "air defence units that disrupted the air mission under way") \
    F(Int16, GameType, "GameType", 0, 9, NOWHERE, "", "kind of game; differs between the seats of one game") \
    F(Int16, PlayType, "PlayType", 0, 34, NOWHERE, "", "GameType of the turn that is played; 34: the computer on both sides") \
    F(Int16, NetRole, "NetRole", 0, 2, NOWHERE, "", "0 none, 1 host, 2 client") \
    F(Int16, NetLog, "NetLog", 0, 1, NOWHERE, "", "network logging switch") \
    F(Int16, GameLoaded, "GameLoaded", -1, 0, NOWHERE, "", "-1 once a game is loaded") \
    F(Int16, AARPlaying, "AARPlaying", -1, 0, NOWHERE, "", "-1 during tape playback") \
    F(std::int32_t, CrossingHex, "CrossingHex", 0, 150000, NOWHERE, "cell", "cell whose overlay is being removed") \
    F(Int16, SitrepCount, "SitrepCount", 0, 299, NOWHERE, "row", "last row used in SITREPLIST") \
    F(Int16, TurnsPlayed, "TurnsPlayed", 0, HIGH16, NOWHERE, "turns", "turns played since start-up") \
    F(Int16, PlayerCount, "PlayerCount", 0, 15, NOWHERE, "players", "clients of the network session") \
    F(Int16, CurUnit, "CurUnit", LOW16, HIGH16, NOWHERE, "unit", "unit that a called text or chain refers to") \
    F(Int16, CurUnit2, "CurUnit2", LOW16, HIGH16, NOWHERE, "unit", "second unit of the same") \
    F(Int16, CurGraphic, "CurGraphic", LOW16, HIGH16, NOWHERE, "P row", "graphic of the same") \
    F(Int16, CurTarget, "CurTarget", LOW16, HIGH16, NOWHERE, "TG row", "target of the same") \
    F(Int16, DiceSite, "DiceSite", 0, 35, NOWHERE, "", "rule that asked for the last roll") \
    F(Int16, FirerUnit, "FirerUnit", 0, 600, NOWHERE, "unit", "unit that fired last, for the drawing")
// clang-format on

#define SM_SCALAR_MEMBER(type, name, key, low, high, carriers, unit, meaning) type name{};
#define SM_SCALAR_DESCRIBE(type, name, key, low, high, carriers, unit, meaning)                                 \
    FIELD{key, Kind_Of<type>(), static_cast<int>(offsetof(Record, name)), Width_Of<type>(), low, high, carriers, unit, \
          meaning},
#define SM_SCALARS(NAME)                                                                                        \
    struct NAME {                                                                                               \
        NAME##_SCALARS(SM_SCALAR_MEMBER)                                                                        \
    };                                                                                                          \
    namespace detail {                                                                                          \
    inline constexpr auto NAME##_SCALAR_LIST = [] {                                                             \
        using Record = NAME;                                                                                    \
        return std::to_array<FIELD>({NAME##_SCALARS(SM_SCALAR_DESCRIBE)});                                      \
    }();                                                                                                        \
    }                                                                                                           \
    constexpr std::span<const FIELD> Fields_Of(const NAME*) { return detail::NAME##_SCALAR_LIST; }

SM_SCALARS(HEADER)
SM_SCALARS(TACAIR)
SM_SCALARS(MODEL)

}   // namespace sm

#pragma once
// The game: every table and every scalar of the model, in one object. Nothing of one seat's screen is in it (seat.h).

#include "core/records.h"
#include "core/scalars.h"

#include <algorithm>
#include <vector>

namespace sm {

inline constexpr int MAX_UNIT = 600, SIDE_UNITS = 300;
inline constexpr int MAX_MN = 600, MAX_P = 400, MAX_TX = 100, MAX_TG = 200, MAX_BG = 300, MAX_NBC = 50, MAX_OBJ = 50;
inline constexpr int MAX_AAR = 50, MAX_PP = 20, MAX_HEX = 150000, MAX_SITREP = 300, MAX_PLAYER = 15;
inline constexpr int MAX_WPN = 32767;

inline constexpr int BLUE = 1, RED = 2, BOTH = 3;

struct UNIT_NAME { static constexpr const char* VALUE = "UNIT"; };
struct MN_NAME { static constexpr const char* VALUE = "MN"; };
struct P_NAME { static constexpr const char* VALUE = "P"; };
struct TX_NAME { static constexpr const char* VALUE = "TX"; };
struct TG_NAME { static constexpr const char* VALUE = "TG"; };
struct BG_NAME { static constexpr const char* VALUE = "BG"; };
struct NBC_NAME { static constexpr const char* VALUE = "NBC"; };
struct OBJ_NAME { static constexpr const char* VALUE = "OBJ"; };
struct AAR_NAME { static constexpr const char* VALUE = "AAR"; };
struct PP_NAME { static constexpr const char* VALUE = "PP"; };
struct WPN_NAME { static constexpr const char* VALUE = "WPN"; };
struct HEXMAP_NAME { static constexpr const char* VALUE = "HEXMAP"; };
struct SITREPLIST_NAME { static constexpr const char* VALUE = "SITREPLIST"; };
struct PLAYERS_NAME { static constexpr const char* VALUE = "PLAYERS"; };

/// A fixed table, indexed from 1. An index outside it is a range failure, never a wrapped access.
template <class Record_, int SIZE_, class Name>
struct Table {
    using Record = Record_;
    static constexpr int SIZE = SIZE_;
    static constexpr const char* NAME = Name::VALUE;

    Record& operator[](int i)
    {
        if (i < 1 || i > SIZE) Fail_Range(i, 1, SIZE, NAME);
        return ROW[i - 1];
    }
    const Record& operator[](int i) const
    {
        if (i < 1 || i > SIZE) Fail_Range(i, 1, SIZE, NAME);
        return ROW[i - 1];
    }
    void Erase()
    {
        for (Record& r : ROW) r = Record{};
    }

    Record ROW[SIZE];
};

/// The grid: 150,000 cells at most, and most maps have far fewer. A copy carries the rows that the map has; no rule reads
/// one beyond them.
struct Hexmap_Table : Table<HEXMAP_RECORD, MAX_HEX, HEXMAP_NAME> {
    int FILLED = MAX_HEX;   ///< rows that the map has; all of them until a map is prepared

    Hexmap_Table() = default;
    Hexmap_Table(const Hexmap_Table& other) : Hexmap_Table() { *this = other; }
    Hexmap_Table& operator=(const Hexmap_Table& other)
    {
        if (this != &other) std::copy(other.ROW, other.ROW + other.FILLED, ROW);
        FILLED = other.FILLED;
        return *this;
    }
};

/// The catalogue of unit types: grows to the size of the weapons file.
struct Wpn_Table {
    static constexpr const char* NAME = WPN_NAME::VALUE;
    int Count() const { return static_cast<int>(ROW.size()); }
    WPN_RECORD& operator[](int i)
    {
        if (i < 1 || i > Count()) Fail_Range(i, 1, Count(), NAME);
        return ROW[i - 1];
    }
    const WPN_RECORD& operator[](int i) const
    {
        if (i < 1 || i > Count()) Fail_Range(i, 1, Count(), NAME);
        return ROW[i - 1];
    }
    std::vector<WPN_RECORD> ROW;
};

struct Game : HEADER, TACAIR, MODEL {
    Table<UNIT_RECORD, MAX_UNIT, UNIT_NAME> UNIT;
    Table<P_RECORD, MAX_P, P_NAME> P;
    Table<TX_RECORD, MAX_TX, TX_NAME> TX;
    Table<MN_RECORD, MAX_MN, MN_NAME> MN;
    Table<TG_RECORD, MAX_TG, TG_NAME> TG;
    Table<BG_RECORD, MAX_BG, BG_NAME> BG;
    Table<NBC_RECORD, MAX_NBC, NBC_NAME> NBC;
    Table<OBJ_RECORD, MAX_OBJ, OBJ_NAME> OBJ;
    Table<AAR_RECORD, MAX_AAR, AAR_NAME> AAR;
    Table<PP_RECORD, MAX_PP, PP_NAME> PP;
    Hexmap_Table HEXMAP;
    Table<SITREPLIST_RECORD, MAX_SITREP, SITREPLIST_NAME> SITREPLIST;
    Table<PLAYERS_RECORD, MAX_PLAYER, PLAYERS_NAME> PLAYERS;
    Wpn_Table WPN;
};

/// The game in play. It can be copied, put back and compared as a whole.
extern Game GAME;

// clang-format off
inline constexpr auto& UNIT = GAME.UNIT;
inline constexpr auto& P = GAME.P;
inline constexpr auto& TX = GAME.TX;
inline constexpr auto& MN = GAME.MN;
inline constexpr auto& TG = GAME.TG;
inline constexpr auto& BG = GAME.BG;
inline constexpr auto& NBC = GAME.NBC;
inline constexpr auto& OBJ = GAME.OBJ;
inline constexpr auto& AAR = GAME.AAR;
inline constexpr auto& PP = GAME.PP;
inline constexpr auto& HEXMAP = GAME.HEXMAP;
inline constexpr auto& SITREPLIST = GAME.SITREPLIST;
inline constexpr auto& PLAYERS = GAME.PLAYERS;
inline constexpr auto& WPN = GAME.WPN;
#define SM_SCALAR_NAME(type, name, key, low, high, carriers, unit, meaning) inline constexpr type& name = GAME.name;
HEADER_SCALARS(SM_SCALAR_NAME)
TACAIR_SCALARS(SM_SCALAR_NAME)
MODEL_SCALARS(SM_SCALAR_NAME)
#undef SM_SCALAR_NAME
// clang-format on

/// Erases the tables that a load or a new scenario clears: all but the weapons table, the players and the grid.
void Erase_Tables();

/// A record is used when its type field is above 0.
inline bool Used(const UNIT_RECORD& r) { return r.STATUS > 0; }
inline bool Used(const P_RECORD& r) { return r.PTYPE > 0; }
inline bool Used(const TX_RECORD& r) { return r.TXSIDE > 0; }
inline bool Used(const MN_RECORD& r) { return r.MNUNIT > 0; }
inline bool Used(const TG_RECORD& r) { return r.TGTYPE > 0; }
inline bool Used(const BG_RECORD& r) { return r.BGHEX > 0; }
inline bool Used(const NBC_RECORD& r) { return r.NBCTYPE > 0; }
inline bool Used(const OBJ_RECORD& r) { return r.OTYPE > 0; }
inline bool Used(const PP_RECORD& r) { return r.PPTYPE > 0; }

/// First free row of first..last, 0 when all are used.
template <class T>
int Free_Row(const T& table, int first, int last)
{
    for (int i = first; i <= last; ++i)
        if (!Used(table[i])) return i;
    return 0;
}
/// First free unit row of a side (1..300 Blue, 301..600 Red), 0 when all are used.
int Free_Unit_Row(int side);
/// Used rows of first..last.
template <class T>
int Count_Used(const T& table, int first, int last)
{
    int n = 0;
    for (int i = first; i <= last; ++i) n += Used(table[i]) ? 1 : 0;
    return n;
}

/// Calls visit(name, record, fields) for every record that belongs to the model's hash and to `diff`, in a fixed
/// order: header, tables in file order with UNIT first, air tasking, model scalars, weapons, grid (1..HEXCOUNT).
/// `name` is "UNIT[17]" or "" for scalars.
struct Record_View {
    const char* TABLE;   ///< "" for scalars
    int ROW;             ///< 0 for scalars
    const void* RECORD;
    std::span<const FIELD> FIELDS;
};
template <class Visit>
void Visit_Game(const Game& game, Visit&& visit)
{
    visit(Record_View{"", 0, static_cast<const HEADER*>(&game), Fields_Of(static_cast<const HEADER*>(nullptr))});
    const auto table = [&](const auto& t, int count) {
        using Record = typename std::remove_cvref_t<decltype(t)>::Record;
        for (int i = 0; i < count; ++i) visit(Record_View{t.NAME, i + 1, &t.ROW[i], Fields<Record>()});
    };
    table(game.UNIT, MAX_UNIT);
    table(game.P, MAX_P);
    table(game.TX, MAX_TX);
    table(game.MN, MAX_MN);
    table(game.TG, MAX_TG);
    table(game.BG, MAX_BG);
    table(game.NBC, MAX_NBC);
    table(game.OBJ, MAX_OBJ);
    table(game.AAR, MAX_AAR);
    table(game.PP, MAX_PP);
    visit(Record_View{"", 0, static_cast<const TACAIR*>(&game), Fields_Of(static_cast<const TACAIR*>(nullptr))});
    visit(Record_View{"", 0, static_cast<const MODEL*>(&game), Fields_Of(static_cast<const MODEL*>(nullptr))});
    for (int i = 0; i < game.WPN.Count(); ++i)
        visit(Record_View{"WPN", i + 1, &game.WPN.ROW[i], Fields<WPN_RECORD>()});
    table(game.HEXMAP, game.HEXCOUNT);
}

}   // namespace sm

#pragma once
// Missions, areas and dice for the tests of fires.

#include "core/game_state.h"
#include "support/board.h"
#include "support/dice.h"
#include "terrain/grid.h"

#include <gtest/gtest.h>

namespace sm::test {

/// Rolls made since the last Roll_Next or setting of RSEED to `from`.
inline int Rolls_Since(int from) { return RSEED - from; }

/// Open ground with a bridge at (95, 45).
inline Board Ground_With_Bridge()
{
    const std::string_view open = "....................";
    return Board({open, open, open, open, ".........=..........", open});
}

/// A target row of this turn in the half of `side`.
inline int Place_Mission(int side, int type, int x, int y, int firer = 0, int target_class = 0, int sorties = 0)
{
    const int row = side == BLUE ? Free_Row(TG, 1, 100) : Free_Row(TG, 101, MAX_TG);
    TG[row] = TG_RECORD{};
    TG[row].TGSIDE = side;
    TG[row].TGTYPE = type;
    TG[row].TGX = x;
    TG[row].TGY = y;
    TG[row].TGHEX = Hex_Number(x, y);
    TG[row].TGTOT = GTURN;
    TG[row].FUNIT = firer;
    TG[row].TGHPT = target_class;
    TG[row].TGNSORTIES = sorties;
    if (firer > 0) UNIT[firer].FIREMISSION += 1;
    return row;
}

/// An active graphic: 12 NAI, 13 TAI, 17 SEAD target, 18 call-for-fire zone.
inline int Place_Area(int side, int type, int x, int y)
{
    const int row = side == BLUE ? Free_Row(P, 1, 200) : Free_Row(P, 201, MAX_P);
    P[row] = P_RECORD{};
    P[row].PTYPE = type;
    P[row].PSIDE = side;
    P[row].PX1 = x;
    P[row].PY1 = y;
    P[row].PAGE = 2;
    return row;
}

/// A battery that reaches 20 km.
inline int Place_Battery(Board& board, int side, int x, int y, int role = 0, int type = 8, float rcp = 20.0f)
{
    const int battery = board.Place(side, x, y, type, rcp);
    UNIT[battery].MXRANGE = 20;
    UNIT[battery].FSP = role;
    return battery;
}

inline int Place_In_The_Air(Board& board, int side, int x, int y, int type, float rcp = 10.0f)
{
    const int flyer = board.Place(side, x, y, type, rcp);
    UNIT[flyer].MOBILITY = 3;
    UNIT[flyer].MOVESTATUS = 9;
    UNIT[flyer].MOVEPOINTS = UNIT[flyer].MOVEPOINTS2 = 400;
    return flyer;
}

}   // namespace sm::test

#include "core/game_state.h"

namespace sm {

Game GAME;

void Erase_Tables()
{
    UNIT.Erase();
    P.Erase();
    TX.Erase();
    MN.Erase();
    TG.Erase();
    BG.Erase();
    NBC.Erase();
    OBJ.Erase();
    AAR.Erase();
    PP.Erase();
    SITREPLIST.Erase();
    SitrepCount = 0;
}

int Free_Unit_Row(int side)
{
    return side == RED ? Free_Row(UNIT, SIDE_UNITS + 1, MAX_UNIT) : Free_Row(UNIT, 1, SIDE_UNITS);
}

}   // namespace sm

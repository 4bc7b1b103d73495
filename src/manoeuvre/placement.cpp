#include "manoeuvre/placement.h"

#include "core/platform.h"
#include "core/shared.h"

namespace sm {

namespace {

void Turn_To(int unit, int facing)
{
    UNIT[unit].FACING = facing;
    if (UNIT[unit].TACOPN == 3) Set_Screen(unit);
    Screen().Unit_Changed(unit);
}

}   // namespace

void Put_Unit(int unit, int x, int y)
{
    UNIT_RECORD& u = UNIT[unit];
    u.OX1 = u.OY1 = u.OX2 = u.OY2 = 0;
    u.OFFMAP = 0;
    Place_Unit(unit, x, y);
    Clear_Route(unit);
    if (u.TACOPN == 3) Set_Screen(unit);
}

void Turn_Left(int unit)
{
    const int facing = UNIT[unit].FACING - 45;
    Turn_To(unit, facing < 1 ? facing + 360 : facing);
}

void Turn_Right(int unit)
{
    const int facing = UNIT[unit].FACING + 45;
    Turn_To(unit, facing >= 360 ? facing - 360 : facing);
}

void Wait_Off_Map(int unit, int arrival_x, int arrival_y)
{
    UNIT_RECORD& u = UNIT[unit];
    Place_Off_Picture(unit);
    u.OFFMAP = 1;
    u.ARX = arrival_x;
    u.ARY = arrival_y;
    Clear_Route(unit);
}

}   // namespace sm

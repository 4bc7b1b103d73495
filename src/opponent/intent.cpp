#include "opponent/intent.h"

#include "core/game_state.h"

namespace sm {

namespace {

constexpr int HEADQUARTERS = 18;   // TYPE
constexpr int RESERVE = 4;         // AIACTION

/// The unit itself and, of a headquarters, those that take what it is given.
std::vector<int> Unit_And_Command(int unit)
{
    std::vector<int> units{unit};
    if (UNIT[unit].TYPE != HEADQUARTERS) return units;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].SIDE == UNIT[unit].SIDE && UNIT[u].HIGHERHQ == unit && UNIT[u].STATUS > 1 &&
            UNIT[u].OFFMAP == 0 && UNIT[u].TYPE != HEADQUARTERS)
            units.push_back(u);
    return units;
}

}   // namespace

void Set_Unit_Action(int unit, int action)
{
    for (const int u : Unit_And_Command(unit)) UNIT[u].AIACTION = action;
}

std::vector<int> Objectives_On_Offer(int unit)
{
    std::vector<int> objectives;
    if (UNIT[unit].AIACTION < RESERVE) return objectives;
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1) objectives.push_back(o);
    return objectives;
}

void Set_Unit_Objective(int unit, int objective)
{
    for (const int u : Unit_And_Command(unit)) UNIT[u].OBJ = objective;
}

}   // namespace sm

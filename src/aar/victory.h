#pragma once

#include "core/game_state.h"

namespace sm {

/// Whether a unit is able and near enough to hold or contest an objective.
bool Stands_On(int unit, const OBJ_RECORD& objective);


/// Sums of combat power: of ineffective units (BRCP2, RRCP2) and of all now (BRCP3, RRCP3); at turn 0 also at the
/// start. With `row` the AAR row of the turn (1..50) is written.
void Power_Count(bool row = true);
/// Has the chart of strengths drawn anew.
void AAR_Chart();
/// Possession of objectives, victory points of both sides and the verdict of the turn.
void Victory_Points();

/// Percent of a side's power at the start that is lost; 0 when it had none.
int Loss_Percent(int side);

}   // namespace sm

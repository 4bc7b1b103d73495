#pragma once

namespace sm {

/// The NBC check of the turn: persistent rows end or act.
void NBC_Phase();
/// A strike of the kind of target row `slot` at (x, y).
void Add_Contamination(int slot, int x, int y);
/// Tests all units against one row.
void NBC_Check(int row);
/// Moves and widens one non-persistent row, or removes it.
void NBC_Drift(int row);
void NBC_Loss(int unit, int type);
/// One generator's smoke for the turn.
void Lay_Smoke(int unit);

}   // namespace sm

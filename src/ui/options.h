#pragma once

namespace sm {

/// 0 two hours, 1 one hour, 2 fifteen minutes a turn.
void mnuTurnLength_Click(int length);
void mnuSpeedNormal_Click();
void mnuSpeedFast_Click();
/// 0 simple, 1 detailed ELINT play.
void mnuELINT_Click(int detail);
/// 0 default, 1 Blue, 2 Red, 3 all.
void mnuView_Click(int view);
void cmdSound_Click();
/// Terrain overlay of the map: 0 none, 1, 2.
void cmdSeeT_Click(int kind);
void mnuGameData_Click();

}   // namespace sm

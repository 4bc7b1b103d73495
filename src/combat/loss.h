#pragma once

namespace sm {

/// Takes RCP points off a unit and its attachments; makes it ineffective, suppresses or destroys it. A free row: nothing.
void Apply_Loss(int unit, float loss);
/// Mode 1 can lose a morale level, mode 2 can gain one; `chance` is added to the roll.
void Morale_Test(int unit, int mode, int chance);
/// Mode 1 can lift suppression, mode 2 can add to it.
void Suppression_Test(int unit, int mode, int chance);

}   // namespace sm

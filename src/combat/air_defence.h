#pragma once
#include "core/game_state.h"

namespace sm {

/// 1 when fighters intercept and are not driven off. `unit` is the flyer, 0 for sorties; `side` the flyers' side;
/// `kind` the TGTYPE of the mission. `slot` is the mission's target row, 0 for a flyer.
int Intercept_Check(int unit, int side, int x, int y, int kind, int slot = 0);

/// Air defence around (x, y) against flyers of `side`. `interceptors` 1: it shoots at the fighters instead.
/// Returns 1 when the fighters are driven off.
int ADA_Engage(int sead_first, int interceptors, int side, int x, int y, int kind, int slot);

/// One shot; mode 1 at a strike, 2 at interceptors, 3 at a flying unit.
struct ADA_SHOT {
    bool FIRED = false;
    float POWER = 0;
    int ROLL = 0;
};
ADA_SHOT ADA_Fire(int distance, int ada_unit, int target, int x, int y, int mode, int slot);

/// The lowest attached air defence unit that can fire, of every unit at once: one walk of the table serves all
/// who are asked for their reach.
struct Attached_Air_Defence {
    Attached_Air_Defence();
    /// Reach of a ground unit against flyers, in pixels: that of its attached air defence, else half its
    /// footprint.
    float Reach(int unit) const;
    Int16 UNIT_OF[MAX_UNIT + 1];   ///< by parent, 0 none
};

}   // namespace sm

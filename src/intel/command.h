#pragma once
#include <string>

namespace sm {

/// The C4ISR check of the turn: command states, ground sweeps, psychological operations.
void C4ISR_Check();
/// Command state of a unit from the distance to its headquarters and jamming.
void C2_Check(int unit);
/// One sweep of an active collector.
void IEW_Sweep(int unit);
void Psyops_Attack(int unit);

/// The command line of the status panel, with its QB colours. A unit that is both bad and jammed (C2 -1) has no
/// text.
struct C2_PANEL {
    std::string TEXT;
    int BACKGROUND, FOREGROUND;
};
C2_PANEL C2_Panel(int unit);

}   // namespace sm

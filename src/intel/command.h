#pragma once

namespace sm {

/// The C4ISR check of the turn: command states, ground sweeps, psychological operations.
void C4ISR_Check();
/// Command state of a unit from the distance to its headquarters and jamming.
void C2_Check(int unit);
/// One sweep of an active collector.
void IEW_Sweep(int unit);
void Psyops_Attack(int unit);

}   // namespace sm

#pragma once

namespace sm {

/// The Fires Phase: pre-planned SEAD, guns, air strikes, in the order that the roll gives.
void Fires_Phase();
/// Works through target rows first..last that fire this turn; kind 1 artillery, 2 air and engineer tasks.
void Run_Targets(int kind, int first, int last);
/// Fires the mission of a target row with its battery.
void Fire_Arty(int slot);
/// Loss in RCP points that a battery does to a target, booked by side and reported; the caller applies it.
float Artillery_Attack(int firer, int target, int shots);
/// All SEAD batteries of a side fire at a target.
void Arty_SEAD(int target, int side);
/// Whether a battery that fired is located and answered. Mode 2: `slot` is a TG row; mode 1: it is the target
/// unit.
void Counterfire_Check(int firer, int slot, int mode);
void Counterfire(int target);
void Preplanned_SEAD();

}   // namespace sm

#pragma once

namespace sm {

/// The Logistics Phase: consumption, halts, distances, deliveries.
void Logistics_Phase();
/// Automatic logistics planning of a side.
void Auto_Logistics(int side);
/// A convoy from the customer's supplier with the given load; returns its row, 0 when the side's half is full.
int Build_Convoy(int side, int customer, int load);
/// Weapon-system replacement: units merge into their partners.
void WSRO_Phase();

}   // namespace sm

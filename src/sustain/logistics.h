#pragma once

namespace sm {

/// The Logistics Phase: consumption, halts, distances to suppliers, deliveries.
void Logistics_Phase();
/// Automatic logistics planning of a side.
void Auto_Logistics(int side);

/// A logistics unit that can supply others: TYPE 13 and no convoy.
bool Is_Depot(int unit);
/// Gives a unit without a living supplier one: the first depot on the map (of `side` only, or of any when `side` is 0),
/// else the last line of communication of the unit's own side.
void Find_Supplier(int unit, int side);
/// Whether a unit below 75 percent gets a convoy now: none that can deliver is on its way, the supplier holds stock,
/// turn 2 or later.
bool Convoy_Is_Due(int unit);
/// What the customer lacks, rounded; all that the supplier holds and one more when that is less.
int Convoy_Load(int customer);
/// A convoy from the customer's supplier with the given load; returns its row, 0 when the side's half is full.
int Build_Convoy(int side, int customer, int load);
/// Fills a free row as the convoy of a customer and takes the load from the supplier.
void Fill_Convoy(int row, int side, int customer, int supplier, int load);
/// Points a convoy at its customer, or at the first depot of its side when the customer is gone.
void Aim_Convoy(int convoy);

/// Weapon-system replacement: units within 5 km merge into their partners.
void WSRO_Phase();
/// Every unit of a side gains 2 percent of its base power.
void Regenerate(int side);
/// Every unit of a side that no convoy serves is full again.
void Magic_Resupply(int side);

}   // namespace sm

#pragma once
// Planning of fires, sorties, engineer charges and flights: what the commands and dialogs of the orders palette
// do. Every command answers false, with its words in a box, when it is refused; a client's request changes nothing
// on its own seat.

#include <string>
#include <vector>

namespace sm {

// ---------------------------------------------------------------------------------------------- target rows

/// A row of TG as it is asked for. Places are picture pixels.
struct TARGET_ORDER {
    int X = 0, Y = 0;
    int TYPE = 0;   ///< TGTYPE: 1, 5, 11, 21 guns, 3 bombers, 4 air strike, 150 demolition, 151 obstacle
    int TOT = 0;    ///< turn that fires, or TAI_LINK + row of P
    int HEX = 0;
    int CLASS = 0;   ///< TGHPT 0..12
    int SIDE = 0;
    int SORTIES = 0;
    int FUNIT = 0;
};
inline constexpr int TAI_LINK = 1000;

/// First free target row of the side (1..100 Blue, 101..200 Red), 0 when its half is full. Logged.
int Issue_Target(int side);
/// Fills the row and books what the order costs: a mission of the firing unit, sorties of the side's pool, an
/// obstacle, a chemical round. The same on every seat.
void Assign_Target(int row, const TARGET_ORDER& order);
/// Issues and assigns, and tells the other seats; a client asks the host. False when the side has no row left.
bool Order_Target(const TARGET_ORDER& order);
/// Frees a row on every seat. What it cost is not given back.
void Cancel_Target(int row);

/// "Plot Target" and "Cancel Target" of the palette.
void Begin_Plot_Target();
void Begin_Cancel_Target();

// ---------------------------------------------------------------------------------------------- guns

enum class Ammunition { CONVENTIONAL, CHEMICAL_NP, CHEMICAL_P, FASCAM };
/// TGTYPE of a choice; 0 when the side has none of it left (told in a box).
int Choose_Ammunition(int side, Ammunition choice);
/// Batteries that can take a mission at (x, y), in unit order. A box tells when there are none.
std::vector<int> Offer_Batteries(int side, int x, int y);
/// One mission of an offered battery. `when` is a turn (the coming one at the earliest) or TAI_LINK + row of an
/// own TAI.
bool Plan_Fire_Mission(int battery, int x, int y, int type, int target_class, int when);
/// Fire support role 0..3; 1 to 3 cancel what the battery has planned.
bool Set_Fire_Support(int battery, int role);

/// "Designate/Remove CFZ" and "Designate SEAD Priority".
bool Toggle_CFZ(int unit);
bool Toggle_SEAD_Priority(int unit);

// ---------------------------------------------------------------------------------------------- aircraft

/// Sorties that the side has left; type 4 air strikes, 3 bombers.
int Sorties_Left(int side, int type);
/// False without a word when more sorties are asked for than are left: the form offers no more.
bool Plan_Air_Mission(int side, int x, int y, int type, int target_class, int sorties, int when);

// ---------------------------------------------------------------------------------------------- engineers

/// "Destroy Bridge": asks, and plans the charges on the nearest bridge within 3 kilometres for the coming turn.
bool Plan_Demolition(int unit);
/// "Build Minefield": whether the unit may, then the click that places it within the unit's footprint.
bool Begin_Minefield(int unit);
bool Plan_Minefield(int unit, int x, int y);

// ---------------------------------------------------------------------------------------------- flights

/// Links a helicopter unit to an NAI of its side, where it waits for its target classes; 0 drops link and route.
bool Link_NAI(int unit, int nai);
void Apply_NAI_Link(int unit, int nai);

}   // namespace sm

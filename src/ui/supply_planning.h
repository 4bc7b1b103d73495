#pragma once
#include <string>

namespace sm {

/// What the resupply panel of the unit status report shows.
struct CSS_Panel {
    std::string TITLE;      ///< "Line-Haul Mission" from 33 km, else "Local Haul Mission"
    std::string REQUIRED;   ///< "Required:  12 /30"
    int AVAILABLE = 0;      ///< what the supplier holds, the upper end of the scroll control
};
CSS_Panel Update_CSS(int unit);

/// Whether the unit may ask for supply by hand; tells the refusal.
bool Resupply_Allowed(int unit);
/// Sends a load by hand: a client asks the host; the host builds the convoy and tells the seats. Returns the convoy's row,
/// 0 when none was built.
int Confirm_Resupply(int unit, int load);

/// Flips automatic logistics of the side entering orders.
void cmdAutoS4_Click();
/// Weapon-system replacement of the unit: refuses one too large, cancels an assignment, or answers true: pick the partner.
bool cmdWSRO_Click(int unit);
/// Assigns the partner of a replacement.
void Set_WSRO(int unit, int partner);

/// The controller's gifts to a side, with their announcements.
void mnuRSupply_Click(int side);
void mnuRegenerate_Click(int side);

}   // namespace sm

#pragma once
#include <string>

namespace sm {

/// File under "\icons\" of a unit's standard picture: the side's letter, the stem of the role and the size + 1, so
/// that "bada3.ico" is a Blue air defence battery. Convoys (size 100) are "btrk.ico" and "rtrk.ico", a line of
/// communication (role 50) is "bspt7.ico" or "rspt7.ico". A role outside the list gets the picture of role 0, a
/// size outside 0..6 the nearer end, a side other than 2 Blue's.
std::string Unit_Icon_Name(int side, int type, int size);

}   // namespace sm

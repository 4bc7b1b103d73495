#pragma once
#include <string>

namespace sm {

/// What lies under the pointer, in the words of the status line.
struct Hover_Texts {
    std::string UTM;   ///< "UTM: PC 4276", "UTM: OFF", "UTM: No Data"
    std::string LAT_LONG;
    std::string TERRAIN;
    std::string NBC;     ///< "NBC: Clear"
    std::string LABEL;   ///< of the map object, empty when there is none
};
/// `reach`: how far in picture pixels an object is still under the pointer.
Hover_Texts Hover(int x, int y, int reach);

/// Who holds an objective as far as this screen can tell: 0 nobody, 1, 2, 3 contested by forces of both sides that
/// it shows.
int Objective_Holder(int row);

/// Whether this screen shows a bridge, obstacle or fortification, a contamination, a graphic, a text.
bool Shows_Work(int row);
bool Shows_NBC(int row);
bool Shows_Graphic(int row);
bool Shows_Text(int row);
/// Whether this screen shows a unit's route and its nodes.
bool Shows_Route(int unit);

}   // namespace sm

#pragma once

namespace sm {

/// Steps along the straight line from a unit to a picture point until the first screening cell; 0 when the line is
/// clear. One step is about one cell. Faults are logged and answer "clear".
int Line_Of_Sight(int unit, int x, int y);

}   // namespace sm

#include "terrain/sight.h"

#include "core/platform.h"
#include "core/shared.h"
#include "terrain/grid.h"

namespace sm {

namespace {

int Sight_Fault(const char* line)
{
    Screen().Beep();
    Log(line);
    return 0;
}

}   // namespace

int Line_Of_Sight(int unit, int x, int y)
{
    const UNIT_RECORD& u = UNIT[unit];
    // Column + row - 1, and not the target's cell: the exemption of a high target is read in the map's first
    // column.
    const float columns = static_cast<float>(Int_Div(x, HEXWIDTH)) + NUMROWS;
    const float rows = NUMROWS - static_cast<float>(Int_Div(y, HEXWIDTH)) + 1;
    const int t = Round_Even(columns - rows);
    if (t < 1 || t > HEXCOUNT) return Sight_Fault("LOS Error: Hex number is not valid!");
    if (u.HEXNUM < 1 || u.HEXNUM > HEXCOUNT) return Sight_Fault("LOS Error: Unit hex number is not valid!");
    if (Cell_High(u.HEXNUM) > 0 || Cell_High(t) > 0) return 0;

    int steps = Int_Div(Distance_Truncated(u.X, u.Y, x, y), MAPSCALE);
    if (steps < 1) steps = 1;
    const float step_x = static_cast<float>(x - u.X) / static_cast<float>(steps);
    const float step_y = static_cast<float>(y - u.Y) / static_cast<float>(steps);
    const int width = HEXWIDTH, right = Picture_Width(), bottom = Picture_Height();
    if (width < 1) return 0;
    int px = u.X, py = u.Y;
    for (int k = 1; k <= steps; ++k) {
        // Each sample starts from the rounded one before it, so the last may lie beside or beyond the target.
        px = Round_Even(static_cast<float>(px) + step_x);
        py = Round_Even(static_cast<float>(py) + step_y);
        if (px < 0 || py < 0 || px >= right || py >= bottom) continue;   // off the picture nothing screens
        if (Cell_High(Hex_Of(px / width + 1, py / width + 1)) > 0) return k;
    }
    return 0;
}

}   // namespace sm

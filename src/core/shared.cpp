#include "core/shared.h"

#include "core/near_units.h"
#include "core/platform.h"
#include "core/seat.h"
#include "terrain/coordinates.h"
#include "terrain/grid.h"

#include <cmath>

namespace sm {

double Distance_Exact(int x1, int y1, int x2, int y2)
{
    const double dx = Int16(x2 - x1), dy = Int16(y2 - y1);
    return std::sqrt(dx * dx + dy * dy);
}

int Distance_Between(int x1, int y1, int x2, int y2) { return Round_Even(Distance_Exact(x1, y1, x2, y2)); }

int Distance_Truncated(int x1, int y1, int x2, int y2) { return Truncate(Distance_Exact(x1, y1, x2, y2)); }

int Unit_Distance(int unit, int other) { return Distance_To(unit, UNIT[other].X, UNIT[other].Y); }

int Distance_To(int unit, int x, int y) { return Distance_Between(UNIT[unit].X, UNIT[unit].Y, x, y); }

int Bearing_To(int x1, int y1, int x2, int y2)
{
    const int dx = Int16(x2 - x1);
    const int dy = y2 == y1 ? 1 : static_cast<int>(Int16(y2 - y1));
    const double a = std::fabs(std::atan(static_cast<double>(dx) / dy) * 180 / 3.14159);
    const double degrees = dx >= 0 ? (dy < 0 ? a : 180 - a) : (dy > 0 ? 180 + a : 360 - a);
    const int whole = Floor_Int(degrees);
    return whole < 0 ? 0 : whole > 359 ? 359 : whole;
}

int Aspect_Of_Fire(int facing, int bearing)
{
    struct BAND { int FROM, TO, ASPECT; };
    static constexpr BAND BANDS[] = {
        {0, 60, 1}, {61, 135, 2}, {136, 225, 3}, {226, 300, 2}, {301, 360, 1},
    };
    const int d = facing > bearing ? facing - bearing : bearing - facing;
    for (const BAND& band : BANDS)
        if (d >= band.FROM && d <= band.TO) return band.ASPECT;
    return 0;
}

void Locate_Unit(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    u.ROW = Hex_Row(u.Y);
    u.COL = Hex_Column(u.X);
    u.HEXNUM = Hex_Number(u.X, u.Y);
}

void Place_Unit(int unit, int x, int y)
{
    UNIT_RECORD& u = UNIT[unit];
    u.X = x;
    u.Y = y;
    Note_Place(unit);
    Locate_Unit(unit);
    if (u.HEXNUM > 0) u.TERTYPE = Cell_Value(u.HEXNUM);
    Screen().Unit_Changed(unit);
}

void Place_Off_Picture(int unit)
{
    Place_Unit(unit, -1000, UNIT[unit].SIDE == BLUE ? -1000 : 1000);
}

int Target_Class(int type)
{
    // clang-format off
    static constexpr int CLASS[27] = {
        5,                 // user-defined
        7, 7, 7,           // air defence
        5, 5, 5,           // anti-tank, armour, cavalry
        2, 2, 3, 3,        // cannon; rockets and missiles
        4, 4,              // aviation
        10,                // logistics
        8, 8,              // engineers
        1, 1, 1,           // IEW, headquarters
        6, 5, 5,           // light infantry; mechanised, military police
        8, 5, 9, 6, 1,     // smoke, psyops, reconnaissance, special forces, UAV
    };
    // clang-format on
    return type >= 0 && type <= 26 ? CLASS[type] : 5;
}

namespace {

/// Footprint by echelon: multiple of MAPSCALE, whether strength thins it, floor in multiples of MAPSCALE.
struct FOOTPRINT_ROW { int TIMES; bool BY_STRENGTH; int FLOOR; };
constexpr FOOTPRINT_ROW FOOTPRINT_BY_SIZE[] = {
    // TIMES STRENGTH FLOOR
    {1, false, 1},     // system, squad
    {2, false, 2},     // platoon
    {4, true, 2},      // company
    {8, true, 5},      // battalion
    {15, true, 10},    // brigade
    {25, true, 15},    // division
};

}   // namespace

float Footprint_Of(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (u.STATUS == 0) return u.FOOTPRINT;
    float value = u.FOOTPRINT;
    float floor = 0;
    if (u.TYPE == 18) {
        value = MAPSCALE;
    } else if (u.SIZE >= 0 && u.SIZE <= 5) {
        const FOOTPRINT_ROW& row = FOOTPRINT_BY_SIZE[u.SIZE];
        value = row.TIMES * MAPSCALE;
        if (row.BY_STRENGTH) {
            const float share = u.STRENGTH * 0.01f;
            value = value * share;
        }
        floor = static_cast<float>(Round_Even(row.FLOOR * MAPSCALE));
    }
    if (value < floor) value = floor;
    if (u.TACOPN == 0) value = value / 2;
    if (value < MAPSCALE) value = MAPSCALE;
    if (u.TYPE != 18 && u.SIZE != 100 && HEXWIDTH < 4 && value < 27) value = 27;
    return value;
}

void Set_Footprint(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.STATUS == 0) return;
    u.FOOTPRINT = Footprint_Of(unit);
    Note_Footprint(unit);
    if (u.TACOPN != 3) u.LX = u.LY = u.RX = u.RY = 0;
}

void Set_Screen(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    const float r = u.FOOTPRINT * 0.7f;
    const auto end = [&](int bearing, Int16& x, Int16& y) {
        const double angle = bearing * 3.14159 / 180;
        const float sine = static_cast<float>(std::sin(angle)), cosine = static_cast<float>(std::cos(angle));
        x = u.X + sine * r;
        y = u.Y - cosine * r;
    };
    end(u.FACING - 90, u.LX, u.LY);
    end(u.FACING + 90, u.RX, u.RY);
    Screen().Unit_Changed(unit);
}

void Post_Message(int unit, std::string_view text, int x, int y, int show, int side)
{
    SitrepCount = SitrepCount + 1 >= MAX_SITREP ? 1 : SitrepCount + 1;
    SITREPLIST_RECORD& row = SITREPLIST[SitrepCount];
    row.UNIT = unit;
    row.X = x;
    row.Y = y;
    row.SIDE = side;
    row.USED = 1;
    row.TEXT = Cat("Location: ", Grid_Reference(x, y), " // MSG: ", text);
    Screen().Posted(SitrepCount);
    if (show > 0) {
        // A commander does not read the enemy's reports over the status line; the pause is the same on every seat.
        if (May_Read_Of(side)) Screen().Status(text, Status_Colour::BRIGHT_GREEN);
        Message_Pause();
    }
    if (unit >= 1 && unit <= MAX_UNIT) {
        UNIT[unit].C2T = Saturate_16(UNIT[unit].C2T + 1);
        const int hq = UNIT[unit].HIGHERHQ;
        if (hq >= 1 && hq <= MAX_UNIT && UNIT[hq].STATUS > 0)
            UNIT[hq].C2T = Saturate_16(UNIT[hq].C2T + 1);
    }
    MsgText.clear();
}

void Post_At(int unit, std::string_view text, int show, int side)
{
    Post_Message(unit, text, UNIT[unit].X, UNIT[unit].Y, show, side);
}

void Post_Own(int unit, std::string_view text, int show) { Post_At(unit, text, show, UNIT[unit].SIDE); }

void Clear_Sitrep()
{
    SITREPLIST.Erase();
    SitrepCount = 0;
    Screen().Changed(Redraw::GRAPHICS);
}

void Remove_Unit(int unit)
{
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT == unit) Clear_Node(row);
    for (UNIT_RECORD& carrier : UNIT.ROW)
        if (carrier.PASSENGER == unit) carrier.PASSENGER = 0;   // nobody is awaited any more
    UNIT[unit] = UNIT_RECORD{};
    UNIT[unit].X = 4000;
    UNIT[unit].Y = 4000;
    Note_Place(unit);
    Hide_Picture(unit);
    Screen().Unit_Changed(unit);
}

void Remove_With_Attachments(int unit)
{
    // Each tie is cut before it is followed: what hangs on an attached unit or a passenger goes too, and a ring ends.
    for (int v = 1; v <= MAX_UNIT; ++v) {
        if (v == unit || UNIT[v].STATUS < 1 || UNIT[v].PARENT_UNIT != unit) continue;
        UNIT[v].PARENT_UNIT = 0;
        Remove_With_Attachments(v);
    }
    const int passenger = UNIT[unit].PASSENGER;
    UNIT[unit].PASSENGER = 0;
    if (passenger >= 1 && passenger <= MAX_UNIT && passenger != unit) Remove_With_Attachments(passenger);
    Remove_Unit(unit);
}

void Clear_Route(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    u.NUMBER_OF_NODES = 0;
    u.MOVESTATUS = 0;
    u.DISTANCE_TO_END = 0;
    u.MOVECOST_TO_END = 0;
    u.MOVEX = 0;
    u.MOVEY = 0;
    if (u.MOBILITY == 3) {
        const int k = u.PASSENGER;
        if (k >= 1 && k <= MAX_UNIT && UNIT[k].STATUS > 0 && UNIT[k].X < 0) {
            Place_Unit(k, u.X, u.Y);
            UNIT[k].SUPPRESSED = UNIT[k].SUPPRESSED + 1 > 4 ? 4 : UNIT[k].SUPPRESSED + 1;
        }
        for (int v = 1; v <= MAX_UNIT; ++v)
            if (UNIT[v].CARRIER == unit) UNIT[v].CARRIER = 0;
        u.TIMERM = 0;
        u.SENSORS = 0;
        u.PASSENGER = 0;
        u.PZ = 0;
        u.LZ = 0;
        u.FREEHUNT = 0;
    }
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT == unit) Clear_Node(row);
    Screen().Changed(Redraw::ROUTES);
}

void Clear_Node(int row) { MN[row] = MN_RECORD{}; }

void Delete_Target(int row)
{
    TG_RECORD& t = TG[row];
    switch (t.TGTYPE) {
    case 1: case 5: case 11: case 21: case 150: case 151: case 152:
        if (t.FUNIT >= 1 && t.FUNIT <= MAX_UNIT && UNIT[t.FUNIT].FIREMISSION > 0) UNIT[t.FUNIT].FIREMISSION -= 1;
        break;
    default: break;
    }
    t = TG_RECORD{};
    Screen().Changed(Redraw::GRAPHICS);
}

Int16* Graphic_Count(const P_RECORD& graphic)
{
    if (graphic.PSIDE != BLUE && graphic.PSIDE != RED) return nullptr;
    const bool blue = graphic.PSIDE == BLUE;
    switch (graphic.PTYPE) {
    case 12: return blue ? &BNAI : &RNAI;
    case 13: return blue ? &BTAI : &RTAI;
    case 17: return blue ? &BSEAD : &RSEAD;
    case 18: return blue ? &BCFFZ : &RCFFZ;
    default: return nullptr;
    }
}

void Erase_Graphic(int row)
{
    Int16* count = Graphic_Count(P[row]);
    if (count != nullptr && *count > 0) *count -= 1;
    for (int other = 1; other <= MAX_P; ++other)
        if (other != row && P[other].LINKEDGRAPHIC == row) P[other].LINKEDUNIT = 0;
    P[row] = P_RECORD{};
    Screen().Changed(Redraw::GRAPHICS);
}

void Erase_Text(int row)
{
    TX[row] = TX_RECORD{};
    Screen().Changed(Redraw::GRAPHICS);
}

void Erase_Bridge(int row)
{
    BG[row] = BG_RECORD{};
    Screen().Changed(Redraw::GRAPHICS);
}

void Remove_NBC(int row)
{
    const int hex = NBC[row].NBCHEX;
    if (hex >= 1 && hex <= HEXCOUNT) HEXMAP[hex].TCONTAM = 0;
    NBC[row] = NBC_RECORD{};
    Screen().Changed(Redraw::GRAPHICS);
}

bool Graphic_Active(int row) { return P[row].PAGE > 1 || GTURN == 1; }

bool Inside_TAI(int unit, int side)
{
    for (int g = 1; g <= MAX_P; ++g)
        if (P[g].PTYPE == 13 && P[g].PSIDE == side && Graphic_Active(g) &&
            static_cast<float>(Distance_To(unit, P[g].PX1, P[g].PY1)) < (UNIT[unit].FOOTPRINT + 40) / 2)
            return true;
    return false;
}

Point Work_Centre(int row)
{
    const float half = HEXWIDTH / 2.0f;
    return {Round_Even(BG[row].BGX + half), Round_Even(BG[row].BGY + half)};
}

void Delay(int milliseconds) { Screen().Delay(milliseconds); }

void Message_Pause() { Screen().Delay(Round_Even(MessageDelay)); }

void Progress_Advance(int n)
{
    if (SEAT.ProgressValue + n <= SEAT.ProgressMax)
        SEAT.ProgressValue += n;
    else
        SEAT.ProgressMax += 3 * n;
    Screen().Progress(SEAT.ProgressValue, SEAT.ProgressMax);
}

void Progress_Advance_Steps(int steps)
{
    const int room = SEAT.ProgressMax - SEAT.ProgressValue;
    if (steps <= room) {
        SEAT.ProgressValue += steps;
    } else {
        // At the maximum each fourth step raises it by 3, which the next three fill.
        const int beyond = steps - room, begun = beyond % 4;
        SEAT.ProgressMax += beyond / 4 * 3;
        SEAT.ProgressValue = SEAT.ProgressMax;
        if (begun > 0) {
            SEAT.ProgressMax += 3;
            SEAT.ProgressValue += begun - 1;
        }
    }
    Screen().Progress(SEAT.ProgressValue, SEAT.ProgressMax);
}

void Progress_Finish()
{
    const int step = SEAT.ProgressMax / 10 > 0 ? SEAT.ProgressMax / 10 : 1;
    while (SEAT.ProgressValue < SEAT.ProgressMax) {
        SEAT.ProgressValue = SEAT.ProgressValue + step < SEAT.ProgressMax ? SEAT.ProgressValue + step : SEAT.ProgressMax;
        Screen().Progress(SEAT.ProgressValue, SEAT.ProgressMax);
    }
    Screen().Progress(0, 0);
}

void Progress_Reset()
{
    SEAT.ProgressValue = 0;
    SEAT.ProgressMax = 1600;
    Screen().Progress(0, SEAT.ProgressMax);
}

void Play_Sound(int cue)
{
    SoundCue = cue;
    if (SoundOn == 1 && cue >= 1 && cue <= 16)
        Screen().Sound(cue);
    else if (SoundOn != 1)
        Screen().Beep();
}

}   // namespace sm

#include "manoeuvre/movement.h"

#include "combat/ground_combat.h"
#include "core/near_units.h"
#include "core/platform.h"
#include "core/shared.h"
#include "events/events.h"
#include "manoeuvre/aviation.h"
#include "sustain/nbc.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace sm {

namespace {

constexpr int SLICES[] = {400, 200, 50};   // by TurnLength
constexpr int MOST_SLICES = 400;

/// What happens in a slice.
enum Slice_Work : unsigned {
    FOOT_STEP = 1,
    VEHICLE_STEP = 2,
    CONVOY_STEP = 4,   // beside its steps as a vehicle
    STEPS = FOOT_STEP | VEHICLE_STEP | CONVOY_STEP,
    PAUSE = 8,   // the player sees the step
    DRIFT = 16,
    SENSORS = 32,
    INTERCEPTION = 64,
};

constexpr std::array<unsigned, MOST_SLICES + 1> Slice_Plan()
{
    constexpr int FOOT[] = {62, 132, 198, 264, 330, 396};
    constexpr int CONVOY[] = {30, 60, 90, 120, 150, 180, 210, 280, 310, 340, 376};
    constexpr int DRIFTS[] = {100, 200, 300, 400};
    constexpr int SWEEPS[] = {12,  24,  36,  48,  60,  72,  84,  96,  108, 120, 130, 142, 154, 166, 178, 190, 202,
                              214, 226, 238, 250, 262, 274, 288, 300, 312, 324, 336, 348, 360, 372, 384, 396};
    constexpr int INTERCEPTIONS[] = {25, 50, 100, 150, 200, 250, 300, 350};
    std::array<unsigned, MOST_SLICES + 1> plan{};
    for (const int s : FOOT) plan[static_cast<std::size_t>(s)] |= FOOT_STEP;
    for (std::size_t s = 16; s <= MOST_SLICES; s += 16) plan[s] |= VEHICLE_STEP | PAUSE;
    for (const int s : CONVOY) plan[static_cast<std::size_t>(s)] |= CONVOY_STEP;
    for (const int s : DRIFTS) plan[static_cast<std::size_t>(s)] |= DRIFT;
    for (const int s : SWEEPS) plan[static_cast<std::size_t>(s)] |= SENSORS;
    for (const int s : INTERCEPTIONS) plan[static_cast<std::size_t>(s)] |= INTERCEPTION;
    return plan;
}
constexpr auto PLAN = Slice_Plan();

/// Roles that support when they march out of a defence; the others attack.
bool Supports_On_The_March(int type)
{
    static constexpr int SUPPORT[] = {1, 2, 3, 7, 8, 9, 10, 13, 15, 16, 18, 21, 22, 23, 26};
    return std::find(std::begin(SUPPORT), std::end(SUPPORT), type) != std::end(SUPPORT);
}

void Take_Mission(UNIT_RECORD& u, bool support)
{
    u.TACOPN = support ? 4 : 0;
    u.MISSION = support ? "Support" : "Attack";
}

void Tire(UNIT_RECORD& u, int by) { u.FATIGUE = Saturate_16(u.FATIGUE + by); }

/// What a march costs and changes before anybody moves.
void Start_March(int unit)
{
    UNIT_RECORD& u = UNIT[unit];
    if (u.TYPE == 18 && u.UCONTROL == 1) u.MOVEPOINTS2 = 18;
    if (u.MOVESTATUS == 2 && (u.TACOPN == 1 || u.TACOPN == 11)) {
        Take_Mission(u, Supports_On_The_March(u.TYPE));
        Set_Footprint(unit);
    }
    if (u.MOPP > 2) Tire(u, 3);
    if (u.MOVESTATUS == 1 || u.MOVESTATUS == 2) Tire(u, 3);
    if (u.MOVESTATUS >= 8 && u.MOVESTATUS <= 10) {
        Tire(u, TIME_OF_DAY == "Day" ? 3 : 6);
        if (u.TYPE == 26) u.FATIGUE = 0;
        if (u.TYPE != 11)
            Take_Mission(u, true);
        else if (u.TACOPN != 3)
            Take_Mission(u, false);
    }
}

unsigned Steps_Of(const UNIT_RECORD& u)
{
    if (u.MOBILITY == 0) return FOOT_STEP;
    if (u.MOBILITY != 1 && u.MOBILITY != 2) return 0;
    return u.SIZE == 100 ? VEHICLE_STEP | CONVOY_STEP : VEHICLE_STEP;
}

/// One unit in a slice on which it may step. Returns the number of movers, 0 or 1.
int Step_Slice(int unit, unsigned work)
{
    const UNIT_RECORD& u = UNIT[unit];
    // A screen watches on the common slices only, not on those of convoys.
    if (u.TACOPN == 3 && work != CONVOY_STEP) Engage_Unit(unit, 1);
    int movers = 0;
    if (u.STATUS > 0 && u.MOVESTATUS == 2 && u.MOVEPOINTS2 > 0) {
        Move_Units(unit);
        movers = 1;
    }
    if (u.SIDE == BLUE && u.STATUS > 0) Event_Check(unit, u.X, u.Y);
    return movers;
}

int Ground_Pass(unsigned work)
{
    const Places_Watched watched;
    int movers = 0;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1) continue;
        const unsigned steps = Steps_Of(UNIT[u]) & work;
        if (steps != 0) movers += Step_Slice(u, steps);
    }
    return movers;
}

void Drift_Clouds()
{
    for (int row = 1; row <= MAX_NBC; ++row)
        if (NBC[row].NBCTYPE == 11) NBC_Drift(row);
}

}   // namespace

int Slices_Of_Turn() { return TurnLength >= 0 && TurnLength <= 2 ? SLICES[TurnLength] : SLICES[0]; }

void Movement()
{
    const int slices = Slices_Of_Turn();
    for (int u = 1; u <= MAX_UNIT; ++u) {
        UNIT[u].FREEHUNT = 0;
        if (UNIT[u].STATUS > 0) Start_March(u);
    }
    for (int slice = 1; slice <= slices; ++slice) {
        if (slice % 10 == 0) Progress_Advance_Steps(10);
        const unsigned work = PLAN[static_cast<std::size_t>(slice)];
        int movers = (work & STEPS) != 0 ? Ground_Pass(work & STEPS) : 0;
        movers += Aviation_Pass();
        if ((work & PAUSE) != 0 && movers > 0) Delay(500);
        if ((work & DRIFT) != 0) Drift_Clouds();
        if ((work & SENSORS) != 0) Sensor_Slice();
        if ((work & INTERCEPTION) != 0) Air_Interception_Slice();
    }
}

}   // namespace sm

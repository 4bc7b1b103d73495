#include "ui/unit_status.h"

#include "core/game_state.h"
#include "core/numbers.h"
#include "ui/desk.h"

#include <span>

namespace sm {

namespace {

constexpr const char* SEPARATOR = "   ||| ";

struct CODE_LABEL {
    int CODE;
    const char* LABEL;
};

std::string_view Label_Of(std::span<const CODE_LABEL> labels, int code)
{
    for (const CODE_LABEL& row : labels)
        if (row.CODE == code) return row.LABEL;
    return "";
}

/// The label of the highest step that the value has reached.
struct BAND {
    int FROM;
    const char* LABEL;
};
std::string_view Band_Of(std::span<const BAND> bands, int value)
{
    std::string_view label = bands.front().LABEL;
    for (const BAND& band : bands)
        if (value >= band.FROM) label = band.LABEL;
    return label;
}

constexpr BAND MORALE[] = {{0, "Broken"}, {1, "Poor"}, {2, "Average"}, {3, "High"}, {4, "Very High"}};
constexpr BAND SUPPRESSION[] = {{0, "None"}, {1, "Light"}, {2, "Medium"}, {3, "High"}, {4, "Very High"}};
constexpr BAND FATIGUE_BANDS[] = {{0, "Rested"}, {2, "OK"}, {16, "Tired"}, {22, "Exhausted"}};
constexpr BAND AMMUNITION[] = {{0, "AMMO: 100%"}, {2, "AMMO: 50%"}, {4, "AMMO: 0%"}};
constexpr BAND C2_STATE[] = {{0, "Bad"}, {1, "Poor"}, {2, "Average"}, {3, "Good"}};

constexpr CODE_LABEL POSTURE[] = {
    {0, "POSTURE: Stationary"}, {1, "POSTURE: Temporarily Halted"},
    {2, "POSTURE: Moving"},     {5, "POSTURE: Moving"},
    {6, "POSTURE: Stationary"}, {7, "POSTURE: Landed"},
    {8, "POSTURE: Hovering"},   {9, "POSTURE: Flying"},
    {10, "POSTURE: Aborting"},  {11, "POSTURE: Orbiting"},
};
constexpr CODE_LABEL FIRE_ROLE[] = {{0, "Close Support"}, {1, "Counterfire"}, {2, "SEAD"}};
constexpr CODE_LABEL SENSOR[] = {{0, "Sensor Type: Optical"},
                                 {1, "Sensor Type: Thermal"},
                                 {2, "Sensor Type: Radar"},
                                 {3, "Sensor Type: ELINT/EA"}};

constexpr const char* ROLE[] = {
    "User-Defined",       "ADA (SHORAD)",      "ADA (HIMAD)",
    "ADA (ABM)",          "Anti-tank",         "Armor",
    "Armored Cavalry",    "Artillery (Towed)", "Artillery (SP)",
    "Artillery (Rocket)", "Artillery (SSM)",   "Aviation (Attack)",
    "Aviation (Lift)",    "Logistics",         "Egr (CBT)",
    "Egr (Bridge)",       "IEW (Ground)",      "IEW (Avn)",
    "Headquarters",       "Infantry (Light)",  "Infantry (Mech)",
    "Military Police",    "NBC (Smoke)",       "Psyops",
    "Reconnaissance",     "Special Forces",    "UAV",
};
constexpr const char* SIZE[] = {"System/Squad", "Platoon", "Company", "Battalion", "Brigade", "Division", "Corps"};

bool Artillery(const UNIT_RECORD& u) { return u.TYPE >= 7 && u.TYPE <= 10; }
bool Convoy(const UNIT_RECORD& u) { return u.SIZE == 100; }

/// One decimal at most, as staff tables print it.
std::string Tenths(float value)
{
    const int tenths = Round_Even(value * 10.0f);
    const std::string whole = To_Text(tenths / 10);
    return tenths % 10 == 0 ? whole : Cat(whole, ".", To_Text(tenths % 10));
}

std::string Percent(float value) { return Cat(To_Text(Round_Even(value)), "%"); }

std::string Name_Of(int unit)
{
    return unit >= 1 && unit <= MAX_UNIT && UNIT[unit].STATUS > 0 ? UNIT[unit].NAME.Str() : std::string("None");
}

std::string Strength_Line(const UNIT_RECORD& u)
{
    return Cat("CBT POWER: ", Tenths(u.RCP2), " -- ", Percent(u.STRENGTH),
               u.STATUS < 2 ? " (Combat Ineffective)" : "");
}

std::string Posture_Line(const UNIT_RECORD& u)
{
    if (u.MOVESTATUS == 0 && u.MOBILITY == 3) return "POSTURE: Landed";
    return std::string(Label_Of(POSTURE, u.MOVESTATUS));
}

std::string Terrain_Line(const UNIT_RECORD& u)
{
    if (u.TERTYPE == 0) return "TERRAIN: Unrestricted";
    if (u.TERTYPE == 2) return "TERRAIN: Severely Restricted";
    const std::string cell = u.HEXNUM >= 1 && u.HEXNUM <= HEXCOUNT ? HEXMAP[u.HEXNUM].TNAME.Str() : std::string();
    return Cat("TERRAIN: ", cell.empty() ? std::string("Unrestricted") : cell);
}

void Add_Route(std::vector<std::string>& lines, const UNIT_RECORD& u)
{
    if (u.NUMBER_OF_NODES < 1) return;
    const int kilometres =
        MAPSCALE > 0 ? Round_Even(static_cast<float>(u.DISTANCE_TO_END * HEXWIDTH) / MAPSCALE) : 0;
    lines.push_back(Cat("DISTANCE: ", To_Text(kilometres), " kms"));
    lines.push_back(u.TIME_TO_END == 1 ? "ETA: 1 turn" : Cat("ETA: ", To_Text(u.TIME_TO_END), " turns"));
}

/// The convoy on its way to a unit.
int Convoy_For(int unit)
{
    for (int c = 1; c <= MAX_UNIT; ++c)
        if (UNIT[c].STATUS > 0 && UNIT[c].SIZE == 100 && UNIT[c].CONVOYD == unit) return c;
    return 0;
}

/// The partner that a weapon-system replacement brings here.
int Replacement_For(int unit)
{
    for (int v = 1; v <= MAX_UNIT; ++v)
        if (UNIT[v].STATUS > 0 && UNIT[v].WSRO == unit) return v;
    return 0;
}

void Add_Supply(std::vector<std::string>& lines, int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    if (Convoy(u)) {
        lines.push_back(Cat("Resupplying: ", Name_Of(u.CONVOYD)));
        return;
    }
    lines.push_back(Cat(u.TYPE == 13 ? "LOG SUPPLY: " : "LOGISTICS: ", To_Text(u.LOGSTATN), "%"));
    lines.push_back(Cat("SUPPLY CONVOY: ", Name_Of(Convoy_For(unit))));
}

std::string Replacement_Line(int unit)
{
    if (UNIT[unit].WSRO > 0) return Cat("WSRO: Moving to ", Name_Of(UNIT[unit].WSRO));
    const int coming = Replacement_For(unit);
    return coming > 0 ? Cat("WSRO: Awaiting arrival of ", Name_Of(coming)) : std::string("WSRO: None");
}

}   // namespace

std::string_view Role_Label(int type)
{
    if (type == 50) return "Line of Communication";
    return type >= 0 && type < static_cast<int>(std::size(ROLE)) ? ROLE[type] : ROLE[0];
}

std::string_view Size_Label(int size)
{
    if (size == 100) return "Supply Convoy";
    return size >= 0 && size < static_cast<int>(std::size(SIZE)) ? SIZE[size] : "";
}

std::string C2_Line(int unit)
{
    if (UNIT[unit].C2 < 0) return "";   // jammed beyond Bad
    return Cat("C2 Status: ", Band_Of(C2_STATE, UNIT[unit].C2), " - ", To_Text(UNIT[unit].C2D), " kms");
}

Status_Texts Unit_Status(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    Status_Texts t;
    t.LEFT.push_back(Cat("UNIT: ", u.NAME));
    if (!Sees_Plans_Of(u.SIDE)) {
        t.LEFT.push_back(Posture_Line(u));
        t.RIGHT = {Cat("FACING: ", To_Text(u.FACING), " deg"), Terrain_Line(u)};
        return t;
    }
    t.LEFT.push_back(Cat("MISSION: ", u.MISSION));
    t.LEFT.push_back(Strength_Line(u));
    t.LEFT.push_back(Cat("MORALE: ", Band_Of(MORALE, u.MORALE)));
    Add_Supply(t.LEFT, unit);
    if (Artillery(u) || u.TYPE == 11) t.LEFT.emplace_back(Band_Of(AMMUNITION, u.FIREMISSIONN));
    t.LEFT.push_back(Posture_Line(u));
    Add_Route(t.LEFT, u);
    if (u.OFFMAP != 0 && u.ATIME > GTURN) t.LEFT.push_back(Cat("OFF-MAP: Arrives Game Turn ", To_Text(u.ATIME)));

    t.RIGHT.push_back(Cat("FACING: ", To_Text(u.FACING), " deg"));
    t.RIGHT.push_back(Terrain_Line(u));
    if (std::string line = C2_Line(unit); !line.empty()) t.RIGHT.push_back(std::move(line));
    t.RIGHT.push_back(Cat("SUPPRESSION: ", Band_Of(SUPPRESSION, u.SUPPRESSED)));
    t.RIGHT.push_back(Cat("FATIGUE: ", Band_Of(FATIGUE_BANDS, u.FATIGUE)));
    t.RIGHT.push_back(Cat("MOPP ", To_Text(u.MOPP)));
    if (Artillery(u))
        t.RIGHT.push_back(Cat("FS ROLE: ", Label_Of(FIRE_ROLE, u.FSP).empty() ? "GS Opportunity Fire"
                                                                              : Label_Of(FIRE_ROLE, u.FSP)));
    t.RIGHT.push_back(
        Cat(u.CFZ == 1 ? "CFZ: Yes" : "CFZ: No", SEPARATOR, u.SEADP == 1 ? " SEAD: Yes" : " SEAD: No"));
    t.RIGHT.push_back(Replacement_Line(unit));
    return t;
}

std::vector<std::string> Operating_Lines(int unit)
{
    const UNIT_RECORD& u = UNIT[unit];
    std::vector<std::string> lines;
    // The first hindrance found is the one named.
    lines.emplace_back(u.STATUS < 2       ? "Status: Inoperable (Ineffective)"
                       : u.MORALE < 1     ? "Status: Inoperable (Low Morale)"
                       : u.SUPPRESSED > 2 ? "Status: Inoperable (Suppressed)"
                       : u.LOGSTATN < 1   ? "Status: Inoperable (Low on Supply)"
                                          : "Status: Operational");
    lines.push_back(Cat("RCP: ", Tenths(u.RCP)));
    lines.push_back(Cat("Force Strength: ", Percent(u.STRENGTH)));
    lines.emplace_back(Label_Of(SENSOR, u.SENSORT));
    lines.push_back(Cat("Sensor Range: ", To_Text(u.MXRANGE), " kms"));
    lines.push_back(Cat("Max Range: ", To_Text(u.MXRANGE), " kms"));
    lines.push_back(Cat("Min Range: ", To_Text(u.MINRANGE), " kms"));
    lines.push_back(u.BRIDGING > 0 ? Cat("Bridging: Yes/", To_Text(u.BRIDGING)) : std::string("Bridging: No"));
    lines.push_back(Cat("On-Hand Supplies: ", Tenths(u.TYPE == 13 ? u.LSF2 : u.RSF2)));
    return lines;
}

std::vector<std::string> Unit_Report_Lines(int unit)
{
    const Status_Texts panel = Unit_Status(unit);
    std::vector<std::string> lines = panel.LEFT;
    lines.insert(lines.end(), panel.RIGHT.begin(), panel.RIGHT.end());
    if (!Sees_Plans_Of(UNIT[unit].SIDE)) return lines;
    const std::vector<std::string> operating = Operating_Lines(unit);
    lines.insert(lines.end(), operating.begin(), operating.end());
    return lines;
}

}   // namespace sm

#include "core/session.h"

#include "aar/victory.h"
#include "core/clock.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/sound_cues.h"
#include "net/protocol.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "sustain/reinforcements.h"
#include "terrain/map.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace sm {

namespace {

struct SCREEN_SIZE {
    int WIDTH, HEIGHT;
};
constexpr SCREEN_SIZE ACCEPTED[] = {{1024, 768}, {1152, 864}, {1280, 960}};

// clang-format off
constexpr GAME_TYPE TYPES[GAME_TYPES] = {
    {0, "Two-player Hot-Seat",           0, "Stonemarch -- Two-Player Hotseat"},
    {1, "Blue Player Play by  Email",    0, "Stonemarch -- Blue Player PBEM"},
    {2, "Red Player Play by  Email",     0, "Stonemarch -- Red Player PBEM"},
    {3, "Blue Player vs. Red Computer",  0, "Stonemarch -- Blue Player vs Computer"},
    {4, "Red Player vs. Blue Computer",  0, "Stonemarch -- Red Player vs Computer"},
    {5, "Game Editor",                   0, "Stonemarch -- Game Editor"},
    {6, "Exit Game",                     0, nullptr},
    {7, "Multi-player (Host)",           1, "Stonemarch -- Multi-player -- "},
    {8, "Multi-player (Caller)",         2, "Stonemarch -- Multi-player -- "},
    {9, "Watch AAR Tape",                0, "Stonemarch -- AAR Playback"},
};
// clang-format on

constexpr int USER_SIDE_OF_TYPE[GAME_TYPES] = {3, 1, 2, 1, 2, 5, 3, 3, 3, 3};

/// Twips of one pixel at the standard resolution, for the log only.
constexpr int TWIPS = 15;

/// DISTANCE_TO_END of a unit whose file did not hold it: cells of the current leg not yet made, and of each later leg.
int Cells_To_End(int unit)
{
    std::vector<std::pair<int, int>> nodes;   // place on the route, row
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT == unit) nodes.emplace_back(MN[row].MNUNITNUMBER, row);
    if (nodes.empty() || UNIT[unit].NUMBER_OF_NODES < 1) return 0;
    std::sort(nodes.begin(), nodes.end());
    const auto cells = [](int x1, int y1, int x2, int y2) {
        return std::max(std::abs(Hex_Column(x2) - Hex_Column(x1)), std::abs(Hex_Row(y2) - Hex_Row(y1)));
    };
    int x = UNIT[unit].X1, y = UNIT[unit].Y1, total = -UNIT[unit].NUMBER_OF_MOVES;
    for (const auto& [number, row] : nodes) {
        total += cells(x, y, MN[row].MNX, MN[row].MNY);
        x = MN[row].MNX;
        y = MN[row].MNY;
    }
    return total;
}

void Clear_Totals()
{
    AARPlaying = 0;
    BRCP1 = BRCP2 = RRCP1 = RRCP2 = 0;
    BMANL = BARTYL = BAIRL = BADAL = BNBCL = BEPW = 0;
    RMANL = RARTYL = RAIRL = RADAL = RNBCL = REPW = 0;
}

/// Who plans when a game of this type has just been opened.
void Seat_After_Load()
{
    ViewMode = 0;
    switch (GameType) {
    case 0: case 1: case 3: ActiveSide = PlanSide = 1; break;
    case 2: case 4: ActiveSide = PlanSide = 2; break;
    case 5:
        ActiveSide = PlanSide = 3;
        UserSide = 5;
        break;
    case 8:
        ActiveSide = PlanSide = UserSide = 3;
        BlueDone = RedDone = 0;
        break;
    default: ActiveSide = PlanSide = 3; break;
    }
    SelUnit = 0;
    MapMode = 0;
    Refresh_Pictures();
}

bool Load_Failed()
{
    GameLoaded = 0;
    GTURN = -1;
    ActiveSide = PlanSide = 3;
    Screen().Changed(Redraw::ALL);
    return false;
}

}   // namespace

std::string Build_Version() { return STONEMARCH_BUILD_VERSION; }

bool Screen_Size_Accepted(int width, int height)
{
    return std::any_of(std::begin(ACCEPTED), std::end(ACCEPTED),
                       [&](const SCREEN_SIZE& s) { return s.WIDTH == width && s.HEIGHT == height; });
}

bool Window_Size_For(int desktop_width, int desktop_height, int& width, int& height)
{
    bool found = false;
    for (const SCREEN_SIZE& s : ACCEPTED) {
        if (s.WIDTH > desktop_width || s.HEIGHT > desktop_height) continue;
        width = s.WIDTH;
        height = s.HEIGHT;
        found = true;
    }
    return found;
}

std::string Screen_Refusal()
{
    std::string text = "Stonemarch supports the following screen settings:   \r";
    for (const SCREEN_SIZE& s : ACCEPTED)
        text += Cat("                   ", To_Text(s.WIDTH), " x ", To_Text(s.HEIGHT), "\r");
    return text + "Adjust your screen settings and restart the program.";
}

void Set_Start_Defaults()
{
    GAMEVERSION = VERSION_LABEL;
    BFIREF = RFIREF = 50;
    GTURN = -1;
    GTIME = "0900";
    GDAY = "9";
    GMONTH = "Feb";
    BMNT = 600;
    EENT = 2100;
    WINDD = 1;
    AIRSUPER = 50;
    MAXGTURN = 15;
    BLOCSIDE = 3;
    RLOCSIDE = 1;
    SCENARIOT = 1;
    BFOBJ = RFOBJ = 1;
    AARN = 0;
    PlanSide = ActiveSide = UserSide = 3;
    TurnLength = 0;
    SoundOn = 1;
    MessageDelay = 2000.0f;
    TurnsPlayed = 0;
}

void Start_Up(int screen_width, int screen_height)
{
    Open_Log(Home_Path("SM.log").string());
    Log("          **************** Stonemarch Log File ******************");
    Log("");
    const std::string by = " x ";
    Log(Cat("Screen Size (Twips): ", To_Text(screen_width * TWIPS), by, To_Text(screen_height * TWIPS)));
    Log(Cat("Screen Size (Pixels):", To_Text(screen_width), by, To_Text(screen_height)));
    Log(Cat("Screen Size: ", To_Text(Screen_Size_Accepted(screen_width, screen_height) ? screen_width : 0)));
    Log("Game objects are loaded");
    Set_Start_Defaults();
    Game_File(8);
    Log("Program is loaded");
}

const GAME_TYPE* Game_Type(int number) { return number >= 0 && number < GAME_TYPES ? &TYPES[number] : nullptr; }

const GAME_TYPE& Game_Type_Row(int index)
{
    if (index < 0 || index >= GAME_TYPES) Fail_Range(index, 0, GAME_TYPES - 1, "game types");
    return TYPES[index];
}

bool Choose_Game_Type(int number)
{
    const GAME_TYPE* type = Game_Type(number);
    if (type == nullptr || number == 6) return false;
    GameType = number;
    PlayType = number;
    NetRole = type->ROLE;
    GameLoaded = 0;
    GameOver = 0;
    AARPlaying = 0;
    PBMT = 0;
    ActiveSide = PlanSide = 3;
    UserSide = USER_SIDE_OF_TYPE[number];
    ViewMode = 0;
    BlueDone = RedDone = 0;
    WindowTitle = type->TITLE;
    Screen().Changed(Redraw::ALL);
    return true;
}

bool Load_Game()
{
    Clear_Totals();
    Screen().Phase("Now loading...");
    Show_Status("Now loading game...");
    try {
        if (!Game_File(1) || !After_Load(false)) return Load_Failed();
    } catch (const Game_Error& error) {
        Log(Cat("Error ", To_Text(error.NUMBER), " in loading: ", error.what()));
        Screen().Box("Stonemarch", Cat("Error: ", To_Text(error.NUMBER)));
        return Load_Failed();
    }
    Seat_After_Load();
    GameLoaded = -1;
    GameOver = 0;
    Update_Header();
    Show_Status("");
    Screen().Changed(Redraw::ALL);
    Play_Sound(SOUND_GAME_READY);
    if (GameType == 8) Send_Net_Message(Cat("0\xA6" "0\xA6" "0\xA6" "0\xA6" "0\xA6" "0\xA6", SEAT.PlayerName, "\xA6"));
    return true;
}

bool After_Load(bool tape)
{
    if (GTURN < 0) GTURN = 0;
    if (!Prepare_Map()) return false;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].DISTANCE_TO_END == 0) UNIT[u].DISTANCE_TO_END = Saturate_16(Cells_To_End(u));
    if (tape) return true;
    if (GTURN == 0) Make_LOC_Units();
    Power_Count(false);
    return true;
}

bool Choose_Side(int side)
{
    if ((side != BLUE && side != RED) || SEAT.TurnRunning || GameLoaded == 0) return false;
    if (GameType >= 1 && GameType <= 4 && side != UserSide) return false;
    if ((GameType == 7 || GameType == 8) && (side != UserSide || !SEAT.PlanningEnabled)) return false;
    ActiveSide = side;
    PlanSide = side;
    Refresh_Pictures();
    Screen().Changed(Redraw::ALL);
    return true;
}

}   // namespace sm

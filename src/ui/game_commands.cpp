#include "ui/game_commands.h"

#include "core/game_state.h"
#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "ui/desk.h"
#include "ui/session_mark.h"

#include <filesystem>

namespace sm {

namespace {

constexpr const char* TITLE = "Stonemarch";
constexpr const char* AUTOSAVE = "\\Saved Games\\autosave.btl";

// clang-format off
/// What is built, by number of the game type.
constexpr bool OFFERED[GAME_TYPES] = {
    true,    // 0 Two-player Hot-Seat
    false,   // 1 Blue Player Play by  Email
    false,   // 2 Red Player Play by  Email
    true,    // 3 Blue Player vs. Red Computer
    true,    // 4 Red Player vs. Blue Computer
    false,   // 5 Game Editor
    true,    // 6 Exit Game
    false,   // 7 Multi-player (Host)
    false,   // 8 Multi-player (Caller)
    false,   // 9 Watch AAR Tape
};
// clang-format on

/// What a save would keep, as one number (FNV-1a).
std::uint64_t State_Of_A_Save()
{
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : Game_Text()) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return hash;
}

void Note_Saved() { DESK.SavedState = State_Of_A_Save(); }

/// Before the game in play goes: offers to save it. False when the player stays with it after all.
bool Give_Up_Game()
{
    if (!Unsaved_Changes()) return true;
    switch (The_Window().Ask_To_Save(
        TITLE, "The game has changed since it was last saved.\rDo you want to save it now?")) {
    case Unsaved::SAVE:
        return cmdSavegame_Click();
    case Unsaved::DROP:
        return true;
    case Unsaved::STAY:
        break;
    }
    return false;
}

void Open_By_Dialog(bool new_game)
{
    if (!Give_Up_Game()) return;
    const std::string file = Screen().Ask_File(Open_Request(new_game));
    if (!file.empty()) Open_Game_File(file);
}

/// Nothing selected, no mode, nothing uncovered: what one side saw is not for the next.
void Clear_The_Desk()
{
    SelUnit = 0;
    MapMode = 0;
    DrawMode = 0;
    SEAT.PickedNode = 0;
    DESK.CoveredFor = 0;
    Show_Status("");
}

void Open_Orders(int side)
{
    DESK.PALETTE = Palette::ORDERS;
    DESK.LastSide = side;
    DESK.PLANNED[side] = true;
    Show_Status(Cat(side == BLUE ? "Blue" : "Red", " gives its orders: click a unit, then M plots its route."));
}

void Begin_Planning_Round()
{
    DESK.LastSide = 0;
    DESK.PLANNED[BLUE] = DESK.PLANNED[RED] = false;
}

void Redraw_All()
{
    Screen().Changed(Redraw::ALL);
    The_Window().Desk_Changed();
}

}   // namespace

bool Game_Type_Offered(int number) { return number >= 0 && number < GAME_TYPES && OFFERED[number]; }

void optGameType_Click(int number)
{
    if (!Game_Type_Offered(number) || SEAT.TurnRunning) return;
    if (!Choose_Game_Type(number)) {
        DESK.CLOSED = true;
        The_Window().Close();
        return;
    }
    The_Window().Stop_Sounds();
    Clear_The_Desk();
    Clear_Session_Mark();
    Begin_Planning_Round();
    DESK.PALETTE = Palette::MAIN;
    Redraw_All();
    cmdOpenGame_Click();
}

File_Request Open_Request(bool new_game)
{
    if (GameType == 5)
        return {"Open Scenario", "Scenarios",
                "Scenario Files (*.sce)|*.sce|Saved Game Files (*.btl)|*.btl|PBEM Files (*.pbm)|*.pbm", false};
    if (new_game)
        return {"Open New Game", "Scenarios", "Scenario Files (*.sce)|*.sce|Saved Game Files (*.btl)|*.btl",
                false};
    if (GameType == 1 || GameType == 2)
        return {"Open PBEM File", "Saved Games", "PBEM Files (*.pbm)|*.pbm|", false};
    return {"Open Saved Game", "Saved Games", "Saved Game Files (*.btl)|*.btl", false};
}

File_Request Save_Request()
{
    if (GameType == 5) return {"Save Scenario", "Scenarios", "Scenario Files (*.sce)|*.sce", true};
    if (GameType == 1 || GameType == 2)
        return {"Save PBEM File", "Saved Games", "PBEM Files (*.pbm)|*.pbm|", true};
    return {"Save Game", "Saved Games", "Saved Game Files (*.btl)|*.btl", true};
}

void cmdOpenGame_Click()
{
    bool new_game = false;
    if (TurnsPlayed == 0)
        new_game =
            Screen().Ask(TITLE, "Do you want to start a new game? \rAnswer NO if you want to load a previously "
                                "saved game.");
    Open_By_Dialog(new_game);
}

void mnuNewGame_Click() { Open_By_Dialog(true); }
void mnuOpenSaved_Click() { Open_By_Dialog(false); }

bool Open_Game_File(const std::string& file)
{
    Clear_The_Desk();
    Clear_Session_Mark();
    Begin_Planning_Round();
    DESK.PALETTE = Palette::MAIN;
    GameFileName = file;
    if (!Load_Game()) {
        Show_Status("");
        Redraw_All();
        return false;
    }
    if (ActiveSide == BLUE || ActiveSide == RED) Open_Orders(ActiveSide);
    Note_Saved();
    Redraw_All();
    The_Window().Show_Forces();
    return true;
}

bool cmdSavegame_Click()
{
    const File_Request request = Save_Request();
    std::string file = Screen().Ask_File(request);
    if (file.empty()) return false;
    if (!std::filesystem::path(file).has_extension()) {
        const auto dot = request.FILTER.find('.');
        file += request.FILTER.substr(dot, request.FILTER.find(')') - dot);
    }
    const std::string before = GameFileName;
    GameFileName = file;
    if (!Game_File(2)) {
        GameFileName = before;
        return false;
    }
    Note_Saved();
    return true;
}

bool May_Take_Side(int side)
{
    if ((side != BLUE && side != RED) || SEAT.TurnRunning || GameLoaded == 0 || GameOver == -1) return false;
    if (GameType >= 1 && GameType <= 4) return side == UserSide;
    if (GameType == 7 || GameType == 8) return side == UserSide && SEAT.PlanningEnabled;
    return GameType == 0 || GameType == 5;
}

void cmdSide_Click(int side)
{
    if (!May_Take_Side(side)) return;
    Clear_The_Desk();
    if (GameType == 0 && DESK.LastSide != side) {
        DESK.CoveredFor = side;
        The_Window().Desk_Changed();
        return;
    }
    if (Choose_Side(side)) Open_Orders(side);
    Redraw_All();
}

void cmdUncover_Click()
{
    const int side = DESK.CoveredFor;
    DESK.CoveredFor = 0;
    if (Choose_Side(side)) Open_Orders(side);
    Redraw_All();
}

void cmdStayOut_Click()
{
    DESK.CoveredFor = 0;
    Redraw_All();
}

void cmdHandOver_Click()
{
    const int other = ActiveSide == BLUE ? RED : BLUE;
    cmdEnd_Menu();
    cmdSide_Click(other);
}

void cmdEnd_Menu()
{
    if (SEAT.TurnRunning) return;
    ActiveSide = BOTH;
    if (GameType == 0 || GameType == 5) {
        PlanSide = BOTH;
        BlueDone = RedDone = 0;
    }
    Clear_The_Desk();
    DESK.PALETTE = Palette::MAIN;
    Refresh_Pictures();
    Redraw_All();
}

void cmdReturn_Click()
{
    if (SEAT.TurnRunning) return;
    if (DESK.PALETTE == Palette::ORDERS) {
        cmdEnd_Menu();
        return;
    }
    if (GameLoaded != 0 && !Give_Up_Game()) return;
    GameLoaded = 0;
    GTURN = -1;
    Clear_The_Desk();
    Clear_Session_Mark();
    DESK.PALETTE = Palette::TYPES;
    WindowTitle = TITLE;
    Redraw_All();
}

void cmdGO_Click()
{
    if (SEAT.TurnRunning || GameLoaded == 0) return;
    if (GameType == 0 && DESK.PALETTE == Palette::ORDERS) cmdEnd_Menu();
    Clear_The_Desk();
    DESK.PALETTE = Palette::MAIN;
    Begin_Planning_Round();
    Mark_Turn(GameType);
    The_Window().Desk_Changed();
    Play_Turn();
    The_Window().Desk_Changed();
    if (!DESK.LEAVING) return;
    DESK.CLOSED = true;
    The_Window().Close();
}

void cmdEnd_Click()
{
    if (!May_Leave()) return;
    DESK.CLOSED = true;
    The_Window().Close();
}

bool May_Leave()
{
    if (DESK.CLOSED) return true;
    if (SEAT.TurnRunning) {
        if (!DESK.LEAVING)
            DESK.LEAVING =
                Screen().Ask(TITLE, "Are you sure that you want to quit?\rThe turn that is being played will be "
                                    "lost. The game at its start is kept in autosave.btl.");
        return false;
    }
    return Screen().Ask(TITLE, "Are you sure that you want to quit?") && Give_Up_Game();
}

bool Unsaved_Changes() { return GameLoaded != 0 && State_Of_A_Save() != DESK.SavedState; }

void Offer_Autosave(int game_type)
{
    const std::filesystem::path file = Home_Path(AUTOSAVE);
    std::error_code fault;
    if (!Game_Type_Offered(game_type) || game_type == 6 || !std::filesystem::exists(file, fault)) return;
    if (!Screen().Ask(
            TITLE, "The last session ended in the middle of a game.\rDo you want to go on from the start of its "
                   "last turn?"))
        return;
    if (Choose_Game_Type(game_type)) Open_Game_File(file.string());
}

}   // namespace sm

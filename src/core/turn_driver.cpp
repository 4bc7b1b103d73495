#include "core/turn_driver.h"

#include "aar/victory.h"
#include "combat/artillery.h"
#include "combat/ground_combat.h"
#include "core/clock.h"
#include "core/invariants.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/sound_cues.h"
#include "core/unit_reset.h"
#include "intel/command.h"
#include "intel/intelligence.h"
#include "manoeuvre/movement.h"
#include "net/mail.h"
#include "net/protocol.h"
#include "opponent/planning.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "persist/tape.h"
#include "sustain/logistics.h"
#include "sustain/nbc.h"
#include "sustain/reinforcements.h"

#include <memory>

namespace sm {

namespace {

// ---------------------------------------------------------------------------------------------- before the turn

/// The host starts the turn of all seats. It tells them even when the battle is over, so that they end by their own test.
void Call_Seats()
{
    if (NetRole != 1) return;
    Send_Net_Message("20\xA6");
    for (int seat = 1; seat <= MAX_PLAYER; ++seat)
        if (PLAYERS[seat].STATUS == 4) PLAYERS[seat].STATUS = 5;
}

void Count_Power_At_Start()
{
    if (GTURN == 0) Power_Count();
}

/// Path of a file of the program folder, as a text of the game.
std::string Home_Text(std::string_view name) { return Home_Path(name).string(); }

void Write_Autosave_And_Tape()
{
    if (AARPlaying || !SEAT.WritesFiles) return;
    const std::string players_file = GameFileName;
    GameFileName = Home_Text("\\Saved Games\\autosave.btl");
    Save_Game_File(GameFileName, true);
    AARN += 1;
    GameFileName = Home_Text(Cat("\\aar\\", To_Text(AARN), ".aar"));
    Tape_File(2);
    Tape_File(4);
    GameFileName = players_file;
}

void Take_The_Board()
{
    ActiveSide = 3;
    TurnsPlayed = Saturate_16(TurnsPlayed + 1);
    Hide_All_Pictures();
    Screen().Changed(Redraw::ALL);
}

// ---------------------------------------------------------------------------------------------- the phases

void Show_Phase(std::string_view title, std::string_view logged, int wait)
{
    Screen().Phase(title);
    Log(logged);
    if (wait > 0) Delay(wait);
}

void Age_Areas()
{
    for (int g = 1; g <= MAX_P; ++g)
        if (P[g].PTYPE == 12 || P[g].PTYPE == 13) P[g].PAGE += 1;
}

void Start_Clock()
{
    Progress_Reset();
    Clear_Sitrep();
    Advance_Clock();
}

void Plan_By_Staffs()
{
    const auto logistics = [](int side) {
        if ((side == BLUE ? LOGPLAYB : LOGPLAYR) == 0) Auto_Logistics(side);
    };
    switch (PlayType) {
    case 0: case 1: case 2:
        logistics(BLUE);
        Delay(500);
        logistics(RED);
        break;
    case 3:
        Enemy_Planning(RED);
        logistics(BLUE);
        break;
    case 4:
        Enemy_Planning(BLUE);
        logistics(RED);
        break;
    case 34:
        Enemy_Planning(BLUE);
        Delay(500);
        Enemy_Planning(RED);
        break;
    default: break;   // editor and network games plan nothing here
    }
}

void Run_NBC_Check()
{
    Progress_Advance(50);
    Show_Phase("NBC Check", "NBC Check", 500);
    NBC_Phase();
}

void Run_C4ISR_Check()
{
    Progress_Advance(100);
    Show_Phase("C4ISR Check", "C4ISR Check", 500);
    C4ISR_Check();
}

void Run_Fires()
{
    Progress_Advance(100);
    Show_Phase("Fires Phase", "Fires Phase", 500);
    if (GTURN > 0) Fires_Phase();
}

void Run_Intelligence()
{
    Progress_Advance(100);
    Show_Phase("Generating New Intelligence Picture", "New Intelligence Picture", 500);
    Intelligence_Update();
}

void Run_Movement()
{
    Progress_Advance(100);
    Show_Phase("Movement Phase", "Movement Phase", 0);
    if (GTURN > 0) Movement();
}

void Run_Combat()
{
    Show_Phase("Ground Combat Phase", "Combat Phase", 500);
    Ground_Combat_Phase();
}

void Run_Reset()
{
    Progress_Advance(100);
    Show_Phase("Resetting Units", "Resetting Units", 0);
    Reset_Units();
}

void Run_Logistics()
{
    Progress_Advance(100);
    Show_Phase("Logistics Phase", "Logistics Phase", 500);
    Logistics_Phase();
    WSRO_Phase();
}

void Run_Reinforcements()
{
    Progress_Advance(100);
    Show_Phase("Reinforcements Phase", "Reinforcements Phase", 0);
    Reinforcements_Phase();
    Delay(500);
    Progress_Advance(100);
    LOC_Phase();
}

/// Ground collectors sweep once more, aircraft near the end of their fuel are down, the turn's message traffic is over.
void Sweep_After_Arrivals()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].TYPE == 16 && UNIT[u].STATUS > 1) IEW_Sweep(u);
        if (UNIT[u].MOBILITY == 3 && UNIT[u].TIMERM > 350) {
            UNIT[u].MOVESTATUS = 0;
            UNIT[u].TIMERM = 0;
        }
        UNIT[u].C2T = 0;
    }
}

void Total_Power()
{
    Screen().Progress(0, 0);
    Power_Count();
    AAR_Chart();
}

/// A mail or single game gives the board back to the side that plans.
void Give_To_Planner()
{
    const bool planning = PlanSide == 1 || PlanSide == 2;
    ActiveSide = GameType >= 1 && GameType <= 4 && planning ? PlanSide : 3;
}

/// Back to the seat's own view.
void Return_The_Board()
{
    Give_To_Planner();
    SEAT.TurnRunning = false;   // the planning view's own test of what is shown holds again
    Refresh_Pictures();
    SEAT.TurnRunning = true;
}

void Judge() { Victory_Points(); }

void Report_To_The_Player()
{
    Show_Status("Receiving Situation Update");
    Delay(500);
    Progress_Advance();
    Progress_Finish();
    Play_Sound(SOUND_TURN_DONE);
    Screen().Changed(Redraw::ALL);
    MapMode = 0;
    Show_Status("");
}

struct TURN_STEP {
    const char* NAME;
    void (*RUN)();
};

/// The turn: this order, on every machine.
constexpr TURN_STEP TURN[] = {
    {"call seats", Call_Seats},
    {"power at start", Count_Power_At_Start},
    {"autosave", Write_Autosave_And_Tape},
    {"board", Take_The_Board},
    {"areas", Age_Areas},
    {"clock", Start_Clock},
    {"staffs", Plan_By_Staffs},
    {"nbc", Run_NBC_Check},
    {"c4isr", Run_C4ISR_Check},
    {"fires", Run_Fires},
    {"intelligence", Run_Intelligence},
    {"movement", Run_Movement},
    {"combat", Run_Combat},
    {"reset", Run_Reset},
    {"logistics", Run_Logistics},
    {"reinforcements", Run_Reinforcements},
    {"sweep", Sweep_After_Arrivals},
    {"power", Total_Power},
    {"return", Return_The_Board},
    {"victory", Judge},
    {"report", Report_To_The_Player},
};

// ---------------------------------------------------------------------------------------------- around the turn

void End_Battle()
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].PARENT_UNIT == 0) Show_Picture(u);
    PlanSide = 3;
    ActiveSide = 3;
    ViewMode = 3;
    Screen().Changed(Redraw::ALL);
    Screen().Box("Stonemarch", "The Battle is Over!");
}

void Open_Main_Menu()
{
    MapMode = 0;
    Screen().Changed(Redraw::ALL);
    if (NetRole == 2) Send_Net_Message(Cat("0\xA6" "5\xA6" "0\xA6" "0\xA6" "0\xA6" "0\xA6", SEAT.PlayerName, "\xA6"));
}

/// True when the turn is played, false when there is none or the battle is over.
bool Turn_Is_Due()
{
    if (GTURN < 0) return false;
    if (GTURN >= MAXGTURN) {
        GameOver = -1;
        if (NetRole == 1) Call_Seats();
        return false;
    }
    GameOver = 0;
    return true;
}

struct Running_Turn {
    Running_Turn() { SEAT.TurnRunning = true; }
    ~Running_Turn() { SEAT.TurnRunning = false; }
};

void Give_Up(const Game& before, const char* step, const Game_Error& error)
{
    GAME = before;
    Log(Cat("Error ", To_Text(error.NUMBER), " in ", step, ": ", error.what()));
    Give_To_Planner();
    MapMode = 0;
    Refresh_Pictures();
    Screen().Progress(0, 0);
    Screen().Changed(Redraw::ALL);
    Screen().Box("Stonemarch", Cat("Error: ", To_Text(error.NUMBER)));
}

}   // namespace

bool Play_Turn()
{
    static const std::unique_ptr<Game> before = std::make_unique<Game>();
    *before = GAME;
    const char* step = "turn";
    try {
        MapMode = 0;
        DrawMode = 0;
        Log(Cat("Starting Game Turn: ", To_Text(GTURN)));
        if (Turn_Is_Due()) {
            const Running_Turn running;
            for (const TURN_STEP& s : TURN) {
                step = s.NAME;
                s.RUN();
#ifndef NDEBUG
                Require_Invariants();
#endif
                Screen().Phase_Done(s.NAME);
            }
        }
        step = "end of turn";
        if (GameOver == -1) End_Battle();
        else Mail_Turn_End();
        Open_Main_Menu();
        return true;
    } catch (const Game_Error& error) {
        Give_Up(*before, step, error);
        return false;
    }
}

}   // namespace sm

#include "ui/options.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "ui/desk.h"
#include "ui/planning_seat.h"

namespace sm {

namespace {

constexpr const char* TITLE = "Stonemarch";

struct TURN_LENGTH_ROW {
    const char* WORDS;
    int CODE;   // network message
};
constexpr TURN_LENGTH_ROW TURN_LENGTHS[] = {
    {"We are now playing two hour turns!", 22},
    {"We are now playing one hour turns!", 21},
    {"We are now playing 15 minute turns!", 23},
};

struct ELINT_ROW {
    const char* WORDS;
    int CODE;
};
constexpr ELINT_ROW ELINT_MODELS[] = {
    {"ELINT model has been set to simple.", 16},
    {"ELINT model has been set to detailed.", 17},
};

constexpr float NORMAL_DELAY = 2000.0f, FAST_DELAY = 100.0f;

std::string Of_Side(const char* what, int count, int most)
{
    return Cat(what, To_Text(count), "/", To_Text(most));
}

}   // namespace

void mnuTurnLength_Click(int length)
{
    TurnLength = length;
    const TURN_LENGTH_ROW& row = TURN_LENGTHS[length];
    Tell_Seats({row.CODE});
    Screen().Box(TITLE, row.WORDS);
}

void mnuSpeedNormal_Click()
{
    MessageDelay = NORMAL_DELAY;
    Tell_Seats({14});
    Screen().Box(TITLE, "The game speed is set to normal!");
}

void mnuSpeedFast_Click()
{
    if (!Screen().Ask(TITLE, "Setting the message display to the minimum delay setting will eliminate "
                             "all sound effects.  Is this OK?"))
        return;
    MessageDelay = FAST_DELAY;
    Tell_Seats({15});
    Screen().Box(TITLE, "The game speed is set to fast!");
}

void mnuELINT_Click(int detail)
{
    ELINTDetail = detail;
    const ELINT_ROW& row = ELINT_MODELS[detail];
    Tell_Seats({row.CODE});
    Screen().Box(TITLE, row.WORDS);
}

void mnuView_Click(int view)
{
    ViewMode = view;
    Refresh_Pictures();
    Screen().Changed(Redraw::ALL);
}

void cmdSound_Click()
{
    SoundOn = SoundOn == 1 ? 0 : 1;
    if (SoundOn != 1) The_Window().Stop_Sounds();
}

void cmdSeeT_Click(int kind)
{
    DESK.OVERLAY = kind;
    The_Window().Desk_Changed();
}

void mnuGameData_Click()
{
    The_Window().Show_Lines("Game Data",
                            {
                                Of_Side("Number of Blue Units: ", Count_Used(UNIT, 1, SIDE_UNITS), 300),
                                Of_Side("Number of Red Units: ", Count_Used(UNIT, SIDE_UNITS + 1, MAX_UNIT), 300),
                                Of_Side("Number of Blue Movement Nodes: ", Count_Used(MN, 1, 300), 300),
                                Of_Side("Number of Red Movement Nodes: ", Count_Used(MN, 301, 600), 300),
                                Of_Side("Number of Blue Graphics: ", Count_Used(P, 1, 200), 200),
                                Of_Side("Number of Red Graphics: ", Count_Used(P, 201, 400), 200),
                                Of_Side("Number of Blue Targets: ", Count_Used(TG, 1, 100), 100),
                                Of_Side("Number of Red Targets: ", Count_Used(TG, 101, 200), 100),
                            });
}

}   // namespace sm

#include "events/events.h"

#include "core/explain.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "core/sound_cues.h"
#include "events/event_kinds.h"
#include "persist/program_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace sm {

namespace {

constexpr int LOGISTICS = 13;
constexpr int TOLD_FOR = 3000;   // milliseconds

bool Reaches(int u, int row, int x, int y)
{
    const float reach = UNIT[u].FOOTPRINT / 2 + 8;
    return static_cast<float>(Distance_Between(x, y, PP[row].PPX, PP[row].PPY)) <= reach;
}

bool Triggers(int u, int row)
{
    const UNIT_RECORD& unit = UNIT[u];
    switch (PP[row].PPTRIGGER) {
    case TRIGGER_IMMEDIATE:
        return true;
    case TRIGGER_ANY:
        return unit.STATUS > 0;
    case TRIGGER_LOGISTICS:
        return unit.STATUS > 0 && unit.TYPE == LOGISTICS;
    case TRIGGER_COMBAT:
        return unit.STATUS > 0 && unit.TYPE != LOGISTICS;
    default:
        return false;
    }
}

/// For every unit that comes by, also after the event has happened.
void Hold_Up(int u, int row)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.MOBILITY >= 3 || unit.MOVEPOINTS2 < 1) return;
    if (PP[row].PPOBSTACLE == STOPS) {
        unit.MOVEPOINTS2 = 0;
        Log(Cat(unit.NAME, " movement is stopped."));
    }
    const float half = unit.MOVEPOINTS / 2.0f;
    if (PP[row].PPOBSTACLE == SLOWS && static_cast<float>(unit.MOVEPOINTS2) > half) {
        unit.MOVEPOINTS2 = std::max(0, Round_Even(static_cast<float>(unit.MOVEPOINTS2) - half));
        Log(Cat(unit.NAME, " movement is slowed."));
    }
}

void Tell_Attrition(int u, int row, float loss)
{
    const std::string name = UNIT[u].NAME.Str(), percent = To_Text(PP[row].PPDURATION);
    const bool blue = UNIT[u].SIDE == BLUE;
    const int x = PP[row].PPX, y = PP[row].PPY;
    const Draw kind = PP[row].PPEFFECT == BY_INDIRECT_FIRE ? Draw::IMPACT : Draw::EXPLOSION;
    const Drawing burst{kind, x, y, x, y, u, 0};
    switch (PP[row].PPEFFECT) {
    case BY_DIRECT_FIRE:
        Screen().Drawn(burst);
        if (SoundOn == 1) Play_Sound(SOUND_DIRECT_FIRE);
        (blue ? BMANL : RMANL) += loss;
        Post_At(u, Cat("SITREP: ", name, " lost ", percent, "%", " as a result of direct fires!"), TOLD_FOR, BOTH);
        break;
    case BY_INDIRECT_FIRE:
        Screen().Drawn(burst);
        (blue ? BARTYL : RARTYL) += loss;
        Post_At(u, Cat("Artillery Attack BDA:  ", name, " lost ", percent, "% destroyed"), TOLD_FOR, BOTH);
        break;
    case BY_MINE:   // counted to no cause
        Screen().Drawn(burst);
        Post_At(u, Cat("SITREP: ", name, " lost ", percent, "%", " as a result of a mine/bomb!"), TOLD_FOR, BOTH);
        break;
    default:
        break;
    }
}

void Happen(int u, int row)
{
    Screen().Drawn({Draw::CENTRE, PP[row].PPX, PP[row].PPY});
    Delay(500);
    if (PP[row].PPEFFECT > 0 && PP[row].PPDURATION > 0) {
        const float share = PP[row].PPDURATION * 0.01f;
        const float loss = share * UNIT[u].RCP2;
        UNIT[u].TURNLOSS += loss;
        if (Explaining(u))
            Explain_Line(Cat(UNIT[u].NAME, " meets event ", To_Text(row), ": ", To_Text(PP[row].PPDURATION),
                             "% of ", To_Text(UNIT[u].RCP2), ", loss ", To_Text(loss)));
        Tell_Attrition(u, row, loss);
    }
    PP[row].PPACTIVE = 1;
    PP[row].PPVISIBLE = 1;
    Screen().Changed(Redraw::GRAPHICS);
}

Media_Kind Kind_Of_File(int probe)
{
    return probe == 1 ? Media_Kind::AUDIO : probe == 2 ? Media_Kind::PICTURE : Media_Kind::VIDEO;
}

}   // namespace

void Event_Check(int u, int x, int y, bool held_up)
{
    for (int row = 1; row <= MAX_PP; ++row) {
        if (!Used(PP[row]) || !Reaches(u, row, x, y) || !Triggers(u, row)) continue;
        if (held_up && PP[row].PPOBSTACLE > 0) Hold_Up(u, row);
        if (PP[row].PPACTIVE == 0) Happen(u, row);
    }
}

void Open_Event(int row)
{
    if (!Used(PP[row]) || (PP[row].PPACTIVE != 1 && ActiveSide != RED)) return;
    Screen().Box(Trim_Right(PP[row].PPATYPE), Trim_Right(PP[row].PPMSG));
    const std::string_view name = Trim(PP[row].PPPFILE);
    if (PP[row].PPPROBE < 1 || PP[row].PPPROBE > 3 || name.empty()) return;
    const std::filesystem::path file = Home_Path(Cat("\\events\\", name));
    std::error_code fault;
    if (std::filesystem::is_regular_file(file, fault))
        Screen().Media(Kind_Of_File(PP[row].PPPROBE), file.string());
}

bool Event_Shown(int row)
{
    return Used(PP[row]) && (PP[row].PPVISIBLE == 1 || PP[row].PPACTIVE == 1 || ActiveSide == RED);
}

void Refresh_Events() { Screen().Changed(Redraw::GRAPHICS); }

}   // namespace sm

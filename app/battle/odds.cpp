// Every dice position of a game, played in parallel.

#include "aar/odds.h"

#include "commands.h"
#include "core/numbers.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/shared.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"
#include "workers.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace sm {

namespace {

constexpr int CONVOY = 100, AVIATION = 3;   // SIZE, MOBILITY

/// Notes what shows that a side fights and is kept supplied.
class Signs_Of_Life : public Headless_Platform {
public:
    SIGNS SIGN;

    void Posted(int row) override
    {
        const SITREPLIST_RECORD& r = SITREPLIST[row];
        const int side = r.UNIT >= 1 && r.UNIT <= MAX_UNIT ? int{UNIT[r.UNIT].SIDE} : 0;
        if (side != BLUE && side != RED) return;
        const std::string_view text = r.TEXT;
        if (text.find(" receives direct fires ") != text.npos) SIGN.FIRED |= 3 - side;
        if (text.find(": Resupply is complete!") != text.npos) SIGN.RESUPPLIED |= side;
    }
    void Before_Turn()
    {
        for (int u = 1; u <= MAX_UNIT; ++u) PLACE[u] = {UNIT[u].X, UNIT[u].Y};
        for (int o = 1; o <= MAX_OBJ; ++o) HOLDER[o] = OBJ[o].OID;
    }
    void After_Turn()
    {
        for (int u = 1; u <= MAX_UNIT; ++u)
            if (UNIT[u].STATUS > 0 && UNIT[u].SIZE != CONVOY && UNIT[u].MOBILITY < AVIATION &&
                UNIT[u].PARENT_UNIT == 0 && PLACE[u] != std::pair<int, int>{UNIT[u].X, UNIT[u].Y})
                SIGN.MOVED |= UNIT[u].SIDE;
        for (int o = 1; o <= MAX_OBJ; ++o)
            if (OBJ[o].OTYPE == 1 && OBJ[o].OID != HOLDER[o]) SIGN.CHANGES += 1;
    }

private:
    std::pair<int, int> PLACE[MAX_UNIT + 1];
    int HOLDER[MAX_OBJ + 1] = {};
};

/// Plays one position from the state in hand. After the first turn, whose orders are the plotted ones, the
/// computer plans the sides that were named. Stops short when a turn fails.
std::vector<OUTCOME> Play_Position(int position, int turns, std::optional<Computer> computer)
{
    Signs_Of_Life signs;
    Use_Screen(&signs);
    RSEED = position;
    std::vector<OUTCOME> outcomes;
    for (int t = 0; t < turns && GTURN < MAXGTURN; ++t) {
        signs.Before_Turn();
        if (!Play_Turn()) break;
        signs.After_Turn();
        outcomes.push_back(Note_Outcome(signs.SIGN));
        if (computer) Let_Computer_Plan(*computer);
    }
    Use_Screen(nullptr);
    return outcomes;
}

}   // namespace

int Odds(const Arguments& a)
{
    std::vector<std::string> reports;
    if (!a.OUT.empty()) reports = {a.OUT + ".txt", a.OUT + ".csv", a.OUT + ".html"};
    Open_Home(a);   // makes its folders: a file may go into one of them
    for (const std::string& report : reports) Refuse_Unwritable(report);
    Refuse_Unwritable(a.SAVE);
    Printer printer;
    printer.MESSAGES = false;
    Use_Screen(&printer);
    Start_Up(1280, 960);
    Arguments plotted = a;
    plotted.COMPUTER.reset();
    Open_Game(plotted, a.WORDS[1], printer);
    Close_Log();
    Use_Screen(nullptr);
    SEAT.WritesFiles = false;

    const int turns = a.TURNS.value_or(32767);
    if (GTURN >= MAXGTURN || turns == 0) throw Refusal{"there is no turn left to play"};
    if (a.KEEP > 0) {
        const int last = std::min<int>(MAXGTURN, GTURN + turns);
        Play_Position(a.KEEP, turns, a.COMPUTER);
        if (!Save_Game_File(a.SAVE, true)) throw Refusal{Cat(a.SAVE, ": cannot be written")};
        if (GTURN != last)
            throw Refusal{Cat("turn ", To_Text(GTURN + 1), " failed; the game is kept as it stood before it")};
        return FINE;
    }
    ODDS odds;
    odds.NAME = Battle_Name();
    odds.FIRST_TURN = GTURN;
    odds.LAST_TURN = MAXGTURN;
    odds.BATTLES.resize(POSITIONS);
    const auto play = [&](int position) {
        const auto outcomes = Play_Position(position, turns, a.COMPUTER);
        return std::string(reinterpret_cast<const char*>(outcomes.data()), outcomes.size() * sizeof(OUTCOME));
    };
    Work_In_Parallel(1, POSITIONS, a.WORKERS, play, [&](int position, const std::string& outcomes) {
        auto& battle = odds.BATTLES[static_cast<std::size_t>(position) - 1];
        battle.resize(outcomes.size() / sizeof(OUTCOME));
        std::memcpy(battle.data(), outcomes.data(), outcomes.size());
    });
    for (int position = 1; position <= POSITIONS; ++position) {
        const auto& battle = odds.BATTLES[static_cast<std::size_t>(position) - 1];
        if (battle.empty() || battle.back().TURN != std::min<int>(MAXGTURN, GTURN + turns))
            throw Refusal{Cat("a turn failed from dice position ", To_Text(position), "; `odds --keep ",
                              To_Text(position), " --save OUT` keeps the game as it stood before that turn")};
    }
    const std::string text = Odds_Text(odds);
    if (!reports.empty())   // first, for whoever reads the printed text may stop before its end
        Write_Out({{reports[0], text}, {reports[1], Odds_Csv(odds)}, {reports[2], Odds_Html(odds)}});
    Print_Utf8(text);
    return FINE;
}

}   // namespace sm

// Every dice position of a game, played in parallel processes that share no file.

#include "aar/odds.h"

#include "commands.h"
#include "core/numbers.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/shared.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm {

namespace {

struct START {
    Game GAME_;
    Seat SEAT_;
};

/// Plays one position from the start. After the first turn, whose orders are the plotted ones, the computer plans the
/// sides that were named. Stops short when a turn fails.
std::vector<OUTCOME> Play_Position(const START& start, int position, int turns, std::optional<Computer> computer)
{
    GAME = start.GAME_;
    SEAT = start.SEAT_;
    RSEED = position;
    std::vector<OUTCOME> outcomes;
    for (int t = 0; t < turns && GTURN < MAXGTURN; ++t) {
        if (!Play_Turn()) break;
        outcomes.push_back(Note_Outcome());
        if (computer) Let_Computer_Plan(*computer);
    }
    return outcomes;
}

bool Write_All(int pipe, const void* bytes, std::size_t n)
{
    const char* at = static_cast<const char*>(bytes);
    while (n > 0) {
        const ssize_t written = write(pipe, at, n);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        at += written;
        n -= static_cast<std::size_t>(written);
    }
    return true;
}

/// A worker plays positions first, first + step, ... and sends each as its number, its count of turns and its outcomes.
[[noreturn]] void Work(int pipe, const START& start, int first, int step, int turns, std::optional<Computer> computer)
{
    bool sound = true;
    for (int position = first; position <= POSITIONS && sound; position += step) {
        const auto outcomes = Play_Position(start, position, turns, computer);
        const std::int32_t head[2] = {position, static_cast<std::int32_t>(outcomes.size())};
        sound = Write_All(pipe, head, sizeof head) && Write_All(pipe, outcomes.data(), outcomes.size() * sizeof(OUTCOME));
    }
    close(pipe);
    _exit(sound ? 0 : 1);
}

struct WORKER {
    pid_t PROCESS;
    int PIPE;
    std::string RECEIVED;
};

WORKER Start_Worker(const START& start, int first, int step, int turns, std::optional<Computer> computer)
{
    int ends[2];
    if (pipe(ends) != 0) throw Refusal{Cat("no pipe to a worker: ", std::strerror(errno))};
    const pid_t process = fork();
    if (process < 0) throw Refusal{Cat("no worker: ", std::strerror(errno))};
    if (process == 0) {
        close(ends[0]);
        Work(ends[1], start, first, step, turns, computer);
    }
    close(ends[1]);
    return {process, ends[0], {}};
}

void Receive_All(std::vector<WORKER>& workers)
{
    std::size_t open = workers.size();
    std::vector<pollfd> waiting;
    for (const WORKER& w : workers) waiting.push_back({w.PIPE, POLLIN, 0});
    while (open > 0) {
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            throw Refusal{Cat("waiting for the workers: ", std::strerror(errno))};
        for (std::size_t i = 0; i < workers.size(); ++i) {
            if (waiting[i].fd < 0 || waiting[i].revents == 0) continue;
            char buffer[65536];
            const ssize_t n = read(waiting[i].fd, buffer, sizeof buffer);
            if (n > 0) workers[i].RECEIVED.append(buffer, static_cast<std::size_t>(n));
            if (n > 0 || (n < 0 && errno == EINTR)) continue;
            close(waiting[i].fd);
            waiting[i].fd = -1;
            --open;
        }
    }
    for (const WORKER& w : workers) {
        int status = 0;
        waitpid(w.PROCESS, &status, 0);
        if (status != 0) throw Refusal{"a worker failed"};
    }
}

void Unpack(const std::string& received, ODDS& odds)
{
    for (std::size_t at = 0; at + 8 <= received.size();) {
        std::int32_t head[2];
        std::memcpy(head, received.data() + at, sizeof head);
        at += sizeof head;
        auto& battle = odds.BATTLES[static_cast<std::size_t>(head[0]) - 1];
        battle.resize(static_cast<std::size_t>(head[1]));
        std::memcpy(battle.data(), received.data() + at, battle.size() * sizeof(OUTCOME));
        at += battle.size() * sizeof(OUTCOME);
    }
}

}   // namespace

int Odds(const Arguments& a)
{
    if (a.WORDS.size() != 2) throw Refusal{"odds takes one FILE (see --help)"};
    if (a.KEEP > 0 && a.SAVE.empty()) throw Refusal{"--keep needs --save OUT"};
    Open_Home(a);
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

    const auto start = std::make_unique<START>(START{GAME, SEAT});
    const int turns = a.TURNS.value_or(32767);
    if (GTURN >= MAXGTURN || turns == 0) throw Refusal{"there is no turn left to play"};
    if (a.KEEP > 0) {
        Play_Position(*start, a.KEEP, turns, a.COMPUTER);
        if (!Save_Game_File(a.SAVE, true)) throw Refusal{Cat(a.SAVE, ": cannot be written")};
        return FINE;
    }
    ODDS odds;
    odds.NAME = To_Utf8(GAMEFILE);
    odds.FIRST_TURN = GTURN;
    odds.LAST_TURN = MAXGTURN;
    odds.BATTLES.resize(POSITIONS);
    const long processors = sysconf(_SC_NPROCESSORS_ONLN);
    const int count = std::min(POSITIONS, a.WORKERS > 0 ? a.WORKERS : static_cast<int>(std::max(1L, processors)));
    std::vector<WORKER> workers;
    for (int w = 1; w <= count; ++w) workers.push_back(Start_Worker(*start, w, count, turns, a.COMPUTER));
    Receive_All(workers);
    for (const WORKER& w : workers) Unpack(w.RECEIVED, odds);
    for (const auto& battle : odds.BATTLES)
        if (battle.size() != odds.BATTLES[0].size() || battle.empty())
            throw Refusal{"a turn failed in one of the positions; play it with `--keep` to see where"};

    Print_Utf8(Odds_Text(odds));
    if (!a.OUT.empty()) {
        Write_Out(a.OUT + ".txt", Odds_Text(odds));
        Write_Out(a.OUT + ".csv", Odds_Csv(odds));
        Write_Out(a.OUT + ".html", Odds_Html(odds));
    }
    return FINE;
}

}   // namespace sm

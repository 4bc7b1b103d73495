#include "workers.h"

#include "commands.h"
#include "core/game_state.h"
#include "core/numbers.h"
#include "core/seat.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm {

namespace {

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

/// A result travels as the job's number, its length, its bytes.
struct PARCEL {
    std::int32_t JOB;
    std::uint32_t LENGTH;
};

struct START {
    Game GAME_;
    Seat SEAT_;
};

/// A worker does the jobs first, first + step, ..., each from the state that the worker began with.
[[noreturn]] void Work(int pipe, int first, int last, int step, const std::function<std::string(int)>& work)
{
    bool sound = true;
    try {
        const auto start = std::make_unique<START>(START{GAME, SEAT});
        for (int job = first; job <= last && sound; job += step) {
            GAME = start->GAME_;
            SEAT = start->SEAT_;
            const std::string result = work(job);
            const PARCEL parcel{job, static_cast<std::uint32_t>(result.size())};
            sound = Write_All(pipe, &parcel, sizeof parcel) && Write_All(pipe, result.data(), result.size());
        }
    } catch (const Refusal& refusal) {
        std::fprintf(stderr, "stonemarch-battle: %s\n", To_Utf8(refusal.LINE).c_str());
        sound = false;
    } catch (...) {
        sound = false;   // this process is a copy: nothing of its caller may run in it
    }
    _exit(sound ? 0 : 1);
}

struct WORKER {
    pid_t PROCESS;
    int PIPE;
    std::string RECEIVED;
};

WORKER Start_Worker(int first, int last, int step, const std::function<std::string(int)>& work)
{
    int ends[2];
    if (pipe(ends) != 0) throw Refusal{Cat("no pipe to a worker: ", std::strerror(errno))};
    const pid_t process = fork();
    if (process < 0) throw Refusal{Cat("no worker: ", std::strerror(errno))};
    if (process == 0) {
        close(ends[0]);
        Work(ends[1], first, last, step, work);
    }
    close(ends[1]);
    return {process, ends[0], {}};
}

/// Takes the whole parcels out of what has come through a pipe.
void Unpack(std::string& received, std::map<int, std::string>& results)
{
    std::size_t at = 0;
    for (PARCEL parcel; at + sizeof parcel <= received.size();) {
        std::memcpy(&parcel, received.data() + at, sizeof parcel);
        if (received.size() - at - sizeof parcel < parcel.LENGTH) break;
        results[parcel.JOB] = received.substr(at + sizeof parcel, parcel.LENGTH);
        at += sizeof parcel + parcel.LENGTH;
    }
    received.erase(0, at);
}

}   // namespace

void Work_In_Parallel(int first, int last, int workers, const std::function<std::string(int job)>& work,
                      const std::function<void(int job, const std::string& result)>& done)
{
    const long processors = std::max(1L, sysconf(_SC_NPROCESSORS_ONLN));
    const int count = std::min(last - first + 1, workers > 0 ? workers : static_cast<int>(processors));
    std::vector<WORKER> at_work;
    for (int w = 0; w < count; ++w) at_work.push_back(Start_Worker(first + w, last, count, work));
    std::vector<pollfd> waiting;
    for (const WORKER& w : at_work) waiting.push_back({w.PIPE, POLLIN, 0});

    std::map<int, std::string> results;   // that wait for one before them
    int next = first;
    for (int open = count; open > 0;) {
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            throw Refusal{Cat("waiting for the workers: ", std::strerror(errno))};
        for (std::size_t i = 0; i < at_work.size(); ++i) {
            if (waiting[i].fd < 0 || waiting[i].revents == 0) continue;
            char buffer[65536];
            const ssize_t n = read(waiting[i].fd, buffer, sizeof buffer);
            if (n > 0) at_work[i].RECEIVED.append(buffer, static_cast<std::size_t>(n));
            if (n > 0 || (n < 0 && errno == EINTR)) continue;
            close(waiting[i].fd);
            waiting[i].fd = -1;
            --open;
        }
        for (WORKER& w : at_work) Unpack(w.RECEIVED, results);
        for (; results.count(next) > 0; ++next) {
            done(next, results[next]);
            results.erase(next);
        }
    }
    bool sound = true;
    for (const WORKER& w : at_work) {
        int status = 0;
        waitpid(w.PROCESS, &status, 0);
        sound = sound && status == 0;
    }
    if (!sound || next <= last)
        throw Refusal{Cat("a worker process died; number ", To_Text(next), " is the first without a result")};
}

}   // namespace sm

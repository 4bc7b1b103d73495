// Speed, held against yardsticks taken in the same process on the same machine: the literal loops that a turn's
// rules ask for, a plain read of a file's bytes, a plain copy of the state's bytes. Status 1 when an aim is
// missed.
#include "core/game_state.h"
#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "full_game.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "ratios.h"
#include "support/scratch.h"
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>

using namespace sm;
using namespace sm::bench;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t MOST_BYTES = std::size_t{64} << 20;

// clang-format off
constexpr AIM AIMS[] = {
    // measured       yardstick     at most
    { "turn_full",    "pairs_400",   0.15 },
    { "turn_full",    "pairs_25",    0    },
    { "turn_full",    "turn_quarter", 6   },
    { "turn_stock",   "pairs_400",   0    },
    { "load",         "read_bytes",  10   },
    { "save",         "read_bytes",  10   },
    { "save_to_disk", "read_bytes",  0    },
    { "snapshot",     "copy_bytes",  2    },
    { "hash",         "copy_bytes",  0    },
};
// clang-format on

/// The games that turns start from, each as it stands before the turn.
struct GAMES {
    std::unique_ptr<Game> STOCK = std::make_unique<Game>();
    std::unique_ptr<Game> FULL = std::make_unique<Game>();
    std::unique_ptr<Game> QUARTER = std::make_unique<Game>();
    fs::path SCENARIO;
    fs::path SAVED;   // a game file of the stock scenario, and where `save_to_disk` writes
};

/// All pairs of 600 units, distance and compare, in each slice, as the rules are written.
void Literal_Pairs(benchmark::State& state, int slices)
{
    for (auto _ : state) {
        int near = 0;
        for (int slice = 0; slice < slices; ++slice) {
            for (int i = 1; i <= MAX_UNIT; ++i) {
                for (int j = 1; j <= MAX_UNIT; ++j) {
                    const int dx = UNIT[i].X - UNIT[j].X, dy = UNIT[i].Y - UNIT[j].Y;
                    if (std::sqrt(static_cast<double>(dx * dx + dy * dy)) <= 30.0) ++near;
                }
            }
            benchmark::ClobberMemory();   // the next slice may find the units elsewhere
        }
        benchmark::DoNotOptimize(near);
    }
}

/// One turn from the same state each time; putting the state back is not counted.
void Turn_From(benchmark::State& state, const Game& before)
{
    for (auto _ : state) {
        GAME = before;
        const auto start = std::chrono::steady_clock::now();
        const bool played = Play_Turn();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (!played) {
            state.SkipWithError("the turn failed");
            break;
        }
        state.SetIterationTime(taken.count());
    }
}

void Load_File(benchmark::State& state, const fs::path& file)
{
    for (auto _ : state) {
        const FILE_READ read = Read_File_Whole(file, MOST_BYTES);
        if (!read.ERROR.empty() || Read_Game_Text(read.CONTENT) != 0) {
            state.SkipWithError("the game cannot be read");
            break;
        }
    }
}

void Save_Text(benchmark::State& state)
{
    for (auto _ : state) {
        const std::string text = Game_Text();
        benchmark::DoNotOptimize(text.data());
    }
}

void Save_To_Disk(benchmark::State& state, const fs::path& file)
{
    for (auto _ : state) {
        if (!Write_File_Whole(file, Game_Text()).empty()) {
            state.SkipWithError("the game cannot be saved");
            break;
        }
    }
}

/// One read into a buffer that is there already.
void Read_Bytes(benchmark::State& state, const fs::path& file)
{
    std::string buffer(fs::file_size(file), ' ');
    for (auto _ : state) {
        std::FILE* const in = std::fopen(file.c_str(), "rb");
        std::setvbuf(in, nullptr, _IONBF, 0);
        if (std::fread(buffer.data(), 1, buffer.size(), in) != buffer.size()) state.SkipWithError("a short read");
        std::fclose(in);
        benchmark::DoNotOptimize(buffer.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buffer.size()));
}

/// The bytes of the tables and of the weapons, into a buffer that is there already.
void Copy_Bytes(benchmark::State& state)
{
    const std::size_t weapons = GAME.WPN.ROW.size() * sizeof(WPN_RECORD);
    std::string buffer(sizeof(Game) + weapons, ' ');
    for (auto _ : state) {
        std::memcpy(buffer.data(), static_cast<const void*>(&GAME), sizeof(Game));
        std::memcpy(buffer.data() + sizeof(Game), static_cast<const void*>(GAME.WPN.ROW.data()), weapons);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buffer.size()));
}

void Snapshot(benchmark::State& state)
{
    const auto kept = std::make_unique<Game>();
    for (auto _ : state) {
        *kept = GAME;
        benchmark::ClobberMemory();
    }
}

void Hash_State(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(State_Hash());
}

/// The stock scenario after its first turn, in a program folder of the bench's own.
bool Make_Games(GAMES& games, const fs::path& home)
{
    const std::string failed = Make_Program_Folder(home, STONEMARCH_HOME_DIR);
    if (!failed.empty()) {
        std::fprintf(stderr, "%s\n", failed.c_str());
        return false;
    }
    Set_Program_Folder(home);
    for (const std::string& name : test::Names_In(home / "Scenarios"))
        if (games.SCENARIO.empty() && name.ends_with(".sce")) games.SCENARIO = home / "Scenarios" / name;

    Start_Up(1024, 768);
    Choose_Game_Type(0);
    GameFileName = games.SCENARIO.string();
    if (!Load_Game() || !Play_Turn()) {
        std::fprintf(stderr, "The scenario \"%s\" cannot be played.\n", games.SCENARIO.c_str());
        return false;
    }
    *games.STOCK = GAME;
    games.SAVED = home / "Saved Games/bench.btl";
    if (const std::string error = Write_File_Whole(games.SAVED, Game_Text()); !error.empty()) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return false;
    }
    Make_Full_Game(300);
    *games.FULL = GAME;
    Make_Full_Game(75);
    *games.QUARTER = GAME;
    return true;
}

void Register(const GAMES& games)
{
    const auto add = [](const char* name, auto body) {
        return benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond)->UseRealTime();
    };
    const auto turn = [](const char* name, const Game* before) {
        benchmark::RegisterBenchmark(name, [before](benchmark::State& s) { Turn_From(s, *before); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(5);
    };
    add("pairs_25", [&games](benchmark::State& s) { GAME = *games.FULL, Literal_Pairs(s, 25); });
    add("pairs_400", [&games](benchmark::State& s) { GAME = *games.FULL, Literal_Pairs(s, 400); });
    turn("turn_full", games.FULL.get());
    turn("turn_quarter", games.QUARTER.get());
    turn("turn_stock", games.STOCK.get());
    add("read_bytes", [&games](benchmark::State& s) { Read_Bytes(s, games.SAVED); });
    add("load", [&games](benchmark::State& s) { GAME = *games.STOCK, Load_File(s, games.SAVED); });
    add("save", [&games](benchmark::State& s) { GAME = *games.STOCK, Save_Text(s); });
    add("save_to_disk", [&games](benchmark::State& s) { GAME = *games.STOCK, Save_To_Disk(s, games.SAVED); });
    add("copy_bytes", [&games](benchmark::State& s) { GAME = *games.FULL, Copy_Bytes(s); });
    add("snapshot", [&games](benchmark::State& s) { GAME = *games.FULL, Snapshot(s); });
    add("hash", [&games](benchmark::State& s) { GAME = *games.FULL, Hash_State(s); });
}

}   // namespace

int main(int count, char** words)
{
    benchmark::Initialize(&count, words);
    if (benchmark::ReportUnrecognizedArguments(count, words)) return 2;
    test::Scratch_Folder home;
    GAMES games;
    if (!Make_Games(games, home / "home")) return 2;
    Register(games);
    Shortest_Times times;
    benchmark::RunSpecifiedBenchmarks(&times);
    Close_Log();
    return Print_Ratios(times, std::begin(AIMS), std::end(AIMS)) == 0 ? 0 : 1;
}

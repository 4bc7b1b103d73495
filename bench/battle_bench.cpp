// Speed, held against yardsticks taken in the same process on the same machine: the literal loops that a turn's
// rules ask for, a plain read of a file's bytes, a plain copy of the state's bytes. Status 1 when an aim is
// missed.
#include "combat/artillery.h"
#include "combat/ground_combat.h"
#include "combat_games.h"
#include "core/game_state.h"
#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "fires_games.h"
#include "full_game.h"
#include "opponent_games.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "ratios.h"
#include "sustain/logistics.h"
#include "support/scratch.h"
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

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
    { "fires_200",    "pairs_25",    0.3  },
    { "flights_60",   "pairs_400",   0.15 },
    { "combat_600",   "combat_loops", 3   },
    { "sight_2000",   "sight_samples", 3  },
    { "computer_turn", "pairs_400",  0.30 },
    { "worst_turn",   "median_turn", 2    },
    { "battle_15",    "pairs_400",   0    },
    { "routes_300",   "route_samples", 0  },
    { "logistics_100", "supply_distances", 0 },
    { "logistics_100", "pairs_25",   0    },
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
    std::unique_ptr<Game> FIRES = std::make_unique<Game>();
    std::unique_ptr<Game> FLIGHTS = std::make_unique<Game>();
    std::unique_ptr<Game> CONTACT = std::make_unique<Game>();
    std::unique_ptr<Game> SIGHT = std::make_unique<Game>();
    std::unique_ptr<Game> COMPUTER = std::make_unique<Game>();
    std::unique_ptr<Game> CONVOYS = std::make_unique<Game>();
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

double Seconds_Of(const auto& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// One turn from the same state each time; putting the state back is not counted.
void Turn_From(benchmark::State& state, const Game& before)
{
    for (auto _ : state) {
        GAME = before;
        bool played = false;
        state.SetIterationTime(Seconds_Of([&] { played = Play_Turn(); }));
        if (!played) {
            state.SkipWithError("the turn failed");
            break;
        }
    }
}

/// One phase from the same state each time.
void Phase_From(benchmark::State& state, const Game& before, void (*phase)())
{
    for (auto _ : state) {
        GAME = before;
        state.SetIterationTime(Seconds_Of(phase));
    }
}

/// What happens once in a while, not in a loop, finds the processor's caches full of other things. So files and
/// copies are timed, and so are their yardsticks; a read repeated on the spot would be several times as fast as
/// any that a player waits for.
void Once_In_A_While(benchmark::State& state, const auto& work)
{
    static std::vector<char> other_things(std::size_t{64} << 20);
    for (auto _ : state) {
        std::memset(other_things.data(), static_cast<int>(state.iterations()), other_things.size());
        benchmark::ClobberMemory();
        bool fine = false;
        state.SetIterationTime(Seconds_Of([&] { fine = work(); }));
        if (!fine) {
            state.SkipWithError("it failed");
            break;
        }
    }
}

bool Load_File(const fs::path& file)
{
    const FILE_READ read = Read_File_Whole(file, MOST_BYTES);
    return read.ERROR.empty() && Read_Game_Text(read.CONTENT) == 0;
}

bool Save_Text()
{
    const std::string text = Game_Text();
    benchmark::DoNotOptimize(text.data());
    return !text.empty();
}

/// The file's bytes into memory, as any program gets them that wants to look at them.
bool Read_Bytes(const fs::path& file, std::size_t size)
{
    const std::unique_ptr<char[]> buffer(new char[size]);
    std::FILE* const in = std::fopen(file.c_str(), "rb");
    if (!in) return false;
    std::setvbuf(in, nullptr, _IONBF, 0);
    const bool whole = std::fread(buffer.get(), 1, size, in) == size;
    std::fclose(in);
    benchmark::DoNotOptimize(buffer.get());
    return whole;
}

/// The bytes of the tables and of the weapons, into a buffer that is there already.
bool Copy_Bytes(std::string& buffer)
{
    const std::size_t weapons = GAME.WPN.ROW.size() * sizeof(WPN_RECORD);
    buffer.resize(sizeof(Game) + weapons);
    std::memcpy(buffer.data(), static_cast<const void*>(&GAME), sizeof(Game));
    std::memcpy(buffer.data() + sizeof(Game), static_cast<const void*>(GAME.WPN.ROW.data()), weapons);
    benchmark::ClobberMemory();
    return true;
}

bool Snapshot(Game& kept)
{
    kept = GAME;
    benchmark::ClobberMemory();
    return true;
}

bool Hash_State()
{
    benchmark::DoNotOptimize(State_Hash());
    return true;
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
    games.SCENARIO = home / "Scenarios/Saale Crossing.sce";   // the largest of the stock

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
    Make_Fires_Game();
    *games.FIRES = GAME;
    Make_Flights_Game();
    *games.FLIGHTS = GAME;
    Make_Contact_Game();
    *games.CONTACT = GAME;
    Make_Full_Game(300);
    for (int hex = 1; hex <= HEXCOUNT; ++hex) HEXMAP[hex].THIGH = hex % 400 == 0 ? 1 : 0;
    *games.SIGHT = GAME;
    Make_Computer_Game();
    PlayType = 3;
    *games.COMPUTER = GAME;
    Make_Convoy_Game();
    *games.CONVOYS = GAME;
    return true;
}

/// Benchmarks by name. `games` outlives them.
void Register(const GAMES& games)
{
    const auto pairs = [&games](const char* name, int slices) {
        benchmark::RegisterBenchmark(name,
                                     [&games, slices](benchmark::State& state) {
                                         GAME = *games.FULL;
                                         Literal_Pairs(state, slices);
                                     })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    const auto turn = [](const char* name, const Game* before) {
        benchmark::RegisterBenchmark(name, [before](benchmark::State& state) { Turn_From(state, *before); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(5);
    };
    const auto once = [](const char* name, const Game* game, auto work) {
        benchmark::RegisterBenchmark(name,
                                     [game, work](benchmark::State& state) {
                                         GAME = *game;
                                         Once_In_A_While(state, work);
                                     })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(20);
    };

    pairs("pairs_25", 25);
    pairs("pairs_400", 400);
    turn("turn_full", games.FULL.get());
    turn("turn_quarter", games.QUARTER.get());
    turn("turn_stock", games.STOCK.get());
    const auto phase = [](const char* name, const Game* before, void (*run)()) {
        benchmark::RegisterBenchmark(name,
                                     [before, run](benchmark::State& state) { Phase_From(state, *before, run); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(20);
    };
    phase("fires_200", games.FIRES.get(), Fires_Phase);
    phase("flights_60", games.FLIGHTS.get(), Fly_All_Slices);

    phase("combat_600", games.CONTACT.get(), Ground_Combat_Phase);
    GAME = *games.CONTACT;
    static const COMBAT_WORK work = Count_Combat_Work();
    phase("combat_loops", games.CONTACT.get(), [] { Literal_Combat(work); });
    phase("sight_2000", games.SIGHT.get(), [] { Walk_Sight_Lines(); });
    phase("sight_samples", games.SIGHT.get(), [] { Walk_Samples(); });

    turn("computer_turn", games.COMPUTER.get());
    phase("routes_300", games.COMPUTER.get(), Plan_300_Routes);
    phase("route_samples", games.COMPUTER.get(), Walk_Route_Samples);
    phase("logistics_100", games.CONVOYS.get(), Logistics_Phase);
    phase("supply_distances", games.CONVOYS.get(), Walk_Supply_Distances);
    const auto battle = [&games](const char* name, double BATTLE_TIMES::* time) {
        benchmark::RegisterBenchmark(name,
                                     [&games, time](benchmark::State& state) {
                                         for (auto _ : state) {
                                             GAME = *games.COMPUTER;
                                             state.SetIterationTime(Play_Computer_Battle().*time);
                                         }
                                     })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(3);
    };
    battle("battle_15", &BATTLE_TIMES::WHOLE);
    battle("median_turn", &BATTLE_TIMES::MEDIAN);
    battle("worst_turn", &BATTLE_TIMES::WORST);

    const Game* const stock = games.STOCK.get();
    const Game* const full = games.FULL.get();
    const fs::path file = games.SAVED;
    const auto buffer = std::make_shared<std::string>();
    const auto kept = std::make_shared<Game>();
    once("read_bytes", stock, [file, size = fs::file_size(file)] { return Read_Bytes(file, size); });
    once("load", stock, [file] { return Load_File(file); });
    once("save", stock, [] { return Save_Text(); });
    once("save_to_disk", stock, [file] { return Write_File_Whole(file, Game_Text()).empty(); });
    once("copy_bytes", full, [buffer] { return Copy_Bytes(*buffer); });
    once("snapshot", full, [kept] { return Snapshot(*kept); });
    once("hash", full, [] { return Hash_State(); });
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

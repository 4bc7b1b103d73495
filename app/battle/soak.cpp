// The computer against itself over varied stock positions: the invariants after each phase, and in every turn the
// same turn again from the saved text.

#include "commands.h"
#include "core/invariants.h"
#include "core/numbers.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/shared.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "workers.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace sm {

namespace {

/// Its own numbers, so that a battle of a number is the same on every machine; the game's dice are not touched.
struct VARIATION {
    std::uint32_t STATE;
    int Next(int bound)
    {
        STATE = STATE * 1664525u + 1013904223u;
        return static_cast<int>((STATE >> 8) % static_cast<std::uint32_t>(bound));
    }
};

/// What one battle, or many, have shown.
struct FINDINGS {
    int TURNS = 0, BROKEN = 0, FAILED = 0, DIFFERING = 0;
    std::string LINES;   ///< what is wrong, a line each, code page 1252
    bool Sound() const { return BROKEN + FAILED + DIFFERING == 0; }
    void Tell(std::string_view line) { LINES += Cat("  ", line, "\n"); }
};

/// Watches the invariants after each phase, and boxes: none is due in a sound battle but those named.
class Watch : public Headless_Platform {
public:
    std::vector<std::string> FAULTS;
    void Phase_Done(std::string_view name) override
    {
        for (const Broken_Invariant& b : Broken_Invariants(3))
            FAULTS.push_back(Cat("turn ", To_Text(GTURN), ", after ", name, ": ", b.RULE, ": ", b.TEXT));
    }
};

void Vary_Unit(VARIATION& vary, int u)
{
    UNIT_RECORD& unit = UNIT[u];
    if (unit.STATUS < 1 || unit.TYPE == 50) return;
    if (vary.Next(5) == 0) {
        const int percent = 5 + vary.Next(96);
        unit.RCP2 = unit.RCP * static_cast<float>(percent) / 100.0f;
        unit.STRENGTH = static_cast<float>(percent);
    }
    if (vary.Next(5) == 0) {
        unit.LOGSTATN = vary.Next(101);
        unit.RSF2 = unit.RSF * static_cast<float>(unit.LOGSTATN) / 100.0f;
    }
    if (vary.Next(4) == 0) unit.MORALE = vary.Next(5);
    if (vary.Next(6) == 0) unit.SUPPRESSED = vary.Next(5);
    if (vary.Next(3) == 0) unit.AIACTION = vary.Next(6);
    if (vary.Next(3) == 0) unit.RETREATP = vary.Next(8);
    if (vary.Next(3) == 0) {
        unit.OX1 = 1 + vary.Next(Picture_Width() - 2);
        unit.OY1 = 1 + vary.Next(Picture_Height() - 2);
    }
}

void Vary_Position(int battle)
{
    VARIATION vary{static_cast<std::uint32_t>(battle) * 2654435761u};
    RSEED = 1 + battle * 37 % 100;
    TurnLength = battle % 4 == 3 ? 1 + battle / 4 % 2 : 0;
    ELINTDetail = vary.Next(2);
    AIRSUPER = vary.Next(101);
    SCENARIOT = vary.Next(2);
    BFOBJ = vary.Next(3);
    RFOBJ = vary.Next(3);
    WINDD = vary.Next(8);
    BCHMAX = vary.Next(4);
    RCHMAX = vary.Next(4);
    ABCAS = vary.Next(40);
    AOCAS = vary.Next(40);
    BTOTAL = ABCAS;
    OTOTAL = AOCAS;
    MAXGTURN = 6 + vary.Next(10);
    for (int u = 1; u <= MAX_UNIT; ++u) Vary_Unit(vary, u);
}

/// Fields that a game file is told to lose: an end of the leg that no rule reads, a reserved counter, an event's
/// marker, and what lives for one turn or one seat only.
bool Lost_By_File(const std::string& difference)
{
    static constexpr const char* LOST[] = {".DX ",       "BAIAB ",       ".PPVISIBLE ", ".ROE ",
                                           ".HPTVALUE ", ".TGTLINK ",    ".FREEHUNT ",  ".HQPOWER ",
                                           "GAMEFILE ",  "GAMEVERSION ", "AARN "};
    return std::any_of(std::begin(LOST), std::end(LOST), [&](const char* name) {
        const std::string key(name);
        return key[0] == '.' ? difference.find(key) != std::string::npos : difference.rfind(key, 0) == 0;
    });
}

/// The cells to the end of a route are in no file. A load counts them anew, and a route that has ended counts 0
/// there, while a last node in the unit's own cell leaves -1 in play.
void Forget_Ended_Routes()
{
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].NUMBER_OF_NODES == 0) UNIT[u].DISTANCE_TO_END = 0;
}

struct LENGTHS {
    int TURN, ELINT;
};

bool Load_Text(const std::string& text, LENGTHS lengths)
{
    const int type = GameType, play = PlayType;
    if (Read_Game_Text(text) != 0 || !After_Load(false)) return false;
    GameType = type;
    PlayType = play;
    TurnLength = lengths.TURN;
    ELINTDetail = lengths.ELINT;
    return true;
}

/// One turn, and the same turn again from the saved text. False when the battle cannot go on.
bool Soak_Turn(Watch& watch, FINDINGS& findings)
{
    const LENGTHS lengths{TurnLength, ELINTDetail};
    const std::string text = Game_Text();
    watch.FAULTS.clear();
    if (!Play_Turn()) {
        ++findings.FAILED;
        return false;
    }
    ++findings.TURNS;
    Forget_Ended_Routes();
    findings.BROKEN += watch.FAULTS.empty() ? 0 : 1;
    for (const std::string& fault : watch.FAULTS) findings.Tell(fault);
    const auto played = std::make_unique<Game>(GAME);
    if (!Load_Text(text, lengths) || !Play_Turn()) {
        findings.Tell("the saved turn cannot be played");
        ++findings.DIFFERING;
        return false;
    }
    Forget_Ended_Routes();
    int shown = 0;
    for (const std::string& line : Differences(*played, GAME)) {
        if (Lost_By_File(line)) continue;
        if (shown++ < 5) findings.Tell(Cat("turn ", To_Text(GTURN), ": ", line, " after saving and loading"));
    }
    findings.DIFFERING += shown > 0 ? 1 : 0;
    GAME = *played;
    return shown == 0 && watch.FAULTS.empty();
}

std::vector<std::string> Stock_Scenarios()
{
    std::vector<std::string> files;
    std::error_code fault;
    for (const auto& entry : std::filesystem::directory_iterator(Program_Folder() / "Scenarios", fault))
        if (entry.path().extension() == ".sce") files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    if (files.empty()) throw Refusal{"the program folder has no scenarios"};
    return files;
}

FINDINGS Fight(const Arguments& a, const std::string& file, int battle)
{
    Printer printer;
    printer.MESSAGES = false;
    Use_Screen(&printer);
    Arguments open = a;
    open.COMPUTER = Computer::BOTH_SIDES;
    Open_Game(open, file, printer);
    SEAT.WritesFiles = false;
    Vary_Position(battle);
    Watch watch;
    Use_Screen(&watch);
    FINDINGS findings;
    while (GTURN < MAXGTURN && Soak_Turn(watch, findings)) {}
    Use_Screen(nullptr);
    return findings;
}

/// The four counts and the lines, as a worker hands them over.
std::string Packed(const FINDINGS& f)
{
    return Cat(To_Text(f.TURNS), " ", To_Text(f.BROKEN), " ", To_Text(f.FAILED), " ", To_Text(f.DIFFERING), " ",
               f.LINES);
}

FINDINGS Unpacked(std::string_view packed)
{
    FINDINGS f;
    for (int* count : {&f.TURNS, &f.BROKEN, &f.FAILED, &f.DIFFERING}) {
        const std::size_t end = packed.find(' ');
        *count = Parse_Int(packed.substr(0, end)).value_or(0);
        packed.remove_prefix(end + 1);
    }
    f.LINES = packed;
    return f;
}

}   // namespace

int Soak(const Arguments& a)
{
    Open_Home(a);
    const auto scenarios = Stock_Scenarios();
    const auto file_of = [&](int battle) {
        return scenarios[static_cast<std::size_t>(battle) % scenarios.size()];
    };
    Printer printer;
    printer.MESSAGES = false;
    Use_Screen(&printer);
    Start_Up(1280, 960);
    Close_Log();
    FINDINGS all;
    Work_In_Parallel(
        a.FIRST, a.FIRST + a.BATTLES - 1, a.WORKERS,
        [&](int battle) { return Packed(Fight(a, file_of(battle), battle)); },
        [&](int battle, const std::string& result) {
            const FINDINGS f = Unpacked(result);
            all.TURNS += f.TURNS;
            all.BROKEN += f.BROKEN;
            all.FAILED += f.FAILED;
            all.DIFFERING += f.DIFFERING;
            if (f.Sound()) return;
            Print(f.LINES);
            Print_Line(Cat("battle ", To_Text(battle), " (",
                           std::filesystem::path(file_of(battle)).filename().string(),
                           ") is not sound: soak --first ", To_Text(battle), " --battles 1"));
        });
    Use_Screen(nullptr);
    Print_Line(Cat(To_Text(a.BATTLES), " battles, ", To_Text(all.TURNS), " turns: ", To_Text(all.BROKEN),
                   " with a broken invariant, ", To_Text(all.FAILED), " failed, ", To_Text(all.DIFFERING),
                   " different after saving and loading"));
    return all.Sound() ? FINE : FAULTS_FOUND;
}

}   // namespace sm

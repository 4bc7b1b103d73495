// stonemarch-battle: plays, checks and compares games without a window.

#include "core/clock.h"
#include "core/explain.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/shared.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace sm;

constexpr int FINE = 0, FAULTS_FOUND = 1, WRONG_USE = 2;

constexpr const char* HELP =
    "stonemarch-battle: plays, checks and compares games without a window\n"
    "\n"
    "  stonemarch-battle play FILE [options]   plays a scenario or saved game\n"
    "      --turns N             at most N turns (default: to the last turn)\n"
    "      --save OUT            writes the game afterwards\n"
    "      --hash [phases]       prints the state's hash after each turn (or after each phase, table by table)\n"
    "      --explain N           prints every factor, test and loss of unit N's fights\n"
    "      --quiet               prints no messages\n"
    "      --type N              game type 0..9 (default 0, two-player hot-seat)\n"
    "      --turn-length 0|1|2   two hours, one hour, fifteen minutes\n"
    "      --elint 0|1           simple or detailed ELINT play\n"
    "  stonemarch-battle check FILE            says what is wrong with a game, terrain or weapons file\n"
    "  stonemarch-battle diff A B              lists the fields in which two games differ\n"
    "  stonemarch-battle --help | --version\n"
    "\n"
    "  --home DIR    program folder (default: home/ beside this program)\n"
    "\n"
    "Exit status: 0 fine, 1 faults or differences found, 2 wrong use or unreadable file.\n";

/// Wrong use or an unreadable file: one clear line, exit status 2.
struct Refusal {
    std::string LINE;
};

void Print(std::string_view text)
{
    const std::string utf8 = To_Utf8(text);
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
}
void Print_Line(std::string_view text) { Print(Cat(text, "\n")); }

/// The screen of a staff officer with a printer: phases as headings, messages by audience and place.
class Printer : public Headless_Platform {
public:
    bool MESSAGES = true;
    bool HASH_PHASES = false;
    bool BOXED = false;   ///< a box told a failure while a file was loaded

    void Phase(std::string_view title) override
    {
        if (MESSAGES) Print_Line(Cat("-- ", title));
    }
    void Posted(int row) override
    {
        if (!MESSAGES) return;
        static constexpr const char* AUDIENCE[] = {"[     ] ", "[Blue ] ", "[ Red ] ", "[ All ] "};
        const SITREPLIST_RECORD& r = SITREPLIST[row];
        const int side = r.SIDE >= 0 && r.SIDE <= 3 ? static_cast<int>(r.SIDE) : 0;
        Print_Line(Cat("   ", AUDIENCE[side], r.TEXT));
    }
    void Box(std::string_view title, std::string_view text) override
    {
        BOXED = true;
        if (!MESSAGES) return;
        std::string lines(text);
        for (char& c : lines)
            if (c == '\r') c = ' ';
        Print_Line(Cat("   (", title, ") ", lines));
    }
    void Phase_Done(std::string_view name) override
    {
        if (!HASH_PHASES) return;
        Print(Cat("hash ", To_Text(GTURN), " ", name, ": ", Hash_Text(State_Hash())));
        for (const Table_Hash& table : Table_Hashes()) Print(Cat(" ", table.NAME, "=", Hash_Text(table.HASH)));
        Print("\n");
    }
};

struct Arguments {
    std::vector<std::string> WORDS;
    std::optional<int> TURNS;
    std::string SAVE, HOME;
    bool HASH = false, HASH_PHASES = false, QUIET = false;
    int TYPE = 0, TURN_LENGTH = 0, ELINT = 0, EXPLAIN = 0;
};

int Number_Argument(const std::string& option, const std::string& word, int low, int high)
{
    const auto value = Parse_Int(word);
    if (!value || *value < low || *value > high)
        throw Refusal{Cat(option, " takes a number ", To_Text(low), "..", To_Text(high), ", not \"", word, "\"")};
    return *value;
}

Arguments Read_Arguments(int argc, char** argv)
{
    Arguments a;
    const std::vector<std::string> words(argv + 1, argv + argc);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const auto value = [&]() -> const std::string& {
            if (i + 1 >= words.size()) throw Refusal{Cat(word, " needs a value")};
            return words[++i];
        };
        if (word == "--turns") a.TURNS = Number_Argument(word, value(), 0, 32767);
        else if (word == "--save") a.SAVE = value();
        else if (word == "--home") a.HOME = value();
        else if (word == "--quiet") a.QUIET = true;
        else if (word == "--type") a.TYPE = Number_Argument(word, value(), 0, 9);
        else if (word == "--turn-length") a.TURN_LENGTH = Number_Argument(word, value(), 0, 2);
        else if (word == "--elint") a.ELINT = Number_Argument(word, value(), 0, 1);
        else if (word == "--explain") a.EXPLAIN = Number_Argument(word, value(), 1, MAX_UNIT);
        else if (word == "--hash") {
            a.HASH = true;
            if (i + 1 < words.size() && words[i + 1] == "phases") {
                a.HASH_PHASES = true;
                ++i;
            }
        } else if (word.size() > 1 && word[0] == '-') throw Refusal{Cat("unknown option ", word, " (see --help)")};
        else a.WORDS.push_back(word);
    }
    return a;
}

std::filesystem::path Beside_This_Program()
{
    std::error_code fault;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", fault);
    return fault ? std::filesystem::path(".") : program.parent_path();
}

void Open_Home(const Arguments& a)
{
    const auto stock = Beside_This_Program() / "home";
    const std::filesystem::path home = a.HOME.empty() ? stock : std::filesystem::path(a.HOME);
    const std::string fault = Make_Program_Folder(home, stock);
    if (!fault.empty()) throw Refusal{fault};
    Set_Program_Folder(home);
}

void Open_Game(const Arguments& a, const std::string& file, Printer& printer)
{
    const FILE_READ found = Read_File_Whole(file, std::size_t{1} << 30);
    if (!found.ERROR.empty()) throw Refusal{found.ERROR};
    if (a.TYPE == 6 || !Choose_Game_Type(a.TYPE)) throw Refusal{"--type 6 is no game"};
    TurnLength = a.TURN_LENGTH;
    ELINTDetail = a.ELINT;
    MessageDelay = 0;
    GameFileName = file;
    const bool messages = printer.MESSAGES;
    printer.MESSAGES = false;
    const bool loaded = Load_Game();
    printer.MESSAGES = messages;
    if (!loaded) throw Refusal{Cat(file, ": this game cannot be loaded; `check` tells what is wrong with it")};
}

std::string Turn_Heading()
{
    const Header_Texts h = Header();
    return Cat("\n== Turn ", To_Text(GTURN), " of ", To_Text(MAXGTURN), " ends, ", h.CLOCK, " ", h.DATE, ", ",
               h.NIGHT ? "night" : "day");
}

int Play(const Arguments& a)
{
    if (a.WORDS.size() != 2) throw Refusal{"play takes one FILE (see --help)"};
    Open_Home(a);
    Printer printer;
    printer.MESSAGES = !a.QUIET;
    Use_Screen(&printer);
    Start_Up(1280, 960);
    Open_Game(a, a.WORDS[1], printer);
    printer.HASH_PHASES = a.HASH_PHASES;
    ExplainUnit = a.EXPLAIN;
    Explain_To([](std::string_view line) { Print_Line(Cat("      | ", line)); });

    if (!a.QUIET)
        Print_Line(Cat(GAMEFILE.Empty() ? std::string_view("Battle") : std::string_view(GAMEFILE), ": turn ",
                       To_Text(GTURN), " of ", To_Text(MAXGTURN), ", ", Header().CLOCK, " ", Header().DATE));
    int left = a.TURNS.value_or(32767);
    bool sound = true;
    while (left-- > 0 && GTURN < MAXGTURN) {
        sound = Play_Turn();
        if (!sound) break;
        if (!a.QUIET) Print_Line(Turn_Heading());
        if (a.HASH) Print_Line(Cat("hash ", To_Text(GTURN), ": ", Hash_Text(State_Hash())));
    }
    if (sound && !a.TURNS) Play_Turn();   // the call after the last turn ends the battle
    if (!sound) std::fprintf(stderr, "stonemarch-battle: the turn failed; the log tells where\n");
    if (!a.SAVE.empty()) {
        printer.BOXED = false;
        if (!Save_Game_File(a.SAVE, true)) throw Refusal{Cat(a.SAVE, ": cannot be written")};
    }
    Use_Screen(nullptr);
    return sound ? FINE : FAULTS_FOUND;
}

int Check(const Arguments& a)
{
    if (a.WORDS.size() != 2) throw Refusal{"check takes one FILE (see --help)"};
    const FILE_READ found = Read_File_Whole(a.WORDS[1], std::size_t{1} << 30);
    if (!found.ERROR.empty()) throw Refusal{found.ERROR};
    bool faults = false;
    for (const File_Fault& f : Check_File(a.WORDS[1])) {
        faults = faults || f.FAULT;
        Print_Line(Cat(a.WORDS[1], ":", To_Text(f.LINE), f.FAULT ? ": " : ": remark: ", f.TEXT));
    }
    if (!faults) Print_Line(Cat(a.WORDS[1], ": no faults"));
    return faults ? FAULTS_FOUND : FINE;
}

void Read_For_Diff(const std::string& file)
{
    const FILE_READ found = Read_File_Whole(file, std::size_t{1} << 30);
    if (!found.ERROR.empty()) throw Refusal{found.ERROR};
    if (Read_Game_Text(found.CONTENT) != 0) throw Refusal{Cat(file, ": not a sound game file; see `check`")};
}

int Diff(const Arguments& a)
{
    if (a.WORDS.size() != 3) throw Refusal{"diff takes two FILES (see --help)"};
    Read_For_Diff(a.WORDS[1]);
    const auto here = std::make_unique<Game>(GAME);
    static const Game EMPTY{};
    GAME = EMPTY;
    Read_For_Diff(a.WORDS[2]);
    const auto lines = Differences(*here, GAME);
    for (const std::string& line : lines) Print_Line(line);
    return lines.empty() ? FINE : FAULTS_FOUND;
}

int Run(int argc, char** argv)
{
    const Arguments a = [&] {
        if (argc >= 2 && std::string(argv[1]) == "--help") {
            Print(HELP);
            std::exit(FINE);
        }
        if (argc >= 2 && std::string(argv[1]) == "--version") {
            Print_Line(Cat("stonemarch-battle ", Build_Version()));
            std::exit(FINE);
        }
        return Read_Arguments(argc, argv);
    }();
    if (a.WORDS.empty()) throw Refusal{"what shall be done? (see --help)"};
    if (a.WORDS[0] == "play") return Play(a);
    if (a.WORDS[0] == "check") return Check(a);
    if (a.WORDS[0] == "diff") return Diff(a);
    throw Refusal{Cat("unknown command ", a.WORDS[0], " (see --help)")};
}

}   // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const Refusal& refusal) {
        std::fprintf(stderr, "stonemarch-battle: %s\n", To_Utf8(refusal.LINE).c_str());
        return WRONG_USE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "stonemarch-battle: %s\n", error.what());
        return WRONG_USE;
    }
}

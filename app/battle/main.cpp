// stonemarch-battle: plays, checks and compares games without a window.

#include "commands.h"
#include "core/numbers.h"
#include "core/session.h"

#include <cstdio>

namespace sm {

namespace {

constexpr const char* HELP =
    "stonemarch-battle: plays, checks and compares games without a window\n"
    "\n"
    "  stonemarch-battle play FILE [options]   plays a scenario or saved game\n"
    "      --turns N             at most N turns (default: to the last turn)\n"
    "      --save OUT            writes the game afterwards\n"
    "      --report BASE         writes the after-action report to BASE.txt and BASE.html\n"
    "      --hash [phases]       prints the state's hash after each turn (or after each phase, table by table)\n"
    "      --explain N           prints every factor, test and loss of unit N's fights\n"
    "      --status              prints the status line too: acquisitions, air defence, supporting fires\n"
    "      --quiet               prints no messages\n"
    "  stonemarch-battle odds FILE [options]   plays the game from all 100 dice positions: the exact distribution of verdict,\n"
    "                                          points, losses and objectives by turn\n"
    "      --turns N             at most N turns\n"
    "      --workers N           processes (default: one for each processor)\n"
    "      --out BASE            writes BASE.txt, BASE.csv and BASE.html\n"
    "      --keep N --save OUT   writes the game that position N leads to\n"
    "  stonemarch-battle soak [--battles N] [--first I] [--home DIR]\n"
    "                                          the computer against itself over varied stock positions, everything checked\n"
    "  stonemarch-battle check FILE            says what is wrong with a game, terrain or weapons file\n"
    "  stonemarch-battle diff A B              lists the fields in which two games differ\n"
    "  stonemarch-battle --help | --version\n"
    "\n"
    "      --computer none|blue|red|both   the sides that the computer plans\n"
    "      --type N                        game type 0..9 (default 0, two-player hot-seat)\n"
    "      --turn-length 0|1|2             two hours, one hour, fifteen minutes\n"
    "      --elint 0|1                     simple or detailed ELINT play\n"
    "      --home DIR                      program folder (default: home/ beside this program)\n"
    "\n"
    "Exit status: 0 fine, 1 faults or differences found, 2 wrong use or unreadable file.\n";

int Number_Argument(const std::string& option, const std::string& word, int low, int high)
{
    const auto value = Parse_Int(word);
    if (!value || *value < low || *value > high)
        throw Refusal{Cat(option, " takes a number ", To_Text(low), "..", To_Text(high), ", not \"", word, "\"")};
    return *value;
}

Computer Computer_Argument(const std::string& word)
{
    if (word == "none") return Computer::NONE;
    if (word == "blue") return Computer::BLUE_SIDE;
    if (word == "red") return Computer::RED_SIDE;
    if (word == "both") return Computer::BOTH_SIDES;
    throw Refusal{Cat("--computer takes none, blue, red or both, not \"", word, "\"")};
}

int Run(int argc, char** argv)
{
    const std::string first = argc >= 2 ? argv[1] : "";
    if (first == "--help") {
        Print_Utf8(HELP);
        return FINE;
    }
    if (first == "--version") {
        Print_Line(Cat("stonemarch-battle ", Build_Version()));
        return FINE;
    }
    const Arguments a = Read_Arguments(argc, argv);
    if (a.WORDS.empty()) throw Refusal{"what shall be done? (see --help)"};
    if (a.WORDS[0] == "play") return Play(a);
    if (a.WORDS[0] == "check") return Check(a);
    if (a.WORDS[0] == "diff") return Diff(a);
    if (a.WORDS[0] == "odds") return Odds(a);
    if (a.WORDS[0] == "soak") return Soak(a);
    throw Refusal{Cat("unknown command ", a.WORDS[0], " (see --help)")};
}

}   // namespace

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
        else if (word == "--report") a.REPORT = value();
        else if (word == "--out") a.OUT = value();
        else if (word == "--home") a.HOME = value();
        else if (word == "--quiet") a.QUIET = true;
        else if (word == "--status") a.STATUS = true;
        else if (word == "--type") a.TYPE = Number_Argument(word, value(), 0, 9);
        else if (word == "--turn-length") a.TURN_LENGTH = Number_Argument(word, value(), 0, 2);
        else if (word == "--elint") a.ELINT = Number_Argument(word, value(), 0, 1);
        else if (word == "--explain") a.EXPLAIN = Number_Argument(word, value(), 1, 600);
        else if (word == "--computer") a.COMPUTER = Computer_Argument(value());
        else if (word == "--workers") a.WORKERS = Number_Argument(word, value(), 1, 100);
        else if (word == "--keep") a.KEEP = Number_Argument(word, value(), 1, 100);
        else if (word == "--battles") a.BATTLES = Number_Argument(word, value(), 1, 1000000);
        else if (word == "--first") a.FIRST = Number_Argument(word, value(), 1, 1000000);
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

}   // namespace sm

int main(int argc, char** argv)
{
    try {
        const int status = sm::Run(argc, argv);
        if (std::fflush(stdout) != 0) throw sm::Refusal{"the output cannot be written"};
        return status;
    } catch (const sm::Refusal& refusal) {
        std::fflush(stdout);
        std::fprintf(stderr, "stonemarch-battle: %s\n", sm::To_Utf8(refusal.LINE).c_str());
        return sm::WRONG_USE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "stonemarch-battle: %s\n", error.what());
        return sm::WRONG_USE;
    }
}

// stonemarch-battle: plays, checks and compares games without a window.

#include "commands.h"
#include "core/session.h"

#include <algorithm>
#include <cstdio>

namespace sm {

namespace {

// clang-format off
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
    "\n"
    "  stonemarch-battle odds FILE [options]   plays the game from all 100 dice positions: the exact distribution of verdict,\n"
    "                                          points, losses and objectives by turn\n"
    "      --turns N             at most N turns\n"
    "      --out BASE            writes BASE.txt, BASE.csv and BASE.html\n"
    "      --keep N --save OUT   writes the game that position N leads to\n"
    "      --workers N           processes (default: one for each processor)\n"
    "\n"
    "  stonemarch-battle soak [options]        the computer against itself over varied stock positions, everything checked\n"
    "      --battles N           so many of them (default 20)\n"
    "      --first I             the first one's number (default 1)\n"
    "      --workers N           processes (default: one for each processor)\n"
    "\n"
    "  stonemarch-battle check FILE            says what is wrong with a game, terrain or weapons file\n"
    "  stonemarch-battle diff A B              lists the fields in which two games differ\n"
    "  stonemarch-battle --help | --version\n"
    "\n"
    "  Options of play and odds:\n"
    "      --computer none|blue|red|both   the sides that the computer plans; in odds from the second turn on, the first is\n"
    "                                      played as it is plotted\n"
    "      --type N                        game type 0..9 (default 0, two-player hot-seat)\n"
    "      --turn-length 0|1|2             two hours, one hour, fifteen minutes\n"
    "      --elint 0|1                     simple or detailed ELINT play\n"
    "  Option of all commands:\n"
    "      --home DIR                      program folder (default: home/ beside this program)\n"
    "\n"
    "Exit status: 0 fine, 1 faults or differences found, 2 wrong use or unreadable file.\n";
// clang-format on

int Run(const std::vector<std::string>& words)
{
    if (std::find(words.begin(), words.end(), "--help") != words.end()) {
        Print_Utf8(HELP);
        return FINE;
    }
    if (!words.empty() && words[0] == "--version") {
        Print_Line(Cat("stonemarch-battle ", Build_Version()));
        return FINE;
    }
    const Arguments a = Read_Arguments(words);
    if (a.WORDS[0] == "play") return Play(a);
    if (a.WORDS[0] == "check") return Check(a);
    if (a.WORDS[0] == "diff") return Diff(a);
    return a.WORDS[0] == "odds" ? Odds(a) : Soak(a);
}

}   // namespace

}   // namespace sm

int main(int argc, char** argv)
{
    try {
        const int status = sm::Run({argv + 1, argv + argc});
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
            throw sm::Refusal{"the output cannot be written"};
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

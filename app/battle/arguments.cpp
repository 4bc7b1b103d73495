// The words of the command line. Which option belongs to which command is told by one table; what belongs to
// another command or contradicts itself is refused, never passed over. Of an option given twice the last holds, so
// that a script can have its own and pass on its caller's.

#include "commands.h"
#include "core/numbers.h"

namespace sm {

namespace {

using Words = const std::vector<std::string>&;

int Number_Argument(const std::string& option, const std::string& word, int low, int high)
{
    const auto value = Parse_Int(word);
    if (!value || *value < low || *value > high)
        throw Refusal{Cat(option, " takes a number ", To_Text(low), "..", To_Text(high), ", not \"", word, "\"")};
    return *value;
}

Computer Computer_Argument(const std::string&, const std::string& word)
{
    if (word == "none") return Computer::NONE;
    if (word == "blue") return Computer::BLUE_SIDE;
    if (word == "red") return Computer::RED_SIDE;
    if (word == "both") return Computer::BOTH_SIDES;
    throw Refusal{Cat("--computer takes none, blue, red or both, not \"", word, "\"")};
}

std::string File_Argument(const std::string& option, const std::string& word)
{
    if (word.empty()) throw Refusal{Cat(option, " needs a name")};
    if (option != "--home" && word.back() == '/')
        throw Refusal{Cat(option, " needs the name of a file, not of a folder: ", word)};
    return word;
}

enum : int { PLAY = 1, ODDS_ = 2, SOAK = 4, CHECK = 8, DIFF = 16, GAMES = PLAY | ODDS_, ALL = 31 };

struct COMMAND_ROW {
    const char* NAME;
    int BIT;
    std::size_t FILES;
    const char* TAKES;
};
constexpr COMMAND_ROW COMMANDS[] = {
    {"play", PLAY, 1, "play takes one FILE"},  {"odds", ODDS_, 1, "odds takes one FILE"},
    {"soak", SOAK, 0, "soak takes no file"},   {"check", CHECK, 1, "check takes one FILE"},
    {"diff", DIFF, 2, "diff takes two FILES"},
};

struct OPTION_ROW {
    const char* NAME;
    int COMMANDS;
    bool VALUE;   ///< the next word is its value
    void (*TAKE)(Arguments& a, const std::string& name, const std::string& value);
};
// clang-format off
constexpr OPTION_ROW OPTIONS[] = {
    {"--turns",       GAMES,        true,  [](auto& a, auto& n, auto& v) { a.TURNS = Number_Argument(n, v, 0, 32767); }},
    {"--computer",    GAMES,        true,  [](auto& a, auto& n, auto& v) { a.COMPUTER = Computer_Argument(n, v); }},
    {"--type",        GAMES,        true,  [](auto& a, auto& n, auto& v) { a.TYPE = Number_Argument(n, v, 0, 9); }},
    {"--turn-length", GAMES,        true,  [](auto& a, auto& n, auto& v) { a.TURN_LENGTH = Number_Argument(n, v, 0, 2); }},
    {"--elint",       GAMES,        true,  [](auto& a, auto& n, auto& v) { a.ELINT = Number_Argument(n, v, 0, 1); }},
    {"--save",        GAMES,        true,  [](auto& a, auto& n, auto& v) { a.SAVE = File_Argument(n, v); }},
    {"--report",      PLAY,         true,  [](auto& a, auto& n, auto& v) { a.REPORT = File_Argument(n, v); }},
    {"--explain",     PLAY,         true,  [](auto& a, auto& n, auto& v) { a.EXPLAIN = Number_Argument(n, v, 1, 600); }},
    {"--hash",        PLAY,         false, [](auto& a, auto&, auto&) { a.HASH = true; }},
    {"--quiet",       PLAY,         false, [](auto& a, auto&, auto&) { a.QUIET = true; }},
    {"--status",      PLAY,         false, [](auto& a, auto&, auto&) { a.STATUS = true; }},
    {"--keep",        ODDS_,        true,  [](auto& a, auto& n, auto& v) { a.KEEP = Number_Argument(n, v, 1, 100); }},
    {"--out",         ODDS_,        true,  [](auto& a, auto& n, auto& v) { a.OUT = File_Argument(n, v); }},
    {"--workers",     ODDS_ | SOAK, true,  [](auto& a, auto& n, auto& v) { a.WORKERS = Number_Argument(n, v, 1, 100); }},
    {"--battles",     SOAK,         true,  [](auto& a, auto& n, auto& v) { a.BATTLES = Number_Argument(n, v, 1, 1000000); }},
    {"--first",       SOAK,         true,  [](auto& a, auto& n, auto& v) { a.FIRST = Number_Argument(n, v, 1, 1000000); }},
    {"--home",        ALL,          true,  [](auto& a, auto& n, auto& v) { a.HOME = File_Argument(n, v); }},
};
// clang-format on

const OPTION_ROW& Option_Named(const std::string& word)
{
    for (const OPTION_ROW& option : OPTIONS)
        if (word == option.NAME) return option;
    throw Refusal{Cat("unknown option ", word, " (see --help)")};
}

const COMMAND_ROW& Command_Named(const std::string& word)
{
    for (const COMMAND_ROW& command : COMMANDS)
        if (word == command.NAME) return command;
    throw Refusal{Cat("unknown command ", word, " (see --help)")};
}

void Refuse_Contradictions(const Arguments& a, const COMMAND_ROW& command, Words given)
{
    for (const std::string& word : given)
        if ((Option_Named(word).COMMANDS & command.BIT) == 0)
            throw Refusal{Cat(word, " is no option of ", command.NAME, " (see --help)")};
    if (a.WORDS.size() != command.FILES + 1) throw Refusal{Cat(command.TAKES, " (see --help)")};
    if (a.TYPE == 6) throw Refusal{"--type 6 is no game"};
    if (command.BIT != ODDS_) return;
    if (a.KEEP > 0 && a.SAVE.empty()) throw Refusal{"--keep needs --save OUT"};
    if (a.KEEP == 0 && !a.SAVE.empty()) throw Refusal{"--save needs --keep N: odds save one of the 100 games"};
    if (a.KEEP > 0 && !a.OUT.empty()) throw Refusal{"--keep plays one position only: no odds to write to --out"};
}

}   // namespace

Arguments Read_Arguments(const std::vector<std::string>& words)
{
    Arguments a;
    std::vector<std::string> given;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word.size() < 2 || word[0] != '-') {
            a.WORDS.push_back(word);
            continue;
        }
        const OPTION_ROW& option = Option_Named(word);
        given.push_back(word);
        if (option.VALUE && (i + 1 >= words.size() || words[i + 1].rfind("--", 0) == 0))
            throw Refusal{Cat(word, " needs a value")};
        option.TAKE(a, word, option.VALUE ? words[++i] : word);
        if (word == "--hash" && i + 1 < words.size() && words[i + 1] == "phases") {
            a.HASH_PHASES = true;
            ++i;
        }
    }
    if (a.WORDS.empty()) throw Refusal{"what shall be done? (see --help)"};
    Refuse_Contradictions(a, Command_Named(a.WORDS[0]), given);
    return a;
}

}   // namespace sm

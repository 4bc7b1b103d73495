#include "commands.h"
#include "core/clock.h"
#include "core/explain.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/state_hash.h"
#include "core/turn_driver.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"

#include <csignal>
#include <filesystem>

namespace sm {

namespace {

constexpr std::size_t MOST_BYTES = std::size_t{1} << 30;

std::filesystem::path Beside_This_Program()
{
    std::error_code fault;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", fault);
    return fault ? std::filesystem::path(".") : program.parent_path();
}

std::string Turn_Heading()
{
    const Header_Texts h = Header();
    return Cat("\n== Turn ", To_Text(GTURN), " of ", To_Text(MAXGTURN), " ends, ", h.CLOCK, " ", h.DATE, ", ",
               h.NIGHT ? "night" : "day");
}

std::string Opening(const Arguments& a)
{
    const std::string name =
        GAMEFILE.Empty() ? std::filesystem::path(a.WORDS[1]).filename().string() : GAMEFILE.Str();
    return Cat(name, ": turn ", To_Text(GTURN), " of ", To_Text(MAXGTURN), ", ", Header().CLOCK, " ",
               Header().DATE);
}

/// Plays to the last turn, or as many as are wanted. False when a turn failed.
bool Play_Turns(const Arguments& a, Printer& printer, BATTLE_RECORD& record)
{
    int left = a.TURNS.value_or(32767);
    while (left-- > 0 && GTURN < MAXGTURN) {
        printer.POSTED.clear();
        if (!Play_Turn()) return false;
        Record_Turn(record, printer.POSTED);
        if (!a.QUIET) Print_Line(Turn_Heading());
        if (a.HASH) Print_Line(Cat("hash ", To_Text(GTURN), ": ", Hash_Text(State_Hash())));
    }
    // The call after the last turn ends the battle; asked for a number of turns, the game stays open for more.
    if (!a.TURNS) Play_Turn();
    record.OVER = GameOver == -1;
    return true;
}

}   // namespace

void Open_Home(const Arguments& a)
{
    const auto stock = Beside_This_Program() / "home";
    const std::filesystem::path home = a.HOME.empty() ? stock : std::filesystem::path(a.HOME);
    const std::string fault = Make_Program_Folder(home, stock);
    if (!fault.empty()) throw Refusal{fault};
    Set_Program_Folder(home);
}

void Let_Computer_Plan(Computer computer)
{
    switch (computer) {
    case Computer::NONE:
        PlayType = 0;
        break;
    case Computer::BLUE_SIDE:
        PlayType = 4;
        break;   // the human is Red
    case Computer::RED_SIDE:
        PlayType = 3;
        break;
    case Computer::BOTH_SIDES:
        PlayType = 34;
        break;
    }
}

void Open_Game(const Arguments& a, const std::string& file, Printer& printer)
{
    const FILE_READ found = Read_File_Whole(file, MOST_BYTES);
    if (!found.ERROR.empty()) throw Refusal{found.ERROR};
    if (!Choose_Game_Type(a.TYPE)) throw Refusal{Cat("--type ", To_Text(a.TYPE), " is no game")};
    TurnLength = a.TURN_LENGTH;
    ELINTDetail = a.ELINT;
    MessageDelay = 0;
    GameFileName = file;
    const bool messages = printer.MESSAGES;
    printer.MESSAGES = false;
    const bool loaded = Load_Game();
    printer.MESSAGES = messages;
    if (!loaded) throw Refusal{Cat(file, ": this game cannot be loaded; `check` tells what is wrong with it")};
    if (a.COMPUTER) Let_Computer_Plan(*a.COMPUTER);
}

int Play(const Arguments& a)
{
    std::vector<std::string> reports;
    if (!a.REPORT.empty()) reports = {a.REPORT + ".txt", a.REPORT + ".html"};
    // Whoever reads the printed battle may stop before its end; the files that were asked for are written all the
    // same.
    if (!a.SAVE.empty() || !a.REPORT.empty()) std::signal(SIGPIPE, SIG_IGN);
    Open_Home(a);   // makes its folders: a file may go into one of them
    for (const std::string& report : reports) Refuse_Unwritable(report);
    Refuse_Unwritable(a.SAVE);
    Printer printer;
    printer.MESSAGES = !a.QUIET;
    printer.STATUS_LINE = a.STATUS;
    Use_Screen(&printer);
    Start_Up(1280, 960);
    Open_Game(a, a.WORDS[1], printer);
    printer.HASH_PHASES = a.HASH_PHASES;
    ExplainUnit = a.EXPLAIN;
    Explain_To([](std::string_view line) { Print_Line(Cat("      | ", line)); });

    if (!a.QUIET) Print_Line(Opening(a));
    BATTLE_RECORD record = Begin_Record();
    const bool sound = Play_Turns(a, printer, record);
    if (!a.QUIET) Print_Line(Cat("\n", Verdict_Text(GTURN, VSTATUS, record.OVER)));
    const bool saved = a.SAVE.empty() || Save_Game_File(a.SAVE, true);
    if (!reports.empty()) {
        Write_Out({{reports[0], Report_Text(record)}, {reports[1], Report_Html(record)}});
        if (!a.QUIET) Print_Utf8(Cat("The report is in ", reports[0], " and ", reports[1], "\n"));
    }
    if (!saved) throw Refusal{Cat(a.SAVE, ": cannot be written")};
    Use_Screen(nullptr);
    if (!sound) throw Refusal{Cat("turn ", To_Text(GTURN + 1), " failed; the log in the program folder tells where")};
    return FINE;
}

}   // namespace sm

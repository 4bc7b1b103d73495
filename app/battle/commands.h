#pragma once
// The commands of stonemarch-battle, and what they share.

#include "aar/battle_record.h"
#include "core/platform.h"
#include "core/text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

inline constexpr int FINE = 0, FAULTS_FOUND = 1, WRONG_USE = 2;

/// Wrong use or an unreadable file: one clear line, exit status 2.
struct Refusal {
    std::string LINE;
};

enum class Computer { NONE, BLUE_SIDE, RED_SIDE, BOTH_SIDES };

struct Arguments {
    std::vector<std::string> WORDS;   ///< the command and its files
    std::optional<int> TURNS;
    std::string SAVE, HOME, REPORT, OUT;
    bool HASH = false, HASH_PHASES = false, QUIET = false, STATUS = false;
    int TYPE = 0, TURN_LENGTH = 0, ELINT = 0, EXPLAIN = 0;
    std::optional<Computer> COMPUTER;
    int WORKERS = 0, KEEP = 0;     ///< 0 workers: one for each processor
    int BATTLES = 20, FIRST = 1;   ///< soak
};
/// Refuses unknown words, options of another command, and contradictions.
Arguments Read_Arguments(const std::vector<std::string>& words);

void Print(std::string_view text);   ///< code page 1252, printed as UTF-8
void Print_Line(std::string_view text);
void Print_Utf8(std::string_view text);

/// The screen of a staff officer with a printer: phases as headings, messages by audience and place.
class Printer : public Headless_Platform {
public:
    bool MESSAGES = true;
    bool STATUS_LINE = false;   ///< also what the status line shows for a moment
    bool HASH_PHASES = false;
    std::vector<MESSAGE_MARK> POSTED;   ///< messages of the turn under way

    void Phase(std::string_view title) override;
    void Status(std::string_view text, Status_Colour colour) override;
    void Posted(int row) override;
    void Box(std::string_view title, std::string_view text) override;
    void Phase_Done(std::string_view name) override;
};

/// Makes and opens the program folder.
void Open_Home(const Arguments& a);
/// Loads a game as the arguments say, silently; refuses one that cannot be loaded.
void Open_Game(const Arguments& a, const std::string& file, Printer& printer);
/// Says who plans the sides from the next turn on.
void Let_Computer_Plan(Computer computer);
/// Refuses a file that cannot be written, before the work whose result it is to hold. An empty path is fine.
void Refuse_Unwritable(const std::string& path);
/// Writes all files, each whole, whatever becomes of the others; then refuses if one could not be written.
struct OUT_FILE {
    std::string PATH, CONTENT;
};
void Write_Out(const std::vector<OUT_FILE>& files);

int Play(const Arguments& a);
int Check(const Arguments& a);
int Diff(const Arguments& a);
int Odds(const Arguments& a);
int Soak(const Arguments& a);

}   // namespace sm

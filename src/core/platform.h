#pragma once
// The one port to the screen. The model tells; it never asks the screen anything that a rule depends on. Questions are
// put by commands of the interface only (and by the one repair of a unit without a side).

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// What is drawn for a moment: a shot, an impact, aircraft. Places are picture pixels.
enum class Draw {
    SHOT,            ///< direct fire from one unit to another
    IMPACT,          ///< artillery at a place
    STRIKE,          ///< aircraft flying in on a place
    FIGHTERS,        ///< interceptors at a place
    TRACER,          ///< air defence fire
    INTERCEPTOR,     ///< missile defence
    HELICOPTERS,     ///< attack helicopters and their shots
    EXPLOSION,
    BREACH,          ///< breaching mark
    PRISONERS,       ///< prisoners' icon; AUX is the side that surrendered
    CENTRE,          ///< the screen centres on a place
};
struct Drawing {
    Draw KIND;
    int X1 = 0, Y1 = 0;
    int X2 = 0, Y2 = 0;
    int UNIT = 0;
    int AUX = 0;
};

/// What has changed so that the screen has to be drawn anew.
enum class Redraw { UNITS, ROUTES, GRAPHICS, HEADER, ALL };

struct File_Request {
    std::string TITLE;
    std::string FOLDER;   ///< under the program folder
    std::string FILTER;   ///< "Scenario Files (*.sce)|*.sce|..."
    bool SAVE = false;
};

/// A file that an event plays or shows.
enum class Media_Kind { AUDIO, PICTURE, VIDEO };

enum class Status_Colour { NORMAL, BRIGHT_GREEN };

class Platform {
public:
    virtual ~Platform() = default;

    virtual void Phase(std::string_view title) = 0;   ///< "Movement Phase" and its like
    virtual void Status(std::string_view text, Status_Colour colour) = 0;
    virtual void Posted(int sitrep_row) = 0;          ///< a row of SITREPLIST was filled
    virtual void Box(std::string_view title, std::string_view text) = 0;
    /// Yes or no (also OK or Cancel).
    virtual bool Ask(std::string_view title, std::string_view text) = 0;
    /// Chosen path, empty when cancelled.
    virtual std::string Ask_File(const File_Request& request) = 0;
    virtual void Progress(int value, int maximum) = 0;   ///< maximum 0 hides the bar
    /// Waits, with painting and timers only; nothing that happens meanwhile changes the model.
    virtual void Delay(int milliseconds) = 0;
    virtual void Sound(int cue) = 0;   ///< 1..16
    virtual void Beep() = 0;
    /// Plays or shows a file to its end. One that cannot be played stays away without a word.
    virtual void Media(Media_Kind, std::string_view /*file*/) {}
    virtual void Drawn(const Drawing& drawing) = 0;
    virtual void Unit_Changed(int unit) = 0;   ///< place, picture or state of one unit
    virtual void Changed(Redraw what) = 0;
    virtual void Phase_Done(std::string_view name) = 0;   ///< after each phase of a turn, for hashes and checks
};

/// The screen in use; a headless one until Use_Screen names another.
Platform& Screen();
void Use_Screen(Platform* screen);   ///< nullptr goes back to the silent headless screen

/// Tests, batch runs, the command line: waits for nothing, and keeps what it was told when RECORDING.
class Headless_Platform : public Platform {
public:
    struct Told {
        std::string KIND;   ///< "phase", "status", "post", "box", "ask", "file", "delay", "sound", "beep", "media", "draw",
                            ///< "done"
        std::string TEXT;
        int NUMBER = 0;
    };
    bool RECORDING = false;
    std::vector<Told> TOLD;
    std::vector<bool> ANSWERS;            ///< answers to come, first first; yes when there is none
    std::vector<std::string> FILES;       ///< chosen files to come; cancelled when there is none
    std::vector<Drawing> DRAWINGS;

    /// Whether something of this kind holding this text was told.
    bool Heard(std::string_view kind, std::string_view text) const;
    int Count(std::string_view kind, std::string_view text) const;

    void Phase(std::string_view title) override;
    void Status(std::string_view text, Status_Colour colour) override;
    void Posted(int sitrep_row) override;
    void Box(std::string_view title, std::string_view text) override;
    bool Ask(std::string_view title, std::string_view text) override;
    std::string Ask_File(const File_Request& request) override;
    void Progress(int value, int maximum) override;
    void Delay(int milliseconds) override;
    void Sound(int cue) override;
    void Beep() override;
    void Media(Media_Kind kind, std::string_view file) override;
    void Drawn(const Drawing& drawing) override;
    void Unit_Changed(int unit) override;
    void Changed(Redraw what) override;
    void Phase_Done(std::string_view name) override;

private:
    void Tell(std::string_view kind, std::string_view text, int number = 0);
};

/// Texts of the status line and the common pause, as phases use them.
void Show_Status(std::string_view text);
void Show_Status_And_Wait(std::string_view text, int milliseconds);

}   // namespace sm

#pragma once
// The desk: what the window shows beside the map and the seat's own view. Handlers write it, the window draws it.

#include "core/errors.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// Command palettes that replace each other.
enum class Palette { TYPES, MAIN, ORDERS };

struct Desk {
    Palette PALETTE = Palette::TYPES;
    int CoveredFor = 0;                   ///< the screen is covered until this side sits down; 0 open
    int LastSide = 0;                     ///< side that planned on this screen last, 0 none since the turn
    bool PLANNED[3] = {};                 ///< side has had the seat since the turn
    int OVERLAY = 0;                      ///< terrain overlay: 0 hidden, 1 and 2 its two kinds
    bool StatusBox = true;                ///< unit status box shown
    bool SITREPS = true;                  ///< list of situation reports shown
    bool OVERVIEW = true;                 ///< overview map shown
    bool CENTRING = true;                 ///< the map follows the selection
    int ClickX = -1000, ClickY = -1000;   ///< where the last pile was clicked
    bool LEAVING = false;           ///< asked to leave in the middle of a turn: no more waiting, no more questions
    bool CLOSED = false;            ///< the program ends
    std::uint64_t SavedState = 0;   ///< what a save held last
};
extern Desk DESK;

/// What becomes of a game that no save holds.
enum class Unsaved { SAVE, DROP, STAY };

/// What handlers ask of the window beyond core/platform.h. The one in use is a silent one until Use_Window names
/// another.
class Window {
public:
    virtual ~Window() = default;
    virtual void Desk_Changed() {}
    virtual void Scroll_Map(int /*columns*/, int /*rows*/) {}   ///< in scrolling steps
    virtual void Show_Whole_Map() {}
    virtual void Look_Back() {}   ///< to where the map was before the last jump
    virtual void Zoom_Map(int /*steps*/) {}   ///< in above 0, out below
    virtual void Show_Forces() {}             ///< the forces in the middle of the map, near enough to be read
    virtual void Centre_Map(int /*x*/, int /*y*/) {}   ///< picture pixels
    virtual void Show_Lines(std::string_view /*title*/, const std::vector<std::string>& /*lines*/) {}
    virtual void Show_Help(std::string_view /*file*/, std::string_view /*title*/) {}
    virtual void Show_Keys() {}
    virtual void Show_Victory() {}
    /// STAY: nothing happens after all. Without a window the question has two answers.
    virtual Unsaved Ask_To_Save(std::string_view title, std::string_view text);
    virtual void Stop_Sounds() {}
    virtual void Show_Plot_List() {}   ///< at its button
    /// One of these units by name, 0 when the player takes none.
    virtual int Choose_Unit(std::string_view /*title*/, const std::vector<int>& /*units*/) { return 0; }
    virtual void Close() {}
};
Window& The_Window();
void Use_Window(Window* window);

/// Whether this seat may see the plans of a side (routes, graphics, all about its units).
bool Sees_Plans_Of(int side);

/// A failure of the model as every command tells it: the log names the routine, a box the number.
void Tell_Failure(const char* routine, int number, std::string_view what);

/// Runs `work`; false when it failed, and the player was told.
template <class Work>
bool Guarded(const char* routine, Work&& work)
{
    try {
        work();
        return true;
    } catch (const Game_Error& error) {
        Tell_Failure(routine, error.NUMBER, error.what());
        return false;
    }
}

}   // namespace sm

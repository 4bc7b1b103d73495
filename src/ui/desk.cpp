#include "ui/desk.h"

#include "core/game_state.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/seat.h"

namespace sm {

Desk DESK;

namespace {

Window SILENT;
Window* IN_USE = &SILENT;

}   // namespace

Unsaved Window::Ask_To_Save(std::string_view title, std::string_view text)
{
    return Screen().Ask(title, text) ? Unsaved::SAVE : Unsaved::DROP;
}

Window& The_Window() { return *IN_USE; }

void Use_Window(Window* window) { IN_USE = window != nullptr ? window : &SILENT; }

bool Sees_Plans_Of(int side)
{
    if (UserSide == 5 || GameOver == -1) return true;
    if (UserSide == BLUE || UserSide == RED) return side == UserSide;
    return side == ActiveSide;
}

void Tell_Failure(const char* routine, int number, std::string_view what)
{
    Log(Cat("Error ", To_Text(number), " in ", routine, ": ", what));
    Screen().Box("Stonemarch", Cat("Error: ", To_Text(number)));
}

}   // namespace sm

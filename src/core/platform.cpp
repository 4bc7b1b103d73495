#include "core/platform.h"

#include "core/game_state.h"

namespace sm {

namespace {

Headless_Platform SILENT;
Platform* IN_USE = &SILENT;

}   // namespace

Platform& Screen() { return *IN_USE; }

void Use_Screen(Platform* screen) { IN_USE = screen != nullptr ? screen : &SILENT; }

void Show_Status(std::string_view text) { Screen().Status(text, Status_Colour::NORMAL); }

void Show_Status_And_Wait(std::string_view text, int milliseconds)
{
    Show_Status(text);
    Screen().Delay(milliseconds);
}

bool Headless_Platform::Heard(std::string_view kind, std::string_view text) const { return Count(kind, text) > 0; }

int Headless_Platform::Count(std::string_view kind, std::string_view text) const
{
    int n = 0;
    for (const Told& told : TOLD) n += told.KIND == kind && told.TEXT.find(text) != std::string::npos ? 1 : 0;
    return n;
}

void Headless_Platform::Tell(std::string_view kind, std::string_view text, int number)
{
    if (RECORDING) TOLD.push_back({std::string(kind), std::string(text), number});
}

void Headless_Platform::Phase(std::string_view title) { Tell("phase", title); }
void Headless_Platform::Status(std::string_view text, Status_Colour) { Tell("status", text); }
void Headless_Platform::Posted(int row) { Tell("post", SITREPLIST[row].TEXT, SITREPLIST[row].SIDE); }
void Headless_Platform::Box(std::string_view title, std::string_view text) { Tell("box", Cat(title, "|", text)); }

bool Headless_Platform::Ask(std::string_view title, std::string_view text)
{
    Tell("ask", Cat(title, "|", text));
    if (ANSWERS.empty()) return true;
    const bool answer = ANSWERS.front();
    ANSWERS.erase(ANSWERS.begin());
    return answer;
}

std::string Headless_Platform::Ask_File(const File_Request& request)
{
    Tell("file", Cat(request.TITLE, "|", request.FOLDER, "|", request.FILTER));
    if (FILES.empty()) return {};
    std::string file = FILES.front();
    FILES.erase(FILES.begin());
    return file;
}

void Headless_Platform::Progress(int, int) {}
void Headless_Platform::Delay(int milliseconds) { Tell("delay", "", milliseconds); }
void Headless_Platform::Sound(int cue) { Tell("sound", "", cue); }
void Headless_Platform::Beep() { Tell("beep", ""); }
void Headless_Platform::Media(Media_Kind kind, std::string_view file) { Tell("media", file, static_cast<int>(kind)); }
void Headless_Platform::Drawn(const Drawing& drawing)
{
    if (RECORDING) DRAWINGS.push_back(drawing);
}
void Headless_Platform::Unit_Changed(int) {}
void Headless_Platform::Changed(Redraw) {}
void Headless_Platform::Phase_Done(std::string_view name) { Tell("done", name); }

}   // namespace sm

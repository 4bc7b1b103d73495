// stonemarch: the window.

#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "desktop/dialogs/boxes.h"
#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "persist/program_folder.h"
#include "ui/game_commands.h"
#include "ui/session_mark.h"

#include <QApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace {

using namespace sm;
namespace fs = std::filesystem;

constexpr const char* HELP =
    "stonemarch: a turn-based simulation of land warfare\n"
    "\n"
    "  --home DIR       program folder (default: a writable home/ beside the program, else the user's data "
    "folder)\n"
    "  --size WxH       1024x768, 1152x864 or 1280x960 (default: the largest that fits the desktop)\n"
    "  --help, --version\n";

struct Arguments {
    std::string HOME, SIZE;
};

/// 0 and more: the program ends with this status; -1: it goes on.
int Read_Arguments(int argc, char** argv, Arguments& a)
{
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const bool more = i + 1 < argc;
        if (word == "--help") {
            std::fputs(HELP, stdout);
            return 0;
        }
        if (word == "--version") {
            std::printf("stonemarch %s\n", Build_Version().c_str());
            return 0;
        }
        if (word == "--home" && more) {
            a.HOME = argv[++i];
        } else if (word == "--size" && more) {
            a.SIZE = argv[++i];
        } else {
            std::fprintf(stderr, "stonemarch: unknown or incomplete option %s (see --help)\n", word.c_str());
            return 2;
        }
    }
    return -1;
}

/// Stock content beside the program in a build, under share/ when installed.
fs::path Stock_Folder()
{
    const fs::path program = fs::path(desktop::Path_From_Screen(QCoreApplication::applicationDirPath()));
    std::error_code fault;
    const fs::path beside = program / "home", shared = program.parent_path() / "share" / "stonemarch" / "home";
    return fs::is_directory(beside, fault) ? beside : shared;
}

fs::path Choose_Home(const std::string& asked)
{
    if (!asked.empty()) return asked;
    const fs::path beside = fs::path(desktop::Path_From_Screen(QCoreApplication::applicationDirPath())) / "home";
    if (access(beside.c_str(), W_OK | X_OK) == 0) return beside;
    return fs::path(desktop::Path_From_Screen(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
}

/// "1280x960" and its like; false for any size that is not accepted.
bool Read_Size(const std::string& asked, int& width, int& height)
{
    return std::sscanf(asked.c_str(), "%dx%d", &width, &height) == 2 && Screen_Size_Accepted(width, height);
}

/// The window's size: asked for, or the largest accepted one that fits. False when the desktop is too small.
bool Choose_Size(const std::string& asked, QSize& size)
{
    int width = 0, height = 0;
    if (Read_Size(asked, width, height)) {
        size = QSize(width, height);
        return true;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize room = screen->availableSize(), whole = screen->size();
    if (!Window_Size_For(room.width(), room.height(), width, height) &&
        !Window_Size_For(whole.width(), whole.height(), width, height))
        return false;
    size = QSize(width, height);
    return true;
}

/// A window as high as the desktop has no room for a frame.
void Place_Window(desktop::Main_Window& window)
{
    constexpr int FRAME = 32;
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    if (window.height() + FRAME > room.height()) window.setWindowFlag(Qt::FramelessWindowHint);
    window.move(room.left() + (room.width() - window.width()) / 2,
                room.top() + std::max(0, (room.height() - window.height() - FRAME) / 2));
}

}   // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (const int status = Read_Arguments(argc, argv, arguments); status >= 0) return status;
    if (int width = 0, height = 0; !arguments.SIZE.empty() && !Read_Size(arguments.SIZE, width, height)) {
        std::fprintf(stderr, "stonemarch: no such size: %s (see --help)\n", arguments.SIZE.c_str());
        return 2;
    }

    desktop::Sound_Player::Choose_Backend();
    QCoreApplication::setApplicationName(QStringLiteral("stonemarch"));
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    desktop::Settle_Application(application);

    QSize size;
    const bool fits = Choose_Size(arguments.SIZE, size);
    const fs::path home = Choose_Home(arguments.HOME);
    std::string fault = Make_Program_Folder(home, Stock_Folder());
    if (fault.empty() && access(home.c_str(), W_OK | X_OK) != 0)
        fault = "Cannot write to the folder \"" + home.string() + "\": " + std::strerror(errno) +
                ". Games are played, but not saved there.";
    Set_Program_Folder(home);
    const QSize desktop_size = QGuiApplication::primaryScreen()->size();
    Start_Up(fits ? size.width() : desktop_size.width(), fits ? size.height() : desktop_size.height());
    if (!fault.empty()) Log(fault);
    if (!fits) {
        desktop::Show_Box(nullptr, QStringLiteral("Stonemarch Video Error"), desktop::To_Screen(Screen_Refusal()));
        return 1;
    }

    desktop::Main_Window window(size);
    Place_Window(window);
    window.show();
    int broken_type = 0;
    const bool broken = Open_Session_Mark(broken_type);
    QTimer::singleShot(0, &window, [&] {
        window.Begin();
        if (!fault.empty())
            Screen().Box("Stonemarch",
                         Cat("The program folder cannot be used as it should be:\r", From_Utf8(fault)));
        if (broken) Offer_Autosave(broken_type);
    });
    const int status = QApplication::exec();
    Close_Session_Mark();
    Close_Log();
    return status;
}

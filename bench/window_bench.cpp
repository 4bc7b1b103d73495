// The window's speed, beside an empty Qt window and a bare read of a file in the same run: the frames while 600
// units march, the start to a window that can be used, the opening of a full game. Software rendering. Status 1
// when an aim is missed.
#include "core/game_state.h"
#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "desktop/main_window.h"
#include "desktop/map/map_view.h"
#include "desktop/sound/player.h"
#include "desktop/theme.h"
#include "persist/program_folder.h"
#include "support/board.h"
#include "support/places.h"
#include "support/small_battle.h"
#include "ui/desk.h"
#include "ui/game_commands.h"

#include <QApplication>
#include <QGraphicsView>
#include <QPainter>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

using namespace sm;
using namespace sm::desktop;

namespace {

constexpr QSize SIZE(1280, 960);
constexpr double FRAME_OF_60_HZ = 1000.0 / 60;
constexpr int REPETITIONS = 5;

double Milliseconds(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

double Percentile(std::vector<double> times, double share)
{
    if (times.empty()) return 0;
    std::sort(times.begin(), times.end());
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
}

int MISSED = 0;

void Tell(const char* what, double milliseconds, double aim)
{
    const bool missed = aim > 0 && milliseconds > aim;
    MISSED += missed ? 1 : 0;
    std::printf("%-44s %9.2f ms", what, milliseconds);
    if (aim > 0) std::printf("   aim %.2f%s", aim, missed ? "   MISSED" : "");
    std::printf("\n");
    std::fflush(stdout);
}

// ---------------------------------------------------------------------------------------------- one start, in a
// child

/// An empty window, to its first frame.
class Empty_Window : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(rect(), Qt::white);
        QTimer::singleShot(0, this, &QApplication::quit);
    }
};

int Start_Empty()
{
    Empty_Window window;
    window.setFixedSize(SIZE);
    window.show();
    return QApplication::exec();
}

/// The program as a player starts it, until its window is drawn and answers.
int Start_Window()
{
    Set_Program_Folder(STONEMARCH_HOME_DIR);
    Start_Up(SIZE.width(), SIZE.height());
    Main_Window window(SIZE);
    window.show();
    QTimer::singleShot(0, &window, [&] {
        window.Begin();
        QTimer::singleShot(0, &window, [] {
            DESK.CLOSED = true;   // nobody is asked
            QApplication::quit();
        });
    });
    return QApplication::exec();
}

double Shortest_Start(const char* kind)
{
    double shortest = 1e9;
    for (int n = 0; n < REPETITIONS; ++n) {
        QElapsedTimer timer;
        timer.start();
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kind)});
        child.waitForFinished(60000);
        shortest = std::min(shortest, Milliseconds(timer));
    }
    return shortest;
}

// ---------------------------------------------------------------------------------------------- a full game

/// Waits as long as pictures take to glide, not as long as a player reads.
class Hurried_Window : public Main_Window {
public:
    using Main_Window::Main_Window;
    void Delay(int milliseconds) override { Main_Window::Delay(std::min(milliseconds, 250)); }
};

double Shortest_Read(const std::string& file)
{
    double shortest = 1e9;
    for (int n = 0; n < REPETITIONS; ++n) {
        QElapsedTimer timer;
        timer.start();
        std::ifstream in(file, std::ios::binary);
        const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (content.size() < 1000) std::abort();
        shortest = std::min(shortest, Milliseconds(timer));
    }
    return shortest;
}

double Shortest_Opening(Main_Window& window, const std::string& file)
{
    double shortest = 1e9;
    for (int n = 0; n < REPETITIONS; ++n) {
        QElapsedTimer timer;
        timer.start();
        if (!Open_Game_File(file)) std::abort();
        window.repaint();
        window.Map().viewport()->repaint();
        shortest = std::min(shortest, Milliseconds(timer));
    }
    return shortest;
}

/// Frames of an empty view as large as the map.
std::vector<double> Empty_Frames(QSize size)
{
    class View : public QGraphicsView {
    public:
        std::vector<double> TIMES;
        using QGraphicsView::QGraphicsView;
        void paintEvent(QPaintEvent* event) override
        {
            QElapsedTimer timer;
            timer.start();
            QGraphicsView::paintEvent(event);
            TIMES.push_back(Milliseconds(timer));
        }
    };
    QGraphicsScene scene;
    View view(&scene);
    view.setFixedSize(size);
    scene.setBackgroundBrush(Qt::gray);
    view.setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    view.show();
    QCoreApplication::processEvents();
    view.TIMES.clear();
    for (int n = 0; n < 200; ++n) view.viewport()->repaint();
    return view.TIMES;
}

std::vector<double> Turn_Frames(Main_Window& window, const std::string& file, double zoom)
{
    std::vector<double> frames;
    if (!Open_Game_File(file)) std::abort();
    ViewMode = 3;
    Refresh_Pictures();
    window.Map().Show_Whole();
    if (zoom > 0) window.Map().Set_Zoom(zoom, QPointF(500, 300));
    MessageDelay = 0;
    window.RECORD = &frames;
    cmdGO_Click();
    window.RECORD = nullptr;
    return frames;
}

void Report_Frames(const char* where, const std::vector<double>& frames)
{
    char line[80];
    std::snprintf(line, sizeof line, "%s: %d frames, median", where, static_cast<int>(frames.size()));
    Tell(line, Percentile(frames, 0.5), 0);
    std::snprintf(line, sizeof line, "%s: 95th percentile", where);
    Tell(line, Percentile(frames, 0.95), FRAME_OF_60_HZ);
}

int Measure()
{
    Tell("start of an empty Qt window", Shortest_Start("--start-empty"), 0);
    Tell("start to the usable window", Shortest_Start("--start-window"), 0);

    const test::Scratch_Home home;
    const std::string full = test::Save_Full_Battle(home).string();
    DESK = Desk{};
    Set_Start_Defaults();
    SoundOn = 0;
    Hurried_Window window(SIZE);
    window.show();
    Choose_Game_Type(0);
    Tell("bare read of the full game's file", Shortest_Read(full), 0);
    Tell("opening of the full game, map drawn", Shortest_Opening(window, full), 0);

    const std::vector<double> empty = Empty_Frames(window.Map().size());
    Tell("empty view: 95th percentile of a frame", Percentile(empty, 0.95), 0);
    Report_Frames("600 units march, whole map", Turn_Frames(window, full, 0));
    Report_Frames("600 units march, zoom 1.5", Turn_Frames(window, full, 1.5));
    DESK.CLOSED = true;
    std::printf(MISSED == 0 ? "every aim met\n" : "%d missed\n", MISSED);
    return MISSED == 0 ? 0 : 1;
}

}   // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    Sound_Player::Choose_Backend();
    QApplication application(argc, argv);
    Settle_Application(application);
    const char* what = argc > 1 ? argv[1] : "";
    if (std::strcmp(what, "--start-empty") == 0) return Start_Empty();
    if (std::strcmp(what, "--start-window") == 0) return Start_Window();
    return Measure();
}

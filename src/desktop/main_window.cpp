#include "desktop/main_window.h"

#include "core/game_state.h"
#include "core/log.h"
#include "core/seat.h"
#include "core/session.h"
#include "desktop/dialogs/boxes.h"
#include "desktop/dialogs/victory_sheet.h"
#include "desktop/map/map_view.h"
#include "desktop/map/overview.h"
#include "desktop/panels/header_bar.h"
#include "desktop/panels/message_panel.h"
#include "desktop/panels/pages.h"
#include "desktop/panels/palette_panel.h"
#include "desktop/panels/status_line.h"
#include "desktop/panels/status_panel.h"
#include "desktop/theme.h"
#include "ui/game_commands.h"
#include "ui/hover.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QTimer>

namespace sm::desktop {

namespace {

constexpr int SIDEBAR = 228;
enum Page { START, GAME };
enum Body { BOARD, COVER };

/// At this message delay sound effects are left out.
constexpr float FAST = 100.0f;

}   // namespace

Main_Window::Main_Window(QSize size) : actions_(*this)
{
    setObjectName(QStringLiteral("Form1"));
    setFixedSize(size);
    actions_.Build_Menus(*menuBar());
    menuBar()->setNativeMenuBar(false);
    pages_ = new QStackedWidget(this);
    pages_->addWidget(new Start_Page(pages_));
    pages_->addWidget(Build_Game_Page());
    setCentralWidget(pages_);
    Use_Screen(this);
    Use_Window(this);
    qApp->installEventFilter(this);
    Desk_Changed();
}

Main_Window::~Main_Window()
{
    qApp->removeEventFilter(this);
    End_Waits();
    if (&Screen() == this) Use_Screen(nullptr);
    if (&The_Window() == this) Use_Window(nullptr);
}

void Main_Window::Begin()
{
    sounds_.Load();
    if (SoundOn == 1) sounds_.Play_Opening();
}

QWidget* Main_Window::Build_Game_Page()
{
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    header_ = new Header_Bar(actions_, page);
    column->addWidget(header_);

    body_ = new QStackedWidget(page);
    auto* board = new QWidget(body_);
    auto* rows = new QVBoxLayout(board);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(0);
    map_ = new Map_View(board);
    upper->addWidget(map_, 1);
    back_ = new QPushButton(QStringLiteral("\u2190 Back"), map_);
    back_->setObjectName(QStringLiteral("cmdMapBack"));
    back_->setProperty("onmap", true);
    back_->setFocusPolicy(Qt::NoFocus);
    back_->setToolTip(QStringLiteral("Return to where the map was (Backspace)"));
    back_->move(12, 12);
    back_->hide();
    connect(back_, &QPushButton::clicked, this, [this] { Look_Back(); });
    auto* sidebar = new QWidget(board);
    sidebar->setFixedWidth(SIDEBAR);
    auto* side = new QVBoxLayout(sidebar);
    side->setContentsMargins(10, 10, 10, 8);
    side->setSpacing(10);
    overview_ = new Overview(*map_, map_);
    overview_->resize(width() / 8, width() / 8);
    palette_ = new Palette_Panel(actions_, sidebar);
    side->addWidget(palette_, 1);
    upper->addWidget(sidebar);
    rows->addLayout(upper, 1);

    const bool small = width() < 1100;
    strip_ = new QWidget(board);
    strip_->setFixedHeight(small ? 226 : 242);   // ten lines of status, or eleven
    auto* strip = new QHBoxLayout(strip_);
    strip->setContentsMargins(8, 8, 8, 8);
    strip->setSpacing(8);
    status_ = new Status_Panel(strip_);
    status_->setFixedWidth(small ? 428 : 440);
    strip->addWidget(status_);
    messages_ = new Message_Panel(strip_);
    strip->addWidget(messages_, 1);
    rows->addWidget(strip_);
    body_->addWidget(board);
    cover_ = new Cover_Page(body_);
    body_->addWidget(cover_);
    column->addWidget(body_, 1);
    line_ = new Status_Line(page);
    column->addWidget(line_);

    map_->On_Hover = [this](int x, int y) {
        if (DESK.CoveredFor == 0) line_->Point(x < 0 && y < 0 ? Hover_Texts{} : Hover(x, y, 8));
    };
    map_->On_Order_Menu = [this](QPoint at) { Order_Menu(at); };
    map_->On_View_Moved = [this] {
        Place_On_Map();
        overview_->update();
    };
    messages_->On_Go_To = [this](int row) { Go_To_Message(row); };
    messages_->On_Chosen = [this](int row) {
        if (row > 0) map_->Mark_Message(QPointF(SITREPLIST[row].X, SITREPLIST[row].Y), true);
    };
    return page;
}

// ---------------------------------------------------------------------------------------------- what the engine
// tells

void Main_Window::Phase(std::string_view title)
{
    header_->Phase(To_Screen(title));
    palette_->Phase(To_Screen(title));
    line_->Say(To_Screen(title), false);
}

void Main_Window::Status(std::string_view text, Status_Colour colour)
{
    line_->Say(To_Screen(text), colour == Status_Colour::BRIGHT_GREEN);
}

void Main_Window::Posted(int)
{
    // Hundreds may come in one phase: the list is filled when the window next draws.
    if (messages_stale_) return;
    messages_stale_ = true;
    QTimer::singleShot(0, this, [this] {
        messages_stale_ = false;
        messages_->Refresh();
    });
}

void Main_Window::Box(std::string_view title, std::string_view text)
{
    if (DESK.LEAVING || DESK.CLOSED) return;
    Show_Box(this, To_Screen(title), To_Screen(text));
}

bool Main_Window::Ask(std::string_view title, std::string_view text)
{
    if (DESK.LEAVING || DESK.CLOSED) return true;
    return Ask_Box(this, To_Screen(title), To_Screen(text));
}

std::string Main_Window::Ask_File(const File_Request& request) { return Ask_File_Box(this, request); }

void Main_Window::Progress(int value, int maximum)
{
    header_->Progress(value, maximum);
    map_->Paint_If_Due();
}

void Main_Window::Delay(int milliseconds)
{
    if (DESK.LEAVING || DESK.CLOSED) return;
    // Timers and painting run in here, and what the player does is answered; every command that writes to a table
    // is refused while the turn runs.
    QEventLoop wait;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &wait, &QEventLoop::quit);
    waits_.push_back(&wait);
    wait.exec();
    waits_.pop_back();
}

void Main_Window::End_Waits()
{
    for (QEventLoop* wait : waits_) wait->quit();
}

void Main_Window::Sound(int cue)
{
    if (SEAT.TurnRunning && MessageDelay <= FAST) return;
    sounds_.Play(cue);
}

void Main_Window::Beep()
{
    if (SoundOn == 1) QApplication::beep();
}

void Main_Window::Drawn(const Drawing& drawing) { map_->Drawn(drawing); }

void Main_Window::Unit_Changed(int unit)
{
    map_->Unit_Changed(unit, SEAT.TurnRunning);
    overview_->Units_Moved();
}

void Main_Window::Changed(Redraw what)
{
    switch (what) {
    case Redraw::UNITS:
        map_->Stand_Still();
        break;
    case Redraw::ROUTES:
        map_->Refresh(false);
        break;
    case Redraw::GRAPHICS:
        map_->Refresh(DESK.OVERLAY != 0);
        break;
    case Redraw::HEADER:
        header_->Refresh();
        map_->Refresh(false);
        break;
    case Redraw::ALL:
        map_->Take_Game();
        overview_->Take_Game();
        Desk_Changed();
        break;
    }
}

void Main_Window::Phase_Done(std::string_view) { map_->Paint_If_Due(); }

// ---------------------------------------------------------------------------------------------- what the handlers
// tell

void Main_Window::Desk_Changed()
{
    Change_Seats();
    const bool start = DESK.PALETTE == Palette::TYPES;
    pages_->setCurrentIndex(start ? START : GAME);
    body_->setCurrentIndex(DESK.CoveredFor != 0 ? COVER : BOARD);
    actions_.Refresh();
    cover_->Refresh();
    header_->Refresh();
    palette_->Refresh();
    status_->Refresh();
    status_->setVisible(DESK.StatusBox);
    messages_->setVisible(DESK.SITREPS);
    strip_->setVisible(DESK.StatusBox || DESK.SITREPS);
    messages_->Refresh();
    if (DESK.CoveredFor != 0 || GameLoaded == 0) {
        looked_at_.clear();
        map_->Mark_Message({}, false);
        line_->Point({});
    }
    Offer_Back();
    if (overlay_ != DESK.OVERLAY) {
        overlay_ = DESK.OVERLAY;
        map_->Refresh(true);
    } else {
        map_->Refresh(false);
    }
    overview_->setVisible(DESK.OVERVIEW && GameLoaded != 0);
    Place_On_Map();
    overview_->update();
    Set_Title();
}

/// What one side looked at is not for the next: its sheets close, and each side finds the map where it left it.
void Main_Window::Change_Seats()
{
    if (served_ == ActiveSide && covered_for_ == DESK.CoveredFor) return;
    const QPointF centre = map_->Seen().center();
    if (served_ == BLUE || served_ == RED) {
        seen_by_[served_] = LOOKED_AT{map_->Zoom(), centre.x(), centre.y()};
        Close_Sheets(this);
    }
    if (covered_for_ != 0 && covered_for_ == ActiveSide) {
        if (const auto& seen = seen_by_[ActiveSide]; seen) {
            map_->Set_Zoom(seen->ZOOM, QPointF());
            map_->Go_To(seen->X, seen->Y);
        } else {
            map_->Show_Forces();
        }
    }
    served_ = ActiveSide;
    covered_for_ = DESK.CoveredFor;
}

void Main_Window::Set_Title()
{
    const QString title = To_Screen(WindowTitle);
    if (windowTitle() != title) setWindowTitle(title);
}

void Main_Window::Scroll_Map(int columns, int rows) { map_->Scroll_Steps(columns, rows); }
void Main_Window::Zoom_Map(int steps) { map_->Zoom_Steps(steps, QRectF(map_->viewport()->rect()).center()); }
void Main_Window::Show_Whole_Map() { map_->Show_Whole(); }
void Main_Window::Show_Forces()
{
    for (auto& seen : seen_by_) seen.reset();   // another game is in play
    map_->Show_Forces();
}
void Main_Window::Centre_Map(int x, int y) { map_->Glide_To(x, y); }

void Main_Window::Show_Lines(std::string_view title, const std::vector<std::string>& lines)
{
    Show_Sheet(this, To_Screen(title), lines);
}

void Main_Window::Show_Help(std::string_view file, std::string_view title)
{
    Show_Help_Sheet(this, To_Screen(title), std::string(file));
}

void Main_Window::Show_Victory() { Show_Victory_Sheet(this); }

void Main_Window::Show_Keys() { Show_Key_Sheet(this, QStringLiteral("Keyboard Commands"), Key_List()); }

int Main_Window::Choose_Unit(std::string_view title, const std::vector<int>& units)
{
    std::vector<std::string> names;
    for (const int u : units) names.push_back(UNIT[u].NAME.Str());
    const int chosen = Ask_List(this, To_Screen(title), names);
    return chosen < 0 ? 0 : units[static_cast<std::size_t>(chosen)];
}

void Main_Window::Close()
{
    End_Waits();
    close();
}

// ---------------------------------------------------------------------------------------------- what the player
// does

void Main_Window::Go_To_Message(int row)
{
    if (row < 1) return;
    const QPointF centre = map_->Seen().center();
    looked_at_.push_back({map_->Zoom(), centre.x(), centre.y()});
    if (map_->Zoom() < 1.5) map_->Set_Zoom(1.5, QPointF());
    map_->Look_At(QPointF(SITREPLIST[row].X, SITREPLIST[row].Y));
    map_->Mark_Message(QPointF(SITREPLIST[row].X, SITREPLIST[row].Y), true);
    Offer_Back();
}

void Main_Window::Place_On_Map()
{
    overview_->move(map_->width() - overview_->width() - 10, map_->height() - overview_->height() - 10);
}

void Main_Window::Offer_Back()
{
    back_->setVisible(!looked_at_.empty());
    back_->raise();
}

void Main_Window::Look_Back()
{
    if (looked_at_.empty()) return;
    const LOOKED_AT back = looked_at_.back();
    looked_at_.pop_back();
    map_->Set_Zoom(back.ZOOM, QPointF());
    map_->Go_To(back.X, back.Y);
    map_->Mark_Message({}, false);
    Offer_Back();
}

Unsaved Main_Window::Ask_To_Save(std::string_view title, std::string_view text)
{
    if (DESK.LEAVING || DESK.CLOSED) return Unsaved::DROP;
    const std::optional<bool> answer = Ask_Box_Or_Cancel(this, To_Screen(title), To_Screen(text));
    return !answer ? Unsaved::STAY : *answer ? Unsaved::SAVE : Unsaved::DROP;
}

void Main_Window::Show_Plot_List()
{
    if (const auto* button = findChild<QWidget*>(QStringLiteral("cmdPlot")); button != nullptr)
        Order_Menu(button->mapToGlobal(QPoint(0, button->height())));
}

void Main_Window::Order_Menu(QPoint screen)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // What the unit cannot do now is left out, but for the two that every unit has.
    for (const Cmd id : Plot_List()) {
        QAction* action = actions_.Of(id);
        if (id == Cmd::NONE)
            menu->addSeparator();
        else if (action != nullptr && (action->isEnabled() || id == Cmd::PLOT || id == Cmd::CANCEL_MOVE))
            menu->addAction(action);
    }
    menu->popup(screen);
}

bool Main_Window::event(QEvent* event)
{
    if (RECORD == nullptr || event->type() != QEvent::UpdateRequest) return QMainWindow::event(event);
    QElapsedTimer timer;
    timer.start();
    const bool done = QMainWindow::event(event);
    RECORD->push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    return done;
}

void Main_Window::closeEvent(QCloseEvent* event)
{
    if (DESK.CLOSED || May_Leave()) {
        DESK.CLOSED = true;
        event->accept();
        QApplication::quit();
        return;
    }
    event->ignore();
    if (DESK.LEAVING) End_Waits();
}

bool Main_Window::eventFilter(QObject* object, QEvent* event)
{
    const auto type = event->type();
    if ((type != QEvent::KeyPress && type != QEvent::KeyRelease) || !isActiveWindow() ||
        QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr)
        return QMainWindow::eventFilter(object, event);
    if (!map_->isVisible()) return QMainWindow::eventFilter(object, event);   // there Space presses a button
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Space) {
        if (!key->isAutoRepeat()) map_->Hold_Pan(type == QEvent::KeyPress);
        return true;
    }
    return QMainWindow::eventFilter(object, event);
}

}   // namespace sm::desktop

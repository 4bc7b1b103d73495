#include "driver.h"

#include "support/places.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "core/session.h"
#include "desktop/map/map_view.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "support/board.h"
#include "ui/desk.h"
#include "ui/session_mark.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QWheelEvent>

#include <filesystem>

namespace sm::test {

using namespace desktop;

class Player::Hurried_Window : public Main_Window {
public:
    Hurried_Window(QSize size, const int& longest) : Main_Window(size), longest_(longest) {}
    void Delay(int milliseconds) override { Main_Window::Delay(std::min(milliseconds, longest_)); }

private:
    const int& longest_;
};

Player::Player(QSize size)
{
    SCENARIO = Save_Small_Battle(HOME).string();
    DESK = Desk{};
    Set_Start_Defaults();
    SEAT.WritesFiles = true;
    Forget_Symbols();
    window_ = std::make_unique<Hurried_Window>(size, LONGEST_WAIT);
    window_->show();
    window_->activateWindow();
    dialogs_ = std::make_unique<QTimer>();
    dialogs_->setInterval(5);
    QObject::connect(dialogs_.get(), &QTimer::timeout, window_.get(), [this] { Meet_Dialogs(); });
    dialogs_->start();
    Wait(20);
}

Player::~Player()
{
    dialogs_.reset();
    DESK.CLOSED = true;
    window_.reset();
    Close_Session_Mark();
    Clear_Game();
    DESK = Desk{};
}

Map_View& Player::Map() { return window_->Map(); }

void Player::Wait(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (timer.elapsed() < milliseconds);
}

bool Player::Press(const char* name)
{
    auto* button = Find<QPushButton>(name);
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) return false;
    button->click();
    Wait();
    return true;
}

bool Player::Choose(Cmd id)
{
    auto* action = window_->findChild<QAction*>(QStringLiteral("cmd%1").arg(static_cast<int>(id)));
    if (action == nullptr || !action->isEnabled()) return false;
    action->trigger();
    Wait();
    return true;
}

void Player::Key(int key, Qt::KeyboardModifiers modifiers)
{
    QApplication::setActiveWindow(window_.get());   // the offscreen platform does not give it back after a dialog
    QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window_.get(),
                    static_cast<Qt::Key>(key), modifiers);
    Wait();
}

void Player::Hold_Key(int key, bool down)
{
    QApplication::setActiveWindow(window_.get());
    if (down)
        QTest::keyPress(window_.get(), static_cast<Qt::Key>(key));
    else
        QTest::keyRelease(window_.get(), static_cast<Qt::Key>(key));
}

QPoint Player::On_Screen(int x, int y) { return Map().mapFromScene(QPointF(x, y)); }

void Player::Send_Mouse(QEvent::Type type, QPointF at, Qt::MouseButton what, Qt::MouseButtons held)
{
    QWidget* ground = Map().viewport();
    QMouseEvent event(type, at, ground->mapToGlobal(at), what, held, Qt::NoModifier);
    QApplication::sendEvent(ground, &event);
}

void Player::Click(int x, int y, Qt::MouseButton button)
{
    const QPointF at = On_Screen(x, y);
    Send_Mouse(QEvent::MouseButtonPress, at, button, button);
    Send_Mouse(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    Wait();
}

void Player::Drag(QPoint from, QPoint to, Qt::MouseButton button)
{
    Send_Mouse(QEvent::MouseButtonPress, from, button, button);
    for (int step = 1; step <= 8; ++step)
        Send_Mouse(QEvent::MouseMove, QPointF(from) + QPointF(to - from) * step / 8, Qt::NoButton, button);
    Send_Mouse(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
    Wait();
}

void Player::Answer(const std::string& button) { answers_.emplace_back(false, button); }
void Player::Answer_File(const std::string& file) { answers_.emplace_back(true, file); }

/// The next answer when it is of this kind; otherwise none, and the dialog was unexpected.
std::string Player::Answer_To(bool file)
{
    if (answers_.empty() || answers_.front().first != file) {
        ++UNEXPECTED;
        return {};
    }
    const std::string answer = answers_.front().second;
    answers_.erase(answers_.begin());
    return answer;
}

void Player::Meet_Dialogs()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    if (auto* files = qobject_cast<QFileDialog*>(dialog); files != nullptr) {
        TOLD.push_back(From_Screen(files->windowTitle()));
        const std::string file = Answer_To(true);
        if (file.empty()) {
            files->reject();
            return;
        }
        if (auto* edit = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); edit != nullptr)
            edit->setText(Path_To_Screen(file));
        QMetaObject::invokeMethod(files, "accept");
        return;
    }
    if (const auto* words = dialog->findChild<QLabel*>(QStringLiteral("lblMessage")); words != nullptr)
        TOLD.push_back(From_Screen(words->text()));
    const QString name = QStringLiteral("button") + QString::fromStdString(Answer_To(false));
    if (auto* button = dialog->findChild<QPushButton*>(name); button != nullptr)
        button->click();
    else
        dialog->reject();
}

void Player::Open(const std::string& file, int type)
{
    Answer("Yes");
    Answer_File(file.empty() ? SCENARIO : file);
    Press(("optGameType" + std::to_string(type)).c_str());
    Wait(50);
}

void Player::Look_At(double zoom, int x, int y)
{
    Map().Set_Zoom(zoom, QPointF(x, y));
    Map().Go_To(x, y);
}

void Player::Wheel(QPoint at, int notches)
{
    QWidget* ground = Map().viewport();
    QWheelEvent event(at, ground->mapToGlobal(at), QPoint(), QPoint(0, notches * 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(ground, &event);
}

void Player::Screenshot_Of(QWidget& widget, const std::string& name)
{
    const std::filesystem::path folder(STONEMARCH_SCREENSHOTS);
    std::filesystem::create_directories(folder);
    widget.grab().save(Path_To_Screen((folder / (name + ".png")).string()));
}

void Player::Screenshot(const std::string& name)
{
    Wait(30);
    Screenshot_Of(*window_, name);
}

std::string Player::Text_Of(const char* label) { return From_Screen(Find<QLabel>(label)->text()); }

std::string Player::Clipped_Texts()
{
    std::string clipped;
    const auto check = [&](const QWidget* widget, const QString& text, int room) {
        if (text.isEmpty() || !widget->isVisibleTo(window_.get())) return;
        int widest = 0;
        for (const QString& line : text.split(QLatin1Char('\n')))
            widest = std::max(widest, widget->fontMetrics().horizontalAdvance(line));
        const bool outside =
            !window_->rect().contains(QRect(widget->mapTo(window_.get(), QPoint(0, 0)), widget->size())) ||
            !widget->parentWidget()->rect().contains(widget->geometry());
        const bool low = widget->height() < widget->fontMetrics().height() - 2;
        if (widest > room || outside || low)
            clipped += From_Screen(text) + " (" + std::to_string(widest) + " in " + std::to_string(room) +
                       (outside ? ", outside" : "") + (low ? ", low" : "") + ")\n";
    };
    for (const QLabel* label : window_->findChildren<QLabel*>()) {
        if (label->wordWrap() || label->objectName() == QLatin1String("lblStatus"))
            continue;   // the status line elides itself
        QString text = label->text();
        if (Qt::mightBeRichText(text)) {
            QTextDocument document;
            document.setHtml(text);
            text = document.toPlainText();
        }
        check(label, text, label->width());
    }
    for (const QPushButton* button : window_->findChildren<QPushButton*>())
        check(button, button->text(), button->width() - 8);
    return clipped;
}

}   // namespace sm::test

#pragma once
// A player's hands and eyes for the real window.

#include "desktop/main_window.h"
#include "support/small_battle.h"

#include <QEvent>
#include <QPoint>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm::test {

/// The window at one of its sizes over a program folder of its own, at the list of game types.
class Player {
public:
    explicit Player(QSize size = QSize(1280, 960));
    ~Player();

    desktop::Main_Window& Window() { return *window_; }
    /// Longest wait in milliseconds that Delay is given: the tests' time, not the player's.
    int LONGEST_WAIT = 80;
    desktop::Map_View& Map();

    /// Lets the window work until nothing is pending, or for so long.
    void Wait(int milliseconds = 0);
    /// Presses a button of the window by its object name; false when it is not there, hidden or disabled.
    bool Press(const char* name);
    bool Choose(Cmd id);   ///< a button or menu of a command
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Hold_Key(int key, bool down);
    void Send_Mouse(QEvent::Type type, QPointF at, Qt::MouseButton what, Qt::MouseButtons held);
    void Click(int x, int y, Qt::MouseButton button = Qt::LeftButton);   ///< picture pixels
    void Drag(QPoint from, QPoint to, Qt::MouseButton button);           ///< viewport pixels
    QPoint On_Screen(int x, int y);                                      ///< picture pixels to viewport pixels

    /// What to do with the next dialogs, first first: a button's text to press, or a file to choose. Dialogs that
    /// nothing was said about are closed and counted.
    void Answer(const std::string& button);
    void Answer_File(const std::string& file);
    std::vector<std::string> TOLD;   ///< texts of the dialogs that came
    int UNEXPECTED = 0;

    /// Opens the small battle as a hot-seat game, Blue to plan; or another file or game type.
    void Open(const std::string& file = {}, int type = 0);
    void Look_At(double zoom, int x, int y);   ///< picture pixels
    void Wheel(QPoint at, int notches);
    /// Saves what the window shows as screenshots/<name>.png.
    void Screenshot(const std::string& name);
    void Screenshot_Of(QWidget& widget, const std::string& name);
    /// Labels and buttons that are seen but cannot show all of their text, a line each.
    std::string Clipped_Texts();
    std::string Text_Of(const char* label);
    bool Shows(const char* name) { return Find<QWidget>(name)->isVisible(); }
    template <class Widget>
    Widget* Find(const char* name)
    {
        return window_->findChild<Widget*>(QString::fromLatin1(name));
    }

    Scratch_Home HOME;
    std::string SCENARIO;

private:
    void Meet_Dialogs();
    std::string Answer_To(bool file);
    class Hurried_Window;
    std::unique_ptr<desktop::Main_Window> window_;
    std::vector<std::pair<bool, std::string>> answers_;   // whether a file
    std::unique_ptr<class QTimer> dialogs_;
};

}   // namespace sm::test

#pragma once
#include "desktop/actions.h"

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace sm::desktop {

/// The command palettes that replace each other: the main frame and the orders of a side.
class Palette_Panel : public QWidget {
public:
    explicit Palette_Panel(const Actions& actions, QWidget* parent = nullptr);
    void Refresh();
    /// A phase of the running turn has begun.
    void Phase(const QString& title);

private:
    QWidget* Build_Main(const Actions& actions);
    QWidget* Build_Orders(const Actions& actions);
    QWidget* Build_Turn();

    QStackedWidget* pages_;
    QLabel* state_ = nullptr;    // of the main frame: who has planned
    QLabel* title_ = nullptr;    // of the orders palette: whose orders
    QLabel* unit_ = nullptr;     // and which unit
    QLabel* phases_ = nullptr;   // of the running turn, done and doing
    QStringList told_;
};

}   // namespace sm::desktop

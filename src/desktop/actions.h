#pragma once
#include "ui/commands.h"

#include <QPushButton>
#include <QString>

#include <map>

class QAction;
class QMainWindow;
class QMenuBar;

namespace sm::desktop {

/// One QAction a command: it serves menu, palette and key.
class Actions {
public:
    explicit Actions(QMainWindow& window);
    QAction* Of(Cmd id) const;
    void Build_Menus(QMenuBar& bar) const;
    /// Captions, ticks and what is allowed now.
    void Refresh() const;

private:
    std::map<Cmd, QAction*> actions_;
};

/// A palette's button of a command.
class Command_Button : public QPushButton {
public:
    Command_Button(QAction* action, QWidget* parent = nullptr);
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void Follow();
    QAction* action_;
};

}   // namespace sm::desktop

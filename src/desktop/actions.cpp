#include "desktop/actions.h"

#include "desktop/theme.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace sm::desktop {

namespace {

/// "CTRL + M" and "Left Arrow" as Qt names keys.
QKeySequence Key_Of(const char* key)
{
    QString name = QString::fromLatin1(key);
    if (name == QLatin1String("+")) return QKeySequence(Qt::Key_Plus);
    if (name == QLatin1String("-")) return QKeySequence(Qt::Key_Minus);
    name.replace(QStringLiteral(" Arrow"), QString());
    name.replace(QStringLiteral("Page Up"), QStringLiteral("PgUp"));
    name.replace(QStringLiteral("Page Down"), QStringLiteral("PgDown"));
    name.replace(QStringLiteral(" + "), QStringLiteral("+"));
    return QKeySequence::fromString(name, QKeySequence::PortableText);
}

bool Repeats(Cmd id)
{
    return id == Cmd::MAP_LEFT || id == Cmd::MAP_RIGHT || id == Cmd::MAP_UP || id == Cmd::MAP_DOWN ||
           id == Cmd::ZOOM_IN || id == Cmd::ZOOM_OUT || id == Cmd::NEXT_UNIT || id == Cmd::LAST_UNIT;
}

}   // namespace

Actions::Actions(QMainWindow& window)
{
    for (const COMMAND& command : Commands()) {
        if (!command.BUILT) continue;
        auto* action = new QAction(To_Screen(command.CAPTION), &window);
        action->setObjectName(QStringLiteral("cmd%1").arg(static_cast<int>(command.ID)));
        if (command.TICKED != nullptr) action->setCheckable(true);
        action->setAutoRepeat(Repeats(command.ID));
        const Cmd id = command.ID;
        QObject::connect(action, &QAction::triggered, &window, [this, id] {
            Run_Command(id);
            Refresh();   // a tick that Qt has turned by itself goes back where the game says
        });
        actions_[command.ID] = action;
        window.addAction(action);
    }
    std::map<Cmd, QList<QKeySequence>> keys;
    for (const KEY_ROW& row : Key_Rows()) keys[row.ID].append(Key_Of(row.KEY));
    // The keypad's and the unshifted key of "+" do the same.
    keys[Cmd::NEXT_UNIT].append(QKeySequence(Qt::Key_Equal));
    keys[Cmd::GO].append(QKeySequence(static_cast<int>(Qt::CTRL) | static_cast<int>(Qt::Key_Enter)));
    for (const auto& [id, list] : keys)
        if (QAction* action = Of(id); action != nullptr) action->setShortcuts(list);
    for (const COMMAND& command : Commands()) {
        QAction* action = Of(command.ID);
        if (action == nullptr || command.HINT[0] == '\0') continue;
        QString tip = To_Screen(command.HINT);
        if (!action->shortcut().isEmpty())
            tip += QStringLiteral("  (%1)").arg(action->shortcut().toString(QKeySequence::NativeText));
        action->setToolTip(tip);
        action->setStatusTip(To_Screen(command.HINT));
    }
}

QAction* Actions::Of(Cmd id) const
{
    const auto found = actions_.find(id);
    return found == actions_.end() ? nullptr : found->second;
}

void Actions::Build_Menus(QMenuBar& bar) const
{
    QMenu* menu = nullptr;
    QMenu* submenu = nullptr;
    bool separate = false;
    for (const MENU_ROW& row : Menu_Rows()) {
        const QString title = QString::fromLatin1(row.MENU);
        if (menu == nullptr || menu->title() != title) {
            menu = bar.addMenu(title);
            submenu = nullptr;
            separate = false;
        }
        if (row.ID == Cmd::NONE) {
            separate = true;
            continue;
        }
        QAction* action = Of(row.ID);
        if (action == nullptr) continue;
        if (separate && !menu->isEmpty()) menu->addSeparator();
        separate = false;
        const QString sub = QString::fromLatin1(row.SUBMENU);
        if (sub.isEmpty()) {
            menu->addAction(action);
        } else {
            if (submenu == nullptr || submenu->title() != sub) submenu = menu->addMenu(sub);
            submenu->addAction(action);
        }
    }
}

void Actions::Refresh() const
{
    for (const auto& [id, action] : actions_) {
        const COMMAND& command = Command(id);
        const bool allowed = Command_Allowed(id), offered = Command_Offered(id);
        if (action->isVisible() != offered) action->setVisible(offered);
        if (action->isEnabled() != allowed) action->setEnabled(allowed);
        if (command.CAPTION_NOW != nullptr) action->setText(To_Screen(Command_Caption(id)));
        if (command.TICKED != nullptr && action->isChecked() != command.TICKED())
            action->setChecked(command.TICKED());
    }
}

Command_Button::Command_Button(QAction* action, QWidget* parent) : QPushButton(parent), action_(action)
{
    setObjectName(action->objectName() + QStringLiteral("Button"));
    setFocusPolicy(Qt::NoFocus);   // keys stay with the map
    setProperty("tool", true);
    setCheckable(action->isCheckable());
    setToolTip(action->toolTip());
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, [this] { Follow(); });
    Follow();
}

void Command_Button::Follow()
{
    setText(action_->text());
    setVisible(action_->isVisible());
    setEnabled(action_->isEnabled());
    setChecked(action_->isChecked());
}

}   // namespace sm::desktop

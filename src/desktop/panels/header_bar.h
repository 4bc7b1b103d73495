#pragma once
#include "desktop/actions.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace sm::desktop {

/// Turn, clock, date, wind and light in the colours of day and night; who plans; the turn control, or the turn's
/// progress.
class Header_Bar : public QWidget {
public:
    explicit Header_Bar(const Actions& actions, QWidget* parent = nullptr);
    void Refresh();
    void Phase(const QString& title);
    void Progress(int value, int maximum);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* side_;
    QLabel* turn_;
    QLabel* clock_;
    QLabel* date_;
    QLabel* wind_;
    QLabel* light_;
    QLabel* phase_;
    QProgressBar* bar_;
    QStackedWidget* right_;
    bool night_ = false;
};

}   // namespace sm::desktop

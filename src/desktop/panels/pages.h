#pragma once
#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;

namespace sm::desktop {

/// The list of game types.
class Start_Page : public QWidget {
public:
    explicit Start_Page(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The covered screen between two sides: nothing of either is seen.
class Cover_Page : public QWidget {
public:
    explicit Cover_Page(QWidget* parent = nullptr);
    void Refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* title_;
    QLabel* words_;
    QPushButton* open_;
};

}   // namespace sm::desktop

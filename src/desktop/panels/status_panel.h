#pragma once
#include <QFrame>

#include <vector>

class QLabel;
class QGridLayout;

namespace sm::desktop {

/// The state of the selected unit: its symbol, and the two columns of status lines.
class Status_Panel : public QFrame {
public:
    explicit Status_Panel(QWidget* parent = nullptr);
    void Refresh();

private:
    QLabel* Line(std::size_t index);

    QLabel* symbol_;
    QLabel* name_;
    QLabel* kind_;
    QGridLayout* grid_;
    std::vector<QLabel*> lines_;   // kept from unit to unit
};

}   // namespace sm::desktop

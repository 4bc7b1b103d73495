#pragma once
#include "ui/hover.h"

#include <QWidget>

class QLabel;

namespace sm::desktop {

/// The line at the foot: what the staff says, and what lies under the pointer.
class Status_Line : public QWidget {
public:
    explicit Status_Line(QWidget* parent = nullptr);
    void Say(const QString& text, bool bright);
    void Point(const Hover_Texts& texts);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Words too long for the line take the room of the pointer's fields, least wanted first.
    void Fit();
    QString text_;
    bool bright_ = false;
    QLabel* words_;
    QLabel* nbc_;
    QLabel* terrain_;
    QLabel* lat_long_;
    QLabel* utm_;
};

}   // namespace sm::desktop

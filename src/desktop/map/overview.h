#pragma once
#include "desktop/map/map_view.h"

#include <QTimer>
#include <QWidget>

namespace sm::desktop {

/// The whole map, small: where you are, and where the forces stand. A click or drag goes there.
class Overview : public QWidget {
public:
    explicit Overview(Map_View& map, QWidget* parent = nullptr);
    /// Another map: the small picture is made anew.
    void Take_Game();
    /// Units have moved: it is drawn again soon, a few times a second.
    void Units_Moved();
    QSize sizeHint() const override { return {200, 200}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QRectF Picture_Area() const;
    void Go_To(QPointF point);

    Map_View& map_;
    QPixmap small_;
    QTimer later_;
};

}   // namespace sm::desktop

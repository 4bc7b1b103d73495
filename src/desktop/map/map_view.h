#pragma once
#include "desktop/map/ground.h"
#include "desktop/map/layers.h"

#include <QGraphicsView>
#include <QTimer>

#include <functional>
#include <vector>

namespace sm::desktop {

/// The map: scrolls, zooms at the pointer, and hands clicks on in picture pixels. Arrow keys, drags (middle
/// button, left button on bare ground, space held) and the overview move it.
class Map_View : public QGraphicsView {
public:
    explicit Map_View(QWidget* parent = nullptr);
    ~Map_View() override;

    // what the window wants to hear
    std::function<void(int x, int y)> On_Hover;         ///< pointer moved; (-1, -1) when it left
    std::function<void(QPoint screen)> On_Order_Menu;   ///< no order is pending: the menu at the point
    std::function<void()> On_View_Moved;                ///< other ground is seen

    /// The game in play is another one, or its map.
    void Take_Game();
    /// Tables have changed; `ground`: cells too.
    void Refresh(bool ground);
    void Unit_Changed(int unit, bool glide);
    void Drawn(const Drawing& drawing);
    void Stand_Still();

    qreal Zoom() const;
    QRectF Seen() const;   ///< picture pixels
    void Set_Zoom(qreal zoom, QPointF anchor);
    void Zoom_Steps(qreal steps, QPointF anchor);   ///< smoothly
    void Show_Whole();
    /// The forces in the middle, the view filled with map.
    void Show_Forces();
    void Go_To(qreal x, qreal y);   ///< this point in the middle, at once
    /// As near to the middle as the view can have it and stay on the map: at once, or gliding there.
    void Look_At(QPointF place);
    void Glide_To(qreal x, qreal y);
    void Scroll_Steps(int columns, int rows);
    void Hold_Pan(bool held);   ///< space is down
    /// Ends every movement of the view at its target.
    void Settle();
    void Mark_Message(QPointF place, bool shown);
    const Ground& The_Ground() const { return ground_; }
    /// Paints now, outside the event loop, when the last frame is older than a screen's.
    void Paint_If_Due();

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    class Layer;
    Sight Sight_Now() const;
    QPointF Picture_Point(QPointF viewport) const;
    qreal Least_Zoom() const;
    QPointF On_Ground(QPointF centre) const;
    void Move_By(QPointF viewport_pixels);
    void Animate();
    void Tick();
    void Choose_Cursor();
    int Pick_Reach() const;

    Ground ground_;
    Unit_Layer units_;
    Effect_Layer effects_;
    QTimer frame_;
    QElapsedTimer since_frame_;

    bool panning_ = false, space_ = false, may_pan_ = false, dragging_node_ = false;
    Qt::MouseButton pressed_ = Qt::NoButton;
    QPoint press_point_, last_point_;
    QPointF held_;

    qreal zoom_target_ = 0;   // 0: not zooming
    QPointF zoom_anchor_;
    QPointF glide_;   // viewport pixels still to go
    QPointF message_place_;
    bool message_shown_ = false;
    bool night_ = false;
    bool fitted_ = true;   // the whole map is shown and stays so when the view is resized
};

}   // namespace sm::desktop

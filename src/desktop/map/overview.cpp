#include "desktop/map/overview.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/theme.h"
#include "terrain/grid.h"
#include "ui/selection.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace sm::desktop {

Overview::Overview(Map_View& map, QWidget* parent) : QWidget(parent), map_(map)
{
    setObjectName(QStringLiteral("overview"));
    setAttribute(Qt::WA_OpaquePaintEvent);   // the map below need not be painted for it
    later_.setSingleShot(true);
    later_.setInterval(250);
    connect(&later_, &QTimer::timeout, this, [this] { update(); });
    setToolTip(QStringLiteral("Click or drag to look elsewhere"));
}

QRectF Overview::Picture_Area() const
{
    const qreal width = std::max(1, Picture_Width()), height = std::max(1, Picture_Height());
    const qreal scale = std::min(this->width() / width, this->height() / height);
    const QSizeF size(width * scale, height * scale);
    return {QPointF((this->width() - size.width()) / 2, (this->height() - size.height()) / 2), size};
}

void Overview::Take_Game()
{
    small_ = QPixmap();
    update();
}

void Overview::Units_Moved()
{
    if (!later_.isActive()) later_.start();
}

void Overview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colour::SLATE);
    if (GameLoaded == 0) return;
    const QRectF area = Picture_Area();
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (area.size() * ratio).toSize();
    if (small_.isNull() || small_.size() != pixels) {
        const QImage& picture = map_.The_Ground().Picture();
        if (picture.isNull()) {
            small_ = QPixmap(pixels);
            small_.fill(QColor(0xee, 0xea, 0xdc));
        } else {
            small_ = QPixmap::fromImage(picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        }
    }
    painter.setPen(QPen(colour::SLATE, 2));
    painter.drawRect(area.adjusted(1, 1, -1, -1));
    painter.drawPixmap(area.adjusted(2, 2, -2, -2), small_, QRectF(small_.rect()));
    const qreal scale = area.width() / std::max(1, Picture_Width());
    const auto at = [&](qreal x, qreal y) { return area.topLeft() + QPointF(x, y) * scale; };
    for (int u = 1; u <= MAX_UNIT; ++u) {
        // A line of communication lies at the map's edge and is no force.
        if (!Stands_On_Map(u) || UNIT[u].TYPE == 50) continue;
        const QPointF p = at(UNIT[u].X, UNIT[u].Y);
        painter.fillRect(QRectF(p.x() - 2, p.y() - 2, 4, 4), Qt::white);
        painter.fillRect(QRectF(p.x() - 1.5, p.y() - 1.5, 3, 3),
                         u == SelUnit ? colour::SELECTED : Side_Colour(UNIT[u].SIDE));
    }
    const QRectF seen = map_.Seen().intersected(QRectF(0, 0, Picture_Width(), Picture_Height()));
    painter.setBrush(QColor(255, 255, 255, 36));
    painter.setPen(QPen(QColor(0, 0, 0, 150), 3));
    const QRectF frame(at(seen.left(), seen.top()), at(seen.right(), seen.bottom()));
    painter.drawRect(frame.adjusted(1, 1, -1, -1));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1.4));
    painter.drawRect(frame.adjusted(1, 1, -1, -1));
}

void Overview::Go_To(QPointF point)
{
    if (GameLoaded == 0) return;
    const QRectF area = Picture_Area();
    const qreal scale = area.width() / std::max(1, Picture_Width());
    map_.Look_At((point - area.topLeft()) / scale);
}

void Overview::mousePressEvent(QMouseEvent* event) { Go_To(event->position()); }
void Overview::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) != 0) Go_To(event->position());
}

}   // namespace sm::desktop

#include "desktop/map/layers.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "core/shared.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "ui/desk.h"
#include "ui/hover.h"
#include "ui/plot.h"
#include "ui/selection.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace sm::desktop {

namespace {

struct NODE {
    int UNIT, NUMBER, ROW;
};

/// Nodes of the routes that this screen shows, by unit and place on the route; one pass over the table.
const std::vector<NODE>& Shown_Nodes()
{
    static std::vector<NODE> nodes;   // kept for its memory
    nodes.clear();
    for (int row = 1; row <= MAX_MN; ++row)
        if (MN[row].MNUNIT > 0 && Shows_Route(MN[row].MNUNIT))
            nodes.push_back({MN[row].MNUNIT, MN[row].MNUNITNUMBER, row});
    std::sort(nodes.begin(), nodes.end(), [](const NODE& a, const NODE& b) {
        return a.UNIT != b.UNIT ? a.UNIT < b.UNIT : a.NUMBER < b.NUMBER;
    });
    return nodes;
}

void Draw_Arrow_Head(QPainter& painter, QPointF from, QPointF to, const QColor& ink, qreal size)
{
    const QPointF d = to - from;
    const qreal length = std::hypot(d.x(), d.y());
    if (length < 1) return;
    const QPointF along = d / length, across(-along.y(), along.x());
    QPainterPath head(to);
    head.lineTo(to - along * size + across * size * 0.45);
    head.lineTo(to - along * size - across * size * 0.45);
    head.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPath(head);
}

void Draw_Line(QPainter& painter, const std::vector<QPointF>& points, const QColor& ink, bool selected)
{
    if (selected) {
        painter.setPen(QPen(QColor(255, 255, 255, 200), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    }
    QColor line = ink;
    line.setAlpha(selected ? 255 : 150);
    painter.setPen(QPen(line, selected ? 3 : 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    Draw_Arrow_Head(painter, points[points.size() - 2], points.back(), line, selected ? 13 : 9);
}

void Draw_Node(QPainter& painter, QPointF at, int number, const QColor& ink, bool held)
{
    const qreal r = held ? 12 : 9.5;
    painter.setPen(QPen(held ? colour::SELECTED : QColor(Qt::white), 2));
    painter.setBrush(ink);
    painter.drawEllipse(at, r, r);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(at.x() - 14, at.y() - 10, 28, 20), Qt::AlignCenter, QString::number(number));
}

/// Where a unit that is still to arrive will stand: its symbol in a broken frame, and when.
void Draw_Arrival(QPainter& painter, const Sight& sight, const UNIT_RECORD& u)
{
    const QPointF at = sight.At(u.ARX, u.ARY);
    const int size = Unit_Symbol_Size(sight.ZOOM);
    const QColor ink = Side_Colour(u.SIDE);
    painter.setOpacity(0.75);
    painter.drawPixmap(QPointF(qRound(at.x() - size / 2.0), qRound(at.y() - size / 2.0)),
                       Unit_Symbol(SelUnit, size, sight.PIXEL_RATIO));
    painter.setOpacity(1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 190), 4));
    painter.drawEllipse(at, size * 0.8, size * 0.8);
    painter.setPen(QPen(ink, 2, Qt::DashLine));
    painter.drawEllipse(at, size * 0.8, size * 0.8);
    painter.setFont(Type_Font(Type::BODY, QFont::DemiBold));
    Draw_Halo_Text(painter, at + QPointF(size * 0.8 + 6, 5), QStringLiteral("Turn %1").arg(int{u.ATIME}), ink,
                   Qt::white);
}

}   // namespace

void Paint_Routes(QPainter& painter, const Sight& sight, int held_row, QPointF held)
{
    if (GameLoaded == 0 || SEAT.TurnRunning) return;
    const std::vector<NODE>& nodes = Shown_Nodes();
    if (nodes.empty()) return;
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(Type_Font(Type::SMALL, QFont::DemiBold));
    const auto place = [&](int row) {
        return row == held_row ? sight.TO_SCREEN.map(held) : sight.At(MN[row].MNX, MN[row].MNY);
    };
    const QRectF screen = sight.TO_SCREEN.mapRect(sight.SEEN).adjusted(-40, -40, 40, 40);
    // While a route is plotted every node of the side can be seen; else those of the selected unit.
    const bool plotting = MapMode == MODE_PLOT || MapMode == MODE_MOVE_NODE;
    std::vector<QPointF> points;
    const auto draw = [&](bool selected_pass) {
        for (std::size_t i = 0; i < nodes.size();) {
            const int unit = nodes[i].UNIT;
            std::size_t end = i;
            while (end < nodes.size() && nodes[end].UNIT == unit) ++end;
            if ((unit == SelUnit) == selected_pass) {
                points.assign(1, sight.At(UNIT[unit].X, UNIT[unit].Y));
                QRectF bounds(points.front(), QSizeF(1, 1));
                for (std::size_t n = i; n < end; ++n) {
                    points.push_back(place(nodes[n].ROW));
                    bounds |= QRectF(points.back(), QSizeF(1, 1));
                }
                if (bounds.intersects(screen)) {
                    const QColor ink = Side_Colour(UNIT[unit].SIDE);
                    Draw_Line(painter, points, ink, selected_pass);
                    for (std::size_t n = i; n < end; ++n) {
                        const QPointF at = points[n - i + 1];
                        if (selected_pass) {
                            Draw_Node(painter, at, nodes[n].NUMBER, ink, nodes[n].ROW == held_row);
                        } else if (plotting && screen.contains(at)) {
                            painter.setPen(Qt::NoPen);
                            painter.setBrush(ink);
                            painter.drawEllipse(at, 3.5, 3.5);
                        }
                    }
                }
            }
            i = end;
        }
    };
    draw(false);
    draw(true);
    painter.restore();
}

void Paint_Selection(QPainter& painter, const Sight& sight)
{
    if (SelUnit < 1) return;
    const UNIT_RECORD& u = UNIT[SelUnit];
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    if (Waits_To_Arrive(SelUnit) && Sees_Plans_Of(u.SIDE)) Draw_Arrival(painter, sight, u);
    if (!Stands_On_Map(SelUnit)) {
        painter.restore();
        return;
    }
    const QPointF at = sight.At(u.X, u.Y);
    const QColor ink = Side_Colour(u.SIDE);
    const auto ring = [&](qreal radius, const QPen& pen, const QBrush& brush) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawEllipse(at, radius, radius);
    };
    const bool known = Sees_Plans_Of(u.SIDE);
    if (known && SEAT.RangeRings != 0 && u.MXRANGE > 0) {
        const qreal kilometre = static_cast<qreal>(MAPSCALE) * sight.ZOOM;
        const qreal radius = u.MXRANGE * kilometre;
        ring(radius, QPen(QColor(255, 255, 255, 160), 4), Qt::NoBrush);
        ring(radius, QPen(ink, 1.6, Qt::DashLine), Qt::NoBrush);
        if (u.MINRANGE > 0) ring(u.MINRANGE * kilometre, QPen(ink, 1.4, Qt::DotLine), Qt::NoBrush);
    }
    QColor fill = ink;
    fill.setAlpha(44);
    ring(static_cast<qreal>(Footprint_Of(SelUnit)) / 2 * sight.ZOOM, QPen(ink, 1.6), fill);
    if (u.TACOPN == 3 && (u.LX != 0 || u.RX != 0)) {
        painter.setPen(QPen(ink, 3));
        painter.drawLine(sight.At(u.LX, u.LY), sight.At(u.RX, u.RY));
    }
    const qreal angle = u.FACING * 3.14159265 / 180;
    const qreal reach =
        std::max(Unit_Symbol_Size(sight.ZOOM) * 0.95, static_cast<qreal>(Footprint_Of(SelUnit)) / 2 * sight.ZOOM);
    const QPointF tip = at + QPointF(std::sin(angle), -std::cos(angle)) * (reach + 12);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(at, tip);
    painter.setPen(QPen(ink, 2.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(at, tip);
    Draw_Arrow_Head(painter, at, tip, ink, 11);
    painter.restore();
}

}   // namespace sm::desktop

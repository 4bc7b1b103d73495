#include "desktop/map/layers.h"

#include "core/game_state.h"
#include "core/shared.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "ui/desk.h"
#include "ui/hover.h"

#include <algorithm>

namespace sm::desktop {

int Unit_Symbol_Size(qreal zoom)
{
    return zoom < 0.65 ? 18 : zoom < 0.95 ? 22 : zoom < 1.5 ? 28 : zoom < 2.4 ? 34 : zoom < 3.6 ? 42 : 48;
}

int Mark_Size(qreal zoom) { return zoom < 0.65 ? 14 : zoom < 0.95 ? 18 : zoom < 1.5 ? 22 : zoom < 2.4 ? 26 : 32; }

namespace {

void Draw_Mark(QPainter& painter, const Sight& sight, const std::string& icon, qreal x, qreal y, int size)
{
    if (!sight.Sees(x, y, size)) return;
    const QPointF at = sight.At(x, y) - QPointF(size / 2.0, size / 2.0);
    painter.drawPixmap(QPointF(qRound(at.x()), qRound(at.y())), Symbol(icon, size, sight.PIXEL_RATIO));
}

const char* Objective_Picture(int type)
{
    return type == 2 ? "KeyT.ico" : type == 3 ? "Mcorridor.ico" : "Obj.ico";
}

/// nullptr for a work that the map picture shows already.
const char* Work_Picture(const BG_RECORD& work, qreal zoom)
{
    switch (work.BGTYPE) {
    case 5:
        return "blbrdg.ico";
    case 7:
        return work.BGSIDE == BOTH && zoom < 3 ? nullptr : "brdg.ico";
    case 8:
        return "mine.ico";
    case 9:
        return "fort.ico";
    default:
        return nullptr;
    }
}

/// A holder's colour under an objective.
void Draw_Holder(QPainter& painter, QPointF at, int side, int size)
{
    if (side < BLUE || side > BOTH) return;
    painter.setPen(QPen(Side_Colour(side), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, size * 0.62, size * 0.62);
}

}   // namespace

void Paint_Places(QPainter& painter, const Sight& sight)
{
    if (GameLoaded == 0) return;
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    for (int n = 1; n <= MAX_NBC; ++n) {
        if (!Shows_NBC(n)) continue;
        const int size = std::clamp(qRound(NBC[n].NBCSIZE * sight.ZOOM), 8, 400);
        painter.setOpacity(0.8);
        Draw_Mark(painter, sight, NBC[n].NBCTYPE == 20 ? "smoke.ico" : "gas.ico", NBC[n].NBCX, NBC[n].NBCY, size);
    }
    painter.setOpacity(1);
    const int mark = Mark_Size(sight.ZOOM);
    for (int row = 1; row <= MAX_BG; ++row) {
        if (!Shows_Work(row)) continue;
        const char* picture = Work_Picture(BG[row], sight.ZOOM);
        if (picture == nullptr) continue;
        const Point centre = Work_Centre(row);
        Draw_Mark(painter, sight, picture, centre.X, centre.Y, std::max(14, mark - 6));
    }
    for (int row = 1; row <= MAX_OBJ; ++row) {
        if (!Used(OBJ[row]) || !sight.Sees(OBJ[row].OX, OBJ[row].OY, mark)) continue;
        if (OBJ[row].OTYPE == 1)
            Draw_Holder(painter, sight.At(OBJ[row].OX, OBJ[row].OY), Objective_Holder(row), mark);
        Draw_Mark(painter, sight, Objective_Picture(OBJ[row].OTYPE), OBJ[row].OX, OBJ[row].OY, mark);
    }
    painter.restore();
}

void Paint_Graphics(QPainter& painter, const Sight& sight)
{
    if (GameLoaded == 0) return;
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    const int mark = Mark_Size(sight.ZOOM);
    for (int row = 1; row <= MAX_P; ++row) {
        if (!Shows_Graphic(row)) continue;
        const P_RECORD& g = P[row];
        const char* picture = g.PTYPE == 11   ? "coordpt.ico"
                              : g.PTYPE == 12 ? "NAI.ico"
                              : g.PTYPE == 13 ? "TAI.ico"
                              : g.PTYPE == 17 ? "SEAD.bmp"
                              : g.PTYPE == 18 ? "CFFZ.bmp"
                                              : nullptr;
        if (picture != nullptr) {
            Draw_Mark(painter, sight, picture, g.PX1, g.PY1, mark);
            continue;
        }
        const QPointF from = sight.At(g.PX1, g.PY1), to = sight.At(g.PX2, g.PY2);
        const int rgb = Round_Even(g.PCOLOR);   // red + 256 green + 65536 blue
        const QColor ink(rgb & 255, rgb >> 8 & 255, rgb >> 16 & 255);
        painter.setPen(QPen(QColor(255, 255, 255, 190), 4.5));
        painter.drawLine(from, to);
        painter.setPen(QPen(ink, 2.2, g.PLINE == 1 ? Qt::DashLine : g.PLINE == 2 ? Qt::DotLine : Qt::SolidLine));
        painter.drawLine(from, to);
        const QString label = To_Screen(g.PTEXT);
        if (!label.isEmpty()) Draw_Halo_Text(painter, (from + to) / 2 + QPointF(4, -4), label, ink, Qt::white);
    }
    painter.setFont(Type_Font(sight.ZOOM < 0.95 ? Type::SMALL : Type::STRONG, QFont::DemiBold));
    for (int row = 1; row <= MAX_TX; ++row) {
        if (!Shows_Text(row) || !sight.Sees(TX[row].TXX1, TX[row].TXY1, 200)) continue;
        Draw_Halo_Text(painter, sight.At(TX[row].TXX1, TX[row].TXY1), To_Screen(TX[row].TXTEXT), colour::INK,
                       QColor(255, 255, 255, 215));
    }
    painter.restore();
}

void Paint_Scale(QPainter& painter, const Sight& sight, int height)
{
    if (GameLoaded == 0 || MAPSCALE <= 0) return;
    const qreal kilometre = static_cast<qreal>(MAPSCALE) * sight.ZOOM;
    int length = 1;
    for (const int step : {2, 5, 10, 20, 50, 100})
        if (step * kilometre <= 150) length = step;
    painter.save();
    painter.setWorldTransform(QTransform());
    const QRectF bar(14, height - 18, length * kilometre, 5);
    painter.fillRect(bar.adjusted(-2, -2, 2, 2), QColor(255, 255, 255, 210));
    painter.fillRect(bar, colour::INK);
    painter.fillRect(QRectF(bar.center().x(), bar.top() + 1, bar.width() / 2 - 1, bar.height() - 2), Qt::white);
    painter.setFont(Type_Font(Type::SMALL, QFont::DemiBold));
    painter.setRenderHint(QPainter::Antialiasing);
    Draw_Halo_Text(painter, QPointF(bar.right() + 8, bar.bottom() + 2), QStringLiteral("%1 km").arg(length),
                   colour::INK, QColor(255, 255, 255, 220));
    painter.restore();
}

void Paint_Message_Mark(QPainter& painter, const Sight& sight, QPointF place)
{
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF at = sight.TO_SCREEN.map(place);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 130), 5));
    painter.drawEllipse(at, 22, 22);
    painter.setPen(QPen(colour::SELECTED, 3));
    painter.drawEllipse(at, 22, 22);
    painter.restore();
}

}   // namespace sm::desktop

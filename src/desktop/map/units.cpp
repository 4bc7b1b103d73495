#include "desktop/map/layers.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "ui/desk.h"
#include "ui/selection.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace sm::desktop {

namespace {

/// A step of the march is watched for half a second; the picture glides through most of it.
constexpr qint64 GLIDE_MILLISECONDS = 420;
/// Further than this is no step but a jump.
constexpr qreal LONGEST_GLIDE = 80;

qreal Eased(qreal share) { return share * share * (3 - 2 * share); }

void Draw_Strength(QPainter& painter, QPointF at, int size, const UNIT_RECORD& u)
{
    const qreal share = std::clamp(static_cast<qreal>(u.STRENGTH) / 100, 0.0, 1.0);
    const QRectF bar(at.x() - size * 0.42, at.y() + size * 0.48, size * 0.84, 4);
    painter.fillRect(bar.adjusted(-1, -1, 1, 1), QColor(20, 28, 36, 200));
    const QColor ink = u.STATUS < 2   ? QColor(0x9a, 0xa2, 0xaa)
                       : share > 0.66 ? QColor(0x4c, 0xb0, 0x5a)
                       : share > 0.33 ? QColor(0xe8, 0xb9, 0x2e)
                                      : QColor(0xe0, 0x4a, 0x3a);
    painter.fillRect(QRectF(bar.left(), bar.top(), bar.width() * share, bar.height()), ink);
}

void Draw_Frame(QPainter& painter, QPointF at, int size)
{
    const qreal half = size / 2.0 + 4;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 150), 4.5));
    painter.drawRoundedRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half), 4, 4);
    painter.setPen(QPen(colour::SELECTED, 2.5));
    painter.drawRoundedRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half), 4, 4);
}

}   // namespace

QPointF Unit_Layer::Place(PICTURE& picture, qint64 now) const
{
    if (picture.START == 0) return picture.TO;
    const qreal share = static_cast<qreal>(now - picture.START) / GLIDE_MILLISECONDS;
    if (share >= 1) {
        picture.START = 0;
        return picture.TO;
    }
    return picture.FROM + (picture.TO - picture.FROM) * Eased(std::max(0.0, share));
}

void Unit_Layer::Unit_Changed(int unit, bool glide)
{
    if (unit < 1 || unit > MAX_UNIT) return;
    if (!clock_.isValid()) clock_.start();
    const qint64 now = clock_.elapsed() + 1;
    PICTURE& picture = pictures_[static_cast<std::size_t>(unit)];
    const QPointF to(UNIT[unit].X, UNIT[unit].Y);
    if (to == picture.TO) return;
    const QPointF from = Place(picture, now);
    const QPointF d = to - from;
    picture.TO = to;
    picture.START = 0;
    if (!glide || !SEAT.PICTURE[unit] || std::hypot(d.x(), d.y()) > LONGEST_GLIDE) return;
    picture.FROM = from;
    picture.START = now;
    last_step_ = now;
}

void Unit_Layer::Stand_Still()
{
    for (int u = 1; u <= MAX_UNIT; ++u) {
        PICTURE& picture = pictures_[static_cast<std::size_t>(u)];
        picture.TO = QPointF(UNIT[u].X, UNIT[u].Y);
        picture.START = 0;
    }
    last_step_ = 0;
}

bool Unit_Layer::Moving() const
{
    return last_step_ > 0 && clock_.isValid() && clock_.elapsed() < last_step_ + GLIDE_MILLISECONDS + 30;
}

const QPixmap& Unit_Layer::Look(int unit, int size, qreal pixel_ratio)
{
    const UNIT_RECORD& u = UNIT[unit];
    PICTURE& picture = pictures_[static_cast<std::size_t>(unit)];
    const qint64 look = ((static_cast<qint64>(u.SIDE) * 128 + u.TYPE) * 128 + u.SIZE) * 4096 +
                        static_cast<qint64>(size * 8) + qRound(pixel_ratio * 2) % 8;
    const std::string_view image = u.IMAGE.Full();
    if (picture.LOOK != look || std::memcmp(picture.IMAGE.data(), image.data(), image.size()) != 0) {
        picture.PIXMAP = Unit_Symbol(unit, size, pixel_ratio);
        picture.LOOK = look;
        std::memcpy(picture.IMAGE.data(), image.data(), image.size());
    }
    return picture.PIXMAP;
}

void Unit_Layer::Paint(QPainter& painter, const Sight& sight)
{
    if (GameLoaded == 0) return;
    if (!clock_.isValid()) clock_.start();
    const qint64 now = clock_.elapsed() + 1;
    painter.save();
    painter.setWorldTransform(QTransform());
    const int size = Unit_Symbol_Size(sight.ZOOM);
    const bool names = Names_Shown(sight.ZOOM), bars = sight.ZOOM >= 1.5;
    if (names) painter.setFont(Type_Font(Type::SMALL, QFont::DemiBold));
    const auto draw = [&](int unit) {
        PICTURE& picture = pictures_[static_cast<std::size_t>(unit)];
        const QPointF place = Place(picture, now);
        if (!sight.Sees(place.x(), place.y(), size * 2)) return;
        const UNIT_RECORD& u = UNIT[unit];
        const QPointF exact = sight.TO_SCREEN.map(place);
        const QPointF at(qRound(exact.x()), qRound(exact.y()));   // whole pixels: symbols stay sharp
        if (unit == SelUnit) Draw_Frame(painter, at, size);
        if (u.STATUS == 1) painter.setOpacity(0.6);
        painter.drawPixmap(at - QPointF(size / 2, size / 2), Look(unit, size, sight.PIXEL_RATIO));
        painter.setOpacity(1);
        const bool known = Sees_Plans_Of(u.SIDE);
        if (bars && known) Draw_Strength(painter, at, size, u);
        if (names && known && !SEAT.TurnRunning)
            Draw_Halo_Text(painter, at + QPointF(size * 0.56, 4), To_Screen(u.NAME), colour::INK,
                           QColor(255, 255, 255, 215));
    };
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (u != SelUnit && Stands_On_Map(u)) draw(u);
    if (SelUnit > 0 && Stands_On_Map(SelUnit)) draw(SelUnit);
    painter.restore();
}

}   // namespace sm::desktop

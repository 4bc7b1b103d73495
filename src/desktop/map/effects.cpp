#include "desktop/map/layers.h"

#include "core/game_state.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"

#include <algorithm>
#include <cmath>

namespace sm::desktop {

namespace {

constexpr qint64 LIFE_MILLISECONDS = 900;
constexpr std::size_t MOST_EFFECTS = 200;

void Draw_Picture(QPainter& painter, const Sight& sight, QPointF at, const char* name, int size)
{
    painter.drawPixmap(at - QPointF(size / 2.0, size / 2.0), Symbol(name, size, sight.PIXEL_RATIO));
}

void Draw_Shot(QPainter& painter, QPointF from, QPointF to, qreal share, const QColor& ink)
{
    const qreal head = std::min(1.0, share * 2), tail = std::max(0.0, share * 2 - 0.5);
    if (tail >= head) return;
    painter.setPen(QPen(QColor(255, 255, 255, 200), 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from + (to - from) * tail, from + (to - from) * head);
    painter.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from + (to - from) * tail, from + (to - from) * head);
}

/// A burst grows through its nine pictures.
void Draw_Burst(QPainter& painter, const Sight& sight, QPointF at, qreal share)
{
    static constexpr const char* FRAMES[] = {"explode1.ico", "explode2.ico", "explode3.ico",
                                             "explode4.ico", "explode5.ico", "explode6.ico",
                                             "explode7.ico", "explode8.ico", "explode9.ico"};
    const auto frame = static_cast<std::size_t>(std::clamp(share * 9, 0.0, 8.0));
    Draw_Picture(painter, sight, at, FRAMES[frame], 36);
}

}   // namespace

void Effect_Layer::Add(const Drawing& drawing)
{
    if (!clock_.isValid()) clock_.start();
    if (drawing.KIND == Draw::CENTRE) return;
    if (effects_.size() >= MOST_EFFECTS) effects_.erase(effects_.begin());
    effects_.push_back({drawing, clock_.elapsed()});
}

bool Effect_Layer::Moving()
{
    if (effects_.empty()) return false;
    const qint64 now = clock_.elapsed();
    std::erase_if(effects_, [&](const EFFECT& e) { return now - e.START > LIFE_MILLISECONDS; });
    return true;   // once more after the last, to wipe it
}

void Effect_Layer::Paint(QPainter& painter, const Sight& sight)
{
    if (effects_.empty()) return;
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    const qint64 now = clock_.elapsed();
    for (const EFFECT& e : effects_) {
        const qreal share = static_cast<qreal>(now - e.START) / LIFE_MILLISECONDS;
        if (share > 1) continue;
        const Drawing& d = e.DRAWING;
        const int side = d.UNIT >= 1 && d.UNIT <= MAX_UNIT ? static_cast<int>(UNIT[d.UNIT].SIDE) : 0;
        const QPointF from = sight.At(d.X1, d.Y1), to = sight.At(d.X2, d.Y2);
        const QPointF on_the_way = from + (to - from) * share;
        switch (d.KIND) {
        case Draw::SHOT:
        case Draw::TRACER:
            Draw_Shot(painter, from, to, share, Side_Colour(side));
            break;
        case Draw::HELICOPTERS:
        case Draw::INTERCEPTOR:
            Draw_Shot(painter, from, to, share, colour::SELECTED);
            break;
        case Draw::IMPACT:
        case Draw::EXPLOSION:
            Draw_Burst(painter, sight, from, share);
            break;
        case Draw::STRIKE:
            Draw_Picture(painter, sight, d.X2 != 0 || d.Y2 != 0 ? on_the_way : from,
                         d.AUX == 2 ? "rstrike.ico" : "bstrike.ico", 36);
            break;
        case Draw::FIGHTERS:
            Draw_Picture(painter, sight, from, d.AUX == 2 ? "rfighter.ico" : "bfighter.ico", 36);
            break;
        case Draw::BREACH:
            Draw_Picture(painter, sight, from, "breach.ico", 30);
            break;
        case Draw::PRISONERS:
            Draw_Picture(painter, sight, from, d.AUX == 2 ? "repw.ico" : "bepw.ico", 30);
            break;
        case Draw::CENTRE:
            break;
        }
    }
    painter.restore();
}

}   // namespace sm::desktop

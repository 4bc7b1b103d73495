#pragma once
#include <QPointF>
#include <QRectF>
#include <QTransform>

namespace sm::desktop {

/// How the map stands on the screen while it is painted.
struct Sight {
    QTransform TO_SCREEN;    ///< picture pixels to viewport pixels
    QRectF SEEN;             ///< what is seen, in picture pixels
    qreal ZOOM = 1;          ///< viewport pixels of a picture pixel
    qreal PIXEL_RATIO = 1;   ///< device pixels of a viewport pixel

    QPointF At(qreal x, qreal y) const { return TO_SCREEN.map(QPointF(x, y)); }
    /// Whether a point is seen, with a margin of viewport pixels around.
    bool Sees(qreal x, qreal y, qreal margin) const
    {
        const qreal m = margin / ZOOM;
        return SEEN.adjusted(-m, -m, m, m).contains(x, y);
    }
};

/// Sizes by zoom, in viewport pixels: the further out, the smaller and the fewer.
int Unit_Symbol_Size(qreal zoom);
int Mark_Size(qreal zoom);
inline bool Names_Shown(qreal zoom) { return zoom >= 2.4; }

}   // namespace sm::desktop

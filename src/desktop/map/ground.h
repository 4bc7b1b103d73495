#pragma once
#include "desktop/map/sight.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QString>

#include <utility>
#include <vector>

namespace sm::desktop {

/// The map picture and the terrain overlay: what lies under everything else and seldom changes.
class Ground {
public:
    /// Takes the picture of the game in play; reads the file only when it is another one. False when there is
    /// none: the ground is then plain.
    bool Take_Picture();
    /// Draws the overlay anew: another kind, or cells have changed.
    void Draw_Overlay();
    void Paint(QPainter& painter, const Sight& sight) const;
    /// What the colours of the overlay mean, in the upper right corner of a view so wide.
    void Paint_Legend(QPainter& painter, int view_width) const;
    const QImage& Picture() const { return picture_; }

private:
    QString file_;
    QImage picture_;
    QImage half_;                                      // for zooming out without noise
    QImage overlay_;                                   // some pixels a cell
    std::vector<std::pair<QString, QBrush>> legend_;   // of what the overlay shows
};

}   // namespace sm::desktop

#pragma once
// What lies on the map, from the ground up. Each layer reads the tables where they are and keeps no copy of them.

#include "core/platform.h"
#include "desktop/map/sight.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <vector>

namespace sm::desktop {

/// Objectives, bridges, obstacles, fortifications, contamination, smoke.
void Paint_Places(QPainter& painter, const Sight& sight);
/// Control measures and text of the sides that this seat sees the plans of.
void Paint_Graphics(QPainter& painter, const Sight& sight);
/// Routes with their nodes. `held`: where the node that the mouse holds lies now.
void Paint_Routes(QPainter& painter, const Sight& sight, int held_row, QPointF held);
/// Footprint, facing, screen line and ranges of the selected unit: under the units.
void Paint_Selection(QPainter& painter, const Sight& sight);
/// The place of the message chosen in the list.
void Paint_Message_Mark(QPainter& painter, const Sight& sight, QPointF place);

/// A bar of so many kilometres in the lower left corner.
void Paint_Scale(QPainter& painter, const Sight& sight, int height);

/// The units. On the march their pictures glide from place to place; elsewhere they stand where the table says.
class Unit_Layer {
public:
    void Paint(QPainter& painter, const Sight& sight);
    /// The unit's record changed; `glide` when it is a step of a turn that is watched.
    void Unit_Changed(int unit, bool glide);
    void Stand_Still();
    /// Whether pictures still move.
    bool Moving() const;

private:
    struct PICTURE {
        QPointF FROM, TO;
        qint64 START = 0;   // milliseconds; 0 standing
        // what PIXMAP was made of
        qint64 LOOK = -1;
        std::array<char, 40> IMAGE{};
        QPixmap PIXMAP;
    };
    QPointF Place(PICTURE& picture, qint64 now) const;
    const QPixmap& Look(int unit, int size, qreal pixel_ratio);

    std::array<PICTURE, 601> pictures_;
    QElapsedTimer clock_;
    qint64 last_step_ = 0;
};

/// Shots, bursts, aircraft: drawn for a moment.
class Effect_Layer {
public:
    void Add(const Drawing& drawing);
    void Paint(QPainter& painter, const Sight& sight);
    void Clear() { effects_.clear(); }
    bool Moving();

private:
    struct EFFECT {
        Drawing DRAWING;
        qint64 START;
    };
    std::vector<EFFECT> effects_;
    QElapsedTimer clock_;
};

}   // namespace sm::desktop

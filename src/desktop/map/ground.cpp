#include "desktop/map/ground.h"

#include "core/game_state.h"
#include "core/log.h"
#include "desktop/theme.h"
#include "persist/program_folder.h"
#include "terrain/grid.h"
#include "ui/desk.h"

#include <QImageReader>

#include <algorithm>

namespace sm::desktop {

namespace {

/// How a terrain value looks on the overlay: colour on the first kind, hatching on the second.
struct TERRAIN_LOOK {
    int VALUE;
    QRgb COLOUR;
    Qt::BrushStyle HATCH;
};
// clang-format off
constexpr TERRAIN_LOOK LOOKS[] = {
    {1,  0xffe8d44a, Qt::BDiagPattern},       // restricted
    {2,  0xffe0483c, Qt::DiagCrossPattern},   // severely restricted
    {3,  0xffa0522d, Qt::NoBrush},            // beach
    {4,  0xffc050c0, Qt::NoBrush},            // urban
    {5,  0xff3a78e0, Qt::SolidPattern},       // river, blown bridge
    {6,  0xff101010, Qt::CrossPattern},       // impassable
    {7,  0xff7fb4ff, Qt::NoBrush},            // bridge
    {10, 0xff1c3f94, Qt::SolidPattern},       // deep water
};
// clang-format on
constexpr TERRAIN_LOOK OBSTACLE{11, 0xff1f8a3c, Qt::VerPattern}, FORTIFICATION{21, 0xff6b4a1f, Qt::Dense5Pattern};
constexpr int OVERLAY_ALPHA = 120;

const TERRAIN_LOOK* Look_Of(int value)
{
    if (value >= 21) return &FORTIFICATION;
    if (value >= 11) return &OBSTACLE;
    for (const TERRAIN_LOOK& look : LOOKS)
        if (look.VALUE == value) return &look;
    return nullptr;
}

QString Name_Of(const TERRAIN_LOOK& look)
{
    if (&look == &OBSTACLE) return QStringLiteral("Obstacle");
    if (&look == &FORTIFICATION) return QStringLiteral("Fortification");
    return QString::fromLatin1(Terrain_Name(look.VALUE));
}

/// How a look is drawn by an overlay; no brush where it is left out.
QBrush Brush_Of(const TERRAIN_LOOK& look, bool coloured)
{
    QColor c = QColor::fromRgb(look.COLOUR);
    if (coloured) {
        c.setAlpha(OVERLAY_ALPHA);
        return c;
    }
    if (look.VALUE == 1) c = QColor(0x3c, 0x7a, 0x2a);   // yellow lines are lost on a map
    c.setAlpha(look.HATCH == Qt::SolidPattern ? 90 : 210);
    return look.HATCH == Qt::NoBrush ? QBrush() : QBrush(c, look.HATCH);
}

QString Last_Part(std::string_view name)
{
    const auto slash = name.find_last_of("\\/");
    return To_Screen(Trim(slash == std::string_view::npos ? name : name.substr(slash + 1)));
}

}   // namespace

bool Ground::Take_Picture()
{
    const QString name = GameLoaded == 0 ? QString() : Last_Part(MAPFILE);
    if (name == file_) return !picture_.isNull();
    file_ = name;
    picture_ = half_ = QImage();
    if (name.isEmpty()) return false;
    const std::string path = Home_Path(Cat("\\Maps\\", From_Screen(name))).string();
    QImageReader reader(Path_To_Screen(path));
    reader.setDecideFormatFromContent(true);
    QImageReader::setAllocationLimit(1024);   // MB; a map is a large picture
    picture_ = reader.read();
    if (picture_.isNull()) {
        Log("Error loading map!");
        return false;
    }
    picture_ = picture_.convertToFormat(QImage::Format_RGB32);
    half_ = picture_.scaled(picture_.width() / 2, picture_.height() / 2, Qt::IgnoreAspectRatio,
                            Qt::SmoothTransformation);
    return true;
}

void Ground::Draw_Overlay()
{
    overlay_ = QImage();
    legend_.clear();
    const int rows = static_cast<int>(NUMROWS), columns = static_cast<int>(NUMCOLS);
    if (DESK.OVERLAY == 0 || GameLoaded == 0 || rows < 1 || columns < 1 || rows * columns > MAX_HEX) return;
    const bool coloured = DESK.OVERLAY == 1;
    const int side = std::clamp(2400 / std::max(rows, columns), 4, 8);   // pixels a cell
    overlay_ = QImage(columns * side, rows * side, QImage::Format_ARGB32_Premultiplied);
    overlay_.fill(Qt::transparent);
    QPainter painter(&overlay_);
    painter.setPen(Qt::NoPen);
    std::vector<std::pair<const TERRAIN_LOOK*, QBrush>> seen;
    bool high = false;
    for (int column = 1; column <= columns; ++column) {
        for (int row = 1; row <= rows; ++row) {
            const int hex = Hex_Of(column, row);
            const QRect cell((column - 1) * side, (row - 1) * side, side, side);
            if (const TERRAIN_LOOK* look = Look_Of(Cell_Value(hex)); look != nullptr) {
                const auto known =
                    std::find_if(seen.begin(), seen.end(), [&](const auto& s) { return s.first == look; });
                const QBrush brush = known != seen.end() ? known->second : Brush_Of(*look, coloured);
                if (known == seen.end()) seen.emplace_back(look, brush);
                if (brush.style() != Qt::NoBrush) painter.fillRect(cell, brush);
            }
            if (Cell_High(hex) > 0) {
                high = true;
                painter.setBrush(QColor(0, 0, 0, coloured ? 200 : 110));
                painter.drawEllipse(QRectF(cell).center() + QPointF(0.5, 0.5), side / 4.0, side / 4.0);
            }
        }
    }
    std::sort(seen.begin(), seen.end(),
              [](const auto& a, const auto& b) { return a.first->VALUE < b.first->VALUE; });
    for (const auto& [look, brush] : seen)
        if (brush.style() != Qt::NoBrush) legend_.emplace_back(Name_Of(*look), brush);
    if (high) legend_.emplace_back(QStringLiteral("High ground"), QBrush());
}

void Ground::Paint_Legend(QPainter& painter, int view_width) const
{
    if (legend_.empty()) return;
    constexpr int LINE = 20, SWATCH = 22, PADDING = 10, MARGIN = 12;
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setFont(Type_Font(Type::SMALL));
    int width = 0;
    for (const auto& [name, brush] : legend_)
        width = std::max(width, painter.fontMetrics().horizontalAdvance(name));
    width += SWATCH + 8 + 2 * PADDING;
    const QRect box(view_width - width - MARGIN, MARGIN, width, static_cast<int>(legend_.size()) * LINE + PADDING);
    painter.fillRect(box, QColor(251, 252, 253, 235));
    painter.setPen(colour::LINE);
    painter.drawRect(box);
    int y = box.top() + PADDING / 2;
    for (const auto& [name, brush] : legend_) {
        const QRect swatch(box.left() + PADDING, y + 4, SWATCH, LINE - 8);
        painter.fillRect(swatch, QColor(0xf3, 0xef, 0xdd));
        if (brush.style() != Qt::NoBrush) {
            painter.fillRect(swatch, brush);
        } else {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(0, 0, 0, 200));
            for (int dot = 0; dot < 3; ++dot)
                painter.drawEllipse(QPointF(swatch.left() + 4 + 7 * dot, swatch.center().y() + 0.5), 2, 2);
            painter.setRenderHint(QPainter::Antialiasing, false);
        }
        painter.setPen(colour::INK);
        painter.drawText(QRect(swatch.right() + 9, y, width, LINE), Qt::AlignLeft | Qt::AlignVCenter, name);
        y += LINE;
    }
    painter.restore();
}

void Ground::Paint(QPainter& painter, const Sight& sight) const
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, sight.ZOOM != 1);
    const QRectF whole(0, 0, Picture_Width(), Picture_Height());
    if (!picture_.isNull()) {
        const bool far_out = sight.ZOOM * sight.PIXEL_RATIO <= 0.5;
        painter.drawImage(QRectF(0, 0, picture_.width(), picture_.height()), far_out ? half_ : picture_);
    } else if (GameLoaded != 0) {
        painter.fillRect(whole, QColor(0xee, 0xea, 0xdc));
        painter.setPen(QPen(QColor(0xd8, 0xd2, 0xbe), 0));
        const int step = std::max(1, static_cast<int>(HEXWIDTH)) * 10;
        for (int x = 0; x <= whole.width(); x += step) painter.drawLine(QLineF(x, 0, x, whole.height()));
        for (int y = 0; y <= whole.height(); y += step) painter.drawLine(QLineF(0, y, whole.width(), y));
    }
    if (!overlay_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        const qreal cell = HEXWIDTH;
        painter.drawImage(QRectF(0, 0, static_cast<qreal>(NUMCOLS) * cell, static_cast<qreal>(NUMROWS) * cell),
                          overlay_);
    }
}

}   // namespace sm::desktop

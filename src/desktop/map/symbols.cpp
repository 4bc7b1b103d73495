#include "desktop/map/symbols.h"

#include "core/game_state.h"
#include "core/icon_names.h"
#include "desktop/theme.h"
#include "persist/program_folder.h"

#include <QHash>
#include <QImageReader>
#include <QPainter>

#include <vector>

namespace sm::desktop {

namespace {

/// The sizes that a picture file holds; empty when it cannot be read.
using Picture_Sizes = std::vector<QImage>;

struct CACHE {
    QHash<QByteArray, Picture_Sizes> FILES;
    QHash<QByteArray, QPixmap> SCALED;   // name, size and pixel ratio
};
CACHE& Cache()
{
    static CACHE cache;
    return cache;
}

const Picture_Sizes& File_Of(const QByteArray& name)
{
    auto& files = Cache().FILES;
    const auto found = files.constFind(name);
    if (found != files.constEnd()) return *found;
    Picture_Sizes sizes;
    const std::string path = Home_Path("\\icons\\" + name.toStdString()).string();
    QImageReader reader(Path_To_Screen(path));
    reader.setDecideFormatFromContent(true);
    do {
        const QImage image = reader.read();
        if (!image.isNull()) sizes.push_back(image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    } while (reader.jumpToNextImage());
    return *files.insert(name, sizes);
}

/// The smallest picture that is large enough, scaled down; else the largest, scaled up.
QImage Scaled(const Picture_Sizes& sizes, int pixels)
{
    const QImage* best = nullptr;
    for (const QImage& image : sizes) {
        const bool fits = image.width() >= pixels;
        if (best == nullptr || (fits && (best->width() < pixels || image.width() < best->width())) ||
            (!fits && best->width() < pixels && image.width() > best->width()))
            best = &image;
    }
    if (best->width() == pixels) return *best;
    return best->scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage Empty_Frame(int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.setPen(QPen(colour::INK, pixels / 16.0));
    const qreal margin = pixels / 6.0;
    painter.drawRect(QRectF(margin, margin, pixels - 2 * margin, pixels - 2 * margin));
    return image;
}

}   // namespace

QPixmap Symbol(const std::string& name, int size, qreal pixel_ratio)
{
    const QByteArray file = QByteArray::fromStdString(name);
    const QByteArray key = file + '|' + QByteArray::number(size) + '|' + QByteArray::number(pixel_ratio);
    auto& scaled = Cache().SCALED;
    const auto found = scaled.constFind(key);
    if (found != scaled.constEnd()) return *found;
    const int pixels = std::max(1, qRound(size * pixel_ratio));
    const Picture_Sizes& sizes = File_Of(file);
    QPixmap pixmap = QPixmap::fromImage(sizes.empty() ? Empty_Frame(pixels) : Scaled(sizes, pixels));
    pixmap.setDevicePixelRatio(pixel_ratio);
    return *scaled.insert(key, pixmap);
}

bool Symbol_Exists(const std::string& name) { return !File_Of(QByteArray::fromStdString(name)).empty(); }

QPixmap Unit_Symbol(int unit, int size, qreal pixel_ratio)
{
    const UNIT_RECORD& u = UNIT[unit];
    const std::string own = u.IMAGE.Str();
    if (!own.empty() && Symbol_Exists(own)) return Symbol(own, size, pixel_ratio);
    return Symbol(Unit_Icon_Name(u.SIDE, u.TYPE, u.SIZE), size, pixel_ratio);
}

void Forget_Symbols() { Cache() = CACHE{}; }

}   // namespace sm::desktop

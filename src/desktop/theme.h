#pragma once
// One visual language for every part of the window: colours, type, spacing.

#include <QColor>
#include <QFont>
#include <QString>

#include <string>
#include <string_view>

class QApplication;
class QPainter;

namespace sm::desktop {

namespace colour {
inline const QColor INK{0x1f, 0x2a, 0x35};
inline const QColor INK_SOFT{0x55, 0x62, 0x6f};
inline const QColor INK_FAINT{0x86, 0x92, 0x9e};
inline const QColor PAPER{0xfb, 0xfc, 0xfd};
inline const QColor CHROME{0xe9, 0xed, 0xf1};
inline const QColor LINE{0xcb, 0xd3, 0xdb};
inline const QColor ACCENT{0x23, 0x52, 0x7c};
inline const QColor BLUE_SIDE{0x1b, 0x5e, 0xa8};
inline const QColor RED_SIDE{0xb4, 0x2b, 0x25};
inline const QColor BOTH_SIDES{0x47, 0x53, 0x5f};
inline const QColor SLATE{0x1b, 0x26, 0x31};
inline const QColor NIGHT{0x14, 0x1e, 0x2b};
inline const QColor NIGHT_INK{0xc9, 0xda, 0xee};
inline const QColor DAY_INK{0x1c, 0x4f, 0x8c};
inline const QColor BRIGHT_GREEN{0x7c, 0xff, 0x7c};
inline const QColor SELECTED{0xff, 0xd2, 0x1f};
}   // namespace colour

/// Blue, Red, or the colour of both.
QColor Side_Colour(int side);

/// Type scale, in logical pixels.
enum class Type { SMALL = 12, BODY = 13, STRONG = 14, TITLE = 17, HEADLINE = 26 };
QFont Type_Font(Type size, int weight = QFont::Normal);

/// After the application object is made: it has taken the user's locale, in which a comma may stand for the
/// decimal point; files and messages know one. Then the theme.
void Settle_Application(QApplication& application);
/// Fonts, palette and style sheet of the whole program.
void Apply_Theme(QApplication& application);

/// Text of the game (code page 1252, carriage returns between lines) for the screen, and back.
QString To_Screen(std::string_view text);
std::string From_Screen(const QString& text);
/// File paths are bytes, never code page 1252.
QString Path_To_Screen(const std::string& path);
std::string Path_From_Screen(const QString& path);

/// Text with a halo, readable on any map.
void Draw_Halo_Text(QPainter& painter, QPointF at, const QString& text, const QColor& ink, const QColor& halo);

}   // namespace sm::desktop

#include "desktop/theme.h"

#include "core/game_state.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QStyleFactory>

#include <clocale>

namespace sm::desktop {

namespace {

const char* const STYLE = R"(
QWidget { color: #1f2a35; }
QMainWindow, QDialog, QMessageBox { background: #e9edf1; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QToolTip { background: #1b2631; color: #f2f5f8; border: 1px solid #1b2631; padding: 4px 7px; }

QMenuBar { background: #fbfcfd; border-bottom: 1px solid #cbd3db; padding: 1px 4px; }
QMenuBar::item { padding: 4px 10px; background: transparent; border-radius: 3px; }
QMenuBar::item:selected { background: #dbe5ee; }
QMenu { background: #fbfcfd; border: 1px solid #b9c3cd; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 26px; border-radius: 3px; }
QMenu::item:selected { background: #dbe5ee; color: #1f2a35; }
QMenu::item:disabled { color: #9aa5b0; }
QMenu::separator { height: 1px; background: #dde3e9; margin: 4px 6px; }
QMenu::indicator { width: 14px; height: 14px; left: 7px; }

QPushButton { background: #fbfcfd; border: 1px solid #b9c3cd; border-radius: 4px; padding: 5px 10px; min-height: 18px; }
QPushButton:hover { background: #eef4f9; border-color: #7f9bb5; }
QPushButton:pressed { background: #dbe5ee; }
QPushButton:disabled { color: #9aa5b0; background: #eff2f5; border-color: #d5dce3; }
QPushButton:checked { background: #23527c; border-color: #1b4163; color: #ffffff; }
QPushButton:focus { border-color: #23527c; }
QPushButton[primary="true"] { background: #23527c; border-color: #1b4163; color: #ffffff; font-weight: 600; padding: 6px 16px; }
QPushButton[primary="true"]:hover { background: #2d6699; }
QPushButton[primary="true"]:pressed { background: #1b4163; }
QPushButton[primary="true"]:disabled { background: #b9c6d2; border-color: #b9c6d2; color: #eef2f5; }
QPushButton[side="blue"] { border-left: 6px solid #1b5ea8; text-align: left; padding-left: 10px; font-weight: 600; }
QPushButton[side="red"] { border-left: 6px solid #b42b25; text-align: left; padding-left: 10px; font-weight: 600; }
QPushButton[side="blue"]:checked { background: #1b5ea8; }
QPushButton[side="red"]:checked { background: #b42b25; }
QPushButton[tool="true"] { padding: 3px 4px; }
QPushButton[tool="true"][primary="true"] { padding: 6px 16px; }
QPushButton[chip="true"] { border-radius: 9px; padding: 0px 6px; min-height: 18px; font-size: 12px; color: #55626f; }
QPushButton[chip="true"]:checked { background: #47535f; border-color: #47535f; color: #ffffff; }
QPushButton[chip="true"][side="blue"], QPushButton[chip="true"][side="red"] { border-left: 1px solid #b9c3cd; padding: 0px 7px; font-weight: 400; }
QPushButton[chip="true"][side="blue"]:checked { background: #1b5ea8; border-color: #1b5ea8; }
QPushButton[chip="true"][side="red"]:checked { background: #b42b25; border-color: #b42b25; }
QPushButton[onmap="true"] { background: #1b2631; color: #f2f5f8; border: none; border-radius: 4px; padding: 5px 12px; }
QPushButton[onmap="true"]:hover { background: #2c3b4a; }

QLabel[role="heading"] { color: #55626f; font-size: 12px; font-weight: 600; }
QLabel[role="title"] { font-size: 17px; font-weight: 600; }

QFrame#panel { background: #fbfcfd; border: 1px solid #cbd3db; border-radius: 5px; }

QTableView { background: #fbfcfd; border: none; selection-background-color: #d6e4f1; selection-color: #1f2a35;
             alternate-background-color: #f3f6f8; outline: none; }
QTableView::item { padding: 0px 4px; border: none; }
QHeaderView::section { background: #eff2f5; border: none; border-bottom: 1px solid #cbd3db; padding: 2px 6px;
                       color: #55626f; font-size: 12px; }
QScrollArea { background: transparent; border: none; }
QScrollArea > QWidget > QWidget { background: transparent; }
QLineEdit, QTextBrowser, QListView, QListWidget, QTreeView { background: #fbfcfd; border: 1px solid #cbd3db; border-radius: 4px;
                                                selection-background-color: #23527c; selection-color: #ffffff; }
QListWidget::item { padding: 3px 4px; }
QProgressBar { background: #dbe1e7; border: none; border-radius: 3px; height: 6px; }
QProgressBar::chunk { background: #23527c; border-radius: 3px; }

QScrollBar:vertical { background: transparent; width: 11px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 11px; margin: 0; }
QScrollBar::handle { background: #b3bec8; border-radius: 4px; min-height: 28px; min-width: 28px; margin: 2px; }
QScrollBar::handle:hover { background: #8c9aa7; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

}   // namespace

QColor Side_Colour(int side)
{
    return side == BLUE ? colour::BLUE_SIDE : side == RED ? colour::RED_SIDE : colour::BOTH_SIDES;
}

QFont Type_Font(Type size, int weight)
{
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(size));
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

void Settle_Application(QApplication& application)
{
    std::setlocale(LC_ALL, "C");
    Apply_Theme(application);
}

void Apply_Theme(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font;
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(static_cast<int>(Type::BODY));
    application.setFont(font);

    QPalette p;
    p.setColor(QPalette::Window, colour::CHROME);
    p.setColor(QPalette::WindowText, colour::INK);
    p.setColor(QPalette::Base, colour::PAPER);
    p.setColor(QPalette::AlternateBase, QColor(0xf3, 0xf6, 0xf8));
    p.setColor(QPalette::Text, colour::INK);
    p.setColor(QPalette::Button, colour::PAPER);
    p.setColor(QPalette::ButtonText, colour::INK);
    p.setColor(QPalette::Highlight, colour::ACCENT);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::ToolTipBase, colour::SLATE);
    p.setColor(QPalette::ToolTipText, Qt::white);
    p.setColor(QPalette::PlaceholderText, colour::INK_FAINT);
    application.setPalette(p);
    application.setStyleSheet(QString::fromLatin1(STYLE));
}

QString To_Screen(std::string_view text)
{
    QString s = QString::fromStdString(To_Utf8(text));
    s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    s.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return s;
}

std::string From_Screen(const QString& text) { return From_Utf8(text.toStdString()); }

QString Path_To_Screen(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

std::string Path_From_Screen(const QString& path) { return QFile::encodeName(path).toStdString(); }

void Draw_Halo_Text(QPainter& painter, QPointF at, const QString& text, const QColor& ink, const QColor& halo)
{
    // Stroking letters is dear; what is written on the map is written again in the next frame.
    constexpr int MARGIN = 3, MOST_TEXTS = 3000;
    static QHash<QString, QPixmap> written;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QString key = QStringLiteral("%1|%2|%3|%4|%5|%6")
                            .arg(text)
                            .arg(painter.font().pixelSize())
                            .arg(painter.font().weight())
                            .arg(ink.rgba())
                            .arg(halo.rgba())
                            .arg(ratio);
    auto found = written.constFind(key);
    if (found == written.constEnd()) {
        if (written.size() >= MOST_TEXTS) written.clear();
        const QFontMetricsF metrics(painter.font());
        const QSizeF size(metrics.horizontalAdvance(text) + 2 * MARGIN, metrics.height() + 2 * MARGIN);
        QPixmap pixmap((size * ratio).toSize() + QSize(1, 1));
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter pen(&pixmap);
        pen.setRenderHint(QPainter::Antialiasing);
        pen.setFont(painter.font());
        const QPointF origin(MARGIN, MARGIN + metrics.ascent());
        QPainterPath path;
        path.addText(origin, painter.font(), text);
        pen.setPen(QPen(halo, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        pen.drawPath(path);
        pen.setPen(ink);
        pen.drawText(origin, text);
        found = written.insert(key, pixmap);
    }
    const QPointF corner = at - QPointF(MARGIN, MARGIN + QFontMetricsF(painter.font()).ascent());
    painter.drawPixmap(QPointF(qRound(corner.x()), qRound(corner.y())), *found);
}

}   // namespace sm::desktop

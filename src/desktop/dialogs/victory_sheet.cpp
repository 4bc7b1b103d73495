#include "desktop/dialogs/victory_sheet.h"

#include "aar/victory_status.h"
#include "core/game_state.h"
#include "desktop/theme.h"

#include <QDialog>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sm::desktop {

namespace {

constexpr int WIDTH = 640, HEIGHT = 690, NAME_WIDTH = 96, VALUE_WIDTH = 64, LINE = 20;

/// Draws the sheet from its texts and numbers; what the numbers are is not decided here.
class Victory_Page final : public QWidget {
public:
    explicit Victory_Page(QWidget* parent) : QWidget(parent)
    {
        setFixedSize(WIDTH, HEIGHT);
        setObjectName(QStringLiteral("victoryPage"));
    }
    void Show(Victory_Status status)
    {
        status_ = std::move(status);
        setAccessibleName(To_Screen(status_.VERDICT));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        int y = Draw_Verdict(painter);
        y = Draw_Power(painter, y + 14);
        y = Draw_Causes(painter, y + 14);
        Draw_Chart(painter, QRect(0, y + 10, WIDTH, HEIGHT - y - 10));
    }

private:
    static void Heading(QPainter& painter, int y, const QString& text)
    {
        painter.setFont(Type_Font(Type::STRONG, QFont::DemiBold));
        painter.setPen(colour::ACCENT);
        painter.drawText(QRect(0, y, WIDTH, LINE), Qt::AlignLeft | Qt::AlignVCenter, text);
    }

    int Draw_Verdict(QPainter& painter) const
    {
        painter.setFont(Type_Font(Type::TITLE, QFont::DemiBold));
        painter.setPen(colour::INK);
        painter.drawText(QRect(0, 0, WIDTH, 28), Qt::AlignLeft | Qt::AlignVCenter, To_Screen(status_.VERDICT));
        painter.setFont(Type_Font(Type::BODY));
        const auto pair = [&](int y, const std::string& blue, const std::string& red) {
            painter.setPen(colour::BLUE_SIDE);
            painter.drawText(QRect(0, y, WIDTH / 2, LINE), Qt::AlignLeft | Qt::AlignVCenter, To_Screen(blue));
            painter.setPen(colour::RED_SIDE);
            painter.drawText(QRect(WIDTH / 2, y, WIDTH / 2, LINE), Qt::AlignLeft | Qt::AlignVCenter, To_Screen(red));
        };
        pair(36, status_.BLUE_POINTS, status_.RED_POINTS);
        pair(36 + LINE, status_.BLUE_LOSSES, status_.RED_LOSSES);
        return 36 + 2 * LINE;
    }

    /// One bar with its value behind it, at the scale of the whole sheet.
    void Bar(QPainter& painter, int x, int width, int y, float value, const QColor& ink) const
    {
        const double share = status_.SCALE > 0 ? std::clamp(static_cast<double>(value / status_.SCALE), 0.0, 1.0) : 0.0;
        const int length = static_cast<int>(share * (width - VALUE_WIDTH));
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawRect(QRect(x, y + 4, std::max(length, value > 0 ? 1 : 0), LINE - 8));
        painter.setPen(colour::INK);
        painter.setFont(Type_Font(Type::SMALL));
        painter.drawText(QRect(x + length + 6, y, VALUE_WIDTH - 6, LINE), Qt::AlignLeft | Qt::AlignVCenter,
                         QString::number(static_cast<double>(value), 'f', 1));
    }

    static void Name(QPainter& painter, int y, const QString& text)
    {
        painter.setFont(Type_Font(Type::BODY));
        painter.setPen(colour::INK_SOFT);
        painter.drawText(QRect(0, y, NAME_WIDTH, LINE), Qt::AlignLeft | Qt::AlignVCenter, text);
    }

    int Draw_Power(QPainter& painter, int y) const
    {
        Heading(painter, y, QStringLiteral("Total Combat Power"));
        y += LINE + 4;
        Name(painter, y, QStringLiteral("BLUFOR"));
        Bar(painter, NAME_WIDTH, WIDTH - NAME_WIDTH, y, status_.BLUE_POWER, colour::BLUE_SIDE);
        Name(painter, y + LINE, QStringLiteral("REDFOR"));
        Bar(painter, NAME_WIDTH, WIDTH - NAME_WIDTH, y + LINE, status_.RED_POWER, colour::RED_SIDE);
        return y + 2 * LINE;
    }

    int Draw_Causes(QPainter& painter, int y) const
    {
        Heading(painter, y, QStringLiteral("Blue/Red Losses (by Cause)"));
        y += LINE + 4;
        const int half = (WIDTH - NAME_WIDTH) / 2;
        for (const CAUSE& cause : status_.CAUSES) {
            Name(painter, y, QString::fromLatin1(cause.NAME).trimmed());
            Bar(painter, NAME_WIDTH, half, y, cause.BLUE_LOSS, colour::BLUE_SIDE);
            Bar(painter, NAME_WIDTH + half, half, y, cause.RED_LOSS, colour::RED_SIDE);
            y += LINE;
        }
        return y;
    }

    void Draw_Chart(QPainter& painter, const QRect& area) const
    {
        Heading(painter, area.top(), QStringLiteral("Red/Blue Strengths vs Game Turn"));
        const QRect plot = area.adjusted(48, LINE + 10, -64, -26);
        painter.setPen(colour::LINE);
        painter.setBrush(Qt::white);
        painter.drawRect(plot);
        float most = status_.SCALE > 0 ? status_.SCALE : 1.0f;
        for (const auto& point : status_.CHART) most = std::max({most, point.BLUE_POWER, point.RED_POWER});
        const int turns = std::max(2, static_cast<int>(status_.CHART.size()));
        const auto x = [&](std::size_t i) { return plot.left() + static_cast<double>(i) * plot.width() / (turns - 1); };
        const auto y = [&](float value) { return plot.bottom() - static_cast<double>(value / most) * plot.height(); };

        painter.setFont(Type_Font(Type::SMALL));
        painter.setPen(colour::INK_SOFT);
        painter.drawText(QRect(area.left(), plot.top() - 8, 42, 16), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(static_cast<double>(most), 'f', 0));
        painter.drawText(QRect(area.left(), plot.bottom() - 8, 42, 16), Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("0"));
        const std::size_t every = 1 + status_.CHART.size() / 16;
        for (std::size_t i = 0; i < status_.CHART.size(); i += every)
            painter.drawText(QRectF(x(i) - 20, plot.bottom() + 4, 40, 16), Qt::AlignCenter,
                             QString::number(status_.CHART[i].TURN));
        Series(painter, QStringLiteral("BLUFOR"), colour::BLUE_SIDE, &Victory_Status::POINT::BLUE_POWER, x, y);
        Series(painter, QStringLiteral("REDFOR"), colour::RED_SIDE, &Victory_Status::POINT::RED_POWER, x, y);
    }

    void Series(QPainter& painter, const QString& name, const QColor& ink, float Victory_Status::POINT::* power,
                const auto& x, const auto& y) const
    {
        QPolygonF line;
        for (std::size_t i = 0; i < status_.CHART.size(); ++i) line << QPointF(x(i), y(status_.CHART[i].*power));
        if (line.isEmpty()) return;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ink, 2));
        painter.drawPolyline(line);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(line.last(), 3, 3);
        painter.setPen(ink);
        painter.drawText(line.last() + QPointF(8, 4), name);
    }

    Victory_Status status_;
};

}   // namespace

void Show_Victory_Sheet(QWidget* parent)
{
    auto* page = static_cast<Victory_Page*>(parent->findChild<QWidget*>(QStringLiteral("victoryPage")));
    if (page == nullptr) {
        auto* dialog = new QDialog(parent);
        dialog->setObjectName(QStringLiteral("sheet Victory Status"));
        dialog->setWindowTitle(QStringLiteral("Victory Status"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        auto* column = new QVBoxLayout(dialog);
        column->setContentsMargins(22, 18, 22, 16);
        column->setSpacing(12);
        page = new Victory_Page(dialog);
        column->addWidget(page);
        auto* row = new QHBoxLayout;
        row->addStretch(1);
        auto* close = new QPushButton(QStringLiteral("Close"), dialog);
        close->setDefault(true);
        QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
        row->addWidget(close);
        column->addLayout(row);
    }
    page->Show(Show_Victory_Status());
    page->window()->show();
    page->window()->raise();
}

}   // namespace sm::desktop

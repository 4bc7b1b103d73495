#include "desktop/panels/header_bar.h"

#include "core/clock.h"
#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/theme.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QProgressBar>
#include <QStackedWidget>

namespace sm::desktop {

namespace {

/// Sun or moon: the header's picture.
QPixmap Light_Picture(bool night, qreal ratio)
{
    constexpr int SIZE = 20;
    QPixmap pixmap(qRound(SIZE * ratio), qRound(SIZE * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    if (night) {
        QPainterPath moon, bite;
        moon.addEllipse(QPointF(10, 10), 7.5, 7.5);
        bite.addEllipse(QPointF(13.5, 7.5), 6.5, 6.5);
        painter.fillPath(moon.subtracted(bite), colour::NIGHT_INK);
    } else {
        painter.setPen(QPen(QColor(0xd9, 0x8a, 0x00), 1.8, Qt::SolidLine, Qt::RoundCap));
        painter.translate(10, 10);
        for (int ray = 0; ray < 8; ++ray) {
            painter.drawLine(QPointF(0, -6.5), QPointF(0, -8.7));
            painter.rotate(45);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xf2, 0xa9, 0x1b));
        painter.drawEllipse(QPointF(0, 0), 4.6, 4.6);
    }
    return pixmap;
}

QString Side_Words()
{
    if (GameLoaded == 0) return {};
    if (SEAT.TurnRunning) return QStringLiteral("Turn in progress");
    if (GameOver == -1) return QStringLiteral("Battle over");
    if (ActiveSide == BLUE) return QStringLiteral("Blue plans");
    if (ActiveSide == RED) return QStringLiteral("Red plans");
    return QStringLiteral("Between sides");
}

}   // namespace

Header_Bar::Header_Bar(const Actions& actions, QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("header"));
    setFixedHeight(48);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 0, 10, 0);
    row->setSpacing(20);
    const auto label = [&](const char* name, Type size, int weight) {
        auto* l = new QLabel(this);
        l->setObjectName(QString::fromLatin1(name));
        l->setFont(Type_Font(size, weight));
        row->addWidget(l, 0, Qt::AlignVCenter);
        return l;
    };
    side_ = label("lblSide", Type::STRONG, QFont::DemiBold);
    turn_ = label("lblTurn", Type::TITLE, QFont::DemiBold);
    clock_ = label("lblClock", Type::TITLE, QFont::DemiBold);
    date_ = label("lblDate", Type::STRONG, QFont::Medium);
    wind_ = label("lblWind", Type::STRONG, QFont::Medium);
    light_ = label("lblLight", Type::STRONG, QFont::Medium);
    row->addStretch(1);

    right_ = new QStackedWidget(this);
    right_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* go = new Command_Button(actions.Of(Cmd::GO), right_);
    go->setProperty("primary", true);
    auto* held = new QWidget(right_);   // keeps the button at its own size
    auto* in = new QHBoxLayout(held);
    in->setContentsMargins(0, 0, 0, 0);
    in->addStretch(1);
    in->addWidget(go, 0, Qt::AlignVCenter);
    right_->addWidget(held);
    auto* running = new QWidget(right_);
    auto* lines = new QVBoxLayout(running);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(5);
    phase_ = new QLabel(running);
    phase_->setObjectName(QStringLiteral("lblPhase"));
    phase_->setFont(Type_Font(Type::STRONG, QFont::DemiBold));
    phase_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bar_ = new QProgressBar(running);
    bar_->setTextVisible(false);
    bar_->setFixedHeight(6);
    lines->addStretch(1);
    lines->addWidget(phase_);
    lines->addWidget(bar_);
    lines->addStretch(1);
    right_->addWidget(running);
    right_->setFixedWidth(280);
    right_->setFixedHeight(44);
    row->addWidget(right_);
    Refresh();
}

void Header_Bar::Refresh()
{
    const bool game = GameLoaded != 0;
    const Header_Texts h = Header();
    night_ = game && h.NIGHT;
    const auto strip = [](const std::string& text) { return To_Screen(text).trimmed(); };
    turn_->setText(game ? QStringLiteral("%1 of %2").arg(strip(h.TURN)).arg(MAXGTURN) : QString());
    clock_->setText(game ? strip(h.CLOCK) : QString());
    date_->setText(game ? strip(h.DATE) : QString());
    wind_->setText(game ? strip(h.WIND) : QString());
    if (game)
        light_->setPixmap(Light_Picture(night_, devicePixelRatioF()));
    else
        light_->clear();
    light_->setToolTip(night_ ? QStringLiteral("Night") : QStringLiteral("Day"));
    side_->setText(Side_Words());
    const int side = SEAT.TurnRunning ? BOTH : ActiveSide;
    side_->setStyleSheet(
        side_->text().isEmpty()
            ? QString()
            : QStringLiteral("background: %1; color: white; border-radius: 4px; padding: 4px 10px;")
                  .arg(Side_Colour(side).name()));
    const QString ink = QStringLiteral("color: %1;").arg((night_ ? colour::NIGHT_INK : colour::DAY_INK).name());
    for (QLabel* l : {turn_, clock_, date_, wind_, light_, phase_}) l->setStyleSheet(ink);
    if (!SEAT.TurnRunning) phase_->clear();
    right_->setCurrentIndex(SEAT.TurnRunning ? 1 : 0);
    right_->setVisible(game);
    update();
}

void Header_Bar::Phase(const QString& title)
{
    if (SEAT.TurnRunning) phase_->setText(title);
}

void Header_Bar::Progress(int value, int maximum)
{
    bar_->setVisible(maximum > 0);
    if (maximum <= 0) return;
    bar_->setMaximum(maximum);
    bar_->setValue(value);
}

void Header_Bar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), night_ ? colour::NIGHT : colour::PAPER);
    painter.setPen(night_ ? QColor(0x2c, 0x3b, 0x4d) : colour::LINE);
    painter.drawLine(0, height() - 1, width(), height() - 1);
}

}   // namespace sm::desktop

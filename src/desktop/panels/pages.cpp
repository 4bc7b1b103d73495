#include "desktop/panels/pages.h"

#include "core/game_state.h"
#include "core/session.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "ui/desk.h"
#include "ui/game_commands.h"

#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace sm::desktop {

namespace {

/// A quiet sheet of the map's grid behind the page.
void Paint_Ground(QPainter& painter, const QRect& area, const QColor& ground, const QColor& line)
{
    painter.fillRect(area, ground);
    painter.setPen(line);
    constexpr int STEP = 48;
    for (int x = area.center().x() % STEP; x < area.right(); x += STEP)
        painter.drawLine(x, area.top(), x, area.bottom());
    for (int y = area.center().y() % STEP; y < area.bottom(); y += STEP)
        painter.drawLine(area.left(), y, area.right(), y);
}

}   // namespace

Start_Page::Start_Page(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("startPage"));
    auto* column = new QVBoxLayout(this);
    column->addStretch(2);
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("panel"));
    card->setFixedWidth(440);
    auto* in = new QVBoxLayout(card);
    in->setContentsMargins(36, 30, 36, 32);
    in->setSpacing(8);
    auto* symbols = new QHBoxLayout;
    symbols->setSpacing(14);
    symbols->addStretch(1);
    for (const char* name : {"bar4.ico", "bmech4.ico", "rmech4.ico", "rar4.ico"}) {
        auto* picture = new QLabel(card);
        if (Symbol_Exists(name)) picture->setPixmap(Symbol(name, 44, devicePixelRatioF()));
        symbols->addWidget(picture);
    }
    symbols->addStretch(1);
    in->addLayout(symbols);
    in->addSpacing(6);
    auto* title = new QLabel(QStringLiteral("Stonemarch"), card);
    title->setFont(Type_Font(Type::HEADLINE, QFont::DemiBold));
    title->setStyleSheet(QStringLiteral("font-size: 26px; font-weight: 600;"));
    title->setAlignment(Qt::AlignCenter);
    in->addWidget(title);
    auto* words = new QLabel(QStringLiteral("Land warfare for staff training"), card);
    words->setStyleSheet(QStringLiteral("color: #55626f; font-size: 14px;"));
    words->setAlignment(Qt::AlignCenter);
    in->addWidget(words);
    in->addSpacing(16);
    for (int row = 0; row < GAME_TYPES; ++row) {
        const GAME_TYPE& type = Game_Type_Row(row);
        if (!Game_Type_Offered(type.NUMBER) || type.NUMBER == 6) continue;
        auto* button = new QPushButton(To_Screen(type.LABEL), card);
        button->setObjectName(QStringLiteral("optGameType%1").arg(type.NUMBER));
        button->setProperty("primary", true);
        button->setMinimumHeight(34);
        const int number = type.NUMBER;
        connect(button, &QPushButton::clicked, this, [number] { optGameType_Click(number); });
        in->addWidget(button);
    }
    auto* exit = new QPushButton(To_Screen(Game_Type(6)->LABEL), card);
    exit->setObjectName(QStringLiteral("optGameType6"));
    exit->setMinimumHeight(30);
    connect(exit, &QPushButton::clicked, this, [] { optGameType_Click(6); });
    in->addWidget(exit);
    auto* center = new QHBoxLayout;
    center->addStretch(1);
    center->addWidget(card);
    center->addStretch(1);
    column->addLayout(center);
    column->addStretch(3);
}

void Start_Page::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint_Ground(painter, rect(), QColor(0xdd, 0xe4, 0xe6), QColor(0xd1, 0xda, 0xde));
}

Cover_Page::Cover_Page(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("cover"));
    auto* column = new QVBoxLayout(this);
    column->addStretch(2);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("lblCover"));
    title_->setAlignment(Qt::AlignCenter);
    column->addWidget(title_);
    words_ = new QLabel(this);
    words_->setAlignment(Qt::AlignCenter);
    words_->setStyleSheet(QStringLiteral("color: #c3cedA; font-size: 15px;"));
    column->addSpacing(10);
    column->addWidget(words_);
    column->addSpacing(26);
    open_ = new QPushButton(this);
    open_->setObjectName(QStringLiteral("cmdUncover"));
    open_->setProperty("primary", true);
    open_->setMinimumSize(280, 40);
    connect(open_, &QPushButton::clicked, this, [] { cmdUncover_Click(); });
    auto* back = new QPushButton(QStringLiteral("Back"), this);
    back->setObjectName(QStringLiteral("cmdStayOut"));
    back->setMinimumSize(280, 32);
    connect(back, &QPushButton::clicked, this, [] { cmdStayOut_Click(); });
    for (QPushButton* button : {open_, back}) {
        auto* row = new QHBoxLayout;
        row->addStretch(1);
        row->addWidget(button);
        row->addStretch(1);
        column->addLayout(row);
        column->addSpacing(4);
    }
    column->addStretch(3);
}

void Cover_Page::Refresh()
{
    const bool blue = DESK.CoveredFor == BLUE;
    title_->setText(blue ? QStringLiteral("Blue Player") : QStringLiteral("Red Player"));
    title_->setStyleSheet(QStringLiteral("color: %1; font-size: 34px; font-weight: 600;")
                              .arg(QLatin1String(blue ? "#7db4f0" : "#f08a82")));
    words_->setText(blue ? QStringLiteral("The map is covered. Hand the seat to the commander of Blue.")
                         : QStringLiteral("The map is covered. Hand the seat to the commander of Red."));
    open_->setText(blue ? QStringLiteral("Blue is seated: show the map")
                        : QStringLiteral("Red is seated: show the map"));
}

void Cover_Page::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint_Ground(painter, rect(), colour::SLATE, QColor(0x22, 0x2f, 0x3b));
    painter.fillRect(0, 0, width(), 6, Side_Colour(DESK.CoveredFor));
}

}   // namespace sm::desktop

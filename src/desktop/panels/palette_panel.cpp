#include "desktop/panels/palette_panel.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/theme.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace sm::desktop {

namespace {

QLabel* Heading(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setProperty("role", QStringLiteral("heading"));
    return label;
}

/// Buttons of a palette under their headings, two in a row where two captions fit.
void Add_Rows(QVBoxLayout& column, Palette palette, const Actions& actions, QWidget* parent)
{
    QString heading;
    QGridLayout* grid = nullptr;
    int n = 0;
    for (const PALETTE_ROW& row : Palette_Rows()) {
        QAction* action = row.PALETTE == palette ? actions.Of(row.ID) : nullptr;
        if (action == nullptr) continue;
        const QString title = QString::fromLatin1(row.HEADING);
        if (grid == nullptr || title != heading) {
            heading = title;
            if (grid != nullptr) column.addSpacing(4);
            column.addWidget(Heading(title, parent));
            grid = new QGridLayout;
            grid->setSpacing(5);
            grid->setColumnStretch(0, 1);
            grid->setColumnStretch(1, 1);
            column.addLayout(grid);
            n = 0;
        }
        auto* button = new Command_Button(action, parent);
        if (row.ID == Cmd::PLOT_LIST) button->setObjectName(QStringLiteral("cmdPlot"));
        const bool wide = QFontMetrics(Type_Font(Type::BODY)).horizontalAdvance(action->text()) > 94 ||
                          palette == Palette::MAIN || Command(row.ID).CAPTION_NOW != nullptr;
        if (wide && n % 2 == 1) ++n;
        grid->addWidget(button, n / 2, n % 2, 1, wide ? 2 : 1);
        n += wide ? 2 : 1;
    }
}

}   // namespace

Palette_Panel::Palette_Panel(const Actions& actions, QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("palette"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    pages_ = new QStackedWidget(this);
    // A palette longer than the window is high scrolls; nothing is squeezed.
    for (QWidget* page : {Build_Main(actions), Build_Orders(actions), Build_Turn()}) {
        auto* area = new QScrollArea(pages_);
        area->setWidgetResizable(true);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->setFocusPolicy(Qt::NoFocus);
        area->setWidget(page);
        pages_->addWidget(area);
    }
    column->addWidget(pages_);
}

QWidget* Palette_Panel::Build_Main(const Actions& actions)
{
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("fraMain"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(Heading(QStringLiteral("Who plans?"), page));
    for (const Cmd id : {Cmd::SIDE_BLUE, Cmd::SIDE_RED}) {
        auto* button = new Command_Button(actions.Of(id), page);
        button->setProperty("side", id == Cmd::SIDE_BLUE ? QStringLiteral("blue") : QStringLiteral("red"));
        button->setMinimumHeight(34);
        column->addWidget(button);
    }
    state_ = new QLabel(page);
    state_->setObjectName(QStringLiteral("lblPlanned"));
    state_->setWordWrap(true);
    state_->setStyleSheet(QStringLiteral("color: #55626f;"));
    column->addWidget(state_);
    column->addSpacing(6);
    Add_Rows(*column, Palette::MAIN, actions, page);
    column->addStretch(1);
    return page;
}

QWidget* Palette_Panel::Build_Orders(const Actions& actions)
{
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("fraMain_Menu"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(5);
    title_ = new QLabel(page);
    title_->setFont(Type_Font(Type::STRONG, QFont::DemiBold));
    column->addWidget(title_);
    unit_ = new QLabel(page);
    unit_->setStyleSheet(QStringLiteral("color: #55626f;"));
    column->addWidget(unit_);
    Add_Rows(*column, Palette::ORDERS, actions, page);
    column->addStretch(1);
    column->addWidget(new Command_Button(actions.Of(Cmd::HAND_OVER), page));
    column->addWidget(new Command_Button(actions.Of(Cmd::END_MENU), page));
    return page;
}

QWidget* Palette_Panel::Build_Turn()
{
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("fraTurn"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(Heading(QStringLiteral("The turn"), page));
    phases_ = new QLabel(page);
    phases_->setObjectName(QStringLiteral("lblPhases"));
    phases_->setTextFormat(Qt::RichText);
    phases_->setWordWrap(true);
    column->addWidget(phases_);
    column->addStretch(1);
    return page;
}

void Palette_Panel::Phase(const QString& title)
{
    if (!SEAT.TurnRunning) return;
    told_.append(title);
    QString text;
    for (int i = 0; i < told_.size(); ++i) {
        const bool now = i + 1 == told_.size();
        text += QStringLiteral("<tr style='%1'><td style='padding:2px 6px 2px 0'>%2</td>"
                               "<td style='padding:2px 0'>%3</td></tr>")
                    .arg(now ? QStringLiteral("font-weight:600;color:#23527c") : QStringLiteral("color:#66727e"),
                         now ? QStringLiteral("&#9656;") : QStringLiteral("&#10003;"), told_[i].toHtmlEscaped());
    }
    phases_->setText(QStringLiteral("<table cellspacing='0'>%1</table>").arg(text));
}

void Palette_Panel::Refresh()
{
    if (!SEAT.TurnRunning) told_.clear();
    pages_->setCurrentIndex(SEAT.TurnRunning ? 2 : DESK.PALETTE == Palette::ORDERS ? 1 : 0);
    const auto planned = [](int side) {
        return DESK.PLANNED[side] ? QStringLiteral("has planned") : QStringLiteral("has not planned yet");
    };
    QStringList planners;
    if (Command_Offered(Cmd::SIDE_BLUE)) planners.append(QStringLiteral("Blue %1.").arg(planned(BLUE)));
    if (Command_Offered(Cmd::SIDE_RED)) planners.append(QStringLiteral("Red %1.").arg(planned(RED)));
    state_->setText(GameLoaded == 0  ? QStringLiteral("Open a game first.")
                    : GameOver == -1 ? QStringLiteral("The battle is over.")
                                     : planners.join(QLatin1Char('\n')));
    title_->setText(ActiveSide == RED ? QStringLiteral("Orders of Red") : QStringLiteral("Orders of Blue"));
    title_->setStyleSheet(QStringLiteral("color: %1;").arg(Side_Colour(ActiveSide).name()));
    const bool own = SelUnit > 0 && (UNIT[SelUnit].SIDE == ActiveSide || UserSide == 5);
    const QString name = own ? QStringLiteral("For %1").arg(To_Screen(UNIT[SelUnit].NAME))
                             : QStringLiteral("Click one of your units.");
    unit_->setText(unit_->fontMetrics().elidedText(name, Qt::ElideRight, width() - 4));
}

}   // namespace sm::desktop

#include "desktop/panels/status_panel.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/map/symbols.h"
#include "desktop/theme.h"
#include "ui/desk.h"
#include "ui/unit_status.h"

#include <QGridLayout>
#include <QLabel>

namespace sm::desktop {

namespace {

constexpr int LINE_HEIGHT = 16, SYMBOL = 36, GAP = 10;

struct C2_LOOK {
    const char *STATE, *GROUND, *INK;
};
constexpr C2_LOOK C2_LOOKS[] = {
    {"Good", "#55ff55", "#000000"},
    {"Average", "#ffff55", "#000000"},
    {"Poor", "#ff5555", "#000000"},
    {"Bad", "#000000", "#ffffff"},
};

/// "MORALE: High": the caption stands back, the value stands out.
struct STATUS_LINE {
    QString CAPTION, VALUE;
    const C2_LOOK* LOOK = nullptr;   // the state of command is told by its ground too, as on the staff's board
};

STATUS_LINE Taken_Apart(const QString& line)
{
    const auto colon = line.indexOf(QLatin1String(": "));
    if (colon < 0) return {{}, line};
    STATUS_LINE l{line.left(colon + 2), line.mid(colon + 2)};
    if (l.CAPTION == QLatin1String("C2 Status: "))
        for (const C2_LOOK& look : C2_LOOKS)
            if (l.VALUE.startsWith(QLatin1String(look.STATE))) l.LOOK = &look;
    return l;
}

QFontMetrics Value_Metrics() { return QFontMetrics(Type_Font(Type::BODY, QFont::DemiBold)); }

/// What of a line's width is not its value: the caption, and the blanks beside a value on a ground of its own.
int Width_Beside(const STATUS_LINE& l)
{
    return QFontMetrics(Type_Font(Type::BODY)).horizontalAdvance(l.CAPTION) +
           (l.LOOK != nullptr ? Value_Metrics().horizontalAdvance(QStringLiteral("  ")) : 0);
}

int Width_Of(const QString& line)
{
    const STATUS_LINE l = Taken_Apart(line);
    return Width_Beside(l) + Value_Metrics().horizontalAdvance(l.VALUE);
}

/// Cut to so many pixels, which only a very long name needs.
QString Rich(const QString& line, int most)
{
    const STATUS_LINE l = Taken_Apart(line);
    const QString value =
        Value_Metrics().elidedText(l.VALUE, Qt::ElideRight, most - Width_Beside(l)).toHtmlEscaped();
    const QString caption =
        l.CAPTION.isEmpty()
            ? QString()
            : QStringLiteral("<span style='color:#66727e'>%1</span> ").arg(l.CAPTION.trimmed().toHtmlEscaped());
    if (l.LOOK == nullptr) return caption + QStringLiteral("<b style='font-weight:600'>%1</b>").arg(value);
    return caption + QStringLiteral("<span style='background:%1;color:%2;font-weight:600'>&nbsp;%3&nbsp;</span>")
                         .arg(QLatin1String(l.LOOK->GROUND), QLatin1String(l.LOOK->INK), value);
}

}   // namespace

Status_Panel::Status_Panel(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("panel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(10, 5, 8, 5);
    column->setSpacing(1);
    auto* head = new QHBoxLayout;
    head->setSpacing(8);
    symbol_ = new QLabel(this);
    symbol_->setFixedSize(SYMBOL, SYMBOL);
    head->addWidget(symbol_);
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    name_ = new QLabel(this);
    name_->setObjectName(QStringLiteral("lblUnitName"));
    name_->setFont(Type_Font(Type::TITLE, QFont::DemiBold));
    kind_ = new QLabel(this);
    kind_->setStyleSheet(QStringLiteral("color: #55626f;"));
    words->addWidget(name_);
    words->addWidget(kind_);
    head->addLayout(words, 1);
    column->addLayout(head);
    grid_ = new QGridLayout;
    grid_->setHorizontalSpacing(GAP);
    grid_->setVerticalSpacing(0);
    grid_->setColumnStretch(0, 52);
    grid_->setColumnStretch(1, 48);
    column->addLayout(grid_);
    column->addStretch(1);
    Refresh();
}

QLabel* Status_Panel::Line(std::size_t index)
{
    while (lines_.size() <= index) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("lblStatus%1").arg(lines_.size()));
        label->setTextFormat(Qt::RichText);
        label->setFixedHeight(LINE_HEIGHT);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        lines_.push_back(label);
    }
    return lines_[index];
}

void Status_Panel::Refresh()
{
    if (SelUnit < 1 || UNIT[SelUnit].STATUS < 1) {
        symbol_->hide();
        name_->setText(QStringLiteral("No unit selected"));
        kind_->setText(GameLoaded == 0 ? QString() : QStringLiteral("Click a unit on the map to read its state."));
        for (QLabel* line : lines_) line->hide();
        return;
    }
    const UNIT_RECORD& u = UNIT[SelUnit];
    symbol_->show();
    symbol_->setPixmap(Unit_Symbol(SelUnit, SYMBOL, devicePixelRatioF()));
    Status_Texts texts = Unit_Status(SelUnit);
    name_->setText(To_Screen(texts.LEFT.front()));   // the first line is the heading
    texts.LEFT.erase(texts.LEFT.begin());
    QString kind = To_Screen(Role_Label(u.TYPE));
    if (u.SIZE != 100 && u.TYPE != 50) kind += QStringLiteral(" ") + To_Screen(Size_Label(u.SIZE));
    if (!u.NATION.Empty()) kind += QStringLiteral(", ") + To_Screen(u.NATION);
    if (!u.IMAGE.Empty() && !Symbol_Exists(u.IMAGE.Str()))
        kind = QStringLiteral("Bad Data for Unit: ") + To_Screen(u.NAME);
    kind_->setText(kind);

    // Two columns; a line too long for its column takes a row alone, and the other column goes on below it.
    const int room = width() - 18 - GAP, left = room * 52 / 100, right = room - left;
    std::size_t used = 0;
    const auto put = [&](const std::string& text, int row, int column, int span, int most) {
        const QString line = To_Screen(text);
        QLabel* label = Line(used++);
        label->setText(Rich(line, most));
        label->setToolTip(line);
        grid_->addWidget(label, row, column, 1, span);
        label->show();
    };
    std::size_t l = 0, r = 0;
    for (int row = 0; l < texts.LEFT.size() || r < texts.RIGHT.size(); ++row) {
        const auto long_for = [&](const std::vector<std::string>& lines, std::size_t at, int most) {
            return at < lines.size() && Width_Of(To_Screen(lines[at])) > most;
        };
        if (long_for(texts.LEFT, l, left)) {
            put(texts.LEFT[l++], row, 0, 2, room + GAP);
        } else if (l >= texts.LEFT.size() && long_for(texts.RIGHT, r, right)) {
            put(texts.RIGHT[r++], row, 0, 2, room + GAP);
        } else {
            if (l < texts.LEFT.size()) put(texts.LEFT[l++], row, 0, 1, left);
            if (r < texts.RIGHT.size() && !long_for(texts.RIGHT, r, right))
                put(texts.RIGHT[r++], row, 1, 1, right);
        }
    }
    for (std::size_t i = used; i < lines_.size(); ++i) lines_[i]->hide();
}

}   // namespace sm::desktop

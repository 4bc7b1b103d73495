#include "desktop/panels/status_line.h"

#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace sm::desktop {

namespace {

constexpr const char* SOFT = "color: #b8c4d0; font-size: 12px;";
constexpr int MARGIN = 12, SPACING = 16;

}   // namespace

Status_Line::Status_Line(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("statusLine"));
    setFixedHeight(27);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(MARGIN, 0, MARGIN, 0);
    row->setSpacing(SPACING);
    words_ = new QLabel(this);
    words_->setObjectName(QStringLiteral("lblStatus"));
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(words_, 1);
    const auto field = [&](const char* name, const char* widest) {
        auto* l = new QLabel(this);
        l->setObjectName(QString::fromLatin1(name));
        l->setStyleSheet(QString::fromLatin1(SOFT));
        if (widest[0] != '\0')
            l->setMinimumWidth(
                QFontMetrics(Type_Font(Type::SMALL)).horizontalAdvance(QString::fromLatin1(widest)) + 2);
        row->addWidget(l);
        return l;
    };
    nbc_ = field("lblNBC", "NBC: Clear");
    terrain_ = field("lblTerrain", "TERRAIN: Severely Restricted");
    lat_long_ = field("lblLatLong", "LAT/LONG: 51 00' N  12 00' E");
    utm_ = field("lblUTM", "UTM: WW 0000");
    Say({}, false);
}

void Status_Line::Say(const QString& text, bool bright)
{
    text_ = text;
    text_.replace(QLatin1Char('\n'), QLatin1Char(' '));
    bright_ = bright;
    words_->setStyleSheet(QStringLiteral("color: %1; font-weight: %2;")
                              .arg((bright ? colour::BRIGHT_GREEN : QColor(0xf2, 0xf5, 0xf8)).name())
                              .arg(bright ? 600 : 500));
    Fit();
}

void Status_Line::Fit()
{
    const QFontMetrics metrics(Type_Font(Type::BODY, QFont::DemiBold));
    const int wanted = metrics.horizontalAdvance(text_) + 4;
    const auto taken = [](const QLabel* field) {
        return SPACING + std::max(field->minimumWidth(), field->sizeHint().width());
    };
    int room = width() - 2 * MARGIN;
    for (const QLabel* field : {nbc_, terrain_, lat_long_, utm_}) room -= taken(field);
    for (QLabel* field : {lat_long_, nbc_, utm_, terrain_}) {
        const bool gives_way = room < wanted;
        field->setVisible(!gives_way);
        if (gives_way) room += taken(field);
    }
    words_->setText(metrics.elidedText(text_, Qt::ElideRight, room));
    words_->setToolTip(words_->text() == text_ ? QString() : text_);
}

void Status_Line::Point(const Hover_Texts& texts)
{
    bool changed = false;
    const auto show = [&](QLabel* label, const std::string& text) {
        const QString s = To_Screen(text);
        if (label->text() == s) return;
        label->setText(s);
        changed = true;
    };
    show(utm_, texts.UTM);
    show(lat_long_, texts.LAT_LONG);
    show(terrain_, texts.TERRAIN);
    show(nbc_, texts.NBC);
    if (changed) Fit();
}

void Status_Line::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colour::SLATE);
    if (bright_) painter.fillRect(0, 0, 4, height(), colour::BRIGHT_GREEN);
}

void Status_Line::resizeEvent(QResizeEvent*) { Fit(); }

}   // namespace sm::desktop

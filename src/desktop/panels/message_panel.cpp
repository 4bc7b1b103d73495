#include "desktop/panels/message_panel.h"

#include "core/game_state.h"
#include "desktop/theme.h"
#include "ui/desk.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>

namespace sm::desktop {

namespace {

constexpr int ROW_HEIGHT = 22;

QColor Kind_Colour(Message_Kind kind)
{
    switch (kind) {
    case Message_Kind::SITREP:
        return {0x23, 0x52, 0x7c};
    case Message_Kind::SPOTREP:
        return {0x7a, 0x4a, 0x9e};
    case Message_Kind::INTREP:
        return {0x1d, 0x78, 0x74};
    case Message_Kind::BDA:
        return {0xb4, 0x4a, 0x12};
    case Message_Kind::CHEMICAL:
        return {0x7a, 0x6a, 0x00};
    case Message_Kind::OTHER:
        break;
    }
    return colour::INK_SOFT;
}

}   // namespace

void Message_Model::Refresh()
{
    std::vector<int> rows = Message_Rows(FILTER);
    const bool grown = rows.size() > rows_.size() && std::equal(rows_.begin(), rows_.end(), rows.begin());
    if (grown) {
        beginInsertRows({}, static_cast<int>(rows_.size()), static_cast<int>(rows.size()) - 1);
        rows_ = std::move(rows);
        endInsertRows();
    } else if (rows == rows_) {
        // The same rows may hold the next turn's reports.
        if (!rows_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, COLUMNS - 1));
    } else {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }
}

QVariant Message_Model::data(const QModelIndex& index, int role) const
{
    const int row = Row_At(index.row());
    if (row == 0) return {};
    const Message m = Message_Of(row);
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == KIND) return To_Screen(Kind_Label(m.KIND));
        return To_Screen(index.column() == PLACE ? m.PLACE : m.TEXT);
    case Qt::ToolTipRole:
        return To_Screen(SITREPLIST[row].TEXT);
    case Qt::ForegroundRole:
        if (index.column() == KIND) return Kind_Colour(m.KIND);
        if (index.column() == PLACE) return colour::INK_SOFT;
        return SITREPLIST[row].SIDE == BOTH ? colour::INK : Side_Colour(SITREPLIST[row].SIDE);
    case Qt::FontRole:
        return Type_Font(Type::BODY, index.column() == KIND ? QFont::DemiBold : QFont::Normal);
    default:
        return {};
    }
}

QVariant Message_Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    static const char* const TITLES[COLUMNS] = {"Kind", "Location", "Message"};
    if (role == Qt::DisplayRole) return QString::fromLatin1(TITLES[section]);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

Message_Panel::Message_Panel(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("panel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 5, 2, 2);
    column->setSpacing(3);
    auto* head = new QHBoxLayout;
    head->setSpacing(3);
    auto* title = new QLabel(QStringLiteral("Situation Reports"), this);
    title->setFont(Type_Font(Type::BODY, QFont::DemiBold));
    head->addWidget(title);
    count_ = new QLabel(this);
    count_->setStyleSheet(QStringLiteral("color: #86929e; font-size: 12px;"));
    head->addWidget(count_);
    head->addStretch(1);
    for (int kind = 0; kind < MESSAGE_KINDS; ++kind) {
        auto* chip = new QPushButton(To_Screen(Kind_Label(static_cast<Message_Kind>(kind))), this);
        chip->setObjectName(QStringLiteral("chip%1").arg(kind));
        chip->setProperty("chip", true);
        chip->setCheckable(true);
        chip->setChecked(true);
        chip->setFocusPolicy(Qt::NoFocus);
        chip->setToolTip(QStringLiteral("Show or hide these reports"));
        connect(chip, &QPushButton::toggled, this, [this, kind](bool on) {
            model_.FILTER.KIND[kind] = on;
            Refresh();
        });
        head->addWidget(chip);
    }
    head->addSpacing(6);
    for (int side = BLUE; side <= RED; ++side) {
        auto* chip = new QPushButton(side == BLUE ? QStringLiteral("Blue") : QStringLiteral("Red"), this);
        chip->setObjectName(QStringLiteral("chipSide%1").arg(side));
        chip->setProperty("chip", true);
        chip->setProperty("side", side == BLUE ? QStringLiteral("blue") : QStringLiteral("red"));
        chip->setCheckable(true);
        chip->setChecked(true);
        chip->setFocusPolicy(Qt::NoFocus);
        chip->setToolTip(QStringLiteral("Show or hide the reports of this side alone"));
        sides_[side - 1] = chip;
        connect(chip, &QPushButton::toggled, this, [this] {
            model_.FILTER.SIDE = (sides_[0]->isChecked() ? BLUE : 0) + (sides_[1]->isChecked() ? RED : 0);
            Refresh();
        });
        head->addWidget(chip);
    }
    head->addSpacing(4);
    column->addLayout(head);

    view_ = new QTableView(this);
    view_->setObjectName(QStringLiteral("lstSitrep"));
    view_->setModel(&model_);
    view_->setShowGrid(false);
    view_->setAlternatingRowColors(true);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setWordWrap(false);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setDefaultSectionSize(ROW_HEIGHT);
    view_->verticalHeader()->setMinimumSectionSize(ROW_HEIGHT);
    view_->horizontalHeader()->setStretchLastSection(true);
    view_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_->horizontalHeader()->setFixedHeight(20);
    view_->horizontalHeader()->setHighlightSections(false);
    view_->setColumnWidth(Message_Model::KIND, 80);
    view_->setColumnWidth(Message_Model::PLACE, 88);
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex& i) {
        if (On_Chosen) On_Chosen(model_.Row_At(i.row()));
    });
    connect(view_, &QTableView::doubleClicked, this, [this](const QModelIndex& i) {
        if (On_Go_To) On_Go_To(model_.Row_At(i.row()));
    });
    column->addWidget(view_, 1);
    Refresh();
}

void Message_Panel::Refresh()
{
    const QScrollBar* bar = view_->verticalScrollBar();
    const bool at_end = bar->value() >= bar->maximum() - ROW_HEIGHT;   // else the reader looks at older ones
    for (QPushButton* chip : sides_) chip->setVisible(May_Filter_Side());
    model_.Refresh();
    const int n = model_.rowCount();
    count_->setText(n == 0 ? QString() : QString::number(n));
    if (at_end) view_->scrollToBottom();
}

}   // namespace sm::desktop

#pragma once
#include "ui/sitreps.h"

#include <QAbstractTableModel>
#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;
class QTableView;

namespace sm::desktop {

/// The rows of SITREPLIST that pass the filter; reads the table where it is.
class Message_Model : public QAbstractTableModel {
public:
    enum Column { KIND, PLACE, TEXT, COLUMNS };
    void Refresh();
    int Row_At(int index) const
    {
        return index >= 0 && index < static_cast<int>(rows_.size()) ? rows_[static_cast<std::size_t>(index)] : 0;
    }
    int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(rows_.size()); }
    int columnCount(const QModelIndex& = {}) const override { return COLUMNS; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    Message_Filter FILTER;

private:
    std::vector<int> rows_;
};

/// Situation reports with their filter. A click marks the place on the map, a double click goes there.
class Message_Panel : public QFrame {
public:
    explicit Message_Panel(QWidget* parent = nullptr);
    void Refresh();

    std::function<void(int row)> On_Go_To;    ///< show the place of a row of SITREPLIST
    std::function<void(int row)> On_Chosen;   ///< a row was clicked

private:
    Message_Model model_;
    QTableView* view_;
    QPushButton* sides_[2];
    QLabel* count_;
};

}   // namespace sm::desktop

#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <functional>
#include <vector>

namespace quarnel {

/// One column of a table that is looked at but not typed into.
struct TableColumn {
    std::function<QString()> heading;
    std::function<QString(std::size_t row)> text; ///< of a row counted from 0
    /// A column of row numbers, painted as a heading: the current cell never stands in it.
    bool isFixed = false;
};

/// A table made from its columns; texts are made when a view asks for them, so a million rows cost
/// nothing until they are looked at. Numbers stand to the right.
class ColumnTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ColumnTableModel(std::vector<TableColumn> columns, QObject* parent = nullptr);

    /// The rows are other ones now, `count` of them. `change` makes them so: views are told before
    /// and after, whatever it throws.
    void ShowRows(std::size_t count, const std::function<void()>& change = {});
    /// Texts of rows first..last in a column have changed.
    void ShowTexts(int first, int last, int column);
    void ShowHeadings();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<TableColumn> columns_;
    int rowCount_ = 0;
};

} // namespace quarnel

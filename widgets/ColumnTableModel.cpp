#include "widgets/ColumnTableModel.h"

#include <utility>

namespace quarnel {

namespace {

/// Tells the views of a reset on every way out.
class Reset {
public:
    Reset(std::function<void()> begin, std::function<void()> end)
        : end_(std::move(end)) {
        begin();
    }
    ~Reset() { end_(); }
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;

private:
    std::function<void()> end_;
};

} // namespace

ColumnTableModel::ColumnTableModel(std::vector<TableColumn> columns, QObject* parent)
    : QAbstractTableModel(parent)
    , columns_(std::move(columns)) {}

void ColumnTableModel::ShowRows(std::size_t count, const std::function<void()>& change) {
    const Reset reset([this] { beginResetModel(); }, [this] { endResetModel(); });
    rowCount_ = 0;
    if (change)
        change();
    rowCount_ = static_cast<int>(count);
}

void ColumnTableModel::ShowTexts(int first, int last, int column) {
    Q_EMIT dataChanged(index(first, column), index(last, column));
}

void ColumnTableModel::ShowHeadings() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int ColumnTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rowCount_;
}

int ColumnTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ColumnTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return columns_[static_cast<std::size_t>(index.column())].text(
            static_cast<std::size_t>(index.row()));
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant ColumnTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || section < 0)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return section < columnCount() ? columns_[static_cast<std::size_t>(section)].heading()
                                   : QVariant();
}

Qt::ItemFlags ColumnTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (columns_[static_cast<std::size_t>(index.column())].isFixed)
        return Qt::ItemNeverHasChildren;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace quarnel

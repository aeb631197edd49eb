#include "recovery/RecoveryGridModel.h"

#include "recovery/GridEditing.h"
#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

#include <algorithm>
#include <cstddef>

namespace quarnel {

namespace {

std::size_t RowIndex(const QModelIndex& index) {
    return static_cast<std::size_t>(index.row());
}

} // namespace

RecoveryGridModel::RecoveryGridModel(ProjectState& state, QObject* parent)
    : QAbstractTableModel(parent)
    , state_(state)
    , editor_(state.RecDatGrid) {
    editor_.SetExchangeRoutine([this](RowExchange& exchange) { Exchange(exchange); });
    editor_.KeepSettingsOf(state_, [this] { Q_EMIT SettingsChanged(); });
}

void RecoveryGridModel::ShowState() {
    beginResetModel();
    editor_.Reset();
    endResetModel();
}

void RecoveryGridModel::ShowTrimmedCells() {
    Q_EMIT dataChanged(index(0, FirstDataColumn), index(rowCount() - 1, LastDataColumn));
}

void RecoveryGridModel::ShowHeadings() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, GridColumnCount - 1);
}

void RecoveryGridModel::ReplaceAll(GridRows rows, ReadingSettings settings) {
    editor_.ReplaceAll(std::move(rows), std::move(settings));
}

/// Rows carry their number, so wherever texts move up or down, it is the end of the table that
/// comes or goes.
void RecoveryGridModel::Exchange(RowExchange& exchange) {
    // Views that have been told of a change must hear its end: what can fail comes before.
    PrepareExchange(state_.RecDatGrid, exchange);
    const std::size_t oldCount = state_.RecDatGrid.size();
    const std::size_t newCount = oldCount - exchange.count + exchange.rows.size();
    const std::size_t lastChanged =
        oldCount == newCount ? exchange.at + exchange.count : std::min(oldCount, newCount);
    if (newCount > oldCount)
        beginInsertRows({}, static_cast<int>(oldCount), static_cast<int>(newCount) - 1);
    else if (newCount < oldCount)
        beginRemoveRows({}, static_cast<int>(newCount), static_cast<int>(oldCount) - 1);
    ExchangeRows(state_.RecDatGrid, exchange);
    if (newCount > oldCount)
        endInsertRows();
    else if (newCount < oldCount)
        endRemoveRows();
    if (exchange.at < lastChanged)
        Q_EMIT dataChanged(index(static_cast<int>(exchange.at), FirstDataColumn),
                           index(static_cast<int>(lastChanged) - 1, LastDataColumn));
    Q_EMIT RowsEdited();
}

int RecoveryGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(state_.RecDatGrid.size());
}

int RecoveryGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : GridColumnCount;
}

QVariant RecoveryGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || RowIndex(index) >= state_.RecDatGrid.size())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (index.column() == NumberColumn)
            return QString::number(index.row() + 1);
        return ToQString(CellAt(state_.RecDatGrid[RowIndex(index)], index.column()));
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool RecoveryGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || index.column() == NumberColumn)
        return false;
    editor_.Write({RowIndex(index) + 1, index.column()}, ToUtf8(OneLine(value.toString())));
    return true;
}

QVariant RecoveryGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    switch (section) {
    case NumberColumn:
        return ToHeading(SampleHeading());
    case TimeColumn:
        return ToHeading(TimeHeading(state_.RecDatTimeUnitsDDL));
    case ReadingColumn:
        return ToHeading(
            RecoveryHeading(state_.RecDatDataTypeDDL, state_.RecDatWaterLevelUnitsDDL));
    default:
        return {};
    }
}

Qt::ItemFlags RecoveryGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (index.column() == NumberColumn)
        return Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace quarnel

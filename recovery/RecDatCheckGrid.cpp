#include "recovery/RecDatCheckGrid.h"

#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

#include <algorithm>
#include <utility>

namespace quarnel {

namespace {
enum CheckColumn { NumberColumn = 0, TimeColumn = 1, YColumn = 2, CheckColumnCount = 3 };
} // namespace

CheckGridModel::CheckGridModel(const ProjectState& state, QObject* parent)
    : QAbstractTableModel(parent)
    , state_(state)
    , points_(std::make_shared<RecoveryPointList>()) {}

void CheckGridModel::ShowPoints(std::shared_ptr<const RecoveryPointList> points) {
    beginResetModel();
    points_ = std::move(points);
    endResetModel();
}

void CheckGridModel::ShowHeadings() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, CheckColumnCount - 1);
}

int CheckGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(static_cast<int>(points_->size()), 1);
}

int CheckGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : CheckColumnCount;
}

QVariant CheckGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == NumberColumn)
        return QString::number(index.row() + 1);
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= points_->size())
        return QString();
    const RecoveryPoint& point = (*points_)[row];
    return index.column() == TimeColumn ? ToQString(point.timeText) : ToQString(YText(point));
}

QVariant CheckGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    switch (section) {
    case NumberColumn:
        return ToHeading(SampleHeading());
    case TimeColumn:
        return ToHeading(TimeHeading(state_.RecDatTimeUnitsDDL));
    case YColumn:
        return ToHeading(YHeading(state_.RecDatWaterLevelUnitsDDL));
    default:
        return {};
    }
}

RecDatCheckGrid::RecDatCheckGrid(const ProjectState& state, QWidget* parent)
    : GridView(parent)
    , model_(state) {
    setObjectName(QStringLiteral("RecDatCheckGrid"));
    setSelectionMode(ContiguousSelection);
    setModel(&model_);
    ClearCheckGrid();
}

void RecDatCheckGrid::ShowYInCheckGrid(std::shared_ptr<const RecoveryPointList> points) {
    model_.ShowPoints(std::move(points));
    setCurrentIndex(model_.index(0, TimeColumn));
}

void RecDatCheckGrid::ClearCheckGrid() {
    ShowYInCheckGrid(std::make_shared<RecoveryPointList>());
}

} // namespace quarnel

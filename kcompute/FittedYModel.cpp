#include "kcompute/FittedYModel.h"

#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

namespace quarnel {

namespace {

QString WithUnit(const char* name, std::string_view unit) {
    return QLatin1String(name) + QLatin1String(" (") + ToQString(unit) + QLatin1Char(')');
}

} // namespace

FittedYModel::FittedYModel(Analysis& analysis, QObject* parent)
    : QAbstractTableModel(parent)
    , analysis_(analysis) {}

int FittedYModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rowCount_;
}

int FittedYModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

std::string FittedYModel::TextAt(std::size_t row, int column) const {
    const ComputationDetails& details = analysis_.details;
    if (row >= details.points->size())
        return {};
    switch (column) {
    case SampleColumn:
        return std::to_string(row + 1);
    case TimeColumn:
        return (*details.points)[row].timeText.ToString();
    case YColumn:
        return YText((*details.points)[row]);
    default:
        return FittedYText(details, row);
    }
}

QVariant FittedYModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return ToQString(TextAt(static_cast<std::size_t>(index.row()), index.column()));
    if (role == Qt::TextAlignmentRole && index.column() == SampleColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant FittedYModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const std::string_view timeUnit = NameAt(TimeUnitNames, analysis_.state.RecDatTimeUnitsDDL);
    const std::string_view levelUnit =
        NameAt(LengthUnitNames, analysis_.state.RecDatWaterLevelUnitsDDL);
    switch (section) {
    case SampleColumn:
        return ToHeading(SampleHeading());
    case TimeColumn:
        return WithUnit("Time", timeUnit);
    case YColumn:
        return WithUnit("Y", levelUnit);
    case FitYColumn:
        return WithUnit("Fit Y", levelUnit);
    default:
        return {};
    }
}

void FittedYModel::SetRows(int count) {
    beginResetModel();
    rowCount_ = count;
    endResetModel();
}

void FittedYModel::Fill() {
    SetRows(static_cast<int>(analysis_.details.points->size()));
}

void FittedYModel::Empty() {
    SetRows(0);
}

void FittedYModel::ShowHeadings() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, Columns - 1);
}

} // namespace quarnel

#include "recovery/RecDatCheckGrid.h"

#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

enum CheckColumn { TimeColumn = 1 };

std::vector<TableColumn> CheckColumns(const ProjectState& state, const SharedPoints& points) {
    return {{[] { return ToHeading(SampleHeading()); },
             [](std::size_t row) { return QString::number(row + 1); }, true},
            {[&state] { return ToHeading(TimeHeading(state.RecDatTimeUnitsDDL)); },
             [&points](std::size_t row) {
                 return row < points->size() ? ToQString((*points)[row].timeText) : QString();
             }},
            {[&state] { return ToHeading(YHeading(state.RecDatWaterLevelUnitsDDL)); },
             [&points](std::size_t row) {
                 return row < points->size() ? ToQString(YText((*points)[row])) : QString();
             }}};
}

} // namespace

RecDatCheckGrid::RecDatCheckGrid(const ProjectState& state, QWidget* parent)
    : GridView(parent)
    , model_(CheckColumns(state, points_)) {
    setObjectName(QStringLiteral("RecDatCheckGrid"));
    setAccessibleName(QStringLiteral("Change in head Y of each reading"));
    setModel(&model_);
    SetWidestTexts({QString(), QStringLiteral("100000.00"), QStringLiteral("-1.234567E-05")});
    ClearCheckGrid();
}

void RecDatCheckGrid::ShowYInCheckGrid(SharedPoints points) {
    const bool isEmpty = points->empty();
    const std::size_t rows = std::max<std::size_t>(points->size(), 1);
    model_.ShowRows(rows, [this, &points] { points_ = std::move(points); });
    // A selected cell of nothing would be a blue spot without a meaning.
    if (!isEmpty)
        setCurrentIndex(model_.index(0, TimeColumn));
}

void RecDatCheckGrid::ClearCheckGrid() {
    ShowYInCheckGrid(SharedPoints());
}

} // namespace quarnel

#include "project/GlobalDeclar.h"

#include "project/Texts.h"

#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

constexpr std::array<double, 4> CmPerLengthUnit = {2.54, 30.48, 1.0, 100.0};
constexpr std::array<double, 4> SecPerTimeUnit = {1.0, 60.0, 3600.0, 86400.0};

double FactorAt(const std::array<double, 4>& factors, int position) {
    return position >= 0 && position < 4 ? factors[static_cast<std::size_t>(position)] : 0.0;
}

} // namespace

double UnitFactorToCm(int lengthUnit) {
    return FactorAt(CmPerLengthUnit, lengthUnit);
}

double UnitFactorToSec(int timeUnit) {
    return FactorAt(SecPerTimeUnit, timeUnit);
}

void ResetProjectState(ProjectState& state) {
    ProjectState fresh;
    for (std::size_t i = ConsultantZip; i <= CertificationNo; ++i)
        fresh.SiteIDText[i] = std::move(state.SiteIDText[i]);
    fresh.DecimalSeparator = std::move(state.DecimalSeparator);
    state = std::move(fresh);
}

void FillRecoveryGridFromData(ProjectState& state) {
    state.RecDatGrid = std::move(state.RecoveryDataTexts);
    state.RecoveryDataTexts.clear();
    state.RecDatGrid.resize(
        std::max(state.RecDatGrid.size() + EmptyRowsAfterData, MinimumGridRows));
}

bool HasRecoveryRows(const ProjectState& state) {
    return std::any_of(state.RecDatGrid.begin(), state.RecDatGrid.end(),
                       [](const RecoveryRow& row) {
                           return !TrimBlanks(row.time).empty() || !TrimBlanks(row.level).empty();
                       });
}

std::string MainWindowTitle(const ProjectState& state) {
    std::string title = "Quarnel: Bouwer-Rice Slug Test Analysis";
    if (!state.CurrentProjectFile.empty())
        title += "/ " + state.CurrentProjectFile;
    return title;
}

void ClearComputedValues(ComputedValues& computed) {
    std::shared_ptr<RecoveryPointList> points = std::move(computed.RecoveryPoints);
    std::vector<CellText> criteria = std::move(computed.Criteria);
    computed = ComputedValues();
    criteria.clear();
    computed.Criteria = std::move(criteria);
    // Kept details may still hold the points of the last computation.
    if (points.use_count() == 1) {
        points->clear();
        computed.RecoveryPoints = std::move(points);
    }
}

} // namespace quarnel

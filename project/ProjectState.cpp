#include "project/ProjectState.h"

#include "project/Texts.h"

#include <algorithm>
#include <utility>

namespace quarnel {

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

} // namespace quarnel

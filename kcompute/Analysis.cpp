#include "kcompute/Analysis.h"

#include "kcompute/ComputeK.h"
#include "kcompute/KComputations.h"
#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellGeometry.h"

#include <utility>

namespace quarnel {

namespace {

Preparation& Stop(Preparation& preparation, Result result, FaultyTab tab) {
    preparation.result = std::move(result);
    preparation.faultyTab = tab;
    return preparation;
}

} // namespace

void ResetAnalysis(Analysis& analysis) {
    ResetProjectState(analysis.state);
    analysis.file = FileOnDisk();
    analysis.working = WorkingValues();
    analysis.computation.reset();
}

ReadReport OpenProjectFile(const std::string& path, Analysis& analysis) {
    ReadReport report = OpenProjectFile(path, analysis.state, analysis.file);
    if (report.format != FileFormat::Unrecognised) {
        analysis.working = WorkingValues();
        analysis.computation.reset();
    }
    return report;
}

Result CheckDataShowYs(Analysis& analysis) {
    RecoveryData& recovery = analysis.working.recovery;
    analysis.working.marks.clear();
    Result result = CheckRecoveryData(analysis.state, recovery);
    if (result.IsError())
        return result;
    result = ComputeRecoveryY(recovery);
    analysis.working.marks = RestoredMarks(analysis.state.IgnoreKeyList, *recovery.RecoveryPoints);
    return result;
}

Preparation PrepareComputation(Analysis& analysis) {
    Preparation preparation;
    ClearComputedValues(analysis.working);
    Result result = CheckWellGeometry(analysis.state, analysis.working.geometry);
    if (result.IsError())
        return Stop(preparation, std::move(result), FaultyTab::WellGeometry);
    preparation.geometryAccepted = true;
    Result coefficients =
        ComputeCoefficientsAndRadii(analysis.working.geometry, analysis.working.coefficients);
    if (coefficients.IsError())
        return Stop(preparation, std::move(coefficients), FaultyTab::WellGeometry);
    preparation.coefficientsComputed = true;
    preparation.coefficientWarning = coefficients.message;
    const bool hasRows = HasRecoveryRows(analysis.state);
    result = CheckDataShowYs(analysis);
    if (!hasRows)
        result = Result::Error("No recovery data has been entered.");
    if (result.IsError())
        return Stop(preparation, std::move(result), FaultyTab::RecoveryData);
    preparation.pointsChecked = true;
    preparation.yWarning = result.message;
    preparation.result = result.message.empty() ? std::move(coefficients) : std::move(result);
    return preparation;
}

Result Compute(Analysis& analysis) {
    return ComputeK(analysis.state, analysis.working, analysis.computation);
}

bool HasCurrentComputation(const Analysis& analysis) {
    return analysis.computation != nullptr &&
           IsCurrent(*analysis.computation, analysis.state, analysis.working);
}

} // namespace quarnel

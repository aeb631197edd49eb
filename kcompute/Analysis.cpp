#include "kcompute/Analysis.h"

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryDa.h"
#include "wellgeometry/WellGeometry.h"

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
    analysis.computed = ComputedValues();
    analysis.details = ComputationDetails();
}

ReadReport OpenProjectFile(const std::string& path, Analysis& analysis) {
    ReadReport report = OpenProjectFile(path, analysis.state);
    if (report.format != FileFormat::Unrecognised) {
        analysis.computed = ComputedValues();
        analysis.details = ComputationDetails();
    }
    return report;
}

Result CheckDataShowYs(Analysis& analysis) {
    Result result = CheckRecoveryData(analysis.state, analysis.computed);
    if (result.IsError())
        return result;
    result = ComputeRecoveryY(analysis.computed);
    RestoreMarks(analysis.state, analysis.computed);
    return result;
}

Preparation PrepareComputation(Analysis& analysis) {
    Preparation preparation;
    ClearComputedValues(analysis.computed);
    Result result = CheckWellGeometry(analysis.state, analysis.computed);
    if (result.IsError())
        return Stop(preparation, std::move(result), FaultyTab::WellGeometry);
    preparation.geometryAccepted = true;
    Result coefficients = ComputeCoefficientsAndRadii(analysis.computed);
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

Result ComputeAndKeep(Analysis& analysis) {
    Result result = ComputeK(analysis.state, analysis.computed);
    if (!result.IsError())
        analysis.details = BuildComputationDetails(analysis.state, analysis.computed);
    return result;
}

std::string ShowComputedK(Analysis& analysis) {
    if (analysis.computed.KIsComputed)
        analysis.details.kLine = KLine(analysis.state, analysis.computed);
    return ComputedKText(analysis.state, analysis.computed);
}

} // namespace quarnel

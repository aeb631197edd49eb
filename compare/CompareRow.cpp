#include "compare/CompareRow.h"

#include "diagnostics/Diagnostics.h"
#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/KText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

void TakeTexts(const ProjectState& state, CompareRow& row) {
    row.siteName = TrimBlanks(state.SiteIDText[SiteName]);
    row.wellLabel = TrimBlanks(state.WellTestIDTxt[WellLabel]);
    row.testDate = TrimBlanks(state.WellTestIDTxt[TestDate]);
    row.slugTestType = state.RecDatDataTypeDDL == ChangeInHead
                           ? NotApplicable
                           : TrimBlanks(NameAt(SlugTestTypeNames, state.RecDatSlugTestTypeDDL));
    row.timeUnit = state.RecDatTimeUnitsDDL;
}

void TakeStatistics(Diagnostics& diagnostics, CompareRow& row) {
    row.firstYCm = diagnostics.Points().FirstYCm();
    const UsedHeadRange heads = diagnostics.UsedHeads();
    row.headMax = heads.greatest;
    row.headMin = heads.least;
    if (diagnostics.AdjustedInterval()) {
        row.halfWidthKind = HalfWidthKind::Adjusted;
        row.halfWidthPercent = 100 * diagnostics.Fit().autocorrelation->adjustedHalfWidth.value();
    } else if (diagnostics.Interval()) {
        row.halfWidthPercent = 100 * diagnostics.Fit().scatter->halfWidth.value();
    }
}

void TakeChecks(const ChecksPage& page, const DiagnosticsLines& lines, bool keepTexts,
                CompareRow& row) {
    for (const CheckFinding& finding : page.findings) {
        const bool isCaution = finding.level == CheckLevel::Caution;
        (isCaution ? row.cautions : row.notes).push_back(finding.id);
        if (keepTexts)
            (isCaution ? row.cautionTexts : row.noteTexts).push_back(lines.CheckText(finding));
    }
    row.cautions.shrink_to_fit();
    row.notes.shrink_to_fit();
}

/// All points, or the first of each step of time, so that what is left looks the same on paper.
void TakePoints(const TestSeries& series, const Computation& computation, CompareRow& row) {
    const Series valid = series.Valid();
    const double firstTime = valid.timeSec.front();
    const double step = (valid.timeSec.back() - firstTime) / double(MostNormalizedPoints);
    const bool isThinned = valid.Size() > MostNormalizedPoints;
    row.points.reserve(std::min(valid.Size(), MostNormalizedPoints));
    double nextPlace = 0;
    for (std::size_t i = 0; i < valid.Size(); ++i) {
        const double place = std::min(std::floor((valid.timeSec[i] - firstTime) / step),
                                      double(MostNormalizedPoints - 1));
        if (isThinned && place < nextPlace)
            continue;
        nextPlace = place + 1;
        row.points.push_back({valid.timeSec[i], valid.lnYCm[i] - valid.lnYCm.front(),
                              IsUsed(computation, series.ValidPoints()[i])});
    }
}

void TakeComputation(const Analysis& analysis, const CompareKeep& keep, CompareRow& row) {
    const ProjectState& state = analysis.state;
    const Computation& computation = *analysis.computation;
    row.kCmPerSec = computation.KInCmPerSec;
    row.kText = KText(state, computation.KInCmPerSec);
    row.kLengthUnit = state.CmboKLengthUnits;
    row.kTimeUnit = state.CmboKTimeUnits;
    row.usedCount = static_cast<std::size_t>(computation.usedCount);
    row.slopePerSec = computation.line.slope;
    Diagnostics diagnostics(analysis.computation, state);
    TakeStatistics(diagnostics, row);
    TakeChecks(diagnostics.Checks(), DiagnosticsLines(computation, state), keep.remarkTexts, row);
    if (keep.points)
        TakePoints(diagnostics.Points(), computation, row);
}

} // namespace

CompareRow MakeCompareRow(const AnalysisRun& run, const CompareKeep& keep, PathResolver& paths) {
    CompareRow row;
    row.file = run.file;
    row.resolvedFile = paths.Resolve(run.file);
    row.isRead = run.isRead;
    row.failure = run.failure;
    if (!run.isRead)
        return row;
    TakeTexts(run.analysis.state, row);
    if (run.pointsChecked)
        row.pointCount = run.analysis.working.recovery.RecoveryPoints->size();
    if (run.KIsComputed())
        TakeComputation(run.analysis, keep, row);
    return row;
}

CompareRow ReadCompareRow(const std::string& path, std::string_view decimalSeparator,
                          const CompareKeep& keep, PathResolver& paths) {
    return MakeCompareRow(RunAnalysis(path, decimalSeparator), keep, paths);
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1);
}

} // namespace quarnel

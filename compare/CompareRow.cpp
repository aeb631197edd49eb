#include "compare/CompareRow.h"

#include "diagnostics/Diagnostics.h"
#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/KText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace quarnel {

namespace {

namespace fs = std::filesystem;

void TakeTexts(const ProjectState& state, CompareRow& row) {
    row.siteName = TrimBlanks(state.SiteIDText[SiteName]);
    row.wellLabel = TrimBlanks(state.WellTestIDTxt[WellLabel]);
    row.testDate = TrimBlanks(state.WellTestIDTxt[TestDate]);
    row.slugTestType = state.RecDatDataTypeDDL == ChangeInHead
                           ? NotApplicable
                           : TrimBlanks(NameAt(SlugTestTypeNames, state.RecDatSlugTestTypeDDL));
    row.timeUnit = state.RecDatTimeUnitsDDL;
}

void TakeStatistics(const StatisticsPage& page, CompareRow& row) {
    row.firstYCm = page.firstYCm;
    row.headMax = page.greatestUsedHead;
    row.headMin = page.leastUsedHead;
    if (page.adjustedInterval) {
        row.halfWidthKind = HalfWidthKind::Adjusted;
        row.halfWidthPercent = 100 * page.fit.autocorrelation->adjustedHalfWidth.value();
    } else if (page.interval) {
        row.halfWidthPercent = 100 * page.fit.scatter->halfWidth.value();
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
    TakeStatistics(diagnostics.Statistics(), row);
    TakeChecks(diagnostics.Checks(), DiagnosticsLines(computation, state), keep.remarkTexts, row);
    if (keep.points)
        TakePoints(diagnostics.Points(), computation, row);
}

} // namespace

CompareRow MakeCompareRow(const AnalysisRun& run, const CompareKeep& keep) {
    CompareRow row;
    row.file = run.file;
    row.resolvedFile = ResolvedPath(run.file);
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
                          const CompareKeep& keep) {
    return MakeCompareRow(RunAnalysis(path, decimalSeparator), keep);
}

std::string ResolvedPath(const std::string& path) {
    std::error_code failure;
    const fs::path whole = fs::absolute(path, failure);
    const fs::path resolved = fs::weakly_canonical(whole, failure);
    // Where a folder may not be looked into the name itself has to do.
    return failure ? whole.lexically_normal().string() : resolved.string();
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1);
}

} // namespace quarnel

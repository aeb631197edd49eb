#include "cli/DiagnoseOutput.h"
#include "diagnostics/Diagnostics.h"
#include "kcompute/KText.h"
#include "project/CsvLine.h"

namespace quarnel {

namespace {

constexpr std::string_view Columns =
    "file,well_label,status,k_text,k_length_unit,k_time_unit,k_cm_per_sec,used_count,"
    "half_width_percent,adjusted_half_width_percent,r_squared,lag1,durbin_watson,"
    "k_030_020_cm_per_sec,points_030_020,cautions,notes\n";
/// Columns from K on, all empty where there is none.
constexpr int ColumnsOfK = 14;

std::optional<double> Percent(std::optional<double> part) {
    return part ? std::optional<double>(100 * *part) : std::nullopt;
}

std::string JoinedNames(const ChecksPage& page, CheckLevel level) {
    std::string names;
    for (const CheckFinding& finding : page.findings)
        if (finding.level == level)
            names += (names.empty() ? "" : "; ") + std::string(CheckName(finding.id));
    return names;
}

void AddStatistics(const StatisticsPage& page, CsvLine& line) {
    const FitStatistics& fit = page.fit;
    const FitAutocorrelation alike = fit.autocorrelation.value_or(FitAutocorrelation());
    line.Add(true, static_cast<double>(fit.usedCount));
    line.Add(page.interval ? Percent(fit.scatter->halfWidth) : std::nullopt);
    line.Add(page.adjustedInterval ? Percent(alike.adjustedHalfWidth) : std::nullopt);
    line.Add(fit.rSquared);
    line.Add(fit.autocorrelation.has_value(), alike.lag1);
    line.Add(fit.autocorrelation.has_value(), alike.durbinWatson);
}

void AddDiagnostics(const Analysis& analysis, CsvLine& line) {
    const ProjectState& state = analysis.state;
    Diagnostics diagnostics(analysis.computation, state);
    line.Add(ShowComputedK(state, analysis.computation.get()));
    line.Add(NameAt(LengthUnitNames, state.CmboKLengthUnits));
    line.Add(NameAt(TimeUnitNames, state.CmboKTimeUnits));
    line.Add(true, analysis.computation->KInCmPerSec);
    AddStatistics(diagnostics.Statistics(), line);
    const HeadWindowRow& window = diagnostics.Windows().rows[Row030To020];
    line.Add(window.kCmPerSec);
    line.Add(true, static_cast<double>(window.pointCount));
    line.Add(JoinedNames(diagnostics.Checks(), CheckLevel::Caution));
    line.Add(JoinedNames(diagnostics.Checks(), CheckLevel::Note));
}

} // namespace

std::string DiagnosticsCsvHeader() {
    return std::string(Columns);
}

std::string DiagnosticsCsvRow(const AnalysisRun& run) {
    CsvLine line;
    line.AddForeign(run.file);
    line.AddForeign(run.analysis.state.WellTestIDTxt[WellLabel]);
    line.Add(std::to_string(static_cast<int>(run.status)));
    if (run.analysis.computation)
        AddDiagnostics(run.analysis, line);
    else
        for (int i = 0; i < ColumnsOfK; ++i)
            line.Add("");
    return std::move(line).Text();
}

} // namespace quarnel

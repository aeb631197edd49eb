#include "cli/DiagnoseOutput.h"
#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/KText.h"

namespace quarnel {

namespace {

std::string_view NameOf(SlugVerdict verdict) {
    switch (verdict) {
    case SlugVerdict::Agrees:
        return "agrees";
    case SlugVerdict::FilterPack:
        return "filter_pack";
    case SlugVerdict::Unexplained:
        return "unexplained";
    case SlugVerdict::Larger:
        break;
    }
    return "larger";
}

std::string_view NameOf(SensitivityInput input) {
    switch (input) {
    case SensitivityInput::H:
        return "H";
    case SensitivityInput::Lw:
        return "Lw";
    case SensitivityInput::Le:
        return "Le";
    case SensitivityInput::Dw:
        return "dw";
    case SensitivityInput::Dc:
        return "dc";
    case SensitivityInput::Porosity:
        return "dpor";
    case SensitivityInput::StaticLevel:
        return "static_level";
    case SensitivityInput::LeftOut:
        return "left_out";
    case SensitivityInput::LnCap:
        return "ln_cap";
    case SensitivityInput::Anisotropy:
    case SensitivityInput::HeadWindow:
        break;
    }
    return "Kz/Kr";
}

/// Writes one project's object, member by member.
class DiagnosticsWriter {
public:
    DiagnosticsWriter(const AnalysisRun& run, const DiagnoseOptions& options, JsonWriter& json)
        : run_(run)
        , options_(options)
        , json_(json) {}

    void Write();

private:
    void Member(std::string_view key, std::optional<double> number) {
        json_.Key(key);
        number ? json_.Number(*number) : json_.Null();
    }
    void Count(std::string_view key, std::size_t count) {
        json_.Member(key, static_cast<double>(count));
    }
    void WriteMessages();
    void WriteK();
    void WriteDiagnostics(Diagnostics& diagnostics, const DiagnosticsLines& lines);
    void WriteStatistics(const StatisticsPage& page);
    void WriteAutocorrelation(const StatisticsPage& page);
    void WriteWindows(const HeadWindowsPage& page);
    void WriteSegments(const HeadWindowsPage& page, const DiagnosticsLines& lines);
    void WriteSlugVolume(const StatisticsPage& page, const DiagnosticsLines& lines);
    void WriteHvorslev(const StatisticsPage& page);
    void WriteChecks(const ChecksPage& page, const DiagnosticsLines& lines);
    void WriteSensitivity(Diagnostics& diagnostics);

    const AnalysisRun& run_;
    const DiagnoseOptions& options_;
    JsonWriter& json_;
};

void DiagnosticsWriter::WriteMessages() {
    json_.Key("messages");
    json_.BeginArray();
    for (const std::string& message : run_.messages)
        json_.Text(message);
    json_.EndArray();
}

void DiagnosticsWriter::WriteK() {
    json_.Key("k");
    if (!run_.analysis.computation)
        return json_.Null();
    const ProjectState& state = run_.analysis.state;
    json_.BeginObject();
    json_.Member("cm_per_sec", run_.analysis.computation->KInCmPerSec);
    json_.Member("text", ShowComputedK(state, run_.analysis.computation.get()));
    json_.Member("length_unit", NameAt(LengthUnitNames, state.CmboKLengthUnits));
    json_.Member("time_unit", NameAt(TimeUnitNames, state.CmboKTimeUnits));
    json_.EndObject();
}

void DiagnosticsWriter::WriteAutocorrelation(const StatisticsPage& page) {
    const std::optional<FitAutocorrelation>& alike = page.fit.autocorrelation;
    const auto member = [&](std::string_view key, double FitAutocorrelation::*value) {
        Member(key, alike ? std::optional<double>((*alike).*value) : std::nullopt);
    };
    member("lag1_autocorrelation", &FitAutocorrelation::lag1);
    member("durbin_watson", &FitAutocorrelation::durbinWatson);
    member("effective_count", &FitAutocorrelation::effectiveCount);
    member("adjusted_slope_se_per_sec", &FitAutocorrelation::adjustedSlopeSe);
    member("adjusted_df", &FitAutocorrelation::adjustedDf);
    member("adjusted_t_quantile", &FitAutocorrelation::adjustedTQuantile);
    const std::optional<KInterval>& interval = page.adjustedInterval;
    Member("adjusted_low_cm_per_sec", interval ? std::optional(interval->low) : std::nullopt);
    Member("adjusted_high_cm_per_sec", interval ? std::optional(interval->high) : std::nullopt);
}

void DiagnosticsWriter::WriteStatistics(const StatisticsPage& page) {
    const std::optional<FitScatter>& scatter = page.fit.scatter;
    const auto member = [&](std::string_view key, double FitScatter::*value) {
        Member(key, scatter ? std::optional<double>((*scatter).*value) : std::nullopt);
    };
    json_.Key("statistics");
    json_.BeginObject();
    Count("used_count", page.fit.usedCount);
    json_.Member("slope_per_sec", page.fit.slope);
    json_.Member("intercept_ln_cm", page.fit.intercept);
    member("sse", &FitScatter::sse);
    member("residual_sd", &FitScatter::residualSd);
    member("df", &FitScatter::df);
    member("slope_se_per_sec", &FitScatter::slopeSe);
    member("intercept_se", &FitScatter::interceptSe);
    Member("r_squared", page.fit.rSquared);
    member("t_quantile", &FitScatter::tQuantile);
    const std::optional<KInterval>& interval = page.interval;
    Member("interval_low_cm_per_sec", interval ? std::optional(interval->low) : std::nullopt);
    Member("interval_high_cm_per_sec", interval ? std::optional(interval->high) : std::nullopt);
    WriteAutocorrelation(page);
    json_.EndObject();
}

void DiagnosticsWriter::WriteWindows(const HeadWindowsPage& page) {
    json_.Key("windows");
    json_.BeginArray();
    for (const HeadWindowRow& row : page.rows) {
        json_.BeginRow();
        json_.Member("window", row.name);
        Count("point_count", row.pointCount);
        Member("k_cm_per_sec", row.kCmPerSec);
        Member("r_squared", row.rSquared);
        Member("change_percent", row.changePercent);
        json_.EndObject();
    }
    json_.EndArray();
}

void DiagnosticsWriter::WriteSegments(const HeadWindowsPage& page, const DiagnosticsLines& lines) {
    json_.Key("segments");
    if (!page.enoughForSegments)
        return json_.Null();
    const std::optional<TwoSegments>& found = page.segments;
    const auto member = [&](std::string_view key, auto value) {
        Member(key, found ? std::optional<double>(value(*found)) : std::nullopt);
    };
    json_.BeginObject();
    json_.Key("suggested");
    json_.Boolean(found && found->suggested);
    member("split_after_point",
           [](const TwoSegments& two) { return static_cast<double>(two.splitAfter); });
    member("last_time_early_sec", [](const TwoSegments& two) { return two.lastTimeEarlySec; });
    member("first_time_late_sec", [](const TwoSegments& two) { return two.firstTimeLateSec; });
    member("slope_early_per_sec", [](const TwoSegments& two) { return two.early.slope; });
    member("slope_late_per_sec", [](const TwoSegments& two) { return two.late.slope; });
    Member("slope_ratio", found ? found->slopeRatio : std::nullopt);
    member("sse_one", [](const TwoSegments& two) { return two.sseOne; });
    member("sse_two", [](const TwoSegments& two) { return two.sseTwo; });
    Member("k_early_cm_per_sec", page.kEarlyCmPerSec);
    Member("k_late_cm_per_sec", page.kLateCmPerSec);
    json_.Member("text", lines.Segments(page));
    json_.EndObject();
}

void DiagnosticsWriter::WriteSlugVolume(const StatisticsPage& page, const DiagnosticsLines& lines) {
    json_.Key("slug_volume");
    if (!page.slugVolume)
        return json_.Null();
    const SlugVolumeCheck& check = *page.slugVolume;
    json_.BeginObject();
    json_.Member("volume_litre", check.volumeLitre);
    json_.Member("expected_cm", check.expectedCm);
    json_.Member("first_over_expected", check.firstOverExpected);
    json_.Member("intercept_over_expected", check.interceptOverExpected);
    json_.Member("effective_radius_cm", check.effectiveRadiusCm);
    Member("implied_porosity", check.impliedPorosity);
    json_.Member("verdict", NameOf(check.verdict));
    json_.Key("line_below_first");
    json_.Boolean(check.lineBelowFirst);
    json_.Member("text", lines.SlugVolume(page));
    json_.EndObject();
}

void DiagnosticsWriter::WriteHvorslev(const StatisticsPage& page) {
    json_.Key("hvorslev");
    if (!page.hvorslev)
        return json_.Null();
    json_.BeginObject();
    json_.Member("k_cm_per_sec", page.hvorslev->kCmPerSec);
    Member("ratio_to_bouwer_rice", page.hvorslev->ratio);
    Member("touching_k_cm_per_sec", page.hvorslev->touchingKCmPerSec);
    Member("k_025_015_cm_per_sec", page.hvorslev->window025To015CmPerSec);
    json_.EndObject();
}

void DiagnosticsWriter::WriteChecks(const ChecksPage& page, const DiagnosticsLines& lines) {
    json_.Key("checks");
    json_.BeginArray();
    for (const CheckFinding& finding : page.findings) {
        json_.BeginRow();
        json_.Member("id", CheckName(finding.id));
        json_.Member("level", finding.level == CheckLevel::Caution ? "caution" : "note");
        json_.Member("text", lines.CheckText(finding));
        json_.Member("value", finding.value);
        json_.EndObject();
    }
    json_.EndArray();
}

void DiagnosticsWriter::WriteSensitivity(Diagnostics& diagnostics) {
    json_.Key("sensitivity");
    if (!options_.percent)
        return json_.Null();
    const SensitivityPage& page = diagnostics.SensitivityTo(*options_.percent);
    json_.BeginObject();
    json_.Member("percent", page.percent);
    json_.Key("rows");
    json_.BeginArray();
    for (const SensitivityEntry& entry : page.entries) {
        json_.BeginRow();
        json_.Member("input", NameOf(entry.input));
        json_.Member("change", entry.change);
        Member("k_cm_per_sec", entry.kCmPerSec);
        Member("change_percent", entry.changePercent);
        json_.EndObject();
    }
    json_.EndArray();
    json_.EndObject();
}

void DiagnosticsWriter::WriteDiagnostics(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    const StatisticsPage& statistics = diagnostics.Statistics();
    json_.BeginObject();
    json_.Member("h0_cm", statistics.firstYCm);
    Member("reading_step_cm", statistics.readingStepCm);
    Count("point_count", statistics.pointCount);
    Count("valid_count", statistics.validCount);
    Count("used_count", statistics.fit.usedCount);
    WriteStatistics(statistics);
    WriteWindows(diagnostics.Windows());
    WriteSegments(diagnostics.Windows(), lines);
    WriteSlugVolume(statistics, lines);
    WriteHvorslev(statistics);
    WriteChecks(diagnostics.Checks(), lines);
    WriteSensitivity(diagnostics);
    json_.EndObject();
}

void DiagnosticsWriter::Write() {
    json_.BeginObject();
    json_.Member("file", run_.file);
    json_.Member("status", static_cast<double>(run_.status));
    WriteMessages();
    json_.Member("well_label", run_.analysis.state.WellTestIDTxt[WellLabel]);
    WriteK();
    json_.Key("diagnostics");
    if (const ComputationPtr& computation = run_.analysis.computation) {
        Diagnostics diagnostics(computation, run_.analysis.state);
        WriteDiagnostics(diagnostics, DiagnosticsLines(*computation, run_.analysis.state));
    } else {
        json_.Null();
    }
    json_.EndObject();
}

} // namespace

void WriteDiagnosticsJson(const AnalysisRun& run, const DiagnoseOptions& options,
                          JsonWriter& json) {
    DiagnosticsWriter(run, options, json).Write();
}

} // namespace quarnel

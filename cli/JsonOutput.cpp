#include "cli/JsonOutput.h"

#include "kcompute/KComputations.h"
#include "kcompute/NumberToText.h"
#include "recovery/RecoveryDa.h"

namespace quarnel {

namespace {

void WriteMessages(const AnalysisRun& run, JsonWriter& json) {
    json.Key("messages");
    json.BeginArray();
    for (const std::string& message : run.messages)
        json.Text(message);
    json.EndArray();
}

void WriteGeometry(const ComputedValues& computed, JsonWriter& json) {
    json.BeginObject();
    json.Member("h_cm", computed.H.cm);
    json.Member("lw_cm", computed.Lw.cm);
    json.Member("le_cm", computed.Le.cm);
    json.Member("rw_cm", computed.dw.radiusCm);
    json.Member("rc_cm", computed.dc.radiusCm);
    json.Member("re_cm", computed.reCm);
    json.Member("porosity", computed.n);
    json.Member("re_text", computed.reText);
    json.EndObject();
}

void WriteCoefficients(const ComputedValues& computed, JsonWriter& json) {
    json.BeginObject();
    json.Member("le_over_rw", computed.leOverRw);
    json.Member("a", computed.A);
    json.Member("b", computed.B);
    json.Member("c", computed.C);
    json.Member("ln_re_over_rw", computed.lnReOverRw);
    json.Member("le_over_rw_text", computed.leOverRwText);
    json.Member("a_text", computed.aText);
    json.Member("b_text", computed.bText);
    json.Member("c_text", computed.cText);
    json.Member("ln_re_over_rw_text", computed.lnReOverRwText);
    json.EndObject();
}

void WriteFit(const ComputedValues& computed, JsonWriter& json) {
    json.BeginObject();
    json.Member("used_count", computed.usedCount);
    json.Member("slope_per_sec", computed.FitSlope);
    json.Member("intercept_ln_cm", computed.FitIntercept);
    json.Member("slope_text", ThreeFigureText(computed.FitSlope));
    json.Member("intercept_text", ThreeFigureText(computed.FitIntercept));
    json.EndObject();
}

void WriteK(const Analysis& analysis, JsonWriter& json) {
    const ProjectState& state = analysis.state;
    json.BeginObject();
    json.Member("cm_per_sec", analysis.computed.KInCmPerSec);
    json.Member("text", ComputedKText(state, analysis.computed));
    json.Member("length_unit", NameAt(LengthUnitNames, state.CmboKLengthUnits));
    json.Member("time_unit", NameAt(TimeUnitNames, state.CmboKTimeUnits));
    json.EndObject();
}

void WritePlot(const PlotBounds& bounds, JsonWriter& json) {
    json.BeginObject();
    json.Member("max_time", bounds.PlotMaxTime);
    json.Member("y_axis_min", bounds.PlotYAxisMin);
    json.Member("y_axis_max", bounds.PlotYAxisMax);
    json.EndObject();
}

void WriteFittedY(const AnalysisRun& run, std::size_t index, JsonWriter& json) {
    const ComputationDetails& details = run.analysis.details;
    json.Key("fit_y");
    run.kComputed ? json.Number(FittedY(details, index)) : json.Null();
    json.Key("fit_y_text");
    run.kComputed ? json.Text(FittedYText(details, index)) : json.Null();
}

void WritePoint(const AnalysisRun& run, std::size_t index, JsonWriter& json) {
    const ComputedValues& computed = run.analysis.computed;
    const RecoveryPoint& point = (*computed.RecoveryPoints)[index];
    json.BeginRow();
    json.Member("number", static_cast<double>(index + 1));
    json.Member("time_text", point.timeText);
    json.Member("time_sec", point.timeSec);
    json.Member("level_text", point.levelText);
    json.Member("y", point.y);
    json.Member("y_text", YText(point));
    json.Member("y_cm", point.yCm);
    json.Member("log10_y", point.log10Y);
    json.Member("ln_y_cm", point.lnYCm);
    json.Member("weight", point.weight);
    json.Member("criterion", computed.Criteria[index]);
    WriteFittedY(run, index, json);
    json.EndObject();
}

void WritePoints(const AnalysisRun& run, JsonWriter& json) {
    json.BeginArray();
    for (std::size_t i = 0; i < run.analysis.computed.RecoveryPoints->size(); ++i)
        WritePoint(run, i, json);
    json.EndArray();
}

} // namespace

void WriteJson(const AnalysisRun& run, JsonWriter& json) {
    const ComputedValues& computed = run.analysis.computed;
    const auto group = [&json](std::string_view key, bool reached, auto write) {
        json.Key(key);
        reached ? write() : json.Null();
    };
    json.BeginObject();
    json.Member("file", run.file);
    json.Member("status", static_cast<double>(run.status));
    WriteMessages(run, json);
    json.Member("well_label", run.analysis.state.WellTestIDTxt[WellLabel]);
    group("geometry", run.geometryAccepted, [&] { WriteGeometry(computed, json); });
    group("coefficients", run.coefficientsComputed, [&] { WriteCoefficients(computed, json); });
    group("fit", run.kComputed, [&] { WriteFit(computed, json); });
    group("k", run.kComputed, [&] { WriteK(run.analysis, json); });
    group("plot", run.pointsChecked, [&] { WritePlot(computed.bounds, json); });
    group("points", run.pointsChecked, [&] { WritePoints(run, json); });
    json.EndObject();
}

} // namespace quarnel

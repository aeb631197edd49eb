#include "cli/JsonOutput.h"

#include "kcompute/Computation.h"
#include "kcompute/KText.h"
#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/FixedLists.h"
#include "project/ProjectState.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quarnel {

namespace {

void WriteMessages(const AnalysisRun& run, JsonWriter& json) {
    json.Key("messages");
    json.BeginArray();
    for (const std::string& message : run.messages)
        json.Text(message);
    json.EndArray();
}

void WriteGeometry(const WellDimensions& well, JsonWriter& json) {
    json.BeginObject();
    json.Member("h_cm", well.H.cm);
    json.Member("lw_cm", well.Lw.cm);
    json.Member("le_cm", well.Le.cm);
    json.Member("rw_cm", well.dw.radiusCm);
    json.Member("rc_cm", well.dc.radiusCm);
    json.Member("re_cm", well.reCm);
    json.Member("porosity", well.n);
    json.Member("re_text", well.reText);
    json.EndObject();
}

void WriteCoefficients(const BouwerRiceValues& values, JsonWriter& json) {
    json.BeginObject();
    json.Member("le_over_rw", values.leOverRw);
    json.Member("a", values.A);
    json.Member("b", values.B);
    json.Member("c", values.C);
    json.Member("ln_re_over_rw", values.lnReOverRw);
    json.Member("le_over_rw_text", values.leOverRwText);
    json.Member("a_text", values.aText);
    json.Member("b_text", values.bText);
    json.Member("c_text", values.cText);
    json.Member("ln_re_over_rw_text", values.lnReOverRwText);
    json.EndObject();
}

void WriteFit(const Computation& computation, JsonWriter& json) {
    json.BeginObject();
    json.Member("used_count", computation.usedCount);
    json.Member("slope_per_sec", computation.line.slope);
    json.Member("intercept_ln_cm", computation.line.intercept);
    json.Member("slope_text", ThreeFigureText(computation.line.slope));
    json.Member("intercept_text", ThreeFigureText(computation.line.intercept));
    json.EndObject();
}

void WriteK(const ProjectState& state, const Computation& computation, JsonWriter& json) {
    json.BeginObject();
    json.Member("cm_per_sec", computation.KInCmPerSec);
    json.Member("text", ShowComputedK(state, &computation));
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
    const Computation* computation = run.analysis.computation.get();
    const double fittedY = computation != nullptr ? FittedY(*computation, index) : 0;
    json.Key("fit_y");
    computation != nullptr ? json.Number(fittedY) : json.Null();
    json.Key("fit_y_text");
    computation != nullptr ? json.Text(ThreeFigureText(fittedY)) : json.Null();
}

void WritePoint(const AnalysisRun& run, std::size_t index, JsonWriter& json) {
    const RecoveryPoint& point = (*run.analysis.working.recovery.RecoveryPoints)[index];
    const Mark mark = run.analysis.working.marks[index];
    json.BeginRow();
    json.Member("number", static_cast<double>(index + 1));
    json.Member("time_text", point.timeText);
    json.Member("time_sec", point.timeSec);
    json.Member("level_text", point.levelText);
    json.Member("y", point.y);
    json.Member("y_text", YText(point));
    json.Member("y_cm", point.yCm);
    json.Member("log10_y", point.Log10Y());
    json.Member("ln_y_cm", point.lnYCm);
    json.Member("weight", mark == Mark::Use ? 1 : 0);
    json.Member("criterion", MarkText(mark));
    WriteFittedY(run, index, json);
    json.EndObject();
}

void WritePoints(const AnalysisRun& run, JsonWriter& json) {
    json.BeginArray();
    for (std::size_t i = 0; i < run.analysis.working.recovery.RecoveryPoints->size(); ++i)
        WritePoint(run, i, json);
    json.EndArray();
}

} // namespace

void WriteJson(const AnalysisRun& run, JsonWriter& json) {
    const WorkingValues& working = run.analysis.working;
    const Computation* computation = run.analysis.computation.get();
    const auto group = [&json](std::string_view key, bool reached, auto write) {
        json.Key(key);
        reached ? write() : json.Null();
    };
    json.BeginObject();
    json.Member("file", run.file);
    json.Member("status", static_cast<double>(run.status));
    WriteMessages(run, json);
    json.Member("well_label", run.analysis.state.WellTestIDTxt[WellLabel]);
    group("geometry", run.geometryAccepted, [&] { WriteGeometry(working.geometry, json); });
    group("coefficients", run.coefficientsComputed,
          [&] { WriteCoefficients(working.coefficients, json); });
    group("fit", computation != nullptr, [&] { WriteFit(*computation, json); });
    group("k", computation != nullptr, [&] { WriteK(run.analysis.state, *computation, json); });
    group("plot", run.pointsChecked, [&] { WritePlot(working.recovery.bounds, json); });
    group("points", run.pointsChecked, [&] { WritePoints(run, json); });
    json.EndObject();
}

} // namespace quarnel

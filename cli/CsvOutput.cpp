#include "cli/CsvOutput.h"

#include "kcompute/Computation.h"
#include "kcompute/KText.h"
#include "kcompute/WorkingValues.h"
#include "project/CsvLine.h"
#include "project/FixedLists.h"
#include "project/ProjectState.h"
#include "wellgeometry/WellDimensions.h"

#include <string_view>
#include <utility>

namespace quarnel {

namespace {

constexpr std::string_view Columns =
    "file,well_label,status,k_text,k_length_unit,k_time_unit,k_cm_per_sec,"
    "h_cm,lw_cm,le_cm,rw_cm,rc_cm,re_cm,porosity,le_over_rw,a,b,c,ln_re_over_rw,"
    "point_count,used_count,slope_per_sec,intercept_ln_cm,messages\n";

void AddK(const AnalysisRun& run, CsvLine& row) {
    const ProjectState& state = run.analysis.state;
    const Computation* computation = run.analysis.computation.get();
    const bool reached = computation != nullptr;
    row.Add(ShowComputedK(state, computation));
    row.Add(reached ? NameAt(LengthUnitNames, state.CmboKLengthUnits) : "");
    row.Add(reached ? NameAt(TimeUnitNames, state.CmboKTimeUnits) : "");
    row.Add(reached, reached ? computation->KInCmPerSec : 0);
}

void AddGeometry(const AnalysisRun& run, CsvLine& row) {
    const WellDimensions& well = run.analysis.working.geometry;
    const BouwerRiceValues& values = run.analysis.working.coefficients;
    for (const double value :
         {well.H.cm, well.Lw.cm, well.Le.cm, well.dw.radiusCm, well.dc.radiusCm, well.reCm, well.n})
        row.Add(run.geometryAccepted, value);
    for (const double value : {values.leOverRw, values.A, values.B, values.C, values.lnReOverRw})
        row.Add(run.coefficientsComputed, value);
}

void AddFit(const AnalysisRun& run, CsvLine& row) {
    const Computation* computation = run.analysis.computation.get();
    const bool reached = computation != nullptr;
    row.Add(run.pointsChecked,
            static_cast<double>(run.analysis.working.recovery.RecoveryPoints->size()));
    row.Add(reached, reached ? computation->usedCount : 0);
    row.Add(reached, reached ? computation->line.slope : 0);
    row.Add(reached, reached ? computation->line.intercept : 0);
}

std::string JoinedMessages(const AnalysisRun& run) {
    std::string joined;
    for (const std::string& message : run.messages)
        joined += (joined.empty() ? "" : "; ") + message;
    return joined;
}

} // namespace

std::string CsvHeader() {
    return std::string(Columns);
}

std::string CsvRow(const AnalysisRun& run) {
    CsvLine row;
    row.AddForeign(run.file);
    row.AddForeign(run.analysis.state.WellTestIDTxt[WellLabel]);
    row.Add(std::to_string(static_cast<int>(run.status)));
    AddK(run, row);
    AddGeometry(run, row);
    AddFit(run, row);
    row.AddForeign(JoinedMessages(run));
    return std::move(row).Text();
}

} // namespace quarnel

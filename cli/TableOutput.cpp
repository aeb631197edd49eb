#include "cli/TableOutput.h"

#include "kcompute/Computation.h"
#include "kcompute/KText.h"
#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/FixedLists.h"
#include "project/PlainText.h"
#include "project/ProjectState.h"
#include "project/Result.h"
#include "project/TextColumns.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace quarnel {

namespace {

constexpr std::size_t LabelWidth = 27;
/// Widest text of a number in three figures, "-1.23e-10", and one more.
constexpr std::size_t ThreeFigureWidth = 10;
constexpr std::string_view ColumnGap = "  ";

std::string Heading(std::string_view text) {
    return "\n  " + std::string(text) + "\n";
}

std::string Line(std::string_view label, std::string_view value) {
    return "    " + PaddedRight(label, LabelWidth) + std::string(value) + "\n";
}

std::string_view StatusText(const AnalysisRun& run) {
    if (!run.isRead)
        return "not read";
    if (!run.KIsComputed())
        return "not computed";
    switch (run.status) {
    case ComputationStatus::Ok:
        return "computed";
    case ComputationStatus::Warning:
        return "computed, with warnings";
    case ComputationStatus::Error:
        break;
    }
    return "computed from what could be read";
}

/// "50.60 m = 5060 cm"; a length entered in centimetres stands once.
std::string LengthText(std::string_view text, int unit, double cm) {
    std::string length(text);
    length += ' ';
    length += NameAt(LengthUnitNames, unit);
    if (unit != Centimetre)
        length += " = " + SingleToText(cm) + " cm";
    return length;
}

std::string GeometryLines(const WellDimensions& well) {
    const int vertical = well.verticalUnit;
    const int radial = well.radialUnit;
    std::string lines = Heading("Well geometry");
    lines += Line("H", LengthText(well.H.text, vertical, well.H.cm));
    lines += Line("Lw", LengthText(well.Lw.text, vertical, well.Lw.cm));
    lines += Line("Le", LengthText(well.Le.text, vertical, well.Le.cm));
    lines += Line("dw", LengthText(well.dw.text, radial, 2 * well.dw.radiusCm));
    lines += Line("rw", LengthText(SingleToText(well.dw.radius), radial, well.dw.radiusCm));
    lines += Line("dc", LengthText(well.dc.text, radial, 2 * well.dc.radiusCm));
    lines += Line("rc", LengthText(SingleToText(well.dc.radius), radial, well.dc.radiusCm));
    lines += Line("Drained porosity", well.dporText + " %");
    lines += Line("Effective radius re", LengthText(well.reText, radial, well.reCm));
    return lines;
}

std::string CoefficientLines(const BouwerRiceValues& values) {
    return Heading("Bouwer-Rice coefficients") + Line("Le/rw", values.leOverRwText) +
           Line("A", values.aText) + Line("B", values.bText) + Line("C", values.cText) +
           Line("ln(Re/rw)", values.lnReOverRwText);
}

/// How wide the columns of the point table are, each with its heading.
struct PointColumns {
    std::string time, level, y, fitY;
    std::size_t numberWidth, timeWidth, levelWidth, yWidth;
};

/// Without the blank that stands for a plus sign: the column is set to the right.
std::string ShownY(const RecoveryPoint& point) {
    return std::string(TrimBlanks(YText(point)));
}

PointColumns ColumnsOf(const RecoveryData& data) {
    const std::string unit = " (" + std::string(NameAt(LengthUnitNames, data.levelUnit)) + ")";
    PointColumns columns;
    columns.time = "Time (" + std::string(NameAt(TimeUnitNames, data.timeUnit)) + ")";
    columns.level = "Reading " + std::string(NameAt(DataTypeLetters, data.dataType)) + unit;
    columns.y = "Y" + unit;
    columns.fitY = "Fit Y" + unit;
    const RecoveryPointList& points = *data.RecoveryPoints;
    columns.numberWidth = std::max<std::size_t>(4, std::to_string(points.size()).size());
    columns.timeWidth = CharacterCount(columns.time);
    columns.levelWidth = CharacterCount(columns.level);
    columns.yWidth = columns.y.size();
    for (const RecoveryPoint& point : points) {
        columns.yWidth = std::max(columns.yWidth, ShownY(point).size());
        columns.timeWidth = std::max(columns.timeWidth, CharacterCount(point.timeText));
        columns.levelWidth = std::max(columns.levelWidth, CharacterCount(point.levelText));
    }
    return columns;
}

std::string PointLine(const PointColumns& columns, std::string_view number, std::string_view time,
                      std::string_view level, std::string_view y, std::string_view fitY,
                      std::string_view criterion) {
    std::string line = "    ";
    AppendPaddedLeft(line, number, columns.numberWidth);
    for (const auto& [text, width] :
         {std::pair(time, columns.timeWidth), std::pair(level, columns.levelWidth),
          std::pair(y, columns.yWidth), std::pair(fitY, ThreeFigureWidth)}) {
        line += ColumnGap;
        AppendPaddedLeft(line, text, width);
    }
    line += ColumnGap;
    line += criterion;
    line += '\n';
    return line;
}

void WritePoints(const AnalysisRun& run, Output& output) {
    const WorkingValues& working = run.analysis.working;
    const RecoveryPointList& points = *working.recovery.RecoveryPoints;
    const PointColumns columns = ColumnsOf(working.recovery);
    output.Write(Heading("Recovery data"));
    output.Write(PointLine(columns, "No.", columns.time, columns.level, columns.y, columns.fitY,
                           "Criterion"));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::string fitY =
            run.KIsComputed() ? FittedYText(*run.analysis.computation, i) : std::string();
        output.Write(PointLine(columns, std::to_string(i + 1), points[i].timeText,
                               points[i].levelText, ShownY(points[i]), fitY,
                               MarkText(working.marks[i])));
    }
}

std::string PlotLines(const RecoveryData& data) {
    const PlotBounds& bounds = data.bounds;
    return Heading("Plot") +
           Line("Time axis", "0 to " + DoubleToText(bounds.PlotMaxTime) + " " +
                                 std::string(NameAt(TimeUnitNames, data.timeUnit))) +
           Line("Y axis", DoubleToText(bounds.PlotYAxisMin) + " to " +
                              DoubleToText(bounds.PlotYAxisMax) + " " +
                              std::string(NameAt(LengthUnitNames, data.levelUnit)));
}

std::string FitLines(const Computation& computation) {
    return Heading("Fit of ln(Y in cm) against time in s") +
           Line("Points used", std::to_string(computation.usedCount) + " of " +
                                   std::to_string(computation.recovery.RecoveryPoints->size())) +
           Line("Slope", ThreeFigureText(computation.line.slope) + " 1/s") +
           Line("Intercept", ThreeFigureText(computation.line.intercept));
}

/// In the units chosen in the project, where they are, and in cm/s.
std::string KTexts(const AnalysisRun& run) {
    if (!run.KIsComputed())
        return "not computed";
    const ProjectState& state = run.analysis.state;
    const Computation* computation = run.analysis.computation.get();
    const std::string inCmPerSec = ThreeFigureText(computation->KInCmPerSec) + " cm/sec";
    const std::string text = ShowComputedK(state, computation);
    return text.empty() ? inCmPerSec : text + " " + KUnitText(state) + " = " + inCmPerSec;
}

} // namespace

void WriteTable(const AnalysisRun& run, Output& output) {
    const WorkingValues& working = run.analysis.working;
    output.Write(PlainText(run.file) + "\n");
    output.Write(Line("Status", StatusText(run)));
    if (run.isRead)
        output.Write(
            Line("Monitoring well", PlainText(run.analysis.state.WellTestIDTxt[WellLabel])));
    if (run.geometryAccepted)
        output.Write(GeometryLines(working.geometry));
    if (run.coefficientsComputed)
        output.Write(CoefficientLines(working.coefficients));
    if (run.pointsChecked) {
        WritePoints(run, output);
        output.Write(PlotLines(working.recovery));
    }
    if (run.KIsComputed())
        output.Write(FitLines(*run.analysis.computation));
    output.Write("\n" + Line("Hydraulic conductivity K", KTexts(run)));
}

} // namespace quarnel

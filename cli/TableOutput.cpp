#include "cli/TableOutput.h"

#include "cli/PlainText.h"
#include "kcompute/KComputations.h"
#include "kcompute/NumberToText.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"

#include <algorithm>
#include <string_view>

namespace quarnel {

namespace {

constexpr std::size_t LabelWidth = 27;
/// Widest text of a number in three figures, "-1.23e-10", and one more.
constexpr std::size_t ThreeFigureWidth = 10;
constexpr std::string_view ColumnGap = "  ";

std::string PaddedLeft(std::string_view text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    return std::string(count < width ? width - count : 0, ' ') + std::string(text);
}

std::string PaddedRight(std::string_view text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    return std::string(text) + std::string(count < width ? width - count : 0, ' ');
}

std::string Heading(std::string_view text) {
    return "\n  " + std::string(text) + "\n";
}

std::string Line(std::string_view label, std::string_view value) {
    return "    " + PaddedRight(label, LabelWidth) + std::string(value) + "\n";
}

std::string_view StatusText(const AnalysisRun& run) {
    if (!run.isRead)
        return "not read";
    if (!run.kComputed)
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

std::string GeometryLines(const ComputedValues& computed) {
    const int vertical = computed.verticalUnit;
    const int radial = computed.radialUnit;
    std::string lines = Heading("Well geometry");
    lines += Line("H", LengthText(computed.H.text, vertical, computed.H.cm));
    lines += Line("Lw", LengthText(computed.Lw.text, vertical, computed.Lw.cm));
    lines += Line("Le", LengthText(computed.Le.text, vertical, computed.Le.cm));
    lines += Line("dw", LengthText(computed.dw.text, radial, 2 * computed.dw.radiusCm));
    lines += Line("rw", LengthText(SingleToText(computed.dw.radius), radial, computed.dw.radiusCm));
    lines += Line("dc", LengthText(computed.dc.text, radial, 2 * computed.dc.radiusCm));
    lines += Line("rc", LengthText(SingleToText(computed.dc.radius), radial, computed.dc.radiusCm));
    lines += Line("Drained porosity", computed.dporText + " %");
    lines += Line("Effective radius re", LengthText(computed.reText, radial, computed.reCm));
    return lines;
}

std::string CoefficientLines(const ComputedValues& computed) {
    return Heading("Bouwer-Rice coefficients") + Line("Le/rw", computed.leOverRwText) +
           Line("A", computed.aText) + Line("B", computed.bText) + Line("C", computed.cText) +
           Line("ln(Re/rw)", computed.lnReOverRwText);
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

PointColumns ColumnsOf(const ComputedValues& computed) {
    const std::string unit = " (" + std::string(NameAt(LengthUnitNames, computed.levelUnit)) + ")";
    PointColumns columns;
    columns.time = "Time (" + std::string(NameAt(TimeUnitNames, computed.timeUnit)) + ")";
    columns.level = "Reading " + std::string(NameAt(DataTypeLetters, computed.dataType)) + unit;
    columns.y = "Y" + unit;
    columns.fitY = "Fit Y" + unit;
    const RecoveryPointList& points = *computed.RecoveryPoints;
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
    line += PaddedLeft(number, columns.numberWidth);
    for (const auto& [text, width] :
         {std::pair(time, columns.timeWidth), std::pair(level, columns.levelWidth),
          std::pair(y, columns.yWidth), std::pair(fitY, ThreeFigureWidth)}) {
        line += ColumnGap;
        line += PaddedLeft(text, width);
    }
    line += ColumnGap;
    line += criterion;
    line += '\n';
    return line;
}

void WritePoints(const AnalysisRun& run, Output& output) {
    const ComputedValues& computed = run.analysis.computed;
    const PointColumns columns = ColumnsOf(computed);
    output.Write(Heading("Recovery data"));
    output.Write(PointLine(columns, "No.", columns.time, columns.level, columns.y, columns.fitY,
                           "Criterion"));
    for (std::size_t i = 0; i < computed.RecoveryPoints->size(); ++i) {
        const RecoveryPoint& point = (*computed.RecoveryPoints)[i];
        const std::string fitY =
            run.kComputed ? FittedYText(run.analysis.details, i) : std::string();
        output.Write(PointLine(columns, std::to_string(i + 1), point.timeText, point.levelText,
                               ShownY(point), fitY, computed.Criteria[i]));
    }
}

std::string PlotLines(const ComputedValues& computed) {
    const PlotBounds& bounds = computed.bounds;
    return Heading("Plot") +
           Line("Time axis", "0 to " + DoubleToText(bounds.PlotMaxTime) + " " +
                                 std::string(NameAt(TimeUnitNames, computed.timeUnit))) +
           Line("Y axis", DoubleToText(bounds.PlotYAxisMin) + " to " +
                              DoubleToText(bounds.PlotYAxisMax) + " " +
                              std::string(NameAt(LengthUnitNames, computed.levelUnit)));
}

std::string FitLines(const ComputedValues& computed) {
    return Heading("Fit of ln(Y in cm) against time in s") +
           Line("Points used", std::to_string(computed.usedCount) + " of " +
                                   std::to_string(computed.RecoveryPoints->size())) +
           Line("Slope", ThreeFigureText(computed.FitSlope) + " 1/s") +
           Line("Intercept", ThreeFigureText(computed.FitIntercept));
}

/// In the units chosen in the project, where they are, and in cm/s.
std::string KText(const AnalysisRun& run) {
    if (!run.kComputed)
        return "not computed";
    const ProjectState& state = run.analysis.state;
    const ComputedValues& computed = run.analysis.computed;
    const std::string inCmPerSec = ThreeFigureText(computed.KInCmPerSec) + " cm/sec";
    const std::string text = ComputedKText(state, computed);
    if (text.empty())
        return inCmPerSec;
    return text + " " + std::string(NameAt(LengthUnitNames, state.CmboKLengthUnits)) + "/" +
           std::string(NameAt(TimeUnitNames, state.CmboKTimeUnits)) + " = " + inCmPerSec;
}

} // namespace

void WriteTable(const AnalysisRun& run, Output& output) {
    const ComputedValues& computed = run.analysis.computed;
    output.Write(PlainText(run.file) + "\n");
    output.Write(Line("Status", StatusText(run)));
    if (run.isRead)
        output.Write(
            Line("Monitoring well", PlainText(run.analysis.state.WellTestIDTxt[WellLabel])));
    if (run.geometryAccepted)
        output.Write(GeometryLines(computed));
    if (run.coefficientsComputed)
        output.Write(CoefficientLines(computed));
    if (run.pointsChecked) {
        WritePoints(run, output);
        output.Write(PlotLines(computed));
    }
    if (run.kComputed)
        output.Write(FitLines(computed));
    output.Write("\n" + Line("Hydraulic conductivity K", KText(run)));
}

} // namespace quarnel

#include "kcompute/ComputationDetails.h"

#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"

#include <array>
#include <initializer_list>

namespace quarnel {

namespace {

constexpr std::string_view LineEnd = "\r\n";
/// A line between two sections holds one blank.
constexpr std::string_view SectionGap = " ";
/// Where the columns of the point table begin, counted from 0.
constexpr std::array<std::size_t, 6> TableColumns = {0, 9, 23, 37, 51, 65};
/// What one row of the point table takes: the columns and a criterion.
constexpr std::size_t TableRowSize = 75;

void BuildTestLines(const ProjectState& state, const ComputedValues& computed,
                    ComputationDetails& details) {
    details.kLine = KLine(state, computed);
    details.monitoringWellLine =
        "Monitoring Well: " + std::string(TrimBlanks(state.WellTestIDTxt[WellLabel]));
    details.testDateLine = "Test Date: " + std::string(TrimBlanks(state.WellTestIDTxt[TestDate]));
}

void BuildGeometryLines(const ComputedValues& computed, ComputationDetails& details) {
    const std::string vertical = " " + std::string(NameAt(LengthUnitNames, computed.verticalUnit));
    const std::string radial = " " + std::string(NameAt(LengthUnitNames, computed.radialUnit));
    details.hLine = "H: " + computed.H.text + vertical;
    details.lwLine = "Lw: " + computed.Lw.text + vertical;
    details.leLine = "Le: " + computed.Le.text + vertical;
    details.dwLine = "dw: " + computed.dw.text + radial;
    details.rwLine = "rw: " + ThreeFigureText(computed.dw.radius) + radial;
    details.dcLine = "dc: " + computed.dc.text + radial;
    details.rcLine = "rc: " + ThreeFigureText(computed.dc.radius) + radial;
    details.porosityLine = "Drained Filter Pack Porosity (%): " + computed.dporText;
    details.reLine = "Effective Radius (re): " + computed.reText + radial;
}

void BuildCoefficientLines(const ComputedValues& computed, ComputationDetails& details) {
    details.leOverRwLine = "Le/rw: " + computed.leOverRwText;
    details.aLine = "A: " + computed.aText;
    details.bLine = "B: " + computed.bText;
    details.cLine = "C: " + computed.cText;
    details.lnReOverRwLine = "Ln(Re/rw): " + computed.lnReOverRwText;
    details.coefficientMessage = computed.coefficientMessage;
    details.slopeLine = "Slope: " + ThreeFigureText(computed.FitSlope);
    details.interceptLine = "Intercept: " + ThreeFigureText(computed.FitIntercept);
}

void BuildRecoveryLines(const ComputedValues& computed, ComputationDetails& details) {
    details.timeUnitName = NameAt(TimeUnitNames, computed.timeUnit);
    details.levelUnitName = NameAt(LengthUnitNames, computed.levelUnit);
    details.dataTypeLetter = NameAt(DataTypeLetters, computed.dataType);
    details.timeHeading = "Time (" + details.timeUnitName + ")";
    details.yHeading = "Y(" + details.levelUnitName + ")";
    details.fitYHeading = "Fit Y(" + details.levelUnitName + ")";
    details.criteriaHeading = "Fit Criteria";
    const bool needsLevel = computed.dataType < ChangeInHead;
    details.slugTestTypeLine =
        "Slug Test Type: " +
        std::string(needsLevel ? NameAt(SlugTestTypeNames, computed.slugTestType) : NotApplicable);
    details.dataTypeLine =
        "Recovery Data Type: " + std::string(NameAt(DataTypeNames, computed.dataType));
    details.staticLevelLine =
        "Static Water Level: " + (needsLevel ? computed.preSlugText + " " + details.levelUnitName
                                             : std::string(NotApplicable));
}

void AddLines(std::string& text, std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) {
        text += line;
        text += LineEnd;
    }
}

/// Adds one row of the point table. A text that reaches the next column is followed by one blank.
void AddTableRow(std::string& text,
                 const std::array<std::string_view, TableColumns.size()>& cells) {
    const std::size_t start = text.size();
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const std::size_t width = text.size() - start;
        if (width < TableColumns[column])
            text.append(TableColumns[column] - width, ' ');
        else if (column > 0)
            text += ' ';
        text += cells[column];
    }
    text += LineEnd;
}

void AddPoints(std::string& text, const ComputationDetails& details) {
    const RecoveryPointList& points = *details.points;
    text.reserve(text.size() + (points.size() + 1) * TableRowSize);
    const std::string reading = details.dataTypeLetter + "(" + details.levelUnitName + ")";
    AddTableRow(text, {"Sample", details.timeHeading, reading, details.yHeading,
                       details.fitYHeading, details.criteriaHeading});
    for (std::size_t k = 0; k < points.size(); ++k) {
        const std::string number = std::to_string(k + 1);
        const std::string y = YText(points[k]);
        const std::string fitY = FittedYText(details, k);
        AddTableRow(text, {number, points[k].timeText.View(), points[k].levelText.View(),
                           TrimBlanks(y), fitY, details.used[k] != 0 ? UseMark : IgnoreMark});
    }
}

} // namespace

ComputationDetails BuildComputationDetails(const ProjectState& state,
                                           const ComputedValues& computed) {
    ComputationDetails details;
    details.isFilled = true;
    BuildTestLines(state, computed, details);
    BuildGeometryLines(computed, details);
    BuildCoefficientLines(computed, details);
    BuildRecoveryLines(computed, details);
    details.points = computed.RecoveryPoints;
    details.used.reserve(details.points->size());
    for (const RecoveryPoint& point : *details.points)
        details.used.push_back(point.weight > 0 ? 1 : 0);
    details.line = {computed.FitSlope, computed.FitIntercept};
    details.levelUnitPerCm = 1 / UnitFactorToCm(computed.levelUnit);
    return details;
}

double FittedY(const ComputationDetails& details, std::size_t point) {
    return FittedYCm(details.line, (*details.points)[point].timeSec) * details.levelUnitPerCm;
}

std::string FittedYText(const ComputationDetails& details, std::size_t point) {
    return ThreeFigureText(FittedY(details, point));
}

std::string KLine(const ProjectState& state, const ComputedValues& computed) {
    if (!computed.KIsComputed)
        return {};
    return "Hydraulic Conductivity: " + ComputedKText(state, computed) + " " +
           std::string(NameAt(LengthUnitNames, state.CmboKLengthUnits)) + "/" +
           std::string(NameAt(TimeUnitNames, state.CmboKTimeUnits));
}

std::string SummaryText(const ComputationDetails& details) {
    std::string text;
    if (!details.isFilled)
        return text;
    AddLines(text, {"SLUG TEST", details.kLine, details.monitoringWellLine, details.testDateLine,
                    SectionGap});
    AddLines(text,
             {"WELL GEOMETRY", details.hLine, details.lwLine, details.leLine,
              details.dwLine + ",  " + details.rwLine, details.dcLine + ",  " + details.rcLine,
              details.porosityLine, details.reLine, SectionGap});
    AddLines(text, {"BOUWER-RICE COEFFICIENTS", details.leOverRwLine, details.aLine, details.bLine,
                    details.cLine, details.lnReOverRwLine});
    if (!details.coefficientMessage.empty())
        AddLines(text, {details.coefficientMessage});
    AddLines(text, {SectionGap, "LEAST SQUARES BEST FIT", "Ln(Y)-cm versus Time-sec",
                    details.slopeLine, details.interceptLine, SectionGap});
    AddLines(text, {"RECOVERY DATA", details.slugTestTypeLine, details.dataTypeLine,
                    details.staticLevelLine, SectionGap});
    AddPoints(text, details);
    return text;
}

} // namespace quarnel

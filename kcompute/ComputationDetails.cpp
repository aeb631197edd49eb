#include "kcompute/ComputationDetails.h"

#include "kcompute/KText.h"
#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/FixedLists.h"
#include "project/TextColumns.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace quarnel {

namespace {

constexpr std::string_view LineEnd = "\r\n";
/// A line between two sections holds one blank.
constexpr std::string_view SectionGap = " ";
/// Where the columns of the point table begin, counted from 0.
constexpr std::array<std::size_t, 6> TableColumns = {0, 9, 23, 37, 51, 65};
/// What one row of the point table takes: the columns and a criterion.
constexpr std::size_t TableRowSize = 75;

std::string InUnit(std::string_view name, const std::string& value, int lengthUnit) {
    return std::string(name) + value + " " + std::string(NameAt(LengthUnitNames, lengthUnit));
}

void AddLines(std::string& text, std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) {
        text += line;
        text += LineEnd;
    }
}

void AddPoints(std::string& text, const ProjectState& state, const Computation& computation,
               std::size_t most) {
    const RecoveryPointList& points = *computation.recovery.RecoveryPoints;
    const std::size_t count = std::min(points.size(), most);
    text.reserve(text.size() + (count + 1) * TableRowSize);
    const PointHeadings headings(state, &computation);
    AppendInColumns(
        text, TableColumns,
        {"Sample", headings.time, headings.reading, headings.y, headings.fitY, headings.criteria});
    text += LineEnd;
    for (std::size_t k = 0; k < count; ++k) {
        const std::string number = std::to_string(k + 1);
        const std::string y = YText(points[k]);
        const std::string fitY = FittedYText(computation, k);
        AppendInColumns(text, TableColumns,
                        {number, points[k].timeText.View(), points[k].levelText.View(),
                         TrimBlanks(y), fitY, MarkText(computation.marks[k])});
        text += LineEnd;
    }
}

} // namespace

ComputationLines::ComputationLines(const Computation& computation) {
    const WellDimensions& well = computation.geometry;
    const BouwerRiceValues& values = computation.coefficients;
    const RecoveryData& recovery = computation.recovery;
    slope = "Slope: " + ThreeFigureText(computation.line.slope);
    intercept = "Intercept: " + ThreeFigureText(computation.line.intercept);
    h = InUnit("H: ", well.H.text, well.verticalUnit);
    lw = InUnit("Lw: ", well.Lw.text, well.verticalUnit);
    le = InUnit("Le: ", well.Le.text, well.verticalUnit);
    dw = InUnit("dw: ", well.dw.text, well.radialUnit);
    rw = InUnit("rw: ", ThreeFigureText(well.dw.radius), well.radialUnit);
    dc = InUnit("dc: ", well.dc.text, well.radialUnit);
    rc = InUnit("rc: ", ThreeFigureText(well.dc.radius), well.radialUnit);
    porosity = "Drained Filter Pack Porosity (%): " + well.dporText;
    re = InUnit("Effective Radius (re): ", well.reText, well.radialUnit);
    leOverRw = "Le/rw: " + values.leOverRwText;
    a = "A: " + values.aText;
    b = "B: " + values.bText;
    c = "C: " + values.cText;
    lnReOverRw = "Ln(Re/rw): " + values.lnReOverRwText;
    coefficientWarning = values.message;
    const bool needsLevel = recovery.dataType < ChangeInHead;
    slugTestType =
        "Slug Test Type: " +
        std::string(needsLevel ? NameAt(SlugTestTypeNames, recovery.slugTestType) : NotApplicable);
    dataType = "Recovery Data Type: " + std::string(NameAt(DataTypeNames, recovery.dataType));
    staticLevel = needsLevel
                      ? InUnit("Static Water Level: ", recovery.preSlugText, recovery.levelUnit)
                      : "Static Water Level: " + std::string(NotApplicable);
}

PointHeadings::PointHeadings(const ProjectState& state, const Computation* computation) {
    const bool made = computation != nullptr;
    const auto inBrackets = [](std::string_view unit) { return "(" + std::string(unit) + ")"; };
    const std::string timeUnit = inBrackets(
        NameAt(TimeUnitNames, made ? computation->recovery.timeUnit : state.RecDatTimeUnitsDDL));
    const std::string levelUnit = inBrackets(NameAt(
        LengthUnitNames, made ? computation->recovery.levelUnit : state.RecDatWaterLevelUnitsDDL));
    const int dataType = made ? computation->recovery.dataType : state.RecDatDataTypeDDL;
    time = "Time " + timeUnit;
    reading = std::string(NameAt(DataTypeLetters, dataType)) + levelUnit;
    y = "Y" + levelUnit;
    fitY = "Fit Y" + levelUnit;
}

std::string SummaryText(const ProjectState& state, const Computation* computation,
                        std::size_t mostPoints) {
    std::string text;
    if (computation == nullptr)
        return text;
    const ComputationLines lines(*computation);
    const auto trimmed = [&state](int index) {
        return std::string(TrimBlanks(state.WellTestIDTxt[static_cast<std::size_t>(index)]));
    };
    AddLines(text,
             {"SLUG TEST", KLine(state, computation), "Monitoring Well: " + trimmed(WellLabel),
              "Test Date: " + trimmed(TestDate), SectionGap});
    AddLines(text, {"WELL GEOMETRY", lines.h, lines.lw, lines.le, lines.dw + ",  " + lines.rw,
                    lines.dc + ",  " + lines.rc, lines.porosity, lines.re, SectionGap});
    AddLines(text, {"BOUWER-RICE COEFFICIENTS", lines.leOverRw, lines.a, lines.b, lines.c,
                    lines.lnReOverRw});
    if (!lines.coefficientWarning.empty())
        AddLines(text, {lines.coefficientWarning});
    AddLines(text, {SectionGap, "LEAST SQUARES BEST FIT", "Ln(Y)-cm versus Time-sec", lines.slope,
                    lines.intercept, SectionGap});
    AddLines(text,
             {"RECOVERY DATA", lines.slugTestType, lines.dataType, lines.staticLevel, SectionGap});
    AddPoints(text, state, *computation, mostPoints);
    return text;
}

} // namespace quarnel

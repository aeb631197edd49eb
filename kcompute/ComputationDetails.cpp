#include "kcompute/ComputationDetails.h"

#include "kcompute/NumberToText.h"
#include "project/Texts.h"

namespace quarnel {

namespace {

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

} // namespace

ComputationDetails BuildComputationDetails(const ComputedValues& computed) {
    ComputationDetails details;
    details.isFilled = true;
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

} // namespace quarnel

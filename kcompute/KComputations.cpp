#include "kcompute/KComputations.h"

#include "kcompute/NumberToText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace quarnel {

namespace {

struct CurvePoint {
    double leOverRw;
    double coefficient;
};
using Curve = std::array<CurvePoint, 6>;

// Read off the curves of Bouwer and Rice (1976); each has abscissas of its own.
constexpr Curve BouwerRiceCurveA = {
    {{3.8, 1.7}, {15, 2.0}, {40, 2.7}, {150, 5.3}, {600, 8.4}, {2000, 9.7}}};
constexpr Curve BouwerRiceCurveB = {
    {{3.8, 0.2}, {20, 0.3}, {80, 0.6}, {200, 1.2}, {800, 2.6}, {2000, 3.3}}};
constexpr Curve BouwerRiceCurveC = {
    {{3.8, 0.7}, {30, 2.0}, {100, 4.2}, {300, 8.7}, {600, 11.0}, {2000, 13.2}}};

constexpr std::string_view RatioTooSmall =
    "Le/rw ratio is smaller than smallest value in Bouwer-Rice paper. Smallest values for A, B and "
    "C given by Bouwer-Rice are being used.";
constexpr std::string_view RatioTooLarge =
    "Le/rw ratio is larger than largest value in Bouwer-Rice paper. Largest values for A, B and C "
    "given by Bouwer-Rice are being used.";
constexpr std::string_view LnReOverRwFault =
    "Well Geometry: ln(Re/rw) cannot be computed. Please check H, Lw, Le and dw.";

/// Linearly between the points around `ratio`, which lies between the curve's ends. A ratio on a
/// point belongs to the bracket below it.
double CoefficientAt(const Curve& curve, double ratio) {
    std::size_t i = 0;
    while (i + 2 < curve.size() && ratio > curve[i + 1].leOverRw)
        ++i;
    const CurvePoint& low = curve[i];
    const CurvePoint& high = curve[i + 1];
    const double f = (ratio - low.leOverRw) / (high.leOverRw - low.leOverRw);
    return (high.coefficient - low.coefficient) * f + low.coefficient;
}

BouwerRiceCoefficients EndValues(std::size_t point) {
    return {BouwerRiceCurveA[point].coefficient, BouwerRiceCurveB[point].coefficient,
            BouwerRiceCurveC[point].coefficient};
}

/// The natural logarithm of a ratio; not a number where the ratio ran over, under or below 0.
double FiniteLn(double ratio) {
    return ratio > 0 && std::isfinite(ratio) ? std::log(ratio)
                                             : std::numeric_limits<double>::quiet_NaN();
}

bool LengthsAreFinite(const WellDimensions& well) {
    for (const double length :
         {well.H.cm, well.Lw.cm, well.Le.cm, well.dw.radiusCm, well.dc.radiusCm, well.reCm})
        if (!std::isfinite(length))
            return false;
    return true;
}

} // namespace

Result ComputeBouwerRiceCoefficients(double leCm, double rwCm,
                                     BouwerRiceCoefficients& coefficients) {
    const double ratio = leCm / rwCm;
    if (ratio <= BouwerRiceCurveA.front().leOverRw) {
        coefficients = EndValues(0);
        return Result::Warning(std::string(RatioTooSmall));
    }
    if (ratio >= BouwerRiceCurveA.back().leOverRw) {
        coefficients = EndValues(BouwerRiceCurveA.size() - 1);
        return Result::Warning(std::string(RatioTooLarge));
    }
    coefficients = {CoefficientAt(BouwerRiceCurveA, ratio), CoefficientAt(BouwerRiceCurveB, ratio),
                    CoefficientAt(BouwerRiceCurveC, ratio)};
    return Result::Ok();
}

double ComputeLnReOverRw(double hCm, double leCm, double lwCm, double rwCm,
                         const BouwerRiceCoefficients& coefficients, double greatestLnBelow) {
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    const double p = 1.1 / FiniteLn(lwCm / rwCm);
    const double q = leCm / rwCm;
    double denominator = 0;
    if (std::fabs(hCm - lwCm) < FullPenetrationCm) {
        denominator = p + coefficients.C / q;
    } else {
        const double lnBelow = std::min(FiniteLn((hCm - lwCm) / rwCm), greatestLnBelow);
        denominator = p + (coefficients.A + coefficients.B * lnBelow) / q;
    }
    // An infinite denominator would pass for ln(Re/rw) = 0.
    return std::isfinite(denominator) && denominator != 0 ? 1 / denominator : NotANumber;
}

Result ComputeCoefficientsAndRadii(const WellDimensions& well, BouwerRiceValues& values) {
    if (!LengthsAreFinite(well))
        return Result::Error(std::string(LnReOverRwFault));
    const double leCm = well.Le.cm;
    const double rwCm = well.dw.radiusCm;
    BouwerRiceCoefficients coefficients;
    Result result = ComputeBouwerRiceCoefficients(leCm, rwCm, coefficients);
    values.A = coefficients.A;
    values.B = coefficients.B;
    values.C = coefficients.C;
    values.message = result.message;
    values.leOverRw = leCm / rwCm;
    values.leOverRwText = ThreeFigureText(values.leOverRw);
    values.aText = ThreeFigureText(values.A);
    values.bText = ThreeFigureText(values.B);
    values.cText = ThreeFigureText(values.C);
    const double lnReOverRw = ComputeLnReOverRw(well.H.cm, leCm, well.Lw.cm, rwCm, coefficients);
    if (!std::isfinite(lnReOverRw) || !std::isfinite(values.leOverRw))
        return Result::Error(std::string(LnReOverRwFault));
    values.lnReOverRw = lnReOverRw;
    values.lnReOverRwText = ThreeFigureText(lnReOverRw);
    return result;
}

double ComputeHydraulicConductivity(const WellDimensions& well, double lnReOverRw, double slope) {
    return (well.reCm * well.reCm * (-slope) * lnReOverRw) / (2 * well.Le.cm);
}

} // namespace quarnel

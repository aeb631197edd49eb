#include "kcompute/KComputations.h"

#include "kcompute/NumberToText.h"

#include <array>
#include <cmath>
#include <limits>

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

/// A well that ends this close (cm) to the impervious bottom penetrates the aquifer fully.
constexpr double FullPenetrationCm = 0.001;

double CoefficientAt(const Curve& curve, double ratio) {
    for (std::size_t i = 0; i + 1 < curve.size(); ++i) {
        const CurvePoint& low = curve[i];
        const CurvePoint& high = curve[i + 1];
        if (!(low.leOverRw <= ratio && ratio <= high.leOverRw))
            continue;
        double f = (ratio - low.leOverRw) / (high.leOverRw - low.leOverRw);
        if (f < 0)
            f = 0;
        if (f > 1)
            f = 1;
        return (high.coefficient - low.coefficient) * f + low.coefficient;
    }
    return std::numeric_limits<double>::quiet_NaN();
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

bool LengthsAreFinite(const ComputedValues& computed) {
    for (const double length : {computed.H.cm, computed.Lw.cm, computed.Le.cm, computed.dw.radiusCm,
                                computed.dc.radiusCm, computed.reCm})
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
                         const BouwerRiceCoefficients& coefficients) {
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    const double p = 1.1 / FiniteLn(lwCm / rwCm);
    const double q = leCm / rwCm;
    double denominator = 0;
    if (std::fabs(hCm - lwCm) < FullPenetrationCm) {
        denominator = p + coefficients.C / q;
    } else {
        const double lnBelow = FiniteLn((hCm - lwCm) / rwCm);
        denominator = p + (coefficients.A + coefficients.B * lnBelow) / q;
    }
    // An infinite denominator would pass for ln(Re/rw) = 0.
    return std::isfinite(denominator) && denominator != 0 ? 1 / denominator : NotANumber;
}

Result ComputeCoefficientsAndRadii(ComputedValues& computed) {
    if (!LengthsAreFinite(computed))
        return Result::Error(std::string(LnReOverRwFault));
    const double leCm = computed.Le.cm;
    const double rwCm = computed.dw.radiusCm;
    BouwerRiceCoefficients coefficients;
    Result result = ComputeBouwerRiceCoefficients(leCm, rwCm, coefficients);
    computed.A = coefficients.A;
    computed.B = coefficients.B;
    computed.C = coefficients.C;
    computed.coefficientStatus = result.status;
    computed.coefficientMessage = result.message;
    computed.leOverRw = leCm / rwCm;
    computed.leOverRwText = ThreeFigureText(computed.leOverRw);
    computed.aText = ThreeFigureText(computed.A);
    computed.bText = ThreeFigureText(computed.B);
    computed.cText = ThreeFigureText(computed.C);
    const double lnReOverRw =
        ComputeLnReOverRw(computed.H.cm, leCm, computed.Lw.cm, rwCm, coefficients);
    if (!std::isfinite(lnReOverRw) || !std::isfinite(computed.leOverRw))
        return Result::Error(std::string(LnReOverRwFault));
    computed.lnReOverRw = lnReOverRw;
    computed.lnReOverRwText = ThreeFigureText(lnReOverRw);
    return result;
}

} // namespace quarnel

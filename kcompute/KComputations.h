#pragma once

#include "project/GlobalDeclar.h"

#include <string>

namespace quarnel {

// Formulas: Bouwer, H. and Rice, R. C. (1976), A slug test for determining hydraulic conductivity
// of unconfined aquifers with completely or partially penetrating wells, Water Resources Research
// 12 (3); Bouwer, H. (1989), The Bouwer and Rice slug test - an update, Ground Water 27 (3).

struct BouwerRiceCoefficients {
    double A = 0; ///< partially penetrating wells
    double B = 0; ///< partially penetrating wells
    double C = 0; ///< fully penetrating wells
};

/// Reads A, B and C (dimensionless) off the curves at Le/rw, linearly between the tabulated points.
/// Le and rw in cm. Warning at and beyond the ends of the curves, where the end values are used.
Result ComputeBouwerRiceCoefficients(double leCm, double rwCm,
                                     BouwerRiceCoefficients& coefficients);

/// ln(Re/rw) by Bouwer and Rice's empirical equations, for a well that ends less than 0.001 cm
/// above the impervious bottom by C, otherwise by A and B. All lengths in cm. A result that no
/// arithmetic gives (logarithm of a value <= 0, zero denominator, overflow) is not finite.
double ComputeLnReOverRw(double hCm, double leCm, double lwCm, double rwCm,
                         const BouwerRiceCoefficients& coefficients);

/// Le/rw, A, B, C and ln(Re/rw) with their texts, from the lengths of a checked geometry. Warning:
/// a clamped Le/rw, kept in `computed`. Error: ln(Re/rw) cannot be computed.
Result ComputeCoefficientsAndRadii(ComputedValues& computed);

/// Gathers the points of the fit: sets every weight, the used count and `state.IgnoreKeyList` from
/// the marks; a point with Y <= 0 is marked "Ignore". Error: fewer than two points are used.
Result CheckFitSelection(ProjectState& state, ComputedValues& computed);

struct FittedLine {
    double slope = 0;     ///< 1/s
    double intercept = 0; ///< ln(Y in cm) at time 0
};

/// The least-squares line of ln(Y in cm) against time (s), each point with its weight. The order of
/// the operations fixes the rounding.
FittedLine FitLnYAgainstTime(const RecoveryPointList& points);

/// The same slope from times about their mean, which stays exact for times far from zero; only a
/// guard for FitLnYAgainstTime. 1/s.
double SlopeAboutMeanTime(const RecoveryPointList& points);

/// K = re^2 (-slope) ln(Re/rw) / (2 Le), stored in cm/s.
void ComputeHydraulicConductivity(ComputedValues& computed);

/// Gathers, fits and computes K. Error, with KIsComputed false: too few points, all at one time,
/// times too large for their spread, or a K that is not finite in cm/s or in the chosen units.
Result ComputeK(ProjectState& state, ComputedValues& computed);

/// K in the chosen units, rounded to single precision; 0 factors where no unit is selected.
float DisplayedK(const ProjectState& state, double kInCmPerSec);

/// The text of K in the chosen units; "" before a computation has succeeded or with no unit
/// selected.
std::string ComputedKText(const ProjectState& state, const ComputedValues& computed);

/// The fitted Y at a time (s), in cm: e to the fitted ln(Y), or 0 where that is -30 or less.
double FittedYCm(const FittedLine& line, double timeSec);

/// Warning shown when the fitted line does not fall.
inline constexpr std::string_view RisingSlopeMessage =
    "Slope is >=0. Invalid result. Y used for best fit is flat or increasing with time.";
inline constexpr std::string_view RisingSlopeTitle = "WEIRD RESULT";

} // namespace quarnel

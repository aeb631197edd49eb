#pragma once

#include "kcompute/WorkingValues.h"
#include "project/Result.h"
#include "wellgeometry/WellDimensions.h"

#include <limits>

namespace quarnel {

// Formulas: Bouwer, H. and Rice, R. C. (1976), A slug test for determining hydraulic conductivity
// of unconfined aquifers with completely or partially penetrating wells, Water Resources Research
// 12 (3); Bouwer, H. (1989), The Bouwer and Rice slug test - an update, Ground Water 27 (3).

/// A well that ends this close (cm) to the impervious bottom penetrates the aquifer fully.
inline constexpr double FullPenetrationCm = 0.001;

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
/// `greatestLnBelow` holds ln((H - Lw)/rw) down, to see what that would change; the described
/// computation has no such bound.
double ComputeLnReOverRw(double hCm, double leCm, double lwCm, double rwCm,
                         const BouwerRiceCoefficients& coefficients,
                         double greatestLnBelow = std::numeric_limits<double>::infinity());

/// Le/rw, A, B, C and ln(Re/rw) with their texts, from the lengths of a checked geometry. Warning:
/// a clamped Le/rw, kept in `values`. Error: ln(Re/rw) cannot be computed.
Result ComputeCoefficientsAndRadii(const WellDimensions& well, BouwerRiceValues& values);

/// K = re^2 (-slope) ln(Re/rw) / (2 Le) in cm/s, for a slope of ln(Y) in 1/s.
double ComputeHydraulicConductivity(const WellDimensions& well, double lnReOverRw, double slope);

} // namespace quarnel

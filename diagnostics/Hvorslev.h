#pragma once

#include <optional>

namespace quarnel {

/// K (cm/s) after Hvorslev, M. J. (1951), Time lag and soil permeability in ground-water
/// observations, Waterways Experiment Station Bulletin 36, case 8:
///     K = re^2 ln(x + sqrt(1 + x^2)) (-b) / (2 Le),   x = Le / (2 rw)
/// Lengths in cm, the slope b of ln(Y) against time in 1/s. Nothing where the line does not fall or
/// the result is not finite.
std::optional<double> HvorslevK(double reCm, double leCm, double rwCm, double slope);

/// The same for a screen that stands on the impervious bottom: x = Le / rw.
std::optional<double> HvorslevTouchingK(double reCm, double leCm, double rwCm, double slope);

} // namespace quarnel

#include "diagnostics/Hvorslev.h"

#include <cmath>

namespace quarnel {

namespace {

std::optional<double> KOfShape(double x, double reCm, double leCm, double slope) {
    if (!(slope < 0))
        return std::nullopt;
    const double k = reCm * reCm * std::log(x + std::sqrt(1 + x * x)) * (-slope) / (2 * leCm);
    return std::isfinite(k) ? std::optional<double>(k) : std::nullopt;
}

} // namespace

std::optional<double> HvorslevK(double reCm, double leCm, double rwCm, double slope) {
    return KOfShape(leCm / (2 * rwCm), reCm, leCm, slope);
}

std::optional<double> HvorslevTouchingK(double reCm, double leCm, double rwCm, double slope) {
    return KOfShape(leCm / rwCm, reCm, leCm, slope);
}

} // namespace quarnel

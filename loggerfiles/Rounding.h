#pragma once

#include <cmath>

namespace quarnel {

// The roundings that every row of a record goes through, some million times: inline, and without
// the library's calls for what is nearly always plain.

/// The nearest whole number of a value within +-2^51, the even one of a half. Adding 1.5 x 2^52
/// leaves no bits for a fraction, and the processor rounds.
inline double NearestWhole(double value) {
    constexpr double NoFraction = 6755399441055744.0;
    return (value + NoFraction) - NoFraction;
}

/// The slow way of RoundReading, for halves and for what is beyond all wells.
double RoundReadingByDigits(double reading);

/// Rounded to 6 decimals, half away from zero: the half that the digits of the shortest text show,
/// not the one that a product with a million happens to give.
inline double RoundReading(double reading) {
    constexpr double LargestPlain = 1e9;
    constexpr double ProductSlack = 4e-16; // the product is rounded itself
    const double millionths = reading * 1e6;
    const double whole = NearestWhole(millionths);
    const double size = std::fabs(millionths);
    if (!(size < LargestPlain * 1e6) || std::fabs(millionths - whole) >= 0.5 - size * ProductSlack)
        return RoundReadingByDigits(reading);
    return whole / 1e6 + 0.0; // no minus zero
}

/// A reading that is rounded to 6 decimals in whole millionths of its unit, as which all readings
/// of an import are compared: differences and means of two are then exact. Readings that no well
/// has are held within +-1e300, so that no difference is infinite.
inline double Millionths(double reading) {
    constexpr double LargestPlain = 1e9;
    constexpr double Largest = 1e300;
    if (std::fabs(reading) < LargestPlain)
        return NearestWhole(reading * 1e6);
    return std::fmax(-Largest, std::fmin(Largest, std::round(reading * 1e6)));
}

} // namespace quarnel

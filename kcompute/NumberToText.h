#pragma once

#include <string>

namespace quarnel {

/// How a computed number becomes text: two decimals, or three significant figures.
enum NumberMode { TwoDecimals = 1, ThreeFigures = 2 };

/// The text of `value`. A value that is not finite gives "". Rounding is half away from zero on the
/// shortest decimal text that reads back as the same single-precision number, so 12.345 gives
/// "12.35".
///
/// Mode 1: "0.00" below 1e-9 (all negative values too), exponent form ("5.00e-4") below 0.001 and
/// above 1e6, two decimals between. Mode 2: three significant figures, in exponent form above
/// 100000 and from 0.001 down (all negative values too), else with one to five decimals.
std::string NumberToText(NumberMode mode, float value);

/// `value` rounded to single precision, in mode 2; "" where it lies beyond single precision.
std::string ThreeFigureText(double value);

} // namespace quarnel

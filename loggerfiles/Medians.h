#pragma once

#include <vector>

namespace quarnel {

/// `reading` in whole millionths of its unit, as which all readings of an import are compared:
/// differences and means of two are then exact.
double Millionths(double reading);

/// The middle one of `values`, the mean of the middle two of an even count; 0 of none. Reorders
/// them, in linear time.
double MedianOf(std::vector<double>& values);

} // namespace quarnel

#pragma once

#include <vector>

namespace quarnel {

/// The middle one of `values`, the mean of the middle two of an even count; 0 of none. Reorders
/// them, in linear time.
double MedianOf(std::vector<double>& values);

} // namespace quarnel

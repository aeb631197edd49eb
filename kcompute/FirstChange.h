#pragma once

#include "recovery/RecoveryData.h"

#include <cmath>

namespace quarnel {

/// The range of the normalized head Y/H0 that is recommended for a screen below the water table
/// (Butler, McElwee and Liu 1996; Butler 1998).
inline constexpr double HeadRangeLow = 0.20;
inline constexpr double HeadRangeHigh = 0.30;

/// Whether a point has a logarithm and so can lie on a line: its Y in cm is above 0 and finite.
inline bool IsValidPoint(const RecoveryPoint& point) {
    return point.yCm > 0 && std::isfinite(point.yCm);
}

/// The point whose Y is H0, the first change in head: the first valid point in time, of equal times
/// the first in the list. Null where there is none.
const RecoveryPoint* FirstValidPoint(const RecoveryPointList& points);

} // namespace quarnel

#pragma once

#include "kcompute/Computation.h"
#include "kcompute/WorkingValues.h"
#include "project/ProjectState.h"
#include "project/Result.h"

#include <string_view>

namespace quarnel {

/// Gathers the points of the fit: marks a point with Y <= 0 "Ignore", counts those that say "Use"
/// and makes `state.IgnoreKeyList` anew, one key for each point that says "Ignore", in their order.
/// Error: fewer than two points are used.
Result CheckFitSelection(ProjectState& state, WorkingValues& working, int& usedCount);

/// Gathers, fits and computes K from a preparation. Error, and `computation` is null: too few
/// points, all at one time, times too large for their spread, or a K that is not finite in cm/s or
/// in the units chosen in `state`.
Result ComputeK(ProjectState& state, WorkingValues& working, ComputationPtr& computation);

/// Warning shown when the fitted line does not fall.
inline constexpr std::string_view RisingSlopeMessage =
    "Slope is >=0. Invalid result. Y used for best fit is flat or increasing with time.";
inline constexpr std::string_view RisingSlopeTitle = "WEIRD RESULT";

} // namespace quarnel

#include "kcompute/ComputeK.h"

#include "kcompute/KComputations.h"
#include "kcompute/KText.h"
#include "kcompute/LeastSquares.h"
#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryData.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

// A result is the same on every machine only where nothing is kept in more digits than it has.
static_assert(FLT_EVAL_METHOD == 0, "double arithmetic must round to double: use SSE on x86");

namespace {

constexpr std::string_view TooFewPoints =
    "Less than 2 valid (Y>0) data points have been selected (Use) for parameter estimation. "
    "Hydraulic conductivity cannot be estimated.";
constexpr std::string_view SameTime = "All points selected (Use) have the same time. Hydraulic "
                                      "conductivity cannot be estimated.";
constexpr std::string_view TimesTooLarge =
    "The times of the points selected (Use) are too large for their spread. Please enter the time "
    "since the start of the test.";
constexpr std::string_view Overflow = "Overflow. Hydraulic conductivity cannot be estimated.";

/// The described sums may differ from the sums about the mean time by this part of the slope.
constexpr double SlopeTolerance = 1e-4;
/// A line that falls or rises by less than this in ln(Y) over the used times counts as level.
constexpr double LevelLine = 1e-9;

/// Whether the described sums lost the slope because the times lie far from zero for their spread.
bool SlopeIsLost(const RecoveryPointList& points, const std::vector<Mark>& marks, double slope,
                 const FitSums& sums) {
    const double guard = SlopeAboutMeanTime(points, marks, sums);
    if (!std::isfinite(guard) || !(std::fabs(guard) * (sums.lastTime - sums.firstTime) > LevelLine))
        return false;
    return !(std::fabs(slope - guard) <= SlopeTolerance * std::fabs(guard));
}

} // namespace

Result CheckFitSelection(ProjectState& state, WorkingValues& working, int& usedCount) {
    const RecoveryPointList& points = *working.recovery.RecoveryPoints;
    state.IgnoreKeyList.clear();
    usedCount = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        if (!(points[k].y > 0 && points[k].yCm > 0))
            working.marks[k] = Mark::Ignore;
        if (working.marks[k] == Mark::Use)
            ++usedCount;
        else
            state.IgnoreKeyList.push_back(IgnoreKey(points[k]));
    }
    return usedCount < 2 ? Result::Error(std::string(TooFewPoints)) : Result::Ok();
}

Result ComputeK(ProjectState& state, WorkingValues& working, ComputationPtr& computation) {
    computation.reset();
    auto made = std::make_shared<Computation>();
    Result result = CheckFitSelection(state, working, made->usedCount);
    if (result.IsError())
        return result;
    const RecoveryPointList& points = *working.recovery.RecoveryPoints;
    const FitSums sums = SumsOfUsed(points, working.marks);
    if (sums.firstTime == sums.lastTime)
        return Result::Error(std::string(SameTime));
    made->line = LineOf(sums);
    if (SlopeIsLost(points, working.marks, made->line.slope, sums))
        return Result::Error(std::string(TimesTooLarge));
    made->KInCmPerSec = ComputeHydraulicConductivity(
        working.geometry, working.coefficients.lnReOverRw, made->line.slope);
    if (!std::isfinite(made->KInCmPerSec) || !std::isfinite(made->line.intercept) ||
        !std::isfinite(DisplayedK(state, made->KInCmPerSec)))
        return Result::Error(std::string(Overflow));
    made->geometry = working.geometry;
    made->coefficients = working.coefficients;
    made->recovery = working.recovery;
    made->marks = working.marks;
    computation = std::move(made);
    return Result::Ok();
}

} // namespace quarnel

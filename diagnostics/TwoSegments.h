#pragma once

#include "diagnostics/SeriesLine.h"

#include <cstddef>
#include <optional>

namespace quarnel {

/// The best two straight segments of a recovery, early and late. Bouwer, H. (1989), The Bouwer and
/// Rice slug test - an update, Ground Water 27:304, on the double straight line effect.
struct TwoSegments {
    std::size_t splitAfter = 0; ///< points of the early segment
    double lastTimeEarlySec = 0;
    double firstTimeLateSec = 0;
    SeriesLine early;
    SeriesLine late;
    double sseOne = 0; ///< of one line through all points
    double sseTwo = 0; ///< of both segments
    /// Early slope over late slope; nothing where that is not finite.
    std::optional<double> slopeRatio;
    bool suggested = false;
};

/// Fewest points that two segments are looked for in.
inline constexpr std::size_t FewestPointsOfTwoSegments = 6;

/// The split with the least sum of squares of both segments, each with at least three points and
/// two times; nothing where no split is possible. Takes time in proportion to the points.
std::optional<TwoSegments> FindTwoSegments(const Series& series);

/// Whether two segments are worth a word: both fall, the early one at least twice as steeply, and
/// they leave at most a quarter of the squares that one line leaves. The least sum of squares alone
/// is no sign: it splits a noisy tail.
bool SegmentsStandOut(double slopeEarly, double slopeLate, double sseOne, double sseTwo);

} // namespace quarnel

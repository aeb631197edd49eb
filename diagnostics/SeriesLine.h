#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace quarnel {

/// Points in order of time, as two arrays of equal length: t in s and L = ln(Y in cm).
struct Series {
    std::span<const double> timeSec;
    std::span<const double> lnYCm;

    std::size_t Size() const { return timeSec.size(); }
    Series Part(std::size_t first, std::size_t count) const {
        return {timeSec.subspan(first, count), lnYCm.subspan(first, count)};
    }
    /// Whether a line can be laid through the points: two of them, not all at one time.
    bool HasTwoTimes() const { return Size() >= 2 && timeSec.front() != timeSec.back(); }
};

/// A least-squares line of L against t.
struct SeriesLine {
    std::size_t pointCount = 0;
    double slope = 0;       ///< 1/s
    double intercept = 0;   ///< L at time 0
    double meanTimeSec = 0; ///< s
    double sxx = 0;         ///< sum of (t - mean t)^2, s2
    double syy = 0;         ///< sum of (L - mean L)^2
    double sse = 0;         ///< sum of the squared residuals
};

/// The line about the mean time. Nothing for fewer than two points, a single time, or times and
/// levels so large that no line is left.
std::optional<SeriesLine> LineThrough(const Series& series);

/// 1 - SSE / sum (L - mean L)^2 of sums, the second above 0. Exactly 1 only where SSE is 0: scatter
/// that is lost in rounding must not look like none.
double RSquaredOfSums(double sse, double syy);

/// R2 of a line; nothing below 3 points and where all L are equal.
std::optional<double> RSquaredOf(const SeriesLine& line);

/// A sum of `count` squares of numbers made from L up to `greatestL` in size: 0 where it is no more
/// than what rounding alone would leave, count (4 epsilon greatestL)^2.
double WithoutRounding(double sumOfSquares, std::size_t count, double greatestL);

/// The greatest |L| of the series; 0 of none.
double GreatestSize(std::span<const double> lnYCm);

} // namespace quarnel

#include "diagnostics/TwoSegments.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quarnel {

namespace {

constexpr std::size_t FewestPointsOfSegment = 3;
constexpr double LeastSlopeRatio = 2;
constexpr double GreatestSsePart = 0.25;
/// Totals that differ by less than this part of the one-line sum count as equal.
constexpr double EqualTotals = 1e-12;

/// Sums over points, of t and L about the means of the whole series.
struct Sums {
    double count = 0, t = 0, l = 0, tt = 0, ll = 0, tl = 0;

    void Add(double time, double level) {
        ++count;
        t += time;
        l += level;
        tt += time * time;
        ll += level * level;
        tl += time * level;
    }
    Sums operator-(const Sums& other) const {
        return {count - other.count, t - other.t,   l - other.l,
                tt - other.tt,       ll - other.ll, tl - other.tl};
    }
    /// Squares about the points' own line; rounding can leave a little less than 0.
    double Sse() const {
        const double sxx = tt - t * t / count;
        const double syy = ll - l * l / count;
        const double sxy = tl - t * l / count;
        return std::max(0.0, sxx > 0 ? syy - sxy * sxy / sxx : syy);
    }
};

bool IsSplit(const Series& series, std::size_t k) {
    return series.timeSec.front() != series.timeSec[k - 1] &&
           series.timeSec[k] != series.timeSec.back();
}

/// The points of the early segment at the least total, 0 where no split is possible.
std::size_t BestSplit(const Series& series, const SeriesLine& whole) {
    constexpr double None = std::numeric_limits<double>::infinity();
    const double meanL = whole.intercept + whole.slope * whole.meanTimeSec;
    const auto add = [&](Sums& sums, std::size_t i) {
        sums.Add(series.timeSec[i] - whole.meanTimeSec, series.lnYCm[i] - meanL);
    };
    Sums all;
    for (std::size_t i = 0; i < series.Size(); ++i)
        add(all, i);
    Sums early;
    std::vector<double> totals(series.Size(), None);
    for (std::size_t k = 1; k + FewestPointsOfSegment <= series.Size(); ++k) {
        add(early, k - 1);
        if (k >= FewestPointsOfSegment && IsSplit(series, k))
            totals[k] = early.Sse() + (all - early).Sse();
    }
    const auto least = std::min_element(totals.begin(), totals.end());
    if (!std::isfinite(*least))
        return 0;
    const auto first = std::find_if(totals.begin(), totals.end(), [&](double total) {
        return total <= *least || total - *least < EqualTotals * whole.sse;
    });
    return static_cast<std::size_t>(first - totals.begin());
}

std::optional<double> RatioOf(double early, double late) {
    const double ratio = early / late;
    return std::isfinite(ratio) ? std::optional<double>(ratio) : std::nullopt;
}

} // namespace

bool SegmentsStandOut(double slopeEarly, double slopeLate, double sseOne, double sseTwo) {
    return slopeEarly < 0 && slopeLate < 0 && slopeEarly / slopeLate >= LeastSlopeRatio &&
           sseOne > 0 && sseTwo <= GreatestSsePart * sseOne;
}

std::optional<TwoSegments> FindTwoSegments(const Series& series) {
    const std::optional<SeriesLine> whole = LineThrough(series);
    if (series.Size() < FewestPointsOfTwoSegments || !whole)
        return std::nullopt;
    TwoSegments segments;
    segments.splitAfter = BestSplit(series, *whole);
    if (segments.splitAfter == 0)
        return std::nullopt;
    const std::size_t k = segments.splitAfter;
    const std::optional<SeriesLine> early = LineThrough(series.Part(0, k));
    const std::optional<SeriesLine> late = LineThrough(series.Part(k, series.Size() - k));
    if (!early || !late)
        return std::nullopt;
    segments.early = *early;
    segments.late = *late;
    segments.lastTimeEarlySec = series.timeSec[k - 1];
    segments.firstTimeLateSec = series.timeSec[k];
    segments.sseOne = whole->sse;
    segments.sseTwo = early->sse + late->sse;
    segments.slopeRatio = RatioOf(early->slope, late->slope);
    segments.suggested =
        SegmentsStandOut(early->slope, late->slope, segments.sseOne, segments.sseTwo);
    return segments;
}

} // namespace quarnel

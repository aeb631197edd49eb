#include "output/PlotPoints.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quarnel {

namespace {

bool IsDrawn(const RecoveryPoint& point) {
    return point.YIsValid();
}

/// The first place from `first` on whose point stands where `isBeyond` holds; it holds for all
/// places behind it.
template <class IsBeyond>
std::size_t FirstBeyond(std::size_t first, std::size_t end, IsBeyond isBeyond) {
    while (first < end) {
        const std::size_t middle = first + (end - first) / 2;
        if (isBeyond(middle))
            end = middle;
        else
            first = middle + 1;
    }
    return first;
}

} // namespace

PlotPoints::PlotPoints(SharedPoints points)
    : points_(std::move(points)) {
    const auto isEarlier = [](const RecoveryPoint& a, const RecoveryPoint& b) {
        return a.time < b.time;
    };
    if (std::is_sorted(points_->begin(), points_->end(), isEarlier))
        return;
    pointAt_.resize(points_->size());
    std::iota(pointAt_.begin(), pointAt_.end(), 0U);
    std::stable_sort(pointAt_.begin(), pointAt_.end(), [&](std::uint32_t a, std::uint32_t b) {
        return isEarlier((*points_)[a], (*points_)[b]);
    });
    placeOf_.resize(points_->size());
    for (std::size_t place = 0; place < pointAt_.size(); ++place)
        placeOf_[pointAt_[place]] = static_cast<std::uint32_t>(place);
}

std::size_t PlotPoints::PointAt(std::size_t place) const {
    return pointAt_.empty() ? place : pointAt_[place];
}

std::size_t PlotPoints::PlaceOf(std::size_t point) const {
    return placeOf_.empty() ? point : placeOf_[point];
}

PlaceRange PlotPoints::Between(const PlotAxes& axes, double left, double right) const {
    // Places are compared where they are drawn, so that what is seen inside is inside.
    const auto xOf = [&](std::size_t place) { return axes.TimeX(List()[PointAt(place)].time); };
    const std::size_t first =
        FirstBeyond(0, Count(), [&](std::size_t place) { return xOf(place) >= left; });
    const std::size_t end =
        FirstBeyond(first, Count(), [&](std::size_t place) { return xOf(place) > right; });
    return {first, end};
}

std::optional<std::size_t> PlotPoints::Nearest(const PlotAxes& axes, double x, double y,
                                               double reach) const {
    std::optional<std::size_t> nearest;
    double least = reach * reach;
    const PlaceRange places = Between(axes, x - reach, x + reach);
    for (std::size_t place = places.first; place < places.end; ++place) {
        const RecoveryPoint& point = List()[PointAt(place)];
        const double dx = axes.TimeX(point.time) - x;
        const double dy = axes.LogY(point.Log10Y()) - y;
        const double distance = dx * dx + dy * dy;
        if (!IsDrawn(point) || distance > least || (nearest && distance >= least))
            continue;
        least = distance;
        nearest = PointAt(place);
    }
    return nearest;
}

std::optional<std::size_t> PlotPoints::Neighbour(std::ptrdiff_t place, int step) const {
    const auto count = static_cast<std::ptrdiff_t>(Count());
    for (place += step; place >= 0 && place < count; place += step)
        if (IsDrawn(List()[PointAt(static_cast<std::size_t>(place))]))
            return static_cast<std::size_t>(place);
    return std::nullopt;
}

PointRuns PlotPoints::RunsOf(PlaceRange places) const {
    if (places.IsEmpty())
        return {};
    if (pointAt_.empty())
        return {{places.first, places.end - 1}};
    std::vector<std::uint32_t> points(pointAt_.begin() + static_cast<std::ptrdiff_t>(places.first),
                                      pointAt_.begin() + static_cast<std::ptrdiff_t>(places.end));
    std::sort(points.begin(), points.end());
    PointRuns runs;
    for (const std::uint32_t point : points)
        if (!runs.empty() && runs.back().last + 1 == point)
            runs.back().last = point;
        else
            runs.push_back({point, point});
    return runs;
}

PlaceRange PlotPoints::PlacesOf(const PointRuns& runs) const {
    if (runs.empty())
        return {};
    if (placeOf_.empty())
        return {runs.front().first, runs.back().last + 1};
    PlaceRange places{Count(), 0};
    for (const PointRun& run : runs)
        for (std::size_t point = run.first; point <= run.last; ++point) {
            places.first = std::min(places.first, PlaceOf(point));
            places.end = std::max(places.end, PlaceOf(point) + 1);
        }
    return places;
}

} // namespace quarnel

#pragma once

#include "kcompute/MarkEditor.h"
#include "output/PlotDrawing.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quarnel {

/// Places first..end - 1 in the order of time.
struct PlaceRange {
    std::size_t first = 0;
    std::size_t end = 0;
    bool IsEmpty() const { return first >= end; }
    friend bool operator==(const PlaceRange&, const PlaceRange&) = default;
};

/// The points of a plot in the order of their times (those of one time in the order of their
/// rows), to be found from where they stand on the surface. A point's number counts from 0 in its
/// list, its place from 0 in the order of time. A search looks at some dozen points, not at all.
class PlotPoints {
public:
    PlotPoints() = default;
    explicit PlotPoints(SharedPoints points);

    std::size_t Count() const { return points_->size(); }
    const RecoveryPointList& List() const { return *points_; }
    std::size_t PointAt(std::size_t place) const;
    std::size_t PlaceOf(std::size_t point) const;

    /// The places of all points, drawn or not, whose times stand from x `left` to `right` (twips).
    PlaceRange Between(const PlotAxes& axes, double left, double right) const;
    /// The point drawn nearest to (x, y) and at most `reach` away (twips); of several as near the
    /// first.
    std::optional<std::size_t> Nearest(const PlotAxes& axes, double x, double y,
                                       double reach) const;
    /// The place of the nearest point with a circle before (`step` -1) or behind (+1) a place,
    /// which may lie just beyond the ends: -1 or Count().
    std::optional<std::size_t> Neighbour(std::ptrdiff_t place, int step) const;
    /// The points at these places as runs of their list.
    PointRuns RunsOf(PlaceRange places) const;
    /// The smallest range of places that holds all these points; empty for none.
    PlaceRange PlacesOf(const PointRuns& runs) const;

private:
    SharedPoints points_;
    // Both empty where the list is in the order of time already, as a test's readings mostly are.
    std::vector<std::uint32_t> pointAt_;
    std::vector<std::uint32_t> placeOf_;
};

} // namespace quarnel

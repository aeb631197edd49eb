#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quarnel {

/// What a record shows within one pixel column: the readings as they come in and leave, and how far
/// they reach between.
struct CurveColumn {
    double position = 0; ///< of the column's first reading, in columns from the left
    double first = 0;
    double least = 0;
    double greatest = 0;
    double last = 0;
};

/// The readings between the times `from` and `to` (microseconds, `from` < `to`) for a plot that is
/// `columns` wide: one entry for each column that holds readings, and the neighbours outside, so
/// that the curve runs to the edges. No spike between two columns is lost, however many rows a
/// column stands for. Times that fall make the curve go back.
std::vector<CurveColumn> CurveOf(std::span<const std::int64_t> times,
                                 std::span<const double> readings, double from, double to,
                                 int columns);

/// The row whose time is nearest to `time` (microseconds), the first of several; times never fall
/// and there is at least one.
std::size_t NearestRow(std::span<const std::int64_t> times, double time);

} // namespace quarnel

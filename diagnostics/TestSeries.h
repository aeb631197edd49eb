#pragma once

#include "diagnostics/SeriesLine.h"
#include "kcompute/Computation.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quarnel {

/// The points of a computation packed for what is worked out from them: in order of time, equal
/// times in the order of the list. A point is named by its place in the list, counted from 0. A
/// valid point is one with Y > 0, a used one entered the fit.
class TestSeries {
public:
    explicit TestSeries(const Computation& computation);

    /// All points of the list in order of time.
    const std::vector<std::size_t>& Order() const { return order_; }

    Series Valid() const { return {validTimeSec_, validLnYCm_}; }
    const std::vector<std::size_t>& ValidPoints() const { return validPoints_; }
    /// The normalized head Y/H0 of each valid point.
    const std::vector<double>& ValidHeads() const { return validHeads_; }

    Series Used() const { return {usedTimeSec_, usedLnYCm_}; }
    const std::vector<std::size_t>& UsedPoints() const { return usedPoints_; }
    /// Y of each used point, entered level unit.
    const std::vector<double>& UsedY() const { return usedY_; }

    /// H0, the first change in head, in cm and in the entered level unit. A computation has valid
    /// points, so there always is one.
    double FirstYCm() const { return firstYCm_; }
    double FirstY() const { return firstY_; }

private:
    void AddPoint(const RecoveryPoint& point, std::size_t index, bool isUsed);

    std::vector<std::size_t> order_, validPoints_, usedPoints_;
    std::vector<double> validTimeSec_, validLnYCm_, validHeads_, usedTimeSec_, usedLnYCm_, usedY_;
    double firstYCm_ = 0;
    double firstY_ = 0;
};

/// Whether the point (counted from 0) entered the fit.
bool IsUsed(const Computation& computation, std::size_t point);

/// The reading step of all readings in cm; nothing where all are equal.
std::optional<double> ReadingStepCm(const Computation& computation);

} // namespace quarnel

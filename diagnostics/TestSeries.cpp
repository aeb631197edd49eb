#include "diagnostics/TestSeries.h"

#include "diagnostics/ReadingStep.h"
#include "kcompute/FirstChange.h"
#include "project/FixedLists.h"

#include <algorithm>
#include <numeric>

namespace quarnel {

namespace {

std::vector<std::size_t> OrderOfTime(const RecoveryPointList& points) {
    std::vector<std::size_t> order(points.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    const auto byTime = [](const RecoveryPoint& a, const RecoveryPoint& b) {
        return a.timeSec < b.timeSec;
    };
    // Nearly every record is in order, and sorting one that is costs more than all else.
    if (!std::is_sorted(points.begin(), points.end(), byTime))
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return byTime(points[a], points[b]);
        });
    return order;
}

bool IsPlainDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether a number ends in `decimals` digits after a point, as all of a logger's readings do.
bool ShowsNoMoreThan(std::string_view text, int decimals) {
    const auto digits = static_cast<std::size_t>(decimals);
    return text.size() > digits && text[text.size() - digits - 1] == '.' &&
           std::all_of(text.end() - decimals, text.end(), IsPlainDigit);
}

} // namespace

bool IsUsed(const Computation& computation, std::size_t point) {
    return computation.marks[point] == Mark::Use;
}

TestSeries::TestSeries(const Computation& computation)
    : order_(OrderOfTime(*computation.recovery.RecoveryPoints)) {
    const RecoveryPointList& points = *computation.recovery.RecoveryPoints;
    const auto validCount = static_cast<std::size_t>(computation.recovery.ValidYCount);
    const auto usedCount = static_cast<std::size_t>(computation.usedCount);
    for (std::vector<double>* values : {&validTimeSec_, &validLnYCm_, &validHeads_})
        values->reserve(validCount);
    validPoints_.reserve(validCount);
    for (std::vector<double>* values : {&usedTimeSec_, &usedLnYCm_, &usedY_})
        values->reserve(usedCount);
    usedPoints_.reserve(usedCount);
    for (const std::size_t i : order_)
        if (IsValidPoint(points[i]))
            AddPoint(points[i], i, IsUsed(computation, i));
}

void TestSeries::AddPoint(const RecoveryPoint& point, std::size_t index, bool isUsed) {
    if (validPoints_.empty()) {
        firstYCm_ = point.yCm;
        firstY_ = point.y;
    }
    validTimeSec_.push_back(point.timeSec);
    validLnYCm_.push_back(point.lnYCm);
    validHeads_.push_back(point.y / firstY_);
    validPoints_.push_back(index);
    if (!isUsed)
        return;
    usedTimeSec_.push_back(point.timeSec);
    usedLnYCm_.push_back(point.lnYCm);
    usedY_.push_back(point.y);
    usedPoints_.push_back(index);
}

std::optional<double> ReadingStepCm(const Computation& computation) {
    const RecoveryPointList& points = *computation.recovery.RecoveryPoints;
    std::vector<double> readings;
    readings.reserve(points.size());
    int decimals = 0;
    for (const RecoveryPoint& point : points) {
        readings.push_back(point.level);
        if (!ShowsNoMoreThan(point.levelText, decimals))
            decimals = std::max(decimals, DecimalsOf(point.levelText));
    }
    const std::optional<double> step = ReadingStep(readings, decimals);
    return step ? std::optional<double>(*step * UnitFactorToCm(computation.recovery.levelUnit))
                : std::nullopt;
}

} // namespace quarnel

#include "loggerfiles/StartOfTest.h"

#include "loggerfiles/Medians.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quarnel {

namespace {

constexpr double MedianChangesOfAJump = 10;
constexpr double StepsOfAJump = 5;

/// The changes from each reading to the next, without their signs, in millionths.
std::vector<double> Changes(std::span<const double> readings) {
    std::vector<double> changes;
    if (readings.size() < 2)
        return changes;
    changes.reserve(readings.size() - 1);
    double last = Millionths(readings.front());
    for (const double reading : readings.subspan(1)) {
        const double next = Millionths(reading);
        changes.push_back(std::fabs(next - last));
        last = next;
    }
    return changes;
}

/// How many changes are looked at: all of a short record, those before the last tenth of another.
std::size_t EligibleChanges(std::size_t rowCount) {
    constexpr std::size_t LongestShortRecord = 10;
    if (rowCount <= LongestShortRecord)
        return rowCount - 1;
    // The greatest i + 1 below 0.9 n, in whole numbers.
    return (9 * rowCount - 1) / 10;
}

std::size_t TailRows(std::size_t rowCount) {
    return std::min(rowCount, std::max(rowCount / 10, FewestStaticRows));
}

} // namespace

std::optional<std::size_t> JumpRow(std::span<const double> readings, double readingStep) {
    std::vector<double> changes = Changes(readings);
    if (changes.empty())
        return std::nullopt;
    const auto eligibleEnd =
        changes.begin() + static_cast<std::ptrdiff_t>(EligibleChanges(readings.size()));
    const auto greatest = std::max_element(changes.begin(), eligibleEnd);
    const auto row = static_cast<std::size_t>(greatest - changes.begin());
    const double change = *greatest;
    const double limit =
        std::max(MedianChangesOfAJump * MedianOf(changes), StepsOfAJump * Millionths(readingStep));
    return change > limit ? std::optional(row) : std::nullopt;
}

RowSpan StaticRows(std::size_t rowCount, std::size_t start) {
    if (start >= FewestStaticRows)
        return {0, start};
    return {rowCount - TailRows(rowCount), rowCount};
}

std::optional<double> StaticLevel(std::span<const double> readings, RowSpan rows) {
    if (rows.Count() == 0 || rows.end > readings.size())
        return std::nullopt;
    std::vector<double> levels;
    levels.reserve(rows.Count());
    for (const double reading : readings.subspan(rows.first, rows.Count()))
        levels.push_back(Millionths(reading));
    return std::round(MedianOf(levels)) / 1e6;
}

std::size_t SurgeRows(std::span<const double> readings, std::size_t start, double staticLevel) {
    const double level = Millionths(staticLevel);
    const auto distance = [&](std::size_t row) {
        return std::fabs(Millionths(readings[row]) - level);
    };
    std::size_t moved = 0;
    while (moved < MostSurgeRows && start + moved + 1 < readings.size() &&
           distance(start + moved + 1) > distance(start + moved))
        ++moved;
    return moved;
}

std::optional<SlugTestType> SlugTestTypeOf(DataType dataType, double firstReading,
                                           double staticLevel) {
    if (dataType == ChangeInHead)
        return SlugTestTypeNotApplicable;
    if (firstReading == staticLevel)
        return std::nullopt;
    const bool readingBelow = firstReading < staticLevel;
    // A smaller depth to water is a higher level.
    const bool levelBelow = dataType == DepthToGroundwater ? !readingBelow : readingBelow;
    return levelBelow ? RisingHead : FallingHead;
}

} // namespace quarnel

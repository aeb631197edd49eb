#include "loggerfiles/StartOfTest.h"

#include "loggerfiles/Medians.h"
#include "loggerfiles/Rounding.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quarnel {

namespace {

constexpr double MedianChangesOfAJump = 10;
constexpr double StepsOfAJump = 5;

/// Calls `take` with the change from each reading to the next, without its sign, in millionths.
template <typename Take> void ForEachChange(std::span<const double> readings, Take take) {
    if (readings.empty())
        return;
    double last = Millionths(readings.front());
    for (const double reading : readings.subspan(1)) {
        const double next = Millionths(reading);
        take(std::fabs(next - last));
        last = next;
    }
}

struct Jump {
    std::size_t row = 0;
    double change = 0; ///< millionths
};

Jump GreatestChange(std::span<const double> readings) {
    Jump greatest;
    std::size_t row = 0;
    ForEachChange(readings, [&](double change) {
        if (change > greatest.change)
            greatest = {row, change};
        ++row;
    });
    return greatest;
}

/// Whether the median of the changes is less than `limit` (millionths). Counting them tells it in a
/// fraction of the time that finding the median of millions takes.
bool MedianChangeIsBelow(double limit, std::span<const double> readings) {
    const std::size_t count = readings.size() - 1;
    std::size_t below = 0;
    ForEachChange(readings, [&](double change) { below += change < limit ? 1 : 0; });
    if (count % 2 == 1 || below != count / 2)
        return below > count / 2;
    // The limit lies between the middle two, and their mean may lie on either side of it.
    double lower = 0;
    double upper = std::numeric_limits<double>::infinity();
    ForEachChange(readings, [&](double change) {
        if (change < limit)
            lower = std::max(lower, change);
        else
            upper = std::min(upper, change);
    });
    return lower + upper < 2 * limit;
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
    if (readings.size() < 2)
        return std::nullopt;
    const Jump jump = GreatestChange(readings.first(EligibleChanges(readings.size()) + 1));
    if (jump.change <= StepsOfAJump * Millionths(readingStep) ||
        !MedianChangeIsBelow(jump.change / MedianChangesOfAJump, readings))
        return std::nullopt;
    return jump.row;
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

#pragma once

#include "project/GlobalDeclar.h"

#include <cstddef>
#include <optional>
#include <span>

namespace quarnel {

// Where in a logger's record the slug test begins. All readings are those of one record in their
// order, in one unit, rounded to 6 decimals; rows are counted from 0. They are compared as whole
// millionths, so that a limit that is met exactly is met on every machine. The constants 10, 5,
// 0.9 and 5 rows are ours: no paper gives any.

/// The rows `first`, `first` + 1 ... `end` - 1.
struct RowSpan {
    std::size_t first = 0;
    std::size_t end = 0;

    std::size_t Count() const { return end > first ? end - first : 0; }
    bool operator==(const RowSpan&) const = default;
};

/// Fewest readings that a static level is told from.
inline constexpr std::size_t FewestStaticRows = 5;
/// Farthest that the start is moved over readings that still move away.
inline constexpr std::size_t MostSurgeRows = 5;

/// The row before the greatest change from one reading to the next, the first of several: the test
/// begins in the row after it. Changes into the last tenth of more than 10 rows do not count.
/// Nothing unless it is greater than 10 times the median change and than 5 times `readingStep` (the
/// smallest positive difference of any two readings; 0 where there is none).
std::optional<std::size_t> JumpRow(std::span<const double> readings, double readingStep);

/// The rows that tell the static level of a test that begins in row `start`: all before it, or,
/// where those are fewer than 5, the last tenth of the record, at least 5 of its rows.
RowSpan StaticRows(std::size_t rowCount, std::size_t start);

/// Median of the readings in `rows`, rounded to 6 decimals; nothing of no rows.
std::optional<double> StaticLevel(std::span<const double> readings, RowSpan rows);

/// How many rows (0 to 5) from row `start` on the next reading lies still farther from the static
/// level: the surge of the slug itself.
std::size_t SurgeRows(std::span<const double> readings, std::size_t start, double staticLevel);

/// Whether the level rises or falls back to the static level after the first reading of the test.
/// Nothing where that reading is the static level itself. Changes in head have no such type.
std::optional<SlugTestType> SlugTestTypeOf(DataType dataType, double firstReading,
                                           double staticLevel);

} // namespace quarnel

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quarnel {

/// Above so many rows thinning is offered.
inline constexpr std::size_t MostRowsUnthinned = 2000;
/// Readings kept of each decade of time unless chosen otherwise, and the most that can be chosen.
inline constexpr int UsualRowsPerDecade = 20;
inline constexpr int MostRowsPerDecade = 1000;

/// The rows kept of those with `times` (microseconds since the start of the test, never falling):
/// the first, the last and, for k = 0, 1, 2 ..., the first at or after t1 10^(k / rowsPerDecade),
/// t1 being the first time above 0. Rows counted from 0, in order, each once; a nanosecond of slack
/// makes up for the rounding of the powers.
std::vector<std::size_t> ThinnedRows(std::span<const std::int64_t> times, int rowsPerDecade);

} // namespace quarnel

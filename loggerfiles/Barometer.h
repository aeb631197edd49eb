#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quarnel {

/// The readings of a barometer at `times` (microseconds, never falling), linear in time between its
/// own `barometerTimes` (as many as `pressures`, never falling); where several stand at one time,
/// the first. Readings that are NaN are passed over. In the unit of `pressures`. Nothing unless the
/// barometer's first and last reading enclose all of `times`.
std::optional<std::vector<double>> PressureAt(std::span<const std::int64_t> times,
                                              std::span<const std::int64_t> barometerTimes,
                                              std::span<const double> pressures);

} // namespace quarnel

#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace quarnel {

/// Most readings that a trend is taken of; of more, so many evenly spaced ones. Ours.
inline constexpr std::size_t MostTrendRows = 500;

/// How far the readings move within `duration` (microseconds) by the slope of Theil and Sen: the
/// median of the slopes of all pairs of rows with different times, so that single wild readings do
/// not turn it. `times` (microseconds) never fall and are as many as `readings`, which are rounded
/// to 6 decimals; the result is in millionths of their unit, so that a drift at a limit stays at
/// it. Nothing without two different times.
///
/// Theil, H. (1950), A rank-invariant method of linear and polynomial regression analysis, Proc.
/// Kon. Ned. Akad. Wetensch. A 53; Sen, P. K. (1968), Estimates of the regression coefficient based
/// on Kendall's tau, J. Am. Stat. Assoc. 63:1379.
std::optional<double> TheilSenMillionths(std::span<const std::int64_t> times,
                                         std::span<const double> readings, std::int64_t duration);

/// Whether a level that moves by so many millionths during the test moves too much for a method
/// that takes it for still: by more than 5 % of `firstY`, in the same unit. The 5 % are ours; that
/// Bouwer-Rice assumes a still level: Ostendorf, D. W. and DeGroot, D. J. (2010), Ground Water
/// 48:609.
bool DriftMatters(double changeMillionths, double firstY);

} // namespace quarnel

#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace quarnel {

/// Most decimals of a reading that count towards the reading step.
inline constexpr int MostReadingDecimals = 9;

/// How many decimals the text of a number shows, 0 to 9: "59.40" has 2, "1.25e-3" as many as its
/// plain form 0.00125, so 5. Any decimal separator counts; the text must be a number.
int DecimalsOf(std::string_view numberText);

/// The reading step: the smallest positive difference between any two readings once they are
/// rounded to `decimals` decimals (0 to 9, the most that any of their texts shows). In the unit of
/// the readings; nothing where all are equal or there are fewer than two. Readings need no order.
std::optional<double> ReadingStep(std::span<const double> readings, int decimals);

/// The same from the readings' texts; `localeSeparator` is accepted beside ".". Texts that are no
/// numbers are passed over.
std::optional<double> ReadingStep(std::span<const std::string_view> texts,
                                  std::string_view localeSeparator = ".");

} // namespace quarnel

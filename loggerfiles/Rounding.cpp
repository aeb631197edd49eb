#include "loggerfiles/Rounding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace quarnel {

namespace {

/// The millionths that the shortest text of `value` (0 to 1e10) shows, rounded by its seventh
/// decimal.
double MillionthsByDigits(double value) {
    std::array<char, 400> digits{}; // a subnormal has more than three hundred zeros in front
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                      std::chars_format::fixed);
    const std::string_view text(digits.data(),
                                static_cast<std::size_t>(result.ptr - digits.data()));
    const std::size_t point = std::min(text.find('.'), text.size());
    std::int64_t millionths = 0;
    for (std::size_t i = 0; i <= point + 6; ++i)
        if (i != point)
            millionths = millionths * 10 + (i < text.size() ? text[i] - '0' : 0);
    const bool up = point + 7 < text.size() && text[point + 7] >= '5';
    return static_cast<double>(millionths + (up ? 1 : 0));
}

} // namespace

double RoundReadingByDigits(double reading) {
    /// Beyond 2^53 millionths a double has no sixth decimal to round.
    constexpr double LargestRounded = 9007199254.740992;
    if (!(std::fabs(reading) < LargestRounded))
        return reading;
    return std::copysign(MillionthsByDigits(std::fabs(reading)) / 1e6, reading) +
           0.0; // no minus zero
}

} // namespace quarnel

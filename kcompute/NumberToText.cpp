#include "kcompute/NumberToText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace quarnel {

namespace {

/// A finite number as d.ddd... times ten to the exponent, the shortest digits that read back: at
/// most nine of a single, and one more for a carry. Thousands of projects make these texts, so none
/// of the steps takes memory.
struct Decimal {
    bool negative = false;
    std::array<char, 10> digits{}; ///< none leading zero but for the number 0
    int size = 0;                  ///< at least one of them
    int exponent = 0;              ///< power of ten of the first digit

    char DigitOr0(int i) const { return i < size ? digits[static_cast<std::size_t>(i)] : '0'; }
    bool IsZero() const {
        return std::all_of(digits.begin(), digits.begin() + size, [](char c) { return c == '0'; });
    }
};

Decimal ShortestDecimal(float value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      std::fabs(value), std::chars_format::scientific);
    const char* const e = std::find(buffer.data(), result.ptr, 'e');
    Decimal decimal;
    decimal.negative = value < 0;
    for (const char* c = buffer.data(); c != e; ++c)
        if (*c != '.')
            decimal.digits[static_cast<std::size_t>(decimal.size++)] = *c;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), result.ptr, decimal.exponent);
    return decimal;
}

/// Keeps `count` digits (0 or less leaves at most a carry), rounding half away from zero. A carry
/// out of the first digit raises the exponent.
void RoundToDigits(Decimal& decimal, int count) {
    if (count >= decimal.size)
        return;
    const bool up = count >= 0 && decimal.DigitOr0(count) >= '5';
    decimal.size = std::max(count, 0);
    int i = decimal.size;
    if (up)
        while (i > 0 && decimal.DigitOr0(i - 1) == '9')
            decimal.digits[static_cast<std::size_t>(--i)] = '0';
    if (up && i > 0) {
        ++decimal.digits[static_cast<std::size_t>(i - 1)];
        return;
    }
    if (!up && decimal.size > 0)
        return;
    // All digits are gone or were 9: what is left is the carry, or 0 without one.
    decimal.digits[static_cast<std::size_t>(decimal.size++)] = '0';
    if (up) {
        decimal.digits.front() = '1';
        ++decimal.exponent;
    }
}

std::string SignOf(const Decimal& decimal) {
    return decimal.negative && !decimal.IsZero() ? "-" : "";
}

/// Mantissa with two decimals, "e", sign and power of ten: 1.23e-5.
std::string ExponentText(float value) {
    Decimal decimal = ShortestDecimal(value);
    RoundToDigits(decimal, 3);
    std::string text = SignOf(decimal);
    text += decimal.DigitOr0(0);
    text += '.';
    text += decimal.DigitOr0(1);
    text += decimal.DigitOr0(2);
    text += decimal.exponent < 0 ? "e-" : "e+";
    text += std::to_string(std::abs(decimal.exponent));
    return text;
}

/// Plain digits with `least` to `most` decimals.
std::string FixedText(float value, std::size_t least, std::size_t most) {
    Decimal decimal = ShortestDecimal(value);
    RoundToDigits(decimal, decimal.exponent + 1 + static_cast<int>(most));
    std::string text = SignOf(decimal);
    for (int i = 0; i <= decimal.exponent; ++i)
        text += decimal.DigitOr0(i);
    text += decimal.exponent < 0 ? "0." : ".";
    const std::size_t whole = text.size();
    for (int i = decimal.exponent + 1; i < decimal.size; ++i)
        text += i < 0 ? '0' : decimal.DigitOr0(i);
    text.resize(std::min(text.size(), whole + most));
    while (text.size() > whole + least && text.back() == '0')
        text.pop_back();
    text.resize(std::max(text.size(), whole + least), '0');
    return text;
}

std::string TwoDecimalText(float value) {
    if (value < 1e-9F)
        return "0.00";
    if (value < 0.001F || value > 1e6F)
        return ExponentText(value);
    return FixedText(value, 2, 2);
}

std::string ThreeFiguresText(float value) {
    const std::string text = ExponentText(value);
    float rounded = 0;
    std::from_chars(text.data(), text.data() + text.size(), rounded);
    if (rounded > 100000.0F || rounded <= 0.001F)
        return text;
    return FixedText(rounded, 1, 5);
}

} // namespace

std::string NumberToText(NumberMode mode, float value) {
    if (!std::isfinite(value))
        return {};
    return mode == TwoDecimals ? TwoDecimalText(value) : ThreeFiguresText(value);
}

std::string ThreeFigureText(double value) {
    return NumberToText(ThreeFigures, static_cast<float>(value));
}

} // namespace quarnel

#include "kcompute/NumberToText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace quarnel {

namespace {

/// A finite number as d.ddd... times ten to the exponent, the shortest digits that read back.
struct Decimal {
    bool negative = false;
    std::string digits; ///< at least one, none leading zero but for the number 0
    int exponent = 0;   ///< power of ten of the first digit
};

Decimal ShortestDecimal(float value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      std::fabs(value), std::chars_format::scientific);
    const std::string text(buffer.data(), result.ptr);
    const std::size_t e = text.find('e');
    Decimal decimal;
    decimal.negative = value < 0;
    for (std::size_t i = 0; i < e; ++i)
        if (text[i] != '.')
            decimal.digits += text[i];
    decimal.exponent = std::atoi(text.c_str() + e + 1);
    return decimal;
}

/// Keeps `count` digits (0 or less leaves at most a carry), rounding half away from zero. A carry
/// out of the first digit raises the exponent.
void RoundToDigits(Decimal& decimal, int count) {
    const int size = static_cast<int>(decimal.digits.size());
    if (count >= size)
        return;
    const bool up = count >= 0 && decimal.digits[static_cast<std::size_t>(count)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(count > 0 ? count : 0));
    if (!up) {
        if (decimal.digits.empty())
            decimal.digits = "0";
        return;
    }
    std::size_t i = decimal.digits.size();
    while (i > 0 && decimal.digits[i - 1] == '9')
        decimal.digits[--i] = '0';
    if (i > 0) {
        ++decimal.digits[i - 1];
        return;
    }
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.exponent;
}

std::string WithSign(const Decimal& decimal, const std::string& text) {
    const bool isZero = decimal.digits.find_first_not_of('0') == std::string::npos;
    return decimal.negative && !isZero ? "-" + text : text;
}

/// Mantissa with two decimals, "e", sign and power of ten: 1.23e-5.
std::string ExponentText(float value) {
    Decimal decimal = ShortestDecimal(value);
    RoundToDigits(decimal, 3);
    std::string digits = decimal.digits;
    digits.resize(3, '0');
    std::string text = digits.substr(0, 1) + "." + digits.substr(1);
    text += decimal.exponent < 0 ? "e-" : "e+";
    text += std::to_string(std::abs(decimal.exponent));
    return WithSign(decimal, std::move(text));
}

/// Plain digits with `least` to `most` decimals.
std::string FixedText(float value, int least, int most) {
    Decimal decimal = ShortestDecimal(value);
    RoundToDigits(decimal, decimal.exponent + 1 + most);
    std::string whole = "0";
    std::string decimals;
    if (decimal.exponent >= 0) {
        std::string digits = decimal.digits;
        const auto wholeDigits = static_cast<std::size_t>(decimal.exponent) + 1;
        if (digits.size() < wholeDigits)
            digits.resize(wholeDigits, '0');
        whole = digits.substr(0, wholeDigits);
        decimals = digits.substr(wholeDigits);
    } else {
        decimals =
            std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
    }
    if (decimals.size() > static_cast<std::size_t>(most))
        decimals.resize(static_cast<std::size_t>(most));
    while (decimals.size() > static_cast<std::size_t>(least) && decimals.back() == '0')
        decimals.pop_back();
    decimals.resize(std::max(decimals.size(), static_cast<std::size_t>(least)), '0');
    return WithSign(decimal, whole + "." + decimals);
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

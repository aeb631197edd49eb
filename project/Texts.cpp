#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quarnel {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// A result out of range says only that; whether it ran over or under shows in the power of ten of
// the first digit that is not zero.
bool MagnitudeIsBelowOne(std::string_view number) {
    long long position = 0; // power of ten of the digit before the separator's place
    bool seenSeparator = false;
    bool seenNonZero = false;
    long long digitsBefore = 0;
    long long leadingZerosAfter = 0;
    std::size_t i = 0;
    for (; i < number.size() && number[i] != 'e' && number[i] != 'E'; ++i) {
        const char c = number[i];
        if (c == '.') {
            seenSeparator = true;
        } else if (IsDigit(c)) {
            if (!seenNonZero && c == '0' && seenSeparator)
                ++leadingZerosAfter;
            seenNonZero = seenNonZero || c != '0';
            if (seenNonZero && !seenSeparator)
                ++digitsBefore;
        }
    }
    if (!seenNonZero)
        return true;
    position = digitsBefore > 0 ? digitsBefore : -leadingZerosAfter;
    if (i == number.size())
        return position <= 0;
    std::string_view exponent = number.substr(i + 1);
    const bool negative = !exponent.empty() && exponent.front() == '-';
    if (!exponent.empty() && (exponent.front() == '-' || exponent.front() == '+'))
        exponent.remove_prefix(1);
    long long power = 0;
    for (const char c : exponent)
        power = std::min(power * 10 + (c - '0'), 1'000'000'000'000LL);
    return (negative ? position - power : position + power) <= 0;
}

std::optional<double> ParseWithPoint(std::string_view number) {
    const bool plus = !number.empty() && number.front() == '+';
    if (plus)
        number.remove_prefix(1);
    std::string_view digits = number;
    if (!plus && !digits.empty() && digits.front() == '-')
        digits.remove_prefix(1);
    // Rules out "inf", "nan" and a second sign, which the conversion itself would take.
    if (digits.empty() || !(IsDigit(digits.front()) || digits.front() == '.'))
        return std::nullopt;
    double value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (stop != end || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range || std::isinf(value))
        return MagnitudeIsBelowOne(digits) ? std::optional<double>(0.0) : std::nullopt;
    return value;
}

/// Powers of ten that are exact in a double.
constexpr std::array<double, 16> ExactPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
/// As many digits always make a whole number that is exact in a double.
constexpr std::size_t ExactDigits = 15;

/// Plain digits with or without a point, as nearly every reading of a logger, and there may be a
/// million: at most 15 digits over an exact power of ten are one exact division, rounded once, and
/// so the nearest double as any correct conversion gives it.
bool ParsePlainDigits(std::string_view text, double& value) {
    if (text.empty() || text.size() > ExactDigits || !IsDigit(text.front()))
        return false;
    std::int64_t digits = 0;
    std::size_t decimals = 0;
    std::size_t i = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i)
        digits = digits * 10 + (text[i] - '0');
    if (i < text.size() && text[i] == '.') {
        decimals = text.size() - i - 1;
        for (++i; i < text.size() && IsDigit(text[i]); ++i)
            digits = digits * 10 + (text[i] - '0');
    }
    if (i != text.size())
        return false;
    value = static_cast<double>(digits) / ExactPowersOfTen[decimals];
    return true;
}

/// The value of a text without blanks around it.
std::optional<double> ParseAny(std::string_view text, std::string_view localeSeparator) {
    if (localeSeparator != "." && !localeSeparator.empty()) {
        const std::size_t at = text.find(localeSeparator);
        if (at != std::string_view::npos) {
            // A point beside the locale's separator would be a second separator.
            if (text.find('.') != std::string_view::npos)
                return std::nullopt;
            std::string withPoint(text);
            withPoint.replace(at, localeSeparator.size(), ".");
            return ParseWithPoint(withPoint);
        }
    }
    return ParseWithPoint(text);
}

std::string GeneralText(double value, int digits) {
    if (!std::isfinite(value))
        return {};
    if (value == 0)
        return "0";
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, digits);
    std::string text(buffer.data(), result.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

} // namespace

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

std::string UpperCaseAscii(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperAscii);
    return upper;
}

bool ContainsIgnoringCase(std::string_view text, std::string_view upperCaseWord) {
    const auto found =
        std::search(text.begin(), text.end(), upperCaseWord.begin(), upperCaseWord.end(),
                    [](char a, char b) { return UpperAscii(a) == b; });
    return found != text.end() || upperCaseWord.empty();
}

bool ParseNumber(std::string_view text, std::string_view localeSeparator, double& value) {
    if (ParsePlainDigits(text, value))
        return true;
    const std::optional<double> number = ParseAny(TrimBlanks(text), localeSeparator);
    if (number)
        value = *number;
    return number.has_value();
}

std::optional<double> ParseNumber(std::string_view text, std::string_view localeSeparator) {
    double value = 0;
    return ParseNumber(text, localeSeparator, value) ? std::optional<double>(value) : std::nullopt;
}

std::string DoubleToText(double value, std::string_view decimalSeparator) {
    std::string text = GeneralText(value, 15);
    if (decimalSeparator != ".") {
        const std::size_t point = text.find('.');
        if (point != std::string::npos)
            text.replace(point, 1, decimalSeparator);
    }
    return text;
}

std::string SingleToText(double value) {
    return GeneralText(static_cast<double>(static_cast<float>(value)), 7);
}

} // namespace quarnel

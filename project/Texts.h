#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quarnel {

/// `text` without the blanks (U+0020 only) at both ends.
std::string_view TrimBlanks(std::string_view text);

/// `text` with a-z turned into A-Z; every other byte stays.
std::string UpperCaseAscii(std::string_view text);

/// Whether `text`, upper-cased, holds `upperCaseWord` (already upper case) anywhere.
bool ContainsIgnoringCase(std::string_view text, std::string_view upperCaseWord);

/// The value of a typed number, or nothing when the text is not a number. A number is: blanks
/// around it; a sign; digits with at most one decimal separator ("." or `localeSeparator`) and at
/// least one digit; an exponent. No grouping, hexadecimal, infinity. A magnitude beyond a double is
/// not a number, one below the smallest double is 0.
std::optional<double> ParseNumber(std::string_view text, std::string_view localeSeparator = ".");

/// The same for checks of many readings: puts the number into `value` and says whether there was
/// one.
bool ParseNumber(std::string_view text, std::string_view localeSeparator, double& value);

/// `value` with up to 15 significant digits, trailing zeros dropped, exponent form ("1E-05") when
/// the decimal exponent is below -4 or at least 15. Minus zero is "0"; a value not finite is "".
std::string DoubleToText(double value, std::string_view decimalSeparator = ".");

/// `value` rounded to single precision, with up to 7 significant digits, otherwise as DoubleToText
/// (exponent form from 7 on). A value beyond single precision is "".
std::string SingleToText(double value);

} // namespace quarnel

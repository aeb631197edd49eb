#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quarnel {

/// `bytes` as well-formed UTF-8: each byte that belongs to no character becomes U+FFFD. The name of
/// a file can hold any bytes.
std::string WellFormedUtf8(std::string_view bytes);

/// The same without control characters, which become U+FFFD too: a text out of a file must not
/// steer the terminal.
std::string PlainText(std::string_view bytes);

/// Well-formed UTF-8 filled up with blanks to `width` characters, before it or after it.
std::string PaddedLeft(std::string_view text, std::size_t width);
void AppendPaddedLeft(std::string& line, std::string_view text, std::size_t width);
std::string PaddedRight(std::string_view text, std::size_t width);

/// Room for the text of any double.
using ExactDigits = std::array<char, 32>;

/// The shortest text that reads back as exactly this double, with "." in every locale; "" for one
/// that is not finite.
std::string ExactNumber(double value);
/// The same text, written into `digits`.
std::string_view ExactNumber(double value, ExactDigits& digits);

} // namespace quarnel

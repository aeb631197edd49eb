#include "project/PlainText.h"

#include "project/TextColumns.h"
#include "project/TextEncoding.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace quarnel {

namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD"; // U+FFFD
constexpr double LargestPlainWhole = 1e15;

/// The character at the start of `bytes`, or nothing where there is none.
std::string_view FirstCharacter(std::string_view bytes) {
    const std::string_view character = bytes.substr(0, CharacterSize(bytes.front()));
    return IsValidUtf8(character) ? character : std::string_view();
}

/// U+0000 to U+001F, U+007F to U+009F.
bool IsControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1)
        return first < 0x20 || first == 0x7F;
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

std::string Cleaned(std::string_view bytes, bool keepControls) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::string_view character = FirstCharacter(bytes);
        const bool keep = !character.empty() && (keepControls || !IsControl(character));
        text += keep ? character : Replacement;
        bytes.remove_prefix(std::max<std::size_t>(1, character.size()));
    }
    return text;
}

} // namespace

std::string WellFormedUtf8(std::string_view bytes) {
    return IsValidUtf8(bytes) ? std::string(bytes) : Cleaned(bytes, true);
}

std::string PlainText(std::string_view bytes) {
    return Cleaned(bytes, false);
}

std::string PaddedLeft(std::string_view text, std::size_t width) {
    std::string padded;
    AppendPaddedLeft(padded, text, width);
    return padded;
}

void AppendPaddedLeft(std::string& line, std::string_view text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    line.append(count < width ? width - count : 0, ' ');
    line += text;
}

std::string PaddedRight(std::string_view text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    return std::string(text) + std::string(count < width ? width - count : 0, ' ');
}

std::string ExactNumber(double value) {
    ExactDigits digits;
    return std::string(ExactNumber(value, digits));
}

std::string_view ExactNumber(double value, ExactDigits& digits) {
    if (!std::isfinite(value))
        return {};
    char* const start = digits.data();
    char* const end = start + digits.size();
    // Counts and whole readings stay as people write them: 1000000, not 1e+06. Minus zero is "0".
    const bool isWhole = std::fabs(value) < LargestPlainWhole && value == std::trunc(value);
    const std::to_chars_result result =
        isWhole ? std::to_chars(start, end, static_cast<long long>(value))
                : std::to_chars(start, end, value);
    return {start, static_cast<std::size_t>(result.ptr - start)};
}

} // namespace quarnel

#include "loggerfiles/LoggerText.h"

#include "project/TextEncoding.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16LittleMark = "\xFF\xFE";
constexpr std::string_view Utf16BigMark = "\xFE\xFF";
constexpr std::string_view ZipStart = "PK\x03\x04";

/// The text of UTF-16; half a pair becomes U+FFFD, half a unit at the end of a cut file is dropped.
std::string Utf16ToUtf8(std::string_view bytes, bool bigEndian) {
    const std::size_t count = bytes.size() / 2;
    const auto unit = [&](std::size_t i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        return bigEndian ? char32_t{first} << 8U | second : char32_t{second} << 8U | first;
    };
    std::string text;
    text.reserve(count + count / 8);
    for (std::size_t i = 0; i < count; ++i) {
        char32_t code = unit(i);
        if (code >= 0xD800 && code < 0xE000) {
            const char32_t low = code < 0xDC00 && i + 1 < count ? unit(i + 1) : 0;
            const bool isPair = low >= 0xDC00 && low < 0xE000;
            code = isPair ? 0x10000 + ((code - 0xD800) << 10U) + (low - 0xDC00) : 0xFFFD;
            i += isPair ? 1 : 0;
        }
        AppendUtf8(text, code);
    }
    return text;
}

void DecodeBytes(std::string_view bytes, LoggerText& into) {
    if (IsValidUtf8(bytes)) {
        into.text = bytes;
    } else {
        into.decoded = Windows1252ToUtf8(bytes);
        into.text = into.decoded;
    }
}

} // namespace

void DecodeLoggerText(std::string_view bytes, std::string_view name, LoggerText& into) {
    if (bytes.starts_with(Utf16LittleMark) || bytes.starts_with(Utf16BigMark)) {
        into.decoded = Utf16ToUtf8(bytes.substr(2), bytes.starts_with(Utf16BigMark));
        into.text = into.decoded;
    } else if (bytes.starts_with(Utf8Mark)) {
        DecodeBytes(bytes.substr(Utf8Mark.size()), into);
    } else if (bytes.starts_with(ZipStart)) {
        into.fault =
            std::string(name) + " is a ZIP archive. Please unpack it and import the file inside.";
    } else if (bytes.find('\0') != std::string_view::npos) {
        into.fault = std::string(name) + " is not a text file.";
    } else {
        DecodeBytes(bytes, into);
    }
    if (into.fault.empty() && into.text.empty())
        into.fault = std::string(name) + " is empty.";
}

std::string_view TrimSpace(std::string_view text) {
    constexpr std::string_view Space = " \t";
    const std::size_t start = text.find_first_not_of(Space);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(Space) - start + 1);
}

bool EqualsIgnoringCase(std::string_view text, std::string_view upperCaseText) {
    const auto equal = [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 32) : a) == b;
    };
    return std::equal(text.begin(), text.end(), upperCaseText.begin(), upperCaseText.end(), equal);
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view upperCaseStart) {
    return EqualsIgnoringCase(text.substr(0, upperCaseStart.size()), upperCaseStart);
}

} // namespace quarnel

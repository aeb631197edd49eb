#include "project/TextEncoding.h"

#include "project/TextColumns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace quarnel {

namespace {

/// Characters of the bytes 0x80 to 0x9F; the others stand for the character of the same number.
constexpr std::array<char32_t, 32> Windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Length of the well-formed character at `at`, its code in `code`; 0 where there is none.
std::size_t DecodeOne(std::string_view bytes, std::size_t at, char32_t& code) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80) {
        code = lead;
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size())
        return 0;
    code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!ContinuesCharacter(bytes[at + i]))
            return 0;
        code = (code << 6U) | (byte(at + i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> Smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < Smallest[length] || surrogate || code > 0x10FFFF ? 0 : length;
}

std::optional<char> Windows1252Byte(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<char>(code);
    const auto* found = std::find(Windows1252High.begin(), Windows1252High.end(), code);
    if (found == Windows1252High.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (found - Windows1252High.begin()));
}

/// How many bytes from `at` on are plain ASCII, eight at a time.
std::size_t AsciiRun(std::string_view bytes, std::size_t at) {
    std::size_t end = at;
    while (end + 8 <= bytes.size()) {
        std::uint64_t block = 0;
        std::memcpy(&block, bytes.data() + end, sizeof block);
        if ((block & 0x8080808080808080ULL) != 0)
            break;
        end += 8;
    }
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 0x80)
        ++end;
    return end - at;
}

} // namespace

void AppendUtf8(std::string& text, char32_t code) {
    const auto put = [&text](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (code < 0x80) {
        put(code);
        return;
    }
    if (code < 0x800) {
        put(0xC0U | (code >> 6U));
    } else if (code < 0x10000) {
        put(0xE0U | (code >> 12U));
        put(0x80U | ((code >> 6U) & 0x3FU));
    } else {
        put(0xF0U | (code >> 18U));
        put(0x80U | ((code >> 12U) & 0x3FU));
        put(0x80U | ((code >> 6U) & 0x3FU));
    }
    put(0x80U | (code & 0x3FU));
}

bool IsValidUtf8(std::string_view bytes) {
    std::size_t at = AsciiRun(bytes, 0);
    while (at < bytes.size()) {
        char32_t code = 0;
        const std::size_t length = DecodeOne(bytes, at, code);
        if (length == 0)
            return false;
        at += length;
        at += AsciiRun(bytes, at);
    }
    return true;
}

std::string Windows1252ToUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const std::size_t plain = AsciiRun(bytes, at);
        text += bytes.substr(at, plain);
        at += plain;
        if (at == bytes.size())
            break;
        const auto byte = static_cast<unsigned char>(bytes[at]);
        AppendUtf8(text, byte < 0xA0 ? Windows1252High[byte - 0x80U] : char32_t{byte});
    }
    return text;
}

std::string EncodeFileText(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    std::size_t at = 0;
    while (true) {
        const std::size_t plain = AsciiRun(text, at);
        bytes += text.substr(at, plain);
        at += plain;
        if (at == text.size())
            break;
        char32_t code = 0;
        const std::size_t length = DecodeOne(text, at, code);
        const std::optional<char> byte = length == 0 ? std::nullopt : Windows1252Byte(code);
        if (!byte)
            return std::string(text);
        bytes.push_back(*byte);
        at += length;
    }
    // Bytes that happen to be valid UTF-8 would be read as that.
    if (bytes.size() != text.size() && IsValidUtf8(bytes))
        return std::string(text);
    return bytes;
}

} // namespace quarnel

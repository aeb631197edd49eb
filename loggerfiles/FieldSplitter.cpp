#include "loggerfiles/FieldSplitter.h"

#include "loggerfiles/LoggerText.h"
#include "project/Texts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quarnel {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes a quoted field that begins behind its quote at `p`; the place behind its closing quote, or
/// `end`.
const char* TakeQuoted(const char* p, const char* end, std::vector<std::string_view>& fields) {
    const char* start = p;
    while (p < end) {
        if (*p != '"') {
            ++p;
        } else if (p + 1 < end && p[1] == '"') {
            p += 2;
        } else {
            fields.emplace_back(start, static_cast<std::size_t>(p - start));
            return p + 1;
        }
    }
    fields.emplace_back(start, static_cast<std::size_t>(end - start));
    return end;
}

const char* SkipBlanks(const char* p, const char* end) {
    while (p < end && IsBlank(*p))
        ++p;
    return p;
}

void SplitAtBlanks(std::string_view line, std::vector<std::string_view>& fields, std::size_t most) {
    const char* end = line.data() + line.size();
    const char* p = SkipBlanks(line.data(), end);
    while (p < end && fields.size() < most) {
        if (*p == '"') {
            p = TakeQuoted(p + 1, end, fields);
        } else {
            const char* start = p;
            while (p < end && !IsBlank(*p))
                ++p;
            fields.emplace_back(start, static_cast<std::size_t>(p - start));
        }
        p = SkipBlanks(p, end);
    }
}

/// Whole numbers of so many digits are exact doubles.
constexpr std::ptrdiff_t MostExactDigits = 15;
constexpr std::array<double, MostExactDigits + 1> PowersOfTen = {
    1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// A number as far as it has neither exponent nor too many digits.
struct PlainNumber {
    bool isNegative = false;
    std::uint64_t digits = 0; ///< all of them, without the decimal sign
    std::ptrdiff_t count = 0, decimals = 0;
    const char* end = nullptr;
};

const char* TakeDigits(const char* p, const char* end, std::uint64_t& digits) {
    for (; p < end && IsDigit(*p); ++p)
        digits = digits * 10 + static_cast<unsigned>(*p - '0');
    return p;
}

PlainNumber TakePlainNumber(const char* p, const char* end, bool comma) {
    PlainNumber number;
    number.isNegative = p < end && *p == '-';
    if (p < end && (*p == '-' || *p == '+'))
        ++p;
    number.end = TakeDigits(p, end, number.digits);
    number.count = number.end - p;
    p = number.end;
    if (p < end && (*p == '.' || (comma && *p == ','))) {
        number.end = TakeDigits(p + 1, end, number.digits);
        number.decimals = number.end - p - 1;
        number.count += number.decimals;
    }
    return number;
}

} // namespace

void SplitFields(std::string_view line, char delimiter, std::vector<std::string_view>& fields,
                 std::size_t most) {
    fields.clear();
    if (delimiter == BlankRuns) {
        SplitAtBlanks(line, fields, most);
        return;
    }
    const char* p = line.data();
    const char* end = p + line.size();
    while (fields.size() < most) {
        const char* start = p;
        while (start < end && *start == ' ')
            ++start;
        if (start < end && *start == '"')
            p = TakeQuoted(start + 1, end, fields);
        const auto* next = static_cast<const char*>(
            p < end ? std::memchr(p, delimiter, static_cast<std::size_t>(end - p)) : nullptr);
        const char* stop = next == nullptr ? end : next;
        if (start >= end || *start != '"')
            fields.emplace_back(start < stop ? start : stop,
                                static_cast<std::size_t>(start < stop ? stop - start : 0));
        if (next == nullptr)
            return;
        p = next + 1;
    }
}

std::string FieldText(std::string_view field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        text += field[i];
        if (field[i] == '"' && i + 1 < field.size() && field[i + 1] == '"')
            ++i;
    }
    return std::string(TrimSpace(text));
}

bool ParseReading(std::string_view field, bool comma, double& value) {
    const char* const end = field.data() + field.size();
    const char* const start = SkipBlanks(field.data(), end);
    const PlainNumber number = TakePlainNumber(start, end, comma);
    // A number of up to 15 digits is a whole number divided by a power of ten, both of them exact
    // doubles, so that one division gives the nearest double. All others take the slower road.
    if (number.count <= MostExactDigits && SkipBlanks(number.end, end) == end) {
        if (number.count == 0)
            return false;
        const double size = static_cast<double>(number.digits) /
                            PowersOfTen[static_cast<std::size_t>(number.decimals)];
        value = number.isNegative ? -size : size;
        return true;
    }
    const std::string_view rest(start, static_cast<std::size_t>(end - start));
    return number.end != start && ParseNumber(TrimSpace(rest), comma ? "," : ".", value);
}

} // namespace quarnel

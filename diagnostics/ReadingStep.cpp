#include "diagnostics/ReadingStep.h"

#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quarnel {

namespace {

constexpr std::array<double, MostReadingDecimals + 1> PowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4,
                                                                     1e5, 1e6, 1e7, 1e8, 1e9};
/// Readings that span at most this many steps for each of them are marked off in a bitmap.
constexpr double MostStepsPerReading = 32;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The power of ten behind "e", held within what matters here.
int ExponentOf(std::string_view text) {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    int power = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), power);
    if (result.ec == std::errc::result_out_of_range)
        return text.front() == '-' ? -MostReadingDecimals : 1000;
    return power;
}

/// The readings as whole numbers of the last decimal; those too large to count so are left out.
std::vector<double> WholeSteps(std::span<const double> readings, double scale) {
    std::vector<double> whole;
    whole.reserve(readings.size());
    for (const double reading : readings)
        if (const double step = std::round(reading * scale); std::isfinite(step))
            whole.push_back(step);
    return whole;
}

double SmallestDifferenceOfSorted(const std::vector<double>& sorted) {
    double smallest = 0;
    for (std::size_t i = 1; i < sorted.size() && smallest != 1; ++i) {
        const double difference = sorted[i] - sorted[i - 1];
        if (difference > 0 && (smallest == 0 || difference < smallest))
            smallest = difference;
    }
    return smallest;
}

/// Marks every whole number that occurs: a logger's long record holds few different readings, and
/// sorting them would take most of the time of all diagnostics.
double SmallestDifferenceByMarks(const std::vector<double>& whole, double least, double range) {
    std::vector<std::uint8_t> occurs(static_cast<std::size_t>(range) + 1);
    for (const double step : whole)
        occurs[static_cast<std::size_t>(step - least)] = 1;
    std::size_t smallest = 0;
    std::size_t last = 0;
    for (std::size_t i = 1; i < occurs.size() && smallest != 1; ++i) {
        if (occurs[i] == 0)
            continue;
        if (smallest == 0 || i - last < smallest)
            smallest = i - last;
        last = i;
    }
    return static_cast<double>(smallest);
}

double SmallestDifference(std::vector<double>& whole) {
    if (whole.empty())
        return 0;
    const auto [least, greatest] = std::minmax_element(whole.begin(), whole.end());
    const double range = *greatest - *least;
    if (range <= MostStepsPerReading * static_cast<double>(whole.size()))
        return SmallestDifferenceByMarks(whole, *least, range);
    std::sort(whole.begin(), whole.end());
    return SmallestDifferenceOfSorted(whole);
}

} // namespace

int DecimalsOf(std::string_view numberText) {
    const std::string_view text = TrimBlanks(numberText);
    std::size_t i = 0;
    while (i < text.size() && (IsDigit(text[i]) || text[i] == '+' || text[i] == '-'))
        ++i;
    // The separator of a locale may be several bytes long.
    while (i < text.size() && !IsDigit(text[i]) && text[i] != 'e' && text[i] != 'E')
        ++i;
    const std::size_t first = i;
    while (i < text.size() && IsDigit(text[i]))
        ++i;
    int decimals = static_cast<int>(std::min<std::size_t>(i - first, 1000));
    if (i < text.size())
        decimals -= std::clamp(ExponentOf(text.substr(i + 1)), -1000, 1000);
    return std::clamp(decimals, 0, MostReadingDecimals);
}

std::optional<double> ReadingStep(std::span<const double> readings, int decimals) {
    const double scale =
        PowersOfTen[static_cast<std::size_t>(std::clamp(decimals, 0, MostReadingDecimals))];
    std::vector<double> whole = WholeSteps(readings, scale);
    const double smallest = SmallestDifference(whole);
    return smallest > 0 && std::isfinite(smallest) ? std::optional<double>(smallest / scale)
                                                   : std::nullopt;
}

std::optional<double> ReadingStep(std::span<const std::string_view> texts,
                                  std::string_view localeSeparator) {
    std::vector<double> readings;
    readings.reserve(texts.size());
    int decimals = 0;
    for (const std::string_view text : texts) {
        double value = 0;
        if (!ParseNumber(text, localeSeparator, value))
            continue;
        readings.push_back(value);
        decimals = std::max(decimals, DecimalsOf(text));
    }
    return ReadingStep(readings, decimals);
}

} // namespace quarnel

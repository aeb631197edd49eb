#include "compare/CarriedK.h"

#include "project/FixedLists.h"
#include "project/PlainText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace quarnel {

namespace {

/// Digits behind the point of the long form: a change of the last one by a few never reaches the
/// neighbour of a double.
constexpr int LongDecimals = 18;
/// How far around the guess a K in cm/s may lie, in steps of a double.
constexpr int FarthestSteps = 8;

/// The K in cm/s next to each other that become `k` in the unit.
std::vector<double> Sources(double k, const CompareUnit& unit) {
    double source = k * UnitFactorToCm(unit.length) / UnitFactorToSec(unit.time);
    for (int i = 0; i < FarthestSteps; ++i)
        source = std::nextafter(source, -std::numeric_limits<double>::infinity());
    std::vector<double> sources;
    for (int i = 0; i <= 2 * FarthestSteps; ++i) {
        if (KInUnit(source, unit) == k)
            sources.push_back(source);
        source = std::nextafter(source, std::numeric_limits<double>::infinity());
    }
    return sources;
}

/// A number in 19 digits, as they are printed.
struct LongForm {
    bool isNegative = false;
    std::uint64_t digits = 0; ///< all 19 of them
    std::string exponent;     ///< "e-05"
};

/// Takes "-1.234...e-05" apart; nothing where it has another form.
std::optional<LongForm> LongFormOf(std::string_view text) {
    LongForm form;
    form.isNegative = text.starts_with('-');
    text.remove_prefix(form.isNegative ? 1 : 0);
    const std::size_t exponentAt = text.find('e');
    if (exponentAt != LongDecimals + 2 || text[1] != '.')
        return std::nullopt;
    form.exponent = text.substr(exponentAt);
    const std::string digits = std::string(1, text[0]) + std::string(text.substr(2, LongDecimals));
    const char* const end = digits.data() + digits.size();
    return std::from_chars(digits.data(), end, form.digits).ptr == end
               ? std::optional<LongForm>(form)
               : std::nullopt;
}

LongForm LongFormOf(double k) {
    std::array<char, 48> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), k,
                                      std::chars_format::scientific, LongDecimals);
    return LongFormOf(std::string_view(text.data(), result.ptr)).value();
}

std::string TextOf(const LongForm& form) {
    std::string digits = std::to_string(form.digits);
    return (form.isNegative ? "-" : "") + digits.insert(1, ".") + form.exponent;
}

} // namespace

std::string CarriedKText(double kCmPerSec, const CompareUnit& unit) {
    const double k = KInUnit(kCmPerSec, unit);
    if (k == 0 || !std::isfinite(k))
        return ExactNumber(k);
    const std::vector<double> sources = Sources(k, unit);
    const auto place = std::find(sources.begin(), sources.end(), kCmPerSec) - sources.begin();
    if (place == 0)
        return ExactNumber(k);
    LongForm form = LongFormOf(k);
    form.digits += static_cast<std::uint64_t>(place);
    return TextOf(form);
}

std::optional<double> CarriedK(std::string_view text, const CompareUnit& unit) {
    double k = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), k);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || !std::isfinite(k))
        return std::nullopt;
    if (k == 0)
        return k;
    const std::vector<double> sources = Sources(k, unit);
    std::size_t place = 0;
    if (const std::optional<LongForm> form = LongFormOf(text))
        place = form->digits - LongFormOf(k).digits;
    // Digits of somebody else's, which carry nothing.
    if (place >= sources.size())
        return k * UnitFactorToCm(unit.length) / UnitFactorToSec(unit.time);
    return sources[place];
}

} // namespace quarnel

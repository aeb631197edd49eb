#include "loggerfiles/Headings.h"

#include "loggerfiles/LoggerText.h"
#include "loggerfiles/WaterUnits.h"

namespace quarnel {

namespace {

struct Bracket {
    std::size_t open = 0, close = 0; ///< places of its two signs
};

/// The last bracket of `text` that closes before `end`.
std::optional<Bracket> LastBracket(std::string_view text, std::size_t end) {
    const std::string_view before = text.substr(0, end);
    const std::size_t close = before.find_last_of(")]");
    if (close == std::string_view::npos)
        return std::nullopt;
    const std::size_t open = before.substr(0, close).find_last_of("([");
    if (open == std::string_view::npos)
        return std::nullopt;
    return Bracket{open, close};
}

std::string_view Inside(std::string_view text, const Bracket& bracket) {
    return TrimSpace(text.substr(bracket.open + 1, bracket.close - bracket.open - 1));
}

bool IsUnit(std::string_view text) {
    return KnownWaterUnit(text) || IsTemperatureUnit(text);
}

/// Whether a bracket can hold a unit nobody knows: "(LGR S/N: 1)" and "(900001)" cannot.
bool MayBeUnit(std::string_view text) {
    return !text.empty() && text.find_first_of("0123456789:") == std::string_view::npos;
}

Heading WithoutBracket(std::string_view heading, const Bracket& bracket) {
    std::string name(TrimSpace(heading.substr(0, bracket.open)));
    const std::string_view behind = TrimSpace(heading.substr(bracket.close + 1));
    if (!name.empty() && !behind.empty())
        name += ' ';
    name += behind;
    return {name, std::string(Inside(heading, bracket))};
}

} // namespace

bool IsTemperatureUnit(std::string_view unit) {
    for (const std::string_view sign : {"\xC2\xB0", "\xC2\xBA"})
        if (unit.find(sign) != std::string_view::npos)
            return true;
    if (StartsWithIgnoringCase(unit, "DEG") || StartsWithIgnoringCase(unit, "CELSIUS") ||
        StartsWithIgnoringCase(unit, "FAHRENHEIT"))
        return true;
    return EqualsIgnoringCase(unit, "C") || EqualsIgnoringCase(unit, "F");
}

Heading SplitHeading(std::string_view heading) {
    heading = TrimSpace(heading);
    std::optional<Bracket> last;
    for (auto bracket = LastBracket(heading, heading.size()); bracket;
         bracket = LastBracket(heading, bracket->open)) {
        if (IsUnit(Inside(heading, *bracket)))
            return WithoutBracket(heading, *bracket);
        if (!last && MayBeUnit(Inside(heading, *bracket)))
            last = bracket;
    }
    const std::size_t comma = heading.rfind(',');
    if (comma != std::string_view::npos && IsUnit(TrimSpace(heading.substr(comma + 1))))
        return {std::string(TrimSpace(heading.substr(0, comma))),
                std::string(TrimSpace(heading.substr(comma + 1)))};
    if (last)
        return WithoutBracket(heading, *last);
    return {std::string(heading), ""};
}

Heading SplitCommaHeading(std::string_view heading) {
    const std::string_view front = TrimSpace(heading.substr(0, heading.find('(')));
    const std::size_t comma = front.rfind(',');
    if (comma == std::string_view::npos)
        return SplitHeading(heading);
    return {std::string(TrimSpace(front.substr(0, comma))),
            std::string(TrimSpace(front.substr(comma + 1)))};
}

std::pair<std::string_view, std::string_view> KeyAndValue(std::string_view line) {
    const std::size_t sign = line.find_first_of("=:");
    if (sign == std::string_view::npos)
        return {TrimSpace(line), {}};
    return {TrimSpace(line.substr(0, sign)), TrimSpace(line.substr(sign + 1))};
}

} // namespace quarnel

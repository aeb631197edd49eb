// Feeds texts to the number test and numbers to the routines that write them: what is written must
// be a number again, the same one as far as its digits go.

#include "kcompute/NumberToText.h"
#include "tests/fuzz/FuzzProperties.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

using quarnel::fuzz::Require;

bool Near(double a, double b, double part) {
    return std::fabs(a - b) <= part * std::fmax(std::fabs(a), std::fabs(b));
}

void CheckText(std::string_view text) {
    const std::optional<double> point = quarnel::ParseNumber(text);
    const std::optional<double> comma = quarnel::ParseNumber(text, ",");
    // Whatever is a number with a point alone is one where a comma may stand too.
    Require(!point || (comma && *comma == *point));
    if (!comma)
        return;
    Require(std::isfinite(*comma));
    std::string padded = "  ";
    padded += text;
    padded += " ";
    Require(quarnel::ParseNumber(padded, ",") == comma);
    // Nothing but these characters is ever part of a number.
    Require(text.find_first_not_of("0123456789+-.,eE ") == std::string_view::npos);
}

void CheckDouble(double value) {
    const std::string text = quarnel::DoubleToText(value);
    Require(text.empty() == !std::isfinite(value));
    if (text.empty())
        return;
    const std::optional<double> back = quarnel::ParseNumber(text);
    // The largest doubles round up beyond a double.
    Require(back ? Near(*back, value, 1e-14) || std::fabs(value) < 1e-300
                 : std::fabs(value) > 1.797693134862e308);
}

void CheckSingle(float value) {
    for (const quarnel::NumberMode mode : {quarnel::TwoDecimals, quarnel::ThreeFigures}) {
        const std::string text = quarnel::NumberToText(mode, value);
        Require(text.empty() == !std::isfinite(value));
        if (text.empty())
            continue;
        Require(text.size() <= 12);
        const std::optional<double> back = quarnel::ParseNumber(text);
        Require(back.has_value());
        const auto exact = static_cast<double>(value);
        // The smallest singles have fewer than three figures of their own.
        if (mode == quarnel::ThreeFigures)
            Require(Near(*back, exact, 0.00501) || std::fabs(exact) < 1e-40);
        else if (value >= 1e-9F)
            Require(std::fabs(*back - exact) <= 0.00501 * std::fmax(1, std::fabs(exact)));
        else
            Require(text == "0.00");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckText(std::string_view(reinterpret_cast<const char*>(data), size));
    double value = 0;
    std::memcpy(&value, data, size < sizeof value ? size : sizeof value);
    CheckDouble(value);
    float single = 0;
    std::memcpy(&single, data, size < sizeof single ? size : sizeof single);
    CheckSingle(single);
    if (std::fabs(value) < 3e38)
        CheckSingle(static_cast<float>(value));
    return 0;
}

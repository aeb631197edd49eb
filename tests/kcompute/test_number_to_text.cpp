// How computed numbers become text.

#include "kcompute/NumberToText.h"

#include "tests/CoreTestSupport.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

namespace quarnel {
namespace {

struct Case {
    float value;
    std::string_view text;
};

TEST(NumberToText, TwoDecimals) {
    for (const Case& c : {Case{0, "0.00"},
                          Case{-0.0F, "0.00"},
                          Case{-5, "0.00"},
                          Case{-1e30F, "0.00"},
                          Case{1e-10F, "0.00"},
                          Case{9.999998e-10F, "0.00"},
                          Case{1e-9F, "1.00e-9"},
                          Case{0.0005F, "5.00e-4"},
                          Case{0.000999F, "9.99e-4"},
                          Case{0.0009999F, "1.00e-3"},
                          Case{0.001F, "0.00"},
                          Case{0.00499F, "0.00"},
                          Case{0.005F, "0.01"},
                          Case{0.0949F, "0.09"},
                          Case{0.995F, "1.00"},
                          Case{1, "1.00"},
                          Case{9.995F, "10.00"},
                          Case{12.345F, "12.35"},
                          Case{12.344F, "12.34"},
                          Case{99.995F, "100.00"},
                          Case{123456.7F, "123456.70"},
                          Case{999999.94F, "999999.94"},
                          Case{1e6F, "1000000.00"},
                          Case{1000000.06F, "1.00e+6"},
                          Case{2e6F, "2.00e+6"},
                          Case{1.2345e20F, "1.23e+20"}})
        EXPECT_EQ(NumberToText(TwoDecimals, c.value), c.text);
}

TEST(NumberToText, ThreeFigures) {
    for (const Case& c : {Case{0.000123456F, "1.23e-4"},
                          Case{12.3456F, "12.3"},
                          Case{123456, "1.23e+5"},
                          Case{100000, "100000.0"},
                          Case{100499, "100000.0"},
                          Case{100500, "1.01e+5"},
                          Case{99999, "100000.0"},
                          Case{0.001F, "1.00e-3"},
                          Case{0.0010049F, "1.00e-3"},
                          Case{0.00101F, "0.00101"},
                          Case{0.0012345F, "0.00123"},
                          Case{0.0099999F, "0.01"},
                          Case{1.125F, "1.13"},
                          Case{1, "1.0"},
                          Case{2.5F, "2.5"},
                          Case{999.5F, "1000.0"},
                          Case{54321, "54300.0"},
                          Case{0, "0.00e+0"},
                          Case{-0.0F, "0.00e+0"},
                          Case{-5, "-5.00e+0"},
                          Case{-12.345F, "-1.23e+1"},
                          Case{-0.00999999F, "-1.00e-2"},
                          Case{-123456, "-1.23e+5"},
                          Case{9.999e9F, "1.00e+10"},
                          Case{1.4e-45F, "1.00e-45"},
                          Case{3.4028235e38F, "3.40e+38"},
                          Case{-3.4028235e38F, "-3.40e+38"},
                          Case{1.17549435e-38F, "1.18e-38"}})
        EXPECT_EQ(NumberToText(ThreeFigures, c.value), c.text);
}

TEST(NumberToText, ANumberThatIsNotFiniteHasNoText) {
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    for (const NumberMode mode : {TwoDecimals, ThreeFigures})
        for (const float value : {Infinity, -Infinity, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(NumberToText(mode, value), "");
}

TEST(ThreeFigureText, RoundsToASingleFirst) {
    EXPECT_EQ(ThreeFigureText(12.3456), "12.3");
    EXPECT_EQ(ThreeFigureText(1e39), "");
    EXPECT_EQ(ThreeFigureText(-1e39), "");
    EXPECT_EQ(ThreeFigureText(1e-60), "0.00e+0");
    EXPECT_EQ(ThreeFigureText(-1e-60), "0.00e+0");
    EXPECT_EQ(ThreeFigureText(std::nan("")), "");
}

// ---- An independent implementation: plain decimal digits before and behind the point -----------

/// The shortest of %.1e ... %.9e that reads back as the same single, as digits around a point that
/// stands behind 60 of them.
constexpr int Whole = 60;

std::string ShortestDigits(float magnitude) {
    char text[64];
    for (int decimals = 0; decimals < 9; ++decimals) {
        std::snprintf(text, sizeof text, "%.*e", decimals, static_cast<double>(magnitude));
        if (std::strtof(text, nullptr) == magnitude)
            break;
    }
    // Among texts of one length the one nearest to the value counts, and printf gives that one.
    const std::string scientific = text;
    const std::size_t e = scientific.find('e');
    const int exponent = std::atoi(scientific.c_str() + e + 1);
    std::string digits(static_cast<std::size_t>(Whole - 1 - exponent), '0');
    for (std::size_t i = 0; i < e; ++i)
        if (scientific[i] != '.')
            digits += scientific[i];
    digits.resize(130, '0');
    return digits;
}

/// Rounds plain digits half up at a place: schoolbook carrying over a string of digits.
std::string RoundAt(std::string digits, int place) {
    const bool up = digits[static_cast<std::size_t>(place)] >= '5';
    for (std::size_t i = static_cast<std::size_t>(place); i < digits.size(); ++i)
        digits[i] = '0';
    for (int i = place - 1; up && i >= 0; --i) {
        char& digit = digits[static_cast<std::size_t>(i)];
        if (digit != '9') {
            ++digit;
            break;
        }
        digit = '0';
    }
    return digits;
}

std::string SlowExponentText(float value) {
    std::string digits = ShortestDigits(std::fabs(value));
    std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos)
        return "0.00e+0";
    digits = RoundAt(digits, static_cast<int>(first) + 3);
    first = digits.find_first_not_of('0');
    const int exponent = Whole - 1 - static_cast<int>(first);
    char text[32];
    std::snprintf(text, sizeof text, "%s%c.%c%ce%+d", value < 0 ? "-" : "", digits[first],
                  digits[first + 1], digits[first + 2], exponent);
    return text;
}

std::string SlowFixedText(float value, int least, int most) {
    const std::string digits = RoundAt(ShortestDigits(value), Whole + most);
    std::string whole = digits.substr(0, Whole);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    std::string decimals = digits.substr(Whole, static_cast<std::size_t>(most));
    while (static_cast<int>(decimals.size()) > least && decimals.back() == '0')
        decimals.pop_back();
    return whole + "." + decimals;
}

std::string SlowText(int mode, float value) {
    if (mode == TwoDecimals) {
        if (value < 1e-9F)
            return "0.00";
        return value < 0.001F || value > 1e6F ? SlowExponentText(value)
                                              : SlowFixedText(value, 2, 2);
    }
    const std::string text = SlowExponentText(value);
    const float rounded = std::strtof(text.c_str(), nullptr);
    return rounded > 100000.0F || rounded <= 0.001F ? text : SlowFixedText(rounded, 1, 5);
}

void ExpectSameText(float value) {
    for (const NumberMode mode : {TwoDecimals, ThreeFigures})
        ASSERT_EQ(NumberToText(mode, value), SlowText(mode, value))
            << "mode " << mode << " bits " << std::bit_cast<std::uint32_t>(value);
}

TEST(NumberToText, AgreesWithAnIndependentOneOnRandomSingles) {
    test::Random random(5);
    for (int round = 0; round < 100'000; ++round) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random.Bits()));
        if (std::isfinite(value))
            ExpectSameText(value);
    }
}

TEST(NumberToText, AgreesWithAnIndependentOneOnShortDecimals) {
    // Texts of few digits hit the halves that rounding decides.
    test::Random random(6);
    for (int round = 0; round < 100'000; ++round) {
        const std::string text = std::to_string(random.Between(-99999, 99999)) + "e" +
                                 std::to_string(random.Between(-14, 8));
        ExpectSameText(std::strtof(text.c_str(), nullptr));
    }
}

TEST(NumberToText, AgreesWithAnIndependentOneAroundEveryBound) {
    for (const float bound : {1e-9F, 0.001F, 0.01F, 0.1F, 1.0F, 10.0F, 100.0F, 1000.0F, 1e4F, 1e5F,
                              1e6F, 1e7F, 1.17549435e-38F, 0.005F, 0.995F, 100500.0F, 999.5F}) {
        float above = bound;
        float below = bound;
        for (int step = 0; step < 200; ++step) {
            ExpectSameText(above);
            ExpectSameText(below);
            ExpectSameText(-above);
            above = std::nextafter(above, 1e30F);
            below = std::nextafter(below, -1e30F);
        }
    }
}

} // namespace
} // namespace quarnel

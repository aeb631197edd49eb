// What is a number, how numbers become text, and the small text helpers under both.

#include "project/Texts.h"

#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

namespace quarnel {
namespace {

TEST(Texts, TrimBlanksTakesOnlyTheBlankAtBothEnds) {
    struct Case {
        std::string_view text, trimmed;
    };
    const Case cases[] = {{"", ""},
                          {"   ", ""},
                          {"a", "a"},
                          {"  a  ", "a"},
                          {" a b ", "a b"},
                          {"\ta\t", "\ta\t"},
                          {" \t ", "\t"},
                          {"\r\n", "\r\n"},
                          {" \xC2\xA0 ", "\xC2\xA0"},
                          {"\u3000", "\u3000"}};
    for (const Case& c : cases)
        EXPECT_EQ(TrimBlanks(c.text), c.trimmed) << '[' << c.text << ']';
}

TEST(Texts, UpperCaseChangesAsciiLettersAlone) {
    EXPECT_EQ(UpperCaseAscii("azAZ09@[`{ é"), "AZAZ09@[`{ é");
}

TEST(Texts, ContainsIgnoringCaseFindsTheWordAnywhere) {
    EXPECT_TRUE(ContainsIgnoringCase("x quarnel Project FILE x", "QUARNEL PROJECT FILE"));
    EXPECT_TRUE(ContainsIgnoringCase("QUARNEL PROJECT FILE", "QUARNEL PROJECT FILE"));
    EXPECT_TRUE(ContainsIgnoringCase("QQUARNEL PROJECT FILE", "QUARNEL PROJECT FILE"));
    EXPECT_FALSE(ContainsIgnoringCase("QUARNEL PROJECT FIL", "QUARNEL PROJECT FILE"));
    EXPECT_FALSE(ContainsIgnoringCase("", "A"));
    EXPECT_TRUE(ContainsIgnoringCase("", ""));
}

struct NumberCase {
    std::string_view text;
    double value;
};

TEST(ParseNumber, TakesEveryFormOfATypedNumber) {
    const NumberCase cases[] = {{"0", 0},
                                {"7", 7},
                                {"-3", -3},
                                {"+3", 3},
                                {"  12.5 ", 12.5},
                                {".5", 0.5},
                                {"-.5", -0.5},
                                {"5.", 5},
                                {"+10.", 10},
                                {"1e3", 1000},
                                {"1E3", 1000},
                                {"1e+3", 1000},
                                {"1e-3", 0.001},
                                {"1.5E+02", 150},
                                {"007", 7},
                                {"0.1", 0.1},
                                {"1e308", 1e308},
                                {"-1e-308", -1e-308},
                                {"4.9e-324", 4.9e-324},
                                {"00000000000000000000000000000000000000001", 1},
                                {"179769313486231570e291", 1.7976931348623157e308},
                                {"0.000000000000000000000000000000000000000001e42", 1}};
    for (const NumberCase& c : cases) {
        ASSERT_TRUE(ParseNumber(c.text).has_value()) << c.text;
        EXPECT_EQ(*ParseNumber(c.text), c.value) << c.text;
    }
}

TEST(ParseNumber, RefusesEverythingElse) {
    const std::string_view cases[] = {
        "",        " ",         "abc",      "-",     "+",     ".",     "-.",   "e5",   ".e5",
        "1e",      "1e+",       "1e-",      "1 2",   "1,5",   "1.2.3", "..5",  "--5",  "+-5",
        "-+5",     "++5",       "- 5",      "0x10",  "1f",    "1d3",   "inf",  "-inf", "INF",
        "nan",     "NaN",       "infinity", "1e5.0", "1'000", "1_000", "\t5",  "5\t",  "5\n",
        "\u00A05", "5\xC2\xA0", "５",       "1e1e1", "$5",    "5 ft",  "1e 5", "−5"};
    for (const std::string_view text : cases)
        EXPECT_FALSE(ParseNumber(text).has_value()) << '[' << text << ']';
    EXPECT_FALSE(ParseNumber(std::string_view("5\0", 2)).has_value());
    EXPECT_FALSE(ParseNumber(std::string_view("\0\x35", 2)).has_value());
}

TEST(ParseNumber, AMagnitudeBeyondADoubleIsNoNumber) {
    for (const std::string_view text :
         {"1e309", "-1e309", "1e999999999999999999999", "179769313486231580793e289", "1.8e308",
          "0.0001e400", "100000e304"})
        EXPECT_FALSE(ParseNumber(text).has_value()) << text;
    EXPECT_FALSE(ParseNumber(std::string(400, '9')).has_value());
    EXPECT_FALSE(ParseNumber("0." + std::string(300, '0') + "1e700").has_value());
}

TEST(ParseNumber, AMagnitudeBelowTheSmallestDoubleIsZero) {
    for (const std::string_view text : {"1e-400", "-1e-400", "1e-999999999999999999999",
                                        "0.0001e-330", "123456e-400", "2e-324"}) {
        ASSERT_TRUE(ParseNumber(text).has_value()) << text;
        EXPECT_EQ(*ParseNumber(text), 0) << text;
    }
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ParseNumber(std::string(400, '1') + "e-900"), 0.0);
    EXPECT_EQ(ParseNumber("0e999999999"), 0.0);
    EXPECT_EQ(ParseNumber("0.000e999999999"), 0.0);
}

TEST(ParseNumber, TheLocalesSeparatorCountsBesideThePoint) {
    EXPECT_EQ(ParseNumber("1,5", ","), 1.5);
    EXPECT_EQ(ParseNumber("1.5", ","), 1.5);
    EXPECT_EQ(ParseNumber(" -,5e1 ", ","), -5.0);
    EXPECT_EQ(ParseNumber("5,", ","), 5.0);
    EXPECT_EQ(ParseNumber("1\u066B"
                          "5",
                          "\u066B"),
              1.5);
    for (const std::string_view text : {"1.234,5", "1,234.5", "1,2,3", ",", "1e1,5", "1.2.3"})
        EXPECT_FALSE(ParseNumber(text, ",").has_value()) << text;
    EXPECT_FALSE(ParseNumber("1,5", ".").has_value());
    EXPECT_FALSE(ParseNumber("1,5", "").has_value());
}

/// Takes characters of `allowed` off the front of `text`, at most `most`, and says how many.
std::size_t Take(std::string_view& text, std::string_view allowed, std::size_t most) {
    std::size_t taken = 0;
    while (taken < most && taken < text.size() && allowed.find(text[taken]) != allowed.npos)
        ++taken;
    text.remove_prefix(taken);
    return taken;
}

/// The grammar read letter by letter, and the C library's conversion for the value.
std::optional<double> SlowParse(const std::string& text, bool comma) {
    constexpr std::string_view Digits = "0123456789";
    std::string_view rest = text;
    Take(rest, " ", rest.size());
    std::string number(rest);
    Take(rest, "+-", 1);
    std::size_t digits = Take(rest, Digits, rest.size());
    if (Take(rest, comma ? ".," : ".", 1) == 1)
        digits += Take(rest, Digits, rest.size());
    if (digits == 0)
        return std::nullopt;
    if (Take(rest, "eE", 1) == 1) {
        Take(rest, "+-", 1);
        if (Take(rest, Digits, rest.size()) == 0)
            return std::nullopt;
    }
    if (Take(rest, " ", rest.size()); !rest.empty())
        return std::nullopt;
    std::replace(number.begin(), number.end(), ',', '.');
    const double value = std::strtod(number.c_str(), nullptr);
    return std::isinf(value) ? std::nullopt : std::optional<double>(value);
}

TEST(ParseNumber, AgreesWithASlowGrammarOnGeneratedTexts) {
    test::Random random(20240412);
    constexpr std::string_view Alphabet = "0123456789012345.,eE+-  \tx";
    int numbers = 0;
    for (int round = 0; round < 100'000; ++round) {
        std::string text;
        for (std::size_t n = random.Below(9); n > 0; --n)
            text += random.Pick(Alphabet);
        for (const bool comma : {false, true}) {
            const std::optional<double> expected = SlowParse(text, comma);
            const std::optional<double> value = ParseNumber(text, comma ? "," : ".");
            ASSERT_EQ(value.has_value(), expected.has_value()) << '[' << text << ']' << comma;
            if (expected) {
                ASSERT_EQ(*value, *expected) << '[' << text << ']';
            }
            numbers += expected ? 1 : 0;
        }
    }
    EXPECT_GT(numbers, 10'000);
}

TEST(ParseNumber, AgreesWithTheCLibraryOnLongAndExtremeNumbers) {
    test::Random random(7);
    for (int round = 0; round < 20'000; ++round) {
        std::string text = random.OneIn(2) ? "-" : "";
        for (std::size_t n = random.Below(30) + 1; n > 0; --n)
            text += static_cast<char>('0' + random.Below(10));
        text += '.';
        for (std::size_t n = random.Below(30); n > 0; --n)
            text += random.OneIn(3) ? '0' : static_cast<char>('0' + random.Below(10));
        text += 'e' + std::to_string(random.Between(-360, 360));
        const std::optional<double> expected = SlowParse(text, false);
        ASSERT_EQ(ParseNumber(text), expected) << text;
    }
}

TEST(ParseNumber, PlainReadingsAreTheNearestDoubleToTheBit) {
    test::Random random(15);
    for (int round = 0; round < 300'000; ++round) {
        std::string text;
        for (std::size_t n = 1 + random.Below(18); n > 0; --n)
            text += static_cast<char>('0' + random.Below(10));
        if (!random.OneIn(4))
            text.insert(1 + random.Below(text.size()), ".");
        const std::optional<double> value = ParseNumber(text);
        ASSERT_TRUE(value.has_value()) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*value),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text;
    }
}

TEST(ParseNumber, LeavesTheValueOfWhatIsNoNumber) {
    for (const std::string_view text : {"", "x", "1x", "1.2.3", "12345678901234567890x", "1e999"}) {
        double value = 7;
        EXPECT_FALSE(ParseNumber(text, ".", value)) << text;
        EXPECT_EQ(value, 7) << text;
    }
}

TEST(DoubleToText, WritesTheNumbersOfTheImport) {
    struct Case {
        double value;
        std::string_view text;
    };
    const Case cases[] = {{0, "0"},
                          {-0.0, "0"},
                          {0.25, "0.25"},
                          {-0.25, "-0.25"},
                          {0.1 + 0.2, "0.3"},
                          {1.0 / 3, "0.333333333333333"},
                          {2.0 / 3, "0.666666666666667"},
                          {100, "100"},
                          {0.0001, "0.0001"},
                          {0.00001, "1E-05"},
                          {0.000012345, "1.2345E-05"},
                          {123456789012345, "123456789012345"},
                          {1e14, "100000000000000"},
                          {1e15, "1E+15"},
                          {999999999999999.9, "1E+15"},
                          {1.5e300, "1.5E+300"},
                          {1e-300, "1E-300"}};
    for (const Case& c : cases)
        EXPECT_EQ(DoubleToText(c.value), c.text);
    EXPECT_EQ(DoubleToText(std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(DoubleToText(std::numeric_limits<double>::quiet_NaN()), "");
}

TEST(DoubleToText, WritesTheLocalesSeparator) {
    EXPECT_EQ(DoubleToText(0.25, ","), "0,25");
    EXPECT_EQ(DoubleToText(-1.5e-7, ","), "-1,5E-07");
    EXPECT_EQ(DoubleToText(25, ","), "25");
    EXPECT_EQ(DoubleToText(0.25, "\u066B"), "0\u066B"
                                            "25");
}

TEST(DoubleToText, AgreesWithPrintfOnRandomDoubles) {
    test::Random random(15);
    for (int round = 0; round < 200'000; ++round) {
        double value = std::bit_cast<double>(random.Bits());
        if (round % 2 == 0)
            value = static_cast<double>(random.Between(-1'000'000, 1'000'000)) /
                    std::pow(10.0, random.Between(-12, 12));
        if (!std::isfinite(value) || value == 0)
            continue;
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.15G", value);
        ASSERT_EQ(DoubleToText(value), expected);
    }
}

TEST(SingleToText, WritesSevenDigits) {
    struct Case {
        double value;
        std::string_view text;
    };
    const Case cases[] = {{0, "0"},
                          {-0.0, "0"},
                          {1e-60, "0"},
                          {-1e-60, "0"},
                          {2.5, "2.5"},
                          {-3, "-3"},
                          {1.0 / 3, "0.3333333"},
                          {0.1, "0.1"},
                          {1234567, "1234567"},
                          {12345678, "1.234568E+07"},
                          {0.0001, "0.0001"},
                          {0.00001, "1E-05"},
                          {3.4028234e38, "3.402823E+38"}};
    for (const Case& c : cases)
        EXPECT_EQ(SingleToText(c.value), c.text);
    EXPECT_EQ(SingleToText(1e39), "");
    EXPECT_EQ(SingleToText(-1e300), "");
    EXPECT_EQ(SingleToText(std::numeric_limits<double>::quiet_NaN()), "");
}

TEST(SingleToText, AgreesWithPrintfOnRandomSingles) {
    test::Random random(16);
    for (int round = 0; round < 200'000; ++round) {
        const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(random.Bits()));
        if (!std::isfinite(single) || single == 0)
            continue;
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.7G", static_cast<double>(single));
        ASSERT_EQ(SingleToText(static_cast<double>(single)), expected);
    }
}

TEST(SingleToText, RoundsToASingleBeforeItRoundsToDigits) {
    // As a double 0.30000005 lies above the middle of two texts, as a single below it:
    // 0.300000041723... is the nearest single.
    EXPECT_EQ(SingleToText(0.30000005), "0.3");
    EXPECT_EQ(SingleToText(16777217.0), "1.677722E+07");
}

} // namespace
} // namespace quarnel

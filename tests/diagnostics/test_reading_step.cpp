#include "diagnostics/ReadingStep.h"

#include "tests/CoreTestSupport.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

std::optional<double> StepOf(const std::vector<std::string_view>& texts,
                             std::string_view separator = ".") {
    return ReadingStep(texts, separator);
}

/// The step as its definition says it, over all pairs.
double StepOfAllPairs(const std::vector<double>& readings, double scale) {
    double smallest = 0;
    for (const double a : readings) {
        for (const double b : readings) {
            const double difference = std::round(a * scale) - std::round(b * scale);
            if (difference > 0 && (smallest == 0 || difference < smallest))
                smallest = difference;
        }
    }
    return smallest / scale;
}

} // namespace

TEST(ReadingStep, DecimalsAreThoseOfThePlainForm) {
    struct Case {
        std::string_view text;
        int decimals;
    };
    for (const auto& [text, decimals] : std::vector<Case>{{"59", 0},
                                                          {"59.", 0},
                                                          {"59.4", 1},
                                                          {"59.40", 2},
                                                          {" -59.400 ", 3},
                                                          {"+.5", 1},
                                                          {"59,41", 2},
                                                          {"59\xD9\xAB"
                                                           "41",
                                                           2},
                                                          {"1.25e-3", 5},
                                                          {"1.25E+1", 1},
                                                          {"1.25e1", 1},
                                                          {"1.25e2", 0},
                                                          {"1.5e3", 0},
                                                          {"1e-3", 3},
                                                          {"5e99", 0},
                                                          {"5e-99", 9},
                                                          {"5e-99999999999", 9},
                                                          {"5e99999999999", 0},
                                                          {"0.123456789", 9},
                                                          {"0.1234567891", 9}})
        EXPECT_EQ(DecimalsOf(text), decimals) << text;
}

TEST(ReadingStep, IsTheSmallestPositiveDifference) {
    EXPECT_EQ(StepOf({"5.0", "5.3", "5.8"}), 0.3);
    EXPECT_EQ(StepOf({"5.8", "5.0", "5.3"}), 0.3);
    EXPECT_EQ(StepOf({"0.663", "0.663", "0.656", "0.652", "0.649", "0.648"}), 0.001);
    EXPECT_EQ(StepOf({"10", "20", "40"}), 10.0);
    EXPECT_EQ(StepOf({"-0.5", "0.5"}), 1.0);
}

TEST(ReadingStep, TheMostDecimalsOfAnyTextCount) {
    EXPECT_EQ(StepOf({"1", "1.25", "1.5"}), 0.25);
    EXPECT_EQ(StepOf({"1", "1.2499999999", "1.2500000001"}), 0.25);
}

TEST(ReadingStep, ThereIsNoneOfEqualReadings) {
    EXPECT_EQ(StepOf({}), std::nullopt);
    EXPECT_EQ(StepOf({"5.1"}), std::nullopt);
    EXPECT_EQ(StepOf({"5.1", "5.10", "51e-1"}), std::nullopt);
}

TEST(ReadingStep, TextsThatAreNoNumbersArePassedOver) {
    EXPECT_EQ(StepOf({"5.1", "", "abc", "5.3"}), 0.2);
    EXPECT_EQ(StepOf({"5,1", "5.25"}), std::nullopt);
    EXPECT_EQ(StepOf({"5,1", "5.25"}, ","), 0.15);
}

TEST(ReadingStep, HugeReadingsGiveAFiniteStep) {
    EXPECT_EQ(StepOf({"1e308", "1e307", "0.123456789", "0.223456789"}), 0.1);
    EXPECT_EQ(StepOf({"1e300", "2e300"}), 1e300);
    EXPECT_EQ(StepOf({"-1.5e308", "1.5e308"}), std::nullopt);
}

TEST(ReadingStep, BothWaysOfSearchingGiveTheSame) {
    test::Random random(11);
    for (int round = 0; round < 200; ++round) {
        const int decimals = random.Between(0, 4);
        const double scale = std::pow(10.0, decimals);
        // Narrow ranges are marked off, wide ones sorted.
        const int range = random.OneIn(2) ? 60 : 100'000'000;
        std::vector<double> readings;
        for (int i = 0; i < 30; ++i)
            readings.push_back(random.Between(-range, range) / scale);
        EXPECT_EQ(ReadingStep(readings, decimals), StepOfAllPairs(readings, scale)) << round;
    }
}

} // namespace quarnel

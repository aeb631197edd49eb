#include "loggerfiles/Drift.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace quarnel::test {

namespace {

constexpr std::int64_t Second = 1'000'000;
constexpr std::int64_t Hour = 3600 * Second;

std::vector<std::int64_t> EverySeconds(std::size_t count, std::int64_t seconds) {
    std::vector<std::int64_t> times;
    for (std::size_t i = 0; i < count; ++i)
        times.push_back(static_cast<std::int64_t>(i) * seconds * Second);
    return times;
}

} // namespace

// Six readings in m, one of them wild; worked by hand: the median of the 15 slopes is 0.0002 m/s.
TEST(Drift, OneWildReadingDoesNotTurnTheSlope) {
    const std::vector<double> readings = {5.0, 5.002, 5.003, 5.05, 5.008, 5.01};
    const auto times = EverySeconds(6, 10);
    EXPECT_NEAR(*TheilSenMillionths(times, readings, Second) / 1e6, 0.00020000000000000017, 2e-13);
    EXPECT_NEAR(*TheilSenMillionths(times, readings, Hour) / 1e6, 0.7200000000000006, 7.2e-10);
    const double moved = *TheilSenMillionths(times, readings, 240 * Second);
    EXPECT_NEAR(moved / 1e6, 0.04800000000000004, 4.8e-11);
    EXPECT_TRUE(DriftMatters(moved, 0.6)); // 8 %
}

TEST(Drift, AtFivePercentIsStillLevelEnough) {
    // 0.001 m in 10 s, 0.03 m in 300 s.
    std::vector<double> readings;
    for (int i = 0; i < 10; ++i)
        readings.push_back((5000 + i) / 1000.0);
    const auto times = EverySeconds(10, 10);
    const double moved = *TheilSenMillionths(times, readings, 300 * Second);
    EXPECT_EQ(moved, 30000);
    EXPECT_FALSE(DriftMatters(moved, 0.600001));
    EXPECT_FALSE(DriftMatters(moved, 0.6));
    EXPECT_FALSE(DriftMatters(moved, -0.6));
    EXPECT_TRUE(DriftMatters(moved, 0.599999));
    EXPECT_TRUE(DriftMatters(-moved, 0.599999));
}

TEST(Drift, FallingLevelHasANegativeSlope) {
    const std::vector<double> readings = {5, 4.9, 4.8};
    EXPECT_EQ(TheilSenMillionths(EverySeconds(3, 1), readings, Second), -100000);
}

TEST(Drift, RowsOfOneTimeHaveNoSlope) {
    EXPECT_EQ(TheilSenMillionths({}, {}, Hour), std::nullopt);
    const std::vector<std::int64_t> one = {5};
    EXPECT_EQ(TheilSenMillionths(one, std::vector<double>{1}, Hour), std::nullopt);
    const std::vector<std::int64_t> same = {5, 5, 5};
    EXPECT_EQ(TheilSenMillionths(same, std::vector<double>{1, 2, 3}, Hour), std::nullopt);
}

TEST(Drift, PairsOfOneTimeArePassedOver) {
    const std::vector<std::int64_t> times = {0, Second, Second};
    EXPECT_EQ(TheilSenMillionths(times, std::vector<double>{1, 2, 4}, Second), 2000000);
}

TEST(Drift, OfMoreThan500RowsSoManyAreEvenlyTaken) {
    // Steeper and steeper, so that the slope tells which rows are taken.
    std::vector<double> readings;
    for (int i = 0; i < 1001; ++i)
        readings.push_back(i * i / 1e6);
    std::vector<std::int64_t> sampleTimes;
    std::vector<double> sample;
    for (std::size_t i = 0; i < MostTrendRows; ++i) {
        const std::size_t row = i * 1000 / 499;
        sampleTimes.push_back(static_cast<std::int64_t>(row) * Second);
        sample.push_back(readings[row]);
    }
    ASSERT_EQ(sampleTimes.back(), 1000 * Second);
    const auto slope = TheilSenMillionths(EverySeconds(1001, 1), readings, Second);
    EXPECT_EQ(slope, TheilSenMillionths(sampleTimes, sample, Second));
    EXPECT_NE(slope,
              TheilSenMillionths(EverySeconds(500, 1), std::span(readings).first(500), Second));
}

TEST(Drift, Of500RowsAllAreTaken) {
    std::vector<double> readings;
    for (int i = 0; i < 500; ++i)
        readings.push_back(i / 1000.0);
    EXPECT_EQ(TheilSenMillionths(EverySeconds(500, 1), readings, Second), 1000);
}

} // namespace quarnel::test

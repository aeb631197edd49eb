#include "loggerfiles/Barometer.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace quarnel::test {

namespace {

using Times = std::vector<std::int64_t>;
using Values = std::vector<double>;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(Barometer, IsLinearInTime) {
    const Times times = {0, 5, 10, 12, 20};
    EXPECT_EQ(PressureAt(times, Times{0, 10, 20}, Values{100, 101, 99}),
              (Values{100, 100.5, 101, 100.6, 99}));
}

TEST(Barometer, MustEncloseAllRows) {
    const Times times = {10, 20, 30};
    const Values two = {100, 101};
    EXPECT_TRUE(PressureAt(times, Times{10, 30}, two));
    EXPECT_TRUE(PressureAt(times, Times{0, 40}, two));
    EXPECT_FALSE(PressureAt(times, Times{11, 30}, two));
    EXPECT_FALSE(PressureAt(times, Times{10, 29}, two));
    EXPECT_FALSE(PressureAt(times, Times{40, 50}, two));
    EXPECT_FALSE(PressureAt(times, Times{0, 5}, two));
    EXPECT_FALSE(PressureAt(times, Times{}, Values{}));
    EXPECT_TRUE(PressureAt(Times{10}, Times{10}, Values{100}));
}

TEST(Barometer, ReadingsThatAreNoNumbersArePassedOver) {
    EXPECT_EQ(PressureAt(Times{5, 10}, Times{0, 5, 10}, Values{100, NaN, 102}), (Values{101, 102}));
    EXPECT_FALSE(PressureAt(Times{0}, Times{0, 5}, Values{NaN, 100}));
    EXPECT_FALSE(PressureAt(Times{5}, Times{0, 5}, Values{100, NaN}));
    EXPECT_FALSE(PressureAt(Times{5}, Times{0, 5}, Values{NaN, NaN}));
}

TEST(Barometer, OfSeveralReadingsAtOneTimeTheFirstCounts) {
    EXPECT_EQ(PressureAt(Times{5, 5, 6}, Times{0, 5, 5, 7}, Values{100, 101, 103, 105}),
              (Values{101, 101, 104}));
}

} // namespace quarnel::test

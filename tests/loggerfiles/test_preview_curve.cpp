// The curve of a record in pixel columns, and which row lies where.

#include "loggerfiles/PreviewCurve.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

const std::vector<std::int64_t> TenTimes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

TEST(PreviewCurve, AColumnReachesFromItsLeastToItsGreatestReading) {
    const std::vector<double> readings = {1, 9, -3, 2, 5, 4, 4, 4, 4, 7};
    const auto curve = CurveOf(TenTimes, readings, 0, 10, 2);
    ASSERT_EQ(curve.size(), 2U);
    EXPECT_EQ(curve[0].position, 0);
    EXPECT_EQ(curve[0].first, 1);
    EXPECT_EQ(curve[0].least, -3);
    EXPECT_EQ(curve[0].greatest, 9);
    EXPECT_EQ(curve[0].last, 5);
    EXPECT_EQ(curve[1].position, 1);
    EXPECT_EQ(curve[1].last, 7);
}

TEST(PreviewCurve, FewReadingsStandWhereTheirTimesAre) {
    const std::vector<double> readings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const auto curve = CurveOf(TenTimes, readings, 0, 9, 900);
    ASSERT_EQ(curve.size(), 10U);
    EXPECT_DOUBLE_EQ(curve[3].position, 300);
    EXPECT_EQ(curve[3].least, 3);
}

TEST(PreviewCurve, OneNeighbourOnEachSideLeadsToTheEdges) {
    const std::vector<double> readings = {50, 60, 1, 2, 3, 4, 70, 80, 90, 99};
    const auto curve = CurveOf(TenTimes, readings, 2, 5, 3);
    ASSERT_EQ(curve.size(), 6U);
    EXPECT_EQ(curve.front().first, 60);
    EXPECT_DOUBLE_EQ(curve.front().position, -1);
    EXPECT_EQ(curve[4].first, 4);
    EXPECT_EQ(curve.back().first, 70);
    EXPECT_EQ(curve.back().greatest, 70);
}

TEST(PreviewCurve, TimesThatFallGoBack) {
    const std::vector<std::int64_t> times = {0, 5, 2};
    const std::vector<double> readings = {1, 2, 3};
    const auto curve = CurveOf(times, readings, 0, 10, 10);
    ASSERT_EQ(curve.size(), 3U);
    EXPECT_DOUBLE_EQ(curve[2].position, 2);
}

TEST(PreviewCurve, NoMoreColumnsThanPixelsHoweverManyRows) {
    std::vector<std::int64_t> times(36000);
    std::vector<double> readings(times.size());
    for (std::size_t row = 0; row < times.size(); ++row) {
        times[row] = static_cast<std::int64_t>(row) * 100'000;
        readings[row] = row == 17'777 ? 8.5 : 1.0;
    }
    const auto curve = CurveOf(times, readings, 0, 3.6e9, 640);
    EXPECT_EQ(curve.size(), 640U);
    EXPECT_EQ(curve[316].greatest, 8.5);
}

TEST(NearestRow, IsTheFirstOfThoseThatAreNearest) {
    const std::vector<std::int64_t> times = {0, 10, 10, 20};
    EXPECT_EQ(NearestRow(times, -5), 0U);
    EXPECT_EQ(NearestRow(times, 4.9), 0U);
    EXPECT_EQ(NearestRow(times, 5.1), 1U);
    EXPECT_EQ(NearestRow(times, 10), 1U);
    EXPECT_EQ(NearestRow(times, 14), 1U);
    EXPECT_EQ(NearestRow(times, 16), 3U);
    EXPECT_EQ(NearestRow(times, 99), 3U);
}

} // namespace
} // namespace quarnel

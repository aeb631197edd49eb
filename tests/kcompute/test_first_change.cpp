#include "kcompute/FirstChange.h"

#include <gtest/gtest.h>
#include <limits>

namespace quarnel {

namespace {

RecoveryPoint Point(double timeSec, double yCm) {
    RecoveryPoint point;
    point.timeSec = timeSec;
    point.y = yCm;
    point.yCm = yCm;
    return point;
}

} // namespace

TEST(FirstChange, IsTheFirstValidPointInTime) {
    const RecoveryPointList points = {Point(5, 7), Point(2, 4), Point(3, 6)};
    EXPECT_EQ(FirstValidPoint(points), &points[1]);
}

TEST(FirstChange, OfEqualTimesTheFirstInTheListCounts) {
    const RecoveryPointList points = {Point(5, 7), Point(2, 4), Point(2, 6)};
    EXPECT_EQ(FirstValidPoint(points), &points[1]);
}

TEST(FirstChange, PointsWithoutALogarithmAreNone) {
    const RecoveryPointList points = {
        Point(0, 0), Point(1, -2), Point(2, std::numeric_limits<double>::infinity()), Point(3, 9)};
    EXPECT_EQ(FirstValidPoint(points), &points[3]);
    EXPECT_EQ(FirstValidPoint({Point(0, -1)}), nullptr);
    EXPECT_EQ(FirstValidPoint({}), nullptr);
}

} // namespace quarnel

#include "loggerfiles/StartOfTest.h"

#include "loggerfiles/Medians.h"
#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace quarnel::test {

namespace {

using Readings = std::vector<double>;

/// `before` readings that swing between `level` and `level` + `change`, then a jump by `jump` from
/// the last of them, then `after` readings that swing as the first did.
Readings Record(std::size_t before, double change, double jump, std::size_t after,
                double level = 5) {
    Readings readings;
    for (std::size_t i = 0; i < before; ++i)
        readings.push_back(i % 2 == 0 ? level : level + change);
    const double first = readings.back() + jump;
    for (std::size_t i = 0; i < after; ++i)
        readings.push_back(i % 2 == 0 ? first : first + change);
    return readings;
}

} // namespace

TEST(MedianOf, IsTheMiddleOneOrTheMeanOfTheMiddleTwo) {
    const std::vector<std::pair<std::vector<double>, double>> cases = {
        {{}, 0}, {{3}, 3}, {{3, 1}, 2}, {{9, 1, 2}, 2}, {{4, 1, 9, 2}, 3}, {{7, 7, 7, 7}, 7}};
    for (const auto& [given, expected] : cases) {
        std::vector<double> values = given;
        EXPECT_EQ(MedianOf(values), expected) << testing::PrintToString(given);
    }
}

TEST(JumpRow, IsTheRowBeforeTheGreatestChange) {
    EXPECT_EQ(JumpRow(Record(20, 0.001, -0.6, 30), 0.001), 19U);
    EXPECT_EQ(JumpRow(Record(20, 0.001, 0.6, 30), 0.001), 19U);
}

TEST(JumpRow, OfTwoEqualChangesTheFirstIsTaken) {
    // 0.1 and 0.3 are no doubles: as they stand, the second change would be the greater one.
    Readings readings(30, 0.1);
    for (std::size_t i = 10; i < 20; ++i)
        readings[i] = 0.3;
    for (std::size_t i = 20; i < 30; ++i)
        readings[i] = 0.5;
    EXPECT_EQ(JumpRow(readings, 0.2 / 10), 9U);
}

TEST(JumpRow, MustBeGreaterThanTenMedianChanges) {
    for (const auto& [jump, counts] :
         {std::pair(0.999999, false), std::pair(1.0, false), std::pair(1.000001, true)}) {
        const auto row = JumpRow(Record(20, 0.1, jump, 20), 0.000001);
        EXPECT_EQ(row.has_value(), counts) << jump;
    }
}

TEST(JumpRow, MedianOfAnEvenCountLiesBetweenTheMiddleTwo) {
    // Four changes of 0.1, one of 0.2 ... in all 20 changes, the middle two 0.1 and 0.2: 0.15.
    const auto record = [](double jump) {
        Readings readings{5};
        for (int i = 0; i < 10; ++i)
            readings.push_back(readings.back() + (i % 2 == 0 ? 0.1 : -0.1));
        readings.push_back(readings.back() + jump);
        for (int i = 0; i < 9; ++i)
            readings.push_back(readings.back() + (i % 2 == 0 ? 0.2 : -0.2));
        return readings;
    };
    EXPECT_EQ(JumpRow(record(1.5), 0.000001), std::nullopt);
    EXPECT_EQ(JumpRow(record(1.500001), 0.000001), 10U);
}

TEST(JumpRow, CountsAsTheMedianItselfWouldSay) {
    Random random(3);
    for (int round = 0; round < 3000; ++round) {
        Readings readings(2 + random.Below(9));
        for (double& reading : readings)
            reading = random.Between(0, random.OneIn(3) ? 60 : 3) / 10.0;
        std::vector<double> changes;
        for (std::size_t i = 1; i < readings.size(); ++i)
            changes.push_back(
                std::fabs(std::round(readings[i] * 10) - std::round(readings[i - 1] * 10)));
        const double greatest = *std::max_element(changes.begin(), changes.end());
        EXPECT_EQ(JumpRow(readings, 0).has_value(), greatest > 10 * MedianOf(changes))
            << testing::PrintToString(readings);
    }
}

TEST(JumpRow, MustBeGreaterThanFiveReadingSteps) {
    const Readings still(20, 5);
    for (const auto& [jump, counts] :
         {std::pair(0.049999, false), std::pair(0.05, false), std::pair(0.050001, true)}) {
        Readings readings = still;
        for (std::size_t i = 10; i < 20; ++i)
            readings[i] += jump;
        // Most readings are equal: the median change is 0.
        EXPECT_EQ(JumpRow(readings, 0.01).has_value(), counts) << jump;
    }
}

TEST(JumpRow, ReadingsThatAreAllEqualHaveNone) {
    EXPECT_EQ(JumpRow(Readings(20, 5), 0), std::nullopt);
}

TEST(JumpRow, TooFewReadingsHaveNone) {
    EXPECT_EQ(JumpRow({}, 0), std::nullopt);
    EXPECT_EQ(JumpRow(Readings{5}, 0), std::nullopt);
}

TEST(JumpRow, LastTenthOfMoreThanTenRowsDoesNotCount) {
    // Of 20 rows the test may begin in row 17 at the latest, of 11 in row 9.
    for (const auto& [count, lastStart] :
         {std::pair(20U, 17U), std::pair(11U, 9U), std::pair(30U, 26U)}) {
        for (std::size_t start = 1; start < count; ++start) {
            Readings readings(count, 5);
            for (std::size_t i = start; i < count; ++i)
                readings[i] = 4;
            const auto row = JumpRow(readings, 0.1);
            EXPECT_EQ(row.has_value(), start <= lastStart) << count << " rows, start " << start;
            if (row) {
                EXPECT_EQ(*row + 1, start);
            }
        }
    }
}

TEST(JumpRow, AnyOfTenRowsCounts) {
    Readings readings(10, 5);
    readings[9] = 4;
    EXPECT_EQ(JumpRow(readings, 0.1), 8U);
}

TEST(JumpRow, GreaterChangeInTheLastTenthLeavesTheOneBefore) {
    Readings readings(100, 5);
    for (std::size_t i = 30; i < 100; ++i)
        readings[i] = 4;
    readings[95] = 9; // the logger is pulled out
    EXPECT_EQ(JumpRow(readings, 0.1), 29U);
}

TEST(JumpRow, ReadingsBeyondAllMeasureEndInNothingWorse) {
    const Readings readings = {1e308, -1e308, 1e308, -1e308, 1e308, 5};
    EXPECT_EQ(JumpRow(readings, 1), std::nullopt);
}

TEST(StaticRows, AreAllBeforeTheStartFromFiveOn) {
    EXPECT_EQ(StaticRows(140, 20), (RowSpan{0, 20}));
    EXPECT_EQ(StaticRows(140, 5), (RowSpan{0, 5}));
}

TEST(StaticRows, AreTheLastTenthWhereFewerStandBefore) {
    EXPECT_EQ(StaticRows(140, 4), (RowSpan{126, 140}));
    EXPECT_EQ(StaticRows(149, 4), (RowSpan{135, 149})); // 14.9 rows are 14
    EXPECT_EQ(StaticRows(140, 0), (RowSpan{126, 140}));
    EXPECT_EQ(StaticRows(59, 0), (RowSpan{54, 59})); // 5 at least
    EXPECT_EQ(StaticRows(3, 1), (RowSpan{0, 3}));
}

TEST(StaticLevel, IsTheMedianOfItsRows) {
    const Readings readings = {5.001, 4.999, 5, 9, 5.002, 1};
    EXPECT_EQ(StaticLevel(readings, {0, 5}), 5.001);
    EXPECT_EQ(StaticLevel(readings, {0, 2}), 5.0);
    EXPECT_EQ(StaticLevel(readings, {2, 3}), 5.0);
    EXPECT_EQ(StaticLevel(readings, {3, 3}), std::nullopt);
    EXPECT_EQ(StaticLevel(readings, {3, 7}), std::nullopt);
}

TEST(StaticLevel, BetweenTwoReadingsIsRoundedHalfAwayFromZero) {
    EXPECT_EQ(StaticLevel(Readings{5.000001, 5.000002}, {0, 2}), 5.000002);
    EXPECT_EQ(StaticLevel(Readings{-5.000001, -5.000002}, {0, 2}), -5.000002);
}

TEST(SurgeRows, CountsReadingsThatStillMoveAway) {
    const Readings away = {5, 4.9, 4.8, 4.7, 4.6, 4.5, 4.4, 4.5};
    EXPECT_EQ(SurgeRows(away, 6, 5), 0U);
    EXPECT_EQ(SurgeRows(away, 5, 5), 1U);
    EXPECT_EQ(SurgeRows(away, 1, 5), 5U);
    EXPECT_EQ(SurgeRows(away, 0, 5), 5U); // six would be, five is the most
}

TEST(SurgeRows, LevelThatStaysOrTheEndOfTheRecordEndsIt) {
    EXPECT_EQ(SurgeRows(Readings{4.9, 4.9, 4.8}, 0, 5), 0U);
    EXPECT_EQ(SurgeRows(Readings{4.9, 4.8}, 0, 5), 1U);
    EXPECT_EQ(SurgeRows(Readings{4.9, 5.2, 4.7}, 0, 5), 2U); // on either side of the level
    // 5.2 and 4.8 are no doubles: as they stand, the second would be the farther one.
    EXPECT_EQ(SurgeRows(Readings{5.2, 4.8}, 0, 5), 0U);
    EXPECT_EQ(SurgeRows(Readings{4.8, 5.2}, 0, 5), 0U);
}

TEST(SlugTestTypeOf, FollowsTheFirstReadingAndTheDataType) {
    EXPECT_EQ(SlugTestTypeOf(GroundwaterHead, 4, 5), RisingHead);
    EXPECT_EQ(SlugTestTypeOf(GroundwaterHead, 6, 5), FallingHead);
    EXPECT_EQ(SlugTestTypeOf(DepthToGroundwater, 6, 5), RisingHead);
    EXPECT_EQ(SlugTestTypeOf(DepthToGroundwater, 4, 5), FallingHead);
    EXPECT_EQ(SlugTestTypeOf(ChangeInHead, 4, 0), SlugTestTypeNotApplicable);
    EXPECT_EQ(SlugTestTypeOf(GroundwaterHead, 5, 5), std::nullopt);
    EXPECT_EQ(SlugTestTypeOf(DepthToGroundwater, 5, 5), std::nullopt);
}

} // namespace quarnel::test

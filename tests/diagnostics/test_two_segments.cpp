#include "diagnostics/TwoSegments.h"

#include "tests/CoreTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::NumberAt;

std::vector<double> LogsOf(const std::vector<double>& values) {
    std::vector<double> logs;
    for (const double value : values)
        logs.push_back(std::log(value));
    return logs;
}

/// Splits by fitting both sides of each, as the definition says it.
std::size_t SplitByTrying(const Series& series) {
    std::size_t best = 0;
    double least = 0;
    for (std::size_t k = 3; k + 3 <= series.Size(); ++k) {
        const auto early = LineThrough(series.Part(0, k));
        const auto late = LineThrough(series.Part(k, series.Size() - k));
        if (early && late && (best == 0 || early->sse + late->sse < least)) {
            best = k;
            least = early->sse + late->sse;
        }
    }
    return best;
}

} // namespace

TEST(TwoSegments, AreTheWorkedOnes) {
    for (const std::string id : {"segments_made_yes", "segments_made_ratio_too_small"}) {
        SCOPED_TRACE(id);
        const test::WorkedCase worked = test::ReadWorkedCase(id);
        const std::vector<double> times = test::NumbersOf(worked.input.get_child("time_sec"));
        const std::vector<double> levels = LogsOf(test::NumbersOf(worked.input.get_child("y_cm")));
        const auto segments = FindTwoSegments({times, levels});
        ASSERT_TRUE(segments);
        const test::Json& expected = worked.expected;
        EXPECT_EQ(static_cast<double>(segments->splitAfter),
                  NumberAt(expected, "split_after_point"));
        EXPECT_EQ(segments->suggested, expected.get<bool>("suggested"));
        for (const auto& [key, value] :
             {std::pair("sse_one", segments->sseOne), std::pair("sse_two", segments->sseTwo),
              std::pair("slope_early_per_sec", segments->early.slope),
              std::pair("slope_late_per_sec", segments->late.slope),
              std::pair("intercept_early", segments->early.intercept),
              std::pair("intercept_late", segments->late.intercept),
              std::pair("slope_ratio", segments->slopeRatio.value()),
              std::pair("sse_ratio", segments->sseTwo / segments->sseOne)})
            ExpectWorked(value, NumberAt(expected, key).value(), key);
        EXPECT_EQ(segments->lastTimeEarlySec, times[8]);
        EXPECT_EQ(segments->firstTimeLateSec, times[9]);
    }
}

TEST(TwoSegments, StandOutByTheRule) {
    const test::WorkedCase worked = test::ReadWorkedCase("segments_decision");
    const std::vector<test::Json> rows = test::ItemsOf(worked.input.get_child("rows"));
    const std::vector<test::Json> expected = test::ItemsOf(worked.expected);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::vector<double> row = test::NumbersOf(rows[i]);
        EXPECT_EQ(SegmentsStandOut(row[0], row[1], row[2], row[3]), expected[i].get_value<bool>())
            << i;
    }
}

TEST(TwoSegments, NeedThreePointsAndTwoTimesOnEachSide) {
    const std::vector<double> levels = {5, 3, 1, 0.9, 0.8, 0.7};
    const std::vector<double> times = {0, 1, 2, 3, 4, 5};
    EXPECT_FALSE(FindTwoSegments({std::span(times).first(5), std::span(levels).first(5)}));
    ASSERT_TRUE(FindTwoSegments({times, levels}));
    EXPECT_EQ(FindTwoSegments({times, levels})->splitAfter, 3U);
    const std::vector<double> earlyAtOnce = {0, 0, 0, 3, 4, 5};
    EXPECT_FALSE(FindTwoSegments({earlyAtOnce, levels}));
    const std::vector<double> lateAtOnce = {0, 1, 2, 5, 5, 5};
    EXPECT_FALSE(FindTwoSegments({lateAtOnce, levels}));
    const std::vector<double> allAtOnce = {1, 1, 1, 1, 1, 1};
    EXPECT_FALSE(FindTwoSegments({allAtOnce, levels}));
}

TEST(TwoSegments, TheFirstOfEqualSplitsWins) {
    // Exact on both sides of the corner at 3, where the corner itself lies on both lines.
    const std::vector<double> times = {0, 1, 2, 3, 4, 5, 6};
    const std::vector<double> levels = {9, 6, 3, 0, -1, -2, -3};
    const auto segments = FindTwoSegments({times, levels});
    ASSERT_TRUE(segments);
    EXPECT_EQ(segments->splitAfter, 3U);
    EXPECT_EQ(segments->sseTwo, 0);
    EXPECT_TRUE(segments->suggested);
}

TEST(TwoSegments, AnExactLineIsNotSplit) {
    const std::vector<double> times = {0, 1, 2, 3, 4, 5, 6};
    const std::vector<double> levels = {7, 6, 5, 4, 3, 2, 1};
    const auto segments = FindTwoSegments({times, levels});
    ASSERT_TRUE(segments);
    EXPECT_EQ(segments->sseOne, 0);
    EXPECT_FALSE(segments->suggested);
}

TEST(TwoSegments, ALevelEndHasNoRatio) {
    const std::vector<double> times = {0, 1, 2, 3, 4, 5, 6};
    const std::vector<double> levels = {9, 6, 3, 1, 1, 1, 1};
    const auto segments = FindTwoSegments({times, levels});
    ASSERT_TRUE(segments);
    EXPECT_FALSE(segments->slopeRatio);
    EXPECT_FALSE(segments->suggested);
}

TEST(TwoSegments, SumsFindWhatTryingFinds) {
    test::Random random(4);
    for (int round = 0; round < 300; ++round) {
        std::vector<double> times;
        std::vector<double> levels;
        const int count = random.Between(6, 40);
        double time = random.OneIn(2) ? 0 : 1e6;
        for (int i = 0; i < count; ++i) {
            time += random.Between(0, 3);
            times.push_back(time);
            levels.push_back(random.Between(-1000, 1000) / 300.0);
        }
        const Series series{times, levels};
        const auto segments = FindTwoSegments(series);
        EXPECT_EQ(segments ? segments->splitAfter : 0, SplitByTrying(series)) << round;
    }
}

} // namespace quarnel

#include "diagnostics/FitStatistics.h"

#include "tests/diagnostics/WorkedCases.h"

#include <boost/math/distributions/students_t.hpp>
#include <numeric>

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::NumberAt;

/// A series that owns its numbers, put into order of time.
struct OwnedSeries {
    std::vector<double> timeSec;
    std::vector<double> lnYCm;
    std::vector<std::size_t> order;

    OwnedSeries(const std::vector<double>& times, const std::vector<double>& yCm) {
        order.resize(times.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return times[a] < times[b]; });
        for (const std::size_t i : order) {
            timeSec.push_back(times[i]);
            lnYCm.push_back(std::log(yCm[i]));
        }
    }
    Series View() const { return {timeSec, lnYCm}; }
};

FitStatistics StatisticsOf(const Series& series) {
    const std::optional<SeriesLine> line = LineThrough(series);
    EXPECT_TRUE(line);
    return ComputeFitStatistics(series, line->slope, line->intercept);
}

FitStatistics StatisticsOf(const std::vector<double>& times, const std::vector<double>& yCm) {
    return StatisticsOf(OwnedSeries(times, yCm).View());
}

/// Halving every 10 s with a residual of `part` up and down in turn.
FitStatistics Wavering(int count, double part) {
    std::vector<double> times;
    std::vector<double> y;
    for (int i = 0; i < count; ++i) {
        times.push_back(10.0 * i);
        y.push_back(100 * std::pow(0.5, i) * std::exp(i % 2 == 0 ? part : -part));
    }
    return StatisticsOf(times, y);
}

void ExpectStatistics(const FitStatistics& statistics, const test::Json& expected) {
    EXPECT_EQ(static_cast<double>(statistics.usedCount), NumberAt(expected, "used_count"));
    ASSERT_TRUE(statistics.scatter);
    const FitScatter& scatter = *statistics.scatter;
    const auto expect = [&](const char* key, std::optional<double> actual) {
        SCOPED_TRACE(key);
        ASSERT_EQ(actual.has_value(), test::Has(expected, key));
        if (actual)
            ExpectWorked(*actual, *NumberAt(expected, key), key);
    };
    expect("slope_per_sec", statistics.slope);
    expect("intercept_ln_cm", statistics.intercept);
    expect("mean_time_sec", statistics.meanTimeSec);
    expect("sxx_sec2", statistics.sxx);
    expect("sse", scatter.sse);
    expect("r_squared", statistics.rSquared);
    expect("df", scatter.df);
    expect("residual_sd", scatter.residualSd);
    expect("slope_se_per_sec", scatter.slopeSe);
    expect("intercept_se", scatter.interceptSe);
    expect("t_quantile", scatter.tQuantile);
    expect("interval_half_width_fraction", scatter.halfWidth);
    const bool alike = statistics.autocorrelation.has_value();
    const FitAutocorrelation values = statistics.autocorrelation.value_or(FitAutocorrelation());
    const auto expectAlike = [&](const char* key, std::optional<double> actual) {
        expect(key, alike ? actual : std::nullopt);
    };
    expectAlike("lag1_autocorrelation", values.lag1);
    expectAlike("durbin_watson", values.durbinWatson);
    expectAlike("effective_count", values.effectiveCount);
    expectAlike("adjusted_slope_se_per_sec", values.adjustedSlopeSe);
    expectAlike("adjusted_df", values.adjustedDf);
    expectAlike("adjusted_t_quantile", values.adjustedTQuantile);
    expectAlike("adjusted_half_width_fraction", values.adjustedHalfWidth);
}

} // namespace

TEST(FitStatistics, StudentsTIsTheWorkedOne) {
    const test::WorkedCase worked = test::ReadWorkedCase("student_t_quantile_0975");
    const std::vector<double> df = test::NumbersOf(worked.input.get_child("df"));
    const std::vector<double> expected = test::NumbersOf(worked.expected);
    ASSERT_EQ(df.size(), expected.size());
    for (std::size_t i = 0; i < df.size(); ++i)
        ExpectWorked(TQuantile975(df[i]), expected[i], std::to_string(df[i]), worked.tolerance);
}

TEST(FitStatistics, StudentsTStaysTheSameHoweverOftenItIsAsked) {
    for (const double df : {1.0, 1.5, 2.0, 59.0, 255.0, 256.0, 59.000001, 1e6}) {
        const double exact = boost::math::quantile(boost::math::students_t(df), 0.975);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(TQuantile975(df), exact) << df;
    }
}

TEST(FitStatistics, AreTheWorkedOnes) {
    for (const std::string id : {"statistics_small_series", "statistics_unsorted_with_tie"}) {
        SCOPED_TRACE(id);
        const test::WorkedCase worked = test::ReadWorkedCase(id);
        const OwnedSeries series(test::NumbersOf(worked.input.get_child("time_sec")),
                                 test::NumbersOf(worked.input.get_child("y_cm")));
        const FitStatistics statistics = StatisticsOf(series.View());
        ExpectStatistics(statistics, worked.expected);
        const std::vector<double> residuals = test::NumbersOf(worked.expected.get_child(
            test::Has(worked.expected, "residuals") ? "residuals" : "residuals_in_that_order"));
        ASSERT_EQ(statistics.residuals.size(), residuals.size());
        for (std::size_t i = 0; i < residuals.size(); ++i)
            EXPECT_NEAR(statistics.residuals[i], residuals[i], 1e-9 * 0.03) << i;
    }
}

TEST(FitStatistics, TwoPointsHaveNone) {
    const FitStatistics statistics = StatisticsOf({0, 10}, {100, 50});
    EXPECT_EQ(statistics.usedCount, 2U);
    EXPECT_FALSE(statistics.rSquared);
    EXPECT_FALSE(statistics.scatter);
    EXPECT_FALSE(statistics.autocorrelation);
    EXPECT_TRUE(statistics.residuals.empty());
}

TEST(FitStatistics, ThreePointsScatterAndSixAreCompared) {
    const FitStatistics three = Wavering(3, 0.01);
    ASSERT_TRUE(three.scatter);
    EXPECT_EQ(three.scatter->df, 1);
    EXPECT_TRUE(three.rSquared);
    EXPECT_TRUE(three.scatter->halfWidth);
    EXPECT_FALSE(three.autocorrelation);
    EXPECT_FALSE(Wavering(5, 0.01).autocorrelation);
    ASSERT_TRUE(Wavering(6, 0.01).autocorrelation);
    EXPECT_LT(Wavering(6, 0.01).autocorrelation->lag1, 0);
    EXPECT_EQ(Wavering(6, 0.01).autocorrelation->effectiveCount, 6);
}

TEST(FitStatistics, AnExactLineHasAnIntervalWithoutWidth) {
    for (const int count : {3, 6, 20}) {
        const FitStatistics statistics = Wavering(count, 0);
        ASSERT_TRUE(statistics.scatter) << count;
        EXPECT_EQ(statistics.scatter->sse, 0) << count;
        EXPECT_EQ(statistics.scatter->halfWidth, 0.0) << count;
        EXPECT_EQ(statistics.rSquared, 1.0) << count;
        EXPECT_FALSE(statistics.autocorrelation) << count;
    }
}

TEST(FitStatistics, ScatterOfAMillionthIsNotTakenForRounding) {
    const FitStatistics statistics = Wavering(6, 1e-6);
    EXPECT_GT(statistics.scatter->sse, 0);
    EXPECT_LT(*statistics.rSquared, 1);
    EXPECT_TRUE(statistics.autocorrelation);
}

TEST(FitStatistics, FlatAndRisingLinesHaveNoIntervalOfK) {
    const FitStatistics flat = StatisticsOf({0, 10, 20, 30, 40, 50}, {5, 5, 5, 5, 5, 5});
    EXPECT_EQ(flat.slope, 0);
    EXPECT_FALSE(flat.rSquared);
    ASSERT_TRUE(flat.scatter);
    EXPECT_EQ(flat.scatter->sse, 0);
    EXPECT_FALSE(flat.scatter->halfWidth);
    const FitStatistics rising = StatisticsOf({0, 10, 20, 30, 40, 50}, {5, 6, 6, 8, 9, 9});
    EXPECT_GT(rising.slope, 0);
    EXPECT_TRUE(rising.rSquared);
    EXPECT_FALSE(rising.scatter->halfWidth);
    ASSERT_TRUE(rising.autocorrelation);
    EXPECT_FALSE(rising.autocorrelation->adjustedHalfWidth);
}

TEST(FitStatistics, ALongSwingLeavesAFewEffectivePoints) {
    std::vector<double> times;
    std::vector<double> y;
    for (int i = 0; i < 2000; ++i) {
        times.push_back(i);
        y.push_back(100 * std::exp(-0.001 * i + 0.1 * std::sin(i / 300.0)));
    }
    const FitStatistics statistics = StatisticsOf(times, y);
    ASSERT_TRUE(statistics.autocorrelation);
    EXPECT_GT(statistics.autocorrelation->lag1, 0.99);
    ExpectWorked(statistics.autocorrelation->effectiveCount, 2000 * 0.01 / 1.99, "neff");
    // With fewer than three effective points one degree of freedom is left.
    const FitStatistics few =
        StatisticsOf({times.begin(), times.begin() + 300}, {y.begin(), y.begin() + 300});
    EXPECT_LT(few.autocorrelation->effectiveCount, 3);
    EXPECT_EQ(few.autocorrelation->adjustedDf, 1);
}

TEST(FitStatistics, RepeatedPointsNarrowTheInterval) {
    const std::vector<double> times = {0, 10, 20, 30, 40, 50, 60, 70};
    const std::vector<double> y = {100, 82, 66, 55, 44.5, 37, 29.8, 24.9};
    std::vector<double> manyTimes;
    std::vector<double> manyY;
    double last = StatisticsOf(times, y).scatter->halfWidth.value();
    for (int copies = 1; copies <= 5; ++copies) {
        manyTimes.insert(manyTimes.end(), times.begin(), times.end());
        manyY.insert(manyY.end(), y.begin(), y.end());
        const FitScatter scatter = StatisticsOf(manyTimes, manyY).scatter.value();
        const FitScatter once = StatisticsOf(times, y).scatter.value();
        // c copies: SSE and Sxx grow by c, the degrees of freedom to 8 c - 2.
        const double expected = once.slopeSe * std::sqrt(6.0 / (8 * copies - 2));
        EXPECT_NEAR(scatter.slopeSe, expected, 1e-12 * expected) << copies;
        EXPECT_LE(*scatter.halfWidth, last) << copies;
        last = *scatter.halfWidth;
    }
}

TEST(FitStatistics, SingleTimesHaveNoLine) {
    const std::vector<double> times = {5, 5, 5};
    const std::vector<double> levels = {1, 2, 3};
    EXPECT_FALSE(LineThrough({times, levels}));
    EXPECT_FALSE(LineThrough(Series{times, levels}.Part(0, 1)));
    EXPECT_FALSE(LineThrough({}));
    EXPECT_FALSE(ComputeFitStatistics({times, levels}, -1, 0).scatter);
}

TEST(FitStatistics, NothingThatIsNotFiniteComesBack) {
    const std::vector<double> times = {0, 1e200, 2e200};
    const std::vector<double> levels = {3, 2, 1};
    EXPECT_FALSE(LineThrough({times, levels}));
    EXPECT_FALSE(ComputeFitStatistics({times, levels}, -1e-200, 3).scatter);
}

} // namespace quarnel

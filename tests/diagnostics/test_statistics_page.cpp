#include "diagnostics/Hvorslev.h"
#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::MetresPerDay;
using test::NumberAt;

/// Pratt County with the readings of the window 1.00-0.30 marked Use.
ProjectState PrattEarly() {
    ProjectState state = test::PrattProjectAll();
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    const std::vector<std::size_t> early = PointsInHeadWindow(diagnostics.Points(), HeadWindows[0]);
    const std::set<std::size_t> used(early.begin(), early.end());
    const RecoveryPointList& points = *diagnostics.Source().recovery.RecoveryPoints;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (used.count(i) == 0)
            state.IgnoreKeyList.push_back(IgnoreKey(points[i]));
    return state;
}

void ExpectPage(const StatisticsPage& page, const test::Json& expected) {
    ASSERT_TRUE(page.fit.scatter);
    ASSERT_TRUE(page.interval);
    const FitScatter& scatter = *page.fit.scatter;
    std::vector<std::pair<std::string, double>> values = {
        {"used_count", static_cast<double>(page.fit.usedCount)},
        {"slope_per_sec", page.fit.slope},
        {"intercept_ln_cm", page.fit.intercept},
        {"mean_time_sec", page.fit.meanTimeSec},
        {"sxx_sec2", page.fit.sxx},
        {"sse", scatter.sse},
        {"r_squared", page.fit.rSquared.value()},
        {"df", scatter.df},
        {"residual_sd", scatter.residualSd},
        {"slope_se_per_sec", scatter.slopeSe},
        {"intercept_se", scatter.interceptSe},
        {"t_quantile", scatter.tQuantile},
        {"interval_half_width_fraction", scatter.halfWidth.value()},
        {"k_m_per_day", MetresPerDay(page.kCmPerSec)},
        {"interval_low_m_per_day", MetresPerDay(page.interval->low)},
        {"interval_high_m_per_day", MetresPerDay(page.interval->high)}};
    ASSERT_EQ(page.fit.autocorrelation.has_value(), test::Has(expected, "durbin_watson"));
    if (const std::optional<FitAutocorrelation>& alike = page.fit.autocorrelation) {
        ASSERT_TRUE(page.adjustedInterval);
        values.insert(values.end(),
                      {{"lag1_autocorrelation", alike->lag1},
                       {"durbin_watson", alike->durbinWatson},
                       {"effective_count", alike->effectiveCount},
                       {"adjusted_slope_se_per_sec", alike->adjustedSlopeSe},
                       {"adjusted_df", alike->adjustedDf},
                       {"adjusted_t_quantile", alike->adjustedTQuantile},
                       {"adjusted_half_width_fraction", alike->adjustedHalfWidth.value()},
                       {"adjusted_low_m_per_day", MetresPerDay(page.adjustedInterval->low)},
                       {"adjusted_high_m_per_day", MetresPerDay(page.adjustedInterval->high)}});
    }
    for (const auto& [key, value] : values)
        ExpectWorked(value, NumberAt(expected, key).value(), key);
}

} // namespace

TEST(StatisticsPage, IsTheWorkedOneOfPratt) {
    for (const auto& [id, state] : {std::pair("statistics_pratt_marked", test::PrattProject()),
                                    std::pair("statistics_pratt_all", test::PrattProjectAll()),
                                    std::pair("statistics_pratt_100_030", PrattEarly())}) {
        SCOPED_TRACE(id);
        Diagnostics diagnostics = test::DiagnosticsOf(state);
        ExpectPage(diagnostics.Statistics(), test::ReadWorkedCase(id).expected);
    }
}

TEST(StatisticsPage, HvorslevIsTheWorkedOne) {
    const test::WorkedCase worked = test::ReadWorkedCase("hvorslev_pratt");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const std::optional<HvorslevComparison>& hvorslev = diagnostics.Statistics().hvorslev;
    ASSERT_TRUE(hvorslev);
    ExpectWorked(MetresPerDay(hvorslev->kCmPerSec), *NumberAt(worked.expected, "k_m_per_day"), "K");
    ExpectWorked(hvorslev->ratio.value(), *NumberAt(worked.expected, "ratio_to_bouwer_rice"),
                 "ratio");
    // The key holds points, which a path would take for separators.
    const auto window = worked.expected.find("k_0.25_0.15_m_per_day");
    ASSERT_NE(window, worked.expected.not_found());
    ExpectWorked(MetresPerDay(hvorslev->window025To015CmPerSec.value()),
                 test::NumberOf(window->second).value(), "0.25-0.15");
    EXPECT_FALSE(hvorslev->touchingKCmPerSec);
    const WellDimensions& well = diagnostics.Source().geometry;
    ExpectWorked(well.Le.cm / well.dw.radiusCm, *NumberAt(worked.expected, "le_over_rw"), "Le/rw");
    ExpectWorked(-1 / diagnostics.Source().line.slope,
                 *NumberAt(worked.expected, "basic_time_lag_sec"), "time lag");
    ExpectWorked(MetresPerDay(HvorslevTouchingK(well.reCm, well.Le.cm, well.dw.radiusCm,
                                                diagnostics.Source().line.slope)
                                  .value()),
                 *NumberAt(worked.expected, "touching_formula_m_per_day"), "touching");
}

TEST(StatisticsPage, HvorslevsTouchingLineNeedsTheImperviousBottom) {
    // 0.0999 mm lies within the 0.001 cm of full penetration, 0.0101 mm above it.
    struct Case {
        double H;
        bool touches;
    };
    for (const auto& [H, touches] :
         std::vector<Case>{{20.11, true}, {20.110009, true}, {20.110011, false}, {20.2, false}}) {
        ProjectState state = test::PrattProject();
        test::SetWell(state, {H, 20.11, 1.52, 0.25, 0.128});
        Diagnostics diagnostics = test::DiagnosticsOf(state);
        EXPECT_EQ(diagnostics.Statistics().hvorslev->touchingKCmPerSec.has_value(), touches) << H;
    }
}

TEST(StatisticsPage, RisingAndFlatLinesHaveNeitherIntervalNorHvorslev) {
    for (const std::vector<double>& levels :
         {std::vector<double>{5, 6, 7, 8, 9, 9.5, 9.8}, std::vector<double>(7, 5.0)}) {
        Diagnostics diagnostics =
            test::DiagnosticsOf(test::ProjectOf({0, 10, 20, 30, 40, 50, 60}, levels));
        const StatisticsPage& page = diagnostics.Statistics();
        EXPECT_FALSE(page.interval);
        EXPECT_FALSE(page.adjustedInterval);
        EXPECT_FALSE(page.hvorslev);
        EXPECT_TRUE(page.fit.scatter);
    }
}

TEST(StatisticsPage, ANegativeKFromAFallingLineHasNoInterval) {
    // A well wider than it is deep: ln(Re/rw) is below 0.
    ProjectState state =
        test::ProjectOf({0, 10, 20, 30}, {100, 80, 66, 50}, Centimetre, {20, 0.9, 0.5, 2, 0.1});
    const ComputationPtr computation = test::ComputationOf(state);
    ASSERT_TRUE(computation);
    ASSERT_LT(computation->KInCmPerSec, 0);
    ASSERT_LT(computation->line.slope, 0);
    Diagnostics diagnostics(computation, state);
    EXPECT_FALSE(diagnostics.Statistics().interval);
    EXPECT_TRUE(diagnostics.Statistics().hvorslev);
}

TEST(StatisticsPage, TheSlugsVolumeIsANumberAboveZero) {
    struct Case {
        std::string text;
        std::string separator;
        bool isVolume;
    };
    for (const auto& [text, separator, isVolume] : std::vector<Case>{{"", ".", false},
                                                                     {"0", ".", false},
                                                                     {"-1", ".", false},
                                                                     {"abc", ".", false},
                                                                     {"5 litres", ".", false},
                                                                     {"1,5", ".", false},
                                                                     {"1,5", ",", true},
                                                                     {" 1.5 ", ",", true},
                                                                     {"5", ".", true}}) {
        ProjectState state = test::PrattProject();
        state.VolumeOfSlugText = text;
        state.DecimalSeparator = separator;
        Diagnostics diagnostics = test::DiagnosticsOf(state);
        EXPECT_EQ(diagnostics.Statistics().slugVolume.has_value(), isVolume) << text << separator;
    }
}

TEST(StatisticsPage, KScalesWithTheCasingsAreaWithoutAPack) {
    const double k = test::ComputationOf(test::PrattProject())->KInCmPerSec;
    for (const double factor : {0.5, 0.9, 1.5}) {
        ProjectState state = test::PrattProject();
        state.WellGeoText[GeoDc] = test::Typed(0.128 * factor);
        Diagnostics diagnostics = test::DiagnosticsOf(state);
        const double expected = k * factor * factor;
        EXPECT_NEAR(diagnostics.Statistics().kCmPerSec, expected, 1e-12 * expected) << factor;
    }
}

TEST(StatisticsPage, EveryTypeOfReadingGivesTheSame) {
    const StatisticsPage asChange = test::DiagnosticsOf(test::PrattProject()).Statistics();
    for (const int dataType : {DepthToGroundwater, GroundwaterHead}) {
        ProjectState state = test::PrattProject();
        state.RecDatDataTypeDDL = dataType;
        state.RecDatSlugTestTypeDDL = dataType == DepthToGroundwater ? RisingHead : FallingHead;
        state.RecDatPreSlugHeadText = "8";
        state.IgnoreKeyList.clear();
        for (RecoveryRow& row : state.RecDatGrid) {
            if (row.level.empty())
                continue;
            const double level = 8000 + 1000 * *ParseNumber(row.level.View());
            row.level = CellText(test::Typed(std::round(level) / 1000));
            if (row.time != "79.5" && row.time != "89.2" && row.time != "100.1")
                state.IgnoreKeyList.push_back(row.time.ToString() + row.level.ToString());
        }
        const StatisticsPage page = test::DiagnosticsOf(state).Statistics();
        EXPECT_EQ(page.fit.usedCount, 3U);
        EXPECT_NEAR(page.kCmPerSec, asChange.kCmPerSec, 1e-9 * asChange.kCmPerSec);
        EXPECT_NEAR(page.readingStepCm.value(), 0.1, 1e-15);
    }
}

TEST(StatisticsPage, PagesAreMadeOnceAndKept) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const StatisticsPage* page = &diagnostics.Statistics();
    const double* residual = page->fit.residuals.data();
    diagnostics.Checks();
    diagnostics.SensitivityTo(20);
    EXPECT_EQ(&diagnostics.Statistics(), page);
    EXPECT_EQ(diagnostics.Statistics().fit.residuals.data(), residual);
    EXPECT_EQ(diagnostics.SensitivityTo(20).percent, 20);
    EXPECT_EQ(diagnostics.SensitivityTo(5).percent, 5);
}

} // namespace quarnel

#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

using test::ExpectWorked;
using test::MetresPerDay;
using test::NumberAt;

std::optional<double> InMetresPerDay(std::optional<double> k) {
    return k ? std::optional<double>(MetresPerDay(*k)) : std::nullopt;
}

} // namespace

TEST(HeadWindows, AreTheWorkedOnes) {
    const test::WorkedCase worked = test::ReadWorkedCase("windows_pratt");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProject());
    const std::vector<HeadWindowRow>& rows = diagnostics.Windows().rows;
    EXPECT_EQ(diagnostics.Points().FirstY(), NumberAt(worked.expected, "h0_m"));
    const std::vector<test::Json> expected = test::ItemsOf(worked.expected.get_child("rows"));
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(rows[i].name);
        EXPECT_EQ(rows[i].name, expected[i].get<std::string>("window"));
        EXPECT_EQ(static_cast<double>(rows[i].pointCount), NumberAt(expected[i], "point_count"));
        ExpectWorked(InMetresPerDay(rows[i].kCmPerSec), expected[i].get_child("k_m_per_day"), "K");
        ExpectWorked(rows[i].rSquared, expected[i].get_child("r_squared"), "R2");
        ExpectWorked(rows[i].changePercent, expected[i].get_child("change_percent"), "change");
    }
    ExpectWorked(*rows[Row100To030].kCmPerSec / *rows[Row030To020].kCmPerSec,
                 *NumberAt(worked.expected, "curvature_ratio"), "curvature");
}

TEST(HeadWindows, AReadingTypedOnAnEndCounts) {
    const test::WorkedCase worked = test::ReadWorkedCase("windows_edges");
    Diagnostics diagnostics =
        test::DiagnosticsOf(test::ProjectOf(test::NumbersOf(worked.input.get_child("time_sec")),
                                            test::NumbersOf(worked.input.get_child("y_m")), Metre));
    EXPECT_EQ(diagnostics.Points().FirstY(), NumberAt(worked.expected, "h0_m"));
    for (const HeadWindow& window : HeadWindows) {
        std::vector<double> numbers;
        for (const std::size_t point : PointsInHeadWindow(diagnostics.Points(), window))
            numbers.push_back(static_cast<double>(point) + 1);
        std::vector<double> expected;
        for (const auto& [name, members] : worked.expected.get_child("members"))
            if (name == window.name)
                expected = test::NumbersOf(members);
        EXPECT_EQ(numbers, expected) << window.name;
    }
}

TEST(HeadWindows, EndsHoldToABillionth) {
    const HeadWindow& window = HeadWindows[Row030To020 - Row100To030];
    EXPECT_TRUE(IsInHeadWindow(0.2 * (1 - 0.9e-9), window));
    EXPECT_FALSE(IsInHeadWindow(0.2 * (1 - 1.1e-9), window));
    EXPECT_TRUE(IsInHeadWindow(0.3 * (1 + 0.9e-9), window));
    EXPECT_FALSE(IsInHeadWindow(0.3 * (1 + 1.1e-9), window));
}

TEST(HeadWindows, EmptyAndSingleWindowsHaveADash) {
    Diagnostics diagnostics =
        test::DiagnosticsOf(test::ProjectOf({0, 10, 20, 30}, {100, 90, 25, 8}));
    const std::vector<HeadWindowRow>& rows = diagnostics.Windows().rows;
    EXPECT_EQ(rows[Row050To025].pointCount, 1U);
    EXPECT_FALSE(rows[Row050To025].kCmPerSec);
    EXPECT_FALSE(rows[Row050To025].changePercent);
    EXPECT_EQ(rows[Row020To010].pointCount, 0U);
    EXPECT_EQ(rows[Row100To030].pointCount, 2U);
    EXPECT_TRUE(rows[Row100To030].kCmPerSec);
    EXPECT_FALSE(rows[Row100To030].rSquared);
    EXPECT_EQ(rows[RowAsMarked].kCmPerSec, diagnostics.Source().KInCmPerSec);
    EXPECT_EQ(rows[RowAsMarked].changePercent, 0.0);
}

TEST(HeadWindows, AFlatLineHasNoChange) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::ProjectOf({0, 10, 20}, {1, 1, 1}));
    ASSERT_EQ(diagnostics.Source().KInCmPerSec, 0);
    for (const HeadWindowRow& row : diagnostics.Windows().rows)
        EXPECT_FALSE(row.changePercent) << row.name;
}

TEST(HeadWindows, TheOrderOfTheListDoesNotMatter) {
    ProjectState state = test::PrattProjectAll();
    const std::vector<HeadWindowRow> sorted = test::DiagnosticsOf(state).Windows().rows;
    test::Random random(7);
    for (std::size_t i = state.RecDatGrid.size() - 1; i > 0; --i)
        std::swap(state.RecDatGrid[i], state.RecDatGrid[random.Below(i + 1)]);
    const std::vector<HeadWindowRow> shuffled = test::DiagnosticsOf(state).Windows().rows;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        EXPECT_EQ(shuffled[i].pointCount, sorted[i].pointCount) << i;
        EXPECT_NEAR(*shuffled[i].kCmPerSec, *sorted[i].kCmPerSec, 1e-12 * *sorted[i].kCmPerSec);
    }
}

TEST(HeadWindows, MarkingListsThePointsOfTheRange) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProjectAll());
    EXPECT_EQ(diagnostics.HeadRangePoints(), (std::vector<std::size_t>{47, 48, 49}));
    EXPECT_TRUE(diagnostics.FirstSegmentPoints().empty());
    EXPECT_TRUE(diagnostics.SecondSegmentPoints().empty());
}

TEST(HeadWindows, SegmentsOfPrattAreNotSuggested) {
    const test::WorkedCase worked = test::ReadWorkedCase("segments_pratt");
    Diagnostics diagnostics = test::DiagnosticsOf(test::PrattProjectAll());
    const HeadWindowsPage& page = diagnostics.Windows();
    ASSERT_TRUE(page.segments);
    const TwoSegments& two = *page.segments;
    EXPECT_EQ(static_cast<double>(two.splitAfter), NumberAt(worked.expected, "split_after_point"));
    EXPECT_FALSE(two.suggested);
    for (const auto& [key, value] :
         {std::pair("sse_one", two.sseOne), std::pair("sse_two", two.sseTwo),
          std::pair("slope_early_per_sec", two.early.slope),
          std::pair("slope_late_per_sec", two.late.slope),
          std::pair("intercept_early", two.early.intercept),
          std::pair("intercept_late", two.late.intercept),
          std::pair("slope_ratio", two.slopeRatio.value()),
          std::pair("sse_ratio", two.sseTwo / two.sseOne)})
        ExpectWorked(value, *NumberAt(worked.expected, key), key);
    const RecoveryPointList& points = *diagnostics.Source().recovery.RecoveryPoints;
    EXPECT_EQ(points[page.lastPointEarly].timeText.View(),
              worked.expected.get<std::string>("last_time_early"));
    EXPECT_EQ(points[page.firstPointLate].timeText.View(),
              worked.expected.get<std::string>("first_time_late"));
}

TEST(HeadWindows, SegmentsHaveTheirKAndTheirPoints) {
    for (const std::string id : {"segments_made_yes", "segments_made_ratio_too_small"}) {
        SCOPED_TRACE(id);
        const test::WorkedCase worked = test::ReadWorkedCase(id);
        const test::Json& geometry = worked.input.get_child("geometry_m");
        const test::WellInMetres well{*NumberAt(geometry, "H"), *NumberAt(geometry, "Lw"),
                                      *NumberAt(geometry, "Le"), *NumberAt(geometry, "dw"),
                                      *NumberAt(geometry, "dc")};
        Diagnostics diagnostics = test::DiagnosticsOf(
            test::ProjectOf(test::NumbersOf(worked.input.get_child("time_sec")),
                            test::NumbersOf(worked.input.get_child("y_cm")), Centimetre, well));
        const HeadWindowsPage& page = diagnostics.Windows();
        ExpectWorked(MetresPerDay(page.kEarlyCmPerSec.value()),
                     *NumberAt(worked.expected, "k_early_m_per_day"), "K1");
        ExpectWorked(MetresPerDay(page.kLateCmPerSec.value()),
                     *NumberAt(worked.expected, "k_late_m_per_day"), "K2");
        const bool suggested = worked.expected.get<bool>("suggested");
        EXPECT_EQ(diagnostics.FirstSegmentPoints().size(), suggested ? 9U : 0U);
        EXPECT_EQ(diagnostics.SecondSegmentPoints().size(), suggested ? 15U : 0U);
        if (suggested) {
            EXPECT_EQ(diagnostics.SecondSegmentPoints().front(), 9U);
        }
    }
}

} // namespace quarnel

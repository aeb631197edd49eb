// The band between 0.20 and 0.30 of the first change in head.

#include "kcompute/Analysis.h"
#include "output/PlotDrawing.h"
#include "tests/output/DrawingText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

constexpr double Width = 10000;
constexpr double Height = 8000;
constexpr double Left = 1250;
constexpr double PlotWidth = Width - 1250 - 750;
constexpr double Top = 1000;
constexpr double PlotHeight = Height - 2000;

Analysis Computed(const std::vector<std::pair<const char*, const char*>>& readings,
                  const char* le = "5") {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", le, "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatWaterLevelUnitsDDL = Centimetre;
    for (std::size_t i = 0; i < readings.size(); ++i)
        analysis.state.RecDatGrid[i] = {readings[i].first, readings[i].second};
    PrepareComputation(analysis);
    Compute(analysis);
    return analysis;
}

Drawing Draw(const Analysis& analysis, bool showHeadRange) {
    PlotLayout layout = ScreenPlotLayout(Width, Height);
    layout.showHeadRange = showHeadRange;
    return DrawPlot(PlotContents(*analysis.computation), layout);
}

std::size_t GreyLines(const Drawing& drawing) {
    std::size_t count = 0;
    for (const DrawingLine& line : drawing.lines)
        count += line.colour == DrawingColour::Grey ? 1 : 0;
    return count;
}

} // namespace

TEST(HeadRange, IsABandOverTheTimeAxisBelowEverythingElse) {
    // From 1 to 100 cm: two decades of the axis.
    const Drawing drawing = Draw(Computed({{"0", "100"}, {"10", "20"}, {"20", "4"}}), true);
    ASSERT_EQ(drawing.areas.size(), 1U);
    const DrawingArea& band = drawing.areas[0];
    const auto at = [](double y) { return Top + PlotHeight - std::log10(y) / 2 * PlotHeight; };
    EXPECT_EQ(band.colour, DrawingColour::Band);
    EXPECT_DOUBLE_EQ(band.x, Left);
    EXPECT_DOUBLE_EQ(band.width, PlotWidth);
    EXPECT_NEAR(band.y, at(30), 1e-9);
    EXPECT_NEAR(band.y + band.height, at(20), 1e-9);
    ASSERT_GE(drawing.lines.size(), 2U);
    EXPECT_NEAR(drawing.lines[0].y1, at(20), 1e-9);
    EXPECT_NEAR(drawing.lines[1].y1, at(30), 1e-9);
    EXPECT_EQ(GreyLines(drawing), 2U);
    const DrawingLabel& caption = drawing.labels.front();
    EXPECT_EQ(caption.text, "0.20-0.30 of H0");
    EXPECT_EQ(caption.across, Across::Right);
    EXPECT_EQ(caption.points, 9);
    EXPECT_LT(caption.x, Left + PlotWidth);
    EXPECT_NEAR(caption.y, band.y + band.height / 2, 1e-9);
}

TEST(HeadRange, SaysWhereTheScreenStandsAtTheWaterTable) {
    const Drawing drawing = Draw(Computed({{"0", "100"}, {"10", "20"}}, "8"), true);
    EXPECT_EQ(drawing.labels.front().text,
              "0.20-0.30 of H0 (meant for screens below the water table)");
}

TEST(HeadRange, IsCutAtTheAxisAndGoneOutsideIt) {
    // H0 is 4, so the band runs from 0.8 to 1.2 and the axis from 1 on.
    const Drawing cut = Draw(Computed({{"0", "4"}, {"10", "2"}, {"20", "1"}}), true);
    ASSERT_EQ(cut.areas.size(), 1U);
    EXPECT_NEAR(cut.areas[0].y + cut.areas[0].height, Top + PlotHeight, 1e-9);
    EXPECT_EQ(GreyLines(cut), 1U);
    const Drawing outside = Draw(Computed({{"0", "3"}, {"10", "2"}, {"20", "1"}}), true);
    EXPECT_TRUE(outside.areas.empty());
    EXPECT_EQ(GreyLines(outside), 0U);
}

TEST(HeadRange, LeavesEverythingElseAsItIs) {
    const Analysis analysis = Computed({{"0", "100"}, {"10", "20"}, {"20", "4"}});
    Drawing with = Draw(analysis, true);
    with.areas.clear();
    with.lines.erase(with.lines.begin(), with.lines.begin() + 2);
    with.labels.erase(with.labels.begin());
    EXPECT_EQ(DrawingText(with), DrawingText(Draw(analysis, false)));
}

TEST(HeadRange, PreparedPointsHaveNone) {
    Analysis analysis = Computed({{"0", "100"}, {"10", "20"}});
    PlotLayout layout = ScreenPlotLayout(Width, Height);
    layout.showHeadRange = true;
    EXPECT_TRUE(DrawPlot(PlotContents(analysis.working), layout).areas.empty());
}

} // namespace quarnel

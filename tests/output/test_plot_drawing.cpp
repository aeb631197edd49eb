#include "output/PlotDrawing.h"

#include "kcompute/Analysis.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

constexpr double Width = 10000;
constexpr double Height = 8000;
// The described margins: 1250 left, 750 right, 1000 above and below.
constexpr double Left = 1250;
constexpr double Right = Width - 750;
constexpr double Top = 1000;
constexpr double AxisY = Height - 1000;

/// Changes in head of (time, Y), in seconds and centimetres, all used.
Analysis Computed(const std::vector<std::pair<const char*, const char*>>& readings) {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatWaterLevelUnitsDDL = Centimetre;
    for (std::size_t i = 0; i < readings.size(); ++i)
        analysis.state.RecDatGrid[i] = {readings[i].first, readings[i].second};
    PrepareComputation(analysis);
    Compute(analysis);
    return analysis;
}

Drawing Draw(const Analysis& analysis) {
    return DrawPlot(PlotContents(*analysis.computation), ScreenPlotLayout(Width, Height));
}

bool HasLine(const Drawing& drawing, double x1, double y1, double x2, double y2) {
    return std::any_of(drawing.lines.begin(), drawing.lines.end(), [&](const DrawingLine& line) {
        return std::fabs(line.x1 - x1) < 1e-9 && std::fabs(line.y1 - y1) < 1e-9 &&
               std::fabs(line.x2 - x2) < 1e-9 && std::fabs(line.y2 - y2) < 1e-9;
    });
}

const DrawingLabel& Label(const Drawing& drawing, const std::string& text) {
    static const DrawingLabel none;
    const auto found = std::find_if(drawing.labels.begin(), drawing.labels.end(),
                                    [&](const DrawingLabel& label) { return label.text == text; });
    EXPECT_NE(found, drawing.labels.end()) << text;
    return found == drawing.labels.end() ? none : *found;
}

const DrawingLine* RedLine(const Drawing& drawing) {
    const auto found =
        std::find_if(drawing.lines.begin(), drawing.lines.end(),
                     [](const DrawingLine& line) { return line.colour == DrawingColour::Red; });
    return found == drawing.lines.end() ? nullptr : &*found;
}

/// Where ticks of the Y axis stand, short or long, in their order.
std::size_t TicksBetween(const Drawing& drawing, double from, double to) {
    return static_cast<std::size_t>(
        std::count_if(drawing.lines.begin(), drawing.lines.end(), [&](const DrawingLine& line) {
            return line.x2 == Left && line.x1 < Left && line.y1 == line.y2 &&
                   line.y1 <= from + 1e-9 && line.y1 >= to - 1e-9;
        }));
}

} // namespace

TEST(PlotDrawing, TimeAxisHasSixLinesWithTicksAndLabels) {
    const Drawing drawing = Draw(Computed({{"0", "50"}, {"10", "5"}}));
    const double step = (Right - Left) / 5;
    const std::vector<std::string> labels = {"0.00", "2.00", "4.00", "6.00", "8.00", "10.00"};
    for (int i = 0; i <= 5; ++i) {
        const double x = Left + i * step;
        EXPECT_TRUE(HasLine(drawing, x, Top, x, AxisY)) << i;
        EXPECT_TRUE(HasLine(drawing, x, AxisY, x, AxisY + 75)) << i;
        const DrawingLabel& label = Label(drawing, labels[static_cast<std::size_t>(i)]);
        EXPECT_NEAR(label.x, x, 1e-9);
        EXPECT_EQ(label.y, AxisY + 85);
        EXPECT_EQ(label.across, Across::Centre);
        EXPECT_EQ(label.along, Along::Top);
    }
}

TEST(PlotDrawing, YAxisFrom1To100CarriesItsLabelsAndTenTicksInEachDecade) {
    const Analysis analysis = Computed({{"0", "50"}, {"10", "5"}});
    ASSERT_EQ(analysis.working.recovery.bounds.PlotYAxisMin, 1);
    ASSERT_EQ(analysis.working.recovery.bounds.PlotYAxisMax, 100);
    const Drawing drawing = Draw(analysis);
    const double middle = (Top + AxisY) / 2;
    for (const auto& [text, y] :
         {std::pair<std::string, double>{"1", AxisY}, {"10", middle}, {"100", Top}}) {
        const DrawingLabel& label = Label(drawing, text);
        EXPECT_EQ(label.x, Left - 85);
        EXPECT_NEAR(label.y, y, 1e-9);
        EXPECT_EQ(label.across, Across::Right);
        EXPECT_EQ(label.along, Along::Middle);
        EXPECT_TRUE(HasLine(drawing, Left - 75, y, Left, y)) << text;
    }
    // j = 1 to 10 of each decade; the first of the lower one is the bottom tick once more.
    EXPECT_EQ(TicksBetween(drawing, AxisY, middle + 1), 10U);
    EXPECT_EQ(TicksBetween(drawing, middle + 1, middle - 1), 2U);
    EXPECT_EQ(TicksBetween(drawing, middle - 1, Top), 9U);
}

TEST(PlotDrawing, TitlesNameTheUnitsAndDifferInTheirBlank) {
    const Drawing drawing = Draw(Computed({{"0", "50"}, {"10", "5"}}));
    const DrawingLabel& time = Label(drawing, "Time (sec)");
    EXPECT_EQ(time.x, (Left + Right) / 2);
    EXPECT_EQ(time.y, AxisY + 85);
    EXPECT_EQ(time.heightsDown, 1.25);
    EXPECT_EQ(time.across, Across::Centre);
    const DrawingLabel& y = Label(drawing, "Y(cm)");
    EXPECT_LT(y.x, Left);
    EXPECT_EQ(y.y, (Top + AxisY) / 2);
}

TEST(PlotDrawing, PointsStandWhereTimeAndLogYPutThem) {
    const Drawing drawing = Draw(Computed({{"0", "10"}, {"5", "10"}, {"10", "5"}}));
    ASSERT_EQ(drawing.circles.size(), 3U);
    EXPECT_EQ(drawing.circles[0].x, Left);
    EXPECT_EQ(drawing.circles[1].x, (Left + Right) / 2);
    EXPECT_EQ(drawing.circles[2].x, Right);
    EXPECT_EQ(drawing.circles[0].y, Top);
    EXPECT_NEAR(drawing.circles[2].y, AxisY - std::log10(5.0) * (AxisY - Top), 1e-9);
    EXPECT_EQ(drawing.circles[0].radius, 50);
}

TEST(PlotDrawing, IgnoredPointsAreBlueUsedOnesRedAndThoseWithoutALogarithmMissing) {
    Analysis analysis = Computed({{"0", "50"}, {"5", "20"}, {"10", "5"}, {"12", "-1"}});
    analysis.working.marks[1] = Mark::Ignore;
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing drawing = Draw(analysis);
    ASSERT_EQ(drawing.circles.size(), 3U);
    EXPECT_EQ(drawing.circles[0].colour, DrawingColour::Red);
    EXPECT_EQ(drawing.circles[1].colour, DrawingColour::Blue);
    EXPECT_EQ(drawing.circles[2].colour, DrawingColour::Red);
}

TEST(PlotDrawing, FittedLineRunsThroughTwoPoints) {
    const Drawing drawing = Draw(Computed({{"0", "50"}, {"10", "5"}}));
    const DrawingLine* line = RedLine(drawing);
    ASSERT_NE(line, nullptr);
    EXPECT_NEAR(line->x1, drawing.circles[0].x, 1e-6);
    EXPECT_NEAR(line->y1, drawing.circles[0].y, 1e-6);
    EXPECT_NEAR(line->x2, drawing.circles[1].x, 1e-6);
    EXPECT_NEAR(line->y2, drawing.circles[1].y, 1e-6);
}

TEST(PlotDrawing, FittedLineEndsWhereItMeetsTheBounds) {
    // Steep between the used points, so it runs out of the plot above and below.
    Analysis analysis = Computed({{"0", "9"}, {"4", "9"}, {"5", "1.1"}, {"10", "1.1"}});
    analysis.working.marks[0] = Mark::Ignore;
    analysis.working.marks[3] = Mark::Ignore;
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing drawing = Draw(analysis);
    const DrawingLine* line = RedLine(drawing);
    ASSERT_NE(line, nullptr);
    EXPECT_NEAR(line->y1, Top, 1e-6);
    EXPECT_NEAR(line->y2, AxisY, 1e-6);
    const double slope = std::log(1.1 / 9);
    const double enters = 4 + (std::log(10) - std::log(9)) / slope;
    EXPECT_NEAR(line->x1, Left + enters / 10 * (Right - Left), 1e-6);
}

TEST(PlotDrawing, RisingFitDrawsNoLine) {
    const Analysis analysis = Computed({{"0", "50"}, {"10", "60"}});
    EXPECT_FALSE(analysis.computation->line.Falls());
    EXPECT_EQ(RedLine(Draw(analysis)), nullptr);
    EXPECT_EQ(Draw(analysis).circles.size(), 2U);
}

TEST(PlotDrawing, FlatFitDrawsNoLine) {
    const Analysis analysis = Computed({{"0", "50"}, {"10", "40"}});
    Computation level = *analysis.computation;
    level.line.slope = 0;
    EXPECT_FALSE(level.line.Falls());
    EXPECT_EQ(RedLine(DrawPlot(PlotContents(level), ScreenPlotLayout(Width, Height))), nullptr);
}

TEST(PlotDrawing, LineIsDrawnInTheEnteredUnits) {
    Analysis analysis = Computed({{"0", "50"}, {"10", "5"}});
    analysis.state.RecDatTimeUnitsDDL = Hour;
    analysis.state.RecDatWaterLevelUnitsDDL = Foot;
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing drawing = Draw(analysis);
    const DrawingLine* line = RedLine(drawing);
    ASSERT_NE(line, nullptr);
    EXPECT_NEAR(line->y1, drawing.circles[0].y, 1e-6);
    EXPECT_NEAR(line->y2, drawing.circles[1].y, 1e-6);
    Label(drawing, "Time (hr)");
    Label(drawing, "Y(ft)");
}

TEST(PlotDrawing, NothingNotFiniteReachesAnAxis) {
    const Analysis analysis = Computed({{"0", "50"}, {"0", "5"}});
    ASSERT_EQ(analysis.computation, nullptr); // all at one time
    const Drawing drawing =
        DrawPlot(PlotContents(analysis.working), ScreenPlotLayout(Width, Height));
    EXPECT_EQ(drawing.circles.size(), 2U);
    for (const DrawingLine& line : drawing.lines)
        EXPECT_TRUE(std::isfinite(line.x1 + line.x2 + line.y1 + line.y2));
    for (const DrawingCircle& circle : drawing.circles)
        EXPECT_TRUE(std::isfinite(circle.x + circle.y));
    for (const DrawingLabel& label : drawing.labels)
        EXPECT_TRUE(std::isfinite(label.x + label.y));
}

} // namespace quarnel

#include "compare/NormalizedDrawing.h"

#include "project/FixedLists.h"
#include "tests/SourceFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <set>

namespace quarnel {

namespace {

constexpr double Width = 9000;
constexpr double Height = 6000;
constexpr double SlopePerSec = -0.02;

/// A test that falls from 1 to exp(-`reach`), used between 0.30 and 0.20.
CompareRow FallingRow(double slopePerSec = SlopePerSec, double reach = 3, int points = 31) {
    CompareRow row;
    row.testDate = "2024-03-05";
    row.slugTestType = "Rising head";
    row.timeUnit = Second;
    row.slopePerSec = slopePerSec;
    for (int i = 0; i < points; ++i) {
        const double lnHead = -reach * i / (points - 1);
        const double head = std::exp(lnHead);
        row.points.push_back({lnHead / slopePerSec, lnHead, head <= 0.3 && head >= 0.2});
    }
    return row;
}

Drawing DrawingOf(const std::vector<CompareRow>& rows, bool divideByTimeLag = false,
                  double width = Width, double height = Height) {
    std::vector<std::size_t> tests(rows.size());
    std::iota(tests.begin(), tests.end(), 0);
    return DrawNormalized(NormalizedCurves(rows, tests), divideByTimeLag, width, height);
}

bool HasLabel(const Drawing& drawing, const std::string& text) {
    for (const DrawingLabel& label : drawing.labels)
        if (label.text == text)
            return true;
    return false;
}

const DrawingLabel& LabelOf(const Drawing& drawing, const std::string& text) {
    for (const DrawingLabel& label : drawing.labels)
        if (label.text == text)
            return label;
    throw std::runtime_error("no label " + text);
}

/// The marks of a test without the last of them, which is that of the legend.
std::vector<DrawingMark> MarksOf(const Drawing& drawing, int series) {
    std::vector<DrawingMark> marks;
    for (const DrawingMark& mark : drawing.marks)
        if (mark.series == series)
            marks.push_back(mark);
    if (!marks.empty())
        marks.pop_back();
    return marks;
}

} // namespace

TEST(NormalizedDrawing, EveryTestHasAMarkOfItsOwnAndALineInTheLegend) {
    const Drawing drawing = DrawingOf({FallingRow(), FallingRow(-0.04), FallingRow(-0.01)});
    std::set<int> series;
    for (const DrawingMark& mark : drawing.marks)
        series.insert(mark.series);
    EXPECT_EQ(series, (std::set<int>{0, 1, 2}));
    for (const char* name : {"No. 1, 2024-03-05, Rising head", "No. 2, 2024-03-05, Rising head",
                             "No. 3, 2024-03-05, Rising head"})
        EXPECT_TRUE(HasLabel(drawing, name)) << name;
}

TEST(NormalizedDrawing, UsedPointsAreFilledAndTheOthersNot) {
    const CompareRow row = FallingRow();
    const std::vector<DrawingMark> marks = MarksOf(DrawingOf({row}), 0);
    ASSERT_EQ(marks.size(), row.points.size());
    for (std::size_t i = 0; i < marks.size(); ++i)
        EXPECT_EQ(marks[i].isFilled, row.points[i].used) << i;
}

TEST(NormalizedDrawing, ALegendWithoutDateNamesWhatThereIs) {
    CompareRow row = FallingRow();
    row.testDate.clear();
    EXPECT_TRUE(HasLabel(DrawingOf({row}), "No. 1, Rising head"));
    row.slugTestType.clear();
    EXPECT_TRUE(HasLabel(DrawingOf({row}), "No. 1"));
}

TEST(NormalizedDrawing, TheNumberIsThatOfTheTable) {
    const std::vector<CompareRow> rows = {FallingRow(), FallingRow(), FallingRow()};
    const std::vector<std::size_t> tests = {2};
    const Drawing drawing = DrawNormalized(NormalizedCurves(rows, tests), false, Width, Height);
    EXPECT_TRUE(HasLabel(drawing, "No. 3, 2024-03-05, Rising head"));
    EXPECT_FALSE(HasLabel(drawing, "No. 1, 2024-03-05, Rising head"));
}

TEST(NormalizedDrawing, TheAxisRunsAtLeastFromOneToOneHundredth) {
    const Drawing flat = DrawingOf({FallingRow(SlopePerSec, 0.5)});
    for (const char* decade : {"1", "0.1", "0.01"})
        EXPECT_TRUE(HasLabel(flat, decade)) << decade;
    EXPECT_FALSE(HasLabel(flat, "0.001"));
    const Drawing deep = DrawingOf({FallingRow(SlopePerSec, 6)});
    EXPECT_TRUE(HasLabel(deep, "0.001"));
    EXPECT_FALSE(HasLabel(deep, "10"));
    CompareRow swinging = FallingRow();
    swinging.points[3].lnHead = std::log(1.5);
    EXPECT_TRUE(HasLabel(DrawingOf({swinging}), "10"));
}

TEST(NormalizedDrawing, TheAxisEndsWhereThatOfThePlotDoes) {
    CompareRow row = FallingRow();
    row.points.back().lnHead = std::log(1e-30);
    row.points.front().lnHead = std::log(1e30);
    const Drawing drawing = DrawingOf({row});
    EXPECT_TRUE(HasLabel(drawing, "1E-06"));
    EXPECT_TRUE(HasLabel(drawing, "100000"));
    EXPECT_FALSE(HasLabel(drawing, "1E-07"));
    EXPECT_EQ(MarksOf(drawing, 0).size(), row.points.size() - 2);
}

TEST(NormalizedDrawing, HeadsStandOnALogarithmicAxis) {
    CompareRow row = FallingRow();
    row.points = {{0, 0, false}, {10, std::log(0.1), false}, {20, std::log(0.01), true}};
    const Drawing drawing = DrawingOf({row});
    const std::vector<DrawingMark> marks = MarksOf(drawing, 0);
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_NEAR(marks[0].y, LabelOf(drawing, "1").y, 1e-6);
    EXPECT_NEAR(marks[1].y, LabelOf(drawing, "0.1").y, 1e-6);
    EXPECT_NEAR(marks[2].y, LabelOf(drawing, "0.01").y, 1e-6);
}

TEST(NormalizedDrawing, TimeStandsInTheUnitOfTheFirstTest) {
    CompareRow first = FallingRow();
    first.timeUnit = Minute;
    CompareRow second = FallingRow();
    second.timeUnit = Hour;
    const Drawing drawing = DrawingOf({first, second});
    EXPECT_TRUE(HasLabel(drawing, "Time (min)"));
    EXPECT_TRUE(HasLabel(drawing, "Y/H0"));
    // Both are the same test, whatever their projects' units are.
    const std::vector<DrawingMark> marks = MarksOf(drawing, 0);
    const std::vector<DrawingMark> others = MarksOf(drawing, 1);
    ASSERT_EQ(marks.size(), others.size());
    for (std::size_t i = 0; i < marks.size(); ++i)
        EXPECT_EQ(marks[i].x, others[i].x);
    EXPECT_EQ(LabelOf(drawing, "2").y, LabelOf(drawing, "0").y); // 150 s are 2.5 min
}

TEST(NormalizedDrawing, CurvesDividedByTheirTimeLagCoincide) {
    const std::vector<CompareRow> rows = {FallingRow(-0.02), FallingRow(-0.05)};
    const Drawing apart = DrawingOf(rows);
    EXPECT_NE(MarksOf(apart, 0)[20].x, MarksOf(apart, 1)[20].x);
    const Drawing drawing = DrawingOf(rows, true);
    EXPECT_TRUE(HasLabel(drawing, "Time divided by the basic time lag"));
    for (std::size_t i = 0; i < rows[0].points.size(); ++i) {
        EXPECT_NEAR(MarksOf(drawing, 0)[i].x, MarksOf(drawing, 1)[i].x, 1e-6);
        EXPECT_NEAR(MarksOf(drawing, 0)[i].y, MarksOf(drawing, 1)[i].y, 1e-6);
    }
}

TEST(NormalizedDrawing, TestsThatDoNotFallHaveNoTimeLag) {
    for (const double slope : {0.0, 0.02}) {
        CompareRow rising = FallingRow();
        rising.slopePerSec = slope;
        const Drawing drawing = DrawingOf({rising, FallingRow()}, true);
        EXPECT_FALSE(HasLabel(drawing, "No. 1, 2024-03-05, Rising head"));
        EXPECT_TRUE(HasLabel(drawing, "No. 2, 2024-03-05, Rising head"));
        EXPECT_TRUE(HasLabel(DrawingOf({rising, FallingRow()}), "No. 1, 2024-03-05, Rising head"));
        EXPECT_TRUE(DrawingOf({rising}, true).IsEmpty());
    }
}

TEST(NormalizedDrawing, OfMoreThanTwelveTestsTheFirstTwelveAreDrawn) {
    const std::string sentence = " tests drawn: choose rows to draw others.";
    std::vector<CompareRow> rows(12, FallingRow());
    const Drawing twelve = DrawingOf(rows);
    for (const DrawingLabel& label : twelve.labels)
        EXPECT_EQ(label.text.find(sentence), std::string::npos);
    rows.push_back(FallingRow());
    const Drawing thirteen = DrawingOf(rows);
    EXPECT_TRUE(HasLabel(thirteen, "12 of 13" + sentence));
    EXPECT_TRUE(HasLabel(thirteen, "No. 12, 2024-03-05, Rising head"));
    EXPECT_FALSE(HasLabel(thirteen, "No. 13, 2024-03-05, Rising head"));
}

TEST(NormalizedDrawing, NothingIsDrawnWithoutATest) {
    EXPECT_TRUE(DrawingOf({}).IsEmpty());
    EXPECT_TRUE(DrawingOf({CompareRow()}).IsEmpty());
}

TEST(NormalizedDrawing, NothingLeavesTheSurfaceAndTheLegendKeepsClearOfTheAxes) {
    for (const std::size_t count : {1, 2, 5, 12})
        for (const double width : {5000.0, 9000.0, 16000.0}) {
            const Drawing drawing =
                DrawingOf(std::vector<CompareRow>(count, FallingRow()), false, width, Height);
            double right = 0;
            double bottom = 0;
            for (const DrawingLine& line : drawing.lines) {
                right = std::max({right, line.x1, line.x2});
                bottom = std::max({bottom, line.y1, line.y2});
            }
            bottom = std::max(bottom, LabelOf(drawing, "Time (sec)").y);
            EXPECT_GT(bottom, Height / 3) << count;
            for (const DrawingMark& mark : drawing.marks) {
                EXPECT_TRUE(mark.x - mark.radius >= 0 && mark.x + mark.radius <= width);
                EXPECT_TRUE(mark.y - mark.radius >= 0 && mark.y + mark.radius <= Height);
            }
            for (const DrawingLabel& label : drawing.labels)
                if (label.text.starts_with("No. ")) {
                    EXPECT_TRUE(label.x > right || label.y > bottom) << count << " " << width;
                    EXPECT_LE(label.x + label.maxWidth, width);
                }
        }
}

} // namespace quarnel

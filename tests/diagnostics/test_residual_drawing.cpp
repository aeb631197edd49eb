#include "diagnostics/ResidualDrawing.h"

#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel {

namespace {

constexpr double Width = 9000;
constexpr double Height = 4000;

std::size_t LinesOf(const Drawing& drawing, DrawingColour colour, bool dashed) {
    std::size_t count = 0;
    for (const DrawingLine& line : drawing.lines)
        count += line.colour == colour && line.dashed == dashed ? 1 : 0;
    return count;
}

std::size_t CirclesOf(const Drawing& drawing, DrawingColour colour) {
    std::size_t count = 0;
    for (const DrawingCircle& circle : drawing.circles)
        count += circle.colour == colour ? 1 : 0;
    return count;
}

bool HasLabel(const Drawing& drawing, const std::string& text) {
    for (const DrawingLabel& label : drawing.labels)
        if (label.text == text)
            return true;
    return false;
}

/// Whether everything is finite and lies on the surface.
void ExpectOnSurface(const Drawing& drawing) {
    const auto isIn = [](double x, double y) {
        return x >= 0 && x <= Width && y >= 0 && y <= Height;
    };
    for (const DrawingLine& line : drawing.lines)
        EXPECT_TRUE(isIn(line.x1, line.y1) && isIn(line.x2, line.y2));
    for (const DrawingCircle& circle : drawing.circles)
        EXPECT_TRUE(isIn(circle.x, circle.y));
    for (const DrawingLabel& label : drawing.labels)
        EXPECT_TRUE(isIn(label.x, label.y)) << label.text;
}

ProjectState TwoSegmentProject() {
    const test::WorkedCase worked = test::ReadWorkedCase("segments_made_yes");
    return test::ProjectOf(test::NumbersOf(worked.input.get_child("time_sec")),
                           test::NumbersOf(worked.input.get_child("y_cm")));
}

} // namespace

TEST(ResidualDrawing, UpperPictureHasPointsAndLine) {
    Diagnostics pratt = test::DiagnosticsOf(test::PrattProject());
    const Drawing drawing = DrawSegments(pratt, Width, Height);
    EXPECT_EQ(CirclesOf(drawing, DrawingColour::Red), 3U);
    EXPECT_GT(CirclesOf(drawing, DrawingColour::Blue), 50U);
    EXPECT_EQ(LinesOf(drawing, DrawingColour::Red, false), 1U);
    EXPECT_EQ(LinesOf(drawing, DrawingColour::Grey, true), 0U);
    EXPECT_TRUE(HasLabel(drawing, "Time (sec)"));
    EXPECT_TRUE(HasLabel(drawing, "ln Y (cm)"));
    ExpectOnSurface(drawing);
}

TEST(ResidualDrawing, SuggestedSegmentsAreDashed) {
    Diagnostics diagnostics = test::DiagnosticsOf(TwoSegmentProject());
    const Drawing drawing = DrawSegments(diagnostics, Width, Height);
    EXPECT_EQ(LinesOf(drawing, DrawingColour::Grey, true), 2U);
    ExpectOnSurface(drawing);
}

TEST(ResidualDrawing, LowerPictureHasZeroBoundsAndTheReadingStep) {
    Diagnostics pratt = test::DiagnosticsOf(test::PrattProjectAll());
    const Drawing drawing = DrawResiduals(pratt, Width, Height);
    EXPECT_EQ(drawing.circles.size(), CirclesOf(drawing, DrawingColour::Red));
    EXPECT_GT(drawing.circles.size(), 55U);
    EXPECT_LE(drawing.circles.size(), 61U);
    EXPECT_EQ(LinesOf(drawing, DrawingColour::Grey, true), 2U);
    EXPECT_GT(LinesOf(drawing, DrawingColour::Grey, false), 100U);
    EXPECT_TRUE(HasLabel(drawing, "Residuals: s 0.0915, r1 0.384, DW 0.690"));
    ExpectOnSurface(drawing);
}

TEST(ResidualDrawing, PointsStandWhereTheirResidualsAre) {
    Diagnostics diagnostics = test::DiagnosticsOf(test::ProjectOf({0, 10, 20}, {100, 40, 25}));
    const std::vector<double>& e = diagnostics.Statistics().fit.residuals;
    const Drawing drawing = DrawResiduals(diagnostics, Width, Height);
    ASSERT_EQ(drawing.circles.size(), 3U);
    const auto isAbove = [&](std::size_t a, std::size_t b) {
        return drawing.circles[a].y < drawing.circles[b].y;
    };
    EXPECT_EQ(isAbove(0, 1), e[0] > e[1]);
    EXPECT_EQ(isAbove(2, 1), e[2] > e[1]);
    EXPECT_LT(drawing.circles[0].x, drawing.circles[1].x);
}

TEST(ResidualDrawing, TwoPointsHaveASentenceInstead) {
    Diagnostics two = test::DiagnosticsOf(test::ProjectOf({0, 10}, {5, 4}));
    const Drawing drawing = DrawResiduals(two, Width, Height);
    ASSERT_EQ(drawing.labels.size(), 1U);
    EXPECT_EQ(drawing.labels[0].text, "2 points: no residuals.");
    EXPECT_TRUE(drawing.lines.empty());
    EXPECT_EQ(DrawSegments(two, Width, Height).circles.size(), 2U);
}

TEST(ResidualDrawing, ExactFlatAndHugeRecoveriesStayOnTheSurface) {
    for (const ProjectState& state :
         {test::ProjectOf({0, 1, 2, 3}, {8, 4, 2, 1}), test::ProjectOf({0, 1, 2}, {1, 1, 1}),
          test::ProjectOf({0, 1, 2, 3}, {1e300, 1e200, 1e-200, 1e-300}),
          test::ProjectOf({0, 0, 1e-9}, {8, 4, 2}), test::ProjectOf({0, 1, 2}, {1, 2, 3})}) {
        Diagnostics diagnostics = test::DiagnosticsOf(state);
        ExpectOnSurface(DrawSegments(diagnostics, Width, Height));
        ExpectOnSurface(DrawResiduals(diagnostics, Width, Height));
    }
}

TEST(ResidualDrawing, AnAreaTooSmallForAPlotIsNoFault) {
    Diagnostics pratt = test::DiagnosticsOf(test::PrattProject());
    for (const double size : {0.0, 10.0, 500.0}) {
        for (const Drawing& drawing :
             {DrawSegments(pratt, size, size), DrawResiduals(pratt, size, size)})
            for (const DrawingLine& line : drawing.lines)
                EXPECT_TRUE(std::isfinite(line.x1 + line.x2 + line.y1 + line.y2));
    }
}

TEST(ResidualDrawing, PointsOnOneSpotAreDrawnOnce) {
    std::vector<double> times;
    std::vector<double> levels;
    test::ExactRecovery(times, levels, 20000, 100, 0.0001, 1);
    Diagnostics diagnostics = test::DiagnosticsOf(test::ProjectOf(times, levels));
    EXPECT_LT(DrawSegments(diagnostics, Width, Height).circles.size(), 3000U);
}

} // namespace quarnel

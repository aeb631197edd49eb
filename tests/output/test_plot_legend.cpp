// The legend says what the circles mean, and changes nothing where nobody asked for it.

#include "output/PlotLegend.h"

#include "kcompute/Analysis.h"
#include "output/PrintedPlot.h"
#include "tests/SourceFolder.h"
#include "tests/output/ArialMeasure.h"
#include "tests/output/DrawingText.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <utility>

namespace quarnel {

namespace {

const ArialMeasure Arial;

Analysis Pratt() {
    Analysis analysis;
    OpenProjectFile(test::SourceFolder() + "/examples/pratt-county-1998.qn2", analysis);
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

/// A page of this printable area, with the margins of a printer.
Drawing Page(const Analysis& analysis, double width, double height, bool showLegend) {
    Paper paper;
    paper.printableWidth = width;
    paper.printableHeight = height;
    return DrawPlotPage(analysis, paper, Arial, showLegend);
}

std::size_t LegendAt(const Drawing& page) {
    for (std::size_t i = 0; i < page.labels.size(); ++i)
        if (page.labels[i].text == "used in the fit")
            return i;
    return page.labels.size();
}

} // namespace

TEST(PlotLegend, HasACircleOfEachKindBeforeItsWords) {
    const PlotLayout layout = ScreenPlotLayout(9000, 7000);
    const Drawing legend = DrawLegend(layout, 500);
    ASSERT_EQ(legend.circles.size(), 2U);
    ASSERT_EQ(legend.labels.size(), 2U);
    EXPECT_EQ(legend.circles[0].colour, DrawingColour::Red);
    EXPECT_EQ(legend.circles[1].colour, DrawingColour::Blue);
    EXPECT_EQ(legend.labels[0].text, "used in the fit");
    EXPECT_EQ(legend.labels[1].text, "not used");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(legend.circles[i].radius, layout.circleRadius);
        EXPECT_EQ(legend.circles[i].y, 500);
        EXPECT_EQ(legend.labels[i].y, 500);
        EXPECT_GT(legend.labels[i].x, legend.circles[i].x + layout.circleRadius);
        EXPECT_GE(legend.circles[i].x - layout.circleRadius, layout.left);
        EXPECT_LE(legend.labels[i].x + legend.labels[i].maxWidth, layout.left + layout.plotWidth);
    }
    EXPECT_LT(legend.labels[0].x + legend.labels[0].maxWidth,
              legend.circles[1].x - layout.circleRadius);
}

TEST(PlotLegend, KeepsToANarrowPlot) {
    const PlotLayout layout = ScreenPlotLayout(4700, 2700);
    const Drawing legend = DrawLegend(layout, 500);
    EXPECT_LE(legend.labels[1].x + legend.labels[1].maxWidth, layout.left + layout.plotWidth);
    EXPECT_GT(legend.labels[1].maxWidth, 0);
}

TEST(PlotLegend, IsOnNoPageUnlessAskedFor) {
    const Analysis analysis = Pratt();
    const Drawing page = Page(analysis, 11520, 15120, false);
    EXPECT_EQ(LegendAt(page), page.labels.size());
}

TEST(PlotLegend, MovesNothingOnItsPage) {
    const Analysis analysis = Pratt();
    for (const auto& [width, height] :
         {std::pair(11520.0, 15120.0), {11186.0, 16118.0}, {8000.0, 9000.0}}) {
        Drawing with = Page(analysis, width, height, true);
        const std::size_t at = LegendAt(with);
        ASSERT_LT(at + 1, with.labels.size());
        const DrawingLabel words = with.labels[at];
        // Below K and on the paper.
        EXPECT_GT(words.y, with.labels.back().y);
        EXPECT_LT(words.y + 200, height);
        EXPECT_GE(words.x, 0);
        with.labels.erase(with.labels.begin() + static_cast<std::ptrdiff_t>(at),
                          with.labels.begin() + static_cast<std::ptrdiff_t>(at) + 2);
        with.circles.resize(with.circles.size() - 2);
        EXPECT_EQ(DrawingText(with), DrawingText(Page(analysis, width, height, false)));
    }
}

TEST(PlotLegend, IsOnNoPageWithoutAPlot) {
    const Drawing page = Page(Analysis(), 11520, 15120, true);
    EXPECT_TRUE(page.circles.empty());
    EXPECT_EQ(LegendAt(page), page.labels.size());
}

} // namespace quarnel

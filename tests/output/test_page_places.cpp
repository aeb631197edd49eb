// Where things stand on paper, number by number: a changed constant of a layout is a changed page.

#include "kcompute/Analysis.h"
#include "output/PlotDrawing.h"
#include "output/PrintedPlot.h"
#include "output/ReportPages.h"
#include "tests/SourceFolder.h"
#include "tests/output/ArialMeasure.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

const ArialMeasure Arial;

Paper A4WithMargins(double margin) {
    Paper paper;
    paper.printableWidth = 11906 - 2 * margin;
    paper.printableHeight = 16838 - 2 * margin;
    paper.marginLeft = paper.marginTop = paper.marginRight = paper.marginBottom = margin;
    return paper;
}

Analysis Pratt() {
    Analysis analysis;
    OpenProjectFile(test::SourceFolder() + "/examples/pratt-county-1998.qn2", analysis);
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

/// A test that runs up to `lastTime` seconds.
Analysis RunningTo(const char* lastTime) {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatGrid[0] = {"0", "2"};
    analysis.state.RecDatGrid[1] = {lastTime, "1"};
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

const DrawingLabel& Label(const Drawing& drawing, const std::string& text) {
    static const DrawingLabel none;
    const auto found = std::find_if(drawing.labels.begin(), drawing.labels.end(),
                                    [&](const DrawingLabel& label) { return label.text == text; });
    EXPECT_NE(found, drawing.labels.end()) << text;
    return found == drawing.labels.end() ? none : *found;
}

std::vector<DrawingLabel> TimeAxisLabels(const Drawing& drawing) {
    std::vector<DrawingLabel> labels;
    std::copy_if(drawing.labels.begin(), drawing.labels.end(), std::back_inserter(labels),
                 [](const DrawingLabel& label) { return label.group == TimeLabels; });
    return labels;
}

bool HasTimeAxisAt(const Drawing& drawing, double left, double right, double y) {
    return std::any_of(drawing.lines.begin(), drawing.lines.end(), [&](const DrawingLine& line) {
        return line.x1 == left && line.x2 == right && line.y1 == y && line.y2 == y;
    });
}

/// The labels of an axis as the painter sets them, left and right edge of each.
std::vector<std::pair<double, double>> Edges(const std::vector<DrawingLabel>& labels) {
    double scale = 1;
    for (const DrawingLabel& label : labels)
        scale = std::min(scale, label.maxWidth / Arial.Width(label.text, label.points));
    std::vector<std::pair<double, double>> edges;
    for (const DrawingLabel& label : labels) {
        const double half = Arial.Width(label.text, label.points) * scale / 2;
        edges.emplace_back(label.x - half, label.x + half);
    }
    return edges;
}

} // namespace

TEST(PlotPlace, IsTheDescribedOneWhateverItsLabelsHold) {
    for (const char* time : {"9", "999999.99", "1000000", "123456789", "1e14"}) {
        const Paper paper = A4WithMargins(360);
        const Drawing page = DrawPlotPage(RunningTo(time), paper, Arial);
        EXPECT_TRUE(HasTimeAxisAt(page, 2160, 10800, paper.printableHeight - 3960)) << time;
    }
    Analysis named = Pratt();
    for (std::string& text : named.state.SiteIDText)
        text = std::string(2000, 'W');
    named.state.PlotText = {std::string(900, 'M'), std::string(900, 'M'), std::string(900, 'M')};
    Paper paper = A4WithMargins(360);
    paper.printableHeight = 14040;
    EXPECT_TRUE(HasTimeAxisAt(DrawPlotPage(named, paper, Arial), 2160, 10800, 14040 - 3960));
}

TEST(PlotPlace, IsScaledOnlyWhereThePaperIsSmallerThanThePlot) {
    Paper paper;
    paper.printableWidth = 10800;
    paper.printableHeight = 14040;
    EXPECT_TRUE(HasTimeAxisAt(DrawPlotPage(Pratt(), paper, Arial), 2160, 10800, 10080));
    paper.printableWidth = 5400;
    EXPECT_TRUE(HasTimeAxisAt(DrawPlotPage(Pratt(), paper, Arial), 1080, 5400, 14040 - 1980));
    paper.printableWidth = 10800;
    paper.printableHeight = 7020;
    EXPECT_TRUE(HasTimeAxisAt(DrawPlotPage(Pratt(), paper, Arial), 1080, 5400, 7020 - 1980));
}

TEST(LastTimeLabel, StandsOnItsTickWhileThePaperTakesItsInk) {
    Paper paper = A4WithMargins(360);
    paper.reachRight = 360;
    for (const char* time : {"9", "999999.99", "1000000"}) {
        const auto labels = TimeAxisLabels(DrawPlotPage(RunningTo(time), paper, Arial));
        ASSERT_EQ(labels.size(), 6U);
        EXPECT_EQ(labels.back().x, 10800) << time;
        EXPECT_EQ(labels.back().maxWidth, 1728 * 0.9);
    }
    // "1000000.00" is 951 wide: more than the 386 beside the plot, less than those and the margin.
    EXPECT_GT(Edges(TimeAxisLabels(DrawPlotPage(RunningTo("1000000"), paper, Arial))).back().second,
              paper.printableWidth);
}

TEST(LastTimeLabel, GivesWayWhereItWouldLeaveThePaper) {
    for (const double margin : {360.0, 500.0, 553.0}) {
        const Paper paper = A4WithMargins(margin);
        for (const char* time : {"1000000", "100000000", "1e12", "1e14"}) {
            const auto labels = TimeAxisLabels(DrawPlotPage(RunningTo(time), paper, Arial));
            const auto edges = Edges(labels);
            EXPECT_LE(edges.back().second, paper.printableWidth + 1e-6) << time;
            if (labels.back().x != 10800) {
                EXPECT_NEAR(edges.back().second, paper.printableWidth, 1e-6) << time;
            }
            if (margin > 400) {
                EXPECT_LT(labels.back().x, 10800) << time;
            }
            for (std::size_t i = 1; i < edges.size(); ++i)
                EXPECT_GE(edges[i].first, edges[i - 1].second + 1728 * 0.05 - 1e-6) << time;
            for (std::size_t i = 0; i < 5; ++i)
                EXPECT_EQ(labels[i].x, 2160 + 1728 * static_cast<double>(i));
        }
    }
}

TEST(PlotHeader, StandsAtItsRows) {
    Analysis analysis = Pratt();
    analysis.state.SiteIDText[ProfessionalName] = "A. Rivers";
    const Drawing page = DrawPlotPage(analysis, A4WithMargins(360), Arial);
    const double row = Arial.Height(9) + 20;
    EXPECT_EQ(Label(page, "LUST No.: ").y, 360);
    EXPECT_NEAR(Label(page, "Well: Well 4").y, 360 + row, 1e-9);
    EXPECT_NEAR(Label(page, "CGWP: A. Rivers").y, 360 + 3 * row, 1e-9);
    EXPECT_EQ(Label(page, "CGWP: A. Rivers").x, 2160);
    const double axisY = 16118 - 3960;
    EXPECT_EQ(Label(page, "Hydraulic Conductivity: 3.6 m/day").y, axisY + 900);
    EXPECT_EQ(Label(page, "Hydraulic Conductivity: 3.6 m/day").x, 6480);
    EXPECT_TRUE(HasTimeAxisAt(page, 2160, 10800, 360 + row - 10)); // the rule below the first row
    const double titles = 2 * Arial.Height(11);
    EXPECT_NEAR(Label(page, analysis.state.PlotText[0]).y,
                (360 + 4 * row + axisY - 8640 - titles) / 2, 1e-9);
}

TEST(PlotLegendPlace, IsOneRowBelowKInLineWithThePlot) {
    const Drawing page = DrawPlotPage(Pratt(), A4WithMargins(360), Arial, true);
    const double row = 16118 - 3960 + 1400;
    const DrawingLabel& used = Label(page, "used in the fit");
    const DrawingLabel& other = Label(page, "not used");
    EXPECT_EQ(used.y, row);
    EXPECT_EQ(other.y, row);
    EXPECT_EQ(other.x, used.x + 1900);
    const auto circles = page.circles.end() - 2;
    for (const auto& [circle, words] : {std::pair(circles[0], used), {circles[1], other}}) {
        EXPECT_EQ(circle.y, row);
        EXPECT_EQ(circle.x + 120, words.x);
    }
    EXPECT_EQ(circles[0].x - circles[0].radius, 2160); // where the time axis begins
}

TEST(PlotHeader, WrapsANameAtItsColumn) {
    Analysis analysis = Pratt();
    analysis.state.SiteIDText[LustNo] = std::string(50, 'a');
    const Drawing page = DrawPlotPage(analysis, A4WithMargins(360), Arial);
    // "LUST No.:" and then 28 of the letters, 100.08 wide each, in 2850.
    EXPECT_EQ(Label(page, std::string(28, 'a')).points, 9);
    EXPECT_EQ(Label(page, std::string(28, 'a')).maxWidth, 2850);
    analysis.state.SiteIDText[LustNo] = std::string(1'000'000, 'a');
    const Drawing cut = DrawPlotPage(analysis, A4WithMargins(360), Arial);
    const auto dots = std::count_if(cut.labels.begin(), cut.labels.end(),
                                    [](const auto& label) { return label.text.ends_with("a..."); });
    EXPECT_EQ(dots, 1);
}

TEST(ReportPlace, BlocksAndTableStandAtTheirPlaces) {
    const Analysis analysis = Pratt();
    const Paper paper = A4WithMargins(360);
    const ReportPages pages(analysis, paper, Arial);
    const Drawing page = pages.Page(0);
    // 1080 from the paper's edge, that is 720 inside of the margins.
    const double left = 720;
    const double width = 11186 - 2 * 720.0;
    const auto line = [](double points) { return Arial.Height(points) * 1.18; };
    const DrawingLabel& title = Label(page, "BOUWER-RICE SLUG TEST ANALYSIS");
    EXPECT_EQ(title.x, left);
    EXPECT_EQ(title.y, 720);
    EXPECT_EQ(title.points, 13);
    const double third = (width - 2 * 300) / 3;
    const double blocks = 720 + line(13) + 260;
    EXPECT_NEAR(Label(page, "SITE").y, blocks, 1e-9);
    EXPECT_EQ(Label(page, "SITE").points, 8.5);
    EXPECT_NEAR(Label(page, "CLIENT").x, left + third + 300, 1e-9);
    EXPECT_NEAR(Label(page, "CONSULTANT").x, left + 2 * (third + 300), 1e-9);
    EXPECT_NEAR(Label(page, "Site 36").y, blocks + line(8.5) + 50, 1e-9);
    EXPECT_EQ(Label(page, "Site 36").points, 9.5);
    EXPECT_NEAR(Label(page, "Site 36").maxWidth, third, 1e-9);
    const double cell = width / 5;
    EXPECT_NEAR(Label(page, "Fit Criteria").x, left + 2.5 * cell, 1e-9);
    EXPECT_EQ(Label(page, "Fit Criteria").points, 9);
    EXPECT_NEAR(Label(page, "Fit Criteria").maxWidth, cell - 120, 1e-9);
    const DrawingLabel& number = Label(page, "Page 1 of 2");
    EXPECT_EQ(number.x, left + width);
    EXPECT_EQ(number.points, 8);
    EXPECT_NEAR(number.y, 16118 - 720 - Arial.Height(8), 1e-9);
}

TEST(ReportPlace, KIsLouderThanTheRest) {
    const Analysis analysis = Pratt();
    const Drawing page = ReportPages(analysis, A4WithMargins(360), Arial).Page(0);
    const DrawingLabel& k = Label(page, "Hydraulic Conductivity: 3.6 m/day");
    EXPECT_TRUE(k.bold);
    EXPECT_EQ(k.points, 20);
    for (const DrawingLabel& label : page.labels)
        if (&label != &k) {
            EXPECT_LT(label.points, 0.7 * k.points) << label.text;
        }
    EXPECT_NEAR(Label(page, "Monitoring Well: Well 4").y, k.y + Arial.Height(20) * 1.18, 1e-9);
}

TEST(ReportPlace, NumbersStandOnTheirDecimalPoint) {
    const Analysis analysis = Pratt();
    const Drawing page = ReportPages(analysis, A4WithMargins(360), Arial).Page(0);
    const double cell = (11186 - 2 * 720.0) / 5;
    const double point = 720 + 0.5 * cell;
    EXPECT_NEAR(Label(page, "0.4").x, point - Arial.Width("0", 9), 1e-9);
    const Drawing last = ReportPages(analysis, A4WithMargins(360), Arial).Page(1);
    EXPECT_NEAR(Label(last, "354.9").x, point - Arial.Width("354", 9), 1e-9);
}

TEST(ReportPlace, NothingStandsBelowTheFootOrOutsideTheText) {
    Analysis analysis = Pratt();
    analysis.state.WellTestIDTxt[WellLabel] = std::string(5000, 'W');
    analysis.state.SiteIDText[SiteName] = std::string(30'000, 'W');
    const ReportPages pages(analysis, A4WithMargins(360), Arial);
    const double foot = 16118 - 720 - 420;
    for (std::size_t page = 0; page < pages.Count(); ++page)
        for (const DrawingLabel& label : pages.Page(page).labels) {
            EXPECT_GE(label.x, 720);
            EXPECT_LE(label.x, 11186 - 720);
            if (label.points != 8) {
                EXPECT_LE(label.y + Arial.Height(label.points), foot + 1e-9) << label.text;
            }
            if (label.across == Across::Left && label.maxWidth > 0) {
                EXPECT_LE(Arial.Width(label.text, label.points), label.maxWidth + 1e-9);
            }
        }
}

TEST(ReportPlace, ALongReadingRunsOverLinesAndTwelveAtMost) {
    Analysis analysis = RunningTo("9");
    analysis.state.RecDatGrid[1].time = "9." + std::string(60, '0');
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const Paper paper = A4WithMargins(360);
    // 1829.2 wide, 100.08 a figure: 18 to a line.
    EXPECT_EQ(Label(ReportPages(analysis, paper, Arial).Page(0), std::string(18, '0')).points, 9);
    analysis.state.RecDatGrid[1].time = "9." + std::string(400'000, '0');
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing page = ReportPages(analysis, paper, Arial).Page(0);
    const auto lines = std::count_if(page.labels.begin(), page.labels.end(), [](const auto& label) {
        return label.text.starts_with("0000000000") || label.text.starts_with("9.00000");
    });
    EXPECT_EQ(lines, 12);
}

} // namespace quarnel

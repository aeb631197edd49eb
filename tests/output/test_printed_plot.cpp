#include "output/PrintedPlot.h"
#include "tests/SourceFolder.h"

#include "kcompute/Analysis.h"
#include "output/ReportPages.h"
#include "tests/output/ArialMeasure.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

// Printable areas in twips, with margins of a quarter of an inch.
constexpr double LetterWidth = 11520;
constexpr double LetterHeight = 15120;
constexpr double A4Width = 11906 - 720;
constexpr double A4Height = 16838 - 720;

const ArialMeasure Arial;

Paper PaperOf(double width, double height) {
    Paper paper;
    paper.printableWidth = width;
    paper.printableHeight = height;
    return paper;
}

Drawing DrawOnPaper(const Analysis& analysis, double width, double height) {
    return DrawPlotPage(analysis, PaperOf(width, height), Arial);
}

Analysis Pratt() {
    Analysis analysis;
    OpenProjectFile(test::SourceFolder() + "/examples/pratt-county-1998.qn2", analysis);
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

const DrawingLabel* Label(const Drawing& drawing, const std::string& text) {
    const auto found = std::find_if(drawing.labels.begin(), drawing.labels.end(),
                                    [&](const DrawingLabel& label) { return label.text == text; });
    return found == drawing.labels.end() ? nullptr : &*found;
}

/// Where a label's left and right edges lie when set in Arial.
std::pair<double, double> Edges(const DrawingLabel& label) {
    double width = Arial.Width(label.text, label.points);
    if (label.maxWidth > 0)
        width = std::min(width, label.maxWidth);
    const double left = label.across == Across::Left     ? label.x
                        : label.across == Across::Centre ? label.x - width / 2
                                                         : label.x - width;
    return {left, left + width};
}

void ExpectInside(const Drawing& drawing) {
    for (const DrawingLabel& label : drawing.labels) {
        if (label.turned)
            continue;
        const auto [left, right] = Edges(label);
        EXPECT_GE(left, 0) << label.text;
        EXPECT_LE(right, drawing.width + 1) << label.text;
        EXPECT_GE(label.y, 0) << label.text;
        EXPECT_LE(label.y, drawing.height) << label.text;
    }
    for (const DrawingCircle& circle : drawing.circles) {
        EXPECT_GE(circle.x, 0);
        EXPECT_LE(circle.x, drawing.width);
    }
}

} // namespace

TEST(PrintedPlot, StandsWhereThePageConstantsSay) {
    const Drawing page = DrawOnPaper(Pratt(), LetterWidth, LetterHeight);
    const double axisY = LetterHeight - 3960;
    const auto isAxis = [&](const DrawingLine& line) {
        return line.x1 == 2160 && line.x2 == 10800 && line.y1 == axisY && line.y2 == axisY;
    };
    EXPECT_TRUE(std::any_of(page.lines.begin(), page.lines.end(), isAxis));
    for (int i = 0; i <= 5; ++i) {
        const double x = 2160 + i * 8640 / 5.0;
        EXPECT_TRUE(std::any_of(page.lines.begin(), page.lines.end(), [&](const DrawingLine& line) {
            return line.x1 == x && line.x2 == x && line.y2 == axisY + 75;
        })) << i;
    }
    const DrawingLabel* last = Label(page, "354.90");
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->x, 10800);
    EXPECT_EQ(last->y, axisY + 85);
    EXPECT_EQ(last->across, Across::Centre);
}

TEST(PrintedPlot, PointsAndLineAreMappedAndColoured) {
    const Analysis analysis = Pratt();
    const Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    const double axisY = LetterHeight - 3960;
    const auto& point = (*analysis.working.recovery.RecoveryPoints)[47];
    const double x = 2160 + 79.5 / 354.9 * 8640;
    const double y = axisY - (point.Log10Y() + 3) / 3 * 8640;
    const auto circle =
        std::find_if(page.circles.begin(), page.circles.end(), [&](const DrawingCircle& c) {
            return std::fabs(c.x - x) < 1e-6 && std::fabs(c.y - y) < 1e-6;
        });
    ASSERT_NE(circle, page.circles.end());
    EXPECT_EQ(circle->radius, 65);
    EXPECT_EQ(circle->colour, DrawingColour::Red);
    EXPECT_EQ(std::count_if(page.circles.begin(), page.circles.end(),
                            [](const DrawingCircle& c) { return c.colour == DrawingColour::Red; }),
              3);
    const auto line = std::find_if(page.lines.begin(), page.lines.end(), [](const DrawingLine& l) {
        return l.colour == DrawingColour::Red;
    });
    ASSERT_NE(line, page.lines.end());
    EXPECT_GE(std::min(line->y1, line->y2), axisY - 8640);
    EXPECT_LE(std::max(line->y1, line->y2), axisY);
}

TEST(PrintedPlot, RisingFitDrawsNoLine) {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatGrid[0] = {"0", "1"};
    analysis.state.RecDatGrid[1] = {"5", "2"};
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    EXPECT_EQ(page.circles.size(), 2U);
    for (const DrawingLine& line : page.lines)
        EXPECT_NE(line.colour, DrawingColour::Red);
}

TEST(PrintedPlot, HeaderNamesSiteAndWell) {
    Analysis analysis = Pratt();
    analysis.state.SiteIDText[LustNo] = " 45 ";
    analysis.state.SiteIDText[ConsultantName] = "Rivers Inc.";
    analysis.state.SiteIDText[ProfessionalName] = "A. Rivers";
    analysis.state.WellTestIDTxt[TestDate] = "4/12/98";
    Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    for (const char* text :
         {"LUST No.: 45", "Site Name: Site 36", "Well: Well 4", "Slug Test Date: 4/12/98",
          "Rivers Inc.", "A. Rivers", "CGWP: A. Rivers", "Hydraulic Conductivity: 3.6 m/day"})
        EXPECT_NE(Label(page, text), nullptr) << text;
    EXPECT_EQ(Label(page, "Site Name: Site 36")->x - Label(page, "LUST No.: 45")->x, 3000);
    analysis.state.SiteIDText[CertificationNo] = "17";
    page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    EXPECT_NE(Label(page, "A. Rivers, 17"), nullptr);
}

TEST(PrintedPlot, AllThreeTitlesEmptyPrintsNoTitleLines) {
    Analysis analysis = Pratt();
    const Drawing with = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    const DrawingLabel* title = Label(with, analysis.state.PlotText[0]);
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->points, 11);
    EXPECT_EQ(title->x, 6480);
    EXPECT_EQ(title->across, Across::Centre);
    analysis.state.PlotText = {"", "  ", ""};
    const Drawing without = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    EXPECT_EQ(without.labels.size() + 2, with.labels.size());
    EXPECT_EQ(without.lines.size(), with.lines.size());
    EXPECT_EQ(without.circles.size(), with.circles.size());
}

TEST(PrintedPlot, NothingIsCutOffOnLetterOrA4) {
    Analysis analysis = Pratt();
    analysis.state.SiteIDText[SiteName] = std::string(300, 'W');
    analysis.state.PlotText = {std::string(400, 'M'), "a title", "another"};
    ExpectInside(DrawOnPaper(analysis, LetterWidth, LetterHeight));
    ExpectInside(DrawOnPaper(analysis, A4Width, A4Height));
    ExpectInside(DrawOnPaper(analysis, 8000, 9000));
}

TEST(PrintedPlot, ASmallPageIsTheWholePageScaled) {
    const Analysis analysis = Pratt();
    const Drawing full = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    const Drawing small = DrawOnPaper(analysis, 5400, LetterHeight);
    const DrawingLabel* first = Label(full, "0.1");
    const DrawingLabel* second = Label(small, "0.1");
    ASSERT_TRUE(first != nullptr && second != nullptr);
    const double factor = second->points / first->points;
    EXPECT_DOUBLE_EQ(factor, 0.5);
    EXPECT_NEAR(second->x, factor * first->x, 1e-6);
    EXPECT_NEAR(second->maxWidth, factor * first->maxWidth, 1e-6);
    EXPECT_GT(first->maxHeight, 0);
    EXPECT_NEAR(second->maxHeight, factor * first->maxHeight, 1e-6);
    EXPECT_NEAR(small.circles.front().radius, factor * 65, 1e-6);
}

TEST(PrintedPlot, LongNamesDoNotRunIntoEachOther) {
    Analysis analysis = Pratt();
    analysis.state.SiteIDText[LustNo] = "A very long registration of a site with many words in it";
    const Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    const double second = Label(page, "Site Name: Site 36")->x;
    for (const DrawingLabel& label : page.labels) {
        if (label.across == Across::Left && label.x < second) {
            EXPECT_LE(Edges(label).second, second) << label.text;
        }
    }
}

TEST(PrintedPlot, WithoutAComputationShowsThePreparedPointsAllBlue) {
    Analysis analysis = Pratt();
    analysis.computation.reset();
    const Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    for (const DrawingLabel& label : page.labels)
        EXPECT_EQ(label.text.find("Hydraulic"), std::string::npos);
    EXPECT_FALSE(page.circles.empty());
    for (const DrawingCircle& circle : page.circles)
        EXPECT_EQ(circle.colour, DrawingColour::Blue);
    for (const DrawingLine& line : page.lines)
        EXPECT_NE(line.colour, DrawingColour::Red);
}

TEST(PrintedPlot, IsThatOfTheComputationWhateverIsPreparedAfterwards) {
    Analysis analysis = Pratt();
    const Drawing before = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    analysis.state.RecDatGrid[0].level = "99";
    analysis.state.RecDatTimeUnitsDDL = Minute;
    CheckDataShowYs(analysis);
    const Drawing after = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    ASSERT_EQ(after.labels.size(), before.labels.size());
    for (std::size_t i = 0; i < after.labels.size(); ++i)
        EXPECT_EQ(after.labels[i].text, before.labels[i].text);
    EXPECT_EQ(after.circles.size(), before.circles.size());
}

TEST(PrintedPlot, EmptyProjectGivesAHeaderAndNoPlot) {
    const Drawing page = DrawOnPaper(Analysis(), LetterWidth, LetterHeight);
    EXPECT_NE(Label(page, "LUST No.: "), nullptr);
    EXPECT_TRUE(page.circles.empty());
}

TEST(PrintedPlot, AHundredThousandPointsAreDrawnOncePerSpot) {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatGrid.clear();
    for (int i = 0; i < 100'000; ++i)
        analysis.state.RecDatGrid.push_back(
            {std::to_string(i), std::to_string(9.0 * std::exp(-i * 2e-5))});
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const Drawing page = DrawOnPaper(analysis, LetterWidth, LetterHeight);
    EXPECT_GT(page.circles.size(), 500U);
    EXPECT_LT(page.circles.size(), 8000U);
}

TEST(ReportPages, EveryPageRepeatsTheTablesHeadingAndItsNumber) {
    Analysis analysis = Pratt();
    Paper paper;
    paper.printableWidth = LetterWidth;
    paper.printableHeight = LetterHeight;
    const ReportPages pages(analysis, paper, Arial);
    ASSERT_EQ(pages.Count(), 2U);
    for (std::size_t page = 0; page < pages.Count(); ++page) {
        const Drawing drawing = pages.Page(page);
        EXPECT_NE(Label(drawing, "Fit Criteria"), nullptr);
        EXPECT_NE(Label(drawing, "Monitoring Well: Well 4"), nullptr);
        EXPECT_NE(Label(drawing, "Page " + std::to_string(page + 1) + " of 2"), nullptr);
        ExpectInside(drawing);
    }
}

TEST(ReportPages, EveryPointStandsOnExactlyOnePageAboveItsFoot) {
    Analysis analysis = Pratt();
    Paper paper;
    paper.printableWidth = A4Width;
    paper.printableHeight = 7000;
    const ReportPages pages(analysis, paper, Arial);
    std::size_t marks = 0;
    for (std::size_t page = 0; page < pages.Count(); ++page) {
        const Drawing drawing = pages.Page(page);
        const std::string foot =
            "Page " + std::to_string(page + 1) + " of " + std::to_string(pages.Count());
        const DrawingLabel* number = Label(drawing, foot);
        ASSERT_NE(number, nullptr);
        for (const DrawingLabel& label : drawing.labels) {
            if (label.text != "Use" && label.text != "Ignore")
                continue;
            ++marks;
            EXPECT_LE(label.y + Arial.Height(label.points), number->y);
        }
    }
    EXPECT_EQ(marks, 61U);
}

} // namespace quarnel

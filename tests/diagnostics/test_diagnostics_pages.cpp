#include "diagnostics/DiagnosticsPages.h"
#include "diagnostics/DiagnosticsSheet.h"

#include "tests/diagnostics/DiagnosticsTestSupport.h"
#include "tests/output/ArialMeasure.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr DiagnosticsPage AllPages[] = {DiagnosticsPage::Statistics, DiagnosticsPage::Windows,
                                        DiagnosticsPage::Checks, DiagnosticsPage::Sensitivity,
                                        DiagnosticsPage::Residuals};

std::string Copied(const ProjectState& state, DiagnosticsPage page) {
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    const DiagnosticsLines lines(diagnostics.Source(), state);
    return TabText(TextsOfPage(page, diagnostics, lines, DefaultSensitivityPercent));
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t from = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', from)) {
        lines.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    EXPECT_EQ(from, text.size()) << "The last line does not end";
    return lines;
}

Paper PaperOfSize(double width, double height) {
    Paper paper;
    paper.printableWidth = width;
    paper.printableHeight = height;
    paper.marginLeft = paper.marginTop = paper.marginRight = paper.marginBottom = 360;
    return paper;
}

const ArialMeasure Arial;

/// A4 with the margins of a printer.
const Paper A4 = PaperOfSize(11186, 16118);

bool HasLabel(const Drawing& drawing, const std::string& part) {
    return std::any_of(
        drawing.labels.begin(), drawing.labels.end(),
        [&](const DrawingLabel& label) { return label.text.find(part) != std::string::npos; });
}

double LeftOf(const DrawingLabel& label) {
    const double width =
        std::min(Arial.Width(label.text, label.points), label.maxWidth > 0 ? label.maxWidth : 1e9);
    return label.across == Across::Right    ? label.x - width
           : label.across == Across::Centre ? label.x - width / 2
                                            : label.x;
}

} // namespace

TEST(DiagnosticsPages, StatisticsAreCopiedWithATabBetweenLabelAndValue) {
    const std::vector<std::string> lines =
        LinesOf(Copied(test::PrattProject(), DiagnosticsPage::Statistics));
    EXPECT_EQ(lines[0], "Points used\t3 of 61");
    EXPECT_EQ(lines[1], "K\t3.6 m/day");
    EXPECT_EQ(lines[13], IntervalNote);
    EXPECT_EQ(lines[14], NoSlugVolumeText);
    EXPECT_EQ(lines[15].substr(0, 17), "Hvorslev (1951): ");
    EXPECT_EQ(lines.size(), 16U);
}

TEST(DiagnosticsPages, HeadWindowsAreCopiedWithHeadings) {
    const std::vector<std::string> lines =
        LinesOf(Copied(test::PrattProject(), DiagnosticsPage::Windows));
    EXPECT_EQ(lines[0], "Normalized head\tPoints\tK (m/day)\tR2\tChange");
    EXPECT_EQ(lines[5].substr(0, 12), "0.30-0.20\t3\t");
    EXPECT_EQ(lines[9], NoSegmentsText);
    EXPECT_EQ(lines.size(), 10U);
}

TEST(DiagnosticsPages, ChecksAreCopiedWithTheirLevelInWords) {
    const std::vector<std::string> lines =
        LinesOf(Copied(test::PrattProject(), DiagnosticsPage::Checks));
    EXPECT_EQ(lines.front(), "Level\tCheck\tText");
    EXPECT_EQ(lines[1].substr(0, 14), "Note\tACCURACY\t");
    EXPECT_EQ(lines.back(), ChecksNote);
}

TEST(DiagnosticsPages, WhatMovesKIsCopiedTheLargestFirst) {
    const std::vector<std::string> lines =
        LinesOf(Copied(test::PrattProject(), DiagnosticsPage::Sensitivity));
    EXPECT_EQ(lines[0].substr(0, 14), "Largest here: ");
    EXPECT_EQ(lines[1], "What is changed\tK (m/day)\tChange\tK (m/day)\tChange");
    EXPECT_EQ(lines[2].substr(0, 16), "drained porosity");
    EXPECT_EQ(lines.back(), CurvesNote);
}

TEST(DiagnosticsPages, ResidualsAreCopiedPointByPoint) {
    const std::vector<std::string> lines =
        LinesOf(Copied(test::PrattProject(), DiagnosticsPage::Residuals));
    EXPECT_EQ(lines[0].substr(0, 13), "Residuals: s ");
    EXPECT_EQ(lines[1], "Point\tTime (sec)\tln Y (cm)\tResidual");
    EXPECT_EQ(lines.size(), 5U);
}

TEST(DiagnosticsPages, TwoPointsHaveNoResiduals) {
    EXPECT_EQ(Copied(test::ProjectOf({0, 10}, {100, 50}), DiagnosticsPage::Residuals),
              "2 points: no residuals.\n");
}

TEST(DiagnosticsPages, NoLineOfAnyPageIsEmpty) {
    for (const ProjectState& state : {test::PrattProject(), test::ProjectOf({0, 10}, {100, 50}),
                                      test::ProjectOf({0, 10, 20}, {100, 100, 100}),
                                      test::ProjectOf({0, 10, 20}, {100, 110, 120})})
        for (const DiagnosticsPage page : AllPages)
            for (const std::string& line : LinesOf(Copied(state, page))) {
                EXPECT_FALSE(line.empty());
                EXPECT_EQ(line.find("nan"), std::string::npos) << line;
            }
}

TEST(DiagnosticsSheet, HasAllPagesAndBothPictures) {
    const ProjectState state = test::PrattProject();
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    const DiagnosticsSheet sheet(diagnostics, state, DefaultSensitivityPercent, A4, Arial);
    ASSERT_EQ(sheet.Count(), 2U);
    for (const char* part : {"Diagnostics", "3 of 61 readings used", "Statistics", "Head Windows",
                             "Checks", "Durbin-Watson", "Page 1 of 2"})
        EXPECT_TRUE(HasLabel(sheet.Page(0), part)) << part;
    for (const char* part : {"What Moves K", "Largest here", "Residuals: s ", "ln Y (cm)"})
        EXPECT_TRUE(HasLabel(sheet.Page(1), part)) << part;
    EXPECT_GT(sheet.Page(1).circles.size(), 10U);
}

TEST(DiagnosticsSheet, NothingLeavesThePaperOrRunsIntoTheFoot) {
    const ProjectState state = test::PrattProject();
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    for (const Paper& paper : {A4, PaperOfSize(12240, 15120), PaperOfSize(6000, 8000)}) {
        const DiagnosticsSheet sheet(diagnostics, state, DefaultSensitivityPercent, paper, Arial);
        for (std::size_t page = 0; page < sheet.Count(); ++page) {
            const Drawing drawing = sheet.Page(page);
            const double foot = drawing.labels.back().y;
            for (const DrawingLabel& label : drawing.labels) {
                EXPECT_GE(LeftOf(label), -1) << label.text;
                EXPECT_TRUE(label.y == foot || label.y + Arial.Height(label.points) < foot + 1)
                    << label.text;
            }
            for (const DrawingLine& line : drawing.lines) {
                EXPECT_LE(std::max(line.x1, line.x2), paper.printableWidth);
                EXPECT_LE(std::max(line.y1, line.y2), foot + 1);
            }
        }
    }
}

TEST(DiagnosticsSheet, ATableStandsOnOnePage) {
    const ProjectState state = test::PrattProject();
    Diagnostics diagnostics = test::DiagnosticsOf(state);
    const DiagnosticsSheet sheet(diagnostics, state, DefaultSensitivityPercent, A4, Arial);
    for (std::size_t page = 0; page < sheet.Count(); ++page)
        EXPECT_EQ(HasLabel(sheet.Page(page), "What is changed"),
                  HasLabel(sheet.Page(page), "readings 0.30-0.20"));
}

} // namespace quarnel

#include "compare/RecordPages.h"

#include "compare/TestRecord.h"
#include "tests/SourceFolder.h"
#include "tests/output/ArialMeasure.h"

#include <gtest/gtest.h>

namespace quarnel {

namespace {

const ArialMeasure Arial;

Paper A4() {
    Paper paper;
    paper.printableWidth = 11186;
    paper.printableHeight = 16118;
    paper.marginLeft = paper.marginTop = paper.marginRight = paper.marginBottom = 360;
    return paper;
}

AnalysisRun Example(const std::string& name) {
    return RunAnalysis(test::SourceFolder() + "/examples/" + name, ".");
}

std::string TextOf(const Drawing& drawing) {
    std::string text;
    for (const DrawingLabel& label : drawing.labels)
        text += label.text + "\n";
    return text;
}

std::string TextOf(const RecordPages& pages) {
    std::string text;
    for (std::size_t page = 0; page < pages.Count(); ++page)
        text += TextOf(pages.Page(page));
    return text;
}

} // namespace

TEST(RecordPages, HoldTheSectionsAndThePlotOnAPageOfItsOwn) {
    const AnalysisRun run = Example("pratt-county-1998.qn2");
    const RecordPages pages(run, A4(), Arial);
    ASSERT_GE(pages.Count(), 3U);
    const std::string text = TextOf(pages);
    std::size_t at = 0;
    for (const char* part : {"Record of the slug test\n", "Site name: Site 36\n", "Well\n",
                             "Construction log (number, date): \n", "Test\n", "Readings\n",
                             "354.9\n", "Analysis\n", "K: 3.6 m/day\n", "As marked\n", "Checks\n",
                             "Prepared by: \n", "Date: \n", "Signature: \n"}) {
        at = text.find(part, at);
        ASSERT_NE(at, std::string::npos) << part;
    }
    const Drawing plot = pages.Page(pages.Count() - 1);
    EXPECT_NE(TextOf(plot).find("Hydraulic Conductivity: 3.6 m/day\n"), std::string::npos);
    EXPECT_GT(plot.circles.size(), 50U);
    for (std::size_t page = 0; page + 1 < pages.Count(); ++page)
        EXPECT_TRUE(pages.Page(page).circles.empty());
}

TEST(RecordPages, ReadingsRepeatTheirHeadingsOnEveryPage) {
    const AnalysisRun run = Example("pratt-county-1998.qn2");
    const RecordPages pages(run, A4(), Arial);
    std::size_t pagesWithReadings = 0;
    for (std::size_t page = 0; page < pages.Count(); ++page) {
        const std::string text = TextOf(pages.Page(page));
        if (text.find("\nIgnore\n") == std::string::npos)
            continue;
        ++pagesWithReadings;
        EXPECT_NE(text.find("Fit Criteria\n"), std::string::npos) << page;
    }
    EXPECT_GE(pagesWithReadings, 2U);
}

TEST(RecordPages, NothingLeavesThePaper) {
    const AnalysisRun run = Example("every-field.qn2");
    const Paper paper = A4();
    const RecordPages pages(run, paper, Arial);
    for (std::size_t page = 0; page + 1 < pages.Count(); ++page)
        for (const DrawingLabel& label : pages.Page(page).labels) {
            const double width = std::min(Arial.Width(label.text, label.points), label.maxWidth);
            const double left = label.across == Across::Right ? label.x - width : label.x;
            EXPECT_GE(left, 0) << label.text;
            EXPECT_LE(left + width, paper.printableWidth + 1) << label.text;
            EXPECT_LE(label.y + Arial.Height(label.points), paper.printableHeight) << label.text;
        }
}

TEST(RecordPages, WithoutAKThereIsNoPlot) {
    AnalysisRun run;
    const RecordPages pages(run, A4(), Arial);
    EXPECT_NE(TextOf(pages).find("K was not computed.\n"), std::string::npos);
    for (std::size_t page = 0; page < pages.Count(); ++page)
        EXPECT_TRUE(pages.Page(page).circles.empty());
}

} // namespace quarnel

#include "output/TextMeasure.h"

#include "output/PrintedPlot.h"
#include "output/ReportPages.h"
#include "tests/output/ArialMeasure.h"

#include <gtest/gtest.h>

namespace quarnel {

namespace {

/// Every character is as wide as the font is large, so that widths can be counted by hand.
class SquareMeasure : public TextMeasure {
public:
    double Width(std::string_view text, double points, bool) const override {
        return static_cast<double>(text.size()) * points;
    }
    double Height(double points) const override { return points; }
};

using Lines = std::vector<std::string>;

Lines Wrap(std::string_view text, double maxWidth, std::size_t mostLines = AnyNumberOfLines) {
    return WrapText(text, 1, maxWidth, SquareMeasure(), mostLines);
}

constexpr double LetterWidth = 11520;
constexpr double LetterHeight = 15120;

Paper Letter() {
    Paper paper;
    paper.printableWidth = LetterWidth;
    paper.printableHeight = LetterHeight;
    return paper;
}

/// A project whose every printed text is as long as that; nothing is computed.
Analysis LongTexts(std::size_t length) {
    Analysis analysis;
    for (std::string& text : analysis.state.SiteIDText)
        text = std::string(length, 'W');
    for (std::string& text : analysis.state.WellTestIDTxt)
        text = std::string(length, 'i');
    for (std::string& text : analysis.state.PlotText)
        text = std::string(length, 'm');
    return analysis;
}

std::size_t MeasuredForPlotPage(std::size_t length) {
    const ArialMeasure measure;
    DrawPlotPage(LongTexts(length), Letter(), measure);
    return measure.MeasuredCharacters();
}

std::size_t MeasuredForReport(std::size_t length) {
    const Analysis analysis = LongTexts(length);
    const ArialMeasure measure;
    const ReportPages pages(analysis, Letter(), measure);
    for (std::size_t page = 0; page < pages.Count(); ++page)
        pages.Page(page);
    return measure.MeasuredCharacters();
}

} // namespace

TEST(WrapText, BreaksAtTheLastBlankThatHasRoom) {
    EXPECT_EQ(Wrap("one two three", 7), (Lines{"one two", "three"}));
    EXPECT_EQ(Wrap("one two three", 8), (Lines{"one two", "three"}));
    EXPECT_EQ(Wrap("one two three", 6), (Lines{"one", "two", "three"}));
    EXPECT_EQ(Wrap("one two three", 13), (Lines{"one two three"}));
}

TEST(WrapText, CutsAWordThatHasNoRoomBetweenCharacters) {
    EXPECT_EQ(Wrap("abcdefgh", 3), (Lines{"abc", "def", "gh"}));
    EXPECT_EQ(Wrap("a bcdefgh", 3), (Lines{"a", "bcd", "efg", "h"}));
    EXPECT_EQ(Wrap("abc def", 0.5), (Lines{"a", "b", "c", "d", "e", "f"}));
}

TEST(WrapText, KeepsBlanksThatAreNoBreaks) {
    EXPECT_EQ(Wrap(" abcd", 3), (Lines{" ab", "cd"}));
    EXPECT_EQ(Wrap("ab  cd", 3), (Lines{"ab ", "cd"}));
    EXPECT_EQ(Wrap("abc ", 3), (Lines{"abc"}));
    EXPECT_EQ(Wrap("", 3), (Lines{""}));
}

TEST(WrapText, NeverCutsACharacter) {
    const Lines lines = WrapText("\u00e9\u4e95\U0001F600\u00e9", 1, 4, SquareMeasure());
    EXPECT_EQ(lines, (Lines{"\u00e9", "\u4e95", "\U0001F600", "\u00e9"}));
    EXPECT_EQ(Wrap("\xE4\xBA", 1), (Lines{"\xE4\xBA"})); // cut off at the text's end
}

TEST(WrapText, EndsInDotsWhereTheTextGoesOn) {
    EXPECT_EQ(Wrap("one two three", 7, 1), (Lines{"one ..."}));
    EXPECT_EQ(Wrap("one two three", 7, 2), (Lines{"one two", "three"}));
    EXPECT_EQ(Wrap("abcdefghij", 5, 1), (Lines{"ab..."}));
    EXPECT_EQ(Wrap("abcde", 5, 1), (Lines{"abcde"}));
}

TEST(CountLines, CountsWhatWrapTextMakes) {
    const SquareMeasure square;
    EXPECT_EQ(CountLines("one two three", 1, 7, square, 9), 2U);
    EXPECT_EQ(CountLines("", 1, 7, square, 9), 1U);
    EXPECT_EQ(CountLines("abcdefgh", 1, 1, square, 3), 4U);
}

TEST(WrapText, LooksAtEachCharacterOnce) {
    for (const std::size_t length : {100'000U, 1'000'000U}) {
        const ArialMeasure measure;
        const Lines lines = WrapText(std::string(length, 'W'), 9, 5000, measure);
        EXPECT_GT(lines.size(), length / 100);
        EXPECT_EQ(measure.MeasuredCharacters(), length);
    }
    const ArialMeasure measure;
    std::string words;
    for (int i = 0; i < 100'000; ++i)
        words += "well ";
    WrapText(words, 9, 5000, measure);
    EXPECT_LE(measure.MeasuredCharacters(), words.size());
}

TEST(WrapText, LooksAtNothingBehindTheLastLineAskedFor) {
    const ArialMeasure measure;
    WrapText(std::string(1'000'000, 'W'), 9, 5000, measure, 3);
    EXPECT_LT(measure.MeasuredCharacters(), 500U);
}

TEST(PrintedPlot, MeasuresNoMoreOfATextThanItPrints) {
    const std::size_t longText = MeasuredForPlotPage(400'000);
    EXPECT_EQ(MeasuredForPlotPage(1'000'000), longText);
    EXPECT_LT(longText, 100'000U);
}

TEST(ReportPages, MeasureALongTextInLinearTime) {
    const std::size_t once = MeasuredForReport(20'000);
    const std::size_t tenTimes = MeasuredForReport(200'000);
    // The running foot of each page, too, costs only its own line.
    EXPECT_LT(tenTimes, once * 11);
    EXPECT_GT(tenTimes, once * 9);
}

} // namespace quarnel

// The short text of a grid cell: up to 15 bytes inside, longer ones outside, never cut.

#include "project/CellText.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace quarnel {
namespace {

/// Texts around the border between the two ways of keeping them, one that looks like the tag too.
std::vector<std::string> SampleTexts() {
    std::vector<std::string> texts;
    for (const std::size_t size :
         {0U, 1U, 14U, 15U, 16U, 17U, 31U, 200U, 254U, 255U, 256U, 100000U})
        texts.push_back(std::string(size, 'x'));
    texts.push_back(std::string(15, '\xFF'));
    texts.push_back(std::string("a\0b", 3));
    texts.emplace_back("Grundwasserspiegel µ 井");
    return texts;
}

TEST(CellText, KeepsEveryTextWhole) {
    for (const std::string& text : SampleTexts()) {
        const CellText cell(text);
        EXPECT_EQ(cell.View(), text);
        EXPECT_EQ(cell.ToString(), text);
        EXPECT_EQ(cell.empty(), text.empty());
        EXPECT_TRUE(cell == std::string_view(text));
    }
    EXPECT_EQ(CellText().View(), "");
    EXPECT_TRUE(CellText("abc") == "abc");
}

TEST(CellText, CopiesStandOnTheirOwn) {
    for (const std::string& text : SampleTexts()) {
        CellText original(text);
        const CellText copy(original);
        original = CellText("changed");
        EXPECT_EQ(copy.View(), text);
        EXPECT_EQ(original.View(), "changed");
    }
}

TEST(CellText, MovesLeaveAnEmptyText) {
    for (const std::string& text : SampleTexts()) {
        CellText from(text);
        CellText to(std::move(from));
        EXPECT_EQ(to.View(), text);
        EXPECT_EQ(from.View(), ""); // NOLINT(bugprone-use-after-move): what is left is promised
        CellText other("something longer than fifteen bytes");
        other = std::move(to);
        EXPECT_EQ(other.View(), text);
        EXPECT_EQ(to.View(), ""); // NOLINT(bugprone-use-after-move)
    }
}

TEST(CellText, EveryTextCanReplaceEveryOther) {
    for (const std::string& before : SampleTexts())
        for (const std::string& after : SampleTexts()) {
            CellText cell(before);
            const CellText source(after);
            cell = source;
            EXPECT_EQ(cell.View(), after);
            EXPECT_EQ(source.View(), after);
        }
}

TEST(CellText, AssigningATextToItselfChangesNothing) {
    for (const std::string& text : SampleTexts()) {
        CellText cell(text);
        CellText& same = cell;
        cell = same;
        EXPECT_EQ(cell.View(), text);
        cell = std::move(same);
        EXPECT_EQ(cell.View(), text);
        cell = CellText(cell.View());
        EXPECT_EQ(cell.View(), text);
    }
}

TEST(CellText, APieceOfItselfCanReplaceIt) {
    CellText cell("   a text much longer than fifteen bytes");
    cell = CellText(cell.View().substr(3));
    EXPECT_EQ(cell.View(), "a text much longer than fifteen bytes");
    cell = CellText(cell.View().substr(0, 6));
    EXPECT_EQ(cell.View(), "a text");
}

TEST(CellText, ComparesByContent) {
    const std::vector<std::string> texts = SampleTexts();
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = 0; j < texts.size(); ++j)
            EXPECT_EQ(CellText(texts[i]) == CellText(texts[j]), i == j);
}

TEST(CellText, GrowsInsideAVector) {
    std::vector<CellText> cells;
    for (std::size_t i = 0; i < 1000; ++i)
        cells.emplace_back(std::string(i % 40, static_cast<char>('a' + i % 26)));
    cells.erase(cells.begin(), cells.begin() + 500);
    for (std::size_t i = 0; i < cells.size(); ++i)
        EXPECT_EQ(cells[i].View(),
                  std::string((i + 500) % 40, static_cast<char>('a' + (i + 500) % 26)));
}

} // namespace
} // namespace quarnel

// Items, lines and numbers of a file, one by one.

#include "project/ItemReader.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace quarnel {
namespace {

std::vector<std::string> Items(std::string_view text) {
    ItemReader reader(text);
    std::vector<std::string> items;
    while (!reader.AtEnd())
        items.emplace_back(reader.NextItem().text);
    return items;
}

using Texts = std::vector<std::string>;

TEST(ItemReader, ReadsQuotedAndUnquotedItems) {
    struct Case {
        std::string_view text;
        Texts items;
    };
    const Case cases[] = {
        {"", {}},
        {"   ", {}},
        {"a", {"a"}},
        {"\"a\"", {"a"}},
        {"\"a\",\"b\"\r\n\"c\",1\r\n", {"a", "b", "c", "1"}},
        {"a,b\nc\rd\r\ne", {"a", "b", "c", "d", "e"}},
        {"\"a,b\",c", {"a,b", "c"}},
        {"\"\",\"\"", {"", ""}},
        {"  a  ,  \" b \"  ,c", {"a  ", " b ", "c"}},
        {",,", {"", ""}},
        {",a", {"", "a"}},
        {"\r\n\r\n", {"", ""}},
        {"\n\r", {"", ""}},
        {"\"a\"b,c", {"a", "b", "c"}},
        {"\"a\" b,c", {"a", "b", "c"}},
        {"\"a\"\"b\"", {"a", "b"}},
        {"\"say \"no\" to it\",x", {"say ", "no\" to it\"", "x"}},
        {"\"open\r\nnext\"", {"open", "next\""}},
        {"\"open", {"open"}},
        {"a\"b\",c", {"a\"b\"", "c"}},
        {"\ta", {"\ta"}},
        {"\"a\"\t,b", {"a", "\t", "b"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Items(c.text), c.items) << c.text;
}

TEST(ItemReader, OneLineEndOfAnyKindEndsAnItem) {
    EXPECT_EQ(Items("\"a\"\r\n\"b\""), (Texts{"a", "b"}));
    EXPECT_EQ(Items("\"a\"\n\"b\""), (Texts{"a", "b"}));
    EXPECT_EQ(Items("\"a\"\r\"b\""), (Texts{"a", "b"}));
    EXPECT_EQ(Items("\"a\"\n\r\"b\""), (Texts{"a", "", "b"}));
    EXPECT_EQ(Items("\"a\",\r\n\"b\""), (Texts{"a", "", "b"}));
}

TEST(ItemReader, SaysWhetherTheTextEndedInsideQuotes) {
    EXPECT_TRUE(ItemReader("\"abc").NextItem().cut);
    EXPECT_EQ(ItemReader("\"abc").NextItem().text, "abc");
    EXPECT_TRUE(ItemReader("\"").NextItem().cut);
    EXPECT_FALSE(ItemReader("\"abc\"").NextItem().cut);
    EXPECT_FALSE(ItemReader("abc").NextItem().cut);
    EXPECT_FALSE(ItemReader("\"abc\r\n").NextItem().cut);
}

TEST(ItemReader, SaysWhenNothingIsLeft) {
    ItemReader reader("a  ");
    EXPECT_FALSE(reader.NextItem().atEnd);
    EXPECT_TRUE(reader.NextItem().atEnd);
    EXPECT_TRUE(reader.NextItem().atEnd);
    EXPECT_TRUE(ItemReader(" ").NextItem().atEnd);
}

TEST(ItemReader, ReadsLines) {
    ItemReader reader("one\r\ntwo\nthree\r\rfive");
    for (const std::string_view line : {"one", "two", "three", "", "five"}) {
        ASSERT_TRUE(reader.HasLine());
        EXPECT_EQ(reader.NextLine(), line);
    }
    EXPECT_FALSE(reader.HasLine());
    EXPECT_EQ(reader.NextLine(), "");
    EXPECT_FALSE(ItemReader("").HasLine());
}

TEST(ItemReader, CountsBytes) {
    ItemReader reader("\"ab\",c");
    EXPECT_EQ(reader.Position(), 0U);
    EXPECT_EQ(reader.BytesLeft(), 6U);
    reader.NextItem();
    EXPECT_EQ(reader.Position(), 5U);
    EXPECT_EQ(reader.BytesLeft(), 1U);
}

Texts Numbers(std::string_view text) {
    ItemReader reader(text);
    Texts numbers;
    for (FileItem item = reader.NextNumberText(); !item.atEnd; item = reader.NextNumberText())
        numbers.emplace_back(item.text);
    return numbers;
}

TEST(ItemReader, NumbersAreSeparatedByCommasBlanksTabsOrLineEnds) {
    struct Case {
        std::string_view text;
        Texts numbers;
    };
    const Case cases[] = {{"", {}},
                          {" \t\r\n ", {}},
                          {"1 2\t3,4\r\n5\n6\r7", {"1", "2", "3", "4", "5", "6", "7"}},
                          {"  1 ,  2  ,3", {"1", "2", "3"}},
                          {"1,\r\n2", {"1", "2"}},
                          {"1,,2", {"1", "", "2"}},
                          {",1", {"", "1"}},
                          {"1\r\n,2", {"1", "", "2"}},
                          {"1 x 2", {"1", "x", "2"}}};
    for (const Case& c : cases)
        EXPECT_EQ(Numbers(c.text), c.numbers) << c.text;
}

TEST(ItemReader, TheRestOfTheLineAfterANumberCanBePassedOver) {
    ItemReader reader("1 2, trailing words\r\nnext");
    reader.NextNumberText();
    EXPECT_EQ(reader.NextNumberText().text, "2");
    EXPECT_EQ(reader.NextLine(), " trailing words");
    EXPECT_EQ(reader.NextLine(), "next");

    ItemReader atLineEnd("1 2  \r\nnext");
    atLineEnd.NextNumberText();
    atLineEnd.NextNumberText();
    EXPECT_EQ(atLineEnd.NextLine(), "");
    EXPECT_EQ(atLineEnd.NextLine(), "next");
}

} // namespace
} // namespace quarnel

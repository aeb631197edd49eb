#include "loggerfiles/HtmlScanner.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

/// The parts of a text: [x] a text, <x> a tag, </x> its end.
std::string Parts(std::string_view html) {
    HtmlScanner scanner(html);
    std::string parts;
    for (;;) {
        switch (scanner.Next()) {
        case HtmlScanner::Part::Text:
            parts += "[" + std::string(scanner.Value()) + "]";
            break;
        case HtmlScanner::Part::OpenTag:
            parts += "<" + std::string(scanner.Value()) + ">";
            break;
        case HtmlScanner::Part::CloseTag:
            parts += "</" + std::string(scanner.Value()) + ">";
            break;
        case HtmlScanner::Part::End:
            return parts;
        }
    }
}

TEST(HtmlScanner, FindsTagsAndTexts) {
    EXPECT_EQ(Parts("a<b>c</b >d<br/>e"), "[a]<b>[c]</b>[d]<br>[e]");
    EXPECT_EQ(Parts("<p title=\"a>b\">x"), "<p>[x]");
    EXPECT_EQ(Parts("<p title='a>b' x>y"), "<p>[y]");
    EXPECT_EQ(Parts(""), "");
}

TEST(HtmlScanner, TakesBareSigns) {
    EXPECT_EQ(Parts("1 < 2 & 3"), "[1 ][< 2 & 3]");
    EXPECT_EQ(Parts("<"), "[<]");
    EXPECT_EQ(Parts("a<b"), "[a]<b>");
    EXPECT_EQ(Parts("<td a=\"x"), "<td>");
    EXPECT_EQ(Parts("<td a="), "<td>");
}

TEST(HtmlScanner, PassesOverWhatIsNotShown) {
    EXPECT_EQ(Parts("a<!-- <b> > -->c"), "[a][c]");
    EXPECT_EQ(Parts("<!DOCTYPE html><?x y?>c"), "[c]");
    EXPECT_EQ(Parts("<script>if (a<b) \"</td>\"</SCRIPT>x"), "</SCRIPT>[x]");
    EXPECT_EQ(Parts("<style>td > b {}</style>x"), "</style>[x]");
    EXPECT_EQ(Parts("a<!-- b"), "[a]");
    EXPECT_EQ(Parts("a<script>b"), "[a]");
}

TEST(HtmlScanner, FindsAttributes) {
    HtmlScanner scanner(R"(<TD Isi-Row isi-type = "3" a='b c' d=e/f g="x>y" h=>)");
    scanner.Next();
    EXPECT_TRUE(scanner.Is("TD"));
    const auto value = [&](std::string_view name) {
        std::string_view found;
        return scanner.Attribute(name, found) ? std::string(found) : "none";
    };
    EXPECT_EQ(value("ISI-ROW"), "");
    EXPECT_EQ(value("ISI-TYPE"), "3");
    EXPECT_EQ(value("A"), "b c");
    EXPECT_EQ(value("D"), "e/f");
    EXPECT_EQ(value("G"), "x>y");
    EXPECT_EQ(value("H"), "");
    EXPECT_EQ(value("I"), "none");
}

std::string Text(std::string_view html) {
    std::string text;
    AppendHtmlText(html, text);
    return text;
}

TEST(HtmlText, KnowsItsEntities) {
    EXPECT_EQ(Text("&amp;&lt;&gt;&quot;&#39;&nbsp;|"), "&<>\"' |");
    EXPECT_EQ(Text("&#176;&#xB0;&#Xb0;&#x1F600;"), "\xC2\xB0\xC2\xB0\xC2\xB0\xF0\x9F\x98\x80");
    EXPECT_EQ(Text("a & b &unknown; &amp &; &#; &#x; &#xD800; &#1114112; &#99999999999;"),
              "a & b &unknown; &amp &; &#; &#x; &#xD800; &#1114112; &#99999999999;");
}

} // namespace
} // namespace quarnel

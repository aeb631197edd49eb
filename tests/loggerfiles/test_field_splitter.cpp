#include "loggerfiles/FieldSplitter.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using List = std::vector<std::string>;

List Fields(std::string_view line, char delimiter, std::size_t most = MostFields) {
    std::vector<std::string_view> fields;
    SplitFields(line, delimiter, fields, most);
    List texts;
    for (const std::string_view field : fields)
        texts.push_back(FieldText(field));
    return texts;
}

TEST(SplitFields, CutsAtItsDelimiter) {
    EXPECT_EQ(Fields("a,b,c", ','), List({"a", "b", "c"}));
    EXPECT_EQ(Fields("a; b ;c", ';'), List({"a", "b", "c"}));
    EXPECT_EQ(Fields("a\tb\t", '\t'), List({"a", "b", ""}));
    EXPECT_EQ(Fields(",,", ','), List({"", "", ""}));
    EXPECT_EQ(Fields("", ','), List({""}));
    EXPECT_EQ(Fields("  a \t b  ", BlankRuns), List({"a", "b"}));
    EXPECT_EQ(Fields("   ", BlankRuns), List());
}

TEST(SplitFields, TakesQuotedFields) {
    EXPECT_EQ(Fields(R"("Date Time, GMT-07:00","Temp")", ','),
              List({"Date Time, GMT-07:00", "Temp"}));
    EXPECT_EQ(Fields(R"("5"" well",1)", ','), List({"5\" well", "1"}));
    EXPECT_EQ(Fields(R"( "a" , "b" )", ','), List({"a", "b"}));
    EXPECT_EQ(Fields(R"("",1)", ','), List({"", "1"}));
    EXPECT_EQ(Fields(R"("a b" c)", BlankRuns), List({"a b", "c"}));
    // A quote inside a field is no quote, and one that never closes ends with its line.
    EXPECT_EQ(Fields(R"(5" well,1)", ','), List({"5\" well", "1"}));
    EXPECT_EQ(Fields(R"("a,b)", ','), List({"a,b"}));
    EXPECT_EQ(Fields(R"(1,")", ','), List({"1", ""}));
}

TEST(SplitFields, TakesNoMoreThanIsAsked) {
    EXPECT_EQ(Fields("a,b,c", ',', 2), List({"a", "b"}));
    EXPECT_EQ(Fields("a b c", BlankRuns, 2), List({"a", "b"}));
    EXPECT_EQ(Fields(std::string(5000, ','), ',').size(), MostFields);
}

/// The number in `text`, or -99 where there is none.
double Number(std::string_view text, bool comma = false) {
    double value = -99;
    ParseReading(text, comma, value);
    return value;
}

TEST(ParseReading, KnowsNumbers) {
    EXPECT_EQ(Number("12.5"), 12.5);
    EXPECT_EQ(Number(" \t-0.25 \t"), -0.25);
    EXPECT_EQ(Number("+3"), 3);
    EXPECT_EQ(Number(".5"), .5);
    EXPECT_EQ(Number("5."), 5);
    EXPECT_EQ(Number("1e3"), 1000);
    EXPECT_EQ(Number("1.5E-2"), .015);
    EXPECT_EQ(Number("10.333733"), 10.333733);
    EXPECT_EQ(Number("1473.5000000000000000000001"), 1473.5);
    EXPECT_EQ(Number("123456789012345.6"), 123456789012345.6);
    EXPECT_EQ(Number("0.30000000000000004"), 0.30000000000000004);
    EXPECT_EQ(Number("1e-400"), 0);
}

TEST(ParseReading, TakesACommaOnlyWhereOneMayStand) {
    EXPECT_EQ(Number("12,5"), -99);
    EXPECT_EQ(Number("12,5", true), 12.5);
    EXPECT_EQ(Number("12.5", true), 12.5);
    EXPECT_EQ(Number("1,5e2", true), 150);
    EXPECT_EQ(Number("1,234.5", true), -99);
    EXPECT_EQ(Number("1.234,5", true), -99);
}

TEST(ParseReading, RefusesWhatIsNoNumber) {
    for (const char* text : {"", " ", "-", "+", ".", "e5", "1e", "1e+", "--1", "- 1", "1 2", "nan",
                             "inf", "0x10", "1e999", "12.5m", "Logged", "1.2.3", "1_000"})
        EXPECT_EQ(Number(text), -99) << text;
}

} // namespace
} // namespace quarnel

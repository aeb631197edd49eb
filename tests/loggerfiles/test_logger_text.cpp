#include "loggerfiles/LoggerText.h"

#include <gtest/gtest.h>
#include <vector>

namespace quarnel {
namespace {

using namespace std::string_literals;

std::string Decoded(std::string_view bytes) {
    LoggerText text;
    DecodeLoggerText(bytes, "a.csv", text);
    return text.fault.empty() ? std::string(text.text) : "fault: " + text.fault;
}

TEST(LoggerText, DecodesMarkedAndUnmarkedText) {
    EXPECT_EQ(Decoded("\xEF\xBB\xBFTemp, \xC2\xB0"
                      "C"),
              "Temp, \xC2\xB0"
              "C");
    EXPECT_EQ(Decoded("Temp \xC2\xB0"), "Temp \xC2\xB0");
    EXPECT_EQ(Decoded("Temp \xB0"
                      "C"),
              "Temp \xC2\xB0"
              "C");
    EXPECT_EQ(Decoded("\xFF\xFEm\0\xB0\0"s), "m\xC2\xB0");
    EXPECT_EQ(Decoded("\xFE\xFF\0m\0\xB0"s), "m\xC2\xB0");
}

TEST(LoggerText, DecodesPairsOfUtf16AndMendsHalves) {
    EXPECT_EQ(Decoded("\xFF\xFE\x3D\xD8\x00\xDE"s), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Decoded("\xFF\xFE\x3D\xD8m\0"s), "\xEF\xBF\xBDm");
    EXPECT_EQ(Decoded("\xFF\xFE\x00\xDEm\0"s), "\xEF\xBF\xBDm");
    EXPECT_EQ(Decoded("\xFF\xFEm\0x"s), "m"); // cut inside a unit
}

TEST(LoggerText, RefusesWhatIsNoText) {
    EXPECT_EQ(Decoded(""), "fault: a.csv is empty.");
    EXPECT_EQ(Decoded("\xEF\xBB\xBF"), "fault: a.csv is empty.");
    EXPECT_EQ(Decoded("\xFF\xFE"), "fault: a.csv is empty.");
    EXPECT_EQ(Decoded("1,2\n\0"s), "fault: a.csv is not a text file.");
    EXPECT_EQ(Decoded("PK\x03\x04 and so on"),
              "fault: a.csv is a ZIP archive. Please unpack it and import the file inside.");
    EXPECT_EQ(Decoded("PK\x03"), "PK\x03");
}

std::vector<std::string> Lines(std::string_view text) {
    LineReader reader(text);
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.Next(line))
        lines.emplace_back(line);
    return lines;
}

TEST(LineReader, KnowsAllLineEnds) {
    using List = std::vector<std::string>;
    EXPECT_EQ(Lines(""), List());
    EXPECT_EQ(Lines("a"), List({"a"}));
    EXPECT_EQ(Lines("a\n"), List({"a"}));
    EXPECT_EQ(Lines("a\nb"), List({"a", "b"}));
    EXPECT_EQ(Lines("a\r\nb\r\n"), List({"a", "b"}));
    EXPECT_EQ(Lines("a\rb\r"), List({"a", "b"}));
    EXPECT_EQ(Lines("a\r\rb\n\nc\r\n\r\nd"), List({"a", "", "b", "", "c", "", "d"}));
    EXPECT_EQ(Lines("\n\ra"), List({"", "", "a"}));
    EXPECT_EQ(Lines("\r\n"), List({""}));
}

TEST(LineReader, TellsWhereItIs) {
    LineReader reader("ab\r\ncd");
    std::string_view line;
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(reader.Line(), 1U);
    EXPECT_EQ(reader.Read(), 4U);
    EXPECT_FALSE(reader.EndsWithoutLineEnd());
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(reader.Line(), 2U);
    EXPECT_EQ(reader.Start(), 4U);
    EXPECT_EQ(reader.Read(), 6U);
    EXPECT_TRUE(reader.EndsWithoutLineEnd());
    EXPECT_FALSE(reader.Next(line));
}

} // namespace
} // namespace quarnel

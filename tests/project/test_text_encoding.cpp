// Files in UTF-8 and in Windows-1252: every byte is kept, and a text never changes by saving.

#include "project/TextEncoding.h"

#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

std::string ReadBack(std::string_view bytes) {
    return IsValidUtf8(bytes) ? std::string(bytes) : Windows1252ToUtf8(bytes);
}

TEST(TextEncoding, TellsUtf8FromOtherBytes) {
    for (const std::string_view valid :
         {"", "plain", "é", "€", "井", "\U0001F600", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF",
          "\xEE\x80\x80", "\xC2\x80", "\xE0\xA0\x80", "\xF0\x90\x80\x80", "0123456789abcdeé",
          "01234567é"})
        EXPECT_TRUE(IsValidUtf8(valid)) << valid;
    for (const std::string_view invalid : {"\xE9",
                                           "caf\xE9",
                                           "\x80",
                                           "\xC0\xAF",
                                           "\xC1\xBF",
                                           "\xE0\x9F\xBF",
                                           "\xED\xA0\x80",
                                           "\xED\xBF\xBF",
                                           "\xF0\x8F\xBF\xBF",
                                           "\xF4\x90\x80\x80",
                                           "\xF5\x80\x80\x80",
                                           "\xFF",
                                           "\xC3",
                                           "\xE2\x82",
                                           "\xF0\x9F\x98",
                                           "\xC3(",
                                           "\xE2\x28\xA1",
                                           "\xE2\x82(",
                                           "\xF0\x28\x8C\xBC",
                                           "01234567\xE9",
                                           "0123456789abcdef\xE9",
                                           "0123456789\xE9"})
        EXPECT_FALSE(IsValidUtf8(invalid));
    EXPECT_TRUE(IsValidUtf8(std::string_view("\0\0", 2)));
}

TEST(TextEncoding, UnderstandsWindows1252) {
    EXPECT_EQ(Windows1252ToUtf8("caf\xE9 \x80 \x93quoted\x94 \xB5m \xDF"), "café € “quoted” µm ß");
    EXPECT_EQ(Windows1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(Windows1252ToUtf8("\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"),
              "‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(Windows1252ToUtf8("\x91\x92\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
              "‘’•–—˜™š›œžŸ");
    EXPECT_EQ(Windows1252ToUtf8("\xA0\xFF"), "\u00A0ÿ");
}

TEST(TextEncoding, EveryByteSurvivesReadingAndWriting) {
    for (int byte = 0; byte < 256; ++byte) {
        // 0xE9 behind makes sure that the file is not UTF-8.
        const std::string bytes = {static_cast<char>(byte), 'x', '\xE9', 'x'};
        EXPECT_EQ(EncodeFileText(ReadBack(bytes)), bytes) << byte;
    }
}

TEST(TextEncoding, WritesWindows1252WhereItServes) {
    EXPECT_EQ(EncodeFileText("plain"), "plain");
    EXPECT_EQ(EncodeFileText("Café"), "Caf\xE9");
    EXPECT_EQ(EncodeFileText("10 € – 5 µm"), "10 \x80 \x96 5 \xB5m");
}

TEST(TextEncoding, WritesUtf8WhereACharacterHasNoCode) {
    for (const std::string_view text : {"井", "Ωmega", "№", "Ł", "\U0001F600", "é井", "\u0101"})
        EXPECT_EQ(EncodeFileText(text), text);
}

TEST(TextEncoding, WritesUtf8WhereTheBytesWouldReadAsUtf8) {
    // In Windows-1252 these are the bytes of é, € and ä in UTF-8.
    for (const std::string_view text : {"Ã©", "â‚¬", "Ã¤ and Ã©"}) {
        EXPECT_EQ(EncodeFileText(text), text);
        EXPECT_EQ(ReadBack(EncodeFileText(text)), text);
    }
    // A lone é beside it cannot be UTF-8, so the bytes are safe again.
    EXPECT_EQ(EncodeFileText("Ã© é"), "\xC3\xA9 \xE9");
}

TEST(TextEncoding, ATextNeverChangesBySavingAndOpening) {
    test::Random random(1252);
    const std::string_view pieces[] = {"a", " ",      "é",      "Ã",    "©",         "€", "â",
                                       "‚", "¬",      "\u0081", "井",   "Ω",         "Â", "°",
                                       "ÿ", "\u00A0", "x",      "\x7F", "\U0001F600"};
    for (int round = 0; round < 50'000; ++round) {
        std::string text;
        // Few kinds at a time, so that texts without Chinese or Greek are common too.
        const std::size_t kinds = 1 + random.Below(std::size(pieces));
        for (std::size_t n = random.Below(8); n > 0; --n)
            text += pieces[random.Below(kinds)];
        ASSERT_EQ(ReadBack(EncodeFileText(text)), text);
    }
}

TEST(TextEncoding, RandomBytesAreNeverLost) {
    test::Random random(255);
    for (int round = 0; round < 50'000; ++round) {
        std::string bytes;
        for (std::size_t n = random.Below(6); n > 0; --n)
            bytes += static_cast<char>(random.Below(256));
        const std::string text = ReadBack(bytes);
        ASSERT_TRUE(IsValidUtf8(text));
        ASSERT_EQ(ReadBack(EncodeFileText(text)), text);
        if (!IsValidUtf8(bytes)) {
            ASSERT_EQ(EncodeFileText(text), bytes);
        }
    }
}

} // namespace
} // namespace quarnel

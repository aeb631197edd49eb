// What a paste into the grid says afterwards: how many rows it took, and what it passed over.

#include "recovery/PasteText.h"

#include <gtest/gtest.h>
#include <string>

namespace quarnel {
namespace {

struct Case {
    const char* name;
    std::string text;
    std::size_t rows;
    std::string said;
    bool offersImport;
    std::string_view separator = ".";
};

TEST(TextOfPaste, SaysWhatBecameOfTheText) {
    const std::string noComma = ", all in one column: cells are separated by tabs, not by ";
    const Case cases[] = {
        {"rows", "1\t2\n3\t4\n", 2, "Pasted 2 rows", false},
        {"one row", "1\t2\r\n", 1, "Pasted 1 row", false},
        {"a copy of the grid", "1\t2\r3\t4\r\r", 2, "Pasted 2 rows", false},
        {"one column of numbers", "1\n2\n3\n", 3, "Pasted 3 rows", false},
        {"blank rows", "\n\n\n", 3, "Pasted 3 rows", false},
        {"nothing", "", 0, "Nothing pasted: there is no text on the clipboard", false},
        {"blanks", "   ", 0, "Nothing pasted: there is no text on the clipboard", false},
        {"no line end", "12.5", 0, "Nothing pasted: no line end follows \"12.5\"", true},
        {"no line end, two cells", " 1\t2 ", 0, "Nothing pasted: no line end follows \"1 2\"",
         true},
        {"text after the last line end", "1\t2\n3\t4", 1,
         "Pasted 1 row. Not pasted, as no line end follows it: \"3 4\"", true},
        {"blanks after the last line end", "1\t2\n  ", 1, "Pasted 1 row", false},
        {"commas", "1,2\n3,4\n", 2, "Pasted 2 rows" + noComma + "commas", true},
        {"commas and a heading", "time,level\n3,4\n", 2, "Pasted 2 rows" + noComma + "commas",
         true},
        {"commas and blank rows", "1,2\r\n\r\n3,4\r\n", 3, "Pasted 3 rows" + noComma + "commas",
         true},
        {"semicolons with decimal commas", "1,5;2\n3;4,5\n", 2,
         "Pasted 2 rows" + noComma + "semicolons", true, ","},
        {"decimal commas", "1,5\n2,5\n", 2, "Pasted 2 rows", false, ","},
        {"decimal commas and TABs", "1,5\t2,5\n", 1, "Pasted 1 row", false},
        {"a comma in one row of two", "1,2\n3\n", 2, "Pasted 2 rows", false},
        {"commas, the last row without its end", "1,2\n3,4", 1,
         "Pasted 1 row" + noComma + "commas. Not pasted, as no line end follows it: \"3,4\"", true},
        {"a long text", std::string(60, 'x'), 0,
         "Nothing pasted: no line end follows \"" + std::string(40, 'x') + "...\"", true},
    };
    for (const Case& c : cases) {
        const PasteText told = TextOfPaste(c.text, c.rows, c.separator);
        EXPECT_EQ(told.offersImport, c.offersImport) << c.name;
        EXPECT_EQ(told.said, c.said) << c.name;
    }
}

TEST(TextOfPaste, CutsNoCharacter) {
    std::string text = "x";
    for (int i = 0; i < 30; ++i)
        text += "\xC3\xA4";
    // 1 + 19 * 2 bytes: the fortieth would be half a character.
    EXPECT_EQ(TextOfPaste(text, 0, ".").said,
              "Nothing pasted: no line end follows \"" + text.substr(0, 39) + "...\"");
}

} // namespace
} // namespace quarnel

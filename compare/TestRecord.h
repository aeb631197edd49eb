#pragma once

#include "diagnostics/DiagnosticsLines.h"
#include "kcompute/Analysis.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

// The record of a slug test: what a reader needs to defend the number later, after ASTM D4044 and
// D5912 and what consultants file. What the project does not know is to be filled in by hand.

inline constexpr std::string_view RecordTitle = "Record of the slug test";
/// What a line to fill in by hand holds at least.
inline constexpr std::string_view RecordDots = "......";

/// A line of the record.
struct RecordLine {
    std::string text; ///< ends behind the label where `isToFillIn`
    /// Dots follow the text to the end of the line, to be filled in by hand.
    bool isToFillIn = false;
    /// A second label on the line, with dots of its own; empty for none.
    std::string secondLabel;
};

/// The table that ends a section; its rows are made one at a time, since a logger gives millions.
struct RecordTable {
    TextRow headings;
    std::size_t rowCount = 0;
    std::function<TextRow(std::size_t row)> row; ///< counted from 0
    bool hasNumbers = false;                     ///< all columns but the first hold numbers
};

struct RecordSection {
    std::string heading; ///< empty for the signatures at the end
    std::vector<RecordLine> lines;
    RecordTable table; ///< without headings where there is none
};

/// The record's sections in their order. `messages` are what reading and computing said. The
/// analysis must outlive them.
std::vector<RecordSection> TestRecordSections(const Analysis& analysis,
                                              const std::vector<std::string>& messages);

/// The record as text: UTF-8, lines of at most 100 characters ended by LF, no path.
std::string TestRecordText(const Analysis& analysis, const std::vector<std::string>& messages);

} // namespace quarnel

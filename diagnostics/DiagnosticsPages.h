#pragma once

#include "diagnostics/DiagnosticsLines.h"

#include <string>
#include <vector>

namespace quarnel {

/// The pages in their order, each the place of its title.
enum class DiagnosticsPage : std::size_t {
    Statistics,
    Windows, ///< "Head Windows"
    Checks,
    Sensitivity, ///< "What Moves K"
    Residuals
};

/// One page as texts: what is shown of it, copied and printed.
struct PageTexts {
    std::vector<std::string> above; ///< sentences over the table, none of them empty
    TextRow headings;               ///< of the columns; empty for a table without
    std::vector<TextRow> rows;
    bool hasNumbers = false;        ///< all columns but the first hold numbers
    std::vector<std::string> below; ///< sentences under the table, none of them empty
};

/// The texts of a page. `percent` is the change of each entry for "What Moves K", 1 to 50.
PageTexts TextsOfPage(DiagnosticsPage page, Diagnostics& diagnostics, const DiagnosticsLines& lines,
                      double percent);

/// The texts line by line, the cells of a row with a tab between them, as spreadsheets take them.
std::string TabText(const PageTexts& texts);

} // namespace quarnel

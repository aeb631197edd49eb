#include "recovery/PasteText.h"

#include "project/TextColumns.h"
#include "project/Texts.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::string_view LineEnds = "\r\n";

/// A text as it fits into a sentence.
std::string Quoted(std::string_view text) {
    constexpr std::size_t Longest = 40;
    std::string shown(WholeCharacters(text, Longest));
    if (shown.size() < text.size())
        shown += "...";
    std::replace(shown.begin(), shown.end(), '\t', ' ');
    return '"' + shown + '"';
}

std::string RowCount(std::size_t rows) {
    return std::to_string(rows) + (rows == 1 ? " row" : " rows");
}

/// Whether `row` holds two cells or more with `separator` between them.
bool IsSeparatedBy(char separator, std::string_view row, std::string_view decimalSeparator) {
    return row.find(separator) != std::string_view::npos && !ParseNumber(row, decimalSeparator);
}

/// Whether every row that is not blank is separated so.
bool AreSeparatedBy(char separator, std::string_view text, std::string_view decimalSeparator) {
    bool isAny = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(LineEnds), text.size());
        const std::string_view row = TrimBlanks(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (row.empty())
            continue;
        if (!IsSeparatedBy(separator, row, decimalSeparator))
            return false;
        isAny = true;
    }
    return isAny;
}

/// Why rows without a TAB came into one column; "" where that is what they are.
std::string OneColumnText(std::string_view rows, std::string_view decimalSeparator) {
    if (rows.find('\t') != std::string_view::npos)
        return "";
    const std::string_view name = AreSeparatedBy(';', rows, decimalSeparator)   ? "semicolons"
                                  : AreSeparatedBy(',', rows, decimalSeparator) ? "commas"
                                                                                : "";
    return name.empty()
               ? ""
               : ", all in one column: cells are separated by tabs, not by " + std::string(name);
}

} // namespace

PasteText TextOfPaste(std::string_view clipboardText, std::size_t rows,
                      std::string_view decimalSeparator) {
    const std::string_view text = TrimBlanks(clipboardText);
    if (text.empty())
        return {"Nothing pasted: there is no text on the clipboard", false};
    const std::size_t lastEnd = text.find_last_of(LineEnds);
    const std::size_t end = lastEnd == std::string_view::npos ? 0 : lastEnd + 1;
    const std::string_view rest = TrimBlanks(text.substr(end));
    if (end == 0)
        return {"Nothing pasted: no line end follows " + Quoted(rest), true};
    const std::string oneColumn = OneColumnText(text.substr(0, end), decimalSeparator);
    PasteText told{"Pasted " + RowCount(rows) + oneColumn, !oneColumn.empty()};
    if (!rest.empty()) {
        told.said += ". Not pasted, as no line end follows it: " + Quoted(rest);
        told.offersImport = true;
    }
    return told;
}

} // namespace quarnel

#include "cli/CompareOutput.h"
#include "compare/CompareLines.h"
#include "project/PlainText.h"
#include "project/TextColumns.h"

#include <algorithm>
#include <array>

namespace quarnel {

namespace {

constexpr std::string_view ColumnGap = "  ";

using Cells = std::array<std::string, CompareColumnCount>;
using Widths = std::array<std::size_t, CompareColumnCount>;

void Widen(Widths& widths, const Cells& cells) {
    for (std::size_t column = 0; column < cells.size(); ++column)
        widths[column] = std::max(widths[column], CharacterCount(cells[column]));
}

std::string Line(const Widths& widths, const Cells& cells) {
    std::string line;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        line += column == 0 ? "" : ColumnGap;
        line += IsNumberColumn(column) ? PaddedLeft(cells[column], widths[column])
                                       : PaddedRight(cells[column], widths[column]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

/// The cells of a row, safe for a terminal.
Cells CellsOf(std::span<const CompareRow> rows, const Comparison& comparison, std::size_t index) {
    Cells cells = CompareTexts(rows[index], comparison, index);
    for (std::string& cell : cells)
        cell = PlainText(cell);
    return cells;
}

} // namespace

void WriteCompareTable(std::span<const CompareRow> rows, const Comparison& comparison,
                       Output& output) {
    const Cells headings = CompareHeadings(comparison);
    Widths widths{};
    Widen(widths, headings);
    // The texts are made twice, so that those of a million rows need no memory.
    for (std::size_t index = 0; index < rows.size(); ++index)
        Widen(widths, CellsOf(rows, comparison, index));
    output.Write(Line(widths, headings));
    for (std::size_t index = 0; index < rows.size(); ++index)
        output.Write(Line(widths, CellsOf(rows, comparison, index)));
    output.Write("\n");
    for (const CompareLine& line : CompareLines(comparison))
        output.Write(PlainText(line.text) + "\n");
}

} // namespace quarnel

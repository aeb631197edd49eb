#include "cli/DiagnoseOutput.h"
#include "diagnostics/DiagnosticsLines.h"
#include "project/PlainText.h"
#include "project/TextColumns.h"

#include <algorithm>

namespace quarnel {

namespace {

constexpr std::string_view Indent = "    ";
constexpr std::string_view ColumnGap = "  ";
/// Widest line of a text, as a terminal is wide.
constexpr std::size_t LineWidth = 80;

std::string Heading(std::size_t page) {
    return "\n  " + std::string(DiagnosticsPageTitles[page]) + "\n";
}

/// A text in lines of a terminal's width, cut at its blanks; nothing of an empty one.
std::string Paragraph(std::string_view text) {
    std::string lines;
    std::size_t column = 0;
    while (!text.empty()) {
        std::size_t end = std::min(text.find(' '), text.size());
        // A percent sign stays with its number.
        while (end + 1 < text.size() && text[end + 1] == '%')
            end = std::min(text.find(' ', end + 1), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (column == 0 || column + 1 + CharacterCount(word) > LineWidth) {
            lines += (column == 0 ? "" : "\n") + std::string(Indent);
            column = Indent.size();
        } else {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += CharacterCount(word);
    }
    return lines.empty() ? lines : lines + "\n";
}

std::vector<std::size_t> WidthsOf(const std::vector<TextRow>& rows) {
    std::vector<std::size_t> widths;
    for (const TextRow& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], CharacterCount(row[i]));
    }
    return widths;
}

/// Rows in columns: the first to the left, the others to the right where they are numbers.
std::string Columns(const std::vector<TextRow>& rows, bool numbers) {
    const std::vector<std::size_t> widths = WidthsOf(rows);
    std::string text;
    for (const TextRow& row : rows) {
        std::string line(Indent);
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += i == 0 ? "" : ColumnGap;
            line +=
                numbers && i > 0 ? PaddedLeft(row[i], widths[i]) : PaddedRight(row[i], widths[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

std::string WithHeadings(TextRow headings, std::vector<TextRow> rows) {
    rows.insert(rows.begin(), std::move(headings));
    return Columns(rows, true);
}

std::string StatisticsText(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    const StatisticsPage& page = diagnostics.Statistics();
    return Heading(0) + Columns(lines.Statistics(page), false) + Paragraph(IntervalNote) +
           Paragraph(lines.SlugVolume(page)) + Paragraph(lines.Hvorslev(page));
}

std::string WindowsText(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    const HeadWindowsPage& page = diagnostics.Windows();
    return Heading(1) + WithHeadings(lines.WindowHeadings(), lines.Windows(page)) +
           Paragraph(lines.Segments(page));
}

std::string ChecksText(Diagnostics& diagnostics, const DiagnosticsLines& lines) {
    std::string text = Heading(2);
    for (const TextRow& row : lines.Checks(diagnostics.Checks()))
        text += Paragraph(row[0] + " " + row[1] + ": " + row[2]);
    return text + Paragraph(ChecksNote);
}

std::string SensitivityText(const SensitivityPage& page, const DiagnosticsLines& lines) {
    std::string text = Heading(3) + Paragraph(lines.LargestLine(page)) +
                       WithHeadings(lines.SensitivityHeadings(), lines.Sensitivity(page));
    for (const SensitivityRow& row : page.rows)
        if (const std::string details = lines.SensitivityDetails(row); !details.empty())
            text += Paragraph(lines.SensitivityName(row, page.percent) + ": " + details + ".");
    return text + Paragraph(CurvesNote);
}

} // namespace

void WriteDiagnosticsTable(const AnalysisRun& run, const DiagnoseOptions& options, Output& output) {
    output.Write(PlainText(run.file) + "\n");
    const ComputationPtr& computation = run.analysis.computation;
    if (!computation) {
        output.Write(Paragraph("K was not computed, so there are no diagnostics."));
        return;
    }
    Diagnostics diagnostics(computation, run.analysis.state);
    const DiagnosticsLines lines(*computation, run.analysis.state);
    const SensitivityPage& sensitivity =
        diagnostics.SensitivityTo(options.percent.value_or(DefaultSensitivityPercent));
    output.Write(Paragraph(PlainText(lines.Summary(diagnostics.Statistics(), sensitivity))));
    output.Write(PlainText(lines.StateLine()).insert(0, Indent) + "\n");
    output.Write(StatisticsText(diagnostics, lines));
    output.Write(WindowsText(diagnostics, lines));
    output.Write(ChecksText(diagnostics, lines));
    if (options.percent)
        output.Write(SensitivityText(sensitivity, lines));
    output.Write(Heading(4) +
                 Paragraph(DiagnosticsLines::ResidualTitle(diagnostics.Statistics().fit)));
}

} // namespace quarnel

#include "compare/TestRecord.h"
#include "output/SummaryReport.h"
#include "output/TextMeasure.h"
#include "project/PlainText.h"
#include "project/TextColumns.h"

#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

constexpr std::size_t LineWidth = 100;
constexpr std::string_view Indent = "  ";
constexpr std::string_view FurtherIndent = "    "; ///< of a line that goes on
constexpr std::string_view ColumnGap = "  ";
/// Where a second label of a line begins.
constexpr std::size_t SecondLabelColumn = 60;

/// Counts characters, so that a text is broken into lines as on a typewriter.
class CharacterMeasure : public TextMeasure {
public:
    double Width(std::string_view text, double /*points*/, bool /*bold*/) const override {
        return static_cast<double>(CharacterCount(text));
    }
    double Height(double /*points*/) const override { return 1; }
};

std::string Dots(std::string_view before, std::size_t end) {
    const std::size_t used = CharacterCount(before);
    return std::string(std::max(RecordDots.size(), end > used ? end - used : 0), '.');
}

class RecordWriter {
public:
    std::string Write(const std::vector<RecordSection>& sections) {
        for (const RecordSection& section : sections) {
            if (!text_.empty())
                text_ += "\n";
            if (!section.heading.empty())
                AddLine(section.heading);
            for (const RecordLine& line : section.lines)
                Add(line);
            if (!section.table.headings.empty())
                Add(section.table);
        }
        return std::move(text_);
    }

private:
    void AddLine(std::string_view line) {
        const std::size_t end = line.find_last_not_of(' ');
        text_.append(line.substr(0, end == std::string_view::npos ? 0 : end + 1)).append("\n");
    }

    /// A text that is too long for a line goes on below, set in further.
    void AddWrapped(const std::string& line) {
        if (line.size() <= LineWidth || CharacterCount(line) <= LineWidth)
            return AddLine(line);
        std::string_view indent = Indent;
        for (const std::string& part : WrapText(std::string_view(line).substr(Indent.size()), 0,
                                                LineWidth - FurtherIndent.size(), measure_)) {
            AddLine(std::string(indent) + part);
            indent = FurtherIndent;
        }
    }

    void Add(const RecordLine& line) {
        std::string text = std::string(Indent) + line.text;
        if (line.isToFillIn && line.secondLabel.empty()) {
            text += Dots(text, LineWidth);
        } else if (line.isToFillIn) {
            text += Dots(text, SecondLabelColumn);
            text += line.secondLabel;
            text += Dots(text, LineWidth);
        }
        AddWrapped(text);
    }

    void Add(const RecordTable& table) {
        if (table.hasNumbers)
            return AddNumbers(table);
        AddReadings(table);
    }

    /// A short table of numbers, which stand to the right.
    void AddNumbers(const RecordTable& table) {
        std::vector<TextRow> rows = {table.headings};
        for (std::size_t row = 0; row < table.rowCount; ++row)
            rows.push_back(table.row(row));
        std::vector<std::size_t> widths(table.headings.size());
        for (const TextRow& row : rows)
            for (std::size_t i = 0; i < row.size(); ++i)
                widths[i] = std::max(widths[i], CharacterCount(row[i]));
        for (const TextRow& row : rows) {
            std::string line(Indent);
            for (std::size_t i = 0; i < row.size(); ++i)
                line += i == 0 ? PaddedRight(row[i], widths[i])
                               : std::string(ColumnGap) + PaddedLeft(row[i], widths[i]);
            AddWrapped(line);
        }
    }

    void AddReadings(const RecordTable& table) {
        const auto add = [this](const TextRow& row) {
            line_ = Indent;
            AppendReportRow(line_, {PlainText(row[0]), PlainText(row[1]), row[2], row[3], row[4]});
            AddWrapped(line_);
        };
        add(table.headings);
        for (std::size_t row = 0; row < table.rowCount; ++row)
            add(table.row(row));
    }

    CharacterMeasure measure_;
    std::string text_;
    std::string line_;
};

} // namespace

std::string TestRecordText(const Analysis& analysis, const std::vector<std::string>& messages) {
    return RecordWriter().Write(TestRecordSections(analysis, messages));
}

} // namespace quarnel

#include "loggerfiles/TableRows.h"

#include <algorithm>

namespace quarnel {

namespace {

/// Whether `field` is AM or PM, parted from the field `before` by blanks alone.
bool IsHalfOfDay(std::string_view field, std::string_view before) {
    const char* end = before.data() + before.size();
    const std::string_view between(end, static_cast<std::size_t>(field.data() - end));
    return TrimSpace(between).empty() &&
           (EqualsIgnoringCase(field, "AM") || EqualsIgnoringCase(field, "PM"));
}

/// Reads the rows of one table; keeps what the rows share.
class RowReader {
public:
    RowReader(const TableLayout& layout, RecordBuilder& builder)
        : layout_(layout)
        , builder_(builder)
        , parser_(builder.ParserFor(layout.time.form, layout.comma, layout.timeHeading)) {
        for (const ReadingColumn& column : layout.readings)
            firstReading_ = std::min(firstReading_, column.field);
        most_ = layout.time.End();
        if (layout.fraction != NoColumn)
            most_ = std::max(most_, layout.fraction + 1);
        for (const ReadingColumn& column : layout.readings)
            most_ = std::max(most_, column.field + 1);
    }

    void Take(std::string_view line, const LineReader& lines) {
        SplitFields(line, layout_.delimiter, fields_, most_);
        if (layout_.shortRowsPass && fields_.size() <= firstReading_ && !lines.EndsWithoutLineEnd())
            return;
        std::int64_t time = 0;
        if (!ParseTime(time)) {
            builder_.LeaveOut(lines.Line(), TimeText(line));
            return;
        }
        builder_.AddRow(lines.Line(), time);
        for (const ReadingColumn& column : layout_.readings) {
            if (column.field >= fields_.size())
                break;
            TakeReading(column);
        }
    }

private:
    std::string_view Field(std::size_t column) const {
        return column < fields_.size() ? fields_[column] : std::string_view();
    }

    void TakeReading(const ReadingColumn& column) {
        const std::string_view field = fields_[column.field];
        double number = 0;
        if (ParseReading(field, layout_.comma, number))
            builder_.AddNumber(column.channel, number);
        else
            builder_.AddNotNumber(column.channel, TrimSpace(field));
    }

    bool ParseTime(std::int64_t& time) {
        const TimeColumns& columns = layout_.time;
        if (columns.time >= fields_.size())
            return false;
        if (columns.clock == NoColumn && columns.halfOfDay == NoColumn)
            return parser_.Parse(fields_[columns.time], time) && AddFraction(time);
        // The fields of one time stand beside each other, so that one view holds them all.
        const std::size_t first = columns.clock == NoColumn ? columns.time : columns.clock;
        const std::size_t last = columns.halfOfDay == NoColumn ? first : columns.halfOfDay;
        if (last >= fields_.size())
            return false;
        const std::string_view clock = Span(first, last);
        const bool isTime = columns.clock == NoColumn
                                ? parser_.Parse(clock, time)
                                : parser_.Parse(fields_[columns.time], clock, time);
        return isTime && AddFraction(time);
    }

    bool AddFraction(std::int64_t& time) const {
        if (layout_.fraction == NoColumn)
            return true;
        const std::string_view field = TrimSpace(Field(layout_.fraction));
        if (field.empty())
            return true;
        double number = 0;
        if (!ParseReading(field, layout_.comma, number))
            return false;
        const double micros = number * static_cast<double>(layout_.fractionMicros);
        if (!(micros >= 0 && micros < static_cast<double>(MicrosPerSecond)))
            return false;
        time += static_cast<std::int64_t>(micros + 0.5);
        return true;
    }

    /// The text from field `first` to field `last`, with what is between them.
    std::string_view Span(std::size_t first, std::size_t last) const {
        const char* start = fields_[first].data();
        const char* end = fields_[last].data() + fields_[last].size();
        return {start, static_cast<std::size_t>(end - start)};
    }

    /// What is shown of a row that has no time.
    std::string_view TimeText(std::string_view line) const {
        const std::size_t first = layout_.time.time;
        std::size_t last = layout_.time.End() - 1;
        if (layout_.fraction != NoColumn && layout_.fraction == last + 1)
            last = layout_.fraction;
        return TrimSpace(last < fields_.size() && first < last ? Span(first, last)
                         : last < fields_.size()               ? fields_[first]
                                                               : line);
    }

    const TableLayout& layout_;
    RecordBuilder& builder_;
    TimeParser parser_;
    std::vector<std::string_view> fields_;
    std::size_t firstReading_ = NoColumn;
    std::size_t most_ = 0;
};

/// Makes room for the rows by the length of the first ones.
void ExpectRows(LineReader lines, std::size_t size, RecordBuilder& builder) {
    constexpr std::size_t Sample = 200;
    const std::size_t start = lines.Read();
    std::string_view line;
    std::size_t count = 0;
    while (count < Sample && lines.Next(line))
        ++count;
    const std::size_t sampled = lines.Read() - start;
    if (sampled > 0)
        builder.ExpectRows(count * (size - start) / sampled + Sample);
}

} // namespace

std::size_t TimeColumns::End() const {
    if (halfOfDay != NoColumn)
        return halfOfDay + 1;
    return (clock == NoColumn ? time : clock) + 1;
}

std::optional<TimeColumns> FindTime(const std::vector<std::string_view>& fields, bool comma,
                                    std::size_t numberColumn) {
    TimeColumns found;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::optional<TimeShape> shape = ShapeOfTime(fields[i], comma);
        if (!shape || shape->form == TimeForm::Number)
            continue;
        const bool clockFollows = i + 1 < fields.size() && IsClockTime(fields[i + 1], comma);
        if (shape->isDateOnly && !clockFollows)
            continue;
        found.form = shape->form;
        found.time = i;
        if (shape->isDateOnly)
            found.clock = i + 1;
        const std::size_t next = found.End();
        if (next < fields.size() && IsHalfOfDay(fields[next], fields[next - 1]))
            found.halfOfDay = next;
        return found;
    }
    double number = 0;
    if (numberColumn >= fields.size() || !ParseReading(fields[numberColumn], comma, number))
        return std::nullopt;
    found.time = numberColumn;
    return found;
}

bool FindTimeBelow(LineReader lines, TableLayout& layout, std::vector<std::string_view>& fields) {
    std::string_view line;
    while (lines.Next(line)) {
        SplitFields(line, layout.delimiter, fields);
        if (const auto time = FindTime(fields, layout.comma)) {
            layout.time = *time;
            return true;
        }
    }
    return false;
}

void ReadTableRows(LineReader& lines, const TableLayout& layout, RecordBuilder& builder) {
    ExpectRows(lines, lines.Size(), builder);
    RowReader rows(layout, builder);
    std::string_view line;
    while (builder.GoesOn(lines.Read()) && lines.Next(line)) {
        // A spreadsheet fills blank lines up with delimiters.
        if (line.find_first_not_of(" \t,;") == std::string_view::npos)
            continue;
        if (!layout.lastLine.empty() && StartsWithIgnoringCase(TrimSpace(line), layout.lastLine))
            break;
        rows.Take(line, lines);
    }
}

} // namespace quarnel

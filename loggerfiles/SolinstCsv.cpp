#include "loggerfiles/SolinstCsv.h"

#include "loggerfiles/Headings.h"
#include "loggerfiles/TableRows.h"
#include "project/Texts.h"

namespace quarnel {

namespace {

/// The heading above the rows, taken apart.
struct SolinstHeading {
    char delimiter = ',';
    std::size_t date = NoColumn, time = NoColumn, fraction = NoColumn;
    std::int64_t fractionMicros = 0;
    std::vector<std::string> names; ///< one a field

    bool IsComplete() const { return date != NoColumn && time != NoColumn && fraction != NoColumn; }
};

SolinstHeading HeadingWith(std::string_view line, char delimiter) {
    constexpr std::int64_t MicrosPerMs = 1000;
    SolinstHeading heading;
    heading.delimiter = delimiter;
    std::vector<std::string_view> fields;
    SplitFields(line, delimiter, fields);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::string name = FieldText(fields[i]);
        if (EqualsIgnoringCase(name, "DATE") && heading.date == NoColumn) {
            heading.date = i;
        } else if (EqualsIgnoringCase(name, "TIME") && heading.time == NoColumn) {
            heading.time = i;
        } else if (heading.fraction == NoColumn && EqualsIgnoringCase(name, "MS")) {
            heading.fraction = i;
            heading.fractionMicros = MicrosPerMs;
        } else if (heading.fraction == NoColumn && EqualsIgnoringCase(name, "100 MS")) {
            heading.fraction = i;
            heading.fractionMicros = 100 * MicrosPerMs;
        }
        heading.names.push_back(std::move(name));
    }
    return heading;
}

std::optional<SolinstHeading> HeadingOf(std::string_view line) {
    for (const char delimiter : {',', ';'}) {
        // Most lines hold no heading, and need not be cut to know it.
        if (line.find(delimiter) == std::string_view::npos)
            continue;
        SolinstHeading heading = HeadingWith(line, delimiter);
        if (heading.IsComplete())
            return heading;
    }
    return std::nullopt;
}

/// A line above the heading as it reads: without quotes, and without the delimiters that a
/// spreadsheet fills it up with.
std::string BlockLine(std::string_view line) {
    line = TrimSpace(line);
    while (!line.empty() && (line.back() == ',' || line.back() == ';' || line.back() == '"'))
        line = TrimSpace(line.substr(0, line.size() - 1));
    while (!line.empty() && line.front() == '"')
        line = TrimSpace(line.substr(1));
    return std::string(line);
}

/// Reads the blocks above the heading. A key's value stands behind its colon or on the next line.
class BlockReader {
public:
    BlockReader(const SolinstHeading& heading, LoggerRecord& record)
        : record_(record)
        , names_(heading.names)
        , units_(heading.names.size()) {}

    void Take(const std::string& line) {
        if (pending_ != Pending::None) {
            const Pending pending = pending_;
            pending_ = Pending::None;
            if (!IsChannel(line)) {
                Keep(pending, line);
                return;
            }
        }
        if (IsChannel(line))
            return;
        const auto [key, value] = KeyAndValue(line);
        const Pending kind = KindOf(key);
        if (kind != Pending::None && value.empty())
            pending_ = kind;
        else
            Keep(kind, value);
    }

    const std::string& UnitOf(std::size_t field) const { return units_[field]; }

private:
    enum class Pending { None, Serial, Location, Unit };

    /// Whether `line` is the name of a channel; then the lines below are about it.
    bool IsChannel(const std::string& line) {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            if (names_[i].empty() || UpperCaseAscii(names_[i]) != UpperCaseAscii(line))
                continue;
            channel_ = i;
            return true;
        }
        return false;
    }

    static Pending KindOf(std::string_view key) {
        if (EqualsIgnoringCase(key, "UNIT"))
            return Pending::Unit;
        if (EqualsIgnoringCase(key, "LOCATION"))
            return Pending::Location;
        const bool isSerial =
            EqualsIgnoringCase(key, "SERIAL NUMBER") || EqualsIgnoringCase(key, "SERIAL_NUMBER");
        return isSerial ? Pending::Serial : Pending::None;
    }

    void Keep(Pending kind, std::string_view value) {
        if (value.empty())
            return;
        if (kind == Pending::Serial && !record_.serial)
            record_.serial = value;
        else if (kind == Pending::Location && !record_.location)
            record_.location = value;
        else if (kind == Pending::Unit && channel_ != NoColumn && units_[channel_].empty())
            units_[channel_] = value;
    }

    LoggerRecord& record_;
    const std::vector<std::string>& names_;
    std::vector<std::string> units_;
    std::size_t channel_ = NoColumn;
    Pending pending_ = Pending::None;
};

TableLayout LayoutOf(const SolinstHeading& heading, const BlockReader& blocks,
                     RecordBuilder& builder) {
    TableLayout layout;
    layout.delimiter = heading.delimiter;
    layout.comma = heading.delimiter == ';';
    layout.time.time = heading.date;
    layout.time.clock = heading.time;
    layout.fraction = heading.fraction;
    layout.fractionMicros = heading.fractionMicros;
    layout.shortRowsPass = true;
    for (std::size_t i = 0; i < heading.names.size(); ++i) {
        if (i == heading.date || i == heading.time || i == heading.fraction ||
            heading.names[i].empty())
            continue;
        Heading parts{heading.names[i], blocks.UnitOf(i)};
        if (parts.unit.empty())
            parts = SplitHeading(heading.names[i]);
        layout.readings.push_back({i, builder.AddChannel(parts.name, parts.unit)});
    }
    return layout;
}

/// The form of the first row that has a date; where none has, the form does not matter.
TimeForm FormOfRows(LineReader lines, const TableLayout& layout) {
    std::vector<std::string_view> fields;
    std::string_view line;
    while (lines.Next(line)) {
        SplitFields(line, layout.delimiter, fields, layout.time.time + 1);
        if (fields.size() <= layout.time.time)
            continue;
        const auto shape = ShapeOfTime(fields[layout.time.time], layout.comma);
        if (shape && shape->isDateOnly)
            return shape->form;
    }
    return TimeForm::YearFirst;
}

} // namespace

bool IsSolinstCsv(std::string_view head) {
    LineReader lines(head);
    std::string_view line;
    while (lines.Next(line))
        if (HeadingOf(line))
            return true;
    return false;
}

void ReadSolinstCsv(std::string_view text, RecordBuilder& builder) {
    LineReader lines(text);
    std::string_view line;
    std::optional<SolinstHeading> heading;
    while (!heading && lines.Next(line))
        heading = HeadingOf(line);
    if (!heading)
        return;
    BlockReader blocks(*heading, builder.Reading().record);
    LineReader above(text.substr(0, lines.Start()));
    while (above.Next(line))
        blocks.Take(BlockLine(line));
    TableLayout layout = LayoutOf(*heading, blocks, builder);
    layout.time.form = FormOfRows(lines, layout);
    ReadTableRows(lines, layout, builder);
}

} // namespace quarnel

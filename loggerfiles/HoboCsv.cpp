#include "loggerfiles/HoboCsv.h"

#include "loggerfiles/Headings.h"
#include "loggerfiles/TableRows.h"

namespace quarnel {

namespace {

constexpr std::string_view PlotTitle = "PLOT TITLE";
constexpr std::string_view SerialNumber = "SERIAL NUMBER";

/// The heading above the rows.
struct HoboHeading {
    char delimiter = ',';
    bool hasIndex = false;
    std::vector<std::string> names;
};

/// The time has a heading "Date Time, GMT-07:00", or two.
std::optional<HoboHeading> HeadingOf(std::string_view line) {
    std::vector<std::string_view> fields;
    // A comma may stand in a heading without quotes where it is not the delimiter.
    for (const char delimiter : {'\t', ';', ','}) {
        if (line.find(delimiter) == std::string_view::npos)
            continue;
        SplitFields(line, delimiter, fields);
        HoboHeading heading;
        heading.delimiter = delimiter;
        bool isHeading = false;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            heading.names.push_back(FieldText(fields[i]));
            heading.hasIndex |= heading.names[i] == "#";
            const bool twoFields = i > 0 && EqualsIgnoringCase(heading.names[i - 1], "DATE") &&
                                   StartsWithIgnoringCase(heading.names[i], "TIME");
            isHeading |= twoFields || StartsWithIgnoringCase(heading.names[i], "DATE TIME");
        }
        if (isHeading)
            return heading;
    }
    return std::nullopt;
}

std::string_view WithoutQuote(std::string_view line) {
    line = TrimSpace(line);
    if (line.starts_with('"'))
        line.remove_prefix(1);
    return line;
}

/// What stands behind the colon of a line above the heading, in the same field or the next one.
std::string ValueOf(std::string_view line) {
    std::vector<std::string_view> fields;
    SplitFields(line, ',', fields);
    std::string value;
    for (std::size_t i = 0; i < fields.size() && value.empty(); ++i) {
        const std::string text = FieldText(fields[i]);
        const std::size_t colon = text.find(':');
        if (i > 0)
            value = text;
        else if (colon != std::string::npos)
            value = TrimSpace(std::string_view(text).substr(colon + 1));
    }
    return value;
}

/// "Abs Pres, kPa (LGR S/N: 123, SEN S/N: 123)": the logger's number.
std::optional<std::string> SerialOf(std::string_view heading) {
    constexpr std::string_view Key = "LGR S/N:";
    const std::size_t at = heading.find(Key);
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = heading.substr(at + Key.size());
    const std::string_view value = TrimSpace(rest.substr(0, rest.find_first_of(",)")));
    return value.empty() ? std::nullopt : std::optional<std::string>(value);
}

void TakeLineAbove(std::string_view line, LoggerRecord& record) {
    const std::string_view start = WithoutQuote(line);
    const bool isTitle = StartsWithIgnoringCase(start, PlotTitle);
    const bool isSerial = StartsWithIgnoringCase(start, SerialNumber);
    if (!isTitle && !isSerial)
        return;
    std::optional<std::string>& field = isTitle ? record.location : record.serial;
    const std::string value = ValueOf(line);
    if (!field && !value.empty())
        field = value;
}

} // namespace

bool IsHoboCsv(std::string_view head) {
    LineReader lines(head);
    std::string_view line;
    bool serialAbove = false;
    while (lines.Next(line)) {
        if (lines.Line() == 1 && StartsWithIgnoringCase(WithoutQuote(line), PlotTitle))
            return true;
        serialAbove = serialAbove || StartsWithIgnoringCase(WithoutQuote(line), SerialNumber);
        const std::optional<HoboHeading> heading = HeadingOf(line);
        if (heading && (heading->hasIndex || serialAbove))
            return true;
    }
    return false;
}

void ReadHoboCsv(std::string_view text, RecordBuilder& builder) {
    LineReader lines(text);
    std::string_view line;
    std::optional<HoboHeading> heading;
    LoggerRecord& record = builder.Reading().record;
    while (!heading && lines.Next(line)) {
        heading = HeadingOf(line);
        if (!heading)
            TakeLineAbove(line, record);
    }
    if (!heading)
        return;
    TableLayout layout;
    layout.delimiter = heading->delimiter;
    layout.comma = heading->delimiter != ',';
    builder.PassOverEmptyReadings();
    std::vector<std::string_view> fields;
    if (!FindTimeBelow(lines, layout, fields))
        return;
    for (std::size_t i = layout.time.End(); i < heading->names.size(); ++i) {
        const Heading parts = SplitCommaHeading(heading->names[i]);
        layout.readings.push_back({i, builder.AddChannel(parts.name, parts.unit)});
        if (!record.serial)
            record.serial = SerialOf(heading->names[i]);
    }
    ReadTableRows(lines, layout, builder);
}

} // namespace quarnel

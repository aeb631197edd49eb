#include "loggerfiles/DiverFile.h"

#include "loggerfiles/Headings.h"
#include "loggerfiles/TableRows.h"

#include <algorithm>
#include <charconv>

namespace quarnel {

namespace {

constexpr std::string_view FirstLine = "DATA FILE FOR DATALOGGER.";
constexpr std::string_view LastLine = "END OF DATA FILE";

bool IsRowsSection(std::string_view line) {
    return EqualsIgnoringCase(TrimSpace(line), "[DATA]");
}

/// The heading may be quoted.
bool IsCsvHeading(std::string_view line) {
    line = TrimSpace(line);
    if (line.starts_with('"'))
        line.remove_prefix(1);
    return StartsWithIgnoringCase(line, "DATE/TIME");
}

/// Whether `head` begins with the first line of these files and has a line that `isWanted`.
bool HasLine(std::string_view head, bool (*isWanted)(std::string_view)) {
    LineReader lines(head);
    std::string_view line;
    if (!lines.Next(line) || !StartsWithIgnoringCase(TrimSpace(line), FirstLine))
        return false;
    while (lines.Next(line))
        if (isWanted(line))
            return true;
    return false;
}

/// A channel as the settings declare it.
struct DeclaredChannel {
    std::size_t number = 0; ///< counted from 1
    std::string name, unit;
};

/// The settings above the rows.
class Settings {
public:
    explicit Settings(LoggerRecord& record)
        : record_(record) {}

    void Take(std::string_view line) {
        // A spreadsheet fills lines up with the delimiters of its widest one.
        line = TrimSpace(line.substr(0, line.find_last_not_of(",; \t") + 1));
        if (line.starts_with('[')) {
            channel_ = ChannelOf(line);
            return;
        }
        const auto [key, value] = KeyAndValue(line);
        if (value.empty())
            return;
        if (channel_ != NoColumn)
            TakeOfChannel(key, value, channels_[channel_]);
        else if (EqualsIgnoringCase(key, "LOCATION") && !record_.location)
            record_.location = value;
        else if (EqualsIgnoringCase(key, "SERIAL NUMBER") && !record_.serial)
            record_.serial = value;
    }

    /// The channel numbered `number`, as far as it is declared.
    DeclaredChannel Declared(std::size_t number) const {
        for (const DeclaredChannel& channel : channels_)
            if (channel.number == number)
                return channel;
        return {number, "", ""};
    }

    /// The largest number of a channel.
    std::size_t Count() const {
        std::size_t count = 0;
        for (const DeclaredChannel& channel : channels_)
            count = std::max(count, channel.number);
        return count;
    }

private:
    /// The place of the channel that the section `line` ("[Channel 1]", "[Channel 1 from data
    /// header]") declares.
    std::size_t ChannelOf(std::string_view line) {
        constexpr std::string_view Start = "[CHANNEL ";
        if (!StartsWithIgnoringCase(line, Start))
            return NoColumn;
        std::size_t number = 0;
        const auto result =
            std::from_chars(line.data() + Start.size(), line.data() + line.size(), number);
        // What the file says is no reason to make room for it.
        if (result.ec != std::errc() || number == 0 || number > MostChannels)
            return NoColumn;
        for (std::size_t i = 0; i < channels_.size(); ++i)
            if (channels_[i].number == number)
                return i;
        channels_.push_back({number, "", ""});
        return channels_.size() - 1;
    }

    static void TakeOfChannel(std::string_view key, std::string_view value,
                              DeclaredChannel& channel) {
        if (EqualsIgnoringCase(key, "IDENTIFICATION") && channel.name.empty())
            channel.name = value;
        else if (StartsWithIgnoringCase(key, "REFERENCE") && channel.unit.empty())
            channel.unit = UnitBehindNumber(value);
    }

    /// "400.000   cm": what stands behind the number.
    static std::string UnitBehindNumber(std::string_view value) {
        const std::size_t end = value.find_first_not_of("+-0123456789.,");
        return std::string(TrimSpace(end == std::string_view::npos ? "" : value.substr(end)));
    }

    static constexpr std::size_t MostChannels = 100;

    LoggerRecord& record_;
    std::vector<DeclaredChannel> channels_;
    std::size_t channel_ = NoColumn;
};

/// Passes over the count of rows below `[Data]`, where it stands alone on its line.
void PassRowCount(LineReader& lines) {
    LineReader ahead = lines;
    std::string_view line;
    while (ahead.Next(line)) {
        line = TrimSpace(line);
        if (line.empty())
            continue;
        if (line.find_first_not_of("0123456789") == std::string_view::npos)
            lines = ahead;
        return;
    }
}

void AddDeclared(std::size_t number, std::size_t field, const Settings& settings,
                 TableLayout& layout, RecordBuilder& builder) {
    DeclaredChannel channel = settings.Declared(number);
    if (channel.name.empty())
        channel.name = "Channel " + std::to_string(number);
    layout.readings.push_back({field, builder.AddChannel(channel.name, channel.unit)});
}

/// A heading wins over the settings: declared names may be wrong.
void AddHeaded(std::string_view text, std::size_t number, std::size_t field,
               const Settings& settings, TableLayout& layout, RecordBuilder& builder) {
    Heading heading = SplitHeading(FieldText(text));
    if (heading.name.empty()) {
        AddDeclared(number, field, settings, layout, builder);
        return;
    }
    if (heading.unit.empty())
        heading.unit = settings.Declared(number).unit;
    layout.readings.push_back({field, builder.AddChannel(heading.name, heading.unit)});
}

char DelimiterOf(std::string_view heading) {
    for (const char delimiter : {';', '\t', ','})
        if (heading.find(delimiter) != std::string_view::npos)
            return delimiter;
    return ',';
}

} // namespace

bool IsDiverMon(std::string_view head) {
    return HasLine(head, IsRowsSection);
}

bool IsDiverCsv(std::string_view head) {
    return HasLine(head, IsCsvHeading);
}

void ReadDiverMon(std::string_view text, RecordBuilder& builder) {
    LineReader lines(text);
    std::string_view line;
    Settings settings(builder.Reading().record);
    while (lines.Next(line) && !IsRowsSection(line))
        settings.Take(line);
    PassRowCount(lines);
    TableLayout layout;
    layout.delimiter = BlankRuns;
    layout.comma = true;
    layout.lastLine = LastLine;
    std::vector<std::string_view> fields;
    if (!FindTimeBelow(lines, layout, fields))
        return;
    const std::size_t first = layout.time.End();
    const std::size_t count = std::max(settings.Count(), fields.size() - first);
    for (std::size_t i = 0; i < count; ++i)
        AddDeclared(i + 1, first + i, settings, layout, builder);
    ReadTableRows(lines, layout, builder);
}

void ReadDiverCsv(std::string_view text, RecordBuilder& builder) {
    LineReader lines(text);
    std::string_view line;
    Settings settings(builder.Reading().record);
    while (lines.Next(line) && !IsCsvHeading(line))
        settings.Take(line);
    TableLayout layout;
    layout.delimiter = DelimiterOf(line);
    layout.comma = layout.delimiter != ',';
    layout.lastLine = LastLine;
    std::vector<std::string_view> headings;
    SplitFields(line, layout.delimiter, headings);
    std::vector<std::string_view> fields;
    if (!FindTimeBelow(lines, layout, fields))
        return;
    const std::size_t first = layout.time.End();
    for (std::size_t field = first; field < headings.size(); ++field)
        AddHeaded(headings[field], field - first + 1, field, settings, layout, builder);
    ReadTableRows(lines, layout, builder);
}

} // namespace quarnel

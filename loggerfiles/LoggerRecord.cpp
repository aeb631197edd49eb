#include "loggerfiles/LoggerRecord.h"

#include "loggerfiles/WaterUnits.h"
#include "project/TextColumns.h"
#include "project/Texts.h"

#include <algorithm>
#include <initializer_list>

namespace quarnel {

namespace {

/// The text kept of a row that is left out: enough to know it by, whole characters only.
std::string_view Shortened(std::string_view text) {
    constexpr std::size_t KeptBytes = 80;
    return WholeCharacters(text, KeptBytes);
}

bool ContainsAny(std::string_view text, std::initializer_list<std::string_view> upperCaseWords) {
    return std::any_of(upperCaseWords.begin(), upperCaseWords.end(),
                       [&](std::string_view word) { return ContainsIgnoringCase(text, word); });
}

bool IsTemperature(std::string_view name, std::string_view unit) {
    // The degree sign and the masculine ordinal that some files write for it.
    return ContainsAny(name, {"TEMP", "\xC2\xB0"}) ||
           ContainsAny(unit, {"\xC2\xB0", "\xC2\xBA", "DEG"});
}

bool HasPressureUnit(std::string_view unit) {
    const std::optional<WaterUnit> known = KnownWaterUnit(unit);
    return known && IsPressureUnit(*known);
}

/// Where a kind stands among those a channel is chosen by.
int PlaceOfKind(ChannelKind kind) {
    switch (kind) {
    case ChannelKind::Pressure:
        return 1;
    case ChannelKind::Other:
        return 2;
    case ChannelKind::Temperature:
        return 3;
    default:
        return 0;
    }
}

bool HasKind(const std::vector<LoggerChannel>& channels, std::initializer_list<ChannelKind> kinds) {
    return std::any_of(channels.begin(), channels.end(), [&](const LoggerChannel& channel) {
        return std::find(kinds.begin(), kinds.end(), channel.kind) != kinds.end();
    });
}

} // namespace

std::string LeftOutMessage(const LeftOutRow& row) {
    return "Row " + std::to_string(row.line) + ": '" + row.text +
           (row.reason == LeftOutReason::NotATime ? "' is not a time." : "' is not a number.");
}

void LeftOutRows::Add(std::size_t line, std::string_view text, LeftOutReason reason) {
    ++count;
    if (first.size() < KeptRows)
        first.push_back({line, std::string(Shortened(text)), reason});
}

std::string OpenDateOrderMessage(std::string_view name) {
    return "The dates of " + std::string(name) +
           " can be read as month/day or day/month. Please give --date-order.";
}

std::string FileNameOf(const std::string& path) {
#ifdef _WIN32
    constexpr const char* Separators = "/\\";
#else
    constexpr const char* Separators = "/";
#endif
    return path.substr(path.find_last_of(Separators) + 1);
}

ChannelKind KindOfChannel(std::string_view name, std::string_view unit) {
    if (IsTemperature(name, unit))
        return ChannelKind::Temperature;
    if (ContainsAny(name, {"DEPTH TO", "DTW", "BELOW"}))
        return ChannelKind::DepthToWater;
    if (ContainsAny(name, {"CHANGE IN HEAD", "DISPLACEMENT", "DRAWDOWN"}))
        return ChannelKind::ChangeInHead;
    if (ContainsAny(name, {"LEVEL", "HEAD", "DEPTH"}))
        return ChannelKind::Level;
    if (ContainsAny(name, {"PRES", "DRUCK"}) || HasPressureUnit(unit))
        return ChannelKind::Pressure;
    return ChannelKind::Other;
}

std::size_t ChannelChosenFirst(const std::vector<LoggerChannel>& channels) {
    const auto first = std::min_element(channels.begin(), channels.end(),
                                        [](const LoggerChannel& a, const LoggerChannel& b) {
                                            return PlaceOfKind(a.kind) < PlaceOfKind(b.kind);
                                        });
    return static_cast<std::size_t>(first - channels.begin());
}

std::string DepthAndPressureNote(const std::vector<LoggerChannel>& channels) {
    if (!HasKind(channels, {ChannelKind::Level, ChannelKind::DepthToWater}) ||
        !HasKind(channels, {ChannelKind::Pressure}))
        return "";
    return "Depth is taken; pressure and depth of such files can differ by some 0.1 % (density).";
}

DataType DataTypeOfKind(ChannelKind kind) {
    if (kind == ChannelKind::DepthToWater)
        return DepthToGroundwater;
    return kind == ChannelKind::ChangeInHead ? ChangeInHead : GroundwaterHead;
}

LeftOutRows LeftOutOfChannel(const LoggerReading& reading, std::size_t channel) {
    LeftOutRows all = reading.leftOut;
    if (channel >= reading.record.channels.size())
        return all;
    const LeftOutRows& more = reading.record.channels[channel].notNumbers;
    all.count += more.count;
    all.first.insert(all.first.end(), more.first.begin(), more.first.end());
    std::stable_sort(all.first.begin(), all.first.end(),
                     [](const LeftOutRow& a, const LeftOutRow& b) { return a.line < b.line; });
    if (all.first.size() > LeftOutRows::KeptRows)
        all.first.resize(LeftOutRows::KeptRows);
    return all;
}

} // namespace quarnel

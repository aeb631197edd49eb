#include "cli/ImportOutput.h"

#include "loggerfiles/ImportMessages.h"
#include "loggerfiles/KindNames.h"
#include "project/Texts.h"

#include <array>

namespace quarnel {

namespace {

void Count(JsonWriter& json, std::string_view key, std::size_t count) {
    json.Member(key, static_cast<double>(count));
}

void OptionalText(JsonWriter& json, std::string_view key, const std::optional<std::string>& text) {
    json.Key(key);
    text ? json.Text(*text) : json.Null();
}

void OptionalNumber(JsonWriter& json, std::string_view key, std::optional<double> number) {
    json.Key(key);
    number ? json.Number(*number) : json.Null();
}

std::optional<std::string> UnlessEmpty(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

void WriteLeftOutRows(const LeftOutRows& rows, JsonWriter& json) {
    json.Key("left_out_rows");
    json.BeginArray();
    for (const LeftOutRow& row : rows.first) {
        json.BeginRow();
        Count(json, "row", row.line);
        json.Member("text", row.text);
        json.Member("reason",
                    row.reason == LeftOutReason::NotATime ? "not a time" : "not a number");
        json.EndObject();
    }
    json.EndArray();
}

void WriteChannels(const LoggerRecord& record, JsonWriter& json) {
    json.Key("channels");
    json.BeginArray();
    for (std::size_t i = 0; i < record.channels.size(); ++i) {
        const LoggerChannel& channel = record.channels[i];
        json.BeginRow();
        Count(json, "number", i + 1);
        json.Member("name", channel.name);
        json.Member("unit", channel.unit);
        json.Member("kind", ChannelKindKey(channel.kind));
        json.EndObject();
    }
    json.EndArray();
}

/// What a file says of itself, whatever is imported from it.
void WriteFile(const std::string& path, const LoggerRecord& record, std::size_t rowCount,
               const LeftOutRows& leftOut, JsonWriter& json) {
    json.Member("file", path);
    json.Member("format", record.formatName);
    OptionalText(json, "location", record.location);
    OptionalText(json, "serial", record.serial);
    Count(json, "row_count", rowCount);
    WriteLeftOutRows(leftOut, json);
    WriteChannels(record, json);
}

void WriteMessages(const std::vector<std::string>& messages, JsonWriter& json) {
    json.Key("messages");
    json.BeginArray();
    for (const std::string& message : messages)
        json.Text(message);
    json.EndArray();
}

void WriteChoices(const ImportPlan& plan, JsonWriter& json) {
    const ImportReadings& readings = *plan.readings;
    Count(json, "channel", readings.Channel() + 1);
    json.Member("data_type", NameAt(DataTypeLetters, plan.dataType));
    json.Member("source_unit", WaterUnitNames[static_cast<std::size_t>(*readings.SourceUnit())]);
    json.Member("level_unit", NameAt(LengthUnitNames, readings.LevelUnit()));
    json.Member("slug_test_type", plan.slugTestType == SlugTestTypeNotApplicable
                                      ? NotApplicable
                                      : TrimBlanks(NameAt(SlugTestTypeNames, plan.slugTestType)));
}

void WriteRows(const ImportPlan& plan, JsonWriter& json) {
    OptionalText(json, "time_zero", UnlessEmpty(plan.TimeZeroText()));
    Count(json, "time_zero_row", *plan.start + 1);
    Count(json, "rows_before", plan.RowsBefore());
    Count(json, "rows_imported", plan.RowsImported());
    Count(json, "rows_after", plan.RowsAfter());
    Count(json, "surge_rows", plan.surgeRows);
}

void WriteLevels(const ImportPlan& plan, JsonWriter& json) {
    OptionalNumber(json, "static_level", plan.staticLevel);
    OptionalText(json, "static_text", UnlessEmpty(plan.StaticText()));
    json.Key("static_rows");
    plan.staticRows.Count() > 0 ? json.Number(static_cast<double>(plan.staticRows.Count()))
                                : json.Null();
    json.Member("first_y", plan.firstY);
    OptionalNumber(json, "drift_per_hour", plan.driftPerHour);
    OptionalNumber(json, "reading_step", plan.readings->Step());
    json.Key("thinned_from");
    plan.choices.thinnedPerDecade ? json.Number(static_cast<double>(plan.RowsOfTest()))
                                  : json.Null();
}

void WriteReadings(const ImportPlan& plan, JsonWriter& json) {
    json.Key("readings");
    json.BeginArray();
    for (std::size_t number = 0; number < plan.RowsImported(); ++number) {
        const RecoveryRow row = plan.TextsAt(number);
        json.BeginRow();
        json.Member("time_text", row.time.View());
        json.Member("level_text", row.level.View());
        json.EndObject();
    }
    json.EndArray();
}

} // namespace

void WriteChannelJson(const std::string& path, const LoggerReading& reading, JsonWriter& json) {
    // Everything that only an import gives, in its order.
    constexpr std::array<std::string_view, 19> BeforeMessages = {
        "channel",        "data_type",     "source_unit",  "level_unit",    "slug_test_type",
        "time_zero",      "time_zero_row", "rows_before",  "rows_imported", "rows_after",
        "surge_rows",     "static_level",  "static_text",  "static_rows",   "first_y",
        "drift_per_hour", "reading_step",  "thinned_from", "barometer"};
    json.BeginObject();
    WriteFile(path, reading.record, reading.record.times.size(), reading.leftOut, json);
    for (const std::string_view key : BeforeMessages) {
        json.Key(key);
        json.Null();
    }
    std::vector<std::string> messages = reading.notes;
    for (std::string& message : LeftOutMessages(reading.leftOut))
        messages.push_back(std::move(message));
    WriteMessages(messages, json);
    json.Key("readings");
    json.Null();
    json.EndObject();
}

void WriteImportJson(const ImportRun& run, JsonWriter& json) {
    const ImportPlan& plan = *run.plan;
    const LoggerReading& reading = plan.file->reading;
    json.BeginObject();
    WriteFile(run.file, reading.record, plan.RowCount(),
              LeftOutOfChannel(reading, plan.readings->Channel()), json);
    WriteChoices(plan, json);
    WriteRows(plan, json);
    WriteLevels(plan, json);
    OptionalText(json, "barometer",
                 plan.readings->AirPressureSubtracted() ? UnlessEmpty(run.barometer)
                                                        : std::nullopt);
    WriteMessages(plan.messages, json);
    WriteReadings(plan, json);
    json.EndObject();
}

} // namespace quarnel

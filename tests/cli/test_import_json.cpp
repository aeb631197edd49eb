#include "tests/cli/ImportTestSupport.h"

namespace quarnel::test {

namespace {

using Keys = std::vector<std::string>;

const Keys& ImportKeys() {
    static const Keys keys = {"file",         "format",        "location",       "serial",
                              "row_count",    "left_out_rows", "channels",       "channel",
                              "data_type",    "source_unit",   "level_unit",     "slug_test_type",
                              "time_zero",    "time_zero_row", "rows_before",    "rows_imported",
                              "rows_after",   "surge_rows",    "static_level",   "static_text",
                              "static_rows",  "first_y",       "drift_per_hour", "reading_step",
                              "thinned_from", "barometer",     "messages",       "readings"};
    return keys;
}

void ExpectKeys(const QJsonObject& object, const Keys& keys) {
    EXPECT_EQ(object.size(), static_cast<int>(keys.size()));
    for (const std::string& key : keys)
        EXPECT_TRUE(object.contains(Q(key))) << key;
}

void ExpectTypes(const QJsonObject& object, QJsonValue::Type type, const Keys& keys) {
    for (const std::string& key : keys)
        EXPECT_EQ(object.value(Q(key)).type(), type) << key;
}

} // namespace

TEST_F(CliImportTest, JsonHasEveryKeyInOrder) {
    const std::string out = Import(Case("solinst_xle.xle"), {Q("--format"), Q("json")}).out;
    std::size_t at = 0;
    for (const std::string& key : ImportKeys()) {
        const std::size_t found = out.find("\n  \"" + key + "\": ", at);
        ASSERT_NE(found, std::string::npos) << key;
        at = found;
    }
    ExpectKeys(Parsed(out), ImportKeys());
}

TEST_F(CliImportTest, JsonOfAFullImportHasTheTypesOfItsKeys) {
    const QJsonObject import = ImportJson(Case("solinst_xle.xle"), {Q("--thin"), Q("20")});
    ExpectTypes(import, QJsonValue::String,
                {"file", "format", "location", "serial", "data_type", "source_unit", "level_unit",
                 "slug_test_type", "time_zero", "static_text"});
    ExpectTypes(import, QJsonValue::Double,
                {"row_count", "channel", "time_zero_row", "rows_before", "rows_imported",
                 "rows_after", "surge_rows", "static_level", "static_rows", "first_y",
                 "drift_per_hour", "reading_step", "thinned_from"});
    ExpectTypes(import, QJsonValue::Array, {"left_out_rows", "channels", "messages", "readings"});
    for (const QJsonValue channel : import.value(Q("channels")).toArray()) {
        ExpectKeys(channel.toObject(), {"number", "name", "unit", "kind"});
        ExpectTypes(channel.toObject(), QJsonValue::String, {"name", "unit", "kind"});
        ExpectTypes(channel.toObject(), QJsonValue::Double, {"number"});
    }
    for (const QJsonValue reading : import.value(Q("readings")).toArray()) {
        ExpectKeys(reading.toObject(), {"time_text", "level_text"});
        ExpectTypes(reading.toObject(), QJsonValue::String, {"time_text", "level_text"});
    }
}

TEST_F(CliImportTest, JsonOfABareTableHasNullsWhereThereIsNothing) {
    WriteBytes("a.csv", "time (s),Level (m)\n" + SecondsTable());
    const QJsonObject import = ImportJson("a.csv", {Q("--type"), Q("Y")});
    ExpectKeys(import, ImportKeys());
    ExpectTypes(import, QJsonValue::Null,
                {"location", "serial", "time_zero", "static_level", "static_text", "static_rows",
                 "drift_per_hour", "thinned_from", "barometer"});
}

TEST_F(CliImportTest, JsonOfAListHasEveryKey) {
    const Outcome outcome =
        Run({Q("import"), Q("--list"), Q("--format"), Q("json"), Q(Case("solinst_xle.xle"))});
    EXPECT_EQ(outcome.status, 0);
    const QJsonObject list = Parsed(outcome.out);
    ExpectKeys(list, ImportKeys());
    EXPECT_EQ(list.value(Q("row_count")), 140);
    EXPECT_EQ(list.value(Q("channels")).toArray().at(1).toObject(),
              (QJsonObject{{Q("number"), 2},
                           {Q("name"), Q("TEMPERATURE")},
                           {Q("unit"), Q("\xC2\xB0"
                                         "C")},
                           {Q("kind"), Q("temperature")}}));
    ExpectTypes(list, QJsonValue::Null, Keys(ImportKeys().begin() + 7, ImportKeys().end() - 2));
    ExpectTypes(list, QJsonValue::Null, {"readings"});
    EXPECT_EQ(Messages(list), std::vector<std::string>{});
}

TEST_F(CliImportTest, JsonNamesEveryKindOfChannel) {
    WriteBytes("a.csv", "time (s),Level (m),Depth to water (m),Displacement (m),Pressure (kPa),"
                        "Temperature (C),Conductivity (uS)\n1,1,2,3,4,5,6\n2,1,2,3,4,5,6\n");
    const Outcome outcome = Run({Q("import"), Q("--list"), Q("--format=json"), Q("a.csv")});
    QStringList kinds;
    for (const QJsonValue channel : Parsed(outcome.out).value(Q("channels")).toArray())
        kinds << channel.toObject().value(Q("kind")).toString();
    EXPECT_EQ(kinds.join(Q(" ")),
              Q("level depth_to_water change_in_head pressure temperature other"));
}

TEST_F(CliImportTest, OutputIsTheSameInEveryLocale) {
    const Environment german = {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}};
    for (const char* format : {"table", "json"}) {
        const QStringList options = {Q("--format"), Q(format)};
        EXPECT_EQ(Import(Case("solinst_xle.xle"), options, german).out,
                  Import(Case("solinst_xle.xle"), options).out);
    }
}

} // namespace quarnel::test

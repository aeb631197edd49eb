// Logger files to the byte, with what must come out of them beside each.

#include "tests/SourceFolder.h"
#include "tests/loggerfiles/LoggerTestSupport.h"

#ifdef QUARNEL_XLE
#include "loggerfiles/XleReader.h"
#endif

#include <charconv>

namespace quarnel {
namespace {

/// What stands behind `key` in an expectation file: the texts and numbers up to the next key.
class Expected {
public:
    explicit Expected(const std::string& name) {
        std::ifstream file(Folder() + name + ".json", std::ios::binary);
        json_ = {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static std::string Folder() { return test::SourceFolder() + "/tests/loggerfiles/cases/"; }
    std::string Text(const std::string& key) const {
        const std::size_t start = json_.find('"', Behind(key)) + 1;
        return json_.substr(start, json_.find('"', start) - start);
    }
    std::vector<double> Numbers(const std::string& key) const {
        const std::size_t start = Behind(key);
        std::vector<double> numbers;
        for (std::size_t at = start; at < json_.size() && json_[at] != '"';) {
            double value = 0;
            const auto result = std::from_chars(&json_[at], json_.data() + json_.size(), value);
            if (result.ec == std::errc())
                numbers.push_back(value);
            at = result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - json_.data())
                                          : at + 1;
        }
        return numbers;
    }

private:
    std::size_t Behind(const std::string& key) const {
        const std::size_t at = json_.find("\"" + key + "\":");
        EXPECT_NE(at, std::string::npos) << key;
        return at + key.size() + 3;
    }
    std::string json_;
};

void CheckGivenFile(const std::string& name, const std::string& ending, ChannelKind kind) {
    ReadOptions options;
#ifdef QUARNEL_XLE
    options.xleReader = &ReadXle;
#endif
    const Expected expected(name);
    const LoggerReading reading = ReadLoggerFile(Expected::Folder() + name + ending, options);
    ASSERT_EQ(reading.fault, "");
    EXPECT_EQ(reading.leftOut.count, 0U);
    const LoggerRecord& record = reading.record;
    const std::size_t chosen = ChannelChosenFirst(record.channels);
    const LoggerChannel& channel = record.channels.at(chosen);
    EXPECT_EQ(channel.kind, kind);
    EXPECT_EQ(DataTypeLetters[static_cast<std::size_t>(DataTypeOfKind(kind))],
              expected.Text("kind"));
    EXPECT_EQ(channel.unit, expected.Text("level_unit"));

    const auto before = static_cast<std::size_t>(expected.Numbers("rows_before_time_zero")[0]);
    const auto from = static_cast<std::size_t>(expected.Numbers("rows_from_time_zero")[0]);
    ASSERT_EQ(record.times.size(), before + from);
    EXPECT_EQ(channel.notNumbers.count, 0U);
    EXPECT_EQ(test::ClockText(record.times[before]), expected.Text("time_zero") + ".000000");
    std::vector<double> firstThree;
    for (std::size_t i = 0; i < 3; ++i) {
        firstThree.push_back(static_cast<double>(record.times[before + i] - record.times[before]) /
                             1e6);
        firstThree.push_back(channel.values[before + i]);
    }
    EXPECT_EQ(firstThree, expected.Numbers("first_three"));
    EXPECT_EQ(
        std::vector<double>({static_cast<double>(record.times.back() - record.times[before]) / 1e6,
                             channel.values.back()}),
        expected.Numbers("last_row"));
}

TEST(GivenLoggerFiles, DiverMon) {
    CheckGivenFile("diver_mon", ".mon", ChannelKind::Pressure);
}

TEST(GivenLoggerFiles, GenericCsvDepth) {
    CheckGivenFile("generic_csv_depth", ".csv", ChannelKind::DepthToWater);
}

TEST(GivenLoggerFiles, SolinstCsvOld) {
    CheckGivenFile("solinst_csv_old", ".csv", ChannelKind::Level);
}

#ifdef QUARNEL_XLE
TEST(GivenLoggerFiles, SolinstXle) {
    CheckGivenFile("solinst_xle", ".xle", ChannelKind::Level);
}
#endif

} // namespace
} // namespace quarnel

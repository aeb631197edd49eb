#include "tests/loggerfiles/LoggerTestSupport.h"

#include <filesystem>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quarnel {
namespace {

using namespace std::string_literals;
using test::Read;

TEST(ReadLogger, RefusesWhatIsNoTable) {
    EXPECT_EQ(Read("").fault, "log.csv is empty.");
    EXPECT_EQ(Read("a\0b"s).fault, "log.csv is not a text file.");
    EXPECT_EQ(Read("PK\x03\x04rest").fault,
              "log.csv is a ZIP archive. Please unpack it and import the file inside.");
    EXPECT_EQ(Read("nothing here").fault, "No table of readings was found in log.csv.");
}

TEST(ReadLogger, ReadsMarkedUtf16) {
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char c : "Time (s),Level (m)\r\n0,1.5\r\n1,2.5\r\n"s) {
        little += {c, '\0'};
        big += {'\0', c};
    }
    for (const std::string& text : {little, big}) {
        const LoggerReading reading = Read(text);
        EXPECT_EQ(reading.fault, "");
        EXPECT_EQ(reading.record.channels.at(0).values, std::vector<double>({1.5, 2.5}));
    }
}

TEST(ReadLogger, FilesThatCannotBeReadSayWhy) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("quarnel-logger-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    EXPECT_EQ(ReadLoggerFile(folder.string(), {}).fault, "75 Path/File access error");
    EXPECT_EQ(ReadLoggerFile((folder / "missing.csv").string(), {}).fault, "53 File not found");
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(ReadLoggerFile(pipe, {}).fault, "75 Path/File access error");
    const std::string path = (folder / "own name.csv").string();
    std::ofstream(path) << "no table";
    EXPECT_EQ(ReadLoggerFile(path, {}).fault, "No table of readings was found in own name.csv.");
    std::filesystem::remove_all(folder);
}

std::string LongTable(std::size_t rows) {
    std::string text = "Time (s),Level (m)\n";
    for (std::size_t i = 0; i < rows; ++i)
        text += std::to_string(i) + ",5.25\n";
    return text;
}

TEST(ReadLogger, TellsItsProgressAndStopsWhenTold) {
    const std::string text = LongTable(400'000);
    ReadOptions options;
    std::vector<std::size_t> told;
    options.progress = [&](std::size_t done, std::size_t all) {
        EXPECT_EQ(all, text.size());
        told.push_back(done);
        return true;
    };
    EXPECT_EQ(Read(text, options).record.times.size(), 400'000U);
    EXPECT_GT(told.size(), 3U);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));

    options.progress = [](std::size_t done, std::size_t) { return done < 2'000'000; };
    const LoggerReading stopped = Read(text, options);
    EXPECT_TRUE(stopped.isCancelled);
    EXPECT_TRUE(stopped.record.times.empty());
    EXPECT_EQ(stopped.fault, "");
}

TEST(ReadLogger, ARecordIsNoLargerThanItsRows) {
    const LoggerReading reading = Read(LongTable(100'000));
    const LoggerRecord& record = reading.record;
    ASSERT_EQ(record.channels.size(), 1U);
    const std::size_t bytes = record.times.capacity() * sizeof(record.times[0]) +
                              record.lines.capacity() * sizeof(record.lines[0]) +
                              record.channels[0].values.capacity() * sizeof(double);
    EXPECT_LE(bytes, 40U * 100'000);
}

TEST(ReadLogger, AFewNumbersMakeNoHugeTable) {
    // A thousand columns whose only number stands in the last of very many rows.
    std::string text = "Time";
    for (int i = 1; i < 1000; ++i)
        text += ",c" + std::to_string(i);
    text += "\n0";
    for (int i = 1; i < 1000; ++i)
        text += ",1";
    text += "\n";
    for (int i = 0; i < 400'000; ++i)
        text += "1\n";
    text += "2";
    for (int i = 1; i < 1000; ++i)
        text += ",1";
    EXPECT_EQ(Read(text).fault, "7 Out of memory");
}

TEST(ReadLogger, TellsTheFirstTwentyRowsLeftOut) {
    std::string text = "Time,Level\n0,1\n1,2\n";
    for (int i = 0; i < 30; ++i)
        text += "noon,1\n";
    const LoggerReading reading = Read(text);
    EXPECT_EQ(reading.leftOut.count, 30U);
    EXPECT_EQ(test::LeftOut(reading).size(), 20U);
}

TEST(ReadLogger, ShiftingTheClockChangesNothingElse) {
    const auto table = [](int minutes) {
        std::string text = "Time,Level\n";
        for (int i = 0; i < 200; ++i) {
            const int second = minutes * 60 + 2 * i;
            char row[64];
            std::snprintf(row, sizeof row, "2024-03-%02d %02d:%02d:%02d,%d.5\n", 5 + second / 86400,
                          second / 3600 % 24, second / 60 % 60, second % 60, i);
            text += row;
        }
        return text;
    };
    const LoggerReading first = Read(table(0));
    for (const int minutes : {1, 59, 1437, 1440, 20'000}) {
        const LoggerReading shifted = Read(table(minutes));
        EXPECT_EQ(test::Seconds(shifted), test::Seconds(first)) << minutes;
        EXPECT_EQ(shifted.record.channels[0].values, first.record.channels[0].values);
    }
}

/// The same rows in every dress that a text table may wear.
TEST(ReadLogger, DressDoesNotMatter) {
    test::Random random(7);
    for (int round = 0; round < 300; ++round) {
        const char delimiter = random.Pick(std::string(",;\t"));
        const bool comma = delimiter != ',' && random.OneIn(2);
        const std::string lineEnd = random.Pick(std::vector<std::string>{"\n", "\r\n", "\r"});
        const std::string quote = random.OneIn(2) ? "\"" : "";
        std::string text = random.OneIn(2) ? "\xEF\xBB\xBF" : "";
        text += "Time (s)" + std::string(1, delimiter) + "Level (m)" + lineEnd;
        std::vector<double> values;
        const int rows = random.Between(2, 40);
        for (int i = 0; i < rows; ++i) {
            const int thousandths = random.Between(1001, 9998);
            values.push_back(thousandths / 1000.0);
            std::string level = DoubleToText(values.back());
            if (comma)
                std::replace(level.begin(), level.end(), '.', ',');
            text += std::to_string(i) + delimiter + quote + level + quote;
            if (i + 1 < rows || random.OneIn(2))
                text += lineEnd;
        }
        const LoggerReading reading = Read(text);
        ASSERT_EQ(reading.record.channels.size(), 1U) << text;
        EXPECT_EQ(reading.record.channels[0].values, values) << text;
    }
}

} // namespace
} // namespace quarnel

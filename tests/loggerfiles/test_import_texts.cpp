#include "loggerfiles/ImportTexts.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace quarnel::test {

namespace {

constexpr std::int64_t Second = 1'000'000;
constexpr std::int64_t Noon = 1'709'640'000 * Second; // 2024-03-05 12:00:00

LoggerRecord ClockRecord(std::int64_t first, bool hasDates) {
    LoggerRecord record;
    record.timesAreClock = true;
    record.hasDates = hasDates;
    record.times = {first, first + Second};
    return record;
}

} // namespace

TEST(ImportTexts, ElapsedTimeHasThreeDecimalsAtMost) {
    const std::vector<std::pair<std::int64_t, std::string>> cases = {{0, "0"},
                                                                     {2 * Second, "2"},
                                                                     {500'000, "0.5"},
                                                                     {1'250'000, "1.25"},
                                                                     {1'001'000, "1.001"},
                                                                     {1'000'499, "1"},
                                                                     {1'000'500, "1.001"},
                                                                     {999'999, "1"},
                                                                     {36'000'000'000, "36000"},
                                                                     {100 * Second, "100"}};
    for (const auto& [time, text] : cases)
        EXPECT_EQ(ElapsedText(time).ToString(), text);
}

TEST(ImportTexts, ReadingHasSixDecimalsAtMost) {
    const std::vector<std::pair<double, std::string>> cases = {{4.4261, "4.4261"},
                                                               {1473.5, "1473.5"},
                                                               {5, "5"},
                                                               {0, "0"},
                                                               {-0.0, "0"},
                                                               {-1.25, "-1.25"},
                                                               {0.000001, "0.000001"},
                                                               {100, "100"},
                                                               {1e21, "1000000000000000000000"}};
    for (const auto& [reading, text] : cases)
        EXPECT_EQ(ReadingText(reading).ToString(), text);
    EXPECT_EQ(ReadingText(1e308).View().size(), 309U);
}

TEST(ImportTexts, ClockTimeStandsWithItsDate) {
    const LoggerRecord record = ClockRecord(Noon, true);
    EXPECT_EQ(RecordTimeText(record, Noon), "2024-03-05 12:00:00");
    EXPECT_EQ(RecordTimeText(record, Noon + 250'000), "2024-03-05 12:00:00.25");
    EXPECT_EQ(RecordTimeText(record, Noon + 1), "2024-03-05 12:00:00.000001");
    EXPECT_EQ(RecordTimeText(record, Noon - 12 * 3600 * Second), "2024-03-05 00:00:00");
    EXPECT_EQ(RecordTimeText(record, -1), "1969-12-31 23:59:59.999999");
    EXPECT_EQ(DayText(Noon), "2024-03-05");
    EXPECT_EQ(DayText(-1), "1969-12-31");
}

TEST(ImportTexts, ClockTimeWithoutADateStandsAlone) {
    const LoggerRecord record = ClockRecord(86'399 * Second, false);
    EXPECT_EQ(RecordTimeText(record, 86'399 * Second), "23:59:59");
    EXPECT_EQ(RecordTimeText(record, 86'400 * Second), "00:00:00");
}

TEST(ImportTexts, PlainNumbersStandAsSeconds) {
    LoggerRecord record;
    EXPECT_EQ(RecordTimeText(record, 60'500'000), "60.5");
}

TEST(ImportTexts, NamedTimeIsReadBack) {
    const LoggerRecord record = ClockRecord(Noon, true);
    for (const std::int64_t time : {Noon, Noon + 1, Noon + 250'000, Noon - 43'200 * Second})
        EXPECT_EQ(RecordTimeOf(record, RecordTimeText(record, time)), time);
    EXPECT_EQ(RecordTimeOf(record, " 2024-03-05 12:00 "), Noon);
    EXPECT_EQ(RecordTimeOf(record, "2024-03-05T12:00:00"), Noon);
    EXPECT_EQ(RecordTimeOf(record, "2024-3-5 12:00:00"), Noon);
    EXPECT_EQ(RecordTimeOf(record, "0"), Noon);
    EXPECT_EQ(RecordTimeOf(record, "40.5"), Noon + 40'500'000);
}

TEST(ImportTexts, NamedTimeOfDayIsTheNextOneInTheRecord) {
    const LoggerRecord record = ClockRecord(86'399 * Second, false);
    EXPECT_EQ(RecordTimeOf(record, "23:59:59"), 86'399 * Second);
    EXPECT_EQ(RecordTimeOf(record, "00:00:01"), 86'401 * Second);
    EXPECT_EQ(RecordTimeOf(record, "1"), 86'400 * Second);
}

TEST(ImportTexts, WhatIsNoTimeIsNone) {
    const LoggerRecord dates = ClockRecord(Noon, true);
    for (const char* text : {"",
                             "noon",
                             "2024-03-05",
                             "2024-02-30 12:00:00",
                             "2024-13-01 12:00:00",
                             "2024-03-05 24:00:00",
                             "2024-03-05 12:60:00",
                             "2024-03-05 12:00:60",
                             "2024-03-05 12:00:00.",
                             "2024-03-05 12:00:00.1234567",
                             "2024-03-05 12:00:00 PM",
                             "2024-03-0512:00:00",
                             "03/05/2024 12:00:00",
                             "12:00:00",
                             "-1",
                             "1e12",
                             "2024-03-05 12:",
                             "2024-03-05 12:00:",
                             "2024-03-05 12",
                             "20240-03-05 12:00:00",
                             "2024-03--05 12:00:00"})
        EXPECT_EQ(RecordTimeOf(dates, text), std::nullopt) << text;
    EXPECT_EQ(RecordTimeOf(ClockRecord(0, false), "2024-03-05 12:00:00"), std::nullopt);
    LoggerRecord numbers;
    numbers.times = {5 * Second, 6 * Second};
    EXPECT_EQ(RecordTimeOf(numbers, "12:00:00"), std::nullopt);
    EXPECT_EQ(RecordTimeOf(numbers, "1"), 6 * Second);
}

} // namespace quarnel::test

#include "loggerfiles/DateOrders.h"

#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

/// A table with a row for each time.
std::string Table(const std::vector<std::string>& times) {
    std::string text = "Time,Level (m)\n";
    for (const std::string& time : times)
        text += time + ",5.25\n";
    return text;
}

LoggerReading ReadTimes(const std::vector<std::string>& times,
                        std::optional<DateOrder> chosen = std::nullopt) {
    ReadOptions options;
    options.dateOrder = chosen;
    return test::Read(Table(times), options);
}

std::string FirstTime(const LoggerReading& reading) {
    return reading.record.times.empty() ? "" : test::ClockText(reading.record.times.front());
}

TEST(DateOrders, OnlyOneGivesValidDates) {
    const LoggerReading monthDay =
        ReadTimes({"03/05/2024 11:00:00", "03/13/2024 11:00:00", "03/14/2024 11:00:00"});
    EXPECT_EQ(monthDay.dateOrder, DateOrder::MonthDay);
    EXPECT_FALSE(monthDay.bothDateOrders);
    EXPECT_EQ(FirstTime(monthDay), "2024-03-05 11:00:00.000000");
    const LoggerReading dayMonth =
        ReadTimes({"05/03/2024 11:00:00", "13/03/2024 11:00:00", "14/03/2024 11:00:00"});
    EXPECT_EQ(dayMonth.dateOrder, DateOrder::DayMonth);
    EXPECT_FALSE(dayMonth.bothDateOrders);
    EXPECT_EQ(FirstTime(dayMonth), "2024-03-05 11:00:00.000000");
    EXPECT_TRUE(dayMonth.notes.empty());
    EXPECT_TRUE(dayMonth.fault.empty());
}

TEST(DateOrders, TestsWithinADayAreMonthDayWithANote) {
    const LoggerReading reading = ReadTimes({"05/03/2024 11:00:00", "05/03/2024 11:00:02"});
    EXPECT_EQ(reading.dateOrder, DateOrder::MonthDay);
    EXPECT_TRUE(reading.bothDateOrders);
    EXPECT_FALSE(reading.DateOrderIsOpen());
    EXPECT_EQ(FirstTime(reading), "2024-05-03 11:00:00.000000");
    EXPECT_EQ(reading.notes, std::vector<std::string>({"The dates can be read both ways; the times "
                                                       "since the start are the same."}));
}

TEST(DateOrders, TheOneWhoseTimesRise) {
    // 9 and 10 March, or 3 September and 3 October: the 11th row falls when read as day/month.
    const LoggerReading monthDay =
        ReadTimes({"11/01/2024 23:00:00", "11/02/2024 01:00:00", "12/01/2024 03:00:00"});
    EXPECT_EQ(monthDay.dateOrder, DateOrder::MonthDay);
    EXPECT_EQ(FirstTime(monthDay), "2024-11-01 23:00:00.000000");
    const LoggerReading dayMonth =
        ReadTimes({"01/11/2024 23:00:00", "02/11/2024 01:00:00", "01/12/2024 03:00:00"});
    EXPECT_EQ(dayMonth.dateOrder, DateOrder::DayMonth);
    EXPECT_EQ(FirstTime(dayMonth), "2024-11-01 23:00:00.000000");
    EXPECT_TRUE(dayMonth.notes.empty());
}

TEST(DateOrders, TheOneWithFewerDifferentSteps) {
    // A reading a day at noon; read the other way there are months of 31, 29 and 31 days.
    const LoggerReading dayMonth = ReadTimes({"01/02/2024 12:00:00", "02/02/2024 12:00:00",
                                              "03/02/2024 12:00:00", "04/02/2024 12:00:00"});
    EXPECT_EQ(dayMonth.dateOrder, DateOrder::DayMonth);
    EXPECT_TRUE(dayMonth.bothDateOrders);
    EXPECT_EQ(FirstTime(dayMonth), "2024-02-01 12:00:00.000000");
    const LoggerReading monthDay = ReadTimes({"02/01/2024 12:00:00", "02/02/2024 12:00:00",
                                              "02/03/2024 12:00:00", "02/04/2024 12:00:00"});
    EXPECT_EQ(monthDay.dateOrder, DateOrder::MonthDay);
    EXPECT_TRUE(monthDay.fault.empty());
}

TEST(DateOrders, StillOpenWhenStepsAreAsMany) {
    const std::vector<std::string> times = {"01/02/2024 12:00:00", "02/03/2024 12:00:00"};
    const LoggerReading open = ReadTimes(times);
    EXPECT_TRUE(open.DateOrderIsOpen());
    EXPECT_FALSE(open.dateOrder);
    EXPECT_EQ(FirstTime(open), "2024-01-02 12:00:00.000000");
    EXPECT_TRUE(open.fault.empty());
    EXPECT_EQ(OpenDateOrderMessage("log.csv"), "The dates of log.csv can be read as month/day or "
                                               "day/month. Please give --date-order.");

    const LoggerReading chosen = ReadTimes(times, DateOrder::DayMonth);
    EXPECT_EQ(chosen.dateOrder, DateOrder::DayMonth);
    EXPECT_TRUE(chosen.bothDateOrders); // the choice stays on screen
    EXPECT_FALSE(chosen.DateOrderIsOpen());
    EXPECT_EQ(FirstTime(chosen), "2024-02-01 12:00:00.000000");
}

TEST(DateOrders, TheUsersWordIsTheLast) {
    const LoggerReading reading =
        ReadTimes({"05/03/2024 11:00:00", "05/03/2024 11:00:02"}, DateOrder::DayMonth);
    EXPECT_EQ(FirstTime(reading), "2024-03-05 11:00:00.000000");
    EXPECT_TRUE(reading.notes.empty());
}

TEST(DateOrders, ADamagedDateIsLeftOutAlone) {
    const LoggerReading reading = ReadTimes({"03/13/2024 11:00:00", "03/14/2024 11:00:00",
                                             "15/03/2024 11:00:00", "03/16/2024 11:00:00"});
    EXPECT_EQ(reading.dateOrder, DateOrder::MonthDay);
    EXPECT_EQ(reading.record.times.size(), 3U);
    EXPECT_EQ(test::LeftOut(reading),
              std::vector<std::string>({"Row 4: '15/03/2024 11:00:00' is not a time."}));
    const LoggerReading chosen = ReadTimes(
        {"03/13/2024 11:00:00", "03/05/2024 11:00:00", "04/05/2024 11:00:00"}, DateOrder::DayMonth);
    EXPECT_EQ(chosen.record.times.size(), 2U);
    EXPECT_EQ(test::LeftOut(chosen),
              std::vector<std::string>({"Row 2: '03/13/2024 11:00:00' is not a time."}));
    EXPECT_EQ(chosen.dateOrder, DateOrder::DayMonth);
}

TEST(DateOrders, AsManyDamagedDatesEitherWayAreOpen) {
    const LoggerReading reading =
        ReadTimes({"03/13/2024 11:00:00", "13/03/2024 11:00:00", "03/05/2024 11:00:00"});
    EXPECT_TRUE(reading.DateOrderIsOpen());
    EXPECT_EQ(reading.record.times.size(), 2U); // shown as month/day
}

} // namespace
} // namespace quarnel

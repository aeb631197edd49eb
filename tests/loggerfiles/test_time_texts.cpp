#include "loggerfiles/TimeTexts.h"

#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

/// The time in `text` in the form that it has by itself, or "" where it is none.
std::string Time(std::string_view text, bool comma = false) {
    const std::optional<TimeShape> shape = ShapeOfTime(text, comma);
    if (!shape || shape->isDateOnly)
        return "";
    const TimeForm form = shape->form == TimeForm::OrderOpen ? TimeForm::MonthDayYear : shape->form;
    TimeParser parser(form, comma, MicrosPerSecond);
    std::int64_t time = 0;
    return parser.Parse(text, time) ? test::ClockText(time) : "";
}

TEST(TimeTexts, TakesEveryForm) {
    for (const char* text :
         {"2024-03-05 11:58:20", "2024/03/05 11:58:20", "2024-3-5T11:58:20", "2024/3/5   11:58:20",
          "03/05/2024 11:58:20", "3/5/24 11:58:20", "05.03.2024 11:58:20", "5.3.24 11:58:20",
          "24-03-05 11:58:20", "2024-03-05t11:58:20", "2024-03-05\t11:58:20",
          "2024-03-05 11:58:20 AM", "2024-03-05 11:58:20am", "3/5/2024 11:58:20 a.m.",
          " 2024-03-05 11:58:20 "})
        EXPECT_EQ(Time(text), "2024-03-05 11:58:20.000000") << text;
    EXPECT_EQ(Time("2024-03-05 11:58"), "2024-03-05 11:58:00.000000");
    EXPECT_EQ(Time("2024-03-05 1:58 PM"), "2024-03-05 13:58:00.000000");
    EXPECT_EQ(Time("9:58:20"), "1970-01-01 09:58:20.000000");
}

TEST(TimeTexts, TakesFractionsOfOneToSixDigits) {
    EXPECT_EQ(Time("2024-03-05 11:58:20.5"), "2024-03-05 11:58:20.500000");
    EXPECT_EQ(Time("2024-03-05 11:58:20.000001"), "2024-03-05 11:58:20.000001");
    EXPECT_EQ(Time("2024-03-05 11:58:20.123 PM"), "2024-03-05 23:58:20.123000");
    EXPECT_EQ(Time("2024-03-05 11:58:20,25", true), "2024-03-05 11:58:20.250000");
    EXPECT_EQ(Time("2024-03-05 11:58:20,25"), "");
    EXPECT_EQ(Time("2024-03-05 11:58:20."), "");
    EXPECT_EQ(Time("2024-03-05 11:58:20.1234567"), "");
}

TEST(TimeTexts, KnowsTheHalvesOfTheDay) {
    EXPECT_EQ(Time("2024-03-05 12:00:00 AM"), "2024-03-05 00:00:00.000000");
    EXPECT_EQ(Time("2024-03-05 12:00:00 PM"), "2024-03-05 12:00:00.000000");
    EXPECT_EQ(Time("2024-03-05 01:00:00 PM"), "2024-03-05 13:00:00.000000");
    EXPECT_EQ(Time("2024-03-05 11:59:59 PM"), "2024-03-05 23:59:59.000000");
    EXPECT_EQ(Time("2024-03-05 13:00:00 PM"), "");
    EXPECT_EQ(Time("2024-03-05 0:10:00 AM"), "");
}

TEST(TimeTexts, DropsZones) {
    for (const char* text :
         {"2024-03-05T11:58:20Z", "2024-03-05 11:58:20-07:00", "2024-03-05 11:58:20 +0530",
          "2024-03-05 11:58:20+01", "2024-03-05 11:58:20 UTC", "2024-03-05 11:58:20 GMT-07:00"})
        EXPECT_EQ(Time(text), "2024-03-05 11:58:20.000000") << text;
    EXPECT_EQ(Time("2024-03-05 11:58:20-7"), "");
    EXPECT_EQ(Time("2024-03-05 11:58:20-25:00"), "");
}

TEST(TimeTexts, RefusesNearMisses) {
    for (const char* text : {"2024-03-05 24:00:00",
                             "02/30/2024 11:00:00",
                             "2024-02-30 11:00:00",
                             "2023-02-29 11:00:00",
                             "2024-03-05 12:60",
                             "2024-03-05 12:60:00",
                             "2024-03-05 12:00:60",
                             "2024-13-05 11:00:00",
                             "2024-00-05 11:00:00",
                             "31.04.2024 11:00:00",
                             "2024-03-05",
                             "2024-03-05 11",
                             "2024-03-05 11:5",
                             "2024-03-05 11:58:2",
                             "2024-03-05x11:58:20",
                             "2024-03-05 11:58:20 x",
                             "2024-03/05 11:58:20",
                             "024-03-05 11:58:20",
                             "20240-03-05 11:58:20",
                             "2024.03.05 11:58:20",
                             "03-05-2024 11:58:20",
                             "11:58",
                             "24:00:00",
                             "1:2:3",
                             "",
                             "noon"})
        EXPECT_EQ(Time(text), "") << text;
    EXPECT_EQ(Time("2024-02-29 11:00:00"), "2024-02-29 11:00:00.000000");
}

TEST(TimeTexts, TurnsTheCenturyAtSeventy) {
    EXPECT_EQ(Time("03/05/69 11:00:00"), "2069-03-05 11:00:00.000000");
    EXPECT_EQ(Time("03/05/70 11:00:00"), "1970-03-05 11:00:00.000000");
    EXPECT_EQ(Time("03/05/99 11:00:00"), "1999-03-05 11:00:00.000000");
    EXPECT_EQ(Time("03/05/00 11:00:00"), "2000-03-05 11:00:00.000000");
}

TEST(TimeTexts, TakesDateAndClockFromTwoFields) {
    TimeParser parser(TimeForm::YearFirst, false, MicrosPerSecond);
    std::int64_t time = 0;
    ASSERT_TRUE(parser.Parse("2024-03-05", "11:58:20.5", time));
    EXPECT_EQ(test::ClockText(time), "2024-03-05 11:58:20.500000");
    EXPECT_TRUE(parser.HadFraction());
    ASSERT_TRUE(parser.Parse(" 2024-03-05 ", " 1:58 PM ", time));
    EXPECT_EQ(test::ClockText(time), "2024-03-05 13:58:00.000000");
    EXPECT_FALSE(parser.HadFraction());
    // The date before is not taken for one that only begins like it.
    EXPECT_FALSE(parser.Parse("2024-03-051", "11:58:20", time));
    EXPECT_FALSE(parser.Parse("2024-03-05 x", "11:58:20", time));
    EXPECT_FALSE(parser.Parse("03/05/2024", "11:58:20", time));
    ASSERT_TRUE(parser.Parse("2024-03-06", "11:58:20", time));
    EXPECT_EQ(test::ClockText(time), "2024-03-06 11:58:20.000000");
}

TEST(TimeTexts, TakesOneFormAlone) {
    std::int64_t time = 0;
    TimeParser dated(TimeForm::YearFirst, false, MicrosPerSecond);
    EXPECT_FALSE(dated.Parse("11:58:20", time));
    EXPECT_FALSE(dated.Parse("5.3.2024 11:58:20", time));
    EXPECT_FALSE(dated.Parse("12.5", time));
    TimeParser clock(TimeForm::ClockOnly, false, MicrosPerSecond);
    EXPECT_FALSE(clock.Parse("2024-03-05 11:58:20", time));
    EXPECT_FALSE(clock.Parse("11:58", time));
}

TEST(TimeTexts, CountsNumbersInTheirUnit) {
    std::int64_t time = 0;
    TimeParser minutes(TimeForm::Number, true, MicrosPerUnit(Minute));
    ASSERT_TRUE(minutes.Parse("0,5", time));
    EXPECT_EQ(time, 30 * MicrosPerSecond);
    ASSERT_TRUE(minutes.Parse("-1", time));
    EXPECT_EQ(time, -60 * MicrosPerSecond);
    TimeParser seconds(TimeForm::Number, false, MicrosPerSecond);
    ASSERT_TRUE(seconds.Parse("0.1", time));
    EXPECT_EQ(time, 100'000);
    EXPECT_FALSE(seconds.Parse("1e300", time));
    EXPECT_FALSE(seconds.Parse("", time));
    EXPECT_EQ(MicrosPerUnit(Hour), 3600 * MicrosPerSecond);
    EXPECT_EQ(MicrosPerUnit(Day), MicrosPerDay);
}

TEST(TimeTexts, ReadsOpenDatesBothWays) {
    TimeParser parser(TimeForm::OrderOpen, false, MicrosPerSecond);
    std::int64_t open = 0;
    ASSERT_TRUE(parser.Parse("03/05/2024 23:59:59.999999", open));
    EXPECT_EQ(test::ClockText(TimeOfOpen(open, DateOrder::MonthDay).value_or(0)),
              "2024-03-05 23:59:59.999999");
    EXPECT_EQ(test::ClockText(TimeOfOpen(open, DateOrder::DayMonth).value_or(0)),
              "2024-05-03 23:59:59.999999");
    ASSERT_TRUE(parser.Parse("13/05/2024 11:00:00", open));
    EXPECT_FALSE(TimeOfOpen(open, DateOrder::MonthDay));
    EXPECT_TRUE(TimeOfOpen(open, DateOrder::DayMonth));
    ASSERT_TRUE(parser.Parse("05/13/2024 11:00:00", open));
    EXPECT_TRUE(TimeOfOpen(open, DateOrder::MonthDay));
    EXPECT_FALSE(TimeOfOpen(open, DateOrder::DayMonth));
    EXPECT_FALSE(parser.Parse("13/13/2024 11:00:00", open));
    EXPECT_FALSE(parser.Parse("02/30/2024 11:00:00", open));
    EXPECT_FALSE(parser.Parse("99/01/2024 11:00:00", open));
}

TEST(TimeTexts, FindsTheUnitInAHeading) {
    const auto unit = [](std::string_view heading) {
        const std::optional<TimeUnit> found = TimeUnitOfHeading(heading);
        return found ? std::string(TimeUnitNames[*found]) : "";
    };
    EXPECT_EQ(unit("Time (min)"), "min");
    EXPECT_EQ(unit("s"), "sec");
    EXPECT_EQ(unit("Elapsed time, hr"), "hr");
    EXPECT_EQ(unit("time_sec"), "sec");
    EXPECT_EQ(unit("Elapsed [h]"), "hr");
    EXPECT_EQ(unit("DAY"), "day");
    EXPECT_EQ(unit("Elapsed Minutes"), "min");
    EXPECT_EQ(unit("Time"), "");
    EXPECT_EQ(unit(""), "");
}

} // namespace
} // namespace quarnel

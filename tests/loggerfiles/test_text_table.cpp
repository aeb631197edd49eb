#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using Numbers = std::vector<double>;
using test::Read;

/// "channels: first channel's readings @ seconds" of a table.
std::string Digest(std::string_view text) {
    const LoggerReading reading = Read(text);
    if (!reading.fault.empty())
        return reading.fault;
    std::string digest;
    for (const std::string& channel : test::ChannelTexts(reading))
        digest += channel + " ";
    for (const double value : reading.record.channels[0].values)
        digest += DoubleToText(value) + ",";
    digest += " @";
    for (const double second : test::Seconds(reading))
        digest += " " + DoubleToText(second);
    return digest;
}

TEST(TextTable, FindsItsDelimiter) {
    const std::string expected = "Level|m 5.25,5.5, @ 0 2";
    EXPECT_EQ(Digest("Time,Level (m)\n2024-03-05 11:58:20,5.25\n2024-03-05 11:58:22,5.5\n"),
              expected);
    EXPECT_EQ(Digest("Time;Level (m)\n2024-03-05 11:58:20;5.25\n2024-03-05 11:58:22;5.5\n"),
              expected);
    EXPECT_EQ(Digest("Time\tLevel (m)\n2024-03-05 11:58:20\t5.25\n2024-03-05 11:58:22\t5.5\n"),
              expected);
    EXPECT_EQ(Digest("Date Time Level[m]\n2024-03-05 11:58:20 5.25\n2024-03-05  11:58:22   5.5\n"),
              expected);
    EXPECT_EQ(Digest("Date,Time,Level (m)\n05.03.2024,11:58:20,5.25\n05.03.2024,11:58:22,5.5\n"),
              expected);
}

TEST(TextTable, FindsDecimalCommas) {
    const std::string expected = "Level|m 5.25,5.5, @ 0 0.5";
    EXPECT_EQ(Digest("Time (s);Level (m)\n0,0;5,25\n0,5;5,5\n"), expected);
    EXPECT_EQ(Digest("Time(s) Level(m)\n0,0 5,25\n0,5 5,5\n"), expected);
    EXPECT_EQ(Digest("Zeit;Level (m)\n05.03.2024 11:58:20,0;5,25\n05.03.2024 11:58:20,5;5,5\n"),
              expected);
    // A point anywhere says that commas are none: 1,250 is no number then, and told.
    const LoggerReading reading = Read("Time (s);Level\n0;5.25\n1;1,250\n2;5.5\n");
    EXPECT_EQ(test::LeftOut(reading), List({"Row 3: '1,250' is not a number."}));
}

TEST(TextTable, TakesDayHalvesBetweenBlanks) {
    EXPECT_EQ(Digest("3/13/2024 11:59:58 AM 5.25\n3/13/2024 12:00:00 PM 5.5\n"),
              "Column 4| 5.25,5.5, @ 0 2");
    EXPECT_EQ(Digest("11:59:58 AM 5.25\n12:00:00 PM 5.5\n"), "Column 3| 5.25,5.5, @ 0 2");
}

TEST(TextTable, TakesClockTimesPastMidnight) {
    const LoggerReading reading = Read("23:59:59,1\n00:00:01,2\n00:00:02,3\n");
    EXPECT_EQ(reading.fault, "");
    EXPECT_TRUE(reading.record.timesAreClock);
    EXPECT_FALSE(reading.record.hasDates);
    EXPECT_EQ(test::Seconds(reading), Numbers({0, 2, 3}));
    EXPECT_EQ(reading.record.times[0], 86'399'000'000);
    // A fall of twelve hours or less is a fall.
    EXPECT_EQ(Read("12:00:01,1\n00:00:01,2\n").fault, "The times do not rise at row 2.");
    EXPECT_EQ(Read("12:00:02,1\n00:00:01,2\n").fault, "");
}

TEST(TextTable, TakesNumbersInTheUnitOfTheirHeading) {
    EXPECT_EQ(Digest("Time (min),Level\n0,1\n0.5,2\n"), "Level| 1,2, @ 0 30");
    EXPECT_EQ(Digest("hr,Level\n0,1\n0.5,2\n"), "Level| 1,2, @ 0 1800");
    EXPECT_EQ(Digest("Elapsed days,Level\n0,1\n0.5,2\n"), "Level| 1,2, @ 0 43200");
    const LoggerReading open = Read("Time,Level\n0,1\n0.5,2\n");
    EXPECT_FALSE(open.record.timesAreClock);
    EXPECT_TRUE(open.timeUnitIsOpen);
    EXPECT_EQ(open.timeUnit, Second);
    EXPECT_EQ(test::Seconds(open), Numbers({0, 0.5}));
    ReadOptions options;
    options.timeUnit = Minute;
    const LoggerReading chosen = Read("Time,Level\n0,1\n0.5,2\n", options);
    EXPECT_TRUE(chosen.timeUnitIsOpen); // the choice stays on screen
    EXPECT_EQ(chosen.timeUnit, Minute);
    EXPECT_EQ(test::Seconds(chosen), Numbers({0, 30}));
    EXPECT_FALSE(Read("Time (s),Level\n0,1\n0.5,2\n").timeUnitIsOpen);
}

TEST(TextTable, PassesOverAnIndex) {
    EXPECT_EQ(Digest("1,2024-03-05 11:58:20,5.25\n2,2024-03-05 11:58:22,5.5\n"),
              "Column 3| 5.25,5.5, @ 0 2");
    EXPECT_EQ(Digest("No,Time (s),Level\n1,0,5\n2,2,6\n3,4,7\n"), "Level| 5,6,7, @ 0 2 4");
    EXPECT_EQ(Digest("#,Elapsed s,Level\n1,0,5\n2,2,6\n3,4,7\n"), "Level| 5,6,7, @ 0 2 4");
    // Times of 1, 2, 3 seconds are times, and what does not count is a reading.
    EXPECT_EQ(Digest("Time (s),A,B\n1,0,5\n2,2,6\n3,4,7\n"), "A| B| 0,2,4, @ 0 1 2");
    EXPECT_EQ(Digest("7,2024-03-05 11:58:20,5.25\n7,2024-03-05 11:58:22,5.5\n"),
              "Column 1| Column 3| 7,7, @ 0 2");
}

TEST(TextTable, TakesTheColumnThatNamesTheTime) {
    EXPECT_EQ(Digest("Level (ft),Time (s)\n5,0\n6,2\n"), "Level|ft 5,6, @ 0 2");
}

TEST(TextTable, NamesColumnsByTheLineAbove) {
    EXPECT_EQ(Digest("Well MW-7, 2024\nTime,Druck (psi) (900001)\n11:58:20,14.5\n11:58:21,14.6\n"),
              "Druck (900001)|psi 14.5,14.6, @ 0 1");
    EXPECT_EQ(Digest("Time,Level\ns,ft\n0,5\n1,6\n"), "Level|ft 5,6, @ 0 1");
    EXPECT_EQ(Digest("# Time,Level (furlong)\n0,5\n1,6\n"), "Level|furlong 5,6, @ 0 1");
    EXPECT_EQ(Digest("\"Time, s\",\"Level \"\"A\"\", m\"\n0,5\n1,6\n"), "Level \"A\"|m 5,6, @ 0 1");
    EXPECT_EQ(Digest("a line with other fields\n0,5\n1,6\n"), "Column 2| 5,6, @ 0 1");
}

TEST(TextTable, TakesTwoSensors) {
    const LoggerReading reading = Read("Time,Level 1 (m),Level 2 (m),Temp\n11:58:20,1,2,\n"
                                       "11:58:21,3,4,\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Level 1|m", "Level 2|m"}));
    EXPECT_EQ(reading.record.channels[1].values, Numbers({2, 4}));
}

TEST(TextTable, TellsOfCommentsAndEmptyCells) {
    const LoggerReading reading =
        Read("Time,Level\n11:58:20,1\n# moved the logger\n , \n11:58:21,\n11:58:22\n11:58:23,2\n"
             "\"noon\",3\n");
    EXPECT_EQ(reading.record.times.size(), 4U);
    EXPECT_EQ(test::LeftOut(reading),
              List({"Row 3: '# moved the logger' is not a time.", "Row 5: '' is not a number.",
                    "Row 6: '' is not a number.", "Row 8: 'noon' is not a time."}));
}

TEST(TextTable, LinesAboveMayHoldDigits) {
    std::string text = "Logger 7, version 2.0\nSerial 123456\nWell,MW-7\n5 x 5 rows\n\n";
    for (int i = 0; i < 60; ++i)
        text += std::to_string(i) + ".5," + std::to_string(i) + (i == 10 ? ",x\n" : "\n");
    const LoggerReading reading = Read(text);
    EXPECT_EQ(reading.record.times.size(), 60U);
    EXPECT_EQ(reading.record.lines.front(), 6U);
}

TEST(TextTable, AShortTableSurvivesACutLine) {
    EXPECT_EQ(
        Digest("1 2024-03-05 11:58:20 12.5\n2 2024-03-05 11:58:22 12.6\n3 2024-03-05 11:58:2"),
        "Column 4| 12.5,12.6, @ 0 2");
    EXPECT_EQ(Digest("11:58:20;1;2\n11:58:22;1;2\n11:58"), "Column 2| Column 3| 1,1, @ 0 2");
}

TEST(TextTable, EqualTimesStayAndFallingOnesDoNot) {
    EXPECT_EQ(Digest("11:58:20,1\n11:58:20,2\n11:58:21,3\n"), "Column 2| 1,2,3, @ 0 0 1");
    EXPECT_EQ(Read("Time,x\n0,1\n1,2\n\n0.5,3\n").fault, "The times do not rise at row 5.");
    EXPECT_EQ(Read("Time,x\n0,1\n1,2\n0.5,3\n").record.times.size(), 3U);
}

TEST(TextTable, WithoutRowsIsNoTable) {
    for (const char* text :
         {"Time,Level\n", "Time,Level\n0,1\n", "hello\n", "1\n2\n3\n", "a,b\nc,d\n",
          "2024-03-05 11:58:20\n2024-03-05 11:58:21\n", "\n\n", "11:58:20,x\n11:58:21,y\n"})
        EXPECT_EQ(Read(text).fault, "No table of readings was found in log.csv.") << text;
}

} // namespace
} // namespace quarnel

#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using test::Read;

const std::string Title = "\"Plot Title: MW-7\"\r\n";
const std::string Heading =
    "\"#\",\"Date Time, GMT-07:00\",\"Abs Pres, kPa (LGR S/N: 9876543, SEN S/N: 9876544)\","
    "\"Temp, \xC2\xB0"
    "C (LGR S/N: 9876543, SEN S/N: 9876544)\",\"Coupler Detached (LGR S/N: 9876543)\","
    "\"End Of File (LGR S/N: 9876543)\"\r\n";

TEST(HoboCsv, ReadsReadingsAndPassesOverEvents) {
    const LoggerReading reading = Read(Title + Heading +
                                       "1,03/13/24 11:59:59 PM,149.5,11.3,,\r\n"
                                       "2,03/14/24 12:00:00 AM,,,Logged,\r\n"
                                       "3,03/14/24 12:00:01 AM,149.6,11.3,,Logged\r\n");
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.formatName, "HOBO CSV");
    EXPECT_EQ(reading.record.location, "MW-7");
    EXPECT_EQ(reading.record.serial, "9876543");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Abs Pres|kPa", "Temp|\xC2\xB0"
                                                                 "C"}));
    EXPECT_EQ(test::ClockText(reading.record.times[0]), "2024-03-13 23:59:59.000000");
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 1, 2}));
    EXPECT_TRUE(std::isnan(reading.record.channels[0].values[1]));
    EXPECT_EQ(LeftOutOfChannel(reading, 0).count, 0U);
}

TEST(HoboCsv, ReadsTheGenerationWithoutTitleAndIndex) {
    const LoggerReading reading =
        Read("\"Serial Number:\",\"123\"\n\"Date Time\",\"Sensor Depth, meters\"\n"
             "2024-03-05 00:00:00,5.25\n2024-03-05 12:00:00,5.5\n");
    EXPECT_EQ(reading.record.formatName, "HOBO CSV");
    EXPECT_EQ(reading.record.serial, "123");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Sensor Depth|meters"}));
    const LoggerReading plain = Read("Serial Number: 123\nDate Time\tSensor Depth, meters\n"
                                     "2024-03-05 00:00:00\t5,25\n2024-03-05 12:00:00\t5,5\n");
    EXPECT_EQ(plain.record.serial, "123");
    EXPECT_EQ(test::ChannelTexts(plain), List({"Sensor Depth|meters"}));
    EXPECT_EQ(plain.record.channels[0].values, std::vector<double>({5.25, 5.5}));
    EXPECT_EQ(test::Seconds(plain), std::vector<double>({0, 43200}));
}

TEST(HoboCsv, TakesDateAndTimeInTwoColumns) {
    const LoggerReading reading =
        Read(Title + "\"#\",\"Date\",\"Time, GMT-07:00\",\"Water Level, ft (LGR S/N: 1)\"\n"
                     "1,2024-03-05,11:58:20,5.25\n2,2024-03-05,11:58:21,5.5\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Water Level|ft"}));
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({5.25, 5.5}));
}

TEST(HoboCsv, TakesUnitsInBrackets) {
    const LoggerReading reading = Read(
        Title + "#;Date Time (GMT-07:00);Abs Pres (kPa) (LGR S/N: 1);Temp (\xC2\xB0"
                "C) c:2\n1;2024-03-05 11:58:20;149,5;11,3\n2;2024-03-05 11:58:21;149,6;11,3\n");
    EXPECT_EQ(reading.record.channels.at(0).unit, "kPa");
    EXPECT_EQ(reading.record.channels.at(1).kind, ChannelKind::Temperature);
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({149.5, 149.6}));
}

TEST(HoboCsv, TellsOfTextsWhereANumberStands) {
    const LoggerReading reading = Read(Title + Heading +
                                       "1,2024-03-05 11:58:20,149.5,11.3,,\n"
                                       "2,2024-03-05 11:58:21,ERR,11.3,,\n"
                                       "3,2024-03-05 25:58:22,149.5,11.3,,\n"
                                       "4,2024-03-05 11:58:22,149.7,11.3,,\n");
    EXPECT_EQ(test::LeftOut(reading), List({"Row 4: 'ERR' is not a number.",
                                            "Row 5: '2024-03-05 25:58:22' is not a time."}));
}

TEST(HoboCsv, NeedsTwoRows) {
    const std::string fault = "No table of readings was found in log.csv.";
    EXPECT_EQ(Read(Title).fault, fault);
    EXPECT_EQ(Read(Title + Heading).fault, fault);
    EXPECT_EQ(Read(Title + Heading + "1,2024-03-05 11:58:20,149.5,11.3,,\n").fault, fault);
    EXPECT_EQ(Read(Title + Heading +
                   "1,2024-03-05 11:58:20,,,Logged,\n"
                   "2,2024-03-05 11:58:21,,,Logged,\n")
                  .fault,
              fault);
}

} // namespace
} // namespace quarnel

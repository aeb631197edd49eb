#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using test::Read;

const std::string NewAbove = "Serial_number:\n2000001\nProject ID:\nslug tests\nLocation:\nMW-7\n"
                             "LEVEL\nUNIT: m\nOffset: 0.000000 m\nTEMPERATURE\nUNIT: \xC2\xB0"
                             "C\n";
const std::string NewHeading = "Date,Time,ms,LEVEL,TEMPERATURE\n";
const std::string OldAbove = "Serial Number\n\t1000001\nLocation\n\tMW-7\nLEVEL\n\tUnit\n\t\tcm\n"
                             "\tOffset\n\t\t0.00      cm\nTEMPERATURE\n\tUnit\n\t\tDeg C\n";
const std::string OldHeading = ",Date,Time,100 ms,LEVEL,TEMPERATURE\n";

TEST(SolinstCsv, ReadsTheNewForm) {
    const LoggerReading reading = Read(NewAbove + NewHeading +
                                       "2024/03/05,11:58:20,0,5.25,11.3\n"
                                       "2024/03/05,11:58:20,5,5.26,11.3\n");
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.formatName, "Solinst CSV");
    EXPECT_EQ(reading.record.location, "MW-7");
    EXPECT_EQ(reading.record.serial, "2000001");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|m", "TEMPERATURE|\xC2\xB0"
                                                            "C"}));
    EXPECT_EQ(reading.record.channels[0].kind, ChannelKind::Level);
    EXPECT_EQ(reading.record.channels[1].kind, ChannelKind::Temperature);
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({5.25, 5.26}));
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 0.005}));
    EXPECT_EQ(reading.record.lines, std::vector<std::uint32_t>({13, 14}));
}

TEST(SolinstCsv, ReadsTheOldFormWithItsIndex) {
    const LoggerReading reading = Read(OldAbove + OldHeading +
                                       "1,2024-03-05,11:58:20,0,500.00,11.300\n"
                                       "2,2024-03-05,11:58:20,5,499.90,11.300\n");
    EXPECT_EQ(reading.record.location, "MW-7");
    EXPECT_EQ(reading.record.serial, "1000001");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|cm", "TEMPERATURE|Deg C"}));
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({500, 499.9}));
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 0.5}));
}

TEST(SolinstCsv, TakesSemicolonsWithDecimalCommas) {
    const LoggerReading reading = Read("LEVEL\nUNIT: m\nDate;Time;ms;LEVEL\n"
                                       "2024/03/05;11:58:20;0;5,25\n2024/03/05;11:58:21;0;5.5\n");
    EXPECT_EQ(reading.record.channels.at(0).values, std::vector<double>({5.25, 5.5}));
}

TEST(SolinstCsv, TakesLatin1AndBothOtherLineEnds) {
    const std::string latin = "TEMPERATURE\nUNIT: \xB0"
                              "C\nDate,Time,ms,TEMPERATURE\n2024/03/05,11:58:20,0,11.3\n"
                              "2024/03/05,11:58:21,0,11.4\n";
    for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
        std::string text;
        for (const char c : latin)
            text += c == '\n' ? lineEnd : std::string(1, c);
        const LoggerReading reading = Read(text);
        EXPECT_EQ(test::ChannelTexts(reading), List({"TEMPERATURE|\xC2\xB0"
                                                     "C"}));
        EXPECT_EQ(reading.record.lines, std::vector<std::uint32_t>({4, 5}));
    }
}

TEST(SolinstCsv, PassesOverBlankAndShortLines) {
    const LoggerReading reading = Read("Date,Time,ms,LEVEL\n2024/03/05,11:58:20,0,5.25\n\n"
                                       "2024/03/05,11:58:21\n  \n,,\n2024/03/05,11:58:22,0,5.5\n");
    EXPECT_EQ(reading.record.times.size(), 2U);
    EXPECT_EQ(reading.leftOut.count, 0U);
}

TEST(SolinstCsv, TellsOfACutLastLine) {
    const LoggerReading reading = Read("Date,Time,ms,LEVEL\n2024/03/05,11:58:20,0,5.25\n"
                                       "2024/03/05,11:58:21,0,5.25\n2024/03/05,11:58:2");
    EXPECT_EQ(reading.record.times.size(), 2U);
    EXPECT_EQ(test::LeftOut(reading), List({"Row 4: '2024/03/05,11:58:2' is not a time."}));
}

TEST(SolinstCsv, TellsOfRowsWithoutTimeOrNumber) {
    const LoggerReading reading =
        Read("Date,Time,ms,LEVEL,TEMPERATURE\n2024/03/05,11:58:20,0,5.25,11\n"
             "2024/03/05,24:00:00,0,5.25,11\n2024/03/05,11:58:22,x,5.25,11\n"
             "2024/03/05,11:58:23,0,,11\n2024/03/05,11:58:24,0,dry,11\n"
             "2024/03/05,11:58:25,-1,5,11\n2024/03/05,11:58:25,1000,5,11\n"
             "2024/03/05,11:58:25,,5,11\n");
    EXPECT_EQ(reading.record.times.size(), 4U);
    EXPECT_EQ(
        test::LeftOut(reading, 0),
        List({"Row 3: '2024/03/05,24:00:00,0' is not a time.",
              "Row 4: '2024/03/05,11:58:22,x' is not a time.", "Row 5: '' is not a number.",
              "Row 6: 'dry' is not a number.", "Row 7: '2024/03/05,11:58:25,-1' is not a time.",
              "Row 8: '2024/03/05,11:58:25,1000' is not a time."}));
    EXPECT_EQ(LeftOutOfChannel(reading, 1).count, 4U);
}

TEST(SolinstCsv, SurvivesASpreadsheet) {
    const LoggerReading reading =
        Read("Serial_number:,,,\n2000001,,,\nLocation:,,,\nMW-7,,,\nLEVEL,,,\nUNIT: m,,,\n"
             "Date,Time,ms,LEVEL,,\n3/13/2024,11:58:20 AM,0,5.25,,\n3/13/2024,12:01:20 PM,0,5,,\n");
    EXPECT_EQ(reading.record.location, "MW-7");
    EXPECT_EQ(reading.record.serial, "2000001");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|m"}));
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 180}));
}

TEST(SolinstCsv, AnEmptyLocationIsNone) {
    const LoggerReading reading =
        Read("Location:\nLEVEL\nUNIT: m\nDate,Time,ms,LEVEL\n2024/03/05,11:58:20,0,5.25\n"
             "2024/03/05,11:58:21,0,5.25\n");
    EXPECT_FALSE(reading.record.location);
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|m"}));
}

TEST(SolinstCsv, NeedsTwoRows) {
    const std::string fault = "No table of readings was found in log.csv.";
    EXPECT_EQ(Read(NewAbove + NewHeading).fault, fault);
    EXPECT_EQ(Read(NewAbove + NewHeading + "2024/03/05,11:58:20,0,5.25,11.3\n").fault, fault);
    EXPECT_EQ(Read("Date,Time,ms,LEVEL\n2024/03/05,11:58:20,0,x\n2024/03/05,11:58:21,0,y\n").fault,
              fault);
}

} // namespace
} // namespace quarnel

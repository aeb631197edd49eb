#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using test::Read;

const std::string FirstLine = "Data file for DataLogger.\n=====\n";
const std::string Above = FirstLine + "FILENAME   : MW7.MON\n[Logger settings]\n"
                                      "  Serial number           =..00-A0001  216.\n"
                                      "  Location                =MW-7\n"
                                      "[Channel 1]\n  Identification          =PRESSURE\n"
                                      "  Reference level         =400.000   cm\n"
                                      "[Channel 2]\n  Identification          =TEMPERATURE\n"
                                      "  Reference level         =-20.000   \xC2\xB0"
                                      "C\n[Series settings]\n"
                                      "  Start date / time       =20:58:11 05/03/24\n";

TEST(DiverMon, ReadsSettingsAndRows) {
    const LoggerReading reading = Read(Above + "[Data]\n2\n"
                                               "2024/03/05 11:58:20.0      1533.500      11.300\n"
                                               "2024/03/05 11:58:22.5      1533.600      11.400\n"
                                               "END OF DATA FILE OF DATALOGGER FOR WINDOWS\n");
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.formatName, "Diver MON, Solinst LEV");
    EXPECT_EQ(reading.record.location, "MW-7");
    EXPECT_EQ(reading.record.serial, "..00-A0001  216.");
    EXPECT_EQ(test::ChannelTexts(reading), List({"PRESSURE|cm", "TEMPERATURE|\xC2\xB0"
                                                                "C"}));
    EXPECT_EQ(reading.record.channels[0].kind, ChannelKind::Pressure);
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({1533.5, 1533.6}));
    EXPECT_EQ(test::ClockText(reading.record.times[1]), "2024-03-05 11:58:22.500000");
    EXPECT_EQ(reading.leftOut.count, 0U);
}

TEST(DiverMon, DoesNotTrustTheCount) {
    const std::string rows =
        "2024/03/05 11:58:20.0 1533.5 11.3\n2024/03/05 11:58:22.0 1533.6 11.3\n"
        "2024/03/05 11:58:24.0 1533.7 11.3\n";
    for (const std::string count : {"2\n", "99999999999999\n", "", "\n  3  \n\n", "0\n"})
        EXPECT_EQ(Read(Above + "[Data]\n" + count + rows).record.times.size(), 3U) << count;
}

TEST(DiverMon, ReadsTheLevGeneration) {
    const LoggerReading reading =
        Read(FirstLine + "[Instrument info]\n  Serial number=1012345\n"
                         "[Channel 1 from data header]\n  Identification          =LEVEL\n"
                         "  Reference               =0.000     m\n"
                         "[Channel 2 from data header]\n  Identification          =TEMPERATURE\n"
                         "  Reference               =0.000     Deg C\n[Data]\n2\n"
                         "05/13/24 11:58:20.0      5.2500    11.3\n"
                         "05/13/24 11:58:20.5      5.2600    11.3\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|m", "TEMPERATURE|Deg C"}));
    EXPECT_EQ(test::ClockText(reading.record.times.at(1)), "2024-05-13 11:58:20.500000");
}

TEST(DiverMon, TakesDecimalCommasAndUndeclaredChannels) {
    const LoggerReading reading = Read(FirstLine + "[Data]\n05.03.2024 11:58:20,0 1533,5 11,3\n"
                                                   "05.03.2024 11:58:20,5 1533,6 11,4\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Channel 1|", "Channel 2|"}));
    EXPECT_EQ(reading.record.channels[1].values, std::vector<double>({11.3, 11.4}));
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 0.5}));
}

TEST(DiverMon, TellsOfACutLastLine) {
    const LoggerReading reading =
        Read(Above + "[Data]\n2024/03/05 11:58:20.0 1533.5 11.3\n"
                     "2024/03/05 11:58:22.0 1533.6 11.3\n2024/03/05 11:58:24.0\n2024/03/05 11:5");
    EXPECT_EQ(reading.record.times.size(), 3U);
    EXPECT_EQ(test::LeftOut(reading),
              List({"Row 18: '' is not a number.", "Row 19: '2024/03/05 11:5' is not a time."}));
}

TEST(DiverMon, MakesNoRoomForANumberOfTheFile) {
    const LoggerReading reading =
        Read(FirstLine + "[Channel 4000000000]\n  Identification =X\n[Channel 0]\n"
                         "  Identification =Y\n[Data]\n4000000000\n"
                         "2024/03/05 11:58:20.0 1\n2024/03/05 11:58:21.0 2\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Channel 1|"}));
}

TEST(DiverMon, WithoutRowsIsNoTable) {
    EXPECT_EQ(Read(Above + "[Data]\n0\n").fault, "No table of readings was found in log.csv.");
    EXPECT_EQ(Read(Above + "[Data]").fault, "No table of readings was found in log.csv.");
    EXPECT_EQ(Read(Above + "[Data]\n1\n2024/03/05 11:58:20.0 1533.5 11.3\nEND OF DATA FILE").fault,
              "No table of readings was found in log.csv.");
}

TEST(DiverCsv, TheHeadingWinsOverTheSettings) {
    const LoggerReading reading =
        Read(Above + "Date/time,Water head[cm],Temperature[\xC2\xB0"
                     "C]\n2024/03/05 11:58:20,533.5,11.3\n2024/03/05 11:58:22,533.6,11.3\n"
                     "END OF DATA FILE OF DATALOGGER FOR WINDOWS\n");
    EXPECT_EQ(reading.record.formatName, "Diver CSV");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Water head|cm", "Temperature|\xC2\xB0"
                                                                  "C"}));
    EXPECT_EQ(reading.record.channels[0].kind, ChannelKind::Level);
    EXPECT_EQ(reading.record.times.size(), 2U);
    EXPECT_EQ(reading.leftOut.count, 0U);
}

TEST(DiverCsv, TakesSemicolonsWithDecimalCommas) {
    const LoggerReading reading =
        Read(FirstLine + "Location;MW-7;\nDate/time;Pressure[cm];Conductivity\n"
                         "2024/03/05 11:58:20,5;1533,5;0,4\n"
                         "2024/03/05 11:58:21;1533,6;0,5\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Pressure|cm", "Conductivity|"}));
    EXPECT_EQ(reading.record.channels[0].values, std::vector<double>({1533.5, 1533.6}));
    EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 0.5}));
}

TEST(DiverCsv, AHeadingWithoutUnitTakesTheDeclaredOne) {
    const LoggerReading reading = Read(Above + "\"Date/time\",\"Pressure\",\"\"\n"
                                               "2024/03/05 11:58:20,1533.5,11.3\n"
                                               "2024/03/05 11:58:21,1533.6,11.3\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Pressure|cm", "TEMPERATURE|\xC2\xB0"
                                                                "C"}));
}

} // namespace
} // namespace quarnel

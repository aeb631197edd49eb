#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using Numbers = std::vector<double>;
using test::Read;

const std::string Above = "<html><head><style>td {}</style></head><body>\n"
                          "<script>var s = \"<tr isi-data-row><td>x</td></tr>\";</script>\n"
                          "<table id=\"isi-report\">\n";
const std::string Properties = "<tr><td isi-group=\"x\">Location Name = <span>MW-7 &amp; Co</span>"
                               "</td></tr><tr><td>Device SN = 900001</td></tr>\n";
const std::string Heading = "<tr isi-data-table=\"\"><td isi-data-column-header>Date Time</td>"
                            "<td isi-parameter-type=\"2\">Druck (psi) (900001)</td>"
                            "<td isi-parameter-type=\"3\">Depth (m)</td>"
                            "<td isi-parameter-type=\"1\">Temperature (&#176;C)</td>"
                            "<td isi-parameter-type=\"16\">Luft (mbar)</td><td>Marked</td></tr>\n";

std::string Row(const std::string& attributes, const std::string& time, const std::string& cells) {
    return "<tr class=\"data\" isi-data-row" + attributes + "><td>" + time + "</td>" + cells +
           "</tr>\n";
}

std::string Cells(const std::string& a, const std::string& b) {
    return "<td>" + a + "</td><td>" + b + "</td><td>11.3</td><td>1013</td><td></td>";
}

TEST(InSituReport, ReadsHeadingsAndRows) {
    const LoggerReading reading =
        Read(Above + Properties + Heading +
             Row("", "2024-03-05 11:58:20.000", Cells("14.673946", "10.333733")) +
             Row("", "2024-03-05 11:58:20.250", Cells("14,7", "10,4")) + "</table></body></html>");
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.formatName, "In-Situ HTML");
    EXPECT_EQ(reading.record.location, "MW-7 & Co");
    EXPECT_EQ(reading.record.serial, "900001");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Druck (900001)|psi", "Depth|m",
                                                 "Temperature|\xC2\xB0"
                                                 "C",
                                                 "Luft|mbar"}));
    using enum ChannelKind;
    const ChannelKind kinds[] = {Pressure, Level, Temperature, Pressure};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(reading.record.channels[i].kind, kinds[i]) << i;
    EXPECT_EQ(reading.record.channels[0].values, Numbers({14.673946, 14.7}));
    EXPECT_EQ(reading.record.channels[1].values, Numbers({10.333733, 10.4}));
    EXPECT_EQ(test::Seconds(reading), Numbers({0, 0.25}));
    EXPECT_EQ(reading.record.lines, std::vector<std::uint32_t>({6, 7}));
}

TEST(InSituReport, TakesDifferencesFromTimestamps) {
    const std::string above = Above + Heading;
    const auto rows = [&](const List& timestamps, const List& times) {
        std::string text = above;
        for (std::size_t i = 0; i < times.size(); ++i)
            text += Row(timestamps[i].empty() ? "" : " isi-timestamp=\"" + timestamps[i] + "\"",
                        times[i], Cells("1", "2"));
        return test::Seconds(Read(text));
    };
    const List whole = {"2024-03-05 11:58:20", "2024-03-05 11:58:20", "2024-03-05 11:58:21"};
    EXPECT_EQ(rows({"1000", "1500", "2125"}, whole), Numbers({0, 0.5, 1.125}));
    // Stamps that do not differ, or are missing, tell nothing.
    EXPECT_EQ(rows({"1000", "1000", "1000"}, whole), Numbers({0, 0, 1}));
    EXPECT_EQ(rows({"1000", "", "2125"}, whole), Numbers({0, 0, 1}));
    EXPECT_EQ(rows({"1000", "1500", "9999999999999999999"}, whole), Numbers({0, 0, 1}));
    // Times with fractions are better.
    EXPECT_EQ(rows({"1000", "1500"}, {"2024-03-05 11:58:20.0", "2024-03-05 11:58:20.7"}),
              Numbers({0, 0.7}));
}

TEST(InSituReport, ReadsHtmlAsItComes) {
    const LoggerReading reading =
        Read("<TABLE ISI-DATA-TABLE><TR><TH>Date Time<TH isi-parameter-type=3>Depth<br>(ft)"
             "<TR ISI-DATA-ROW><TD isi-timestamp=1>3/13/2024 11:58:20 AM<TD>5 & more"
             "<TR isi-data-row class=x><TD isi-timestamp=501>3/13/2024 11:58:20 AM<TD>&#53;.5<br>"
             "<tr isi-data-row><td isi-timestamp=1001>3/13/2024 11:58:21 AM<td>\r\n 5.75 \r\n");
    EXPECT_EQ(test::ChannelTexts(reading), List({"Depth|ft"}));
    EXPECT_EQ(test::Seconds(reading), Numbers({0, 0.5, 1}));
    EXPECT_EQ(test::LeftOut(reading), List({"Row 1: '5 & more' is not a number."}));
    EXPECT_EQ(reading.record.channels[0].values[2], 5.75);
}

TEST(InSituReport, ReadsMarkedUtf16AndCarriageReturns) {
    std::string text = "\xFF\xFE";
    for (const char c : Above + Heading + Row("", "2024-03-05 11:58:20", Cells("1", "2")) +
                            Row("", "2024-03-05 11:58:21", Cells("1", "2"))) {
        text += c == '\n' ? '\r' : c;
        text += '\0';
    }
    const LoggerReading reading = Read(text);
    EXPECT_EQ(reading.record.lines, std::vector<std::uint32_t>({5, 6}));
}

TEST(InSituReport, TellsOfRowsWithoutTime) {
    const LoggerReading reading = Read(Above + Heading + Row("", "start", Cells("1", "2")) +
                                       Row("", "2024-03-05 11:58:20", Cells("1", "2")) +
                                       Row("", "2024-03-05 11:58:21", Cells("x", "2")) +
                                       Row("", "2024-03-05 11:60:00", Cells("1", "2")) +
                                       "<tr isi-data-row><td>2024-03-05 11:58:22</td><td>1");
    EXPECT_EQ(reading.record.times.size(), 3U);
    EXPECT_EQ(test::LeftOut(reading),
              List({"Row 5: 'start' is not a time.", "Row 7: 'x' is not a number.",
                    "Row 8: '2024-03-05 11:60:00' is not a time."}));
    EXPECT_EQ(LeftOutOfChannel(reading, 1).count, 3U); // the cut last row has no depth
}

TEST(InSituReport, WithoutRowsIsNoTable) {
    const std::string fault = "No table of readings was found in log.csv.";
    EXPECT_EQ(Read(Above).fault, fault);
    EXPECT_EQ(Read(Above + Heading).fault, fault);
    EXPECT_EQ(Read(Above + Heading + Row("", "2024-03-05 11:58:20", Cells("1", "2"))).fault, fault);
}

} // namespace
} // namespace quarnel

#include "loggerfiles/XleReader.h"

#include "tests/loggerfiles/LoggerTestSupport.h"

namespace quarnel {
namespace {

using List = std::vector<std::string>;
using Numbers = std::vector<double>;

LoggerReading Read(std::string_view text) {
    ReadOptions options;
    options.xleReader = &ReadXle;
    return ReadLoggerBytes(text, "log.xle", options);
}

const std::string Above =
    "<?xml version=\"1.0\" ?>\r\n<Body_xle>\r\n <File_info><Date>2020/01/01</Date></File_info>\r\n"
    " <Instrument_info><Serial_number>2000001</Serial_number></Instrument_info>\r\n"
    " <Instrument_info_data_header><Location>MW-7 &amp; Co</Location><Longtitude>1</Longtitude>"
    "<Num_log>99999999</Num_log></Instrument_info_data_header>\r\n"
    " <Ch1_data_header><Identification>LEVEL</Identification><Unit>m</Unit>"
    "<Parameters><Offset Val=\"0.000\" Unit=\"ft\" /></Parameters></Ch1_data_header>\r\n"
    " <Ch2_data_header><Identification>TEMPERATURE</Identification><Unit>\xC2\xB0"
    "C</Unit></Ch2_data_header>\r\n <Data>\r\n";
const std::string Below = " </Data>\r\n</Body_xle>\r\n";

std::string Log(const std::string& inside) {
    return "  <Log id=\"1\">" + inside + "</Log>\r\n";
}

std::string At(const std::string& time, const std::string& ms, const std::string& level) {
    return Log("<Date>2024/03/05</Date><Time>" + time + "</Time><ms>" + ms + "</ms><ch1>" + level +
               "</ch1><ch2>11.30</ch2>");
}

TEST(XleReader, ReadsHeadersAndLogs) {
    const LoggerReading reading =
        Read(Above + At("11:58:20", "0", "5.25") + At("11:58:20", "5", "5,26") +
             At("11:58:21", "500", "5.5") + Below);
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.formatName, "Solinst XLE");
    EXPECT_EQ(reading.record.location, "MW-7 & Co");
    EXPECT_EQ(reading.record.serial, "2000001");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|m", "TEMPERATURE|\xC2\xB0"
                                                            "C"}));
    EXPECT_EQ(reading.record.channels[0].kind, ChannelKind::Level);
    EXPECT_EQ(reading.record.channels[0].values, Numbers({5.25, 5.26, 5.5}));
    EXPECT_EQ(test::Seconds(reading), Numbers({0, 0.005, 1.5}));
    EXPECT_EQ(test::ClockText(reading.record.times[0]), "2024-03-05 11:58:20.000000");
    EXPECT_EQ(reading.record.lines, std::vector<std::uint32_t>({9, 10, 11}));
    EXPECT_TRUE(reading.notes.empty());
}

TEST(XleReader, TakesItsDates) {
    for (const char* date : {"2024/03/13", "2024-03-13", "2024_03_13", "03/13/2024", "13-03-2024",
                             "13_03_2024", "24-03-13", "03/13/24"}) {
        const std::string day = "<Date>" + std::string(date) + "</Date>";
        const LoggerReading reading = Read(Above + Log(day + "<Time>11:58:20</Time><ch1>5</ch1>") +
                                           Log(day + "<Time>11:58:21</Time><ch1>5</ch1>") + Below);
        ASSERT_EQ(reading.record.times.size(), 2U) << date;
        EXPECT_EQ(test::ClockText(reading.record.times[0]), "2024-03-13 11:58:20.000000") << date;
    }
}

TEST(XleReader, AWrongEncodingDoesNoHarm) {
    for (const std::string declared : {"UTF-8", "ISO-8859-1", "utf-16", "nonsense"}) {
        const std::string text = "<?xml version=\"1.0\" encoding=\"" + declared + "\"?>" +
                                 Above.substr(Above.find("\r\n")) + At("11:58:20", "0", "1") +
                                 At("11:58:21", "0", "2") + Below;
        EXPECT_EQ(test::ChannelTexts(Read(text)).at(1), "TEMPERATURE|\xC2\xB0"
                                                        "C")
            << declared;
    }
    std::string latin = Above + At("11:58:20", "0", "1") + At("11:58:21", "0", "2") + Below;
    latin.erase(latin.find('\xC2'), 1);
    EXPECT_EQ(test::ChannelTexts(Read(latin)).at(1), "TEMPERATURE|\xC2\xB0"
                                                     "C");
    std::string wide = "\xFF\xFE";
    for (const char c : latin) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(test::ChannelTexts(Read(wide)).at(1), "TEMPERATURE|\xC2\xB0"
                                                    "C");
    EXPECT_EQ(
        Read("\xEF\xBB\xBF" + Above + At("11:58:20", "0", "1") + At("11:58:21", "0", "2") + Below)
            .record.times.size(),
        2U);
}

TEST(XleReader, ACutFileKeepsItsWholeLogsAndSaysSo) {
    const LoggerReading reading =
        Read(Above + At("11:58:20", "0", "5.25") + At("11:58:21", "0", "5.26") +
             "  <Log id=\"3\"><Date>2024/03/05</Date><Time>11:58:2");
    EXPECT_EQ(reading.fault, "");
    EXPECT_EQ(reading.record.times.size(), 2U);
    EXPECT_EQ(reading.notes,
              List({"The file is cut or damaged at row 11; the rows before it are kept."}));
    EXPECT_EQ(test::ChannelTexts(reading).at(0), "LEVEL|m");
    const LoggerReading damaged =
        Read(Above + At("11:58:20", "0", "5") + At("11:58:21", "0", "6") + "&\r\n" + Below);
    EXPECT_EQ(damaged.record.times.size(), 2U);
    EXPECT_EQ(damaged.notes.size(), 1U);
}

TEST(XleReader, TellsOfLogsWithoutTimeOrNumber) {
    const LoggerReading reading =
        Read(Above + Log("<Date>soon</Date><Time>11:58:20</Time><ch1>5</ch1>") +
             At("11:58:20", "0", "5.25") + At("24:00:00", "0", "5.25") + At("11:58:21", "x", "5") +
             At("11:58:21", "1000", "5") + At("11:58:21", "0", "dry") +
             Log("<Date>2024/03/05</Date><Time>11:58:22</Time><ch2>11</ch2><other>7</other>") +
             At("11:58:23", "", "5") + Below);
    EXPECT_EQ(reading.record.times.size(), 4U);
    EXPECT_EQ(test::LeftOut(reading),
              List({"Row 9: 'soon 11:58:20' is not a time.",
                    "Row 11: '2024/03/05 24:00:00 0' is not a time.",
                    "Row 12: '2024/03/05 11:58:21 x' is not a time.",
                    "Row 13: '2024/03/05 11:58:21 1000' is not a time.",
                    "Row 14: 'dry' is not a number.", "Row 15: '' is not a number."}));
}

TEST(XleReader, HeadersMayFollowTheDataAndMayLie) {
    const LoggerReading reading =
        Read("<Body_xle><Data>" + At("11:58:20", "0", "5") + At("11:58:21", "0", "6") +
             "</Data><Ch1_data_header><Identification>LEVEL</Identification><Unit>ft</Unit>"
             "</Ch1_data_header><Ch999999999999_data_header><Identification>X</Identification>"
             "</Ch999999999999_data_header></Body_xle>");
    EXPECT_EQ(test::ChannelTexts(reading), List({"LEVEL|ft", "|"}));
    EXPECT_EQ(reading.record.channels[0].kind, ChannelKind::Level);
}

TEST(XleReader, NeedsTwoLogs) {
    const std::string fault = "No table of readings was found in log.xle.";
    EXPECT_EQ(Read(Above + Below).fault, fault);
    EXPECT_EQ(Read(Above + At("11:58:20", "0", "5.25") + Below).fault, fault);
    EXPECT_EQ(Read("<Body_xle").fault, fault);
    EXPECT_EQ(Read("<?xml <Body_xle").fault, fault);
}

TEST(XleReader, IsMissedWhereThereIsNone) {
    EXPECT_EQ(test::Read(Above).fault,
              "log.csv is a Solinst XLE file, which this program was built without.");
}

} // namespace
} // namespace quarnel

// Each format in every encoding and with every line end, and cut at every byte.

#include "project/TextEncoding.h"
#include "tests/loggerfiles/LoggerTestSupport.h"

#ifdef QUARNEL_XLE
#include "loggerfiles/XleReader.h"
#endif

namespace quarnel {
namespace {

struct Sample {
    const char* name;
    std::string text; ///< UTF-8, lines ended by LF, four rows
};

const std::string Degrees = "\xC2\xB0"
                            "C";

std::vector<Sample> Samples() {
    std::vector<Sample> samples = {
        {"Solinst CSV", "Location:\nMW-7\nLEVEL\nUNIT: m\nTEMPERATURE\nUNIT: " + Degrees +
                            "\nDate;Time;ms;LEVEL;TEMPERATURE\n2024/03/13;11:58:20;0;5,25;11,3\n"
                            "2024/03/13;11:58:21;0;5,26;11,3\n2024/03/13;11:58:22;0;5,27;11,3\n"
                            "2024/03/13;11:58:23;0;5,28;11,3\n"},
        {"Diver MON, Solinst LEV",
         "Data file for DataLogger.\n[Logger settings]\n  Location =MW-7\n[Channel 1]\n"
         "  Identification =LEVEL\n  Reference level =0.0 m\n[Channel 2]\n"
         "  Identification =TEMPERATURE\n  Reference level =-20 " +
             Degrees +
             "\n[Data]\n4\n2024/03/13 11:58:20.0 5.25 11.3\n2024/03/13 11:58:21.0 5.26 11.3\n"
             "2024/03/13 11:58:22.0 5.27 11.3\n2024/03/13 11:58:23.0 5.28 11.3\n"},
        {"Diver CSV", "Data file for DataLogger.\nLocation =MW-7\nDate/time;LEVEL[m];TEMPERATURE[" +
                          Degrees +
                          "]\n13.03.2024 11:58:20;5,25;11,3\n13.03.2024 11:58:21;5,26;11,3\n"
                          "13.03.2024 11:58:22;5,27;11,3\n13.03.2024 11:58:23;5,28;11,3\n"},
        {"HOBO CSV",
         "\"Plot Title: MW-7\"\n\"#\",\"Date Time, GMT-07:00\",\"LEVEL, m (LGR S/N: 1)\","
         "\"TEMPERATURE, " +
             Degrees +
             " (LGR S/N: 1)\"\n1,03/13/24 11:58:20 AM,5.25,11.3\n"
             "2,03/13/24 11:58:21 AM,5.26,11.3\n3,03/13/24 11:58:22 AM,5.27,11.3\n"
             "4,03/13/24 11:58:23 AM,5.28,11.3\n"},
        {"In-Situ HTML", "<table id=\"isi-report\">\n<tr><td>Location Name = MW-7</td></tr>\n"
                         "<tr isi-data-table><td>Time</td><td isi-parameter-type=3>LEVEL (m)</td>"
                         "<td isi-parameter-type=1>TEMPERATURE (" +
                             Degrees +
                             ")</td></tr>\n"
                             "<tr isi-data-row><td>2024-03-13 11:58:20<td>5.25<td>11.3</tr>\n"
                             "<tr isi-data-row><td>2024-03-13 11:58:21<td>5.26<td>11.3</tr>\n"
                             "<tr isi-data-row><td>2024-03-13 11:58:22<td>5.27<td>11.3</tr>\n"
                             "<tr isi-data-row><td>2024-03-13 11:58:23<td>5.28<td>11.3</tr>\n"},
        {"Text table", "Time\tLEVEL (m)\tTEMPERATURE (" + Degrees +
                           ")\n2024-03-13T11:58:20Z\t5,25\t11,3\n2024-03-13T11:58:21Z\t5,26\t11,3\n"
                           "2024-03-13T11:58:22Z\t5,27\t11,3\n2024-03-13T11:58:23Z\t5,28\t11,3\n"}};
#ifdef QUARNEL_XLE
    std::string xle = "<?xml version=\"1.0\"?>\n<Body_xle>\n<Location>MW-7</Location>\n"
                      "<Ch1_data_header><Identification>LEVEL</Identification><Unit>m</Unit>"
                      "</Ch1_data_header>\n<Ch2_data_header><Identification>TEMPERATURE"
                      "</Identification><Unit>" +
                      Degrees + "</Unit></Ch2_data_header>\n<Data>\n";
    for (int i = 0; i < 4; ++i)
        xle += "<Log><Date>2024/03/13</Date><Time>11:58:2" + std::to_string(i) +
               "</Time><ms>0</ms><ch1>5,2" + std::to_string(5 + i) +
               "</ch1><ch2>11,3</ch2></Log>\n";
    samples.push_back({"Solinst XLE", xle + "</Data>\n</Body_xle>\n"});
#endif
    return samples;
}

LoggerReading ReadDressed(std::string_view bytes) {
    ReadOptions options;
#ifdef QUARNEL_XLE
    options.xleReader = &ReadXle;
#endif
    return ReadLoggerBytes(bytes, "log", options);
}

std::string WithLineEnds(const std::string& text, const std::string& lineEnd) {
    std::string changed;
    for (const char c : text)
        changed += c == '\n' ? lineEnd : std::string(1, c);
    return changed;
}

/// `text`, whose characters are all below U+0100, in UTF-16.
std::string Utf16(const std::string& text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : EncodeFileText(text))
        bytes += bigEndian ? std::string({'\0', c}) : std::string({c, '\0'});
    return bytes;
}

TEST(LoggerDresses, EveryEncodingAndLineEndGivesTheSameRecord) {
    for (const Sample& sample : Samples()) {
        for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
            const std::string text = WithLineEnds(sample.text, lineEnd);
            for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, EncodeFileText(text),
                                             Utf16(text, false), Utf16(text, true)}) {
                const LoggerReading reading = ReadDressed(bytes);
                const LoggerRecord& record = reading.record;
                EXPECT_EQ(reading.fault, "") << sample.name;
                EXPECT_EQ(record.formatName, sample.name);
                EXPECT_EQ(record.location.value_or("MW-7"), "MW-7");
                ASSERT_EQ(test::ChannelTexts(reading),
                          std::vector<std::string>({"LEVEL|m", "TEMPERATURE|" + Degrees}))
                    << sample.name;
                EXPECT_EQ(record.channels[0].values, std::vector<double>({5.25, 5.26, 5.27, 5.28}));
                EXPECT_EQ(record.channels[1].values, std::vector<double>({11.3, 11.3, 11.3, 11.3}));
                EXPECT_EQ(test::ClockText(record.times.at(0)), "2024-03-13 11:58:20.000000");
                EXPECT_EQ(test::Seconds(reading), std::vector<double>({0, 1, 2, 3}));
                EXPECT_EQ(record.lines[3], record.lines[0] + 3);
                EXPECT_EQ(reading.leftOut.count, 0U) << sample.name;
            }
        }
    }
}

TEST(LoggerDresses, ACutFileKeepsItsFirstRows) {
    for (const Sample& sample : Samples()) {
        const LoggerReading whole = ReadDressed(sample.text);
        std::size_t read = 0;
        for (std::size_t size = 1; size < sample.text.size(); ++size) {
            const LoggerReading cut = ReadDressed(std::string_view(sample.text).substr(0, size));
            if (!cut.fault.empty())
                continue;
            ++read;
            const std::vector<std::int64_t>& times = cut.record.times;
            ASSERT_LE(times.size(), whole.record.times.size()) << sample.name << " " << size;
            EXPECT_TRUE(std::equal(times.begin(), times.end(), whole.record.times.begin()))
                << sample.name << " " << size;
            // All but the row that is cut have their readings.
            for (std::size_t i = 0; i + 1 < times.size(); ++i)
                EXPECT_EQ(cut.record.channels[0].values[i], whole.record.channels[0].values[i])
                    << sample.name << " " << size;
        }
        EXPECT_GT(read, 60U) << sample.name;
    }
}

} // namespace
} // namespace quarnel

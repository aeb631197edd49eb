#include "loggerfiles/Recognise.h"

#include <gtest/gtest.h>
#include <string>

namespace quarnel {
namespace {

std::string_view Format(std::string_view text) {
    return FormatName(RecogniseLoggerFile(text));
}

TEST(Recognise, KnowsEachFormatByWhatItHolds) {
    EXPECT_EQ(Format("<?xml version=\"1.0\" ?>\n<Body_xle>\n"), "Solinst XLE");
    EXPECT_EQ(Format("<html><table id=\"isi-report\">"), "In-Situ HTML");
    EXPECT_EQ(Format("<html><tr isi-data-table>"), "In-Situ HTML");
    EXPECT_EQ(Format("Data file for DataLogger.\n==\n[Data]\n1\n"), "Diver MON, Solinst LEV");
    EXPECT_EQ(Format("  data file for datalogger.\r[data]\r"), "Diver MON, Solinst LEV");
    EXPECT_EQ(Format("Data file for DataLogger.\nDate/time,Pressure[cm]\n"), "Diver CSV");
    EXPECT_EQ(Format("LEVEL\nUNIT: m\nDate,Time,ms,LEVEL\n"), "Solinst CSV");
    EXPECT_EQ(Format(",Date,Time,100 ms,LEVEL\n"), "Solinst CSV");
    EXPECT_EQ(Format("\"Date\";\"Time\";\"ms\";\"LEVEL\"\n"), "Solinst CSV");
    EXPECT_EQ(Format("\"Plot Title: MW-7\"\n"), "HOBO CSV");
    EXPECT_EQ(Format("Plot Title: MW-7\n"), "HOBO CSV");
    EXPECT_EQ(Format("\"#\",\"Date Time, GMT-07:00\",\"Temp\"\n"), "HOBO CSV");
    EXPECT_EQ(Format("Serial Number:,123\nDate Time,Temp\n"), "HOBO CSV");
    EXPECT_EQ(Format("Time,Level\n0,1\n"), "Text table");
    EXPECT_EQ(Format(""), "Text table");
}

TEST(Recognise, NearMissesAreTextTables) {
    EXPECT_EQ(Format("Data file for DataLogger.\n[Daten]\n"), "Text table");
    EXPECT_EQ(Format("\nData file for DataLogger.\n[Data]\n"), "Text table");
    EXPECT_EQ(Format("Date,Time,LEVEL\n"), "Text table");
    EXPECT_EQ(Format("Date Time,Temp\n"), "Text table");
    EXPECT_EQ(Format("x\nPlot Title: MW-7\n"), "Text table");
}

TEST(Recognise, LooksAtTheFirst64KiBAlone) {
    const std::string filler(65'530, ' ');
    EXPECT_EQ(Format(filler.substr(20) + "<Body_xle>"), "Solinst XLE");
    EXPECT_EQ(Format(filler + "<Body_xle>"), "Text table");
}

TEST(Recognise, TheFirstOfTheOrderWins) {
    EXPECT_EQ(Format("Data file for DataLogger.\nDate/time,Level\n[Data]\n"),
              "Diver MON, Solinst LEV");
    EXPECT_EQ(Format("\"Plot Title: x\"\nDate,Time,ms,LEVEL\n"), "Solinst CSV");
}

} // namespace
} // namespace quarnel

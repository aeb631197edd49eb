// Reading a project file: records in any order, each asymmetry of keys and values, and what a
// damaged record leaves behind.

#include "project/Files.h"

#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Messages = std::vector<std::string>;

constexpr std::string_view Header = "\"QUARNEL PROJECT FILE\"\r\n\"VERSION\",\"3.0\"\r\n";

struct Opened {
    ProjectState state;
    ReadReport report;
};

/// Opens records behind the usual header.
Opened Open(std::string_view records) {
    Opened opened;
    opened.report = OpenProjectBytes(std::string(Header) + std::string(records), opened.state);
    return opened;
}

std::string Row(const ProjectState& state, std::size_t row) {
    return state.RecDatGrid.at(row - 1).time.ToString() + "|" +
           state.RecDatGrid.at(row - 1).level.ToString();
}

constexpr std::string_view WholeExample = R"("SITEID","LUSTNO","934-0017"
"SITEID","USTNO","8-44"
"SITEID","SITENAME","Corner Fuel Stop"
"SITEID","SITEADD","1 Main St"
"SITEID","SITECITY","Springfield"
"SITEID","SITESTATE","KS"
"SITEID","SITEZIP","67124"
"SITEID","RPNAME","Client"
"SITEID","RPADD","Client address"
"SITEID","RPCITY","Client city"
"SITEID","RPSTATE","Client state"
"SITEID","RPZIP","Client ZIP"
"SITEID","RPJOBNUM","Job 7"
"SITEID","CFNAME","Firm"
"SITEID","CFADD","Firm address"
"SITEID","CFCITY","Firm city"
"SITEID","CFSTATE","Firm state"
"SITEID","CFZIP","Firm ZIP"
"SITEID","CGWPNAME","Professional"
"SITEID","CGWPNUM","No. 5"
"WELLID","WELLLABEL","MW-3"
"WELLID","TESTDATE","4/12/98"
"WELLID","TESTBY1","J. Smith"
"WELLID","TESTBY2","Second"
"WELLID","TESTBY3","Third"
"WELLID","ANAYSBY","R. Doe"
"WELLID","SLUGVOLUME","1.5 gal"
"WELLGEO","H","12.4"
"WELLGEO","LW","10"
"WELLGEO","LE","9"
"WELLGEO","DW","8.25"
"WELLGEO","DC","2"
"WELLGEO","DP","30"
"WELLGEO","VERMEASUNITS","m",3
"WELLGEO","RADMEASUNITS","cm",2
"WELLGEO","PICSELECT",2
"RECDATA","TIMEUNITS","min",1
"RECDATA","WATERUNITS","cm",2
"RECDATA","HEADMEASMETHOD","H: Groundwater Head ",1
"RECDATA","SLUGTESTTYPE","Falling head ",1
"RECDATA","PRESLUG","7.32"
"RECDATA","DATAPOINT","0","9.80"
"RECDATA","DATAPOINT","15","9.41"
"RECDATA","DATAPOINT","30",""
"LSWEIGHT","159.41"
"PLOTINFO","TITLE0","First"
"PLOTINFO","TITLE1","Second"
"PLOTINFO","TITLE2","Third"
"PLOTINFO","KTIMEUNITS",0
"PLOTINFO","KLENGTHUNITS",2
"END OF FILE"
)";

TEST(ReadProjectFile, FillsEveryField) {
    const auto [state, report] = Open(WholeExample);
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(report.passedOverCount, 0U);
    EXPECT_EQ(report.format, FileFormat::Current);
    const std::array<std::string, 20> site = {
        "934-0017",   "Corner Fuel Stop", "1 Main St",      "Springfield", "KS",
        "67124",      "Client",           "Client address", "Client city", "Client state",
        "Client ZIP", "Firm ZIP",         "Firm state",     "Firm city",   "Firm address",
        "Firm",       "Professional",     "No. 5",          "8-44",        "Job 7"};
    EXPECT_EQ(state.SiteIDText, site);
    const std::array<std::string, 6> well = {"MW-3",     "4/12/98", "R. Doe",
                                             "J. Smith", "Second",  "Third"};
    EXPECT_EQ(state.WellTestIDTxt, well);
    EXPECT_EQ(state.VolumeOfSlugText, "1.5 gal");
    const std::array<std::string, 6> geometry = {"12.4", "10", "9", "8.25", "2", "30"};
    EXPECT_EQ(state.WellGeoText, geometry);
    EXPECT_EQ(state.WellGeoVertUnitsDDL, Metre);
    EXPECT_EQ(state.WellGeoRadUnitsDDL, Centimetre);
    EXPECT_FALSE(state.SSRibbon1Pressed);
    EXPECT_EQ(state.RecDatTimeUnitsDDL, Minute);
    EXPECT_EQ(state.RecDatWaterLevelUnitsDDL, Centimetre);
    EXPECT_EQ(state.RecDatDataTypeDDL, GroundwaterHead);
    EXPECT_EQ(state.RecDatSlugTestTypeDDL, FallingHead);
    EXPECT_EQ(state.RecDatPreSlugHeadText, "7.32");
    EXPECT_EQ(Row(state, 1), "0|9.80");
    EXPECT_EQ(Row(state, 2), "15|9.41");
    EXPECT_EQ(Row(state, 3), "30|");
    EXPECT_EQ(Row(state, 4), "|");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"159.41"});
    const std::array<std::string, 3> titles = {"First", "Second", "Third"};
    EXPECT_EQ(state.PlotText, titles);
    EXPECT_EQ(state.CmboKTimeUnits, Second);
    EXPECT_EQ(state.CmboKLengthUnits, Centimetre);
    EXPECT_TRUE(state.RecoveryDataTexts.empty());
}

TEST(ReadProjectFile, ClearsTheProjectAsNewDoes) {
    ProjectState state = test::SmallProject();
    state.SiteIDText[SiteName] = "old site";
    state.SiteIDText[ConsultantName] = "our firm";
    state.WellTestIDTxt[WellLabel] = "old well";
    state.IgnoreKeyList = {"old key"};
    state.PlotText[1] = "old title";
    state.DecimalSeparator = ",";
    const ReadReport report = OpenProjectBytes(Header, state);
    EXPECT_EQ(report.messages, Messages{});
    ProjectState expected;
    expected.SiteIDText[ConsultantName] = "our firm";
    EXPECT_EQ(test::Dump(state), test::Dump(expected));
    EXPECT_EQ(state.RecDatGrid.size(), MinimumGridRows);
    EXPECT_EQ(state.DecimalSeparator, ",");
}

TEST(ReadProjectFile, SectionsInAnotherOrderLoad) {
    // The same lines from the last to the first; of the readings and keys only the order differs.
    std::vector<std::string_view> lines;
    for (std::string_view rest = WholeExample; !rest.empty();) {
        const std::size_t end = rest.find('\n') + 1;
        lines.push_back(rest.substr(0, end));
        rest.remove_prefix(end);
    }
    std::string backwards;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        backwards += *line;
    auto [state, report] = Open(backwards);
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(Row(state, 1), "30|");
    std::swap(state.RecDatGrid[0], state.RecDatGrid[2]);
    EXPECT_EQ(test::Dump(state), test::Dump(Open(WholeExample).state));
}

TEST(ReadProjectFile, AMissingSectionKeepsItsClearedValues) {
    const auto [state, report] = Open("\"WELLGEO\",\"H\",\"12\"\r\n\"END OF FILE\"\r\n");
    ProjectState expected;
    expected.WellGeoText[GeoH] = "12";
    EXPECT_EQ(test::Dump(state), test::Dump(expected));
    EXPECT_EQ(report.messages, Messages{});
}

TEST(ReadProjectFile, ARepeatedRecordReplacesItsField) {
    const auto [state, report] = Open("\"WELLGEO\",\"H\",\"12\"\r\n\"WELLGEO\",\"H\",\"13\"\r\n");
    EXPECT_EQ(state.WellGeoText[GeoH], "13");
}

TEST(ReadProjectFile, ATextWithACommaSurvives) {
    EXPECT_EQ(Open("\"SITEID\",\"SITENAME\",\"Fuel, Food, Inc.\"\r\n").state.SiteIDText[SiteName],
              "Fuel, Food, Inc.");
}

TEST(ReadProjectFile, ATextWithADoubleQuoteDoesNot) {
    const auto [state, report] = Open(
        "\"SITEID\",\"SITENAME\",\"The \"Corner\" Stop\"\r\n\"WELLID\",\"WELLLABEL\",\"W1\"\r\n");
    EXPECT_EQ(state.SiteIDText[SiteName], "The ");
    EXPECT_EQ(state.WellTestIDTxt[WellLabel], "W1");
    EXPECT_EQ(report.passedOverCount, 1U);
    EXPECT_EQ(report.passedOver.at(0).text, "Corner\" Stop\"");
    EXPECT_EQ(report.passedOver.at(0).line, 3U);
}

TEST(ReadProjectFile, SectionKeywordsInLowerCaseAreRecognised) {
    const auto [state, report] =
        Open("\"wellid\",\"WELLLABEL\",\"W1\"\r\n\" SiteId \",\"SITENAME\",\"S\"\r\n"
             "recdata,PRESLUG,5\r\nlsweight,k\r\nplotinfo,TITLE0,T\r\nwellgeo,H,9\r\n");
    EXPECT_EQ(state.WellTestIDTxt[WellLabel], "W1");
    EXPECT_EQ(state.SiteIDText[SiteName], "S");
    EXPECT_EQ(state.RecDatPreSlugHeadText, "5");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"k"});
    EXPECT_EQ(state.PlotText[0], "T");
    EXPECT_EQ(state.WellGeoText[GeoH], "9");
    EXPECT_EQ(report.passedOverCount, 0U);
}

TEST(ReadProjectFile, IdentificationKeysInLowerCaseAreNot) {
    for (const std::string_view record :
         {"\"WELLID\",\"welllabel\",\"value\"\r\n", "\"SITEID\",\"sitename\",\"value\"\r\n",
          "\"WELLID\",\" WELLLABEL\",\"value\"\r\n", "\"SITEID\",\"SITENAME \",\"value\"\r\n",
          "\"WELLID\",\"slugvolume\",\"value\"\r\n"}) {
        const auto [state, report] = Open(record);
        EXPECT_EQ(test::Dump(state), test::Dump(ProjectState())) << record;
        EXPECT_EQ(report.messages, Messages{});
        EXPECT_EQ(report.passedOverCount, 2U) << record;
    }
}

TEST(ReadProjectFile, OtherKeysAreTrimmedAndUpperCased) {
    const auto [state, report] =
        Open("\"WELLGEO\",\" lw \",\"5\"\r\n\"RECDATA\",\" preslug\",\"6\"\r\n"
             "\"RECDATA\",\"DataPoint \",\"1\",\"2\"\r\n\"PLOTINFO\",\"title2\",\"T\"\r\n"
             "\"PLOTINFO\",\"kTimeUnits\",1\r\n\"WELLGEO\",\"picselect\",2\r\n");
    EXPECT_EQ(state.WellGeoText[GeoLw], "5");
    EXPECT_EQ(state.RecDatPreSlugHeadText, "6");
    EXPECT_EQ(Row(state, 1), "1|2");
    EXPECT_EQ(state.PlotText[2], "T");
    EXPECT_EQ(state.CmboKTimeUnits, Minute);
    EXPECT_FALSE(state.SSRibbon1Pressed);
    EXPECT_EQ(report.passedOverCount, 0U);
}

TEST(ReadProjectFile, EachSectionTrimsItsValuesOrNot) {
    const auto [state, report] =
        Open("\"WELLGEO\",\"H\",\" 5 \"\r\n\"RECDATA\",\"PRESLUG\",\" 6 \"\r\n"
             "\"RECDATA\",\"DATAPOINT\",\" 1 \",\" 2 \"\r\n\"LSWEIGHT\",\" 12 \"\r\n"
             "\"WELLID\",\"WELLLABEL\",\" W \"\r\n\"WELLID\",\"SLUGVOLUME\",\" V \"\r\n"
             "\"SITEID\",\"SITENAME\",\" S \"\r\n\"PLOTINFO\",\"TITLE0\",\" T \"\r\n");
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(state.RecDatPreSlugHeadText, "6");
    EXPECT_EQ(Row(state, 1), "1|2");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{" 12 "});
    EXPECT_EQ(state.WellTestIDTxt[WellLabel], " W ");
    EXPECT_EQ(state.VolumeOfSlugText, " V ");
    EXPECT_EQ(state.SiteIDText[SiteName], " S ");
    EXPECT_EQ(state.PlotText[0], " T ");
}

TEST(ReadProjectFile, UnknownItemsArePassedOver) {
    const auto [state, report] =
        Open("\"NOTES\",\"KEY\",\"free text\",17\r\n\"WELLGEO\",\"H\",\"5\"\r\n");
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(report.messages, Messages{});
    ASSERT_EQ(report.passedOverCount, 4U);
    EXPECT_EQ(report.passedOver[0].text, "NOTES");
    EXPECT_EQ(report.passedOver[3].text, "17");
    EXPECT_EQ(report.passedOver[3].line, 3U);
}

TEST(ReadProjectFile, AnUnknownKeysValueThatIsAKeywordIsObeyed) {
    const auto [state, report] =
        Open("\"WELLGEO\",\"COLOUR\",\"SITEID\"\r\n\"SITENAME\",\"S\"\r\n");
    EXPECT_EQ(state.SiteIDText[SiteName], "S");
    EXPECT_EQ(report.passedOverCount, 1U);
}

TEST(ReadProjectFile, AnotherVersionIsReadByTheSameRules) {
    ProjectState state;
    OpenProjectBytes(
        "\"Quarnel Project File\"\r\n\"VERSION\",\"9.9\"\r\n\"WELLGEO\",\"H\",\"5\"\r\n", state);
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
}

TEST(ReadProjectFile, EveryKindOfLineEndServes) {
    for (const std::string_view end : {"\r\n", "\n", "\r"}) {
        std::string bytes;
        for (const std::string_view line :
             {"QUARNEL PROJECT FILE", "\"WELLGEO\",\"H\",\"5\"", "WELLGEO,LW,4",
              "\"RECDATA\",\"DATAPOINT\",\"1\",\"2\""})
            bytes += std::string(line) + std::string(end);
        ProjectState state;
        EXPECT_EQ(OpenProjectBytes(bytes, state).messages, Messages{});
        EXPECT_EQ(state.WellGeoText[GeoH], "5");
        EXPECT_EQ(state.WellGeoText[GeoLw], "4");
        EXPECT_EQ(Row(state, 1), "1|2");
    }
}

TEST(ReadProjectFile, PassedOverItemsKnowTheirLineForEveryKindOfLineEnd) {
    for (const std::string_view end : {"\r\n", "\n", "\r"}) {
        std::string bytes;
        for (const std::string_view line :
             {"QUARNEL PROJECT FILE", "one", "", "WELLGEO,H,5", "two"})
            bytes += std::string(line) + std::string(end);
        ProjectState state;
        const ReadReport report = OpenProjectBytes(bytes, state);
        ASSERT_EQ(report.passedOver.size(), 2U);
        EXPECT_EQ(report.passedOver[0].line, 2U);
        EXPECT_EQ(report.passedOver[1].line, 5U);
    }
}

TEST(ReadProjectFile, KeepsTheFirstHundredPassedOverItems) {
    std::string records;
    for (int i = 0; i < 250; ++i)
        records += "item" + std::to_string(i) + "\n";
    const auto [state, report] = Open(records);
    EXPECT_EQ(report.passedOverCount, 250U);
    ASSERT_EQ(report.passedOver.size(), 100U);
    EXPECT_EQ(report.passedOver.back().text, "item99");
    EXPECT_EQ(report.passedOver.back().line, 102U);
}

TEST(ReadProjectFile, APassedOverItemIsNeverCutInsideACharacter) {
    for (std::size_t ascii = 70; ascii < 81; ++ascii) {
        const std::string item = std::string(ascii, 'x') + "井井井井井井";
        const auto [state, report] = Open(item + "\r\n");
        const std::string& kept = report.passedOver.at(0).text;
        EXPECT_LE(kept.size(), 80U);
        EXPECT_GT(kept.size(), 77U);
        EXPECT_EQ(kept, item.substr(0, kept.size()));
        EXPECT_EQ((kept.size() - ascii) % 3, 0U);
    }
    EXPECT_EQ(Open(std::string(80, 'x') + "\r\n").report.passedOver.at(0).text.size(), 80U);
}

TEST(ReadProjectFile, FortyPointsReloadIntoSixtyFiveRows) {
    const auto rowsAfter = [](int points) {
        std::string records;
        for (int i = 1; i <= points; ++i)
            records += "\"RECDATA\",\"DATAPOINT\",\"" + std::to_string(i) + "\",\"2\"\r\n";
        return Open(records).state.RecDatGrid.size();
    };
    EXPECT_EQ(rowsAfter(0), 50U);
    EXPECT_EQ(rowsAfter(1), 50U);
    EXPECT_EQ(rowsAfter(25), 50U);
    EXPECT_EQ(rowsAfter(26), 51U);
    EXPECT_EQ(rowsAfter(40), 65U);
}

TEST(ReadProjectFile, AFileWithoutTitlesLeavesThemAsNewDid) {
    const auto [state, report] = Open("\"PLOTINFO\",\"KTIMEUNITS\",0\r\n");
    EXPECT_EQ(state.PlotText, (std::array<std::string, 3>{}));
}

TEST(ReadProjectFile, PictureOneForEveryNumberButTwo) {
    struct Case {
        std::string_view item;
        bool pressed;
    };
    for (const Case& c : {Case{"1", true}, Case{"2", false}, Case{"\"2\"", false}, Case{"0", true},
                          Case{"-7", true}, Case{"99", true}, Case{"2e0", false}}) {
        const auto [state, report] =
            Open("\"WELLGEO\",\"PICSELECT\"," + std::string(c.item) + "\r\n");
        EXPECT_EQ(state.SSRibbon1Pressed, c.pressed) << c.item;
        EXPECT_EQ(report.messages, Messages{}) << c.item;
    }
    const auto [state, report] = Open("\"WELLGEO\",\"PICSELECT\",two\r\n");
    EXPECT_TRUE(state.SSRibbon1Pressed);
    EXPECT_EQ(report.messages, Messages{"13 Type mismatch"});
}

TEST(ReadProjectFile, ListPositions) {
    struct Case {
        std::string_view key;
        int entries;
        int lowest;
        int ProjectState::*field;
    };
    const Case cases[] = {
        {"\"WELLGEO\",\"VERMEASUNITS\",\"x\"", 4, 0, &ProjectState::WellGeoVertUnitsDDL},
        {"\"WELLGEO\",\"RADMEASUNITS\",\"x\"", 4, 0, &ProjectState::WellGeoRadUnitsDDL},
        {"\"RECDATA\",\"TIMEUNITS\",\"x\"", 4, 0, &ProjectState::RecDatTimeUnitsDDL},
        {"\"RECDATA\",\"WATERUNITS\",\"x\"", 4, 0, &ProjectState::RecDatWaterLevelUnitsDDL},
        {"\"RECDATA\",\"HEADMEASMETHOD\",\"x\"", 3, 0, &ProjectState::RecDatDataTypeDDL},
        {"\"RECDATA\",\"SLUGTESTTYPE\",\"x\"", 2, 0, &ProjectState::RecDatSlugTestTypeDDL},
        {"\"PLOTINFO\",\"KTIMEUNITS\"", 4, -1, &ProjectState::CmboKTimeUnits},
        {"\"PLOTINFO\",\"KLENGTHUNITS\"", 4, -1, &ProjectState::CmboKLengthUnits}};
    for (const Case& c : cases) {
        const auto read = [&c](const std::string& item) {
            return Open(std::string(c.key) + "," + item + "\r\n\"WELLGEO\",\"H\",\"5\"\r\n");
        };
        const int fresh = ProjectState().*c.field;
        for (int position = c.lowest; position < c.entries; ++position)
            for (const std::string& quote : {std::string(), std::string("\"")}) {
                const auto [state, report] = read(quote + std::to_string(position) + quote);
                EXPECT_EQ(state.*c.field, position) << c.key;
                EXPECT_EQ(report.messages, Messages{}) << c.key << position;
            }
        for (const std::string& outside :
             {std::to_string(c.lowest - 1), std::to_string(c.entries), std::string("0.5"),
              std::string("2147483648"), std::string("-2147483649"), std::string("1e300")}) {
            const auto [state, report] = read(outside);
            EXPECT_EQ(state.*c.field, fresh) << c.key << outside;
            EXPECT_EQ(report.messages, Messages{"380 Invalid property value"}) << c.key << outside;
            EXPECT_EQ(state.WellGeoText[GeoH], "5");
        }
        for (const std::string& text :
             {std::string("ft"), std::string("\"\""), std::string("1x")}) {
            const auto [state, report] = read(text);
            EXPECT_EQ(state.*c.field, fresh) << c.key << text;
            EXPECT_EQ(report.messages, Messages{"13 Type mismatch"}) << c.key << text;
            EXPECT_EQ(state.WellGeoText[GeoH], "5");
        }
    }
}

TEST(ReadProjectFile, EachDifferentFailureIsToldOnceInOrder) {
    std::string records;
    for (int i = 0; i < 1000; ++i)
        records += "\"WELLGEO\",\"VERMEASUNITS\",\"x\",9\r\n\"RECDATA\",\"TIMEUNITS\",\"x\",y\r\n";
    records += "\"SITEID\",\"SITENAME\"";
    const auto [state, report] = Open(records);
    EXPECT_EQ(report.messages, (Messages{"380 Invalid property value", "13 Type mismatch",
                                         "62 Input past end of file"}));
}

struct CutCase {
    std::string_view records;
    bool reported;
    std::string_view row; ///< row 1 as "time|level"
};

TEST(ReadProjectFile, ACutReadingKeepsWhatWasRead) {
    const CutCase cases[] = {{"\"RECDATA\",\"DATAPOINT\",\"15\",\"9.41\"\r\n", false, "15|9.41"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15\",\"9.41\"", false, "15|9.41"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15\",\"9.4", true, "15|9.4"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15\",\"", true, "15|"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15\",", true, "15|"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15\"", true, "15|"},
                             {"\"RECDATA\",\"DATAPOINT\",\"15", true, "15|"},
                             {"\"RECDATA\",\"DATAPOINT\",\"1", true, "1|"},
                             {"\"RECDATA\",\"DATAPOINT\",\"", true, "|"},
                             {"\"RECDATA\",\"DATAPOINT\",", true, "|"},
                             {"\"RECDATA\",\"DATAPOINT\"", true, "|"},
                             {"\"RECDATA\",\"DATAPO", true, "|"},
                             {"\"RECDATA\",", true, "|"},
                             {"\"RECDATA\"", true, "|"},
                             {"recdata,datapoint,15,9.4", false, "15|9.4"},
                             {"recdata,datapoint,15", true, "15|"}};
    for (const CutCase& c : cases) {
        const auto [state, report] = Open(c.records);
        EXPECT_EQ(Row(state, 1), c.row) << c.records;
        EXPECT_EQ(report.messages, c.reported ? Messages{"62 Input past end of file"} : Messages{})
            << c.records;
    }
}

TEST(ReadProjectFile, ACutTextKeepsItsPiece) {
    EXPECT_EQ(Open("\"SITEID\",\"SITENAME\",\"Corner Fu").state.SiteIDText[SiteName], "Corner Fu");
    EXPECT_EQ(Open("\"LSWEIGHT\",\"15").state.IgnoreKeyList, std::vector<std::string>{"15"});
    EXPECT_EQ(Open("\"PLOTINFO\",\"TITLE1\",\"Corn").state.PlotText[1], "Corn");
    EXPECT_EQ(Open("\"WELLGEO\",\"H\",\"12.").state.WellGeoText[GeoH], "12.");
    EXPECT_EQ(Open("\"WELLGEO\",\"VERMEASUNITS\",\"m\",\"3").state.WellGeoVertUnitsDDL, Metre);
    for (const std::string_view cut : {"\"SITEID\",\"SITENAME\",\"Corner Fu",
                                       "\"LSWEIGHT\",\"15",
                                       "\"LSWEIGHT\"",
                                       "\"PLOTINFO\",\"TITLE1\",\"Corn",
                                       "\"WELLGEO\",\"H\",\"12.",
                                       "\"WELLGEO\",\"H\"",
                                       "\"WELLGEO\"",
                                       "\"WELLID\"",
                                       "\"SITEID\"",
                                       "\"PLOTINFO\"",
                                       "\"WELLID\",\"WELLLABEL\"",
                                       "\"WELLGEO\",\"VERMEASUNITS\",\"m\",\"3",
                                       "\"WELLGEO\",\"VERMEASUNITS\",\"m\"",
                                       "\"WELLGEO\",\"VERMEASUNITS\",\"m\",\"",
                                       "\"WELLGEO\",\"VERMEASUNITS\",\"m",
                                       "\"WELLGEO\",\"VERMEASUNITS\"",
                                       "\"WELLGEO\",\"PICSELECT\",\"2",
                                       "\"PLOTINFO\",\"KTIMEUNITS\"",
                                       "\"WELLGEO\",\"PICSELECT\"",
                                       "\"WELLGEO\",\"PICSELECT\",\""})
        EXPECT_EQ(Open(cut).report.messages, Messages{"62 Input past end of file"}) << cut;
}

TEST(ReadProjectFile, ACutFieldThatWasNotReachedKeepsItsClearedValue) {
    EXPECT_EQ(Open("\"WELLGEO\",\"DP\"").state.WellGeoText[GeoDpor], "0");
    EXPECT_EQ(Open("\"WELLGEO\",\"DP\",").state.WellGeoText[GeoDpor], "0");
}

TEST(ReadProjectFile, AQuoteNeverClosedEndsAtTheLinesEnd) {
    const auto [state, report] =
        Open("\"SITEID\",\"SITENAME\",\"Corner Fuel\r\n\"WELLGEO\",\"H\",\"5\"\r\n");
    EXPECT_EQ(state.SiteIDText[SiteName], "Corner Fuel");
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(report.messages, Messages{});
}

TEST(ReadProjectFile, BlanksAroundItemsAreSkipped) {
    const auto [state, report] = Open("  \"WELLGEO\"  ,  \"H\"  ,  \"5\"  \r\n   \"WELLGEO\" , "
                                      "\"RADMEASUNITS\" , \"m\" , 3 \r\n");
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(state.WellGeoRadUnitsDDL, Metre);
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(report.passedOverCount, 0U);
}

TEST(ReadProjectFile, ReadsWindows1252WhereTheBytesAreNotUtf8) {
    EXPECT_EQ(Open("\"SITEID\",\"SITENAME\",\"Caf\xE9 \x80\"\r\n").state.SiteIDText[SiteName],
              "Café €");
    EXPECT_EQ(Open("\"SITEID\",\"SITENAME\",\"Café €\"\r\n").state.SiteIDText[SiteName], "Café €");
}

TEST(FillRecoveryGridFromData, EmptiesTheTableBehindIt) {
    ProjectState state;
    state.RecoveryDataTexts = {{"1", "2"}};
    FillRecoveryGridFromData(state);
    EXPECT_EQ(state.RecDatGrid.size(), 50U);
    EXPECT_EQ(Row(state, 1), "1|2");
    EXPECT_TRUE(state.RecoveryDataTexts.empty());
    FillRecoveryGridFromData(state);
    EXPECT_EQ(Row(state, 1), "|");
}

} // namespace
} // namespace quarnel

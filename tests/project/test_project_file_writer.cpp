// Writing a project file: every record in its place, byte for byte.

#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/TextEncoding.h"

#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Messages = std::vector<std::string>;

/// The text of a new project, lines ended by LF so that they can stand here.
constexpr std::string_view NewProjectText = R"("QUARNEL PROJECT FILE"
"VERSION","3.0"
"SITEID","LUSTNO",""
"SITEID","USTNO",""
"SITEID","SITENAME",""
"SITEID","SITEADD",""
"SITEID","SITECITY",""
"SITEID","SITESTATE",""
"SITEID","SITEZIP",""
"SITEID","RPNAME",""
"SITEID","RPADD",""
"SITEID","RPCITY",""
"SITEID","RPSTATE",""
"SITEID","RPZIP",""
"SITEID","RPJOBNUM",""
"SITEID","CFNAME",""
"SITEID","CFADD",""
"SITEID","CFCITY",""
"SITEID","CFSTATE",""
"SITEID","CFZIP",""
"SITEID","CGWPNAME",""
"SITEID","CGWPNUM",""
"WELLID","WELLLABEL",""
"WELLID","TESTDATE",""
"WELLID","TESTBY1",""
"WELLID","TESTBY2",""
"WELLID","TESTBY3",""
"WELLID","ANAYSBY",""
"WELLID","SLUGVOLUME",""
"WELLGEO","H",""
"WELLGEO","LW",""
"WELLGEO","LE",""
"WELLGEO","DW",""
"WELLGEO","DC",""
"WELLGEO","DP","0"
"WELLGEO","VERMEASUNITS","ft",1
"WELLGEO","RADMEASUNITS","in",0
"WELLGEO","PICSELECT",1
"RECDATA","TIMEUNITS","sec",0
"RECDATA","WATERUNITS","ft",1
"RECDATA","HEADMEASMETHOD","D: Depth to Groundwater ",0
"RECDATA","SLUGTESTTYPE","Rising head ",0
"RECDATA","PRESLUG",""
"PLOTINFO","KTIMEUNITS",3
"PLOTINFO","KLENGTHUNITS",3
"END OF FILE"
)";

std::string WithCrLf(std::string_view text) {
    std::string lines;
    for (const char c : text)
        lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return lines;
}

bool HasLine(const ProjectState& state, std::string_view line) {
    return ("\r\n" + ProjectFileText(state).text).find("\r\n" + std::string(line) + "\r\n") !=
           std::string::npos;
}

TEST(WriteProjectFile, ANewProjectIsWrittenByteForByte) {
    const ProjectText project = ProjectFileText(ProjectState());
    EXPECT_EQ(project.text, WithCrLf(NewProjectText));
    EXPECT_EQ(project.messages, Messages{});
}

TEST(WriteProjectFile, EveryFieldHasItsRecord) {
    ProjectState state;
    for (std::size_t i = 0; i < state.SiteIDText.size(); ++i)
        state.SiteIDText[i] = "site" + std::to_string(i);
    for (std::size_t i = 0; i < state.WellTestIDTxt.size(); ++i)
        state.WellTestIDTxt[i] = "well" + std::to_string(i);
    state.VolumeOfSlugText = "1.5 gal";
    state.WellGeoText = {"12.4", "10", "9", "8.25", "2", "30"};
    state.SSRibbon1Pressed = false;
    state.RecDatPreSlugHeadText = "7.32";
    state.RecDatGrid = {{"0", "9.80"}, {}, {"15", ""}, {"", "9"}, {" ", "  "}};
    state.IgnoreKeyList = {"159.41", " as stored "};
    state.PlotText = {"A", "", "C"};
    state.WellGeoVertUnitsDDL = Metre;
    state.WellGeoRadUnitsDDL = Centimetre;
    state.RecDatTimeUnitsDDL = Day;
    state.RecDatWaterLevelUnitsDDL = Inch;
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatSlugTestTypeDDL = FallingHead;
    state.CmboKTimeUnits = Hour;
    state.CmboKLengthUnits = Foot;
    const std::string expected = WithCrLf(R"("QUARNEL PROJECT FILE"
"VERSION","3.0"
"SITEID","LUSTNO","site0"
"SITEID","USTNO","site18"
"SITEID","SITENAME","site1"
"SITEID","SITEADD","site2"
"SITEID","SITECITY","site3"
"SITEID","SITESTATE","site4"
"SITEID","SITEZIP","site5"
"SITEID","RPNAME","site6"
"SITEID","RPADD","site7"
"SITEID","RPCITY","site8"
"SITEID","RPSTATE","site9"
"SITEID","RPZIP","site10"
"SITEID","RPJOBNUM","site19"
"SITEID","CFNAME","site15"
"SITEID","CFADD","site14"
"SITEID","CFCITY","site13"
"SITEID","CFSTATE","site12"
"SITEID","CFZIP","site11"
"SITEID","CGWPNAME","site16"
"SITEID","CGWPNUM","site17"
"WELLID","WELLLABEL","well0"
"WELLID","TESTDATE","well1"
"WELLID","TESTBY1","well3"
"WELLID","TESTBY2","well4"
"WELLID","TESTBY3","well5"
"WELLID","ANAYSBY","well2"
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
"RECDATA","TIMEUNITS","day",3
"RECDATA","WATERUNITS","in",0
"RECDATA","HEADMEASMETHOD","Y: Change in Head ",2
"RECDATA","SLUGTESTTYPE","Falling head ",1
"RECDATA","PRESLUG","7.32"
"RECDATA","DATAPOINT","0","9.80"
"RECDATA","DATAPOINT","15",""
"RECDATA","DATAPOINT","","9"
"LSWEIGHT","159.41"
"LSWEIGHT"," as stored "
"PLOTINFO","TITLE0","A"
"PLOTINFO","TITLE2","C"
"PLOTINFO","KTIMEUNITS",2
"PLOTINFO","KLENGTHUNITS",1
"END OF FILE"
)");
    EXPECT_EQ(ProjectFileText(state).text, expected);
}

TEST(WriteProjectFile, TextsAreTrimmed) {
    ProjectState state;
    state.SiteIDText[SiteName] = "  Corner  Stop ";
    state.WellTestIDTxt[WellLabel] = " W ";
    state.VolumeOfSlugText = " V ";
    state.WellGeoText[GeoH] = " 5 ";
    state.RecDatPreSlugHeadText = " 6 ";
    state.RecDatGrid = {{" 1 ", " 2 "}};
    state.PlotText = {" T ", "   ", "\tX "};
    EXPECT_TRUE(HasLine(state, R"("SITEID","SITENAME","Corner  Stop")"));
    EXPECT_TRUE(HasLine(state, R"("WELLID","WELLLABEL","W")"));
    EXPECT_TRUE(HasLine(state, R"("WELLID","SLUGVOLUME","V")"));
    EXPECT_TRUE(HasLine(state, R"("WELLGEO","H","5")"));
    EXPECT_TRUE(HasLine(state, R"("RECDATA","PRESLUG","6")"));
    EXPECT_TRUE(HasLine(state, R"("RECDATA","DATAPOINT","1","2")"));
    EXPECT_TRUE(HasLine(state, R"("PLOTINFO","TITLE0","T")"));
    EXPECT_TRUE(HasLine(state, "\"PLOTINFO\",\"TITLE2\",\"\tX\""));
    EXPECT_EQ(ProjectFileText(state).text.find("TITLE1"), std::string::npos);
}

TEST(WriteProjectFile, RowsWithOneCellAreKept) {
    ProjectState state;
    state.RecDatGrid = {{"", "5"}, {"", ""}, {"7", ""}};
    EXPECT_TRUE(HasLine(state, R"("RECDATA","DATAPOINT","","5")"));
    EXPECT_TRUE(HasLine(state, R"("RECDATA","DATAPOINT","7","")"));
    EXPECT_FALSE(HasLine(state, R"("RECDATA","DATAPOINT","","")"));
}

TEST(WriteProjectFile, NothingSelectedInAKListIsMinusOne) {
    ProjectState state;
    state.CmboKTimeUnits = -1;
    state.CmboKLengthUnits = -1;
    EXPECT_TRUE(HasLine(state, R"("PLOTINFO","KTIMEUNITS",-1)"));
    EXPECT_TRUE(HasLine(state, R"("PLOTINFO","KLENGTHUNITS",-1)"));
    EXPECT_EQ(ProjectFileText(state).messages, Messages{});
}

TEST(WriteProjectFile, AListPositionWithoutAnEntryEndsItsSectionOnly) {
    struct Case {
        int ProjectState::*field;
        int entries;
        std::string_view last;    ///< the last record of the section that is written
        std::string_view missing; ///< the first one that is not
    };
    const Case cases[] = {
        {&ProjectState::WellGeoVertUnitsDDL, 4, "\"DP\",\"0\"", "VERMEASUNITS"},
        {&ProjectState::WellGeoRadUnitsDDL, 4, "\"VERMEASUNITS\"", "RADMEASUNITS"},
        {&ProjectState::RecDatTimeUnitsDDL, 4, "\"PICSELECT\",1", "TIMEUNITS\",\"sec"},
        {&ProjectState::RecDatWaterLevelUnitsDDL, 4, "\"TIMEUNITS\"", "WATERUNITS"},
        {&ProjectState::RecDatDataTypeDDL, 3, "\"WATERUNITS\"", "HEADMEASMETHOD"},
        {&ProjectState::RecDatSlugTestTypeDDL, 2, "\"HEADMEASMETHOD\"", "SLUGTESTTYPE"}};
    for (const Case& c : cases)
        for (const int position : {-1, c.entries}) {
            ProjectState state = test::SmallProject();
            state.WellGeoText = ProjectState().WellGeoText;
            state.*c.field = position;
            state.IgnoreKeyList = {"key"};
            const ProjectText project = ProjectFileText(state);
            EXPECT_EQ(project.messages, Messages{"380 Invalid property value"});
            EXPECT_NE(project.text.find(c.last), std::string::npos) << c.missing;
            EXPECT_EQ(project.text.find(c.missing), std::string::npos) << c.missing;
            const bool geometry = c.missing.find("MEASUNITS") != std::string_view::npos;
            EXPECT_EQ(project.text.find("PICSELECT") == std::string::npos, geometry);
            EXPECT_EQ(project.text.find("DATAPOINT") == std::string::npos, !geometry);
            EXPECT_EQ(project.text.find("PRESLUG") == std::string::npos, !geometry);
            EXPECT_TRUE(HasLine(state, R"("LSWEIGHT","key")"));
            EXPECT_TRUE(HasLine(state, R"("END OF FILE")"));
        }
}

TEST(WriteProjectFile, TwoBadSectionsGiveOneMessage) {
    ProjectState state;
    state.WellGeoVertUnitsDDL = -1;
    state.RecDatTimeUnitsDDL = 9;
    EXPECT_EQ(ProjectFileText(state).messages, Messages{"380 Invalid property value"});
}

TEST(FieldsNotReadBackIntact, NamesEveryFieldWithAQuoteOrALineBreak) {
    for (const std::string_view part : {"\"", "\r", "\n"}) {
        const std::string lost = "a" + std::string(part) + "b";
        ProjectState state;
        EXPECT_TRUE(FieldsNotReadBackIntact(state).empty());
        state.SiteIDText[LustNo] = lost;
        state.SiteIDText[SiteName] = lost;
        state.SiteIDText[ConsultantName] = lost;
        state.WellTestIDTxt[WellLabel] = lost;
        state.WellTestIDTxt[AnalysisBy] = lost;
        state.WellTestIDTxt[TestBy3] = lost;
        state.VolumeOfSlugText = lost;
        state.WellGeoText[GeoDw] = lost;
        state.RecDatPreSlugHeadText = lost;
        state.RecDatGrid[2].time = CellText(lost);
        state.RecDatGrid[3].level = CellText(lost);
        state.IgnoreKeyList = {"fine", lost};
        state.PlotText[2] = lost;
        EXPECT_EQ(
            FieldsNotReadBackIntact(state),
            (Messages{"LUST No.", "Site Information: Name", "Consultant: Company Name",
                      "Monitoring Well Label", "Test Analysis by", "Field Testing Performed by",
                      "Volume of Slug", "dw", "Pre-Slug Test Condition", "Time in row 3",
                      "Recovery data in row 4", "Use/Ignore marks", "Graph Title 3"}));
    }
}

} // namespace
} // namespace quarnel

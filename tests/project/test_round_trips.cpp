// A project comes back to the letter, a file to the byte, and an imported test to the bit of K.

#include "kcompute/Analysis.h"
#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/TextEncoding.h"

#include "tests/CoreTestSupport.h"

#include <bit>
#include <gtest/gtest.h>

namespace quarnel {
namespace {

/// Saves a project and opens what was saved, as the program does.
ProjectState SavedAndOpened(const ProjectState& project, std::string& bytes) {
    const ProjectText text = ProjectFileText(project);
    EXPECT_TRUE(text.messages.empty());
    bytes = EncodeFileText(text.text);
    ProjectState opened;
    const ReadReport report = OpenProjectBytes(bytes, opened);
    EXPECT_TRUE(report.messages.empty());
    EXPECT_EQ(report.passedOverCount, 0U);
    EXPECT_TRUE(IsWhole(report));
    return opened;
}

/// Texts of every kind but quotes and line breaks. A project draws from one group, so that files of
/// all three encodings come up.
class TextMaker {
public:
    explicit TextMaker(test::Random& random)
        : random_(random)
        , kinds_(1 + random.Below(4)) {}

    std::string Make() {
        std::string text;
        for (std::size_t n = random_.Below(7); n > 0; --n)
            text += Piece();
        return text;
    }

private:
    std::string Piece() {
        static const std::vector<std::string> ascii = {" ",
                                                       "  ",
                                                       ",",
                                                       "a",
                                                       "Z",
                                                       "12.5",
                                                       "-1e-3",
                                                       "'",
                                                       "\t",
                                                       "WELLGEO",
                                                       "recdata",
                                                       "siteid,",
                                                       "END OF FILE",
                                                       "\\",
                                                       "%s",
                                                       ";",
                                                       "\x01",
                                                       "\x7F",
                                                       std::string(1, '\0'),
                                                       "#"};
        static const std::vector<std::string> western = {"é", "ß",      "€",     "µ",
                                                         "°", "\u0081", "\u00A0"};
        static const std::vector<std::string> doubtful = {"Ã©", "â‚¬", "Ã¤", "Â°"};
        static const std::vector<std::string> wide = {"井", "Ω", "№", "\U0001F4A7", "\uFEFF"};
        const std::vector<std::string>* groups[] = {&ascii, &western, &doubtful, &wide};
        return random_.Pick(*groups[random_.Below(kinds_)]);
    }

    test::Random& random_;
    std::size_t kinds_;
};

ProjectState MakeProject(test::Random& random) {
    TextMaker texts(random);
    ProjectState project;
    for (std::string& text : project.SiteIDText)
        text = texts.Make();
    for (std::string& text : project.WellTestIDTxt)
        text = texts.Make();
    project.VolumeOfSlugText = texts.Make();
    for (std::string& text : project.WellGeoText)
        text = texts.Make();
    project.RecDatPreSlugHeadText = texts.Make();
    for (std::string& text : project.PlotText)
        text = texts.Make();
    project.RecDatGrid.resize(random.Below(70));
    for (RecoveryRow& row : project.RecDatGrid)
        if (!random.OneIn(4))
            row = {texts.Make(), random.OneIn(5) ? std::string() : texts.Make()};
    for (std::size_t n = random.Below(6); n > 0; --n)
        project.IgnoreKeyList.push_back(texts.Make());
    project.WellGeoVertUnitsDDL = random.Between(0, 3);
    project.WellGeoRadUnitsDDL = random.Between(0, 3);
    project.SSRibbon1Pressed = random.OneIn(2);
    project.RecDatTimeUnitsDDL = random.Between(0, 3);
    project.RecDatWaterLevelUnitsDDL = random.Between(0, 3);
    project.RecDatDataTypeDDL = random.Between(0, 2);
    project.RecDatSlugTestTypeDDL = random.Between(0, 1);
    project.CmboKTimeUnits = random.Between(-1, 3);
    project.CmboKLengthUnits = random.Between(-1, 3);
    return project;
}

TEST(RoundTrip, GeneratedProjectsComeBackToTheLetter) {
    test::Random random(2026);
    std::size_t encodings[2] = {0, 0};
    for (int round = 0; round < 3000; ++round) {
        const ProjectState project = MakeProject(random);
        ASSERT_TRUE(FieldsNotReadBackIntact(project).empty());
        std::string bytes;
        const ProjectState opened = SavedAndOpened(project, bytes);
        ASSERT_EQ(test::Dump(opened), test::Dump(project)) << "round " << round;
        ++encodings[IsValidUtf8(bytes) ? 1 : 0];
        std::string again;
        SavedAndOpened(opened, again);
        ASSERT_EQ(again, bytes) << "round " << round;
    }
    EXPECT_GT(encodings[0], 300U);
    EXPECT_GT(encodings[1], 300U);
}

TEST(RoundTrip, EveryListPositionComesBack) {
    struct Case {
        int ProjectState::*field;
        int first, last;
    };
    for (const Case& c :
         {Case{&ProjectState::WellGeoVertUnitsDDL, 0, 3},
          Case{&ProjectState::WellGeoRadUnitsDDL, 0, 3},
          Case{&ProjectState::RecDatTimeUnitsDDL, 0, 3},
          Case{&ProjectState::RecDatWaterLevelUnitsDDL, 0, 3},
          Case{&ProjectState::RecDatDataTypeDDL, 0, 2},
          Case{&ProjectState::RecDatSlugTestTypeDDL, 0, 1},
          Case{&ProjectState::CmboKTimeUnits, -1, 3}, Case{&ProjectState::CmboKLengthUnits, -1, 3}})
        for (int position = c.first; position <= c.last; ++position) {
            ProjectState project;
            project.*c.field = position;
            std::string bytes;
            EXPECT_EQ(test::Dump(SavedAndOpened(project, bytes)), test::Dump(project));
        }
    ProjectState project;
    project.SSRibbon1Pressed = false;
    std::string bytes;
    EXPECT_FALSE(SavedAndOpened(project, bytes).SSRibbon1Pressed);
}

TEST(RoundTrip, RowsWithBothCellsEmptyAreClosedUp) {
    ProjectState project;
    project.RecDatGrid[3] = {"1", ""};
    project.RecDatGrid[20] = {"", "2"};
    project.RecDatGrid[49] = {"3", "4"};
    std::string bytes;
    const ProjectState opened = SavedAndOpened(project, bytes);
    EXPECT_EQ(opened.RecDatGrid.size(), 50U);
    EXPECT_EQ(opened.RecDatGrid[0].time.View(), "1");
    EXPECT_EQ(opened.RecDatGrid[0].level.View(), "");
    EXPECT_EQ(opened.RecDatGrid[1].time.View(), "");
    EXPECT_EQ(opened.RecDatGrid[1].level.View(), "2");
    EXPECT_EQ(opened.RecDatGrid[2].time.View(), "3");
}

TEST(RoundTrip, AProjectWithoutRowsReloadsIntoFiftyEmptyOnes) {
    ProjectState project;
    project.RecDatGrid.clear();
    std::string bytes;
    EXPECT_EQ(SavedAndOpened(project, bytes).RecDatGrid.size(), 50U);
    EXPECT_EQ(bytes.find("DATAPOINT"), std::string::npos);
}

TEST(RoundTrip, KeysKeepTheirBlanks) {
    ProjectState project;
    project.IgnoreKeyList = {" a ", "", "  "};
    std::string bytes;
    EXPECT_EQ(SavedAndOpened(project, bytes).IgnoreKeyList, project.IgnoreKeyList);
}

TEST(RoundTrip, TheExampleProjectsAreSavedByteForByte) {
    for (const char* name : {"every-field.qn2", "pratt-county-1998.qn2"}) {
        const std::string bytes = test::ReadExample(name);
        ASSERT_FALSE(bytes.empty());
        ProjectState state;
        EXPECT_TRUE(OpenProjectBytes(bytes, state).messages.empty());
        EXPECT_EQ(EncodeFileText(ProjectFileText(state).text), bytes) << name;
    }
}

/// K in cm/s as its bits; 0 where it cannot be computed.
std::uint64_t KBits(const ProjectState& project) {
    Analysis analysis;
    analysis.state = project;
    if (PrepareComputation(analysis).result.IsError() || Compute(analysis).IsError())
        return 0;
    return std::bit_cast<std::uint64_t>(analysis.computation->KInCmPerSec);
}

std::string Number(test::Random& random, double least, double most) {
    const double part = static_cast<double>(random.Below(1'000'000'007)) / 1'000'000'007;
    const double value = least + part * (most - least);
    return random.OneIn(3) ? DoubleToText(value) : std::to_string(value);
}

std::string MakeLegacyFile(test::Random& random) {
    const std::string separators[] = {",", " ", "\t", " , ", "   "};
    const std::string between = random.Pick(separators);
    std::string text = "Title\r\nClient\r\nJob\r\nWell\r\n H Le Lw\r\n";
    text += Number(random, 30, 40) + between + Number(random, 5, 15) + between +
            Number(random, 20, 29) + between + Number(random, 0.05, 0.1) + between +
            Number(random, 0.15, 0.3) + between + Number(random, 0, 1) + "\r\n";
    const std::string units[] = {"(sec) (ft)", "(min) (m)", "(hr) (cm)", "(day) (in)"};
    const std::size_t rows = 5 + random.Below(40);
    text += "ignored\r\n" + std::to_string(rows) + "\r\n" + random.Pick(units) + "\r\n";
    double time = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        time += static_cast<double>(1 + random.Below(1000)) / 70;
        text += DoubleToText(time) + between + Number(random, -0.05, 3) + between +
                (random.OneIn(4) ? "0" : "1") + "\r\n";
    }
    return text;
}

TEST(RoundTrip, AnImportedTestKeepsItsKToTheBit) {
    test::Random random(1998);
    int computed = 0;
    for (int round = 0; round < 500; ++round) {
        ProjectState imported;
        const ReadReport report = OpenProjectBytes(MakeLegacyFile(random), imported);
        ASSERT_EQ(report.format, FileFormat::Legacy);
        ASSERT_TRUE(report.messages.empty());
        std::string bytes;
        const ProjectState opened = SavedAndOpened(imported, bytes);
        ASSERT_EQ(test::Dump(opened), test::Dump(imported));
        const std::uint64_t bits = KBits(imported);
        ASSERT_EQ(KBits(opened), bits);
        computed += bits != 0 ? 1 : 0;
    }
    EXPECT_GT(computed, 400);
}

TEST(RoundTrip, TheExampleImportKeepsItsKToTheBit) {
    ProjectState imported;
    OpenProjectBytes(test::ReadExample("pratt-county-1998.in"), imported);
    std::string bytes;
    const ProjectState opened = SavedAndOpened(imported, bytes);
    EXPECT_NE(KBits(imported), 0U);
    EXPECT_EQ(KBits(opened), KBits(imported));
    ProjectState project;
    OpenProjectBytes(test::ReadExample("pratt-county-1998.qn2"), project);
    EXPECT_EQ(KBits(project), KBits(imported));
}

TEST(RoundTrip, AnImportedTestKeepsItsKWithADecimalComma) {
    ProjectState imported;
    imported.DecimalSeparator = ",";
    OpenProjectBytes(test::ReadExample("pratt-county-1998.in"), imported);
    EXPECT_EQ(imported.WellGeoText[GeoH], "50,6");
    ProjectState opened;
    opened.DecimalSeparator = ",";
    OpenProjectBytes(EncodeFileText(ProjectFileText(imported).text), opened);
    EXPECT_NE(KBits(imported), 0U);
    EXPECT_EQ(KBits(opened), KBits(imported));
}

} // namespace
} // namespace quarnel

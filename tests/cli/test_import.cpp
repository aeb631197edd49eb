#include "tests/cli/ImportTestSupport.h"

#include "kcompute/Analysis.h"
#include "project/Files.h"
#include "recovery/RecoveryDa.h"
#include "tests/CoreTestSupport.h"

#include <QFile>
#include <cmath>

namespace quarnel::test {

namespace {

/// A project with the geometry of a case, lengths in m, that takes its readings.
ProjectState ProjectOfGeometry(const QJsonObject& geometry) {
    ProjectState state;
    const std::array<const char*, 6> keys = {"H", "Lw", "Le", "dw", "dc", "n_percent"};
    for (std::size_t i = 0; i < keys.size(); ++i)
        state.WellGeoText[i] = DoubleToText(geometry.value(Q(keys[i])).toDouble());
    state.WellGeoVertUnitsDDL = Metre;
    state.WellGeoRadUnitsDDL = Metre;
    return state;
}

/// Marks every reading outside of 0.20 to 0.30 of the first change in head "Ignore".
void UseHeadWindow(ProjectState& state) {
    Analysis analysis;
    analysis.state = state;
    CheckDataShowYs(analysis);
    const RecoveryPointList& points = *analysis.working.recovery.RecoveryPoints;
    const double first = points.front().y;
    for (const RecoveryPoint& point : points)
        if (point.y / first < 0.20 * (1 - 1e-9) || point.y / first > 0.30 * (1 + 1e-9))
            state.IgnoreKeyList.push_back(point.timeText.ToString() + point.levelText.ToString());
}

class CliImportCaseTest : public CliImportTest,
                          public testing::WithParamInterface<std::pair<std::string, std::string>> {
protected:
    double MetresPerDay(const ProjectState& state, int& usedCount) {
        const QJsonObject analysis = AnalyzeOne(state, 0);
        usedCount = analysis.value(Q("fit")).toObject().value(Q("used_count")).toInt();
        return analysis.value(Q("k")).toObject().value(Q("cm_per_sec")).toDouble() * 864;
    }
};

QJsonObject Expectation(const std::string& path) {
    QFile file(Q(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QJsonDocument::fromJson(file.readAll()).object();
}

void ExpectRow(const QJsonValue& row, const QJsonValue& expected) {
    const QJsonObject texts = row.toObject();
    EXPECT_EQ(texts.value(Q("time_text")).toString().toDouble(), expected.toArray().at(0));
    EXPECT_EQ(texts.value(Q("level_text")).toString().toDouble(), expected.toArray().at(1));
}

} // namespace

// The files stand in the layouts of four loggers; the numbers were computed apart from this
// program.
INSTANTIATE_TEST_SUITE_P(Given, CliImportCaseTest,
                         testing::Values(std::pair("diver_mon", "mon"),
                                         std::pair("generic_csv_depth", "csv"),
                                         std::pair("solinst_csv_old", "csv"),
                                         std::pair("solinst_xle", "xle")),
                         [](const auto& given) { return given.param.first; });

TEST_P(CliImportCaseTest, ReadingsAndStaticLevelAreExact) {
    const auto& [name, ending] = GetParam();
    const QJsonObject expected = Expectation(Case(name + ".json"));
    const QJsonObject import = ImportJson(Case(name + "." + ending));
    EXPECT_EQ(import.value(Q("data_type")), expected.value(Q("kind")));
    for (const char* key : {"slug_test_type", "level_unit", "time_zero", "static_level"})
        EXPECT_EQ(import.value(Q(key)), expected.value(Q(key))) << key;
    EXPECT_EQ(import.value(Q("first_y")), expected.value(Q("first_Y")));
    EXPECT_EQ(import.value(Q("rows_before")), expected.value(Q("rows_before_time_zero")));
    EXPECT_EQ(import.value(Q("rows_imported")), expected.value(Q("rows_from_time_zero")));
    const QJsonArray readings = import.value(Q("readings")).toArray();
    ASSERT_EQ(readings.size(), expected.value(Q("rows_from_time_zero")).toInt());
    for (int i = 0; i < 3; ++i)
        ExpectRow(readings.at(i), expected.value(Q("first_three")).toArray().at(i));
    ExpectRow(readings.last(), expected.value(Q("last_row")));
    const std::vector<std::string> notes =
        name == "generic_csv_depth"
            ? std::vector<std::string>{"The dates can be read both ways; the times since the start "
                                       "are the same."}
            : std::vector<std::string>{};
    EXPECT_EQ(Messages(import), notes);
}

TEST_P(CliImportCaseTest, KIsTheOneOfTheCase) {
    const auto& [name, ending] = GetParam();
    const QJsonObject expected = Expectation(Case(name + ".json"));
    WriteProject("geometry.qn2", ProjectOfGeometry(expected.value(Q("geometry")).toObject()));
    ImportJson(Case(name + "." + ending), {Q("--from"), Q("geometry.qn2")});
    int used = 0;
    ProjectState state = Imported();
    const double all = expected.value(Q("K_m_per_d_all_positive")).toDouble();
    EXPECT_NEAR(MetresPerDay(state, used), all, 1e-9 * all);
    EXPECT_EQ(used, expected.value(Q("valid_points")).toInt());
    UseHeadWindow(state);
    const double window = expected.value(Q("K_m_per_d_window_0.20_0.30")).toDouble();
    EXPECT_NEAR(MetresPerDay(state, used), window, 1e-9 * window);
    EXPECT_EQ(used, expected.value(Q("points_in_window")).toInt());
}

TEST_F(CliImportTest, ExampleIsWhatTheGuideSays) {
    ProjectState geometry;
    geometry.WellGeoText = {"15", "6", "3", "0.2", "0.1", "0"};
    geometry.WellGeoVertUnitsDDL = Metre;
    geometry.WellGeoRadUnitsDDL = Metre;
    WriteProject("geometry.qn2", geometry);
    const QJsonObject import =
        ImportJson(Example("mw-7-logger.csv").toStdString(), {Q("--from"), Q("geometry.qn2")});
    EXPECT_EQ(import.value(Q("time_zero")), Q("2024-03-05 14:02:01"));
    EXPECT_EQ(import.value(Q("row_count")), 720);
    EXPECT_EQ(import.value(Q("rows_imported")), 479);
    EXPECT_EQ(import.value(Q("static_rows")), 240);
    EXPECT_EQ(import.value(Q("first_y")), 5 - 4.4);
    EXPECT_EQ(Messages(import), std::vector<std::string>{"The start was moved 1 row forward: the "
                                                         "level was still moving away."});
    ProjectState state = Imported();
    UseHeadWindow(state);
    EXPECT_EQ(AnalyzeOne(state, 0).value(Q("k")).toObject().value(Q("text")), Q("1.99"));
}

// ---- The project --------------------------------------------------------------------------------

TEST_F(CliImportTest, NewProjectHoldsReadingsWellAndDate) {
    ImportJson(Case("solinst_csv_old.csv"));
    const ProjectState state = Imported();
    ProjectState expected;
    expected.WellTestIDTxt[WellLabel] = "MW-7";
    expected.WellTestIDTxt[TestDate] = "2024-03-05";
    expected.RecDatGrid = state.RecDatGrid;
    expected.RecDatWaterLevelUnitsDDL = Centimetre;
    expected.RecDatDataTypeDDL = GroundwaterHead;
    expected.RecDatSlugTestTypeDDL = RisingHead;
    expected.RecDatPreSlugHeadText = "500";
    EXPECT_EQ(Dump(state), Dump(expected));
    EXPECT_EQ(state.RecDatGrid[1].time, "2");
    EXPECT_EQ(state.RecDatGrid[1].level, "442.61");
    EXPECT_EQ(state.RecDatGrid[119].time, "238");
}

TEST_F(CliImportTest, FromKeepsEverythingButTheReadings) {
    const QString from = Example("every-field.qn2");
    ImportJson(Case("solinst_csv_old.csv"), {Q("--from"), from});
    const ProjectState state = Imported();
    ProjectState expected;
    OpenProjectFile(from.toStdString(), expected);
    expected.RecDatGrid = state.RecDatGrid;
    expected.IgnoreKeyList.clear();
    expected.RecDatTimeUnitsDDL = quarnel::Second;
    expected.RecDatWaterLevelUnitsDDL = Centimetre;
    expected.RecDatDataTypeDDL = GroundwaterHead;
    expected.RecDatSlugTestTypeDDL = RisingHead;
    expected.RecDatPreSlugHeadText = "500";
    EXPECT_EQ(Dump(state), Dump(expected));
}

TEST_F(CliImportTest, ProjectMayTakeItsOwnPlace) {
    WriteProject("out.qn2", SampleProject());
    ImportJson(Case("solinst_csv_old.csv"), {Q("--from"), Q("out.qn2")});
    EXPECT_EQ(Imported().WellTestIDTxt[WellLabel], "MW-1");
    EXPECT_EQ(Imported().RecDatPreSlugHeadText, "500");
}

TEST_F(CliImportTest, FileThatIsNoProjectIsKeptBesideTheNewOne) {
    WriteBytes("out.qn2", "field notes");
    ImportJson(Case("solinst_csv_old.csv"), {},
               "out.qn2: The file that was there is kept as out.qn2.bak.\n");
    EXPECT_EQ(ReadBytes("out.qn2.bak"), "field notes");
    EXPECT_EQ(Imported().WellTestIDTxt[WellLabel], "MW-7");
}

TEST_F(CliImportTest, TableSaysWhatWasTaken) {
    WriteBytes("well.csv", ClockTable());
    const Outcome outcome = Import("well.csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "well.csv\n"
              "    Format              Text table\n"
              "    Channel             1 Level, m\n"
              "    Data type           H: Groundwater Head\n"
              "    Time zero           2024-03-25 11:20:40, row 21\n"
              "    Rows                20 before, 40 imported, 0 after\n"
              "    Static level        5 m, median of 20 readings\n"
              "    First Y             1 m\n"
              "    Written to          out.qn2\n"
              "\n"
              "    40 of 60 readings, from 2024-03-25 11:20:40, static level 5 m, Rising head.\n");
}

TEST_F(CliImportTest, NotesOfATableStandOnStandardError) {
    const Outcome outcome = Import(Case("generic_csv_depth.csv"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, Case("generic_csv_depth.csv") +
                               ": The dates can be read both ways; the times since the start are "
                               "the same.\n");
}

TEST_F(CliImportTest, ListShowsTheChannelsAndWritesNothing) {
    const Outcome outcome = Run({Q("import"), Q("--list"), Q(Case("diver_mon.mon"))});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, Case("diver_mon.mon") +
                               "\n"
                               "    Format              Diver MON, Solinst LEV\n"
                               "    Location            MW-7\n"
                               "    Serial number       ..00-A0001  216.\n"
                               "    Rows                140\n"
                               "\n"
                               "  Channels\n"
                               "    1 PRESSURE, cm     pressure\n"
                               "    2 TEMPERATURE, \xC2\xB0"
                               "C  temperature\n");
}

// ---- Options ------------------------------------------------------------------------------------

TEST_F(CliImportTest, ChannelIsCountedFromOne) {
    WriteBytes("two.csv", "Time (s),Level (m),Depth to water (ft)\n0,5,9\n1,5,9\n2,5,9\n3,5,9\n"
                          "4,5,9\n5,3,12\n6,3.1,11.8\n7,3.2,11.6\n8,3.3,11.4\n9,3.4,11.2\n");
    QJsonObject import = ImportJson("two.csv");
    EXPECT_EQ(import.value(Q("channel")), 1);
    EXPECT_EQ(import.value(Q("static_text")), Q("5"));
    import = ImportJson("two.csv", {Q("--channel"), Q("2")});
    EXPECT_EQ(import.value(Q("channel")), 2);
    EXPECT_EQ(import.value(Q("data_type")), Q("D"));
    EXPECT_EQ(import.value(Q("level_unit")), Q("ft"));
    EXPECT_EQ(import.value(Q("static_text")), Q("9"));
}

TEST_F(CliImportTest, TypeIsChosen) {
    WriteBytes("a.csv", ClockTable());
    EXPECT_EQ(ImportJson("a.csv", {Q("--type"), Q("D")}).value(Q("slug_test_type")),
              Q("Falling head"));
    EXPECT_EQ(ImportJson("a.csv", {Q("--type"), Q("H")}).value(Q("slug_test_type")),
              Q("Rising head"));
    const QJsonObject change = ImportJson("a.csv", {Q("--type"), Q("Y")});
    EXPECT_EQ(change.value(Q("slug_test_type")), Q("Not Applicable"));
    for (const char* key : {"static_level", "static_text", "static_rows", "drift_per_hour"})
        EXPECT_TRUE(change.value(Q(key)).isNull()) << key;
}

TEST_F(CliImportTest, UnitsAreChosen) {
    WriteBytes("a.csv", ClockTable("Time,Level (furlong)"));
    QJsonObject import = ImportJson("a.csv", {Q("--source-unit"), Q("psi"), Q("--unit"), Q("cm")});
    EXPECT_EQ(import.value(Q("source_unit")), Q("psi"));
    EXPECT_EQ(import.value(Q("level_unit")), Q("cm"));
    EXPECT_EQ(import.value(Q("static_text")), Q("351.53479")); // 5 psi
    import = ImportJson("a.csv", {Q("--source-unit"), Q("CM H2O")});
    EXPECT_EQ(import.value(Q("source_unit")), Q("cmH2O"));
    EXPECT_EQ(import.value(Q("level_unit")), Q("cm"));
    for (const char* unit : {"in", "ft", "cm", "m"})
        EXPECT_EQ(ImportJson("a.csv", {Q("--source-unit"), Q("kPa"), Q("--unit"), Q(unit)})
                      .value(Q("level_unit")),
                  Q(unit));
}

TEST_F(CliImportTest, DateOrderIsChosen) {
    WriteBytes("a.csv", TableOfEitherDateOrder());
    EXPECT_EQ(ImportJson("a.csv", {Q("--date-order"), Q("mdy")}).value(Q("time_zero")),
              Q("2024-07-08 00:00:00"));
    EXPECT_EQ(ImportJson("a.csv", {Q("--date-order"), Q("dmy")}).value(Q("time_zero")),
              Q("2024-08-07 00:00:00"));
}

TEST_F(CliImportTest, TimeUnitIsChosen) {
    WriteBytes("a.csv", "time,Level (m)\n" + SecondsTable(60));
    EXPECT_EQ(Rows(ImportJson("a.csv", {Q("--time-unit"), Q("min")})).substr(0, 22),
              "0 4; 2 4.1; 4 4.19; 6 ");
    const QJsonObject import = ImportJson("a.csv", {Q("--time-unit"), Q("day")});
    EXPECT_EQ(Rows(import).substr(0, 16), "0 4; 2880 4.1; 5");
    EXPECT_TRUE(import.value(Q("time_zero")).isNull());
    EXPECT_EQ(import.value(Q("time_zero_row")), 21);
    EXPECT_EQ(Imported().WellTestIDTxt[TestDate], "");
}

TEST_F(CliImportTest, StartAndEndAreChosen) {
    WriteBytes("a.csv", ClockTable());
    for (const auto& [start, end] :
         {std::pair("2024-03-25 11:20:43", "2024-03-25 11:20:49"), std::pair("43", "49.9"),
          std::pair("2024-03-25T11:20:42.5", "48")}) {
        const QJsonObject import =
            ImportJson("a.csv", {Q("--start"), Q(start), Q("--end"), Q(end)});
        EXPECT_EQ(import.value(Q("time_zero")), Q("2024-03-25 11:20:44"));
        EXPECT_EQ(import.value(Q("time_zero_row")), 23);
        EXPECT_EQ(import.value(Q("rows_before")), 22);
        EXPECT_EQ(import.value(Q("rows_after")), 35);
        EXPECT_EQ(Rows(import), "0 4.19; 2 4.271; 4 4.344");
    }
}

TEST_F(CliImportTest, StaticLevelIsChosen) {
    WriteBytes("a.csv", ClockTable());
    QJsonObject import = ImportJson("a.csv", {Q("--static"), Q("5.25")});
    EXPECT_EQ(import.value(Q("static_level")), 5.25);
    EXPECT_EQ(import.value(Q("static_text")), Q("5.25"));
    EXPECT_TRUE(import.value(Q("static_rows")).isNull());
    EXPECT_EQ(import.value(Q("first_y")), 1.25);
    EXPECT_EQ(Imported().RecDatPreSlugHeadText, "5.25");
    import = ImportJson("a.csv", {Q("--static"), Q("-1")});
    EXPECT_EQ(import.value(Q("slug_test_type")), Q("Falling head"));
    EXPECT_EQ(Import("a.csv", {Q("--static"), Q("5,25")},
                     {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}})
                  .status,
              0);
    EXPECT_EQ(Imported().RecDatPreSlugHeadText, "5.25");
}

TEST_F(CliImportTest, BarometerIsSubtracted) {
    WriteBytes("a.csv", ClockTable("Time,Pressure (mH2O)"));
    std::string air = "Time,Baro pressure (cmH2O)\n";
    air += "2024-03-25 11:20:00,100\n2024-03-25 11:21:58,100\n";
    WriteBytes("air.csv", air);
    const QJsonObject import = ImportJson("a.csv", {Q("--barometer"), Q("air.csv")});
    EXPECT_EQ(import.value(Q("barometer")), Q("air.csv"));
    EXPECT_EQ(import.value(Q("static_text")), Q("4"));
    EXPECT_EQ(Rows(import).substr(0, 12), "0 3; 2 3.1; ");
    EXPECT_EQ(Messages(import), std::vector<std::string>{});
}

TEST_F(CliImportTest, BarometerThatIsTooShortSubtractsNothing) {
    WriteBytes("a.csv", ClockTable("Time,Pressure (mH2O)"));
    WriteBytes("air.csv", "Time,Baro pressure (cmH2O)\n2024-03-25 11:20:00,100\n"
                          "2024-03-25 11:21:57,100\n");
    const QJsonObject import = ImportJson("a.csv", {Q("--barometer"), Q("air.csv")});
    EXPECT_TRUE(import.value(Q("barometer")).isNull());
    EXPECT_EQ(import.value(Q("static_text")), Q("5"));
    EXPECT_EQ(Messages(import),
              std::vector<std::string>{"The barometer file does not cover the test."});
}

TEST_F(CliImportTest, ThinningIsChosen) {
    std::string text = "time (s),Level (m)\n";
    for (int i = 0; i < 40; ++i)
        text += std::to_string(i - 40) + ",5\n";
    for (int i = 0; i <= 3600; ++i)
        text += std::to_string(i) + "," + DoubleToText(5 - std::exp(-i / 600.0)) + "\n";
    WriteBytes("a.csv", text);
    QJsonObject import = ImportJson("a.csv", {Q("--thin"), Q("1")});
    EXPECT_EQ(import.value(Q("rows_imported")), 6);
    EXPECT_EQ(import.value(Q("thinned_from")), 3601);
    EXPECT_EQ(Rows(import).substr(0, 6), "0 4; 1");
    EXPECT_EQ(import.value(Q("readings")).toArray().last().toObject().value(Q("time_text")),
              Q("3600"));
    EXPECT_NE(Import("a.csv", {Q("--thin"), Q("1")}).out.find("\n    6 of 3641 readings, from "),
              std::string::npos);
    import = ImportJson("a.csv");
    EXPECT_TRUE(import.value(Q("thinned_from")).isNull());
    EXPECT_EQ(import.value(Q("rows_imported")), 3601);
}

TEST_F(CliImportTest, LeftOutRowsAreToldAndDoNotFail) {
    std::string text = ClockTable();
    text += "later,4.9\r\n2024-03-25 11:30:00,---\r\n";
    WriteBytes("a.csv", text);
    const std::string told = "a.csv: Row 62: 'later' is not a time.\n"
                             "a.csv: Row 63: '---' is not a number.\n";
    const QJsonObject import = ImportJson("a.csv", {}, told);
    EXPECT_EQ(import.value(Q("row_count")), 60);
    const QJsonArray rows = import.value(Q("left_out_rows")).toArray();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(
        rows.at(0).toObject(),
        (QJsonObject{{Q("row"), 62}, {Q("text"), Q("later")}, {Q("reason"), Q("not a time")}}));
    EXPECT_EQ(
        rows.at(1).toObject(),
        (QJsonObject{{Q("row"), 63}, {Q("text"), Q("---")}, {Q("reason"), Q("not a number")}}));
    EXPECT_EQ(Messages(import), (std::vector<std::string>{"Row 62: 'later' is not a time.",
                                                          "Row 63: '---' is not a number."}));
    EXPECT_EQ(Import("a.csv").err, told);
}

// ---- Properties ---------------------------------------------------------------------------------

TEST_F(CliImportTest, ImportOfWhatWasImportedIsTheSame) {
    for (const char* name : {"diver_mon.mon", "solinst_xle.xle", "solinst_csv_old.csv"}) {
        const QJsonObject first = ImportJson(Case(name));
        const ProjectState state = Imported();
        std::string text =
            "Time (sec),Level (" + first.value(Q("level_unit")).toString().toStdString() + ")\n";
        for (const RecoveryRow& row : state.RecDatGrid)
            if (!row.time.empty())
                text += row.time.ToString() + "," + row.level.ToString() + "\n";
        WriteBytes("exported.csv", text);
        const QJsonObject again =
            ImportJson("exported.csv", {Q("--start"), Q("0"), Q("--static"),
                                        first.value(Q("static_text")).toString()});
        EXPECT_EQ(again.value(Q("readings")), first.value(Q("readings"))) << name;
        for (const char* key : {"static_text", "first_y", "level_unit", "slug_test_type"})
            EXPECT_EQ(again.value(Q(key)), first.value(Q(key))) << name << ' ' << key;
    }
}

TEST_F(CliImportTest, EncodingAndLineEndsChangeNothing) {
    const std::string text = ClockTable();
    WriteBytes("a.csv", text);
    const QJsonObject expected = ImportJson("a.csv");
    std::string lines = text;
    lines.erase(std::remove(lines.begin(), lines.end(), '\r'), lines.end());
    WriteBytes("a.csv", lines);
    EXPECT_EQ(ImportJson("a.csv"), expected);
    std::string wide = "\xFF\xFE";
    for (const char character : text)
        wide += {character, '\0'};
    WriteBytes("a.csv", wide);
    EXPECT_EQ(ImportJson("a.csv"), expected);
}

} // namespace quarnel::test

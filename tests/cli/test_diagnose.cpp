#include "tests/cli/CliTestSupport.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <set>

namespace quarnel::test {

namespace {

class CliDiagnoseTest : public CliTest {
protected:
    QJsonArray DiagnoseJson(const QStringList& words, int expectedStatus) {
        const Outcome outcome = Run(QStringList{Q("diagnose"), Q("--format"), Q("json")} + words);
        EXPECT_EQ(outcome.status, expectedStatus);
        EXPECT_EQ(outcome.err, "");
        QJsonParseError fault;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out), &fault);
        EXPECT_EQ(fault.error, QJsonParseError::NoError) << fault.errorString().toStdString();
        return document.array();
    }
    QJsonObject DiagnoseOne(const ProjectState& state, const QStringList& words = {},
                            int expectedStatus = 0) {
        WriteProject("one.qn2", state);
        return DiagnoseJson(words + QStringList{Q("one.qn2")}, expectedStatus).at(0).toObject();
    }
};

/// An object's keys as they must be, in any order, and nothing else.
void ExpectKeys(const QJsonValue& value, const std::string& keys, const std::string& what) {
    ASSERT_TRUE(value.isObject()) << what;
    QStringList expected = Q(keys).split(Q(" "));
    expected.sort();
    EXPECT_EQ(value.toObject().keys().join(Q(" ")).toStdString(),
              expected.join(Q(" ")).toStdString())
        << what;
}

void ExpectRows(const QJsonValue& value, const std::string& keys, const std::string& what) {
    ASSERT_TRUE(value.isArray()) << what;
    for (const QJsonValue row : value.toArray())
        ExpectKeys(row, keys, what);
}

/// Whether every key of the schema is there, whatever the project holds.
void ExpectSchema(const QJsonObject& file) {
    ExpectKeys(file, "file status messages well_label k diagnostics", "file");
    ASSERT_EQ(file.value(Q("k")).isNull(), file.value(Q("diagnostics")).isNull());
    if (file.value(Q("k")).isNull())
        return;
    ExpectKeys(file.value(Q("k")), "cm_per_sec text length_unit time_unit", "k");
    const QJsonObject all = file.value(Q("diagnostics")).toObject();
    ExpectKeys(all,
               "h0_cm reading_step_cm point_count valid_count used_count statistics windows "
               "segments slug_volume hvorslev checks sensitivity",
               "diagnostics");
    ExpectKeys(all.value(Q("statistics")),
               "used_count slope_per_sec intercept_ln_cm sse residual_sd df slope_se_per_sec "
               "intercept_se r_squared t_quantile interval_low_cm_per_sec interval_high_cm_per_sec "
               "lag1_autocorrelation durbin_watson effective_count adjusted_slope_se_per_sec "
               "adjusted_df adjusted_t_quantile adjusted_low_cm_per_sec adjusted_high_cm_per_sec",
               "statistics");
    ExpectRows(all.value(Q("windows")), "window point_count k_cm_per_sec r_squared change_percent",
               "windows");
    EXPECT_EQ(all.value(Q("windows")).toArray().size(), 8);
    if (!all.value(Q("segments")).isNull())
        ExpectKeys(all.value(Q("segments")),
                   "suggested split_after_point last_time_early_sec first_time_late_sec "
                   "slope_early_per_sec slope_late_per_sec slope_ratio sse_one sse_two "
                   "k_early_cm_per_sec k_late_cm_per_sec text",
                   "segments");
    if (!all.value(Q("slug_volume")).isNull())
        ExpectKeys(all.value(Q("slug_volume")),
                   "volume_litre expected_cm first_over_expected intercept_over_expected "
                   "effective_radius_cm implied_porosity verdict line_below_first text",
                   "slug_volume");
    if (!all.value(Q("hvorslev")).isNull())
        ExpectKeys(all.value(Q("hvorslev")),
                   "k_cm_per_sec ratio_to_bouwer_rice touching_k_cm_per_sec k_025_015_cm_per_sec",
                   "hvorslev");
    ExpectRows(all.value(Q("checks")), "id level text value", "checks");
    if (all.value(Q("sensitivity")).isNull())
        return;
    ExpectKeys(all.value(Q("sensitivity")), "percent rows", "sensitivity");
    ExpectRows(all.value(Q("sensitivity")).toObject().value(Q("rows")),
               "input change k_cm_per_sec change_percent", "rows");
}

QJsonObject Part(const QJsonObject& file, const char* name) {
    return file.value(Q("diagnostics")).toObject().value(Q(name)).toObject();
}

std::set<std::string> CheckIds(const QJsonObject& file) {
    std::set<std::string> ids;
    for (const QJsonValue check :
         file.value(Q("diagnostics")).toObject().value(Q("checks")).toArray())
        ids.insert(check.toObject().value(Q("id")).toString().toStdString());
    return ids;
}

/// Whether "nan" or "inf" stands anywhere as a word of its own.
bool HoldsNoNumber(const std::string& text) {
    const QString lower = Q(text).toLower();
    for (const QString& word : lower.split(QRegularExpression(Q("[^a-z]+"))))
        if (word == Q("nan") || word == Q("inf"))
            return true;
    return false;
}

/// Projects that are hard to diagnose, all with a K.
std::vector<std::pair<std::string, ProjectState>> HardProjects() {
    std::vector<std::pair<std::string, ProjectState>> projects;
    const auto add = [&](const std::string& name,
                         const std::vector<std::pair<std::string, std::string>>& readings) {
        ProjectState state = SampleProject();
        SetReadings(state, readings);
        projects.emplace_back(name, state);
    };
    add("two points", {{"0", "4"}, {"10", "3"}});
    add("three", {{"0", "4"}, {"10", "3"}, {"20", "2"}});
    add("five", {{"0", "4"}, {"1", "3"}, {"2", "2"}, {"3", "1.5"}, {"4", "1"}});
    add("six", {{"0", "4"}, {"1", "3"}, {"2", "2"}, {"3", "1.5"}, {"4", "1"}, {"5", "0.8"}});
    add("flat", {{"0", "1"}, {"10", "1"}, {"20", "1"}, {"30", "1"}, {"40", "1"}, {"50", "1"}});
    add("rising", {{"0", "1"}, {"10", "2"}, {"20", "3"}});
    add("exact", {{"0", "8"}, {"1", "4"}, {"2", "2"}, {"3", "1"}, {"4", "0.5"}, {"5", "0.25"}});
    add("equal times", {{"0", "8"}, {"0", "4"}, {"0", "2"}, {"5", "1"}, {"5", "0.5"}, {"5", "2"}});
    add("unsorted", {{"9", "1"}, {"0", "8"}, {"5", "4"}, {"5", "3"}});
    add("below the static level", {{"0", "8"}, {"1", "4"}, {"2", "-2"}, {"3", "-3"}, {"4", "-2"}});
    add("tiny", {{"0", "8e-300"}, {"1", "4e-300"}, {"2", "1e-300"}});
    add("huge", {{"0", "8e30"}, {"1", "4e30"}, {"2", "1e30"}, {"3", "1e-30"}});
    ProjectState noUnit = SampleProject();
    noUnit.CmboKLengthUnits = -1;
    projects.emplace_back("no unit of K", noUnit);
    ProjectState slug = SampleProject();
    slug.VolumeOfSlugText = "1e300";
    projects.emplace_back("huge slug", slug);
    ProjectState full = SampleProject();
    full.WellGeoText = {"20", "20", "20", "8", "8", "0"};
    full.VolumeOfSlugText = "3";
    projects.emplace_back("full and without a pack", full);
    return projects;
}

} // namespace

TEST_F(CliDiagnoseTest, JsonHasEveryKeyWhateverTheProjectHolds) {
    for (const auto& [name, state] : HardProjects()) {
        SCOPED_TRACE(name);
        for (const QStringList& words : {QStringList{}, QStringList{Q("--sensitivity")}}) {
            const QJsonObject file = DiagnoseOne(state, words);
            ExpectSchema(file);
            ASSERT_FALSE(file.value(Q("diagnostics")).isNull());
            EXPECT_EQ(file.value(Q("diagnostics")).toObject().value(Q("sensitivity")).isNull(),
                      words.isEmpty());
        }
    }
}

TEST_F(CliDiagnoseTest, NoOutputHoldsWhatIsNoNumber) {
    for (const auto& [name, state] : HardProjects()) {
        SCOPED_TRACE(name);
        WriteProject("one.qn2", state);
        for (const char* format : {"table", "json", "csv"}) {
            const Outcome outcome =
                Run({Q("diagnose"), Q("--sensitivity"), Q("--format"), Q(format), Q("one.qn2")});
            EXPECT_EQ(outcome.status, 0) << format;
            EXPECT_FALSE(outcome.out.empty());
            EXPECT_FALSE(HoldsNoNumber(outcome.out)) << outcome.out;
        }
    }
}

TEST_F(CliDiagnoseTest, PrattCountyIsDiagnosed) {
    const QJsonObject file =
        DiagnoseJson({Q("--sensitivity"), Example("pratt-county-1998.qn2")}, 0).at(0).toObject();
    ExpectSchema(file);
    const QJsonObject all = file.value(Q("diagnostics")).toObject();
    EXPECT_NEAR(all.value(Q("h0_cm")).toDouble(), 66.3, 1e-12);
    EXPECT_NEAR(all.value(Q("reading_step_cm")).toDouble(), 0.1, 1e-15);
    EXPECT_EQ(all.value(Q("point_count")).toInt(), 61);
    EXPECT_EQ(all.value(Q("valid_count")).toInt(), 61);
    EXPECT_EQ(all.value(Q("used_count")).toInt(), 3);
    EXPECT_EQ(CheckIds(file), (std::set<std::string>{"ACCURACY", "H0_SCREEN", "FEW_POINTS"}));
    EXPECT_EQ(Part(file, "statistics").value(Q("df")).toDouble(), 1);
    EXPECT_TRUE(Part(file, "statistics").value(Q("durbin_watson")).isNull());
    EXPECT_FALSE(Part(file, "segments").value(Q("suggested")).toBool());
    EXPECT_TRUE(all.value(Q("slug_volume")).isNull());
    EXPECT_EQ(Part(file, "sensitivity").value(Q("percent")).toDouble(), 10);
    EXPECT_EQ(Part(file, "sensitivity").value(Q("rows")).toArray().size(), 21);
}

TEST_F(CliDiagnoseTest, PercentImpliesSensitivityAndTakesItsEnds) {
    for (const char* percent : {"1", "50", "12.5", "1e1"}) {
        const QJsonObject file = DiagnoseOne(SampleProject(), {Q("--percent"), Q(percent)});
        EXPECT_EQ(Part(file, "sensitivity").value(Q("percent")).toDouble(), Q(percent).toDouble());
    }
}

TEST_F(CliDiagnoseTest, AbsentThingsAreNull) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "4"}, {"10", "3"}});
    const QJsonObject file = DiagnoseOne(state);
    const QJsonObject statistics = Part(file, "statistics");
    for (const char* key : {"sse", "df", "residual_sd", "r_squared", "t_quantile",
                            "interval_low_cm_per_sec", "lag1_autocorrelation"})
        EXPECT_TRUE(statistics.value(Q(key)).isNull()) << key;
    EXPECT_TRUE(file.value(Q("diagnostics")).toObject().value(Q("segments")).isNull());
    SetReadings(state, {{"0", "9"}, {"0", "8"}, {"0", "7"}, {"5", "3"}, {"5", "2"}, {"5", "1"}});
    const QJsonObject segments = Part(DiagnoseOne(state), "segments");
    EXPECT_TRUE(segments.value(Q("split_after_point")).isNull());
    EXPECT_FALSE(segments.value(Q("suggested")).toBool(true));
    EXPECT_EQ(segments.value(Q("text")).toString(), Q("No two straight segments stand out."));
}

TEST_F(CliDiagnoseTest, ABrokenFileDoesNotStopAGoodOne) {
    WriteProject("good.qn2", SampleProject());
    WriteBytes("letter.txt", "Dear reader,\n");
    ProjectState one = SampleProject();
    SetReadings(one, {{"0", "4"}});
    WriteProject("few.qn2", one);
    const QJsonArray files =
        DiagnoseJson({Q("letter.txt"), Q("few.qn2"), Q("good.qn2"), Q("missing.qn2")}, 1);
    ASSERT_EQ(files.size(), 4);
    for (const QJsonValue file : files)
        ExpectSchema(file.toObject());
    EXPECT_EQ(Messages(files.at(0).toObject()),
              std::vector<std::string>{std::string(NotAnInputFile)});
    EXPECT_EQ(Messages(files.at(1).toObject()),
              std::vector<std::string>{std::string(TooFewPoints)});
    EXPECT_TRUE(files.at(1).toObject().value(Q("diagnostics")).isNull());
    EXPECT_FALSE(files.at(2).toObject().value(Q("diagnostics")).isNull());
    EXPECT_TRUE(files.at(3).toObject().value(Q("k")).isNull());
    const Outcome table = Run({Q("diagnose"), Q("letter.txt"), Q("good.qn2")});
    EXPECT_EQ(table.status, 1);
    EXPECT_NE(table.out.find("K was not computed, so there are no diagnostics."),
              std::string::npos);
    EXPECT_NE(table.out.find("K = "), std::string::npos);
    EXPECT_EQ(table.err, "letter.txt: " + std::string(NotAnInputFile) + "\n");
}

TEST_F(CliDiagnoseTest, CsvHasOneLineAFile) {
    WriteProject("good.qn2", SampleProject());
    WriteBytes("letter.txt", "Dear reader,\n");
    const Outcome outcome =
        Run({Q("diagnose"), Q("--format"), Q("csv"), Q("good.qn2"), Q("letter.txt")});
    EXPECT_EQ(outcome.status, 1);
    const QStringList lines = Q(outcome.out).split(Q("\n"));
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], Q("file,well_label,status,k_text,k_length_unit,k_time_unit,k_cm_per_sec,"
                          "used_count,half_width_percent,adjusted_half_width_percent,r_squared,"
                          "lag1,durbin_watson,k_030_020_cm_per_sec,points_030_020,cautions,"
                          "notes"));
    for (int i = 1; i < 3; ++i)
        EXPECT_EQ(lines[i].count(Q(",")), lines[0].count(Q(","))) << i;
    EXPECT_TRUE(lines[1].startsWith(Q("\"good.qn2\",\"MW-1\",0,"))) << lines[1].toStdString();
    EXPECT_TRUE(lines[2].startsWith(Q("\"letter.txt\",\"\",1,,,,"))) << lines[2].toStdString();
    EXPECT_EQ(lines[3], QString());
}

TEST_F(CliDiagnoseTest, TableHasThePagesOfTheWindow) {
    const Outcome outcome = Run({Q("diagnose"), Example("pratt-county-1998.qn2")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* part :
         {"    K = 3.6 m/day from 3 of 61 points.\n", "\n  Statistics\n", "\n  Head Windows\n",
          "\n  Checks\n", "\n  Residuals\n    Residuals: s 0.00488\n",
          "    Points used                  3 of 61\n",
          "    K, 95 % interval             2.58 to 4.61 m/day\n",
          "    0.20-0.10             3       3.09  > 0.9999  -14.0 %\n",
          "    No two straight segments stand out.\n", "    Note FEW_POINTS: Only 3 readings"})
        EXPECT_NE(outcome.out.find(part), std::string::npos) << part << outcome.out;
    EXPECT_EQ(outcome.out.find("What Moves K"), std::string::npos);
    const Outcome more = Run({Q("diagnose"), Q("--sensitivity"), Example("pratt-county-1998.qn2")});
    EXPECT_NE(more.out.find("\n  What Moves K\n    Largest here: drained porosity 0 and 40 % "
                            "(0.0 % to +112.6 %).\n"),
              std::string::npos);
    for (const QString& line : Q(outcome.out).split(Q("\n")))
        EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST_F(CliDiagnoseTest, ANumberOfTheLocaleIsASlugVolume) {
    ProjectState state = SampleProject();
    state.VolumeOfSlugText = "1,5";
    EXPECT_TRUE(
        DiagnoseOne(state).value(Q("diagnostics")).toObject().value(Q("slug_volume")).isNull());
    state.VolumeOfSlugText = "1.5";
    EXPECT_EQ(Part(DiagnoseOne(state), "slug_volume").value(Q("volume_litre")).toDouble(), 1.5);
}

} // namespace quarnel::test

#include "tests/SourceFolder.h"
#include "tests/cli/CliTestSupport.h"

#include <QFile>
#include <QJsonDocument>
#include <cmath>

namespace quarnel::test {

namespace {

class CliJsonTest : public CliTest {};

/// Which groups of an analysis are not null, as a text for comparing: "geometry fit k".
std::string ReachedGroups(const QJsonObject& analysis) {
    std::string reached;
    for (const char* group : {"geometry", "coefficients", "fit", "k", "plot", "points"}) {
        EXPECT_TRUE(analysis.contains(Q(group))) << group;
        if (!analysis.value(Q(group)).isNull())
            reached += (reached.empty() ? "" : " ") + std::string(group);
    }
    return reached;
}

QJsonObject Point(const QJsonObject& analysis, int index) {
    return analysis.value(Q("points")).toArray().at(index).toObject();
}

std::vector<std::string> Criteria(const QJsonObject& analysis) {
    std::vector<std::string> criteria;
    for (const QJsonValue point : analysis.value(Q("points")).toArray())
        criteria.push_back(point.toObject().value(Q("criterion")).toString().toStdString());
    return criteria;
}

using Texts = std::vector<std::string>;

} // namespace

// The golden file was printed by the program and its numbers were computed again by hand from the
// published readings; a change of one last digit in it needs a reason.
TEST_F(CliJsonTest, PrattCountyIsTheGoldenAnalysis) {
    QFile golden(Q(test::SourceFolder() + "/tests/cli/golden/pratt-county-1998.json"));
    ASSERT_TRUE(golden.open(QIODevice::ReadOnly));
    QJsonArray expected = QJsonDocument::fromJson(golden.readAll()).array();
    ASSERT_EQ(expected.size(), 1);
    const QString path = Example("pratt-county-1998.qn2");
    QJsonObject object = expected.at(0).toObject();
    object.insert(Q("file"), path);
    EXPECT_EQ(AnalyzeJson({path}, 0), QJsonArray{object});
}

TEST_F(CliJsonTest, PrattCountyIsNearThePublishedK) {
    const QJsonObject analysis =
        AnalyzeJson({Example("pratt-county-1998.qn2")}, 0).at(0).toObject();
    const QJsonObject k = analysis.value(Q("k")).toObject();
    EXPECT_EQ(k.value(Q("text")), Q("3.6"));
    EXPECT_EQ(k.value(Q("length_unit")), Q("m"));
    EXPECT_EQ(k.value(Q("time_unit")), Q("day"));
    const double metresPerDay = k.value(Q("cm_per_sec")).toDouble() * 864;
    EXPECT_NEAR(metresPerDay, 3.5, 0.03 * 3.5); // Butler (1998), another reading of the curves
}

TEST_F(CliJsonTest, OldInputFileGivesTheSameK) {
    const QJsonArray both =
        AnalyzeJson({Example("pratt-county-1998.qn2"), Example("pratt-county-1998.in")}, 0);
    const auto k = [&both](int file) {
        return both.at(file).toObject().value(Q("k")).toObject().value(Q("cm_per_sec")).toDouble();
    };
    EXPECT_GT(k(0), 0);
    EXPECT_EQ(k(0), k(1));
}

TEST_F(CliJsonTest, KeysStandInTheDescribedOrder) {
    WriteProject("one.qn2", SampleProject());
    const std::string out = Run({Q("analyze"), Q("--format"), Q("json"), Q("one.qn2")}).out;
    std::size_t at = 0;
    for (const char* key : {"file",
                            "status",
                            "messages",
                            "well_label",
                            "geometry",
                            "h_cm",
                            "lw_cm",
                            "le_cm",
                            "rw_cm",
                            "rc_cm",
                            "re_cm",
                            "porosity",
                            "re_text",
                            "coefficients",
                            "le_over_rw",
                            "a",
                            "b",
                            "c",
                            "ln_re_over_rw",
                            "le_over_rw_text",
                            "a_text",
                            "b_text",
                            "c_text",
                            "ln_re_over_rw_text",
                            "fit",
                            "used_count",
                            "slope_per_sec",
                            "intercept_ln_cm",
                            "slope_text",
                            "intercept_text",
                            "k",
                            "cm_per_sec",
                            "text",
                            "length_unit",
                            "time_unit",
                            "plot",
                            "max_time",
                            "y_axis_min",
                            "y_axis_max",
                            "points",
                            "number",
                            "time_text",
                            "time_sec",
                            "level_text",
                            "y",
                            "y_text",
                            "y_cm",
                            "log10_y",
                            "ln_y_cm",
                            "weight",
                            "criterion",
                            "fit_y",
                            "fit_y_text"}) {
        at = out.find("\"" + std::string(key) + "\":", at);
        ASSERT_NE(at, std::string::npos) << key;
    }
}

TEST_F(CliJsonTest, CleanProjectReachesEveryGroup) {
    const QJsonObject analysis = AnalyzeOne(SampleProject(), 0);
    EXPECT_EQ(analysis.keys().size(), 10);
    EXPECT_EQ(analysis.value(Q("file")), Q("one.qn2"));
    EXPECT_EQ(analysis.value(Q("status")), 0);
    EXPECT_EQ(analysis.value(Q("well_label")), Q("MW-1"));
    EXPECT_EQ(Messages(analysis), Texts());
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients fit k plot points");
    const QJsonObject point = Point(analysis, 1);
    EXPECT_EQ(point.value(Q("number")), 2);
    EXPECT_EQ(point.value(Q("time_text")), Q("10"));
    EXPECT_EQ(point.value(Q("level_text")), Q("3"));
    EXPECT_EQ(point.value(Q("y")), 3);
    EXPECT_EQ(point.value(Q("y_text")), Q(" 3"));
    EXPECT_EQ(point.value(Q("y_cm")), 3 * 30.48);
    EXPECT_EQ(point.value(Q("weight")), 1);
    EXPECT_EQ(point.value(Q("criterion")), Q("Use"));
    EXPECT_FALSE(point.value(Q("fit_y_text")).toString().isEmpty());
}

TEST_F(CliJsonTest, GeometryErrorLeavesEveryGroupNull) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLw] = "60";
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(analysis.value(Q("status")), 1);
    EXPECT_EQ(analysis.value(Q("well_label")), Q("MW-1"));
    EXPECT_EQ(Messages(analysis), Texts{"Well Geometry: Lw must <= H."});
    EXPECT_EQ(ReachedGroups(analysis), "");
}

// The ratio is clamped too, but the warning of a step that failed says nothing.
TEST_F(CliJsonTest, LnReOverRwErrorStandsAlone) {
    ProjectState state = SampleProject();
    state.WellGeoText = {"20", "2", "1", "48", "4", "0"}; // Lw = rw
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis), Texts{"Well Geometry: ln(Re/rw) cannot be computed. Please check "
                                        "H, Lw, Le and dw."});
    EXPECT_EQ(ReachedGroups(analysis), "geometry");
}

TEST_F(CliJsonTest, LengthBeyondADoubleIsNull) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoH] = "1e308";
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(ReachedGroups(analysis), "geometry");
    const QJsonObject geometry = analysis.value(Q("geometry")).toObject();
    EXPECT_TRUE(geometry.value(Q("h_cm")).isNull());
    EXPECT_EQ(geometry.value(Q("lw_cm")), 20 * 30.48);
}

TEST_F(CliJsonTest, RecoveryErrorKeepsCoefficientsAndTheirWarning) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1"; // Le/rw = 3
    SetReadings(state, {{"0", "4"}, {"-1", "3"}});
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis),
              (Texts{std::string(RatioTooSmall), "Time value in row 2 must be >= 0."}));
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients");
}

TEST_F(CliJsonTest, NoRecoveryDataIsAnError) {
    ProjectState state = SampleProject();
    SetReadings(state, {});
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis), Texts{"No recovery data has been entered."});
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients");
}

TEST_F(CliJsonTest, TooFewPointsKeepPointsAsGathered) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "4"}, {"10", "3"}, {"20", "-1"}, {"30", "0"}});
    state.IgnoreKeyList = {"104", "103"}; // the second matches the point at 10
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis), (Texts{std::string(YWarning), std::string(TooFewPoints)}));
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients plot points");
    EXPECT_EQ(Criteria(analysis), (Texts{"Use", "Ignore", "Ignore", "Ignore"}));
    EXPECT_EQ(Point(analysis, 0).value(Q("weight")), 1);
    EXPECT_EQ(Point(analysis, 1).value(Q("weight")), 0);
    EXPECT_TRUE(Point(analysis, 0).value(Q("fit_y")).isNull());
    EXPECT_TRUE(Point(analysis, 0).value(Q("fit_y_text")).isNull());
    for (const int index : {2, 3}) {
        EXPECT_EQ(Point(analysis, index).value(Q("log10_y")), 0);
        EXPECT_EQ(Point(analysis, index).value(Q("ln_y_cm")), 0);
    }
    EXPECT_EQ(Point(analysis, 2).value(Q("y_text")), Q("-1"));
}

TEST_F(CliJsonTest, YNotAboveZeroIsOnlyAWarning) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "4"}, {"10", "3"}, {"20", "-1"}});
    const QJsonObject analysis = AnalyzeOne(state, 0);
    EXPECT_EQ(analysis.value(Q("status")), 2);
    EXPECT_EQ(Messages(analysis), Texts{std::string(YWarning)});
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients fit k plot points");
    EXPECT_EQ(analysis.value(Q("fit")).toObject().value(Q("used_count")), 2);
}

TEST_F(CliJsonTest, OverflowOfKIsAnError) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoDw] = "1e150";
    state.WellGeoText[GeoDc] = "1e150";
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis), (Texts{std::string(RatioTooSmall),
                                         "Overflow. Hydraulic conductivity cannot be estimated."}));
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients plot points");
    EXPECT_TRUE(Point(analysis, 0).value(Q("fit_y")).isNull());
}

TEST_F(CliJsonTest, SameTimeIsAnError) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"10", "4"}, {"10", "3"}});
    const QJsonObject analysis = AnalyzeOne(state, 1);
    EXPECT_EQ(Messages(analysis), Texts{"All points selected (Use) have the same time. Hydraulic "
                                        "conductivity cannot be estimated."});
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients plot points");
}

TEST_F(CliJsonTest, RisingSlopeWarnsLast) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1";
    SetReadings(state, {{"0", "1"}, {"10", "2"}, {"20", "4"}, {"30", "-1"}});
    const QJsonObject analysis = AnalyzeOne(state, 0);
    EXPECT_EQ(analysis.value(Q("status")), 2);
    EXPECT_EQ(Messages(analysis),
              (Texts{std::string(RatioTooSmall), std::string(YWarning), std::string(RisingSlope)}));
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients fit k plot points");
    EXPECT_LT(analysis.value(Q("k")).toObject().value(Q("cm_per_sec")).toDouble(), 0);
}

TEST_F(CliJsonTest, LevelLineWarnsToo) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "1"}, {"10", "1"}});
    state.RecDatWaterLevelUnitsDDL = Centimetre; // ln(1) = 0: a slope of exactly 0
    const QJsonObject analysis = AnalyzeOne(state, 0);
    EXPECT_EQ(Messages(analysis), Texts{std::string(RisingSlope)});
    EXPECT_EQ(analysis.value(Q("k")).toObject().value(Q("cm_per_sec")), 0);
    EXPECT_FALSE(
        std::signbit(analysis.value(Q("fit")).toObject().value(Q("slope_per_sec")).toDouble()));
}

TEST_F(CliJsonTest, FittedYBeyondADoubleIsNullWithAnEmptyText) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "1e-300"}, {"1", "1e300"}, {"2", "1"}});
    state.IgnoreKeyList = {"21"};
    const QJsonObject analysis = AnalyzeOne(state, 0);
    EXPECT_EQ(Messages(analysis), Texts{std::string(RisingSlope)});
    EXPECT_TRUE(Point(analysis, 2).value(Q("fit_y")).isNull());
    EXPECT_EQ(Point(analysis, 2).value(Q("fit_y_text")), Q(""));
    EXPECT_EQ(Point(analysis, 1).value(Q("y_text")), Q("")); // beyond single precision
}

TEST_F(CliJsonTest, NumbersReadBackExactly) {
    ProjectState state = SampleProject();
    state.RecDatWaterLevelUnitsDDL = Centimetre;
    const std::vector<std::string> readings = {"5e-324",
                                               "2.2250738585072009e-308",
                                               "1.7976931348623157e308",
                                               "0.1",
                                               "1e30",
                                               "0.30000000000000004",
                                               "123456789012345678",
                                               "9007199254740993",
                                               "1e15",
                                               "9.3e18",
                                               "999999999999999",
                                               "100000",
                                               "4.35"};
    std::vector<std::pair<std::string, std::string>> rows;
    rows.reserve(readings.size());
    for (const std::string& reading : readings)
        rows.emplace_back(std::to_string(rows.size()), reading);
    SetReadings(state, rows);
    WriteProject("one.qn2", state);
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromStdString(Run({Q("analyze"), Q("--format"), Q("json"), Q("one.qn2")}).out));
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const double expected = Q(readings[i]).toDouble();
        const QJsonObject point = Point(document.array().at(0).toObject(), static_cast<int>(i));
        EXPECT_EQ(point.value(Q("y")).toDouble(), expected) << readings[i];
        EXPECT_EQ(point.value(Q("y_cm")).toDouble(), expected) << readings[i];
    }
}

TEST_F(CliJsonTest, MinusZeroIsWrittenAsZero) {
    ProjectState state = SampleProject();
    state.RecDatDataTypeDDL = GroundwaterHead; // rising: Y is minus the difference
    state.RecDatPreSlugHeadText = "5";
    SetReadings(state, {{"0", "1"}, {"10", "2"}, {"20", "5"}});
    const QJsonObject analysis = AnalyzeOne(state, 0);
    EXPECT_FALSE(std::signbit(Point(analysis, 2).value(Q("y")).toDouble()));
    EXPECT_EQ(Point(analysis, 2).value(Q("y_text")), Q(" 0"));
}

TEST_F(CliJsonTest, KWithoutAUnitHasNoTextButAValue) {
    ProjectState state = SampleProject();
    state.CmboKLengthUnits = -1;
    const QJsonObject k = AnalyzeOne(state, 0).value(Q("k")).toObject();
    EXPECT_EQ(k.value(Q("text")), Q(""));
    EXPECT_EQ(k.value(Q("length_unit")), Q(""));
    EXPECT_EQ(k.value(Q("time_unit")), Q("day"));
    EXPECT_GT(k.value(Q("cm_per_sec")).toDouble(), 0);
}

TEST_F(CliJsonTest, PorosityIsAFraction) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoDpor] = "25";
    const QJsonObject geometry = AnalyzeOne(state, 0).value(Q("geometry")).toObject();
    EXPECT_EQ(geometry.value(Q("porosity")), 0.25);
    EXPECT_EQ(geometry.value(Q("re_text")), Q("2.645751")); // sqrt(12 x 0.25 + 4) in
}

TEST_F(CliJsonTest, FileMessageComesFirstAndTheRestIsAnalysed) {
    std::string bytes;
    WriteProject("whole.qn2", SampleProject());
    bytes = ReadBytes("whole.qn2");
    const std::string unit = "\"VERMEASUNITS\",\"ft\",1";
    ASSERT_NE(bytes.find(unit), std::string::npos);
    bytes.replace(bytes.find(unit), unit.size(), "\"VERMEASUNITS\",\"ft\",9");
    WriteBytes("damaged.qn2", bytes);
    const QJsonObject analysis = AnalyzeJson({Q("damaged.qn2")}, 1).at(0).toObject();
    EXPECT_EQ(analysis.value(Q("status")), 1);
    EXPECT_EQ(Messages(analysis), Texts{"380 Invalid property value"});
    EXPECT_EQ(ReachedGroups(analysis), "geometry coefficients fit k plot points");
}

TEST_F(CliJsonTest, FileMessageOutweighsAWarning) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1";
    WriteProject("a.qn2", state);
    WriteBytes("a.qn2", ReadBytes("a.qn2") + "\"RECDATA\"");
    const QJsonObject analysis = AnalyzeJson({Q("a.qn2")}, 1).at(0).toObject();
    EXPECT_EQ(analysis.value(Q("status")), 1);
    EXPECT_EQ(Messages(analysis), (Texts{"62 Input past end of file", std::string(RatioTooSmall)}));
}

TEST_F(CliJsonTest, FailedFileDoesNotStopTheOthers) {
    WriteProject("good.qn2", SampleProject());
    WriteBytes("bad.qn2", "something else");
    const QJsonArray all =
        AnalyzeJson({Q("missing.qn2"), Q("good.qn2"), Q("bad.qn2"), Q("good.qn2")}, 1);
    const std::vector<int> expected = {1, 0, 1, 0};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(all.at(i).toObject().value(Q("status")), expected[static_cast<std::size_t>(i)]);
    EXPECT_EQ(all.at(1).toObject(), all.at(3).toObject());
    EXPECT_EQ(Messages(all.at(0).toObject()), Texts{"53 File not found"});
    EXPECT_EQ(Messages(all.at(2).toObject()), Texts{std::string(NotAnInputFile)});
    EXPECT_EQ(ReachedGroups(all.at(2).toObject()), "");
    EXPECT_EQ(all.at(2).toObject().value(Q("well_label")), Q(""));
}

TEST_F(CliJsonTest, LabelIsKeptAsItIsWithEscapes) {
    const std::string label = " a\\b\t\x01\x7F\u0085é井 ";
    WriteBytes("a.qn2",
               "\"QUARNEL PROJECT FILE\"\r\n\"WELLID\",\"WELLLABEL\",\"" + label + "\"\r\n");
    const QJsonObject analysis = AnalyzeJson({Q("a.qn2")}, 1).at(0).toObject();
    EXPECT_EQ(analysis.value(Q("well_label")).toString().toStdString(), label);
    // Some readers, though not Qt's, refuse control characters as they are.
    const std::string out = Run({Q("analyze"), Q("--format"), Q("json"), Q("a.qn2")}).out;
    EXPECT_NE(out.find("\" a\\\\b\\u0009\\u0001\\u007f\u0085é井 \""), std::string::npos) << out;
}

} // namespace quarnel::test

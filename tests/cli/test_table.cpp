#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

class CliTableTest : public CliTest {
protected:
    Outcome Table(std::string_view file) { return Run({Q("analyze"), Q(file)}); }
};

} // namespace

TEST_F(CliTableTest, WholeTableOfACleanProject) {
    ProjectState state = SampleProject();
    state.IgnoreKeyList = {"401.25"};
    WriteProject("well 1.qn2", state);
    const Outcome outcome = Table("well 1.qn2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "well 1.qn2\n"
                           "    Status                     computed\n"
                           "    Monitoring well            MW-1\n"
                           "\n"
                           "  Well geometry\n"
                           "    H                          50 ft = 1524 cm\n"
                           "    Lw                         20 ft = 609.6 cm\n"
                           "    Le                         10 ft = 304.8 cm\n"
                           "    dw                         8 in = 20.32 cm\n"
                           "    rw                         4 in = 10.16 cm\n"
                           "    dc                         4 in = 10.16 cm\n"
                           "    rc                         2 in = 5.08 cm\n"
                           "    Drained porosity           0 %\n"
                           "    Effective radius re        2 in = 5.08 cm\n"
                           "\n"
                           "  Bouwer-Rice coefficients\n"
                           "    Le/rw                      30.0\n"
                           "    A                          2.42\n"
                           "    B                          0.35\n"
                           "    C                          2.0\n"
                           "    ln(Re/rw)                  2.49\n"
                           "\n"
                           "  Recovery data\n"
                           "     No.  Time (sec)  Reading Y (ft)  Y (ft)  Fit Y (ft)  Criterion\n"
                           "       1           0               4       4         4.0  Use\n"
                           "       2          10               3       3         3.0  Use\n"
                           "       3          20            2.25    2.25        2.25  Use\n"
                           "       4          30          1.6875  1.6875        1.69  Use\n"
                           "       5          40            1.25    1.25        1.27  Ignore\n"
                           "\n"
                           "  Plot\n"
                           "    Time axis                  0 to 40 sec\n"
                           "    Y axis                     1 to 10 ft\n"
                           "\n"
                           "  Fit of ln(Y in cm) against time in s\n"
                           "    Points used                4 of 5\n"
                           "    Slope                      -2.88e-2 1/s\n"
                           "    Intercept                  4.8\n"
                           "\n"
                           "    Hydraulic conductivity K   2.62 m/day = 0.00303 cm/sec\n");
}

TEST_F(CliTableTest, TableIsTheFormatWithoutAnOption) {
    WriteProject("a.qn2", SampleProject());
    EXPECT_EQ(Table("a.qn2").out, Run({Q("analyze"), Q("--format=table"), Q("a.qn2")}).out);
}

TEST_F(CliTableTest, WarningsGoToStandardErrorAfterTheFilesName) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1";
    SetReadings(state, {{"0", "1"}, {"10", "2"}, {"30", "-1"}});
    WriteProject("a.qn2", state);
    const Outcome outcome = Table("a.qn2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "a.qn2: " + std::string(RatioTooSmall) +
                               "\na.qn2: " + std::string(YWarning) +
                               "\na.qn2: " + std::string(RisingSlope) + "\n");
    EXPECT_NE(outcome.out.find("Status                     computed, with warnings\n"),
              std::string::npos);
    EXPECT_EQ(outcome.out.find("Warning"), std::string::npos);
}

TEST_F(CliTableTest, FailedProjectShowsWhatWasReached) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "x"}});
    WriteProject("a.qn2", state);
    const Outcome outcome = Table("a.qn2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "a.qn2: Recovery data in row 1 cannot be evaluated as a number. Please "
                           "re-enter.\n");
    EXPECT_NE(outcome.out.find("    Status                     not computed\n"), std::string::npos);
    EXPECT_NE(outcome.out.find("    ln(Re/rw)                  2.49\n"), std::string::npos);
    EXPECT_EQ(outcome.out.find("Recovery data"), std::string::npos);
    EXPECT_NE(outcome.out.find("    Hydraulic conductivity K   not computed\n"), std::string::npos);
}

TEST_F(CliTableTest, UnreadableFileIsSaidToBe) {
    EXPECT_EQ(Table("missing.qn2").out, "missing.qn2\n"
                                        "    Status                     not read\n"
                                        "\n"
                                        "    Hydraulic conductivity K   not computed\n");
}

TEST_F(CliTableTest, DamagedButComputedFileSaysSo) {
    WriteProject("a.qn2", SampleProject());
    WriteBytes("a.qn2", ReadBytes("a.qn2") + "\"RECDATA\"");
    const Outcome outcome = Table("a.qn2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "a.qn2: 62 Input past end of file\n");
    EXPECT_NE(outcome.out.find("computed from what could be read\n"), std::string::npos);
}

TEST_F(CliTableTest, CentimetresStandOnceAndNoUnitLeavesCmPerSec) {
    ProjectState state = SampleProject();
    state.WellGeoVertUnitsDDL = Centimetre;
    state.WellGeoText[GeoLe] = "20";
    state.WellGeoText[GeoLw] = "30";
    state.CmboKTimeUnits = -1;
    WriteProject("a.qn2", state);
    const std::string out = Table("a.qn2").out;
    EXPECT_NE(out.find("    Lw                         30 cm\n"), std::string::npos);
    const std::size_t k = out.find("    Hydraulic conductivity K   ");
    ASSERT_NE(k, std::string::npos);
    EXPECT_EQ(out.find('='), out.find("= 20.32 cm")); // no length but dw's
    EXPECT_EQ(out.find('=', k), std::string::npos);
    EXPECT_NE(out.find(" cm/sec\n", k), std::string::npos);
}

TEST_F(CliTableTest, ColumnsAreAsWideAsTheirLongestText) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0000000000000.5", "000000000000000000.004"}, {"10", "-0.0012345678"}});
    WriteProject("a.qn2", state);
    const std::string out = Table("a.qn2").out;
    EXPECT_NE(
        out.find("     No.       Time (sec)          Reading Y (ft)        Y (ft)  Fit Y (ft)  "
                 "Criterion\n"
                 "       1  0000000000000.5  000000000000000000.004         0.004              "
                 "Use\n"
                 "       2               10           -0.0012345678  -0.001234568              "
                 "Ignore\n"),
        std::string::npos)
        << out;
}

TEST_F(CliTableTest, TextsOfAFileCannotSteerTheTerminal) {
    ProjectState state = SampleProject();
    state.WellTestIDTxt[WellLabel] = "\x1B[2J\u009Bx\x07 é";
    WriteProject("a.qn2", state);
    const std::string out = Table("a.qn2").out;
    EXPECT_NE(out.find("Monitoring well            \uFFFD[2J\uFFFDx\uFFFD é\n"), std::string::npos);
}

TEST_F(CliTableTest, FilesFollowEachOtherAfterAnEmptyLine) {
    WriteProject("a.qn2", SampleProject());
    const std::string one = Table("a.qn2").out;
    EXPECT_EQ(Run({Q("analyze"), Q("a.qn2"), Q("a.qn2")}).out, one + "\n" + one);
}

} // namespace quarnel::test

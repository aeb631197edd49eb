#include "tests/cli/CliTestSupport.h"

#include "kcompute/Analysis.h"
#include "output/SummaryReport.h"

#include <QDir>
#include <QFile>

namespace quarnel::test {

namespace {

class CliReportTest : public CliTest {
protected:
    /// What the window would save for the project at `path`.
    static std::string WindowsReport(const QString& path) {
        Analysis analysis;
        OpenProjectFile(path.toStdString(), analysis);
        if (PrepareComputation(analysis).pointsChecked)
            Compute(analysis);
        return ReportBytes(analysis.state, analysis.computation.get());
    }
};

} // namespace

TEST_F(CliReportTest, StandardOutputAndFileHoldTheWindowsBytes) {
    for (const char* name : {"pratt-county-1998.qn2", "every-field.qn2"}) {
        const QString path = Example(name);
        const Outcome printed = Run({Q("report"), path});
        EXPECT_EQ(printed.status, 0);
        EXPECT_EQ(printed.err, "");
        EXPECT_EQ(printed.out, WindowsReport(path));
        const Outcome saved = Run({Q("report"), Q("-o"), Q("out.res"), path});
        EXPECT_EQ(saved.status, 0);
        EXPECT_EQ(saved.out + saved.err, "");
        EXPECT_EQ(ReadBytes("out.res"), printed.out);
    }
}

TEST_F(CliReportTest, ReportHoldsK) {
    const std::string report = Run({Q("report"), Example("pratt-county-1998.qn2")}).out;
    EXPECT_NE(report.find("Hydraulic Conductivity: 3.6 m/day\r\n"), std::string::npos);
    EXPECT_NE(report.find("Well 4"), std::string::npos);
}

TEST_F(CliReportTest, WarningLeavesTheReportAndTheStatusAlone) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1";
    WriteProject("a.qn2", state);
    const Outcome outcome = Run({Q("report"), Q("a.qn2")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "a.qn2: " + std::string(RatioTooSmall) + "\n");
    EXPECT_EQ(outcome.out, WindowsReport(Path("a.qn2")));
}

TEST_F(CliReportTest, FailedComputationGivesAReportWithoutK) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoH] = "";
    WriteProject("a.qn2", state);
    const Outcome outcome = Run({Q("report"), Q("-o"), Q("out.res"), Q("a.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "a.qn2: Well Geometry: H must have a value.\n");
    EXPECT_EQ(ReadBytes("out.res"), WindowsReport(Path("a.qn2")));
    EXPECT_EQ(ReadBytes("out.res").find("Hydraulic Conductivity: "), std::string::npos);
}

TEST_F(CliReportTest, UnreadableFileWritesNothing) {
    WriteBytes("out.res", "old");
    const Outcome outcome = Run({Q("report"), Q("-o"), Q("out.res"), Q("missing.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "missing.qn2: 53 File not found\n");
    EXPECT_EQ(ReadBytes("out.res"), "old");
}

TEST_F(CliReportTest, ReportNeverReplacesItsProject) {
    WriteProject("a.qn2", SampleProject());
    const std::string before = ReadBytes("a.qn2");
    ASSERT_TRUE(QFile::link(Path("a.qn2"), Path("link.qn2")));
    EXPECT_EQ(Run({Q("report"), Q("-o"), Q("link.qn2"), Q("a.qn2")}).status, 2);
    EXPECT_EQ(ReadBytes("a.qn2"), before);
}

TEST_F(CliReportTest, StandardOutputMayBeNamedAsTheFile) {
    WriteProject("a.qn2", SampleProject());
    const std::string report = Run({Q("report"), Q("a.qn2")}).out;
    for (const char* name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        const Outcome piped = Run({Q("report"), Q("-o"), Q(name), Q("a.qn2")});
        EXPECT_EQ(piped.status, 0) << piped.err;
        EXPECT_EQ(piped.out, report);
        EXPECT_EQ(RunShell("{ echo first; \"$cli\" report -o " + std::string(name) +
                           " a.qn2; echo last; } >all")
                      .status,
                  0);
        EXPECT_EQ(ReadBytes("all"), "first\n" + report + "last\n");
    }
}

TEST_F(CliReportTest, FileThatCannotBeWrittenIsTold) {
    WriteProject("a.qn2", SampleProject());
    ASSERT_TRUE(QDir(Path("")).mkdir(Q("folder")));
    const Outcome outcome = Run({Q("report"), Q("-o"), Q("folder"), Q("a.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.find("folder: 75 Path/File access error\n"), 0U) << outcome.err;
    EXPECT_EQ(RunShell("\"$cli\" report a.qn2 >/dev/full").status, 1);
}

} // namespace quarnel::test

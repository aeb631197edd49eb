#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

/// The program in a folder of its own, where a test decides what stands beside it.
class CliPlotTest : public CliTest {
protected:
    void SetUp() override {
        const Outcome copied = RunShell("mkdir bin && cp \"$cli\" bin/quarnel-cli");
        ASSERT_EQ(copied.status, 0) << copied.err;
    }
    void PutPainterBeside(std::string_view script) {
        WriteBytes("bin/quarnel-plot", script);
        ASSERT_EQ(RunShell("chmod +x bin/quarnel-plot").status, 0);
    }
};

} // namespace

TEST_F(CliPlotTest, PaintingProgramGetsTheFilesAsTheyAre) {
    PutPainterBeside("#!/bin/sh\nprintf '<%s>' \"$@\"\n");
    const Outcome outcome = RunShell("bin/quarnel-cli plot -o 'a b.pdf' -- '-wéll 1.qn2'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "<-o><a b.pdf><--><-wéll 1.qn2>");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CliPlotTest, StatusOfThePaintingProgramIsOurs) {
    PutPainterBeside("#!/bin/sh\necho \"$0: no\" >&2\nexit 37\n");
    const Outcome outcome = RunShell("bin/quarnel-cli plot -o a.pdf b.qn2");
    EXPECT_EQ(outcome.status, 37);
    EXPECT_NE(outcome.err.find("bin/quarnel-plot: no\n"), std::string::npos);
}

TEST_F(CliPlotTest, MissingPaintingProgramIsTold) {
    const Outcome outcome = RunShell("bin/quarnel-cli plot -o a.pdf b.qn2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "quarnel-cli: The plot needs " + Path("bin/quarnel-plot").toStdString() +
                               ", which cannot be started: No such file or directory\n");
}

} // namespace quarnel::test

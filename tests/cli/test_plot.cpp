#include "tests/cli/CliTestSupport.h"

#include "project/Files.h"

#include <QFile>
#include <cmath>

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

/// The programs as they are installed, beside each other, without a screen.
class CliPictureTest : public CliTest {
protected:
    /// Plots the example to `name`, which must succeed, and gives the picture's bytes.
    std::string Picture(std::string_view name) {
        const Outcome outcome =
            Run({Q("plot"), Q("-o"), Q(name), Example("pratt-county-1998.qn2")});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
        return ReadBytes(name);
    }
};

bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace

TEST_F(CliPlotTest, PaintingProgramGetsTheFilesAsTheyAre) {
    PutPainterBeside("#!/bin/sh\nprintf '<%s>' \"$@\"\n");
    const Outcome outcome = RunShell("bin/quarnel-cli plot -o 'a b.pdf' -- '-wéll 1.qn2'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "<-o><a b.pdf><--><-wéll 1.qn2>");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CliPictureTest, HelpOfThePaintingProgramIsNoFailure) {
    for (const char* option : {"--help", "-h"}) {
        const Outcome outcome =
            RunShell(std::string("\"$(dirname \"$cli\")/quarnel-plot\" ") + option);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out,
                  "Usage: quarnel-plot -o OUT.pdf|OUT.svg|OUT.png [--head-range] FILE\n"
                  "       quarnel-plot -o OUT.pdf|OUT.svg|OUT.png --normalized FILE...\n");
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(CliPlotTest, PaintingProgramIsToldOfTheHeadRange) {
    PutPainterBeside("#!/bin/sh\nprintf '<%s>' \"$@\"\n");
    const Outcome outcome = RunShell("bin/quarnel-cli plot --head-range -o a.svg b.qn2");
    EXPECT_EQ(outcome.out, "<-o><a.svg><--head-range><--><b.qn2>");
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

TEST_F(CliPictureTest, PdfIsThePrintedPage) {
    EXPECT_EQ(Picture("page.pdf").substr(0, 5), "%PDF-");
    const std::string text = RunShell("pdftotext -layout page.pdf -").out;
    for (const std::string_view line :
         {"LUST No.:", "Site Name:", "Well:", "Slug Test Date:", "CGWP:", "Time (sec)", "Y(m)",
          "Hydraulic Conductivity: 3.6 m/day"})
        EXPECT_TRUE(Holds(text, line)) << line << " in\n" << text;
    EXPECT_TRUE(Holds(RunShell("pdfinfo page.pdf").out, "Pages:           1\n"));
}

TEST_F(CliPictureTest, SvgIsThePlotWithItsTextAsText) {
    const std::string svg = Picture("plot.SVG");
    for (const std::string_view part : {">Time (sec)</text>", ">Y(m)</text>", "#ff0000", "#0000ff"})
        EXPECT_TRUE(Holds(svg, part)) << part;
    EXPECT_FALSE(Holds(svg, "CGWP"));
    EXPECT_FALSE(Holds(svg, "<image"));
}

TEST_F(CliPictureTest, HeadRangeIsDrawnOnlyWhereItIsAskedForAndNeverOnThePage) {
    const QString project = Example("pratt-county-1998.qn2");
    const auto picture = [&](std::string_view name) {
        EXPECT_EQ(Run({Q("plot"), Q("--head-range"), Q("-o"), Q(name), project}).status, 0);
        return ReadBytes(name);
    };
    EXPECT_TRUE(Holds(picture("with.svg"), ">0.20-0.30 of H0</text>"));
    EXPECT_FALSE(Holds(Picture("without.svg"), "0.20-0.30"));
    EXPECT_NE(picture("with.png"), Picture("without.png"));
    picture("with.pdf");
    EXPECT_FALSE(Holds(RunShell("pdftotext with.pdf -").out, "0.20-0.30"));
}

TEST_F(CliPictureTest, PngIsThePlotInPixels) {
    EXPECT_EQ(Picture("plot.png").substr(0, 8), "\x89PNG\r\n\x1a\n");
}

TEST_F(CliPictureTest, PicturesNeedNeitherScreenNorHome) {
    const QStringList arguments{Q("plot"), Q("-o"), Q("plot.png"),
                                Example("pratt-county-1998.qn2")};
    const Outcome outcome =
        Run(arguments, {{"DISPLAY", ":987"}, {"QT_QPA_PLATFORM", "xcb"}, {"HOME", "/nowhere"}});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CliPictureTest, HundredThousandScatteredPointsStayAFewMegabytes) {
    std::string rows;
    unsigned noise = 1;
    for (int i = 0; i < 100'000; ++i) {
        noise = noise * 1664525U + 1013904223U;
        const double scatter = 0.8 + 0.4 * (noise >> 8) / double(1 << 24);
        rows += "\"RECDATA\",\"DATAPOINT\",\"" + std::to_string(i / 100.0) + "\",\"" +
                std::to_string(3 * std::exp(-i / 20000.0) * scatter) + "\"\r\n";
    }
    const std::string project = ProjectFileText(SampleProject()).text;
    WriteBytes("long.qn2", project + rows);
    for (const std::string_view name : {"long.pdf", "long.svg", "long.png"}) {
        EXPECT_EQ(Run({Q("plot"), Q("-o"), Q(name), Q("long.qn2")}).status, 0);
        EXPECT_LT(ReadBytes(name).size(), 4'000'000U) << name;
    }
}

TEST_F(CliPictureTest, FileThatIsNoneIsToldAndNothingWritten) {
    WriteBytes("letter.txt", "Dear reader,\n");
    const Outcome outcome = Run({Q("plot"), Q("-o"), Q("a.pdf"), Q("letter.txt")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "letter.txt: " + std::string(NotAnInputFile) + "\n");
    EXPECT_FALSE(QFile::exists(Path("a.pdf")));
}

TEST_F(CliPictureTest, ProjectWithoutAKIsToldAndNothingWritten) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "4"}});
    WriteProject("one.qn2", state);
    const Outcome outcome = Run({Q("plot"), Q("-o"), Q("a.svg"), Q("one.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "one.qn2: " + std::string(TooFewPoints) + "\n");
    EXPECT_FALSE(QFile::exists(Path("a.svg")));
}

TEST_F(CliPictureTest, RisingLineIsToldAndThePointsPlotted) {
    ProjectState state = SampleProject();
    SetReadings(state, {{"0", "1"}, {"10", "2"}, {"20", "3"}});
    WriteProject("rising.qn2", state);
    const Outcome outcome = Run({Q("plot"), Q("-o"), Q("a.svg"), Q("rising.qn2")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "rising.qn2: " + std::string(RisingSlope) + "\n");
    EXPECT_TRUE(Holds(ReadBytes("a.svg"), "#ff0000"));
}

TEST_F(CliPictureTest, UnwritableTargetIsTold) {
    const QStringList arguments{Q("plot"), Q("-o"), Q("no/a.png"),
                                Example("pratt-county-1998.qn2")};
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "no/a.png: 76 Path not found\n");
}

TEST_F(CliPictureTest, PlotNeverReplacesItsProject) {
    WriteProject("own.svg", SampleProject());
    const std::string before = ReadBytes("own.svg");
    ASSERT_TRUE(QFile::link(Path("own.svg"), Path("link.pdf")));
    for (const char* program : {"\"$cli\" plot", "\"${cli%-cli}-plot\""})
        for (const char* out : {"own.svg", "./own.svg", "link.pdf"}) {
            const Outcome outcome = RunShell(std::string(program) + " -o " + out + " own.svg");
            EXPECT_EQ(outcome.status, 2) << program << out;
            EXPECT_TRUE(Holds(outcome.err, ": The plot needs a file of its own.\n")) << outcome.err;
            EXPECT_EQ(ReadBytes("own.svg"), before);
        }
}

TEST_F(CliPictureTest, OtherEndingsAndMissingWordsAreWrongUse) {
    const QString project = Example("pratt-county-1998.qn2");
    for (const QStringList& words :
         {QStringList{Q("-o"), Q("a.jpg"), project}, QStringList{Q("-o"), Q("a.pdf")},
          QStringList{project}, QStringList{Q("-o"), Q("a.pdf"), project, project}}) {
        const Outcome outcome = Run(QStringList{Q("plot")} + words);
        EXPECT_EQ(outcome.status, 2) << words.join(Q(" ")).toStdString();
        EXPECT_TRUE(Holds(outcome.err, "Usage: ")) << outcome.err;
        EXPECT_FALSE(QFile::exists(Path("a.pdf")));
    }
}

TEST_F(CliPictureTest, NamesOfAnyBytesWork) {
    const Outcome outcome =
        RunShell("cp \"$project\" \"$(printf 'w\\351ll.qn2')\" && "
                 "\"$cli\" plot -o \"$(printf 'w\\351ll.png')\" \"$(printf 'w\\351ll.qn2')\" && "
                 "test -s \"$(printf 'w\\351ll.png')\" && rm w*",
                 {{"project", Example("pratt-county-1998.qn2").toStdString()}});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST_F(CliPlotTest, PaintingProgramIsToldOfTheNormalizedPlotAndAllFiles) {
    PutPainterBeside("#!/bin/sh\nprintf '<%s>' \"$@\"\n");
    const Outcome outcome = RunShell("bin/quarnel-cli plot --normalized -o a.svg b.qn2 'c d.qn2'");
    EXPECT_EQ(outcome.out, "<-o><a.svg><--normalized><--><b.qn2><c d.qn2>");
}

TEST_F(CliPictureTest, NormalizedPlotShowsTheTestsOfTheFirstWell) {
    ProjectState state = SampleProject();
    const auto write = [&](std::string_view name, std::string_view well, std::string_view date) {
        state.WellTestIDTxt[WellLabel] = well;
        state.WellTestIDTxt[TestDate] = date;
        WriteProject(name, state);
    };
    write("1.qn2", "MW-1", "2024-03-05");
    write("2.qn2", "MW-2", "2024-03-06");
    write("3.qn2", "mw-1 ", "2024-03-07");
    const QStringList files{Q("1.qn2"), Q("2.qn2"), Q("3.qn2")};
    for (const std::string_view out : {"n.svg", "n.pdf", "n.png"}) {
        const Outcome outcome =
            Run(QStringList{Q("plot"), Q("--normalized"), Q("-o"), Q(out)} + files);
        EXPECT_EQ(outcome.status, 0) << out;
        EXPECT_EQ(outcome.err, "") << out;
    }
    const std::string svg = ReadBytes("n.svg");
    for (const std::string_view part :
         {">No. 1, 2024-03-05, Not Applicable</text>", ">No. 3, 2024-03-07, Not Applicable</text>",
          ">Y/H0</text>", ">Time (sec)</text>"})
        EXPECT_TRUE(Holds(svg, part)) << part;
    EXPECT_FALSE(Holds(svg, "No. 2"));
    EXPECT_EQ(ReadBytes("n.pdf").substr(0, 5), "%PDF-");
    EXPECT_EQ(ReadBytes("n.png").substr(0, 8), "\x89PNG\r\n\x1a\n");
}

TEST_F(CliPictureTest, NormalizedPlotTellsOfFilesItCannotRead) {
    WriteProject("1.qn2", SampleProject());
    WriteBytes("letter.txt", "Dear reader,\n");
    const Outcome outcome =
        Run({Q("plot"), Q("--normalized"), Q("-o"), Q("a.svg"), Q("letter.txt"), Q("1.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Holds(outcome.err, "letter.txt: ")) << outcome.err;
    EXPECT_TRUE(Holds(ReadBytes("a.svg"), ">No. 2, Not Applicable</text>"));
    const Outcome none = Run({Q("plot"), Q("--normalized"), Q("-o"), Q("b.svg"), Q("letter.txt")});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(Holds(none.err, "quarnel-plot: No test is counted.\n")) << none.err;
    EXPECT_FALSE(QFile::exists(Path("b.svg")));
}

TEST_F(CliPictureTest, NormalizedPlotNeverReplacesAProject) {
    WriteProject("1.qn2", SampleProject());
    WriteProject("own.svg", SampleProject());
    const std::string before = ReadBytes("own.svg");
    for (const char* program : {"\"$cli\" plot", "\"${cli%-cli}-plot\""}) {
        const Outcome outcome =
            RunShell(std::string(program) + " --normalized -o own.svg 1.qn2 own.svg");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(ReadBytes("own.svg"), before);
    }
    EXPECT_EQ(Run({Q("plot"), Q("--normalized"), Q("-o"), Q("a.svg")}).status, 2);
    EXPECT_EQ(
        Run({Q("plot"), Q("--normalized"), Q("--head-range"), Q("-o"), Q("a.svg"), Q("1.qn2")})
            .status,
        2);
}

TEST_F(CliPictureTest, APlainLocaleSaysNothingMore) {
    const QStringList arguments{Q("plot"), Q("-o"), Q("plot.png"),
                                Example("pratt-county-1998.qn2")};
    const Outcome outcome = Run(arguments, {{"LC_ALL", "C"}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}

} // namespace quarnel::test

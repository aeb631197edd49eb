#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

class CliCheckTest : public CliTest {};

} // namespace

TEST_F(CliCheckTest, CleanFilesSayTheirFormat) {
    WriteProject("a.qn2", SampleProject());
    const QString old = Example("pratt-county-1998.in");
    const Outcome outcome = Run({Q("check"), Q("a.qn2"), old});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "a.qn2: project file, clean\n" + old.toStdString() + ": old input file, clean\n");
}

TEST_F(CliCheckTest, ItemsPassedOverAreShownByLineAndText) {
    WriteBytes("a.qn2", "\"QUARNEL PROJECT FILE\"\r\n"
                        "\"VERSION\",\"3.0\"\r\n"
                        "\"WELLGEO\",\"COLOUR\",\"red\"\r\n"
                        "\"WEATHER\x1B[31m\"\r\n"
                        "\"END OF FILE\"\r\n");
    const Outcome outcome = Run({Q("check"), Q("a.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "a.qn2: project file\n"
                           "  passed over in line 3: COLOUR\n"
                           "  passed over in line 3: red\n"
                           "  passed over in line 4: WEATHER\uFFFD[31m\n");
}

TEST_F(CliCheckTest, OnlyTheFirstHundredItemsAreShown) {
    std::string bytes = "\"QUARNEL PROJECT FILE\"\r\n";
    for (int i = 1; i <= 103; ++i)
        bytes += "\"X" + std::to_string(i) + "\"\r\n";
    WriteBytes("a.qn2", bytes);
    const std::string out = Run({Q("check"), Q("a.qn2")}).out;
    EXPECT_NE(out.find("  passed over in line 101: X100\n  passed over besides: 3 more\n"),
              std::string::npos);
    EXPECT_EQ(out.find("X101"), std::string::npos);
}

TEST_F(CliCheckTest, FailuresAreShown) {
    WriteBytes("a.qn2", "\"QUARNEL PROJECT FILE\"\r\n"
                        "\"WELLGEO\",\"VERMEASUNITS\",\"ft\",\"one\"\r\n"
                        "\"WELLGEO\",\"RADMEASUNITS\",\"ft\",7\r\n"
                        "\"PLOTINFO\",\"TITLE0\"");
    const Outcome outcome = Run({Q("check"), Q("a.qn2"), Q("b.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "a.qn2: project file\n"
                           "  failed: 13 Type mismatch\n"
                           "  failed: 380 Invalid property value\n"
                           "  failed: 62 Input past end of file\n"
                           "b.qn2: not readable as a project\n"
                           "  failed: 53 File not found\n");
}

TEST_F(CliCheckTest, TextsThatWouldNotReadBackAreNamed) {
    WriteBytes("quoted.in", "The \"old\" title\nClient\nJob \"7\"\nWell\n H  Le  Lw  rc  rw  n\n"
                            "50 10 20 0.2 0.3 0\nRows\n2\nTime (sec) Y (ft) W\n0 4 1\n10 3 1\n");
    const Outcome outcome = Run({Q("check"), Q("quoted.in")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "quoted.in: old input file\n"
                           "  would not read back intact: Client: Job/Account\n"
                           "  would not read back intact: Graph Title 1\n");
}

TEST_F(CliCheckTest, OneBadFileAmongGoodOnesDecides) {
    WriteProject("a.qn2", SampleProject());
    WriteBytes("b.qn2", "");
    const Outcome outcome = Run({Q("check"), Q("b.qn2"), Q("a.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "b.qn2: not readable as a project\n"
                           "  failed: 62 Input past end of file\n"
                           "a.qn2: project file, clean\n");
}

} // namespace quarnel::test

#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

/// Decimal commas as on a German desktop; what counts is the name, whether or not the system has
/// made the locale.
class CliLocaleTest : public CliTest {
protected:
    const Environment german = {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}};

    static ProjectState ProjectWithCommas() {
        ProjectState state = SampleProject();
        state.WellGeoText[GeoDw] = "8,25";
        SetReadings(state, {{"0", "4,5"}, {"10", "3.25"}, {"20,5", "2"}});
        return state;
    }
};

} // namespace

TEST_F(CliLocaleTest, CommaIsNoNumberWithoutTheLocale) {
    WriteProject("a.qn2", ProjectWithCommas());
    const QJsonObject analysis = AnalyzeJson({Q("a.qn2")}, 1).at(0).toObject();
    EXPECT_EQ(Messages(analysis).front(), "Well Geometry: dw, well borehole diameter, cannot be "
                                          "evaluated as a number. Please re-enter.");
}

TEST_F(CliLocaleTest, CommaAndPointAreReadInTheLocale) {
    WriteProject("a.qn2", ProjectWithCommas());
    const QJsonObject analysis = AnalyzeJson({Q("a.qn2")}, 0, german).at(0).toObject();
    const QJsonArray points = analysis.value(Q("points")).toArray();
    EXPECT_EQ(points.at(0).toObject().value(Q("y")), 4.5);
    EXPECT_EQ(points.at(0).toObject().value(Q("level_text")), Q("4,5"));
    EXPECT_EQ(points.at(0).toObject().value(Q("y_text")), Q(" 4.5"));
    EXPECT_EQ(points.at(1).toObject().value(Q("y")), 3.25);
    EXPECT_EQ(points.at(2).toObject().value(Q("time_sec")), 20.5);
}

TEST_F(CliLocaleTest, OutputIsTheSameInEveryLocale) {
    const QString path = Example("pratt-county-1998.qn2");
    for (const char* format : {"table", "json", "csv"}) {
        const QStringList arguments = {Q("analyze"), Q("--format"), Q(format), path};
        const Outcome outcome = Run(arguments, german);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, Run(arguments).out);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(CliLocaleTest, OldInputFileIsImportedWithTheLocalesSeparator) {
    const QString path = Example("pratt-county-1998.in");
    const QJsonObject analysis = AnalyzeJson({path}, 0, german).at(0).toObject();
    const QJsonObject first = analysis.value(Q("points")).toArray().at(0).toObject();
    EXPECT_EQ(first.value(Q("time_text")), Q("0,1"));
    EXPECT_EQ(first.value(Q("time_sec")), 0.1);
    const QJsonObject plain = AnalyzeJson({path}, 0).at(0).toObject();
    EXPECT_EQ(analysis.value(Q("k")), plain.value(Q("k")));
    EXPECT_EQ(Run({Q("convert"), path, Q("out.qn2")}, german).status, 0);
    EXPECT_NE(ReadBytes("out.qn2").find("\"DATAPOINT\",\"0,1\",\"0,663\""), std::string::npos);
}

TEST_F(CliLocaleTest, PlainLocaleGivesNoWarning) {
    WriteProject("ä.qn2", SampleProject());
    for (const char* locale : {"C", "POSIX", "de_DE.ISO-8859-1", "xx_YY", ""}) {
        const Outcome outcome =
            Run({Q("analyze"), Q("--format"), Q("csv"), Q("ä.qn2")}, {{"LC_ALL", locale}});
        EXPECT_EQ(outcome.status, 0) << locale;
        EXPECT_EQ(outcome.err, "") << locale;
        EXPECT_NE(outcome.out.find("\n\"ä.qn2\",\"MW-1\",0,"), std::string::npos) << locale;
    }
}

} // namespace quarnel::test

#pragma once

#include "tests/SourceFolder.h"
#include "tests/cli/CliTestSupport.h"

#include <QJsonDocument>

namespace quarnel::test {

/// Runs quarnel-cli import on files of its folder; the project is always out.qn2.
class CliImportTest : public CliTest {
protected:
    Outcome Import(const std::string& file, const QStringList& options = {},
                   const Environment& extra = {}) {
        return Run(QStringList{Q("import"), Q(file), Q("-o"), Q("out.qn2")} + options, extra);
    }

    /// The object that import prints; checks status 0 and what stands on standard error.
    QJsonObject ImportJson(const std::string& file, const QStringList& options = {},
                           const std::string& expectedErr = "") {
        const Outcome outcome = Import(file, QStringList{Q("--format"), Q("json")} + options);
        EXPECT_EQ(outcome.status, 0) << file << ' ' << options.join(Q(" ")).toStdString();
        EXPECT_EQ(outcome.err, expectedErr);
        return Parsed(outcome.out);
    }

    static QJsonObject Parsed(const std::string& out) {
        QJsonParseError fault;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(out), &fault);
        EXPECT_EQ(fault.error, QJsonParseError::NoError) << fault.errorString().toStdString();
        EXPECT_TRUE(document.isObject());
        return document.object();
    }

    /// Every reason to refuse leaves standard output empty, in both formats, and an existing
    /// project as it was.
    void ExpectFault(const std::string& file, const std::string& message,
                     const QStringList& options = {}) {
        for (const char* format : {"table", "json"}) {
            WriteBytes("out.qn2", "old");
            const Outcome outcome = Import(file, QStringList{Q("--format"), Q(format)} + options);
            EXPECT_EQ(outcome.status, 1) << message;
            EXPECT_EQ(outcome.out, "") << message;
            EXPECT_EQ(outcome.err, message);
            EXPECT_EQ(ReadBytes("out.qn2"), "old") << message;
        }
    }

    /// A logger's file of the given cases; it comes from a real layout.
    static std::string Case(const std::string& name) {
        return test::SourceFolder() + "/tests/loggerfiles/cases/" + name;
    }

    ProjectState Imported();
};

/// Twenty readings at 5, then 4 and back towards 5: a table with a clock time every two seconds.
std::string ClockTable(const std::string& heading = "Time,Level (m)");
/// The same with the seconds since the first row, and no heading.
std::string SecondsTable(double secondsPerUnit = 1);

/// A reading a month, on the day after the month's own number: as month/day and as day/month the
/// times rise, in steps of 30, 31 and 32 days. The test begins in the seventh row.
std::string TableOfEitherDateOrder();

/// "time level" of each row, joined by "; ".
std::string Rows(const QJsonObject& import);

} // namespace quarnel::test

#include "tests/cli/CliTestSupport.h"
#include "tests/SourceFolder.h"

#include "project/Files.h"
#include "project/TextEncoding.h"

#include <QFile>
#include <QJsonDocument>
#include <QProcess>

namespace quarnel::test {

QString Q(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString Example(std::string_view name) {
    return Q(test::SourceFolder() + "/examples/") + Q(name);
}

Outcome CliTest::Start(const QString& program, const QStringList& arguments,
                       const Environment& extra) {
    QProcessEnvironment environment;
    environment.insert(Q("PATH"), Q("/usr/bin:/bin"));
    environment.insert(Q("HOME"), folder_.path());
    environment.insert(Q("LC_ALL"), Q("C.UTF-8"));
    environment.insert(Q("cli"), Q(QUARNEL_CLI));
    for (const auto& [name, value] : extra)
        environment.insert(Q(name), Q(value));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder_.path());
    process.start(program, arguments);
    process.waitForFinished(-1);
    Outcome outcome;
    if (process.exitStatus() == QProcess::NormalExit && process.error() == QProcess::UnknownError)
        outcome.status = process.exitCode();
    outcome.out = process.readAllStandardOutput().toStdString();
    outcome.err = process.readAllStandardError().toStdString();
    return outcome;
}

Outcome CliTest::Run(const QStringList& arguments, const Environment& extra) {
    return Start(Q(QUARNEL_CLI), arguments, extra);
}

Outcome CliTest::RunShell(std::string_view line, const Environment& extra) {
    return Start(Q("/bin/sh"), {Q("-c"), Q(line)}, extra);
}

QJsonArray CliTest::AnalyzeJson(const QStringList& files, int expectedStatus,
                                const Environment& extra) {
    const Outcome outcome = Run(QStringList{Q("analyze"), Q("--format"), Q("json")} + files, extra);
    EXPECT_EQ(outcome.status, expectedStatus);
    EXPECT_EQ(outcome.err, "");
    QJsonParseError fault;
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out), &fault);
    EXPECT_EQ(fault.error, QJsonParseError::NoError) << fault.errorString().toStdString();
    EXPECT_TRUE(document.isArray());
    EXPECT_EQ(document.array().size(), files.size());
    return document.array();
}

QJsonObject CliTest::AnalyzeOne(const ProjectState& state, int expectedStatus) {
    WriteProject("one.qn2", state);
    return AnalyzeJson({Q("one.qn2")}, expectedStatus).at(0).toObject();
}

QString CliTest::Path(std::string_view name) const {
    return folder_.filePath(Q(name));
}

void CliTest::WriteBytes(std::string_view name, std::string_view bytes) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())),
              static_cast<qint64>(bytes.size()));
}

void CliTest::WriteProject(std::string_view name, const ProjectState& state) const {
    WriteBytes(name, EncodeFileText(ProjectFileText(state).text));
}

std::string CliTest::ReadBytes(std::string_view name) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll().toStdString();
}

ProjectState SampleProject() {
    ProjectState state;
    state.WellTestIDTxt[WellLabel] = "MW-1";
    state.WellGeoText = {"50", "20", "10", "8", "4", "0"};
    state.RecDatDataTypeDDL = ChangeInHead;
    SetReadings(state, {{"0", "4"}, {"10", "3"}, {"20", "2.25"}, {"30", "1.6875"}, {"40", "1.25"}});
    return state;
}

void SetReadings(ProjectState& state,
                 const std::vector<std::pair<std::string, std::string>>& readings) {
    state.RecDatGrid.clear();
    for (const auto& [time, level] : readings)
        state.RecDatGrid.push_back({CellText(time), CellText(level)});
}

std::vector<std::string> Messages(const QJsonObject& analysis) {
    std::vector<std::string> messages;
    for (const QJsonValue message : analysis.value(Q("messages")).toArray())
        messages.push_back(message.toString().toStdString());
    return messages;
}

} // namespace quarnel::test

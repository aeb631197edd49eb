// The real program, started as a desktop starts it, on a virtual X server: what the person in front
// of the screen sees in the title bar.

#include "tests/gui/SourceFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quarnel::windowtest {

using namespace Qt::StringLiterals;

namespace {

const QString Title = u"Quarnel: Bouwer-Rice Slug Test Analysis"_s;
const QString Examples = SourceFile("examples");

/// What a program that has ended left.
struct Ended {
    int status = -1;
    QString out;
    QString err;
};

} // namespace

class TestStartedProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// One screen for all tests; the server itself chooses a free number and prints it.
    void initTestCase() {
        server_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // A server that resets itself after its last client turns away one that comes meanwhile.
        server_.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1024x768x24"_s,
                                  u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
        QVERIFY2(server_.waitForStarted(-1), "Xvfb is needed");
        QVERIFY(server_.waitForReadyRead(-1));
        display_ = u":"_s + QString::fromLatin1(server_.readAllStandardOutput().trimmed());
        QVERIFY(display_.size() > 1);
    }

    void cleanupTestCase() { End(server_); }

    void cleanup() {
        if (program_.state() != QProcess::NotRunning)
            End(program_);
    }

    void WithoutAProjectTheTitleIsTheProgramsAlone() {
        Start({});
        QCOMPARE(TitleOfWindow(u"^Quarnel: "_s), Title);
    }

    void AProjectGivenOnTheCommandLineIsOpened() {
        const QString path = Examples + u"/pratt-county-1998.qn2"_s;
        Start({path});
        QCOMPARE(TitleOfWindow(u"^Quarnel: .*/ "_s), Title + u"/ "_s + path);
    }

    void ANameWithoutFolderBecomesAFullPath() {
        Start({u"pratt-county-1998.in"_s});
        QCOMPARE(TitleOfWindow(u"^Quarnel: .*/ "_s),
                 Title + u"/ "_s + Examples + u"/pratt-county-1998.in"_s);
    }

    /// Opened and saved by its own bytes; the title shows a mark for what is no text.
    void ANameThatIsNoTextIsOpenedAndSaved() {
        const QTemporaryDir folder;
        const std::string sub = folder.path().toStdString() + "/f\377r";
        const std::string path = sub + "/w\351ll.qn2";
        std::filesystem::create_directory(sub);
        const std::string example = Examples.toStdString() + "/pratt-county-1998.qn2";
        std::filesystem::copy_file(example, path);
        // QProcess would make a text of the name.
        WriteScript(folder.filePath(u"start"_s), "#!/bin/sh\ncd '" + folder.path().toUtf8() +
                                                     "' && exec '" QUARNEL_PROGRAM
                                                     "' \"$(printf 'f\\377r/w\\351ll.qn2')\"\n");
        program_.setProcessEnvironment(Environment(display_));
        program_.setProcessChannelMode(QProcess::ForwardedChannels);
        program_.start(folder.filePath(u"start"_s), QStringList());
        QVERIFY(program_.waitForStarted(-1));
        const QString shown = folder.path() + u"/f\uFFFDr/w\uFFFDll.qn2"_s;
        QCOMPARE(TitleOfWindow(u"^Quarnel: .*/ "_s), Title + u"/ "_s + shown);
        const auto before = std::filesystem::last_write_time(path);
        Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quarnel: "_s, u"windowfocus"_s,
             u"--sync"_s, u"key"_s, u"ctrl+s"_s});
        while (std::filesystem::last_write_time(path) == before && !program_.waitForFinished(20))
            continue;
        QCOMPARE(program_.state(), QProcess::Running);
        QFile saved(QString::fromStdString(example));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        std::ifstream file(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file),
                                std::istreambuf_iterator<char>()};
        QCOMPARE(bytes, saved.readAll().toStdString());
    }

    void AMissingProjectIsToldInABoxAndTheProgramGoesOn() {
        Start({u"missing.qn2"_s});
        QCOMPARE(TitleOfWindow(u"^Quarnel$"_s), u"Quarnel"_s);
        QCOMPARE(TitleOfWindow(u"^Quarnel: "_s), Title);
        QCOMPARE(program_.state(), QProcess::Running);
    }

    /// What was typed is offered at the next start, and a request to end is heard meanwhile.
    void WhatWasTypedOutlivesARequestToEnd() {
        Start({});
        QCOMPARE(TitleOfWindow(u"^Quarnel: "_s), Title);
        Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quarnel: "_s, u"windowfocus"_s,
             u"--sync"_s, u"type"_s, u"7713"_s});
        QString copy;
        // The keys are on their way through the server: a request that comes first finds nothing.
        for (int tries = 0; copy.isEmpty(); ++tries) {
            QTest::qWait(50 << std::min(tries, 5));
            End(program_);
            QCOMPARE(program_.exitStatus(), QProcess::NormalExit);
            QCOMPARE(program_.exitCode(), 0);
            copy = Copy();
            QVERIFY(tries < 6 || !copy.isEmpty());
            if (copy.isEmpty()) {
                Start({});
                TitleOfWindow(u"^Quarnel: "_s);
                Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quarnel: "_s,
                     u"windowfocus"_s, u"--sync"_s, u"type"_s, u"7713"_s});
            }
        }
        QVERIFY2(copy.contains(u"7713"_s), qPrintable(copy));

        // Ended while the question stands: nothing was answered.
        Start({u"pratt-county-1998.qn2"_s});
        QCOMPARE(TitleOfWindow(u"^Quarnel$"_s), u"Quarnel"_s);
        End(program_);
        QCOMPARE(program_.exitStatus(), QProcess::NormalExit);
        QCOMPARE(Copy(), copy);

        Start({u"pratt-county-1998.qn2"_s});
        QCOMPARE(TitleOfWindow(u"^Quarnel$"_s), u"Quarnel"_s);
        Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quarnel$"_s, u"windowfocus"_s,
             u"--sync"_s, u"key"_s, u"Return"_s});
        while (!Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quarnel$"_s}).isEmpty() &&
               !program_.waitForFinished(20))
            continue;
        QCOMPARE(TitleOfWindow(u"^Quarnel: "_s), Title);
        End(program_);
        QCOMPARE(Copy(), copy);
    }

    void TwoProjectsAreRefused() {
        const Ended ended = Finish({u"a.qn2"_s, u"b.qn2"_s}, display_);
        QCOMPARE(ended.status, 2);
        QCOMPARE(ended.err, u"quarnel: one project at a time; see quarnel --help\n"_s);
    }

    void HelpAndVersionNeedNoScreen() {
        const Ended version = Finish({u"--version"_s}, QString());
        QCOMPARE(version.status, 0);
        QCOMPARE(version.out, u"quarnel 3.0.0\n"_s);
        const Ended help = Finish({u"--help"_s}, QString());
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(u"Bouwer-Rice"_s) && help.out.contains(u"[project]"_s));
    }

private:
    QProcessEnvironment Environment(const QString& display) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.insert(u"XDG_CONFIG_HOME"_s, home_.path());
        environment.insert(u"XDG_DATA_HOME"_s, home_.path());
        environment.insert(u"XDG_RUNTIME_DIR"_s, home_.path());
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        // The message bus's library never gives back what it has read of the bus's address; with
        // the address sanitizer that would end the program as failed.
        environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
        environment.remove(u"DISPLAY"_s);
        if (!display.isEmpty())
            environment.insert(u"DISPLAY"_s, display);
        return environment;
    }

    /// The one recovery copy there is; "" without one.
    QString Copy() const {
        const QDir folder(home_.path() + u"/quarnel/quarnel/recovery"_s);
        const QStringList names = folder.entryList({u"*.qn2"_s}, QDir::Files);
        QFile file(folder.filePath(names.value(0)));
        return names.size() == 1 && file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll())
                   : QString();
    }

    void Start(const QStringList& arguments) {
        program_.setProcessEnvironment(Environment(display_));
        program_.setWorkingDirectory(Examples);
        program_.setProcessChannelMode(QProcess::ForwardedChannels);
        program_.start(QStringLiteral(QUARNEL_PROGRAM), arguments);
        QVERIFY(program_.waitForStarted(-1));
    }

    static void WriteScript(const QString& path, const QByteArray& text) {
        QFile script(path);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write(text);
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    Ended Finish(const QStringList& arguments, const QString& display) const {
        QProcess program;
        program.setProcessEnvironment(Environment(display));
        program.start(QStringLiteral(QUARNEL_PROGRAM), arguments);
        program.waitForFinished(-1);
        return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                QString::fromUtf8(program.readAllStandardOutput()),
                QString::fromUtf8(program.readAllStandardError())};
    }

    static void End(QProcess& process) {
        process.terminate();
        process.waitForFinished(-1);
    }

    QString Ask(const QStringList& arguments) const {
        QProcess xdotool;
        xdotool.setProcessEnvironment(Environment(display_));
        xdotool.start(u"xdotool"_s, arguments);
        xdotool.waitForFinished(-1);
        return QString::fromUtf8(xdotool.readAllStandardOutput());
    }

    /// Waits for a visible window whose title the pattern fits; "" when the program ends first.
    QString TitleOfWindow(const QString& pattern) {
        while (!program_.waitForFinished(20)) {
            const QStringList found =
                Ask({u"search"_s, u"--onlyvisible"_s, u"--name"_s, pattern}).split(u'\n');
            if (!found.constFirst().isEmpty()) {
                QString title = Ask({u"getwindowname"_s, found.constFirst()});
                title.chop(1); // the line's end
                return title;
            }
        }
        return QString();
    }

    QTemporaryDir home_;
    QProcess server_;
    QProcess program_;
    QString display_;
};

} // namespace quarnel::windowtest

QTEST_GUILESS_MAIN(quarnel::windowtest::TestStartedProgram)
#include "test_started_program.moc"

// The recovery copy where things go wrong: the window is killed in mid-typing, the disk is full.
// The file calls of this program go through a library that lets them fail.

#include "app/RecoveryCopy.h"
#include "tests/gui/WindowTestSupport.h"

#include <QDir>
#include <QProcess>
#include <QPushButton>
#include <cstdio>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");

QStringList Copies() {
    return QDir(RecoveryFolder()).entryList({u"*.qn2"_s}, QDir::Files);
}
void TypeWell(Program& program, const QString& text) {
    program.ClickTab(2);
    TypeInto(program.Find<QLineEdit>(u"WellTestIDTxt"_s, 0), text);
}
QTimer& CopyTimer(Program& program) {
    return Find<QTimer>(program.Window(), u"RecoveryTimer"_s);
}

/// Types until it is killed, and tells each text that a copy on disk holds by then.
int TypeForEver() {
    Program program;
    CopyTimer(program).setInterval(1);
    for (int count = 1;; ++count) {
        const QString text = u"MW-%1."_s.arg(count);
        TypeWell(program, text);
        QFile copy;
        do {
            QTest::qWait(1);
            copy.close();
            copy.setFileName(QDir(RecoveryFolder()).filePath(Copies().value(0)));
        } while (!copy.open(QIODevice::ReadOnly) || !copy.readAll().contains(text.toUtf8()));
        std::printf("%d\n", count);
        std::fflush(stdout);
    }
}

/// While it lives, this call fails in the folder of the copies as on a full disk.
class FullDisk {
public:
    explicit FullDisk(const char* call) {
        qputenv("QUARNEL_FAIL_ERRNO", QByteArray::number(ENOSPC));
        qputenv("QUARNEL_FAIL_NAME", call);
    }
    ~FullDisk() { qunsetenv("QUARNEL_FAIL_NAME"); }
};

} // namespace

class TestRecoveryFaults : public QObject {
    Q_OBJECT
private:
    static QString Status(Program& program) { return program.Find<QLabel>(u"StatusText"_s).text(); }
    static void Restore(Answers& answers) {
        answers.Dialog<QMessageBox>([](QMessageBox& box) {
            QTest::mouseClick(&Find<QPushButton>(box, u"CmdRestore"_s), Qt::LeftButton);
        });
    }
    /// Leaves the copy of a well by a window that ends without saying so.
    static void LeaveCopy(const QString& well) {
        Program program;
        TypeWell(program, well);
        program.Window().KeepRecoveryCopy();
    }

private Q_SLOTS:
    void init() {
        QDir(RecoveryFolder()).removeRecursively();
        qputenv("QUARNEL_FAIL_FOLDER", QFile::encodeName(RecoveryFolder()));
    }

    void AWindowKilledInMidTypingLeavesWhatItLastCopied() {
        QProcess typing;
        typing.start(QCoreApplication::applicationFilePath(), {u"type-for-ever"_s});
        QVERIFY(typing.waitForStarted(-1));
        int told = 0;
        while (told < 5) {
            QVERIFY(typing.canReadLine() || typing.waitForReadyRead(-1));
            while (typing.canReadLine())
                told = typing.readLine().trimmed().toInt();
        }
        typing.kill();
        QVERIFY(typing.waitForFinished(-1));
        Program next;
        Answers answers;
        Restore(answers);
        QVERIFY(next.Window().OfferLeftCopies());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const QString well = ToQString(next.State().WellTestIDTxt[WellLabel]);
        QVERIFY2(well.startsWith(u"MW-"_s) && well.mid(3).section(u'.', 0, 0).toInt() >= told,
                 qPrintable(well));
    }

    void AFullDiskIsToldOnceAndTheTypingGoesOn_data() {
        QTest::addColumn<QByteArray>("call");
        for (const char* call : {"write", "fsync", "rename", "open"})
            QTest::newRow(call) << QByteArray(call);
    }
    void AFullDiskIsToldOnceAndTheTypingGoesOn() {
        QFETCH(QByteArray, call);
        Program program;
        Answers noBox;
        auto& timer = CopyTimer(program);
        auto& status = program.Find<QLabel>(u"StatusText"_s);
        {
            const FullDisk disk(call);
            timer.setInterval(1);
            TypeWell(program, u"MW-1"_s);
            QTRY_VERIFY(status.text().startsWith(u"No recovery copy could be written: "_s));
            timer.stop();
            status.clear();
            TypeWell(program, u"MW-2"_s);
            program.Window().KeepRecoveryCopy();
            QCOMPARE(status.text(), QString());
            QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-2");
        }
        program.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 1);
        // It works again, so that the next failure is told again.
        {
            const FullDisk disk("fsync");
            TypeWell(program, u"MW-3"_s);
            program.Window().KeepRecoveryCopy();
            QVERIFY(status.text().startsWith(u"No recovery copy could be written: "_s));
        }
        QVERIFY2(noBox.AllGiven(), noBox.Complaints());
    }

    void RestoringOnAFullDiskKeepsTheCopyUntilThereIsAnother() {
        LeaveCopy(u"MW-9"_s);
        const QStringList left = Copies();
        QCOMPARE(left.size(), 1);
        Program program;
        {
            const FullDisk disk("fsync");
            Answers answers;
            Restore(answers);
            QVERIFY(program.Window().OfferLeftCopies());
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-9");
            QCOMPARE(Copies(), left);
        }
        program.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 1);
        QVERIFY(Copies() != left);
    }

    void WhatIsReplacedOnAFullDiskComesBack() {
        Program program;
        TypeWell(program, u"MW-1"_s);
        const FullDisk disk("fsync");
        program.Window().OpenPath(Example);
        QVERIFY(Status(program).contains(u"What was not saved is kept"_s));
        QTest::mouseClick(&program.Find(u"StatusOffer"_s), Qt::LeftButton);
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-1");
    }
};

/// Started by the tests themselves it only types.
int RunFaults(int argc, char** argv) {
    if (argc == 2 && QByteArray(argv[1]) == "type-for-ever") {
        QuarnelApplication application(argc, argv);
        return TypeForEver();
    }
    return Run<TestRecoveryFaults>(argc, argv);
}

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    return quarnel::windowtest::RunFaults(argc, argv);
}
#include "test_recovery_faults.moc"

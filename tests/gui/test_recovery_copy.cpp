// The copy of a project in work that outlives a crash: written, offered, restored, removed.

#include "app/RecentProjects.h"
#include "app/RecoveryCopy.h"
#include "project/ProjectFileDialogs.h"
#include "tests/gui/WindowTestSupport.h"

#include <QDir>
#include <QPushButton>

namespace quarnel::windowtest {

class TestRecoveryCopy : public QObject {
    Q_OBJECT
private:
    static QStringList Copies() {
        return QDir(RecoveryFolder()).entryList({u"*.qn2"_s}, QDir::Files);
    }
    static QString PathOf(const QString& name) {
        return QDir(RecoveryFolder()).filePath(name);
    }
    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What a window that was killed leaves: its copy, and nobody who holds its lock.
    static void LeaveCopy(const QByteArray& project, const QByteArray& path) {
        QDir().mkpath(RecoveryFolder());
        QFile copy(PathOf(u"99-0.qn2"_s));
        QVERIFY(copy.open(QIODevice::WriteOnly) && copy.write(project) == project.size());
        QFile note(PathOf(u"99-0.qn2.path"_s));
        QVERIFY(note.open(QIODevice::WriteOnly) && note.write(path) == path.size());
    }
    static QByteArray Project(const QByteArray& well) {
        return "\"QUARNEL PROJECT FILE\"\r\n\"WELLID\",\"WELLLABEL\",\"" + well +
               "\"\r\n\"RECDATA\",\"DATAPOINT\",\"1\",\"2\"\r\n\"END OF FILE\"\r\n";
    }
    static void TypeWell(Program& program, const QString& text) {
        program.ClickTab(2);
        TypeInto(program.Find<QLineEdit>(u"WellTestIDTxt"_s, 0), text);
    }
    /// Answers the offer by the button called `name`.
    static void Offer(Answers& answers, const QString& part, const char* name) {
        answers.Dialog<QMessageBox>([part, name](QMessageBox& box) {
            QVERIFY2(box.text().contains(part), qPrintable(box.text()));
            QCOMPARE(qobject_cast<QPushButton*>(box.defaultButton())->objectName(),
                     u"CmdRestore"_s);
            QTest::mouseClick(&Find<QPushButton>(box, QLatin1String(name)), Qt::LeftButton);
        });
    }

private Q_SLOTS:
    void init() { QDir(RecoveryFolder()).removeRecursively(); }

    void NothingTypedNeedsNoCopy() {
        Program program;
        program.Window().KeepRecoveryCopy();
        QVERIFY(Copies().isEmpty());
    }

    void ATypedTextIsKeptWhenItsTimeHasCome() {
        Program program;
        TypeWell(program, u"MW-77"_s);
        QVERIFY(Copies().isEmpty());
        auto& timer = program.Find<RecoveryCopy>(QString()); // the only one
        timer.findChild<QTimer*>(u"RecoveryTimer"_s)->start(1);
        QTRY_COMPARE(Copies().size(), 1);
        QTRY_VERIFY(Bytes(PathOf(Copies().constFirst())).contains("MW-77"));
    }

    void ReadingsAndMarksAreChangesToo() {
        Program program;
        program.ClickTab(4);
        QTest::keyClicks(&program.Find(u"RecDatGrid"_s), u"12.5"_s);
        program.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 1);
        QVERIFY(Bytes(PathOf(Copies().constFirst())).contains("\"12.5\""));
    }

    void ACleanEndRemovesTheCopy() {
        Program program;
        TypeWell(program, u"MW-77"_s);
        program.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 1);
        Answers answers;
        answers.Box(u"Confirm Exit"_s, u"Exit QUARNEL? (Unsaved data will be lost.)"_s,
                    QMessageBox::Ok);
        program.Window().close();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Copies().isEmpty());
    }

    void ASavedProjectNeedsNoCopy() {
        const QTemporaryDir folder;
        Program program;
        TypeWell(program, u"MW-77"_s);
        program.Window().KeepRecoveryCopy();
        Answers answers;
        answers.FileName(folder.filePath(u"saved.qn2"_s));
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Copies().isEmpty());
        program.Window().KeepRecoveryCopy();
        QVERIFY(Copies().isEmpty());
    }

    void NewKeepsWhatItThrowsAway() {
        Program program;
        TypeWell(program, u"MW-77"_s);
        Answers answers;
        answers.BoxAbout(u"New Project will clear existing data."_s, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(Copies().size(), 1);
        QVERIFY(Bytes(PathOf(Copies().constFirst())).contains("MW-77"));
    }

    void ALeftCopyIsRestoredUnderItsProjectsName() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"well.qn2"_s);
        LeaveCopy(Project("MW-9"), path.toUtf8());
        Program program;
        const QStringList recent = RecentProjects::Paths();
        const QString start = FolderToStartIn();
        Answers answers;
        Offer(answers, path, "CmdRestore");
        QVERIFY(program.Window().OfferLeftCopies());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        // The folder of the copies is no place that anybody has worked in.
        QCOMPARE(RecentProjects::Paths(), recent);
        QCOMPARE(FolderToStartIn(), start);
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-9");
        QCOMPARE(program.State().RecDatGrid[0].level.ToString(), "2");
        QVERIFY(program.Window().windowTitle().endsWith(path));
        QVERIFY(!QFile::exists(PathOf(u"99-0.qn2"_s)));
        // Until it is saved it is worth a copy of this window's own.
        QCOMPARE(Copies().size(), 1);
        program.Choose(u"mnuFileSave"_s);
        QVERIFY(Bytes(path).contains("MW-9"));
        QVERIFY(Copies().isEmpty());
    }

    void ADiscardedCopyIsGone() {
        LeaveCopy(Project("MW-9"), "");
        Program program;
        Answers answers;
        Offer(answers, u"a project that was not saved yet"_s, "CmdDiscard");
        QVERIFY(!program.Window().OfferLeftCopies());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Copies().isEmpty());
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "");
    }

    void ADamagedCopyIsOpenedAsAnyDamagedFile() {
        LeaveCopy("\"QUARNEL PROJECT FILE\"\r\n\"WELLID\",\"WELLLABEL\",\"MW-9\"\r\n\"RECDATA\","
                  "\"DATAPOINT\",\"1\"",
                  "/data/well.qn2");
        Program program;
        Answers answers;
        Offer(answers, u"/data/well.qn2"_s, "CmdRestore");
        answers.Box(u"Quarnel"_s, u"62 Input past end of file"_s);
        QVERIFY(program.Window().OfferLeftCopies());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-9");
        QCOMPARE(program.State().RecDatGrid[0].time.ToString(), "1");
    }

    void ARunningWindowsCopyIsNotOffered() {
        Program running;
        TypeWell(running, u"MW-77"_s);
        running.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 1);
        Program second;
        QVERIFY(!second.Window().OfferLeftCopies());
        TypeWell(second, u"MW-78"_s);
        second.Window().KeepRecoveryCopy();
        QCOMPARE(Copies().size(), 2);
    }

    void AFolderThatCannotBeMadeIsToldOnce() {
        const QString folder = RecoveryFolder();
        QDir().mkpath(QFileInfo(folder).path());
        QFile inTheWay(folder);
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        Program program;
        TypeWell(program, u"MW-77"_s);
        program.Window().KeepRecoveryCopy();
        auto& status = program.Find<QLabel>(u"StatusText"_s);
        QVERIFY(status.text().startsWith(u"No recovery copy could be written: "_s));
        status.clear();
        program.Window().KeepRecoveryCopy();
        QCOMPARE(status.text(), QString());
        inTheWay.remove();
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestRecoveryCopy)
#include "test_recovery_copy.moc"

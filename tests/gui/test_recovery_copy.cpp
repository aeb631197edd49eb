// The copy of a project in work that outlives a crash: written, offered, restored, removed.

#include "app/RecentProjects.h"
#include "app/RecoveryCopy.h"
#include "project/ProjectFileDialogs.h"
#include "tests/gui/WindowTestSupport.h"

#include <QDir>
#include <QPushButton>
#include <QTableView>
#include <array>
#include <cstddef>

namespace quarnel::windowtest {

namespace {
const QString Example = SourceFile("examples/pratt-county-1998.qn2");
}

class TestRecoveryCopy : public QObject {
    Q_OBJECT
private:
    static QStringList Copies() {
        return QDir(RecoveryFolder()).entryList({u"*.qn2"_s}, QDir::Files);
    }
    static QString PathOf(const QString& name) { return QDir(RecoveryFolder()).filePath(name); }
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
    static void TypeReading(Program& program, const QString& text) {
        auto& grid = program.Find<QTableView>(u"RecDatGrid"_s);
        grid.setCurrentIndex(grid.model()->index(0, 1));
        QTest::keyClicks(&grid, text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    static QString Status(Program& program) { return program.Find<QLabel>(u"StatusText"_s).text(); }
    /// The entries of Open Recent for replaced work.
    static QStringList BackEntries(Program& program) {
        auto& menu = program.Find<QMenu>(u"mnuOpenRecent"_s);
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction* action : menu.actions())
            if (action->objectName().startsWith(u"mnuBringBack_"_s))
                texts.append(action->text());
        return texts;
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
    void init() {
        QDir(RecoveryFolder()).removeRecursively();
        QFile::remove(RecoveryFolder()); // what a test that failed put in its way
    }

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

    void TheEndOfASessionKeepsACopy() {
        Program program;
        TypeWell(program, u"MW-77"_s);
        // The request of a desktop; nobody looks into its manager.
        alignas(void*) std::array<std::byte, 64> manager{};
        Q_EMIT qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(manager.data()));
        QCOMPARE(Copies().size(), 1);
        QVERIFY(Bytes(PathOf(Copies().constFirst())).contains("MW-77"));
    }

    void ACellBeingEditedIsKeptToo() {
        Program program;
        program.ClickTab(4);
        program.Find(u"RecDatGrid"_s).setFocus();
        QTest::keyClicks(&program.Find(u"RecDatGrid"_s), u"12.5"_s);
        program.Window().OpenPath(Example);
        QCOMPARE(Copies().size(), 1);
        QVERIFY(Bytes(PathOf(Copies().constFirst())).contains("\"12.5\""));
    }

    /// The texts, a double quote among them that no file gives back, and the readings.
    void WhatOpenReplacesIsBroughtBackByTheOffer() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"well.qn2"_s);
        QVERIFY(QFile::copy(Example, path));
        Program program;
        program.Window().OpenPath(path);
        program.ClickTab(4);
        TypeReading(program, u"77.5"_s);
        TypeWell(program, u"5\" casing"_s);
        program.Window().OpenPath(SourceFile("examples/every-field.qn2"));
        QCOMPARE(Status(program), u"Opened %1. What was not saved is kept, of %2"_s.arg(
                                      SourceFile("examples/every-field.qn2"), path));
        auto& offer = program.Find<QPushButton>(u"StatusOffer"_s);
        QVERIFY(offer.isVisible());
        QCOMPARE(offer.text(), u"Brin&g Back"_s);
        program.ClickTab(2);
        QVERIFY(offer.isVisible()); // looking around withdraws nothing
        QTest::mouseClick(&offer, Qt::LeftButton);
        QCOMPARE(Status(program), u"Brought back %1. It is not saved yet"_s.arg(path));
        QVERIFY(!offer.isVisible());
        QVERIFY(program.Window().windowTitle().endsWith(path));
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "5\" casing");
        QCOMPARE(program.State().RecDatGrid[0].time.ToString(), "77.5");
        QCOMPARE(BackEntries(program), QStringList());
        QCOMPARE(Copies().size(), 1);
        // It is unsaved as it was.
        program.Window().OpenPath(Example);
        QVERIFY(offer.isVisible());
    }

    void ReplacedWorkIsListedUntilItIsBroughtBack() {
        Program program;
        TypeWell(program, u"MW-1"_s);
        program.Window().OpenPath(Example);
        TypeWell(program, u"MW-2"_s);
        Answers answers;
        answers.BoxAbout(u"New Project will clear existing data."_s, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(Status(program), u"What was not saved is kept, of "_s + Example);
        const QStringList entries = BackEntries(program);
        QCOMPARE(entries.size(), 2);
        QVERIFY(entries[0].startsWith(
            u"Bring Back a project that was not saved yet, not saved, replaced "_s));
        QVERIFY(entries[1].startsWith(u"Bring Back %1, not saved, replaced "_s.arg(Example)));
        program.Find<QAction>(u"mnuBringBack_1"_s).trigger();
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-1");
        QCOMPARE(BackEntries(program).size(), 1);
        // What is brought back replaces unsaved work too.
        program.Find<QAction>(u"mnuBringBack_2"_s).trigger();
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-2");
        QVERIFY(program.Window().windowTitle().endsWith(Example));
        QCOMPARE(BackEntries(program).size(), 1);
        QVERIFY(BackEntries(program)[0].startsWith(u"Bring Back a project that"_s));
        QCOMPARE(Copies().size(), 2);
    }

    void LookingIsNoChange() {
        Program program;
        program.Window().OpenPath(Example);
        for (const int tab : {3, 4, 5, 4})
            program.ClickTab(tab);
        QTest::mouseClick(&program.Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        program.Window().OpenPath(Example);
        QCOMPARE(Status(program), u"Opened "_s + Example);
        QCOMPARE(BackEntries(program), QStringList());
        QVERIFY(Copies().isEmpty());
    }

    void WhatIsNoProjectReplacesNothing() {
        Program program;
        TypeWell(program, u"MW-1"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"76 Path not found"_s);
        program.Window().OpenPath(u"/absent/well.qn2"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(BackEntries(program), QStringList());
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-1");
    }

    void ACleanEndRemovesReplacedWorkToo() {
        Program program;
        TypeWell(program, u"MW-1"_s);
        program.Window().OpenPath(Example);
        QCOMPARE(Copies().size(), 1);
        Answers answers;
        answers.Box(u"Confirm Exit"_s, u"Exit QUARNEL? (Unsaved data will be lost.)"_s,
                    QMessageBox::Ok);
        program.Window().close();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Copies().isEmpty());
    }

    /// A window that ends otherwise leaves all of it to the next start.
    void ReplacedWorkOutlivesACrash() {
        {
            Program program;
            TypeWell(program, u"MW-1"_s);
            program.Window().OpenPath(Example);
            TypeWell(program, u"MW-2"_s);
            program.Window().KeepRecoveryCopy();
        }
        Program next;
        Answers answers;
        Offer(answers, QString(), "CmdDiscard");
        Offer(answers, QString(), "CmdRestore");
        QVERIFY(next.Window().OfferLeftCopies());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const std::string well = next.State().WellTestIDTxt[WellLabel];
        QVERIFY(well == "MW-1" || well == "MW-2");
    }

    void WorkThatTheDiskDoesNotTakeIsBroughtBackFromMemory() {
        const QString folder = RecoveryFolder();
        QDir().mkpath(QFileInfo(folder).path());
        QFile inTheWay(folder);
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        Program program;
        program.ClickTab(4);
        TypeReading(program, u"77.5"_s);
        TypeWell(program, u"MW-1"_s);
        program.Window().OpenPath(Example);
        QTest::mouseClick(&program.Find(u"StatusOffer"_s), Qt::LeftButton);
        QCOMPARE(program.State().WellTestIDTxt[WellLabel], "MW-1");
        QCOMPARE(program.State().RecDatGrid[0].time.ToString(), "77.5");
        QCOMPARE(program.State().RecDatGrid[1].time.ToString(), "");
        inTheWay.remove();
    }

    /// A copy under the name of another project would be saved over that project's file.
    void ACopyOfOneProjectNeverHasTheNameOfAnother() {
        Program program;
        program.Window().OpenPath(Example);
        const std::string well = program.State().WellTestIDTxt[WellLabel];
        TypeWell(program, u"MW-1"_s);
        program.Window().KeepRecoveryCopy();
        TypeWell(program, ToQString(well)); // as it was: nothing is to be kept
        program.Window().OpenPath(SourceFile("examples/every-field.qn2"));
        QCOMPARE(QDir(RecoveryFolder()).entryList({u"*.qn2*"_s}, QDir::Files).filter(u".path"_s),
                 QStringList());
        QVERIFY(Copies().isEmpty());
    }

    void OddNamesAndTimesOfCopiesAreNoHindrance() {
        LeaveCopy(Project("MW-9"), "/data/a\xff&b\n\tc.qn2");
        for (const int year : {1970, 2200}) {
            QFile copy(PathOf(u"99-0.qn2"_s));
            QVERIFY(copy.open(QIODevice::ReadWrite));
            QVERIFY(copy.setFileTime(QDateTime(QDate(year, 1, 2), QTime(3, 4)),
                                     QFileDevice::FileModificationTime));
            copy.close();
            Program program;
            Answers answers;
            answers.Dialog<QMessageBox>(
                [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
            QVERIFY(program.Window().OfferLeftCopies());
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(program.Window().Current().file.CurrentProjectFile,
                     std::string("/data/a\xff&b\n\tc.qn2"));
            program.Window().OpenPath(Example);
            const QStringList entries = BackEntries(program);
            QCOMPARE(entries.size(), 1);
            QVERIFY2(entries[0].contains(u"&&b  c.qn2"_s), qPrintable(entries[0]));
            QDir(RecoveryFolder()).removeRecursively();
            LeaveCopy(Project("MW-9"), "/data/a\xff&b\n\tc.qn2");
        }
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestRecoveryCopy)
#include "test_recovery_copy.moc"

// Open, Save and Save As: through the menu, the keyboard, a drop and the command line, with the
// real dialogs and boxes.

#include "tests/gui/WindowTestSupport.h"

#include "project/Files.h"

#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QTableView>

namespace quarnel::windowtest {

namespace {

const QString Title = u"Quarnel: Bouwer-Rice Slug Test Analysis"_s;
const QString NotAnInputFile = u"The file selected does not appear to be a QUARNEL input file."_s;
constexpr int TimeColumn = 1;
constexpr int LevelColumn = 2;

QString Example(const QString& name) {
    return SourceFile("examples/") + name;
}

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

/// The program with a folder of its own for files.
class FilesProgram : public Program {
public:
    FilesProgram() { RememberFolder(folder_.path()); }

    static void RememberFolder(const QString& folder) {
        QSettings().setValue(u"files/recentFolder"_s, folder);
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }
    QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("The test's own file cannot be written");
        return file.fileName();
    }
    QString Copy(const QString& example) const { return Write(example, Read(Example(example))); }
    QStringList Names() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    /// Opens a file by the menu and its dialog.
    void Open(const QString& path) {
        Answers answers;
        answers.FileName(path);
        Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
    /// Opens a file that cannot be opened: the box says `message`, and everything stays.
    void OpenFails(const QString& path, const QString& message) {
        const std::string before = ProjectFileText(State()).text;
        const QString title = Window().windowTitle();
        ClickTab(2);
        Answers answers;
        answers.FileName(path).Box(u"Quarnel"_s, message);
        Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(ProjectFileText(State()).text, before);
        QCOMPARE(Window().windowTitle(), title);
        QCOMPARE(Status(), u"Not opened: "_s + path);
        QCOMPARE(SelectedTab(), 2);
        QCOMPARE(Site(SiteName).text(), u"Untouched"_s);
    }
    QLineEdit& Site(int index) { return Find<QLineEdit>(u"SiteIDText"_s, index); }
    QTableView& Grid() { return Find<QTableView>(u"RecDatGrid"_s); }
    QString Cell(int row, int column) {
        return Grid().model()->index(row - 1, column).data().toString();
    }
    void TypeCell(int row, int column, const QString& text) {
        const QModelIndex index = Grid().model()->index(row - 1, column);
        Grid().scrollTo(index);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualRect(index).center());
        Grid().setFocus();
        QTest::keyClicks(&Grid(), text);
    }
    QTableView& MarkGrid() { return Find<QTableView>(u"RecDatWeightGrid"_s); }
    QStringList Marks() {
        QStringList marks;
        for (int row = 0; row < MarkGrid().model()->rowCount(); ++row)
            marks << MarkGrid().model()->index(row, 3).data().toString();
        return marks;
    }
    QString Status() { return Find<QLabel>(u"StatusText"_s).text(); }
    /// Saves under a new name by the menu and its dialog; `command` may be Save or Save As.
    void SaveAs(const QString& name, const QString& command = u"mnuSaveAs"_s) {
        Answers answers;
        answers.FileName(Path(name));
        Choose(command);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
    /// Saves by the menu; no dialog may come.
    void Save() {
        Answers answers;
        Choose(u"mnuFileSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

private:
    QTemporaryDir folder_;
};

/// Drops a file on a control as another program does.
void Drop(QWidget& target, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint at = target.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    QCoreApplication::processEvents();
}

} // namespace

class TestOpenSave : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- The dialogs ----------------------------------------------------------------------------

    void OpenDialogOffersTheThreeFileTypesAndOnlyExistingFiles() {
        FilesProgram program;
        Answers answers;
        answers.Dialog<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Open"_s);
            QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptOpen);
            QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
            const QStringList filters = dialog.nameFilters();
            QCOMPARE(filters.size(), 3);
            QVERIFY(filters[0].startsWith(u"Quarnel 2 (*.qn2)"_s));
            QVERIFY(filters[1].startsWith(u"in files (*.in)"_s));
            QVERIFY(filters[2].startsWith(u"All Files (*.*)"_s));
            QCOMPARE(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), QString());
            auto* types = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
            QCOMPARE(types->currentIndex(), 0);
            QCOMPARE(types->itemText(0), u"Quarnel 2 (*.qn2)"_s);
            QCOMPARE(types->itemText(1), u"in files (*.in)"_s);
            QCOMPARE(types->itemText(2), u"All Files (*.*)"_s);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void SaveDialogAsksBeforeOverwritingAndAddsNoSuffix() {
        FilesProgram program;
        Answers answers;
        answers.Dialog<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Save As"_s);
            QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(dialog.fileMode(), QFileDialog::AnyFile);
            QVERIFY(!dialog.testOption(QFileDialog::DontConfirmOverwrite));
            QCOMPARE(dialog.defaultSuffix(), QString());
            QCOMPARE(dialog.nameFilters().size(), 3);
            QCOMPARE(dialog.findChild<QComboBox*>(u"fileTypeCombo"_s)->currentIndex(), 0);
            QCOMPARE(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), QString());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void OpenDialogItselfRefusesANameThatDoesNotExist() {
        FilesProgram program;
        Answers answers;
        answers.FileName(program.Path(u"missing.qn2"_s))
            .BoxAbout(u"missing.qn2"_s, QMessageBox::Ok)
            .CancelFileName();
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Window().windowTitle(), Title);
    }

    void CancellingADialogDoesNothingAndShowsNothing() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"Untouched"_s);
        for (const char* command : {"mnuOpenFile", "mnuFileSave", "mnuSaveAs"}) {
            Answers answers;
            answers.CancelFileName();
            program.Choose(QString::fromLatin1(command));
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        }
        QCOMPARE(program.Site(SiteName).text(), u"Untouched"_s);
        QCOMPARE(program.Window().Current().file.CurrentProjectFile, "");
        QCOMPARE(program.Status(), QString());
        QCOMPARE(program.Names(), QStringList());
    }

    void TheNextDialogStartsInTheFolderOfTheLastFile() {
        FilesProgram program;
        const QTemporaryDir other;
        const QString path = other.filePath(u"a.qn2"_s);
        QVERIFY(QFile::copy(Example(u"every-field.qn2"_s), path));
        program.Open(path);
        FilesProgram::RememberFolder(QSettings().value(u"files/recentFolder"_s).toString());
        for (const char* command : {"mnuOpenFile", "mnuSaveAs"}) {
            Answers answers;
            answers.Dialog<QFileDialog>([&other](QFileDialog& dialog) {
                QCOMPARE(dialog.directory().canonicalPath(), QDir(other.path()).canonicalPath());
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            program.Choose(QString::fromLatin1(command));
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        }
    }

    void ShortcutsOpenTheSameDialogs() {
        FilesProgram program;
        const auto opens = [&program](Qt::Key key, Qt::KeyboardModifiers modifiers,
                                      const QString& title) {
            program.Window().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
            Answers answers;
            answers.Dialog<QFileDialog>([&title](QFileDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), title);
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            QTest::keyClick(&program.Window(), key, modifiers);
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        };
        opens(Qt::Key_O, Qt::ControlModifier, u"Open"_s);
        opens(Qt::Key_S, Qt::ControlModifier, u"Save As"_s);
        opens(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, u"Save As"_s);
    }

    // ---- Saving ---------------------------------------------------------------------------------

    void SaveOnANewProjectBehavesAsSaveAs() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"Corner Fuel Stop"_s);
        program.SaveAs(u"new.qn2"_s, u"mnuFileSave"_s);
        const QString path = program.Path(u"new.qn2"_s);
        QCOMPARE(program.Window().windowTitle(), Title + u"/ "_s + path);
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile), path);
        QVERIFY(Read(path).contains("\"SITEID\",\"SITENAME\",\"Corner Fuel Stop\"\r\n"));
        QCOMPARE(program.Status(), u"Saved "_s + path);

        TypeInto(program.Site(SiteName), u"Second name"_s);
        program.Save();
        QVERIFY(Read(path).contains("\"SITEID\",\"SITENAME\",\"Second name\"\r\n"));
    }

    void SaveAfterOpenWritesBackByteForByte() {
        for (const QString& name : {u"every-field.qn2"_s, u"pratt-county-1998.qn2"_s}) {
            FilesProgram program;
            const QString path = program.Copy(name);
            const QByteArray before = Read(path);
            program.Open(path);
            program.Save();
            QCOMPARE(Read(path), before);
            QCOMPARE(program.Names(), QStringList(name));
        }
    }

    void SaveAfterOpenWritesTheChangeIntoTheOpenedFile() {
        FilesProgram program;
        const QString path = program.Copy(u"pratt-county-1998.qn2"_s);
        program.Open(path);
        TypeInto(program.Site(LustNo), u"934-0017"_s);
        program.Save();
        QVERIFY(Read(path).contains("\"SITEID\",\"LUSTNO\",\"934-0017\"\r\n"));
    }

    void ANameTypedWithBlanksAroundItIsUsedWithoutThem() {
        FilesProgram program;
        Answers answers;
        answers.FileName(u"  blanks.qn2  "_s);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Names(), QStringList(u"blanks.qn2"_s));
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
                 program.Path(u"blanks.qn2"_s));
        answers.FileName(u"  blanks.qn2 "_s);
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Opened "_s + program.Path(u"blanks.qn2"_s));
    }

    void ANameWithDoubleQuotesIsUsedAsItStands() {
        const QString name = u"my \"best\" test.qn2"_s;
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"first"_s);
        Answers answers;
        answers.FileName(u" "_s + name);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Names(), QStringList(name));
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile), program.Path(name));

        TypeInto(program.Site(SiteName), u"second"_s);
        answers.FileName(name).BoxAbout(name, QMessageBox::No).CancelFileName();
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        answers.FileName(name);
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Site(SiteName).text(), u"first"_s);
        answers.FileName(name).BoxAbout(name, QMessageBox::Yes);
        program.Choose(u"mnuSaveAs"_s);
        answers.FileName(u"no \"such\" file"_s)
            .BoxAbout(u"no \"such\" file"_s, QMessageBox::Ok)
            .CancelFileName();
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Names(), QStringList(name));
    }

    void ANameInQuotesIsThatName() {
        FilesProgram program;
        Answers answers;
        answers.FileName(u"\"a b.qn2\""_s);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Names(), QStringList(u"a b.qn2"_s));
    }

    void AFolderThatIsNotThereIsNotOfferedAsAName() {
        FilesProgram program;
        const QTemporaryDir home;
        const QByteArray before = qgetenv("HOME");
        qputenv("HOME", home.path().toLocal8Bit());
        FilesProgram::RememberFolder(QString());
        for (const char* command : {"mnuOpenFile", "mnuSaveAs"}) {
            Answers answers;
            answers.Dialog<QFileDialog>([&home](QFileDialog& dialog) {
                QCOMPARE(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), QString());
                QCOMPARE(dialog.directory().canonicalPath(), QDir(home.path()).canonicalPath());
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            program.Choose(QString::fromLatin1(command));
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        }
        QVERIFY(QDir(home.path()).mkdir(u"Documents"_s));
        Answers answers;
        answers.Dialog<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.directory().dirName(), u"Documents"_s);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        program.Choose(u"mnuOpenFile"_s);
        qputenv("HOME", before);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void ANameWithoutASuffixIsSavedWithoutOne() {
        FilesProgram program;
        program.SaveAs(u"plain"_s);
        QCOMPARE(program.Names(), QStringList(u"plain"_s));
    }

    void TheInFilesEntryOnlyFiltersTheListing() {
        FilesProgram program;
        Answers answers;
        answers.Dialog<QFileDialog>([&program](QFileDialog& dialog) {
            auto* types = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
            types->setFocus();
            QTest::keyClick(types, Qt::Key_Down);
            QCOMPARE(types->currentIndex(), 1);
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setFocus();
            QTest::keyClicks(edit, program.Path(u"old.in"_s));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Read(program.Path(u"old.in"_s)).startsWith("\"QUARNEL PROJECT FILE\"\r\n"));
    }

    void OverwritingIsConfirmedAndNoLeavesTheFile() {
        FilesProgram program;
        const QString path = program.Write(u"there.qn2"_s, "kept");
        Answers answers;
        answers.FileName(path).BoxAbout(u"there.qn2"_s, QMessageBox::No).CancelFileName();
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(Read(path), QByteArray("kept"));
        QCOMPARE(program.Window().Current().file.CurrentProjectFile, "");
    }

    void OverwritingConfirmedWithYesReplacesTheFile() {
        FilesProgram program;
        const QString path = program.Write(u"there.qn2"_s, "old");
        Answers answers;
        answers.FileName(path).BoxAbout(u"there.qn2"_s, QMessageBox::Yes);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Read(path).startsWith("\"QUARNEL PROJECT FILE\"\r\n"));
    }

    void SaveAsAsksThoughTheProjectHasAName() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        program.Open(path);
        TypeInto(program.Site(SiteZip), u"new"_s);
        const QByteArray before = Read(path);
        program.SaveAs(u"other.qn2"_s);
        QCOMPARE(Read(path), before);
        QCOMPARE(program.Window().windowTitle(), Title + u"/ "_s + program.Path(u"other.qn2"_s));
    }

    void AReadOnlyFileIsToldAndStaysAsItWas() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        program.Open(path);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
        TypeInto(program.Site(SiteZip), u"new"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"75 Path/File access error"_s);
        program.Choose(u"mnuFileSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(Read(path), Read(Example(u"every-field.qn2"_s)));
        QCOMPARE(program.Status(), u"Not saved whole: "_s + path);
        QCOMPARE(program.Site(SiteZip).text(), u"new"_s);
    }

    void AFolderThatIsGoneIsTold() {
        FilesProgram program;
        QVERIFY(QDir(program.Path(QString())).mkdir(u"sub"_s));
        const QString path = program.Write(u"sub/a.qn2"_s, Read(Example(u"every-field.qn2"_s)));
        program.Open(path);
        QVERIFY(QDir(program.Path(u"sub"_s)).removeRecursively());
        Answers answers;
        answers.Box(u"Quarnel"_s, u"76 Path not found"_s);
        program.Choose(u"mnuFileSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!QFile::exists(path));
    }

    void AFailedSaveAsLeavesTitleAndNameAsTheyWere() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        program.Open(path);
        const QString title = program.Window().windowTitle();
        QVERIFY(QDir(program.Path(QString())).mkdir(u"gone"_s));
        Answers answers;
        answers
            .Dialog<QFileDialog>([&program](QFileDialog& dialog) {
                auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
                edit->setFocus();
                QTest::keyClicks(edit, program.Path(u"gone/a.qn2"_s));
                QVERIFY(QDir(program.Path(QString())).rmdir(u"gone"_s));
                QTest::keyClick(edit, Qt::Key_Return);
            })
            .Box(u"Quarnel"_s, u"76 Path not found"_s);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Window().windowTitle(), title);
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile), path);
        TypeInto(program.Site(SiteZip), u"new"_s);
        program.Save();
        QVERIFY(Read(path).contains("\"SITEZIP\",\"new\""));
    }

    void AFileThatSomebodyElseChangedIsKeptAndTheStatusBarSaysSo() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        program.Open(path);
        program.Save();
        QCOMPARE(program.Status(), u"Saved "_s + path);
        const QByteArray others = Read(path) + "\r\n";
        program.Write(u"every-field.qn2"_s, others);
        program.Save();
        QCOMPARE(Read(path + u".bak"_s), others);
        QCOMPARE(program.Status(), u"Saved "_s + path +
                                       u". The file had been changed by somebody else meanwhile; "
                                       u"that version is kept as "_s +
                                       path + u".bak"_s);
        program.Save();
        QCOMPARE(program.Status(), u"Saved "_s + path);
    }

    void ADamagedFileIsKeptAfterNewToo() {
        FilesProgram program;
        const QString path = program.Write(u"a.qn2"_s, "\"QUARNEL PROJECT FILE\"\r\n\"RECDATA\"");
        program.Window().OpenPath(program.Copy(u"every-field.qn2"_s));
        ResetProject(program.Window());
        Answers answers;
        answers.FileName(path).BoxAbout(u"a.qn2"_s, QMessageBox::Yes);
        program.Choose(u"mnuFileSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(Read(path + u".bak"_s).endsWith("\"RECDATA\""));
        QCOMPARE(program.Status(), u"Saved "_s + path + u". The file that was there is kept as "_s +
                                       path + u".bak"_s);
    }

    void TheStatusBarNamesFieldsThatWillNotReadBackIntact() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"The \"old\" depot"_s);
        program.ClickTab(2);
        TypeInto(program.Find<QLineEdit>(u"VolumeOfSlugText"_s), u"6\""_s);
        program.SaveAs(u"quotes.qn2"_s, u"mnuFileSave"_s);
        QVERIFY2(program.Status().contains(u"Site Information: Name, Volume of Slug"_s),
                 qPrintable(program.Status()));
        QVERIFY(program.Status().endsWith(u"Saved "_s + program.Path(u"quotes.qn2"_s)));

        program.Open(program.Path(u"quotes.qn2"_s));
        QCOMPARE(program.Site(SiteName).text(), u"The "_s);
    }

    void ATextWithACommaSurvives() {
        FilesProgram program;
        TypeInto(program.Site(SiteCity), u"Pratt, Kansas, \'98"_s);
        program.SaveAs(u"comma.qn2"_s, u"mnuFileSave"_s);
        TypeInto(program.Site(SiteCity), u"changed"_s);
        program.Open(program.Path(u"comma.qn2"_s));
        QCOMPARE(program.Site(SiteCity).text(), u"Pratt, Kansas, \'98"_s);
    }

    // ---- Rows of the grid -----------------------------------------------------------------------

    void ARowWithOnlyATimeOrOnlyALevelIsKept() {
        FilesProgram program;
        program.ClickTab(4);
        program.TypeCell(1, TimeColumn, u"0"_s);
        program.TypeCell(1, LevelColumn, u"9.80"_s);
        program.TypeCell(2, TimeColumn, u"15"_s);
        program.TypeCell(3, LevelColumn, u"9.30"_s);
        program.SaveAs(u"rows.qn2"_s, u"mnuFileSave"_s);
        const QByteArray bytes = Read(program.Path(u"rows.qn2"_s));
        QVERIFY(bytes.contains("\"RECDATA\",\"DATAPOINT\",\"15\",\"\"\r\n"));
        QVERIFY(bytes.contains("\"RECDATA\",\"DATAPOINT\",\"\",\"9.30\"\r\n"));
        program.Open(program.Path(u"rows.qn2"_s));
        QCOMPARE(program.Cell(2, TimeColumn), u"15"_s);
        QCOMPARE(program.Cell(2, LevelColumn), QString());
        QCOMPARE(program.Cell(3, TimeColumn), QString());
        QCOMPARE(program.Cell(3, LevelColumn), u"9.30"_s);
    }

    void EmptyRowsAreNotSavedAndTheDataStandInConsecutiveRows() {
        FilesProgram program;
        program.ClickTab(4);
        program.TypeCell(2, TimeColumn, u"0"_s);
        program.TypeCell(7, TimeColumn, u"15"_s);
        program.SaveAs(u"rows.qn2"_s, u"mnuFileSave"_s);
        QCOMPARE(Read(program.Path(u"rows.qn2"_s)).count("DATAPOINT"), 2);
        program.Open(program.Path(u"rows.qn2"_s));
        QCOMPARE(program.Cell(1, TimeColumn), u"0"_s);
        QCOMPARE(program.Cell(2, TimeColumn), u"15"_s);
        QCOMPARE(program.Cell(3, TimeColumn), QString());
    }

    void NoDataReloadIntoFiftyRowsAndFortyPointsInto65() {
        FilesProgram program;
        QByteArray bytes = "\"QUARNEL PROJECT FILE\"\r\n";
        program.Open(program.Write(u"none.qn2"_s, bytes));
        QCOMPARE(program.Grid().model()->rowCount(), 50);
        program.Save();
        QCOMPARE(Read(program.Path(u"none.qn2"_s)).count("DATAPOINT"), 0);
        for (int i = 0; i < 40; ++i)
            bytes += "\"RECDATA\",\"DATAPOINT\",\"" + QByteArray::number(i) + "\",\"2\"\r\n";
        program.Open(program.Write(u"forty.qn2"_s, bytes));
        QCOMPARE(program.Grid().model()->rowCount(), 65);
        QCOMPARE(program.Cell(65, 0), u"65"_s);
    }

    void ASaveTakesInWhatIsBeingTyped() {
        FilesProgram program;
        const QString path = program.Copy(u"pratt-county-1998.qn2"_s);
        program.Open(path);
        program.ClickTab(4);
        program.TypeCell(1, TimeColumn, u"0.15"_s);
        program.Save();
        QVERIFY(Read(path).contains("\"DATAPOINT\",\"0.15\",\"0.663\"\r\n"));
    }

    void TwoIgnoredPointsWithEqualTextsShareOneKey() {
        FilesProgram program;
        const QString path =
            program.Write(u"twins.qn2"_s, "\"QUARNEL PROJECT FILE\"\r\n"
                                          "\"WELLGEO\",\"H\",\"50\"\r\n"
                                          "\"WELLGEO\",\"LW\",\"20\"\r\n"
                                          "\"WELLGEO\",\"LE\",\"5\"\r\n"
                                          "\"WELLGEO\",\"DW\",\"8\"\r\n"
                                          "\"WELLGEO\",\"DC\",\"2\"\r\n"
                                          "\"RECDATA\",\"HEADMEASMETHOD\",\"Y\",2\r\n"
                                          "\"RECDATA\",\"DATAPOINT\",\"1\",\"3\"\r\n"
                                          "\"RECDATA\",\"DATAPOINT\",\"1\",\"3\"\r\n"
                                          "\"RECDATA\",\"DATAPOINT\",\"2\",\"2\"\r\n");
        program.Open(path);
        program.ClickTab(5);
        QCOMPARE(program.Marks(), QStringList({u"Use"_s, u"Use"_s, u"Use"_s}));
        QTableView& marks = program.MarkGrid();
        const auto centre = [&marks](int row) {
            return marks.visualRect(marks.model()->index(row, 3)).center();
        };
        QTest::mouseClick(marks.viewport(), Qt::LeftButton, {}, centre(0));
        QTest::mouseClick(marks.viewport(), Qt::LeftButton, Qt::ShiftModifier, centre(1));
        QTest::keyClicks(&marks, u"I"_s);
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Ignore"_s, u"Use"_s}));
        program.Save();
        QCOMPARE(Read(path).count("\"LSWEIGHT\",\"13\"\r\n"), 2);
        program.Open(path);
        program.ClickTab(5);
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Use"_s, u"Use"_s}));
    }

    // ---- Opening --------------------------------------------------------------------------------

    void OpenFillsThePanelsAndTheTitle() {
        FilesProgram program;
        TypeInto(program.Site(UstNo), u"of the project before"_s);
        program.Open(Example(u"pratt-county-1998.qn2"_s));
        QCOMPARE(program.Window().windowTitle(),
                 Title + u"/ "_s + Example(u"pratt-county-1998.qn2"_s));
        QCOMPARE(program.Site(UstNo).text(), QString());
        QCOMPARE(program.Cell(1, TimeColumn), u"0.1"_s);
        QCOMPARE(program.SelectedTab(), 1);
        QCOMPARE(program.Status(),
                 u"Opened "_s + Example(u"pratt-county-1998.qn2"_s) +
                     u". What was not saved is kept, of a project that was not saved yet"_s);
    }

    void AccentsAndOtherScriptsAreShownAsTheyWereSaved() {
        FilesProgram program;
        program.Open(Example(u"every-field.qn2"_s));
        QCOMPARE(program.Site(SiteName).text(), u"Café-Tankstelle Grüße & Söhne, 加油站 3"_s);
        QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, 0).text().isEmpty(), false);
    }

    void AFileOutOfOrderWithoutASectionLoads() {
        FilesProgram program;
        program.Open(program.Write(u"order.qn2"_s,
                                   "\"QUARNEL PROJECT FILE\"\r\n\"PLOTINFO\",\"ktimeunits\",1\r\n"
                                   "\"recdata\",\"timeunits\",\"x\",2\r\n"
                                   "\"wellid\",\"WELLLABEL\",\"MW-3\"\r\n"
                                   "\"WELLID\",\"testdate\",\"lost\"\r\n"
                                   "\"SITEID\",\"SITENAME\",\"Stop\"\r\n"));
        QCOMPARE(program.Site(SiteName).text(), u"Stop"_s);
        QCOMPARE(program.Find<QLineEdit>(u"WellTestIDTxt"_s, 0).text(), u"MW-3"_s);
        QCOMPARE(program.Find<QLineEdit>(u"WellTestIDTxt"_s, 1).text(), QString());
        QCOMPARE(program.Find<QComboBox>(u"RecDatTimeUnitsDDL"_s).currentText(), u"hr"_s);
        QCOMPARE(program.Find<QComboBox>(u"CmboKTimeUnits"_s).currentText(), u"min"_s);
        QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, 5).text(), u"0"_s);
        QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, 0).text(), QString());
    }

    void AnEmptyFileFailsOnItsFirstLineAndChangesNothing() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"Untouched"_s);
        program.OpenFails(program.Write(u"empty.qn2"_s, ""), u"62 Input past end of file"_s);
    }

    void AShortTextOrOneWithoutLeIsNotAnInputFile() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"Untouched"_s);
        const QString four = program.Write(u"four.txt"_s, "1\n2\n3\n Le \n");
        const QString five = program.Write(u"five.txt"_s, "1\n2\n3\n4\nH Lw dw\n1 2 3\n");
        program.OpenFails(four, NotAnInputFile);
        program.OpenFails(five, NotAnInputFile);
        program.OpenFails(program.Write(u"zeros.qn2"_s, QByteArray(5000, '\0')), NotAnInputFile);
    }

    void AFolderAMissingFileAndOneThatCannotBeReadChangeNothing() {
        FilesProgram program;
        TypeInto(program.Site(SiteName), u"Untouched"_s);
        const std::string before = ProjectFileText(program.State()).text;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"75 Path/File access error"_s)
            .Box(u"Quarnel"_s, u"53 File not found"_s)
            .Box(u"Quarnel"_s, u"76 Path not found"_s)
            .Box(u"Quarnel"_s, u"57 Device I/O error"_s);
        program.Window().OpenPath(program.Path(QString()));
        program.Window().OpenPath(program.Path(u"missing.qn2"_s));
        program.Window().OpenPath(program.Path(u"gone/missing.qn2"_s));
        program.Window().OpenPath(u"/proc/self/mem"_s); // a plain file whose first byte is a fault
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(ProjectFileText(program.State()).text, before);
        QCOMPARE(program.Window().windowTitle(), Title);
    }

    void EachDifferentFailureOfAReadIsShownOnceOneAfterAnother() {
        FilesProgram program;
        const QString path =
            program.Write(u"damaged.qn2"_s, "\"QUARNEL PROJECT FILE\"\r\n"
                                            "\"WELLGEO\",\"PICSELECT\",x\r\n"
                                            "\"RECDATA\",\"TIMEUNITS\",\"sec\",9\r\n"
                                            "\"RECDATA\",\"WATERUNITS\",\"ft\",9\r\n"
                                            "\"SITEID\",\"SITENAME\",\"Stop\"\r\n"
                                            "\"RECDATA\",\"DATAPOINT\",\"7\"");
        Answers answers;
        answers.FileName(path)
            .Box(u"Quarnel"_s, u"13 Type mismatch"_s)
            .Box(u"Quarnel"_s, u"380 Invalid property value"_s)
            .Box(u"Quarnel"_s, u"62 Input past end of file"_s);
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Site(SiteName).text(), u"Stop"_s);
        QCOMPARE(program.Cell(1, TimeColumn), u"7"_s);

        const QByteArray damaged = Read(path);
        program.Save();
        QCOMPARE(Read(path + u".bak"_s), damaged);
        QVERIFY(Read(path).endsWith("\"END OF FILE\"\r\n"));
    }

    void AnOldInputFileIsImportedAndSavedOverWithACopyKeptBesideIt() {
        FilesProgram program;
        const QString path = program.Copy(u"pratt-county-1998.in"_s);
        const QByteArray before = Read(path);
        program.Open(path);
        QCOMPARE(program.Window().windowTitle(), Title + u"/ "_s + path);
        QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, 0).text(), u"50.6"_s);
        QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, 3).text(), u"0.25"_s);
        QCOMPARE(program.Find<QComboBox>(u"WellGeoVertUnitsDDL"_s).currentText(), u"m"_s);
        QCOMPARE(program.Find<QComboBox>(u"RecDatDataTypeDDL"_s).currentText(),
                 u"Y: Change in Head "_s);
        QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, 0).text(),
                 u"Pratt County, Kansas, Site 36, Well 4, Test 2"_s);
        program.Save();
        QCOMPARE(Read(path + u".bak"_s), before);
        QVERIFY(Read(path).startsWith("\"QUARNEL PROJECT FILE\"\r\n\"VERSION\",\"3.0\"\r\n"));
        program.Save();
        QCOMPARE(program.Names(),
                 QStringList({u"pratt-county-1998.in"_s, u"pratt-county-1998.in.bak"_s}));
    }

    // ---- Files given otherwise ------------------------------------------------------------------

    void AFileDroppedOnAnyControlOpensAsOpenDoes() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        const QList<QWidget*> targets = {&program.Window(), &program.Site(SiteName),
                                         program.Grid().viewport()};
        for (QWidget* target : targets) {
            program.Open(Example(u"pratt-county-1998.qn2"_s));
            Drop(*target, {QUrl::fromLocalFile(path)});
            QCOMPARE(program.Window().windowTitle(), Title + u"/ "_s + path);
            QCOMPARE(program.Site(LustNo).text(), u"934-0017 · É"_s);
        }
    }

    void OnlyOneLocalFileIsTakenFromADrop() {
        FilesProgram program;
        const QString path = program.Copy(u"every-field.qn2"_s);
        const QUrl file = QUrl::fromLocalFile(path);
        Drop(program.Window(), {file, file});
        Drop(program.Window(), {QUrl(u"https://example.org/a.qn2"_s)});
        QCOMPARE(program.Window().windowTitle(), Title);
    }

    void ADroppedFolderGivesTheMessageOfOpen() {
        FilesProgram program;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"75 Path/File access error"_s);
        Drop(program.Window(), {QUrl::fromLocalFile(program.Path(QString()))});
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Window().windowTitle(), Title);
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestOpenSave)
#include "test_open_save.moc"

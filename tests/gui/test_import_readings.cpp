// An import from the menu, a drop, Open and the command line to the grid and the file, and back by
// one undo.

#include "project/Files.h"
#include "tests/gui/ImportTestSupport.h"

#include <QDropEvent>
#include <QMimeData>
#include <QProgressDialog>

namespace quarnel::windowtest {

namespace {

const QString Imported =
    u"Imported 120 of 140 readings of LEVEL from solinst_xle.xle: time zero 2024-03-05 11:59:00, "
    u"static level 5 m from 20 readings, Rising head."_s;

void Drop(QWidget& target, const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPoint at = target.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    QCoreApplication::processEvents();
}

void PressOk(ImportReadingsFrm& form) {
    QTest::mouseClick(&Find(form, u"ImportOK"_s), Qt::LeftButton);
}
void PressCancel(ImportReadingsFrm& form) {
    QTest::mouseClick(&Find(form, u"ImportCancel"_s), Qt::LeftButton);
}

class ImportProgram : public Program {
public:
    QString Status() { return Find<QLabel>(u"StatusText"_s).text(); }
    QTableView& Grid() { return Find<QTableView>(u"RecDatGrid"_s); }
    QString Cell(int row, int column) {
        return Grid().model()->index(row - 1, column).data().toString();
    }
    QString Chosen(const QString& list) { return Find<QComboBox>(list).currentText().trimmed(); }
    QString PreSlug() { return Find<QLineEdit>(u"RecDatPreSlugHeadText"_s).text(); }
    std::string Text() { return ProjectFileText(State()).text; }

    /// Imports a file by the menu and the given answers to what follows the file dialog.
    void Import(const QString& path, const std::function<void(Answers&)>& then) {
        Answers answers;
        answers.FileName(path);
        then(answers);
        Choose(u"mnuImportReadings"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
    void ImportWithOk(const QString& path) {
        Import(path, [](Answers& answers) { answers.Dialog<ImportReadingsFrm>(PressOk); });
    }
    void Open(const QString& path) {
        Answers answers;
        answers.FileName(path);
        Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
    void PressInGrid(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        Grid().setFocus();
        QTest::keyClick(&Grid(), key, modifiers);
    }
};

QString Example(const QString& name) {
    return SourceFile("examples/") + name;
}

} // namespace

class ImportReadingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheMenuEntryStandsBetweenSaveAsAndExit() {
        Program program;
        QStringList names;
        for (const QAction* action : program.Find<QMenu>(u"mnuFile"_s).actions())
            names.append(action->isSeparator() ? u"-"_s : action->objectName());
        const auto at = names.indexOf(u"mnuImportReadings"_s);
        QCOMPARE(names.at(at - 1), u"mnuOpenRecentEntry"_s);
        QCOMPARE(names.at(at - 2), u"-"_s);
        QVERIFY(names.indexOf(u"mnuSaveAs"_s) < at && at < names.indexOf(u"mnuExit"_s));
        QCOMPARE(program.Find<QAction>(u"mnuImportReadings"_s).text().remove(u'&'),
                 u"Import Readings..."_s);
    }

    void TheFileDialogOffersLoggerFilesInTheFolderOfLastTime() {
        ImportProgram program;
        program.ImportWithOk(CaseFile(u"solinst_xle.xle"_s));
        Answers answers;
        answers.Dialog<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Import Readings"_s);
            QCOMPARE(dialog.nameFilters().size(), 2);
            QVERIFY(dialog.nameFilters().first().startsWith(
                u"Logger files (*.xle *.csv *.lev *.mon *.htm *.html *.txt *.dat)"_s));
            QVERIFY(dialog.nameFilters().last().startsWith(u"All Files (*.*)"_s));
            QCOMPARE(dialog.directory().canonicalPath(), QDir(CaseFile(QString())).canonicalPath());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        program.Choose(u"mnuImportReadings"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void AnEmptyGridIsFilledWithoutAQuestion() {
        ImportProgram program;
        program.State().SiteIDText[SiteName] = "Fields";
        program.State().CmboKLengthUnits = Foot;
        program.ImportWithOk(CaseFile(u"solinst_xle.xle"_s));
        QCOMPARE(program.SelectedTab(), 4);
        QCOMPARE(program.Status(), Imported);
        QCOMPARE(program.Cell(1, 1), u"0"_s);
        QCOMPARE(program.Cell(1, 2), u"4.4"_s);
        QCOMPARE(program.Cell(120, 1), u"238"_s);
        QCOMPARE(program.Cell(120, 2), u"4.997"_s);
        QCOMPARE(program.Cell(121, 1), QString());
        QCOMPARE(program.Grid().model()->rowCount(), 145);
        QCOMPARE(program.PreSlug(), u"5"_s);
        QCOMPARE(program.Chosen(u"RecDatTimeUnitsDDL"_s), u"sec"_s);
        QCOMPARE(program.Chosen(u"RecDatWaterLevelUnitsDDL"_s), u"m"_s);
        QCOMPARE(program.Chosen(u"RecDatSlugTestTypeDDL"_s), u"Rising head"_s);
        QCOMPARE(program.Find<QComboBox>(u"RecDatDataTypeDDL"_s).currentIndex(),
                 int{GroundwaterHead});
        QCOMPARE(program.State().SiteIDText[SiteName], std::string("Fields"));
        QCOMPARE(program.State().CmboKLengthUnits, int{Foot});
    }

    void ReadingsAreReplacedOnlyAfterAYes() {
        ImportProgram program;
        program.Open(Example(u"pratt-county-1998.qn2"_s));
        const std::string before = program.Text();
        const auto rows =
            std::count_if(program.State().RecDatGrid.begin(), program.State().RecDatGrid.end(),
                          [](const RecoveryRow& row) { return !row.time.View().empty(); });
        const QString question = u"Replace the %1 readings in the grid?"_s.arg(rows);
        program.Import(CaseFile(u"solinst_xle.xle"_s), [&](Answers& answers) {
            answers.Dialog<ImportReadingsFrm>(PressOk)
                .Dialog<QMessageBox>([&](QMessageBox& box) {
                    QCOMPARE(box.text(), question);
                    QCOMPARE(box.windowTitle(), u"Import Readings"_s);
                    QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
                    QTest::keyClick(&box, Qt::Key_Return);
                })
                .Dialog<ImportReadingsFrm>([&](ImportReadingsFrm& form) {
                    QVERIFY(form.isVisible());
                    QVERIFY(form.isModal());
                    QCOMPARE(program.Text(), before);
                    PressCancel(form);
                });
        });
        QCOMPARE(program.Text(), before);
        program.Import(CaseFile(u"solinst_xle.xle"_s), [&](Answers& answers) {
            answers.Dialog<ImportReadingsFrm>(PressOk).Box(u"Import Readings"_s, question,
                                                           QMessageBox::Yes);
        });
        QCOMPARE(program.Cell(1, 2), u"4.4"_s);
        QVERIFY(program.State().IgnoreKeyList.empty());
        // No desktop is asked to give the keyboard back after two windows that close at once.
        QTRY_VERIFY(QApplication::activeWindow() == &program.Window());
        QVERIFY(program.Grid().hasFocus());
    }

    void OneUndoBringsEverythingBackAndOneRedoTheImport() {
        ImportProgram program;
        program.Open(Example(u"every-field.qn2"_s));
        program.State().IgnoreKeyList = {"1 2"};
        const std::string before = program.Text();
        const QString preSlug = program.PreSlug();
        const QString levelUnit = program.Chosen(u"RecDatWaterLevelUnitsDDL"_s);
        program.Import(CaseFile(u"solinst_csv_old.csv"_s), [](Answers& answers) {
            answers.Dialog<ImportReadingsFrm>(PressOk).BoxAbout(u"Replace the"_s, QMessageBox::Yes);
        });
        const std::string after = program.Text();
        QVERIFY(after != before);
        program.PressInGrid(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Text(), before);
        QCOMPARE(program.Status(), u"Took back the last change of the readings"_s);
        QCOMPARE(program.State().IgnoreKeyList, std::vector<std::string>{"1 2"});
        QCOMPARE(program.PreSlug(), preSlug);
        QCOMPARE(program.Chosen(u"RecDatWaterLevelUnitsDDL"_s), levelUnit);
        program.PressInGrid(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Text(), after);
        QCOMPARE(program.Status(), u"Made the last change of the readings again"_s);
        QCOMPARE(program.PreSlug(), u"500"_s);
        QCOMPARE(program.Chosen(u"RecDatWaterLevelUnitsDDL"_s), u"cm"_s);
        QVERIFY(program.Grid().model()->headerData(2, Qt::Horizontal).toString().contains(u"cm"_s));
    }

    void CancelEscapeAndClosingChangeNothing() {
        ImportProgram program;
        program.Open(Example(u"pratt-county-1998.qn2"_s));
        program.ClickTab(2);
        const std::string before = program.Text();
        const QString status = program.Status();
        const std::vector<std::function<void(ImportReadingsFrm&)>> ways = {
            PressCancel, [](ImportReadingsFrm& form) { QTest::keyClick(&form, Qt::Key_Escape); },
            [](ImportReadingsFrm& form) { form.close(); }};
        for (const auto& leave : ways) {
            program.Import(CaseFile(u"diver_mon.mon"_s), [&](Answers& answers) {
                answers.Dialog<ImportReadingsFrm>([&](ImportReadingsFrm& form) {
                    QTest::keyClick(&Find(form, u"ImportStartHandle"_s), Qt::Key_Right);
                    leave(form);
                });
            });
            QCOMPARE(program.Text(), before);
            QCOMPARE(program.Status(), status);
            QCOMPARE(program.SelectedTab(), 2);
        }
        program.PressInGrid(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Text(), before);
    }

    void WhatIsImportedIsSavedAndOpenedAgain() {
        ImportProgram program;
        const LoggerFiles files;
        program.ImportWithOk(CaseFile(u"generic_csv_depth.csv"_s));
        const std::string imported = program.Text();
        const QString path = files.Path(u"a.qn2"_s);
        Answers answers;
        answers.FileName(path);
        program.Choose(u"mnuFileSave"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        program.Open(Example(u"pratt-county-1998.qn2"_s));
        program.Open(path);
        QCOMPARE(program.Text(), imported);
        QCOMPARE(program.Cell(1, 2), u"13.969"_s);
        QCOMPARE(program.PreSlug(), u"12"_s);
        program.ClickTab(4);
        QTest::mouseClick(&program.Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        QCOMPARE(program.Find<QTableView>(u"RecDatCheckGrid"_s).model()->rowCount(), 120);
    }

    // ---- Other ways in

    void ADroppedLoggerFileIsImportedAndADroppedProjectOpened() {
        ImportProgram program;
        Answers answers;
        answers.Dialog<ImportReadingsFrm>(PressOk);
        Drop(program.Window(), CaseFile(u"solinst_xle.xle"_s));
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), Imported);
        Drop(program.Window(), Example(u"pratt-county-1998.qn2"_s));
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Status().startsWith(u"Opened "_s));
    }

    void ADroppedPictureIsRefused() {
        ImportProgram program;
        LoggerFiles files;
        const QString path = files.Path(u"well.png"_s);
        QVERIFY(program.Window().grab().save(path));
        const std::string before = program.Text();
        Answers answers;
        answers.Box(u"Quarnel"_s, u"well.png is not a text file."_s);
        Drop(program.Window(), path);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Text(), before);
        QCOMPARE(program.Status(), u"Not opened: "_s + path);
    }

    void OpenOffersTheImportAfterItsMessage() {
        ImportProgram program;
        const QString path = CaseFile(u"solinst_xle.xle"_s);
        const QString question =
            u"solinst_xle.xle holds 140 rows of readings (Solinst XLE). Import them?"_s;
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            Answers answers;
            answers.FileName(path)
                .Box(u"Quarnel"_s,
                     u"The file selected does not appear to be a QUARNEL input file."_s)
                .Box(u"Import Readings"_s, question, answer);
            if (answer == QMessageBox::Yes)
                answers.Dialog<ImportReadingsFrm>(PressOk);
            program.Choose(u"mnuOpenFile"_s);
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(program.Status(),
                     answer == QMessageBox::Yes ? Imported : u"Not opened: "_s + path);
        }
    }

    void AFileNamedOnTheCommandLineIsOfferedToo() {
        ImportProgram program;
        Answers answers;
        answers
            .Box(u"Quarnel"_s, u"The file selected does not appear to be a QUARNEL input file."_s)
            .BoxAbout(u"Import them?"_s, QMessageBox::Yes)
            .Dialog<ImportReadingsFrm>(PressOk);
        program.Window().OpenNamed(ToUtf8(CaseFile(u"solinst_xle.xle"_s)));
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), Imported);
    }

    void WhatHoldsNoReadingsIsOnlyRefused_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("openMessage");
        const QString notAnInputFile =
            u"The file selected does not appear to be a QUARNEL input file."_s;
        QTest::newRow("nothing") << QByteArray() << u"a.csv is empty."_s
                                 << u"62 Input past end of file"_s;
        QTest::newRow("prose") << QByteArray("Dear all,\nno table here.\n")
                               << u"No table of readings was found in a.csv."_s << notAnInputFile;
        QTest::newRow("archive")
            << QByteArray("PK\3\4....", 8)
            << u"a.csv is a ZIP archive. Please unpack it and import the file inside."_s
            << notAnInputFile;
    }
    void WhatHoldsNoReadingsIsOnlyRefused() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        QFETCH(QString, openMessage);
        ImportProgram program;
        LoggerFiles files;
        const QString path = files.Write(u"a.csv"_s, bytes);
        program.Import(path, [&](Answers& answers) { answers.Box(u"Quarnel"_s, message); });
        Answers answers;
        answers.FileName(path).Box(u"Quarnel"_s, openMessage);
        program.Choose(u"mnuOpenFile"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    // ---- Large files

    void ReadingALargeFileCanBeCancelled() {
        ImportProgram program;
        LoggerFiles files;
        QByteArray text = "time (s),Level (m)\n";
        for (int row = 0; text.size() < 21'000'000; ++row)
            text += QByteArray::number(row) + ",5.0000000000000000\n";
        const QString path = files.Write(u"large.csv"_s, text);
        program.Import(path, [](Answers& answers) {
            answers.Dialog<QProgressDialog>([](QProgressDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), u"Import Readings"_s);
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
        });
        QCOMPARE(program.Cell(1, 1), QString());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::ImportReadingsTest)
#include "test_import_readings.moc"

// What the line at the bottom says: what was saved where and when, what was read in metric units,
// what became of a paste; the offers and suggestions that go with it.

#include "tests/gui/ActiveProgram.h"

#include "kcompute/UseIgnoreGrid.h"
#include "loggerfiles/ImportReadingsFrm.h"
#include "widgets/ElidedLabel.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTime>
#include <cmath>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");

QString Now() {
    return QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
}

class StatusProgram : public ActiveProgram {
public:
    QString Status() { return Find<QLabel>(u"StatusText"_s).text(); }
    bool Offers() { return Find(u"StatusOffer"_s).isVisible(); }

    void OpenComputed(const QString& path = Example) {
        Window().OpenPath(path);
        ClickTab(5);
        Press("CmdComputeK");
    }
    void Paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        if (SelectedTab() != 4)
            ClickTab(4);
        ClickCell(1, 1);
        Key(Qt::Key_V, Qt::ControlModifier);
    }
    std::string Cell(std::size_t row, int column) {
        const RecoveryRow& cells = State().RecDatGrid[row - 1];
        return column == 1 ? cells.time.ToString() : cells.level.ToString();
    }
};

/// What a dialog for a name has in its box as it comes up, and the part that typing replaces.
struct Suggestion {
    QString name;
    QString selected;
};

/// Expects a dialog for a name, notes its suggestion and leaves it.
void ExpectSuggestion(Answers& answers, Suggestion& suggestion) {
    answers.Dialog<QFileDialog>([&suggestion](QFileDialog& dialog) {
        const auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        suggestion = {edit->text(), edit->selectedText()};
        dialog.reject();
    });
}

void PressIn(QWidget& window, const char* button) {
    QTest::mouseClick(&Find(window, QString::fromLatin1(button)), Qt::LeftButton);
}

bool IsPdf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-";
}

} // namespace

class TestStatusTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        // Whatever printers this machine has, the tests see none.
        qputenv("CUPS_SERVER", "localhost:1");
        QVERIFY(folder_.isValid());
    }

    // ---- Time ----------------------------------------------------------------------------------

    void EveryTextHasItsTime() {
        StatusProgram program;
        const auto& time = program.Find<QLabel>(u"StatusTime"_s);
        QCOMPARE(time.text(), QString());
        const QString before = Now();
        program.Window().OpenPath(Example);
        const QString after = Now();
        QCOMPARE(program.Status(), u"Opened "_s + Example);
        QVERIFY(time.isVisible());
        QVERIFY(time.text() == before || time.text() == after);
    }

    // ---- Save as PDF ---------------------------------------------------------------------------

    void ThePlotIsSavedAsPdfWithoutAWordOfPrinters() {
        StatusProgram program;
        program.OpenComputed();
        program.Press("CmdPrintPlot");
        const QString path = folder_.filePath(u"plot.pdf"_s);
        Answers answers;
        answers.FileName(path);
        PressIn(program.Find(u"PrtPlotFrm"_s), "CmdPlotPdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(IsPdf(path));
        QCOMPARE(program.Status(), u"Saved plot as "_s + path);
        QVERIFY(!program.Find(u"PrtPlotFrm"_s).isVisible());
    }

    void TheReportIsSavedAsPdfWhicheverChoiceStands() {
        for (const int choice : {0, 1}) {
            StatusProgram program;
            program.OpenComputed();
            program.Press("CmdPrtSummary");
            program.Find<QRadioButton>(u"Option1"_s, choice).setChecked(true);
            const QString path = folder_.filePath(u"report-%1.pdf"_s.arg(choice));
            Answers answers;
            answers.FileName(path);
            PressIn(program.Find(u"PrtResults"_s), "CmdReportPdf");
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QVERIFY(IsPdf(path));
            QCOMPARE(program.Status(), u"Saved report as "_s + path);
            QVERIFY(program.Find(u"PrtResults"_s).isVisible());
        }
    }

    void ACancelledPdfLeavesTheDialogAndSaysNothing() {
        StatusProgram program;
        program.OpenComputed();
        const QString before = program.Status();
        program.Press("CmdPrintPlot");
        Answers answers;
        answers.CancelFileName();
        PressIn(program.Find(u"PrtPlotFrm"_s), "CmdPlotPdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Find(u"PrtPlotFrm"_s).isVisible());
        QCOMPARE(program.Status(), before);
    }

    void ReportPictureAndDiagnosticsAreNamedWhenSaved() {
        StatusProgram program;
        program.OpenComputed();
        program.Press("CmdPrtSummary");
        const QString report = folder_.filePath(u"told.res"_s);
        Answers answers;
        answers.FileName(report);
        PressIn(program.Find(u"PrtResults"_s), "CmdPrtResults");
        QCOMPARE(program.Status(), u"Saved report as "_s + report);
        const QString picture = folder_.filePath(u"told.svg"_s);
        answers.FileName(picture);
        program.Find<QAction>(u"SavePlot"_s).trigger();
        QCOMPARE(program.Status(), u"Saved plot as "_s + picture);
        const QString sheet = folder_.filePath(u"told.pdf"_s);
        program.Choose(u"mnuDiagnostics"_s);
        answers.FileName(sheet);
        PressIn(program.Find(u"DiagnosticsFrm"_s), "DiagnosticsSavePdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Saved diagnostics sheet as "_s + sheet);
    }

    // ---- Suggested names -----------------------------------------------------------------------

    void NamesAreSuggestedAfterTheProject_data() {
        QTest::addColumn<QString>("project");
        QTest::addColumn<QString>("name");
        QTest::newRow("a project") << u"MW-3.qn2"_s << u"MW-3"_s;
        QTest::newRow("no ending") << u"MW-3.1"_s << u"MW-3.1"_s;
        QTest::newRow("capitals") << u"MW 3.QN2"_s << u"MW 3"_s;
        QTest::newRow("an ending alone") << u".qn2"_s << u".qn2"_s;
    }

    void NamesAreSuggestedAfterTheProject() {
        QFETCH(QString, project);
        QFETCH(QString, name);
        const QTemporaryDir folder;
        const QString path = folder.filePath(project);
        QVERIFY(QFile::copy(Example, path));
        StatusProgram program;
        program.OpenComputed(path);
        CheckSuggestions(program, name);
    }

    void AProjectWithoutAFileIsASlugTest() {
        StatusProgram program;
        program.OpenComputed();
        program.Window().Current().file = FileOnDisk();
        CheckSuggestions(program, u"slug-test"_s);
    }

    void TypingReplacesTheNameAndKeepsTheEnding() {
        StatusProgram program;
        program.OpenComputed();
        program.Press("CmdPrintPlot");
        QString name;
        Answers answers;
        answers.Dialog<QFileDialog>([&name](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            QTest::keyClicks(QApplication::focusWidget(), u"mine"_s);
            name = edit->text();
            dialog.reject();
        });
        PressIn(program.Find(u"PrtPlotFrm"_s), "CmdPlotPdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(name, u"mine.pdf"_s);
    }

    void TheNamesOfProjectsAndOfTheReportsTextStartEmpty() {
        StatusProgram program;
        program.OpenComputed();
        program.Press("CmdPrtSummary");
        for (const auto& ask :
             {u"mnuOpenFile"_s, u"mnuSaveAs"_s, u"mnuImportReadings"_s, u"CmdPrtResults"_s}) {
            Answers answers;
            Suggestion seen{u"?"_s, u"?"_s};
            ExpectSuggestion(answers, seen);
            if (ask == u"CmdPrtResults"_s)
                PressIn(program.Find(u"PrtResults"_s), "CmdPrtResults");
            else
                program.Choose(ask);
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(seen.name, QString());
        }
    }

    // ---- Save As -------------------------------------------------------------------------------

    void ANameWithoutTheEndingIsUsedAndToldOf_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("told");
        QTest::newRow("with the ending") << u"a.qn2"_s << false;
        QTest::newRow("in capitals") << u"a.QN2"_s << false;
        QTest::newRow("without") << u"a"_s << true;
        QTest::newRow("a point in it") << u"MW-3.1"_s << true;
        QTest::newRow("another one") << u"a.in"_s << true;
    }

    void ANameWithoutTheEndingIsUsedAndToldOf() {
        QFETCH(QString, name);
        QFETCH(bool, told);
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        StatusProgram program;
        program.Window().OpenPath(Example);
        Answers answers;
        answers.FileName(path);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(QFile::exists(path));
        const QString note = u". Open lists it under \"All Files\", not under \"Quarnel 2\": its "
                             u"name does not end in .qn2"_s;
        QCOMPARE(program.Status(), u"Saved "_s + path + (told ? note : QString()));
        program.Choose(u"mnuFileSave"_s);
        QCOMPARE(program.Status(), u"Saved "_s + path);
    }

    // ---- What a check has read -----------------------------------------------------------------

    void TheCheckOfTheWellTellsWhatItRead() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(3);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        program.Press("SSCmdWellGeoCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Read: rw 12.5 cm, rc 6.4 cm, screen 1.52 m long, Lw 20.11 m, "
                                   u"H 50.6 m, first Y 0.663 m"_s);
    }

    void TheCheckOfTheWellAloneSeesAFirstYThatIsTooLarge() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(3);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, GeoLw), u"0.5"_s);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, GeoLe), u"0.4"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        program.Press("SSCmdWellGeoCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Unusual: first Y larger than Lw. Read: rw 12.5 cm, rc 6.4 cm, "
                                   u"screen 0.4 m long, Lw 0.5 m, H 50.6 m, first Y 0.663 m"_s);
        // What was checked beside it changes nothing of the readings.
        QVERIFY(program.Window().Current().working.recovery.RecoveryPoints->empty());
    }

    void TheCheckOfTheWellPassesOverReadingsThatCannotBeRead() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(3);
        program.State().RecDatGrid[0].level = "x";
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        program.Press("SSCmdWellGeoCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Read: rw 12.5 cm, rc 6.4 cm, screen 1.52 m long, Lw 20.11 m, "
                                   u"H 50.6 m"_s);
    }

    void ADiameterLeftInInchesIsSeenAtEveryCheckAndStopsNone() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(3);
        auto& unit = program.Find<QComboBox>(u"WellGeoRadUnitsDDL"_s);
        unit.setFocus();
        program.Key(Qt::Key_Home);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry data is complete and consistent."_s);
        program.Press("SSCmdWellGeoCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const QString inches = u"Unusual: casing under 1 cm. Read: rw 0.3175 cm, rc 0.1626 cm, "
                               u"screen 1.52 m long, Lw 20.11 m, H 50.6 m, first Y 0.663 m"_s;
        QCOMPARE(program.Status(), inches);
        program.Window().statusBar()->setFocus();
        program.ClickTab(5);
        QCOMPARE(program.VisiblePanel(), 6);
        QCOMPARE(program.Status(), inches);
        program.ClickTab(4);
        program.Window().statusBar()->setFocus();
        program.Press("CmdRecDatCheckData");
        QCOMPARE(program.Status(), inches);
    }

    void ReadingsWithoutAWellTellTheirFirstY() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.State().WellGeoText[GeoH] = "x";
        program.ClickTab(4);
        program.Press("CmdRecDatCheckData");
        QCOMPARE(program.Status(), u"Read: first Y 0.663 m"_s);
    }

    void AFailedCheckTellsOfNothingRead() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        const QString before = program.Status();
        program.State().WellGeoText[GeoH] = "x";
        Answers answers;
        answers.BoxAbout(u"H cannot be evaluated"_s, QMessageBox::Ok);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), before);
    }

    void AFailedCheckOfReadingsTellsOfNothingRead() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(4);
        const QString before = program.Status();
        program.State().RecDatGrid[0].level = "x";
        Answers answers;
        answers.BoxAbout(u"Recovery data in row 1"_s, QMessageBox::Ok);
        program.Press("CmdRecDatCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), before);
    }

    // ---- What was done last --------------------------------------------------------------------

    void AComputationTellsItsPointsAndAFailedOneThatThereIsNone() {
        StatusProgram program;
        program.OpenComputed();
        QCOMPARE(program.Status(), u"Computed K from 3 of 61 points"_s);
        auto& marks = program.Find<QTableView>(u"RecDatWeightGrid"_s);
        marks.setFocus();
        QHeaderView& header = *marks.horizontalHeader();
        const int criteria = UseIgnoreGrid::CriteriaColumn;
        const int left = header.sectionViewportPosition(criteria);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {left + header.sectionSize(criteria) / 2, header.height() / 2});
        program.Keys(u"I"_s);
        Answers answers;
        answers.Dialog<QMessageBox>([](QMessageBox& box) { box.accept(); });
        program.Press("CmdComputeK");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"K was not computed"_s);
    }

    void AnUndoTakesTheWordsOfAPasteBack() {
        StatusProgram program;
        program.Paste(u"1\t2\n"_s);
        QCOMPARE(program.Status(), u"Pasted 1 row"_s);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Status(), u"Took back the last change of the readings"_s);
        program.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Status(), u"Made the last change of the readings again"_s);
        program.Window().OpenPath(Example);
        const QString before = program.Status();
        QVERIFY(before.startsWith(u"Opened "_s + Example));
        program.ClickTab(4);
        program.ClickCell(1, 1);
        program.Key(Qt::Key_Z, Qt::ControlModifier); // nothing to take back
        QCOMPARE(program.Status(), before);
    }

    void ATextThatIsTooLongIsShortenedButReadWhole() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        auto& line = program.Find<ElidedLabel>(u"StatusText"_s);
        QCOMPARE(line.SeenText(), line.text());
        program.Window().resize(700, 500);
        const QString longName = folder_.filePath(QString(180, u'n') + u".qn2"_s);
        QVERIFY(QFile::copy(Example, longName));
        program.Window().OpenPath(longName);
        QCoreApplication::processEvents();
        QVERIFY(line.SeenText().contains(QChar(0x2026)));
        QVERIFY(line.SeenText().startsWith(u"Opened "_s) && line.SeenText().endsWith(u".qn2"_s));
        QVERIFY(line.fontMetrics().horizontalAdvance(line.SeenText()) <= line.width());
        QCOMPARE(line.toolTip(), u"Opened "_s + longName);
        QCOMPARE(QAccessible::queryAccessibleInterface(&line)->text(QAccessible::Name),
                 u"Opened "_s + longName);
    }

    // ---- Paste ---------------------------------------------------------------------------------

    void APasteTellsItsRows() {
        StatusProgram program;
        QString text;
        for (int row = 0; row < 61; ++row)
            text += u"%1\t%2\n"_s.arg(row).arg(61 - row);
        program.Paste(text);
        QCOMPARE(program.Status(), u"Pasted 61 rows"_s);
        QVERIFY(!program.Offers());
        program.Paste(u"1\t2\n"_s);
        QCOMPARE(program.Status(), u"Pasted 1 row"_s);
    }

    void TilesCountAsTheRowsTheyFill() {
        StatusProgram program;
        program.ClickTab(4);
        program.ClickCell(1, 1);
        for (int i = 0; i < 3; ++i)
            program.Key(Qt::Key_Down, Qt::ShiftModifier);
        QGuiApplication::clipboard()->setText(u"1\n2\n"_s);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(program.Status(), u"Pasted 4 rows"_s);
    }

    void ARefusedPasteSaysNothingBesideItsBox() {
        StatusProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(4);
        QGuiApplication::clipboard()->setText(u"1\t2\t3\n"_s);
        program.ClickCell(1, 1);
        Answers answers;
        answers.BoxAbout(u"exceeds the number of columns"_s, QMessageBox::Ok);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Status(), u"Opened "_s + Example);
    }

    void TheOfferMovesNothingAndGoesWithItsText() {
        StatusProgram program;
        program.ClickTab(4);
        const QRect grid(program.Grid().mapToGlobal(QPoint()), program.Grid().size());
        program.Paste(u"12.5"_s);
        QCOMPARE(program.Status(), u"Nothing pasted: no line end follows \"12.5\""_s);
        QVERIFY(program.Offers());
        QCoreApplication::processEvents();
        QCOMPARE(QRect(program.Grid().mapToGlobal(QPoint()), program.Grid().size()), grid);
        program.Paste(u"1\t2\n"_s);
        QVERIFY(!program.Offers());
        program.Paste(u"1,2\n3,4\n"_s);
        QVERIFY(program.Offers());
        QCOMPARE(program.Cell(1, 1), std::string("1,2"));
        program.ClickTab(1);
        QVERIFY(!program.Offers());
    }

    void TheOfferIsTakenByMouseAndKeys_data() {
        QTest::addColumn<int>("by");
        QTest::newRow("mouse") << 0;
        QTest::newRow("letter") << 1;
        QTest::newRow("space") << 2;
    }

    void TheOfferIsTakenByMouseAndKeys() {
        QFETCH(int, by);
        StatusProgram program;
        program.Paste(SecondsTable());
        QCOMPARE(program.Status(), u"Pasted 41 rows, all in one column: cells are separated by "
                                   u"tabs, not by commas"_s);
        Answers answers;
        answers.Dialog<ImportReadingsFrm>([](ImportReadingsFrm& form) {
            QVERIFY(Find<QLabel>(form, u"ImportFormat"_s).text().startsWith(u"pasted text: "_s));
            QTest::mouseClick(&Find(form, u"ImportOK"_s), Qt::LeftButton);
        });
        answers.BoxAbout(u"Replace the 41 readings"_s, QMessageBox::Yes);
        if (by == 0)
            program.Press("StatusOffer");
        else if (by == 1)
            program.Key(Qt::Key_M, Qt::AltModifier);
        else {
            program.Find(u"StatusOffer"_s).setFocus();
            program.Key(Qt::Key_Space);
        }
        QTRY_VERIFY2(answers.AllGiven(), answers.Complaints());
        QTRY_COMPARE(program.Cell(1, 1), std::string("0"));
        QCOMPARE(program.Cell(1, 2), std::string("4"));
        QVERIFY(!program.Offers());
        QVERIFY(program.Status().contains(u" from pasted text"_s));
        program.ClickCell(1, 1);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Cell(2, 1), std::string("0,5"));
    }

    void WhatIsNoTableLeadsToTheFiles() {
        StatusProgram program;
        program.Paste(u"12.5"_s);
        Answers answers;
        answers.CancelFileName();
        program.Press("StatusOffer");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!program.Offers());
    }

private:
    /// A table as text: 20 rows of still water, then the test.
    static QString SecondsTable() {
        QString text = u"time (s),Level (m)\n"_s;
        for (int row = 0; row < 20; ++row)
            text += u"%1,5\n"_s.arg(row * 2);
        for (int row = 0; row < 20; ++row)
            text += u"%1,%2\n"_s.arg(40 + row * 2).arg(5 - std::pow(0.9, row));
        return text;
    }

    static void CheckSuggestions(StatusProgram& program, const QString& name) {
        const auto check = [&name](const QString& ending, const std::function<void()>& ask) {
            Answers answers;
            Suggestion seen;
            ExpectSuggestion(answers, seen);
            ask();
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(seen.name, name + ending);
            QCOMPARE(seen.selected, (name + ending).chopped(4));
        };
        program.Press("CmdPrintPlot");
        program.Press("CmdPrtSummary");
        program.Choose(u"mnuDiagnostics"_s);
        auto& diagnostics = program.Find(u"DiagnosticsFrm"_s);
        check(u".pdf"_s, [&] { PressIn(program.Find(u"PrtPlotFrm"_s), "CmdPlotPdf"); });
        check(u"-report.pdf"_s, [&] { PressIn(program.Find(u"PrtResults"_s), "CmdReportPdf"); });
        check(u"-diagnostics.pdf"_s, [&] { PressIn(diagnostics, "DiagnosticsSavePdf"); });
        check(u".pdf"_s, [&] { program.Find<QAction>(u"SavePlot"_s).trigger(); });
        auto& tabs = Find<QTabWidget>(diagnostics, u"DiagnosticsTabs"_s);
        tabs.setCurrentIndex(tabs.count() - 1);
        for (const auto& [picture, ending] : {std::pair(u"SegmentsPlot"_s, u"-segments.pdf"_s),
                                              std::pair(u"ResidualPlot"_s, u"-residuals.pdf"_s)})
            check(ending,
                  [&] { Find<QAction>(Find(diagnostics, picture), u"SavePicture"_s).trigger(); });
    }

    QTemporaryDir folder_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestStatusTexts)
#include "test_status_texts.moc"

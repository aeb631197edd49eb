#include "tests/gui/WindowTestSupport.h"

#include "output/SummaryReport.h"

#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

namespace quarnel::windowtest {

namespace {

const QString NoPrinter = u"The system has no default printer. Do you want to save the page as a "
                          u"PDF file instead?"_s;

/// The Pratt County test, computed in the window.
class ComputedProgram : public Program {
public:
    ComputedProgram() {
        Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        ClickTab(5);
        Press("CmdComputeK");
    }
    void Press(const char* button) {
        QTest::mouseClick(&Find(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QDialog& Plot() { return Find<QDialog>(u"PrtPlotFrm"_s); }
    QDialog& Results() { return Find<QDialog>(u"PrtResults"_s); }
};

/// Looks for a modal file dialog, gives it a name and confirms what it asks.
void PressIn(QWidget& dialog, const char* button) {
    QTest::mouseClick(&Find(dialog, QString::fromLatin1(button)), Qt::LeftButton);
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a tool of the system prints about a file.
QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(program));
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The left upper corner of a word on the first page of a PDF, in points; negative when not there.
QPointF WordAt(const QString& bboxes, const QString& word) {
    const QRegularExpression pattern(u"xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>"_s +
                                     QRegularExpression::escape(word) + u"</word>"_s);
    const QRegularExpressionMatch match = pattern.match(bboxes);
    return match.hasMatch() ? QPointF(match.captured(1).toDouble(), match.captured(2).toDouble())
                            : QPointF(-1, -1);
}

} // namespace

class TestPrintDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        // Whatever printers this machine has, the tests see none.
        qputenv("CUPS_SERVER", "localhost:1");
        QVERIFY(folder_.isValid());
    }

    // ---- Report ---------------------------------------------------------------------------------

    void AReportNeverReplacesItsProject() {
        ComputedProgram program;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"own.res"_s);
        QVERIFY(QFile::copy(SourceFile("examples/pratt-county-1998.qn2"), path));
        program.Window().OpenPath(path);
        const QByteArray before = FileBytes(path);
        program.ClickTab(5);
        program.Press("CmdPrtSummary");
        Answers answers;
        answers.FileName(path)
            .BoxAbout(u"own.res"_s, QMessageBox::Yes)
            .Box(u"Quarnel"_s, u"The report needs a file of its own."_s);
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(FileBytes(path), before);
    }

    void SaveToFileWritesTheReport() {
        ComputedProgram program;
        program.Press("CmdPrtSummary");
        QVERIFY(program.Results().isVisible());
        QCOMPARE(program.Results().windowTitle(), u"Print/Save the Results"_s);
        QVERIFY(program.Find<QRadioButton>(u"Option1_0"_s).isChecked());
        const QString path = folder_.filePath(u"saved.res"_s);
        Answers answers;
        answers.FileName(u" "_s + path + u" "_s);
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(FileBytes(path).toStdString(),
                 ReportBytes(program.Window().Current().state,
                             program.Window().Current().computation.get()));
        PressIn(program.Results(), "CmdClose");
        QVERIFY(!program.Results().isVisible());
    }

    void ThePointerIsBusyWhileTheDialogForThePlotOpens() {
        struct Watch : QObject {
            bool busy = false;
            bool eventFilter(QObject* receiver, QEvent* event) override {
                if (event->type() == QEvent::Show && receiver->objectName() == u"PrtPlotFrm"_s)
                    busy = QApplication::overrideCursor() != nullptr &&
                           QApplication::overrideCursor()->shape() == Qt::WaitCursor;
                return false;
            }
        } watch;
        ComputedProgram program;
        qApp->installEventFilter(&watch);
        program.Press("CmdPrintPlot");
        QVERIFY(watch.busy);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void CancelWritesNothing() {
        ComputedProgram program;
        program.Press("CmdPrtSummary");
        Answers answers;
        answers.CancelFileName();
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!QFile::exists(folder_.filePath(u"cancelled.res"_s)));
    }

    void AnExistingFileIsOverwrittenOnlyAfterAYes() {
        ComputedProgram program;
        program.Press("CmdPrtSummary");
        const QString path = folder_.filePath(u"old.res"_s);
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        Answers answers;
        answers.FileName(path);
        answers.BoxAbout(u"old.res"_s, QMessageBox::No);
        answers.CancelFileName();
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(FileBytes(path), QByteArray("old"));
    }

    void AReportThatCannotBeWrittenSaysWhy() {
        ComputedProgram program;
        program.Press("CmdPrtSummary");
        const QString gone = folder_.filePath(u"gone"_s);
        QVERIFY(QDir().mkpath(gone));
        Answers answers;
        answers.Dialog<QFileDialog>([gone](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(gone + u"/r.res"_s);
            QDir(gone).removeRecursively();
            QTest::keyClick(edit, Qt::Key_Return);
        });
        answers.Box(u"Quarnel"_s, u"76 Path not found"_s);
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void SendToPrinterWithoutAPrinterOffersAPdf() {
        ComputedProgram program;
        program.Press("CmdPrtSummary");
        QTest::mouseClick(&program.Find(u"Option1_1"_s), Qt::LeftButton, {}, QPoint(10, 10));
        const QString path = folder_.filePath(u"report.pdf"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::Yes);
        answers.FileName(path);
        PressIn(program.Results(), "CmdPrtResults");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const QString text = Output(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
        QVERIFY(text.contains(u"BOUWER-RICE SLUG TEST ANALYSIS"_s));
        QVERIFY(text.contains(u"Hydraulic Conductivity: 3.6 m/day"_s));
        QVERIFY(text.contains(u"Page 1 of 2"_s) && text.contains(u"Page 2 of 2"_s));
        QVERIFY(text.contains(u"354.9"_s));
    }

    // ---- Plot -----------------------------------------------------------------------------------

    void TitlesStayAfterCancelAndAfterTheFrame() {
        ComputedProgram program;
        program.Press("CmdPrintPlot");
        QCOMPARE(program.Plot().windowTitle(), u"Print The Plot"_s);
        TypeInto(program.Find<QLineEdit>(u"PlotText"_s, 0), u"A first line"_s);
        PressIn(program.Plot(), "CmdCancel");
        QVERIFY(!program.Plot().isVisible());
        program.Press("CmdPrintPlot");
        QVERIFY(program.Plot().isVisible());
        QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, 0).text(), u"A first line"_s);
        program.Plot().close();
        QVERIFY(!program.Plot().isVisible());
        program.Press("CmdPrintPlot");
        QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, 0).text(), u"A first line"_s);
        QCOMPARE(program.State().PlotText[0], "A first line");
    }

    void NoToThePdfLeavesEverythingAsItWas() {
        ComputedProgram program;
        program.Press("CmdPrintPlot");
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::No);
        PressIn(program.Plot(), "CmdPrtPlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Plot().isVisible());
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void ThePrintedPageStandsAtItsConstants() {
        ComputedProgram program;
        program.Press("CmdPrintPlot");
        const QString path = folder_.filePath(u"plot.pdf"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::Yes);
        answers.FileName(path);
        PressIn(program.Plot(), "CmdPrtPlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!program.Plot().isVisible());
        const QString boxes = Output(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s});
        // The margins of a PDF page are 18 points, one point is 20 twips.
        const double left = 18 + 2160 / 20.0;
        QVERIFY(qAbs(WordAt(boxes, u"LUST"_s).x() - left) < 1);
        QVERIFY(qAbs(WordAt(boxes, u"Site"_s).x() - (left + 150)) < 1);
        // The first time label is centred on the Y axis, the last on the end of the time axis.
        QVERIFY(qAbs(WordAt(boxes, u"0.00"_s).x() - left) < 12);
        const double down = WordAt(boxes, u"354.90"_s).y() - WordAt(boxes, u"0.00"_s).y();
        QVERIFY(qAbs(down) < 0.01);
        QVERIFY(WordAt(boxes, u"Conductivity:"_s).y() > WordAt(boxes, u"0.00"_s).y());
    }

    void APdfNeverReplacesItsProject() {
        ComputedProgram program;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"own.pdf"_s);
        QVERIFY(QFile::copy(SourceFile("examples/pratt-county-1998.qn2"), path));
        program.Window().OpenPath(path);
        const QByteArray before = FileBytes(path);
        program.ClickTab(5);
        program.Press("CmdPrintPlot");
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::Yes);
        answers.FileName(path)
            .BoxAbout(u"own.pdf"_s, QMessageBox::Yes)
            .Box(u"Quarnel"_s, u"The plot needs a file of its own."_s);
        PressIn(program.Plot(), "CmdPrtPlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Plot().isVisible());
        QCOMPARE(FileBytes(path), before);
    }

    void TheStatusBarNamesAPdfThatCannotBeWritten() {
        ComputedProgram program;
        program.Press("CmdPrintPlot");
        const QString gone = folder_.filePath(u"away"_s);
        QVERIFY(QDir().mkpath(gone));
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::Yes);
        answers.Dialog<QFileDialog>([gone](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            edit->setText(gone + u"/p.pdf"_s);
            QDir(gone).removeRecursively();
            QTest::keyClick(edit, Qt::Key_Return);
        });
        answers.Box(u"Quarnel"_s, u"76 Path not found"_s);
        PressIn(program.Plot(), "CmdPrtPlot");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Find<QLabel>(u"StatusText"_s).text(),
                 u"Not saved: "_s + gone + u"/p.pdf"_s);
    }

    void PointsAndLineHaveTheirColoursOnThePage() {
        const QString path = folder_.filePath(u"plot.pdf"_s);
        const QString picture = folder_.filePath(u"page"_s);
        Output(u"pdftoppm"_s, {u"-r"_s, u"100"_s, u"-png"_s, u"-singlefile"_s, path, picture});
        const QImage page(picture + u".png"_s);
        int red = 0;
        int blue = 0;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x) {
                red += page.pixelColor(x, y) == QColor(255, 0, 0) ? 1 : 0;
                blue += page.pixelColor(x, y) == QColor(0, 0, 255) ? 1 : 0;
            }
        QVERIFY(red > 100);
        QVERIFY(blue > 100);
    }

private:
    QTemporaryDir folder_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestPrintDialogs)

#include "test_print_dialogs.moc"

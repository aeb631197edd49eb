// One computation: whatever shows a result shows the same one, and says where the data have changed
// since.

#include "tests/gui/TruthProgram.h"

#include "output/PlotExport.h"

#include <QFile>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <functional>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");
const QString OtherExample = SourceFile("examples/every-field.qn2");
const QString Changed = u"The data have changed. Press Compute K/ Plot."_s;
const QString Invitation = u"Press Compute K/ Plot"_s;
const QString NoPrinter = u"The system has no default printer. Do you want to save the page as a "
                          u"PDF file instead?"_s;
constexpr int PointCount = 61;  ///< of the example
constexpr int LastIgnored = 47; ///< the points before the three that are used
constexpr int UsedPoint = 49;

/// Pratt County, opened in the window and computed.
class PrattProgram : public TruthProgram {
public:
    PrattProgram() {
        OpenThroughMenu(Example);
        Compute();
        if (K() != u"3.6"_s)
            qFatal("Pratt County gave K = %s", qPrintable(K()));
    }
    void OpenDialog(const char* button) { Press(button); }
    void ShowAllDialogs() {
        Press("CmdDetails");
        Press("CmdPrintPlot");
        Press("CmdPrtSummary");
    }
    /// The four places that say so.
    QStringList Warnings() {
        QStringList said;
        for (const QString& label : {u"StaleText"_s, u"PrtPlotStaleText"_s,
                                     u"PrtResultsStaleText"_s, u"DetailsStaleText"_s})
            said.append(Says(label));
        return said;
    }
    /// Prints the plot into a PDF file, as without a printer, and hands back its text.
    QString PrintedText(const QString& path) {
        Answers answers;
        answers.Box(u"Quarnel"_s, NoPrinter, QMessageBox::Yes);
        answers.FileName(path);
        QTest::mouseClick(&Find(u"CmdPrtPlot"_s), Qt::LeftButton);
        if (!answers.AllGiven())
            qFatal("Printing: %s", answers.Complaints().constData());
        QProcess process;
        process.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            qFatal("pdftotext failed");
        return QString::fromUtf8(process.readAllStandardOutput());
    }
};

/// What a program shows of its result, to be held against later.
struct Shown {
    explicit Shown(TruthProgram& program)
        : k(program.K())
        , report(program.Report())
        , picture(program.Picture())
        , page(PlotAsSvg(program.Page())) {}
    QString k;
    QString report;
    QByteArray picture;
    QByteArray page;
    bool operator==(const Shown& other) const = default;
};

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double one = Luminance(a) + 0.05;
    const double other = Luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

/// The highest contrast that any pixel of a label's text has with its ground.
double TextContrast(QWidget& label) {
    const QImage image = label.grab().toImage();
    const QColor ground = image.pixelColor(image.width() / 8, image.height() / 2);
    double highest = 1;
    for (int y = 4; y < image.height() - 4; ++y)
        for (int x = 4; x < image.width() - 4; ++x)
            highest = std::max(highest, Contrast(image.pixelColor(x, y), ground));
    return highest;
}

/// How many pixels around the middle of a widget are not of the colour of its corner.
int InkInTheMiddle(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    const QColor ground = image.pixelColor(image.width() / 2, image.height() / 4);
    int ink = 0;
    for (int y = image.height() / 2 - 12; y < image.height() / 2 + 12; ++y)
        for (int x = image.width() / 2 - 80; x < image.width() / 2 + 80; ++x)
            ink += image.pixelColor(x, y) == ground ? 0 : 1;
    return ink;
}

} // namespace

class TestOneTruth : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        // Whatever printers this machine has, the tests see none.
        qputenv("CUPS_SERVER", "localhost:1");
        QVERIFY(folder_.isValid());
    }

    // ---- What was seen to go wrong -------------------------------------------------------------

    void APageOpenedBeforeAnEditPrintsTheComputation() {
        PrattProgram program;
        const Shown before(program);
        program.OpenDialog("CmdPrintPlot");
        const QString path = folder_.filePath(u"before.pdf"_s);
        const QString unedited = program.PrintedText(path);
        program.OpenDialog("CmdPrintPlot");
        program.TypeReading(1, TruthProgram::LevelColumn, u"99"_s);
        program.ChooseEntry(u"RecDatTimeUnitsDDL"_s, Minute);
        program.Press("CmdRecDatCheckData");
        QCOMPARE(program.Says(u"PrtPlotStaleText"_s), Changed);
        const QString printed = program.PrintedText(folder_.filePath(u"after.pdf"_s));
        QCOMPARE(printed, unedited);
        QVERIFY(printed.contains(u"Hydraulic Conductivity: 3.6 m/day"_s));
        QVERIFY(printed.contains(u"Time (sec)"_s));
        QVERIFY(Shown(program) == before);
        QCOMPARE(program.Disagreement(), QString());
    }

    void ALookAtAnotherTabTakesNothingFromPageAndReport() {
        PrattProgram program;
        const Shown before(program);
        QVERIFY(!ReadDrawing(program.Page()).red.isEmpty());
        for (const int tab : {1, 3, 4, 5}) {
            program.Visit(tab);
            QVERIFY(Shown(program) == before);
        }
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        program.ChooseEntry(u"CmboKTimeUnits"_s, Hour);
        QCOMPARE(program.K(), u"0.15"_s);
        QCOMPARE(program.Disagreement(), QString());
    }

    void AComputeThatFailsLeavesNothingOfTheLastOne() {
        PrattProgram program;
        program.Press("CmdDetails");
        program.Mark(1, PointCount, 'I');
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"Less than 2 valid (Y>0) data points have been selected (Use) for parameter "
                    u"estimation. Hydraulic conductivity cannot be estimated."_s);
        QTest::mouseClick(&program.Find(u"CmdComputeK"_s), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.K(), QString());
        QCOMPARE(program.DetailsText(), QString());
        QCOMPARE(program.DetailsGrid().size(), 1);
        const ToldPlot page = ReadDrawing(program.Page());
        QVERIFY(!page.line && page.red.isEmpty());
        QVERIFY(!page.blue.isEmpty()); // the prepared points
        QVERIFY(!program.Report().contains(u"Hydraulic Conductivity"_s));
        QCOMPARE(program.Warnings(), QStringList(4, QString()));
        QCOMPARE(program.Disagreement(), QString());
    }

    void OpenDetailsKeepTheUnitsOfTheirNumbers() {
        PrattProgram program;
        program.Press("CmdDetails");
        const QList<QStringList> grid = program.DetailsGrid();
        const QString text = program.DetailsText();
        QCOMPARE(grid[0].mid(1), QStringList({u"Time (sec)"_s, u"Y (m)"_s, u"Fit Y (m)"_s}));
        program.ChooseEntry(u"RecDatTimeUnitsDDL"_s, Minute);
        program.ChooseEntry(u"RecDatWaterLevelUnitsDDL"_s, Centimetre);
        QCOMPARE(program.DetailsGrid(), grid);
        QCOMPARE(program.DetailsText(), text);
        QCOMPARE(program.Says(u"DetailsStaleText"_s), Changed);
        // Opened anew they are still those of the computation.
        program.Details().close();
        program.GoTo(5);
        program.Press("CmdDetails");
        QCOMPARE(program.DetailsGrid(), grid);
        QCOMPARE(program.Disagreement(), QString());
    }

    void ChangedMarksAndDataSayThatTheComputationIsOld() {
        PrattProgram program;
        program.ShowAllDialogs();
        QCOMPARE(program.Warnings(), QStringList(4, QString()));
        QVERIFY(!program.KIsGreyed());
        program.Mark(UsedPoint, UsedPoint, 'I');
        QCOMPARE(program.Warnings(), QStringList(4, Changed));
        QVERIFY(program.KIsGreyed());
        program.Mark(UsedPoint, UsedPoint, 'U');
        QCOMPARE(program.Warnings(), QStringList(4, QString()));
        QVERIFY(!program.KIsGreyed());
        program.TypeReading(30, TruthProgram::LevelColumn, u"0.5"_s);
        QCOMPARE(program.Warnings().mid(1), QStringList(3, Changed)); // another panel is shown
        program.GoTo(5);
        QCOMPARE(program.Warnings(), QStringList(4, Changed));
        QCOMPARE(program.K(), u"3.6"_s);
        program.Compute();
        QCOMPARE(program.Warnings(), QStringList(4, QString()));
        QVERIFY(!program.KIsGreyed());
        QCOMPARE(program.Disagreement(), QString());
    }

    // ---- Put back ------------------------------------------------------------------------------

    void DataPutBackAreCurrentAgain() {
        PrattProgram program;
        const auto standing = [&program] {
            program.GoTo(5);
            const bool says = program.Says(u"StaleText"_s) == Changed;
            return says != program.KIsGreyed() ? u"undecided"_s : says ? u"old"_s : u"current"_s;
        };
        program.TypeGeometry(0, u"50.6"_s); // as a value the same, as a text not
        QCOMPARE(standing(), u"old"_s);
        program.TypeGeometry(0, u"50.60"_s);
        QCOMPARE(standing(), u"current"_s);
        program.TypeReading(20, TruthProgram::TimeColumn, u"3.3"_s);
        QCOMPARE(standing(), u"old"_s);
        program.TypeReading(20, TruthProgram::TimeColumn, u"3.2"_s);
        QCOMPARE(standing(), u"current"_s);
        for (const QString& list : {u"WellGeoVertUnitsDDL"_s, u"WellGeoRadUnitsDDL"_s,
                                    u"RecDatTimeUnitsDDL"_s, u"RecDatWaterLevelUnitsDDL"_s}) {
            const int before = program.Find<QComboBox>(list).currentIndex();
            program.ChooseEntry(list, before == 0 ? 1 : 0);
            QCOMPARE(list + standing(), list + u"old"_s);
            program.ChooseEntry(list, before);
            QCOMPARE(list + standing(), list + u"current"_s);
        }
        program.Mark(LastIgnored, LastIgnored, 'U');
        QCOMPARE(standing(), u"old"_s);
        program.Mark(LastIgnored, LastIgnored, 'I');
        QCOMPARE(standing(), u"current"_s);
        QCOMPARE(program.Disagreement(), QString());
    }

    void TheReadingBeforeTheTestAndItsTypeCountForLevelsOnly() {
        PrattProgram program;
        program.ChooseEntry(u"RecDatSlugTestTypeDDL"_s, FallingHead);
        program.GoTo(5);
        QCOMPARE(program.Says(u"StaleText"_s), QString()); // changes in head need no type
        program.ChooseEntry(u"RecDatDataTypeDDL"_s, GroundwaterHead);
        program.TypePreSlug(u"0"_s);
        program.Compute();
        QVERIFY(!program.K().isEmpty());
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        program.TypePreSlug(u"-0.1"_s);
        program.GoTo(5);
        QCOMPARE(program.Says(u"StaleText"_s), Changed);
        program.TypePreSlug(u"0"_s);
        program.GoTo(5);
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        program.ChooseEntry(u"RecDatSlugTestTypeDDL"_s, RisingHead);
        program.Visit(5);
        QCOMPARE(program.Says(u"StaleText"_s), Changed);
        program.ChooseEntry(u"RecDatSlugTestTypeDDL"_s, FallingHead);
        program.Visit(5);
        QCOMPARE(program.Says(u"StaleText"_s), QString());
    }

    void BlankRowsMakeNoDifferenceAndTheOrderDoes() {
        PrattProgram program;
        program.GoTo(4);
        // Row 3 gets an empty one before it.
        program.TypeReading(3, TruthProgram::TimeColumn, u"0.3"_s);
        program.Press("CmdInsertRows");
        program.Press("CmdInsertRowsOK");
        program.GoTo(5);
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        program.TypeReading(1, TruthProgram::TimeColumn, u"0.2"_s);
        program.TypeReading(2, TruthProgram::TimeColumn, u"0.1"_s);
        program.GoTo(5);
        QCOMPARE(program.Says(u"StaleText"_s), Changed);
        program.PressGridKey(Qt::Key_Z, Qt::ControlModifier);
        program.GoTo(5);
        QCOMPARE(program.Disagreement(), QString());
    }

    void MarksOfTwoPointsWithOneKeyStayUse() {
        TruthProgram program;
        program.OpenThroughMenu(Example);
        program.TypeReading(1, TruthProgram::TimeColumn, u"0.2"_s); // now twice "0.2", "0.663"
        program.Mark(1, 2, 'I');
        program.Mark(1, 1, 'U');
        program.Mark(2, 2, 'U');
        program.Visit(1);
        program.Visit(5);
        QCOMPARE(program.MarkAt(1), u"Use"_s);
        QCOMPARE(program.MarkAt(2), u"Use"_s);
        program.Mark(1, 2, 'I');
        program.Compute();
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        QCOMPARE(program.Disagreement(), QString());
    }

    // ---- What is not part of it ----------------------------------------------------------------

    void NamesAndTitlesArePrintedAsTheyStandAndDoNotMakeItOld() {
        PrattProgram program;
        program.GoTo(2);
        TypeInto(program.Find<QLineEdit>(u"WellTestIDTxt"_s, 0), u"Well of now"_s);
        program.GoTo(1);
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, 1), u"Site of now"_s);
        program.GoTo(5);
        program.Press("CmdPrintPlot");
        TypeInto(program.Find<QLineEdit>(u"PlotText"_s, 0), u"Title of now"_s);
        program.Press("CmdCancel");
        program.Press("CmdDetails");
        QCOMPARE(program.Says(u"StaleText"_s), QString());
        QVERIFY(!program.KIsGreyed());
        const QStringList page = ReadDrawing(program.Page()).labels;
        QVERIFY(page.contains(u"Well: Well of now"_s));
        QVERIFY(page.contains(u"Site Name: Site of now"_s));
        QVERIFY(page.contains(u"Title of now"_s));
        QVERIFY(program.DetailsText().contains(u"Monitoring Well: Well of now"_s));
        QVERIFY(program.Report().contains(u"Monitoring Well: Well of now"_s));
        QCOMPARE(program.Disagreement(), QString());
    }

    void UnitsOfKRedisplayItEverywhereCurrentOrNot() {
        PrattProgram program;
        program.Press("CmdDetails");
        for (const bool old : {false, true}) {
            if (old)
                program.Mark(UsedPoint, UsedPoint, 'I');
            QCOMPARE(program.KIsGreyed(), old);
            program.ChooseEntry(u"CmboKLengthUnits"_s, Centimetre);
            program.ChooseEntry(u"CmboKTimeUnits"_s, Second);
            QCOMPARE(program.K(), u"0.00416"_s);
            QCOMPARE(program.Disagreement(), QString());
            QVERIFY(program.DetailsText().contains(u"Conductivity: 0.00416 cm/sec"_s));
            QVERIFY(program.Report().contains(u"Conductivity: 0.00416 cm/sec"_s));
            QCOMPARE(program.KIsGreyed(), old);
            program.ChooseEntry(u"CmboKLengthUnits"_s, Metre);
            program.ChooseEntry(u"CmboKTimeUnits"_s, Day);
            QCOMPARE(program.K(), u"3.6"_s);
        }
    }

    // ---- Nothing left --------------------------------------------------------------------------

    void NewAndOpenLeaveNothingToPrint() {
        for (const bool open : {false, true}) {
            PrattProgram program;
            program.ShowAllDialogs();
            program.Mark(UsedPoint, UsedPoint, 'I');
            if (open)
                program.OpenThroughMenu(OtherExample);
            else
                program.NewThroughMenu();
            QCOMPARE(program.Warnings(), QStringList(4, QString()));
            QVERIFY(!program.KIsGreyed());
            QCOMPARE(program.K(), QString());
            QCOMPARE(program.Disagreement(), QString());
            const ToldPlot page = ReadDrawing(program.Page());
            QVERIFY(!page.HasAxes() && page.blue.isEmpty());
            QVERIFY(page.labels.filter(u"Site 36"_s).isEmpty());
            QVERIFY(!program.Report().contains(u"0.663"_s));
            QVERIFY(program.Picture().isEmpty());
        }
    }

    // ---- Empty states speak --------------------------------------------------------------------

    void AnEmptyPlotSaysWhatToPressOnScreenOnly() {
        TruthProgram program;
        program.OpenThroughMenu(Example);
        program.Visit(5);
        QVERIFY(InkInTheMiddle(program.Plot()) > 100);
        QVERIFY(program.Plot().Shown().IsEmpty());
        QVERIFY(program.Picture().isEmpty());
        QVERIFY(!windowtest::Find<QAction>(program.Plot(), u"SavePlot"_s).isEnabled());
        const ToldPlot page = ReadDrawing(program.Page());
        QVERIFY(page.labels.filter(Invitation).isEmpty());
        QVERIFY(!program.Report().contains(Invitation));
        program.Compute();
        QVERIFY(ReadDrawing(program.Plot().Shown()).labels.filter(Invitation).isEmpty());
        QVERIFY(!program.Picture().contains("Press"));
    }

    void EmptyDetailsSayWhatToPress() {
        TruthProgram program;
        program.OpenThroughMenu(Example);
        program.Visit(5);
        program.Press("CmdDetails");
        auto& text = program.Find<QPlainTextEdit>(u"SummaryText"_s);
        QCOMPARE(text.toPlainText(), QString());
        QCOMPARE(text.placeholderText(), Invitation);
        const QImage empty = text.grab().toImage();
        text.setPlaceholderText(QString());
        QVERIFY(text.grab().toImage() != empty); // it is to be seen
    }

    void GreyedKCanBeRead() {
        PrattProgram program;
        const QPalette usual = QApplication::palette();
        for (const bool dark : {false, true}) {
            if (dark)
                QApplication::setPalette(QPalette(QColor(60, 60, 60), QColor(40, 40, 40)));
            program.Mark(UsedPoint, UsedPoint, 'U');
            const double current = TextContrast(program.KLabel());
            program.Mark(UsedPoint, UsedPoint, 'I');
            const double greyed = TextContrast(program.KLabel());
            QVERIFY2(greyed < current, "K is not greyed");
            QVERIFY2(greyed >= 4.5, qPrintable(QString::number(greyed)));
        }
        QApplication::setPalette(usual);
    }

private:
    QTemporaryDir folder_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestOneTruth)

#include "test_one_truth.moc"

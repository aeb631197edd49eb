#include "tests/gui/MenuTestSupport.h"
#include "tests/gui/WindowTestSupport.h"

#include "diagnostics/DiagnosticsFrm.h"
#include "output/PagePainter.h"
#include "output/PlotExport.h"
#include "output/PlotWidget.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <cmath>

namespace quarnel::windowtest {

namespace {

constexpr int CriteriaColumn = 3;

const QString Pratt = SourceFile("examples/pratt-county-1998.qn2");
const QString NoComputation = u"Press Compute K/ Plot first."_s;
const QString Stale = u"The data have changed. Press Compute K/ Plot."_s;
const QString YWarning =
    u"Y values <= 0 are present. This is OK, butY values <=0 cannot be used for parameter "
    u"estimation. Y values <=0 near the start of the recovery data may indicate an error in the "
    u"recovery data, an error in the specified Water Level Measurement method, or an error in the "
    u"specified Slug Test Type."_s;

enum Tab { Statistics, HeadWindowsTab, Checks, Moves, Residuals };
const QStringList TabNames = {u"Statistics"_s, u"Head Windows"_s, u"Checks"_s, u"What Moves K"_s,
                              u"Residuals"_s};

using Readings = QList<std::pair<double, double>>;

/// Y = exp(-t/40) s, every 10 s.
Readings Falling(int count) {
    Readings readings;
    for (int i = 0; i < count; ++i)
        readings.append({i * 10.0, std::exp(-i / 4.0)});
    return readings;
}

/// A steep beginning and a slower end, both straight.
Readings TwoStraight() {
    Readings readings;
    for (int i = 0; i <= 5; ++i)
        readings.append({i * 10.0, std::exp(-0.3 * i)});
    for (int i = 6; i <= 12; ++i)
        readings.append({i * 10.0, std::exp(-1.5 - 0.05 * (i - 5))});
    return readings;
}

class DiagnosticsProgram : public Program {
public:
    DiagnosticsProgram() = default;
    explicit DiagnosticsProgram(const Readings& readings) {
        State().WellGeoText = {"10", "8", "5", "8", "2", "0"};
        State().RecDatDataTypeDDL = ChangeInHead;
        State().RecDatGrid.assign(std::max<std::size_t>(50, std::size_t(readings.size())), {});
        for (qsizetype i = 0; i < readings.size(); ++i)
            State().RecDatGrid[static_cast<std::size_t>(i)] = {
                CellText(std::to_string(readings[i].first)),
                CellText(std::to_string(readings[i].second))};
        ClickTab(5);
    }

    /// The Pratt County test, its K not yet computed.
    void OpenPratt() {
        Window().OpenPath(Pratt);
        ClickTab(5);
    }
    void Compute() { QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton); }
    void ShowDiagnostics() {
        Window().activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&Window()));
        QTest::keyClick(&Window(), Qt::Key_D, Qt::ControlModifier);
    }
    void ShowPage(Tab tab) {
        auto& bar = *Tabs().tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(tab).center());
    }

    DiagnosticsFrm& Frm() { return Find<DiagnosticsFrm>(u"DiagnosticsFrm"_s); }
    QTabWidget& Tabs() { return Find<QTabWidget>(u"DiagnosticsTabs"_s); }
    QString Label(const char* name) { return Find<QLabel>(QString::fromLatin1(name)).text(); }
    QString StateLine() { return Label("DiagnosticsState"); }
    QTableView& Grid(const char* name) { return Find<QTableView>(QString::fromLatin1(name)); }
    QStringList Row(const char* grid, int row) {
        const QAbstractItemModel& model = *Grid(grid).model();
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.index(row, column).data().toString();
        return texts;
    }
    QStringList Column(const char* grid, int column) {
        const QAbstractItemModel& model = *Grid(grid).model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, column).data().toString();
        return texts;
    }
    QPushButton& Button(const char* name) { return Find<QPushButton>(QString::fromLatin1(name)); }
    void Click(const char* name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }

    QTableView& MarkGrid() { return Grid("RecDatWeightGrid"); }
    /// The numbers (from 1) of the points marked Use.
    QList<int> Used() {
        QList<int> used;
        const QStringList marks = Column("RecDatWeightGrid", CriteriaColumn);
        for (int i = 0; i < marks.size(); ++i)
            if (marks[i] == u"Use"_s)
                used.append(i + 1);
        return used;
    }
    PlotWidget& Plot() { return Find<PlotWidget>(u"Plot1"_s); }
};

void ChooseInMenu(QWidget& area, const QString& name) {
    WithMenu(area, [&](QMenu& menu) {
        for (QAction* action : menu.actions())
            if (action->objectName() == name) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                return;
            }
        qFatal("The menu lacks %s", qPrintable(name));
    });
}

/// Every text that the window shows on any page, pictures included.
QStringList AllTexts(DiagnosticsProgram& program) {
    QStringList texts;
    for (int tab = 0; tab < TabNames.size(); ++tab) {
        program.ShowPage(static_cast<Tab>(tab));
        for (const QLabel* label : program.Frm().findChildren<QLabel*>())
            if (label->isVisible())
                texts << label->text();
        for (const QTableView* grid : program.Frm().findChildren<QTableView*>())
            if (grid->isVisible())
                texts << program.Column(qPrintable(grid->objectName()), 0)
                      << program.Column(qPrintable(grid->objectName()), 1);
        for (const DrawingWidget* picture : program.Frm().findChildren<DrawingWidget*>())
            if (picture->isVisible())
                for (const DrawingLabel& label : picture->Shown().labels)
                    texts << ToQString(label.text);
    }
    return texts;
}

QString Clipboard() {
    return QGuiApplication::clipboard()->text();
}

/// What pdftotext reads in a file; nothing where that is no PDF.
QString PdfText(const QString& path) {
    QProcess process;
    process.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    process.waitForFinished(-1);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestDiagnostics : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- Opening and states --------------------------------------------------------------------

    void ToolsStandsBetweenFileAndAbout() {
        DiagnosticsProgram program;
        QStringList captions;
        for (const QAction* action : program.Window().menuBar()->actions())
            captions << action->text();
        QCOMPARE(captions, QStringList({u"&File"_s, u"&Tools"_s, u"A&bout"_s}));
        QVERIFY(program.Window().findChild<DiagnosticsFrm*>() == nullptr);
        program.Choose(u"mnuDiagnostics"_s);
        QVERIFY(program.Frm().isVisible());
        QVERIFY(!program.Frm().isModal());
        QCOMPARE(program.Frm().windowTitle(), u"Diagnostics"_s);
        QCOMPARE(program.Frm().size(), QSize(760, 560));
    }

    void TheKeyboardBeginsAtTheTabsAndPageKeysTurnThem() {
        DiagnosticsProgram program;
        program.OpenPratt();
        program.Compute();
        program.ShowDiagnostics();
        QVERIFY(QTest::qWaitForWindowActive(&program.Frm()));
        QTRY_VERIFY(program.Tabs().tabBar()->hasFocus());
        const QImage with = program.Tabs().tabBar()->grab().toImage();
        QList<int> seen;
        for (int i = 0; i < TabNames.size(); ++i) {
            QTest::keyClick(program.Frm().windowHandle(), Qt::Key_PageDown, Qt::ControlModifier);
            seen << program.Tabs().currentIndex();
        }
        QCOMPARE(seen, QList<int>({1, 2, 3, 4, 0}));
        QTest::keyClick(program.Frm().windowHandle(), Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(program.Tabs().currentIndex(), 4);
        program.Tabs().setCurrentIndex(0);
        // A frame shows where the keyboard is.
        program.Button("DiagnosticsClose").setFocus();
        QVERIFY(program.Tabs().tabBar()->grab().toImage() != with);
        program.Click("DiagnosticsClose");
        program.ShowDiagnostics();
        QTRY_VERIFY(program.Tabs().tabBar()->hasFocus());
    }

    void ThePlotsMenuOpensIt() {
        DiagnosticsProgram program;
        program.OpenPratt();
        ChooseInMenu(program.Plot(), u"mnuDiagnostics"_s);
        QVERIFY(program.Frm().isVisible());
    }

    void WithoutAComputationEachPageSaysWhatToPress() {
        DiagnosticsProgram program;
        program.ShowDiagnostics();
        QCOMPARE(program.StateLine(), NoComputation);
        QVERIFY(!program.Tabs().isEnabled());
        QVERIFY(!program.Find(u"DiagnosticsSentence"_s).isVisible());
        for (const char* name : {"DiagnosticsCopy", "DiagnosticsPrint", "DiagnosticsSavePdf"})
            QVERIFY2(!program.Button(name).isEnabled(), name);
        for (int tab = 0; tab < TabNames.size(); ++tab) {
            QCOMPARE(program.Tabs().tabText(tab), TabNames[tab]);
            program.Tabs().setCurrentIndex(tab);
            int said = 0;
            for (const QLabel* label : program.Tabs().currentWidget()->findChildren<QLabel*>())
                if (label->isVisible()) {
                    QCOMPARE(label->text(), NoComputation);
                    ++said;
                }
            QCOMPARE(said, 1);
        }
    }

    void AComputationFillsTheWindow() {
        DiagnosticsProgram program;
        program.ShowDiagnostics();
        program.OpenPratt();
        QCOMPARE(program.StateLine(), NoComputation);
        program.Compute();
        QCOMPARE(program.StateLine(), u"K = 3.6 m/day from 3 of 61 points."_s);
        const QString sentence = program.Label("DiagnosticsSentence");
        QVERIFY2(sentence.startsWith(u"3 of 61 readings used, normalized head 0.29 to 0.21; K 3.6 "
                                     u"m/day, "_s),
                 qPrintable(sentence));
        QVERIFY2(sentence.contains(u"(95 % of the scatter only); drained porosity"_s),
                 qPrintable(sentence));
        QVERIFY(program.Find(u"DiagnosticsSentence"_s).isVisible());
        QVERIFY(program.Tabs().isEnabled());
    }

    void AnEditSaysThatTheDataHaveChangedAndTheValuesStay() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        const QStringList before = program.Column("DiagnosticsStatisticsGrid", 1);
        program.ClickTab(3);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, 0), u"11"_s);
        QTRY_COMPARE(program.StateLine(), Stale);
        QCOMPARE(program.Column("DiagnosticsStatisticsGrid", 1), before);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, 0), u"10"_s);
        QTRY_VERIFY(program.StateLine() != Stale);
    }

    void AFailedComputationLeavesNone() {
        DiagnosticsProgram program(Falling(3));
        program.Compute();
        program.ShowDiagnostics();
        QVERIFY(program.Tabs().isEnabled());
        program.MarkGrid().selectColumn(CriteriaColumn);
        QTest::keyClick(&program.MarkGrid(), 'I');
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"Less than 2 valid (Y>0) data points have been selected (Use) for parameter "
                    u"estimation. Hydraulic conductivity cannot be estimated."_s);
        program.Compute();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.StateLine(), NoComputation);
        QVERIFY(!program.Tabs().isEnabled());
    }

    void NewAndOpenEmptyTheOpenWindow() {
        DiagnosticsProgram program;
        program.OpenPratt();
        program.Compute();
        program.ShowDiagnostics();
        for (int tab = 0; tab < TabNames.size(); ++tab)
            program.ShowPage(static_cast<Tab>(tab));
        {
            Answers answers;
            answers.Dialog<QMessageBox>([](QMessageBox& box) {
                QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
            });
            program.Choose(u"mnuNew"_s);
            QVERIFY2(answers.AllGiven(), answers.Complaints());
        }
        QCOMPARE(program.StateLine(), NoComputation);
        QVERIFY(!program.Tabs().isEnabled());
        QVERIFY(program.Find<DrawingWidget>(u"ResidualPlot"_s).Shown().IsEmpty());
        program.OpenPratt();
        program.Compute();
        QCOMPARE(program.StateLine(), u"K = 3.6 m/day from 3 of 61 points."_s);
        program.Window().OpenPath(Pratt);
        QCOMPARE(program.StateLine(), NoComputation);
    }

    void NothingIsWorkedOutWhileItIsHidden() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        const QString before = program.Label("DiagnosticsSentence");
        QTest::keyClick(&program.Frm(), Qt::Key_Escape);
        QVERIFY(!program.Frm().isVisible());
        program.MarkGrid().setCurrentIndex(program.MarkGrid().model()->index(0, CriteriaColumn));
        QTest::keyClick(&program.MarkGrid(), 'I');
        program.Compute();
        QCOMPARE(program.Label("DiagnosticsSentence"), before);
        program.ShowDiagnostics();
        QVERIFY(program.Label("DiagnosticsSentence").startsWith(u"7 of 8 readings used"_s));
    }

    void OtherUnitsOfKAreShownAtOnce() {
        DiagnosticsProgram program;
        program.OpenPratt();
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        auto& units = program.Find<QComboBox>(u"CmboKTimeUnits"_s);
        units.setFocus();
        QTest::keyClick(&units, Qt::Key_Up);
        QVERIFY2(program.StateLine() != u"K = 3.6 m/day from 3 of 61 points."_s,
                 qPrintable(program.StateLine()));
        const QString unit = u"K (m/"_s + units.currentText() + u")"_s;
        QCOMPARE(program.Grid("DiagnosticsWindowsGrid")
                     .model()
                     ->headerData(2, Qt::Horizontal)
                     .toString(),
                 unit);
        QVERIFY(program.Label("DiagnosticsSentence").contains(u" m/"_s + units.currentText()));
    }

    void ASlugVolumeTypedLaterIsTakenOver() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        QCOMPARE(program.Label("DiagnosticsSlugVolume"),
                 u"No slug volume: the initial change in head cannot be checked."_s);
        program.ClickTab(2);
        auto& box = program.Find<QLineEdit>(u"VolumeOfSlugText"_s);
        TypeInto(box, u"abc"_s);
        QTest::qWait(50);
        QCOMPARE(program.Label("DiagnosticsSlugVolume"),
                 u"No slug volume: the initial change in head cannot be checked."_s);
        TypeInto(box, u"2"_s);
        QTRY_VERIFY(
            program.Label("DiagnosticsSlugVolume").startsWith(u"Expected from the slug "_s));
    }

    // ---- Pages ---------------------------------------------------------------------------------

    void StatisticsNamesItsRows() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        QCOMPARE(program.Column("DiagnosticsStatisticsGrid", 0),
                 QStringList({u"Points used"_s, u"K"_s, u"K, 95 % interval"_s,
                              u"K, 95 % interval, adjusted"_s, u"Slope (1/sec)"_s,
                              u"Standard error of slope"_s, u"Intercept (ln cm)"_s,
                              u"Standard error of intercept"_s, u"Residual standard deviation"_s,
                              u"R2"_s, u"Lag-1 autocorrelation"_s, u"Durbin-Watson"_s,
                              u"Effective number of points"_s}));
        QCOMPARE(program.Row("DiagnosticsStatisticsGrid", 0),
                 QStringList({u"Points used"_s, u"8 of 8"_s}));
        QCOMPARE(program.Label("DiagnosticsIntervalNote"),
                 u"This interval covers only the scatter of the used readings about the line. It "
                 u"does not cover the choice of readings, the well's dimensions, the static level "
                 u"or the method."_s);
        QVERIFY(program.Label("DiagnosticsHvorslev").startsWith(u"Hvorslev (1951): "_s));
        for (const char* name :
             {"DiagnosticsIntervalNote", "DiagnosticsSlugVolume", "DiagnosticsHvorslev"})
            QVERIFY(program.Find<QLabel>(QString::fromLatin1(name)).textInteractionFlags() &
                    Qt::TextSelectableByMouse);
    }

    void HeadWindowsMarksTheRecommendedRow() {
        DiagnosticsProgram program;
        program.OpenPratt();
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        QCOMPARE(program.Column("DiagnosticsWindowsGrid", 0),
                 QStringList({u"All valid"_s, u"1.00-0.30"_s, u"0.80-0.40"_s, u"0.50-0.25"_s,
                              u"0.30-0.20"_s, u"0.25-0.15"_s, u"0.20-0.10"_s, u"As marked"_s}));
        const QAbstractItemModel& model = *program.Grid("DiagnosticsWindowsGrid").model();
        for (int row = 0; row < model.rowCount(); ++row)
            QCOMPARE(qvariant_cast<QFont>(model.index(row, 0).data(Qt::FontRole)).bold(), row == 4);
        QCOMPARE(model.index(4, 0).data(Qt::ToolTipRole).toString(),
                 u"Recommended for a screen below the water table (Butler, McElwee and Liu 1996; "
                 u"Butler 1998)."_s);
        QCOMPARE(model.index(5, 2).data(Qt::ToolTipRole).toString(),
                 u"Recommended for the Hvorslev method (Butler 1998)."_s);
        QCOMPARE(program.Label("DiagnosticsSegments"), u"No two straight segments stand out."_s);
        QVERIFY(program.Button("MarkHeadRange").isEnabled());
        QVERIFY(!program.Button("MarkFirstSegment").isEnabled());
        QVERIFY(!program.Button("MarkSecondSegment").isEnabled());
    }

    void CautionsStandAboveNotesEachWithWordAndSign() {
        DiagnosticsProgram program(TwoStraight());
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(Checks);
        const QStringList levels = program.Column("DiagnosticsChecksGrid", 0);
        QVERIFY(levels.contains(u"Caution"_s) && levels.contains(u"Note"_s));
        QVERIFY(levels.lastIndexOf(u"Caution"_s) < levels.indexOf(u"Note"_s));
        const QAbstractItemModel& model = *program.Grid("DiagnosticsChecksGrid").model();
        for (int row = 0; row < model.rowCount(); ++row)
            QVERIFY(!qvariant_cast<QIcon>(model.index(row, 0).data(Qt::DecorationRole)).isNull());
        for (int column = 0; column < 3; ++column)
            QCOMPARE(model.headerData(column, Qt::Horizontal).toString(),
                     QStringList({u"Level"_s, u"Check"_s, u"Text"_s})[column]);
        QCOMPARE(program.Label("DiagnosticsChecksNote"),
                 u"Skin and fines cannot be seen from one test: repeat it with another initial "
                 u"change in head."_s);
    }

    void WhatMovesKFollowsThePercentTyped() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(Moves);
        auto& percent = program.Find<QSpinBox>(u"SensitivityPercent"_s);
        QCOMPARE(percent.minimum(), 1);
        QCOMPARE(percent.maximum(), 50);
        QCOMPARE(percent.value(), 10);
        QVERIFY(
            program.Column("DiagnosticsSensitivityGrid", 0).contains(u"dc 10 % less and more"_s));
        QVERIFY(program.Label("DiagnosticsLargest").startsWith(u"Largest here: "_s));
        percent.setFocus();
        percent.selectAll();
        QTest::keyClicks(&percent, u"25"_s);
        QTest::keyClick(&percent, Qt::Key_Return);
        QVERIFY(program.Frm().isVisible());
        QVERIFY(
            program.Column("DiagnosticsSensitivityGrid", 0).contains(u"dc 25 % less and more"_s));
        QCOMPARE(program.Label("DiagnosticsCurvesNote"),
                 u"Reading the published curves is good to about 5 %."_s);
    }

    void TheLongestBarStandsAbove() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(Moves);
        QTableView& grid = program.Grid("DiagnosticsSensitivityGrid");
        const int barColumn = grid.model()->columnCount() - 1;
        const QColor colour = grid.palette().color(QPalette::Highlight);
        grid.clearSelection();
        const auto coloured = [&](int row) {
            const QRect cell = grid.visualRect(grid.model()->index(row, barColumn));
            const QImage image = grid.viewport()->grab(cell).toImage();
            int count = 0;
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, image.height() / 2) == colour ? 1 : 0;
            return count;
        };
        QVERIFY(coloured(0) > 20);
        QVERIFY(coloured(0) > coloured(grid.model()->rowCount() - 1));
    }

    void ResidualsAreDrawnAndCopied() {
        DiagnosticsProgram program(TwoStraight());
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(Residuals);
        auto& segments = program.Find<DrawingWidget>(u"SegmentsPlot"_s);
        auto& residuals = program.Find<DrawingWidget>(u"ResidualPlot"_s);
        QCOMPARE(residuals.Shown().circles.size(), std::size_t{13});
        QVERIFY(std::any_of(segments.Shown().lines.begin(), segments.Shown().lines.end(),
                            [](const DrawingLine& line) { return line.dashed; }));
        QStringList captions;
        WithMenu(residuals, [&captions](QMenu& menu) {
            for (const QAction* action : menu.actions())
                captions << action->text();
        });
        QCOMPARE(captions, QStringList({u"&Copy Picture"_s, u"&Save As Picture..."_s}));
        QGuiApplication::clipboard()->clear();
        ChooseInMenu(residuals, u"CopyPicture"_s);
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    }

    void APictureIsSavedAsSvg() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(Residuals);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"residuals.svg"_s);
        Answers answers;
        answers.FileName(path);
        ChooseInMenu(program.Find(u"ResidualPlot"_s), u"SavePicture"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("Residuals: s "));
    }

    // ---- Marks ---------------------------------------------------------------------------------

    void TooFewReadingsInTheRangeAreTold_data() {
        QTest::addColumn<QList<double>>("levels");
        QTest::addColumn<QString>("text");
        const QString rest = u" between 0.20 and 0.30 of the first change in head. Marks were left "
                             u"as they are."_s;
        QTest::newRow("none") << QList<double>{1, 0.9, 0.8, 0.1} << u"No reading lies"_s + rest;
        QTest::newRow("one") << QList<double>{1, 0.9, 0.25, 0.1} << u"Only 1 reading lies"_s + rest;
        QTest::newRow("two") << QList<double>{1, 0.9, 0.3, 0.2} << u"Only 2 readings lie"_s + rest;
    }
    void TooFewReadingsInTheRangeAreTold() {
        QFETCH(QList<double>, levels);
        QFETCH(QString, text);
        Readings readings;
        for (qsizetype i = 0; i < levels.size(); ++i)
            readings.append({double(i) * 10, levels[i]});
        DiagnosticsProgram program(readings);
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        const QList<int> before = program.Used();
        Answers answers;
        answers.Box(u"Diagnostics"_s, text);
        program.Click("MarkHeadRange");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Used(), before);
        QVERIFY(program.StateLine() != Stale);
    }

    void EachMarkButtonIsOneStepToUndoAndRedo_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QList<int>>("used");
        QTest::newRow("range") << u"MarkHeadRange"_s << QList<int>{6, 7, 8};
        QTest::newRow("first") << u"MarkFirstSegment"_s << QList<int>{1, 2, 3, 4, 5, 6};
        QTest::newRow("second") << u"MarkSecondSegment"_s << QList<int>{7, 8, 9, 10, 11, 12, 13};
    }
    void EachMarkButtonIsOneStepToUndoAndRedo() {
        QFETCH(QString, button);
        QFETCH(QList<int>, used);
        DiagnosticsProgram program(TwoStraight());
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        const QList<int> all = program.Used();
        QVERIFY2(program.Button(qPrintable(button)).isEnabled(),
                 qPrintable(program.Label("DiagnosticsSegments")));
        program.Click(qPrintable(button));
        QCOMPARE(program.Used(), used);
        QCOMPARE(program.StateLine(), Stale);
        QTest::keyClick(&program.MarkGrid(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Used(), all);
        QVERIFY(program.StateLine() != Stale);
        QTest::keyClick(&program.MarkGrid(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Used(), used);
        // The readings are the same, so another button may be tried at once.
        QVERIFY(program.Button("MarkHeadRange").isEnabled());
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"marked.qn2"_s);
        Answers answers;
        answers.FileName(path);
        program.Choose(u"mnuSaveAs"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        program.Window().OpenPath(path);
        program.ClickTab(5);
        QCOMPARE(program.Used(), used);
        program.Compute();
        QCOMPARE(program.StateLine().section(u" from "_s, 1),
                 QStringLiteral("%1 of 13 points.").arg(used.size()));
    }

    void AnEditedReadingGreysTheMarkButtons() {
        DiagnosticsProgram program(TwoStraight());
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        program.ClickTab(4);
        QTableView& rows = program.Grid("RecDatGrid");
        const QModelIndex cell = rows.model()->index(0, 2);
        const QString before = cell.data().toString();
        const auto type = [&](const QString& text) {
            rows.setFocus();
            rows.setCurrentIndex(cell);
            QTest::keyClick(&rows, Qt::Key_Delete);
            QTest::keyClicks(&rows, text);
            QWidget* editor = rows.viewport()->findChild<QLineEdit*>();
            QTest::keyClick(editor != nullptr ? editor : &rows, Qt::Key_Return);
        };
        type(u"1.5"_s);
        QTRY_COMPARE(program.StateLine(), Stale);
        for (const char* name : {"MarkHeadRange", "MarkFirstSegment", "MarkSecondSegment"})
            QVERIFY2(!program.Button(name).isEnabled(), name);
        type(before);
        QTRY_VERIFY(program.StateLine() != Stale);
        QVERIFY(program.Button("MarkSecondSegment").isEnabled());
    }

    void MarksCanBeMadeAfterAFaultOnAnotherTab() {
        DiagnosticsProgram program(TwoStraight());
        program.Compute();
        program.ShowDiagnostics();
        program.ShowPage(HeadWindowsTab);
        program.ClickTab(3);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, 0), u"x"_s);
        Answers answers;
        answers.Dialog<QMessageBox>([](QMessageBox& box) { box.accept(); });
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Button("MarkSecondSegment").isEnabled());
        program.Click("MarkSecondSegment");
        QCOMPARE(program.Used(), QList<int>({7, 8, 9, 10, 11, 12, 13}));
    }

    // ---- The plot ------------------------------------------------------------------------------

    void TheHeadRangeIsShownOnDemandAndGoesAlong() {
        DiagnosticsProgram program;
        program.OpenPratt();
        const auto entry = [&program](auto act) {
            WithMenu(program.Plot(), [&act](QMenu& menu) {
                // Behind the commands that mark points and make pictures.
                const QList<QAction*> all = menu.actions().last(4);
                QVERIFY(all[0]->isSeparator());
                QCOMPARE(all[1]->objectName(), u"ShowHeadRange"_s);
                QCOMPARE(all[1]->text().remove(u'&'), u"Show Head Range 0.20-0.30"_s);
                QCOMPARE(all[2]->objectName(), u"LegendOnPictures"_s);
                QCOMPARE(all[3]->objectName(), u"mnuDiagnostics"_s);
                act(*all[1]);
            });
        };
        entry([](const QAction& action) { QVERIFY(!action.isEnabled() && !action.isChecked()); });
        program.Compute();
        entry([](const QAction& action) { QVERIFY(action.isEnabled() && !action.isChecked()); });
        const QByteArray off = PlotAsSvg(program.Plot().Shown());
        const QImage offImage = program.Plot().grab().toImage();
        ChooseInMenu(program.Plot(), u"ShowHeadRange"_s);
        entry([](const QAction& action) { QVERIFY(action.isChecked()); });
        QCOMPARE(program.Plot().Shown().areas.size(), std::size_t{1});
        QVERIFY(program.Plot().grab().toImage() != offImage);
        ChooseInMenu(program.Plot(), u"CopyPlot"_s);
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        QVERIFY(copied->data(u"image/svg+xml"_s).contains("0.20-0.30 of H0"));
        const Analysis& analysis = program.Window().Current();
        QVERIFY(PlotPages(analysis, PaperOf(PdfPageLayout())).page(0).areas.empty());
        ChooseInMenu(program.Plot(), u"ShowHeadRange"_s);
        QCOMPARE(PlotAsSvg(program.Plot().Shown()), off);
        QCOMPARE(program.Plot().grab().toImage(), offImage);
    }

    // ---- Copy, paper ----------------------------------------------------------------------------

    void EachPageIsCopiedAsText() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        const QStringList firstLines = {
            u"Points used\t8 of 8"_s, u"Normalized head\tPoints\tK (m/day)\tR2\tChange"_s,
            u"Level\tCheck\tText"_s, u"Largest here: "_s, u"Residuals: s "_s};
        for (int tab = 0; tab < TabNames.size(); ++tab) {
            program.ShowPage(static_cast<Tab>(tab));
            program.Click("DiagnosticsCopy");
            QVERIFY2(Clipboard().startsWith(firstLines[tab]), qPrintable(Clipboard()));
            QVERIFY(Clipboard().endsWith(u'\n'));
        }
        QVERIFY(Clipboard().contains(u"\nPoint\tTime (sec)\tln Y (cm)\tResidual\n1\t"_s));
    }

    void AllPagesAreSavedAsOnePdf() {
        DiagnosticsProgram program;
        program.OpenPratt();
        program.Compute();
        program.ShowDiagnostics();
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"sheet.pdf"_s);
        Answers answers;
        answers.FileName(path);
        program.Click("DiagnosticsSavePdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        const QString text = PdfText(path);
        QVERIFY2(text.contains(u"Diagnostics"_s), qPrintable(text));
        for (const QString& part :
             {u"3 of 61 readings used"_s, u"K = 3.6 m/day from 3 of 61 points."_s,
              u"Durbin-Watson"_s, u"0.30-0.20"_s, u"FEW_POINTS"_s, u"What Moves K"_s,
              u"Residuals: s "_s, u"Page 1 of "_s})
            QVERIFY2(text.contains(part), qPrintable(part + u" in\n"_s + text));
    }

    void TheSheetNeverReplacesTheProject() {
        DiagnosticsProgram program;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"own.pdf"_s);
        QVERIFY(QFile::copy(SourceFile("examples/pratt-county-1998.qn2"), path));
        program.Window().OpenPath(path);
        program.ClickTab(5);
        program.Compute();
        program.ShowDiagnostics();
        Answers answers;
        answers.FileName(path)
            .BoxAbout(u"own.pdf"_s, QMessageBox::Yes)
            .Box(u"Quarnel"_s, u"The diagnostics sheet needs a file of its own."_s);
        program.Click("DiagnosticsSavePdf");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readLine().contains("QUARNEL PROJECT FILE"));
    }

    void PrintingWithoutAPrinterOffersAPdf() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"The system has no default printer. Do you want to save the page as a PDF "
                    u"file instead?"_s,
                    QMessageBox::No);
        program.Click("DiagnosticsPrint");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    // ---- Bad input ------------------------------------------------------------------------------

    void EveryPageHasItsSentence_data() {
        QTest::addColumn<Readings>("readings");
        QTest::addColumn<bool>("rises");
        QTest::newRow("two points") << Readings{{0, 1}, {10, 0.5}} << false;
        QTest::newRow("three on a line") << Readings{{0, 1}, {10, 0.5}, {20, 0.25}} << false;
        QTest::newRow("rising") << Readings{{0, 1}, {10, 2}, {20, 3}, {30, 5}} << true;
        QTest::newRow("flat") << Readings{{0, 1}, {10, 1}, {20, 1}, {30, 1}} << false;
        QTest::newRow("equal times") << Readings{{0, 1}, {0, 0.9}, {10, 0.5}, {10, 0.4}} << false;
        QTest::newRow("unsorted") << Readings{{20, 0.2}, {0, 1}, {10, 0.5}, {30, 0.1}} << false;
        QTest::newRow("six equal after one")
            << Readings{{0, 1}, {1, 0.5}, {2, 0.5}, {3, 0.5}, {4, 0.5}, {5, 0.5}} << false;
    }
    void EveryPageHasItsSentence() {
        QFETCH(Readings, readings);
        QFETCH(bool, rises);
        DiagnosticsProgram program(readings);
        Answers answers;
        if (rises)
            answers.Dialog<QMessageBox>([](QMessageBox& box) { box.accept(); });
        program.Compute();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        program.ShowDiagnostics();
        const QStringList texts = AllTexts(program);
        QVERIFY(texts.size() > 40);
        for (const QString& text : texts) {
            QVERIFY2(!text.isEmpty(), "A cell or sentence is empty");
            QVERIFY2(!text.contains(u"nan"_s, Qt::CaseInsensitive) &&
                         !text.contains(QRegularExpression(u"\\binf\\b"_s)),
                     qPrintable(text));
        }
    }

    void TwoPointsAreSaidToHaveNoResiduals() {
        DiagnosticsProgram program({{0, 1}, {10, 0.5}});
        program.Compute();
        program.ShowDiagnostics();
        QVERIFY(program.Column("DiagnosticsStatisticsGrid", 1)
                    .contains(u"2 points: the line passes through both, so there are no "
                              u"statistics."_s));
        program.ShowPage(Residuals);
        const Drawing& drawing = program.Find<DrawingWidget>(u"ResidualPlot"_s).Shown();
        QCOMPARE(ToQString(drawing.labels.front().text), u"2 points: no residuals."_s);
    }

    // ---- Keys and sizes -------------------------------------------------------------------------

    void KeysAloneDoAtTwiceTheFont() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * 2);
        QApplication::setFont(large);
        {
            DiagnosticsProgram program(TwoStraight());
            program.Compute();
            program.ShowDiagnostics();
            QApplication::setActiveWindow(&program.Frm());
            program.Frm().resize(640, 420);
            QCOMPARE(program.Frm().size(), QSize(640, 420));
            QTabBar& bar = *program.Tabs().tabBar();
            bar.setFocus();
            for (int tab = 0; tab < TabNames.size(); ++tab) {
                QCOMPARE(program.Tabs().currentIndex(), tab);
                QVERIFY2(ReachesAllByTab(program), qPrintable(TabNames[tab]));
                bar.setFocus();
                QTest::keyClick(&bar, Qt::Key_Right);
            }
            QTest::keyClick(&bar, Qt::Key_Home);
            program.Tabs().setCurrentIndex(HeadWindowsTab);
            QPushButton& button = program.Button("MarkSecondSegment");
            for (int i = 0; i < 30 && !button.hasFocus(); ++i)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(button.hasFocus());
            QVERIFY(!button.visibleRegion().isEmpty());
            QTest::keyClick(&button, Qt::Key_Space);
            QCOMPARE(program.Used(), QList<int>({7, 8, 9, 10, 11, 12, 13}));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY(!program.Frm().isVisible());
        }
        QApplication::setFont(usual);
    }

    void EveryControlHasANameForScreenReaders() {
        DiagnosticsProgram program(Falling(8));
        program.Compute();
        program.ShowDiagnostics();
        for (const QWidget* widget : program.Frm().findChildren<QWidget*>())
            if (qobject_cast<const QTableView*>(widget) != nullptr ||
                qobject_cast<const DrawingWidget*>(widget) != nullptr ||
                qobject_cast<const QSpinBox*>(widget) != nullptr)
                QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
    }

private:
    /// Whether Tab leads from the tab bar to every control of the page and on to "Close".
    static bool ReachesAllByTab(DiagnosticsProgram& program) {
        QSet<QWidget*> seen;
        for (int i = 0; i < 40; ++i) {
            QWidget* focus = QApplication::focusWidget();
            if (focus == nullptr) {
                qWarning("The focus is lost");
                return false;
            }
            seen.insert(focus);
            if (focus->objectName() == u"DiagnosticsClose"_s)
                break;
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        for (QWidget* control : program.Tabs().currentWidget()->findChildren<QWidget*>())
            if (control->isVisible() && control->isEnabled() &&
                (control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr &&
                !seen.contains(control) &&
                qobject_cast<QAbstractSpinBox*>(control->parentWidget()) == nullptr) {
                qWarning("Not reached: %s", qPrintable(control->objectName()));
                return false;
            }
        if (!seen.contains(&program.Button("DiagnosticsClose")))
            qWarning("Tab does not lead to Close but to %s",
                     qPrintable(QApplication::focusWidget()->objectName()));
        return seen.contains(&program.Button("DiagnosticsClose"));
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestDiagnostics)

#include "test_diagnostics.moc"

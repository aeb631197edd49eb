#include "tests/gui/WindowTestSupport.h"

#include "kcompute/NumberToText.h"
#include "output/PlotWidget.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

namespace quarnel::windowtest {

namespace {

constexpr int CriteriaColumn = 3;
constexpr int YColumn = 2;

const QString TooFew =
    u"Less than 2 valid (Y>0) data points have been selected (Use) for parameter "
    u"estimation. Hydraulic conductivity cannot be estimated."_s;
const QString YWarning =
    u"Y values <= 0 are present. This is OK, butY values <=0 cannot be used for parameter "
    u"estimation. Y values <=0 near the start of the recovery data may indicate an error in the "
    u"recovery data, an error in the specified Water Level Measurement method, or an error in the "
    u"specified Slug Test Type."_s;

/// The program on its compute tab with changes in head typed as (time, Y).
class ComputeProgram : public Program {
public:
    explicit ComputeProgram(const QList<std::pair<const char*, const char*>>& readings,
                            bool warns = false) {
        State().WellGeoText = {"10", "8", "5", "8", "2", "0"};
        State().RecDatDataTypeDDL = ChangeInHead;
        State().RecDatGrid.resize(std::max<std::size_t>(50, readings.size()));
        for (int i = 0; i < readings.size(); ++i)
            State().RecDatGrid[static_cast<std::size_t>(i)] = {readings[i].first,
                                                               readings[i].second};
        Answers answers;
        if (warns)
            answers.Box(u"Quarnel"_s, YWarning);
        ClickTab(5);
        if (!answers.AllGiven() || SelectedTab() != 5)
            qFatal("The compute tab did not open: %s", answers.Complaints().constData());
    }

    QTableView& Grid() { return Find<QTableView>(u"RecDatWeightGrid"_s); }
    QString Mark(int row) { return Text(row, CriteriaColumn); }
    QString Text(int row, int column) {
        return Grid().model()->index(row - 1, column).data().toString();
    }
    QStringList Marks() {
        QStringList marks;
        for (int row = 1; row <= Grid().model()->rowCount(); ++row)
            marks << Mark(row);
        return marks;
    }
    void ClickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        const QModelIndex index = Grid().model()->index(row - 1, column);
        Grid().scrollTo(index);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers,
                          Grid().visualRect(index).center());
    }
    /// Types a character into the grid as a keyboard does.
    void Type(char key) { QTest::keyClick(&Grid(), key); }
    /// Chooses an entry of the menu of a right click on the grid.
    void ChooseMark(const char* name) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [name, &look] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            look.stop();
            auto& action = windowtest::Find<QAction>(*menu, QString::fromLatin1(name));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
            menu->close();
        });
        look.start(5);
        QWidget* surface = Grid().viewport();
        const QPoint centre = surface->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, centre, surface->mapToGlobal(centre));
        QApplication::sendEvent(surface, &event);
        if (look.isActive())
            qFatal("The grid has no menu");
    }
    void Compute() { QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton); }
    QString K() { return Find<QLabel>(u"ComputedKLabel"_s).text(); }
    PlotWidget& Plot() { return Find<PlotWidget>(u"Plot1"_s); }
};

const QList<std::pair<const char*, const char*>> Falling = {
    {"0", "1.0"}, {"10", "0.8"}, {"20", "0.62"}, {"30", "0.5"}};

/// How many pixels of the plot have this colour.
int Count(QWidget& widget, const QColor& colour) {
    const QImage image = widget.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

} // namespace

class TestComputePanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheGridListsThePointsAllToBeUsed() {
        ComputeProgram program(Falling);
        QCOMPARE(program.Grid().model()->rowCount(), 4);
        QCOMPARE(program.Text(2, 1), u"10"_s);
        QCOMPARE(program.Text(2, YColumn), u" 0.8"_s);
        QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
        const auto heading = [&program](int column) {
            return program.Grid().model()->headerData(column, Qt::Horizontal).toString();
        };
        QCOMPARE(heading(0), u"Sample\n Number"_s);
        QCOMPARE(heading(1), u"Time\n(sec)"_s);
        QCOMPARE(heading(2), u" \nY   (ft)"_s);
        QCOMPARE(heading(3), u"Criteria\n(U/I)"_s);
    }

    void CapitalsAndSpaceChangeTheMarks() {
        ComputeProgram program(Falling);
        program.ClickCell(2, CriteriaColumn);
        program.Type('I');
        QCOMPARE(program.Marks(), QStringList({u"Use"_s, u"Ignore"_s, u"Use"_s, u"Use"_s}));
        program.Type('U');
        QCOMPARE(program.Mark(2), u"Use"_s);
        program.Type(' ');
        QCOMPARE(program.Mark(2), u"Ignore"_s);
    }

    void LowerCaseAndOtherKeysDoNothing() {
        ComputeProgram program(Falling);
        program.ClickCell(1, CriteriaColumn);
        for (const char key : {'i', 'x', '1'})
            program.Type(key);
        QCOMPARE(program.Mark(1), u"Use"_s);
        program.Type('I');
        program.Type('u');
        QCOMPARE(program.Mark(1), u"Ignore"_s);
    }

    void SpaceTurnsOverEachRowOfAMixedSelection() {
        ComputeProgram program(Falling);
        program.ClickCell(2, CriteriaColumn);
        program.Type('I');
        program.ClickCell(1, CriteriaColumn);
        program.ClickCell(3, CriteriaColumn, Qt::ShiftModifier);
        program.Type(' ');
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Use"_s, u"Ignore"_s, u"Use"_s}));
    }

    void ASelectionThatReachesIntoColumn2MakesEveryKeyDoNothing() {
        ComputeProgram program(Falling);
        program.ClickCell(1, CriteriaColumn);
        program.ClickCell(2, YColumn, Qt::ShiftModifier);
        for (const char key : {'I', ' ', 'U'}) {
            program.Type(key);
            QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
        }
        program.ClickCell(2, YColumn);
        program.Type('I');
        QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
    }

    void MarksSurviveALookAtAnotherTab() {
        ComputeProgram program(Falling);
        program.ClickCell(1, CriteriaColumn);
        program.Type('I');
        QCOMPARE(program.State().IgnoreKeyList, std::vector<std::string>{"01.0"});
        program.ClickTab(1);
        program.ClickTab(5);
        QCOMPARE(program.Mark(1), u"Ignore"_s);
    }

    void MarksSurviveASort() {
        ComputeProgram program({{"30", "0.5"}, {"0", "1.0"}, {"10", "0.8"}});
        program.ClickCell(1, CriteriaColumn);
        program.Type('I');
        program.ClickTab(4);
        Answers answers;
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s, QMessageBox::Ok);
        QTest::mouseClick(&program.Find(u"CmdSortByTime"_s), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        program.ClickTab(5);
        QCOMPARE(program.Text(3, 1), u"30"_s);
        QCOMPARE(program.Marks(), QStringList({u"Use"_s, u"Use"_s, u"Ignore"_s}));
    }

    void EditingAReadingDropsItsMark() {
        ComputeProgram program(Falling);
        program.ClickCell(2, CriteriaColumn);
        program.Type('I');
        program.State().RecDatGrid[1].level = "0.81";
        program.ClickTab(1);
        program.ClickTab(5);
        QCOMPARE(program.Mark(2), u"Use"_s);
    }

    void TwoPointsOfOneKeyComeBackOnTheFirstOnly() {
        ComputeProgram program({{"1", "59.41"}, {"15", "9.41"}, {"30", "8"}});
        program.ClickCell(2, CriteriaColumn);
        program.Type('I');
        program.ClickTab(1);
        program.ClickTab(5);
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Use"_s, u"Use"_s}));
    }

    void ComputeShowsKPlotAndDetails() {
        ComputeProgram program(Falling);
        QCOMPARE(program.K(), QString());
        program.Compute();
        QVERIFY(!program.K().isEmpty());
        QVERIFY(!program.Plot().Shown().IsEmpty());
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        auto& text = program.Find<QPlainTextEdit>(u"SummaryText"_s);
        QVERIFY(text.isVisible());
        QVERIFY(
            text.toPlainText().contains(u"Hydraulic Conductivity: "_s + program.K() + u" m/day"_s));
        auto& fitted = program.Find<QTableView>(u"ComputeYGrid"_s);
        QCOMPARE(fitted.model()->rowCount(), 4);
        QCOMPARE(fitted.model()->headerData(3, Qt::Horizontal).toString(), u"Fit Y (ft)"_s);
    }

    void ATooSmallSelectionShowsItsMessageAndNoK() {
        ComputeProgram program(Falling);
        program.Compute();
        QVERIFY(!program.K().isEmpty());
        program.ClickCell(1, CriteriaColumn);
        program.ClickCell(3, CriteriaColumn, Qt::ShiftModifier);
        program.Type('I');
        Answers answers;
        answers.Box(u"Quarnel"_s, TooFew);
        program.Compute();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.K(), QString());
        QVERIFY(program.Plot().Shown().IsEmpty());
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        QCOMPARE(program.Find<QTableView>(u"ComputeYGrid"_s).model()->rowCount(), 0);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void APointNotAboveZeroIsSwitchedToIgnore() {
        ComputeProgram program({{"0", "1"}, {"10", "0.5"}, {"20", "0"}, {"30", "-1"}}, true);
        QCOMPARE(program.Mark(3), u"Use"_s);
        program.Compute();
        QCOMPARE(program.Marks(), QStringList({u"Use"_s, u"Use"_s, u"Ignore"_s, u"Ignore"_s}));
        QCOMPARE(program.Window().Current().computation->usedCount, 2);
    }

    void ChangingAUnitRedisplaysWithoutANewFit() {
        ComputeProgram program(Falling);
        program.Compute();
        const double k = program.Window().Current().computation->KInCmPerSec;
        auto& time = program.Find<QComboBox>(u"CmboKTimeUnits"_s);
        auto& length = program.Find<QComboBox>(u"CmboKLengthUnits"_s);
        length.setFocus();
        QTest::keyClick(&length, Qt::Key_Up); // m to cm
        time.setFocus();
        QTest::keyClick(&time, Qt::Key_Home); // day to sec
        const QString perSecond = program.K();
        QCOMPARE(perSecond, ToQString(NumberText(k)));
        QTest::keyClick(&time, Qt::Key_End);
        QCOMPARE(program.K(), ToQString(NumberText(k * 86400)));
        QCOMPARE(program.Window().Current().computation->KInCmPerSec, k);
    }

    void ChoosingAUnitBeforeComputingShowsNoK() {
        ComputeProgram program(Falling);
        auto& time = program.Find<QComboBox>(u"CmboKTimeUnits"_s);
        time.setFocus();
        QTest::keyClick(&time, Qt::Key_Home);
        QCOMPARE(program.K(), QString());
    }

    void ALookAtAnotherTabChangesNothing() {
        ComputeProgram program(Falling);
        program.Compute();
        const QString k = program.K();
        const ComputationPtr computation = program.Window().Current().computation;
        program.ClickTab(1);
        program.ClickTab(5);
        QCOMPARE(program.K(), k);
        QVERIFY(!program.Plot().Shown().IsEmpty());
        QCOMPARE(program.Window().Current().computation, computation);
    }

    void NewEmptiesPlotKMarksAndDetails() {
        ComputeProgram program(Falling);
        program.Compute();
        ResetProject(program.Window());
        QVERIFY(program.Plot().Shown().IsEmpty());
        QCOMPARE(program.K(), QString());
        QCOMPARE(program.Grid().model()->rowCount(), 1);
        QVERIFY(program.Window().Current().computation == nullptr);
    }

    void OpeningAnotherProjectLeavesNothingOfTheLastOne() {
        ComputeProgram program(Falling);
        program.Compute();
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        program.Window().OpenPath(SourceFile("examples/every-field.qn2"));
        QVERIFY(program.Plot().Shown().IsEmpty());
        QCOMPARE(program.K(), QString());
        QVERIFY(program.Window().Current().computation == nullptr);
        QCOMPARE(program.Find<QPlainTextEdit>(u"SummaryText"_s).toPlainText(), QString());
        QCOMPARE(program.Find<QTableView>(u"ComputeYGrid"_s).model()->rowCount(), 0);
    }

    void TheDetailsGridHoldsNumberTimeYTextAndFittedY() {
        ComputeProgram program(Falling);
        program.Compute();
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        const QAbstractItemModel& grid = *program.Find<QTableView>(u"ComputeYGrid"_s).model();
        QCOMPARE(grid.columnCount(), 4);
        QCOMPARE(grid.headerData(1, Qt::Horizontal).toString(), u"Time (sec)"_s);
        QCOMPARE(grid.headerData(2, Qt::Horizontal).toString(), u"Y (ft)"_s);
        QCOMPARE(grid.headerData(3, Qt::Horizontal).toString(), u"Fit Y (ft)"_s);
        QCOMPARE(grid.index(1, 0).data().toString(), u"2"_s);
        QCOMPARE(grid.index(1, 1).data().toString(), u"10"_s);
        QCOMPARE(grid.index(1, 2).data().toString(), u" 0.8"_s);
        const double fitted = FittedY(*program.Window().Current().computation, 1);
        QCOMPARE(grid.index(1, 3).data().toString(), ToQString(NumberText(fitted)));
    }

    void MarksAreUndoneAndDoneAgainByKeys() {
        ComputeProgram program(Falling);
        program.ClickCell(1, CriteriaColumn);
        program.ClickCell(2, CriteriaColumn, Qt::ShiftModifier);
        QTest::keyClick(&program.Grid(), 'I', Qt::ShiftModifier);
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Ignore"_s, u"Use"_s, u"Use"_s}));
        QTest::keyClick(&program.Grid(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
        QVERIFY(program.Window().Current().state.IgnoreKeyList.empty());
        QTest::keyClick(&program.Grid(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Ignore"_s, u"Use"_s, u"Use"_s}));
    }

    void ARightClickOffersTheMarks() {
        ComputeProgram program(Falling);
        program.ClickCell(1, CriteriaColumn);
        program.ClickCell(2, CriteriaColumn, Qt::ShiftModifier);
        program.ChooseMark("MarkIgnore");
        QCOMPARE(program.Marks(), QStringList({u"Ignore"_s, u"Ignore"_s, u"Use"_s, u"Use"_s}));
        program.ChooseMark("MarkTurnOver");
        QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
        program.ClickCell(2, YColumn);
        program.ChooseMark("MarkIgnore"); // not enabled outside the column of the marks
        QCOMPARE(program.Marks(), QStringList(4, u"Use"_s));
    }

    void ARisingFitIsCalledWeirdAndDrawsPointsOnly() {
        ComputeProgram program({{"0", "1"}, {"10", "2"}, {"20", "3"}});
        Answers answers;
        answers.Box(u"WEIRD RESULT"_s, u"Slope is >=0. Invalid result. Y used for best fit is flat "
                                       u"or increasing with time."_s);
        program.Compute();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Plot().Shown().circles.size(), std::size_t{3});
        for (const DrawingLine& line : program.Plot().Shown().lines)
            QVERIFY(line.colour != DrawingColour::Red);
        QVERIFY(program.K().startsWith(u'-'));
    }

    void UsedPointsAreRedIgnoredOnesBlue() {
        ComputeProgram program(Falling);
        program.Compute();
        QVERIFY(Count(program.Plot(), QColor(255, 0, 0)) > 20);
        for (const DrawingCircle& circle : program.Plot().Shown().circles)
            QVERIFY(circle.colour == DrawingColour::Red);
        const int blueOfLegend = Count(program.Plot(), QColor(0, 0, 255));
        program.ClickCell(1, CriteriaColumn);
        program.Type('I');
        program.Compute();
        QVERIFY(Count(program.Plot(), QColor(0, 0, 255)) > blueOfLegend + 5);
    }

    void ThePlotFollowsTheSizeOfItsArea() {
        ComputeProgram program(Falling);
        program.Compute();
        const double before = program.Plot().Shown().width;
        program.Window().resize(program.Window().width() + 200, program.Window().height());
        QTRY_VERIFY(program.Plot().Shown().width > before);
    }

    void DetailsCloseAndComeBackWithTheLatestContents() {
        ComputeProgram program(Falling);
        program.Compute();
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        auto& window = program.Find(u"ComputedYFrm"_s);
        QVERIFY(window.isVisible());
        QTest::mouseClick(&Find(window, u"CmdClose"_s), Qt::LeftButton);
        QVERIFY(!window.isVisible());
        program.ClickCell(4, CriteriaColumn);
        program.Type('I');
        program.Compute();
        QTest::mouseClick(&program.Find(u"CmdDetails"_s), Qt::LeftButton);
        QVERIFY(window.isVisible());
        QVERIFY(program.Find<QPlainTextEdit>(u"SummaryText"_s)
                    .toPlainText()
                    .contains(u"Hydraulic Conductivity: "_s + program.K()));
        QVERIFY(window.close());
        QVERIFY(!window.isVisible());
    }

    void AMillionPointsFillTheGrid() {
        Program program;
        program.State().WellGeoText = {"10", "8", "5", "8", "2", "0"};
        program.State().RecDatDataTypeDDL = ChangeInHead;
        program.State().RecDatGrid.assign(1'000'000, {"1", "2"});
        program.ClickTab(5);
        auto& grid = program.Find<QTableView>(u"RecDatWeightGrid"_s);
        QCOMPARE(grid.model()->rowCount(), 1'000'000);
        grid.scrollToBottom();
        QCOMPARE(grid.model()->index(999'999, 0).data().toString(), u"1000000"_s);
        QVERIFY(grid.visualRect(grid.model()->index(999'999, CriteriaColumn)).isValid());
    }

private:
    /// Three significant figures, as the K label shows them.
    static std::string NumberText(double value) { return ThreeFigureText(value); }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestComputePanel)

#include "test_compute_panel.moc"

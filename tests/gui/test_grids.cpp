// What all grids have in common: blocks by keys and mouse, headings, copying, the menu key, and row
// numbers that can be read.

#include "tests/gui/WindowTestSupport.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");
constexpr int Readings = 61;

/// The program on a page with a grid that is filled.
class GridProgram : public Program {
public:
    explicit GridProgram(const QString& grid)
        : name_(grid) {
        Window().OpenPath(Example);
        QGuiApplication::clipboard()->clear();
        const bool onRecovery = grid.startsWith(u"RecDat"_s) && grid != u"RecDatWeightGrid"_s;
        ClickTab(onRecovery ? 4 : 5);
        if (grid == u"RecDatCheckGrid"_s)
            QTest::mouseClick(&Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        if (grid == u"ComputeYGrid"_s) {
            QTest::mouseClick(&Find(u"CmdComputeK"_s), Qt::LeftButton);
            QTest::mouseClick(&Find(u"CmdDetails"_s), Qt::LeftButton);
        }
        Grid().setFocus();
    }

    QTableView& Grid() { return Find<QTableView>(name_); }
    int Rows() { return Grid().model()->rowCount(); }
    int LastColumn() { return Grid().model()->columnCount() - 1; }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&Grid(), key, modifiers);
    }
    QPoint Centre(int row, int column) {
        const QModelIndex index = Grid().model()->index(row - 1, column);
        Grid().scrollTo(index);
        return Grid().visualRect(index).center();
    }
    void Click(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers, Centre(row, column));
    }
    void ClickHeading(int column) {
        QHeaderView& header = *Grid().horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                           header.height() / 2});
    }
    /// The selected block as "first row, first column, last row, last column", rows from 1.
    QList<int> Block() {
        const QItemSelection ranges = Grid().selectionModel()->selection();
        if (ranges.size() != 1)
            return {static_cast<int>(ranges.size())};
        return {ranges[0].top() + 1, ranges[0].left(), ranges[0].bottom() + 1, ranges[0].right()};
    }
    QString Cell(int row, int column) {
        return Grid().model()->index(row - 1, column).data().toString();
    }

private:
    QString name_;
};

} // namespace

class TestGrids : public QObject {
    Q_OBJECT

    static void NameAllGrids() {
        QTest::addColumn<QString>("grid");
        for (const char* grid :
             {"RecDatGrid", "RecDatCheckGrid", "RecDatWeightGrid", "ComputeYGrid"})
            QTest::newRow(grid) << QString::fromLatin1(grid);
    }

private Q_SLOTS:
    void ShiftMovesTheEndAndCtrlGoesFar_data() { NameAllGrids(); }
    void ShiftMovesTheEndAndCtrlGoesFar() {
        QFETCH(QString, grid);
        GridProgram program(grid);
        const int last = program.LastColumn();
        const int rows = program.Rows();
        const auto both = Qt::ControlModifier | Qt::ShiftModifier;
        program.Click(3, last);
        program.Key(Qt::Key_Down, both);
        QCOMPARE(program.Block(), QList<int>({3, last, rows, last}));
        program.Key(Qt::Key_Up, both);
        QCOMPARE(program.Block(), QList<int>({1, last, 3, last}));
        program.Click(4, 1);
        program.Key(Qt::Key_End, both);
        QCOMPARE(program.Block(), QList<int>({4, 1, rows, last}));
        QVERIFY(program.Grid().viewport()->rect().contains(
            program.Grid().visualRect(program.Grid().model()->index(rows - 1, last)).center()));
        program.Key(Qt::Key_Home, both);
        QCOMPARE(program.Block(), QList<int>({1, 1, 4, 1}));
        program.Key(Qt::Key_Down);
        QCOMPARE(program.Block(), QList<int>({5, 1, 5, 1}));
        program.Key(Qt::Key_Down, Qt::ShiftModifier);
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(program.Block(), QList<int>({5, 1, 6, 2}));
        program.Key(Qt::Key_PageDown, Qt::ShiftModifier);
        QVERIFY(program.Block()[2] > 8);
        QCOMPARE(program.Grid().currentIndex().row(), 4);
    }

    void AClickOnAHeadingSelectsTheColumn_data() { NameAllGrids(); }
    void AClickOnAHeadingSelectsTheColumn() {
        QFETCH(QString, grid);
        GridProgram program(grid);
        const int last = program.LastColumn();
        program.ClickHeading(last);
        QCOMPARE(program.Block(), QList<int>({1, last, program.Rows(), last}));
        program.ClickHeading(0);
        QCOMPARE(program.Block(), QList<int>({1, 1, program.Rows(), last}));
    }

    void AClickOnTheCriteriaHeadingAndAKeyMarkEveryPoint() {
        GridProgram program(u"RecDatWeightGrid"_s);
        program.ClickHeading(3);
        QTest::keyClick(&program.Grid(), 'U');
        for (int row = 1; row <= program.Rows(); ++row)
            QCOMPARE(program.Cell(row, 3), u"Use"_s);
        QTest::keyClick(&program.Grid(), 'I');
        QCOMPARE(program.State().IgnoreKeyList.size(), std::size_t(Readings));
    }

    void ARowNumberSelectsItsRow_data() { NameAllGrids(); }
    void ARowNumberSelectsItsRow() {
        QFETCH(QString, grid);
        GridProgram program(grid);
        program.Click(3, 0);
        QCOMPARE(program.Block(), QList<int>({3, 1, 3, program.LastColumn()}));
        program.Click(6, 0, Qt::ShiftModifier);
        QCOMPARE(program.Block(), QList<int>({3, 1, 6, program.LastColumn()}));
        QCOMPARE(program.Grid().currentIndex().column(), 1);
    }

    void CtrlAAndCtrlCCopyTheBlock_data() { NameAllGrids(); }
    void CtrlAAndCtrlCCopyTheBlock() {
        QFETCH(QString, grid);
        GridProgram program(grid);
        program.Click(2, 1);
        program.Click(3, 2, Qt::ShiftModifier);
        program.Key(Qt::Key_C, Qt::ControlModifier);
        const QString end = grid == u"RecDatGrid"_s ? u"\r"_s : u"\n"_s;
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 program.Cell(2, 1) + u'\t' + program.Cell(2, 2) + end + program.Cell(3, 1) +
                     u'\t' + program.Cell(3, 2) + end + (end == u"\r"_s ? end : QString()));
        program.Key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(program.Block(), QList<int>({1, 1, program.Rows(), program.LastColumn()}));
    }

    void WhatIsCopiedFromTheChecksGridPastesIntoTheReadings() {
        GridProgram program(u"RecDatCheckGrid"_s);
        program.Click(1, 1);
        program.Click(2, 2, Qt::ShiftModifier);
        program.Key(Qt::Key_C, Qt::ControlModifier);
        auto& readings = program.Find<QTableView>(u"RecDatGrid"_s);
        readings.setFocus();
        QTest::keyClick(&readings, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&readings, Qt::Key_Home);
        QTest::keyClick(&readings, Qt::Key_V, Qt::ControlModifier);
        const auto& rows = program.State().RecDatGrid;
        QCOMPARE(ToQString(rows.back().time), program.Cell(2, 1));
    }

    void ShiftF10OpensTheMenuAtTheCurrentCell() {
        GridProgram readings(u"RecDatGrid"_s);
        readings.Key(Qt::Key_F10, Qt::ShiftModifier);
        auto& menu = readings.Find<QMenu>(u"RecDatGridMenu"_s);
        QVERIFY(menu.isVisible());
        menu.close();

        GridProgram marks(u"RecDatWeightGrid"_s);
        marks.Click(1, 3);
        bool seen = false;
        QTimer::singleShot(0, &marks.Window(), [&seen] {
            if (auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                seen = true;
                QTest::keyClick(open, Qt::Key_I);
            }
        });
        marks.Key(Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(seen);
        QCOMPARE(marks.Cell(1, 3), u"Ignore"_s);
    }

    void OtherKeysOfAGridBelongToItsWindow() {
        GridProgram program(u"ComputeYGrid"_s);
        program.Click(1, 1);
        QTest::keyClicks(&program.Grid(), u"0.5"_s); // a view of the toolkit would go there
        QCOMPARE(program.Grid().currentIndex().row(), 0);
        program.Key(Qt::Key_Escape);
        QVERIFY(!program.Find(u"ComputedYFrm"_s).isVisible());
    }

    // ---- The mouse -----------------------------------------------------------------------------

    void ADragThatABoxInterruptsStops() {
        GridProgram program(u"RecDatGrid"_s);
        QWindow& window = *program.Window().windowHandle();
        const auto inWindow = [&program](QPoint inView) {
            return program.Grid().viewport()->mapTo(&program.Window(), inView);
        };
        const QPoint below(20 + program.Grid().columnWidth(0),
                           program.Grid().viewport()->height() + 30);
        QTest::mousePress(&window, Qt::LeftButton, {}, inWindow(program.Centre(2, 1)));
        QTest::mouseMove(&window, inWindow(below));
        QTRY_VERIFY(program.Block()[2] > 30);
        // The box takes the release of the button.
        QMessageBox box(&program.Window());
        box.setModal(true);
        box.show();
        QTest::mouseRelease(&window, Qt::LeftButton, {}, inWindow(below));
        QTest::qWait(100);
        const QList<int> stopped = program.Block();
        QTest::qWait(300);
        QCOMPARE(program.Block(), stopped);
        box.close();
        QTest::qWait(300);
        QCOMPARE(program.Block(), stopped);
    }

    void ADragThroughTheMarksSelectsFromWhereItBegan() {
        GridProgram program(u"RecDatWeightGrid"_s);
        auto* viewport = program.Grid().viewport();
        const QPoint from = program.Centre(2, 3);
        const QPoint to = program.Centre(5, 3);
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, viewport->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
        QCOMPARE(program.Block(), QList<int>({2, 3, 5, 3}));
        QCOMPARE(program.Grid().currentIndex().row(), 1);
    }

    // ---- Row numbers ---------------------------------------------------------------------------

    void RowNumbersBeyondAMillionCanBeRead() {
        Program program;
        program.ClickTab(4);
        auto& grid = program.Find<QTableView>(u"RecDatGrid"_s);
        program.State().RecDatGrid.assign(12'345'678, {});
        program.Window().ShowState();
        program.ClickTab(4);
        QFontMetrics metrics(grid.font());
        for (const QString& number : {u"1000000"_s, u"4444444"_s, u"12345678"_s})
            QCOMPARE(metrics.elidedText(number, Qt::ElideRight, grid.columnWidth(0) - 12), number);
    }

    // ---- Other ways to write -------------------------------------------------------------------

    void AnInputMethodWritesIntoTheCell() {
        GridProgram program(u"RecDatGrid"_s);
        program.Click(1, 1);
        const QString before = program.Cell(1, 1);
        QInputMethodEvent begun(u"7"_s, {});
        QApplication::sendEvent(&program.Grid(), &begun);
        QCOMPARE(program.Cell(1, 1), before);
        for (const QString& text : {u"7"_s, u"5\n3\r\n"_s}) {
            QInputMethodEvent done;
            done.setCommitString(text);
            QApplication::sendEvent(&program.Grid(), &done);
        }
        QCOMPARE(program.State().RecDatGrid[0].time, "75 3");
        // A screen reader sets a cell as a whole.
        QVERIFY(program.Grid().model()->setData(program.Grid().model()->index(0, 2), u"a\nb\n"_s));
        QCOMPARE(program.State().RecDatGrid[0].level, "a b");
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestGrids)
#include "test_grids.moc"

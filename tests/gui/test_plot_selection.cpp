// Points chosen where they are seen: on the plot, by mouse and by keys, and marked there. What is
// selected is the selection of the Use/Ignore grid, shown in both places and on screen alone.

#include "tests/gui/PlotTestSupport.h"

#include "output/PlotExport.h"
#include "widgets/Colours.h"

#include <QAccessible>
#include <QClipboard>
#include <QMimeData>
#include <QStyleOptionViewItem>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");
constexpr int MarkColumn = 3;

QList<int> Rows(int first, int last) {
    QList<int> rows;
    for (int row = first; row <= last; ++row)
        rows << row;
    return rows;
}

int Count(const QImage& image, const std::function<bool(QColor)>& is) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += is(image.pixelColor(x, y)) ? 1 : 0;
    return count;
}

/// How many pixels two pictures of one size do not share.
int Difference(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += a.pixelColor(x, y) == b.pixelColor(x, y) ? 0 : 1;
    return count;
}

/// A dark desktop while it lives.
class DarkDesktop {
public:
    DarkDesktop() {
        QPalette dark(QColor(50, 50, 50), QColor(45, 45, 45));
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        dark.setColor(QPalette::Highlight, QColor(20, 60, 110));
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(before_); }
    DarkDesktop(const DarkDesktop&) = delete;
    DarkDesktop& operator=(const DarkDesktop&) = delete;

private:
    QPalette before_ = QApplication::palette();
};

} // namespace

class TestPlotSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QToolTip::hideText(); }

    // ---- By mouse ------------------------------------------------------------------------------

    void AClickOnAPointMakesItsRowCurrent() {
        PlotProgram program(FallingReadings(8));
        program.Click(5);
        QCOMPARE(program.CurrentRow(), 5);
        QCOMPARE(program.Selected(), QList<int>{5});
        QCOMPARE(program.Grid().currentIndex().column(), MarkColumn);
        // Beside every point nothing is meant.
        program.ClickAt(program.At(2) + QPoint(0, 40));
        QCOMPARE(program.Selected(), QList<int>{5});
        QCOMPARE(program.FocusName(), u"Plot1"_s);
    }

    void ADragSelectsTheRowsOfItsTimes() {
        PlotProgram program(FallingReadings(8));
        const QPoint aside(program.At(2).x() - 8, program.At(8).y());
        program.Drag(aside, QPoint(program.At(5).x() + 8, aside.y()));
        QCOMPARE(program.Selected(), Rows(2, 5));
        QCOMPARE(program.CurrentRow(), 2);
        // Backwards the selection begins at its end.
        program.Drag(QPoint(program.At(7).x() + 8, aside.y()), QPoint(program.At(4).x() - 8, 60));
        QCOMPARE(program.Selected(), Rows(4, 7));
        QCOMPARE(program.CurrentRow(), 7);
        // The range ends between points, not at the nearest.
        program.Drag(aside, QPoint(program.At(5).x() - 3, aside.y()));
        QCOMPARE(program.Selected(), Rows(2, 4));
    }

    void TheRangeIsDrawnWhileItIsDragged() {
        PlotProgram program(FallingReadings(8));
        const QPoint from(program.At(3).x() + 9, 120);
        const QPoint to(program.At(4).x() - 9, 120);
        const QImage before = program.Picture();
        program.PressAt(from);
        program.MoveTo(to);
        const QImage during = program.Picture();
        const QPoint inside((from.x() + to.x()) / 2, 200);
        QVERIFY(during.pixelColor(inside) != before.pixelColor(inside));
        const QPoint beside(program.At(5).x() + 9, 200);
        QVERIFY(during.pixelColor(beside) == before.pixelColor(beside));
        program.ReleaseAt(to);
        QVERIFY(program.Picture().pixelColor(inside) == before.pixelColor(inside));
    }

    void ARangeWithoutPointsChangesNothing() {
        PlotProgram program(FallingReadings(8));
        program.Click(6);
        const int x = program.At(3).x();
        // Over a point and back again, as far as there is none below the range.
        program.PressAt(QPoint(x + 9, 90));
        program.MoveTo(QPoint(program.At(4).x() + 9, 90));
        QCOMPARE(program.Selected(), QList<int>{4});
        program.MoveTo(QPoint(x + 22, 90));
        program.ReleaseAt(QPoint(x + 22, 90));
        QCOMPARE(program.Selected(), QList<int>{6});
        QCOMPARE(program.CurrentRow(), 6);
    }

    void ShiftExtendsByClickAndByDrag() {
        PlotProgram program(FallingReadings(8));
        program.Click(3);
        program.Click(6, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(3, 6));
        QCOMPARE(program.CurrentRow(), 3);
        program.Click(1, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(1, 3));
        QCOMPARE(program.CurrentRow(), 3);
        const QPoint aside(program.At(6).x() - 9, 70);
        program.Drag(aside, QPoint(program.At(7).x() + 9, 70), Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(3, 7));
        QCOMPARE(program.CurrentRow(), 3);
        program.Drag(aside, QPoint(program.At(2).x() - 9, 70), Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(2, 3));
        QCOMPARE(program.CurrentRow(), 3);
    }

    void EscapeTakesADragBack() {
        PlotProgram program(FallingReadings(8));
        program.Click(2);
        program.PressAt(QPoint(program.At(4).x() - 9, 80));
        program.MoveTo(QPoint(program.At(7).x() + 9, 80));
        QCOMPARE(program.Selected(), Rows(4, 7));
        program.Key(Qt::Key_Escape);
        QCOMPARE(program.Selected(), QList<int>{2});
        QCOMPARE(program.CurrentRow(), 2);
        program.MoveTo(QPoint(program.At(8).x() + 9, 80));
        program.ReleaseAt(QPoint(program.At(8).x() + 9, 80));
        QCOMPARE(program.Selected(), QList<int>{2});
    }

    void HoveringTellsOfThePoint() {
        PlotProgram program(Example);
        const auto rowOf = [&program](const QString& time) {
            for (int row = 1;; ++row)
                if (program.Grid().model()->index(row - 1, 1).data().toString() == time)
                    return row;
        };
        const int row = rowOf(u"28.2"_s);
        program.MoveTo(program.At(row));
        QTRY_COMPARE(QToolTip::text(), u"%1: 28.2 sec, 0.413 m, Ignore"_s.arg(row));
        const int used = rowOf(u"89.2"_s);
        program.MoveTo(program.At(used));
        QTRY_VERIFY(QToolTip::text().startsWith(QString::number(used) + u": 89.2 sec, "_s));
        QVERIFY(QToolTip::text().endsWith(u" m, Use"_s));
        program.MoveTo(program.At(1) + QPoint(120, -60));
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void ATipGoesWithTheMarkThatItTold() {
        PlotProgram program(Example);
        program.MoveTo(program.At(60));
        const QString told = program.Mark(60);
        QTRY_VERIFY(QToolTip::text().startsWith(u"60: "_s));
        QVERIFY(QToolTip::text().endsWith(told));
        program.Click(60);
        program.Key(Qt::Key_Space);
        QVERIFY(program.Mark(60) != told);
        QTRY_VERIFY(!QToolTip::isVisible());
        program.MoveTo(program.At(60) + QPoint(0, 1));
        QTRY_VERIFY(QToolTip::text().endsWith(u", "_s + program.Mark(60)));
    }

    // ---- Marks ---------------------------------------------------------------------------------

    void KeysMarkWhatIsSelectedOnThePlot() {
        PlotProgram program(FallingReadings(6));
        program.Drag(QPoint(program.At(2).x() - 9, 90), QPoint(program.At(4).x() + 9, 90));
        program.Type('I');
        QCOMPARE(program.Marks(), u"UIIIUU"_s);
        program.Type('u');
        program.Type('i');
        program.Type('x');
        QCOMPARE(program.Marks(), u"UIIIUU"_s);
        program.Click(3);
        program.Type('U');
        QCOMPARE(program.Marks(), u"UIUIUU"_s);
        program.Key(Qt::Key_A, Qt::ControlModifier);
        program.Type(' ');
        QCOMPARE(program.Marks(), u"IUIUII"_s);
        // One step a command, to be undone where one stands.
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Marks(), u"UIUIUU"_s);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Marks(), u"UUUUUU"_s);
        program.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Marks(), u"UIIIUU"_s);
        QCOMPARE(program.FocusName(), u"Plot1"_s);
    }

    void TheMenuMarks() {
        PlotProgram program(FallingReadings(6));
        program.Drag(QPoint(program.At(2).x() - 9, 90), QPoint(program.At(4).x() + 9, 90));
        program.ChooseInMenu(program.At(3), u"MarkIgnore"_s);
        QCOMPARE(program.Marks(), u"UIIIUU"_s);
        program.ChooseInMenu(program.At(3), u"MarkUse"_s);
        QCOMPARE(program.Marks(), u"UUUUUU"_s);
        program.ChooseInMenu(program.At(3), u"MarkTurnOver"_s);
        QCOMPARE(program.Marks(), u"UIIIUU"_s);
        program.ChooseInMenu(program.At(3), u"MarkUseOnly"_s);
        QCOMPARE(program.Marks(), u"IUUUII"_s);
        // A right click on another point is about that one.
        program.ChooseInMenu(program.At(6), u"MarkUse"_s);
        QCOMPARE(program.Marks(), u"IUUUIU"_s);
        QCOMPARE(program.Selected(), QList<int>{6});
        QStringList captions;
        program.WithMenu(program.At(6), [&captions](QMenu& menu) {
            for (const QAction* action : menu.actions().mid(0, 4))
                captions << action->text().section(u'\t', 0, 0).remove(u'&');
        });
        QCOMPARE(captions,
                 QStringList({u"Use"_s, u"Ignore"_s, u"Turn Over"_s, u"Use Only These"_s}));
    }

    void TheGridOffersUseOnlyTheseToo() {
        PlotProgram program(FallingReadings(4));
        program.Click(2);
        QTimer look;
        connect(&look, &QTimer::timeout, &look, [&look] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            look.stop();
            auto& action = windowtest::Find<QAction>(*menu, u"MarkUseOnly"_s);
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
            menu->close();
        });
        look.start(5);
        const QPoint at = program.Grid().visualRect(program.Grid().currentIndex()).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at,
                                program.Grid().viewport()->mapToGlobal(at));
        QApplication::sendEvent(program.Grid().viewport(), &event);
        QVERIFY(!look.isActive());
        QCOMPARE(program.Marks(), u"IUII"_s);
    }

    void TheSelectionIsKeptOverMarksUndoCheckAndComputing() {
        PlotProgram program(FallingReadings(8));
        program.Drag(QPoint(program.At(3).x() - 9, 90), QPoint(program.At(5).x() + 9, 90));
        for (const char key : {'I', 'U', ' '}) {
            program.Type(key);
            QCOMPARE(program.Selected(), Rows(3, 5));
        }
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Selected(), Rows(3, 5));
        program.ClickTab(4);
        QTest::mouseClick(&program.Find(u"CmdRecDatCheckData"_s), Qt::LeftButton);
        program.ClickTab(5);
        QCOMPARE(program.Selected(), Rows(3, 5));
        QCOMPARE(program.CurrentRow(), 3);
        QCOMPARE(program.Plot().SelectedSpots().size(), std::size_t{3});
        program.Compute();
        QCOMPARE(program.Selected(), Rows(3, 5));
        // Other readings are other points.
        program.State().RecDatGrid[1].level = "0.7";
        program.ClickTab(4);
        program.ClickTab(5);
        QCOMPARE(program.Selected(), QList<int>{1});
    }

    // ---- One selection -------------------------------------------------------------------------

    void WhatIsSelectedInTheGridIsSeenOnThePlot() {
        PlotProgram program(FallingReadings(8));
        const QImage before = program.Picture();
        const auto click = [&program](int row, int column, Qt::KeyboardModifiers modifiers) {
            const QModelIndex index = program.Grid().model()->index(row - 1, column);
            QTest::mouseClick(program.Grid().viewport(), Qt::LeftButton, modifiers,
                              program.Grid().visualRect(index).center());
        };
        click(4, MarkColumn, {});
        click(6, MarkColumn, Qt::ShiftModifier);
        const std::vector<QPointF> spots = program.Plot().SelectedSpots();
        QCOMPARE(spots.size(), std::size_t{3});
        for (int row = 4; row <= 6; ++row)
            QCOMPARE(spots[static_cast<std::size_t>(row - 4)].toPoint(), program.At(row));
        // A ring around the circle.
        const QPoint ring = program.At(5) + QPoint(6, 0);
        QVERIFY(program.Picture().pixelColor(ring) != before.pixelColor(ring));
        QVERIFY(program.Picture().pixelColor(program.At(5)) == before.pixelColor(program.At(5)));
        // A whole row of the grid is a point as well; marks of it are for the plot's hands.
        click(2, 0, {});
        QCOMPARE(program.Plot().SelectedSpots().size(), std::size_t{1});
        program.Plot().setFocus();
        program.Type('I');
        QCOMPARE(program.Mark(2), u"Ignore"_s);
    }

    void NothingOfTheSelectionLeavesTheScreen() {
        PlotProgram program(FallingReadings(8));
        const auto copied = [&program] {
            program.Activate();
            program.Plot().setFocus();
            program.Key(Qt::Key_C, Qt::ControlModifier);
            const QMimeData* data = QGuiApplication::clipboard()->mimeData();
            return std::pair(data->data(u"image/svg+xml"_s),
                             qvariant_cast<QImage>(data->imageData()));
        };
        program.Click(1);
        const auto before = copied();
        const QTemporaryDir folder;
        const auto saved = [&program, &folder](const QString& name) {
            Answers answers;
            answers.FileName(folder.filePath(name));
            program.ChooseInMenu({5, 5}, u"SavePlot"_s);
            QFile file(folder.filePath(name));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QByteArray png = saved(u"before.png"_s);
        QVERIFY(!png.isEmpty());
        program.Drag(QPoint(program.At(2).x() - 9, 90), QPoint(program.At(7).x() + 9, 90));
        QCOMPARE(program.Plot().SelectedSpots().size(), std::size_t{6});
        QVERIFY(copied() == before);
        QCOMPARE(saved(u"after.png"_s), png);
        // And what is copied are the described rings, as on paper.
        QCOMPARE(before.first, PlotAsSvg(program.Plot().Shown()));
    }

    // ---- By keys -------------------------------------------------------------------------------

    void ThePlotIsUsedByKeysAlone() {
        PlotProgram program(FallingReadings(6));
        program.Grid().setFocus();
        const QImage without = program.Picture();
        program.Key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(program.FocusName(), u"Plot1"_s);
        QVERIFY(Difference(program.Picture(), without) > 20);
        program.Key(Qt::Key_Right);
        QCOMPARE(program.Selected(), QList<int>{2});
        program.Key(Qt::Key_Right);
        program.Key(Qt::Key_Left);
        program.Key(Qt::Key_Right);
        QCOMPARE(program.CurrentRow(), 3);
        QTRY_VERIFY(QToolTip::text().startsWith(u"3: 20 sec, "_s));
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(3, 5));
        QCOMPARE(program.CurrentRow(), 3);
        for (int i = 0; i < 3; ++i)
            program.Key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(2, 3));
        program.Type('I');
        QCOMPARE(program.Marks(), u"UIIUUU"_s);
        program.Key(Qt::Key_End);
        QCOMPARE(program.Selected(), QList<int>{6});
        program.Key(Qt::Key_Right);
        QCOMPARE(program.Selected(), QList<int>{6});
        program.Key(Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(1, 6));
        QCOMPARE(program.CurrentRow(), 6);
        program.Key(Qt::Key_Home);
        program.Key(Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), Rows(1, 6));
        program.Key(Qt::Key_Tab);
        QCOMPARE(program.FocusName(), u"RecDatWeightGrid"_s);
    }

    void TheCurrentPointIsFramedWhereTheKeyboardIs() {
        PlotProgram program(FallingReadings(6));
        program.Click(4);
        const QPoint frame = program.At(4) + QPoint(-9, 0);
        const auto framed = [&program, frame] {
            const QImage image = program.Picture();
            return Count(image.copy(QRect(frame - QPoint(1, 9), QSize(3, 18))),
                         [](QColor c) { return c.lightness() < 90; });
        };
        QVERIFY(framed() > 3);
        program.Grid().setFocus();
        QCOMPARE(framed(), 0);
    }

    // ---- Unusual points ------------------------------------------------------------------------

    void WithoutAPlotNothingIsSelected() {
        for (const auto& readings : {std::vector<TypedReading>{{"5", "1"}}, FallingReadings(3)}) {
            PlotProgram program(readings, false, false);
            const QString marks = program.Marks();
            program.Plot().setFocus();
            program.Drag({80, 80}, {300, 300});
            for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End})
                program.Key(key, Qt::ShiftModifier);
            program.Type('I');
            program.MoveTo({120, 120});
            QCOMPARE(program.Marks(), marks);
            QCOMPARE(program.Selected(), QList<int>{1});
            program.WithMenu({80, 80}, [](QMenu& menu) {
                for (const QAction* action : menu.actions().mid(0, 4))
                    QVERIFY(!action->isEnabled());
            });
        }
    }

    void NewLeavesNoPointsToSelect() {
        PlotProgram program(FallingReadings(4));
        program.Click(3);
        ResetProject(program.Window());
        QVERIFY(program.Plot().SelectedSpots().empty());
        program.Plot().setFocus();
        QTest::keyClick(&program.Plot(), Qt::Key_Right);
        QTest::keyClick(&program.Plot(), Qt::Key_I, Qt::ShiftModifier);
        QVERIFY(program.State().IgnoreKeyList.empty());
    }

    void PointsOfOneTimeAreInARangeTogether() {
        PlotProgram program(
            {{"0", "1"}, {"10", "0.8"}, {"10", "0.7"}, {"10", "0.7"}, {"20", "0.5"}});
        program.Drag(QPoint(program.At(2).x() - 9, 90), QPoint(program.At(2).x() + 9, 90));
        QCOMPARE(program.Selected(), Rows(2, 4));
        // Of two on one spot a click means the first, and the keys go through both.
        program.Click(4);
        QCOMPARE(program.Selected(), QList<int>{3});
        program.Key(Qt::Key_Right);
        QCOMPARE(program.Selected(), QList<int>{4});
        QCOMPARE(program.Plot().SelectedSpots().size(), std::size_t{1});
    }

    void ADragBeyondTheEdgeTakesThePointsThere() {
        // The last two have no place on the plot: no logarithm of Y, and times beyond its end.
        PlotProgram program(
            {{"0", "0.9"}, {"10", "0.8"}, {"20", "0.5"}, {"30000", "0"}, {"40000", "-1"}}, true);
        program.Click(2);
        const QPoint middle(program.At(2).x() + 9, 90);
        program.Drag(middle, QPoint(program.Plot().width() + 30, 90));
        QCOMPARE(program.Selected(), Rows(3, 5));
        program.Drag(middle, QPoint(-5, 90));
        QCOMPARE(program.Selected(), Rows(1, 2));
        // Inside the plot a range takes what lies inside.
        program.Drag(middle, QPoint(program.Plot().width() - 8, 90));
        QCOMPARE(program.Selected(), QList<int>{3});
        // The keys walk what is drawn.
        program.Key(Qt::Key_Home);
        program.Key(Qt::Key_End);
        QCOMPARE(program.Selected(), QList<int>{3});
    }

    void ReadingsInNoOrderAreSelectedByTheirTimes() {
        PlotProgram program(
            {{"30", "0.5"}, {"0", "1"}, {"20", "0.6"}, {"10", "0.8"}, {"40", "0.4"}});
        program.Drag(QPoint(program.At(4).x() - 9, 90), QPoint(program.At(1).x() + 9, 90));
        QCOMPARE(program.Selected(), QList<int>({1, 3, 4}));
        QCOMPARE(program.CurrentRow(), 4);
        program.Type('I');
        QCOMPARE(program.Marks(), u"IUIIU"_s);
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), QList<int>({1, 3, 4, 5}));
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Marks(), u"UUUUU"_s);
        // The keys of the grid mark all of it too, and copy all of it.
        program.Grid().setFocus();
        program.Type('I');
        QCOMPARE(program.Marks(), u"IUIII"_s);
        program.Key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Ignore\nIgnore\nIgnore\nIgnore\n"_s);
    }

    // ---- An old plot ---------------------------------------------------------------------------

    void AnOldPlotSelectsWhileItShowsTheGridsReadings() {
        PlotProgram program(FallingReadings(6));
        program.Click(2);
        program.Type('I'); // the plot is not current now
        program.Click(4);
        QCOMPARE(program.Selected(), QList<int>{4});
        program.ClickTab(4);
        program.State().RecDatTimeUnitsDDL = 1;
        program.ClickTab(5);
        program.Click(5);
        QCOMPARE(program.Selected(), QList<int>{5});
        program.MoveTo(program.At(2));
        // Units of the plot, mark of the grid.
        QTRY_VERIFY(QToolTip::text().startsWith(u"2: 10 sec, "_s));
        QVERIFY(QToolTip::text().endsWith(u", Ignore"_s));
    }

    void AnOldPlotOfOtherReadingsSelectsNothingAndSaysWhy() {
        PlotProgram program(FallingReadings(6));
        program.Click(2);
        program.State().RecDatGrid[3].level = "0.75";
        program.ClickTab(4);
        program.ClickTab(5);
        QVERIFY(program.Plot().SelectedSpots().empty());
        program.Click(4);
        program.Drag({80, 80}, {300, 300});
        program.Key(Qt::Key_Right);
        program.Type('I');
        QCOMPARE(program.Selected(), QList<int>{1});
        QCOMPARE(program.Marks(), u"UUUUUU"_s);
        program.MoveTo(program.At(5));
        QTRY_VERIFY(QToolTip::text().startsWith(u"5: 40 sec, "_s));
        QVERIFY(
            QToolTip::text().endsWith(u", Use\nThe data have changed. Press Compute K/ Plot."_s));
        program.Compute();
        program.Click(4);
        QCOMPARE(program.Selected(), QList<int>{4});
    }

    // ---- Many points ---------------------------------------------------------------------------

    void ADragOverAHundredThousandPointsPaintsThePlotOnce() {
        constexpr int Points = 100'000;
        PlotProgram program(FallingReadings(Points));
        QCoreApplication::processEvents();
        static_cast<void>(program.Picture());
        const int painted = program.Plot().TimesPainted();
        const int right = program.Plot().width() - 20;
        program.PressAt({100, 100});
        for (int x = 110; x < right; x += 5) {
            program.MoveTo({x, 100});
            QCoreApplication::processEvents();
            static_cast<void>(program.Picture());
        }
        program.ReleaseAt({right, 100});
        QCOMPARE(program.Plot().TimesPainted(), painted);
        const QItemSelection selection = program.Grid().selectionModel()->selection();
        QCOMPARE(selection.size(), 1);
        QVERIFY(selection[0].height() > Points * 9 / 10);
        // The curve is one or two rings high at each of the plot's columns.
        const std::size_t rings = program.Plot().SelectedSpots().size();
        QVERIFY2(rings <= static_cast<std::size_t>(program.Plot().width()) * 2,
                 QByteArray::number(static_cast<qulonglong>(rings)));
        program.Type('I');
        QCOMPARE(program.Mark(Points / 2), u"Ignore"_s);
        QCOMPARE(program.Plot().TimesPainted(), painted);
    }

    // ---- Told without colour -------------------------------------------------------------------

    void UsedPointsAreFilledOnScreenAndRingsInPictures() {
        PlotProgram program(FallingReadings(4));
        program.Click(2);
        program.Type('I');
        program.Compute();
        program.Key(Qt::Key_Tab);
        const QImage screen = program.Picture();
        // Beside the fitted line, which goes through the middle of all four.
        const QPoint aside(1, -1);
        QCOMPARE(screen.pixelColor(program.At(3) + aside), QColor(Qt::red));
        const QColor inside = screen.pixelColor(program.At(2) + aside);
        QVERIFY(inside.lightness() > 200);
        const QImage picture = PlotAsImage(program.Plot().Shown());
        const double scale = picture.width() / program.Plot().Shown().width;
        const DrawingCircle& circle = program.Plot().Shown().circles[2];
        QCOMPARE(circle.colour, DrawingColour::Red);
        const QPointF off(circle.x + 22, circle.y - 22);
        QCOMPARE(picture.pixelColor((off * scale).toPoint()), QColor(Qt::white));
    }

    void IgnoredRowsAreDimmedAndReadable() {
        for (const bool dark : {false, true}) {
            std::optional<DarkDesktop> desktop;
            if (dark)
                desktop.emplace();
            PlotProgram program(FallingReadings(6));
            program.Click(2);
            program.Type('I');
            program.Click(5);
            QTableView& grid = program.Grid();
            // The farthest that any pixel of a cell's text stands from the ground.
            const auto contrast = [&grid](int row, int column) {
                const QRect cell = grid.visualRect(grid.model()->index(row - 1, column));
                const QImage image = grid.viewport()->grab(cell.adjusted(3, 3, -3, -3)).toImage();
                double highest = 1;
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x)
                        highest =
                            std::max(highest, ContrastOf(image.pixelColor(x, y),
                                                         grid.palette().color(QPalette::Base)));
                return highest;
            };
            for (const int column : {1, 2, 3}) {
                QVERIFY(contrast(2, column) >= 4.4); // smoothed letters are a trace paler
                QVERIFY(contrast(2, column) < contrast(3, column) * 0.8);
            }
            const QColor text = grid.palette().color(QPalette::Text);
            const QColor base = grid.palette().color(QPalette::Base);
            QVERIFY(ContrastOf(Dimmed(text, base), base) >= TextContrast);
            program.Key(Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(contrast(2, 1) > contrast(3, 1) * 0.8);
        }
    }

    void TheSelectionIsSeenOnADarkDesktop() {
        const DarkDesktop desktop;
        PlotProgram program(FallingReadings(6));
        program.Click(1);
        const QImage before = program.Picture();
        program.Click(4);
        const QColor ground = program.Plot().palette().color(QPalette::Base);
        const QRect around(program.At(4) - QPoint(8, 8), QSize(17, 17));
        double highest = 1;
        const QImage image = program.Picture().copy(around);
        const QImage was = before.copy(around);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (was.pixelColor(x, y) == ground) // no circle, halo or line below
                    highest = std::max(highest, ContrastOf(image.pixelColor(x, y), ground));
        QVERIFY(highest >= SignContrast);
    }

    // ---- For a screen reader -------------------------------------------------------------------

    void ThePlotDescribesItself() {
        PlotProgram program(FallingReadings(10), false, false);
        const auto told = [&program] {
            return QAccessible::queryAccessibleInterface(&program.Plot())
                ->text(QAccessible::Description);
        };
        QCOMPARE(told(), u"Press Compute K/ Plot"_s);
        program.Compute();
        const QString k = program.Find<QLabel>(u"ComputedKLabel"_s).text();
        QCOMPARE(told(), u"10 points, 10 used in the fit. Hydraulic conductivity "_s + k +
                             u" m/day. Time from 0 to 90.00 sec, Y from 0.1 to 1 ft. 1 selected. "
                             u"1: 0 sec, 1 ft, Use"_s);
        program.Plot().setFocus();
        program.Key(Qt::Key_Right);
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(told().contains(u"2 selected. 2: 10 sec"_s));
        program.Type('I');
        QVERIFY(told().endsWith(u"ft, Ignore"_s));
        QVERIFY(told().contains(u"The data have changed. Press Compute K/ Plot."_s));
        program.Compute();
        QVERIFY(told().startsWith(u"10 points, 8 used in the fit. "_s));
        QVERIFY(!told().contains(u"changed"_s));
        auto& unit = program.Find(u"CmboKTimeUnits"_s);
        unit.setFocus();
        program.Key(Qt::Key_Home);
        QVERIFY(told().contains(program.Find<QLabel>(u"ComputedKLabel"_s).text() + u" m/sec."_s));
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestPlotSelection)

#include "test_plot_selection.moc"

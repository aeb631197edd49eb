#include "tests/gui/WindowTestSupport.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

namespace quarnel::windowtest {

namespace {

constexpr int TimeColumn = 1;
constexpr int LevelColumn = 2;
const QString NotCompatible =
    u"Block selected for paste is not compatible with block to be pasted. Try selecting a single "
    u"cell or a block size with rows and columns that are integer multiples of the rows and "
    u"columns to be pasted."_s;
const QString DeleteQuestion =
    u"The rows contain data. Are you sure you want to delete the selected "
    u"rows (data in deleted rows is lost)?"_s;

/// The program on its recovery tab, the grid watched by a tester that ends the program at the first
/// signal a model must not send.
class RecoveryProgram : public Program {
public:
    RecoveryProgram()
        : tester_(Grid().model(), QAbstractItemModelTester::FailureReportingMode::Fatal) {
        ClickTab(4);
        QGuiApplication::clipboard()->clear();
    }

    QTableView& Grid() { return Find<QTableView>(u"RecDatGrid"_s); }
    QTableView& CheckGrid() { return Find<QTableView>(u"RecDatCheckGrid"_s); }

    void ClickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        const QModelIndex index = Grid().model()->index(row - 1, column);
        Grid().scrollTo(index);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers,
                          Grid().visualRect(index).center());
        Grid().setFocus();
    }
    void Select(int row, int column, int endRow, int endColumn) {
        ClickCell(row, column);
        ClickCell(endRow, endColumn, Qt::ShiftModifier);
    }
    void Keys(const QString& text) { QTest::keyClicks(&Grid(), text); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&Grid(), key, modifiers);
    }
    void Press(const char* button) {
        QTest::mouseClick(&Find(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QString Cell(int row, int column) {
        return Grid().model()->index(row - 1, column).data().toString();
    }
    QString Heading(QTableView& grid, int column) {
        return grid.model()->headerData(column, Qt::Horizontal).toString();
    }
    int Rows() { return Grid().model()->rowCount(); }
    /// Types rows of "time level" from row 1 on, Tab between and behind the cells.
    void TypeRows(const QList<std::pair<QString, QString>>& rows) {
        ClickCell(1, TimeColumn);
        for (const auto& [time, level] : rows) {
            Keys(time);
            Key(Qt::Key_Tab);
            Keys(level);
            Key(Qt::Key_Tab);
        }
    }
    /// Chooses entry `position` of a list with the keyboard, as a user does.
    void ChooseEntry(const char* list, int position) {
        auto& box = Find<QComboBox>(QString::fromLatin1(list));
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < position; ++i)
            QTest::keyClick(&box, Qt::Key_Down);
    }
    /// Chooses an entry of the menu that a right click on a cell opens, with the mouse.
    void ChooseInMenu(int row, int column, const QString& caption) {
        const QPoint at = Grid().visualRect(Grid().model()->index(row - 1, column)).center();
        QTest::mouseClick(Grid().viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, Grid().viewport()->mapToGlobal(at));
        QApplication::sendEvent(Grid().viewport(), &event);
        auto& menu = Find<QMenu>(u"RecDatGridMenu"_s);
        for (QAction* action : menu.actions())
            if (action->text().remove(u'&').section(u'\t', 0, 0) == caption) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                return;
            }
        qFatal("The menu lacks %s", qPrintable(caption));
    }
    static QString Clip() { return QGuiApplication::clipboard()->text(); }
    static void SetClip(const QString& text) { QGuiApplication::clipboard()->setText(text); }

private:
    QAbstractItemModelTester tester_;
};

} // namespace

class TestRecoveryPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- Typing ---------------------------------------------------------------------------------

    void TypedCellsGoIntoTheStateAtOnce() {
        RecoveryProgram program;
        program.TypeRows({{u"0"_s, u"9.80"_s}, {u"15"_s, u"9.41"_s}});
        QCOMPARE(program.State().RecDatGrid[1].time, "15");
        QCOMPARE(program.State().RecDatGrid[1].level, "9.41");
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(2, TimeColumn));
    }

    void TheFirstCharacterReplacesLaterOnesAreAdded() {
        RecoveryProgram program;
        program.TypeRows({{u"12"_s, u"7"_s}});
        program.ClickCell(1, TimeColumn);
        program.Keys(u"3"_s);
        QCOMPARE(program.Cell(1, TimeColumn), u"3"_s);
        program.Keys(u"45"_s);
        QCOMPARE(program.Cell(1, TimeColumn), u"345"_s);
        program.Key(Qt::Key_Backspace);
        QCOMPARE(program.Cell(1, TimeColumn), u"34"_s);
    }

    void BackspaceInACellJustEnteredDoesNothing() {
        RecoveryProgram program;
        program.TypeRows({{u"12"_s, u"7"_s}});
        program.ClickCell(1, TimeColumn);
        program.Key(Qt::Key_Backspace);
        QCOMPARE(program.Cell(1, TimeColumn), u"12"_s);
        program.Key(Qt::Key_Escape);
        QCOMPARE(program.Cell(1, TimeColumn), u"12"_s);
    }

    void EnterAtTheEndAddsARowAndKeepsItInView() {
        RecoveryProgram program;
        const int rows = program.Rows();
        program.ClickCell(rows, LevelColumn);
        program.Keys(u"1"_s);
        program.Key(Qt::Key_Return);
        QCOMPARE(program.Rows(), rows + 1);
        QCOMPARE(program.Cell(rows + 1, 0), QString::number(rows + 1));
        const QModelIndex current = program.Grid().currentIndex();
        QCOMPARE(current, program.Grid().model()->index(rows, TimeColumn));
        QVERIFY(program.Grid().viewport()->rect().contains(
            program.Grid().visualRect(current).center()));
    }

    void TabStaysInTheGridAndTabStopsComeBack() {
        RecoveryProgram program;
        program.ClickCell(1, TimeColumn);
        QVERIFY(program.Grid().hasFocus());
        QCOMPARE(program.Find(u"CmdSortByTime"_s).focusPolicy() & Qt::TabFocus, 0);
        program.Key(Qt::Key_Tab);
        QVERIFY(program.Grid().hasFocus());
        program.Find(u"RecDatTimeUnitsDDL"_s).setFocus();
        QVERIFY((program.Find(u"CmdSortByTime"_s).focusPolicy() & Qt::TabFocus) != 0);
    }

    void EveryTabStopAroundTheGridIsTakenOutAndPutBack() {
        RecoveryProgram program;
        const char* const stops[] = {"TabStrip2",     "CmdInsertRows",      "CmdRecDatDeleteRows",
                                     "CmdRecDatCut",  "CmdRecDataCopy",     "CmdRecDatPaste",
                                     "CmdSortByTime", "CmdRecDatCheckData", "RecDatCheckGrid"};
        const auto isStop = [&program](const char* name) {
            return (program.Find(QString::fromLatin1(name)).focusPolicy() & Qt::TabFocus) != 0;
        };
        program.ClickCell(1, TimeColumn);
        for (const char* name : stops)
            QVERIFY2(!isStop(name), name);
        program.Find(u"RecDatTimeUnitsDDL"_s).setFocus();
        for (const char* name : stops)
            QVERIFY2(isStop(name), name);
    }

    // ---- Blocks ---------------------------------------------------------------------------------

    void CopyPutsExactlyTheBlockOnTheClipboard() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}});
        program.Select(1, TimeColumn, 2, LevelColumn);
        program.Key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(program.Clip(), u"1\t2\r3\t4\r\r"_s);
    }

    void ABlockPastesFromOneCellTwiceIntoFourRowsAndNotIntoThree() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}});
        program.Select(1, TimeColumn, 2, LevelColumn);
        program.Press("CmdRecDataCopy");
        program.ClickCell(5, TimeColumn);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(program.Cell(6, LevelColumn), u"4"_s);
        program.Select(10, TimeColumn, 13, LevelColumn);
        program.Press("CmdRecDatPaste");
        QCOMPARE(program.Cell(12, TimeColumn), u"1"_s);
        QCOMPARE(program.Cell(13, LevelColumn), u"4"_s);
        program.Select(20, TimeColumn, 22, LevelColumn);
        Answers answers;
        answers.Box(u"Quarnel"_s, NotCompatible);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(20, TimeColumn), QString());
    }

    void OneCellCopiedElsewhereWithoutALineEndPastesNothing() {
        RecoveryProgram program;
        program.SetClip(u"42"_s);
        program.ClickCell(1, TimeColumn);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(program.Cell(1, TimeColumn), QString());
    }

    void TextOfEveryDesktopPastesAlike() {
        for (const QString& end : {u"\r"_s, u"\n"_s, u"\r\n"_s}) {
            RecoveryProgram program;
            program.SetClip(u"0\t9.80"_s + end + u"15\t9.41"_s + end);
            program.ClickCell(1, TimeColumn);
            program.Key(Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(program.Cell(2, LevelColumn), u"9.41"_s);
            QCOMPARE(program.Cell(3, TimeColumn), QString());
        }
    }

    void ATwoColumnBlockDoesNotFitFromTheLastColumn() {
        RecoveryProgram program;
        program.SetClip(u"1\t2\r"_s);
        program.ClickCell(1, LevelColumn);
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"A column to be pasted exceeds the number of columns in the grid."_s);
        program.Press("CmdRecDatPaste");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(1, LevelColumn), QString());
    }

    void PasteBelowTheLastRowGrowsTheGrid() {
        RecoveryProgram program;
        program.SetClip(u"1\t2\r3\t4\r5\t6\r"_s);
        program.ClickCell(program.Rows(), TimeColumn);
        program.Press("CmdRecDatPaste");
        QCOMPARE(program.Rows(), 52);
        QCOMPARE(program.Cell(52, LevelColumn), u"6"_s);
        QCOMPARE(program.Cell(52, 0), u"52"_s);
    }

    void TheDeleteKeyCuts() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}});
        program.Select(1, TimeColumn, 1, LevelColumn);
        program.Key(Qt::Key_Delete);
        QCOMPARE(program.Clip(), u"1\t2\r\r"_s);
        QCOMPARE(program.Cell(1, TimeColumn), QString());
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Cell(1, LevelColumn), u"2"_s);
        program.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Cell(1, LevelColumn), QString());
    }

    void CutEmptiesTheBlockAndGoesToItsFirstCell() {
        for (const bool byKey : {true, false}) {
            RecoveryProgram program;
            program.TypeRows({{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}});
            program.Select(2, LevelColumn, 1, TimeColumn);
            if (byKey)
                program.Key(Qt::Key_X, Qt::ControlModifier);
            else
                program.Press("CmdRecDatCut");
            QCOMPARE(program.Clip(), u"1\t2\r3\t4\r\r"_s);
            for (int row : {1, 2})
                QCOMPARE(program.Cell(row, TimeColumn) + program.Cell(row, LevelColumn), QString());
            QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(0, TimeColumn));
        }
    }

    void ClipboardKeysActWithCtrlAlone() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}});
        program.Select(1, TimeColumn, 1, LevelColumn);
        program.SetClip(u"8\t9\r"_s);
        for (const Qt::Key key : {Qt::Key_C, Qt::Key_X, Qt::Key_V})
            program.Key(key, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(program.Clip(), u"8\t9\r"_s);
        QCOMPARE(program.Cell(1, TimeColumn), u"1"_s);
        QCOMPARE(program.Cell(1, LevelColumn), u"2"_s);
    }

    void TheMenuHoldsTheSameCommands() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}});
        program.Select(1, TimeColumn, 2, LevelColumn);
        program.ChooseInMenu(2, TimeColumn, u"Copy"_s);
        QCOMPARE(program.Clip(), u"1\t2\r3\t4\r\r"_s);
        program.ChooseInMenu(1, LevelColumn, u"Cut"_s);
        QCOMPARE(program.Cell(2, LevelColumn), QString());
        program.ChooseInMenu(1, TimeColumn, u"Undo"_s);
        QCOMPARE(program.Cell(2, LevelColumn), u"4"_s);
        program.ChooseInMenu(1, TimeColumn, u"Redo"_s);
        QCOMPARE(program.Cell(2, LevelColumn), QString());
        program.ChooseInMenu(5, TimeColumn, u"Paste"_s);
        QCOMPARE(program.Cell(6, LevelColumn), u"4"_s);
        program.ChooseInMenu(8, TimeColumn, u"Select All"_s);
        QCOMPARE(program.Grid().selectionModel()->selectedIndexes().size(), 100);
    }

    void TheMenuChangesRowsAsTheButtonsDo() {
        RecoveryProgram program;
        program.TypeRows({{u"3"_s, u"7"_s}, {u"1"_s, u"7"_s}});
        program.ChooseEntry("RecDatDataTypeDDL", 2);
        Answers answers;
        program.ChooseInMenu(1, TimeColumn, u"Insert Rows"_s);
        QVERIFY(program.Find(u"InsertRowsPanel"_s).isVisible());
        program.Press("CmdInsertRowsCancel");
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s, QMessageBox::Ok);
        program.ChooseInMenu(1, TimeColumn, u"Sort"_s);
        QCOMPARE(program.Cell(1, TimeColumn), u"1"_s);
        answers.Box(u"Quarnel"_s, DeleteQuestion, QMessageBox::Yes);
        program.ChooseInMenu(1, TimeColumn, u"Delete Rows"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(1, TimeColumn), u"3"_s);
    }

    // ---- Rows -----------------------------------------------------------------------------------

    void DeletingAllRowsLeavesFiftyEmptyNumberedOnes() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}});
        program.Key(Qt::Key_A, Qt::ControlModifier);
        Answers answers;
        answers.Box(u"Quarnel"_s, DeleteQuestion, QMessageBox::Yes);
        program.Press("CmdRecDatDeleteRows");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Rows(), 50);
        QCOMPARE(program.Cell(1, TimeColumn), QString());
        QCOMPARE(program.Cell(50, 0), u"50"_s);
    }

    void DeletingRowsWithDataAnsweredWithNoLeavesThem() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}});
        program.Select(1, LevelColumn, 2, LevelColumn);
        Answers answers;
        answers.Box(u"Quarnel"_s, DeleteQuestion, QMessageBox::No);
        program.Press("CmdRecDatDeleteRows");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(2, LevelColumn), u"4"_s);
    }

    void RowsWithoutDataAreDeletedWithoutAQuestion() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}, {u""_s, u""_s}, {u""_s, u""_s}, {u"3"_s, u"4"_s}});
        program.Select(2, TimeColumn, 3, TimeColumn);
        Answers answers;
        program.Press("CmdRecDatDeleteRows");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(2, LevelColumn), u"4"_s);
        QCOMPARE(program.Cell(50, 0), u"50"_s);
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(1, TimeColumn));
    }

    void TheInsertPanelOpensAlikeEachTime() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}});
        program.ClickCell(1, TimeColumn);
        program.Press("CmdInsertRows");
        QCOMPARE(program.Find<QGroupBox>(u"InsertRowsPanel"_s).title(), u" Insert Rows"_s);
        auto& box = program.Find<QLineEdit>(u"RecDatInsertRowsText"_s);
        QTest::mouseClick(&program.Find(u"InsertRowsOption_0"_s), Qt::LeftButton, {},
                          QPoint(10, 10));
        box.setFocus();
        QTest::keyClicks(&box, u" 1 "_s);
        program.Press("CmdInsertRowsOK");
        QCOMPARE(program.Cell(1, TimeColumn), u"1"_s);
        QCOMPARE(program.Cell(2, TimeColumn), QString());
        QCOMPARE(program.Cell(3, TimeColumn), u"2"_s);
        QVERIFY(!box.isVisible());
        program.Press("CmdInsertRows");
        QCOMPARE(box.text(), QString());
        QVERIFY(program.Find<QRadioButton>(u"InsertRowsOption_1"_s).isChecked());
    }

    void InsertRowsOfNoneClosesThePanel() {
        for (const QString& count : {u"0"_s, u"-3"_s}) {
            RecoveryProgram program;
            program.Press("CmdInsertRows");
            auto& box = program.Find<QLineEdit>(u"RecDatInsertRowsText"_s);
            QVERIFY(box.hasFocus());
            QTest::keyClicks(&box, count);
            program.Press("CmdInsertRowsOK");
            QVERIFY(!program.Find(u"InsertRowsPanel"_s).isVisible());
            QCOMPARE(program.Rows(), 50);
        }
    }

    void InsertRowsOfNoNumberKeepsThePanel() {
        RecoveryProgram program;
        program.Press("CmdInsertRows");
        QTest::keyClicks(&program.Find(u"RecDatInsertRowsText"_s), u"abc"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Value entered for the number of rows cannot be evaluated as a "
                                  u"number. Please re-enter."_s);
        program.Press("CmdInsertRowsOK");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Find(u"InsertRowsPanel"_s).isVisible());
        program.Press("CmdInsertRowsCancel");
        QVERIFY(!program.Find(u"InsertRowsPanel"_s).isVisible());
    }

    void InsertRowsBeyondSixteenBitsOverflow() {
        RecoveryProgram program;
        program.Press("CmdInsertRows");
        QTest::keyClicks(&program.Find(u"RecDatInsertRowsText"_s), u"40000"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"6 Overflow"_s);
        program.Press("CmdInsertRowsOK");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Find(u"InsertRowsPanel"_s).isVisible());
        QCOMPARE(program.Rows(), 50);
    }

    void RowsAreInsertedAtTheSelectionsEnd() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}, {u"3"_s, u"c"_s}});
        program.Select(1, TimeColumn, 2, TimeColumn);
        program.Press("CmdInsertRows");
        QVERIFY(program.Find<QRadioButton>(u"InsertRowsOption_1"_s).isChecked());
        QTest::keyClicks(&program.Find(u"RecDatInsertRowsText"_s), u"2"_s);
        program.Press("CmdInsertRowsOK");
        QCOMPARE(program.Cell(1, TimeColumn), u"1"_s);
        QCOMPARE(program.Cell(2, TimeColumn), QString());
        QCOMPARE(program.Cell(4, TimeColumn), u"2"_s);
        QCOMPARE(program.Cell(52, 0), u"52"_s);
    }

    void SortOrdersByTimeAndClosesGaps() {
        RecoveryProgram program;
        program.TypeRows(
            {{u"3"_s, u"c"_s}, {u""_s, u""_s}, {u"1"_s, u"a"_s}, {u""_s, u""_s}, {u"2"_s, u"b"_s}});
        for (int row : {1, 3, 5}) {
            program.ClickCell(row, LevelColumn);
            program.Keys(u"7"_s);
        }
        program.ChooseEntry("RecDatDataTypeDDL", 2);
        Answers answers;
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s, QMessageBox::Ok);
        program.Press("CmdSortByTime");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(1, TimeColumn), u"1"_s);
        QCOMPARE(program.Cell(2, TimeColumn), u"2"_s);
        QCOMPARE(program.Cell(3, TimeColumn), u"3"_s);
        QCOMPARE(program.Cell(4, TimeColumn), QString());
        QCOMPARE(program.Rows(), 50);
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(0, TimeColumn));
    }

    void CancelledSortLeavesTheRows() {
        RecoveryProgram program;
        program.TypeRows({{u"3"_s, u"1"_s}, {u"1"_s, u"1"_s}});
        Answers answers;
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s, QMessageBox::Cancel);
        program.Press("CmdSortByTime");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(1, TimeColumn), u"3"_s);
    }

    void ASortThatMeetsAFaultSaysItAndLeavesTheRows() {
        RecoveryProgram program;
        program.TypeRows({{u"3"_s, u" 1 "_s}, {u"1"_s, u"x"_s}});
        program.ChooseEntry("RecDatDataTypeDDL", 2);
        Answers answers;
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s, QMessageBox::Ok);
        answers.Box(u"Quarnel"_s, u"Recovery data in row 2 cannot be evaluated as a number. Please "
                                  u"re-enter."_s);
        program.Press("CmdSortByTime");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Cell(1, TimeColumn), u"3"_s);
        QCOMPARE(program.Cell(1, LevelColumn), u"1"_s);
        QCOMPARE(program.Cell(2, LevelColumn), u"x"_s);
    }

    // ---- Check ----------------------------------------------------------------------------------

    void CheckDataShowsYInItsGrid() {
        RecoveryProgram program;
        program.TypeRows({{u"0"_s, u" 12.5 "_s}});
        program.ClickTab(4);
        TypeInto(program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s), u" 10 "_s);
        program.Press("CmdRecDatCheckData");
        QCOMPARE(program.CheckGrid().model()->rowCount(), 1);
        QCOMPARE(program.CheckGrid().model()->index(0, 1).data().toString(), u"0"_s);
        QCOMPARE(program.CheckGrid().model()->index(0, 2).data().toString(), u" 2.5"_s);
        QCOMPARE(program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s).text(), u"10"_s);
        QCOMPARE(program.Cell(1, LevelColumn), u"12.5"_s);
    }

    void CheckDataSaysWhatIsWrong_data() {
        QTest::addColumn<QString>("preSlug");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("level");
        QTest::addColumn<QString>("message");
        const QString again = u" cannot be evaluated as a number. Please re-enter."_s;
        QTest::newRow("no pre-slug condition")
            << u"  "_s << u"0"_s << u"1"_s << u"Please enter the Pre-Slug Test Condition."_s;
        QTest::newRow("pre-slug no number")
            << u"x"_s << u"0"_s << u"1"_s << u"Value entered for Pre-Slug Test Condition"_s + again;
        QTest::newRow("only a time")
            << u"1"_s << u"0"_s << u""_s << u"Missing Recovery data in row 1."_s;
        QTest::newRow("only a reading")
            << u"1"_s << u""_s << u"3"_s << u"Missing Time value in row 1."_s;
        QTest::newRow("time no number")
            << u"1"_s << u"1 2"_s << u"3"_s << u"Time value in row 1"_s + again;
        QTest::newRow("time -0.5")
            << u"1"_s << u"-0.5"_s << u"3"_s << u"Time value in row 1 must be >= 0."_s;
        QTest::newRow("reading no number")
            << u"1"_s << u"0"_s << u"3ft"_s << u"Recovery data in row 1"_s + again;
    }

    void CheckDataSaysWhatIsWrong() {
        QFETCH(QString, preSlug);
        QFETCH(QString, time);
        QFETCH(QString, level);
        QFETCH(QString, message);
        RecoveryProgram program;
        program.TypeRows({{time, level}});
        TypeInto(program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s), preSlug);
        Answers answers;
        answers.Box(u"Quarnel"_s, message);
        program.Press("CmdRecDatCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.CheckGrid().model()->rowCount(), 1);
        QCOMPARE(program.Cell(1, TimeColumn), time);
    }

    void AnEmptyGridOfChangesInHeadPassesSilently() {
        RecoveryProgram program;
        program.ChooseEntry("RecDatDataTypeDDL", 2);
        Answers answers;
        program.Press("CmdRecDatCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.CheckGrid().model()->rowCount(), 1);
        QCOMPARE(program.CheckGrid().model()->index(0, 1).data().toString(), QString());
    }

    // ---- Headings -------------------------------------------------------------------------------

    void HeadingsFollowTheListsInEveryGrid() {
        RecoveryProgram program;
        auto& marks = program.Find<QTableView>(u"RecDatWeightGrid"_s);
        program.ChooseEntry("RecDatTimeUnitsDDL", 1);
        program.ChooseEntry("RecDatWaterLevelUnitsDDL", 3);
        program.ChooseEntry("RecDatDataTypeDDL", 1);
        QCOMPARE(program.Heading(program.Grid(), 0), u"Sample\n Number"_s);
        QCOMPARE(program.Heading(program.Grid(), 2), u"Recovery\nH   (m)"_s);
        for (QTableView* grid : {&program.Grid(), &program.CheckGrid(), &marks})
            QCOMPARE(program.Heading(*grid, 1), u"Time\n(min)"_s);
        for (QTableView* grid : {&program.CheckGrid(), &marks})
            QCOMPARE(program.Heading(*grid, 2), u" \nY   (m)"_s);
        auto& details = program.Find<QTableView>(u"ComputeYGrid"_s);
        QCOMPARE(program.Heading(details, 1), u"Time (min)"_s);
        QCOMPARE(program.Heading(details, 3), u"Fit Y (m)"_s);
    }

    void ThePreSlugBoxFollowsTheDataType() {
        RecoveryProgram program;
        auto& label = program.Find<QLabel>(u"RecDatPreSlugHeadLbl"_s);
        QCOMPARE(label.text(), u"D: Depth to Groundwater (ft)"_s);
        QVERIFY(program.Find(u"RecDatPreSlugHeadText"_s).isVisible());
        TypeInto(program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s), u"abc"_s);
        program.ChooseEntry("RecDatDataTypeDDL", 2);
        QCOMPARE(label.text(), u"Not Applicable"_s);
        QVERIFY(!program.Find(u"RecDatPreSlugHeadText"_s).isVisible());
        // A change in head needs no static level, so the text is not even looked at.
        program.TypeRows({{u"0"_s, u"1"_s}});
        Answers answers;
        program.Press("CmdRecDatCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.State().RecDatPreSlugHeadText, "abc");
    }

    void HeadingsFollowAnOpenedProject() {
        RecoveryProgram program;
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        QCOMPARE(program.Heading(program.Grid(), 2), u"Recovery\nY   (m)"_s);
        QCOMPARE(program.Find<QLabel>(u"RecDatPreSlugHeadLbl"_s).text(), u"Not Applicable"_s);
        QCOMPARE(program.Rows(), 86);
        QCOMPARE(program.Cell(61, TimeColumn), u"354.9"_s);
    }

    void OpeningStartsAFreshHistory() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}});
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        program.ClickTab(4);
        program.ClickCell(1, TimeColumn);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Cell(1, TimeColumn), u"0.1"_s);
    }

    void NewStartsAFreshHistory() {
        RecoveryProgram program;
        program.TypeRows({{u"1"_s, u"2"_s}});
        ResetProject(program.Window());
        program.ClickTab(4);
        program.ClickCell(1, TimeColumn);
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Cell(1, TimeColumn), QString());
    }

    void ShiftAndArrowsMoveTheEndArrowsTheCurrentCell() {
        RecoveryProgram program;
        program.ClickCell(2, TimeColumn);
        program.Key(Qt::Key_Down, Qt::ShiftModifier);
        program.Key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(1, TimeColumn));
        QCOMPARE(program.Grid().selectionModel()->selectedIndexes().size(), 4);
        program.Key(Qt::Key_Down);
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(2, TimeColumn));
        QCOMPARE(program.Grid().selectionModel()->selectedIndexes().size(), 1);
    }

    void HomeEndAndPageKeysMoveTheCurrentCellAndKeepItInView() {
        RecoveryProgram program;
        const auto current = [&program] {
            const QModelIndex index = program.Grid().currentIndex();
            return std::pair(index.row() + 1, index.column());
        };
        program.ClickCell(1, TimeColumn);
        program.Key(Qt::Key_End);
        QCOMPARE(current(), std::pair(1, LevelColumn));
        program.Key(Qt::Key_PageDown);
        const int page = current().first - 1;
        QVERIFY(page > 1);
        program.Key(Qt::Key_PageUp);
        QCOMPARE(current(), std::pair(1, LevelColumn));
        program.Key(Qt::Key_Home);
        QCOMPARE(current(), std::pair(1, TimeColumn));
        program.Key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(current(), std::pair(50, LevelColumn));
        QVERIFY(program.Grid().viewport()->rect().contains(
            program.Grid().visualRect(program.Grid().currentIndex()).center()));
        program.Key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(current(), std::pair(1, TimeColumn));
    }

    void MouseDragSelectsFromWhereItBegan() {
        RecoveryProgram program;
        auto* viewport = program.Grid().viewport();
        const auto centre = [&program](int row, int column) {
            return program.Grid()
                .visualRect(program.Grid().model()->index(row - 1, column))
                .center();
        };
        QTest::mousePress(viewport, Qt::LeftButton, {}, centre(2, TimeColumn));
        QTest::mouseMove(viewport, centre(3, LevelColumn));
        QMouseEvent move(QEvent::MouseMove, centre(4, LevelColumn),
                         viewport->mapToGlobal(centre(4, LevelColumn)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, centre(4, LevelColumn));
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(1, TimeColumn));
        QCOMPARE(program.Grid().selectionModel()->selectedIndexes().size(), 6);
    }

    void AClickOnARowNumberSelectsTheRow() {
        RecoveryProgram program;
        program.ClickCell(3, 0);
        QCOMPARE(program.Grid().currentIndex(), program.Grid().model()->index(2, TimeColumn));
        QCOMPARE(program.Grid().selectionModel()->selectedIndexes().size(), 2);
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestRecoveryPanel)

#include "test_recovery_panel.moc"

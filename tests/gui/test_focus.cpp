// Where the keyboard is: on the page that is seen, on what a message names, back in the grid after
// a command; what the wheel turns; and that a question which stands is the only one.

#include "tests/gui/ActiveProgram.h"

#include <QAccessible>
#include <QComboBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

namespace quarnel::windowtest {

namespace {

const QString NewQuestion =
    u"New Project will clear existing data. Make sure you have saved current "
    u"information to a file before proceeding.\r\n Do you want to proceed "
    u"with New Project?"_s;
const QString ExitQuestion = u"Exit QUARNEL? (Unsaved data will be lost.)"_s;
const QString Example = SourceFile("examples/pratt-county-1998.qn2");

} // namespace

class TestFocus : public QObject {
    Q_OBJECT

    /// What each tab gives the keyboard to.
    static QString FirstOf(int tab) {
        return QStringList{u"SiteIDText_0"_s, u"WellTestIDTxt_0"_s, u"WellGeoText_0"_s,
                           u"RecDatGrid"_s, u"RecDatWeightGrid"_s}[tab - 1];
    }

private Q_SLOTS:
    // ---- Changing the page ---------------------------------------------------------------------

    void AClickedTabGivesItsPageTheKeyboard() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (const int tab : {4, 5, 3, 2, 1, 5, 4, 1}) {
            program.ClickTab(tab);
            QCOMPARE(program.FocusName(), FirstOf(tab));
            QVERIFY(program.FocusIsSeen());
        }
    }

    void WhatIsTypedAfterATabChangeStaysOutOfTheHiddenGrid() {
        for (const int tab : {1, 2, 3, 5}) {
            ActiveProgram program;
            program.Window().OpenPath(Example);
            program.ClickTab(4);
            program.ClickCell(3, 1);
            program.Keys(u"7"_s);
            if (tab == 5)
                program.Key(Qt::Key_PageDown, Qt::ControlModifier);
            else
                program.ClickTab(tab);
            const auto rows = program.State().RecDatGrid.size();
            QCOMPARE(program.State().RecDatGrid[2].time, "7");
            program.Keys(u"99"_s);
            program.Key(Qt::Key_Delete);
            for (int i = 0; i < 100; ++i)
                program.Key(Qt::Key_Tab);
            program.Keys(u"I "_s);
            QCOMPARE(program.State().RecDatGrid[2].time, "7");
            QCOMPARE(program.State().RecDatGrid.size(), rows);
        }
    }

    void ControlPageKeysGiveEveryPageTheKeyboard() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp})
            for (int i = 0; i < 7; ++i) {
                program.Key(key, Qt::ControlModifier);
                QCOMPARE(program.FocusName(), FirstOf(program.SelectedTab()));
            }
    }

    void ArrowKeysOnTheStripLeaveTheKeyboardThere() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.Find(u"TabStrip2"_s).setFocus();
        for (int tab = 2; tab <= 5; ++tab) {
            program.Key(Qt::Key_Right);
            QCOMPARE(program.SelectedTab(), tab);
            QCOMPARE(program.FocusName(), u"TabStrip2"_s);
        }
    }

    void StartNewAndOpenBeginInTheFirstBox() {
        ActiveProgram program;
        QCOMPARE(program.FocusName(), u"SiteIDText_0"_s);
        program.ClickTab(4);
        Answers answers;
        answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.FocusName(), u"SiteIDText_0"_s);
        program.Find(u"TabStrip2"_s).setFocus();
        program.Window().OpenPath(Example);
        QCOMPARE(program.FocusName(), u"SiteIDText_0"_s);
    }

    void TheKeyboardAloneMarksAPointAndComputesK() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        const std::size_t marked = program.State().IgnoreKeyList.size();
        for (int i = 0; i < 4; ++i)
            program.Key(Qt::Key_PageDown, Qt::ControlModifier);
        program.Keys(u"U"_s); // the first reading is ignored in this project
        QCOMPARE(program.State().IgnoreKeyList.size(), marked - 1);
        for (int i = 0; i < 20 && program.FocusName() != u"CmdComputeK"_s; ++i)
            program.Key(Qt::Key_Tab);
        QCOMPARE(program.FocusName(), u"CmdComputeK"_s);
        program.Key(Qt::Key_Space);
        QVERIFY(!program.Find<QLabel>(u"ComputedKLabel"_s).text().isEmpty());
    }

    void TabFromTheStripGoesToTheTopOfEveryPage() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        const QStringList top = {u"SiteIDText_0"_s, u"WellTestIDTxt_0"_s, u"WellGeoText_0"_s,
                                 u"RecDatDataTypeDDL"_s, u"Plot1"_s};
        for (int tab = 1; tab <= 5; ++tab) {
            program.ClickTab(tab);
            program.Find(u"TabStrip2"_s).setFocus();
            program.Key(Qt::Key_Tab);
            QCOMPARE(program.FocusName(), top[tab - 1]);
        }
    }

    void TabGoesThroughThePageOfKAsItIsRead() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        for (const auto& name :
             {u"RecDatWeightGrid"_s, u"CmdComputeK"_s, u"CmboKLengthUnits"_s, u"CmboKTimeUnits"_s,
              u"CmdDetails"_s, u"CmdPrintPlot"_s, u"CmdPrtSummary"_s}) {
            QCOMPARE(program.FocusName(), name);
            program.Key(Qt::Key_Tab);
        }
    }

    void TabGoesThroughTheWellGeometryAsItIsRead() {
        ActiveProgram program;
        program.ClickTab(3);
        for (const auto& name :
             {u"WellGeoText_0"_s, u"WellGeoText_1"_s, u"WellGeoText_2"_s, u"WellGeoVertUnitsDDL"_s,
              u"WellGeoText_3"_s, u"WellGeoText_4"_s, u"WellGeoRadUnitsDDL"_s, u"WellGeoText_5"_s,
              u"SSCmdWellGeoCheckData"_s}) {
            QCOMPARE(program.FocusName(), name);
            program.Key(Qt::Key_Tab);
        }
    }

    void TabGoesThroughTheRecoveryDataAsItIsRead() {
        ActiveProgram program;
        program.ClickTab(4);
        program.Find(u"RecDatDataTypeDDL"_s).setFocus();
        for (const auto& name :
             {u"RecDatDataTypeDDL"_s, u"RecDatSlugTestTypeDDL"_s, u"RecDatTimeUnitsDDL"_s,
              u"RecDatWaterLevelUnitsDDL"_s, u"RecDatPreSlugHeadText"_s, u"RecDatGrid"_s}) {
            QCOMPARE(program.FocusName(), name);
            program.Key(Qt::Key_Tab);
        }
    }

    void AChosenSlugTestTypeGoesIntoTheProject() {
        ActiveProgram program;
        program.ClickTab(4);
        auto& list = program.Find<QComboBox>(u"RecDatSlugTestTypeDDL"_s);
        QCOMPARE(list.count(), 2);
        list.setFocus();
        program.Key(Qt::Key_Down);
        QCOMPARE(program.State().RecDatSlugTestTypeDDL, int(FallingHead));
        program.Key(Qt::Key_Up);
        QCOMPARE(program.State().RecDatSlugTestTypeDDL, int(RisingHead));
    }

    void ScrollAreasAreNoTabStops() {
        ActiveProgram program;
        for (const QScrollArea* area : program.Window().findChildren<QScrollArea*>())
            QCOMPARE(area->focusPolicy(), Qt::NoFocus);
    }

    // ---- After a command -----------------------------------------------------------------------

    void AfterEachCommandOfTheRecoveryPanelTheGridHasTheKeyboard_data() {
        QTest::addColumn<QString>("button");
        for (const char* button : {"CmdRecDatDeleteRows", "CmdRecDatCut", "CmdRecDataCopy",
                                   "CmdRecDatPaste", "CmdSortByTime", "CmdRecDatCheckData"})
            QTest::newRow(button) << QString::fromLatin1(button);
    }

    void AfterEachCommandOfTheRecoveryPanelTheGridHasTheKeyboard() {
        QFETCH(QString, button);
        ActiveProgram program;
        program.ClickTab(4);
        auto& type = program.Find<QComboBox>(u"RecDatDataTypeDDL"_s);
        type.setFocus();
        QTest::keyClick(&type, Qt::Key_End);
        program.ClickCell(1, 1);
        program.Keys(u"5"_s);
        program.Key(Qt::Key_Tab);
        program.Keys(u"6"_s);
        program.ClickCell(1, 1);
        program.Find(u"RecDatTimeUnitsDDL"_s).setFocus();
        Answers answers;
        if (button == u"CmdSortByTime"_s)
            answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s);
        if (button == u"CmdRecDatDeleteRows"_s)
            answers.BoxAbout(u"Are you sure"_s, QMessageBox::Yes);
        QTest::mouseClick(&program.Find(button), Qt::LeftButton);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.FocusName(), u"RecDatGrid"_s);
        if (button == u"CmdRecDatDeleteRows"_s || button == u"CmdRecDatCut"_s)
            QCOMPARE(program.State().RecDatGrid[0].time, "");
        if (program.State().RecDatGrid[0].time.empty())
            program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.State().RecDatGrid[0].time, "5");
        program.ClickCell(1, 1);
        program.Press("CmdRecDataCopy");
        program.Keys(u"8"_s);
        QCOMPARE(program.State().RecDatGrid[0].time, "8");
    }

    // ---- After an error ------------------------------------------------------------------------

    void AnErrorLeadsToTheCellItNames() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.State().RecDatGrid[44].time = CellText("x");
        program.State().RecDatGrid[50].level = CellText();
        const auto expectAt = [&program](int row, int column) {
            QCOMPARE(program.FocusName(), u"RecDatGrid"_s);
            const QModelIndex current = program.Grid().currentIndex();
            QCOMPARE(current, program.Grid().model()->index(row - 1, column));
            QVERIFY(program.Grid().viewport()->rect().contains(
                program.Grid().visualRect(current).center()));
        };
        program.ClickTab(4);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Time value in row 45 cannot be evaluated as a number. Please "
                                  u"re-enter."_s);
        program.Press("CmdRecDatCheckData");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        expectAt(45, 1);
        program.Keys(u"300"_s);
        QCOMPARE(program.State().RecDatGrid[44].time, "300");

        // The same from the page that computes.
        answers.Box(u"Quarnel"_s, u"Missing Recovery data in row 51."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.VisiblePanel(), 5);
        expectAt(51, 2);
        answers.Box(u"Confirm Sort"_s, u"Sort the Recovery Data by time?"_s);
        answers.Box(u"Quarnel"_s, u"Missing Recovery data in row 51."_s);
        program.ClickCell(1, 1);
        program.Press("CmdSortByTime");
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        expectAt(51, 2);
    }

    void AnErrorLeadsToTheBoxItNames_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<int>("box");
        const QStringList good = {u"10"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"30"_s};
        for (int i = 0; i < 6; ++i) {
            QStringList texts = good;
            texts[i] = u"x"_s;
            QTest::addRow("box %d", i) << texts << i;
        }
        QTest::newRow("Lw > H") << QStringList{u"7"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"0"_s} << 1;
        QTest::newRow("Le > Lw") << QStringList{u"10"_s, u"8"_s, u"9"_s, u"8"_s, u"2"_s, u"0"_s}
                                 << 2;
        QTest::newRow("dc > dw") << QStringList{u"10"_s, u"8"_s, u"5"_s, u"1"_s, u"2"_s, u"0"_s}
                                 << 4;
        QTest::newRow("dpor 101") << QStringList{u"10"_s, u"8"_s, u"5"_s, u"8"_s, u"2"_s, u"101"_s}
                                  << 5;
    }

    void AnErrorLeadsToTheBoxItNames() {
        QFETCH(QStringList, texts);
        QFETCH(int, box);
        ActiveProgram program;
        program.ClickTab(3);
        for (int i = 0; i < 6; ++i)
            TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, i), texts[i]);
        const QString wanted = u"WellGeoText_%1"_s.arg(box);
        for (const bool byTab : {false, true}) {
            program.Find(u"WellGeoVertUnitsDDL"_s).setFocus();
            Answers answers;
            answers.BoxAbout(u"Well Geometry: "_s, QMessageBox::Ok);
            if (byTab)
                program.ClickTab(5);
            else
                program.Press("SSCmdWellGeoCheckData");
            QVERIFY2(answers.AllGiven(), answers.Complaints());
            QCOMPARE(program.FocusName(), wanted);
            QCOMPARE(program.VisiblePanel(), 4);
        }
        program.Keys(u"3"_s);
        QCOMPARE(program.State().WellGeoText[static_cast<std::size_t>(box)], "3");
    }

    void AnErrorLeadsToThePreSlugBox() {
        ActiveProgram program;
        program.TypeGeometry();
        program.ClickTab(4);
        program.ClickCell(1, 1);
        program.Keys(u"5"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Please enter the Pre-Slug Test Condition."_s);
        program.Press("CmdRecDatCheckData");
        QCOMPARE(program.FocusName(), u"RecDatPreSlugHeadText"_s);
        program.Keys(u"x"_s);
        program.ClickTab(3);
        answers.Box(u"Quarnel"_s, u"Value entered for Pre-Slug Test Condition cannot be evaluated "
                                  u"as a number. Please re-enter."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.VisiblePanel(), 5);
        QCOMPARE(program.FocusName(), u"RecDatPreSlugHeadText"_s);
        program.Keys(u"4"_s);
        QCOMPARE(program.State().RecDatPreSlugHeadText, "4");
    }

    void TheStatusBarNamesTheFileOfAMessage() {
        ActiveProgram program;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"53 File not found"_s);
        program.Window().OpenPath(u"/nowhere-at-all.qn2"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Find<QLabel>(u"StatusText"_s).text().contains(u"/nowhere-at-all.qn2"_s));
    }

    // ---- The end of the program ----------------------------------------------------------------

    void ASecondRequestToCloseIsTheSameQuestion_data() {
        QTest::addColumn<bool>("byMenu");
        QTest::newRow("after the frame") << false;
        QTest::newRow("after Exit") << true;
    }

    void ASecondRequestToCloseIsTheSameQuestion() {
        QFETCH(bool, byMenu);
        ActiveProgram program;
        program.ClickTab(4);
        bool closed = false;
        Answers answers;
        answers.Dialog<QMessageBox>([&program, &closed](QMessageBox& box) {
            // The box is away, what it was asked for is not yet ended: the moment of a hasty click.
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
            closed = program.CloseFrame();
        });
        if (byMenu)
            program.Choose(u"mnuExit"_s);
        else
            program.CloseFrame();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!closed);
        QVERIFY(program.Window().isVisible());
        QVERIFY(program.Window().windowHandle() != nullptr);
        // The next request asks again.
        answers.Box(u"Confirm Exit"_s, ExitQuestion, QMessageBox::Ok);
        program.CloseFrame();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!program.Window().isVisible());
    }

    void QuestionsStandOnTheHarmlessAnswer() {
        ActiveProgram program;
        Answers answers;
        const auto enter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
        answers.Dialog<QMessageBox>(enter);
        program.Window().close();
        QVERIFY(program.Window().isVisible());
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, 1), u"kept"_s);
        answers.Dialog<QMessageBox>(enter);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.State().SiteIDText[1], "kept");
    }

    // ---- The wheel -----------------------------------------------------------------------------

    void TheWheelOverAListOrTheStripTurnsNothing() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        for (int tab = 1; tab <= 5; ++tab) {
            program.ClickTab(tab);
            const QString focus = program.FocusName();
            for (QComboBox* list : program.Window().findChildren<QComboBox*>()) {
                if (!list->isVisible())
                    continue;
                const int before = list->currentIndex();
                for (const int notches : {1, -1, -1, 1, 1})
                    program.Wheel(*list, notches);
                QCOMPARE(list->currentIndex(), before);
            }
            program.Wheel(program.Find(u"TabStrip2"_s), -1);
            program.Wheel(program.Find(u"TabStrip2"_s), 1);
            QCOMPARE(program.SelectedTab(), tab);
            QCOMPARE(program.FocusName(), focus);
        }
    }

    void TheWheelOverAListScrollsThePage() {
        ActiveProgram program;
        program.ClickTab(3);
        auto& list = program.Find(u"WellGeoVertUnitsDDL"_s);
        QScrollArea* page = nullptr;
        for (QWidget* outer = list.parentWidget(); page == nullptr; outer = outer->parentWidget())
            page = qobject_cast<QScrollArea*>(outer);
        page->setFixedHeight(120);
        QTRY_VERIFY(page->verticalScrollBar()->maximum() > 0);
        program.Wheel(list, -1);
        QVERIFY(page->verticalScrollBar()->value() > 0);
    }

    void TheWheelTurnsAListThatHasTheKeyboard() {
        ActiveProgram program;
        program.ClickTab(3);
        auto& list = program.Find<QComboBox>(u"WellGeoVertUnitsDDL"_s);
        list.setFocus();
        program.Wheel(list, -1);
        QCOMPARE(program.State().WellGeoVertUnitsDDL, int(Centimetre));
    }

    void TheWheelOverAGridLeavesTheKeyboardWhereItIs() {
        ActiveProgram program;
        program.ClickTab(4);
        auto& box = program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s);
        box.setFocus();
        program.Wheel(*program.Grid().viewport(), -1);
        program.Wheel(*program.Find<QTableView>(u"RecDatCheckGrid"_s).viewport(), -1);
        program.Keys(u"12"_s);
        QCOMPARE(program.State().RecDatPreSlugHeadText, "12");
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestFocus)
#include "test_focus.moc"

#include "tests/gui/WindowTestSupport.h"

#include <QComboBox>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <new>
#include <stdexcept>

namespace quarnel::windowtest {

namespace {

const QString NewQuestion =
    u"New Project will clear existing data. Make sure you have saved current "
    u"information to a file before proceeding.\r\n Do you want to proceed "
    u"with New Project?"_s;
const QString ExitQuestion = u"Exit QUARNEL? (Unsaved data will be lost.)"_s;
const QString ExitTitle = u"Confirm Exit"_s;

/// A well whose geometry passes every check, typed into the state.
void EnterGeometry(ProjectState& state) {
    state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
}

/// Throws from inside an event handler.
class Thrower : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User)
            throw std::runtime_error("a fault nobody foresaw");
        if (event->type() == QEvent::User + 1)
            throw std::bad_alloc();
        return QObject::event(event);
    }
};

/// Every text of a control that is on the screen has the room that it asks for.
void ExpectNothingCut(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool holdsText = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<const QComboBox*>(widget) != nullptr ||
                               (label != nullptr && !label->wordWrap());
        if (!widget->isVisible() || !holdsText || widget->objectName() == u"StatusText"_s ||
            widget->parentWidget()->inherits("QTabBar"))
            continue;
        const QSize needed = label != nullptr ? widget->sizeHint() : widget->minimumSizeHint();
        if (widget->width() < needed.width() || widget->height() < needed.height())
            QFAIL(qPrintable(u"%1 is cut"_s.arg(widget->objectName())));
    }
    for (const QTableView* grid : window.findChildren<QTableView*>()) {
        const QHeaderView& heading = *grid->horizontalHeader();
        for (int column = 0; grid->isVisible() && column < heading.count(); ++column)
            QVERIFY2(heading.sectionSize(column) >= heading.sectionSizeHint(column),
                     qPrintable(grid->objectName()));
        // The details' window has its own scroll bar; the panels scroll as a whole.
        if (grid->isVisible() && grid->objectName() != u"ComputeYGrid"_s)
            QCOMPARE(grid->horizontalScrollBar()->maximum(), 0);
        QVERIFY(!grid->isVisible() || heading.height() >= heading.sizeHint().height());
    }
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void StartsWithTheProgramsTitle() {
        Program program;
        QCOMPARE(program.Window().windowTitle(), u"Quarnel: Bouwer-Rice Slug Test Analysis"_s);
        QCOMPARE(program.SelectedTab(), 1);
        QCOMPARE(program.VisiblePanel(), 1);
    }

    void AfterStartTheListsShowTheNewProject() {
        Program program;
        const auto shown = [&program](const char* name) {
            return program.Find<QComboBox>(QString::fromLatin1(name)).currentText();
        };
        QCOMPARE(shown("RecDatTimeUnitsDDL"), u"sec"_s);
        QCOMPARE(shown("RecDatWaterLevelUnitsDDL"), u"ft"_s);
        QCOMPARE(shown("RecDatDataTypeDDL"), u"D: Depth to Groundwater "_s);
        QCOMPARE(shown("RecDatSlugTestTypeDDL"), u"Rising head "_s);
        QCOMPARE(shown("WellGeoVertUnitsDDL"), u"ft"_s);
        QCOMPARE(shown("WellGeoRadUnitsDDL"), u"in"_s);
        QCOMPARE(shown("CmboKLengthUnits"), u"m"_s);
        QCOMPARE(shown("CmboKTimeUnits"), u"day"_s);
        QCOMPARE(program.Find<QComboBox>(u"RecDatSlugTestTypeDDL"_s).count(), 2);
    }

    void EachTabShowsItsPanelAndNoneShowsTheThird() {
        Program program;
        EnterGeometry(program.State());
        program.State().RecDatDataTypeDDL = ChangeInHead;
        program.State().RecDatGrid[0] = {"1", "2"};
        const std::array<int, 5> panels = {1, 2, 4, 5, 6};
        for (int tab = 1; tab <= 5; ++tab) {
            program.ClickTab(tab);
            QCOMPARE(program.VisiblePanel(), panels[static_cast<std::size_t>(tab - 1)]);
        }
        auto& strip = program.Find<QTabBar>(u"TabStrip2"_s);
        QStringList captions;
        for (int tab = 0; tab < strip.count(); ++tab)
            captions << strip.tabText(tab);
        QCOMPARE(captions, QStringList({u"Site ID"_s, u"Well/Test ID"_s, u"Well Geometry"_s,
                                        u"Recovery Data"_s, u"Compute K"_s}));
    }

    void EveryPanelHasItsTitle() {
        Program program;
        const QStringList titles = {QString(),
                                    u"Site Identification"_s,
                                    u"Well and Slug Test Identification"_s,
                                    u"Test Identification"_s,
                                    u"Well Geometry"_s,
                                    u"Recovery Data"_s,
                                    u"Compute Hydraulic Conductivity"_s};
        for (int panel = 0; panel <= 6; ++panel)
            QCOMPARE(program.Find<QLabel>(u"PanelTitle"_s, panel).text(), titles[panel]);
    }

    void TheListsHoldTheirEntriesInOrder() {
        Program program;
        const QStringList lengths = {u"in"_s, u"ft"_s, u"cm"_s, u"m"_s};
        const QStringList times = {u"sec"_s, u"min"_s, u"hr"_s, u"day"_s};
        const std::pair<const char*, QStringList> lists[] = {
            {"CmboKLengthUnits", lengths},
            {"CmboKTimeUnits", times},
            {"WellGeoVertUnitsDDL", lengths},
            {"WellGeoRadUnitsDDL", lengths},
            {"RecDatWaterLevelUnitsDDL", lengths},
            {"RecDatTimeUnitsDDL", times},
            {"RecDatDataTypeDDL",
             {u"D: Depth to Groundwater "_s, u"H: Groundwater Head "_s, u"Y: Change in Head "_s}},
            {"RecDatSlugTestTypeDDL", {u"Rising head "_s, u"Falling head "_s}}};
        for (const auto& [name, entries] : lists) {
            const auto& list = program.Find<QComboBox>(QString::fromLatin1(name));
            QStringList held;
            for (int i = 0; i < list.count(); ++i)
                held << list.itemText(i);
            QCOMPARE(held, entries);
        }
    }

    void NewKeepsTheConsultantAndEmptiesEverythingElse() {
        Program program;
        for (int i = 0; i < 20; ++i)
            TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, i), u"text %1"_s.arg(i));
        program.ClickTab(2);
        for (int i = 0; i < 6; ++i)
            TypeInto(program.Find<QLineEdit>(u"WellTestIDTxt"_s, i), u"13/45/2000"_s);
        TypeInto(program.Find<QLineEdit>(u"VolumeOfSlugText"_s), u"1.5"_s);
        QCOMPARE(program.State().WellTestIDTxt[TestDate], "13/45/2000");
        Answers answers;
        answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        for (int i = 0; i < 20; ++i) {
            const bool consultant = i >= 11 && i <= 17;
            QCOMPARE(program.Find<QLineEdit>(u"SiteIDText"_s, i).text(),
                     consultant ? u"text %1"_s.arg(i) : QString());
        }
        for (int i = 0; i < 6; ++i)
            QCOMPARE(program.Find<QLineEdit>(u"WellTestIDTxt"_s, i).text(), QString());
        QCOMPARE(program.Find<QLineEdit>(u"VolumeOfSlugText"_s).text(), QString());
        QCOMPARE(program.SelectedTab(), 1);
        QCOMPARE(program.VisiblePanel(), 1);
    }

    void NewAnsweredWithNoLeavesEverything() {
        Program program;
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, 1), u"Corner Fuel Stop"_s);
        Answers answers;
        answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::No);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Find<QLineEdit>(u"SiteIDText"_s, 1).text(), u"Corner Fuel Stop"_s);
    }

    void AHastyEnterDoesNotThrowAProjectAway() {
        Program program;
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, 1), u"Corner Fuel Stop"_s);
        Answers answers;
        answers.Dialog<QMessageBox>(
            [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.State().SiteIDText[SiteName], "Corner Fuel Stop");
    }

    void ComputeTabWithIncompleteGeometryLandsOnWellGeometry() {
        Program program;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Well Geometry: H must have a value."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.SelectedTab(), 3);
        QCOMPARE(program.VisiblePanel(), 4);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void ComputeTabWithoutRecoveryDataLandsOnRecoveryData() {
        Program program;
        EnterGeometry(program.State());
        Answers answers;
        answers.Box(u"Quarnel"_s, u"No recovery data has been entered."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.SelectedTab(), 4);
        QCOMPARE(program.VisiblePanel(), 5);
    }

    void ComputeTabWithAFaultyReadingSaysWhichRow() {
        Program program;
        EnterGeometry(program.State());
        program.State().RecDatDataTypeDDL = ChangeInHead;
        program.State().RecDatGrid[0] = {"1", "2"};
        program.State().RecDatGrid[3] = {"2", " x "};
        Answers answers;
        answers.Box(u"Quarnel"_s, u"Recovery data in row 4 cannot be evaluated as a number. "
                                  u"Please re-enter."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.SelectedTab(), 4);
        QCOMPARE(program.VisiblePanel(), 5);
        QCOMPARE(program.State().RecDatGrid[3].level, "x");
    }

    void ComputeTabTellsOfYNotAboveZeroAndGoesOn() {
        Program program;
        EnterGeometry(program.State());
        program.State().RecDatDataTypeDDL = ChangeInHead;
        program.State().RecDatGrid[0] = {"1", "2"};
        program.State().RecDatGrid[1] = {"2", "0"};
        Answers answers;
        answers.Box(u"Quarnel"_s,
                    u"Y values <= 0 are present. This is OK, butY values <=0 cannot be used for "
                    u"parameter estimation. Y values <=0 near the start of the recovery data may "
                    u"indicate an error in the recovery data, an error in the specified Water "
                    u"Level Measurement method, or an error in the specified Slug Test Type."_s);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.SelectedTab(), 5);
        QCOMPARE(program.VisiblePanel(), 6);
    }

    void ClosingAndPressingCancelKeepsTheProgramWithItsData() {
        Program program;
        TypeInto(program.Find<QLineEdit>(u"SiteIDText"_s, 1), u"Site 36"_s);
        Answers answers;
        answers.Box(ExitTitle, ExitQuestion, QMessageBox::Cancel);
        QVERIFY(!program.Window().close());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Window().isVisible());
        QCOMPARE(program.State().SiteIDText[SiteName], "Site 36");
    }

    void ClosingAndPressingOkCloses() {
        Program program;
        Answers answers;
        answers.Box(ExitTitle, ExitQuestion, QMessageBox::Ok);
        QVERIFY(program.Window().close());
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void ExitAsksOnceAndOkEnds() {
        Program program;
        Answers answers;
        answers.Box(ExitTitle, ExitQuestion, QMessageBox::Ok);
        program.Choose(u"mnuExit"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(!program.Window().isVisible());
    }

    void TheWindowIsFittedToTheScreenAndTheDialogsStandInItsMiddle() {
        Program program;
        const QScreen* screen = program.Window().screen();
        const QRect area = screen->availableGeometry();
        const auto pixels = [screen](int twips) {
            return qRound(twips * screen->logicalDotsPerInch() / 1440.0);
        };
        // Panels that need more than a small screen has make the window larger.
        const QSize least = program.Window().minimumSizeHint();
        QCOMPARE(program.Window().width(), std::max(area.width() - pixels(200), least.width()));
        QCOMPARE(program.Window().height(), std::max(area.height() - pixels(500), least.height()));
        QCOMPARE(program.Window().pos(), QPoint(area.left() + pixels(200) / 2, pixels(5)));
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        program.ClickTab(5);
        const std::pair<const char*, const char*> dialogs[] = {{"CmdPrtSummary", "PrtResults"},
                                                               {"CmdPrintPlot", "PrtPlotFrm"}};
        for (const auto& [button, name] : dialogs) {
            QTest::mouseClick(&program.Find(QString::fromLatin1(button)), Qt::LeftButton);
            const QWidget& dialog = program.Find(QString::fromLatin1(name));
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.pos(), QPoint(area.left() + (area.width() - dialog.width()) / 2,
                                          area.top() + (area.height() - dialog.height()) / 2));
        }
    }

    void NewBringsBackEveryFieldOfANewProject() {
        Program program;
        program.Window().OpenPath(SourceFile("examples/every-field.qn2"));
        QVERIFY(!program.Find<QLineEdit>(u"PlotText"_s, 0).text().isEmpty());
        Answers answers;
        answers.Box(u"Quarnel"_s, NewQuestion, QMessageBox::Yes);
        program.Choose(u"mnuNew"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.Window().windowTitle(), u"Quarnel: Bouwer-Rice Slug Test Analysis"_s);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(program.Find<QLineEdit>(u"WellGeoText"_s, i).text(),
                     i == 5 ? u"0"_s : QString());
        QVERIFY(program.Find<QAbstractButton>(u"SSRibbon1"_s).isChecked());
        QCOMPARE(program.Find<QLineEdit>(u"RecDatPreSlugHeadText"_s).text(), QString());
        for (int i = 0; i < 3; ++i)
            QCOMPARE(program.Find<QLineEdit>(u"PlotText"_s, i).text(), QString());
        const QAbstractItemModel& grid = *program.Find<QTableView>(u"RecDatGrid"_s).model();
        QCOMPARE(grid.rowCount(), 50);
        QCOMPARE(grid.headerData(1, Qt::Horizontal).toString(), u"Time\n(sec)"_s);
        QCOMPARE(grid.headerData(2, Qt::Horizontal).toString(), u"Recovery\nD   (ft)"_s);
        for (int row = 0; row < 50; ++row)
            QCOMPARE(grid.index(row, 1).data().toString() + grid.index(row, 2).data().toString(),
                     QString());
        QVERIFY(program.State().IgnoreKeyList.empty());
        const auto shown = [&program](const char* name) {
            return program.Find<QComboBox>(QString::fromLatin1(name)).currentIndex();
        };
        QCOMPARE(shown("RecDatTimeUnitsDDL"), 0);
        QCOMPARE(shown("RecDatWaterLevelUnitsDDL"), 1);
        QCOMPARE(shown("RecDatDataTypeDDL"), 0);
        QCOMPARE(shown("RecDatSlugTestTypeDDL"), 0);
        QCOMPARE(shown("WellGeoVertUnitsDDL"), 1);
        QCOMPARE(shown("WellGeoRadUnitsDDL"), 0);
        QCOMPARE(shown("CmboKLengthUnits"), 3);
        QCOMPARE(shown("CmboKTimeUnits"), 3);
    }

    void ExitAsksOnceAndCancelDoesNothing() {
        Program program;
        Answers answers;
        answers.Box(ExitTitle, ExitQuestion, QMessageBox::Cancel);
        program.Choose(u"mnuExit"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(program.Window().isVisible());
    }

    void AboutNamesTheProgramAndItsVersion() {
        Program program;
        Answers answers;
        answers.Box(u"About"_s, u"\r\nBouwer-Rice Slug Test Analysis\r\nVersion 3.0\r\n"_s);
        program.Choose(u"mnuAbout"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }

    void AFaultInAnEventIsShownAndTheProgramGoesOn() {
        Program program;
        Thrower thrower;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"a fault nobody foresaw"_s);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QApplication::postEvent(&thrower, new QEvent(QEvent::User));
        QTRY_VERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        program.ClickTab(2);
        QCOMPARE(program.VisiblePanel(), 2);
    }

    void MemoryThatRunsOutIsTold() {
        Program program;
        Thrower thrower;
        Answers answers;
        answers.Box(u"Quarnel"_s, u"7 Out of memory"_s);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QApplication::postEvent(&thrower, new QEvent(QEvent::Type(QEvent::User + 1)));
        QTRY_VERIFY2(answers.AllGiven(), answers.Complaints());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        program.ClickTab(2);
        QCOMPARE(program.VisiblePanel(), 2);
    }

    void ABracketedStarInAPathStandsInTheTitleAsItIs() {
        Program program;
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"well[*].qn2"_s);
        QVERIFY(QFile::copy(SourceFile("examples/pratt-county-1998.qn2"), path));
        program.Window().OpenPath(path);
        QCOMPARE(program.Window().windowTitle().replace(u"[*][*]"_s, u"[*]"_s),
                 u"Quarnel: Bouwer-Rice Slug Test Analysis/ "_s + path);
    }

    void AtALargeFontNoTextIsCut() {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSize(24);
        QApplication::setFont(large);
        {
            Program program;
            program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
            for (int tab = 1; tab <= 5; ++tab) {
                program.ClickTab(tab);
                QTest::qWait(1);
                ExpectNothingCut(program.Window());
            }
            for (const char* button :
                 {"CmdComputeK", "CmdDetails", "CmdPrintPlot", "CmdPrtSummary"})
                QTest::mouseClick(&program.Find(QString::fromLatin1(button)), Qt::LeftButton);
            for (const char* dialog : {"ComputedYFrm", "PrtPlotFrm", "PrtResults"}) {
                QVERIFY(program.Find(QString::fromLatin1(dialog)).isVisible());
                ExpectNothingCut(program.Find(QString::fromLatin1(dialog)));
            }
            const auto& text = program.Find<QPlainTextEdit>(u"SummaryText"_s);
            QVERIFY(text.font().pointSize() >= 24);
            QVERIFY(text.width() >= 20 * text.fontMetrics().horizontalAdvance(u'0'));
        }
        QApplication::setFont(before);
    }

    void EveryLabelOfABoxHasItsBuddy() {
        Program program;
        for (int i = 0; i < 20; ++i)
            QCOMPARE(program.Find<QLabel>(u"SiteIDLbl"_s, i).buddy(),
                     &program.Find(u"SiteIDText"_s, i));
        for (int i = 0; i < 6; ++i)
            QCOMPARE(program.Find<QLabel>(u"WellGeoLbl"_s, i).buddy(),
                     &program.Find(u"WellGeoText"_s, i));
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestMainWindow)

#include "test_main_window.moc"

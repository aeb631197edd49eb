// For a screen reader and a keyboard: every control of every window has a role and a name, is
// reached by keys, and in the order in which one reads.

#include "tests/gui/AccessibilityWalk.h"
#include "tests/gui/ActiveProgram.h"
#include "tests/gui/ImportTestSupport.h"
#include "tests/gui/MenuTestSupport.h"

#include "app/RecoveryOffer.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace quarnel::windowtest {

namespace {

const QString Example = SourceFile("examples/pratt-county-1998.qn2");

QAccessibleInterface& Accessible(QObject& object) {
    return *QAccessible::queryAccessibleInterface(&object);
}

/// Where a control stands on the screen while no page is scrolled.
QPoint PlaceOf(const QWidget& control) {
    QPoint place = control.mapToGlobal(QPoint());
    for (const QWidget* outer = control.parentWidget(); outer; outer = outer->parentWidget())
        if (const auto* page = qobject_cast<const QScrollArea*>(outer))
            place +=
                QPoint(page->horizontalScrollBar()->value(), page->verticalScrollBar()->value());
    return place;
}

/// Stops from the topmost control on: where the keyboard was at first says nothing of the order.
QList<QWidget*> FromTheTop(QList<QWidget*> stops) {
    const auto top = std::min_element(stops.begin(), stops.end(), [](QWidget* a, QWidget* b) {
        const QPoint at = PlaceOf(*a);
        const QPoint bt = PlaceOf(*b);
        return at.y() != bt.y() ? at.y() < bt.y() : at.x() < bt.x();
    });
    std::rotate(stops.begin(), top, stops.end());
    return stops;
}

/// All that is wrong with a window that is shown.
QString Faults(QWidget& window) {
    window.activateWindow();
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        return u"The window does not get the keyboard"_s;
    const QList<QWidget*> stops = FromTheTop(TabStops(window));
    return (FaultsOfTree(window, stops) + FaultsOfOrder(stops)).join(u'\n');
}

} // namespace

class TestAccessibility : public QObject {
    Q_OBJECT

    /// Opens the window by `open`, which a modal box makes, and returns its faults.
    template <class Window> static QString FaultsOfModal(const std::function<void()>& open) {
        QString faults = u"The window never came"_s;
        Answers answers;
        answers.Dialog<Window>([&faults](Window& window) {
            faults = Faults(window);
            window.reject();
        });
        open();
        return answers.AllGiven() ? faults : faults + QString::fromUtf8(answers.Complaints());
    }

private Q_SLOTS:
    void initTestCase() {
        // Whatever printers this machine has, the tests see none.
        qputenv("CUPS_SERVER", "localhost:1");
    }

    // ---- The walk itself -----------------------------------------------------------------------

    void TheWalkFindsWhatIsWrong() {
        QDialog window;
        window.setWindowTitle(u"Window"_s);
        auto* rows = new QVBoxLayout(&window);
        auto* low = new QLineEdit;
        low->setObjectName(u"nameless"_s);
        auto* high = new QPushButton(u"Good"_s);
        auto* roleless = new QWidget;
        roleless->setObjectName(u"roleless"_s);
        roleless->setAccessibleName(u"Name"_s);
        roleless->setFocusPolicy(Qt::StrongFocus);
        auto* unreachable = new QPushButton(u"Far"_s);
        unreachable->setObjectName(u"unreachable"_s);
        unreachable->setFocusPolicy(Qt::ClickFocus);
        for (QWidget* widget : {static_cast<QWidget*>(high), static_cast<QWidget*>(low), roleless,
                                static_cast<QWidget*>(unreachable)})
            rows->addWidget(widget);
        QWidget::setTabOrder(low, high);
        window.show();
        const QStringList faults = Faults(window).split(u'\n');
        QCOMPARE(faults.size(), 4);
        QVERIFY(faults[0].startsWith(u"No name: "_s) && faults[0].endsWith(u"nameless"_s));
        QVERIFY(faults[1].startsWith(u"No role: "_s) && faults[1].endsWith(u"roleless"_s));
        QVERIFY(faults[2].startsWith(u"Not to be reached: "_s) &&
                faults[2].endsWith(u"unreachable"_s));
        QVERIFY(faults[3].contains(u" before "_s));
    }

    // ---- The main window -----------------------------------------------------------------------

    void ThePages_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("computed");
        for (int tab = 1; tab <= 5; ++tab)
            for (const bool computed : {false, true})
                QTest::addRow("tab %d %s", tab, computed ? "computed" : "new")
                    << tab << (computed || tab == 5);
    }

    void ThePages() {
        QFETCH(int, tab);
        QFETCH(bool, computed);
        ActiveProgram program;
        if (computed) {
            program.Window().OpenPath(Example);
            program.ClickTab(5);
            program.Press("CmdComputeK");
        }
        program.ClickTab(tab);
        program.Find(u"TabStrip2"_s).setFocus();
        QCOMPARE(Faults(program.Window()), QString());
    }

    void InsertRowsAndTheOfferOfAnImport() {
        ActiveProgram program;
        program.ClickTab(4);
        QGuiApplication::clipboard()->setText(u"12.5"_s);
        program.ClickCell(1, 1);
        program.Key(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(program.Find(u"StatusOffer"_s).isVisible());
        program.Press("CmdInsertRows");
        QVERIFY(program.Find(u"InsertRowsPanel"_s).isVisible());
        program.Find(u"TabStrip2"_s).setFocus();
        QCOMPARE(Faults(program.Window()), QString());
    }

    void Menus() {
        ActiveProgram program;
        for (QMenu* menu : program.Window().findChildren<QMenu*>()) {
            if (menu->title().isEmpty())
                continue; // the toolkit's own, for a bar that is too narrow
            menu->popup(program.Window().pos());
            QCOMPARE(FaultsOfTree(*menu, {}), QStringList());
            QVERIFY(!Accessible(*menu).text(QAccessible::Name).isEmpty());
            menu->close();
        }
    }

    void ContextMenus_data() {
        QTest::addColumn<QString>("control");
        for (const char* control : {"Plot1", "ComputedKLabel", "RecDatGrid", "RecDatWeightGrid"})
            QTest::newRow(control) << QString::fromLatin1(control);
    }

    void ContextMenus() {
        QFETCH(QString, control);
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        program.Press("CmdComputeK");
        if (control == u"RecDatGrid"_s)
            program.ClickTab(4);
        QStringList faults;
        int entries = 0;
        const auto look = [&](QMenu& menu) {
            faults = FaultsOfTree(menu, {});
            for (const QAction* action : menu.actions()) {
                entries += action->isSeparator() ? 0 : 1;
                if (!action->isSeparator() && QKeySequence::mnemonic(action->text()).isEmpty())
                    faults << u"No letter: "_s + action->text();
            }
        };
        auto& widget = program.Find(control);
        auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
        WithMenu(area != nullptr ? *area->viewport() : widget, look);
        QCOMPARE(faults, QStringList());
        QVERIFY(entries > 0);
    }

    // ---- What things are -----------------------------------------------------------------------

    void ThePicturesAreAChoiceOfOne() {
        ActiveProgram program;
        program.ClickTab(3);
        auto& above = program.Find<QAbstractButton>(u"SSRibbon1"_s);
        auto& within = program.Find<QAbstractButton>(u"SSRibbon2"_s);
        for (QAbstractButton* ribbon : {&above, &within}) {
            QCOMPARE(Accessible(*ribbon).role(), QAccessible::RadioButton);
            QCOMPARE(Accessible(*ribbon).parent()->role(), QAccessible::Grouping);
            QCOMPARE(Accessible(*ribbon).parent()->text(QAccessible::Name), u"Well Section"_s);
        }
        QCOMPARE(Accessible(above).text(QAccessible::Name),
                 u"Water Table above the Screen/Filter Pack."_s);
        QVERIFY(Accessible(above).state().checked && !Accessible(within).state().checked);
        // As a screen reader presses it, and as the arrow keys do.
        Accessible(within).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!program.State().SSRibbon1Pressed);
        QVERIFY(Accessible(within).state().checked && !Accessible(above).state().checked);
        within.setFocus();
        program.Key(above.y() == within.y() ? Qt::Key_Left : Qt::Key_Up);
        QVERIFY(program.State().SSRibbon1Pressed);
        QVERIFY(program.Window().focusWidget() == &above);
    }

    void APictureStaysWhereItIsWhenItIsPressed() {
        ActiveProgram program;
        program.ClickTab(3);
        auto& above = program.Find<QAbstractButton>(u"SSRibbon1"_s);
        QCoreApplication::processEvents();
        const QRect before = above.geometry();
        QVERIFY(above.font().bold());
        QTest::mouseClick(&program.Find(u"SSRibbon2"_s), Qt::LeftButton);
        QVERIFY(!above.font().bold());
        QCoreApplication::processEvents();
        QCOMPARE(above.geometry(), before);
    }

    void GridsAndListsSayWhatTheyAre() {
        ActiveProgram program;
        const auto expect = [&program](const QString& name, QAccessible::Role role,
                                       const QString& called) {
            QAccessibleInterface& item = Accessible(program.Find(name));
            QCOMPARE(item.role(), role);
            QCOMPARE(NameOf(item), called);
        };
        expect(u"RecDatGrid"_s, QAccessible::Table, u"Readings: time and water level"_s);
        expect(u"RecDatCheckGrid"_s, QAccessible::Table, u"Change in head Y of each reading"_s);
        expect(u"RecDatWeightGrid"_s, QAccessible::Table, u"Points to use or ignore in the fit"_s);
        expect(u"ComputeYGrid"_s, QAccessible::Table, u"Fitted Y of each point"_s);
        expect(u"WellGeoVertUnitsDDL"_s, QAccessible::ComboBox, u"Unit of H, Lw and Le"_s);
        expect(u"WellGeoRadUnitsDDL"_s, QAccessible::ComboBox, u"Unit of dw and dc"_s);
        expect(u"RecDatTimeUnitsDDL"_s, QAccessible::ComboBox, u"Time Units"_s);
        expect(u"RecDatWaterLevelUnitsDDL"_s, QAccessible::ComboBox, u"Water Level Units"_s);
        expect(u"CmboKLengthUnits"_s, QAccessible::ComboBox, u"Length unit of K"_s);
        expect(u"CmboKTimeUnits"_s, QAccessible::ComboBox, u"Time unit of K"_s);
        QCOMPARE(Accessible(program.Find(u"Plot1"_s)).role(), QAccessible::Chart);
        QCOMPARE(Accessible(program.Find(u"Image1"_s, 0)).role(), QAccessible::Graphic);
    }

    void ACellOfTheGridIsReadWithItsColumn() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(4);
        auto* table = Accessible(program.Find(u"RecDatGrid"_s)).tableInterface();
        QVERIFY(table != nullptr);
        QCOMPARE(table->columnDescription(1), u"Time\n(sec)"_s);
        QCOMPARE(ToUtf8(table->cellAt(1, 1)->text(QAccessible::Name)),
                 program.State().RecDatGrid[1].time.ToString());
    }

    // ---- The other windows ---------------------------------------------------------------------

    void TheDialogs_data() {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QString>("name");
        QTest::newRow("plot") << u"CmdPrintPlot"_s << u"PrtPlotFrm"_s;
        QTest::newRow("results") << u"CmdPrtSummary"_s << u"PrtResults"_s;
        QTest::newRow("details") << u"CmdDetails"_s << u"ComputedYFrm"_s;
        QTest::newRow("guide") << u"mnuUserGuide"_s << u"GuideWindow"_s;
    }

    void TheDialogs() {
        QFETCH(QString, name);
        QFETCH(QString, opener);
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        program.Press("CmdComputeK");
        if (opener.startsWith(u"mnu"_s))
            program.Choose(opener);
        else
            program.Press(opener.toLatin1().constData());
        QCOMPARE(Faults(program.Find(name)), QString());
    }

    void ThePagesOfTheDiagnostics() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        program.Press("CmdComputeK");
        program.Choose(u"mnuDiagnostics"_s);
        auto& window = program.Find<QDialog>(u"DiagnosticsFrm"_s);
        auto& tabs = Find<QTabWidget>(window, u"DiagnosticsTabs"_s);
        for (int page = 0; page < tabs.count(); ++page) {
            tabs.setCurrentIndex(page);
            QCOMPARE(Faults(window), QString());
        }
    }

    void TheComparisonOfProjects() {
        ActiveProgram program;
        program.Choose(u"mnuCompareProjects"_s);
        QWidget& window = program.Find(u"CompareProjectsFrm"_s);
        QCOMPARE(Faults(window), QString());
        Answers answers;
        answers.FileName(Example);
        QTest::mouseClick(&Find(window, u"CompareAdd"_s), Qt::LeftButton);
        QTRY_VERIFY(Find<QTableView>(window, u"CompareGrid"_s).model()->rowCount() > 0);
        QTRY_VERIFY(!Find(window, u"CompareProgress"_s).isVisible());
        QCOMPARE(Faults(window), QString());
    }

    void TheImportOfReadings_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("many readings") << SecondsTable(3000);
        QTest::newRow("a time without a unit") << SecondsTable(41, "time,Level (m)");
        QByteArray dates = SecondsTable(0, "Date,Level (m)");
        for (int row = 0; row < 41; ++row)
            dates +=
                "03/05/2024 11:00:" + QByteArray::number(10 + row) + "," + LevelText(row) + "\n";
        QTest::newRow("dates to be read in two ways") << dates;
        QTest::newRow("no jump") << SecondsTable(15);
    }

    void TheImportOfReadings() {
        QFETCH(QByteArray, bytes);
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, bytes));
        QCOMPARE(Faults(form.Form()), QString());
    }

    void ALineOfTheImportIsASlider() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(41)));
        QAccessibleInterface& line = Accessible(form.Find(u"ImportStartHandle"_s));
        QCOMPARE(line.role(), QAccessible::Slider);
        QCOMPARE(line.text(QAccessible::Value), form.Text(u"ImportStart"_s));
        QAccessibleValueInterface* value = line.valueInterface();
        QVERIFY(value != nullptr);
        QCOMPARE(value->currentValue().toInt(), static_cast<int>(*form.Plan().start));
        QCOMPARE(value->minimumValue().toInt(), 0);
        QCOMPARE(value->maximumValue().toInt(), 40);
        value->setCurrentValue(25);
        QCOMPARE(*form.Plan().start, std::size_t(25));
        QCOMPARE(value->currentValue().toInt(), 25);
        QCOMPARE(line.text(QAccessible::Value), form.Text(u"ImportStart"_s));
    }

    // ---- Boxes and offers ----------------------------------------------------------------------

    void Questions() {
        ActiveProgram program;
        QCOMPARE(FaultsOfModal<QMessageBox>([&] { program.Choose(u"mnuNew"_s); }), QString());
        QCOMPARE(FaultsOfModal<QMessageBox>([&] { program.Choose(u"mnuExit"_s); }), QString());
        QCOMPARE(FaultsOfModal<QMessageBox>([&] { program.Choose(u"mnuAbout"_s); }), QString());
    }

    void TheOfferToRestoreACopy() {
        ActiveProgram program;
        LeftCopy copy;
        copy.written = QDateTime::currentDateTime();
        QCOMPARE(FaultsOfModal<QMessageBox>([&] { AskForLeftCopy(&program.Window(), copy); }),
                 QString());
    }

    void TheDialogsForFiles() {
        ActiveProgram program;
        program.Window().OpenPath(Example);
        program.ClickTab(5);
        program.Press("CmdComputeK");
        program.Press("CmdPrintPlot");
        program.Press("CmdPrtSummary");
        for (const auto& button : {u"CmdPlotPdf"_s, u"CmdReportPdf"_s, u"CmdPrtResults"_s})
            QCOMPARE(FaultsOfModal<QFileDialog>(
                         [&] { QTest::mouseClick(&program.Find(button), Qt::LeftButton); }),
                     QString());
        program.Window().activateWindow();
        for (const auto& command :
             {u"mnuOpenFile"_s, u"mnuSaveAs"_s, u"mnuImportReadings"_s, u"SavePlot"_s})
            QCOMPARE(FaultsOfModal<QFileDialog>([&] {
                         if (command == u"SavePlot"_s)
                             program.Find<QAction>(command).trigger();
                         else
                             program.Choose(command);
                     }),
                     QString());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestAccessibility)
#include "test_accessibility.moc"

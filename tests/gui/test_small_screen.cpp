// The five pages on a screen of 1024x768 points, at the scale that QT_SCALE_FACTOR or QT_FONT_DPI
// gives.

#include "tests/gui/ScreenTestSupport.h"

#include <QComboBox>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

namespace quarnel::windowtest {

namespace {

constexpr double PhysicalWidth = 1024;

/// Up to here every page is seen whole.
constexpr double LargestWhole = 1.5;

double Scale() {
    return PhysicalWidth / QGuiApplication::primaryScreen()->size().width();
}

struct PageButtons {
    int tab;
    std::vector<const char*> names;
};
const std::vector<PageButtons> Buttons = {
    {3, {"SSRibbon1", "SSRibbon2", "SSCmdWellGeoCheckData"}},
    {4,
     {"CmdInsertRows", "CmdRecDatDeleteRows", "CmdRecDatCut", "CmdRecDataCopy", "CmdRecDatPaste",
      "CmdSortByTime", "CmdRecDatCheckData"}},
    {5, {"CmdComputeK", "CmdDetails", "CmdPrintPlot", "CmdPrtSummary"}}};

/// What is seen on a page; what the toolkit makes of it is left out.
QList<QWidget*> NamedControls(const QScrollArea& page) {
    QList<QWidget*> controls;
    for (QWidget* control : page.widget()->findChildren<QWidget*>())
        if (control->isVisible() && !control->objectName().isEmpty() &&
            !control->objectName().startsWith(u"qt_"_s))
            controls << control;
    return controls;
}

} // namespace

class TestSmallScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingScrollsSidewaysAndAPageOnlyWhereLettersAreHuge() {
        ScreenProgram program;
        for (int tab = 1; tab <= Tabs; ++tab) {
            program.ClickTab(tab);
            QScrollArea& page = program.Page();
            QVERIFY2(page.horizontalScrollBar()->maximum() == 0, qPrintable(QString::number(tab)));
            QVERIFY2(Scale() > LargestWhole || page.verticalScrollBar()->maximum() == 0,
                     qPrintable(QString::number(tab)));
            // Nor does anything stand beyond the page's edge, where no scrolling leads.
            for (const QWidget* control : NamedControls(page)) {
                const QRect place = program.OnPage(*control);
                QVERIFY2(place.left() >= 0 && place.right() < page.viewport()->width(),
                         qPrintable(control->objectName()));
            }
        }
    }

    void EveryButtonIsWhollyOnThePage() {
        ScreenProgram program;
        for (const auto& [tab, names] : Buttons) {
            program.ClickTab(tab);
            for (const char* name : names) {
                const QWidget& button = program.Find(QString::fromLatin1(name));
                if (Scale() > LargestWhole)
                    program.Page().ensureWidgetVisible(&program.Find(QString::fromLatin1(name)));
                QVERIFY2(program.IsWhollySeen(button), name);
                QVERIFY2(button.width() >= button.minimumSizeHint().width(), name);
            }
        }
    }

    void NoControlStandsOnAnother() {
        ScreenProgram program;
        for (int tab = 1; tab <= Tabs; ++tab) {
            program.ClickTab(tab);
            const QList<QWidget*> controls = NamedControls(program.Page());
            for (const QWidget* a : controls)
                for (const QWidget* b : controls)
                    if (a != b && !a->isAncestorOf(b) && !b->isAncestorOf(a))
                        QVERIFY2(!program.OnPage(*a).intersects(program.OnPage(*b)),
                                 qPrintable(a->objectName() + u" on "_s + b->objectName()));
        }
    }

    void PlotAndKAreSeenTogether() {
        ScreenProgram program;
        QVERIFY(program.IsWhollySeen(program.Find(u"Plot1"_s)));
        auto& k = program.Find<QLabel>(u"ComputedKLabel"_s);
        QCOMPARE(k.text(), u"3.6"_s);
        QVERIFY(program.IsWhollySeen(k));
        QVERIFY(program.IsWhollySeen(program.Find(u"CmboKLengthUnits"_s)));
        QVERIFY(program.IsWhollySeen(program.Find(u"CmboKTimeUnits"_s)));
    }

    void TabFollowsThePageWhereverItsRowsBreak() {
        ScreenProgram program;
        program.ClickTab(5);
        QWidget* page = program.Page().widget();
        auto* plot = page->findChild<QWidget*>(u"Plot1"_s);
        auto* marks = page->findChild<QWidget*>(u"RecDatWeightGrid"_s);
        auto* compute = page->findChild<QWidget*>(u"CmdComputeK"_s);
        const auto top = [page](QWidget* control) { return control->mapTo(page, QPoint()).y(); };
        const bool marksAreBelow = top(marks) > top(compute);
        QCOMPARE(marksAreBelow, Scale() > LargestWhole);
        plot->setFocus();
        QTest::keyClick(plot, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), marksAreBelow ? compute : marks);
    }

    /// Larger letters break the rows of a page whose size stays as it is.
    void TabFollowsThePageWhenItsLettersGrow() {
        const QFont before = QApplication::font();
        ScreenProgram program;
        program.ClickTab(5);
        QWidget* page = program.Page().widget();
        auto* plot = page->findChild<QWidget*>(u"Plot1"_s);
        auto* marks = page->findChild<QWidget*>(u"RecDatWeightGrid"_s);
        auto* compute = page->findChild<QWidget*>(u"CmdComputeK"_s);
        // So narrow that the rows break soon, while there is height enough for the page to keep
        // its.
        program.Window().resize(program.Window().width() * 7 / 10, program.Window().height());
        const auto isBelow = [page, marks, compute] {
            return marks->mapTo(page, QPoint()).y() > compute->mapTo(page, QPoint()).y();
        };
        QStringList faults;
        bool broke = false;
        for (int percent = 100; percent <= 320 && faults.isEmpty(); percent += 10) {
            QFont larger = before;
            larger.setPointSizeF(before.pointSizeF() * percent / 100 / Scale());
            QApplication::setFont(larger);
            QTest::qWait(0);
            broke = broke || isBelow();
            plot->setFocus();
            QTest::keyClick(plot, Qt::Key_Tab);
            if (QApplication::focusWidget() != (isBelow() ? compute : marks))
                faults << QString::number(percent);
        }
        QApplication::setFont(before);
        QVERIFY(broke);
        QCOMPARE(faults, QStringList());
    }

    void WhereAMessageOrALetterLeadsIsSeen() {
        ScreenProgram program;
        program.State().WellGeoText[GeoDpor] = "x";
        Answers answers;
        answers.BoxAbout(u"orosity"_s, QMessageBox::Ok);
        program.ClickTab(4);
        program.ClickTab(5);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        QCOMPARE(program.SelectedTab(), 3);
        QTRY_VERIFY(program.IsWhollySeen(program.Find(u"WellGeoText"_s, GeoDpor)));
        program.Window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
        for (const auto& [letter, name] :
             {std::pair(Qt::Key_H, u"WellGeoText_0"_s), {Qt::Key_P, u"WellGeoText_5"_s}}) {
            QTest::keyClick(program.Window().windowHandle(), letter, Qt::AltModifier);
            QCOMPARE(QApplication::focusWidget()->objectName(), name);
            QVERIFY(program.IsWhollySeen(program.Find(name)));
        }
    }

    void ChoosingAnotherDataTypeMovesNothing() {
        ScreenProgram program;
        program.ClickTab(4);
        auto& types = program.Find<QComboBox>(u"RecDatDataTypeDDL"_s);
        types.setFocus();
        QTest::keyClick(&types, Qt::Key_Home);
        QCoreApplication::processEvents();
        const auto places = PlacesOf(program.Window());
        QTest::keyClick(&types, Qt::Key_End);
        QVERIFY(!program.Find(u"RecDatPreSlugHeadText"_s).isVisible());
        QCoreApplication::processEvents();
        ExpectSamePlaces(places, PlacesOf(program.Window()));
    }

    void OpeningInsertRowsMovesNothing() {
        ScreenProgram program;
        program.ClickTab(4);
        program.Page().ensureWidgetVisible(&program.Find(u"CmdInsertRows"_s));
        QCoreApplication::processEvents();
        const auto places = PlacesOf(program.Window());
        QTest::mouseClick(&program.Find(u"CmdInsertRows"_s), Qt::LeftButton);
        QCoreApplication::processEvents();
        ExpectSamePlaces(places, PlacesOf(program.Window()));
        QVERIFY(program.IsWhollySeen(program.Find(u"InsertRowsPanel"_s)));
    }

    void ThePictureButtonsStackWhereTheyDoNotFitBesideEachOther() {
        ScreenProgram program;
        program.ClickTab(3);
        const QRect first = program.OnPage(program.Find(u"SSRibbon1"_s));
        const QRect second = program.OnPage(program.Find(u"SSRibbon2"_s));
        if (Scale() >= LargestWhole)
            QVERIFY(second.top() > first.bottom() && second.left() == first.left());
        else if (Scale() == 1)
            QVERIFY(second.left() > first.right() && second.top() == first.top());
    }

    void ComparingProjectsFitsTheScreen() {
        Program program;
        program.Choose(u"mnuCompareProjects"_s);
        auto& frm = program.Find<QDialog>(u"CompareProjectsFrm"_s);
        QVERIFY(frm.width() <= frm.screen()->availableSize().width());
        QVERIFY(frm.height() <= frm.screen()->availableSize().height());
        auto* content = frm.findChild<QScrollArea*>();
        QCOMPARE(content->horizontalScrollBar()->maximum(), 0);
        for (const char* name :
             {"CompareAdd", "CompareRemove", "CompareUp", "CompareDown", "CompareReload",
              "CompareLengthUnit", "CompareTimeUnit", "CompareGroup", "CompareGrid",
              "CompareStatistics", "ComparePlot", "CompareTimeLag"}) {
            QWidget& control = program.Find(QString::fromLatin1(name));
            content->ensureWidgetVisible(&control);
            const QRect place(control.mapTo(content->viewport(), QPoint()), control.size());
            QVERIFY2(place.left() >= 0 && place.right() < content->viewport()->width(), name);
            QVERIFY2(place.intersects(content->viewport()->rect()), name);
        }
        for (const char* name :
             {"CompareCopy", "CompareSave", "CompareRecord", "CompareClose", "CompareStatusText"}) {
            QWidget& control = program.Find(QString::fromLatin1(name));
            const QRect place(control.mapTo(&frm, QPoint()), control.size());
            QVERIFY2(frm.rect().contains(place), name);
        }
    }

    void TheWellPictureScalesAndIsSeenWhole() {
        ScreenProgram program;
        program.ClickTab(3);
        QWidget& picture = program.Find(u"Image1"_s, 0);
        program.Page().ensureWidgetVisible(&picture);
        QVERIFY(picture.isVisible());
        QVERIFY(picture.height() >= picture.minimumSizeHint().height());
        if (Scale() <= LargestWhole)
            QVERIFY(program.IsWhollySeen(picture));
    }

    void EveryListIsWideEnoughForItsEntries() {
        ScreenProgram program;
        for (const QComboBox* list : program.Window().findChildren<QComboBox*>())
            QVERIFY2(list->width() >= list->minimumSizeHint().width(),
                     qPrintable(list->objectName()));
    }

    void APageHoldsLargerLettersThanUsual() {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSizeF(before.pointSizeF() * 1.4);
        QApplication::setFont(large);
        {
            ScreenProgram program;
            for (int tab = 1; tab <= Tabs && Scale() <= LargestWhole; ++tab) {
                program.ClickTab(tab);
                QVERIFY2(program.Page().horizontalScrollBar()->maximum() == 0,
                         qPrintable(QString::number(tab)));
            }
        }
        QApplication::setFont(before);
    }
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    return quarnel::windowtest::RunOnScreen<quarnel::windowtest::TestSmallScreen>("1024x768", argc,
                                                                                  argv);
}

#include "test_small_screen.moc"

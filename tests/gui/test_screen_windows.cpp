// Every window beside the main one fits a screen of 1024x768 points, at the scale that
// QT_SCALE_FACTOR or QT_FONT_DPI gives, and the keyboard brings all of it into view.

#include "tests/gui/ActiveProgram.h"
#include "tests/gui/ImportTestSupport.h"
#include "tests/gui/ScreenTestSupport.h"

#include <QAbstractScrollArea>
#include <QScreen>
#include <QTabWidget>

namespace quarnel::windowtest {

namespace {

/// Of the screen's room a window leaves this to its frame.
constexpr int FrameHeight = 24;

/// What stands outside of the screen with the window as it opens, or as small as it can be made.
QString Overhang(const QWidget& window) {
    const QRect area = window.screen()->availableGeometry();
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    QStringList faults;
    if (!area.contains(window.geometry()) || window.height() > area.height() - FrameHeight)
        faults << u"%1x%2 at %3,%4 leaves the screen"_s.arg(window.width())
                      .arg(window.height())
                      .arg(window.x())
                      .arg(window.y());
    if (least.width() > area.width() || least.height() > area.height() - FrameHeight)
        faults << u"at least %1x%2"_s.arg(least.width()).arg(least.height());
    return faults.join(u", "_s);
}

/// What can be scrolled by itself need not be seen whole, but so that one can read in it.
bool IsSeen(const QWidget& control) {
    const QRect seen = control.visibleRegion().boundingRect();
    if (qobject_cast<const QAbstractScrollArea*>(&control) == nullptr)
        return seen == control.rect();
    const int line = control.fontMetrics().height();
    return seen.height() >= std::min(control.height(), 4 * line) &&
           seen.width() >= std::min(control.width(), 12 * line);
}

/// The controls that are not seen once they have the keyboard.
QStringList Unseen(QWidget& window) {
    QStringList unseen;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus ||
            control->objectName().isEmpty() || control->window() != &window ||
            control->objectName().startsWith(u"qt_"_s) || !control->isEnabled())
            continue;
        control->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        if (!IsSeen(*control))
            unseen << control->objectName();
    }
    return unseen;
}

QString Faults(QWidget& window) {
    QCoreApplication::processEvents();
    QStringList faults = Unseen(window);
    const QString overhang = Overhang(window);
    if (!overhang.isEmpty())
        faults.prepend(overhang);
    return faults.join(u", "_s);
}

/// The Pratt County test with its K, in a program that has the keyboard.
class ComputedProgram : public ActiveProgram {
public:
    ComputedProgram() {
        Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        ClickTab(Tabs);
        Press("CmdComputeK");
    }
    QWidget& Open(const QString& opener, const QString& name) {
        if (opener.startsWith(u"mnu"_s))
            Choose(opener);
        else
            QTest::mouseClick(&Find(opener), Qt::LeftButton);
        QWidget& window = Find(name);
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
        return window;
    }
};

} // namespace

class TestScreenWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryWindowFits_data() {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QString>("name");
        QTest::newRow("plot") << u"CmdPrintPlot"_s << u"PrtPlotFrm"_s;
        QTest::newRow("results") << u"CmdPrtSummary"_s << u"PrtResults"_s;
        QTest::newRow("details") << u"CmdDetails"_s << u"ComputedYFrm"_s;
        QTest::newRow("guide") << u"mnuUserGuide"_s << u"GuideWindow"_s;
        QTest::newRow("diagnostics") << u"mnuDiagnostics"_s << u"DiagnosticsFrm"_s;
        QTest::newRow("compare") << u"mnuCompareProjects"_s << u"CompareProjectsFrm"_s;
    }

    void EveryWindowFits() {
        QFETCH(QString, opener);
        QFETCH(QString, name);
        ComputedProgram program;
        QCOMPARE(Faults(program.Open(opener, name)), QString());
    }

    void EveryWindowFitsWhenTheDataHaveChangedSince_data() { EveryWindowFits_data(); }
    void EveryWindowFitsWhenTheDataHaveChangedSince() {
        QFETCH(QString, opener);
        QFETCH(QString, name);
        ComputedProgram program;
        program.ClickTab(3);
        TypeInto(program.Find<QLineEdit>(u"WellGeoText"_s, 0), u"170"_s);
        program.ClickTab(Tabs);
        QCOMPARE(Faults(program.Open(opener, name)), QString());
    }

    void EveryPageOfTheDiagnosticsFits() {
        ComputedProgram program;
        QWidget& window = program.Open(u"mnuDiagnostics"_s, u"DiagnosticsFrm"_s);
        auto& tabs = Find<QTabWidget>(window, u"DiagnosticsTabs"_s);
        for (int page = 0; page < tabs.count(); ++page) {
            tabs.setCurrentIndex(page);
            QVERIFY2(Faults(window).isEmpty(),
                     qPrintable(tabs.tabText(page) + u": "_s + Faults(window)));
        }
    }

    void TheImportFits() {
        LoggerFiles files;
        ImportForm form(files.Write(u"a.csv"_s, SecondsTable(3000)));
        QCOMPARE(Faults(form.Form()), QString());
    }

    void TheComparisonOfAProjectFits() {
        ComputedProgram program;
        QWidget& window = program.Open(u"mnuCompareProjects"_s, u"CompareProjectsFrm"_s);
        Answers answers;
        answers.FileName(SourceFile("examples/pratt-county-1998.qn2"));
        QTest::mouseClick(&Find(window, u"CompareAdd"_s), Qt::LeftButton);
        auto* model = Find<QTableView>(window, u"CompareGrid"_s).model();
        QTRY_VERIFY(model->rowCount() > 0);
        // Without a desktop nobody gives the keyboard back when the dialog for the file closes.
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(Faults(window), QString());
    }

    void QuestionsFit_data() {
        QTest::addColumn<QString>("opener");
        QTest::newRow("new") << u"mnuNew"_s;
        QTest::newRow("exit") << u"mnuExit"_s;
        QTest::newRow("about") << u"mnuAbout"_s;
    }
    void QuestionsFit() {
        QFETCH(QString, opener);
        ActiveProgram program;
        QString overhang = u"It never came"_s;
        Answers answers;
        answers.Dialog<QMessageBox>([&overhang](QMessageBox& box) {
            overhang = Overhang(box);
            box.reject();
        });
        program.Choose(opener);
        QCOMPARE(overhang, QString());
    }

    void FileDialogsFit_data() {
        QTest::addColumn<QString>("opener");
        for (const char* opener : {"mnuOpenFile", "mnuSaveAs", "mnuImportReadings"})
            QTest::newRow(opener) << QString::fromLatin1(opener);
    }
    void FileDialogsFit() {
        QFETCH(QString, opener);
        ActiveProgram program;
        QString overhang = u"It never came"_s;
        Answers answers;
        answers.Dialog<QFileDialog>([&overhang](QFileDialog& dialog) {
            overhang = Overhang(dialog);
            dialog.reject();
        });
        program.Choose(opener);
        QCOMPARE(overhang, QString());
    }
};

} // namespace quarnel::windowtest

int main(int argc, char** argv) {
    return quarnel::windowtest::RunOnScreen<quarnel::windowtest::TestScreenWindows>("1024x768",
                                                                                    argc, argv);
}

#include "test_screen_windows.moc"

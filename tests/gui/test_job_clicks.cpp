// The job that the guide describes, from an empty window to the printed page, with mouse and
// keyboard as a person uses them: what is typed is free, clicks are counted.

#include "tests/gui/IppServer.h"
#include "tests/gui/PlotTestSupport.h"

#include "kcompute/Analysis.h"
#include "project/ProjectState.h"

#include <QComboBox>
#include <QProcess>

namespace quarnel::windowtest {

namespace {

constexpr int MostClicks = 12;
/// The readings that the guide uses, at 79.5, 89.2 and 100.1 s.
constexpr int FirstUsed = 48;
constexpr int LastUsed = 50;

/// The published test as it was opened and computed.
Analysis Published() {
    Analysis analysis;
    OpenProjectFile(ToUtf8(SourceFile("examples/pratt-county-1998.qn2")), analysis);
    PrepareComputation(analysis);
    Compute(analysis);
    return analysis;
}

/// One pair of hands at the program.
class Hands : public Program {
public:
    Hands() {
        Window().activateWindow();
        if (!QTest::qWaitForWindowActive(&Window()))
            qFatal("The window does not get the keyboard");
    }

    int Clicks() const { return clicks_; }
    /// What was asked or said that the job does not know of.
    QByteArray Surprises() const { return answers_.Complaints(); }

    /// Clicks where the widget is seen.
    void Click(QWidget& widget, QPoint at) {
        PressAt(widget, at);
        QTest::mouseRelease(HandleOf(widget), Qt::LeftButton, {}, InWindow(widget, at));
        QCoreApplication::processEvents();
    }
    void Click(QWidget& widget) { Click(widget, widget.rect().center()); }
    void Click(const char* name) { Click(Find(QString::fromLatin1(name))); }
    void Drag(QWidget& widget, QPoint from, QPoint to) {
        PressAt(widget, from);
        QTest::mouseMove(HandleOf(widget), InWindow(widget, (from + to) / 2));
        QTest::mouseMove(HandleOf(widget), InWindow(widget, to));
        QTest::mouseRelease(HandleOf(widget), Qt::LeftButton, {}, InWindow(widget, to));
    }
    void Turn(int tab) {
        auto& strip = Find<QTabBar>(u"TabStrip2"_s);
        Click(strip, strip.tabRect(tab - 1).center());
    }
    void ChooseWithClicks(const QString& menuName, const QString& actionName) {
        auto& menu = Find<QMenu>(menuName);
        QMenuBar* bar = Window().menuBar();
        Click(*bar, bar->actionGeometry(menu.menuAction()).center());
        auto& action = Find<QAction>(actionName);
        Click(menu, menu.actionGeometry(&action).center());
    }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(WithKeyboard(), key, modifiers);
    }
    void Type(const QString& text) {
        for (const QChar c : text)
            QTest::keyClick(WithKeyboard(), c.toLatin1());
    }
    void Type(const std::string& text) { Type(ToQString(text)); }
    /// Presses Tab, or Shift+Tab, until the keyboard is on a control.
    void TabTo(const QString& name, Qt::Key tab = Qt::Key_Tab) {
        constexpr int Controls = 60;
        QStringList passed;
        for (int i = 0; i < Controls && FocusName() != name; ++i, passed << FocusName())
            Key(tab);
        if (FocusName() != name)
            qFatal("Tab does not reach %s, but %s", qPrintable(name),
                   qPrintable(passed.join(u' ')));
    }
    QString FocusName() {
        const QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? QString() : focus->objectName();
    }

    // ---- The chapters of the guide -------------------------------------------------------------

    void StartAnew() {
        answers_.Dialog<QMessageBox>(
            [this](QMessageBox& box) { Click(*box.button(QMessageBox::Yes)); });
        ChooseWithClicks(u"mnuFile"_s, u"mnuNew"_s);
        ActivateAgain();
    }
    void TypeWhoAndWhere(const ProjectState& published) {
        for (std::size_t i = 0; i < published.SiteIDText.size(); ++i)
            TypeAt(u"SiteIDText"_s, i, published.SiteIDText[i]);
        Turn(2);
        for (std::size_t i = 0; i < published.WellTestIDTxt.size(); ++i)
            TypeAt(u"WellTestIDTxt"_s, i, published.WellTestIDTxt[i]);
    }
    void TypeWell(const ProjectState& published) {
        Turn(3);
        for (std::size_t i = 0; i < published.WellGeoText.size(); ++i)
            TypeAt(u"WellGeoText"_s, i, published.WellGeoText[i]);
        for (const QString& list : {u"WellGeoVertUnitsDDL"_s, u"WellGeoRadUnitsDDL"_s}) {
            TabTo(list);
            Type(u"m"_s);
        }
        answers_.Dialog<QMessageBox>([this](QMessageBox& box) {
            QCOMPARE(box.text(), u"Well Geometry data is complete and consistent."_s);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        Click("SSCmdWellGeoCheckData");
        ActivateAgain();
    }
    void TypeReadings(const ProjectState& published) {
        Turn(4);
        Click("RecDatDataTypeDDL");
        Type(u"Y"_s);
        Key(Qt::Key_Return);
        ActivateAgain();
        TabTo(u"RecDatWaterLevelUnitsDDL"_s);
        Type(u"m"_s);
        TabTo(u"RecDatGrid"_s);
        for (const RecoveryRow& row : published.RecDatGrid) {
            if (row.time.empty())
                break;
            Type(row.time.ToString());
            Key(Qt::Key_Tab);
            Type(row.level.ToString());
            Key(Qt::Key_Tab);
        }
        Click("CmdRecDatCheckData");
    }
    void Print(const ProjectState& published) {
        Click("CmdPrintPlot");
        QVERIFY(QTest::qWaitForWindowActive(&Find(u"PrtPlotFrm"_s)));
        for (std::size_t i = 0; i < published.PlotText.size(); ++i)
            TypeAt(u"PlotText"_s, i, published.PlotText[i]);
        Key(Qt::Key_Return);
    }
    /// Without a desktop nobody gives the keyboard back to the window when a box or list closes.
    void ActivateAgain() {
        Window().activateWindow();
        if (!QTest::qWaitForWindowActive(&Window()))
            qFatal("The window does not get the keyboard");
    }

private:
    void TypeAt(const QString& boxes, std::size_t index, const std::string& text) {
        if (text.empty())
            return;
        TabTo(boxes + u'_' + QString::number(index));
        Type(text);
    }
    /// An open list, the dialog in front, or the main window.
    QWindow* WithKeyboard() {
        for (QWidget* widget : {QApplication::activePopupWidget(), QApplication::activeWindow()})
            if (widget != nullptr)
                return widget->windowHandle();
        return Window().windowHandle();
    }
    static QWindow* HandleOf(QWidget& widget) { return widget.window()->windowHandle(); }
    static QPoint InWindow(QWidget& widget, QPoint at) { return widget.mapTo(widget.window(), at); }
    void PressAt(QWidget& widget, QPoint at) {
        const QWidget* met = widget.window()->childAt(InWindow(widget, at));
        if (!widget.isVisible() || !widget.isEnabled() ||
            (met != nullptr && met != &widget && !widget.isAncestorOf(met)))
            qFatal("%s cannot be clicked", qPrintable(widget.objectName()));
        ++clicks_;
        QTest::mousePress(HandleOf(widget), Qt::LeftButton, {}, InWindow(widget, at));
    }

    Answers answers_;
    int clicks_ = 0;
};

} // namespace

class TestJobClicks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QVERIFY(folder_.isValid());
        // Neither the printers of this machine nor those its user has chosen.
        qputenv("CUPS_SERVER", server_.Address().c_str());
        qputenv("HOME", folder_.path().toUtf8());
        qunsetenv("PRINTER");
        qunsetenv("LPDEST");
    }

    void TheJobOfTheGuideWithTheMarksByKeys() {
        server_.Behave(IppServer::Manner::Accepts);
        const Analysis published = Published();
        Hands hands;
        hands.StartAnew();
        hands.TypeWhoAndWhere(published.state);
        hands.TypeWell(published.state);
        hands.TypeReadings(published.state);
        hands.Turn(5);
        QCOMPARE(hands.FocusName(), u"RecDatWeightGrid"_s);
        hands.Key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
        hands.Type(u"I"_s);
        for (int row = 1; row < FirstUsed; ++row)
            hands.Key(Qt::Key_Down);
        for (int row = FirstUsed; row < LastUsed; ++row)
            hands.Key(Qt::Key_Down, Qt::ShiftModifier);
        hands.Type(u"U"_s);
        hands.Click("CmdComputeK");
        hands.Print(published.state);
        CompareWith(published, hands);
        QVERIFY2(hands.Clicks() <= MostClicks, QByteArray::number(hands.Clicks()));
    }

    void TheJobOfTheGuideWithTheMarksOnThePlot() {
        server_.Behave(IppServer::Manner::Accepts);
        const Analysis published = Published();
        Hands hands;
        hands.TypeWhoAndWhere(published.state);
        hands.TypeWell(published.state);
        hands.TypeReadings(published.state);
        hands.Turn(5);
        hands.Click("CmdComputeK");
        auto& plot = hands.Find<PlotWidget>(u"Plot1"_s);
        hands.TabTo(u"Plot1"_s, Qt::Key_Backtab);
        hands.Key(Qt::Key_A, Qt::ControlModifier);
        hands.Type(u"I"_s);
        const int left = plot.PlaceOfPoint(FirstUsed - 1).toPoint().x() - 5;
        const int right = plot.PlaceOfPoint(LastUsed - 1).toPoint().x() + 5;
        hands.Drag(plot, {left, plot.height() / 2}, {right, plot.height() / 2});
        hands.Type(u"U"_s);
        hands.Click("CmdComputeK");
        hands.Print(published.state);
        CompareWith(published, hands);
        QVERIFY2(hands.Clicks() <= MostClicks, QByteArray::number(hands.Clicks()));
    }

private:
    /// That what was typed is the published test, down to the page in the printer.
    void CompareWith(const Analysis& published, Hands& hands) {
        QCOMPARE(hands.Surprises(), QByteArray());
        QVERIFY(!hands.Find(u"PrtPlotFrm"_s).isVisible());
        const Analysis& typed = hands.Window().Current();
        QVERIFY(typed.computation != nullptr);
        QCOMPARE(typed.computation->KInCmPerSec, published.computation->KInCmPerSec);
        QCOMPARE(typed.computation->usedCount, LastUsed - FirstUsed + 1);
        QCOMPARE(hands.Find<QLabel>(u"ComputedKLabel"_s).text(), u"3.6"_s);
        QVERIFY(typed.state.SiteIDText == published.state.SiteIDText);
        QVERIFY(typed.state.PlotText == published.state.PlotText);
        const auto jobs = server_.Jobs();
        QCOMPARE(jobs.size(), std::size_t{1});
        QVERIFY(jobs[0].whole);
        const QString path = folder_.filePath(u"printed.pdf"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(jobs[0].document.data(), static_cast<qint64>(jobs[0].document.size()));
        file.close();
        QProcess process;
        process.start(u"pdftotext"_s, {path, u"-"_s});
        QVERIFY(process.waitForFinished(-1));
        const QString page = QString::fromUtf8(process.readAllStandardOutput());
        for (const QString& text :
             {u"Conductivity: 3.6 m/day"_s, u"Pratt County, Kansas, Site 36"_s, u"Well 4"_s})
            QVERIFY2(page.contains(text), qPrintable(page));
    }

    QTemporaryDir folder_;
    IppServer server_;
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestJobClicks)

#include "test_job_clicks.moc"

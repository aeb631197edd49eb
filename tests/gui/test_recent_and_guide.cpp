// The menu of recent projects, and the guide at the chapter of the tab one is on.

#include "app/GuideWindow.h"
#include "app/RecentProjects.h"
#include "loggerfiles/ImportReadingsFrm.h"
#include "tests/gui/WindowTestSupport.h"

#include <QTextBlock>
#include <QTextBrowser>

namespace quarnel::windowtest {

class TestRecentAndGuide : public QObject {
    Q_OBJECT
private:
    static QStringList Entries(Program& program) {
        auto& menu = program.Find<QMenu>(u"mnuOpenRecent"_s);
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction* action : menu.actions())
            texts.append((action->isEnabled() ? u"+"_s : u"-"_s) + action->text());
        return texts;
    }

private Q_SLOTS:
    void init() { QSettings().clear(); }

    void AProjectThatWasOpenedStandsFirst() {
        Program program;
        QCOMPARE(Entries(program).constLast(), u"-&Clear List"_s);
        const QString examples = SourceFile("examples/");
        program.Window().OpenPath(examples + u"every-field.qn2"_s);
        program.Window().OpenPath(examples + u"pratt-county-1998.qn2"_s);
        program.Window().OpenPath(examples + u"every-field.qn2"_s);
        const QStringList entries = Entries(program);
        QVERIFY(entries[0].startsWith(u"+&1 every-field.qn2 - "_s));
        QVERIFY(entries[1].startsWith(u"+&2 pratt-county-1998.qn2 - "_s));
        auto& menu = program.Find<QMenu>(u"mnuOpenRecent"_s);
        menu.actions()[1]->trigger();
        QVERIFY(program.Window().windowTitle().endsWith(u"pratt-county-1998.qn2"_s));
    }

    void AMissingProjectIsGreyedAndTheListIsCleared() {
        RecentProjects::Note(u"/absent/a&b.qn2"_s);
        Program program;
        QCOMPARE(Entries(program).constFirst(), u"-&1 a&&b.qn2 - /absent"_s);
        program.Find<QAction>(u"mnuClearRecent"_s).trigger();
        QCOMPARE(Entries(program).constLast(), u"-&Clear List"_s);
        QVERIFY(RecentProjects::Paths().isEmpty());
    }

    void TenAreRemembered() {
        for (int i = 0; i < 12; ++i)
            RecentProjects::Note(u"/data/%1.qn2"_s.arg(i));
        QCOMPARE(RecentProjects::Paths().size(), 10);
        QCOMPARE(RecentProjects::Paths().constFirst(), u"/data/11.qn2"_s);
        QCOMPARE(RecentProjects::Paths().constLast(), u"/data/2.qn2"_s);
    }

    void F1ShowsTheChapterOfTheTab() {
        Program program;
        const QStringList headings = {u"1. Who and where"_s, u"1. Who and where"_s,
                                      u"2. The well"_s, u"3. The readings"_s, u"4. K"_s};
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        for (int tab = 1; tab <= headings.size(); ++tab) {
            program.ClickTab(tab);
            QTest::keyClick(&program.Window(), Qt::Key_F1);
            auto& guide = program.Find<GuideWindow>(u"GuideWindow"_s);
            QVERIFY(guide.isVisible());
            auto& text = Find<QTextBrowser>(guide, u"GuideText"_s);
            QCOMPARE(text.textCursor().block().text(), headings[tab - 1]);
            QVERIFY(text.document()->characterCount() > 5000);
            QVERIFY(text.width() > 60 * text.fontMetrics().averageCharWidth());
            QTest::keyClick(&guide, Qt::Key_Escape);
            QVERIFY(!guide.isVisible());
        }
    }

    void F1InAWindowShowsItsChapter_data() {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("heading");
        QTest::newRow("plot") << u"CmdPrintPlot"_s << u"PrtPlotFrm"_s << u"6. On paper"_s;
        QTest::newRow("results") << u"CmdPrtSummary"_s << u"PrtResults"_s << u"6. On paper"_s;
        QTest::newRow("details") << u"CmdDetails"_s << u"ComputedYFrm"_s
                                 << u"5. What stands behind the number"_s;
        QTest::newRow("diagnostics")
            << u"mnuDiagnostics"_s << u"DiagnosticsFrm"_s << u"How far can I trust K"_s;
        QTest::newRow("compare") << u"mnuCompareProjects"_s << u"CompareProjectsFrm"_s
                                 << u"8. Many wells at once"_s;
    }

    void F1InAWindowShowsItsChapter() {
        QFETCH(QString, opener);
        QFETCH(QString, name);
        QFETCH(QString, heading);
        Program program;
        program.Window().OpenPath(SourceFile("examples/pratt-county-1998.qn2"));
        program.ClickTab(5);
        QTest::mouseClick(&program.Find(u"CmdComputeK"_s), Qt::LeftButton);
        if (opener.startsWith(u"mnu"_s))
            program.Choose(opener);
        else
            QTest::mouseClick(&program.Find(opener), Qt::LeftButton);
        QWidget& window = program.Find(name);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.windowHandle(), Qt::Key_F1);
        auto& guide = program.Find<GuideWindow>(u"GuideWindow"_s);
        QVERIFY(guide.isVisible());
        QCOMPARE(Find<QTextBrowser>(guide, u"GuideText"_s).textCursor().block().text(), heading);
    }

    void F1OverAModalWindowOpensAGuideThatCanBeUsed() {
        Program program;
        Answers answers;
        answers.FileName(SourceFile("examples/mw-7-logger.csv"))
            .Dialog<ImportReadingsFrm>([](ImportReadingsFrm& form) {
                form.activateWindow();
                QTest::keyClick(form.windowHandle(), Qt::Key_F1);
                auto& guide = Find<GuideWindow>(form, u"GuideWindow"_s);
                QVERIFY(guide.isVisible());
                QCOMPARE(Find<QTextBrowser>(guide, u"GuideText"_s).textCursor().block().text(),
                         u"From the logger"_s);
                const QWidget& close = Find(guide, u"CmdClose"_s);
                QTest::mouseClick(guide.windowHandle(), Qt::LeftButton, {},
                                  close.mapTo(&guide, close.rect().center()));
                QVERIFY(!guide.isVisible());
                form.reject();
            });
        program.Choose(u"mnuImportReadings"_s);
        QVERIFY2(answers.AllGiven(), answers.Complaints());
    }
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestRecentAndGuide)
#include "test_recent_and_guide.moc"

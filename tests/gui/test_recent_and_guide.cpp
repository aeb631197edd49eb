// The menu of recent projects, and the guide at the chapter of the tab one is on.

#include "app/GuideWindow.h"
#include "app/RecentProjects.h"
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
                                      u"2. The well"_s, u"3. The readings"_s};
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
};

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestRecentAndGuide)
#include "test_recent_and_guide.moc"

// The window "Compare Projects" itself: how it opens, takes files and keeps to keyboard and screen.

#include "tests/gui/CompareProjectsTestSupport.h"

#include <QScrollArea>
#include <QStandardPaths>

namespace quarnel::windowtest {

namespace {

/// A font of 200 % as long as it lives.
class LargeFont {
public:
    LargeFont()
        : usual_(QApplication::font()) {
        QFont large = usual_;
        large.setPointSizeF(usual_.pointSizeF() * 2);
        QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(usual_); }
    LargeFont(const LargeFont&) = delete;
    LargeFont& operator=(const LargeFont&) = delete;

private:
    QFont usual_;
};

} // namespace

class TestCompareWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void StandsInTheMenuToolsWithoutAShortcut();
    void OpensOnceAndIsNotModal();
    void InvitesWhileItIsEmpty();
    void AddsManyAtOnceInNaturalOrder();
    void TakesDroppedFilesAndTheProjectsOfAFolder();
    void AFileThatCannotBeReadIsARowAndNeverABox();
    void APathGivenTwiceIsToldAndNotCounted();
    void EnterAndDoubleClickOpenTheProject();
    void NamesTheSavedStateOfTheOpenProject();
    void EveryControlHasANameAndAMnemonic();
    void WorksByKeyboardAloneWithALargeFont();
    void FitsASmallWindow();
};

void TestCompareWindow::StandsInTheMenuToolsWithoutAShortcut() {
    CompareProgram program;
    auto& entry = program.Find<QAction>(u"mnuCompareProjects"_s);
    QCOMPARE(entry.text().remove(u'&'), u"Compare Projects..."_s);
    QVERIFY(entry.shortcut().isEmpty());
    QVERIFY(program.Find<QMenu>(u"mnuTools"_s).actions().contains(&entry));
}

void TestCompareWindow::OpensOnceAndIsNotModal() {
    CompareProgram program;
    CompareProjectsFrm& frm = program.Show();
    QVERIFY(frm.isVisible());
    QCOMPARE(frm.windowTitle(), u"Compare Projects"_s);
    QVERIFY(!frm.isModal());
    QCOMPARE(frm.size(), QSize(960, 640).boundedTo(frm.screen()->availableSize()));
    QTest::keyClick(&frm, Qt::Key_Escape);
    QVERIFY(!frm.isVisible());
    program.Show();
    QCOMPARE(program.Window().findChildren<CompareProjectsFrm*>().size(), 1);
    QVERIFY(frm.isVisible());
}

void TestCompareWindow::InvitesWhileItIsEmpty() {
    CompareProgram program;
    program.Show();
    QCOMPARE(program.Grid().accessibleDescription(), EmptyText);
    const QImage empty = program.Grid().viewport()->grab().toImage();
    program.Grid().SetEmptyText(QString());
    QVERIFY(program.Grid().viewport()->grab().toImage() != empty);
    for (const char* name : {"CompareRemove", "CompareUp", "CompareDown", "CompareReload",
                             "CompareCopy", "CompareSave", "CompareRecord"})
        QVERIFY2(!program.Button(QLatin1String(name)).isEnabled(), name);
    QVERIFY(program.Plot().IsEmpty());
    QCOMPARE(program.Statistics(), QString());
    QVERIFY(!program.IsReading());
}

void TestCompareWindow::AddsManyAtOnceInNaturalOrder() {
    CompareProgram program;
    program.WriteFour();
    program.Show();
    Answers answers;
    answers.Dialog<QFileDialog>([&program](QFileDialog& dialog) {
        QCOMPARE(dialog.nameFilters().constFirst(), u"Quarnel 2 (*.qn2)(*.qn2)"_s);
        auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        dialog.setDirectory(program.Path(QString()));
        edit->setFocus();
        QTest::keyClicks(edit, u"\"test 10.qn2\" \"test 2.qn2\" \"test 1.qn2\" \"test 3.qn2\""_s);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    program.Click(u"CompareAdd"_s);
    program.WaitUntilRead();
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(program.Column(CompareFile),
             QStringList({u"test 1.qn2"_s, u"test 2.qn2"_s, u"test 3.qn2"_s, u"test 10.qn2"_s}));
    QCOMPARE(program.Column(CompareNumber), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    Answers cancel;
    cancel.CancelFileName();
    program.Click(u"CompareAdd"_s);
    QVERIFY2(cancel.AllGiven(), cancel.Complaints());
    QCOMPARE(program.Model().rowCount(), 4);
}

void TestCompareWindow::TakesDroppedFilesAndTheProjectsOfAFolder() {
    CompareProgram program;
    QVERIFY(QDir(program.Path(QString())).mkpath(u"site/deeper"_s));
    program.Write(u"site/b 10.qn2"_s, Falling("B", 0.01));
    program.Write(u"site/b 9.qn2"_s, Falling("B", 0.01));
    program.Write(u"site/deeper/c.qn2"_s, Falling("C", 0.01));
    WriteBytes(program.Path(u"site/notes.txt"_s), "no project");
    program.Write(u"a.qn2"_s, Falling("A", 0.01));
    program.Show();
    program.DropAndRead({u"site"_s, u"a.qn2"_s});
    QCOMPARE(program.Column(CompareFile), QStringList({u"a.qn2"_s, u"b 9.qn2"_s, u"b 10.qn2"_s}));
    // It goes to this window, not to the one with the open project.
    QVERIFY(program.Window().Current().file.CurrentProjectFile.empty());
}

void TestCompareWindow::AFileThatCannotBeReadIsARowAndNeverABox() {
    CompareProgram program;
    WriteBytes(program.Path(u"letter.qn2"_s), "Dear reader,\n");
    program.Write(u"one.qn2"_s, Falling("A", 0.01));
    program.Show();
    const Answers answers;
    program.DropAndRead({u"letter.qn2"_s, u"missing.qn2"_s, u"one.qn2"_s});
    QVERIFY2(answers.AllGiven(), answers.Complaints());
    QCOMPARE(program.Model().rowCount(), 3);
    QCOMPARE(program.Cell(0, CompareRemarks),
             u"The file could not be read: The file selected does not appear to be a QUARNEL "
             "input file."_s);
    QCOMPARE(program.Cell(1, CompareRemarks), u"The file could not be read: 53 File not found"_s);
    QCOMPARE(program.Cell(0, CompareK), u"-"_s);
    QVERIFY(program.Cell(2, CompareK) != u"-"_s);
}

void TestCompareWindow::APathGivenTwiceIsToldAndNotCounted() {
    CompareProgram program;
    program.Write(u"one.qn2"_s, Falling("A", 0.01));
    program.Show();
    program.DropAndRead({u"one.qn2"_s});
    program.DropAndRead({u"one.qn2"_s});
    QCOMPARE(program.Model().rowCount(), 2);
    QCOMPARE(program.Cell(1, CompareRemarks), u"The file stands above already."_s);
    QVERIFY2(program.Statistics().startsWith(u"A: 1 of 1 tests counted; "_s),
             qPrintable(program.Statistics()));
}

void TestCompareWindow::EnterAndDoubleClickOpenTheProject() {
    CompareProgram program;
    program.ShowFour();
    program.Grid().setFocus();
    program.Grid().setCurrentIndex(program.Model().index(1, 0));
    const Answers answers;
    QTest::keyClick(&program.Grid(), Qt::Key_Return);
    QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
             program.Path(u"test 2.qn2"_s));
    QCOMPARE(program.SelectedTab(), 1);
    QVERIFY(program.Frm().isVisible());
    program.ClickRow(3);
    QTest::mouseDClick(program.Grid().viewport(), Qt::LeftButton, {},
                       program.Grid().visualRect(program.Model().index(3, 0)).center());
    QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
             program.Path(u"test 10.qn2"_s));
    QVERIFY2(answers.AllGiven(), answers.Complaints());
}

void TestCompareWindow::NamesTheSavedStateOfTheOpenProject() {
    CompareProgram program;
    program.ShowFour();
    program.Window().OpenPath(program.Path(u"test 2.qn2"_s));
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
    TypeInto(program.Find<QLineEdit>(u"SiteIDText_1"_s), u"Site 9"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2 (saved state)"_s);
    QCOMPARE(program.Cell(0, CompareFile), u"test 1.qn2"_s);
    program.Choose(u"mnuFileSave"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
    // Readings count as much as texts do.
    program.ClickTab(4);
    program.ClickTab(3);
    TypeInto(program.Find<QLineEdit>(u"WellGeoText_0"_s), u"40"_s);
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2 (saved state)"_s);
    program.Window().OpenPath(program.Path(u"test 1.qn2"_s));
    QTRY_COMPARE(program.Cell(1, CompareFile), u"test 2.qn2"_s);
}

void TestCompareWindow::EveryControlHasANameAndAMnemonic() {
    CompareProgram program;
    CompareProjectsFrm& frm = program.Show();
    QStringList keys;
    const auto add = [&keys](const QString& text, const QString& name) {
        const qsizetype at = text.indexOf(u'&');
        QVERIFY2(at >= 0 && at + 1 < text.size(), qPrintable(name));
        keys << text.mid(at + 1, 1).toLower();
    };
    for (const QAbstractButton* button : frm.findChildren<QAbstractButton*>())
        if (!button->objectName().startsWith(u"qt_"_s) && !button->text().isEmpty())
            add(button->text(), button->objectName());
    QSet<const QWidget*> buddies;
    for (const QLabel* label : frm.findChildren<QLabel*>())
        if (label->buddy() != nullptr) {
            add(label->text(), label->text());
            buddies.insert(label->buddy());
            QVERIFY2(!label->buddy()->accessibleName().isEmpty(), qPrintable(label->text()));
        }
    for (const char* name : {"CompareLengthUnit", "CompareTimeUnit", "CompareGroup", "CompareGrid",
                             "CompareStatistics", "ComparePlot"})
        QVERIFY2(buddies.contains(&program.Find(QLatin1String(name))), name);
    QStringList unique = keys;
    unique.removeDuplicates();
    QCOMPARE(keys, unique);
}

void TestCompareWindow::WorksByKeyboardAloneWithALargeFont() {
    const LargeFont twiceAsLarge;
    {
        CompareProgram program;
        program.WriteFour();
        CompareProjectsFrm& frm = program.Show();
        frm.resize(800, 560);
        // The platform without a screen gives the keyboard back to the first window.
        const auto activate = [&frm] {
            frm.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &frm);
        };
        activate();
        Answers answers;
        answers.Dialog<QFileDialog>([&program](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
            dialog.setDirectory(program.Path(QString()));
            edit->setFocus();
            QTest::keyClicks(edit, u"\"test 1.qn2\" \"test 2.qn2\""_s);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        QTest::keyClick(&frm, Qt::Key_A, Qt::AltModifier);
        QTRY_COMPARE(program.Model().rowCount(), 2);
        program.WaitUntilRead();
        QVERIFY2(answers.AllGiven(), answers.Complaints());
        activate();
        QTest::keyClick(&frm, Qt::Key_J, Qt::AltModifier);
        QCOMPARE(frm.focusWidget(), &program.Grid());
        QTest::keyClick(&program.Grid(), Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClick(&program.Grid(), Qt::Key_Down);
        QCOMPARE(program.Grid().currentIndex().row(), 1);
        QTest::keyClick(&program.Grid(), Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(program.Column(CompareFile), QStringList({u"test 2.qn2"_s, u"test 1.qn2"_s}));
        // Tab leaves the table and comes round to every control, each of them in sight.
        QSet<QString> visited;
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(frm.focusWidget(), Qt::Key_Tab);
            QWidget* focus = frm.focusWidget();
            visited.insert(focus->objectName());
            const QRect seen = QRect(focus->mapTo(&frm, QPoint(0, 0)), focus->size());
            QVERIFY2(frm.rect().intersects(seen), qPrintable(focus->objectName()));
        }
        for (const QString& name :
             {u"CompareAdd"_s, u"CompareRemove"_s, u"CompareUp"_s, u"CompareDown"_s,
              u"CompareReload"_s, u"CompareLengthUnit"_s, u"CompareTimeUnit"_s, u"CompareGroup"_s,
              u"CompareGrid"_s, u"CompareStatistics"_s, u"ComparePlot"_s, u"CompareTimeLag"_s,
              u"CompareCopy"_s, u"CompareSave"_s, u"CompareRecord"_s, u"CompareClose"_s})
            QVERIFY2(visited.contains(name), qPrintable(name));
        QTest::keyClick(&frm, Qt::Key_J, Qt::AltModifier);
        QTest::keyClick(&program.Grid(), Qt::Key_Return);
        QCOMPARE(ToQString(program.Window().Current().file.CurrentProjectFile),
                 program.Path(u"test 2.qn2"_s));
    }
}

void TestCompareWindow::FitsASmallWindow() {
    CompareProgram program;
    program.ShowFour();
    program.Frm().resize(800, 560);
    QCOMPARE(program.Frm().size(), QSize(800, 560));
    QTRY_VERIFY(program.Find(u"ComparePlot"_s).width() < 560);
    for (const char* name :
         {"CompareAdd", "CompareReload", "CompareGroup", "CompareGrid", "CompareStatistics",
          "ComparePlot", "CompareTimeLag", "CompareRecord", "CompareClose"}) {
        QWidget& control = program.Find(QLatin1String(name));
        const QRect seen(control.mapTo(&program.Frm(), QPoint(0, 0)), control.size());
        QVERIFY2(program.Frm().rect().contains(seen), name);
        QVERIFY2(!control.visibleRegion().isEmpty(), name);
    }
    QVERIFY(program.Grid().viewport()->height() > 4 * program.Grid().rowHeight(0));
}

} // namespace quarnel::windowtest

QUARNEL_WINDOW_TEST_MAIN(quarnel::windowtest::TestCompareWindow)

#include "test_compare_window.moc"
